// SPDX-License-Identifier: MIT
//
// Cones about an axis on the net: small circles.

#pragma once

#include "platform/surface.h"

#include <vector>

namespace quandrel {

/// The trace of a cone on the lower hemisphere, as open lines. Where it crosses the primitive it
/// continues on the far side, because upward directions are plotted by their opposite ends; lines
/// end on the primitive.
///
/// @param plotKind   projection
/// @param plunge     of the axis, radians, -kPi/2 to kPi/2
/// @param trend      radians
/// @param halfAngle  radians, above 0 and below kPi
[[nodiscard]] std::vector<std::vector<Point>> ConeTrace(int plotKind, double plunge, double trend,
                                                        double halfAngle);

/// Draws the trace of a cone in the surface's current line style and width.
void DrawCone(Surface& surface, int plotKind, double plunge, double trend, double halfAngle,
              Colour colour);

} // namespace quandrel
