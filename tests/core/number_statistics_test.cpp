// SPDX-License-Identifier: MIT

#include "core/number_statistics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>

namespace quandrel {
namespace {

TEST(NumberStatistics, AreNothingWithoutNumbers) {
    EXPECT_FALSE(StatisticsOfNumbers({}));
    EXPECT_EQ(CountDistinctNumbers({}), 0U);
}

TEST(NumberStatistics, OfOneNumberHaveNoDeviation) {
    const std::array<double, 1> one = {-3.5};
    const auto statistics = StatisticsOfNumbers(one);
    ASSERT_TRUE(statistics);
    EXPECT_EQ(statistics->count, 1U);
    EXPECT_EQ(statistics->least, -3.5);
    EXPECT_EQ(statistics->greatest, -3.5);
    EXPECT_EQ(statistics->mean, -3.5);
    EXPECT_EQ(statistics->standardDeviation, 0);
}

// By hand: squares of -3 -1 -1 -1 0 0 2 4 sum to 32, over seven.
TEST(NumberStatistics, AgreeWithAHandReckonedSample) {
    const std::array<double, 8> sample = {2, 4, 4, 4, 5, 5, 7, 9};
    const auto statistics = StatisticsOfNumbers(sample);
    ASSERT_TRUE(statistics);
    EXPECT_EQ(statistics->mean, 5);
    EXPECT_DOUBLE_EQ(statistics->standardDeviation, std::sqrt(32.0 / 7));
    EXPECT_EQ(statistics->least, 2);
    EXPECT_EQ(statistics->greatest, 9);
    EXPECT_EQ(CountDistinctNumbers(sample), 5U);
}

TEST(NumberStatistics, KeepTheDigitsOfLargeNumbersCloseToEachOther) {
    std::vector<double> near;
    for (int i = 0; i < 1000; ++i) {
        near.push_back(1e9 + i % 2);
    }
    const auto statistics = StatisticsOfNumbers(near);
    ASSERT_TRUE(statistics);
    EXPECT_NEAR(statistics->mean, 1e9 + 0.5, 1e-6);
    EXPECT_NEAR(statistics->standardDeviation, std::sqrt(250.0 / 999), 1e-9);
}

TEST(NumberStatistics, DoNotDependOnTheOrder) {
    std::mt19937 random(17);
    std::normal_distribution<double> bell(3, 2);
    std::vector<double> numbers(500);
    for (double& number : numbers) {
        number = bell(random);
    }
    const auto before = StatisticsOfNumbers(numbers);
    std::ranges::sort(numbers);
    const auto after = StatisticsOfNumbers(numbers);
    ASSERT_TRUE(before && after);
    EXPECT_NEAR(before->mean, after->mean, 1e-12);
    EXPECT_NEAR(before->standardDeviation, after->standardDeviation, 1e-12);
}

} // namespace
} // namespace quandrel
