// SPDX-License-Identifier: MIT
//
// Drawing the confidence regions of a plot (plot_regions.h).

#pragma once

#include "core/plot.h"
#include "stereo/drawing.h"
#include "stereo/figure_lines.h"

#include <cstddef>

namespace quandrel {

/// Sides of the polygons that outlines are drawn as.
inline constexpr std::size_t kRegionSides = 360;

/// The look of the outlines: that of small circles. In a figure the default is dashed.
[[nodiscard]] LineLook LookOfRegion(const Drawing& drawing);

/// Draws the outlines of the regions that are shown, in the style of small circles; of girdles also
/// the edges of the band of their great circles; below them the centres of resamples as pixels, if
/// the plot shows them.
void DrawRegions(const Plot& plot, const Drawing& drawing);

} // namespace quandrel
