// SPDX-License-Identifier: MIT
//
// The picture surface over a QPainter: for the screen, for PNG, and for vector files.

#pragma once

#include "platform/surface.h"

#include <QPainter>
#include <QRectF>

namespace quandrel {

enum class Medium {
    Raster, ///< pixels: markers are stamped from sprites
    Vector, ///< commands: everything stays a line, a shape or a text
};

/// Draws into a rectangle of a painter. Positions are mapped here, not by the painter, so that text
/// stands upright and angles run counter-clockwise on every device.
class PainterSurface : public Surface {
public:
    /// @param painter      outlives the surface; its transformation maps device units of `area`
    /// @param area         the surface's rectangle, in the painter's coordinates
    /// @param pixelFactor  painter units in a logical pixel, above 0
    PainterSurface(QPainter& painter, const QRectF& area, double pixelFactor, Medium medium);

    void SetUserScale(const UserScale& scale) override;

    [[nodiscard]] UserScale Scale() const override { return scale_; }

    [[nodiscard]] Point PixelSize() const override;
    void Clear(Colour background) override;
    void SetState(const DrawState& state) override;

    [[nodiscard]] const DrawState& State() const override { return state_; }

    void Line(Point from, Point to, Colour colour) override;
    void Box(Point corner, Point opposite, Colour colour) override;
    void FilledBox(Point corner, Point opposite, Colour colour) override;
    void Circle(Point centre, double radius, Colour colour) override;
    void Arc(Point centre, double radius, double start, double end, Colour colour) override;
    void Wedge(Point centre, double radius, double start, double end, Colour colour) override;
    void Polyline(std::span<const Point> points, Colour colour) override;
    void Polygon(std::span<const Point> points, Colour colour) override;
    void SetPixel(Point at, Colour colour) override;
    void Markers(const Glyph& glyph, Colour colour, std::span<const Point> positions) override;
    void Text(Point topLeft, std::string_view utf8) override;
    [[nodiscard]] double TextWidth(std::string_view utf8) const override;
    [[nodiscard]] double TextHeight() const override;

private:
    [[nodiscard]] QPointF Map(Point point) const;
    [[nodiscard]] QRectF MapBox(Point corner, Point opposite) const;
    [[nodiscard]] QPen PenFor(Colour colour) const;
    [[nodiscard]] QBrush StateBrush() const;
    [[nodiscard]] QPolygonF ArcPolygon(Point centre, double radius, double start, double end) const;
    void Use(Colour colour, const QBrush& brush);
    void DrawGlyph(QPainter& painter, const Glyph& glyph, Colour colour, QPointF centre) const;
    void DrawPart(QPainter& painter, const GlyphPart& part, QPointF centre) const;
    [[nodiscard]] double GlyphReach(const Glyph& glyph) const;
    void StampSprites(const Glyph& glyph, Colour colour, std::span<const Point> positions);

    QPainter& painter_;
    QRectF area_;
    double pixelFactor_;
    Medium medium_;
    UserScale scale_;
    double unitsToDeviceX_ = 1; ///< painter units in a user unit
    double unitsToDeviceY_ = 1;
    DrawState state_;
    QFont font_;
};

} // namespace quandrel
