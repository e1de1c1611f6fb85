// SPDX-License-Identifier: MIT
//
// Colours as they are seen: lightness, differences, and the eyes of those who do not tell red from
// green. Bytes of a colour are sRGB (IEC 61966-2-1) under daylight D65.

#pragma once

#include "platform/surface.h"

namespace quandrel {

/// A colour in CIELAB (CIE 1976 L*a*b*), of the white of sRGB.
struct LabColour {
    double lightness = 0; ///< 0 is black, 100 is white
    double a = 0;         ///< green below 0, red above
    double b = 0;         ///< blue below 0, yellow above

    friend bool operator==(const LabColour&, const LabColour&) = default;
};

/// A colour in CIELAB. Does not fail.
[[nodiscard]] LabColour LabOf(Colour colour);

/// The colour of a place in CIELAB, rounded to bytes. Channels outside sRGB are cut off (IsInSrgb).
/// LabOf leads back, within the rounding.
[[nodiscard]] Colour ColourOfLab(const LabColour& lab);

/// Whether sRGB has the colour, to within half a byte of each channel.
[[nodiscard]] bool IsInSrgb(const LabColour& lab);

/// The difference of two colours, CIEDE2000 with all three factors at 1. One is about what an eye
/// can just tell apart. Symmetric, at least 0.
///
/// G. Sharma, W. Wu, E. N. Dalal, The CIEDE2000 color-difference formula: implementation notes,
/// supplementary test data, and mathematical observations, Color Research and Application 30
/// (2005).
[[nodiscard]] double ColourDifference(const LabColour& first, const LabColour& second);

enum class ColourVision {
    Normal,
    Protanopia,   ///< no long-wave cones, so that red is dark and looks like green
    Deuteranopia, ///< no middle-wave cones, so that red looks like green
};

/// A colour as a person with normal vision would have to be shown it to see what another sees.
/// White, greys and blues of the screen's own blue stay as they are. Channels outside sRGB are cut
/// off, where the authors make all colours slightly paler first.
///
/// F. Vienot, H. Brettel, J. D. Mollon, Digital video colourmaps for checking the legibility of
/// displays by dichromats, Color Research and Application 24 (1999).
[[nodiscard]] Colour ColourAsSeen(Colour colour, ColourVision vision);

} // namespace quandrel
