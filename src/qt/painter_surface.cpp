// SPDX-License-Identifier: MIT

#include "qt/painter_surface.h"

#include "orientation/angles.h"
#include "qt/hatch.h"
#include "qt/image_stroker.h"

#include <QFontMetricsF>
#include <QPolygonF>
#include <QString>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace quandrel {

namespace {

constexpr double kPixelsPerPoint = 96.0 / 72.0;

/// Fonts are set larger by this factor and scaled down, so that widths do not jump between sizes.
constexpr int kFontScale = 16;

/// Largest distance of a chord from its arc, in painter units.
constexpr double kArcTolerance = 0.1;

/// Distance between the lines of a hatch, in logical pixels.
constexpr double kHatchSpacing = 6;

QColor ToQt(Colour colour, double opacity = 1) {
    QColor ink(colour.red, colour.green, colour.blue);
    if (opacity < 1) {
        ink.setAlphaF(static_cast<float>(opacity));
    }
    return ink;
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

/// Directions of the lines of a hatch, clockwise from +x; empty for other fills.
std::vector<double> HatchAngles(int fillStyle) {
    switch (fillStyle) {
    case kHorizontalHatch:
        return {0};
    case kVerticalHatch:
        return {kPi / 2};
    case kUpwardHatch:
        return {-kPi / 4};
    case kDownwardHatch:
        return {kPi / 4};
    case kCrossHatch:
        return {0, kPi / 2};
    case kDiagonalCrossHatch:
        return {kPi / 4, -kPi / 4};
    default:
        return {};
    }
}

/// The angle from start to an end of an arc, above 0 and at most a full turn.
double Sweep(double start, double end) {
    const double turn = 2 * kPi;
    const double sweep = end - start;
    return sweep > 0 ? std::min(sweep, turn) : sweep + turn * (std::floor(-sweep / turn) + 1);
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
    MakeFont();
}

void PainterSurface::SetUserScale(const UserScale& scale) {
    scale_ = scale;
    unitsToDeviceX_ = area_.width() / (scale.right - scale.left);
    unitsToDeviceY_ = area_.height() / (scale.top - scale.bottom);
    sprites_.clear();
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
    painter_.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter_.fillRect(area_, ToQt(background));
}

void PainterSurface::SetState(const DrawState& state) {
    // Pens change often and fonts rarely, and setting a font is slow.
    const bool sameFont = state.font == state_.font;
    state_ = state;
    if (!sameFont) {
        MakeFont();
    }
}

void PainterSurface::MakeFont() {
    const FontSpec& spec = state_.font;
    font_ = QFont(spec.family.empty() ? QStringLiteral("sans-serif") : ToQt(spec.family));
    // A size in pixels, so that text has the same size relative to the drawing on every device.
    font_.setPixelSize(
        std::max(1, static_cast<int>(std::lround(spec.points * kPixelsPerPoint * kFontScale))));
    font_.setBold(spec.bold);
    font_.setItalic(spec.italic);
    font_.setUnderline(spec.underline);
}

double PainterSurface::LineWidth(double leastPixels) const {
    return pixelFactor_
           * (state_.widthInPoints > 0 ? state_.widthInPoints * kPixelsPerPoint
                                       : std::max(state_.drawWidth, leastPixels));
}

QColor PainterSurface::LineInk(Colour colour) const {
    return ToQt(colour, LineOpacityOf(state_));
}

QColor PainterSurface::FillInk(Colour colour) const {
    return ToQt(colour, FillOpacityOf(state_));
}

bool PainterSurface::IsTranslucent() const {
    return LineOpacityOf(state_) < 1 || FillOpacityOf(state_) < 1;
}

QPen PainterSurface::PenFor(Colour colour) const {
    QPen pen(LineInk(colour));
    pen.setWidthF(LineWidth(0.25));
    pen.setStyle(PenStyleOf(state_.drawStyle));
    pen.setCapStyle(state_.drawStyle == kSolidLine ? Qt::RoundCap : Qt::FlatCap);
    pen.setJoinStyle(Qt::MiterJoin);
    return pen;
}

QBrush PainterSurface::StateBrush() const {
    return state_.fillStyle == kSolidFill ? QBrush(FillInk(state_.fillColour))
                                          : QBrush(Qt::NoBrush);
}

void PainterSurface::UseMode() {
    const bool toggles = state_.drawMode == kDrawNotXor && medium_ == Medium::Raster;
    painter_.setCompositionMode(toggles ? QPainter::RasterOp_NotSourceXorDestination
                                        : QPainter::CompositionMode_SourceOver);
    painter_.setRenderHint(QPainter::Antialiasing, !toggles);
}

void PainterSurface::Use(Colour colour, const QBrush& brush) {
    UseMode();
    painter_.setPen(PenFor(colour));
    painter_.setBrush(brush);
}

void PainterSurface::Hatch(std::span<const QPolygonF> rings) {
    const std::vector<double> angles = HatchAngles(state_.fillStyle);
    if (angles.empty()) {
        return;
    }
    UseMode();
    const QPen pen(FillInk(state_.fillColour), pixelFactor_, Qt::SolidLine, Qt::FlatCap);
    painter_.setPen(pen);
    QPainterPath all;
    for (const double angle : angles) {
        const std::vector<QLineF> lines =
            HatchLines(rings, angle, kHatchSpacing * pixelFactor_, area_.topLeft());
        if (medium_ == Medium::Vector && !IsTranslucent()) {
            painter_.drawLines(lines.data(), static_cast<int>(lines.size()));
            continue;
        }
        for (const QLineF& line : lines) {
            if (IsTranslucent()) {
                all.moveTo(line.p1());
                all.lineTo(line.p2());
            } else {
                DrawLine(line.p1(), line.p2());
            }
        }
    }
    if (!all.isEmpty()) {
        PaintPath(painter_, all, pen, Qt::NoBrush);
    }
}

/// For single lines with flat ends, the image's own method rounds differently under each clip.
void PainterSurface::DrawLine(QPointF from, QPointF to) {
    if (medium_ == Medium::Vector) {
        painter_.drawLine(from, to);
    } else {
        painter_.drawPolyline(QPolygonF({from, to}));
    }
}

void PainterSurface::DrawOpenLine(const QPolygonF& line, Colour colour) {
    if (IsTranslucent()) {
        QPainterPath path;
        path.addPolygon(line);
        PaintPath(path, colour, Qt::NoBrush);
        return;
    }
    Use(colour, Qt::NoBrush);
    painter_.drawPolyline(line);
}

void PainterSurface::DrawBox(const QRectF& box, Colour colour, const QBrush& brush) {
    if (IsTranslucent()) {
        QPainterPath path;
        path.addRect(box);
        PaintPath(path, colour, brush);
        return;
    }
    Use(colour, brush);
    painter_.drawRect(box);
}

void PainterSurface::Line(Point from, Point to, Colour colour) {
    if (IsTranslucent()) {
        DrawOpenLine(QPolygonF({Map(from), Map(to)}), colour);
        return;
    }
    Use(colour, Qt::NoBrush);
    DrawLine(Map(from), Map(to));
}

void PainterSurface::Box(Point corner, Point opposite, Colour colour) {
    DrawBox(MapBox(corner, opposite), colour, Qt::NoBrush);
}

void PainterSurface::FilledBox(Point corner, Point opposite, Colour colour) {
    DrawBox(MapBox(corner, opposite), colour, FillInk(colour));
}

void PainterSurface::Circle(Point centre, double radius, Colour colour) {
    if (!HatchAngles(state_.fillStyle).empty()) {
        const QPolygonF shape = ArcPolygon(centre, radius, 0, 2 * kPi);
        Hatch(std::span(&shape, 1));
    }
    if (IsTranslucent()) {
        PaintPath(CirclePath(centre, radius), colour, StateBrush());
        return;
    }
    Use(colour, StateBrush());
    painter_.drawEllipse(Map(centre), std::abs(radius * unitsToDeviceX_),
                         std::abs(radius * unitsToDeviceY_));
}

QPolygonF PainterSurface::ArcPolygon(Point centre, double radius, double start, double end) const {
    QPolygonF polygon;
    if (!std::isfinite(radius) || !std::isfinite(start) || !std::isfinite(end)) {
        return polygon;
    }
    const double sweep = Sweep(start, end);
    const double deviceRadius = std::max(radius * std::abs(unitsToDeviceX_), kArcTolerance);
    const double longestStep = 2 * std::acos(1 - kArcTolerance / deviceRadius);
    const int steps = std::max(2, static_cast<int>(std::ceil(sweep / longestStep)));
    polygon.reserve(steps + 2);
    for (int i = 0; i <= steps; ++i) {
        const double angle = start + sweep * i / steps;
        polygon << Map({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
    }
    return polygon;
}

void PainterSurface::Arc(Point centre, double radius, double start, double end, Colour colour) {
    const QPolygonF arc = ArcPolygon(centre, radius, start, end);
    constexpr double kMostStroked = 2.5; // pixels: joints of wider segments would show
    const bool isPlain = medium_ == Medium::Raster && state_.drawStyle == kSolidLine
                         && state_.drawMode == kDrawCopy && !IsTranslucent() && clips_ == 0
                         && LineWidth(1) <= kMostStroked;
    if (isPlain && StrokeOnImage(painter_, arc, ToQt(colour), LineWidth(1))) {
        return;
    }
    DrawOpenLine(arc, colour);
}

void PainterSurface::Wedge(Point centre, double radius, double start, double end, Colour colour) {
    QPolygonF polygon = ArcPolygon(centre, radius, start, end);
    polygon << Map(centre);
    DrawShape(polygon, colour);
}

QPolygonF PainterSurface::MapAll(std::span<const Point> points) const {
    QPolygonF polygon;
    polygon.reserve(static_cast<qsizetype>(points.size()));
    for (const Point& point : points) {
        polygon << Map(point);
    }
    return polygon;
}

void PainterSurface::Polyline(std::span<const Point> points, Colour colour) {
    DrawOpenLine(MapAll(points), colour);
}

void PainterSurface::DrawShape(const QPolygonF& shape, Colour colour) {
    Hatch(std::span(&shape, 1));
    if (IsTranslucent()) {
        QPainterPath path;
        path.addPolygon(shape);
        path.closeSubpath();
        PaintPath(path, colour, StateBrush());
        return;
    }
    Use(colour, StateBrush());
    painter_.drawPolygon(shape);
}

void PainterSurface::Polygon(std::span<const Point> points, Colour colour) {
    DrawShape(MapAll(points), colour);
}

void PainterSurface::SetPixel(Point at, Colour colour) {
    UseMode();
    const QPointF corner = Map(at) - QPointF(pixelFactor_, pixelFactor_) / 2;
    painter_.fillRect(QRectF(corner, QSizeF(pixelFactor_, pixelFactor_)), FillInk(colour));
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
