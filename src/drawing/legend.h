// SPDX-License-Identifier: MIT
//
// The legend: one line for each kind of thing on the plot, a sample and a text.

#pragma once

#include "platform/surface.h"
#include "stereo/legend_line.h"

#include <vector>

namespace quandrel {

/// The lines of the legend of the active plot, top to bottom.
[[nodiscard]] std::vector<LegendLine> LegendLines();

/// A size in logical pixels.
struct LegendSize {
    double width = 0;
    double height = 0;
};

/// The size that a box needs to hold the whole legend of the active plot; 0 for a hidden one.
[[nodiscard]] LegendSize SizeOfLegend();

/// Draws lines from the top of a box down. A text too long for the box is cut, and a box that
/// cannot hold all lines ends in "...".
void DrawLegendLines(Surface& box, const std::vector<LegendLine>& lines);

/// Draws the legend of the active plot into its box. A hidden legend draws nothing.
void DrawLegend();

} // namespace quandrel
