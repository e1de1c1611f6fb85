// SPDX-License-Identifier: MIT
//
// Where the drawing of the active plot goes: to its window, or for a while to a page or a file.

#pragma once

#include "platform/surface.h"

namespace quandrel {

/// What stands behind the net where it is drawn: gPlotBackColour on the screen; pages and files are
/// white.
[[nodiscard]] Colour PlotBackground();

/// The colour of the primitive circle and of axes. On pages and files black in place of a colour
/// that white paper does not show.
[[nodiscard]] Colour AxesColour();

/// The surface of the net of gActivePlot, in plot scale.
[[nodiscard]] Surface& PlotSurface();

/// The surface of the legend of gActivePlot.
[[nodiscard]] Surface& LegendSurface();

/// True while drawing goes elsewhere than to the plot's window.
[[nodiscard]] bool IsDrawingElsewhere();

/// True while a plot is drawn because its window is painted. Nothing can be asked then, and nothing
/// is worked out that may have to be asked about: the command that changed the plot does that.
[[nodiscard]] bool IsRepainting();

/// True when a drawing may show messages and ask: it is a command's, to the plot's window.
[[nodiscard]] bool MayAskWhileDrawing();

/// A drawing that a window is painted for, for the length of a block.
class Repainting {
public:
    Repainting();
    ~Repainting();
    Repainting(const Repainting&) = delete;
    Repainting& operator=(const Repainting&) = delete;

private:
    bool former_;
};

/// What a drawing elsewhere stands for.
enum class DrawnFor {
    Paper,  ///< pages, files and copies
    Screen, ///< samples of what windows show
};

/// Sends all drawing to other surfaces for the length of a block.
class DrawElsewhere {
public:
    DrawElsewhere(Surface& plot, Surface& legend, DrawnFor medium = DrawnFor::Paper);
    ~DrawElsewhere();
    DrawElsewhere(const DrawElsewhere&) = delete;
    DrawElsewhere& operator=(const DrawElsewhere&) = delete;

private:
    Surface* formerPlot_;
    Surface* formerLegend_;
    DrawnFor formerMedium_;
};

} // namespace quandrel
