// SPDX-License-Identifier: MIT
//
// The drawing of a rose as last computed (rose_plot.h). It reads the plot and the Drawing, changes
// only the surface and asks nothing.

#pragma once

#include "core/plot.h"
#include "stereo/drawing.h"

namespace quandrel {

/// Draws the rose of a plot in the style of the drawing, with all labels on the surface: wedges,
/// scale and mean; nothing when the last computation left no rose
/// to draw. Several threads can call it at the same time.
void DrawRose(const Plot& plot, const Drawing& drawing);

} // namespace quandrel
