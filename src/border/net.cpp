// SPDX-License-Identifier: MIT

#include "quandrel/net.h"

#include "border/border.h"
#include "border/net_points.h"
#include "orientation/projection.h"
#include "stereo/cones.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace quandrel::api {

namespace {

std::vector<NetLine> TraceAbout(const RadianLine& axis, double halfAngle, Projection projection) {
    std::vector<NetLine> lines;
    for (const std::vector<Point>& line :
         ConeTrace(KindOf(projection), axis.plunge, axis.trend, halfAngle)) {
        lines.push_back(NetLineOf(line));
    }
    return lines;
}

} // namespace

int KindOf(Projection projection) {
    if (projection != Projection::kEqualArea && projection != Projection::kEqualAngle) {
        throw std::invalid_argument("a projection is neither equal area nor equal angle");
    }
    return static_cast<int>(projection);
}

NetLine NetLineOf(std::span<const Point> points) {
    NetLine line;
    line.reserve(points.size());
    for (const Point& point : points) {
        line.push_back({point.x / kNetRadius, point.y / kNetRadius});
    }
    return line;
}

NetPoint ProjectedLine(const Line& line, Projection projection) {
    const RadianLine in = In(line);
    NetPosition position;
    ProjectPoint(KindOf(projection), in.plunge, in.trend, position.x, position.y);
    return {position.x / kNetRadius, position.y / kNetRadius};
}

void ProjectLines(std::span<const Line> lines, Projection projection, std::span<NetPoint> points) {
    SameLength(lines.size(), points.size(), "lines and points");
    std::ranges::transform(lines, points.begin(),
                           [=](const Line& line) { return ProjectedLine(line, projection); });
}

Line LineAtPoint(const NetPoint& point, Projection projection) {
    const double distance = std::hypot(Finite(point.east, "east"), Finite(point.north, "north"));
    if (distance >= 2) {
        throw std::invalid_argument("a point is two radii or more from the centre");
    }
    RadianLine line;
    UnprojectPosition(KindOf(projection), point.east * kNetRadius, point.north * kNetRadius,
                      line.plunge, line.trend);
    return LineOut(line.plunge, line.trend);
}

NetLine TraceOfPlane(const Plane& plane, Projection projection) {
    // The trace is a cone with a right angle around the pole. Its upper half coincides with its
    // lower half, so the longest line is the whole trace.
    const std::vector<NetLine> lines = TraceAbout(In(PoleOf(plane)), kPi / 2, projection);
    return *std::ranges::max_element(lines, {}, &NetLine::size);
}

std::vector<NetLine> TraceOfCone(const Line& axis, double halfAngle, Projection projection) {
    if (!(halfAngle > 0 && halfAngle < 180)) {
        throw std::invalid_argument("the half-angle of a cone is not above 0 and below 180");
    }
    return TraceAbout(In(axis), DegToRad(halfAngle), projection);
}

} // namespace quandrel::api
