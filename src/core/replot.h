// SPDX-License-Identifier: MIT
//
// Requests to redraw plots, for folders below the drawing.
//
// The folder that draws whole plots is above all folders whose work it draws, and above those that
// change plots. They call it through this one hook, which the program connects at start-up. Before
// that, and in programs that draw nothing, a request does nothing.

#pragma once

#include <functional>

namespace quandrel {

/// Why a plot is redrawn.
enum class ReplotCause {
    Settings, ///< rows are unchanged: results that are out of date are recomputed
    Rows,     ///< rows have changed: everything is recomputed
    File,     ///< as Settings, for a plot file just read: no question about odd sectors of its rose
    Picture,  ///< nothing has changed: only the picture is drawn, not texts and status line
    Repaint,  ///< as Picture, while the window is painted: no questions are possible
};

/// Draws the plot of an open slot.
using PlotDrawer = std::function<void(int slot, ReplotCause cause)>;

/// Sets the function that draws plots; an empty one draws nothing.
void ConnectPlotDrawer(PlotDrawer drawer);

/// Redraws the plot of a slot, active or not. Does nothing for a slot that is not open.
void ReplotPlot(int slot, ReplotCause cause);

/// Redraws the window of gActivePlot, and recomputes what is out of date: statistics, densities,
/// grid, contours. Every change of a plot's data or settings ends with one call of it.
///
/// @param recalculate  true treats the rows as changed
void ReplotActivePlot(bool recalculate);

/// Redraws the window of a plot as it is. Texts and the status line stay.
void RedrawPlot(int slot);

/// RedrawPlot for a window that is being painted: it asks no questions, and a rose whose rows have
/// changed waits for the command that changed them.
void RepaintPlot(int slot);

} // namespace quandrel
