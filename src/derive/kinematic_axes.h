// SPDX-License-Identifier: MIT
//
// Kinematic axes of a fault: the shortening axis P and the extension axis T.
//
// Angles are radians. A negative plunge of a slip line is upward polarity. P and T are at right
// angles, each at 45 degrees to the pole of the fault, in the plane of pole and slip line. With the
// downward unit pole n and the downward slip line s they are (n + s) / sqrt 2 and (n - s) / sqrt 2
// for downward polarity, and swapped for upward polarity. A slip line that is not exactly in the
// fault plane is first moved into it along the movement plane.
// R. Marrett, R. W. Allmendinger, Kinematic analysis of fault-slip data, J. Struct. Geol. 12
// (1990).

#pragma once

#include "orientation/angles.h"

#include <optional>

namespace quandrel {

/// A line at this angle from the fault plane, or at a larger one, gives no axes: 10 degrees.
inline constexpr double kKinematicTolerance = 10 * kPi / 180;

struct KinematicAxes {
    Direction p; ///< unit vectors of either sense
    Direction t;
};

/// The axes of a fault.
///
/// @param pole,slip  downward unit vectors; the trend of a horizontal slip line is the direction in
///                   which the hanging wall moves, for upward polarity the opposite direction
/// @param upward     the polarity
/// @param tolerance  upper limit of the angle between slip line and fault plane, exclusive
/// @return nothing when the line is too far from the plane
[[nodiscard]] std::optional<KinematicAxes> AxesOfFault(const Direction& pole, const Direction& slip,
                                                       bool upward, double tolerance);

/// The axes of a fault as lines. The out-arguments stay unchanged when the line is too far from the
/// plane.
///
/// @param polePlunge,poleTrend  pole of the fault plane; the sign of the plunge is ignored
/// @param linePlunge,lineTrend  slip line; for upward polarity a negative plunge and the trend of
///                              the downward end
/// @param tolerance             as above. The two angles are compared as 32-bit floats, so that a
///                              line of whole degrees exactly at the tolerance is refused
/// @param[out] pPlunge          0 to kPi/2
/// @param[out] tPlunge          -kPi/2 to 0: the sign distinguishes the two in one plot; never -0
/// @param[out] pTrend,tTrend    0 to kTwoPi, of the downward ends
void ComputePTAxes(double polePlunge, double poleTrend, double linePlunge, double lineTrend,
                   double tolerance, double& pPlunge, double& pTrend, double& tPlunge,
                   double& tTrend);

} // namespace quandrel
