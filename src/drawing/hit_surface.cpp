// SPDX-License-Identifier: MIT

#include "drawing/hit_surface.h"

#include "orientation/angles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

namespace quandrel {

namespace {

double DistanceOf(Point a, Point b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

double DistanceToLine(Point at, Point from, Point to) {
    const double x = to.x - from.x;
    const double y = to.y - from.y;
    const double square = x * x + y * y;
    const double along =
        square > 0 ? std::clamp(((at.x - from.x) * x + (at.y - from.y) * y) / square, 0.0, 1.0) : 0;
    return DistanceOf(at, {from.x + along * x, from.y + along * y});
}

/// Whether a ray from the point to the right crosses the closed line an odd number of times.
bool IsInside(Point at, std::span<const Point> ring) {
    bool isInside = false;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const Point a = ring[i];
        const Point b = ring[(i + 1) % ring.size()];
        if ((a.y > at.y) != (b.y > at.y) && at.x < a.x + (at.y - a.y) / (b.y - a.y) * (b.x - a.x)) {
            isInside = !isInside;
        }
    }
    return isInside;
}

/// Points along an arc. Angles run counter-clockwise from the east, radians.
std::vector<Point> PointsOfArc(Point centre, double radius, double start, double end) {
    constexpr int kSteps = 72;
    const double sweep = end > start ? end - start : end - start + 2 * kPi;
    std::vector<Point> points;
    for (int i = 0; i <= kSteps; ++i) {
        const double angle = start + sweep * i / kSteps;
        points.push_back(
            {centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
    }
    return points;
}

std::array<Point, 5> CornersOf(Point corner, Point opposite) {
    return {{corner, {opposite.x, corner.y}, opposite, {corner.x, opposite.y}, corner}};
}

/// How far a glyph reaches from its position.
double ReachOf(const Glyph& glyph) {
    double reach = 0;
    for (const GlyphPart& part : glyph.parts) {
        for (const Point& point : part.points) {
            reach = std::max(reach, std::hypot(point.x, point.y) + part.radius);
        }
    }
    return reach;
}

} // namespace

void HitSurface::Take(bool isHit) {
    const auto isWithin = [this](const std::pair<Point, double>& clip) {
        return DistanceOf(at_, clip.first) <= clip.second;
    };
    isHit_ = isHit_ || (isHit && std::ranges::all_of(clips_, isWithin));
}

void HitSurface::TakeLines(std::span<const Point> points) {
    if (State().drawStyle == kNoLine) {
        return;
    }
    for (std::size_t i = 1; i < points.size(); ++i) {
        Take(DistanceToLine(at_, points[i - 1], points[i]) <= reach_);
    }
}

bool HitSurface::HasFill() const {
    const DrawState& state = State();
    return state.fillStyle != kNoFill && state.fillOpacity > 0 && state.fillColour != kWhite;
}

void HitSurface::Line(Point from, Point to, Colour colour) {
    Polyline(std::array{from, to}, colour);
}

void HitSurface::Box(Point corner, Point opposite, Colour colour) {
    Polygon(CornersOf(corner, opposite), colour);
}

void HitSurface::FilledBox(Point corner, Point opposite, Colour colour) {
    Take(colour != kWhite && IsInside(at_, CornersOf(corner, opposite)));
}

void HitSurface::Circle(Point centre, double radius, Colour colour) {
    static_cast<void>(colour);
    const double distance = DistanceOf(at_, centre);
    Take((HasFill() && distance <= radius)
         || (State().drawStyle != kNoLine && std::abs(distance - radius) <= reach_));
}

void HitSurface::Arc(Point centre, double radius, double start, double end, Colour colour) {
    Polyline(PointsOfArc(centre, radius, start, end), colour);
}

void HitSurface::Wedge(Point centre, double radius, double start, double end, Colour colour) {
    std::vector<Point> points = PointsOfArc(centre, radius, start, end);
    points.push_back(centre);
    Polygon(points, colour);
}

void HitSurface::Polyline(std::span<const Point> points, Colour colour) {
    static_cast<void>(colour);
    TakeLines(points);
}

void HitSurface::Polygon(std::span<const Point> points, Colour colour) {
    static_cast<void>(colour);
    Take(HasFill() && IsInside(at_, points));
    TakeLines(points);
    if (!points.empty()) {
        TakeLines(std::array{points.back(), points.front()});
    }
}

void HitSurface::Path(std::span<const std::vector<Point>> rings, Colour colour) {
    static_cast<void>(colour);
    bool isInside = false;
    for (const std::vector<Point>& ring : rings) {
        isInside = isInside != IsInside(at_, ring);
        TakeLines(ring);
    }
    Take(HasFill() && isInside);
}

void HitSurface::SetPixel(Point at, Colour colour) {
    static_cast<void>(colour);
    Take(DistanceOf(at_, at) <= reach_);
}

void HitSurface::Markers(const Glyph& glyph, Colour colour, std::span<const Point> positions) {
    static_cast<void>(colour);
    const double reach = std::max(ReachOf(glyph), reach_);
    Take(std::ranges::any_of(
        positions, [this, reach](Point position) { return DistanceOf(at_, position) <= reach; }));
}

void HitSurface::Text(Point topLeft, std::string_view utf8) {
    Take(at_.x >= topLeft.x && at_.x <= topLeft.x + TextWidth(utf8) && at_.y <= topLeft.y
         && at_.y >= topLeft.y - TextHeight());
}

} // namespace quandrel
