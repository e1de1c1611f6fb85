// SPDX-License-Identifier: MIT
//
// The legend: one line for each kind of thing on the plot, with a sample and a text.

#pragma once

#include "core/plot.h"
#include "core/style_tables.h"
#include "stereo/drawing.h"
#include "stereo/legend_line.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// The most representative code of rows first to last, downward or upward ones: that of the first
/// one that has a symbol. 0 if there is none.
[[nodiscard]] SymbolCode CodeOfRows(const Plot& plot, const Styles& styles, std::int32_t first,
                                    std::int32_t last, bool upward);

/// The text in the surface's font, cut and marked as cut if it is wider than the given width.
[[nodiscard]] std::string CutToWidth(const Surface& surface, const std::string& text, double width);

/// The lines of the legend of a plot, top to bottom.
///
/// @param formulas  of the statistics of P and T axes
[[nodiscard]] std::vector<LegendLine> LegendLines(const Plot& plot, const Styles& styles,
                                                  Formulas formulas);

/// A size in logical pixels.
struct LegendSize {
    double width = 0;
    double height = 0;
};

/// The size of a box for the whole legend of a plot; 0 for a hidden one.
[[nodiscard]] LegendSize SizeOfLegend(const Plot& plot, const Drawing& drawing);

/// The number of the line at a point of the legend's box, from 0 on; there may be fewer lines.
/// Empty outside the box.
///
/// @param at  logical pixels from the top left corner of the box
[[nodiscard]] std::optional<std::size_t> LegendLineAt(const Drawing& drawing, Point at);

/// Draws lines from the top of the legend's box down. A text too long for the box is cut. If the
/// box cannot hold all lines, it ends in "...".
void DrawLegendLines(const Drawing& drawing, const std::vector<LegendLine>& lines);

/// Draws the legend of a plot into its box. A hidden legend draws nothing. A drawing for a window
/// clears the box first.
void DrawLegend(const Plot& plot, const Drawing& drawing);

/// The same of gActivePlot, in its window.
void DrawLegend();

} // namespace quandrel
