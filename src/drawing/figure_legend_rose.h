// SPDX-License-Identifier: MIT
//
// The legend of a rose as a figure: what its petals are, its classes or layers, how the petals and
// the circles are to be read, and the mean.

#pragma once

#include "drawing/figure_legend.h"

namespace quandrel {

/// The legend of a rose whose results are worked out; empty for one that has nothing to draw.
///
/// @param drawing  with the style of the figure; nothing is drawn
[[nodiscard]] FigureLegend LegendOfRoseFigure(const Plot& plot, const Drawing& drawing);

} // namespace quandrel
