// SPDX-License-Identifier: MIT

#include "platform/qt/painter_surface.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPolygonF>
#include <QString>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <unordered_set>

namespace quandrel {

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kPixelsPerPoint = 96.0 / 72.0;

/// Fonts are set larger by this and drawn smaller, so that widths do not jump from size to size.
constexpr int kFontScale = 16;

/// How far the chord of an arc may stand off the arc, in painter units.
constexpr double kArcTolerance = 0.1;

/// Sprites are kept for places within a pixel to a quarter of it.
constexpr int kPhases = 4;

QColor ToQt(Colour colour) {
    return QColor(colour.red, colour.green, colour.blue);
}

QString ToQt(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

Qt::PenStyle PenStyleOf(int drawStyle) {
    constexpr std::array<Qt::PenStyle, 6> kStyles = {
        Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine, Qt::DashDotDotLine, Qt::NoPen};
    return drawStyle >= 0 && drawStyle < static_cast<int>(kStyles.size())
               ? kStyles[static_cast<std::size_t>(drawStyle)]
               : Qt::SolidLine;
}

Qt::BrushStyle BrushStyleOf(int fillStyle) {
    constexpr std::array<Qt::BrushStyle, 8> kStyles = {
        Qt::SolidPattern, Qt::NoBrush,      Qt::HorPattern,   Qt::VerPattern,
        Qt::BDiagPattern, Qt::FDiagPattern, Qt::CrossPattern, Qt::DiagCrossPattern};
    return fillStyle >= 0 && fillStyle < static_cast<int>(kStyles.size())
               ? kStyles[static_cast<std::size_t>(fillStyle)]
               : Qt::NoBrush;
}

/// A place in quarters of a painter unit, in one number.
std::uint64_t QuarterKey(int x, int y) {
    return static_cast<std::uint64_t>(static_cast<std::uint32_t>(x)) << 32
           | static_cast<std::uint32_t>(y);
}

} // namespace

PainterSurface::PainterSurface(QPainter& painter, const QRectF& area, double pixelFactor,
                               Medium medium)
    : painter_(painter)
    , area_(area)
    , pixelFactor_(pixelFactor)
    , medium_(medium) {
    painter_.setRenderHint(QPainter::Antialiasing, true);
    painter_.setRenderHint(QPainter::TextAntialiasing, true);
    SetUserScale({0, 0, area.width() / pixelFactor, -area.height() / pixelFactor});
    SetState({});
}

void PainterSurface::SetUserScale(const UserScale& scale) {
    scale_ = scale;
    unitsToDeviceX_ = area_.width() / (scale.right - scale.left);
    unitsToDeviceY_ = area_.height() / (scale.top - scale.bottom);
}

Point PainterSurface::PixelSize() const {
    return {pixelFactor_ / std::abs(unitsToDeviceX_), pixelFactor_ / std::abs(unitsToDeviceY_)};
}

QPointF PainterSurface::Map(Point point) const {
    return {area_.left() + (point.x - scale_.left) * unitsToDeviceX_,
            area_.top() + (scale_.top - point.y) * unitsToDeviceY_};
}

QRectF PainterSurface::MapBox(Point corner, Point opposite) const {
    return QRectF(Map(corner), Map(opposite)).normalized();
}

void PainterSurface::Clear(Colour background) {
    painter_.fillRect(area_, ToQt(background));
}

void PainterSurface::SetState(const DrawState& state) {
    state_ = state;
    font_ =
        QFont(state.font.family.empty() ? QStringLiteral("sans-serif") : ToQt(state.font.family));
    // A pixel size, so that text is as large beside the drawing on every device.
    font_.setPixelSize(std::max(
        1, static_cast<int>(std::lround(state.font.points * kPixelsPerPoint * kFontScale))));
    font_.setBold(state.font.bold);
    font_.setItalic(state.font.italic);
    font_.setUnderline(state.font.underline);
}

QPen PainterSurface::PenFor(Colour colour) const {
    QPen pen(ToQt(colour));
    pen.setWidthF(std::max(state_.drawWidth, 0.25) * pixelFactor_);
    pen.setStyle(PenStyleOf(state_.drawStyle));
    pen.setCapStyle(state_.drawStyle == kSolidLine ? Qt::RoundCap : Qt::FlatCap);
    pen.setJoinStyle(Qt::MiterJoin);
    return pen;
}

QBrush PainterSurface::StateBrush() const {
    return QBrush(ToQt(state_.fillColour), BrushStyleOf(state_.fillStyle));
}

void PainterSurface::Use(Colour colour, const QBrush& brush) {
    const bool toggles = state_.drawMode == kDrawNotXor && medium_ == Medium::Raster;
    painter_.setCompositionMode(toggles ? QPainter::RasterOp_NotSourceXorDestination
                                        : QPainter::CompositionMode_SourceOver);
    painter_.setRenderHint(QPainter::Antialiasing, !toggles);
    painter_.setPen(PenFor(colour));
    painter_.setBrush(brush);
}

void PainterSurface::Line(Point from, Point to, Colour colour) {
    Use(colour, Qt::NoBrush);
    painter_.drawLine(Map(from), Map(to));
}

void PainterSurface::Box(Point corner, Point opposite, Colour colour) {
    Use(colour, Qt::NoBrush);
    painter_.drawRect(MapBox(corner, opposite));
}

void PainterSurface::FilledBox(Point corner, Point opposite, Colour colour) {
    Use(colour, ToQt(colour));
    painter_.drawRect(MapBox(corner, opposite));
}

void PainterSurface::Circle(Point centre, double radius, Colour colour) {
    Use(colour, StateBrush());
    painter_.drawEllipse(Map(centre), std::abs(radius * unitsToDeviceX_),
                         std::abs(radius * unitsToDeviceY_));
}

QPolygonF PainterSurface::ArcPolygon(Point centre, double radius, double start, double end) const {
    const double last = end > start ? end : end + 2 * kPi;
    const double deviceRadius = std::max(radius * std::abs(unitsToDeviceX_), kArcTolerance);
    const double longestStep = 2 * std::acos(1 - std::min(1.0, kArcTolerance / deviceRadius));
    const int steps = std::max(2, static_cast<int>(std::ceil((last - start) / longestStep)));
    QPolygonF polygon;
    polygon.reserve(steps + 2);
    for (int i = 0; i <= steps; ++i) {
        const double angle = start + (last - start) * i / steps;
        polygon << Map({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
    }
    return polygon;
}

void PainterSurface::Arc(Point centre, double radius, double start, double end, Colour colour) {
    Use(colour, Qt::NoBrush);
    painter_.drawPolyline(ArcPolygon(centre, radius, start, end));
}

void PainterSurface::Wedge(Point centre, double radius, double start, double end, Colour colour) {
    Use(colour, StateBrush());
    QPolygonF polygon = ArcPolygon(centre, radius, start, end);
    polygon << Map(centre);
    painter_.drawPolygon(polygon);
}

void PainterSurface::Polyline(std::span<const Point> points, Colour colour) {
    Use(colour, Qt::NoBrush);
    QPolygonF polygon;
    for (const Point& point : points) {
        polygon << Map(point);
    }
    painter_.drawPolyline(polygon);
}

void PainterSurface::Polygon(std::span<const Point> points, Colour colour) {
    Use(colour, StateBrush());
    QPolygonF polygon;
    for (const Point& point : points) {
        polygon << Map(point);
    }
    painter_.drawPolygon(polygon);
}

void PainterSurface::SetPixel(Point at, Colour colour) {
    const QPointF corner = Map(at) - QPointF(pixelFactor_, pixelFactor_) / 2;
    painter_.fillRect(QRectF(corner, QSizeF(pixelFactor_, pixelFactor_)), ToQt(colour));
}

void PainterSurface::DrawPart(QPainter& painter, const GlyphPart& part, QPointF centre) const {
    const auto at = [&](Point point) {
        return centre + QPointF(point.x * unitsToDeviceX_, -point.y * unitsToDeviceY_);
    };
    QPolygonF polygon;
    switch (part.kind) {
    case GlyphPart::Kind::Pixel: {
        const QPointF half(pixelFactor_ / 2, pixelFactor_ / 2);
        painter.fillRect(QRectF(at(part.points.front()) - half, at(part.points.front()) + half),
                         painter.pen().color());
        break;
    }
    case GlyphPart::Kind::Circle:
        painter.drawEllipse(at(part.points.front()), part.radius * std::abs(unitsToDeviceX_),
                            part.radius * std::abs(unitsToDeviceY_));
        break;
    case GlyphPart::Kind::Polyline:
    case GlyphPart::Kind::Polygon:
        for (const Point& point : part.points) {
            polygon << at(point);
        }
        if (part.kind == GlyphPart::Kind::Polygon) {
            painter.drawPolygon(polygon);
        } else {
            painter.drawPolyline(polygon);
        }
        break;
    }
}

void PainterSurface::DrawGlyph(QPainter& painter, const Glyph& glyph, Colour colour,
                               QPointF centre) const {
    QPen pen(ToQt(colour));
    pen.setWidthF(pixelFactor_);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    for (const GlyphPart& part : glyph.parts) {
        switch (part.ink) {
        case GlyphPart::Ink::Outline:
            painter.setBrush(Qt::NoBrush);
            break;
        case GlyphPart::Ink::Filled:
            painter.setBrush(ToQt(colour));
            break;
        case GlyphPart::Ink::White:
            painter.setBrush(Qt::white);
            break;
        }
        DrawPart(painter, part, centre);
    }
}

double PainterSurface::GlyphReach(const Glyph& glyph) const {
    double reach = 0;
    for (const GlyphPart& part : glyph.parts) {
        for (const Point& point : part.points) {
            reach =
                std::max({reach, std::abs(point.x) + part.radius, std::abs(point.y) + part.radius});
        }
    }
    return reach * std::max(std::abs(unitsToDeviceX_), std::abs(unitsToDeviceY_));
}

void PainterSurface::StampSprites(const Glyph& glyph, Colour colour,
                                  std::span<const Point> positions) {
    const int margin = static_cast<int>(std::ceil(GlyphReach(glyph) + pixelFactor_)) + 2;
    std::array<std::optional<QImage>, kPhases * kPhases> sprites;
    std::unordered_set<std::uint64_t> stamped;
    for (const Point& position : positions) {
        const QPointF place = Map(position);
        const int quarterX = static_cast<int>(std::lround(place.x() * kPhases));
        const int quarterY = static_cast<int>(std::lround(place.y() * kPhases));
        if (!stamped.insert(QuarterKey(quarterX, quarterY)).second) {
            continue;
        }
        const int x = static_cast<int>(std::floor(static_cast<double>(quarterX) / kPhases));
        const int y = static_cast<int>(std::floor(static_cast<double>(quarterY) / kPhases));
        const int phaseX = quarterX - x * kPhases;
        const int phaseY = quarterY - y * kPhases;
        std::optional<QImage>& sprite =
            sprites[static_cast<std::size_t>(phaseY * kPhases + phaseX)];
        if (!sprite) {
            sprite.emplace(2 * margin, 2 * margin, QImage::Format_ARGB32_Premultiplied);
            sprite->fill(Qt::transparent);
            QPainter painter(&*sprite);
            painter.setRenderHint(QPainter::Antialiasing, true);
            DrawGlyph(painter, glyph, colour,
                      QPointF(margin + static_cast<double>(phaseX) / kPhases,
                              margin + static_cast<double>(phaseY) / kPhases));
        }
        painter_.drawImage(QPoint(x - margin, y - margin), *sprite);
    }
}

void PainterSurface::Markers(const Glyph& glyph, Colour colour, std::span<const Point> positions) {
    painter_.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter_.setRenderHint(QPainter::Antialiasing, true);
    // A few markers are sooner drawn than made into sprites.
    constexpr std::size_t kFewMarkers = 8;
    if (medium_ == Medium::Raster && positions.size() > kFewMarkers) {
        StampSprites(glyph, colour, positions);
        return;
    }
    for (const Point& position : positions) {
        DrawGlyph(painter_, glyph, colour, Map(position));
    }
}

void PainterSurface::Text(Point topLeft, std::string_view utf8) {
    painter_.save();
    painter_.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter_.setPen(ToQt(state_.foreColour));
    painter_.setFont(font_);
    painter_.translate(Map(topLeft));
    painter_.scale(pixelFactor_ / kFontScale, pixelFactor_ / kFontScale);
    painter_.drawText(QPointF(0, QFontMetricsF(font_).ascent()), ToQt(utf8));
    painter_.restore();
}

double PainterSurface::TextWidth(std::string_view utf8) const {
    return QFontMetricsF(font_).horizontalAdvance(ToQt(utf8)) / kFontScale * PixelSize().x;
}

double PainterSurface::TextHeight() const {
    return QFontMetricsF(font_).height() / kFontScale * PixelSize().y;
}

} // namespace quandrel
