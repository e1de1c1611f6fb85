// SPDX-License-Identifier: MIT

#include "statistics/watson_distribution.h"

#include <gtest/gtest.h>

#include <cmath>
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

} // namespace
} // namespace quandrel
