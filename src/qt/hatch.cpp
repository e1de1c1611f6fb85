// SPDX-License-Identifier: MIT

#include "qt/hatch.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quandrel {

namespace {

constexpr double kMostLines = 20000;

/// A point by its distance along the lines, and by its distance across them in spacings.
struct Turned {
    double along = 0;
    double across = 0;
};

/// Adds the points where the line at a distance across enters and leaves a ring.
void AddCrossings(const std::vector<Turned>& points, double across,
                  std::vector<double>& crossings) {
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Turned& from = points[i];
        const Turned& to = points[i + 1 < points.size() ? i + 1 : 0];
        // A corner on the line belongs to only one of its two edges.
        if ((from.across <= across) != (to.across <= across)) {
            const double part = (across - from.across) / (to.across - from.across);
            crossings.push_back(from.along + part * (to.along - from.along));
        }
    }
}

/// Rings by their distances, and the range of those across.
struct TurnedShape {
    std::vector<std::vector<Turned>> rings;
    double lowest = std::numeric_limits<double>::infinity();
    double highest = -std::numeric_limits<double>::infinity();
    bool isFinite = true;
};

TurnedShape TurnedOf(std::span<const QPolygonF> rings, QPointF along, QPointF across,
                     double spacing, QPointF origin) {
    TurnedShape shape;
    for (const QPolygonF& ring : rings) {
        std::vector<Turned>& points = shape.rings.emplace_back();
        for (const QPointF& point : ring) {
            const QPointF offset = point - origin;
            const Turned turned{QPointF::dotProduct(offset, along),
                                QPointF::dotProduct(offset, across) / spacing};
            points.push_back(turned);
            shape.lowest = std::min(shape.lowest, turned.across);
            shape.highest = std::max(shape.highest, turned.across);
            shape.isFinite =
                shape.isFinite && std::isfinite(turned.along) && std::isfinite(turned.across);
        }
    }
    return shape;
}

} // namespace

std::vector<QLineF> HatchLines(std::span<const QPolygonF> rings, double angle, double spacing,
                               QPointF origin) {
    const QPointF along(std::cos(angle), std::sin(angle));
    const QPointF across(-along.y(), along.x());
    const TurnedShape shape = TurnedOf(rings, along, across, spacing, origin);
    std::vector<QLineF> lines;
    if (!shape.isFinite || !(shape.highest - shape.lowest < kMostLines)) {
        return lines;
    }
    std::vector<double> crossings;
    for (double line = std::ceil(shape.lowest); line <= shape.highest; ++line) {
        crossings.clear();
        for (const std::vector<Turned>& ring : shape.rings) {
            AddCrossings(ring, line, crossings);
        }
        std::sort(crossings.begin(), crossings.end());
        const QPointF foot = origin + across * (line * spacing);
        for (std::size_t i = 1; i < crossings.size(); i += 2) {
            lines.emplace_back(foot + along * crossings[i - 1], foot + along * crossings[i]);
        }
    }
    return lines;
}

} // namespace quandrel
