// SPDX-License-Identifier: MIT

#include "density/palettes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace quandrel {
namespace {

constexpr std::array<Palette, 4> kPalettes = {Palette::Warm, Palette::Cool, Palette::Diverging,
                                              Palette::Grey};
constexpr std::array<ColourVision, 3> kVisions = {ColourVision::Normal, ColourVision::Protanopia,
                                                  ColourVision::Deuteranopia};

std::vector<Colour> ColoursOf(Palette palette, int steps,
                              PaletteOrder order = PaletteOrder::Forward) {
    std::vector<Colour> colours;
    for (int step = 0; step < steps; ++step) {
        colours.push_back(PaletteColour(palette, step, steps, order));
    }
    return colours;
}

double DifferenceAsSeen(Colour first, Colour second, ColourVision vision) {
    return ColourDifference(LabOf(ColourAsSeen(first, vision)),
                            LabOf(ColourAsSeen(second, vision)));
}

/// From each colour to the next, how much darker it is.
std::vector<double> Darkenings(const std::vector<Colour>& colours) {
    std::vector<double> steps;
    for (std::size_t i = 1; i < colours.size(); ++i) {
        steps.push_back(LabOf(colours[i - 1]).lightness - LabOf(colours[i]).lightness);
    }
    return steps;
}

class Palettes : public ::testing::TestWithParam<Palette> {};

TEST_P(Palettes, NeighboursAreToldApartByAllEyes) {
    const Palette palette = GetParam();
    const std::vector<Colour> colours = ColoursOf(palette, BestPaletteSteps(palette));
    EXPECT_EQ(colours.size(), palette == Palette::Diverging ? 7U : 6U);
    for (const ColourVision vision : kVisions) {
        for (std::size_t i = 1; i < colours.size(); ++i) {
            EXPECT_GE(DifferenceAsSeen(colours[i - 1], colours[i], vision), 8)
                << i << " " << static_cast<int>(vision);
        }
    }
}

TEST_P(Palettes, LieWithinTheColoursOfScreens) {
    for (int i = 0; i <= 1000; ++i) {
        EXPECT_TRUE(IsInSrgb(PalettePlace(GetParam(), i / 1000.0))) << i;
    }
    EXPECT_EQ(PalettePlace(GetParam(), -1), PalettePlace(GetParam(), 0));
    EXPECT_EQ(PalettePlace(GetParam(), 2), PalettePlace(GetParam(), 1));
}

TEST_P(Palettes, LightnessChangesByEqualSteps) {
    for (int steps = kLeastPaletteSteps; steps <= kMostPaletteSteps; ++steps) {
        std::vector<double> darker = Darkenings(ColoursOf(GetParam(), steps));
        if (GetParam() == Palette::Diverging) { // lighter to the middle, then darker
            const auto half = static_cast<std::size_t>(steps / 2);
            for (std::size_t i = 0; i < half; ++i) {
                EXPECT_NEAR(darker[i], -darker[darker.size() - 1 - i], 1) << steps;
            }
            // With an even number of steps the two next to the middle are equally light.
            darker.erase(darker.begin(), darker.begin() + static_cast<std::ptrdiff_t>(half));
        }
        if (darker.empty()) {
            continue;
        }
        const auto [least, most] = std::ranges::minmax(darker);
        EXPECT_GT(least, 5) << steps;
        EXPECT_LT(most - least, 1) << steps;
    }
}

TEST_P(Palettes, ReversedOnesRunBackwards) {
    for (int steps = kLeastPaletteSteps; steps <= kMostPaletteSteps; ++steps) {
        std::vector<Colour> colours = ColoursOf(GetParam(), steps, PaletteOrder::Reversed);
        std::ranges::reverse(colours);
        EXPECT_EQ(colours, ColoursOf(GetParam(), steps));
    }
}

TEST_P(Palettes, KeepTheirEndsWithAnyNumberOfSteps) {
    const Palette palette = GetParam();
    for (int steps = kLeastPaletteSteps; steps <= kMostPaletteSteps; ++steps) {
        EXPECT_EQ(PaletteColour(palette, 0, steps), PaletteColour(palette, 0, 2));
        EXPECT_EQ(PaletteColour(palette, steps - 1, steps), PaletteColour(palette, 1, 2));
    }
    EXPECT_EQ(PaletteColour(palette, 2, 5), PaletteColour(palette, 4, 9)) << "the middle";
}

TEST_P(Palettes, NumbersOutsideAreTakenAsTheNearest) {
    const Palette palette = GetParam();
    EXPECT_EQ(PaletteColour(palette, -3, 6), PaletteColour(palette, 0, 6));
    EXPECT_EQ(PaletteColour(palette, 6, 6), PaletteColour(palette, 5, 6));
    EXPECT_EQ(PaletteColour(palette, 0, 0), PaletteColour(palette, 0, 2));
    EXPECT_EQ(PaletteColour(palette, 7, 100), PaletteColour(palette, 7, 9));
}

INSTANTIATE_TEST_SUITE_P(All, Palettes, ::testing::ValuesIn(kPalettes));

TEST(DivergingPalette, IsSymmetricAboutALightGrey) {
    const LabColour middle = LabOf(PaletteColour(Palette::Diverging, 3, 7));
    EXPECT_GT(middle.lightness, 95);
    EXPECT_LT(std::hypot(middle.a, middle.b), 1);
    for (int i = 1; i <= 50; ++i) {
        const LabColour cool = PalettePlace(Palette::Diverging, 0.5 - i / 100.0);
        const LabColour warm = PalettePlace(Palette::Diverging, 0.5 + i / 100.0);
        EXPECT_NEAR(cool.lightness, warm.lightness, 1e-9) << i;
        EXPECT_NEAR(std::hypot(cool.a, cool.b), std::hypot(warm.a, warm.b), 0.5) << i;
        EXPECT_LT(cool.b, 0) << i;
        EXPECT_GT(warm.b, 0) << i;
    }
}

TEST(DivergingPalette, BothSidesAreToldApartByAllEyes) {
    for (const ColourVision vision : kVisions) {
        for (int step = 0; step < 3; ++step) {
            EXPECT_GT(DifferenceAsSeen(PaletteColour(Palette::Diverging, step, 7),
                                       PaletteColour(Palette::Diverging, 6 - step, 7), vision),
                      30);
        }
    }
}

TEST(GreyPalette, IsGrey) {
    for (int step = 0; step < 6; ++step) {
        const Colour colour = PaletteColour(Palette::Grey, step, 6);
        EXPECT_EQ(colour.red, colour.green);
        EXPECT_EQ(colour.red, colour.blue);
    }
}

} // namespace
} // namespace quandrel
