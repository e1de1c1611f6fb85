// SPDX-License-Identifier: MIT
//
// The legend beside a plot: that of the figure, a line for each entry and for each band of a bar.
// In Classic, a plot without layers of its own has that of the tables (legend.h).

#pragma once

#include "core/plot.h"
#include "drawing/figure_legend.h"
#include "stereo/drawing.h"
#include "stereo/legend_line.h"

#include <vector>

namespace quandrel {

struct ShownLegend {
    std::vector<LegendLine> lines;   ///< top to bottom
    std::vector<FigureEntry> signs;  ///< of the lines with LegendSample::Figure
    std::vector<FigureLayer> layers; ///< that the lines are about; none in the legend of the tables
};

/// The legend of a plot whose results are worked out. Nothing is drawn.
[[nodiscard]] ShownLegend LegendShown(const Plot& plot, const Drawing& drawing);

} // namespace quandrel
