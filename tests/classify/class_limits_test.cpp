// SPDX-License-Identifier: MIT

#include "classify/class_limits.h"
#include "core/plot_store.h"
#include "orientation/number_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace quandrel {
namespace {

std::vector<double> AllLimits(const ClassLimits& limits) {
    std::vector<double> all(limits.limits.begin(), limits.limits.begin() + limits.base);
    all.push_back(limits.top);
    return all;
}

TEST(EqualRanges, StepEvenlyFromTheLeastToTheGreatest) {
    EXPECT_EQ(AllLimits(EqualRanges(2, 10, 4)), (std::vector<double>{2, 4, 6, 8, 10}));
    EXPECT_EQ(AllLimits(EqualRanges(-3, -1, 1)), (std::vector<double>{-3, -1}));
    EXPECT_EQ(EqualRanges(0, 1, 0).base, 1);
    EXPECT_EQ(EqualRanges(0, 1, 99).base, kMostRanges);
}

TEST(EqualRanges, EndExactlyAtTheDataWhateverTheStep) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> any(-1000, 1000);
    for (int i = 0; i < 500; ++i) {
        const double a = any(random);
        const double b = any(random);
        const int classes = i % kMostRanges + 1;
        const ClassLimits limits = EqualRanges(std::min(a, b), std::max(a, b), classes);
        ASSERT_EQ(limits.limits[0], std::min(a, b));
        ASSERT_EQ(limits.top, std::max(a, b));
        for (int k = 1; k <= classes; ++k) {
            ASSERT_NEAR(UpperLimit(limits, k) - LowerLimit(limits, k), std::abs(a - b) / classes,
                        1e-9);
        }
    }
}

TEST(DeviationSplits, AreOneDeviationApartAboutTheMean) {
    const auto even = DeviationSplits(10, 2, 4);
    ASSERT_TRUE(even);
    EXPECT_EQ(AllLimits(*even), (std::vector<double>{6, 8, 10, 12, 14}));
    const auto odd = DeviationSplits(10, 2, 3);
    ASSERT_TRUE(odd);
    EXPECT_EQ(AllLimits(*odd), (std::vector<double>{7, 9, 11, 13}));
}

TEST(DeviationSplits, NeedTwoClasses) {
    for (const int classes : {-1, 0, 1}) {
        const auto refused = DeviationSplits(10, 2, classes);
        ASSERT_FALSE(refused);
        EXPECT_EQ(refused.Error(), "You must select at least two classes for this option.");
    }
}

TEST(ValueRanges, GiveEachValueItsClass) {
    const std::vector<double> values = {5, 1, 3};
    const ClassLimits limits = ValueRanges(values);
    EXPECT_EQ(AllLimits(limits), (std::vector<double>{1, 3, 5, 5}));
    ClassRule rule;
    rule.column = kTextNumberClasses;
    rule.base = limits.base;
    rule.limits = limits.limits;
    rule.top = limits.top;
    EXPECT_EQ(ClassOfNumber(rule, 1), 2);
    EXPECT_EQ(ClassOfNumber(rule, 3), 3);
    EXPECT_EQ(ClassOfNumber(rule, 5), 4);
    EXPECT_EQ(ClassOfNumber(rule, 6), 0);
}

TEST(ValueRanges, HaveAtMostTenClassesAndAtLeastOne) {
    const std::vector<double> many = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
    EXPECT_EQ(ValueRanges(many).base, 10);
    EXPECT_EQ(ValueRanges(many).top, 11);
    EXPECT_EQ(ValueRanges({}).base, 1);
    EXPECT_EQ(ValueRanges({}).top, 0);
}

TEST(OrderNames, StandWithoutCaseAndNumbersByValue) {
    const std::vector<std::string> found = {"slate", "Gneiss", "10", "9", "amphibolite", "SLATE"};
    EXPECT_EQ(OrderNames(found, NameOrder::FirstFound), found);
    EXPECT_EQ(OrderNames(found, NameOrder::Ascending),
              (std::vector<std::string>{"9", "10", "amphibolite", "Gneiss", "slate", "SLATE"}));
    EXPECT_EQ(OrderNames(found, NameOrder::Descending),
              (std::vector<std::string>{"slate", "SLATE", "Gneiss", "amphibolite", "10", "9"}));
}

TEST(OrderNames, ReadNumbersByTheRegionalDelimiter) {
    const bool former = gDecimalIsComma;
    gDecimalIsComma = true;
    EXPECT_EQ(OrderNames({"10", "9,5"}, NameOrder::Ascending),
              (std::vector<std::string>{"9,5", "10"}));
    gDecimalIsComma = false;
    // Now "9,5" is a name.
    EXPECT_EQ(OrderNames({"9,5", "10"}, NameOrder::Ascending),
              (std::vector<std::string>{"10", "9,5"}));
    gDecimalIsComma = former;
}

TEST(DefaultClassTable, HasTheLowestLimitsAnOpenTopAndKeepsLowNumbers) {
    const ClassTableCells table = DefaultClassTable(-2.5, 7);
    EXPECT_EQ(NumberOf(table[1][0]), -2.5);
    EXPECT_EQ(NumberOf(table[1][1]), 7);
    EXPECT_EQ(NumberOf(table[11][0]), 999999);
    EXPECT_EQ(NumberOf(table[11][1]), 999999);
    EXPECT_EQ(NumberOf(table[12][0]), 1);
    EXPECT_TRUE(IsEmpty(table[12][1]));
    EXPECT_TRUE(IsEmpty(table[5][2]));
}

TEST(LimitText, IsShortAndLosesNothingThatAUserTyped) {
    const struct {
        double limit;
        const char* text;
    } cases[] = {
        {0, "0"},
        {2, "2"},
        {2.1, "2.1"},
        {static_cast<double>(2.1F), "2.1"},
        {1234.56, "1234.56"},
        {10.0 / 3, "3.3333"},
        {-10.0 / 3, "-3.3333"},
        {200.0 / 3, "66.667"},
        {0.00012, "0.00012"},
        {1e-7, "0.0000001"},
        {9.5e-8, "9.5E-8"},
        {-2e-9, "-2E-9"},
        {1.5e-16, "1.5E-16"},
        {1e-8 / 3, "3.3333E-9"},
        {9.99999999e-9, "1E-8"},
        {1e-300, "1E-300"},
        {5e-324, "4.9407E-324"},
        {0.0123456789, "0.012346"},
        {1234567, "1234567"},
        {1234567.75, "1234568"},
        {999999, "999999"},
        {1e20, "1E+20"},
    };

    for (const auto& row : cases) {
        EXPECT_EQ(LimitText(row.limit), row.text);
    }
}

TEST(DeviationLimitText, HasOneDecimalAtLeast) {
    EXPECT_EQ(DeviationLimitText(7, 2), "7.0");
    EXPECT_EQ(DeviationLimitText(7.12345, 2), "7.123");
    EXPECT_EQ(DeviationLimitText(712.3456, 20), "712.3");
    EXPECT_EQ(DeviationLimitText(0.00012, 0.00001), "0.00012");
}

TEST(ValueRanges, OfElevenValuesKeepTheGreatestWhateverTheirOrder) {
    const std::vector<double> values = {11, 3, 7, 1, 9, 5, 2, 10, 4, 8, 6};
    const ClassLimits limits = ValueRanges(values);
    EXPECT_EQ(AllLimits(limits), (std::vector<double>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}));
    ClassRule rule;
    rule.column = kTextNumberClasses;
    rule.base = limits.base;
    rule.limits = limits.limits;
    rule.top = limits.top;
    for (const double value : values) {
        EXPECT_EQ(ClassOfNumber(rule, value), std::min(static_cast<int>(value) + 1, 11)) << value;
    }
}

TEST(LimitText, OfSmallLimitsReadsBackAsWhatItShows) {
    for (const double limit : {9.5e-8, -2e-9, 1.25e-30}) {
        EXPECT_EQ(ReadNumber(LimitText(limit)), limit);
    }
    EXPECT_EQ(DeviationLimitText(2.5e-9, 1e-9), "2.5E-9");
}

} // namespace
} // namespace quandrel
