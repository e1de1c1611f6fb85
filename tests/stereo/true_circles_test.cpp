// SPDX-License-Identifier: MIT
//
// True great circles in both nets.

#include "orientation/projection.h"
#include "stereo/true_circles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace quandrel {
namespace {

constexpr double kTolerance = 1e-4 * kNetRadius;

double DistanceToSegment(Point p, Point a, Point b) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double square = dx * dx + dy * dy;
    const double t =
        square == 0 ? 0 : std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / square, 0.0, 1.0);
    return std::hypot(p.x - a.x - t * dx, p.y - a.y - t * dy);
}

double DistanceToLine(Point p, const std::vector<Point>& line) {
    double least = 1e9;
    for (std::size_t i = 1; i < line.size(); ++i) {
        least = std::min(least, DistanceToSegment(p, line[i - 1], line[i]));
    }
    return least;
}

/// The greatest distance of lines of a plane, found by its dip alone, from the trace.
double GreatestError(int kind, double dip, double dipDirection) {
    const Direction pole = LineToCosines(kPi / 2 - dip, dipDirection + kPi);
    const std::vector<Point> trace = TrueGreatCircle(kind, pole);
    double greatest = 0;
    for (int i = 0; i <= 700; ++i) {
        // A line of the plane by its angle from the dip direction: tan plunge = tan dip cos angle.
        const double angle = -kPi / 2 + i * kPi / 700;
        const double plunge = std::atan(std::tan(dip) * std::cos(angle));
        Point at;
        ProjectPoint(kind, std::max(plunge, 0.0), dipDirection + angle, at.x, at.y);
        greatest = std::max(greatest, DistanceToLine(at, trace));
    }
    return greatest;
}

TEST(TrueCircles, HoldTheLinesOfTheirPlanes) {
    std::mt19937 random(20261122);
    for (const int kind : {1, 2}) {
        for (int i = 0; i < 60; ++i) {
            const double dip = (0.5 + static_cast<double>(random() % 890) / 10) * kPi / 180;
            const double azimuth = static_cast<double>(random() % 3600) / 10 * kPi / 180;
            EXPECT_LT(GreatestError(kind, dip, azimuth), kTolerance)
                << kind << ' ' << dip << ' ' << azimuth;
        }
        EXPECT_LT(GreatestError(kind, 89.9 * kPi / 180, 1), kTolerance);
    }
}

TEST(TrueCircles, EndOnThePrimitiveOnOppositeSides) {
    for (const int kind : {1, 2}) {
        const std::vector<Point> trace = TrueGreatCircle(kind, LineToCosines(0.4, 2));
        EXPECT_NEAR(std::hypot(trace.front().x, trace.front().y), kNetRadius, 1e-9);
        EXPECT_NEAR(trace.front().x, -trace.back().x, 1e-9);
        EXPECT_NEAR(trace.front().y, -trace.back().y, 1e-9);
    }
}

TEST(TrueCircles, AreALineForAVerticalPlaneAndThePrimitiveForALevelOne) {
    const std::vector<Point> vertical = TrueGreatCircle(1, {1, 0, 0});
    ASSERT_EQ(vertical.size(), 2U);
    EXPECT_NEAR(vertical[0].x, -vertical[1].x, 1e-9);
    EXPECT_NEAR(std::abs(vertical[0].x), kNetRadius, 1e-9) << "it strikes east";
    const std::vector<Point> level = TrueGreatCircle(1, {0, 0, 1});
    EXPECT_EQ(level.front().x, 0);
    for (const Point& point : level) {
        EXPECT_NEAR(std::hypot(point.x, point.y), kNetRadius, 1e-9);
    }
    EXPECT_NEAR(level.front().y, level.back().y, 1e-9);
}

TEST(TrueCircles, DoNotDependOnTheSenseOfThePole) {
    const Direction pole = LineToCosines(0.7, 4);
    const std::vector<Point> one = TrueGreatCircle(1, pole);
    const std::vector<Point> other = TrueGreatCircle(1, {-pole.l, -pole.m, -pole.n});
    for (const Point& point : one) {
        EXPECT_LT(DistanceToLine(point, other), 1e-6);
    }
}

} // namespace
} // namespace quandrel
