// SPDX-License-Identifier: MIT

#include "stereo/drawing.h"

namespace quandrel {

namespace {

/// The perceived brightness of a colour, 0 to 1: the luma of ITU-R Recommendation BT.601 (1982).
double Brightness(Colour colour) {
    return (0.299 * colour.red + 0.587 * colour.green + 0.114 * colour.blue) / 255;
}

constexpr double kTooBrightForPaper = 0.85;

} // namespace

const FigureStyle& FigureOf(const Drawing& drawing) {
    return drawing.figure != nullptr ? *drawing.figure : ClassicStyle();
}

Colour PlotBackground(const Drawing& drawing) {
    return drawing.purpose == DrawnFor::Paper ? kWhite
                                              : ColourFromValue(drawing.styles.plotBackColour);
}

Colour AxesColour(const Drawing& drawing) {
    const Colour colour = ColourFromValue(drawing.styles.plotAxesColour);
    return drawing.purpose == DrawnFor::Paper && Brightness(colour) > kTooBrightForPaper ? kBlack
                                                                                         : colour;
}

} // namespace quandrel
