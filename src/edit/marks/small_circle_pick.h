// SPDX-License-Identifier: MIT
//
// A small circle set with the mouse: a press sets its axis, the drag its angle, and the release
// ends the pick.
//
// While the button is held, the circle is not part of the picture. DrawPickedCircle draws it above
// the picture, so that a move does not require a replot. Positions are plot units.

#pragma once

#include "core/plot_record.h"
#include "platform/surface.h"

#include <cstdint>

namespace quandrel {

inline constexpr const char* kPickCircleHint =
    "Left click on plot, and drag mouse, to set centre and angle of small circle.";

/// Starts setting a small circle of gActivePlot with the mouse. The information line explains it.
///
/// @param set  1 to kUserCircles
/// @return false if there is no stereo plot; then nothing has started
bool BeginSmallCirclePick(int set);

/// The set for the next press on gActivePlot, 0 for none. A pick that was started on another plot
/// does not count.
[[nodiscard]] int PickedSet();

/// The left button is pressed: sets the axis, with the angle 0. A press outside the net sets
/// nothing, and the pick continues.
/// @return true during a pick: no other code may handle the press
bool PressSmallCircle(double x, double y);

/// The pointer moves with the button held: sets the angle between the axis and this position.
void DragSmallCircle(double x, double y);

/// The button is released: the circle is shown in its own style, and the pick ends.
void ReleaseSmallCircle(double x, double y);

/// Ends the pick, on Esc, when the dialog closes, when another plot comes to the front, and before
/// its plot closes. While the button is held, this restores the former set. Does nothing without a
/// pick.
void EndSmallCirclePick();

/// True between the press and the end of the drag.
[[nodiscard]] bool IsDraggingSmallCircle();

/// The set that is drawn above the picture of a slot and therefore not in it; 0 for none.
[[nodiscard]] int CircleAbovePicture(std::int32_t slot);

/// Draws the circle under the mouse; nothing without a drag.
void DrawPickedCircle(Surface& surface);

} // namespace quandrel
