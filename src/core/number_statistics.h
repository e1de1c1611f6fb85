// SPDX-License-Identifier: MIT
//
// Statistics of a list of numbers.

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
    double standardDeviation = 0; ///< of a sample, with n - 1; 0 for a single number
};

/// Mean and standard deviation in one pass, stable for large numbers that are close together. O(n).
///
/// Formula: B. P. Welford, Note on a Method for Calculating Corrected Sums of Squares and Products,
/// Technometrics 4 (1962), 419-420.
///
/// @param numbers  finite, in any order
/// @return empty for an empty list
[[nodiscard]] std::optional<NumberStatistics> StatisticsOfNumbers(std::span<const double> numbers);

/// The number of distinct values. O(n log n), with a copy.
[[nodiscard]] std::size_t CountDistinctNumbers(std::span<const double> numbers);

} // namespace quandrel
