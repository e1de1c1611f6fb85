// SPDX-License-Identifier: MIT
//
// Any text as content of XML 1.0.

#pragma once

#include <string>
#include <string_view>

namespace quandrel {

/// What replaces a character that XML cannot hold.
inline constexpr char32_t kReplacementCharacter = 0xfffd;

/// Removes the first character of a text and returns it. A byte that begins no valid character of
/// UTF-8 (RFC 3629: no overlong forms, no surrogates, at most U+10FFFF) is one
/// kReplacementCharacter.
///
/// @param[in,out] utf8  not empty
[[nodiscard]] char32_t TakeCharacter(std::string_view& utf8);

/// A text for the content of an element or for an attribute in double quotes. Tabs and line breaks
/// become blanks; other control characters, noncharacters and invalid bytes U+FFFD.
[[nodiscard]] std::string XmlText(std::string_view utf8);

} // namespace quandrel
