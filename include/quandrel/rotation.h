// SPDX-License-Identifier: MIT
//
// Rotating lines and planes, unfolding beds.
//
// Angles are degrees. A positive angle is clockwise looking down the plunge of the axis; axes are
// read as pointing down. Lines rotate as vectors: a line whose result points up has a negative
// plunge. Planes rotate by their poles.
//
// Example: a bed rotated back about a horizontal axis, and the rotation between two beds.
//
//     namespace qd = quandrel::api;
//     const qd::Plane bed = qd::RotatedPlane({50, 90}, {0, 0}, -20);
//     std::cout << bed.dip << ' ' << bed.dipDirection << '\n'; // -> 30 90
//     const qd::AxisRotation back = qd::RotationBetween({30, 90}, {50, 90});
//     std::cout << std::abs(back.angle) << '\n'; // -> 20

#pragma once

#include "quandrel/orientation.h"

#include <span>

namespace quandrel::api {

/// A line rotated about an axis. The opposite angle is the inverse.
///
/// Formula: v cos(a) + (k x v) sin(a) + k (k.v) (1 - cos(a)), v the line, k the axis.
[[nodiscard]] Line RotatedLine(const Line& line, const Line& axis, double angle);

/// A plane rotated about an axis: dip 0 to 90. The opposite angle is the inverse.
[[nodiscard]] Plane RotatedPlane(const Plane& plane, const Line& axis, double angle);

/// RotatedLine for n lines.
///
/// @param[out] rotated  n lines; may be the same memory
void RotateLines(std::span<const Line> lines, const Line& axis, double angle,
                 std::span<Line> rotated);

/// RotatedPlane for n planes.
///
/// @param[out] rotated  n planes; may be the same memory
void RotatePlanes(std::span<const Plane> planes, const Line& axis, double angle,
                  std::span<Plane> rotated);

/// A line after unfolding the bed that it lies in: the fold axis is brought to the horizontal about
/// the line at right angles to its trend, then the bed to the horizontal about its strike.
///
/// @param bed       a negative dip is an overturned bed, which is unfolded the long way
/// @param foldAxis  the sign of its plunge is ignored
[[nodiscard]] Line UnfoldedLine(const Line& line, const Plane& bed, const Line& foldAxis);

/// A rotation about an axis.
struct AxisRotation {
    Line axis; ///< plunge 0 to 90
    double angle = 0;
};

/// The rotation by the smallest angle from one plane to another: -90 to 90, 0 for parallel planes.
[[nodiscard]] AxisRotation RotationBetween(const Plane& from, const Plane& to);

} // namespace quandrel::api
