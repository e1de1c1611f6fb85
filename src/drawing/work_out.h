// SPDX-License-Identifier: MIT
//
// The computation of a plot's results before it is drawn: the order of its rows, statistics,
// densities, grids, classes. All of them are stored in the plot.

#pragma once

#include "core/formulas.h"
#include "core/plot.h"
#include "core/replot.h"
#include "platform/status_line.h"

#include <cstdint>
#include <vector>

namespace quandrel {

/// The input of the computation besides the plot.
struct WorkingOut {
    ReplotCause cause = ReplotCause::Settings; ///< Rows treats the rows as changed
    const Styles& styles;                      ///< of the symbols of classes
    Formulas formulas = Formulas::Own;
    int gridSize = 0; ///< of the density grid, kCoarsestGrid to kFinestGrid
    StatusLine* watcher = nullptr;
    std::vector<std::int32_t> selection = {}; ///< the selected rows of the plot, ascending
};

/// The input for a slot and a cause, from the current settings. Plots that are not in focus, and
/// pictures of unchanged plots, keep their grid.
[[nodiscard]] WorkingOut WorkingOutOf(int slot, ReplotCause cause);

/// Recomputes the results of a plot that are out of date.
void WorkOutPlot(Plot& plot, const WorkingOut& how);

/// Counts a rose whose rows or settings have changed since its window was drawn, before the plot is
/// drawn elsewhere. There are no questions or messages.
void WorkOutUnseen(Plot& plot);

/// Sorts the main rows by x and computes their densities, statistics and classes.
void ComputeRowStatistics(Plot& plot, const WorkingOut& how);

/// The same of gActivePlot.
void ComputeRowStatistics();

} // namespace quandrel
