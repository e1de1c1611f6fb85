// SPDX-License-Identifier: MIT
//
// The rose of a plot, from its rows to its texts and its drawing: the rose branch of the plot
// driver. It is worked out first, then drawn.
//
// Inside the folder: sectors, counts, circular statistics, petals, scale, the rules of the dialog.
// Enters: azimuths of a plot's rows with their weights and classes, and the rose's settings.
// Leaves: what is to be drawn, attached to the plot (rose_tables.h), statistics in its record and
// their texts; from there petals and names on a surface, lines of its legend.
// The kernels are functions of values.

#pragma once

#include "core/plot.h"
#include "core/replot.h"
#include "rose/rose_tables.h"
#include "stereo/drawing.h"

namespace quandrel {

/// The fault of a rose by what was counted for it. Kinds of means and deviations need a row with a
/// value; without spread they are merely empty.
///
/// @param record   RoseType, and which columns there are
/// @param totals   as RoseStats of the record
/// @param classed  weighted count of the observations, cell (0, 0) of the value layer
[[nodiscard]] int FaultOfTotals(const PlotRecord& record, const Table<double, 7, 3>& totals,
                                double classed);

/// The RoseFault that has turned the rose of a plot into one of frequencies since this was last
/// called, or kNoRoseFault.
[[nodiscard]] int TakeRoseFault(Plot& plot);

/// What a run of the program has already warned of.
struct RoseWarnings {
    bool ofDelimiters = false; ///< texts of classes with the other decimal delimiter

    static RoseWarnings now;
};

inline constinit auto& gRoseClassWarned = RoseWarnings::now.ofDelimiters;

/// Works out the rose of a plot, and the texts of its statistics (core/plot_texts.h). A plot
/// without valid rows has nothing to draw.
///
/// @param cause  Rows counts the rows anew. They are counted also when they never were, or the
///     tables are stale; the statistics then stand as long as rows and settings do. Repaint asks
///     nothing: a stale rose has nothing to draw
/// @param formulas  of the circular statistics
///
/// Settings that the data cannot show give a message and a rose of frequencies. When the user does
/// not want the smaller last sector that a size makes, the old rose of the plot stays, with its
/// settings; without one there is nothing to draw until rows or size change.
void WorkOutRose(Plot& plot, ReplotCause cause, Formulas formulas);

/// Works out the rose of a plot for a page or a file: rows are counted where they never were, or
/// the tables are stale. No text changes, nothing is asked or told.
void WorkOutRoseUnseen(Plot& plot, Formulas formulas);

/// Draws the rose of a plot as it was worked out, wedges, scale and mean. It can be called by
/// several threads at once.
void DrawRose(const Plot& plot, const Drawing& drawing);

/// Works out and draws the rose of gActivePlot.
///
/// @param recalculate  counts its rows anew
void RosePlot(bool recalculate = true);

} // namespace quandrel
