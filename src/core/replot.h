// SPDX-License-Identifier: MIT
//
// Drawing plots anew, asked for from below.
//
// The folder that draws whole plots is above all folders whose work it draws, and above those that
// change plots. It is called upward by this one hook, which the program connects at start-up.
// Before that, and in programs that draw nothing, a request does nothing.

#pragma once

#include <functional>

namespace quandrel {

/// Why a plot is drawn anew.
enum class ReplotCause {
    Settings, ///< rows are as they were: what has gone stale is worked out
    Rows,     ///< rows have changed: everything is worked out
    File,    ///< as Settings, of a plot file just read: odd sectors of its rose are not asked about
    Picture, ///< nothing has changed: the picture is drawn, texts and status line stay
    Repaint, ///< as Picture, while the window is painted: nothing can be asked
};

/// Draws the plot of an open slot.
using PlotDrawer = std::function<void(int slot, ReplotCause cause)>;

/// Says who draws plots; an empty drawer draws none.
void ConnectPlotDrawer(PlotDrawer drawer);

/// Draws the plot of a slot anew, whichever plot is the active one. A slot that is not open is
/// passed over.
void ReplotPlot(int slot, ReplotCause cause);

/// Draws the window of gActivePlot anew, and works out on the way what has gone stale: statistics,
/// densities, grid, contours. Every change of a plot's data or settings ends in one call of it.
///
/// @param recalculate  true takes the rows as changed
void ReplotActivePlot(bool recalculate);

/// Draws the window of a plot anew as the plot is. Texts and the status line stay.
void RedrawPlot(int slot);

/// RedrawPlot for a window that is painted: it asks nothing, and a rose whose rows have changed
/// waits for the command that changed them.
void RepaintPlot(int slot);

} // namespace quandrel
