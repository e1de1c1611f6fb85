// SPDX-License-Identifier: MIT

#include "stereo/crowd.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <random>
#include <utility>

namespace quandrel {
namespace {

TEST(Crowd, IsAsDarkAsItsRowsOneOverTheOther) {
    for (const double opacity : {0.02, 0.15, 0.5, 0.99, 1.0}) {
        double seenThrough = 1;
        for (int rows = 1; rows < 60; ++rows) {
            seenThrough *= 1 - opacity;
            EXPECT_NEAR(OpacityTogether(opacity, rows), 1 - seenThrough, 1e-12);
        }
    }
}

TEST(Crowd, CountsTheRowsOfEachPlace) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> place(-6, 6);
    std::map<std::pair<int, int>, int> expected;
    Crowd crowd;
    for (int i = 0; i < 2000; ++i) {
        const int x = place(random) * 180;
        const int y = place(random) * 3;
        ++expected[{x, y}];
        crowd.Add(static_cast<std::int16_t>(x), static_cast<std::int16_t>(y));
    }
    std::size_t places = 0;
    std::int32_t former = 0;
    for (const CrowdLevel& level : crowd.Levels(0.001)) {
        EXPECT_GT(level.rows, former);
        former = level.rows;
        for (const Point& at : level.places) {
            EXPECT_EQ((expected[{static_cast<int>(at.x), static_cast<int>(at.y)}]), level.rows);
        }
        places += level.places.size();
    }
    EXPECT_EQ(places, expected.size());
}

TEST(Crowd, HasOneLevelForAllThatAreDark) {
    Crowd crowd;
    for (std::int16_t x = 0; x < 500; ++x) {
        for (int row = 0; row <= x; ++row) {
            crowd.Add(x, 0);
        }
    }
    const std::vector<CrowdLevel> levels = crowd.Levels(0.15);
    // (1 - 0.15)^39 = 0.0018: less than half a step of 255.
    ASSERT_EQ(levels.size(), 39U);
    EXPECT_EQ(levels.front().places.size(), 1U);
    EXPECT_EQ(levels.back().places.size(), 500U - 38U);
    EXPECT_EQ(crowd.Levels(1).size(), 1U);
}

TEST(Crowd, CountsSymbolsThatCannotBeSeen) {
    Crowd crowd;
    for (int row = 0; row < 5; ++row) {
        crowd.Add(10, 20);
    }
    for (const double opacity : {0.0, 1e-300, 1e-9}) {
        const std::vector<CrowdLevel> levels = crowd.Levels(opacity);
        ASSERT_EQ(levels.size(), 1U) << opacity;
        EXPECT_EQ(levels[0].rows, 5) << opacity;
    }
}

TEST(Crowd, LeavesOutWhatIsFarOutside) {
    Crowd crowd;
    crowd.Add(1200, 0);
    crowd.Add(0, -1200);
    EXPECT_TRUE(crowd.Levels(0.5).empty());
}

} // namespace
} // namespace quandrel
