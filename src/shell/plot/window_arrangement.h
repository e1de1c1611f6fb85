// SPDX-License-Identifier: MIT
//
// Plot windows in order: one behind the other, or side by side.

#pragma once

#include <QList>
#include <QRect>
#include <QSize>

class QMdiSubWindow;

namespace quandrel {

/// In the order of the Window menu.
enum class Arrangement { Cascade = 0, TileVertically = 1, TileHorizontally = 2, Icons = 3 };

/// Places of windows in a room.
///
/// Cascade: each a step down and right of the one before, two thirds of the room large. Tile
/// vertically: side by side, in more than one row from four on; horizontally: one below the other,
/// in more than one column from four on. Tiles fill the room and do not overlap.
///
/// @param count  0 or more
/// @param way    not Icons
[[nodiscard]] QList<QRect> PlacesOf(qsizetype count, Arrangement way, QSize room);

/// A place moved so that it does not hang over the edges of a room, and cut to it where it is
/// larger.
[[nodiscard]] QRect WithinRoom(QRect place, QSize room);

/// Arranges windows. Minimised ones stay so, along the lower edge of the room.
///
/// @param active  stays on top: of a cascade it is the last one; null for none
void Arrange(QList<QMdiSubWindow*> windows, Arrangement way, QSize room, QMdiSubWindow* active);

} // namespace quandrel
