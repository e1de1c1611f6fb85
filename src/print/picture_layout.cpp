// SPDX-License-Identifier: MIT

#include "print/picture_layout.h"

#include "stereo/text_lines.h"

#include <algorithm>
#include <cstdint>

namespace quandrel {

namespace {

constexpr double kSide = kPictureHeight;
constexpr double kMargin = 10;
constexpr double kColumn = kPictureTextWidth + 2 * kMargin;
constexpr double kLine = 24;
constexpr double kDescriptionHeight = 4 * kLine;
constexpr double kLeastLegend = 120;
constexpr double kCornerWidth = 150; ///< of the texts in the corners of the net

DrawState StateOfFont(const PlotFont& font) {
    DrawState state;
    state.font = font.font;
    state.foreColour = ColourFromValue(static_cast<std::uint32_t>(font.colour));
    return state;
}

} // namespace

PictureLayout LayOutPicture(PicturePart part, const PictureTexts& texts) {
    PictureLayout layout;
    layout.net = {0, 0, kSide, kSide};
    if (part == PicturePart::NetAlone) {
        return layout;
    }
    layout.width = kSide + kColumn;
    const double left = kSide + kMargin;
    const double description = texts.isDescribed ? kDescriptionHeight : 0;
    const double room = kSide - 3 * kMargin - description - kLeastLegend;
    const double statistics = std::min(texts.statisticsHeight + 1, room);
    const double top = kSide - kMargin - statistics;
    layout.statistics = {left, top, kPictureTextWidth, statistics};
    layout.description = {left, top - description, kPictureTextWidth, description};
    layout.legend = {left, 2 * kMargin, kPictureTextWidth, top - description - 3 * kMargin};
    layout.fabric = {kMargin, kMargin, kCornerWidth, kLine};
    layout.number = {kMargin, kSide - kMargin - kLine, kCornerWidth, kLine};
    return layout;
}

double HeightOfText(Surface& surface, const PlotFont& font, const std::string& text, double width) {
    surface.SetState(StateOfFont(font));
    return static_cast<double>(WrappedLines(surface, text, width).size()) * surface.TextHeight();
}

void DrawTextBox(Surface& surface, const PlotFont& font, const std::string& text, double width,
                 double height) {
    surface.SetState(StateOfFont(font));
    double top = 0;
    for (const std::string& line : WrappedLines(surface, text, width)) {
        if (top + surface.TextHeight() > height) {
            return;
        }
        DrawTabbedLine(surface, {0, -top}, line);
        top += surface.TextHeight();
    }
}

} // namespace quandrel
