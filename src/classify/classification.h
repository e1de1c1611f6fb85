// SPDX-License-Identifier: MIT
//
// Classes of the rows of the active plot: how the class of a row is found, how it is drawn, and how
// it is labelled.
//
// This folder holds limits and names of classes, their legend, value grids, and the rules of the
// dialog.
// Input: appended numbers and texts of the active plot, and the user's choice of classes.
// Output: the class and the symbol of each row, limits and names in the record, lines of the
// legend, counts and percentages.

#pragma once

#include "classify/class_rule.h"
#include "core/plot.h"

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

/// The column of the class table that a mode uses; nothing for kNotClassified and unknown modes.
[[nodiscard]] std::optional<ClassColumn> ColumnOfClassMode(int mode);

/// Class of a row; 0 for an error row and one without a class. An invalid value is in class 1 if
/// that is kept.
[[nodiscard]] int ClassOfRow(const Plot& plot, const ClassRule& rule, std::int32_t row);

/// ClassOfRow of gActivePlot by its class table. For many rows, make the rule only once.
[[nodiscard]] int ClassifyRow(std::int32_t row, int mode);

/// Number of main rows in each class: [c] for class c up to the last one, [0] for valid rows
/// without a class. Empty for kNotClassified.
[[nodiscard]] std::vector<std::int32_t> RowsOfClasses(const Plot& plot, int mode);

/// Style of a class: its own row of Styles::symbols. Classes beyond the table start again at its
/// first class, with the next shape.
///
/// @param classNumber  from 1
[[nodiscard]] SymbolCode CodeOfClass(const Styles& styles, int classNumber);

/// The same in the styles in force.
[[nodiscard]] inline SymbolCode CodeOfClass(int classNumber) {
    return CodeOfClass(gSettings.styles, classNumber);
}

inline constexpr int kFirstClassStyle = 39; ///< row of Styles::symbols of class 1
inline constexpr int kClassStyles = kSymbolRowCount - kFirstClassStyle;

/// Gives each main row of a plot the style of its class, or none, and counts the classified rows in
/// NumClassified. kNotClassified restores the styles that the rows were loaded with.
///
/// @param mode  a ClassModeCode; an unknown one counts as kNotClassified
void ApplyClassification(Plot& plot, const Styles& styles, std::int16_t mode);

/// The same of gActivePlot in the styles in force.
void ApplyClassification(std::int16_t mode);

/// Classes of changed rows of a classified plot; other plots are unchanged.
void RefreshClassification(Plot& plot, const Styles& styles);

/// How limits are shown: as short as possible, or as those of standard deviations.
enum class LimitForm { Plain, Deviations };

/// The label of a class: "2-4", "> 10", "< 2", "Other data", or its name. Limits are as in the
/// boxes of the dialogs, with the regional decimal delimiter.
///
/// @param form  LimitFormOf for appended numbers, else Plain
[[nodiscard]] std::string ClassLabel(const ClassTableCells& table, ClassColumn column,
                                     int classNumber, LimitForm form = LimitForm::Plain);

/// True when fewer than seven in ten valid rows of a plot are classified by a number (see
/// NumClassified), and the numbers may be the cause: some row has no readable number. Rows outside
/// the user's limits alone cause no warning.
[[nodiscard]] bool DecimalWarningNeeded(const Plot& plot, ClassColumn column);

/// The warning for that case.
[[nodiscard]] std::string DecimalWarningText(const PlotRecord& record);

} // namespace quandrel
