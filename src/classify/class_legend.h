// SPDX-License-Identifier: MIT
//
// Classes in the legend.

#pragma once

#include "core/plot.h"
#include "stereo/legend_line.h"

#include <vector>

namespace quandrel {

/// The lines of a classified plot: "Classified by: " with the name of the column, then each visible
/// class, in the order of the class table.
///
/// When rows are drawn as points or great circles, the classes with rows are visible; when the grid
/// of values is shown, those with nodes on the net; classes with a contour are visible in both
/// cases. A class that is shown only by its contour has a line as its sample. Empty for a plot
/// without classes, and for one that draws nothing in the styles of its classes.
[[nodiscard]] std::vector<LegendLine> ClassLegendLines(const Plot& plot, const Styles& styles);

} // namespace quandrel
