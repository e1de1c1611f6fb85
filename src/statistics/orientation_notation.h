// SPDX-License-Identifier: MIT
//
// Lines and planes as texts in the notation in force.

#pragma once

#include <string>

namespace quandrel {

/// The whole degrees of a trend or dip direction from 0 to kTwoPi, as plain digits: what rounds to
/// a full turn is north, "0".
///
/// @param azimuth  radians
[[nodiscard]] std::string WholeAzimuthText(double azimuth);

/// A line in whole degrees.
///
/// @param plunge  radians; negative upward
/// @param trend   radians
[[nodiscard]] std::string TextOfLine(double plunge, double trend);

/// The plane of a pole, in whole degrees.
///
/// @param polePlunge  radians
/// @param poleTrend   radians
[[nodiscard]] std::string TextOfPlaneOfPole(double polePlunge, double poleTrend);

} // namespace quandrel
