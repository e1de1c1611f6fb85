// SPDX-License-Identifier: MIT

#include "quandrel/orientation.h"

#include "border/border.h"
#include "orientation/attitude.h"
#include "orientation/notation.h"

#include <algorithm>
#include <stdexcept>

namespace quandrel::api {

Line PoleOf(const Plane& plane) {
    static_cast<void>(In(plane)); // checks it
    const Attitude pole = PoleInDegrees({plane.dip, WithinTurn(plane.dipDirection)});
    return {pole.dip, WithinTurn(pole.azimuth)};
}

void PolesOf(std::span<const Plane> planes, std::span<Line> poles) {
    SameLength(planes.size(), poles.size(), "planes and poles");
    std::ranges::transform(planes, poles.begin(), PoleOf);
}

Plane PlaneOfPole(const Line& pole) {
    const Line plane = PoleOf({pole.plunge, pole.trend});
    return {plane.plunge, plane.trend};
}

Vector VectorOf(const Line& line) {
    const Direction direction = DirectionOf(line);
    return {direction.l, direction.m, direction.n};
}

void VectorsOf(std::span<const Line> lines, std::span<Vector> vectors) {
    SameLength(lines.size(), vectors.size(), "lines and vectors");
    std::ranges::transform(lines, vectors.begin(), VectorOf);
}

Line LineOf(const Vector& vector) {
    const Direction direction = {Finite(vector.north, "north"), Finite(vector.east, "east"),
                                 Finite(vector.down, "down")};
    if (direction.l == 0 && direction.m == 0 && direction.n == 0) {
        throw std::invalid_argument("a vector of length 0 has no line");
    }
    RadianLine line;
    CosinesToLine(direction, line.plunge, line.trend);
    return LineOut(line.plunge, line.trend);
}

void LinesOf(std::span<const Vector> vectors, std::span<Line> lines) {
    SameLength(vectors.size(), lines.size(), "vectors and lines");
    std::ranges::transform(vectors, lines.begin(), LineOf);
}

double AngleBetween(const Line& a, const Line& b) {
    const RadianLine first = In(a);
    const RadianLine second = In(b);
    double angle = 0;
    AngleBetweenLines(first.plunge, first.trend, second.plunge, second.trend, angle,
                      LineAngle::kAcute);
    return RadToDeg(angle);
}

Line LineAtPitch(const Plane& plane, double pitch) {
    Within(plane.dip, 0, 90, "dip");
    Within(pitch, 0, 360, "pitch");
    const RadianPlane in = In(plane);
    RadianLine line;
    PlaneHadeToPlunge(in.dip, in.dipDirection, DegToRad(pitch), line.plunge, line.trend);
    return LineOut(line.plunge, line.trend);
}

Line LineAtTrend(const Plane& plane, double trend) {
    Within(plane.dip, 0, 90, "dip");
    const RadianPlane in = In(plane);
    RadianLine line;
    PlaneTrendToLine(in.dip, in.dipDirection, AzimuthIn(trend, "trend"), line.plunge, line.trend);
    return LineOut(line.plunge, line.trend);
}

} // namespace quandrel::api
