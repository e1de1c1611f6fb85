// SPDX-License-Identifier: MIT

#include "orientation/attitude.h"

#include "orientation/notation.h"

#include <cmath>

namespace quandrel {

namespace {

constexpr double kHalfTurn = 180;
constexpr double kFullTurn = 360;

double WholeAzimuth(double degrees) {
    double azimuth = WholeDegree(degrees);
    if (azimuth < 0 || azimuth > kFullTurn) {
        WrapDegrees(azimuth);
    }
    return azimuth;
}

double OppositeOf(double azimuth) {
    return azimuth < kHalfTurn ? azimuth + kHalfTurn : azimuth - kHalfTurn;
}

} // namespace

std::int32_t WholeDegree(double degrees) {
    // Most are whole already, which is faster to test than to round.
    const auto whole = static_cast<std::int32_t>(degrees);
    return whole == degrees ? whole : static_cast<std::int32_t>(RoundToEven(degrees));
}

bool IsWhole(const Attitude& attitude) {
    return attitude.dip == WholeDegree(attitude.dip)
           && attitude.azimuth == WholeDegree(attitude.azimuth);
}

Attitude RoundedAttitude(const Attitude& attitude, bool isPlane) {
    const Attitude rounded{WholeDegree(attitude.dip), WholeAzimuth(attitude.azimuth)};
    if (isPlane || rounded.dip != 0 || !(attitude.dip < 0)) {
        return rounded;
    }
    return {0, OppositeOf(rounded.azimuth)};
}

Attitude PoleInDegrees(const Attitude& plane) {
    return {90 - std::abs(plane.dip), OppositeOf(plane.azimuth)};
}

double ToMicrodegree(double degrees) {
    constexpr double kMicrodegrees = 1e6;
    return RoundToEven(degrees * kMicrodegrees) / kMicrodegrees;
}

Attitude ToMicrodegree(const Attitude& attitude) {
    return {ToMicrodegree(attitude.dip), ToMicrodegree(attitude.azimuth)};
}

} // namespace quandrel
