// SPDX-License-Identifier: MIT
//
// Colours in words, for those who hear what others see.

#pragma once

#include "platform/surface.h"

#include <string>

namespace quandrel {

/// What a colour is called: "black", "light grey", "dark red", "brown". Colours that differ little
/// share a name.
///
/// By hue, saturation and lightness (HSL): A. R. Smith, Color gamut transform pairs, SIGGRAPH
/// Computer Graphics 12 (1978), 12-19, for hue; lightness is the middle of the largest and the
/// smallest channel.
[[nodiscard]] std::string ColourName(Colour colour);

/// The name of a colour of the table with its number, which tells colours of one name apart:
/// "Colour 5: black".
[[nodiscard]] std::string ColourNameAt(int index, Colour colour);

/// How well two colours stand apart, 1 to 21, the same both ways.
///
/// The contrast ratio of Web Content Accessibility Guidelines 2.1 (W3C 2018), which asks for 4.5
/// between a text and its ground.
[[nodiscard]] double ContrastOf(Colour a, Colour b);

} // namespace quandrel
