// SPDX-License-Identifier: MIT
//
// Moves the selected rows of a plot: on the net by the mouse, or by whole degrees from the
// keyboard. All work on gActivePlot, and only when it is the plot of the selection.

#pragma once

#include "platform/surface.h"
#include "stereo/row_positions.h"

#include <cstdint>
#include <optional>

namespace quandrel {

/// Where a line is found that is pushed over the net.
struct PushedLine {
    double plunge = 0; ///< radians, 0 to kPi/2
    double trend = 0;  ///< radians, 0 to kTwoPi
};

/// The line under a position after a push; nothing when that leads outside the net. A position on
/// the primitive is on the net.
///
/// @param plotKind  projection, as for UnprojectPoint
/// @param x,y       plot units
[[nodiscard]] std::optional<PushedLine> PushLine(int plotKind, double x, double y, double dx,
                                                 double dy);

/// The numbers of a row whose plotted line has become another: whole degrees, azimuth 0 to 359.
///
/// @param isPole  the line is the pole of the row's plane
/// @param former  the row as it was; the sign of its dip stays. A line that pointed up and comes to
///                lie level has the trend that it points to
[[nodiscard]] ShownOrientation MovedOrientation(const PushedLine& line, bool isPole,
                                                ShownOrientation former);

/// The numbers of a row after steps in whole degrees. The dip or plunge counts without its sign,
/// which stays; a step that would lead below 0 or beyond 90 leaves the row as it is. A line that
/// pointed up and comes to lie level has the trend that it points to.
///
/// @param isPlane  the row is a plane, whose negative dip is no sense
[[nodiscard]] ShownOrientation NudgedOrientation(ShownOrientation former, bool isPlane,
                                                 int plungeStep, int trendStep);

/// Moves the selected rows: each plotted position by (dx, dy) plot units. Rows that would come to
/// lie outside the net stay; directions stay horizontal. The columns of the set that is shown take
/// the new numbers, and with a row of the overlay that shows the secondary data goes the secondary
/// orientation of its main row. The marquee stays where it is. Kept for undo, drawn anew.
///
/// @return how many rows have changed; with none nothing else has
std::int32_t MoveSelection(double dx, double dy);

/// Turns the selected rows by whole degrees of dip or plunge and of azimuth, and fits the marquee
/// to them. Kept for undo, a run of steps on the same rows as one edit, and drawn anew.
std::int32_t NudgeSelection(int plungeStep, int trendStep);

} // namespace quandrel
