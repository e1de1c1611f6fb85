// SPDX-License-Identifier: MIT
//
// Where the drawing of the active plot goes: to its window, or for a while to a page or a file.

#pragma once

#include "platform/surface.h"

namespace quandrel {

/// What a plot's window shows behind the net. Pages and files are white.
inline constexpr Colour kWindowBackground{0xc0, 0xc0, 0xc0};

/// The surface of the net of gActivePlot, in plot scale.
[[nodiscard]] Surface& PlotSurface();

/// The surface of the legend of gActivePlot.
[[nodiscard]] Surface& LegendSurface();

/// True while drawing goes elsewhere than to the plot's window.
[[nodiscard]] bool IsDrawingElsewhere();

/// Sends all drawing to other surfaces for the length of a block.
class DrawElsewhere {
public:
    DrawElsewhere(Surface& plot, Surface& legend);
    ~DrawElsewhere();
    DrawElsewhere(const DrawElsewhere&) = delete;
    DrawElsewhere& operator=(const DrawElsewhere&) = delete;

private:
    Surface* formerPlot_;
    Surface* formerLegend_;
};

} // namespace quandrel
