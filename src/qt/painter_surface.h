// SPDX-License-Identifier: MIT
//
// The picture surface over a QPainter: for the screen, for PNG, and for vector files.
//
// This is the chief header of the folder: the ports of the engine, implemented with Qt but without
// Widgets: surfaces, picture files, PDF pages, icons, settings and clipboard.
// Input: drawing operations and values of the engine.
// Output: pixels and vectors in images and files, keys in the settings file.

#pragma once

#include "platform/place_filter.h"
#include "platform/surface.h"
#include "qt/sprite.h"

#include <QFont>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QRectF>

#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace quandrel {

enum class Medium {
    Raster, ///< pixels: markers are stamped from sprites
    Vector, ///< commands: everything remains a line, a shape or a text
};

/// Draws into a rectangle of a painter. Positions are mapped here, not by the painter, so that text
/// is upright and angles run counter-clockwise on every device. Nothing is clipped to the
/// rectangle.
///
/// A raster surface is fast, and mode kDrawNotXor exact, on a painter over a QImage of Format_RGB32
/// without transformation, device pixel ratio or clip, except a clip to whole lines. Arcs take
/// twice as long within PushClip, and ten times as long in a translucent ink.
class PainterSurface : public Surface {
public:
    /// @param painter      must outlive the surface; its transformation maps device units of `area`
    /// @param area         the surface's rectangle, in the painter's coordinates
    /// @param pixelFactor  painter units per logical pixel, above 0
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
    void Path(std::span<const std::vector<Point>> rings, Colour colour) override;
    void SetPixel(Point at, Colour colour) override;
    void Markers(const Glyph& glyph, Colour colour, std::span<const Point> positions) override;
    void Text(Point topLeft, std::string_view utf8) override;
    void PushClip(Point centre, double radius) override;
    void PopClip() override;
    [[nodiscard]] double TextWidth(std::string_view utf8) const override;
    [[nodiscard]] double TextHeight() const override;

private:
    [[nodiscard]] QPointF Map(Point point) const;
    [[nodiscard]] QRectF MapBox(Point corner, Point opposite) const;
    /// Width of lines in painter units. One in logical pixels is raised to the least one.
    [[nodiscard]] double LineWidth(double leastPixels) const;
    [[nodiscard]] QColor LineInk(Colour colour) const;
    [[nodiscard]] QColor FillInk(Colour colour) const;
    [[nodiscard]] bool IsTranslucent() const;
    [[nodiscard]] QPen PenFor(Colour colour) const;
    [[nodiscard]] QBrush StateBrush() const;
    [[nodiscard]] QPolygonF MapAll(std::span<const Point> points) const;
    [[nodiscard]] QPolygonF ArcPolygon(Point centre, double radius, double start, double end) const;
    [[nodiscard]] QPainterPath CirclePath(Point centre, double radius) const;
    void UseMode();
    void Use(Colour colour, const QBrush& brush);
    void Hatch(std::span<const QPolygonF> rings);
    void DrawLine(QPointF from, QPointF to);
    void DrawOpenLine(const QPolygonF& line, Colour colour);
    void DrawBox(const QRectF& box, Colour colour, const QBrush& brush);

    /// Fills and strokes a path. A translucent pen or brush inks no pixel twice.
    void PaintPath(QPainter& painter, const QPainterPath& path, const QPen& pen,
                   const QBrush& brush) const;
    void PaintPath(const QPainterPath& path, Colour colour, const QBrush& brush);
    void DrawShape(const QPolygonF& shape, Colour colour);
    void MakeFont();
    void DrawGlyph(QPainter& painter, const Glyph& glyph, Colour colour, QPointF centre) const;
    void DrawPart(QPainter& painter, const GlyphPart& part, QPointF centre,
                  const QColor& pixelInk) const;

    /// The positions that are drawn: of opaque markers only the last at each place.
    [[nodiscard]] std::vector<std::uint32_t> Drawn(std::span<const StepPlace> places) const;

    /// The pen width of glyphs: the state's width, but at least a logical pixel.
    [[nodiscard]] double GlyphPenWidth() const;
    [[nodiscard]] double GlyphReach(const Glyph& glyph) const;
    [[nodiscard]] Sprite MakeSprite(const Glyph& glyph, Colour colour, int phaseX,
                                    int phaseY) const;
    void Stamp(const PlainTarget& target, const Glyph& glyph, Colour colour,
               std::span<const Point> positions);
    void DrawEach(const Glyph& glyph, Colour colour, std::span<const Point> positions);

    /// The sprites of a glyph in one ink and pen width, one for each phase of a position within
    /// its pixel; empty until needed.
    using Phases = std::vector<std::optional<Sprite>>;

    /// Name, colour, pen width, opacity of lines and of fills.
    using SpriteKey = std::tuple<std::string, std::uint32_t, double, double, double>;

    QPainter& painter_;
    QRectF area_;
    double pixelFactor_;
    Medium medium_;
    UserScale scale_;
    double unitsToDeviceX_ = 1; ///< painter units per user unit
    double unitsToDeviceY_ = 1;
    DrawState state_;
    QFont font_;
    std::map<SpriteKey, Phases> sprites_;
    int clips_ = 0; ///< that have not ended
};

} // namespace quandrel
