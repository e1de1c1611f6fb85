// SPDX-License-Identifier: MIT
//
// Constants, moments and fits of Bingham's distribution against other ways of computing them.

#include "statistics/bingham_distribution.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>
#include <vector>

namespace quandrel {
namespace {

/// Constant and moments by an independent way over an octant: the cosine x1 to e1 by the double
/// exponential rule (u = tanh(pi/2 sinh s)), the angle about e1 by the trapezoid rule.
BinghamMoments ByQuadrature(double k1, double k2) {
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
    BinghamMoments moments;
    // An integral over u from 0 to 1, a mean over the angle.
    moments.constant = one * step * std::numbers::pi / 2 / turns;
    moments.squares = {square1 / one, square2 / one};
    return moments;
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

TEST(BinghamMomentsOf, AreThoseOfAnotherQuadrature) {
    for (const auto& [k1, k2] : kConcentrations) {
        const BinghamMoments found = BinghamMomentsOf({k1, k2});
        const BinghamMoments expected = ByQuadrature(k1, k2);
        EXPECT_NEAR(found.constant / expected.constant, 1, 1e-12) << k1 << " " << k2;
        EXPECT_NEAR(found.squares[0] / expected.squares[0], 1, 1e-12) << k1 << " " << k2;
        EXPECT_NEAR(found.squares[1] / expected.squares[1], 1, 1e-12) << k1 << " " << k2;
    }
}

TEST(BinghamMomentsOf, OfEqualConcentrationsAreDawsonsIntegral) {
    // c = integral of exp(k (1 - u^2)) over u from 0 to 1, by its series in k.
    for (const double k : {-0.1, -1.0, -5.0}) {
        double term = 1;
        double sum = 0;
        for (int i = 0; i < 60; ++i) {
            // The mean of (1 - u^2)^i is 2 4 ... 2i / (3 5 ... 2i + 1).
            sum += term;
            term *= k / (i + 1) * (2.0 * i + 2) / (2.0 * i + 3);
        }
        EXPECT_NEAR(BinghamMomentsOf({k, k}).constant, sum, 1e-13) << k;
    }
}

TEST(BinghamMomentsOf, CovariancesAreTheSlopesOfTheMoments) {
    for (const auto& [k1, k2] :
         {std::array{-20.0, -5.0}, {-14.0, -3.0}, {-3.0, -2.9}, {-400.0, -0.5}}) {
        const double step = 1e-4;
        const auto covariances = BinghamMomentsOf({k1, k2}).covariances;
        const auto up1 = BinghamMomentsOf({k1 + step, k2}).squares;
        const auto down1 = BinghamMomentsOf({k1 - step, k2}).squares;
        const auto up2 = BinghamMomentsOf({k1, k2 + step}).squares;
        const auto down2 = BinghamMomentsOf({k1, k2 - step}).squares;
        EXPECT_NEAR(covariances[0], (up1[0] - down1[0]) / (2 * step), 1e-8);
        EXPECT_NEAR(covariances[1], (up1[1] - down1[1]) / (2 * step), 1e-8);
        EXPECT_NEAR(covariances[1], (up2[0] - down2[0]) / (2 * step), 1e-8);
        EXPECT_NEAR(covariances[2], (up2[1] - down2[1]) / (2 * step), 1e-8);
    }
}

/// The constant and the means of x1^2 and x2^2 by the midpoint rule on an even grid of cos and
/// azimuth, extrapolated in the former.
std::array<double, 3> BySums(double k1, double k2) {
    const auto sumsOf = [&](int steps) {
        std::array<double, 3> sums{};
        constexpr int turns = 64;
        for (int i = 0; i < steps; ++i) {
            const double u = (i + 0.5) / steps;
            for (int j = 0; j < turns; ++j) {
                const double angle = 2 * std::numbers::pi * j / turns;
                const double first = (1 - u * u) * std::pow(std::cos(angle), 2);
                const double second = (1 - u * u) * std::pow(std::sin(angle), 2);
                const double density = std::exp(k1 * first + k2 * second) / steps / turns;
                sums[0] += density;
                sums[1] += first * density;
                sums[2] += second * density;
            }
        }
        return sums;
    };
    // The errors are of the orders 2 and 4 of the step.
    const auto coarse = sumsOf(500);
    const auto middle = sumsOf(1000);
    const auto fine = sumsOf(2000);
    std::array<double, 3> best{};
    for (std::size_t i = 0; i < 3; ++i) {
        const double one = (4 * middle[i] - coarse[i]) / 3;
        const double other = (4 * fine[i] - middle[i]) / 3;
        best[i] = (16 * other - one) / 15;
    }
    return {best[0], best[1] / best[0], best[2] / best[0]};
}

TEST(BinghamMomentsOf, AreThoseOfAdaptiveQuadrature) {
    // Both integrals by adaptive quadrature with 20 digits.
    struct Row {
        double k1, k2, constant, first, second;
    };

    const std::vector<Row> rows = {
        {-1, -0.5, 0.6269904425667304, 0.2704109665075896, 0.327097652946905},
        {-5, -5, 0.1157050889400774, 0.1178668893647839, 0.1178668893647839},
        {-20, -5, 0.05435837072451943, 0.02583757104820509, 0.1179697330604867},
        {-30, -2, 0.07607790329133453, 0.01699071568373165, 0.275003027987407},
        {-80, -0.25, 0.08784691316996515, 0.006259181326237733, 0.4660673316381772},
        {-200, -70, 0.004246484397757461, 0.002506360430030434, 0.00719554131513157}};
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.k1 << " " << row.k2);
        const BinghamMoments moments = BinghamMomentsOf({row.k1, row.k2});
        EXPECT_NEAR(moments.constant / row.constant, 1, 1e-13);
        EXPECT_NEAR(moments.squares[0] / row.first, 1, 1e-13);
        EXPECT_NEAR(moments.squares[1] / row.second, 1, 1e-13);
    }
}

TEST(BinghamMomentsOf, AreThoseOfSumsOverTheSphere) {
    for (const auto& [k1, k2] : {std::pair(-0.3, -0.1), {-7.0, -1.0}, {-25.0, -20.0}}) {
        SCOPED_TRACE(testing::Message() << k1 << " " << k2);
        const auto [constant, first, second] = BySums(k1, k2);
        const BinghamMoments moments = BinghamMomentsOf({k1, k2});
        EXPECT_NEAR(moments.constant / constant, 1, 1e-10);
        EXPECT_NEAR(moments.squares[0] / first, 1, 1e-10);
        EXPECT_NEAR(moments.squares[1] / second, 1, 1e-10);
    }
}

TEST(BinghamMomentsOf, OfWatsonsDistributionsAreHis) {
    for (const double kappa : {0.5, 4.0, 59.0, 61.0, 3000.0, 8e5}) {
        // A cluster: 1 - c^2 is shared by x1^2 and x2^2, and exp(-kappa) is taken out.
        const BinghamMoments cluster = BinghamMomentsOf({-kappa, -kappa});
        EXPECT_NEAR(std::log(cluster.constant), WatsonLogConstant(kappa) - kappa,
                    1e-13 * (1 + kappa));
        EXPECT_NEAR(cluster.squares[0], (1 - WatsonMeanSquare(kappa)) / 2, 1e-15);
        // A girdle.
        const BinghamMoments girdle = BinghamMomentsOf({-kappa, 0});
        EXPECT_NEAR(std::log(girdle.constant), WatsonLogConstant(-kappa), 1e-12) << kappa;
        EXPECT_NEAR(girdle.squares[0] / WatsonMeanSquare(-kappa), 1, 1e-12) << kappa;
    }
}

TEST(BinghamConcentrations, FindsTheConcentrationsOfMomentsByAnotherQuadrature) {
    for (const auto& [k1, k2] : kConcentrations) {
        const auto squares = ByQuadrature(k1, k2).squares;
        const auto found = BinghamConcentrations(squares[0], squares[1]);
        ASSERT_TRUE(found) << k1 << " " << k2;
        EXPECT_NEAR((*found)[0], k1, 1e-8 * std::abs(k1) + 1e-9) << k1 << " " << k2;
        EXPECT_NEAR((*found)[1], k2, 1e-8 * std::abs(k2) + 1e-9) << k1 << " " << k2;
    }
}

TEST(BinghamConcentrations, OfUniformAxesIsNothing) {
    const auto found = BinghamConcentrations(1.0 / 3, 1.0 / 3);
    ASSERT_TRUE(found);
    EXPECT_NEAR((*found)[0], 0, 1e-12);
    EXPECT_NEAR((*found)[1], 0, 1e-12);
}

TEST(BinghamConcentrations, AxesOnACircleOrALineHaveNone) {
    EXPECT_FALSE(BinghamConcentrations(0, 0.4));
    EXPECT_FALSE(BinghamConcentrations(1e-9, 0.4));
    EXPECT_FALSE(BinghamConcentrations(1e-9, 1e-9));
    EXPECT_TRUE(BinghamConcentrations(1e-6, 1e-6));
    EXPECT_TRUE(BinghamConcentrations(1e-6, 0.4999));
}

TEST(BinghamConcentrations, UndoTheMoments) {
    const std::vector<std::array<double, 2>> concentrations = {
        {-0.01, -0.004}, {-1, -0.5},     {-20, -5},   {-30, -2},   {-80, -0.25},
        {-200, -70},     {-5000, -4000}, {-9e5, -30}, {-9e5, -7e5}};
    for (const std::array<double, 2>& k : concentrations) {
        SCOPED_TRACE(testing::Message() << k[0] << " " << k[1]);
        const auto [t1, t2] = BinghamMomentsOf(k).squares;
        const auto found = BinghamConcentrations(t1, t2);
        ASSERT_TRUE(found);
        EXPECT_NEAR((*found)[0] / k[0], 1, 1e-9);
        EXPECT_NEAR((*found)[1] / k[1], 1, 1e-9);
    }
}

TEST(BinghamConcentrations, OfEqualEigenvaluesAreEqual) {
    const auto cluster = BinghamConcentrations(0.1, 0.1);
    ASSERT_TRUE(cluster);
    EXPECT_NEAR((*cluster)[0], (*cluster)[1], 1e-9);
    EXPECT_NEAR(-(*cluster)[0], WatsonConcentration(0.8).value(), 1e-8);
    const auto girdle = BinghamConcentrations(0.1, 0.45);
    ASSERT_TRUE(girdle);
    EXPECT_NEAR((*girdle)[1], 0, 1e-9);
    EXPECT_NEAR((*girdle)[0], WatsonConcentration(0.1).value(), 1e-8);
    const auto uniform = BinghamConcentrations(1.0 / 3, 1.0 / 3);
    ASSERT_TRUE(uniform);
    EXPECT_NEAR((*uniform)[0], 0, 1e-10);
}

TEST(BinghamConcentrations, AreNoneOfAxesInOnePlane) {
    EXPECT_FALSE(BinghamConcentrations(0, 0.2));
    EXPECT_FALSE(BinghamConcentrations(1e-8, 1e-8));
    EXPECT_FALSE(BinghamConcentrations(std::nan(""), 0.2));
}

} // namespace
} // namespace quandrel
