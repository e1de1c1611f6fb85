// SPDX-License-Identifier: MIT
//
// Classes of the rows of the active plot: how each row finds its class, what it looks like then,
// and what is told of it.
//
// Inside the folder: limits and names of classes, their legend, value grids, the rules of the
// dialog.
// Enters: appended numbers and texts of the active plot, and the user's choice of classes.
// Leaves: the class and the symbol of each row, limits and names in the record, lines of the
// legend, counts and percentages.

#pragma once

#include "classify/class_rule.h"
#include "core/style_tables.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// How the rows of a stereo plot are classified: ClassMode.
enum ClassModeCode : std::int16_t {
    kNotClassified = 0,
    kClassesByNumber = 1,
    kClassesByTextNumber = 2,
    kClassesByName = 3,
};

/// The column of the class table that a mode reads, nothing for kNotClassified and unknown modes.
[[nodiscard]] std::optional<ClassColumn> ColumnOfClassMode(int mode);

/// Class of a row of gActivePlot, 0 for an error row and one that fits no class. An invalid value
/// is in class 1 where that is kept.
[[nodiscard]] int ClassOfRow(const ClassRule& rule, std::int32_t row);

/// ClassOfRow by the class table of gActivePlot. For many rows make the rule once.
[[nodiscard]] int ClassifyRow(std::int32_t row, int mode);

/// Main rows in each class: [c] for class c to the last one, [0] rows of no class that are no error
/// rows. Empty for kNotClassified.
[[nodiscard]] std::vector<std::int32_t> RowsOfClasses(int mode);

/// Style of a class: a row of gSymbolTable of its own. Classes beyond the table begin again with
/// its first class in the next shape.
///
/// @param classNumber  from 1
[[nodiscard]] SymbolCode CodeOfClass(int classNumber);

inline constexpr int kFirstClassStyle = 39; ///< row of gSymbolTable of class 1
inline constexpr int kClassStyles = kSymbolRowCount - kFirstClassStyle;

/// Gives each main row of gActivePlot the style of its class, rows of no class none, and counts the
/// others in NumClassified. Without a class the rows get back the styles that they were loaded
/// with.
///
/// @param mode  a ClassModeCode; an unknown one counts as kNotClassified
void ApplyClassification(std::int16_t mode);

/// Classes of changed rows of a classified gActivePlot; any other plot is left alone.
void RefreshClassification();

/// How limits are shown: as short as they are, or as those of standard deviations.
enum class LimitForm { Plain, Deviations };

/// What a class is called: "2-4", "> 10", "< 2", "Other data", or its name. Limits are as the boxes
/// of the dialogs show them, with the regional decimal delimiter.
///
/// @param form  that of LimitFormOf for appended numbers, else Plain
[[nodiscard]] std::string ClassLabel(const ClassTableCells& table, ClassColumn column,
                                     int classNumber, LimitForm form = LimitForm::Plain);

/// True when fewer than seven in ten valid rows of gActivePlot are classified by a number (see
/// NumClassified), and the numbers may be to blame: some row has none that can be read. Rows that
/// the user's limits leave out raise nothing.
[[nodiscard]] bool DecimalWarningNeeded(ClassColumn column);

/// What is told then.
[[nodiscard]] std::string DecimalWarningText();

} // namespace quandrel
