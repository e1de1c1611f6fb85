// SPDX-License-Identifier: MIT
//
// The markers of a PainterSurface. In an image a marker is a sprite, made once for each phase of a
// position within its pixel; in a vector file it is drawn from its parts.

#include "platform/place_filter.h"
#include "qt/painter_surface.h"

#include <QImage>
#include <QPolygonF>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <numeric>

namespace quandrel {

namespace {

/// Steps within a pixel, across and down, for which sprites are made.
constexpr int kPhases = 4;

/// Steps per logical pixel by which a vector file distinguishes positions.
constexpr double kVectorSteps = 64;

/// Positions this far out, in painter units, are not drawn.
constexpr double kFarAway = 1e6;

/// A glyph that extends further than this, in pixels, is drawn instead of stamped.
constexpr double kLargestSprite = 128;

/// This many glyphs are cached; then the cache is cleared.
constexpr std::size_t kMostGlyphs = 1000;

bool IsNear(QPointF place) {
    return std::abs(place.x()) < kFarAway && std::abs(place.y()) < kFarAway;
}

/// The whole pixel of a step, and the phase within it.
std::div_t PixelOf(int step) {
    const int phase = (step % kPhases + kPhases) % kPhases;
    return {(step - phase) / kPhases, phase};
}

/// A part of a glyph as a path.
///
/// @param polygon         its points in painter units
/// @param unitsX, unitsY  painter units per user unit
QPainterPath PartPath(const GlyphPart& part, const QPolygonF& polygon, double unitsX,
                      double unitsY) {
    QPainterPath path;
    if (part.kind == GlyphPart::Kind::Circle) {
        path.addEllipse(polygon.front(), part.radius * std::abs(unitsX),
                        part.radius * std::abs(unitsY));
        return path;
    }
    path.addPolygon(polygon);
    if (part.kind == GlyphPart::Kind::Polygon) {
        path.closeSubpath();
    }
    return path;
}

} // namespace

std::vector<std::uint32_t> PainterSurface::Drawn(std::span<const StepPlace> places) const {
    if (!IsTranslucent()) {
        return LastOfEachPlace(places);
    }
    std::vector<std::uint32_t> all(places.size());
    std::iota(all.begin(), all.end(), 0U);
    return all;
}

void PainterSurface::DrawPart(QPainter& painter, const GlyphPart& part, QPointF centre,
                              const QColor& pixelInk) const {
    const auto at = [&](Point point) {
        return centre + QPointF(point.x * unitsToDeviceX_, -point.y * unitsToDeviceY_);
    };
    QPolygonF polygon;
    for (const Point& point : part.points) {
        polygon << at(point);
    }
    if (IsTranslucent() && part.kind != GlyphPart::Kind::Pixel) {
        const QPen pen = painter.pen();
        const QBrush brush = painter.brush();
        PaintPath(painter, PartPath(part, polygon, unitsToDeviceX_, unitsToDeviceY_), pen, brush);
        return;
    }
    switch (part.kind) {
    case GlyphPart::Kind::Pixel: {
        const QPointF half(pixelFactor_ / 2, pixelFactor_ / 2);
        painter.fillRect(QRectF(polygon.front() - half, polygon.front() + half), pixelInk);
        break;
    }
    case GlyphPart::Kind::Circle:
        painter.drawEllipse(polygon.front(), part.radius * std::abs(unitsToDeviceX_),
                            part.radius * std::abs(unitsToDeviceY_));
        break;
    case GlyphPart::Kind::Polyline:
        painter.drawPolyline(polygon);
        break;
    case GlyphPart::Kind::Polygon:
        painter.drawPolygon(polygon);
        break;
    }
}

double PainterSurface::GlyphPenWidth() const {
    return LineWidth(1);
}

void PainterSurface::DrawGlyph(QPainter& painter, const Glyph& glyph, Colour colour,
                               QPointF centre) const {
    QPen pen(LineInk(colour));
    pen.setWidthF(GlyphPenWidth());
    pen.setJoinStyle(Qt::MiterJoin);
    for (const GlyphPart& part : glyph.parts) {
        painter.setPen(pen);
        switch (part.ink) {
        case GlyphPart::Ink::Outline:
            painter.setBrush(Qt::NoBrush);
            break;
        case GlyphPart::Ink::Filled:
            painter.setBrush(FillInk(colour));
            break;
        case GlyphPart::Ink::White:
            painter.setBrush(FillInk(kWhite));
            break;
        case GlyphPart::Ink::Solid:
            painter.setPen(Qt::NoPen);
            painter.setBrush(FillInk(colour));
            break;
        case GlyphPart::Ink::Halo:
            painter.setPen(Qt::NoPen);
            painter.setBrush(FillInk(kWhite));
            break;
        }
        DrawPart(painter, part, centre, FillInk(colour));
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

Sprite PainterSurface::MakeSprite(const Glyph& glyph, Colour colour, int phaseX, int phaseY) const {
    // A mitred corner extends by up to two widths of the pen.
    const int margin = static_cast<int>(std::ceil(GlyphReach(glyph) + 2 * GlyphPenWidth())) + 2;
    QImage picture(2 * margin, 2 * margin, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing, true);
    DrawGlyph(painter, glyph, colour,
              QPointF(margin + static_cast<double>(phaseX) / kPhases,
                      margin + static_cast<double>(phaseY) / kPhases));
    painter.end();
    return Sprite(picture, {margin, margin});
}

void PainterSurface::Stamp(const PlainTarget& target, const Glyph& glyph, Colour colour,
                           std::span<const Point> positions) {
    if (sprites_.size() > kMostGlyphs) {
        sprites_.clear();
    }
    Phases& phases = sprites_[{glyph.name, ColourValue(colour), GlyphPenWidth(),
                               LineOpacityOf(state_), FillOpacityOf(state_)}];
    phases.resize(static_cast<std::size_t>(kPhases * kPhases));
    std::vector<StepPlace> steps;
    steps.reserve(positions.size());
    for (const Point& position : positions) {
        const QPointF place = Map(position);
        if (IsNear(place)) {
            steps.push_back({static_cast<std::int32_t>(std::lround(place.x() * kPhases)),
                             static_cast<std::int32_t>(std::lround(place.y() * kPhases))});
        }
    }
    for (const std::uint32_t index : Drawn(steps)) {
        const std::div_t x = PixelOf(steps[index].x);
        const std::div_t y = PixelOf(steps[index].y);
        std::optional<Sprite>& sprite = phases[static_cast<std::size_t>(y.rem * kPhases + x.rem)];
        if (!sprite) {
            sprite = MakeSprite(glyph, colour, x.rem, y.rem);
        }
        sprite->StampOn(target, x.quot, y.quot);
    }
}

void PainterSurface::DrawEach(const Glyph& glyph, Colour colour, std::span<const Point> positions) {
    const double step = medium_ == Medium::Vector ? pixelFactor_ / kVectorSteps : 1.0 / kPhases;
    std::vector<StepPlace> steps;
    std::vector<QPointF> places;
    for (const Point& position : positions) {
        const QPointF place = Map(position);
        if (IsNear(place)) {
            places.push_back(place);
            steps.push_back({static_cast<std::int32_t>(std::lround(place.x() / step)),
                             static_cast<std::int32_t>(std::lround(place.y() / step))});
        }
    }
    painter_.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter_.setRenderHint(QPainter::Antialiasing, true);
    for (const std::uint32_t index : Drawn(steps)) {
        DrawGlyph(painter_, glyph, colour, places[index]);
    }
}

void PainterSurface::Markers(const Glyph& glyph, Colour colour, std::span<const Point> positions) {
    const std::optional<PlainTarget> target =
        medium_ == Medium::Raster && clips_ == 0 ? PlainTargetOf(painter_) : std::nullopt;
    if (target && GlyphReach(glyph) <= kLargestSprite) {
        Stamp(*target, glyph, colour, positions);
    } else {
        DrawEach(glyph, colour, positions);
    }
}

} // namespace quandrel
