// SPDX-License-Identifier: MIT

#include "quandrel/kinematics.h"

#include "border/border.h"
#include "derive/kinematic_axes.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quandrel::api {

namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
constexpr KinematicAxes kNoAxes = {{kNoNumber, kNoNumber}, {kNoNumber, kNoNumber}};

} // namespace

std::optional<KinematicAxes> KinematicAxesOf(const Fault& fault, double tolerance) {
    const RadianPlane plane = In(fault.plane);
    const RadianLine slip = In(fault.slip);
    Within(tolerance, 0, 90, "tolerance");
    RadianLine pole;
    PoleOfPlane(plane.dip, plane.dipDirection, pole.plunge, pole.trend);
    RadianLine p{kNoNumber, kNoNumber};
    RadianLine t;
    ComputePTAxes(pole.plunge, pole.trend, slip.plunge, slip.trend, DegToRad(tolerance), p.plunge,
                  p.trend, t.plunge, t.trend);
    if (std::isnan(p.plunge)) {
        return std::nullopt;
    }
    // The kernel marks T by a negative plunge.
    return KinematicAxes{LineOut(p.plunge, p.trend), LineOut(std::abs(t.plunge), t.trend)};
}

void FindKinematicAxes(std::span<const Fault> faults, double tolerance,
                       std::span<KinematicAxes> axes) {
    SameLength(faults.size(), axes.size(), "faults and axes");
    std::ranges::transform(faults, axes.begin(), [tolerance](const Fault& fault) {
        return KinematicAxesOf(fault, tolerance).value_or(kNoAxes);
    });
}

} // namespace quandrel::api
