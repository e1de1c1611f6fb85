// SPDX-License-Identifier: MIT
//
// Plain statistics of a list of numbers.

#pragma once

#include <cstddef>
#include <optional>
#include <span>

namespace quandrel {

struct NumberStatistics {
    std::size_t count = 0; ///< at least 1
    double least = 0;
    double greatest = 0;
    double mean = 0;
    double standardDeviation = 0; ///< of a sample: over n - 1; 0 for a single number
};

/// @param numbers  finite, in any order
/// @return nothing for an empty list. O(n), one pass that keeps the digits of large numbers close
/// to
///     each other.
/// Formula: B. P. Welford, Note on a Method for Calculating Corrected Sums of Squares and Products,
/// Technometrics 4 (1962), 419-420.
[[nodiscard]] std::optional<NumberStatistics> StatisticsOfNumbers(std::span<const double> numbers);

/// How many different numbers there are. O(n log n), with a copy.
[[nodiscard]] std::size_t CountDistinctNumbers(std::span<const double> numbers);

} // namespace quandrel
