// SPDX-License-Identifier: MIT
//
// Lines as they were measured, and their directions.

#pragma once

#include "orientation/angles.h"

namespace quandrel {

/// A line of any precision, in radians.
struct MeasuredLine {
    double plunge = 0; ///< -kPi / 2 to kPi / 2, negative upward
    double trend = 0;  ///< 0 to kTwoPi, of the lower end

    friend bool operator==(const MeasuredLine&, const MeasuredLine&) = default;
};

/// The unit vector of a line, north, east and down; of one with a negative plunge that points up.
///
/// As LineToCosines, but several times as fast, and without rounding errors at whole degrees: the
/// components that are 0 there are exactly 0. Accurate to 5e-15, as kPi is.
[[nodiscard]] Direction DirectionOf(const MeasuredLine& line);

/// The same by the lower end: the sign of the plunge is ignored.
[[nodiscard]] Direction AxisOf(const MeasuredLine& line);

} // namespace quandrel
