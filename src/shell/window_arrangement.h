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

/// Arranges windows. Minimised ones stay so, along the lower edge of the room.
void Arrange(const QList<QMdiSubWindow*>& windows, Arrangement way, QSize room);

} // namespace quandrel
