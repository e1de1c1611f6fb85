// SPDX-License-Identifier: MIT

#include "stereo/cones.h"

#include "orientation/angles.h"
#include "orientation/direction_vectors.h"
#include "stereo/sphere_trace.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

constexpr int kSteps = 360;
constexpr int kHalvings = 50;

/// The cone as directions, by the angle about its axis.
class Cone {
public:
    Cone(double plunge, double trend, double halfAngle)
        : axis_(LineToCosines(plunge, trend))
        , halfAngle_(halfAngle) {
        // The parametrisation starts at the steepest point, as far from the primitive as possible.
        across_ = LineToCosines(0, trend + kPi / 2);
        up_ = CrossProduct(axis_, across_);
    }

    [[nodiscard]] Direction At(double turn) const {
        const double along = std::cos(halfAngle_);
        const double a = std::sin(halfAngle_) * std::sin(turn);
        const double b = std::sin(halfAngle_) * std::cos(turn);
        return {along * axis_.l + a * across_.l + b * up_.l,
                along * axis_.m + a * across_.m + b * up_.m,
                along * axis_.n + a * across_.n + b * up_.n};
    }

    /// The angle between two others at which the cone crosses the horizontal.
    [[nodiscard]] double Crossing(double from, double to) const {
        const bool startsDown = At(from).n >= 0;
        for (int i = 0; i < kHalvings; ++i) {
            const double middle = (from + to) / 2;
            ((At(middle).n >= 0) == startsDown ? from : to) = middle;
        }
        return from;
    }

private:
    Direction axis_;
    double halfAngle_;
    Direction across_;
    Direction up_;
};

} // namespace

std::vector<std::vector<Point>> ConeTrace(int plotKind, double plunge, double trend,
                                          double halfAngle) {
    const Cone cone(plunge, trend, halfAngle);
    std::vector<std::vector<Point>> lines(1);
    bool isDown = cone.At(0).n >= 0;
    double before = 0;
    for (int step = 0; step <= kSteps; ++step) {
        const double turn = kTwoPi * step / kSteps;
        if ((cone.At(turn).n >= 0) != isDown) {
            const Direction rim = cone.At(cone.Crossing(before, turn));
            lines.back().push_back(EndOnNet(plotKind, rim, isDown));
            isDown = !isDown;
            lines.push_back({EndOnNet(plotKind, rim, isDown)});
        }
        lines.back().push_back(EndOnNet(plotKind, cone.At(turn), isDown));
        before = turn;
    }
    return lines;
}

void DrawCone(Surface& surface, int plotKind, double plunge, double trend, double halfAngle,
              Colour colour) {
    for (const std::vector<Point>& line : ConeTrace(plotKind, plunge, trend, halfAngle)) {
        surface.Polyline(line, colour);
    }
}

} // namespace quandrel
