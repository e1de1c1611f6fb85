// SPDX-License-Identifier: MIT
//
// The plot driver: draws whole plots, and works out on the way what has gone stale. It alone knows
// the order. Folders below ask for it by ReplotActivePlot and RedrawPlot (core/replot.h).
//
// Inside the folder: the driver, the legend, what the buttons of a plot do.
// Enters: the rows, record and styles of gActivePlot, and why it is drawn (ReplotCause).
// Leaves: drawing operations on the surfaces of the plot's window or on others, its texts, and what
// the folders below have worked out in its record.

#pragma once

#include "core/replot.h"
#include "platform/surface.h"

#include <cstdint>
#include <string>

namespace quandrel {

/// Makes DrawForCause the drawer of all plots (core/replot.h).
void ConnectDrawing();

/// Draws the plot of an open slot for a cause, whichever plot is the active one.
void DrawForCause(int slot, ReplotCause cause);

/// Draws the active plot onto other surfaces than its window's, in the state that it is in: nothing
/// is worked out anew, no text or caption changes.
void DrawActivePlotOn(Surface& plot, Surface& legend);

/// The stereo branch: rows, overlays, annotations, legend, furniture, girdles, small circles, in
/// this order.
void DrawStereoPlot(bool recalculate);

/// Sorts the main rows by x and works out their densities and statistics.
void ComputeRowStatistics();

/// Draws the great circle of a row of AxisItems that is shown; row 0 has none. A rose has none.
void DrawGirdle(int item);

/// Draws the symbol of a statistical axis, rows 9 and 10 of AxisItems.
void DrawAxisItemSymbol(int item);

/// The text of the number box: the valid rows, or the classified ones of them; of a rose what its
/// petals make up, with the rows behind it where that is something else.
[[nodiscard]] std::string NumberBoxText();

} // namespace quandrel
