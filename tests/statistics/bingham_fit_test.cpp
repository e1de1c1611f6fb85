// SPDX-License-Identifier: MIT

#include "statistics/bessel.h"
#include "statistics/bingham_fit.h"

#include <gtest/gtest.h>

#include <algorithm>
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

/// Constant and moments by an independent way over an octant: the cosine x1 to e1 by the double
/// exponential rule (u = tanh(pi/2 sinh s)), the angle about e1 by the trapezoid rule.
BinghamIntegrals ByQuadrature(double k1, double k2) {
    const double step = std::min(1.0 / 32, 0.3 / std::sqrt(1 - k1));
    const int turns = 24 + static_cast<int>(4 * std::sqrt(1 - k2));
    double one = 0;
    double square1 = 0;
    double square2 = 0;
    for (double s = 0; s < 3.6; s += step) {
        const double lift = std::numbers::pi / 2 * std::sinh(s);
        const double u = std::tanh(lift);
        const double slope = std::cosh(s) / (std::cosh(lift) * std::cosh(lift));
        const double weight = (s == 0 ? 0.5 : 1) * slope * std::exp(k1 * u * u);
        const double rest = 1 / (std::cosh(lift) * std::cosh(lift)); // 1 - u^2
        for (int i = 0; i <= turns; ++i) {
            const double sine = std::sin(std::numbers::pi / 2 * i / turns);
            const double x2 = rest * sine * sine;
            const double part = weight * std::exp(k2 * x2) * (i == 0 || i == turns ? 0.5 : 1);
            one += part;
            square1 += part * u * u;
            square2 += part * x2;
        }
    }
    BinghamIntegrals integrals;
    // An integral over u from 0 to 1, a mean over the angle.
    integrals.constant = one * step * std::numbers::pi / 2 / turns;
    integrals.squares = {square1 / one, square2 / one};
    return integrals;
}

constexpr std::array<std::array<double, 2>, 12> kConcentrations = {{{-1e-3, -5e-4},
                                                                    {-1, -1},
                                                                    {-3, -3},
                                                                    {-10, 0},
                                                                    {-20, -5},
                                                                    {-30, -2},
                                                                    {-60, -59},
                                                                    {-400, -0.5},
                                                                    {-1000, -40},
                                                                    {-5000, -4000},
                                                                    {-30000, -7},
                                                                    {-200000, -150}}};

TEST(BinghamIntegralsOf, AreThoseOfAnotherQuadrature) {
    for (const auto& [k1, k2] : kConcentrations) {
        const BinghamIntegrals found = BinghamIntegralsOf(k1, k2);
        const BinghamIntegrals expected = ByQuadrature(k1, k2);
        EXPECT_NEAR(found.constant / expected.constant, 1, 1e-12) << k1 << " " << k2;
        EXPECT_NEAR(found.squares[0] / expected.squares[0], 1, 1e-12) << k1 << " " << k2;
        EXPECT_NEAR(found.squares[1] / expected.squares[1], 1, 1e-12) << k1 << " " << k2;
    }
}

TEST(BinghamIntegralsOf, OfEqualConcentrationsAreDawsonsIntegral) {
    // c = integral of exp(k (1 - u^2)) over u from 0 to 1, by its series in k.
    for (const double k : {-0.1, -1.0, -5.0}) {
        double term = 1;
        double sum = 0;
        for (int i = 0; i < 60; ++i) {
            // The mean of (1 - u^2)^i is 2 4 ... 2i / (3 5 ... 2i + 1).
            sum += term;
            term *= k / (i + 1) * (2.0 * i + 2) / (2.0 * i + 3);
        }
        EXPECT_NEAR(BinghamIntegralsOf(k, k).constant, sum, 1e-13) << k;
    }
}

TEST(BinghamIntegralsOf, CovariancesAreTheSlopesOfTheMoments) {
    for (const auto& [k1, k2] : {std::array{-20.0, -5.0}, {-3.0, -2.9}, {-400.0, -0.5}}) {
        const double step = 1e-4;
        const auto covariances = BinghamIntegralsOf(k1, k2).covariances;
        const auto up1 = BinghamIntegralsOf(k1 + step, k2).squares;
        const auto down1 = BinghamIntegralsOf(k1 - step, k2).squares;
        const auto up2 = BinghamIntegralsOf(k1, k2 + step).squares;
        const auto down2 = BinghamIntegralsOf(k1, k2 - step).squares;
        EXPECT_NEAR(covariances[0], (up1[0] - down1[0]) / (2 * step), 1e-8);
        EXPECT_NEAR(covariances[1], (up1[1] - down1[1]) / (2 * step), 1e-8);
        EXPECT_NEAR(covariances[1], (up2[0] - down2[0]) / (2 * step), 1e-8);
        EXPECT_NEAR(covariances[2], (up2[1] - down2[1]) / (2 * step), 1e-8);
    }
}

TEST(FitBingham, FindsTheConcentrationsOfMomentsByAnotherQuadrature) {
    for (const auto& [k1, k2] : kConcentrations) {
        const auto squares = ByQuadrature(k1, k2).squares;
        const auto found = FitBingham(squares[0], squares[1]);
        ASSERT_TRUE(found) << k1 << " " << k2;
        EXPECT_NEAR((*found)[0], k1, 1e-8 * std::abs(k1) + 1e-9) << k1 << " " << k2;
        EXPECT_NEAR((*found)[1], k2, 1e-8 * std::abs(k2) + 1e-9) << k1 << " " << k2;
    }
}

TEST(FitBingham, OfUniformAxesIsNothing) {
    const auto found = FitBingham(1.0 / 3, 1.0 / 3);
    ASSERT_TRUE(found);
    EXPECT_NEAR((*found)[0], 0, 1e-12);
    EXPECT_NEAR((*found)[1], 0, 1e-12);
}

TEST(FitBingham, AxesOnACircleOrALineHaveNone) {
    EXPECT_FALSE(FitBingham(0, 0.4));
    EXPECT_FALSE(FitBingham(1e-9, 0.4));
    EXPECT_FALSE(FitBingham(1e-9, 1e-9));
    EXPECT_TRUE(FitBingham(1e-6, 1e-6));
    EXPECT_TRUE(FitBingham(1e-6, 0.4999));
}

} // namespace
} // namespace quandrel
