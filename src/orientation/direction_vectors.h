// SPDX-License-Identifier: MIT
//
// Directions as vectors: products, sums, lengths, and frames on the sphere.

#pragma once

#include "orientation/angles.h"

#include <array>
#include <cmath>

namespace quandrel {

/// Three unit vectors at right angles to each other.
using Frame = std::array<Direction, 3>;

[[nodiscard]] inline double DotProduct(const Direction& a, const Direction& b) {
    return a.l * b.l + a.m * b.m + a.n * b.n;
}

[[nodiscard]] inline Direction CrossProduct(const Direction& a, const Direction& b) {
    return {a.m * b.n - a.n * b.m, a.n * b.l - a.l * b.n, a.l * b.m - a.m * b.l};
}

[[nodiscard]] inline double LengthOf(const Direction& vector) {
    return std::sqrt(DotProduct(vector, vector));
}

/// A vector, not 0, divided by its length.
[[nodiscard]] inline Direction Normalised(const Direction& vector) {
    const double length = LengthOf(vector);
    return {vector.l / length, vector.m / length, vector.n / length};
}

[[nodiscard]] inline Direction Reversed(const Direction& vector) {
    return {-vector.l, -vector.m, -vector.n};
}

/// A vector times a number.
[[nodiscard]] inline Direction Scaled(const Direction& a, double factor) {
    return {factor * a.l, factor * a.m, factor * a.n};
}

/// a times factorA plus b times factorB.
[[nodiscard]] inline Direction Combined(const Direction& a, double factorA, const Direction& b,
                                        double factorB) {
    return {factorA * a.l + factorB * b.l, factorA * a.m + factorB * b.m,
            factorA * a.n + factorB * b.n};
}

/// A vector by its components along a frame.
[[nodiscard]] inline Direction FromFrame(const Frame& frame, const std::array<double, 3>& along) {
    const Direction inPlane = Combined(frame[0], along[0], frame[1], along[1]);
    return Combined(inPlane, 1, frame[2], along[2]);
}

/// The components of a vector along a frame.
[[nodiscard]] inline std::array<double, 3> InFrame(const Frame& frame, const Direction& vector) {
    return {DotProduct(vector, frame[0]), DotProduct(vector, frame[1]),
            DotProduct(vector, frame[2])};
}

/// A frame whose last axis is a unit vector. The first is at right angles to the coordinate axis
/// that is farthest from it.
[[nodiscard]] inline Frame FrameAbout(const Direction& axis) {
    const double l = std::abs(axis.l);
    const double m = std::abs(axis.m);
    const double n = std::abs(axis.n);
    Direction farthest = {0, 0, 1};
    if (l <= m && l <= n) {
        farthest = {1, 0, 0};
    } else if (m <= n) {
        farthest = {0, 1, 0};
    }
    const Direction across = CrossProduct(farthest, axis);
    const Direction first = Scaled(across, 1 / LengthOf(across));
    return {first, CrossProduct(axis, first), axis};
}

/// Two unit vectors at right angles to a unit vector and to each other; the first is horizontal
/// unless the vector is steep.
[[nodiscard]] inline std::array<Direction, 2> TangentsAt(const Direction& at) {
    const Direction aside =
        std::abs(at.n) < 0.9 ? Direction{-at.m, at.l, 0} : Direction{0, -at.n, at.m};
    const Direction first = Normalised(aside);
    return {first, CrossProduct(at, first)};
}

/// A unit vector moved along two tangents by the tangents of small angles.
[[nodiscard]] inline Direction Moved(const Direction& at, const std::array<Direction, 2>& tangents,
                                     double first, double second) {
    const auto& [u, v] = tangents;
    return Normalised({at.l + first * u.l + second * v.l, at.m + first * u.m + second * v.m,
                       at.n + first * u.n + second * v.n});
}

/// The end of a line that points down; of a level one the end to the north, or to the east.
[[nodiscard]] inline Direction LowerEnd(const Direction& axis) {
    const double sense = axis.n != 0 ? axis.n : axis.l != 0 ? axis.l : axis.m;
    const double sign = sense < 0 ? -1 : 1;
    // The sums turn -0 into 0.
    return {sign * axis.l + 0.0, sign * axis.m + 0.0, sign * axis.n + 0.0};
}

} // namespace quandrel
