// SPDX-License-Identifier: MIT

#include "stereo/drawable_text.h"

#include <algorithm>
#include <cstdint>

namespace quandrel {

namespace {

constexpr std::string_view kReplacement = "\xef\xbf\xbd"; // U+FFFD

/// A code point with its number of bytes; no bytes at an invalid sequence.
struct Character {
    std::uint32_t code = 0;
    std::size_t bytes = 0;
};

/// The first character of a non-empty text. Unicode 15.0 (2022), table 3-7.
Character FirstOf(std::string_view text) {
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned first = byte(0);
    if (first < 0x80) {
        return {first, 1};
    }
    const std::size_t length = first >= 0xf0 ? 4 : first >= 0xe0 ? 3 : 2;
    if (first < 0xc2 || first > 0xf4 || length > text.size()) {
        return {};
    }
    std::uint32_t code = first & (0xffU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xc0U) != 0x80U) {
            return {};
        }
        code = code << 6 | (byte(i) & 0x3fU);
    }
    const bool isOverlong = (length == 3 && code < 0x800) || (length == 4 && code < 0x10000);
    const bool isSurrogate = code >= 0xd800 && code <= 0xdfff;
    return isOverlong || isSurrogate || code > 0x10ffff ? Character{} : Character{code, length};
}

/// Tabs, line ends and form feeds.
bool IsBlankControl(std::uint32_t code) {
    return (code >= 0x09 && code <= 0x0d) || code == 0x85 || code == 0x2028 || code == 0x2029;
}

bool IsControl(std::uint32_t code) {
    return code < 0x20 || (code >= 0x7f && code < 0xa0);
}

bool IsNoCharacter(std::uint32_t code) {
    return (code & 0xfffeU) == 0xfffeU || (code >= 0xfdd0 && code <= 0xfdef);
}

/// Marks of direction, and the byte order mark.
bool IsDirectionMark(std::uint32_t code) {
    return code == 0x061c || code == 0x200e || code == 0x200f || (code >= 0x202a && code <= 0x202e)
           || (code >= 0x2066 && code <= 0x2069) || code == 0xfeff;
}

bool IsPlain(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x20 && byte < 0x7f;
}

} // namespace

std::string DrawableText(std::string_view text) {
    if (std::all_of(text.begin(), text.end(), IsPlain)) {
        return std::string(text);
    }
    std::string drawable;
    while (!text.empty()) {
        const Character character = FirstOf(text);
        const std::size_t bytes = std::max<std::size_t>(character.bytes, 1);
        if (IsBlankControl(character.code) && character.bytes > 0) {
            // CR LF becomes a single blank.
            const bool isPair = text.starts_with("\r\n");
            drawable += isPair ? "" : " ";
        } else if (character.bytes == 0 || IsControl(character.code)
                   || IsNoCharacter(character.code)) {
            drawable += kReplacement;
        } else if (!IsDirectionMark(character.code)) {
            drawable += text.substr(0, bytes);
        }
        text.remove_prefix(bytes);
    }
    return drawable;
}

} // namespace quandrel
