// SPDX-License-Identifier: MIT

#include "core/data_format.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "rotation/rotation_pick.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace quandrel {
namespace {

/// A pick at the place of a line in whole degrees.
std::optional<RotationPick> PickAt(int plotKind, int plunge, int trend, int operation,
                                   std::int16_t focus = kOrientationFocus) {
    double x = 0;
    double y = 0;
    ProjectPoint(plotKind, DegToRad(plunge), DegToRad(trend), x, y);
    return PickRotation(plotKind, x * 0.999999, y * 0.999999, operation, focus,
                        PickStep::TenDegrees);
}

/// A pick at an azimuth, half-way to the rim.
std::optional<RotationPick> PickToward(double degrees, std::int16_t focus, PickStep step) {
    const double azimuth = degrees * std::numbers::pi / 180;
    return PickRotation(kEqualArea, 500 * std::sin(azimuth), 500 * std::cos(azimuth),
                        kPlaneToVertical, focus, step);
}

TEST(PickRotation, ReadsTheLineUnderThePointer) {
    for (const int plotKind : {kEqualArea, kEqualAngle}) {
        for (const int operation : {kUnfoldAboutSelected, kRotateAboutAxis, kLineToVertical}) {
            for (int plunge = 1; plunge < 90; plunge += 11) {
                for (int trend = 1; trend < 360; trend += 19) {
                    const auto pick = PickAt(plotKind, plunge, trend, operation);
                    ASSERT_TRUE(pick);
                    ASSERT_EQ(pick->inclination, std::to_string(plunge));
                    ASSERT_EQ(std::stoi(*pick->azimuth), trend);
                    ASSERT_EQ(pick->azimuth->size(), 3U);
                    ASSERT_FALSE(pick->angle || pick->sense);
                }
            }
        }
    }
}

TEST(PickRotation, ReadsThePlaneWhosePoleLiesThere) {
    const auto pick = PickAt(kEqualArea, 30, 50, kPlaneToVertical);
    ASSERT_TRUE(pick);
    EXPECT_EQ(pick->inclination, "60");
    EXPECT_EQ(pick->azimuth, "230");
    EXPECT_EQ(pick->information, "Plane to Rotate: 60/230");
}

TEST(PickRotation, NeverGivesAFullTurn) {
    EXPECT_EQ(
        PickRotation(kEqualArea, -0.5, 900, kRotateAboutAxis, kOrientationFocus, PickStep::Exact)
            ->azimuth,
        "000");
    EXPECT_EQ(PickToward(358, kNewStrikeFocus, PickStep::TenDegrees)->angle, "000");
}

TEST(PickRotation, ReadsANewStrikeInSteps) {
    struct Case {
        double azimuth;
        PickStep step;
        const char* strike;
    };

    for (const Case c :
         {Case{43.4, PickStep::TenDegrees, "040"}, Case{43.4, PickStep::FiveDegrees, "045"},
          Case{43.4, PickStep::Exact, "043"}, Case{187, PickStep::TenDegrees, "190"},
          Case{271.6, PickStep::FiveDegrees, "270"}, Case{271.6, PickStep::Exact, "272"}}) {
        const auto pick = PickToward(c.azimuth, kNewStrikeFocus, c.step);
        ASSERT_TRUE(pick);
        EXPECT_EQ(pick->angle, c.strike) << c.azimuth;
        EXPECT_EQ(pick->information, std::string("New Strike: ") + c.strike);
        EXPECT_FALSE(pick->inclination || pick->azimuth || pick->sense);
    }
    EXPECT_EQ(PickStepOf(false, false), PickStep::TenDegrees);
    EXPECT_EQ(PickStepOf(true, false), PickStep::FiveDegrees);
    EXPECT_EQ(PickStepOf(false, true), PickStep::Exact);
    EXPECT_EQ(PickStepOf(true, true), PickStep::Exact);
}

TEST(PickRotation, ReadsASenseAsTheNearestCompassName) {
    const char* const names[] = {"N", "NE", "E", "SE", "S", "SW", "W", "NW"};
    for (int i = 0; i < 8; ++i) {
        for (const int off : {-20, 0, 20}) {
            EXPECT_EQ(PickToward(45 * i + off, kSenseFocus, PickStep::TenDegrees)->sense, names[i]);
        }
    }
}

TEST(PickRotation, BoxesThatAnOperationLacksCountAsTheOrientation) {
    const auto pick = PickAt(kEqualArea, 30, 50, kLineToVertical, kNewStrikeFocus);
    ASSERT_TRUE(pick);
    EXPECT_EQ(pick->inclination, "30");
}

TEST(PickRotation, GivesNothingWhereThereIsNothingToRead) {
    const auto pick = [](double x, double y, int operation, std::int16_t focus,
                         int plotKind = kEqualArea) {
        return PickRotation(plotKind, x, y, operation, focus, PickStep::Exact).has_value();
    };
    EXPECT_TRUE(pick(0, 1000, kRotateAboutAxis, kOrientationFocus));
    EXPECT_FALSE(pick(0, 1000.5, kRotateAboutAxis, kOrientationFocus));
    EXPECT_FALSE(pick(0, 500, kUnfoldAboutAppended, kOrientationFocus));
    EXPECT_FALSE(pick(0, 500, kRotateAboutAxis, kNoRotationFocus));
    EXPECT_FALSE(pick(0, 500, kRotateAboutAxis, kOrientationFocus, kRose));
    EXPECT_TRUE(pick(0, 0, kRotateAboutAxis, kOrientationFocus));
    EXPECT_FALSE(pick(0, 0, kPlaneToVertical, kNewStrikeFocus));
    EXPECT_FALSE(pick(0, 0, kPlaneToVertical, kSenseFocus));
}

} // namespace
} // namespace quandrel
