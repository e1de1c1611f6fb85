// SPDX-License-Identifier: MIT

#include "stereo/true_circles.h"

#include "orientation/projection.h"

#include <cmath>

namespace quandrel {

namespace {

/// Steps of a half turn. The distance of a chord of 1.5 degrees from its arc is 9e-5 of the radius
/// of curvature; in both nets that of a great circle is the net's radius or more.
constexpr int kSteps = 120;

constexpr double kHorizontal = 1e-12; ///< horizontal part of the pole of a level plane
constexpr double kVertical = 1e-12;   ///< downward part of the pole of a vertical one

Point PointOf(int plotKind, const Direction& direction) {
    const NetPosition at = PositionOfDirection(plotKind, direction);
    return {at.x, at.y};
}

} // namespace

std::vector<Point> TrueGreatCircle(int plotKind, const Direction& pole) {
    const double horizontal = std::hypot(pole.l, pole.m);
    std::vector<Point> points;
    if (horizontal < kHorizontal) {
        for (int i = 0; i <= 2 * kSteps; ++i) {
            const double azimuth = i * kPi / kSteps;
            points.push_back({kNetRadius * std::sin(azimuth), kNetRadius * std::cos(azimuth)});
        }
        return points;
    }
    // The strike is at right angles to the pole and level; the line of dip to both, downward.
    const Direction strike{-pole.m / horizontal, pole.l / horizontal, 0};
    const double sense = pole.n < 0 ? -1 : 1;
    const Direction dip{-sense * pole.l * pole.n / horizontal,
                        -sense * pole.m * pole.n / horizontal, sense * horizontal};
    const Direction end{-strike.l, -strike.m, 0};
    const int steps = std::abs(pole.n) < kVertical ? 1 : kSteps;
    points.push_back(PointOf(plotKind, strike));
    for (int i = 1; i < steps; ++i) {
        const double t = i * kPi / steps;
        const double c = std::cos(t);
        const double s = std::sin(t);
        points.push_back(PointOf(plotKind, {c * strike.l + s * dip.l, c * strike.m + s * dip.m,
                                            c * strike.n + s * dip.n}));
    }
    points.push_back(PointOf(plotKind, end));
    return points;
}

} // namespace quandrel
