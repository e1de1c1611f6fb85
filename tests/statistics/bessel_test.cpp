// SPDX-License-Identifier: MIT

#include "statistics/bessel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace quandrel {
namespace {

/// Mean over a turn of exp(z (cos - 1)) times a function of the cosine: the trapezoid rule, exact
/// for these once its points are closer than the width of the peak.
template <class Function>
double MeanOverTurn(double z, Function function) {
    const int points = 64 + static_cast<int>(40 * std::sqrt(z));
    double sum = 0;
    for (int i = 0; i < points; ++i) {
        const double half = std::sin(std::numbers::pi * i / points); // of half the angle
        sum += std::exp(-2 * z * half * half) * function(half * half);
    }
    return sum / points;
}

TEST(ScaledBesselOf, IsTheMeanOfExponentialsOverATurn) {
    for (double z = 1e-6; z < 1e6; z *= 1.9) {
        const ScaledBessel bessel = ScaledBesselOf(z);
        const double i0 = MeanOverTurn(z, [](double) { return 1.0; });
        // 1 - cos = 2 sin^2 of half the angle.
        const double difference = MeanOverTurn(z, [](double square) { return 2 * square; });
        EXPECT_NEAR(bessel.i0, i0, 3e-13 * i0) << z;
        EXPECT_NEAR(bessel.difference, difference, 5e-13 * difference) << z;
        EXPECT_NEAR(bessel.i1, i0 - difference, 3e-13 * i0) << z;
        EXPECT_NEAR(bessel.i1OverArgument * z, bessel.i1, 1e-15 * i0) << z;
    }
    EXPECT_EQ(ScaledBesselOf(0).i0, 1);
    EXPECT_EQ(ScaledBesselOf(0).i1OverArgument, 0.5);
}

} // namespace
} // namespace quandrel
