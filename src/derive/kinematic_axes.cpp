// SPDX-License-Identifier: MIT

#include "derive/kinematic_axes.h"

#include "orientation/direction_vectors.h"

#include <cmath>
#include <numbers>

namespace quandrel {

namespace {

// A line of a smaller plunge is horizontal: otherwise rounding would choose between its ends.
constexpr double kHorizontal = 1e-9;

/// The projection of a line onto the plane with the given pole, as a unit vector.
Direction MovedIntoPlane(const Direction& line, const Direction& pole) {
    const Direction inPlane = Combined(line, 1, pole, -DotProduct(line, pole));
    return Combined(inPlane, 1 / LengthOf(inPlane), {}, 0);
}

/// The downward line of an axis.
void AxisToLine(Direction axis, double& plunge, double& trend) {
    if (std::abs(axis.n) < kHorizontal) {
        axis.n = 0;
    }
    CosinesToLine(axis, plunge, trend);
    plunge = std::abs(plunge);
}

} // namespace

std::optional<KinematicAxes> AxesOfFault(const Direction& pole, const Direction& slip, bool upward,
                                         double tolerance) {
    const double offPlane = std::abs(kPi / 2 - ArcCos(std::abs(DotProduct(pole, slip))));
    if (!(static_cast<float>(offPlane) < static_cast<float>(tolerance))) {
        return std::nullopt;
    }
    const Direction line = MovedIntoPlane(slip, pole);
    const double half = std::numbers::sqrt2 / 2;
    const Direction toward = Combined(pole, half, line, half);
    const Direction away = Combined(pole, half, line, -half);
    return upward ? KinematicAxes{away, toward} : KinematicAxes{toward, away};
}

void ComputePTAxes(double polePlunge, double poleTrend, double linePlunge, double lineTrend,
                   double tolerance, double& pPlunge, double& pTrend, double& tPlunge,
                   double& tTrend) {
    const std::optional<KinematicAxes> axes =
        AxesOfFault(LineToCosines(std::abs(polePlunge), poleTrend),
                    LineToCosines(std::abs(linePlunge), lineTrend), linePlunge < 0, tolerance);
    if (!axes) {
        return;
    }
    AxisToLine(axes->p, pPlunge, pTrend);
    AxisToLine(axes->t, tPlunge, tTrend);
    tPlunge = tPlunge > 0 ? -tPlunge : 0;
}

} // namespace quandrel
