// SPDX-License-Identifier: MIT
//
// Bytes compressed and as plain text, and back.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

/// Bytes compressed (ZLIB format, RFC 1950). Nothing when memory runs out.
[[nodiscard]] std::optional<std::string> Packed(std::string_view bytes);

/// Inverse of Packed; nothing for bytes that are not compressed in this way, that are cut short, or
/// that unpack to more than a number of bytes. Takes memory for what is unpacked alone. Bytes after
/// the end are ignored.
[[nodiscard]] std::optional<std::string> Unpacked(std::string_view packed, std::size_t mostBytes);

/// Base64 of RFC 4648, section 4, without ends of lines.
[[nodiscard]] std::string Base64Of(std::string_view bytes);

/// Inverse of Base64Of; nothing for another text. Blanks are not allowed.
[[nodiscard]] std::optional<std::string> BytesOfBase64(std::string_view text);

} // namespace quandrel
