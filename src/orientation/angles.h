// SPDX-License-Identifier: MIT
//
// Orientation values and the conversions between them: planes, poles, lines and direction cosines.
//
// Angles are radians; azimuths run clockwise from north. A line is (plunge, trend), a plane (dip,
// dip direction), a pole is a line. Plunge and dip count downward from the horizontal; a negative
// plunge points upward. Direction cosines are along north, east and down.
//
// This is the chief header of the folder.
// Input: angles, direction cosines, texts of numbers and of compass notation.
// Output: the same in another form, or a marker for what cannot be read. All functions are pure:
// they depend on their arguments alone and know nothing of plots.

#pragma once

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

/// The program's pi, to the digits of its files and results.
inline constexpr double kPi = 3.14159265358979;

/// A full turn.
inline constexpr double kTwoPi = 6.28318530717958;

/// Marks a row whose orientation could not be read, in the data columns and the row table.
inline constexpr std::int32_t kErrorRow = -9999;

/// Plunge or dip of IntersectPlanes and PlaneThroughLines when there is no answer. Callers test
/// for a negative value.
inline constexpr double kNoAnswerPlunge = -kPi / 2;

/// DegToRad of a value that is not a number: larger than any valid angle.
inline constexpr double kUnreadableAngle = 9999.0;

/// A cross product of unit vectors shorter than this counts as zero: the vectors are parallel.
inline constexpr double kParallelLength = 1e-9;

/// A unit vector, or any vector, along north, east and down.
struct Direction {
    double l = 0.0; ///< north
    double m = 0.0; ///< east
    double n = 0.0; ///< down
};

/// The nearest whole number; half-way cases go to the even neighbour. All rounding uses it.
inline double RoundToEven(double value) {
    return std::nearbyint(value);
}

/// RoundToEven as an integer. NaN gives 0; a value out of range gives the nearest limit.
long RoundToEvenLong(double value);

/// Radians of an angle in degrees.
///
/// @return kUnreadableAngle when the value is not finite
double DegToRad(double degrees);

/// Radians of an angle in degrees given as text, with either decimal delimiter.
///
/// @return kUnreadableAngle when the text is not a number, or is empty
double DegToRad(std::string_view degrees);

/// Degrees of an angle in radians; 0 when the value is not finite. Inverse of DegToRad.
double RadToDeg(double radians);

/// The whole degrees of an angle, half-way cases to even, as plain digits: "45", "-7". A value that
/// is not finite gives "0".
std::string RadToDegText(double radians);

/// RadToDegText with at least three digits: "045".
std::string RadToAzimuthText(double radians);

/// Brings an angle into 0 to kTwoPi by whole turns. Exactly kTwoPi stays as it is; values that are
/// not finite are left alone.
void WrapAngle(double& angle);

/// The wrapped angle, by the rule of WrapAngle.
[[nodiscard]] double WrappedAngle(double angle);

/// Angle 0 to kPi of a cosine; a cosine beyond 1 counts as 1, below -1 as -1.
double ArcCos(double cosine);

/// Angle -kPi/2 to kPi/2 of a sine; a sine beyond 1 counts as 1, below -1 as -1.
double ArcSin(double sine);

/// The pole of a plane, or the plane of a pole. PoleOfPlane is its own inverse.
///
/// @param a               dip or plunge; the sign is ignored
/// @param b               dip direction or trend, any value
/// @param[out] plunge     kPi/2 - |a|
/// @param[out] trend      b + kPi, wrapped into 0 to kTwoPi
void PoleOfPlane(double a, double b, double& plunge, double& trend);

/// PoleOfPlane for a b of either sign: |b| is reduced below kTwoPi, then half a turn is added or
/// subtracted, so that the result stays within 0 to kTwoPi.
void OppositeOfPlane(double a, double b, double& plunge, double& trend);

/// Direction cosines of a line.
///
/// @param plunge      -kPi/2 to kPi/2; a negative one gives the exact opposite of (-plunge, trend)
/// @param trend       any value; a negative one is mirrored, not wrapped
/// @param[out] l,m,n  unit vector north, east, down
///
/// Inverse: CosinesToLine.
void LineToCosines(double plunge, double trend, double& l, double& m, double& n);

/// LineToCosines as one value.
[[nodiscard]] Direction LineToCosines(double plunge, double trend);

/// The line of a vector.
///
/// @param l,m,n        north, east, down; need not be of unit length
/// @param[out] plunge  -kPi/2 to kPi/2, negative for an upward vector
/// @param[out] trend   0 to kTwoPi, of the downward end
///
/// A vertical vector gives (kPi/2, 0) whether it points up or down. Inverse of LineToCosines, also
/// for upward lines.
void CosinesToLine(double l, double m, double n, double& plunge, double& trend);

/// CosinesToLine of one value.
void CosinesToLine(const Direction& direction, double& plunge, double& trend);

/// Which of the two angles between undirected lines to return.
enum class LineAngle { kAcute, kObtuse };

/// Angle between two lines, both taken as pointing down.
///
/// @param plunge1,trend1,plunge2,trend2  the lines; the signs of the plunges are ignored
/// @param[out] angle                     0 to kPi/2 (acute) or kPi/2 to kPi (obtuse)
/// @param wanted                         the acute or the obtuse angle
void AngleBetweenLines(double plunge1, double trend1, double plunge2, double trend2, double& angle,
                       LineAngle wanted);

/// The intersection line of two planes.
///
/// @param dip1,dipDir1,dip2,dipDir2  the planes
/// @param[out] plunge                0 to kPi/2, or kNoAnswerPlunge when the planes coincide
/// @param[out] trend                 0 to kTwoPi; meaningless without an answer
///
/// Planes of equal dip direction meet in the horizontal line at dip direction + kPi/2.
void IntersectPlanes(double dip1, double dipDir1, double dip2, double dipDir2, double& plunge,
                     double& trend);

/// The intersection line of two planes, from their normals: the fast form of IntersectPlanes.
///
/// @param normal1,normal2  unit normals, pointing up or down
/// @return the downward unit vector along the line (a horizontal one points north, or east), or
///         nothing when the cross product is shorter than kParallelLength
[[nodiscard]] std::optional<Direction> IntersectionDirection(const Direction& normal1,
                                                             const Direction& normal2);

/// The plane through two lines.
///
/// @param plunge1,trend1,plunge2,trend2  the lines; the signs of all four are ignored
/// @param[out] dip                       0 to kPi/2, or kNoAnswerPlunge when the lines coincide
/// @param[out] dipDir                    0 to kTwoPi. A vertical plane gives a value from kPi up to
///                                       kTwoPi; a horizontal plane, and no answer, give 0
void PlaneThroughLines(double plunge1, double trend1, double plunge2, double trend2, double& dip,
                       double& dipDir);

/// Turns an azimuth (clockwise from north) from 0 to kTwoPi into an angle counter-clockwise from
/// east, and back: its own inverse.
[[nodiscard]] double AzimuthToMathAngle(double azimuth);

/// Azimuth of the step from (x1, y1) to (x2, y2), clockwise from +y, 0 to kTwoPi. Equal points give
/// kPi/2.
[[nodiscard]] double AzimuthBetweenPoints(double x1, double y1, double x2, double y2);

} // namespace quandrel
