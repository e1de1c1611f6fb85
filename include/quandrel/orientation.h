// SPDX-License-Identifier: MIT
//
// Lines, planes and vectors, and the relations between two of them.
//
// Angles are degrees; azimuths run clockwise from north. See quandrel.h for general conventions.
//
// Example: a bed as its pole, and the angle between two beds.
//
//     namespace qd = quandrel::api;
//     const qd::Plane bed = {40, 120}; // dip, dip direction
//     const qd::Line pole = qd::PoleOf(bed);
//     std::cout << pole.plunge << '/' << pole.trend << '\n'; // -> 50/300
//     const double angle = qd::AngleBetween(pole, qd::PoleOf({70, 120}));
//     std::cout << angle << '\n'; // -> 30

#pragma once

#include <span>

namespace quandrel::api {

/// A line by its plunge (-90 to 90) and its trend (any; results are 0 to below 360).
///
/// A line with a negative plunge points up: (-p, t) is exactly opposite to (p, t), so that t is the
/// trend of the lower end in both. The sign is ignored where lines are axes.
struct Line {
    double plunge = 0;
    double trend = 0;

    friend bool operator==(const Line&, const Line&) = default;
};

/// A plane by its dip (-90 to 90) and its dip direction (any; results are 0 to below 360). The sign
/// of a dip is ignored unless a function says otherwise.
struct Plane {
    double dip = 0;
    double dipDirection = 0;

    friend bool operator==(const Plane&, const Plane&) = default;
};

/// A vector along north, east and down.
struct Vector {
    double north = 0;
    double east = 0;
    double down = 0;

    friend bool operator==(const Vector&, const Vector&) = default;
};

// Arrays of n x 2 and n x 3 doubles are spans of these.
static_assert(sizeof(Line) == 2 * sizeof(double));
static_assert(sizeof(Plane) == 2 * sizeof(double));
static_assert(sizeof(Vector) == 3 * sizeof(double));

/// Whether a line, or an azimuth, and its opposite are the same.
enum class Sense {
    kAxes,       ///< they are
    kDirections, ///< they are not
};

/// The pole of a plane: plunge 0 to 90, for a horizontal plane 90. Inverse: PlaneOfPole.
[[nodiscard]] Line PoleOf(const Plane& plane);

/// PoleOf for n planes.
///
/// @param[out] poles  n lines
void PolesOf(std::span<const Plane> planes, std::span<Line> poles);

/// The plane of a pole: dip 0 to 90. The sign of the plunge is ignored. Inverse: PoleOf.
[[nodiscard]] Plane PlaneOfPole(const Line& pole);

/// The unit vector of a line; it points up for a negative plunge. Inverse: LineOf.
[[nodiscard]] Vector VectorOf(const Line& line);

/// VectorOf for n lines.
///
/// @param[out] vectors  n unit vectors
void VectorsOf(std::span<const Line> lines, std::span<Vector> vectors);

/// The line of a vector of any length but 0: a negative plunge when it points up. A vertical vector
/// gives (90, 0) whether it points up or down. Inverse: VectorOf.
[[nodiscard]] Line LineOf(const Vector& vector);

/// LineOf for n vectors.
///
/// @param[out] lines  n lines
void LinesOf(std::span<const Vector> vectors, std::span<Line> lines);

/// The acute angle between two axes, 0 to 90.
[[nodiscard]] double AngleBetween(const Line& a, const Line& b);

/// The line of a plane at a pitch (rake): the angle in the plane, 0 to 360, measured downward from
/// the strike by the right-hand rule, which is the dip direction less 90. Above 180 the line points
/// up. The dip must be 0 to 90.
///
/// Formula: cos(pitch) s + sin(pitch) d, s the unit vector along the strike, d the one down the
/// dip.
[[nodiscard]] Line LineAtPitch(const Plane& plane, double pitch);

/// The line of a plane in a vertical section of a trend: the apparent dip as a line, plunge 0 to
/// 90. The dip must be 0 to 90. In a vertical plane any trend but that of the strike gives the
/// plunge 90.
///
/// Formula: tan(plunge) = tan(dip) cos(trend - dip direction).
[[nodiscard]] Line LineAtTrend(const Plane& plane, double trend);

} // namespace quandrel::api
