// SPDX-License-Identifier: MIT
//
// Places on the net in degrees, as fields of densities use them.

#pragma once

#include "orientation/angles.h"

#include <cmath>

namespace quandrel {

/// A place on the net, in degrees.
struct NetPlace {
    double plunge = 0; ///< 0 to 90
    double trend = 0;  ///< 0 to 360

    friend bool operator==(const NetPlace&, const NetPlace&) = default;
};

/// The unit vector of a place, pointing down.
[[nodiscard]] inline Direction DirectionOf(const NetPlace& place) {
    const double plunge = DegToRad(place.plunge);
    const double trend = DegToRad(place.trend);
    return {std::cos(plunge) * std::cos(trend), std::cos(plunge) * std::sin(trend),
            std::sin(plunge)};
}

/// The place of a vector of any length above 0; its plunge is negative where the vector points up.
[[nodiscard]] inline NetPlace PlaceOf(const Direction& direction) {
    constexpr double kFullTurn = 360;
    const double trend = RadToDeg(std::atan2(direction.m, direction.l));
    return {RadToDeg(std::atan2(direction.n, std::hypot(direction.l, direction.m))),
            trend < 0 ? trend + kFullTurn : trend};
}

} // namespace quandrel
