// SPDX-License-Identifier: MIT
//
// Texts in PNG files (ISO/IEC 15948), read without decoding the picture.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

inline constexpr std::string_view kPngSignature = "\x89PNG\r\n\x1a\n";

/// The first text of a keyword, uncompressed: of a chunk tEXt, zTXt or iTXt, undecoded.
///
/// @param png         any bytes
/// @param mostLength  a longer text is not unpacked
/// @return nothing when the file has none, it is damaged or too long, or the file is cut short
///         before it
[[nodiscard]] std::optional<std::string> TextOfPng(std::string_view png, std::string_view keyword,
                                                   std::size_t mostLength);

} // namespace quandrel
