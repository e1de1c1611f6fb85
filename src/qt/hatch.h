// SPDX-License-Identifier: MIT
//
// Hatch fills as lines. The painter's brushes are patterns of device pixels: they shrink with the
// resolution, and in a PDF they merge into a tint.

#pragma once

#include <QLineF>
#include <QPointF>
#include <QPolygonF>

#include <span>
#include <vector>

namespace quandrel {

/// The parts of a family of parallel lines inside a shape.
///
/// @param rings    of the shape, each closed, its last point joined to its first; even-odd where
///                 they overlap or cross
/// @param angle    direction of the lines, radians clockwise from +x, y running down
/// @param spacing  distance between the lines, above 0
/// @param origin   a point on one of the lines, so that adjacent shapes share their lines
///
/// Empty when a point is not finite or there would be too many lines to distinguish.
[[nodiscard]] std::vector<QLineF> HatchLines(std::span<const QPolygonF> rings, double angle,
                                             double spacing, QPointF origin);

/// Of a shape of one ring.
[[nodiscard]] inline std::vector<QLineF> HatchLines(const QPolygonF& shape, double angle,
                                                    double spacing, QPointF origin) {
    return HatchLines(std::span(&shape, 1), angle, spacing, origin);
}

} // namespace quandrel
