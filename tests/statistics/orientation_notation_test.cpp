// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "orientation/vectors.h"
#include "statistics/orientation_notation.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

using testing::Radians;

using OrientationNotation = EngineTest;

TEST_F(OrientationNotation, ATrendThatRoundsToAFullTurnIsNorth) {
    struct Case {
        double trend; // degrees
        const char* azimuth;
        const char* quadrant;
    };

    const Case cases[] = {
        {359.67, "10-000", "10-N0E"}, {360, "10-000", "10-N0E"}, {0, "10-000", "10-N0E"},
        {359.4, "10-359", "10-N1W"},  {0.4, "10-000", "10-N0E"}, {180.2, "10-180", "10-S0E"},
        {90, "10-090", "10-N90E"},
    };
    for (const Case& c : cases) {
        gConventions = kDipDipDirection;
        EXPECT_EQ(TextOfLine(Radians(10), Radians(c.trend)), c.azimuth) << c.trend;
        gConventions = -kDipDipDirection;
        EXPECT_EQ(TextOfLine(Radians(10), Radians(c.trend)), c.quadrant) << c.trend;
    }
}

TEST_F(OrientationNotation, ADipDirectionThatRoundsToAFullTurnIsNorth) {
    gConventions = kDipDipDirection;
    EXPECT_EQ(TextOfPlaneOfPole(Radians(30), Radians(179.67)), "60/000");
    gConventions = -kDipDipDirection;
    EXPECT_EQ(TextOfPlaneOfPole(Radians(30), Radians(179.67)), "60/N0E");
    // A strike of north is 360, as in all texts.
    gConventions = kStrikeDipSense;
    EXPECT_EQ(TextOfPlaneOfPole(Radians(30), Radians(269.67)), "360/60E");
}

// Kept: quadrant notation.
TEST_F(OrientationNotation, AQuadrantCodeHasThePlungeFirstWhateverItsTen) {
    for (const int code : {-kStrikeDipSense, -(10 + kStrikeDipSense)}) {
        gConventions = static_cast<std::int16_t>(code);
        EXPECT_EQ(TextOfLine(Radians(70), Radians(90)), "70-N90E") << code;
    }
    gConventions = 10 + kDipDirectionDip;
    EXPECT_EQ(TextOfLine(Radians(70), Radians(90)), "090-70");
}

TEST_F(OrientationNotation, WholeAzimuths) {
    EXPECT_EQ(WholeAzimuthText(Radians(359.5)), "0") << "half-way to even";
    EXPECT_EQ(WholeAzimuthText(Radians(359.49)), "359");
    EXPECT_EQ(WholeAzimuthText(Radians(7)), "7");
}

} // namespace
} // namespace quandrel
