// SPDX-License-Identifier: MIT
//
// The layout of a picture file: the net, and beside it legend, description and statistics. Logical
// pixels from the top left corner, 96 to the inch.

#pragma once

#include "core/settings.h"
#include "platform/surface.h"
#include "print/print_texts.h"

#include <string>

namespace quandrel {

enum class PicturePart { WholePlot, NetAlone };

/// The height of every picture, and the actual size of a vector file.
inline constexpr int kPictureHeight = 600;

/// Width of the column of texts beside the net.
inline constexpr double kPictureTextWidth = 270;

/// The contents of the column beside the net.
struct PictureTexts {
    bool isDescribed = false;    ///< there is a description
    double statisticsHeight = 0; ///< 0 or more, in a column of kPictureTextWidth
};

/// Parts that the picture does not have are of width and height 0.
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

/// Divides a picture. The statistics are at the bottom of the column with the height that they
/// need, and the description is above them. The legend has the rest, at least 110.
[[nodiscard]] PictureLayout LayOutPicture(PicturePart part, const PictureTexts& texts);

/// The height of a text in a column, in the surface's units. Changes the state of the surface.
///
/// @param width  of the column, in the surface's units
[[nodiscard]] double HeightOfText(Surface& surface, const PlotFont& font, const std::string& text,
                                  double width);

/// Draws lines of text downward from the top of a box; lines that do not fit are omitted.
///
/// @param surface  of the box; its units are logical pixels, with y upward from 0 at the top edge
/// @param width    of the box; its height is in the surface's units
void DrawTextBox(Surface& surface, const PlotFont& font, const std::string& text, double width,
                 double height);

} // namespace quandrel
