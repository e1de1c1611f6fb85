// SPDX-License-Identifier: MIT

#include "quandrel/notation.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace quandrel::api {
namespace {

TEST(PublicNotation, AzimuthsAreReadInEachNotation) {
    struct Case {
        const char* text;
        double azimuth;
    };

    for (const auto& [text, azimuth] : {Case{"120", 120},
                                        {" 7,5 ", 7.5},
                                        {"360", 0},
                                        {"-10", 350},
                                        {"N30E", 30},
                                        {"s30e", 150},
                                        {"S30W", 210},
                                        {"N30W", 330},
                                        {"N0E", 0},
                                        {"N", 0},
                                        {"SSW", 203},
                                        {"ene", 78}}) {
        EXPECT_EQ(AzimuthOfText(text), azimuth) << text;
    }
    for (const char* text : {"", "x", "N91E", "E30N", "12abc", "N30", "NN", "nan", "1e999"}) {
        EXPECT_FALSE(AzimuthOfText(text)) << text;
    }
}

TEST(PublicNotation, DipDirectionsLieOnTheSideOfTheSense) {
    EXPECT_EQ(DipDirectionOf(30, "SE"), 120);
    EXPECT_EQ(DipDirectionOf(210, "SE"), 120);
    EXPECT_EQ(DipDirectionOf(30, "w"), 300);
    EXPECT_EQ(DipDirectionOf(90, "N"), 0);
    EXPECT_FALSE(DipDirectionOf(0, "N"));
    EXPECT_FALSE(DipDirectionOf(30, "SSE"));
    EXPECT_FALSE(DipDirectionOf(30, ""));
}

TEST(PublicNotation, StrikesFollowTheRightHandRule) {
    EXPECT_EQ(DipDirectionOf(30.5), 120.5);
    EXPECT_EQ(DipDirectionOf(270), 0);
    EXPECT_EQ(StrikeOf({40, 30}), 300);
    EXPECT_EQ(StrikeOf({40, DipDirectionOf(123.25)}), 123.25);
}

TEST(PublicNotation, PlanesAreWrittenInEachConvention) {
    const Plane plane = {45.4, 119.6};
    const char* const expected[] = {"45/120", "120/45", "030/45E", "45E/030", "45/030", "030/45"};
    for (int convention = 1; convention <= 6; ++convention) {
        EXPECT_EQ(TextOf(plane, {.convention = static_cast<PlaneConvention>(convention)}),
                  expected[convention - 1]);
    }
    EXPECT_EQ(TextOf(plane, {.convention = PlaneConvention::kStrikeDipSense, .isQuadrant = true}),
              "N30E/45E");
    EXPECT_EQ(TextOf(Plane{30, 359.7}, {.separator = "-"}), "30-000");
}

TEST(PublicNotation, LinesAreWrittenInEitherOrder) {
    EXPECT_EQ(TextOf(Line{30, 45}), "30/045");
    EXPECT_EQ(TextOf(Line{30, 45}, {.convention = LineConvention::kTrendPlunge}), "045/30");
    EXPECT_EQ(TextOf(Line{30, 45}, {.isQuadrant = true, .separator = " "}), "30 N45E");
    EXPECT_EQ(TextOf(Line{-0.3, 45}), "0/225");
    EXPECT_EQ(TextOf(Line{-30, 45}), "-30/045");
}

TEST(PublicNotation, RefusesWhatIsNoOrientation) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THROW(static_cast<void>(DipDirectionOf(kNaN)), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(DipDirectionOf(kNaN, "N")), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(TextOf(Line{95, 0})), std::invalid_argument);
    EXPECT_THROW(
        static_cast<void>(TextOf(Plane{5, 0}, {.convention = static_cast<PlaneConvention>(7)})),
        std::invalid_argument);
}

} // namespace
} // namespace quandrel::api
