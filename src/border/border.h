// SPDX-License-Identifier: MIT
//
// The public interface (include/quandrel) of the engine's kernels. This is its chief header: the
// conversion of values between the interface and the kernels.
//
// Public values are in degrees. They are checked here and passed to the kernels in radians. Results
// are returned in degrees, with azimuths below 360. This folder neither stores nor reads state, and
// it leaves all calculations to the kernels. A kernel that reads a global cannot be called here: it
// needs an argument instead. The only exception is reading a plot file, which starts from the
// record of a new plot: no field that depends on the settings is returned.
//
// Input: values in degrees from other programs, bytes of plot files, surfaces to draw on.
// Output: results in degrees, bytes of plot files, calls of the surfaces.

#pragma once

#include "orientation/angles.h"
#include "quandrel/orientation.h"

#include <cstddef>
#include <string_view>

namespace quandrel::api {

/// A line in radians, plunge -kPi/2 to kPi/2, trend 0 to kTwoPi.
struct RadianLine {
    double plunge = 0;
    double trend = 0;
};

/// A plane in radians, dip -kPi/2 to kPi/2, dip direction 0 to kTwoPi.
struct RadianPlane {
    double dip = 0;
    double dipDirection = 0;
};

/// Requires a finite number. `name` appears in the text of the exception.
double Finite(double value, std::string_view name);

/// Requires a number within limits, both inclusive.
double Within(double value, double least, double most, std::string_view name);

/// Requires arrays of equal length.
void SameLength(std::size_t a, std::size_t b, std::string_view names);

/// Requires weights or counts that are finite and not negative.
void NotNegative(std::span<const double> values, std::string_view name);

/// An azimuth in radians, 0 to kTwoPi.
[[nodiscard]] double AzimuthIn(double degrees, std::string_view name);

/// The checked values in radians.
[[nodiscard]] RadianLine In(const Line& line);
[[nodiscard]] RadianPlane In(const Plane& plane);

/// The direction of a checked line; an upward one for a negative plunge.
[[nodiscard]] Direction DirectionOf(const Line& line);

/// The downward direction of a checked line.
[[nodiscard]] Direction AxisOf(const Line& line);

/// The downward unit normal of a checked plane.
[[nodiscard]] Direction NormalOf(const Plane& plane);

/// An azimuth in degrees brought into 0 to below 360 by whole turns.
[[nodiscard]] double WithinTurn(double degrees);

/// Degrees of an azimuth, 0 to below 360.
[[nodiscard]] double AzimuthOut(double radians);

/// Radians as degrees.
[[nodiscard]] Line LineOut(double plunge, double trend);
[[nodiscard]] Plane PlaneOut(double dip, double dipDirection);

} // namespace quandrel::api
