// SPDX-License-Identifier: MIT
//
// Lines and planes as texts, in the current notation or in any other.

#pragma once

#include "core/plot_record.h"
#include "orientation/notation.h"

#include <string>

namespace quandrel {

/// Rounds a line to a number of decimals of degrees, as it is printed. An upward line whose plunge
/// rounds to 0 becomes horizontal and takes the trend to which it points.
///
/// @param[in,out] plunge  radians; negative upward, with the trend of the lower end
/// @param[in,out] trend   radians
void SettleForPrint(int decimals, double& plunge, double& trend);

/// The decimals of degrees in the texts of a plot: one where it uses decimals, else none.
[[nodiscard]] int DecimalsShown(const PlotRecord& record);

/// Degrees of an angle in radians with 0 or 1 decimals.
[[nodiscard]] std::string TextOfAngle(double radians, int decimals);

/// The same of a trend or dip direction from 0 to kTwoPi: a value that rounds to 360 is north.
[[nodiscard]] std::string TextOfAzimuth(double azimuth, int decimals);

/// The whole degrees of a trend or dip direction from 0 to kTwoPi, as plain digits: a value that
/// rounds to 360 is north, "0".
///
/// @param azimuth  radians
[[nodiscard]] std::string WholeAzimuthText(double azimuth);

/// A line in degrees.
///
/// @param plunge    radians; negative upward
/// @param trend     radians; of an upward line that of its lower end
/// @param decimals  0 or 1
[[nodiscard]] std::string TextOfLine(double plunge, double trend, int decimals = 0);

/// The same in whole degrees and any notation.
[[nodiscard]] std::string TextOfLine(double plunge, double trend,
                                     const OrientationOptions& options);

/// A plane in whole degrees, in any notation.
///
/// @param dip           radians
/// @param dipDirection  radians, 0 to kTwoPi
[[nodiscard]] std::string TextOfPlane(double dip, double dipDirection,
                                      const OrientationOptions& options);

/// The plane of a pole, in degrees.
///
/// @param polePlunge  radians
/// @param poleTrend   radians
/// @param decimals    0 or 1
[[nodiscard]] std::string TextOfPlaneOfPole(double polePlunge, double poleTrend, int decimals = 0);

/// The order of the values in the texts: "planes as Dip,Dip Dir'n; lines as Plunge,Trend".
[[nodiscard]] std::string OrderInForce();

} // namespace quandrel
