// SPDX-License-Identifier: MIT
//
// Lines and planes on the net: the lower hemisphere, equal area or equal angle.
//
// Positions are measured from the centre in radii of the primitive circle, east and north. Angles
// are degrees.
//
// Example: a line on the equal angle net, and back.
//
//     namespace qd = quandrel::api;
//     const qd::NetPoint point = qd::ProjectedLine({0, 90}, qd::Projection::kEqualAngle);
//     std::cout << point.east << '\n'; // -> 1
//     const qd::Line line = qd::LineAtPoint({0, 0}, qd::Projection::kEqualAngle);
//     std::cout << line.plunge << '\n'; // -> 90
//     const qd::NetLine trace = qd::TraceOfPlane({50, 30}, qd::Projection::kEqualArea);
//     std::cout << std::hypot(trace[0].east, trace[0].north) << '\n'; // -> 1

#pragma once

#include "quandrel/orientation.h"

#include <span>
#include <vector>

namespace quandrel::api {

enum class Projection {
    kEqualArea = 1,  ///< Lambert's azimuthal projection, the Schmidt net
    kEqualAngle = 2, ///< the stereographic projection, the Wulff net
};

/// A position on the net.
struct NetPoint {
    double east = 0;
    double north = 0;

    friend bool operator==(const NetPoint&, const NetPoint&) = default;
};

// An array of n x 2 doubles is a span of these.
static_assert(sizeof(NetPoint) == 2 * sizeof(double));

/// The vertices of a line on the net.
using NetLine = std::vector<NetPoint>;

/// Position of a line: within the primitive or on it. A line that points up is plotted at its
/// opposite. Inverse: LineAtPoint.
///
/// Formula: the distance from the centre is sqrt(1 - cos c), or tan(c/2), c the angle to the
/// vertical. J. P. Snyder, Map Projections - A Working Manual, USGS Prof. Paper 1395 (1987), ch. 24
/// and 21.
[[nodiscard]] NetPoint ProjectedLine(const Line& line, Projection projection);

/// ProjectedLine for n lines.
///
/// @param[out] points  n points
void ProjectLines(std::span<const Line> lines, Projection projection, std::span<NetPoint> points);

/// The line at a point: plunge 0 to 90. A point outside the primitive, less than twice its radius
/// from the centre, is reflected through the rim to the other side and has a negative plunge.
/// Inverse: ProjectedLine.
[[nodiscard]] Line LineAtPoint(const NetPoint& point, Projection projection);

/// The trace of a plane, its great circle: from one end of the strike over the steepest point to
/// the other, in steps of a degree on the sphere. For a horizontal plane it is the primitive,
/// closed.
[[nodiscard]] NetLine TraceOfPlane(const Plane& plane, Projection projection);

/// The trace of a cone, a small circle, as open lines; the first starts and the last ends at the
/// same vertex. Where the cone crosses the primitive, the trace continues on the opposite side.
///
/// @param halfAngle  between the axis and the cone, above 0 and below 180
[[nodiscard]] std::vector<NetLine> TraceOfCone(const Line& axis, double halfAngle,
                                               Projection projection);

} // namespace quandrel::api
