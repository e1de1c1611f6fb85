// SPDX-License-Identifier: MIT
//
// The plot driver: draws plots into their windows. It has worked out what has gone stale
// (work_out.h), draws (draw_plot.h), and writes the texts of the window. It alone knows the order.
// Folders below ask for it by ReplotActivePlot and RedrawPlot (core/replot.h).
//
// Inside the folder: the driver, the working out, the drawing of whole plots, the legend, what the
// buttons of a plot do.
// Enters: a plot, what it is drawn with, and why (ReplotCause).
// Leaves: drawing operations on the surfaces of the plot's window or on others, its texts, and what
// the folders below have worked out in the plot.

#pragma once

#include "core/replot.h"

#include <string>

namespace quandrel {

/// Makes DrawForCause the drawer of all plots (core/replot.h).
void ConnectDrawing();

/// Draws the plot of an open slot for a cause, whichever plot is the active one.
void DrawForCause(int slot, ReplotCause cause);

// What the window of gActivePlot is drawn with, part by part.

/// Works out the plot and draws what its net has on it.
void DrawStereoPlot(bool recalculate);

/// Draws the great circle of a row of AxisItems that is shown; row 0 has none. A rose has none.
void DrawGirdle(int item);

/// Draws the symbol of a statistical axis, rows 9 and 10 of AxisItems.
void DrawAxisItemSymbol(int item);

/// The text of the number box: the valid rows, or the classified ones of them; of a rose what its
/// petals make up, with the rows behind it where that is something else.
[[nodiscard]] std::string NumberBoxText();

} // namespace quandrel
