// SPDX-License-Identifier: MIT
//
// Lines at the mouse pointer.

#pragma once

namespace quandrel {

/// A line, radians.
struct NetLine {
    double plunge = 0; ///< negative when the pointer is outside the net
    double trend = 0;  ///< 0 to kTwoPi
};

/// The line at the pointer, by UnprojectPoint. A pointer more than two net radii from the centre
/// counts as one at that distance.
///
/// @param plotKind  projection of the net, a PlotKindCode
/// @param x,y       plot units
[[nodiscard]] NetLine LineAtPosition(int plotKind, double x, double y);

/// True for a position on the net, including the primitive.
[[nodiscard]] bool IsOnNet(double x, double y);

} // namespace quandrel
