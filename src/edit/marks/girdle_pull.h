// SPDX-License-Identifier: MIT
//
// Girdles set with the mouse.
//
// While the button is held the girdle is no part of the picture: it is drawn above it, by
// DrawPulledGirdle, so that a move costs no replot. Positions are plot units.

#pragma once

#include "edit/marks/girdles.h"
#include "edit/selection/net_line.h"
#include "platform/surface.h"

#include <optional>

namespace quandrel {

/// Keys held and buttons pressed, as numbers to be added.
inline constexpr int kGirdleShiftKey = 1;
inline constexpr int kGirdleCtrlKey = 2;
inline constexpr int kGirdleLeftButton = 1;
inline constexpr int kGirdleRightButton = 2;

/// What the mouse makes of a place.
enum class GirdleForm {
    kDipLine,        ///< the true dip of the plane
    kPole,           ///< its pole
    kThroughDipLine, ///< a line of the plane that also holds the former dip line
};

/// The form that goes with a button and keys: Shift and left kDipLine, Shift and right kPole,
/// Shift, Ctrl and left kThroughDipLine; nothing for any other.
[[nodiscard]] std::optional<GirdleForm> FormOfKeys(int button, int shift);

/// The plane that a line makes.
///
/// @param former  the plane whose dip line counts for kThroughDipLine
/// @return nothing when the line is the former dip line
[[nodiscard]] std::optional<GirdlePlane> PulledPlane(GirdleForm form, const GirdlePlane& former,
                                                     const NetLine& line);

/// True when gActivePlot is a stereo plot and a row of the user's is active: Shift is then for its
/// girdle. Rows 9 and 10 are not the mouse's.
[[nodiscard]] bool CanPullGirdle();

/// A button goes down: the active girdle goes through this place, and follows until the release.
/// Nothing happens for other keys, for a girdle that is hidden but has a text, and for
/// kThroughDipLine in a row without a girdle.
/// @return true when moves and the release are to follow
bool PressGirdle(int button, int shift, double x, double y);

/// The pointer moves with the button held. The text of the row follows.
void DragGirdle(double x, double y);

/// The button goes up: the girdle is shown in the picture.
void ReleaseGirdle();

/// Ends the pull, on Esc, when another plot comes to the front, and before its plot closes: the
/// girdle becomes what it was.
void CancelGirdlePull();

/// The row that the mouse pulls, 0 for none.
[[nodiscard]] int PulledGirdle();

/// Draws the girdle under the mouse; nothing while none is pulled.
void DrawPulledGirdle(Surface& surface);

/// What the mouse does until the release: PressGirdle first, DragGirdle with every further call.
void ChangeUserGirdle(int button, int shift, double x, double y);

} // namespace quandrel
