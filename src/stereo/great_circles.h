// SPDX-License-Identifier: MIT
//
// Great circles as the net draws them.

#pragma once

#include "core/settings_value.h"
#include "orientation/projection.h"
#include "platform/surface.h"

namespace quandrel {

/// Draws a great circle as GreatCircleArc gives it: an arc, the primitive for a horizontal plane, a
/// chord through the centre for a vertical one.
///
/// @param colour     index of Styles::colours
/// @param drawStyle  a DrawStyle
/// @param drawWidth  logical pixels
void DrawGreatCircleArc(Surface& surface, const Styles& styles, const GreatCircle& circle,
                        int colour, int drawStyle, double drawWidth);

/// The same in the colours in force.
inline void DrawGreatCircleArc(Surface& surface, const GreatCircle& circle, int colour,
                               int drawStyle, double drawWidth) {
    DrawGreatCircleArc(surface, gSettings.styles, circle, colour, drawStyle, drawWidth);
}

/// The great circle in any colour, in the surface's own state.
void DrawGreatCircle(Surface& surface, const GreatCircle& circle, Colour ink);

/// Draws the great circle whose pole is given, radians, in a projection.
void DrawGreatCircleOfPole(Surface& surface, const Styles& styles, int plotKind, double polePlunge,
                           double poleTrend, int colour, int drawStyle, double drawWidth);

} // namespace quandrel
