// SPDX-License-Identifier: MIT

#include "border/random_lines.h"
#include "quandrel/classes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>

namespace quandrel::api {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// The rule in words: the number of limits that a value has reached; the greatest limit belongs to
/// the class below it.
int TrueClass(double value, const Ranges& ranges) {
    const auto last = static_cast<int>(ranges.limits.size()) - 1;
    if (value < ranges.limits.front()) {
        return ranges.keepsBelow ? 0 : kNoClass;
    }
    if (value > ranges.limits.back()) {
        return ranges.keepsAbove ? last + 1 : kNoClass;
    }
    int reached = 0;
    for (int k = 0; k < last; ++k) {
        reached += value >= ranges.limits[static_cast<std::size_t>(k)] ? 1 : 0;
    }
    return reached;
}

TEST(PublicClasses, NumbersFindTheirRange) {
    RandomValues random(20260841);
    for (const bool keeps : {false, true}) {
        const Ranges ranges = {{-3, 0, 0.1, 2, 7.25}, keeps, keeps};
        std::vector<double> values = {-3, 0, 0.1, 2, 7.25, -1e300, 1e300};
        for (int i = 0; i < 500; ++i) {
            values.push_back(random.Between(-5, 9));
        }
        std::vector<int> classes(values.size());
        FindClasses(values, ranges, classes);
        for (std::size_t i = 0; i < values.size(); ++i) {
            EXPECT_EQ(classes[i], TrueClass(values[i], ranges)) << values[i];
            EXPECT_EQ(classes[i], ClassOf(values[i], ranges));
        }
        EXPECT_EQ(ClassOf(kNaN, ranges), kNoClass);
    }
}

TEST(PublicClasses, RangesAreMadeOfWhatIsGiven) {
    EXPECT_EQ(EqualRanges(1, 4, 3).limits, (std::vector<double>{1, 2, 3, 4}));
    EXPECT_EQ(EqualRanges(1, 4, 1).limits, (std::vector<double>{1, 4}));
    EXPECT_EQ(DeviationRanges(10, 2, 3).limits, (std::vector<double>{7, 9, 11, 13}));
    EXPECT_EQ(RangesFrom(std::vector<double>{5, 1, 3}).limits, (std::vector<double>{1, 3, 5, 5}));
    const Ranges ranges = RangesFrom(std::vector<double>{5, 1, 3});
    EXPECT_EQ(ClassOf(5, ranges), 3);
    EXPECT_EQ(ClassOf(4.9, ranges), 2);
}

TEST(PublicClasses, TextsFindTheirName) {
    const Names names = {{"Gneiss", "schist", "gneiss"}, true, false};
    EXPECT_EQ(ClassOf("GNEISS", names), 1);
    EXPECT_EQ(ClassOf("Schist", names), 2);
    EXPECT_EQ(ClassOf("", names), 0);
    EXPECT_EQ(ClassOf("marble", names), 0);
    const Names exact = {{"Gneiss", "schist", "gneiss"}, false, true};
    EXPECT_EQ(ClassOf("gneiss", exact), 3);
    EXPECT_EQ(ClassOf("Schist", exact), kNoClass);
}

TEST(PublicClasses, StatisticsAreThoseOfTheSample) {
    const NumberStatistics found = NumberStatisticsOf(std::vector<double>{2, 4, 4, 4, 5, 5, 7, 9})
                                       .value_or(NumberStatistics{});
    EXPECT_EQ(found.count, 8U);
    EXPECT_EQ(found.least, 2);
    EXPECT_EQ(found.greatest, 9);
    EXPECT_NEAR(found.mean, 5, 1e-12);
    EXPECT_NEAR(found.standardDeviation, std::sqrt(32.0 / 7), 1e-12);
    EXPECT_FALSE(NumberStatisticsOf({}));
}

TEST(PublicClasses, RefusesWhatMakesNoClasses) {
    EXPECT_THROW(static_cast<void>(ClassOf(1, Ranges{{1}, false, false})), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(ClassOf(1, Ranges{{2, 1}, false, false})),
                 std::invalid_argument);
    EXPECT_THROW(static_cast<void>(ClassOf(1, Ranges{std::vector<double>(12), false, false})),
                 std::invalid_argument);
    EXPECT_THROW(static_cast<void>(EqualRanges(0, 1, 11)), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(EqualRanges(1, 0, 2)), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(DeviationRanges(0, -1, 2)), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(DeviationRanges(0, 1, 1)), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(RangesFrom({})), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(ClassOf("a", Names{std::vector<std::string>(12), true, false})),
                 std::invalid_argument);
    EXPECT_THROW(static_cast<void>(NumberStatisticsOf(std::vector<double>{kNaN})),
                 std::invalid_argument);
}

} // namespace
} // namespace quandrel::api
