// SPDX-License-Identifier: MIT
//
// Texts on the net in the style of a figure: their font, and the numbers on lines.

#pragma once

#include "core/styles.h"
#include "stereo/drawing.h"

#include <span>
#include <string_view>
#include <vector>

namespace quandrel {

/// The font of texts of a kind: that of the preferences, or in a style with a size of texts that of
/// the style, never below its least size.
[[nodiscard]] FontSpec FontInFigure(const Drawing& drawing, PlotFontPlace kind);

/// Whether the layer that is drawn wants texts at its rows or lines.
[[nodiscard]] bool HasLabels(const Drawing& drawing);

/// A line with a gap for a text.
struct LabelledLine {
    std::vector<std::vector<Point>> parts; ///< what is left of the line
    Point place;                           ///< the centre of the gap
    bool hasRoom = false;                  ///< false: the line is too short, and has no gap
};

/// Cuts a gap out of a line where it is straightest, away from its ends. A line shorter than three
/// times the text is left whole. O(vertices).
///
/// @param line   open, or closed with its first point repeated
/// @param width  of the gap, units of the line
[[nodiscard]] LabelledLine WithGapForText(std::span<const Point> line, double width);

/// Draws a line in the state of the surface, with a text in a gap of it if there is room.
///
/// @param colour  of the line and of the text
/// @return whether the text was drawn
bool DrawLabelledLine(Surface& surface, const Drawing& drawing, std::span<const Point> line,
                      std::string_view text, Colour colour);

} // namespace quandrel
