// SPDX-License-Identifier: MIT
//
// Settings of classes as the boxes of a dialog edit them: each limit or name, the styles of the
// classes, and the figures of the column.
//
// A dialog shows twelve lines of classes. Line 0 is for values below the lowest limit, or for names
// that match none; lines 1 to 11 are the base classes. Values above the top limit have line 11,
// which ranges do not use. Each range has two boxes, its lower limit and its upper limit.

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
inline constexpr int kHighLine = 11;                ///< for ranges
inline constexpr int kLimitBoxes = 2 * kMostRanges; ///< 2(k - 1) and 2(k - 1) + 1 for range k
inline constexpr int kFirstRangeCount = 5;          ///< ranges of a plot without classes

/// The column that rows are classified by.
enum class ClassKind { None, Numbers, Types };

[[nodiscard]] ClassKind KindOfMode(int mode);

/// Sets the kind. A kind that has no classes yet gets initial ones: equal ranges of the numbers, or
/// the types found first. Reads gActivePlot.
void ChooseClassKind(ClassSettings& settings, ClassKind kind);

/// Treats types as numbers, or as names. Limits that were never set are filled from the types found
/// first. Reads gActivePlot.
void ChooseNumericTypes(ClassSettings& settings, bool areNumbers);

/// True when the lines of a kind show ranges: of numbers, or of types that are numbers.
[[nodiscard]] bool HasRangeLines(const ClassSettings& settings, ClassKind kind);

/// The ranges that the lines of a kind show; `settings.numbers` for None.
[[nodiscard]] ClassRanges& RangesOfKind(ClassSettings& settings, ClassKind kind);
[[nodiscard]] const ClassRanges& RangesOfKind(const ClassSettings& settings, ClassKind kind);

/// Base classes of a kind.
[[nodiscard]] int ClassesOfKind(const ClassSettings& settings, ClassKind kind);

/// The class of a line; 0 for a line without one. A class that is not kept still has its line.
[[nodiscard]] int ClassOfLine(const ClassSettings& settings, ClassKind kind, int line);

/// False for values outside the base classes that are not kept.
[[nodiscard]] bool IsLineKept(const ClassSettings& settings, ClassKind kind, int line);

/// The limit of a box.
[[nodiscard]] double LimitAt(const ClassLimits& limits, int box);

/// Sets a limit; the neighbour's box that shares it gets the same value.
void SetLimitAt(ClassLimits& limits, int box, double value);

/// False when a limit is below the one before it. Equal limits are valid.
[[nodiscard]] bool LimitsAscend(const ClassLimits& limits);

/// The text of a limit in a box, with the regional decimal delimiter.
///
/// @param form  Deviations: the limits are one standard deviation apart
[[nodiscard]] std::string LimitBoxText(const ClassLimits& limits, int box, LimitForm form);

/// A number for display, with the regional decimal delimiter.
[[nodiscard]] std::string ShownNumber(double number);

/// Statistics of the classified column of gActivePlot, and of its grids.
struct ClassFigures {
    ColumnStatistics column;         ///< appended numbers; if there are none, texts read as numbers
    std::size_t types = 0;           ///< different texts
    std::optional<ValueRange> means; ///< of the nodes of the present grid
    std::optional<ValueRange> sums;
};

/// O(rows log rows). Changes nothing.
[[nodiscard]] ClassFigures FiguresOfActivePlot();

/// True when an appended text of gActivePlot is a number. Stops at the first one.
[[nodiscard]] bool HasNumericTypes();

/// Styles of classes 1 to 12: rows of gSymbolTable.
using ClassStyles = std::array<SymbolRow, kClassStyles>;

/// @param firstRow  row of class 1: kFirstClassStyle for symbols, kFirstRoseClassStyle for fills
[[nodiscard]] ClassStyles StylesOfClasses(int firstRow);
void WriteStylesOfClasses(const ClassStyles& styles, int firstRow);

/// ApplyClassSettings, with the styles of classes, which are set first and restored when the
/// settings are refused. All plots share the styles: when they have changed, every other classified
/// plot is redrawn.
///
/// @return empty, or the reason why nothing has changed
[[nodiscard]] std::string ApplyClasses(const ClassSettings& settings, const ClassStyles& styles);

} // namespace quandrel
