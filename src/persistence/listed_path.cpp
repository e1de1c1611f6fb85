// SPDX-License-Identifier: MIT

#include "persistence/listed_path.h"

#include "input/text_encoding.h"

#include <algorithm>
#include <charconv>

namespace quandrel {

namespace {

/// Characters that a line cannot contain at any position.
bool IsUnfit(char c) {
    constexpr unsigned char kFirstPrinted = 0x20;
    constexpr unsigned char kDelete = 0x7f;
    const auto byte = static_cast<unsigned char>(c);
    return c == '\\' || byte < kFirstPrinted || byte == kDelete;
}

void AppendEscape(char c, std::string& text) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(c);
    text += '%';
    text += kDigits[byte / 16];
    text += kDigits[byte % 16];
}

} // namespace

bool NeedsEscapes(std::string_view path) {
    return path.starts_with(' ') || path.ends_with(' ') || std::ranges::any_of(path, IsUnfit)
           || LengthOfUtf8(path) < path.size();
}

std::string WithEscapes(std::string_view path) {
    std::string text;
    std::size_t encoded = LengthOfUtf8(path);
    for (std::size_t i = 0; i < path.size(); ++i) {
        const bool isAtEnd = i == 0 || i + 1 == path.size();
        const bool isEncoded = i < encoded;
        if (!isEncoded || IsUnfit(path[i]) || path[i] == '%' || (path[i] == ' ' && isAtEnd)) {
            AppendEscape(path[i], text);
        } else {
            text += path[i];
        }
        if (!isEncoded) {
            encoded = i + 1 + LengthOfUtf8(path.substr(i + 1));
        }
    }
    return text;
}

std::string WithoutEscapes(std::string_view text) {
    constexpr std::size_t kEscape = 3;
    std::string path;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char* const digits = text.data() + i + 1;
        unsigned char byte = 0;
        const bool isEscape = text[i] == '%' && i + kEscape <= text.size()
                              && std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2
                              && byte != 0;
        path += isEscape ? static_cast<char>(byte) : text[i];
        i += isEscape ? kEscape - 1 : 0;
    }
    return path;
}

} // namespace quandrel
