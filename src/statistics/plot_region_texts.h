// SPDX-License-Identifier: MIT
//
// The confidence regions of a plot in words, as boxes, scripts, the dialog and the legend show
// them.

#pragma once

#include "core/plot.h"
#include "core/styles.h"
#include "statistics/plot_regions.h"
#include "stereo/legend_line.h"

#include <array>
#include <string>
#include <vector>

namespace quandrel {

/// The name of a region with that of its rows: "Overlay 1: 95% region of the principal axis".
[[nodiscard]] std::string NameOfPlotRegion(const PlotRecord& record, const PlotRegion& region);

/// A region in words.
struct RegionText {
    std::string name; ///< NameOfPlotRegion and its centre, degrees: "... at 35.2 - 120.0 (plunge -
                      ///< trend)"
    std::array<std::string, 2> lines; ///< what was done and why; the size or why there is none
};

/// The regions of a plot in words. A mean that is wanted of rows without polar lines has a line
/// that says so.
[[nodiscard]] std::vector<RegionText> TextsOfRegions(const Plot& plot);

/// The same as one text, each line with an end of its own; empty for a plot that shows no regions.
[[nodiscard]] std::string TextOfRegions(const Plot& plot, const char* lineEnd);

/// The name of each region in the legend, with a sample of its outline if it is drawn; in a line
/// below, why it is refused or undefined.
[[nodiscard]] std::vector<LegendLine> RegionLegendLines(const Plot& plot, const Styles& styles);

} // namespace quandrel
