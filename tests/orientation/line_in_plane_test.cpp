// SPDX-License-Identifier: MIT
//
// Lines given by trend, pitch or a full-turn angle in a plane, compared with vectors built by hand.

#include "orientation/angles.h"
#include "orientation/notation.h"
#include "orientation/vectors.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace quandrel {
namespace {

using testing::AcuteAngleOf;
using testing::AngleOf;
using testing::Dot;
using testing::LineVector;
using testing::PlaneNormal;
using testing::Radians;
using testing::Sum;
using testing::Vector;

struct TestLine {
    double plunge = 0; ///< radians
    double trend = 0;  ///< radians
};

// The vector of a full-turn angle in a plane, all in degrees.
Vector InPlane(double dip, double dipDirection, double fromAzimuth, double angle) {
    return Sum(LineVector(0, Radians(fromAzimuth)), std::cos(Radians(angle)),
               LineVector(Radians(dip), Radians(dipDirection)), std::sin(Radians(angle)));
}

TestLine TrendLine(double dip, double dipDirection, double trend) {
    TestLine line;
    PlaneTrendToLine(DegToRad(dip), DegToRad(dipDirection), DegToRad(trend), line.plunge,
                     line.trend);
    return line;
}

TestLine HadeLine(double dip, double dipDirection, double hade) {
    TestLine line;
    PlaneHadeToPlunge(DegToRad(dip), DegToRad(dipDirection), DegToRad(hade), line.plunge,
                      line.trend);
    return line;
}

TEST(PlaneTrendToLine, LiesInThePlaneAndBelowTheTrend) {
    for (int dip = 0; dip < 90; dip += 5) {
        for (int dipDirection = 0; dipDirection < 360; dipDirection += 30) {
            for (int trend = 0; trend <= 360; trend += 7) {
                const TestLine line = TrendLine(dip, dipDirection, trend);
                const Vector vector = LineVector(line.plunge, line.trend);
                ASSERT_GE(line.plunge, 0);
                ASSERT_NEAR(Dot(vector, PlaneNormal(Radians(dip), Radians(dipDirection))), 0,
                            1e-12);
                // The horizontal part runs along the trend, to one end or the other.
                ASSERT_NEAR(std::sin(line.trend - Radians(trend)), 0, 1e-12);
            }
        }
    }
}

TEST(PlaneTrendToLine, TurnsARisingTrendToItsDownwardEnd) {
    const TestLine line = TrendLine(40, 90, 300);
    EXPECT_NEAR(line.plunge, std::atan(std::tan(Radians(40)) * std::cos(Radians(30))), 1e-13);
    EXPECT_NEAR(line.trend, Radians(120), 1e-13);
}

TEST(PlaneTrendToLine, KeepsTheTrendAlongTheStrike) {
    for (const double trend : {120.0, 300.0}) {
        const TestLine line = TrendLine(40, 30, trend);
        EXPECT_EQ(line.plunge, 0);
        EXPECT_NEAR(line.trend, Radians(trend), 1e-13);
    }
}

TEST(PlaneTrendToLine, IsHorizontalOrVerticalInAVerticalPlane) {
    EXPECT_EQ(TrendLine(90, 30, 120).plunge, 0);
    EXPECT_EQ(TrendLine(90, 30, 300).plunge, 0);
    EXPECT_EQ(TrendLine(90, 30, 121).plunge, kPi / 2);
    EXPECT_EQ(TrendLine(90, 30, 30).plunge, kPi / 2);
    EXPECT_EQ(TrendLine(90, 30, 210).plunge, kPi / 2);
}

TEST(PlanePitchToLine, StartsAtTheEndOfTheStrikeNearestTheSense) {
    struct Case {
        int dipDirection;
        const char* sense;
        int strikeEnd;
    };

    for (const Case& c : {Case{120, "NE", 30},
                          {120, "N", 30},
                          {120, "E", 30},
                          {120, "SW", 210},
                          {120, "S", 210},
                          {120, "W", 210},
                          {0, "E", 90},
                          {0, "NW", 270}}) {
        for (int dip = 0; dip <= 90; dip += 10) {
            for (int pitch = -90; pitch <= 180; pitch += 10) {
                TestLine line;
                ASSERT_TRUE(PlanePitchToLine(DegToRad(dip), DegToRad(c.dipDirection),
                                             DegToRad(pitch), c.sense, line.plunge, line.trend));
                const Vector expected = InPlane(dip, c.dipDirection, c.strikeEnd, pitch);
                const Vector found = LineVector(line.plunge, line.trend);
                // A vertical vector keeps no sense.
                const double apart = std::abs(expected.down) > 1 - 1e-12
                                         ? AcuteAngleOf(expected, found)
                                         : AngleOf(expected, found);
                ASSERT_NEAR(apart, 0, 1e-8) << c.sense << " " << dip << " " << pitch;
            }
        }
    }
}

TEST(PlanePitchToLine, GivesTheTextbookLine) {
    // Plane 60/090, pitch 30 from the north: sin(plunge) = sin(30) sin(60), and the trend lies
    // atan(tan(30) cos(60)) east of north.
    TestLine line;
    ASSERT_TRUE(
        PlanePitchToLine(DegToRad(60), DegToRad(90), DegToRad(30), "N", line.plunge, line.trend));
    EXPECT_NEAR(line.plunge, std::asin(std::sin(Radians(30)) * std::sin(Radians(60))), 1e-12);
    EXPECT_NEAR(line.trend, std::atan(std::tan(Radians(30)) * std::cos(Radians(60))), 1e-12);
}

TEST(PlanePitchToLine, RefusesASenseAtRightAnglesToTheStrike) {
    TestLine line = {7, 8};
    EXPECT_FALSE(
        PlanePitchToLine(DegToRad(60), DegToRad(90), DegToRad(30), "E", line.plunge, line.trend));
    EXPECT_FALSE(
        PlanePitchToLine(DegToRad(60), DegToRad(45), DegToRad(30), "SW", line.plunge, line.trend));
    EXPECT_FALSE(
        PlanePitchToLine(DegToRad(60), DegToRad(90), DegToRad(30), "X", line.plunge, line.trend));
    EXPECT_EQ(line.plunge, 7);
    EXPECT_EQ(line.trend, 8);
}

TEST(PlaneHadeToPlunge, RunsFromTheStrikeDownwardThroughAFullTurn) {
    struct Case {
        double hade;
        double plunge;
        double trend;
    };

    // Plane 35/120: strike 030, other end 210.
    for (const Case& c :
         {Case{0, 0, 30}, {90, 35, 120}, {180, 0, 210}, {270, -35, 120}, {360, 0, 30}}) {
        const TestLine line = HadeLine(35, 120, c.hade);
        EXPECT_NEAR(line.plunge, Radians(c.plunge), 1e-12) << c.hade;
        EXPECT_NEAR(line.trend, Radians(c.trend), 1e-12) << c.hade;
    }
}

TEST(PlaneHadeToPlunge, AgreesWithTheVectorInThePlane) {
    for (int dip = 0; dip <= 90; dip += 5) {
        for (int dipDirection = 0; dipDirection < 360; dipDirection += 45) {
            for (int hade = 0; hade <= 360; hade += 5) {
                const TestLine line = HadeLine(dip, dipDirection, hade);
                const Vector expected = InPlane(dip, dipDirection, dipDirection - 90, hade);
                const Vector found = LineVector(line.plunge, line.trend);
                const double apart = std::abs(expected.down) > 1 - 1e-12
                                         ? AcuteAngleOf(expected, found)
                                         : AngleOf(expected, found);
                ASSERT_NEAR(apart, 0, 1e-8) << dip << "/" << dipDirection << " " << hade;
                if (std::abs(expected.down) < 1 - 1e-12 && std::abs(expected.down) > 1e-9) {
                    ASSERT_EQ(line.plunge<0, hade> 180);
                }
            }
        }
    }
}

} // namespace
} // namespace quandrel
