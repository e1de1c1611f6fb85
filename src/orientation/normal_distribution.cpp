// SPDX-License-Identifier: MIT

#include "orientation/normal_distribution.h"

#include <cmath>
#include <numbers>

namespace quandrel {

namespace {

/// Of a probability up to a half, to 4.5e-4.
double RoughLowerQuantile(double probability) {
    const double t = std::sqrt(-2 * std::log(probability));
    const double above = 2.515517 + t * (0.802853 + t * 0.010328);
    const double below = 1 + t * (1.432788 + t * (0.189269 + t * 0.001308));
    return above / below - t;
}

} // namespace

double NormalBelow(double value) {
    return std::erfc(-value / std::numbers::sqrt2) / 2;
}

double NormalQuantile(double probability) {
    if (probability > 0.5) {
        return -NormalQuantile(1 - probability);
    }
    double value = RoughLowerQuantile(probability);
    // An error e becomes about e^3: two steps would do.
    for (int step = 0; step < 3; ++step) {
        const double density =
            std::exp(-value * value / 2) * std::numbers::inv_sqrtpi / std::numbers::sqrt2;
        const double newton = (NormalBelow(value) - probability) / density;
        value -= newton / (1 + value * newton / 2);
    }
    return value;
}

} // namespace quandrel
