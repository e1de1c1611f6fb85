// SPDX-License-Identifier: MIT
//
// Users' texts, made safe for a picture. They may contain anything: control characters, bytes of
// other encodings, marks that change the direction of the following text. Not every kind of picture
// allows these, so each text passes through here before it reaches a surface.

#pragma once

#include <string>
#include <string_view>

namespace quandrel {

/// A text as one line that can be drawn, written into an XML file, and measured.
///
/// Line ends and tabs become blanks. Other control characters, invalid UTF-8 and noncharacters
/// become U+FFFD. Zero-width marks that control the direction of text are removed; right-to-left
/// letters stay. A text without any of these is returned unchanged.
[[nodiscard]] std::string DrawableText(std::string_view text);

} // namespace quandrel
