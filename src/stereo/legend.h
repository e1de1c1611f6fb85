// SPDX-License-Identifier: MIT
//
// The legend: one line for each kind of thing on the plot, a sample and a text.

#pragma once

#include "core/style_tables.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// What stands in front of a line's text.
enum class LegendSample {
    None,   ///< the text begins at the margin
    Indent, ///< nothing, but the text stands below those with samples
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

/// The lines of the legend of the active plot, top to bottom.
[[nodiscard]] std::vector<LegendLine> LegendLines();

/// A size in logical pixels.
struct LegendSize {
    double width = 0;
    double height = 0;
};

/// The size that a box needs to hold the whole legend of the active plot; 0 for a hidden one.
[[nodiscard]] LegendSize SizeOfLegend();

/// Draws the legend of the active plot into its box. A text too long for the box is cut, and a box
/// that cannot hold all lines ends in "...". A hidden legend draws nothing.
void DrawLegend();

} // namespace quandrel
