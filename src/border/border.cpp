// SPDX-License-Identifier: MIT

#include "border/border.h"

#include "orientation/number_text.h"

#include <cmath>
#include <stdexcept>
#include <string>

namespace quandrel::api {

namespace {

std::string TextOf(double value) {
    return std::isfinite(value) ? FormatNumber(value, "General Number")
                                : std::string(std::isnan(value) ? "NaN" : "infinity");
}

} // namespace

double Finite(double value, std::string_view name) {
    if (!std::isfinite(value)) {
        throw std::invalid_argument(std::string(name) + " is not finite: " + TextOf(value));
    }
    return value;
}

double Within(double value, double least, double most, std::string_view name) {
    if (!(value >= least && value <= most)) {
        throw std::invalid_argument(std::string(name) + " is not from " + TextOf(least) + " to "
                                    + TextOf(most) + ": " + TextOf(value));
    }
    return value;
}

void SameLength(std::size_t a, std::size_t b, std::string_view names) {
    if (a != b) {
        throw std::invalid_argument(std::string(names) + " have different lengths: "
                                    + std::to_string(a) + " and " + std::to_string(b));
    }
}

void NotNegative(std::span<const double> values, std::string_view name) {
    for (const double value : values) {
        if (Finite(value, name) < 0) {
            throw std::invalid_argument(std::string(name) + " is negative: " + TextOf(value));
        }
    }
}

double AzimuthIn(double degrees, std::string_view name) {
    return WrappedAngle(DegToRad(Finite(degrees, name)));
}

RadianLine In(const Line& line) {
    return {DegToRad(Within(line.plunge, -90, 90, "plunge")), AzimuthIn(line.trend, "trend")};
}

RadianPlane In(const Plane& plane) {
    return {DegToRad(Within(plane.dip, -90, 90, "dip")),
            AzimuthIn(plane.dipDirection, "dip direction")};
}

Direction DirectionOf(const Line& line) {
    const RadianLine in = In(line);
    return LineToCosines(in.plunge, in.trend);
}

Direction AxisOf(const Line& line) {
    const RadianLine in = In(line);
    return LineToCosines(std::abs(in.plunge), in.trend);
}

Direction NormalOf(const Plane& plane) {
    const RadianPlane in = In(plane);
    RadianLine pole;
    PoleOfPlane(in.dip, in.dipDirection, pole.plunge, pole.trend);
    return LineToCosines(pole.plunge, pole.trend);
}

double WithinTurn(double degrees) {
    constexpr double kFullTurn = 360;
    const double rest = std::fmod(degrees, kFullTurn);
    const double azimuth = rest < 0 ? rest + kFullTurn : rest;
    return azimuth < kFullTurn ? azimuth + 0.0 : 0; // the sum turns -0 into 0
}

double AzimuthOut(double radians) {
    const double degrees = RadToDeg(WrappedAngle(radians));
    return degrees < 360 ? degrees : degrees - 360;
}

Line LineOut(double plunge, double trend) {
    return {RadToDeg(plunge), AzimuthOut(trend)};
}

Plane PlaneOut(double dip, double dipDirection) {
    return {RadToDeg(dip), AzimuthOut(dipDirection)};
}

} // namespace quandrel::api
