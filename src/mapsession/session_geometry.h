// SPDX-License-Identifier: MIT
//
// Shapes of map objects and queries on them.
//
// Coordinates are those of the table, east and north, in its own units and on a plane: degrees are
// treated as plane units. A shape is a list of parts. Its rings together bound its area by the
// even-odd rule, so that a ring within a ring is a hole. All coordinates are finite.

#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace quandrel {

struct MapPoint {
    double x = 0;
    double y = 0;

    friend bool operator==(const MapPoint&, const MapPoint&) = default;
};

/// An upright rectangle including its edges; empty until something is added.
struct MapBox {
    double left = std::numeric_limits<double>::infinity();
    double bottom = std::numeric_limits<double>::infinity();
    double right = -std::numeric_limits<double>::infinity();
    double top = -std::numeric_limits<double>::infinity();

    /// The box with two opposite corners, in any order.
    [[nodiscard]] static MapBox Of(MapPoint corner, MapPoint opposite);

    [[nodiscard]] bool IsEmpty() const { return left > right; }

    [[nodiscard]] bool Holds(MapPoint point) const {
        return point.x >= left && point.x <= right && point.y >= bottom && point.y <= top;
    }

    /// True when the boxes share a point. An empty box shares none.
    [[nodiscard]] bool Touches(const MapBox& other) const {
        return left <= other.right && other.left <= right && bottom <= other.top
               && other.bottom <= top;
    }

    /// The box enlarged by this on each side; an empty one stays empty.
    [[nodiscard]] MapBox Grown(double by) const;

    void Include(MapPoint point);
    void Include(const MapBox& box);
};

enum class MapPartKind : std::uint8_t {
    Points, ///< separate points
    Line,   ///< an open line
    Ring,   ///< a closed line; the last point may or may not repeat the first
};

struct MapShapePart {
    MapPartKind kind = MapPartKind::Points;
    std::span<const MapPoint> points;
};

using MapShape = std::vector<MapShapePart>;

/// Distance of a point from a shape: 0 on it and within its area, infinite for an empty shape.
[[nodiscard]] double DistanceToShape(MapPoint point, std::span<const MapShapePart> shape);

/// True when a shape and a box share a point: a point inside, a line that crosses, an area that
/// reaches into the box or encloses it.
[[nodiscard]] bool ShapeTouchesBox(std::span<const MapShapePart> shape, const MapBox& box);

/// The part of a segment within a box. Returns false when there is none; the ends are then
/// unchanged. Y.-D. Liang and B. A. Barsky, A New Concept and Method for Line Clipping, ACM
/// Transactions on Graphics 3 (1984).
[[nodiscard]] bool ClipSegment(const MapBox& box, MapPoint& from, MapPoint& to);

/// The part of a ring within a box, closed along the box's edges; empty when there is none. I. E.
/// Sutherland and G. W. Hodgman, Reentrant Polygon Clipping, Communications of the ACM 17 (1974).
[[nodiscard]] std::vector<MapPoint> ClipRing(const MapBox& box, std::span<const MapPoint> ring);

} // namespace quandrel
