// SPDX-License-Identifier: MIT

#include "orientation/random_members.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>

namespace quandrel {
namespace {

TEST(RandomMembers, AreAllChoicesEqually) {
    RandomStream random(1);
    RandomMembers members(2, 5);
    std::map<std::set<std::size_t>, int> counts;
    constexpr int draws = 20000;
    for (int i = 0; i < draws; ++i) {
        const auto drawn = members.Draw(random);
        ++counts[std::set(drawn.begin(), drawn.end())];
    }
    ASSERT_EQ(counts.size(), 10U); // and none with a member twice
    double chiSquare = 0;
    for (const auto& [choice, count] : counts) {
        EXPECT_EQ(choice.size(), 2U);
        chiSquare += std::pow(count - draws / 10.0, 2) / (draws / 10.0);
    }
    EXPECT_LT(chiSquare, 27.88); // 0.1% of chi-square with 9 degrees of freedom
}

TEST(RandomMembers, DependOnTheStreamAlone) {
    RandomMembers members(3, 8);
    RandomStream first(2);
    const auto once = members.Draw(first);
    const std::set<std::size_t> kept(once.begin(), once.end());
    static_cast<void>(members.Draw(first));
    RandomStream again(2);
    const auto twice = members.Draw(again);
    EXPECT_EQ(std::set(twice.begin(), twice.end()), kept);
}

} // namespace
} // namespace quandrel
