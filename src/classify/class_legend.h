// SPDX-License-Identifier: MIT
//
// What the legend says of classes.

#pragma once

#include "stereo/legend_line.h"

#include <vector>

namespace quandrel {

/// The lines of a classified gActivePlot: "Classified by: " with the name of the column, then each
/// class that is to be seen, in the order of the class table.
///
/// Where rows are drawn as points or great circles these are the classes with rows; where the grid
/// of values is shown those with nodes on the net; classes with a contour come in either case. A
/// class that its contour alone shows has a line as its sample. None for a plot without classes,
/// and for one that draws nothing in the styles of its classes.
[[nodiscard]] std::vector<LegendLine> ClassLegendLines();

} // namespace quandrel
