// SPDX-License-Identifier: MIT
//
// What stands about a printed plot: its legend, and under it fabric, description and statistics.
//
// The texts run down the columns of their room. They have the sizes of their fonts as long as the
// room allows, and are set smaller where it is narrow. A line of the legend that is far too wide
// for it, such as a long name of a file, is cut as on the screen and leaves the sizes as they are.

#pragma once

#include "core/styles.h"
#include "platform/surface.h"

#include <string>
#include <vector>

namespace quandrel {

/// A rectangle of a room, in its units from its top left corner.
struct RoomRect {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

/// A line of text with its place.
struct PlacedText {
    RoomRect where;
    PlotFontPlace font = kGeneralFont;
    std::string text;
};

struct TextPlan {
    double fontScale = 1; ///< what the sizes of all fonts are multiplied with, up to 1
    RoomRect legend;      ///< without height when the plot shows none
    std::vector<PlacedText> texts;
};

/// How the texts of gActivePlot go into a room. What finds no place even in the smallest size is
/// left out, and "..." stands for it.
///
/// @param surface  of the room, for the measures of its texts; its state changes
/// @param room     width and height, in the surface's units
[[nodiscard]] TextPlan PlanTexts(Surface& surface, const Styles& styles, double width,
                                 double height);

/// Draws the texts of a plan. The surface's units are those of the plan, y being up from -height at
/// the foot of the room to 0.
void DrawPlannedTexts(Surface& surface, const Styles& styles, const TextPlan& plan);

} // namespace quandrel
