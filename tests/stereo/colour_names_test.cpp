// SPDX-License-Identifier: MIT

#include "core/style_tables.h"
#include "stereo/colour_names.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

TEST(ColourName, IsWhatPeopleSay) {
    // Names of the colours of the web (CSS Color Module Level 4, W3C 2022) in plain words.
    const struct {
        Colour colour;
        const char* name;
    } cases[] = {
        {{0, 0, 0}, "black"},
        {{255, 255, 255}, "white"},
        {{128, 128, 128}, "grey"},
        {{192, 192, 192}, "light grey"},
        {{64, 64, 64}, "dark grey"},
        {{255, 0, 0}, "red"},
        {{128, 0, 0}, "dark red"},
        {{255, 128, 128}, "pink"},
        {{255, 165, 0}, "orange"},
        {{139, 69, 19}, "brown"},
        {{255, 255, 0}, "yellow"},
        {{255, 255, 128}, "light yellow"},
        {{0, 255, 0}, "green"},
        {{0, 100, 0}, "dark green"},
        {{0, 255, 255}, "turquoise"},
        {{0, 128, 128}, "dark turquoise"},
        {{0, 0, 255}, "blue"},
        {{0, 0, 128}, "dark blue"},
        {{173, 216, 230}, "light blue"},
        {{138, 43, 226}, "violet"},
        {{255, 0, 255}, "magenta"},
        {{128, 0, 128}, "dark magenta"},
        {{255, 0, 10}, "red"},
        {{10, 11, 10}, "black"},
    };

    for (const auto& [colour, name] : cases) {
        EXPECT_EQ(ColourName(colour), name)
            << int{colour.red} << "," << int{colour.green} << "," << int{colour.blue};
    }
}

TEST(ColourName, EveryColourHasOne) {
    for (int red = 0; red < 256; red += 15) {
        for (int green = 0; green < 256; green += 15) {
            for (int blue = 0; blue < 256; blue += 15) {
                const Colour colour{static_cast<std::uint8_t>(red),
                                    static_cast<std::uint8_t>(green),
                                    static_cast<std::uint8_t>(blue)};
                EXPECT_FALSE(ColourName(colour).empty());
            }
        }
    }
    EXPECT_EQ(ColourNameAt(5, kBlack), "Colour 5: black");
}

TEST(Contrast, IsThatOfTheGuidelines) {
    EXPECT_NEAR(ContrastOf(kBlack, kWhite), 21, 1e-9);
    EXPECT_NEAR(ContrastOf(kWhite, kWhite), 1, 1e-12);
    // The guidelines' well-known limits on white: #767676 passes 4.5, #777777 does not.
    EXPECT_GE(ContrastOf({0x76, 0x76, 0x76}, kWhite), 4.5);
    EXPECT_LT(ContrastOf({0x77, 0x77, 0x77}, kWhite), 4.5);
    EXPECT_EQ(ContrastOf({1, 2, 3}, {200, 100, 0}), ContrastOf({200, 100, 0}, {1, 2, 3}));
}

} // namespace
} // namespace quandrel
