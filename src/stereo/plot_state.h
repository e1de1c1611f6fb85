// SPDX-License-Identifier: MIT
//
// What the plot type, data type and symbol buttons do to the active plot. Each does nothing while a
// long loop runs (gBusy).

#pragma once

#include <cstdint>

namespace quandrel {

/// Draws the plot as another kind (a PlotKindCode). All rows get their places on the other net.
void ChangePlotKind(std::int16_t kind);

/// Takes the data as another kind (a DataKindCode), after a question when the plot has rows. False
/// when the user thought better of it.
bool ChangeDataKind(std::int16_t kind);

/// As ChangeDataKind, without the question.
void SetDataType(std::int16_t kind);

/// Presses symbol button 0 to 6: great circles, points, beta intersections, point density, gridded
/// density, contours, contours and grid. In a plot with overlays the first two act on the top
/// overlay and the others do nothing.
void SetPlotSymbol(int button);

} // namespace quandrel
