// SPDX-License-Identifier: MIT

#include "rose/wedge_shapes.h"

#include "orientation/angles.h"
#include "rose/rose_furniture.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

/// How far a wedge turns: above 0, to kTwoPi.
double TurnOf(const RoseWedge& wedge) {
    return wedge.start == wedge.end ? kTwoPi : WrappedAngle(wedge.end - wedge.start);
}

} // namespace

double InnerRadiusOf(std::span<const RoseWedge> wedges, std::size_t i, double zeroRadius) {
    for (std::size_t inner = i + 1;
         inner < wedges.size() && wedges[inner].sector == wedges[i].sector; ++inner) {
        if (wedges[inner].mirror == wedges[i].mirror) {
            return wedges[inner].radius;
        }
    }
    return zeroRadius;
}

std::vector<Point> CornersOfRingPart(const RoseWedge& wedge, double innerRadius) {
    constexpr double kStep = kPi / 360; // arcs are accurate to 0.01 units
    const double sweep = TurnOf(wedge);
    const int steps = static_cast<int>(std::ceil(sweep / kStep));
    std::vector<Point> corners;
    const auto add = [&](double radius, int step) {
        const double angle = wedge.start + sweep * step / steps;
        corners.push_back({radius * std::cos(angle), radius * std::sin(angle)});
    };
    for (int step = 0; step <= steps; ++step) {
        add(wedge.radius, step);
    }
    for (int step = innerRadius > 0 ? steps : 0; step >= 0; --step) {
        add(innerRadius, step);
    }
    return corners;
}

std::vector<RoseWedge> PartsShown(const RoseWedge& wedge, int shape) {
    if (!IsHalfRose(shape)) {
        return {wedge};
    }
    constexpr double kLeastTurn = 1e-9;
    const double edge = ShownArc(shape).start;
    const double start = WrappedAngle(wedge.start - edge); // the half runs from 0 to pi
    const double end = start + TurnOf(wedge);
    std::vector<RoseWedge> parts;
    for (const double turn : {0.0, kTwoPi}) {
        const double from = std::max(start, turn);
        const double to = std::min(end, turn + kPi);
        if (to - from > kLeastTurn) {
            RoseWedge part = wedge;
            part.start = WrappedAngle(edge + from);
            part.end = WrappedAngle(edge + to);
            parts.push_back(part);
        }
    }
    return parts;
}

} // namespace quandrel
