// SPDX-License-Identifier: MIT

#include "svg/text_metrics.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <string_view>

namespace quandrel {
namespace {

/// Widths in thousandths of an em, as the metrics of Helvetica and Helvetica-Bold give them (Adobe
/// Font Metrics of the standard fonts of PostScript): Liberation Sans was made with the same ones.
struct KnownWidth {
    std::string_view characters;
    int regular;
    int bold;
};

constexpr KnownWidth kKnown[] = {
    {" ", 278, 278},        {"0123456789", 556, 556}, {"abeu", 556, -1}, {"bdghnopqu", -1, 611},
    {"aekvxy", -1, 556},    {"il", 222, 278},         {"ft", 278, 333},  {"ckvxyz", 500, -1},
    {"cs", 500, 556},       {"m", 833, 889},          {"w", 722, 778},   {"r", 333, 389},
    {"ABEKPSVXY", 667, -1}, {"CDHNRU", 722, 722},     {"ABK", 667, 722}, {"EPSVXY", 667, 667},
    {"FTZ", 611, 611},      {"GOQ", 778, 778},        {"I", 278, 278},   {"L", 556, 611},
    {"J", 500, 556},        {"M", 833, 833},          {"W", 944, 944},   {",./", 278, 278},
    {"-()", 333, 333},
};

TEST(AdvanceOf, IsThatOfTheFontItWasMadeAfter) {
    for (const KnownWidth& known : kKnown) {
        for (const char c : known.characters) {
            const auto character = static_cast<char32_t>(c);
            if (known.regular >= 0) {
                EXPECT_NEAR(1000 * AdvanceOf(character, false), known.regular, 0.5) << c;
            }
            if (known.bold >= 0) {
                EXPECT_NEAR(1000 * AdvanceOf(character, true), known.bold, 0.5) << c;
            }
        }
    }
}

TEST(AdvanceOf, CoversLatinGreekAndCyrillic) {
    // Letters that look like Latin ones are as wide as they: Alpha, A of Cyrillic, A with a grave.
    for (const bool bold : {false, true}) {
        for (const char32_t alike : {U'\u0391', U'\u0410', U'\u00c0', U'\u0100'}) {
            EXPECT_EQ(AdvanceOf(alike, bold), AdvanceOf('A', bold));
        }
        EXPECT_EQ(AdvanceOf(U'\u03bf', bold), AdvanceOf('o', bold));
        EXPECT_EQ(AdvanceOf(U'\u0441', bold), AdvanceOf('c', bold));
    }
    EXPECT_NEAR(AdvanceOf(U'\u00b0', false), 0.400, 0.0005) << "the degree sign";
    EXPECT_NEAR(AdvanceOf(U'\u2013', false), 0.556, 0.0005) << "a dash of half an em";
}

TEST(AdvanceOf, OfOtherCharactersIsAnEm) {
    for (const char32_t other : {U'\u0001', U'\u007f', U'\u05d0', U'\u6771', U'\ufffd',
                                 U'\U0001f30d', char32_t{0x10ffff}}) {
        EXPECT_EQ(AdvanceOf(other, false), 1) << static_cast<unsigned>(other);
        EXPECT_EQ(AdvanceOf(other, true), 1);
    }
}

TEST(WidthInEms, AddsUpTheCharacters) {
    EXPECT_EQ(WidthInEms("", false), 0);
    EXPECT_NEAR(WidthInEms("n = 30", false), 0.556 + 0.278 + 0.584 + 0.278 + 2 * 0.556, 0.002);
    EXPECT_NEAR(WidthInEms("St\xc3\xb6rung", true), 0.667 + 0.333 + 4 * 0.611 + 0.389, 0.003);
    EXPECT_EQ(WidthInEms("\xe6\x9d\xb1\xe4\xba\xac", false), 2) << "two characters of Chinese";
    EXPECT_EQ(WidthInEms("\xff\xfe", false), 2) << "two bytes that are none";
}

TEST(TextMetrics, ALineIsAboutAnEmHigh) {
    EXPECT_NEAR(AscentInEms(), 0.905, 0.0005);
    EXPECT_NEAR(DescentInEms(), 0.212, 0.0005);
}

} // namespace
} // namespace quandrel
