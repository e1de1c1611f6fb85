// SPDX-License-Identifier: MIT
//
// Encodings of text: inside the program it is UTF-8, files may hold Windows-1252.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

/// The number of bytes before the first one that is not UTF-8.
[[nodiscard]] std::size_t LengthOfUtf8(std::string_view text);

/// Appends a character, 0 to 0x10FFFF, as UTF-8.
void AppendCharacter(char32_t character, std::string& text);

/// Windows-1252 as UTF-8. The five undefined bytes keep their values. Never fails.
[[nodiscard]] std::string FromWindows1252(std::string_view bytes);

/// UTF-8 as Windows-1252; nothing when a character is not in that set. Inverse of FromWindows1252.
[[nodiscard]] std::optional<std::string> ToWindows1252(std::string_view text);

/// The bytes of a text for a file with one byte per character: Windows-1252 where that reads back
/// as the same text, else UTF-8. Inverse: FromFileBytes.
[[nodiscard]] std::string ToFileBytes(std::string_view text);

/// The text of bytes in UTF-8, or else in Windows-1252.
[[nodiscard]] std::string FromFileBytes(std::string_view bytes);

} // namespace quandrel
