// SPDX-License-Identifier: MIT
//
// Intersection lines of planes, and planes through lines.
//
// Angles are degrees. Planes, or lines, are parallel when the cross product of their unit vectors
// is shorter than 1e-9.
//
// Example: the intersection of a bed and a vertical fault, and the number of lines of three beds.
//
//     namespace qd = quandrel::api;
//     const std::optional<qd::Line> line = qd::IntersectionOf({45, 180}, {90, 90});
//     std::cout << line->plunge << ' ' << line->trend << '\n'; // -> 45 180
//     std::cout << qd::IntersectionOf({30, 90}, {30, 90}).has_value() << '\n'; // -> 0
//     const std::vector<qd::Plane> beds = {{30, 90}, {60, 100}, {45, 280}};
//     std::cout << qd::BetaIntersections(beds).size() << '\n'; // -> 3

#pragma once

#include "quandrel/orientation.h"

#include <optional>
#include <span>
#include <vector>

namespace quandrel::api {

/// The intersection line of two planes: plunge 0 to 90. Nothing for parallel planes.
[[nodiscard]] std::optional<Line> IntersectionOf(const Plane& a, const Plane& b);

/// The plane through two lines: dip 0 to 90; the dip direction of a vertical plane is 180 or more.
/// The signs of the plunges are ignored. Nothing for parallel lines.
[[nodiscard]] std::optional<Plane> PlaneThrough(const Line& a, const Line& b);

/// The intersection lines of n planes with n others, pair by pair.
///
/// @param a,b         n planes each
/// @param[out] lines  n lines; both values of a line are NaN when its planes are parallel
void IntersectionsOf(std::span<const Plane> a, std::span<const Plane> b, std::span<Line> lines);

/// The intersection lines of each pair of n planes: the first plane with all after it, then the
/// second, and so on. Pairs of parallel planes are left out, so that there are at most n(n - 1)/2.
/// O(n^2).
[[nodiscard]] std::vector<Line> BetaIntersections(std::span<const Plane> planes);

} // namespace quandrel::api
