// SPDX-License-Identifier: MIT
//
// Lines in which planes meet, and planes through lines.
//
// Angles are degrees. Planes are parallel, and lines too, where the cross product of their unit
// vectors is shorter than 1e-9.
//
// Example: where a bed meets a vertical fault, and how many lines three beds make.
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

/// The line in which two planes meet: plunge 0 to 90. Nothing for parallel planes.
[[nodiscard]] std::optional<Line> IntersectionOf(const Plane& a, const Plane& b);

/// The plane that holds two lines: dip 0 to 90; of a vertical plane the dip direction from 180 on.
/// The signs of the plunges play no part. Nothing for parallel lines.
[[nodiscard]] std::optional<Plane> PlaneThrough(const Line& a, const Line& b);

/// The lines in which n planes meet n others, pair by pair.
///
/// @param a,b         n planes each
/// @param[out] lines  n lines; both values of one are NaN where the planes are parallel
void IntersectionsOf(std::span<const Plane> a, std::span<const Plane> b, std::span<Line> lines);

/// The lines in which each two of n planes meet, the first plane with all after it, then the
/// second, and so on. Pairs of parallel planes are left out, so that there are n(n - 1)/2 at most.
/// O(n^2).
[[nodiscard]] std::vector<Line> BetaIntersections(std::span<const Plane> planes);

} // namespace quandrel::api
