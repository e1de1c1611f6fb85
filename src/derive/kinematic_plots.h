// SPDX-License-Identifier: MIT
//
// Plots of the kinematic axes P and T of the faults of a plot. They stay linked to it; the same
// command, given for one of them, recomputes them.

#pragma once

#include "core/plot_record.h"
#include "derive/fault_rows.h"
#include "stereo/axis_rows.h"

#include <cstdint>
#include <optional>

namespace quandrel {

/// Items of the menu of kinematic plots.
enum KinematicPlotIndex : int {
    kAxesOnOnePlot = 0,
    kAxesOnTwoPlots = 1,
    kContouredAxes = 2, ///< as kAxesOnTwoPlots, both as contours
};

/// True when gActivePlot can be processed: it holds planes with slip lines, or axes whose parent is
/// open. Reports what is missing, and asks whether to use data of another kind instead.
[[nodiscard]] bool CheckKinematicData();

/// The question when no slip line of the faults is upward, so that nothing states their sense.
inline constexpr const char* kSenseQuestion =
    "No row says in which sense it moved. Take the hanging walls to have moved down?";

/// The slot whose faults MakeKinematicPlots would use for gActivePlot: that plot itself, or the
/// parent of the axes that it holds; 0 for a plot without either.
[[nodiscard]] int SlotOfFaults();

/// Plunges and trends of the axes of a fault in radians, P downward, T upward.
struct AxisLines {
    double pPlunge = 0;
    double pTrend = 0;
    double tPlunge = 0;
    double tTrend = 0;
};

/// The axes of a fault; nothing when its slip line is 10 degrees or more from its plane.
///
/// @param assumed  the sense of faults that do not state theirs; nothing takes it from the slip
///                 line
[[nodiscard]] std::optional<AxisLines> LinesOfAxes(const Fault& fault,
                                                   std::optional<SlipSense> assumed);

/// Makes the plot or plots of the axes of the faults of gActivePlot. If gActivePlot holds such
/// axes, recomputes them from their parent instead. The plot of the axes becomes the active one, of
/// two plots that of T.
///
/// Rows are in the order of the parent's rows, and their texts name them. On one plot each P row is
/// followed by its T row; on two, P and T of a fault have the same row number. A fault without a
/// slip line, or with one that is 10 degrees or more from its plane, gives no axes; the description
/// states the number of both.
///
/// When no slip line is upward, the user is asked for the sense of movement; titles and texts of
/// the plots then say that it was assumed.
///
/// @param index    a KinematicPlotIndex
/// @param assumed  the answer to that question, if it is known
/// @return false when nothing was made; the reason was reported
bool MakeKinematicPlots(int index, std::optional<SlipSense> assumed = std::nullopt);

/// Gives a plot the form of a plot of axes: polar lines, so that T rows, which point up, have a
/// symbol of their own.
void PrepareKinematicPlot(int slot, std::optional<SlipSense> assumed = std::nullopt);

} // namespace quandrel
