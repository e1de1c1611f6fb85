// SPDX-License-Identifier: MIT
//
// Settings of classes as the boxes of a dialog edit them: one limit or name after the other, the
// styles of the classes, and what is told of the column.
//
// A dialog shows twelve lines of classes. Line 0 is for what lies below the lowest limit, or for
// names that fit none; lines 1 to 11 are the base classes; what lies above the top limit has line
// 11, which ranges leave free. Each range has two boxes, its lower limit and its upper one.

#pragma once

#include "classify/class_settings.h"
#include "classify/column_statistics.h"
#include "core/style_tables.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

inline constexpr int kClassLines = 12;
inline constexpr int kHighLine = 11;                ///< of ranges
inline constexpr int kLimitBoxes = 2 * kMostRanges; ///< 2(k - 1) and 2(k - 1) + 1 for range k
inline constexpr int kFirstRangeCount = 5;          ///< ranges of a plot without classes so far

/// What rows are classified by.
enum class ClassKind { None, Numbers, Types };

[[nodiscard]] ClassKind KindOfMode(int mode);

/// Takes a kind. A kind that has no classes yet gets its first ones: equal ranges of the numbers,
/// or the types found first. Reads gActivePlot.
void ChooseClassKind(ClassSettings& settings, ClassKind kind);

/// Takes types as numbers, or as names. Limits that were never set up are filled from the types
/// found first. Reads gActivePlot.
void ChooseNumericTypes(ClassSettings& settings, bool areNumbers);

/// True when the lines of a kind show ranges: of numbers, or of types that are numbers.
[[nodiscard]] bool HasRangeLines(const ClassSettings& settings, ClassKind kind);

/// The ranges that the lines of a kind show; `settings.numbers` for None.
[[nodiscard]] ClassRanges& RangesOfKind(ClassSettings& settings, ClassKind kind);
[[nodiscard]] const ClassRanges& RangesOfKind(const ClassSettings& settings, ClassKind kind);

/// Base classes of a kind.
[[nodiscard]] int ClassesOfKind(const ClassSettings& settings, ClassKind kind);

/// The class of a line, 0 for a line that has none. A class that is not kept has its line all the
/// same.
[[nodiscard]] int ClassOfLine(const ClassSettings& settings, ClassKind kind, int line);

/// False for what lies outside the base classes and is not kept.
[[nodiscard]] bool IsLineKept(const ClassSettings& settings, ClassKind kind, int line);

/// The limit of a box.
[[nodiscard]] double LimitAt(const ClassLimits& limits, int box);

/// Moves a limit: the box of the neighbour that shares it follows.
void SetLimitAt(ClassLimits& limits, int box, double value);

/// False when a limit lies below the one before it. Equal limits ascend.
[[nodiscard]] bool LimitsAscend(const ClassLimits& limits);

/// The text of a limit in a box, with the regional decimal delimiter.
///
/// @param form  Deviations: the limits are one standard deviation apart
[[nodiscard]] std::string LimitBoxText(const ClassLimits& limits, int box, LimitForm form);

/// A number for display, with the regional decimal delimiter.
[[nodiscard]] std::string ShownNumber(double number);

/// Figures of the classified column of gActivePlot, and of its grids.
struct ClassFigures {
    ColumnStatistics column;         ///< appended numbers; without them texts read as numbers
    std::size_t types = 0;           ///< different texts
    std::optional<ValueRange> means; ///< of the grid's nodes, as the grid stands
    std::optional<ValueRange> sums;
};

/// O(rows log rows). Changes nothing.
[[nodiscard]] ClassFigures FiguresOfActivePlot();

/// True when an appended text of gActivePlot can be read as a number. Looks no further than the
/// first of them.
[[nodiscard]] bool HasNumericTypes();

/// Styles of classes 1 to 12: rows of gSymbolTable.
using ClassStyles = std::array<SymbolRow, kClassStyles>;

/// @param firstRow  row of class 1: kFirstClassStyle for symbols, kFirstRoseClassStyle for fills
[[nodiscard]] ClassStyles StylesOfClasses(int firstRow);
void WriteStylesOfClasses(const ClassStyles& styles, int firstRow);

/// ApplyClassSettings with symbols of classes: these come first, and go back when the settings are
/// refused. All plots share them: when they have changed, every other classified plot is drawn anew
/// in them.
///
/// @return empty, or why nothing has changed
[[nodiscard]] std::string ApplyClasses(const ClassSettings& settings, const ClassStyles& styles);

} // namespace quandrel
