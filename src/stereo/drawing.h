// SPDX-License-Identifier: MIT
//
// The surfaces and properties with which a plot is drawn.
//
// Drawing code takes the plot and a Drawing, changes only the surfaces, and reads no settings. Two
// plots can be drawn at the same time, each onto its own surfaces.

#pragma once

#include "core/figure_style.h"
#include "core/formulas.h"
#include "core/record_figure.h"
#include "core/styles.h"
#include "platform/status_line.h"
#include "platform/surface.h"

#include <memory>

namespace quandrel {

/// The medium of the picture.
enum class DrawnFor {
    Window, ///< the plot's window: the background is cleared, overpainted parts are left out
    Sample, ///< a sample of what windows show
    Paper,  ///< pages, files and copies: white, and no colour that white does not show
};

struct Drawing {
    Surface& plot;   ///< of the net or rose, in plot scale
    Surface& legend; ///< of the legend's box
    const Styles& styles;
    DrawnFor purpose = DrawnFor::Window;
    Formulas formulas = Formulas::Own; ///< for the results that are drawn
    StatusLine* watcher = nullptr;     ///< receives the progress of long steps; may be null
    int circleAbove = 0;               ///< set of the small circle that the window paints above the
                                       ///< picture and that is left out here; 0 leaves out none
    std::shared_ptr<const FigureStyle> figure = {}; ///< Classic when empty
    const FigureLayer* layer =
        nullptr; ///< that is being drawn, with properties of its own; or null
};

/// The style of the figure.
[[nodiscard]] const FigureStyle& FigureOf(const Drawing& drawing);

/// The background of the net: the colour of the styles in windows, white on paper.
[[nodiscard]] Colour PlotBackground(const Drawing& drawing);

/// The colour of the primitive circle and of axes. On paper, black replaces a colour that is
/// invisible on white.
[[nodiscard]] Colour AxesColour(const Drawing& drawing);

} // namespace quandrel
