// SPDX-License-Identifier: MIT

#include "quandrel/notation.h"

#include "border/border.h"
#include "orientation/notation.h"
#include "orientation/number_text.h"
#include "statistics/orientation_notation.h"

#include <stdexcept>

namespace quandrel::api {

namespace {

AzimuthNotation NotationOf(bool isQuadrant) {
    return isQuadrant ? AzimuthNotation::kQuadrant : AzimuthNotation::kAzimuth;
}

/// An azimuth from 0 to below 360.
double Turned(double degrees) {
    WrapDegrees(degrees);
    return degrees < 360 ? degrees : 0;
}

} // namespace

std::optional<double> AzimuthOfText(std::string_view text) {
    const std::optional<double> number = ReadNumber(text);
    const std::optional<double> azimuth = number ? number : QuadrantDegrees(text);
    return azimuth ? std::optional(Turned(*azimuth)) : std::nullopt;
}

std::optional<double> DipDirectionOf(double strike, std::string_view sense) {
    double dipDirection = 0;
    return DipDirectionFromSense(Finite(strike, "strike"), sense, dipDirection)
                   == SenseVerdict::kFound
               ? std::optional(Turned(dipDirection))
               : std::nullopt;
}

double DipDirectionOf(double strike) {
    return Turned(RightHandDipDirection(Finite(strike, "strike")));
}

double StrikeOf(const Plane& plane) {
    return Turned(Finite(plane.dipDirection, "dip direction") - 90);
}

std::string TextOf(const Plane& plane, const PlaneStyle& style) {
    const RadianPlane in = In(plane);
    OrientationOptions options;
    options.kind = OrientationKind::kPlane;
    options.planeConvention = static_cast<int>(style.convention);
    options.notation = NotationOf(style.isQuadrant);
    options.separator = style.separator;
    if (PlaneConventionCaption(options.planeConvention).empty()) {
        throw std::invalid_argument("a plane convention is invalid");
    }
    return TextOfPlane(in.dip, in.dipDirection, options);
}

std::string TextOf(const Line& line, const LineStyle& style) {
    const RadianLine in = In(line);
    OrientationOptions options;
    options.lineOrder = style.convention == LineConvention::kTrendPlunge ? LineOrder::kTrendPlunge
                                                                         : LineOrder::kPlungeTrend;
    options.notation = NotationOf(style.isQuadrant);
    options.separator = style.separator;
    return TextOfLine(in.plunge, in.trend, options);
}

} // namespace quandrel::api
