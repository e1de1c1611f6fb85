// SPDX-License-Identifier: MIT
//
// Kinematic axes of a fault: the shortening axis P and the extension axis T.
//
// Angles are radians. A negative plunge of a slip line is upward polarity. P and T are at right
// angles, half a right angle from the pole of the fault, in the plane that holds pole and slip
// line; with the downward unit pole n and the downward slip line s they are (n + s) / sqrt 2 and
// (n - s) / sqrt 2 for downward polarity, and exchanged for upward polarity. A slip line that is
// not quite in the fault plane is first moved into it along the plane of movement.
// R. Marrett, R. W. Allmendinger, Kinematic analysis of fault-slip data, J. Struct. Geol. 12
// (1990).

#pragma once

#include "orientation/angles.h"

#include <optional>

namespace quandrel {

/// The line as far as this off the fault plane, or farther, gives no axes: 10 degrees.
inline constexpr double kKinematicTolerance = 10 * kPi / 180;

struct KinematicAxes {
    Direction p; ///< unit vectors; the sense is open
    Direction t;
};

/// The axes of a fault.
///
/// @param pole,slip  downward unit vectors; the trend of a horizontal slip line is the way the
///                   hanging wall moves, at upward polarity the way that it comes from
/// @param upward     the polarity
/// @param tolerance  largest angle between slip line and fault plane, itself excluded
/// @return nothing when the line is too far off the plane
[[nodiscard]] std::optional<KinematicAxes> AxesOfFault(const Direction& pole, const Direction& slip,
                                                       bool upward, double tolerance);

/// The axes of a fault as lines. The out-arguments stay as they are when the line is too far off
/// the plane.
///
/// @param polePlunge,poleTrend  pole of the fault plane; the sign of the plunge plays no part
/// @param linePlunge,lineTrend  slip line; negative plunge and trend of the downward end for upward
///                              polarity
/// @param tolerance             as above. The two angles are compared as 32-bit floats, so that a
///                              line of whole degrees just at the tolerance is refused
/// @param[out] pPlunge          0 to kPi/2
/// @param[out] tPlunge          -kPi/2 to 0: the sign tells the two apart in one plot; never -0
/// @param[out] pTrend,tTrend    0 to kTwoPi, of the downward ends
void ComputePTAxes(double polePlunge, double poleTrend, double linePlunge, double lineTrend,
                   double tolerance, double& pPlunge, double& pTrend, double& tPlunge,
                   double& tTrend);

} // namespace quandrel
