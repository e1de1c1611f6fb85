// SPDX-License-Identifier: MIT
//
// Classes of values: the range of a number, the name that a text matches.
//
// Example: spacings of joints in three classes.
//
//     namespace qd = quandrel::api;
//     const std::vector<double> spacings = {0.2, 1.5, 3.1, 0.9, 6.0};
//     const qd::Ranges ranges = qd::EqualRanges(0, 6, 3);
//     std::vector<int> classes(spacings.size());
//     qd::FindClasses(spacings, ranges, classes);
//     std::cout << classes[0] << classes[2] << classes[4] << '\n'; // -> 123

#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel::api {

/// The class of a value that belongs to none.
inline constexpr int kNoClass = -1;

inline constexpr std::size_t kMostRangeClasses = 10;
inline constexpr std::size_t kMostNameClasses = 11;

/// Ranges of numbers: class k, from 1, extends from limit k - 1 to limit k.
struct Ranges {
    std::vector<double> limits; ///< ascending, 2 to kMostRangeClasses + 1; equal ones are allowed
    bool keepsBelow = false;    ///< values below the lowest limit are class 0, else without a class
    bool keepsAbove = false;    ///< values above the greatest limit have the class after the last
};

/// The class of a number. A number at a limit is in the class above it, one at the greatest limit
/// in the last class; NaN has no class.
[[nodiscard]] int ClassOf(double value, const Ranges& ranges);

/// ClassOf for n numbers.
///
/// @param[out] classes  n numbers
void FindClasses(std::span<const double> values, const Ranges& ranges, std::span<int> classes);

/// Ranges of equal width.
///
/// @param least,greatest  least <= greatest
/// @param classes         1 to kMostRangeClasses
[[nodiscard]] Ranges EqualRanges(double least, double greatest, int classes);

/// Ranges one standard deviation wide, with as many below the mean as above it.
///
/// @param deviation  >= 0
/// @param classes    2 to kMostRangeClasses
[[nodiscard]] Ranges DeviationRanges(double mean, double deviation, int classes);

/// Ranges that begin at the given values, so that each has a class. The last class is that value
/// alone, or, if there are more values than classes, extends to the greatest.
///
/// @param values  one or more, in any order
[[nodiscard]] Ranges RangesFrom(std::span<const double> values);

/// Names of classes: class k, from 1, is name k - 1.
struct Names {
    std::vector<std::string> names; ///< at most kMostNameClasses; of equal ones the first counts
    bool keepsOthers = false;       ///< texts that match no name are class 0, else without a class
    bool isCaseSensitive = false;
};

/// The class of a text. An empty text matches no name.
[[nodiscard]] int ClassOf(std::string_view text, const Names& names);

/// Plain statistics of numbers.
struct NumberStatistics {
    std::size_t count = 0;
    double least = 0;
    double greatest = 0;
    double mean = 0;
    double standardDeviation = 0; ///< over n - 1; 0 for a single number
};

/// @return nothing without numbers. O(n).
///
/// Formula: B. P. Welford, Technometrics 4 (1962), 419-420.
[[nodiscard]] std::optional<NumberStatistics> NumberStatisticsOf(std::span<const double> values);

} // namespace quandrel::api
