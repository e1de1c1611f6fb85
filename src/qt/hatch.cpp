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

/// The points where the line at a distance across enters and leaves the shape, in order.
void Crossings(const std::vector<Turned>& points, double across, std::vector<double>& crossings) {
    crossings.clear();
    for (std::size_t i = 0; i < points.size(); ++i) {
        const Turned& from = points[i];
        const Turned& to = points[i + 1 < points.size() ? i + 1 : 0];
        // A corner on the line belongs to only one of its two edges.
        if ((from.across <= across) != (to.across <= across)) {
            const double part = (across - from.across) / (to.across - from.across);
            crossings.push_back(from.along + part * (to.along - from.along));
        }
    }
    std::sort(crossings.begin(), crossings.end());
}

} // namespace

std::vector<QLineF> HatchLines(const QPolygonF& shape, double angle, double spacing,
                               QPointF origin) {
    const QPointF along(std::cos(angle), std::sin(angle));
    const QPointF across(-along.y(), along.x());
    std::vector<Turned> points;
    double lowest = std::numeric_limits<double>::infinity();
    double highest = -lowest;
    for (const QPointF& point : shape) {
        const QPointF offset = point - origin;
        points.push_back(
            {QPointF::dotProduct(offset, along), QPointF::dotProduct(offset, across) / spacing});
        lowest = std::min(lowest, points.back().across);
        highest = std::max(highest, points.back().across);
    }
    std::vector<QLineF> lines;
    const bool isFinite = std::all_of(points.begin(), points.end(), [](const Turned& point) {
        return std::isfinite(point.along) && std::isfinite(point.across);
    });
    if (!isFinite || !(highest - lowest < kMostLines)) {
        return lines;
    }
    std::vector<double> crossings;
    for (double line = std::ceil(lowest); line <= highest; ++line) {
        Crossings(points, line, crossings);
        const QPointF foot = origin + across * (line * spacing);
        for (std::size_t i = 1; i < crossings.size(); i += 2) {
            lines.emplace_back(foot + along * crossings[i - 1], foot + along * crossings[i]);
        }
    }
    return lines;
}

} // namespace quandrel
