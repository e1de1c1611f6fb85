// SPDX-License-Identifier: MIT
//
// Great circles as arcs, compared with the true trace of the plane on the net.

#include "orientation/angles.h"
#include "orientation/projection.h"
#include "orientation/vectors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace quandrel {
namespace {

using testing::LineVector;
using testing::Radians;
using testing::Sum;
using testing::Vector;

constexpr int kAreaKind = 1;
constexpr int kAngleKind = 2;
constexpr double kFullTurn = 2 * std::numbers::pi;

// A direction on the net, by the textbook formulas on its components.
NetPosition TruePosition(int kind, const Vector& v) {
    const double scale = kind == kAngleKind ? 1 / (1 + v.down) : 1 / std::sqrt(1 + v.down);
    return {1000 * v.east * scale, 1000 * v.north * scale};
}

// The trace of a plane (degrees) from the strike's far end down and up to the strike.
std::vector<NetPosition> TrueTrace(int kind, double dip, double dipDirection) {
    const Vector strike = LineVector(0, Radians(dipDirection - 90));
    const Vector dipLine = LineVector(Radians(dip), Radians(dipDirection));
    std::vector<NetPosition> trace;
    for (int angle = 180; angle >= 0; --angle) {
        trace.push_back(TruePosition(
            kind, Sum(strike, std::cos(Radians(angle)), dipLine, std::sin(Radians(angle)))));
    }
    return trace;
}

GreatCircle ArcOfPlane(int kind, double dip, double dipDirection) {
    return GreatCircleArc(kind, DegToRad(90 - dip), DegToRad(dipDirection + 180));
}

double DistanceFromArc(const GreatCircle& arc, const NetPosition& position) {
    return std::abs(std::hypot(position.x - arc.cx, position.y - arc.cy) - arc.radius);
}

// The position of an angle counter-clockwise from the arc's start, as a fraction of the arc.
double ShareOfArc(const GreatCircle& arc, const NetPosition& position) {
    const double angle = std::atan2(position.y - arc.cy, position.x - arc.cx);
    const double length = std::fmod(arc.end - arc.start + kFullTurn, kFullTurn);
    double along = std::fmod(angle - arc.start + 2 * kFullTurn, kFullTurn);
    along = along > kFullTurn - 1e-6 ? along - kFullTurn : along;
    return along / length;
}

double LargestDeviation(int kind, int dip, int dipDirection) {
    const GreatCircle arc = ArcOfPlane(kind, dip, dipDirection);
    double largest = 0;
    for (const NetPosition& position : TrueTrace(kind, dip, dipDirection)) {
        largest = std::max(largest, DistanceFromArc(arc, position));
    }
    return largest;
}

TEST(GreatCircleArc, IsExactOnTheEqualAngleNet) {
    for (int dip = 1; dip <= 88; ++dip) {
        for (int dipDirection = 0; dipDirection <= 360; dipDirection += 5) {
            ASSERT_LT(LargestDeviation(kAngleKind, dip, dipDirection), 1e-9)
                << dip << "/" << dipDirection;
        }
    }
}

TEST(GreatCircleArc, DeviatesByTwoPercentAtMostOnTheEqualAreaNet) {
    double largest = 0;
    int steepest = 0;
    for (int dip = 1; dip <= 88; ++dip) {
        double deviation = 0;
        for (const int dipDirection : {0, 37, 90, 180, 233, 270, 360}) {
            deviation = std::max(deviation, LargestDeviation(kAreaKind, dip, dipDirection));
        }
        if (deviation > largest) {
            largest = deviation;
            steepest = dip;
        }
    }
    RecordProperty("largestDeviation", std::to_string(largest));
    RecordProperty("atDip", steepest);
    EXPECT_LT(largest, 20.2);
    // Shows that the arc through three points is measured, not an exact trace.
    EXPECT_GT(largest, 20.1);
    EXPECT_EQ(steepest, 56);
}

TEST(GreatCircleArc, RunsCounterClockwiseAlongTheDippingHalf) {
    for (const int kind : {kAreaKind, kAngleKind}) {
        for (int dip = 1; dip <= 88; ++dip) {
            for (int dipDirection = 0; dipDirection <= 360; ++dipDirection) {
                const GreatCircle arc = ArcOfPlane(kind, dip, dipDirection);
                ASSERT_GE(arc.start, 0);
                ASSERT_LE(arc.start, kTwoPi);
                ASSERT_GE(arc.end, 0);
                ASSERT_LE(arc.end, kTwoPi);
                const std::vector<NetPosition> trace = TrueTrace(kind, dip, dipDirection);
                ASSERT_NEAR(ShareOfArc(arc, trace.front()), 0, 1e-7) << dip << " " << dipDirection;
                ASSERT_NEAR(ShareOfArc(arc, trace[90]), 0.5, 1e-7) << dip << " " << dipDirection;
                ASSERT_NEAR(ShareOfArc(arc, trace.back()), 1, 1e-7) << dip << " " << dipDirection;
            }
        }
    }
}

TEST(GreatCircleArc, PassesThroughTheStrikeEndsAndTheLowestPoint) {
    for (int dip = 1; dip <= 88; dip += 3) {
        for (int dipDirection = 0; dipDirection < 360; dipDirection += 7) {
            const GreatCircle arc = ArcOfPlane(kAreaKind, dip, dipDirection);
            const std::vector<NetPosition> trace = TrueTrace(kAreaKind, dip, dipDirection);
            ASSERT_LT(DistanceFromArc(arc, trace.front()), 1e-9);
            ASSERT_LT(DistanceFromArc(arc, trace[90]), 1e-9);
            ASSERT_LT(DistanceFromArc(arc, trace.back()), 1e-9);
        }
    }
}

TEST(GreatCircleArc, IsThePrimitiveForAHorizontalPlane) {
    for (const int kind : {kAreaKind, kAngleKind}) {
        for (const double polePlunge : {kPi / 2, DegToRad(90.0), kPi / 2 - 1e-10}) {
            for (const double poleTrend : {0.0, 1.0, kPi, 4.0, kTwoPi}) {
                const GreatCircle arc = GreatCircleArc(kind, polePlunge, poleTrend);
                EXPECT_EQ(arc.cx, 0);
                EXPECT_EQ(arc.cy, 0);
                EXPECT_EQ(arc.radius, 1000);
                EXPECT_EQ(arc.start, 0);
                EXPECT_EQ(arc.end, kTwoPi);
            }
        }
    }
}

TEST(GreatCircleArc, IsAStraightLineForAVerticalPlane) {
    for (const int kind : {kAreaKind, kAngleKind}) {
        const GreatCircle arc = GreatCircleArc(kind, 0, Radians(30));
        EXPECT_EQ(arc.radius, 60000);
        EXPECT_EQ(arc.start, 0);
        EXPECT_EQ(arc.end, 0);
        EXPECT_NEAR(arc.cx, 500, 1e-9);
        EXPECT_NEAR(arc.cy, 1000 * std::cos(Radians(30)), 1e-9);
    }
}

TEST(GreatCircleArc, DrawsNearVerticalPlanesAtFixedDips) {
    // On the equal angle net the radius of a plane is that of the net divided by the cosine of its
    // dip.
    struct Case {
        double dip;
        double radius;
    };

    for (const Case& c : {Case{88.2, 1000 / std::cos(Radians(88.2))},
                          {88.21, 1000 / std::cos(Radians(89))},
                          {88.5, 1000 / std::cos(Radians(89))},
                          {89, 1000 / std::cos(Radians(89))},
                          {89.09, 1000 / std::cos(Radians(89))},
                          {89.11, 60000},
                          {89.5, 60000},
                          {90, 60000}}) {
        EXPECT_NEAR(ArcOfPlane(kAngleKind, c.dip, 77).radius, c.radius, 1e-4) << c.dip;
    }
}

TEST(GreatCircleArc, StaysBelowTheRadiusOfAStraightLine) {
    for (const int kind : {kAreaKind, kAngleKind}) {
        for (double dip = 80; dip <= 89.0; dip += 0.01) {
            ASSERT_LT(ArcOfPlane(kind, dip, 12).radius, kStraightRadius) << dip;
        }
    }
}

TEST(GreatCircleArc, GivesTheSamePartsAsOutArguments) {
    const GreatCircle arc = GreatCircleArc(kAreaKind, 0.6, 2);
    double cx = 0;
    double cy = 0;
    double radius = 0;
    double start = 0;
    double end = 0;
    GreatCircleArc(kAreaKind, 0.6, 2, cx, cy, radius, start, end);
    EXPECT_EQ(cx, arc.cx);
    EXPECT_EQ(cy, arc.cy);
    EXPECT_EQ(radius, arc.radius);
    EXPECT_EQ(start, arc.start);
    EXPECT_EQ(end, arc.end);
}

} // namespace
} // namespace quandrel
