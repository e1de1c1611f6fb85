// SPDX-License-Identifier: MIT
//
// A line of a legend, as each folder supplies it for what it shows.

#pragma once

#include "core/style_tables.h"
#include "platform/surface.h"

#include <string>

namespace quandrel {

/// The sample before a line's text.
enum class LegendSample {
    None,   ///< the text begins at the margin
    Indent, ///< none, but the text is aligned with those that have samples
    Symbol,
    GreatCircle,
    Line,  ///< code: colour, draw style in the symbol's place, draw width in the size's
    Patch, ///< code: colour, fill style as the symbol, width in per cent as the size; 0 is the full
           ///< width
    Outline, ///< a broad dashed line in the colour of axes
    Band,    ///< a piece of a colour bar, as high as the line
    Figure,  ///< a sign of the legend of a figure (drawing/shown_legend.h), `code` its number
};

struct LegendLine {
    LegendSample sample = LegendSample::None;
    SymbolCode code = 0; ///< style of the sample
    std::string text;
    Colour band{};      ///< of a Band
    double opacity = 1; ///< of a Band, 0 to 1
};

} // namespace quandrel
