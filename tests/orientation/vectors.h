// SPDX-License-Identifier: MIT
//
// Plain vector geometry for the tests: north, east, down, written without the code under test.

#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quandrel::testing {

struct Vector {
    double north = 0.0;
    double east = 0.0;
    double down = 0.0;
};

inline double Radians(double degrees) {
    return degrees * std::numbers::pi / 180;
}

inline double Dot(const Vector& a, const Vector& b) {
    return a.north * b.north + a.east * b.east + a.down * b.down;
}

inline Vector CrossProduct(const Vector& a, const Vector& b) {
    return {a.east * b.down - a.down * b.east, a.down * b.north - a.north * b.down,
            a.north * b.east - a.east * b.north};
}

inline double Length(const Vector& a) {
    return std::sqrt(Dot(a, a));
}

inline Vector Sum(const Vector& a, double factorA, const Vector& b, double factorB) {
    return {a.north * factorA + b.north * factorB, a.east * factorA + b.east * factorB,
            a.down * factorA + b.down * factorB};
}

inline Vector Unit(const Vector& a) {
    return Sum(a, 1 / Length(a), {}, 0);
}

/// The downward end of a line for a plunge of 0 or more, the upward end of it for a negative one.
inline Vector LineVector(double plunge, double trend) {
    const Vector horizontal = {std::cos(trend), std::sin(trend), 0};
    const double along = plunge < 0 ? -std::cos(plunge) : std::cos(plunge);
    return Sum(horizontal, along, {0, 0, 1}, std::sin(plunge));
}

/// The downward normal of a plane.
inline Vector PlaneNormal(double dip, double dipDirection) {
    return {-std::sin(dip) * std::cos(dipDirection), -std::sin(dip) * std::sin(dipDirection),
            std::cos(dip)};
}

/// Angle between two vectors, 0 to pi, exact near both ends.
inline double AngleOf(const Vector& a, const Vector& b) {
    return std::atan2(Length(CrossProduct(a, b)), Dot(a, b));
}

/// Angle between two undirected lines, 0 to pi/2.
inline double AcuteAngleOf(const Vector& a, const Vector& b) {
    return std::min(AngleOf(a, b), AngleOf(a, Sum(b, -1, {}, 0)));
}

} // namespace quandrel::testing
