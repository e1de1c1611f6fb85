// SPDX-License-Identifier: MIT
//
// The rose of a plot, from its rows to its petals and texts: the rose branch of the plot driver.
// draw_rose.h then draws it.
//
// This folder holds roses: sectors, counts, circular statistics, petals, scale, and the rules of
// the dialog. The kernels are functions of values.
// Input: azimuths of a plot's rows with their weights and classes, and the rose's settings.
// Output: the rose to be drawn, attached to the plot (rose_tables.h), statistics in its record and
// their texts; from these, petals and names on a surface and lines of its legend.

#pragma once

#include "core/plot.h"
#include "core/replot.h"
#include "platform/status_line.h"
#include "rose/rose_tables.h"

#include <type_traits>
#include <utility>

namespace quandrel {

/// The fault of a rose, from its counts. Kinds of means and deviations need a row with a value;
/// without spread they are only empty.
///
/// @param record   RoseType, and which columns there are
/// @param totals   as RoseStats of the record
/// @param classed  weighted count of the observations, cell (0, 0) of the value layer
[[nodiscard]] int FaultOfTotals(const PlotRecord& record, const Table<double, 7, 3>& totals,
                                double classed);

/// The RoseFault that has made a plot's rose one of frequencies since the last call, or
/// kNoRoseFault.
[[nodiscard]] int TakeRoseFault(Plot& plot);

/// The warnings already given in this run of the program.
struct RoseWarnings {
    bool ofDelimiters = false; ///< of texts of classes with the other decimal delimiter

    static RoseWarnings now;
};

/// A part of the rose of gActivePlot under its given name. It has no state of its own.
template <auto Part>
class ActiveRosePart {
public:
    using Value = std::remove_reference_t<decltype(std::declval<PlotRose&>().*Part)>;

    operator Value&() const { return ActiveRose().*Part; }

    Value& operator=(Value value) const { return ActiveRose().*Part = std::move(value); }

    Value& operator*() const { return ActiveRose().*Part; }

    Value* operator->() const { return &(ActiveRose().*Part); }

    template <class... Places>
    decltype(auto) operator()(Places... places) const {
        return (ActiveRose().*Part)(places...);
    }

    template <class Place>
    decltype(auto) operator[](Place place) const {
        return (ActiveRose().*Part)[place];
    }
};

// Given names.
inline constinit auto& gRoseClassWarned = RoseWarnings::now.ofDelimiters;
inline constexpr ActiveRosePart<&PlotRose::sectors> gRoseSectors;
inline constexpr ActiveRosePart<&PlotRose::sectorStats> gRoseSectorStats;
inline constexpr ActiveRosePart<&PlotRose::trigSums> gRoseTrigSums;
inline constexpr ActiveRosePart<&PlotRose::angles> gRoseAngles;
inline constexpr ActiveRosePart<&PlotRose::radii> gRoseRadii;
inline constexpr ActiveRosePart<&PlotRose::total> gRoseTotal;
inline constexpr ActiveRosePart<&PlotRose::isDirectional> gRoseDirectional;
inline constexpr ActiveRosePart<&PlotRose::startMath> gRoseStartMath;
inline constexpr ActiveRosePart<&PlotRose::isOddAsked> gRoseOddAsked;

/// Computes the rose of a plot, and the texts of its statistics (core/plot_texts.h). A plot without
/// valid rows has nothing to draw.
///
/// @param cause  Rows counts the rows again. They are also counted when they never were, or the
///               tables are out of date; the statistics are then kept while rows and settings are
///               unchanged. Repaint asks nothing: a rose that is out of date has nothing to draw
/// @param formulas  of the circular statistics
/// @param watcher  shows a text while rows are counted; may be null
///
/// Settings that the data cannot show give a message and a rose of frequencies. When the user
/// rejects a smaller last sector, the old rose of the plot stays, with its settings; without an old
/// rose there is nothing to draw until rows or size change.
void WorkOutRose(Plot& plot, ReplotCause cause, Formulas formulas, StatusLine* watcher = nullptr);

/// Computes the rose of a plot for a page or a file: counts rows that were never counted or whose
/// tables are out of date. No text changes, and there are no questions or messages.
void WorkOutRoseUnseen(Plot& plot, Formulas formulas);

/// Computes the rose of a plot without a window, with its statistics. No text changes, there are no
/// questions or messages, and several threads can compute plots of their own. The data must be able
/// to show the rose, as they always can for frequencies without classes.
void WorkOutRoseUnasked(Plot& plot, Formulas formulas);

/// Computes and draws the rose of gActivePlot.
///
/// @param recalculate  true counts its rows again
void RosePlot(bool recalculate = true);

} // namespace quandrel
