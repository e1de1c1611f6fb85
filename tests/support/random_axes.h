// SPDX-License-Identifier: MIT
//
// Random directions and axes of known distributions, for simulations. The generator of the standard
// is portable, its distributions are not, so these are written out.
//
// All are about (0, 0, 1); the axes of Bingham's lie along the coordinate axes.

#pragma once

#include "statistics/fabric_kernels.h"

#include <cmath>
#include <cstdint>
#include <numbers>
#include <random>

namespace quandrel {

class RandomAxes {
public:
    explicit RandomAxes(std::uint64_t seed)
        : random_(seed) {}

    /// Evenly in [0, 1).
    double Even() { return static_cast<double>(random_() >> 11U) * 0x1p-53; }

    /// Standard normal: G. E. P. Box, M. E. Muller (1958).
    double Normal() {
        const double length = std::sqrt(-2 * std::log(1 - Even()));
        return length * std::cos(2 * std::numbers::pi * Even());
    }

    /// Evenly on the sphere.
    Direction Uniform() { return AtHeight(2 * Even() - 1); }

    /// Density exp(kappa x3): the inverse of its distribution function.
    Direction Fisher(double kappa) {
        const double even = Even();
        return AtHeight(1 + std::log(even + (1 - even) * std::exp(-2 * kappa)) / kappa);
    }

    /// Density exp(k1 x1^2 + k2 x2^2), k1, k2 <= 0: by rejection of uniform ones. Watson's of
    /// concentration kappa > 0 has k1 = k2 = -kappa.
    Direction Bingham(double k1, double k2) {
        for (;;) {
            const Direction axis = Uniform();
            if (Even() < std::exp(k1 * axis.l * axis.l + k2 * axis.m * axis.m)) {
                return axis;
            }
        }
    }

    Direction Watson(double kappa) { return Bingham(-kappa, -kappa); }

    /// Normal in the tangential plane at (0, 0, 1), projected to the sphere from its centre.
    Direction Elongated(double deviation1, double deviation2) {
        const double x = deviation1 * Normal();
        const double y = deviation2 * Normal();
        const double length = std::sqrt(x * x + y * y + 1);
        return {x / length, y / length, 1 / length};
    }

    /// n of what a call yields, each of weight 1.
    template <class Draw>
    WeightedDirections Sample(int n, Draw draw) {
        WeightedDirections sample;
        for (int i = 0; i < n; ++i) {
            sample.directions.push_back(draw(*this));
            sample.weights.push_back(1);
        }
        return sample;
    }

private:
    Direction AtHeight(double height) {
        const double radius = std::sqrt((1 - height) * (1 + height));
        const double turn = 2 * std::numbers::pi * Even();
        return {radius * std::cos(turn), radius * std::sin(turn), height};
    }

    std::mt19937_64 random_;
};

} // namespace quandrel
