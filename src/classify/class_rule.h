// SPDX-License-Identifier: MIT
//
// How the class of an appended value is found.
//
// Class 1 is for values below the lowest limit, or for names that match none; classes 2 to base + 1
// are the base classes in order, and base + 2 is for values above the top limit. The first and the
// last of these exist only when they are kept; 0 means no class.

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
    int base = 0;                      ///< number of base classes, 0 to kMostRanges or kMostNames
    std::array<double, 10> limits{};   ///< [0] the lowest limit, [k] the upper of base class k
    double top = 0;                    ///< upper limit of the last base class
    std::array<std::string, 11> names; ///< [k] of base class k + 1; lower case unless caseSensitive
    bool keepLow = false;              ///< class 1 is kept
    bool keepHigh = false;             ///< class base + 2 is kept; never for names
    bool caseSensitive = false;
};

/// The name in a cell of kNameClasses. Only texts are names: the cells of a new plot hold numbers.
[[nodiscard]] std::string NameOfCell(const TaggedValue& cell);

/// The rule in a column of a class table. Names and ranges of texts share the number of classes and
/// the flags of column 1. Limits of appended numbers are rounded as their column rounds the values.
/// Without base classes, no class of low numbers is kept.
[[nodiscard]] ClassRule RuleOfClassTable(const ClassTableCells& table, ClassColumn column);

/// Number of the last class: base + 1, one more when high values are kept.
[[nodiscard]] int LastClass(const ClassRule& rule);

/// True for a class that can hold a value; false between two equal limits, and for a name that is
/// empty or the same as an earlier one.
///
/// @param classNumber  1 to LastClass
[[nodiscard]] bool CanHoldValues(const ClassRule& rule, int classNumber);

/// Class of a number; 0 when it is outside the limits and not kept there. A value at the top limit
/// is in the last base class, a value at any other limit in the class above it. Limits are tried in
/// order, even if they do not ascend.
[[nodiscard]] int ClassOfNumber(const ClassRule& rule, double value);

/// Class of a text by the names; 0 when it matches none and others are not kept.
[[nodiscard]] int ClassOfName(const ClassRule& rule, std::string_view text);

} // namespace quandrel
