// SPDX-License-Identifier: MIT
//
// Texts of users on their way into a picture. They may hold anything: control characters, bytes of
// other encodings, marks that turn the direction of what follows. Not every kind of picture takes
// these, so each text goes through here before it comes to a surface.

#pragma once

#include <string>
#include <string_view>

namespace quandrel {

/// A text as one line that can be drawn, written into an XML file, and measured.
///
/// Ends of lines and tabs become blanks. Other control characters, what is not UTF-8 and code
/// points that are no characters become U+FFFD. Marks without a width that order letters from right
/// to left are left out; letters that are written so stay. A clean text comes back as it is.
[[nodiscard]] std::string DrawableText(std::string_view text);

} // namespace quandrel
