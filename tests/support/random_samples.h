// SPDX-License-Identifier: MIT
//
// Random samples of distributions on the sphere and the circle, for tests and trials.
//
// Distributions on the sphere are about an axis along n (down), where they have one; the axes of
// Bingham's lie along the coordinate axes.

#pragma once

#include "orientation/direction_vectors.h"
#include "orientation/random_stream.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace quandrel {

/// n times what a procedure draws.
template <class Draw>
auto SampleOf(int n, Draw draw) {
    std::vector<decltype(draw())> sample;
    sample.reserve(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) {
        sample.push_back(draw());
    }
    return sample;
}

/// An azimuth from 0, below a full turn.
inline double UniformAzimuth(RandomStream& random) {
    return 2 * std::numbers::pi * random.Uniform();
}

/// A direction with the component n, at a random azimuth.
inline Direction AtComponent(RandomStream& random, double n) {
    const double radius = std::sqrt(std::max((1 - n) * (1 + n), 0.0));
    const double azimuth = UniformAzimuth(random);
    return {radius * std::cos(azimuth), radius * std::sin(azimuth), n};
}

/// Uniform on the whole sphere.
inline Direction UniformDirection(RandomStream& random) {
    return AtComponent(random, 2 * random.Uniform() - 1);
}

/// Fisher's distribution, by inversion of the distribution function of its component n.
inline Direction FisherDirection(RandomStream& random, double kappa) {
    const double share = random.Uniform();
    const double n = 1 + std::log(share + (1 - share) * std::exp(-2 * kappa)) / kappa;
    return AtComponent(random, n);
}

/// Bingham's distribution, of the density exp(k1 l^2 + k2 m^2), k1, k2 <= 0, by rejection from
/// uniform directions. Watson's cluster has k1 = k2 = -kappa, his girdle k2 = 0 and its pole along
/// l.
inline Direction BinghamDirection(RandomStream& random, double k1, double k2) {
    for (;;) {
        const Direction one = UniformDirection(random);
        if (random.Uniform() < std::exp(k1 * one.l * one.l + k2 * one.m * one.m)) {
            return one;
        }
    }
}

/// Watson's cluster.
inline Direction WatsonDirection(RandomStream& random, double kappa) {
    return BinghamDirection(random, -kappa, -kappa);
}

/// Standard normal: G. E. P. Box, M. E. Muller (1958).
inline double NormalNumber(RandomStream& random) {
    const double length = std::sqrt(-2 * std::log(1 - random.Uniform()));
    return length * std::cos(UniformAzimuth(random));
}

/// Normal in the plane that touches the sphere at the axis, with deviations along l and m,
/// projected to the sphere from its centre.
inline Direction ElongatedDirection(RandomStream& random, double deviation1, double deviation2) {
    const double l = deviation1 * NormalNumber(random);
    const double m = deviation2 * NormalNumber(random);
    return Normalised({l, m, 1});
}

/// An azimuth of a von Mises distribution about 0: D. J. Best, N. I. Fisher (1979), Appl. Statist.
/// 28, 152-157.
inline double VonMisesAzimuth(RandomStream& random, double kappa) {
    const double tau = 1 + std::sqrt(1 + 4 * kappa * kappa);
    const double rho = (tau - std::sqrt(2 * tau)) / (2 * kappa);
    const double r = (1 + rho * rho) / (2 * rho);
    for (;;) {
        const double z = std::cos(std::numbers::pi * random.Uniform());
        const double f = (1 + r * z) / (r + z);
        const double c = kappa * (r - f);
        const double u = 1 - random.Uniform();
        if (c * (2 - c) > u || std::log(c / u) + 1 >= c) {
            return (random.Uniform() < 0.5 ? -1 : 1) * std::acos(std::clamp(f, -1.0, 1.0));
        }
    }
}

} // namespace quandrel
