// SPDX-License-Identifier: MIT
//
// Constants, moments and fits of Watson's and Bingham's distributions against other ways of
// computing them.

#include "statistics/bingham_likelihood.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace quandrel {
namespace {

TEST(WatsonLogConstant, IsThatOfTheConfluentFunction) {
    // ln 1F1(1/2; 3/2; kappa) and 1F1(3/2; 5/2; kappa) / (3 1F1(1/2; 3/2; kappa)) with 30 digits.
    struct Row {
        double kappa;
        double logConstant;
        double meanSquare;
    };

    const std::vector<Row> rows = {{-20, -1.6186483746662036, 0.024999999739971813},
                                   {-3, -0.68449757601440355, 0.15021390433899956},
                                   {-0.5, -0.15592379365739864, 0.29112509477279321},
                                   {0.5, 0.178110755392013, 0.37973195474099563},
                                   {3, 1.4403591596503002, 0.62618539591008283},
                                   {20, 16.337921740630456, 0.94855477009136699},
                                   {150, 144.29957910448919, 0.99331073130267463}};
    for (const auto& [kappa, logConstant, meanSquare] : rows) {
        EXPECT_NEAR(WatsonLogConstant(kappa), logConstant, 3e-15 * (1 + std::abs(logConstant)))
            << kappa;
        EXPECT_NEAR(WatsonMeanSquare(kappa), meanSquare, 1e-14 * meanSquare) << kappa;
    }
    EXPECT_EQ(WatsonLogConstant(0), 0);
    EXPECT_DOUBLE_EQ(WatsonMeanSquare(0), 1.0 / 3);
}

TEST(WatsonLogConstant, HasTheMeanSquareAsItsSlope) {
    // Also where one series takes over from another, at 60.
    for (const double kappa : {-1e5, -200.0, -60.0, -59.9, -1.0, 0.0, 2.0, 59.9, 60.0, 61.0, 1e4}) {
        const double step = 1e-4 * (1 + std::abs(kappa));
        const double slope =
            (WatsonLogConstant(kappa + step) - WatsonLogConstant(kappa - step)) / (2 * step);
        EXPECT_NEAR(slope / WatsonMeanSquare(kappa), 1, 3e-8) << kappa;
    }
}

TEST(WatsonConcentration, UndoesTheMeanSquare) {
    for (const double kappa : {-9e5, -300.0, -5.0, -1e-3, 1e-3, 0.7, 12.0, 700.0, 9e5}) {
        // For clusters 1 - c^2 is known to 1e-16, whatever its size.
        const double tolerance = 1e-10 + (kappa > 0 ? 1e-15 * kappa : 1e-13 / std::abs(kappa));
        const auto found = WatsonConcentration(WatsonMeanSquare(kappa));
        ASSERT_TRUE(found) << kappa;
        EXPECT_NEAR(*found / kappa, 1, tolerance) << kappa;
    }
    EXPECT_NEAR(WatsonConcentration(1.0 / 3).value(), 0, 1e-14);
    EXPECT_FALSE(WatsonConcentration(1));
    EXPECT_FALSE(WatsonConcentration(0));
    EXPECT_FALSE(WatsonConcentration(std::nan("")));
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

TEST(BinghamMoments, AreThoseOfAdaptiveQuadrature) {
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

TEST(BinghamMoments, AreThoseOfSumsOverTheSphere) {
    for (const auto& [k1, k2] : {std::pair(-0.3, -0.1), {-7.0, -1.0}, {-25.0, -20.0}}) {
        SCOPED_TRACE(testing::Message() << k1 << " " << k2);
        const auto [constant, first, second] = BySums(k1, k2);
        const BinghamMoments moments = BinghamMomentsOf({k1, k2});
        EXPECT_NEAR(moments.constant / constant, 1, 1e-10);
        EXPECT_NEAR(moments.squares[0] / first, 1, 1e-10);
        EXPECT_NEAR(moments.squares[1] / second, 1, 1e-10);
    }
}

TEST(BinghamMoments, OfWatsonsDistributionsAreHis) {
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

TEST(BinghamMoments, OfFourthOrderAreTheSlopesOfTheSecond) {
    const std::array<double, 2> k = {-14, -3};
    const BinghamMoments at = BinghamMomentsOf(k);
    for (std::size_t j = 0; j < 2; ++j) {
        std::array<double, 2> above = k;
        std::array<double, 2> below = k;
        above[j] += 1e-3;
        below[j] -= 1e-3;
        const auto upper = BinghamMomentsOf(above).squares;
        const auto lower = BinghamMomentsOf(below).squares;
        for (std::size_t i = 0; i < 2; ++i) {
            const double slope = (upper[i] - lower[i]) / 2e-3;
            EXPECT_NEAR(slope, at.fourth[i][j] - at.squares[i] * at.squares[j], 1e-8);
        }
    }
}

TEST(BinghamConcentrations, UndoTheMoments) {
    const std::vector<std::array<double, 2>> concentrations = {
        {-0.01, -0.004}, {-1, -0.5},     {-20, -5},   {-30, -2},   {-80, -0.25},
        {-200, -70},     {-5000, -4000}, {-9e5, -30}, {-9e5, -7e5}};
    for (const std::array<double, 2>& k : concentrations) {
        SCOPED_TRACE(testing::Message() << k[0] << " " << k[1]);
        const auto [t1, t2] = BinghamMomentsOf(k).squares;
        const auto found = BinghamConcentrations({t1, t2, 1 - t1 - t2});
        ASSERT_TRUE(found);
        EXPECT_NEAR((*found)[0] / k[0], 1, 1e-9);
        EXPECT_NEAR((*found)[1] / k[1], 1, 1e-9);
    }
}

TEST(BinghamConcentrations, OfEqualEigenvaluesAreEqual) {
    const auto cluster = BinghamConcentrations({0.1, 0.1, 0.8});
    ASSERT_TRUE(cluster);
    EXPECT_NEAR((*cluster)[0], (*cluster)[1], 1e-9);
    EXPECT_NEAR(-(*cluster)[0], WatsonConcentration(0.8).value(), 1e-8);
    const auto girdle = BinghamConcentrations({0.1, 0.45, 0.45});
    ASSERT_TRUE(girdle);
    EXPECT_NEAR((*girdle)[1], 0, 1e-9);
    EXPECT_NEAR((*girdle)[0], WatsonConcentration(0.1).value(), 1e-8);
    const auto uniform = BinghamConcentrations({1.0 / 3, 1.0 / 3, 1.0 / 3});
    ASSERT_TRUE(uniform);
    EXPECT_NEAR((*uniform)[0], 0, 1e-10);
}

TEST(BinghamConcentrations, AreNoneOfAxesInOnePlane) {
    EXPECT_FALSE(BinghamConcentrations({0, 0.2, 0.8}));
    EXPECT_FALSE(BinghamConcentrations({1e-8, 1e-8, 1 - 2e-8}));
    EXPECT_FALSE(BinghamConcentrations({std::nan(""), 0.2, 0.8}));
}

} // namespace
} // namespace quandrel
