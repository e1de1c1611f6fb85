// SPDX-License-Identifier: MIT

#include "platform/colour_space.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <random>

namespace quandrel {
namespace {

struct Pair {
    LabColour first;
    LabColour second;
    double difference; ///< to four decimals
};

// Table 1 of Sharma, Wu and Dalal (2005).
constexpr std::array<Pair, 34> kPublished{{
    {{50, 2.6772, -79.7751}, {50, 0, -82.7485}, 2.0425},
    {{50, 3.1571, -77.2803}, {50, 0, -82.7485}, 2.8615},
    {{50, 2.8361, -74.0200}, {50, 0, -82.7485}, 3.4412},
    {{50, -1.3802, -84.2814}, {50, 0, -82.7485}, 1.0000},
    {{50, -1.1848, -84.8006}, {50, 0, -82.7485}, 1.0000},
    {{50, -0.9009, -85.5211}, {50, 0, -82.7485}, 1.0000},
    {{50, 0, 0}, {50, -1, 2}, 2.3669},
    {{50, -1, 2}, {50, 0, 0}, 2.3669},
    {{50, 2.4900, -0.0010}, {50, -2.4900, 0.0009}, 7.1792},
    {{50, 2.4900, -0.0010}, {50, -2.4900, 0.0010}, 7.1792},
    {{50, 2.4900, -0.0010}, {50, -2.4900, 0.0011}, 7.2195},
    {{50, 2.4900, -0.0010}, {50, -2.4900, 0.0012}, 7.2195},
    {{50, -0.0010, 2.4900}, {50, 0.0009, -2.4900}, 4.8045},
    {{50, -0.0010, 2.4900}, {50, 0.0010, -2.4900}, 4.8045},
    {{50, -0.0010, 2.4900}, {50, 0.0011, -2.4900}, 4.7461},
    {{50, 2.5, 0}, {50, 0, -2.5}, 4.3065},
    {{50, 2.5, 0}, {73, 25, -18}, 27.1492},
    {{50, 2.5, 0}, {61, -5, 29}, 22.8977},
    {{50, 2.5, 0}, {56, -27, -3}, 31.9030},
    {{50, 2.5, 0}, {58, 24, 15}, 19.4535},
    {{50, 2.5, 0}, {50, 3.1736, 0.5854}, 1.0000},
    {{50, 2.5, 0}, {50, 3.2972, 0}, 1.0000},
    {{50, 2.5, 0}, {50, 1.8634, 0.5757}, 1.0000},
    {{50, 2.5, 0}, {50, 3.2592, 0.3350}, 1.0000},
    {{60.2574, -34.0099, 36.2677}, {60.4626, -34.1751, 39.4387}, 1.2644},
    {{63.0109, -31.0961, -5.8663}, {62.8187, -29.7946, -4.0864}, 1.2630},
    {{61.2901, 3.7196, -5.3901}, {61.4292, 2.2480, -4.9620}, 1.8731},
    {{35.0831, -44.1164, 3.7933}, {35.0232, -40.0716, 1.5901}, 1.8645},
    {{22.7233, 20.0904, -46.6940}, {23.0331, 14.9730, -42.5619}, 2.0373},
    {{36.4612, 47.8580, 18.3852}, {36.2715, 50.5065, 21.2231}, 1.4146},
    {{90.8027, -2.0831, 1.4410}, {91.1528, -1.6435, 0.0447}, 1.4441},
    {{90.9257, -0.5406, -0.9208}, {88.6381, -0.8985, -0.7239}, 1.5381},
    {{6.7747, -0.2908, -2.4247}, {5.8714, -0.0985, -2.2286}, 0.6377},
    {{2.0776, 0.0795, -1.1350}, {0.9033, -0.0636, -0.5514}, 0.9082},
}};

TEST(ColourDifference, IsThatOfThePublishedPairs) {
    for (std::size_t i = 0; i < kPublished.size(); ++i) {
        const auto& [first, second, difference] = kPublished[i];
        EXPECT_NEAR(ColourDifference(first, second), difference, 0.00005) << "pair " << i + 1;
        EXPECT_NEAR(ColourDifference(second, first), difference, 0.00005) << "pair " << i + 1;
        EXPECT_EQ(ColourDifference(first, first), 0);
    }
}

void ExpectLab(const LabColour& found, const LabColour& expected, double within) {
    EXPECT_NEAR(found.lightness, expected.lightness, within);
    EXPECT_NEAR(found.a, expected.a, within);
    EXPECT_NEAR(found.b, expected.b, within);
}

// Known values for the primaries of sRGB under D65.
TEST(LabOf, GivesThePrimariesOfTheScreen) {
    ExpectLab(LabOf(kBlack), {0, 0, 0}, 1e-9);
    ExpectLab(LabOf(kWhite), {100, 0, 0}, 1e-9);
    ExpectLab(LabOf({255, 0, 0}), {53.24, 80.09, 67.20}, 0.03);
    ExpectLab(LabOf({0, 255, 0}), {87.73, -86.18, 83.18}, 0.03);
    ExpectLab(LabOf({0, 0, 255}), {32.30, 79.19, -107.86}, 0.03);
    ExpectLab(LabOf({119, 119, 119}), {50.03, 0, 0}, 0.01);
}

TEST(LabOf, IsLedBackByColourOfLab) {
    std::mt19937_64 draws(7);
    for (int i = 0; i < 2000; ++i) {
        const Colour colour = ColourFromValue(static_cast<std::uint32_t>(draws() & 0xffffffU));
        EXPECT_EQ(ColourOfLab(LabOf(colour)), colour) << HexOf(colour);
        EXPECT_TRUE(IsInSrgb(LabOf(colour))) << HexOf(colour);
    }
}

TEST(ColourOfLab, CutsOffWhatTheScreenDoesNotHave) {
    EXPECT_FALSE(IsInSrgb({90, 60, 0}));
    EXPECT_FALSE(IsInSrgb({101, 0, 0}));
    EXPECT_FALSE(IsInSrgb({10, 0, 40}));
    EXPECT_EQ(ColourOfLab({120, 0, 0}), kWhite);
    EXPECT_EQ(ColourOfLab({-5, 0, 0}), kBlack);
}

/// The response of cones to a colour, derived as the authors do: sRGB without gamma to X, Y, Z of
/// Judd and Vos (their table), and these to the cones of Smith and Pokorny (1975).
std::array<double, 3> ConesOf(Colour colour) {
    const auto linear = [](double byte) {
        const double part = byte / 255;
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    const double red = linear(colour.red);
    const double green = linear(colour.green);
    const double blue = linear(colour.blue);
    const double x = 40.9568 * red + 35.5041 * green + 17.9167 * blue;
    const double y = 21.3389 * red + 70.6743 * green + 7.98680 * blue;
    const double z = 1.86297 * red + 11.4620 * green + 91.2367 * blue;
    return {0.15514 * x + 0.54312 * y - 0.03286 * z, -0.15514 * x + 0.45684 * y + 0.03286 * z,
            0.01608 * z};
}

constexpr std::size_t kLong = 0;
constexpr std::size_t kMiddle = 1;

/// How far apart two colours are for one kind of cone, in parts of white.
double ConeStep(Colour first, Colour second, std::size_t cone) {
    return std::abs(ConesOf(first)[cone] - ConesOf(second)[cone]) / ConesOf(kWhite)[cone];
}

bool IsCutOff(Colour colour) {
    const auto isEnd = [](int channel) { return channel == 0 || channel == 255; };
    return isEnd(colour.red) || isEnd(colour.green) || isEnd(colour.blue);
}

TEST(ColourAsSeen, IsTheSameForTheConesThatThereAre) {
    std::mt19937_64 draws(11);
    int compared = 0;
    for (int i = 0; i < 3000; ++i) {
        const Colour colour = ColourFromValue(static_cast<std::uint32_t>(draws() & 0xffffffU));
        const Colour withoutLong = ColourAsSeen(colour, ColourVision::Protanopia);
        const Colour withoutMiddle = ColourAsSeen(colour, ColourVision::Deuteranopia);
        if (IsCutOff(withoutLong) || IsCutOff(withoutMiddle)) {
            continue;
        }
        ++compared;
        EXPECT_LT(ConeStep(colour, withoutLong, kMiddle), 0.006) << HexOf(colour);
        EXPECT_LT(ConeStep(colour, withoutLong, 2), 0.006) << HexOf(colour);
        EXPECT_LT(ConeStep(colour, withoutMiddle, kLong), 0.006) << HexOf(colour);
        EXPECT_LT(ConeStep(colour, withoutMiddle, 2), 0.006) << HexOf(colour);
    }
    EXPECT_GT(compared, 1500);
}

int LargestStep(Colour first, Colour second) {
    return std::max({std::abs(first.red - second.red), std::abs(first.green - second.green),
                     std::abs(first.blue - second.blue)});
}

TEST(ColourAsSeen, KeepsGreysAndBluesAndWhatWasSeenBefore) {
    for (const ColourVision vision : {ColourVision::Protanopia, ColourVision::Deuteranopia}) {
        for (int level = 0; level <= 255; level += 5) {
            const auto byte = static_cast<std::uint8_t>(level);
            EXPECT_LE(LargestStep(ColourAsSeen({byte, byte, byte}, vision), {byte, byte, byte}), 1);
            // Dark levels lie where the slope of the gamma is steepest.
            EXPECT_LE(LargestStep(ColourAsSeen({0, 0, byte}, vision), {0, 0, byte}), 2);
        }
        const Colour seen = ColourAsSeen({180, 120, 60}, vision);
        EXPECT_LE(LargestStep(ColourAsSeen(seen, vision), seen), 1);
        EXPECT_EQ(ColourAsSeen({1, 2, 3}, ColourVision::Normal), (Colour{1, 2, 3}));
    }
}

TEST(ColourAsSeen, RedAndGreenAreAlikeAndRedIsDarkWithoutLongWaveCones) {
    const Colour red{180, 60, 60};
    const Colour green{90, 115, 60};
    const auto apart = [&](ColourVision vision) {
        return ColourDifference(LabOf(ColourAsSeen(red, vision)),
                                LabOf(ColourAsSeen(green, vision)));
    };
    EXPECT_GT(apart(ColourVision::Normal), 40);
    EXPECT_LT(apart(ColourVision::Deuteranopia), 15);
    const Colour bright{255, 0, 0};
    EXPECT_LT(LabOf(ColourAsSeen(bright, ColourVision::Protanopia)).lightness,
              LabOf(ColourAsSeen(bright, ColourVision::Deuteranopia)).lightness - 10);
}

} // namespace
} // namespace quandrel
