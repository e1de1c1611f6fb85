// SPDX-License-Identifier: MIT
//
// Separate statistics of P and of T axes in a plot that shows both. The record of such a plot holds
// those of P.

#pragma once

#include "core/plot_record.h"
#include "statistics/fabric_statistics.h"
#include "stereo/axis_rows.h"
#include "stereo/distinct_lines.h"

#include <string>
#include <vector>

namespace quandrel {

/// The axes of one kind with their statistics, as in the record of a plot of these axes alone.
struct AxisStatistics {
    RowLines lines; ///< empty without axes; the record is then meaningless
    PlotRecord record;
};

/// The statistics of a plot, computed from its rows. O(rows).
///
/// @param styles  the source of the symbols of the axes
[[nodiscard]] AxisStatistics StatisticsOfAxes(const Plot& plot, const Styles& styles,
                                              Formulas formulas, AxisKind kind);

/// Those of gActivePlot, by the current formulas.
[[nodiscard]] AxisStatistics StatisticsOfAxes(AxisKind kind);

/// "P shortening axes" or "T extension axes".
[[nodiscard]] std::string NameOfAxes(AxisKind kind);

/// Number, principal axis and girdle of the axes of one kind, for the legend.
[[nodiscard]] std::vector<std::string> AxisLegendTexts(const AxisStatistics& axes);

} // namespace quandrel
