// SPDX-License-Identifier: MIT
//
// The drawing of a rose from its rows to its texts: the rose branch of the plot driver.
//
// Inside the folder: sectors, counts, circular statistics, petals, scale, the rules of the dialog.
// Enters: azimuths of the active plot's rows with their weights and classes, and the rose's
// settings.
// Leaves: petals and texts on the plot's surface, statistics in its record, lines of its legend.
// The kernels are functions of values.

#pragma once

#include "core/plot_record.h"

#include <functional>

namespace quandrel {

/// Why a kind of rose cannot be drawn from the data.
enum RoseFault : int {
    kNoRoseFault = 0,
    kNoRoseValues = 1,  ///< no row has the value that the kind needs
    kNoRoseClasses = 2, ///< no row falls in a class by type
    kNoRoseLengths = 3, ///< no row falls in a class by length, or there are no numbers
};

/// The fault of a rose by what was counted for it.
///
/// @param record   RoseType, and which columns there are
/// @param totals   as RoseStats of the record
/// @param classed  weighted count of the observations, cell (0, 0) of the value layer
[[nodiscard]] int FaultOfTotals(const PlotRecord& record, const Table<double, 7, 3>& totals,
                                double classed);

/// The fault of the rose of gActivePlot after its data pass. Kinds of means and deviations need a
/// row with a value; without spread they are merely empty.
[[nodiscard]] int FaultOfRose();

/// Called once a fault has turned a rose into one of frequencies; for an open dialog. May be empty.
extern std::function<void(int fault)> gRoseFaultHook;

/// The warning about decimal delimiters has been given in this run of the program.
extern bool gRoseClassWarned;

/// Draws the rose of gActivePlot, wedges, scale and mean, and writes its statistics into the boxes
/// of its window. A plot without valid rows draws nothing.
///
/// @param recalculate  counts its rows anew. They are counted also when they never were, or the
///     tables are stale; the statistics then stand as long as rows and settings do
///
/// Settings that the data cannot show give a message and a rose of frequencies. When the user does
/// not want the smaller last sector that a size makes, the old rose of the plot stays, with its
/// settings; without one nothing is drawn until rows or size change. While drawing goes elsewhere
/// than to the plot's window, no text changes and nothing is asked or told.
void RosePlot(bool recalculate = true);

} // namespace quandrel
