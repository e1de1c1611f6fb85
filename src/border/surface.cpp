// SPDX-License-Identifier: MIT

#include "quandrel/surface.h"

#include <algorithm>
#include <utility>

namespace quandrel::api {

namespace {

void DrawPart(Surface& surface, const MarkerPart& part, Point at) {
    std::vector<Point> points = part.points;
    for (Point& point : points) {
        point = {at.x + point.x, at.y + point.y};
    }
    switch (part.kind) {
    case MarkerPart::Kind::kLine:
        surface.Polyline(points, part.pen);
        break;
    case MarkerPart::Kind::kShape:
        surface.Polygon(points, part.pen, part.fill);
        break;
    case MarkerPart::Kind::kCircle:
        surface.Circle(points.at(0), part.radius, part.pen, part.fill);
        break;
    }
}

Operation OperationOf(Operation::Kind kind, std::span<const Point> points, const Pen& pen,
                      const Fill& fill = {}) {
    Operation operation;
    operation.kind = kind;
    operation.points.assign(points.begin(), points.end());
    operation.pen = pen;
    operation.fill = fill;
    return operation;
}

Operation RoundOf(Operation::Kind kind, Point centre, double radius, const Pen& pen,
                  const Fill& fill = {}) {
    Operation operation = OperationOf(kind, std::span(&centre, 1), pen, fill);
    operation.radius = radius;
    return operation;
}

} // namespace

void Surface::Markers(const Marker& marker, std::span<const Point> positions) {
    for (const Point& position : positions) {
        for (const MarkerPart& part : marker.parts) {
            DrawPart(*this, part, position);
        }
    }
}

void Surface::BeginGroup(std::string_view id, std::string_view title) {
    static_cast<void>(id);
    static_cast<void>(title);
}

void Surface::EndGroup() {}

double EstimatedTextWidth(std::string_view utf8, const Font& font) {
    const auto characters = std::ranges::count_if(
        utf8, [](char c) { return (static_cast<unsigned char>(c) & 0xc0U) != 0x80U; });
    return 0.6 * EstimatedTextHeight(font) * static_cast<double>(characters);
}

double EstimatedTextHeight(const Font& font) {
    return font.points * 96 / 72;
}

void Recording::Clear(Colour background) {
    operations_.clear();
    operations_.push_back(OperationOf(Operation::Kind::kClear, {}, {.colour = background}));
}

void Recording::Polyline(std::span<const Point> points, const Pen& pen) {
    operations_.push_back(OperationOf(Operation::Kind::kPolyline, points, pen));
}

void Recording::Polygon(std::span<const Point> points, const Pen& pen, const Fill& fill) {
    operations_.push_back(OperationOf(Operation::Kind::kPolygon, points, pen, fill));
}

void Recording::Path(std::span<const std::vector<Point>> rings, const Pen& pen, const Fill& fill) {
    operations_.push_back(OperationOf(Operation::Kind::kPath, {}, pen, fill));
    operations_.back().rings.assign(rings.begin(), rings.end());
}

void Recording::Circle(Point centre, double radius, const Pen& pen, const Fill& fill) {
    operations_.push_back(RoundOf(Operation::Kind::kCircle, centre, radius, pen, fill));
}

void Recording::Arc(Point centre, double radius, double from, double sweep, const Pen& pen) {
    Operation operation = RoundOf(Operation::Kind::kArc, centre, radius, pen);
    operation.from = from;
    operation.sweep = sweep;
    operations_.push_back(std::move(operation));
}

void Recording::Wedge(Point centre, double radius, double from, double sweep, const Pen& pen,
                      const Fill& fill) {
    Operation operation = RoundOf(Operation::Kind::kWedge, centre, radius, pen, fill);
    operation.from = from;
    operation.sweep = sweep;
    operations_.push_back(std::move(operation));
}

void Recording::Markers(const Marker& marker, std::span<const Point> positions) {
    operations_.push_back(OperationOf(Operation::Kind::kMarkers, positions, {}));
    operations_.back().marker = marker;
}

void Recording::Text(Point topLeft, std::string_view utf8, const Font& font, Colour colour) {
    operations_.push_back(
        OperationOf(Operation::Kind::kText, std::span(&topLeft, 1), {.colour = colour}));
    operations_.back().text = std::string(utf8);
    operations_.back().font = font;
}

void Recording::PushClip(Point centre, double radius) {
    operations_.push_back(RoundOf(Operation::Kind::kPushClip, centre, radius, {}));
}

void Recording::PopClip() {
    operations_.push_back(OperationOf(Operation::Kind::kPopClip, {}, {}));
}

double Recording::TextWidth(std::string_view utf8, const Font& font) const {
    return EstimatedTextWidth(utf8, font);
}

double Recording::TextHeight(const Font& font) const {
    return EstimatedTextHeight(font);
}

} // namespace quandrel::api
