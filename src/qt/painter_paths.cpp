// SPDX-License-Identifier: MIT
//
// The paths and clips of a PainterSurface, and its translucent inks.

#include "qt/painter_surface.h"

#include <QPainterPathStroker>

#include <cmath>
#include <cstdlib>

namespace quandrel {

void PainterSurface::PaintPath(QPainter& painter, const QPainterPath& path, const QPen& pen,
                               const QBrush& brush) const {
    // On an image the painter draws thin lines piece by piece, so that translucent ones would be
    // darker at their corners.
    const bool isFilledLine =
        medium_ == Medium::Raster && pen.style() != Qt::NoPen && pen.color().alpha() < 255;
    painter.setPen(isFilledLine ? QPen(Qt::NoPen) : pen);
    painter.setBrush(brush);
    painter.drawPath(path);
    if (isFilledLine) {
        painter.fillPath(QPainterPathStroker(pen).createStroke(path), pen.color());
    }
}

void PainterSurface::PaintPath(const QPainterPath& path, Colour colour, const QBrush& brush) {
    UseMode();
    PaintPath(painter_, path, PenFor(colour), brush);
}

QPainterPath PainterSurface::CirclePath(Point centre, double radius) const {
    QPainterPath path;
    path.addEllipse(Map(centre), std::abs(radius * unitsToDeviceX_),
                    std::abs(radius * unitsToDeviceY_));
    return path;
}

void PainterSurface::Path(std::span<const std::vector<Point>> rings, Colour colour) {
    std::vector<QPolygonF> polygons;
    QPainterPath path; // odd-even, as every new one
    for (const std::vector<Point>& ring : rings) {
        if (!ring.empty()) {
            polygons.push_back(MapAll(ring));
            path.addPolygon(polygons.back());
            path.closeSubpath();
        }
    }
    Hatch(polygons);
    PaintPath(path, colour, StateBrush());
}

void PainterSurface::PushClip(Point centre, double radius) {
    const QPainterPath circle = CirclePath(centre, radius);
    ++clips_;
    painter_.save();
    painter_.setRenderHint(QPainter::Antialiasing, true);
    painter_.setClipPath(circle, Qt::IntersectClip);
}

void PainterSurface::PopClip() {
    --clips_;
    painter_.restore();
}

} // namespace quandrel
