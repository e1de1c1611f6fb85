// SPDX-License-Identifier: MIT
//
// What the legend says of densities: bands of symbols, contours, and the greatest density.

#pragma once

#include "core/plot.h"
#include "stereo/legend_line.h"

#include <vector>

namespace quandrel {

/// The lines of a plot's densities, top to bottom: what one point counts, a line for each
/// band of symbols, one for each contour, the greatest density. None for plots that show no
/// densities.
///
/// Bands that no number of rows can fall into are left out. The last style stands for all bands
/// from its own on. A contour's sample is a line, whose code holds colour, draw style, draw width.
/// The levels of a column have the same number of decimals: two, or as many as the least one needs.
[[nodiscard]] std::vector<LegendLine> BandLegendLines(const Plot& plot, const Styles& styles);

} // namespace quandrel
