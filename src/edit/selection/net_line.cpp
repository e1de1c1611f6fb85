// SPDX-License-Identifier: MIT

#include "edit/selection/net_line.h"

#include "orientation/projection.h"

#include <cmath>

namespace quandrel {

namespace {

// At this distance a position reflected through the rim is back at the centre.
constexpr double kFarthest = 2 * kNetRadius;

} // namespace

NetLine LineAtPosition(int plotKind, double x, double y) {
    const double distance = std::hypot(x, y);
    if (distance > kFarthest) {
        x *= kFarthest / distance;
        y *= kFarthest / distance;
    }
    NetLine line;
    UnprojectPosition(plotKind, x, y, line.plunge, line.trend);
    return line;
}

bool IsOnNet(double x, double y) {
    return x * x + y * y <= kNetRadius * kNetRadius;
}

} // namespace quandrel
