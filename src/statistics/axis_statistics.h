// SPDX-License-Identifier: MIT
//
// Statistics of P and of T axes apart, in a plot that shows both. The record of such a plot holds
// those of P.

#pragma once

#include "core/plot_record.h"
#include "statistics/fabric_statistics.h"
#include "stereo/axis_rows.h"
#include "stereo/distinct_lines.h"

#include <string>
#include <vector>

namespace quandrel {

/// The axes of one kind with their statistics, as a record of theirs alone has them.
struct AxisStatistics {
    std::vector<DistinctLine> lines; ///< empty without axes; the record is then that of no plot
    PlotRecord record;
};

/// Those of a plot, worked out from its rows. O(rows).
///
/// @param styles  that the symbols of the axes were taken from
[[nodiscard]] AxisStatistics StatisticsOfAxes(const Plot& plot, const Styles& styles,
                                              Formulas formulas, AxisKind kind);

/// Those of gActivePlot, by the formulas in force.
[[nodiscard]] AxisStatistics StatisticsOfAxes(AxisKind kind);

/// "P shortening axes" or "T extension axes".
[[nodiscard]] std::string NameOfAxes(AxisKind kind);

/// Number, principal axis and girdle of the axes of one kind, for the legend.
[[nodiscard]] std::vector<std::string> AxisLegendTexts(const AxisStatistics& axes);

} // namespace quandrel
