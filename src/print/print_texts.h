// SPDX-License-Identifier: MIT
//
// The texts around a printed plot: its legend, and below it fabric, description and statistics.
//
// The texts fill the columns of their area. They have their normal font sizes if the area is large
// enough, and smaller sizes otherwise. A legend line that is far too wide, such as a long file
// name, is cut as on the screen and does not affect the sizes.

#pragma once

#include "core/styles.h"
#include "platform/surface.h"

#include <string>
#include <vector>

namespace quandrel {

/// A rectangle in an area, in its units from its top left corner.
struct RoomRect {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
};

/// A line of text with its position.
struct PlacedText {
    RoomRect where;
    PlotFontPlace font = kGeneralFont;
    std::string text;
};

struct TextPlan {
    double fontScale = 1; ///< scale of all font sizes, up to 1
    RoomRect legend;      ///< height 0 if the plot shows none
    std::vector<PlacedText> texts;
};

/// The layout of the texts of gActivePlot in an area. Text that does not fit even at the smallest
/// size is replaced by "...".
///
/// @param surface  of the area, for text measurements; its state changes
/// @param room     width and height, in the surface's units
[[nodiscard]] TextPlan PlanTexts(Surface& surface, const Styles& styles, double width,
                                 double height);

/// Draws the texts of a plan. The surface's units are those of the plan, with y upward from -height
/// at the bottom of the area to 0.
void DrawPlannedTexts(Surface& surface, const Styles& styles, const TextPlan& plan);

} // namespace quandrel
