// SPDX-License-Identifier: MIT
//
// The net below the data, and what lies on top of them.

#pragma once

namespace quandrel {

/// Puts the surface into the state in which every drawing begins.
void SetPlotDrawMode();

/// Clears the surface of gActivePlot and draws the primitive circle with the axes in the style of
/// gPlotAxesStyle: 0 a centre cross, 1 a small cross and rim ticks (none in the north), 2 diameters
/// with ticks every ten degrees, 3 ticks on the eastern rim and on the axes. A value outside draws
/// the circle alone. With gSettings.styles.showNorth an "N" stands at the top. A rose draws its
/// own.
void DrawPlotBase();

/// The mean arrow at the rim, in the style of the mean, when the mean is shown and the plot has no
/// overlays.
void DrawPlotFurniture();

} // namespace quandrel
