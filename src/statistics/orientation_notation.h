// SPDX-License-Identifier: MIT
//
// Lines and planes as texts, in the current notation or in any other.

#pragma once

#include "orientation/notation.h"

#include <string>

namespace quandrel {

/// Rounds a line to a number of decimals of degrees, as it is printed. An upward line whose plunge
/// rounds to 0 becomes horizontal and takes the trend to which it points.
///
/// @param[in,out] plunge  radians; negative upward, with the trend of the lower end
/// @param[in,out] trend   radians
void SettleForPrint(int decimals, double& plunge, double& trend);

/// The whole degrees of a trend or dip direction from 0 to kTwoPi, as plain digits: a value that
/// rounds to 360 is north, "0".
///
/// @param azimuth  radians
[[nodiscard]] std::string WholeAzimuthText(double azimuth);

/// A line in whole degrees.
///
/// @param plunge  radians; negative upward
/// @param trend   radians; of an upward line that of its lower end
[[nodiscard]] std::string TextOfLine(double plunge, double trend);

/// The same in any notation.
[[nodiscard]] std::string TextOfLine(double plunge, double trend,
                                     const OrientationOptions& options);

/// A plane in whole degrees, in any notation.
///
/// @param dip           radians
/// @param dipDirection  radians, 0 to kTwoPi
[[nodiscard]] std::string TextOfPlane(double dip, double dipDirection,
                                      const OrientationOptions& options);

/// The plane of a pole, in whole degrees.
///
/// @param polePlunge  radians
/// @param poleTrend   radians
[[nodiscard]] std::string TextOfPlaneOfPole(double polePlunge, double poleTrend);

/// The order of the values in the texts: "planes as Dip,Dip Dir'n; lines as Plunge,Trend".
[[nodiscard]] std::string OrderInForce();

} // namespace quandrel
