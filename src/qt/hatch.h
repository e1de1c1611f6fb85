// SPDX-License-Identifier: MIT
//
// Hatch fills as lines. The brushes of the painter are patterns of device pixels: they shrink with
// the resolution, and in a PDF they run together to a tint.

#pragma once

#include <QLineF>
#include <QPointF>
#include <QPolygonF>

#include <vector>

namespace quandrel {

/// The parts inside a shape of a family of parallel lines.
///
/// @param shape    closed, its last point joined to its first; even-odd where it crosses itself
/// @param angle    direction of the lines, radians clockwise from +x, y running down
/// @param spacing  distance of the lines, above 0
/// @param origin   a point on one of them, so that shapes beside each other share their lines
///
/// Empty when a point is not finite or the lines would be more than can be told apart.
[[nodiscard]] std::vector<QLineF> HatchLines(const QPolygonF& shape, double angle, double spacing,
                                             QPointF origin);

} // namespace quandrel
