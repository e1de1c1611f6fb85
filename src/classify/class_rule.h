// SPDX-License-Identifier: MIT
//
// How an appended value finds its class.
//
// Class 1 is for values below the lowest limit, or for names that fit none; classes 2 to base + 1
// are the base classes in order, and base + 2 is for values above the top limit. The first and the
// last of these exist only when they are kept; 0 is no class.

#pragma once

#include "core/plot_record.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace quandrel {

inline constexpr int kMostRanges = 10; ///< base classes of numbers
inline constexpr int kMostNames = 11;  ///< base classes of names

using ClassTableCells = Table<TaggedValue, kClassRows, 3>;

struct ClassRule {
    ClassColumn column = kNumberClasses;
    int base = 0;                      ///< base classes, 0 to kMostRanges or kMostNames
    std::array<double, 10> limits{};   ///< [0] the lowest limit, [k] the upper one of base class k
    double top = 0;                    ///< upper limit of the last base class
    std::array<std::string, 11> names; ///< [k] of base class k + 1; in lower case unless
                                       ///< caseSensitive
    bool keepLow = false;              ///< class 1 is kept
    bool keepHigh = false;             ///< class base + 2 is kept; never of names
    bool caseSensitive = false;
};

/// The name that a cell of kNameClasses holds. Only texts are names: the cells of a new plot hold
/// numbers.
[[nodiscard]] std::string NameOfCell(const TaggedValue& cell);

/// The rule in a column of a class table. Names and ranges of texts share the number of classes and
/// the flags of column 1. Limits of appended numbers are rounded as their column rounds the values.
/// No class of low numbers is kept beside no base class.
[[nodiscard]] ClassRule RuleOfClassTable(const ClassTableCells& table, ClassColumn column);

/// Number of the last class: base + 1, one more when high values are kept.
[[nodiscard]] int LastClass(const ClassRule& rule);

/// True for a class that some value belongs to; false for one between two equal limits, or of a
/// name that is empty or another class's before it.
///
/// @param classNumber  1 to LastClass
[[nodiscard]] bool CanHoldValues(const ClassRule& rule, int classNumber);

/// Class of a number: 0 when it lies outside the limits and is not kept there. A value at the top
/// limit is in the last base class, one at any other limit in the class above it; limits are tried
/// in their order, whether they ascend or not.
[[nodiscard]] int ClassOfNumber(const ClassRule& rule, double value);

/// Class of a text by the names: 0 when it fits none and others are not kept.
[[nodiscard]] int ClassOfName(const ClassRule& rule, std::string_view text);

} // namespace quandrel
