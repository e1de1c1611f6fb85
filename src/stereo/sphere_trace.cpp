// SPDX-License-Identifier: MIT

#include "stereo/sphere_trace.h"

#include "orientation/projection.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace quandrel {

namespace {

/// A vertex this close to the horizontal does not leave the side of those before it.
constexpr double kLevel = 1e-12;

/// The horizontal direction between two on different sides of it.
Direction RimBetween(const Direction& from, const Direction& to) {
    const double share = from.n / (from.n - to.n);
    const double l = std::lerp(from.l, to.l, share);
    const double m = std::lerp(from.m, to.m, share);
    const double length = std::hypot(l, m);
    return {l / length, m / length, 0};
}

bool IsClosed(std::span<const Direction> line) {
    const Direction& first = line.front();
    const Direction& last = line.back();
    return line.size() > 2 && first.l == last.l && first.m == last.m && first.n == last.n;
}

} // namespace

Point EndOnNet(int plotKind, const Direction& direction, bool isDown) {
    const double sign = isDown ? 1 : -1;
    // At the horizontal itself rounding must not reverse the direction.
    const Direction plotted{sign * direction.l, sign * direction.m,
                            std::max(sign * direction.n, 0.0)};
    const NetPosition place = PositionOfDirection(plotKind, plotted);
    return {place.x, place.y};
}

std::vector<std::vector<Point>> TraceOnNet(int plotKind, std::span<const Direction> line) {
    if (line.empty()) {
        return {};
    }
    std::vector<std::vector<Point>> pieces(1);
    const bool startsDown = line.front().n >= 0;
    bool isDown = startsDown;
    Direction before = line.front();
    for (const Direction& vertex : line) {
        if (isDown ? vertex.n < -kLevel : vertex.n > kLevel) {
            const Direction rim = RimBetween(before, vertex);
            pieces.back().push_back(EndOnNet(plotKind, rim, isDown));
            isDown = !isDown;
            pieces.push_back({EndOnNet(plotKind, rim, isDown)});
        }
        pieces.back().push_back(EndOnNet(plotKind, vertex, isDown));
        before = vertex;
    }
    // The last piece leads to the start of the first one.
    if (pieces.size() > 1 && IsClosed(line) && isDown == startsDown) {
        std::vector<Point>& last = pieces.back();
        last.pop_back();
        std::ranges::copy(pieces.front(), std::back_inserter(last));
        pieces.front() = std::move(last);
        pieces.pop_back();
    }
    return pieces;
}

} // namespace quandrel
