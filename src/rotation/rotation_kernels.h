// SPDX-License-Identifier: MIT
//
// Rotations of lines and planes, built from one primitive that rotates a line to the vertical.
//
// Angles are radians; azimuths run clockwise from north. A line is (plunge, trend) and is rotated
// as a vector: a negative plunge is the upward end of the line, its trend that of the downward end.
// Trends are 0 to kTwoPi, both as arguments and as results. A positive angle is clockwise looking
// down the plunge of the axis.
//
// Directions within a tolerance of horizontal, vertical or the hinge of a tilt count as being
// there, so that the noise of rounding does not choose between the ends of a line.

#pragma once

namespace quandrel {

/// The tolerance for results in whole degrees, radians.
inline constexpr double kTiltTolerance = 1e-06;

/// The tolerance for results to 1e-6 degree, radians: more than half of that, and so little that a
/// rotation and its reverse return a line within 1e-5 degree.
inline constexpr double kFineTolerance = 1e-08;

/// Rotates a line by the rotation that carries another line to the vertical: about the horizontal
/// axis at right angles to axisTrend, through kPi/2 - |axisPlunge|.
///
/// @param plunge,trend            the line
/// @param axisPlunge,axisTrend    the line that becomes vertical; the sign of its plunge is ignored
/// @param[out] outPlunge          -kPi/2 to kPi/2; exactly 0 or kPi/2 within the tolerance of it
/// @param[out] outTrend           0 to kTwoPi
/// @param tolerance               of directions, radians
///
/// A line that becomes horizontal points where its vector does. A line on the hinge of the rotation
/// is returned unchanged.
void TiltLine(double plunge, double trend, double axisPlunge, double axisTrend, double& outPlunge,
              double& outTrend, double tolerance = kTiltTolerance);

/// Rotates a line about an axis.
///
/// @param plunge,trend          the line
/// @param angle                 any value, clockwise looking down the plunge of the axis
/// @param axisPlunge,axisTrend  the axis, read as pointing down whatever the sign of its plunge
/// @param[out] outPlunge        -kPi/2 to kPi/2
/// @param[out] outTrend         0 to kTwoPi
///
/// The axis is brought to the vertical, the angle added to the trend, and the axis brought back.
/// Equals v cos(a) + (k x v) sin(a) + k (k.v) (1 - cos(a)). The opposite angle is the inverse.
void RotateLineAboutAxis(double plunge, double trend, double angle, double axisPlunge,
                         double axisTrend, double& outPlunge, double& outTrend,
                         double tolerance = kTiltTolerance);

/// Rotates a plane about an axis, by its pole.
///
/// @param dip,dipDir      the plane; the sign of the dip is ignored
/// @param[out] outDip     0 to kPi/2
/// @param[out] outDipDir  0 to kTwoPi
void RotatePlaneAboutAxis(double dip, double dipDir, double axisPlunge, double axisTrend,
                          double angle, double& outDip, double& outDipDir);

/// Rotates a line by the rotation that brings a plane to the vertical, gives it a new strike, and
/// makes a line of it horizontal. The plane is first tilted about its strike, then rotated about
/// the vertical, then tilted about its pole.
///
/// @param plunge,trend          the line to rotate
/// @param strikeAz              the end of the plane's strike that is rotated to newAz
/// @param axisPlunge,axisTrend  the dip line of the plane: (dip, dip direction)
/// @param pitch                 -kPi/2 to kPi/2, of the line in the plane that becomes horizontal,
///                              down from strikeAz; negative down from the other end
/// @param newAz                 the new azimuth of strikeAz
void RotatePlaneToVertical(double plunge, double trend, double strikeAz, double axisPlunge,
                           double axisTrend, double pitch, double newAz, double& outPlunge,
                           double& outTrend, double tolerance = kTiltTolerance);

/// Rotates a line of a bed by the rotations that unfold the bed: first the fold axis to horizontal,
/// about the horizontal line at right angles to its trend, then the bed in its new position to
/// horizontal, about its own strike.
///
/// @param dip,dipDir            the bed; a negative dip is an overturned bed, which is unfolded the
///                              long way, through kPi less its dip
/// @param axisPlunge,axisTrend  the fold axis; the sign of its plunge is ignored
/// @param plunge,trend          the line to rotate
///
/// A horizontal bed is already unfolded: its lines stay unchanged.
void UnfoldRow(double dip, double dipDir, double axisPlunge, double axisTrend, double plunge,
               double trend, double& outPlunge, double& outTrend,
               double tolerance = kTiltTolerance);

/// The rotation by the smallest angle from one plane to another.
///
/// @param dip1,dipDir1,dip2,dipDir2  the planes; the signs of the dips are ignored
/// @param[out] axisPlunge            0 to kPi/2
/// @param[out] axisTrend             0 to kTwoPi; the strike of the first for parallel planes
/// @param[out] angle                 -kPi/2 to kPi/2, for RotatePlaneAboutAxis; 0 for parallel
///                                   planes
///
/// Formula: the axis is the cross product of the poles, the angle the arc sine of its length. When
/// the poles are more than kPi/2 apart, the second is replaced by its opposite.
void RotationBetweenPlanes(double dip1, double dipDir1, double dip2, double dipDir2,
                           double& axisPlunge, double& axisTrend, double& angle);

} // namespace quandrel
