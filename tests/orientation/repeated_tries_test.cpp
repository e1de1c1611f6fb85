// SPDX-License-Identifier: MIT
//
// Random streams and tries: the same numbers everywhere, whatever the number of threads.

#include "orientation/repeated_tries.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

namespace quandrel {
namespace {

TEST(RandomStream, OfAStreamIsTheMixedSeedOfThePublishedFunction) {
    // The first outputs of the mixing function from the seed 1234567, as printed by its authors'
    // and others' programs.
    std::mt19937_64 first(6457827717110365317U);
    std::mt19937_64 second(3203168211198807973U);
    EXPECT_EQ(RandomStream(1234567, 0).Bits(), first());
    EXPECT_EQ(RandomStream(1234567, 1).Bits(), second());
}

TEST(RandomStream, NumbersBelowALimitAreEquallyFrequent) {
    RandomStream random(5);
    constexpr int draws = 70000;
    std::array<int, 7> counts{};
    for (int i = 0; i < draws; ++i) {
        ++counts.at(random.Below(7));
    }
    double chiSquare = 0;
    for (const int count : counts) {
        chiSquare += std::pow(count - draws / 7.0, 2) / (draws / 7.0);
    }
    EXPECT_LT(chiSquare, 22.46); // 0.1% of chi-square with 6 degrees of freedom
    EXPECT_EQ(random.Below(1), 0U);
}

TEST(RandomStream, LargeLimitsAreWithoutBias) {
    // Of the 2^32 products with 3/4 of 2^32, a quarter is redrawn; without it every third number
    // would come twice as often as the others.
    RandomStream random(6);
    constexpr std::uint32_t limit = 3U << 30U;
    int multiplesOfThree = 0;
    for (int i = 0; i < 30000; ++i) {
        multiplesOfThree += random.Below(limit) % 3 == 0 ? 1 : 0;
    }
    EXPECT_NEAR(multiplesOfThree, 10000, 3 * std::sqrt(30000 * 2.0 / 9));
}

TEST(RandomStream, UniformNumbersHaveTheMomentsOfTheUnitInterval) {
    RandomStream random(7);
    constexpr int draws = 40000;
    double sum = 0;
    double squares = 0;
    for (int i = 0; i < draws; ++i) {
        const double one = random.Uniform();
        ASSERT_GE(one, 0);
        ASSERT_LT(one, 1);
        sum += one;
        squares += one * one;
    }
    EXPECT_NEAR(sum / draws, 0.5, 4 * std::sqrt(1.0 / 12 / draws));
    EXPECT_NEAR(squares / draws, 1.0 / 3, 4 * std::sqrt(4.0 / 45 / draws));
}

/// Tries that count with a probability.
std::function<RandomTry()> TriesOf(double probability) {
    return [probability] {
        return [probability](RandomStream& random) { return random.Uniform() < probability; };
    };
}

TEST(CountTries, IsTheSameWithAnyNumberOfThreads) {
    for (const int tries : {1, 99, 100, 101, 9999}) {
        Repetition repetition;
        repetition.tries = tries;
        const std::optional<int> alone = CountTries(repetition, TriesOf(0.3));
        for (const unsigned threads : {2U, 3U, 7U}) {
            repetition.threads = threads;
            EXPECT_EQ(CountTries(repetition, TriesOf(0.3)), alone) << tries << " " << threads;
        }
    }
}

TEST(CountTries, RunsEachTryOnce) {
    for (const int tries : {1, 100, 250}) {
        Repetition repetition;
        repetition.tries = tries;
        repetition.threads = 2;
        EXPECT_EQ(CountTries(repetition, TriesOf(2)), tries);
        EXPECT_EQ(CountTries(repetition, TriesOf(0)), 0);
    }
}

TEST(CountTries, CountsTheShareThatIsExpected) {
    Repetition repetition;
    const int counted = CountTries(repetition, TriesOf(0.3)).value();
    EXPECT_NEAR(counted, 0.3 * 9999, 4 * std::sqrt(0.3 * 0.7 * 9999));
    repetition.seed = 2;
    EXPECT_NE(CountTries(repetition, TriesOf(0.3)), counted);
}

TEST(CountTries, ReportsItsProgressUpToTheEnd) {
    Repetition repetition;
    repetition.tries = 950;
    std::vector<double> shares;
    repetition.goesOn = [&shares](double done) {
        shares.push_back(done);
        return true;
    };
    ASSERT_TRUE(CountTries(repetition, TriesOf(0.5)));
    ASSERT_EQ(shares.size(), 10U);
    EXPECT_DOUBLE_EQ(shares.front(), 100.0 / 950);
    EXPECT_DOUBLE_EQ(shares.back(), 1);
}

TEST(CountTries, HasNoResultWhenStopped) {
    for (const unsigned threads : {1U, 2U}) {
        Repetition repetition;
        repetition.tries = 1000000;
        repetition.threads = threads;
        int calls = 0;
        repetition.goesOn = [&calls](double) { return ++calls < 3; };
        EXPECT_FALSE(CountTries(repetition, TriesOf(0.5)));
        EXPECT_FALSE(ProbabilityByTries(repetition, TriesOf(0.5)));
        EXPECT_LT(calls, 10);
    }
}

TEST(CountTries, IsStoppedHoweverFastTheOtherThreadsAre) {
    Repetition repetition;
    repetition.tries = 3 * kTriesOfBlock;
    repetition.threads = 8;
    for (int round = 0; round < 200; ++round) {
        int asked = 0;
        repetition.goesOn = [&asked](double) { return ++asked < 0; };
        const auto never = [] { return [](RandomStream&) { return false; }; };
        ASSERT_FALSE(CountTries(repetition, never)) << round;
        ASSERT_EQ(asked, 1);
    }
}

TEST(ProbabilityByTries, CountsTheDataAsOneOutcome) {
    Repetition repetition;
    repetition.tries = 999;
    EXPECT_DOUBLE_EQ(ProbabilityByTries(repetition, TriesOf(0)).value(), 0.001);
    EXPECT_DOUBLE_EQ(ProbabilityByTries(repetition, TriesOf(2)).value(), 1);
}

} // namespace
} // namespace quandrel
