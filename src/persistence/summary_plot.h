// SPDX-License-Identifier: MIT
//
// Summaries as plots.

#pragma once

#include "core/result.h"
#include "core/settings_value.h"
#include "persistence/binary_plot.h"
#include "summary/row_summary.h"

namespace quandrel {

/// A new plot whose main rows are the cells of a summary (stereo/cell_rows.h). The appended number
/// is how many rows a cell stands for; of a weighted summary the sum of their weights, rounded.
///
/// @return a failure for a summary without rows, and for more rows than a plot can count
[[nodiscard]] Result<BinaryPlot> PlotOfSummary(const RowSummary& summary, const Settings& settings);

} // namespace quandrel
