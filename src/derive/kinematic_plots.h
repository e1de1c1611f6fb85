// SPDX-License-Identifier: MIT
//
// Plots of the kinematic axes P and T of the faults of a plot. They stay bound to it, and are
// recomputed by the same command given to one of them.

#pragma once

#include "core/plot_record.h"

#include <cstdint>

namespace quandrel {

/// Items of the menu of kinematic plots.
enum KinematicPlotIndex : int {
    kAxesOnOnePlot = 0,
    kAxesOnTwoPlots = 1,
    kContouredAxes = 2, ///< as kAxesOnOnePlot: contours are a matter of the symbol buttons
};

/// True when gActivePlot can be processed: it holds planes with slip lines, or axes whose parent is
/// open. Tells what is missing, and asks whether data of another kind may stand for them.
[[nodiscard]] bool CheckKinematicData();

/// Makes the plot or plots of the axes of the faults of gActivePlot, or where that holds such axes
/// recomputes them from their parent. The axes' plot becomes the active one, of two that of T.
///
/// Rows follow the order of the parent's table. On one plot each P row is followed by its T row; on
/// two, P and T of a fault have the same row number. A fault whose slip line is 10 degrees or more
/// off its plane, or missing, gives no axes; the description says how many there are.
///
/// @param index  a KinematicPlotIndex
/// @return false when nothing was made; what stood in the way was told
bool MakeKinematicPlots(int index);

/// Gives a plot the form of a plot of axes: polar lines, so that T rows, which point up, keep their
/// own symbol.
void PrepareKinematicPlot(int slot);

} // namespace quandrel
