// SPDX-License-Identifier: MIT
//
// A small circle set with the mouse: a press gives its axis, the drag its angle, the release ends
// it.
//
// While the button is held the circle is no part of the picture: it is drawn above it, by
// DrawPickedCircle, so that a move costs no replot. Positions are plot units.

#pragma once

#include "core/plot_record.h"
#include "platform/surface.h"

#include <cstdint>

namespace quandrel {

inline constexpr const char* kPickCircleHint =
    "Left click on plot, and drag mouse, to set centre and angle of small circle.";

/// Waits for the mouse to set a small circle of gActivePlot. The information line says what to do.
///
/// @param set  1 to kUserCircles
/// @return false, with nothing begun, without a stereo plot
bool BeginSmallCirclePick(int set);

/// The set that the next press on gActivePlot is for, 0 for none. One that was begun on another
/// plot does not count.
[[nodiscard]] int PickedSet();

/// The left button goes down: the axis is here, the angle 0. A press outside the net sets nothing,
/// and the picking goes on.
/// @return true while a set is picked: the press is then for nobody else
bool PressSmallCircle(double x, double y);

/// The pointer moves with the button held: the angle is that between the axis and this place.
void DragSmallCircle(double x, double y);

/// The button goes up: the circle is shown in its own style, and the picking is over.
void ReleaseSmallCircle(double x, double y);

/// Ends the picking, on Esc, when the dialog closes, when another plot comes to the front, and
/// before its plot closes. With the button still held the set becomes what it was. Does nothing
/// while there is no picking.
void EndSmallCirclePick();

/// True between the press and its end.
[[nodiscard]] bool IsDraggingSmallCircle();

/// The set of the circle of a slot that is drawn above the picture, and so not in it; 0 for none.
[[nodiscard]] int CircleAbovePicture(std::int32_t slot);

/// Draws the circle under the mouse; nothing while none is dragged.
void DrawPickedCircle(Surface& surface);

} // namespace quandrel
