// SPDX-License-Identifier: MIT
//
// Moving the selected rows of a plot: on the net by the mouse, or by whole degrees from the
// keyboard. Rows are moved from where they were measured and get measured angles, whether the plot
// uses decimals or not. All functions work on gActivePlot, and only when it has the selection.

#pragma once

#include "platform/surface.h"
#include "stereo/row_positions.h"

#include <cstdint>
#include <optional>

namespace quandrel {

/// The new position of a line that is moved over the net.
struct PushedLine {
    double plunge = 0; ///< radians, 0 to kPi/2
    double trend = 0;  ///< radians, 0 to kTwoPi
};

/// The line at a position after a move; nothing when that leads outside the net. A position on the
/// primitive is on the net.
///
/// @param plotKind  projection, as for UnprojectPoint
/// @param x,y       plot units
[[nodiscard]] std::optional<PushedLine> PushLine(int plotKind, double x, double y, double dx,
                                                 double dy);

/// A new orientation of a row.
struct MovedAttitude {
    Attitude whole;    ///< for the columns of whole degrees
    Attitude measured; ///< to 1e-6 degree
};

/// The orientation of a row whose plotted line has changed: azimuth 0 to less than 360.
///
/// @param isPole  the line is the pole of the row's plane
/// @param former  the row before, as measured; the sign of its dip stays. A line that pointed up
/// and
///                becomes level gets the trend that it points to
[[nodiscard]] MovedAttitude MovedOrientation(const PushedLine& line, bool isPole,
                                             const Attitude& former);

/// The orientation of a row after steps in whole degrees: 47.3 becomes 48.3. The dip or plunge
/// changes without its sign, which stays; a step that would lead below 0 or above 90 leaves the row
/// unchanged. A line that pointed up and becomes level gets the trend that it points to.
///
/// @param former   the row before, as measured
/// @param isPlane  the row is a plane, whose negative dip is not a sense
[[nodiscard]] MovedAttitude NudgedOrientation(const Attitude& former, bool isPlane, int plungeStep,
                                              int trendStep);

/// Moves the positions of the selected rows by (dx, dy) plot units: the plotted position of a row
/// in whole degrees, the exact one of a row with decimals. Rows that would leave the net, or that
/// stay at the same plotted position, are unchanged; directions stay horizontal. The columns of the
/// set that is shown get the new values; a row of the overlay that shows the secondary data also
/// changes the secondary orientation of its main row. The marquee stays. Undoable; redraws.
///
/// @return number of rows changed; with 0 nothing else has changed
std::int32_t MoveSelection(double dx, double dy);

/// Changes the selected rows by whole degrees of dip or plunge and of azimuth, and fits the marquee
/// to them. Undoable, with a run of steps on the same rows as one edit; redraws.
std::int32_t NudgeSelection(int plungeStep, int trendStep);

} // namespace quandrel
