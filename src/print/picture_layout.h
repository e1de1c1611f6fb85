// SPDX-License-Identifier: MIT
//
// The places of a plot's parts in a picture file: the net, and beside it legend, description and
// statistics. Logical pixels from the top left corner, 96 to the inch.

#pragma once

#include "core/settings.h"
#include "platform/surface.h"
#include "print/print_texts.h"

#include <string>

namespace quandrel {

enum class PicturePart { WholePlot, NetAlone };

/// Height of every picture; a vector file is this large.
inline constexpr int kPictureHeight = 600;

/// Width of the column of texts beside the net.
inline constexpr double kPictureTextWidth = 270;

/// What the column beside the net has to hold.
struct PictureTexts {
    bool isDescribed = false;    ///< it has a description
    double statisticsHeight = 0; ///< 0 or more, in a column of kPictureTextWidth
};

/// Parts that the picture does not have are without width and height.
struct PictureLayout {
    double width = kPictureHeight;
    double height = kPictureHeight;
    RoomRect net;
    RoomRect legend;
    RoomRect description;
    RoomRect statistics;
    RoomRect fabric;
    RoomRect number;
};

/// Shares a picture out. The statistics are at the foot of the column and take what they need, the
/// description is above them; the legend has the rest, 110 at least.
[[nodiscard]] PictureLayout LayOutPicture(PicturePart part, const PictureTexts& texts);

/// Height of a text in a column, in the surface's units; the surface's state changes.
///
/// @param width  of the column, in the surface's units
[[nodiscard]] double HeightOfText(Surface& surface, const PlotFont& font, const std::string& text,
                                  double width);

/// Draws lines of text from the top of a box down; what does not fit is left out.
///
/// @param surface  of the box: its units are logical pixels, y being up from the top edge at 0
/// @param width    of the box, as its height in the surface's units
void DrawTextBox(Surface& surface, const PlotFont& font, const std::string& text, double width,
                 double height);

} // namespace quandrel
