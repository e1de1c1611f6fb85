// SPDX-License-Identifier: MIT

#include "density/dawson.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quandrel {
namespace {

/// The definition, by Simpson's rule.
double ByIntegration(double x) {
    constexpr int kIntervals = 20000;
    const double step = x / kIntervals;
    double sum = 0;
    for (int i = 0; i <= kIntervals; ++i) {
        const double t = i * step;
        const double weight = i == 0 || i == kIntervals ? 1 : i % 2 == 1 ? 4 : 2;
        sum += weight * std::exp(t * t - x * x);
    }
    return sum * step / 3;
}

// The value at 1 is printed in tables; that at the maximum follows from D' = 1 - 2 x D.
TEST(Dawson, HasThePrintedValues) {
    EXPECT_NEAR(Dawson(1), 0.5380795069127684, 1e-15);
    const double place = 0.9241388730045917;
    EXPECT_NEAR(Dawson(place), 1 / (2 * place), 1e-15);
    EXPECT_EQ(Dawson(0), 0);
}

TEST(Dawson, IsTheIntegral) {
    for (double x = 0.05; x < 6; x += 0.15) {
        EXPECT_NEAR(Dawson(x), ByIntegration(x), 1e-13) << x;
    }
}

TEST(Dawson, IsOdd) {
    for (const double x : {1e-9, 0.2, 0.499999, 0.500001, 3.0, 24.0}) {
        EXPECT_NEAR(Dawson(-x), -Dawson(x), 1e-16) << x;
    }
}

TEST(Dawson, SeriesAndSamplesMeet) {
    const double below = std::nextafter(0.5, 0);
    EXPECT_NEAR(Dawson(below), Dawson(0.5), 1e-15);
}

// 1 / (2 x) (1 + 1 / (2 x^2) + 3 / (4 x^4) + 15 / (8 x^6) + ...), ended before its terms grow.
TEST(Dawson, FollowsItsAsymptoticSeries) {
    for (const double x : {12.0, 20.0, 24.0, 35.0, 100.0}) {
        const double y = 1 / (2 * x * x);
        const double sum = 1 + y * (1 + 3 * y * (1 + 5 * y * (1 + 7 * y * (1 + 9 * y))));
        EXPECT_NEAR(Dawson(x) * 2 * x, sum, 1e-10) << x;
    }
}

} // namespace
} // namespace quandrel
