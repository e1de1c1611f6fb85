// SPDX-License-Identifier: MIT

#include "core/letter_case.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quandrel {

namespace {

/// Capitals from `first` to `last`. Each is `distance` before its small letter. With a step of 2
/// only every second letter is a capital.
struct Capitals {
    char32_t first;
    char32_t last;
    int distance;
    char32_t step;
};

/// Letters whose two cases have the same number of bytes, in the alphabets in which rock names are
/// written (The Unicode Standard, CaseFolding.txt).
constexpr std::array<Capitals, 25> kCapitals = {{
    // Latin-1 Supplement.
    {0x00c0, 0x00d6, 32, 1},
    {0x00d8, 0x00de, 32, 1},
    // Latin Extended-A.
    {0x0100, 0x012e, 1, 2},
    {0x0132, 0x0136, 1, 2},
    {0x0139, 0x0147, 1, 2},
    {0x014a, 0x0176, 1, 2},
    {0x0178, 0x0178, -121, 1},
    {0x0179, 0x017d, 1, 2},
    // Latin Extended-B: letters with two accents, Romanian letters.
    {0x01f8, 0x021e, 1, 2},
    // Greek; the last entry is the final sigma.
    {0x0370, 0x0372, 1, 2},
    {0x0376, 0x0376, 1, 1},
    {0x0386, 0x0386, 38, 1},
    {0x0388, 0x038a, 37, 1},
    {0x038c, 0x038c, 64, 1},
    {0x038e, 0x038f, 63, 1},
    {0x0391, 0x03a1, 32, 1},
    {0x03a3, 0x03ab, 32, 1},
    {0x03c2, 0x03c2, 1, 1},
    // Cyrillic.
    {0x0400, 0x040f, 80, 1},
    {0x0410, 0x042f, 32, 1},
    {0x0460, 0x0480, 1, 2},
    {0x048a, 0x04be, 1, 2},
    {0x04c0, 0x04c0, 15, 1},
    {0x04c1, 0x04cd, 1, 2},
    {0x04d0, 0x052e, 1, 2},
}};

/// A letter, or one byte of a longer sequence.
struct Unit {
    char32_t code = 0;
    std::size_t bytes = 1;

    friend bool operator==(const Unit&, const Unit&) = default;
};

char32_t Byte(std::string_view text, std::size_t place) {
    return static_cast<unsigned char>(text[place]);
}

char32_t SmallOf(char32_t code) {
    for (const Capitals& range : kCapitals) {
        if (code >= range.first && code <= range.last && (code - range.first) % range.step == 0) {
            return static_cast<char32_t>(static_cast<int>(code) + range.distance);
        }
    }
    return code;
}

/// The lower-case form of the letter at a position of a text.
Unit SmallAt(std::string_view text, std::size_t place) {
    const char32_t lead = Byte(text, place);
    if (lead >= 'A' && lead <= 'Z') {
        return {lead - U'A' + U'a', 1};
    }
    const bool isLead = lead >= 0xc2 && lead <= 0xdf; // of a two-byte sequence
    if (!isLead || place + 1 >= text.size() || (Byte(text, place + 1) & 0xc0U) != 0x80U) {
        return {lead, 1};
    }
    return {SmallOf((lead & 0x1fU) << 6U | (Byte(text, place + 1) & 0x3fU)), 2};
}

} // namespace

std::string LowerCase(std::string text) {
    for (std::size_t place = 0; place < text.size();) {
        const Unit small = SmallAt(text, place);
        if (small.bytes == 2) {
            text[place++] = static_cast<char>(0xc0U | small.code >> 6U);
            text[place++] = static_cast<char>(0x80U | (small.code & 0x3fU));
        } else {
            text[place++] = static_cast<char>(small.code);
        }
    }
    return text;
}

bool EqualWithoutCase(std::string_view a, std::string_view b) {
    // Most of the texts compared are identical.
    if (a == b) {
        return true;
    }
    if (a.size() != b.size()) {
        return false;
    }
    for (std::size_t place = 0; place < a.size();) {
        const Unit small = SmallAt(a, place);
        if (small != SmallAt(b, place)) {
            return false;
        }
        place += small.bytes;
    }
    return true;
}

} // namespace quandrel
