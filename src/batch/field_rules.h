// SPDX-License-Identifier: MIT
//
// Which fields of a plot a script may set, and to what.

#pragma once

#include <string>

namespace quandrel {

/// What is wrong with setting a field of gActivePlot to a value, or nothing. Refused are fields
/// that follow from the rows or are worked out when the plot is drawn, which the next drawing would
/// take back, and values that are none of the field's.
[[nodiscard]] std::string RefusalOfField(const std::string& field, const std::string& value);

/// True for fields that are an edit of the plot: its texts, its styles and its marks. What is
/// shown, and how, is not.
[[nodiscard]] bool IsEditOfPlot(const std::string& name);

/// True for fields whose change moves rows, or changes what is counted.
[[nodiscard]] bool MovesRows(const std::string& field);

} // namespace quandrel
