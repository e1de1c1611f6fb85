// SPDX-License-Identifier: MIT
//
// The actions of the plot type, data type and symbol buttons on the active plot. Each does nothing
// while a long loop runs (gBusy). A different view of a plot changes nothing that needs saving:
// only texts of the user set Modified here.

#pragma once

#include <cstdint>
#include <string>

namespace quandrel {

/// Draws the plot as another kind (a PlotKindCode). All positions are recomputed for the other net.
void ChangePlotKind(std::int16_t kind);

/// Treats the data as another kind (a DataKindCode), after a question when the plot has rows. False
/// when the user cancels.
bool ChangeDataKind(std::int16_t kind);

inline constexpr int kLastModeButton = 6;

/// Presses symbol button 0 to 6 for a plot: great circles, points, beta intersections, point
/// density, gridded density, contours, contours and grid. The button acts on the chosen data
/// (drawing/symbol_choice.h), the main rows at first; one that cannot show them does nothing.
void SetPlotSymbol(int slot, int button);

/// The same for gActivePlot.
void SetPlotSymbol(int button);

/// Adds what a symbol button shows as further layers of the chosen data, or removes these layers.
/// Can be undone.
void ToggleSymbolLayer(int slot, int button);

/// The display options of the buttons. The first six are indexes of LayerVisible.
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

/// Shows or hides a part of the active plot. The parts of a rose and the legend redraw it; the
/// other parts only change the window. New plots take the last choice for statistics.
void ShowPlotPart(int button, bool on);

/// Whether a part of the active plot is shown.
[[nodiscard]] bool IsPlotPartShown(int button);

/// Stores the user's texts about a plot.
void DescribePlot(int slot, const std::string& description);
void NameFabric(int slot, const std::string& fabric);

/// Sets the size of density grids for the plot in focus and for new plots (Settings::gridSize),
/// rounded down to a multiple of kGridStep within kCoarsestGrid to kFinestGrid. Nothing is drawn
/// yet.
void ChooseGridSize(int cells);

/// Applies the chosen size to the grid of the active plot, if it has one.
void FollowGridOfPlot();

/// Redraws a plot whose grid was counted at another size than the chosen one.
void UseGridSize();

/// Selects the normal or the advanced statistics of the active plot; new plots follow.
void UseAdvancedStatistics(bool advanced);

} // namespace quandrel
