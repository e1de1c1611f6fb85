// SPDX-License-Identifier: MIT
//
// Projection of orientations to the net and back, and great circles as arcs on it.
//
// Angles are radians; azimuths run clockwise from north. Positions are plot units: +x east, +y
// north, the primitive circle of radius kNetRadius about (0, 0). Always the lower hemisphere.
// Kinds of projection: 1 is equal area, 2 equal angle.

#pragma once

#include "orientation/angles.h"

#include <cstdint>

namespace quandrel {

/// Radius of the primitive circle, in both projections.
inline constexpr double kNetRadius = 1000.0;

/// Radius of an arc that is drawn as a straight line.
inline constexpr double kStraightRadius = 60000.0;

/// A position on the net in plot units.
struct NetPosition {
    double x = 0.0; ///< east
    double y = 0.0; ///< north
};

/// Position of a line on the net.
///
/// @param kind    projection: 2 is equal angle, every other value equal area
/// @param plunge  -kPi/2 to kPi/2; the sign is ignored, an upward line falls where its mirror does
/// @param trend   any value
/// @param[out] x  east, plot units
/// @param[out] y  north, plot units
///
/// Does not fail. A plunge of 0 falls on the primitive. Inverse: UnprojectPosition.
/// Formula: rho = sqrt(1 - cos c), or tan(c/2), c the colatitude, scaled to a primitive of 1.
/// J. P. Snyder, Map Projections - A Working Manual, USGS Prof. Paper 1395 (1987), ch. 24, 21.
void ProjectPoint(int kind, double plunge, double trend, double& x, double& y);

/// ProjectPoint with each coordinate rounded to a whole number, half-way cases to even; 0 for a
/// coordinate that is not finite.
void ProjectPointInt(int kind, double plunge, double trend, std::int16_t& x, std::int16_t& y);

/// Position of a unit vector on the net, without computing angles.
///
/// @param kind       projection, as for ProjectPoint
/// @param direction  unit vector; an upward one is plotted at its opposite
///
/// Equals ProjectPoint of CosinesToLine. With n = cos c the formulas there become (m, l) /
/// sqrt(1 + n) and (m, l) / (1 + n).
[[nodiscard]] NetPosition PositionOfDirection(int kind, const Direction& direction);

/// The line under a position.
///
/// @param kind         projection: 1 is equal area, every other value equal angle
/// @param x,y          plot units, within 2 kNetRadius of the centre
/// @param[out] plunge  0 to kPi/2 on the net; negative outside it, where the position is reflected
///                     through the rim to the other side
/// @param[out] trend   0 to kTwoPi; 0 at the centre
void UnprojectPoint(int kind, std::int32_t x, std::int32_t y, double& plunge, double& trend);

/// UnprojectPoint between whole positions.
void UnprojectPosition(int kind, double x, double y, double& plunge, double& trend);

/// A great circle as an arc on the plot, counter-clockwise from start to end (radians from +x).
///
/// A radius of kStraightRadius stands for the diameter at right angles to (cx, cy).
struct GreatCircle {
    double cx = 0.0;     ///< centre, plot units
    double cy = 0.0;     ///< centre, plot units
    double radius = 0.0; ///< plot units
    double start = 0.0;  ///< 0 to kTwoPi, at the end of the strike line to the right of the dip
    double end = 0.0;    ///< 0 to kTwoPi, at the strike; less than start when east lies between
};

/// The arc of the great circle with the given pole: through the two ends of the strike line and the
/// lowest point of the plane.
///
/// @param kind        projection, as for ProjectPoint
/// @param polePlunge  -kPi/2 to kPi/2; the sign is ignored
/// @param poleTrend   any value
///
/// Exact in the equal angle net; in the equal area net the true trace is not a circle and lies up
/// to 20.2 plot units away (at a dip of 56). A horizontal plane gives the primitive itself, from 0
/// to kTwoPi. Dips above 88.2 degrees are drawn as 89, above 89.1 degrees as vertical: radius
/// kStraightRadius, the position of the pole for a centre, start and end 0.
[[nodiscard]] GreatCircle GreatCircleArc(int kind, double polePlunge, double poleTrend);

/// GreatCircleArc with its parts as out-arguments.
void GreatCircleArc(int kind, double polePlunge, double poleTrend, double& cx, double& cy,
                    double& radius, double& start, double& end);

} // namespace quandrel
