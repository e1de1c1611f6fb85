// SPDX-License-Identifier: MIT

#include "class_fixture.h"
#include "classify/class_rule.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <set>

namespace quandrel {
namespace {

struct LimitCase {
    const char* where;
    double value;
    std::array<int, 4> classes; ///< by excess flags 0 to 3
};

// Three base classes 2 to 4, 4 to 8, 8 to 10: classes 2, 3, 4; low 1, high 5.
const LimitCase kLimitCases[] = {
    {"far below", -100, {0, 1, 0, 1}},
    {"just below the lowest", std::nextafter(2.0, 0.0), {0, 1, 0, 1}},
    {"at the lowest", 2, {2, 2, 2, 2}},
    {"just above the lowest", std::nextafter(2.0, 3.0), {2, 2, 2, 2}},
    {"just below an inner limit", std::nextafter(4.0, 0.0), {2, 2, 2, 2}},
    {"at an inner limit", 4, {3, 3, 3, 3}},
    {"just above an inner limit", std::nextafter(4.0, 5.0), {3, 3, 3, 3}},
    {"at the last inner limit", 8, {4, 4, 4, 4}},
    {"just below the top", std::nextafter(10.0, 0.0), {4, 4, 4, 4}},
    {"at the top", 10, {4, 4, 4, 4}},
    {"just above the top", std::nextafter(10.0, 11.0), {0, 0, 5, 5}},
    {"infinite", std::numeric_limits<double>::infinity(), {0, 0, 5, 5}},
    {"no number", std::numeric_limits<double>::quiet_NaN(), {0, 0, 0, 0}},
};

TEST(ClassOfNumber, FollowsLimitsAndExcessFlagsInBothColumns) {
    for (const ClassColumn column : {kNumberClasses, kTextNumberClasses}) {
        for (int flags = 0; flags <= 3; ++flags) {
            const ClassRule rule =
                RuleOfClassTable(TableOfRanges(column, {2, 4, 8, 10}, flags), column);
            EXPECT_EQ(LastClass(rule), flags > 1 ? 5 : 4);
            for (const LimitCase& row : kLimitCases) {
                EXPECT_EQ(ClassOfNumber(rule, row.value),
                          row.classes[static_cast<std::size_t>(flags)])
                    << row.where << ", flags " << flags << ", column " << column;
            }
        }
    }
}

TEST(ClassOfNumber, TakesANarrowNumberForTheLimitItWasReadFrom) {
    const ClassTableCells table = TableOfRanges(kNumberClasses, {0.1, 2.1, 3.3}, 0);
    const ClassRule rule = RuleOfClassTable(table, kNumberClasses);
    EXPECT_EQ(ClassOfNumber(rule, static_cast<double>(0.1F)), 2);
    EXPECT_EQ(ClassOfNumber(rule, static_cast<double>(std::nextafter(2.1F, 0.0F))), 2);
    EXPECT_EQ(ClassOfNumber(rule, static_cast<double>(2.1F)), 3);
    EXPECT_EQ(ClassOfNumber(rule, static_cast<double>(3.3F)), 3);
}

TEST(ClassOfNumber, KeepsLimitsThatNoNarrowNumberHolds) {
    const ClassRule rule =
        RuleOfClassTable(TableOfRanges(kNumberClasses, {-1e300, 0, 1e300}, 0), kNumberClasses);
    EXPECT_EQ(ClassOfNumber(rule, -1e20), 2);
    EXPECT_EQ(ClassOfNumber(rule, 1e20), 3);
}

TEST(ClassOfNumber, TriesLimitsThatDoNotAscendInTheirOrder) {
    const ClassRule rule =
        RuleOfClassTable(TableOfRanges(kNumberClasses, {0, 6, 3, 10}, 0), kNumberClasses);
    EXPECT_EQ(ClassOfNumber(rule, 2), 2);
    EXPECT_EQ(ClassOfNumber(rule, 5), 2);
    EXPECT_EQ(ClassOfNumber(rule, 7), 4);
}

TEST(ClassOfNumber, PutsAllWithinTheLimitsIntoOneClassWithoutBaseClasses) {
    const ClassRule rule = RuleOfClassTable(TableOfRanges(kNumberClasses, {5}, 3), kNumberClasses);
    EXPECT_EQ(rule.base, 0);
    EXPECT_FALSE(rule.keepLow);
    EXPECT_EQ(LastClass(rule), 2);
    EXPECT_EQ(ClassOfNumber(rule, -1), 0);
    EXPECT_EQ(ClassOfNumber(rule, 3), 1);
    EXPECT_EQ(ClassOfNumber(rule, 7), 2);
}

TEST(ClassOfNumber, ReadsLimitsThatAreTextsInTheTable) {
    ClassTableCells table;
    table[0][kNumberClasses] = std::string("2");
    table[1][kNumberClasses] = std::string("1");
    table[2][kNumberClasses] = std::string("2.5");
    table[11][kNumberClasses] = std::string("4");
    table[12][kNumberClasses] = std::string("3");
    const ClassRule rule = RuleOfClassTable(table, kNumberClasses);
    EXPECT_EQ(ClassOfNumber(rule, 0.5), 1);
    EXPECT_EQ(ClassOfNumber(rule, 2.25), 2);
    EXPECT_EQ(ClassOfNumber(rule, 2.5), 3);
    EXPECT_EQ(ClassOfNumber(rule, 5), 4);
}

TEST(RuleOfClassTable, ClampsTheNumberOfClasses) {
    ClassTableCells table;
    for (const std::size_t column : {0U, 1U}) {
        table[0][column] = std::int32_t{70000};
    }
    EXPECT_EQ(RuleOfClassTable(table, kNumberClasses).base, kMostRanges);
    EXPECT_EQ(RuleOfClassTable(table, kTextNumberClasses).base, kMostRanges);
    EXPECT_EQ(RuleOfClassTable(table, kNameClasses).base, kMostNames);
    table[0][0] = std::int16_t{-4};
    EXPECT_EQ(RuleOfClassTable(table, kNumberClasses).base, 0);
}

TEST(ClassOfNumber, WithBothExcessesLeavesNoNumberOut) {
    std::mt19937 random(29);
    std::uniform_real_distribution<double> wide(-20, 20);
    const ClassRule rule = RuleOfClassTable(
        TableOfRanges(kTextNumberClasses, {-9, -7, -5, -3, -1, 1, 3, 5, 7, 9, 11}, 3),
        kTextNumberClasses);
    EXPECT_EQ(rule.base, 10);
    std::set<int> met;
    for (int i = 0; i < 5000; ++i) {
        const double value = wide(random);
        const int expected = value < -9   ? 1
                             : value > 11 ? 12
                                          : static_cast<int>(std::floor((value + 9) / 2)) + 2;
        ASSERT_EQ(ClassOfNumber(rule, value), expected) << value;
        met.insert(expected);
    }
    EXPECT_EQ(met.size(), 12U);
}

TEST(ClassOfName, ComparesWithoutCaseUnlessTold) {
    const ClassRule loose =
        RuleOfClassTable(TableOfNames({"Slate", "SCHIST"}, true, false), kNameClasses);
    const ClassRule strict =
        RuleOfClassTable(TableOfNames({"Slate", "SCHIST"}, true, true), kNameClasses);

    const struct {
        const char* text;
        int loose;
        int strict;
    } cases[] = {
        {"Slate", 2, 2},  {"slate", 2, 1},  {"schist", 3, 1}, {"SCHIST", 3, 3},
        {"gneiss", 1, 1}, {"Slate ", 1, 1}, {"", 1, 1},
    };

    for (const auto& row : cases) {
        EXPECT_EQ(ClassOfName(loose, row.text), row.loose) << row.text;
        EXPECT_EQ(ClassOfName(strict, row.text), row.strict) << row.text;
    }
}

TEST(ClassOfName, GivesNoClassToOthersThatAreNotKept) {
    const ClassRule rule = RuleOfClassTable(TableOfNames({"slate"}, false, false), kNameClasses);
    EXPECT_EQ(ClassOfName(rule, "SLATE"), 2);
    EXPECT_EQ(ClassOfName(rule, "gneiss"), 0);
    EXPECT_EQ(ClassOfName(rule, ""), 0);
    EXPECT_EQ(LastClass(rule), 2);
}

TEST(ClassOfName, NeverFitsANameThatIsEmpty) {
    const ClassRule rule = RuleOfClassTable(TableOfNames({"", "slate"}, false, true), kNameClasses);
    EXPECT_EQ(ClassOfName(rule, ""), 0);
    EXPECT_EQ(ClassOfName(rule, "slate"), 3);
}

TEST(CanHoldValues, IsTrueOfExactlyTheClassesThatSomeValueFindsByTrying) {
    std::mt19937 random(33);
    for (int sample = 0; sample < 500; ++sample) {
        ClassRule rule;
        rule.base = static_cast<int>(random() % 6);
        for (double& limit : rule.limits) {
            limit = static_cast<double>(random() % 5); // many equal ones, in any order
        }
        rule.top = static_cast<double>(random() % 6);
        rule.keepLow = rule.base > 0 && random() % 2 == 0;
        rule.keepHigh = random() % 2 == 0;
        std::set<int> found;
        for (double value = -1; value <= 7; value += 0.5) {
            found.insert(ClassOfNumber(rule, value));
        }
        for (int c = 1; c <= LastClass(rule); ++c) {
            EXPECT_EQ(CanHoldValues(rule, c), found.contains(c)) << sample << " class " << c;
        }
    }
}

TEST(CanHoldValues, IsFalseOfNamesThatNoTextHas) {
    const ClassRule rule =
        RuleOfClassTable(TableOfNames({"Slate", "", "slate", "marl"}, true, false), kNameClasses);
    EXPECT_TRUE(CanHoldValues(rule, 1)) << "others";
    EXPECT_TRUE(CanHoldValues(rule, 2));
    EXPECT_FALSE(CanHoldValues(rule, 3)) << "empty";
    EXPECT_FALSE(CanHoldValues(rule, 4)) << "the first one again";
    EXPECT_TRUE(CanHoldValues(rule, 5));
}

TEST(ClassOfName, TakesTheFirstOfTwoLikeNames) {
    const ClassRule rule =
        RuleOfClassTable(TableOfNames({"slate", "SLATE"}, false, false), kNameClasses);
    EXPECT_EQ(ClassOfName(rule, "SLATE"), 2);
}

TEST(ClassOfName, KeepsOthersForAnyFlagAboveNone) {
    for (const int flag : {1, 2, 3}) {
        ClassTableCells table = TableOfNames({"slate"}, false, false);
        table[12][kTextNumberClasses] = static_cast<std::int16_t>(flag);
        const ClassRule rule = RuleOfClassTable(table, kNameClasses);
        EXPECT_EQ(ClassOfName(rule, "gneiss"), 1) << flag;
        EXPECT_FALSE(rule.keepHigh) << flag;
    }
}

TEST(ClassOfName, KnowsCaseBeyondAscii) {
    const ClassTableCells table =
        TableOfNames({"Ärmelsand", "GRÈS", "Øyegneis", "Яшма"}, true, false);
    const ClassRule rule = RuleOfClassTable(table, kNameClasses);
    EXPECT_EQ(ClassOfName(rule, "ärmelSAND"), 2);
    EXPECT_EQ(ClassOfName(rule, "grès"), 3);
    EXPECT_EQ(ClassOfName(rule, "gres"), 1) << "an accent is not a matter of case";
    EXPECT_EQ(ClassOfName(rule, "øyegneis"), 4);
    EXPECT_EQ(ClassOfName(rule, "ЯШМА"), 5);
    const ClassRule strict =
        RuleOfClassTable(TableOfNames({"Ärmelsand"}, true, true), kNameClasses);
    EXPECT_EQ(ClassOfName(strict, "ärmelsand"), 1);
}

} // namespace
} // namespace quandrel
