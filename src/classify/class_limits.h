// SPDX-License-Identifier: MIT
//
// Limits of classes: the procedures that propose limits and names, and the text of a limit.
//
// Limits are never rounded to their displayed texts, so that rounding cannot put a value outside
// the outer classes.

#pragma once

#include "classify/class_rule.h"
#include "core/result.h"

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// The limits of ranges.
struct ClassLimits {
    int base = 0;                             ///< number of classes, 0 to kMostRanges
    std::array<double, kMostRanges> limits{}; ///< [0] the lowest, [k] the upper limit of class k,
                                              ///< for all classes but the last
    double top = 0;                           ///< upper limit of the last class
};

/// Lower and upper limit of class k, 1 to base. With base 0 there is one class, from the lowest
/// limit to the top limit.
[[nodiscard]] double LowerLimit(const ClassLimits& limits, int k);
[[nodiscard]] double UpperLimit(const ClassLimits& limits, int k);

/// Classes of equal width from the least value to the greatest.
///
/// @param classes  clamped to 1 to kMostRanges
[[nodiscard]] ClassLimits EqualRanges(double least, double greatest, int classes);

/// Classes one standard deviation wide, with as many below the mean as above it.
///
/// @param classes  clamped to kMostRanges
/// @return for fewer than 2 classes, a message for the user
[[nodiscard]] Result<ClassLimits> DeviationSplits(double mean, double deviation, int classes);

/// True when limits are equal except for rounding.
[[nodiscard]] bool AreAlike(const ClassLimits& a, const ClassLimits& b);

/// Classes that begin at the given values, which may be in any order. Each value has a class. The
/// last class is that value alone, or, if there are more values than classes, reaches up to the
/// greatest.
///
/// @param values  empty gives one class at 0
[[nodiscard]] ClassLimits ValueRanges(std::span<const double> values);

enum class NameOrder { FirstFound, Ascending, Descending };

/// Names in an order.
///
/// @param names  in the order in which they were found
///
/// Case is ignored; names that differ only in case keep the order found. Names that are numbers, by
/// the regional delimiter, are sorted by value and precede the others in ascending order.
[[nodiscard]] std::vector<std::string> OrderNames(std::vector<std::string> names, NameOrder order);

/// The table of a plot that was not classified yet: the lowest limits, a top above all data, and
/// low values of appended numbers kept as a class.
[[nodiscard]] ClassTableCells DefaultClassTable(double lowestNumber, double lowestTextNumber);

inline constexpr double kOpenTop = 999999; ///< top limit of DefaultClassTable

/// A limit as a box and the legend show it: as short as seven digits allow without loss, else with
/// five digits; the whole part is never cut: "2.1", "3.3333", "0.00012", "1234567". Below 1e-7 it
/// has a power of ten: "1.5E-9".
[[nodiscard]] std::string LimitText(double limit);

/// The text of a number, with the regional decimal delimiter.
[[nodiscard]] std::string WithRegionalDelimiter(std::string text);

/// A limit of DeviationSplits as a box shows it: one decimal, up to three when the deviation is
/// below 10, and as LimitText when it is so small that limits would look equal.
[[nodiscard]] std::string DeviationLimitText(double limit, double deviation);

} // namespace quandrel
