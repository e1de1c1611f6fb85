// SPDX-License-Identifier: MIT
//
// Sizes of texts without a font at hand: those of Liberation Sans, which has the widths of Arial
// and Helvetica. Lengths are in ems, the size of the font.

#pragma once

#include <string_view>

namespace quandrel {

/// The advance width of a character: of Latin, Greek and Cyrillic that of the font, of any other 1.
[[nodiscard]] double AdvanceOf(char32_t character, bool bold);

/// The width of a text, at least 0. Each invalid byte counts as the character U+FFFD.
[[nodiscard]] double WidthInEms(std::string_view utf8, bool bold);

/// The extent of any line of text above and below its base, both above 0.
[[nodiscard]] double AscentInEms();
[[nodiscard]] double DescentInEms();

} // namespace quandrel
