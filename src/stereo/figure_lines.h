// SPDX-License-Identifier: MIT
//
// Lines in the style of a figure: widths in points, and the colours of the style where the tables
// have their start values.

#pragma once

#include "stereo/drawing.h"

namespace quandrel {

/// How a line is drawn: the state of its surface, and its colour.
struct LineLook {
    DrawState state;
    Colour colour;
};

/// The look of a line of the tables.
///
/// @param surface  whose state is the basis
/// @param style    of the line, as the tables or the plot have it
/// @param start    of a first run: a line with this style is the default of the figure, which gives
///                 it its colour
/// @param points   its width in the figure; 0 keeps that of the table, in logical pixels. A line of
///                 another width than at the start is wider in proportion
/// @param accent   its colour in the figure
[[nodiscard]] LineLook LookOfLine(const Surface& surface, const Drawing& drawing,
                                  const AxisStyle& style, const AxisStyle& start, double points,
                                  Colour accent);

/// The same of a row of Styles::axes: girdles and small circles.
[[nodiscard]] LineLook LookOfAxisStyle(const Surface& surface, const Drawing& drawing,
                                       AxisStyleRow row, double points);

/// Gives a line the properties that a layer has of its own; null has none.
void TakeLayer(const FigureLayer* layer, LineLook& look);

/// Gives a surface another width of lines in points; 0 keeps its own.
void SetWidthInPoints(Surface& surface, double points);

} // namespace quandrel
