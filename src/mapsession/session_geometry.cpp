// SPDX-License-Identifier: MIT

#include "mapsession/session_geometry.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace quandrel {
namespace {

/// Calls a function with both ends of each segment of a line, including a ring's closing segment.
template <class Function>
void ForEachSegment(const MapShapePart& part, Function function) {
    for (std::size_t i = 1; i < part.points.size(); ++i) {
        function(part.points[i - 1], part.points[i]);
    }
    if (part.kind == MapPartKind::Ring && part.points.size() > 1) {
        function(part.points.back(), part.points.front());
    }
}

double DistanceToSegment(MapPoint point, MapPoint from, MapPoint to) {
    const double alongX = to.x - from.x;
    const double alongY = to.y - from.y;
    const double squared = alongX * alongX + alongY * alongY;
    double share = 0;
    if (squared > 0) {
        share = ((point.x - from.x) * alongX + (point.y - from.y) * alongY) / squared;
        share = std::clamp(share, 0.0, 1.0);
    }
    return std::hypot(point.x - from.x - share * alongX, point.y - from.y - share * alongY);
}

/// Even-odd rule: a ray to the east crosses an odd number of edges.
bool IsWithinRings(MapPoint point, std::span<const MapShapePart> shape) {
    bool within = false;
    for (const MapShapePart& part : shape) {
        if (part.kind != MapPartKind::Ring) {
            continue;
        }
        ForEachSegment(part, [&](MapPoint from, MapPoint to) {
            if ((from.y > point.y) == (to.y > point.y)) {
                return;
            }
            const double crossing = from.x + (point.y - from.y) / (to.y - from.y) * (to.x - from.x);
            if (point.x < crossing) {
                within = !within;
            }
        });
    }
    return within;
}

bool PartTouchesBox(const MapShapePart& part, const MapBox& box) {
    for (const MapPoint& point : part.points) {
        if (box.Holds(point)) {
            return true;
        }
    }
    if (part.kind == MapPartKind::Points) {
        return false;
    }
    bool touches = false;
    ForEachSegment(
        part, [&](MapPoint from, MapPoint to) { touches = touches || ClipSegment(box, from, to); });
    return touches;
}

/// One edge of a box: the distance of a point inwards from it, negative outside.
using Inside = double (*)(const MapBox&, MapPoint);

constexpr std::array<Inside, 4> kEdges = {
    [](const MapBox& box, MapPoint point) { return point.x - box.left; },
    [](const MapBox& box, MapPoint point) { return box.right - point.x; },
    [](const MapBox& box, MapPoint point) { return point.y - box.bottom; },
    [](const MapBox& box, MapPoint point) { return box.top - point.y; },
};

std::vector<MapPoint> ClipRingAtEdge(const MapBox& box, Inside inside,
                                     const std::vector<MapPoint>& ring) {
    std::vector<MapPoint> clipped;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const MapPoint from = ring[i == 0 ? ring.size() - 1 : i - 1];
        const MapPoint to = ring[i];
        const double fromInside = inside(box, from);
        const double toInside = inside(box, to);
        if ((fromInside < 0) != (toInside < 0)) {
            const double share = fromInside / (fromInside - toInside);
            clipped.push_back({from.x + share * (to.x - from.x), from.y + share * (to.y - from.y)});
        }
        if (toInside >= 0) {
            clipped.push_back(to);
        }
    }
    return clipped;
}

} // namespace

MapBox MapBox::Of(MapPoint corner, MapPoint opposite) {
    MapBox box;
    box.Include(corner);
    box.Include(opposite);
    return box;
}

MapBox MapBox::Grown(double by) const {
    return {left - by, bottom - by, right + by, top + by};
}

void MapBox::Include(MapPoint point) {
    left = std::min(left, point.x);
    bottom = std::min(bottom, point.y);
    right = std::max(right, point.x);
    top = std::max(top, point.y);
}

void MapBox::Include(const MapBox& box) {
    if (!box.IsEmpty()) {
        Include(MapPoint{box.left, box.bottom});
        Include(MapPoint{box.right, box.top});
    }
}

double DistanceToShape(MapPoint point, std::span<const MapShapePart> shape) {
    if (IsWithinRings(point, shape)) {
        return 0;
    }
    double distance = std::numeric_limits<double>::infinity();
    for (const MapShapePart& part : shape) {
        if (part.kind == MapPartKind::Points || part.points.size() == 1) {
            for (const MapPoint& own : part.points) {
                distance = std::min(distance, std::hypot(point.x - own.x, point.y - own.y));
            }
            continue;
        }
        ForEachSegment(part, [&](MapPoint from, MapPoint to) {
            distance = std::min(distance, DistanceToSegment(point, from, to));
        });
    }
    return distance;
}

bool ShapeTouchesBox(std::span<const MapShapePart> shape, const MapBox& box) {
    for (const MapShapePart& part : shape) {
        if (PartTouchesBox(part, box)) {
            return true;
        }
    }
    // No edge is near: the box is entirely inside the area, or entirely outside.
    return !box.IsEmpty() && IsWithinRings({box.left, box.bottom}, shape);
}

bool ClipSegment(const MapBox& box, MapPoint& from, MapPoint& to) {
    double first = 0;
    double last = 1;
    for (const Inside inside : kEdges) {
        const double atStart = inside(box, from);
        const double atEnd = inside(box, to);
        if (atStart < 0 && atEnd < 0) {
            return false;
        }
        if (atStart < 0) {
            first = std::max(first, atStart / (atStart - atEnd));
        } else if (atEnd < 0) {
            last = std::min(last, atStart / (atStart - atEnd));
        }
    }
    if (first > last) {
        return false;
    }
    const MapPoint start = from;
    const double alongX = to.x - from.x;
    const double alongY = to.y - from.y;
    if (first > 0) {
        from = {start.x + first * alongX, start.y + first * alongY};
    }
    if (last < 1) {
        to = {start.x + last * alongX, start.y + last * alongY};
    }
    return true;
}

std::vector<MapPoint> ClipRing(const MapBox& box, std::span<const MapPoint> ring) {
    std::vector<MapPoint> clipped(ring.begin(), ring.end());
    for (const Inside inside : kEdges) {
        clipped = ClipRingAtEdge(box, inside, clipped);
    }
    return clipped;
}

} // namespace quandrel
