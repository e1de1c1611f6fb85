// SPDX-License-Identifier: MIT
//
// Girdles set with the mouse.
//
// While the button is held, the girdle is not part of the picture. DrawPulledGirdle draws it above
// the picture, so that a move does not require a replot. Positions are plot units.

#pragma once

#include "edit/marks/girdles.h"
#include "edit/selection/net_line.h"
#include "platform/surface.h"

#include <optional>

namespace quandrel {

/// The sum of held keys and pressed buttons.
inline constexpr int kGirdleShiftKey = 1;
inline constexpr int kGirdleCtrlKey = 2;
inline constexpr int kGirdleLeftButton = 1;
inline constexpr int kGirdleRightButton = 2;

/// How the line at the pointer determines the girdle.
enum class GirdleForm {
    kDipLine,        ///< it is the true dip of the plane
    kPole,           ///< it is the pole of the plane
    kThroughDipLine, ///< it is a line of the plane that also contains the previous dip line
};

/// The form for a button and keys: Shift and left kDipLine, Shift and right kPole, Shift, Ctrl and
/// left kThroughDipLine; nothing for any other combination.
[[nodiscard]] std::optional<GirdleForm> FormOfKeys(int button, int shift);

/// The plane that a line determines.
///
/// @param former  the plane whose dip line kThroughDipLine uses
/// @return nothing if the line equals the former dip line
[[nodiscard]] std::optional<GirdlePlane> PulledPlane(GirdleForm form, const GirdlePlane& former,
                                                     const NetLine& line);

/// True if gActivePlot is a stereo plot and one of the user's rows is active: Shift then applies to
/// its girdle. The mouse cannot change rows 9 and 10.
[[nodiscard]] bool CanPullGirdle();

/// A button is pressed: the active girdle passes through this position, and follows the pointer
/// until the release. Does nothing for other keys, for a hidden girdle with a text, and for
/// kThroughDipLine in a row without a girdle.
/// @return true if moves and the release must follow
bool PressGirdle(int button, int shift, double x, double y);

/// The pointer moves with the button held. The text of the row follows.
void DragGirdle(double x, double y);

/// The button is released: the girdle becomes part of the picture.
void ReleaseGirdle();

/// Cancels the pull, on Esc, when another plot comes to the front, and before its plot closes: the
/// former girdle is restored.
void CancelGirdlePull();

/// The row that the mouse pulls, 0 for none.
[[nodiscard]] int PulledGirdle();

/// Draws the girdle under the mouse; nothing without a pull.
void DrawPulledGirdle(Surface& surface);

/// The mouse handler until the release: PressGirdle first, DragGirdle on each further call.
void ChangeUserGirdle(int button, int shift, double x, double y);

} // namespace quandrel
