// SPDX-License-Identifier: MIT

#include "input/text_encoding.h"

#include <algorithm>
#include <array>

namespace quandrel {

namespace {

bool IsAscii(const char* start, std::size_t count) {
    unsigned char all = 0;
    for (std::size_t i = 0; i < count; ++i) {
        all = static_cast<unsigned char>(all | static_cast<unsigned char>(start[i]));
    }
    return all < 0x80;
}

// The length of the UTF-8 character at the start, or 0 when it is invalid. Follows the table of
// well-formed sequences in the Unicode standard (3.9, D92).
std::size_t CharacterLength(std::string_view text) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byte(0);
    if (first < 0x80) {
        return 1;
    }
    const std::size_t length = first >= 0xC2 && first <= 0xDF   ? 2
                               : first >= 0xE0 && first <= 0xEF ? 3
                               : first >= 0xF0 && first <= 0xF4 ? 4
                                                                : 0;
    if (length == 0 || text.size() < length) {
        return 0;
    }
    const unsigned char low = first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
    const unsigned char high = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
    if (byte(1) < low || byte(1) > high) {
        return 0;
    }
    for (std::size_t i = 2; i < length; ++i) {
        if (byte(i) < 0x80 || byte(i) > 0xBF) {
            return 0;
        }
    }
    return length;
}

// Windows-1252 from 0x80 to 0x9F; the five undefined bytes keep their values.
constexpr std::array<char32_t, 32> kWindows1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// The character at a position; it must be well-formed.
char32_t CharacterAt(std::string_view text, std::size_t place, std::size_t length) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[place + i]); };
    constexpr std::array<unsigned, 5> kOfFirst = {0, 0x7F, 0x1F, 0x0F, 0x07};
    char32_t character = byte(0) & kOfFirst[length];
    for (std::size_t i = 1; i < length; ++i) {
        character = character << 6 | (byte(i) & 0x3FU);
    }
    return character;
}

// The Windows-1252 byte of a character, or nothing.
std::optional<char> ByteOf(char32_t character) {
    const auto* const place = std::find(kWindows1252.begin(), kWindows1252.end(), character);
    if (place != kWindows1252.end()) {
        return static_cast<char>(0x80 + (place - kWindows1252.begin()));
    }
    const bool isSame = character < 0x80 || (character >= 0xA0 && character <= 0xFF);
    return isSame ? std::optional(static_cast<char>(character)) : std::nullopt;
}

} // namespace

std::size_t LengthOfUtf8(std::string_view text) {
    constexpr std::size_t kBlock = 256;
    std::size_t i = 0;
    while (i < text.size()) {
        if (text.size() - i >= kBlock && IsAscii(text.data() + i, kBlock)) {
            i += kBlock;
            continue;
        }
        const std::size_t stop = std::min(text.size(), i + kBlock);
        while (i < stop) {
            const std::size_t length = CharacterLength(text.substr(i));
            if (length == 0) {
                return i;
            }
            i += length;
        }
    }
    return i;
}

void AppendCharacter(char32_t character, std::string& text) {
    const auto low = [&](int shift) {
        return static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
    };
    if (character < 0x80) {
        text += static_cast<char>(character);
    } else if (character < 0x800) {
        text += static_cast<char>(0xC0U | (character >> 6));
        text += low(0);
    } else if (character < 0x10000) {
        text += static_cast<char>(0xE0U | (character >> 12));
        text += low(6);
        text += low(0);
    } else {
        text += static_cast<char>(0xF0U | (character >> 18));
        text += low(12);
        text += low(6);
        text += low(0);
    }
}

std::string FromWindows1252(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size() + bytes.size() / 8);
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isInTable = byte >= 0x80 && byte < 0x80 + kWindows1252.size();
        AppendCharacter(isInTable ? kWindows1252[byte - 0x80U] : char32_t{byte}, text);
    }
    return text;
}

std::optional<std::string> ToWindows1252(std::string_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = CharacterLength(text.substr(i));
        const std::optional<char> byte =
            length == 0 ? std::nullopt : ByteOf(CharacterAt(text, i, length));
        if (!byte) {
            return std::nullopt;
        }
        bytes += *byte;
        i += length;
    }
    return bytes;
}

std::string ToFileBytes(std::string_view text) {
    if (IsAscii(text.data(), text.size())) {
        return std::string(text);
    }
    // Bytes that are valid UTF-8 by chance would be read as another text.
    const std::optional<std::string> bytes = ToWindows1252(text);
    return bytes && LengthOfUtf8(*bytes) < bytes->size() ? *bytes : std::string(text);
}

std::string FromFileBytes(std::string_view bytes) {
    return LengthOfUtf8(bytes) < bytes.size() ? FromWindows1252(bytes) : std::string(bytes);
}

} // namespace quandrel
