// SPDX-License-Identifier: MIT
//
// Rotations of vectors by Rodrigues' formula, for tests: north, east, down, in radians.

#pragma once

#include "orientation/vectors.h"

#include <cmath>
#include <numbers>

namespace quandrel::testing {

inline constexpr double kHalfTurn = std::numbers::pi;

/// The vector rotated about a unit axis by the right-hand rule: clockwise looking along the axis.
/// O. Rodrigues (1840).
inline Vector TurnedAbout(const Vector& vector, const Vector& axis, double angle) {
    const Vector sideways = CrossProduct(axis, vector);
    const double along = Dot(axis, vector) * (1 - std::cos(angle));
    return Sum(Sum(vector, std::cos(angle), sideways, std::sin(angle)), 1, axis, along);
}

/// A horizontal unit vector.
inline Vector Horizontal(double azimuth) {
    return {std::cos(azimuth), std::sin(azimuth), 0};
}

inline Vector Opposite(const Vector& vector) {
    return Sum(vector, -1, {}, 0);
}

/// Angle between two vectors; the message of a failing test shows both.
inline double Apart(const Vector& a, const Vector& b) {
    return AngleOf(a, b);
}

} // namespace quandrel::testing
