// SPDX-License-Identifier: MIT
//
// The drawing of whole plots, in the state that they are in: it reads the plot and what it is given
// to draw with, changes the surfaces alone and asks nothing. What has to be worked out before is
// worked out by work_out.h. Two threads may draw two plots at once, each onto surfaces of its own.

#pragma once

#include "core/plot.h"
#include "stereo/drawing.h"

namespace quandrel {

/// Draws a plot with its legend: the net, or a rose; what a net has on it, in the order of
/// DrawStereoPlot.
void DrawPlot(const Plot& plot, const Drawing& drawing);

/// What a net has on it: the grid of classes, rows, overlays, annotations, legend, furniture,
/// girdles, small circles, the symbols of axes, in this order.
void DrawStereoPlot(const Plot& plot, const Drawing& drawing);

/// Draws the great circle of a row of AxisItems; row 0 has none. A rose has none.
void DrawGirdle(const PlotRecord& record, const Drawing& drawing, int item);

/// Draws the symbol of a statistical axis, rows 9 and 10 of AxisItems.
void DrawAxisItemSymbol(const PlotRecord& record, const Drawing& drawing, int item);

} // namespace quandrel
