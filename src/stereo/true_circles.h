// SPDX-License-Identifier: MIT
//
// Great circles as they truly are in a net. In the equal area net they are not circles; the arc of
// orientation/projection.h is near them.

#pragma once

#include "orientation/angles.h"
#include "platform/surface.h"

#include <vector>

namespace quandrel {

/// The trace of the plane of a pole on the lower hemisphere, from one end of its strike to the
/// other through its line of greatest dip. Within 1e-4 of the net's radius of the true curve.
///
/// @param plotKind  projection
/// @param pole      unit vector, of either sense
///
/// A vertical plane is a line of two points; a horizontal one goes all the way around.
[[nodiscard]] std::vector<Point> TrueGreatCircle(int plotKind, const Direction& pole);

} // namespace quandrel
