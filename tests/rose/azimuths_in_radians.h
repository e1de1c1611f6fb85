// SPDX-License-Identifier: MIT
//
// Azimuths that are given in degrees, in radians.

#pragma once

#include <numbers>
#include <vector>

namespace quandrel {

inline constexpr double kPerDegree = std::numbers::pi / 180;

inline std::vector<double> Radians(const std::vector<double>& degrees) {
    std::vector<double> angles;
    for (const double one : degrees) {
        angles.push_back(one * kPerDegree);
    }
    return angles;
}

} // namespace quandrel
