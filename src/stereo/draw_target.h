// SPDX-License-Identifier: MIT
//
// Where the drawing of the active plot goes: to its window, or for a while to a page or a file.

#pragma once

#include "stereo/drawing.h"

namespace quandrel {

/// What drawing of gActivePlot goes to at present, in the styles and by the formulas in force.
[[nodiscard]] Drawing DrawingInForce();

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

/// Sends all drawing to other surfaces for the length of a block.
class DrawElsewhere {
public:
    DrawElsewhere(Surface& plot, Surface& legend, DrawnFor purpose = DrawnFor::Paper);
    ~DrawElsewhere();
    DrawElsewhere(const DrawElsewhere&) = delete;
    DrawElsewhere& operator=(const DrawElsewhere&) = delete;

private:
    Surface* formerPlot_;
    Surface* formerLegend_;
    DrawnFor formerPurpose_;
};

} // namespace quandrel
