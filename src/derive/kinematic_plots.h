// SPDX-License-Identifier: MIT
//
// Plots of the kinematic axes P and T of the faults of a plot. They stay bound to it, and are
// recomputed by the same command given to one of them.

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
    kContouredAxes = 2, ///< as kAxesOnTwoPlots, both drawn as contours
};

/// True when gActivePlot can be processed: it holds planes with slip lines, or axes whose parent is
/// open. Tells what is missing, and asks whether data of another kind may stand for them.
[[nodiscard]] bool CheckKinematicData();

/// What is asked where no slip line of the faults is upward: nothing else tells their sense.
inline constexpr const char* kSenseQuestion =
    "No row says in which sense it moved. Take the hanging walls to have moved down?";

/// The slot whose faults MakeKinematicPlots would use for gActivePlot: itself, or the parent of the
/// axes that it holds; 0 for a plot that has nothing to do with faults.
[[nodiscard]] int SlotOfFaults();

/// Plunges and trends of the axes of a fault in radians, P downward, T upward.
struct AxisLines {
    double pPlunge = 0;
    double pTrend = 0;
    double tPlunge = 0;
    double tTrend = 0;
};

/// The axes of a fault; nothing when its slip line is 10 degrees or more off its plane.
///
/// @param assumed  the sense of faults that do not tell theirs; nothing reads it off the slip line
[[nodiscard]] std::optional<AxisLines> LinesOfAxes(const Fault& fault,
                                                   std::optional<SlipSense> assumed);

/// Makes the plot or plots of the axes of the faults of gActivePlot, or where that holds such axes
/// recomputes them from their parent. The axes' plot becomes the active one, of two that of T.
///
/// Rows follow the order of the parent's rows, and their texts name them. On one plot each P row is
/// followed by its T row; on two, P and T of a fault have the same row number. A fault whose slip
/// line is 10 degrees or more off its plane, or missing, gives no axes; the description says how
/// many there are.
///
/// Where no slip line is upward the sense of movement is asked for; titles and texts of the plots
/// then say that it was assumed.
///
/// @param index    a KinematicPlotIndex
/// @param assumed  the answer to that question, where it is known
/// @return false when nothing was made; what stood in the way was told
bool MakeKinematicPlots(int index, std::optional<SlipSense> assumed = std::nullopt);

/// Gives a plot the form of a plot of axes: polar lines, so that T rows, which point up, keep their
/// own symbol.
void PrepareKinematicPlot(int slot, std::optional<SlipSense> assumed = std::nullopt);

} // namespace quandrel
