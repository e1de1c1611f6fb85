// SPDX-License-Identifier: MIT
//
// On what and how a plot is drawn.
//
// What draws takes the plot and a Drawing, changes nothing but the surfaces, and reads no settings:
// two plots can be drawn at once, each onto surfaces of its own.

#pragma once

#include "core/formulas.h"
#include "core/styles.h"
#include "platform/status_line.h"
#include "platform/surface.h"

namespace quandrel {

/// What the picture is for.
enum class DrawnFor {
    Window, ///< the plot's window: the background is wiped, what the window paints above stays out
    Sample, ///< a sample of what windows show
    Paper,  ///< pages, files and copies: white, and no colour that white does not show
};

struct Drawing {
    Surface& plot;   ///< of the net or rose, in plot scale
    Surface& legend; ///< of the legend's box
    const Styles& styles;
    DrawnFor purpose = DrawnFor::Window;
    Formulas formulas = Formulas::Own; ///< of the results that are drawn
    StatusLine* watcher = nullptr;     ///< hears how far long steps have come, if there is one
    int circleAbove = 0;               ///< set of the small circle that the window paints above the
                                       ///< picture and that is left out here; 0 leaves out none
};

/// What is behind the net: the colour of the styles in windows, white on paper.
[[nodiscard]] Colour PlotBackground(const Drawing& drawing);

/// The colour of the primitive circle and of axes. On paper black in place of a colour that white
/// does not show.
[[nodiscard]] Colour AxesColour(const Drawing& drawing);

} // namespace quandrel
