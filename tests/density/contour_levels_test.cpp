// SPDX-License-Identifier: MIT

#include "density/contour_levels.h"

#include <gtest/gtest.h>

#include <vector>

namespace quandrel {
namespace {

std::vector<int> LevelsOf(std::int32_t n, double mostDensity) {
    const ContourLevelSet set = ContourLevelsOf(n, mostDensity);
    return {set.levels.begin(), set.levels.begin() + set.count};
}

using Levels = std::vector<int>;

TEST(ContourLevels, DoubleFromOneRowRoundedUp) {
    const struct {
        std::int32_t n;
        double most;
        Levels expected;
    } cases[] = {
        {60, 16.7, {2, 4, 8, 16}}, // one row is 1.67%
        {60, 100, {2, 4, 8, 16, 32, 64}},
        {500, 5, {1, 2, 4}}, // 0.2%
        {500, 100, {1, 2, 4, 8, 16, 32, 64}},
        {1000000, 3.3, {1, 2}},
        {101, 2, {1, 2}},
        {100, 1, {1}},          // 1% as it is
        {99, 3, {2}},           // 1.01% becomes 2
        {67, 3, {2}},           // 1.49%
        {50, 4, {2, 4}},        // 2% as it is
        {40, 12, {3, 6, 12}},   // 2.5% becomes 3
        {30, 12, {4, 8}},       // 3.33%
        {7, 100, {15, 30, 60}}, // 14.29%
        {3, 100, {34, 68}},
        {2, 100, {50, 100}},
        {1, 100, {100}},
    };

    for (const auto& c : cases) {
        EXPECT_EQ(LevelsOf(c.n, c.most), c.expected) << c.n << " rows, up to " << c.most;
    }
}

TEST(ContourLevels, OnlyTheWholePartOfTheGreatestDensityCounts) {
    EXPECT_EQ(LevelsOf(60, 1.999), Levels());
    EXPECT_EQ(LevelsOf(60, 2), Levels{2});
    EXPECT_EQ(LevelsOf(60, 3.999), Levels{2});
    EXPECT_EQ(LevelsOf(500, 0.8), Levels());
}

TEST(ContourLevels, AreNoMoreThanNine) {
    EXPECT_EQ(LevelsOf(1000, 1e9), (Levels{1, 2, 4, 8, 16, 32, 64, 128, 256}));
    EXPECT_EQ(LevelsOf(1, 1e9).back(), 25600);
}

TEST(ContourLevels, NoRowsHaveNone) {
    EXPECT_EQ(ContourLevelsOf(0, 100), ContourLevelSet());
    EXPECT_EQ(ContourLevelsOf(-1, 100), ContourLevelSet());
}

TEST(ContourLevels, PlacesBehindTheLastLevelAreZero) {
    const ContourLevelSet set = ContourLevelsOf(60, 5);
    EXPECT_EQ(set.count, 2);
    for (std::size_t k = 2; k < set.levels.size(); ++k) {
        EXPECT_EQ(set.levels[k], 0);
    }
}

TEST(CountOfLevel, LiesHalfBelowTheLeastWholeCountOfItsDensity) {
    EXPECT_EQ(CountOfLevel(2, 60), 1.5);  // 1.2
    EXPECT_EQ(CountOfLevel(1, 100), 0.5); // 1 to the last digit
    EXPECT_EQ(CountOfLevel(16, 200), 31.5);
    EXPECT_EQ(CountOfLevel(7, 101), 7.5); // 7.07
    EXPECT_EQ(CountOfLevel(100, 1), 0.5);
    EXPECT_EQ(CountOfLevel(32767, 2000000000), 655339999999.5);
}

} // namespace
} // namespace quandrel
