// SPDX-License-Identifier: MIT
//
// A line of a legend, as the folders make them of what they show.

#pragma once

#include "core/style_tables.h"

#include <string>

namespace quandrel {

/// What is in front of a line's text.
enum class LegendSample {
    None,   ///< the text begins at the margin
    Indent, ///< nothing, but the text is below those with samples
    Symbol,
    GreatCircle,
    Line,  ///< code: colour, draw style in the symbol's place, draw width in the size's
    Patch, ///< code: colour, fill style in the symbol's place, width in per cent in the size's; 0
           ///< is the full width
};

struct LegendLine {
    LegendSample sample = LegendSample::None;
    SymbolCode code = 0; ///< style of the sample
    std::string text;
};

} // namespace quandrel
