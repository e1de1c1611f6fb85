// SPDX-License-Identifier: MIT
//
// The line of two planes and the plane of two lines, compared with cross products.

#include "orientation/angles.h"
#include "orientation/vectors.h"

#include <gtest/gtest.h>

#include <cmath>
#include <optional>
#include <random>
#include <vector>

namespace quandrel {
namespace {

using testing::AcuteAngleOf;
using testing::AngleOf;
using testing::CrossProduct;
using testing::LineVector;
using testing::PlaneNormal;
using testing::Radians;
using testing::Vector;

constexpr unsigned kSeed = 4711;

// The formulas use arc sines, which are only this accurate near a right angle.
constexpr double kArcSineAccuracy = 1e-7;

struct Pair {
    double inclination = 0; ///< degrees
    double azimuth = 0;     ///< degrees
};

std::vector<Pair> CoarseGrid() {
    std::vector<Pair> grid;
    for (const int inclination : {0, 1, 15, 30, 45, 60, 75, 89, 90}) {
        for (int azimuth = 0; azimuth <= 360; azimuth += 15) {
            grid.push_back({static_cast<double>(inclination), static_cast<double>(azimuth)});
        }
    }
    return grid;
}

std::vector<Pair> RandomPairs(std::size_t count) {
    std::mt19937_64 random(kSeed);
    std::uniform_int_distribution<int> inclinations(0, 90);
    std::uniform_int_distribution<int> azimuths(0, 360);
    std::vector<Pair> pairs(count);
    for (Pair& pair : pairs) {
        pair = {static_cast<double>(inclinations(random)), static_cast<double>(azimuths(random))};
    }
    return pairs;
}

Direction AsDirection(const Vector& vector) {
    return {vector.north, vector.east, vector.down};
}

void ExpectCommonLine(const Pair& a, const Pair& b) {
    const Vector line = CrossProduct(PlaneNormal(Radians(a.inclination), Radians(a.azimuth)),
                                     PlaneNormal(Radians(b.inclination), Radians(b.azimuth)));
    double plunge = 0;
    double trend = 0;
    IntersectPlanes(DegToRad(a.inclination), DegToRad(a.azimuth), DegToRad(b.inclination),
                    DegToRad(b.azimuth), plunge, trend);
    if (Length(line) < 1e-10) {
        ASSERT_EQ(plunge, -kPi / 2);
        return;
    }
    ASSERT_GE(plunge, 0);
    ASSERT_LE(plunge, kPi / 2);
    ASSERT_GE(trend, 0);
    ASSERT_LE(trend, kTwoPi);
    ASSERT_LT(AcuteAngleOf(line, LineVector(plunge, trend)), kArcSineAccuracy);
}

void ExpectPlaneOfBoth(const Pair& a, const Pair& b) {
    const Vector lineA = LineVector(Radians(a.inclination), Radians(a.azimuth));
    const Vector lineB = LineVector(Radians(b.inclination), Radians(b.azimuth));
    const Vector normal = CrossProduct(lineA, lineB);
    double dip = 0;
    double dipDirection = 0;
    PlaneThroughLines(DegToRad(a.inclination), DegToRad(a.azimuth), DegToRad(b.inclination),
                      DegToRad(b.azimuth), dip, dipDirection);
    if (Length(normal) < 1e-10) {
        ASSERT_EQ(dip, -kPi / 2);
        ASSERT_EQ(dipDirection, 0);
        return;
    }
    ASSERT_GE(dip, 0);
    ASSERT_LE(dip, kPi / 2 + 1e-12);
    ASSERT_GE(dipDirection, 0);
    ASSERT_LE(dipDirection, kTwoPi);
    ASSERT_LT(AcuteAngleOf(normal, PlaneNormal(dip, dipDirection)), kArcSineAccuracy);
}

TEST(IntersectPlanes, GivesNoAnswerForHorizontalOrEqualPlanes) {
    double plunge = 0;
    double trend = 0;
    IntersectPlanes(0, 1, 0, 2, plunge, trend);
    EXPECT_EQ(plunge, -kPi / 2);
    EXPECT_EQ(trend, 0);
    IntersectPlanes(0.7, 1, 0.7, 1, plunge, trend);
    EXPECT_EQ(plunge, -kPi / 2);
}

TEST(IntersectPlanes, GivesNoAnswerForOnePlaneInTwoReadings) {
    double plunge = 0;
    double trend = 0;
    IntersectPlanes(DegToRad(45), DegToRad(0), DegToRad(45), DegToRad(360), plunge, trend);
    EXPECT_EQ(plunge, -kPi / 2);
    IntersectPlanes(DegToRad(90), DegToRad(30), DegToRad(90), DegToRad(210), plunge, trend);
    EXPECT_EQ(plunge, -kPi / 2);
}

TEST(IntersectPlanes, GivesTheStrikeWhenThePlanesDipTheSameWay) {
    double plunge = 1;
    double trend = 0;
    IntersectPlanes(DegToRad(30), DegToRad(70), DegToRad(50), DegToRad(70), plunge, trend);
    EXPECT_EQ(plunge, 0);
    EXPECT_NEAR(trend, Radians(160), 1e-13);
}

TEST(IntersectPlanes, GivesTheStrikeOfThePlaneThatMeetsAHorizontalOne) {
    for (const bool horizontalIsFirst : {false, true}) {
        double plunge = 1;
        double trend = 0;
        const double dip1 = horizontalIsFirst ? 0 : DegToRad(40);
        const double dip2 = horizontalIsFirst ? DegToRad(40) : 0;
        IntersectPlanes(dip1, DegToRad(horizontalIsFirst ? 10 : 120), dip2,
                        DegToRad(horizontalIsFirst ? 120 : 10), plunge, trend);
        EXPECT_NEAR(plunge, 0, 1e-12);
        EXPECT_NEAR(std::abs(std::sin(trend - Radians(120))), 1, 1e-12);
    }
}

TEST(IntersectPlanes, GivesTheVerticalOfTwoVerticalPlanes) {
    double plunge = 0;
    double trend = 1;
    IntersectPlanes(DegToRad(90), DegToRad(20), DegToRad(90), DegToRad(100), plunge, trend);
    EXPECT_EQ(plunge, kPi / 2);
    EXPECT_EQ(trend, 0);
}

TEST(IntersectPlanes, PointsDownInEveryQuadrant) {
    // Two planes of dip 45 that dip 45 degrees to either side of an azimuth meet in a line that
    // plunges that way by atan(cos 45), since tan(plunge) = tan(dip) cos(45).
    for (const int azimuth : {0, 45, 90, 135, 180, 225, 270, 315}) {
        double plunge = 0;
        double trend = 0;
        IntersectPlanes(DegToRad(45), DegToRad(azimuth + 315), DegToRad(45), DegToRad(azimuth + 45),
                        plunge, trend);
        EXPECT_NEAR(plunge, std::atan(std::sqrt(0.5)), 1e-9);
        EXPECT_NEAR(std::remainder(trend - Radians(azimuth), 2 * std::numbers::pi), 0, 1e-7)
            << azimuth;
    }
}

TEST(IntersectPlanes, AgreesWithTheCrossProductOfTheNormals) {
    const std::vector<Pair> grid = CoarseGrid();
    for (const Pair& a : grid) {
        for (const Pair& b : grid) {
            ExpectCommonLine(a, b);
            if (HasFatalFailure()) {
                FAIL() << a.inclination << "/" << a.azimuth << " " << b.inclination << "/"
                       << b.azimuth;
            }
        }
    }
}

TEST(IntersectPlanes, AgreesWithTheCrossProductForRandomPlanes) {
    const std::vector<Pair> pairs = RandomPairs(20000);
    for (std::size_t i = 1; i < pairs.size(); ++i) {
        ExpectCommonLine(pairs[i - 1], pairs[i]);
        if (HasFatalFailure()) {
            FAIL() << "seed " << kSeed << ", pair " << i;
        }
    }
}

TEST(IntersectionDirection, AgreesWithIntersectPlanes) {
    const std::vector<Pair> pairs = RandomPairs(5000);
    int answers = 0;
    for (std::size_t i = 1; i < pairs.size(); ++i) {
        const Pair& a = pairs[i - 1];
        const Pair& b = pairs[i];
        double plunge = 0;
        double trend = 0;
        IntersectPlanes(DegToRad(a.inclination), DegToRad(a.azimuth), DegToRad(b.inclination),
                        DegToRad(b.azimuth), plunge, trend);
        const std::optional<Direction> line = IntersectionDirection(
            AsDirection(PlaneNormal(Radians(a.inclination), Radians(a.azimuth))),
            AsDirection(PlaneNormal(Radians(b.inclination), Radians(b.azimuth))));
        ASSERT_EQ(line.has_value(), plunge >= 0) << "pair " << i;
        if (line) {
            ++answers;
            const Vector vector = {line->l, line->m, line->n};
            ASSERT_GE(line->n, 0);
            ASSERT_NEAR(Length(vector), 1, 1e-13);
            ASSERT_LT(AcuteAngleOf(vector, LineVector(plunge, trend)), kArcSineAccuracy);
        }
    }
    EXPECT_GT(answers, 4900);
}

TEST(IntersectionDirection, IsEmptyForParallelNormals) {
    const Direction normal = LineToCosines(0.3, 2);
    EXPECT_FALSE(IntersectionDirection(normal, normal));
    EXPECT_FALSE(IntersectionDirection(normal, {-normal.l, -normal.m, -normal.n}));
}

TEST(IntersectionDirection, PointsAHorizontalLineNorthOrEast) {
    const Direction down = {0, 0, 1};
    const std::optional<Direction> northward = IntersectionDirection({0, 1, 0}, down);
    const std::optional<Direction> alsoNorthward = IntersectionDirection(down, {0, 1, 0});
    ASSERT_TRUE(northward && alsoNorthward);
    EXPECT_EQ(northward->l, 1);
    EXPECT_EQ(alsoNorthward->l, 1);
}

TEST(PlaneThroughLines, GivesNoAnswerForOneLineTwice) {
    double dip = 0;
    double dipDirection = 1;
    PlaneThroughLines(0.4, 1, 0.4, 1, dip, dipDirection);
    EXPECT_EQ(dip, -kPi / 2);
    EXPECT_EQ(dipDirection, 0);
    PlaneThroughLines(DegToRad(30), 0, DegToRad(30), DegToRad(360), dip, dipDirection);
    EXPECT_EQ(dip, -kPi / 2);
}

TEST(PlaneThroughLines, GivesTheTruePlane) {
    // The strike line and the dip line of 50/120.
    double dip = 0;
    double dipDirection = 0;
    PlaneThroughLines(0, DegToRad(30), DegToRad(50), DegToRad(120), dip, dipDirection);
    EXPECT_NEAR(dip, Radians(50), 1e-12);
    EXPECT_NEAR(dipDirection, Radians(120), 1e-12);
}

TEST(PlaneThroughLines, GivesAHorizontalPlaneDirectionZero) {
    double dip = 1;
    double dipDirection = 1;
    PlaneThroughLines(0, 1, 0, 2, dip, dipDirection);
    EXPECT_EQ(dip, 0);
    EXPECT_EQ(dipDirection, 0);
}

TEST(PlaneThroughLines, TakesTheNormalOfAVerticalPlaneEastward) {
    // Two lines in the vertical plane that strikes 030: the normal points 120, the plane dips 300.
    double dip = 0;
    double dipDirection = 0;
    PlaneThroughLines(DegToRad(20), DegToRad(30), DegToRad(70), DegToRad(30), dip, dipDirection);
    EXPECT_NEAR(dip, Radians(90), 1e-12);
    EXPECT_NEAR(dipDirection, Radians(300), 1e-12);
    PlaneThroughLines(DegToRad(70), DegToRad(30), DegToRad(20), DegToRad(210), dip, dipDirection);
    EXPECT_NEAR(dipDirection, Radians(300), 1e-12);
}

TEST(PlaneThroughLines, AgreesWithTheCrossProductOfTheLines) {
    const std::vector<Pair> grid = CoarseGrid();
    for (const Pair& a : grid) {
        for (const Pair& b : grid) {
            ExpectPlaneOfBoth(a, b);
            if (HasFatalFailure()) {
                FAIL() << a.inclination << "/" << a.azimuth << " " << b.inclination << "/"
                       << b.azimuth;
            }
        }
    }
}

TEST(PlaneThroughLines, AgreesWithTheCrossProductForRandomLines) {
    const std::vector<Pair> pairs = RandomPairs(20000);
    for (std::size_t i = 1; i < pairs.size(); ++i) {
        ExpectPlaneOfBoth(pairs[i - 1], pairs[i]);
        if (HasFatalFailure()) {
            FAIL() << "seed " << kSeed << ", pair " << i;
        }
    }
}

} // namespace
} // namespace quandrel
