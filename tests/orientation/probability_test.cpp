// SPDX-License-Identifier: MIT

#include "orientation/probability.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

namespace quandrel {
namespace {

TEST(ChiSquareTail, IsThatOfThePrintedTable) {
    // Abramowitz and Stegun (1964), table 26.8: percentage points of chi-square.
    struct Row {
        double degrees;
        double tail;
        double value;
    };

    const std::vector<Row> rows = {
        {1, 0.05, 3.84146},   {1, 0.01, 6.63490},   {1, 0.5, 0.454936},  {2, 0.05, 5.99146},
        {2, 0.01, 9.21034},   {3, 0.05, 7.81473},   {4, 0.05, 9.48773},  {4, 0.95, 0.710723},
        {5, 0.05, 11.0705},   {5, 0.99, 0.554300},  {10, 0.05, 18.3070}, {10, 0.5, 9.34182},
        {10, 0.995, 2.15585}, {20, 0.01, 37.5662},  {30, 0.05, 43.7729}, {30, 0.95, 18.4926},
        {50, 0.005, 79.4900}, {100, 0.05, 124.342}, {100, 0.5, 99.3341}};
    for (const Row& row : rows) {
        EXPECT_NEAR(ChiSquareTail(row.value, row.degrees), row.tail, 2e-6 + 1e-5 * row.tail)
            << row.degrees << " " << row.value;
    }
}

TEST(ChiSquareTail, OfEvenDegreesIsAPoissonSum) {
    for (int half = 1; half <= 40; ++half) {
        for (double value = 0.01; value < 300; value *= 1.7) {
            double term = std::exp(-value / 2);
            double sum = term;
            for (int i = 1; i < half; ++i) {
                term *= value / 2 / i;
                sum += term;
            }
            EXPECT_NEAR(ChiSquareTail(value, 2 * half), sum, 1e-12 * sum + 1e-15)
                << 2 * half << " " << value;
        }
    }
}

TEST(ChiSquareTail, OfOddDegreesIsTheErrorFunctionWithASum) {
    // Q(a + 1, x) = Q(a, x) + x^a e^-x / Gamma(a + 1), from Q(1/2, x) = erfc(sqrt(x)).
    for (double value = 0.01; value < 300; value *= 1.7) {
        const double x = value / 2;
        double tail = std::erfc(std::sqrt(x));
        double term = std::sqrt(x) * std::exp(-x) * 2 / std::sqrt(std::numbers::pi);
        for (int degrees = 1; degrees < 60; degrees += 2) {
            EXPECT_NEAR(ChiSquareTail(value, degrees), tail, 1e-12 * tail + 1e-15)
                << degrees << " " << value;
            tail += term;
            term *= x / (degrees / 2.0 + 1);
        }
    }
}

TEST(ChiSquareTail, HasItsLimitsAtTheEnds) {
    EXPECT_EQ(ChiSquareTail(0, 3), 1);
    EXPECT_EQ(ChiSquareTail(-1, 3), 1);
    EXPECT_EQ(ChiSquareTail(std::numeric_limits<double>::infinity(), 3), 0);
    EXPECT_TRUE(std::isnan(ChiSquareTail(std::nan(""), 3)));
    EXPECT_EQ(ChiSquareTail(1e6, 7), 0);
    EXPECT_EQ(ChiSquareTail(1e-300, 7), 1);
}

TEST(ChiSquareLimitOfTwo, LeavesTheTailOfTheLevel) {
    for (const double level : {0.0, 0.05, 0.63, 0.9, 0.95, 0.99, 0.999999}) {
        EXPECT_NEAR(ChiSquareTail(ChiSquareLimitOfTwo(level), 2), 1 - level, 1e-15) << level;
    }
    EXPECT_NEAR(ChiSquareLimitOfTwo(0.95), 5.99146454710798, 1e-13);
}

} // namespace
} // namespace quandrel
