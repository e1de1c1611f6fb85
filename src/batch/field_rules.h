// SPDX-License-Identifier: MIT
//
// Which fields of a plot a script may set, and their valid values.

#pragma once

#include <string>

namespace quandrel {

/// Why a field of gActivePlot cannot be set to a value, or nothing. Refused are invalid values, and
/// fields that follow from the rows or are calculated when the plot is drawn, because the next
/// drawing would overwrite them.
[[nodiscard]] std::string RefusalOfField(const std::string& field, const std::string& value);

/// True for fields whose change is an edit of the plot: its texts, styles and marks. Display
/// options are not edits.
[[nodiscard]] bool IsEditOfPlot(const std::string& name);

/// True for fields whose change moves rows, or changes what is counted or by which formulas.
[[nodiscard]] bool MovesRows(const std::string& field);

} // namespace quandrel
