// SPDX-License-Identifier: MIT
//
// Lines that the mouse points at.

#pragma once

namespace quandrel {

/// A line, radians.
struct NetLine {
    double plunge = 0; ///< negative where the pointer has left the net
    double trend = 0;  ///< 0 to kTwoPi
};

/// The line under the pointer, as UnprojectPoint reads it. A pointer farther than two net radii
/// from the centre counts as one at that distance.
///
/// @param plotKind  projection of the net, a PlotKindCode
/// @param x,y       plot units
[[nodiscard]] NetLine LineAtPosition(int plotKind, double x, double y);

/// True for a position on the net, the primitive included.
[[nodiscard]] bool IsOnNet(double x, double y);

} // namespace quandrel
