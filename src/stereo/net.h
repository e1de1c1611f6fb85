// SPDX-License-Identifier: MIT
//
// The net beneath the data, and the marks on top of them.

#pragma once

#include "core/plot_record.h"
#include "stereo/drawing.h"

namespace quandrel {

/// Where the "N" of a style may be.
enum class NetRoom {
    Within, ///< on the surface: it is as small as it has to be
    Beyond, ///< also above its edge, for pages that leave room for it
};

/// Sets the initial state of the plot's surface for every drawing.
void SetPlotDrawMode(const Drawing& drawing);

/// Draws the primitive circle with the axes in the style of Styles::plotAxesStyle: 0 a centre
/// cross, 1 a small cross and rim ticks (none in the north), 2 diameters with ticks every ten
/// degrees, 3 ticks on the eastern rim and on the axes. Any other value draws the circle only.
/// Styles::showNorth adds an "N" at the top. A rose draws its own. For a window the surface is
/// cleared first. The net of a style (NetStyle) has what the style says instead.
void DrawPlotBase(const PlotRecord& record, const Drawing& drawing, NetRoom room = NetRoom::Within);

/// Draws the "N" above the net, if styles or style have one.
void DrawNorthOfNet(const Drawing& drawing, NetRoom room = NetRoom::Within);

/// Draws the primitive circle and the axes of a net, again where areas were filled.
void DrawNet(int plotKind, const Drawing& drawing);

/// Whether the plot has a mean arrow: its mean is shown and determined, and it has no overlays.
[[nodiscard]] bool IsMeanArrowShown(const PlotRecord& record);

/// Draws the mean arrow at the rim, in the style of the mean, when the mean is shown and the plot
/// has no overlays.
void DrawPlotFurniture(const PlotRecord& record, const Drawing& drawing);

// The same of gActivePlot, in its window.
void SetPlotDrawMode();
void DrawPlotBase();
void DrawPlotFurniture();

} // namespace quandrel
