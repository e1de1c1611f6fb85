// SPDX-License-Identifier: MIT

#include "quandrel/rotation.h"

#include "border/border.h"
#include "rotation/rotation_kernels.h"

#include <algorithm>

namespace quandrel::api {

Line RotatedLine(const Line& line, const Line& axis, double angle) {
    const RadianLine in = In(line);
    const RadianLine about = In(axis);
    RadianLine out;
    RotateLineAboutAxis(in.plunge, in.trend, AzimuthIn(angle, "angle"), about.plunge, about.trend,
                        out.plunge, out.trend);
    return LineOut(out.plunge, out.trend);
}

Plane RotatedPlane(const Plane& plane, const Line& axis, double angle) {
    const RadianPlane in = In(plane);
    const RadianLine about = In(axis);
    RadianPlane out;
    RotatePlaneAboutAxis(in.dip, in.dipDirection, about.plunge, about.trend,
                         AzimuthIn(angle, "angle"), out.dip, out.dipDirection);
    return PlaneOut(out.dip, out.dipDirection);
}

void RotateLines(std::span<const Line> lines, const Line& axis, double angle,
                 std::span<Line> rotated) {
    SameLength(lines.size(), rotated.size(), "lines and rotated lines");
    std::ranges::transform(lines, rotated.begin(), [&axis, angle](const Line& line) {
        return RotatedLine(line, axis, angle);
    });
}

void RotatePlanes(std::span<const Plane> planes, const Line& axis, double angle,
                  std::span<Plane> rotated) {
    SameLength(planes.size(), rotated.size(), "planes and rotated planes");
    std::ranges::transform(planes, rotated.begin(), [&axis, angle](const Plane& plane) {
        return RotatedPlane(plane, axis, angle);
    });
}

Line UnfoldedLine(const Line& line, const Plane& bed, const Line& foldAxis) {
    const RadianLine in = In(line);
    const RadianPlane plane = In(bed);
    const RadianLine axis = In(foldAxis);
    RadianLine out;
    UnfoldRow(plane.dip, plane.dipDirection, axis.plunge, axis.trend, in.plunge, in.trend,
              out.plunge, out.trend);
    return LineOut(out.plunge, out.trend);
}

AxisRotation RotationBetween(const Plane& from, const Plane& to) {
    const RadianPlane first = In(from);
    const RadianPlane second = In(to);
    RadianLine axis;
    double angle = 0;
    RotationBetweenPlanes(first.dip, first.dipDirection, second.dip, second.dipDirection,
                          axis.plunge, axis.trend, angle);
    return {LineOut(axis.plunge, axis.trend), RadToDeg(angle)};
}

} // namespace quandrel::api
