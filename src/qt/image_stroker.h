// SPDX-License-Identifier: MIT
//
// Antialiased curves straight into the pixels of an image. The painter's own lines cost several
// times as much, and a plot may have a thousand great circles.

#pragma once

#include <QColor>
#include <QPainter>
#include <QPolygonF>

namespace quandrel {

/// Strokes an open polyline with square ends in an opaque colour, as QPainter::drawPolyline would.
///
/// @param width  in pixels of the image, above 0 and at most a few
/// @return false when the painter's target is no image that this can draw into (another format, a
///     clip within its lines, a transformation): then nothing is drawn
[[nodiscard]] bool StrokeOnImage(QPainter& painter, const QPolygonF& line, const QColor& colour,
                                 double width);

} // namespace quandrel
