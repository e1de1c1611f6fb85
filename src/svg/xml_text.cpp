// SPDX-License-Identifier: MIT

#include "svg/xml_text.h"

#include <cstddef>

namespace quandrel {

namespace {

constexpr char32_t kHighestCharacter = 0x10ffff;

/// The form of a character that begins with a byte.
struct Form {
    std::size_t length = 0; ///< in bytes; 0 for a byte that begins no character
    char32_t first = 0;     ///< what the first byte contributes
    char32_t least = 0;     ///< a lower character has a shorter form
};

Form FormOf(unsigned char lead) {
    if (lead < 0x80U) {
        return {1, lead, 0};
    }
    if (lead >= 0xc2U && lead < 0xe0U) {
        return {2, lead & 0x1fU, 0x80};
    }
    if (lead >= 0xe0U && lead < 0xf0U) {
        return {3, lead & 0x0fU, 0x800};
    }
    if (lead >= 0xf0U && lead < 0xf5U) {
        return {4, lead & 0x07U, 0x10000};
    }
    return {};
}

bool IsSurrogate(char32_t character) {
    return character >= 0xd800 && character < 0xe000;
}

/// What a document holds in place of a character.
char32_t Allowed(char32_t character) {
    if (character == '\t' || character == '\n' || character == '\r') {
        return ' ';
    }
    const bool isControl = character < 0x20 || (character >= 0x7f && character < 0xa0);
    const bool isNoncharacter =
        (character & 0xfffeU) == 0xfffeU || (character >= 0xfdd0 && character < 0xfdf0);
    return isControl || isNoncharacter ? kReplacementCharacter : character;
}

void Append(std::string& text, char32_t character) {
    const auto byte = [&](char32_t bits) { text += static_cast<char>(bits); };
    const auto continued = [&](unsigned shift) { byte(0x80U | (character >> shift & 0x3fU)); };
    if (character < 0x80) {
        byte(character);
    } else if (character < 0x800) {
        byte(0xc0U | character >> 6U);
        continued(0);
    } else if (character < 0x10000) {
        byte(0xe0U | character >> 12U);
        continued(6);
        continued(0);
    } else {
        byte(0xf0U | character >> 18U);
        continued(12);
        continued(6);
        continued(0);
    }
}

} // namespace

char32_t TakeCharacter(std::string_view& utf8) {
    const Form form = FormOf(static_cast<unsigned char>(utf8.front()));
    char32_t character = form.first;
    bool isValid = form.length > 0 && form.length <= utf8.size();
    for (std::size_t i = 1; isValid && i < form.length; ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        isValid = (byte & 0xc0U) == 0x80U;
        character = character << 6U | (byte & 0x3fU);
    }
    if (!isValid || character < form.least || character > kHighestCharacter
        || IsSurrogate(character)) {
        utf8.remove_prefix(1);
        return kReplacementCharacter;
    }
    utf8.remove_prefix(form.length);
    return character;
}

std::string XmlText(std::string_view utf8) {
    std::string text;
    text.reserve(utf8.size());
    while (!utf8.empty()) {
        const char32_t character = Allowed(TakeCharacter(utf8));
        switch (character) {
        case '&':
            text += "&amp;";
            break;
        case '<':
            text += "&lt;";
            break;
        case '>':
            text += "&gt;";
            break;
        case '"':
            text += "&quot;";
            break;
        default:
            Append(text, character);
            break;
        }
    }
    return text;
}

} // namespace quandrel
