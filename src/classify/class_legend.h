// SPDX-License-Identifier: MIT
//
// What the legend says of classes.

#pragma once

#include "stereo/legend.h"

#include <vector>

namespace quandrel {

/// The lines of a classified gActivePlot: "Classified by: " with the name of the column, then each
/// class with rows in the order of the class table. None for a plot without classes. A plot
/// of contours alone shows lines.
[[nodiscard]] std::vector<LegendLine> ClassLegendLines();

} // namespace quandrel
