// SPDX-License-Identifier: MIT
//
// Arranges plot windows: cascaded or tiled.

#pragma once

#include <QList>
#include <QRect>
#include <QSize>

class QMdiSubWindow;

namespace quandrel {

/// In the order of the Window menu.
enum class Arrangement { Cascade = 0, TileVertically = 1, TileHorizontally = 2, Icons = 3 };

/// Positions of windows in an area.
///
/// Cascade: each window is one step down and right of the previous one and takes two thirds of the
/// area's width and height. Tile vertically: side by side, in several rows from four windows on;
/// horizontally: one below the other, in several columns from four on. Tiles fill the area and do
/// not overlap.
///
/// @param count  0 or more
/// @param way    not Icons
[[nodiscard]] QList<QRect> PlacesOf(qsizetype count, Arrangement way, QSize room);

/// A rectangle moved to lie within the edges of an area, and cut to the area if it is larger.
[[nodiscard]] QRect WithinRoom(QRect place, QSize room);

/// Arranges windows. Minimised windows stay minimised, along the lower edge of the area.
///
/// @param active  stays on top; in a cascade it is the last one; null for none
void Arrange(QList<QMdiSubWindow*> windows, Arrangement way, QSize room, QMdiSubWindow* active);

} // namespace quandrel
