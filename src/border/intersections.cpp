// SPDX-License-Identifier: MIT

#include "quandrel/intersections.h"

#include "border/border.h"

#include <algorithm>
#include <limits>

namespace quandrel::api {

namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

/// The intersection line of the planes with two unit normals.
std::optional<Line> LineOfNormals(const Direction& a, const Direction& b) {
    const std::optional<Direction> direction = IntersectionDirection(a, b);
    if (!direction) {
        return std::nullopt;
    }
    RadianLine line;
    CosinesToLine(*direction, line.plunge, line.trend);
    return LineOut(line.plunge, line.trend);
}

} // namespace

std::optional<Line> IntersectionOf(const Plane& a, const Plane& b) {
    return LineOfNormals(NormalOf(a), NormalOf(b));
}

std::optional<Plane> PlaneThrough(const Line& a, const Line& b) {
    const RadianLine first = In(a);
    const RadianLine second = In(b);
    RadianPlane plane;
    PlaneThroughLines(first.plunge, first.trend, second.plunge, second.trend, plane.dip,
                      plane.dipDirection);
    return plane.dip < 0 ? std::nullopt : std::optional(PlaneOut(plane.dip, plane.dipDirection));
}

void IntersectionsOf(std::span<const Plane> a, std::span<const Plane> b, std::span<Line> lines) {
    SameLength(a.size(), b.size(), "planes and others");
    SameLength(a.size(), lines.size(), "planes and lines");
    std::ranges::transform(a, b, lines.begin(), [](const Plane& first, const Plane& second) {
        return IntersectionOf(first, second).value_or(Line{kNoNumber, kNoNumber});
    });
}

std::vector<Line> BetaIntersections(std::span<const Plane> planes) {
    std::vector<Direction> normals(planes.size());
    std::ranges::transform(planes, normals.begin(), NormalOf);
    std::vector<Line> lines;
    for (std::size_t i = 0; i < normals.size(); ++i) {
        for (std::size_t j = i + 1; j < normals.size(); ++j) {
            if (const std::optional<Line> line = LineOfNormals(normals[i], normals[j])) {
                lines.push_back(*line);
            }
        }
    }
    return lines;
}

} // namespace quandrel::api
