// SPDX-License-Identifier: MIT
//
// The plot driver draws plots into their windows. It first recomputes what is out of date
// (work_out.h), then draws (draw_plot.h), then writes the texts of the window. Only the driver
// knows this order. Folders below request a redraw by ReplotActivePlot and RedrawPlot
// (core/replot.h).
//
// This folder holds the plot driver, the computation of results, the drawing of whole plots, the
// legend, and the actions of a plot's buttons.
// Input: a plot, its Drawing, and the reason (ReplotCause).
// Output: drawing operations on the surfaces of the plot's window or on others, its texts, and the
// results that the folders below store in the plot.

#pragma once

#include "core/replot.h"

#include <string>

namespace quandrel {

/// Makes DrawForCause the function that draws all plots (core/replot.h).
void ConnectDrawing();

/// Draws the plot of an open slot for a cause, whether or not it is the active one.
void DrawForCause(int slot, ReplotCause cause);

// Draws the window of gActivePlot, part by part.

/// Recomputes the plot and draws the contents of its net.
void DrawStereoPlot(bool recalculate);

/// Draws the great circle of a row of AxisItems that is shown. Row 0 and roses do not have any.
void DrawGirdle(int item);

/// Draws the symbol of a statistical axis, rows 9 and 10 of AxisItems.
void DrawAxisItemSymbol(int item);

/// The text of the number box: the valid rows, or how many of them are classified; for a rose the
/// total of its petals, followed by the number of rows if that differs.
[[nodiscard]] std::string NumberBoxText();

} // namespace quandrel
