// SPDX-License-Identifier: MIT
//
// What a plot has worked out before it is drawn: the order of its rows, statistics, densities,
// grids, classes. All of it is kept in the plot.

#pragma once

#include "core/formulas.h"
#include "core/plot.h"
#include "core/replot.h"
#include "platform/status_line.h"

namespace quandrel {

/// What the working out goes by.
struct WorkingOut {
    ReplotCause cause = ReplotCause::Settings; ///< Rows takes the rows as changed
    const Styles& styles;                      ///< of the symbols of classes
    Formulas formulas = Formulas::Own;
    int gridSize = 0; ///< of the density grid, kCoarsestGrid to kFinestGrid
    StatusLine* watcher = nullptr;
};

/// That of a slot for a cause, by the settings in force. Plots but the one in focus, and pictures
/// of what has not changed, keep the grid that they have.
[[nodiscard]] WorkingOut WorkingOutOf(int slot, ReplotCause cause);

/// Works out what has gone stale in a plot.
void WorkOutPlot(Plot& plot, const WorkingOut& how);

/// Before a plot is drawn elsewhere than in its window: counts a rose whose rows or settings have
/// changed since its window was drawn. Nothing is asked or told.
void WorkOutUnseen(Plot& plot);

/// Sorts the main rows by x and works out their densities, statistics and classes.
void ComputeRowStatistics(Plot& plot, const WorkingOut& how);

/// The same of gActivePlot.
void ComputeRowStatistics();

} // namespace quandrel
