// SPDX-License-Identifier: MIT
//
// The densities in the legend: bands of symbols, contours, and the greatest density.

#pragma once

#include "core/plot.h"
#include "stereo/legend_line.h"

#include <vector>

namespace quandrel {

/// The lines of a plot's densities, top to bottom: the density of one point, a line for each band
/// of symbols, one for each contour, the greatest density. Empty for plots that show no densities.
///
/// Bands that no number of rows can reach are left out. The last style is used for its own band and
/// all higher ones. A contour's sample is a line, whose code holds colour, draw style, draw width.
/// The levels of a column have the same number of decimals: two, or as many as the smallest one
/// needs.
[[nodiscard]] std::vector<LegendLine> BandLegendLines(const Plot& plot, const Styles& styles);

} // namespace quandrel
