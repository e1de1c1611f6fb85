// SPDX-License-Identifier: MIT
//
// The drawing of a rose in the style of a figure: petals, circles with their values, rim, labels
// and mean. It reads the plot and the Drawing, changes only the surface and asks nothing.

#pragma once

#include "core/plot.h"
#include "rose/figure_rose_rim.h"
#include "stereo/drawing.h"

namespace quandrel {

/// Draws the rose of a plot in the style of the drawing (HasFigureRoses); nothing when the last
/// computation left no rose to draw.
void DrawFigureRose(const Plot& plot, const Drawing& drawing, LabelRoom room);

/// Draws the petals alone.
void DrawFigurePetals(const Plot& plot, const Drawing& drawing);

} // namespace quandrel
