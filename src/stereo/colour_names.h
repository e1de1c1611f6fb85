// SPDX-License-Identifier: MIT
//
// Colours in words, for users who listen to a screen reader.

#pragma once

#include "platform/surface.h"

#include <string>

namespace quandrel {

/// The name of a colour: "black", "light grey", "dark red", "brown". Similar colours share a name.
///
/// By hue, saturation and lightness (HSL): A. R. Smith, Color gamut transform pairs, SIGGRAPH
/// Computer Graphics 12 (1978), 12-19, for hue; lightness is the mean of the largest and the
/// smallest channel.
[[nodiscard]] std::string ColourName(Colour colour);

/// The name of a colour of the table with its number, which distinguishes colours of the same name:
/// "Colour 5: black".
[[nodiscard]] std::string ColourNameAt(int index, Colour colour);

/// The contrast of two colours, 1 to 21, symmetric.
///
/// The contrast ratio of Web Content Accessibility Guidelines 2.1 (W3C 2018), which requires 4.5
/// between a text and its background.
[[nodiscard]] double ContrastOf(Colour a, Colour b);

} // namespace quandrel
