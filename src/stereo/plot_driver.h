// SPDX-License-Identifier: MIT
//
// The plot driver: every change of a plot's data or settings ends in one call of ReplotActivePlot.
//
// Inside the folder: the places of rows on the net, symbols, great circles, the net, the legend.
// Enters: the rows, record and styles of gActivePlot.
// Leaves: drawing operations on the surfaces of the plot's window, and the row table with the place
// of each row; what folders above draw is called through plot_stages.h.

#pragma once

#include "platform/surface.h"

#include <cstdint>
#include <string>

namespace quandrel {

/// Draws the window of gActivePlot anew, and works out on the way what has gone stale: statistics,
/// densities, grid, contours.
///
/// @param recalculate  true takes the rows as changed
void ReplotActivePlot(bool recalculate);

/// Draws the window of a plot anew as the plot stands, whichever plot is the active one. Texts and
/// the status line stay as they are.
void RedrawPlot(int slot);

/// RedrawPlot for a window that is painted: it asks nothing, and a rose whose rows have changed
/// waits for the command that changed them.
void RepaintPlot(int slot);

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

/// The caption of the plot's window: its title, the set shown, the kind of data.
[[nodiscard]] std::string TitleOfPlot();

/// Writes the caption of the active plot's window.
void UpdateTitle();

/// Value of the grid density slider, 10 to 150.
extern int gGridDensitySlider;

} // namespace quandrel
