// SPDX-License-Identifier: MIT

#include "core/data_format.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "stereo/cones.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace quandrel {
namespace {

/// Whole degrees.
struct Axis {
    int plunge;
    int trend;
    int angle;
};

constexpr Axis kAxes[] = {{90, 0, 20},    {45, 120, 30}, {10, 200, 25}, {0, 0, 15},
                          {-20, 300, 40}, {60, 10, 90},  {30, 77, 120}, {5, 359, 5}};

/// The downward line under a point of the net, by the inverse formulas of the two projections.
Direction DownwardLineAt(int kind, const Point& point) {
    const double rho = std::min(std::hypot(point.x, point.y) / kNetRadius, 1.0);
    const double colatitude = kind == kEqualAngle ? 2 * std::atan(rho) : std::acos(1 - rho * rho);
    const double azimuth = std::atan2(point.x, point.y);
    return {std::sin(colatitude) * std::cos(azimuth), std::sin(colatitude) * std::sin(azimuth),
            std::cos(colatitude)};
}

TEST(Cones, EveryPointLiesOnTheConeOrOnThatOfTheOppositeAxis) {
    for (const int kind : {int{kEqualArea}, int{kEqualAngle}}) {
        for (const Axis& axis : kAxes) {
            const Direction a = LineToCosines(DegToRad(axis.plunge), DegToRad(axis.trend));
            for (const auto& line : ConeTrace(kind, DegToRad(axis.plunge), DegToRad(axis.trend),
                                              DegToRad(axis.angle))) {
                for (const Point& point : line) {
                    const Direction d = DownwardLineAt(kind, point);
                    const double dot = a.l * d.l + a.m * d.m + a.n * d.n;
                    EXPECT_NEAR(std::abs(dot), std::abs(std::cos(DegToRad(axis.angle))), 1e-6)
                        << axis.plunge << " " << axis.trend << " " << axis.angle;
                }
            }
        }
    }
}

TEST(Cones, LinesEndOnThePrimitiveOrMeet) {
    for (const Axis& axis : kAxes) {
        const auto lines = ConeTrace(kEqualArea, DegToRad(axis.plunge), DegToRad(axis.trend),
                                     DegToRad(axis.angle));
        const Point first = lines.front().front();
        const Point last = lines.back().back();
        EXPECT_NEAR(first.x, last.x, 1e-6) << "the turn is a whole one";
        EXPECT_NEAR(first.y, last.y, 1e-6);
        for (std::size_t i = 1; i < lines.size(); ++i) {
            const Point end = lines[i - 1].back();
            const Point start = lines[i].front();
            EXPECT_NEAR(std::hypot(end.x, end.y), kNetRadius, 1e-3);
            EXPECT_NEAR(start.x, -end.x, 1e-3) << "it goes on at the far side";
            EXPECT_NEAR(start.y, -end.y, 1e-3);
        }
    }
}

TEST(Cones, AConeAboutTheVerticalIsOneCircle) {
    const auto lines = ConeTrace(kEqualAngle, kPi / 2, 0, DegToRad(40));
    ASSERT_EQ(lines.size(), 1U);
    for (const Point& point : lines[0]) {
        EXPECT_NEAR(std::hypot(point.x, point.y), kNetRadius * std::tan(DegToRad(20)), 1e-6);
    }
}

} // namespace
} // namespace quandrel
