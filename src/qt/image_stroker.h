// SPDX-License-Identifier: MIT
//
// Antialiased curves drawn straight into the pixels of an image. The painter's own lines take
// several times as long, and a plot may have a thousand great circles.

#pragma once

#include <QColor>
#include <QPainter>
#include <QPolygonF>

namespace quandrel {

/// Strokes an open polyline with square ends in an opaque colour, as QPainter::drawPolyline would.
///
/// @param width  in pixels of the image, above 0 and at most a few
/// @return false, with nothing drawn, when the painter's target is not an image that this can draw
///         into (another format, a clip within its lines, a transformation)
[[nodiscard]] bool StrokeOnImage(QPainter& painter, const QPolygonF& line, const QColor& colour,
                                 double width);

} // namespace quandrel
