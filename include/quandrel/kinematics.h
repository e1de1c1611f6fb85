// SPDX-License-Identifier: MIT
//
// Kinematic axes of faults: the shortening axis P and the extension axis T.
//
// Angles are degrees.
//
// Example: a normal fault that dips 60 degrees to the east.
//
//     namespace qd = quandrel::api;
//     const qd::Fault fault = {{60, 90}, {60, 90}}; // plane, slip line down the dip
//     const std::optional<qd::KinematicAxes> axes = qd::KinematicAxesOf(fault);
//     std::cout << axes->p.plunge << ' ' << axes->t.plunge << '\n'; // -> 75 15

#pragma once

#include "quandrel/orientation.h"

#include <optional>
#include <span>

namespace quandrel::api {

/// A fault, and the line along which its hanging wall moved: down along it, or up along a line with
/// a negative plunge, whose trend is still that of the lower end. Along a horizontal line it moved
/// in the direction of the trend.
struct Fault {
    Plane plane;
    Line slip;
};

/// P and T, as axes: plunge 0 to 90.
struct KinematicAxes {
    Line p;
    Line t;
};

// Arrays of n x 4 doubles are spans of these.
static_assert(sizeof(Fault) == 4 * sizeof(double));
static_assert(sizeof(KinematicAxes) == 4 * sizeof(double));

/// The axes of a fault: at right angles to each other, each at 45 degrees to the fault's pole, in
/// the plane of pole and slip line. A slip line that is not exactly in the fault plane is first
/// moved into it along that plane.
///
/// @param tolerance  above 0 to 90
/// @return nothing when the angle of the slip line to the fault plane is the tolerance or more
///
/// Formula: R. Marrett, R. W. Allmendinger, Kinematic analysis of fault-slip data, J. Struct.
/// Geol. 12 (1990).
[[nodiscard]] std::optional<KinematicAxes> KinematicAxesOf(const Fault& fault,
                                                           double tolerance = 10);

/// KinematicAxesOf for n faults.
///
/// @param[out] axes  n of them; all values are NaN for a fault without axes
void FindKinematicAxes(std::span<const Fault> faults, double tolerance,
                       std::span<KinematicAxes> axes);

} // namespace quandrel::api
