// SPDX-License-Identifier: MIT
//
// What the plot type, data type and symbol buttons do to the active plot. Each does nothing while a
// long loop runs (gBusy). Looking at a plot in another way changes nothing that is to be saved:
// only texts of the user set Modified here.

#pragma once

#include <cstdint>
#include <string>

namespace quandrel {

/// Draws the plot as another kind (a PlotKindCode). All rows get their places on the other net.
void ChangePlotKind(std::int16_t kind);

/// Takes the data as another kind (a DataKindCode), after a question when the plot has rows. False
/// when the user thought better of it.
bool ChangeDataKind(std::int16_t kind);

inline constexpr int kLastModeButton = 6;

/// Presses symbol button 0 to 6: great circles, points, beta intersections, point density, gridded
/// density, contours, contours and grid. In a plot with overlays the first two act on the top
/// overlay and the others do nothing.
void SetPlotSymbol(int button);

/// What the buttons of the display show or hide. The first six are places of LayerVisible.
enum DisplayButton : int {
    kShowGirdles = 0,
    kShowFabric = 1,
    kShowDescription = 2,
    kShowLegend = 3,
    kShowNumber = 4,
    kShowStatistics = 5,
    kShowRoseScale = 6,
    kShowRoseMean = 7,
    kShowRoseArc = 8,
};

inline constexpr int kDisplayButtons = 9;

/// Shows or hides a part of the active plot. The parts of a rose draw it anew, and so does the
/// legend; the others are a matter of the window. New plots follow the last wish for statistics.
void ShowPlotPart(int button, bool on);

/// True when a part of the active plot is to be seen.
[[nodiscard]] bool IsPlotPartShown(int button);

/// Takes what the user has written about a plot.
void DescribePlot(int slot, const std::string& description);
void NameFabric(int slot, const std::string& fabric);

/// Takes a size of density grids for the plot in focus and for new plots (Settings::gridSize), down
/// to a multiple of kGridStep within kCoarsestGrid to kFinestGrid. Nothing is drawn yet.
void ChooseGridSize(int cells);

/// The size chosen becomes that of the grid of the active plot, if it has one.
void FollowGridOfPlot();

/// A plot that counts on a grid of another size than the one chosen is drawn anew.
void UseGridSize();

/// Takes the normal or the advanced statistics of the active plot; new plots follow.
void UseAdvancedStatistics(bool advanced);

} // namespace quandrel
