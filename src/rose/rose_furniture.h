// SPDX-License-Identifier: MIT
//
// The surroundings of the petals of a rose: axes, compass points, scale and outer circle.
//
// A rose is drawn whole or as a half, by RoseShape: 0 whole, 1 north, 2 east, 3 south, 4 west. Any
// other value counts as 0. Angles of arcs are radians counter-clockwise from east.

#pragma once

#include "core/plot.h"
#include "stereo/drawing.h"

#include <string>

namespace quandrel {

/// Part of a circle, counter-clockwise from start to end.
struct RoseArc {
    double start = 0;
    double end = 0;
};

[[nodiscard]] bool IsHalfRose(int shape);

/// The part of the circle that a shape shows.
[[nodiscard]] RoseArc ShownArc(int shape);

/// The part that a half does not show; for a whole rose the arc is meaningless.
[[nodiscard]] RoseArc HiddenArc(int shape);

/// Whether an azimuth, radians, is in the part shown or on its edge.
[[nodiscard]] bool IsAzimuthShown(int shape, double azimuth);

/// The part of an arc that a shape shows. An empty arc (start and end equal) shows nothing.
///
/// @param middle, halfWidth  of the arc, azimuth and angle in radians; halfWidth 0 to pi/2
[[nodiscard]] RoseArc ClippedArc(int shape, double middle, double halfWidth);

/// "N", "NNE" and so on, clockwise in sixteenths of the circle. `i` is 0 to 15.
[[nodiscard]] std::string CompassName(int i);

/// Draws axes in the style of roseAxesStyle (0 lines, 1 and 3 ticks outside the circle, 2 none),
/// compass points if showCompassPoints, the scale of the rose if RoseDisplay6, and the outer circle
/// if roseOuterCircle.
void DrawRoseScale(const Plot& plot, const Drawing& drawing);

/// The same of gActivePlot, after StoreRoseInterval.
void DrawRoseScale();

} // namespace quandrel
