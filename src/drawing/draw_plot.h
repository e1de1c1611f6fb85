// SPDX-License-Identifier: MIT
//
// The drawing of whole plots in their current state. It reads the plot and the Drawing, changes
// only the surfaces and asks nothing. work_out.h computes the results that it needs beforehand. Two
// threads may draw two plots at the same time, each onto its own surfaces.

#pragma once

#include "core/plot.h"
#include "stereo/drawing.h"
#include "stereo/figure_lines.h"

namespace quandrel {

/// Draws a plot with its legend: the net with its contents, as DrawStereoPlot does, or a rose.
void DrawPlot(const Plot& plot, const Drawing& drawing);

/// Draws the contents of a net: the grid of classes, rows, overlays, annotations, legend,
/// furniture, girdles, small circles, the symbols of axes, in this order.
void DrawStereoPlot(const Plot& plot, const Drawing& drawing);

/// Draws a net with its contents, or a rose, but without a legend. The labels of a rose may be
/// beyond the edges of the surface.
void DrawNetOfFigure(const Plot& plot, const Drawing& drawing);

/// Whether a row of AxisItems is drawn: it is shown, and has a pole. One that the statistics leave
/// undetermined does not.
[[nodiscard]] bool IsItemShown(const PlotRecord& record, int item);

/// The look of the great circle of a row of AxisItems. In a style of figures, the best girdle is
/// solid and the mean plane dash-dotted, unless the plot has other lines than at the start.
[[nodiscard]] LineLook LookOfGirdle(const PlotRecord& record, const Drawing& drawing, int item);

/// Draws the great circle of a row of AxisItems; row 0 does not have one. A rose does not have any.
void DrawGirdle(const PlotRecord& record, const Drawing& drawing, int item);

/// Draws the symbol of a statistical axis, rows 9 and 10 of AxisItems.
void DrawAxisItemSymbol(const PlotRecord& record, const Drawing& drawing, int item);

} // namespace quandrel
