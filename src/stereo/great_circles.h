// SPDX-License-Identifier: MIT
//
// Great circles as the net draws them.

#pragma once

#include "orientation/projection.h"
#include "platform/surface.h"

namespace quandrel {

/// Draws a great circle as GreatCircleArc gives it: an arc, the primitive for a horizontal plane, a
/// chord through the centre for a vertical one.
///
/// @param colour     index of gColourTable
/// @param drawStyle  a DrawStyle
/// @param drawWidth  logical pixels
void DrawGreatCircleArc(Surface& surface, const GreatCircle& circle, int colour, int drawStyle,
                        double drawWidth);

/// The same in any colour, in the surface's own state.
void DrawGreatCircle(Surface& surface, const GreatCircle& circle, Colour ink);

/// Draws the great circle whose pole is given, radians, in a projection.
void DrawGreatCircleOfPole(Surface& surface, int plotKind, double polePlunge, double poleTrend,
                           int colour, int drawStyle, double drawWidth);

} // namespace quandrel
