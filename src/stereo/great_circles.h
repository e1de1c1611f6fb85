// SPDX-License-Identifier: MIT
//
// Great circles as the net draws them.

#pragma once

#include "core/settings_value.h"
#include "orientation/projection.h"
#include "platform/surface.h"
#include "stereo/drawing.h"

namespace quandrel {

/// Draws a great circle from GreatCircleArc: an arc, the primitive for a horizontal plane, a
/// straight line through the centre for a vertical one.
///
/// @param colour     index of Styles::colours
/// @param drawStyle  a DrawStyle
/// @param drawWidth  logical pixels
void DrawGreatCircleArc(Surface& surface, const Styles& styles, const GreatCircle& circle,
                        int colour, int drawStyle, double drawWidth);

/// The same in the current colours.
inline void DrawGreatCircleArc(Surface& surface, const GreatCircle& circle, int colour,
                               int drawStyle, double drawWidth) {
    DrawGreatCircleArc(surface, gSettings.styles, circle, colour, drawStyle, drawWidth);
}

/// The great circle in any colour, with the surface's current line style.
void DrawGreatCircle(Surface& surface, const GreatCircle& circle, Colour ink);

/// Draws the arc of a pole, radians, in a projection.
void DrawGreatCircleOfPole(Surface& surface, const Styles& styles, int plotKind, double polePlunge,
                           double poleTrend, int colour, int drawStyle, double drawWidth);

/// Draws the great circle of a pole, radians, in a projection, with the surface's current line
/// style: as the arc, or true where the style of the figure wants it.
void DrawPlane(const Drawing& drawing, int plotKind, double polePlunge, double poleTrend,
               Colour ink);

} // namespace quandrel
