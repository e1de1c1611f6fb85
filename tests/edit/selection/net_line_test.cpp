// SPDX-License-Identifier: MIT

#include "core/data_format.h"
#include "edit/selection/net_line.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace quandrel {
namespace {

constexpr double kRadian = std::numbers::pi / 180;

TEST(LineAtPosition, ReadsTheNetByTheFormulasOfTheProjections) {
    for (double rho = 0.05; rho < 1; rho += 0.1) {
        for (double trend = 1; trend < 360; trend += 13) {
            const double x = 1000 * rho * std::sin(trend * kRadian);
            const double y = 1000 * rho * std::cos(trend * kRadian);
            const NetLine area = LineAtPosition(kEqualArea, x, y);
            EXPECT_NEAR(area.plunge, std::numbers::pi / 2 - std::acos(1 - rho * rho), 1e-9);
            EXPECT_NEAR(area.trend, trend * kRadian, 1e-9);
            const NetLine angle = LineAtPosition(kEqualAngle, x, y);
            EXPECT_NEAR(angle.plunge, std::numbers::pi / 2 - 2 * std::atan(rho), 1e-9);
            EXPECT_NEAR(angle.trend, trend * kRadian, 1e-9);
        }
    }
}

TEST(LineAtPosition, FarOutsideItStaysAtTwoRadii) {
    for (const int plotKind : {int{kEqualArea}, int{kEqualAngle}}) {
        for (const double distance : {2001.0, 2900.0, 1e9}) {
            const NetLine line = LineAtPosition(plotKind, 0.6 * distance, 0.8 * distance);
            EXPECT_NEAR(line.plunge, -std::numbers::pi / 2, 1e-6) << distance;
        }
        const NetLine outside = LineAtPosition(plotKind, 0, 1500);
        const NetLine farSide = LineAtPosition(plotKind, 0, -500);
        EXPECT_NEAR(outside.plunge, -farSide.plunge, 1e-9);
        EXPECT_NEAR(outside.trend, farSide.trend, 1e-9);
    }
}

TEST(IsOnNet, TakesThePrimitiveIn) {
    EXPECT_TRUE(IsOnNet(600, -800));
    EXPECT_TRUE(IsOnNet(0, 0));
    EXPECT_FALSE(IsOnNet(600, 800.001));
}

} // namespace
} // namespace quandrel
