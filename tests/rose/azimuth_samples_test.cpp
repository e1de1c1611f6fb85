// SPDX-License-Identifier: MIT
//
// Tests of two samples of azimuths: printed values, all permutations of small samples, levels.

#include "rose/azimuth_samples.h"
#include "rose/azimuth_tests.h"
#include "rose/azimuths_in_radians.h"
#include "support/random_samples.h"
#include "support/rejections.h"
#include "support/trial.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <vector>

namespace quandrel {
namespace {

const std::vector<double>& ZarsFirst() {
    static const std::vector<double> sample = Radians({35, 45, 50, 55, 60, 70, 85, 95, 105, 120});
    return sample;
}

const std::vector<double>& ZarsSecond() {
    static const std::vector<double> sample =
        Radians({75, 80, 90, 100, 110, 130, 135, 140, 150, 160, 165});
    return sample;
}

TEST(WatsonTwoSamples, OfZarsExampleIsThePrintedValue) {
    // J. H. Zar, Biostatistical Analysis (1999), 26.10: U^2 = 0.1458, 0.1 > p > 0.05.
    const auto test = WatsonTwoSamples(ZarsFirst(), ZarsSecond(), {});
    ASSERT_TRUE(test);
    EXPECT_NEAR(test->statistic, 0.1458, 1e-4);
    EXPECT_GT(test->probability, 0.05);
    EXPECT_LT(test->probability, 0.2);
}

/// W as of its definition, of samples without equal angles.
double DefinedScores(const std::vector<double>& first, const std::vector<double>& second) {
    std::vector<double> all = first;
    all.insert(all.end(), second.begin(), second.end());
    std::sort(all.begin(), all.end());
    double w = 0;
    for (const auto& sample : {first, second}) {
        double cosine = 0;
        double sine = 0;
        for (const double one : sample) {
            const auto rank = std::upper_bound(all.begin(), all.end(), one) - all.begin();
            const double score =
                2 * std::numbers::pi * static_cast<double>(rank) / static_cast<double>(all.size());
            cosine += std::cos(score);
            sine += std::sin(score);
        }
        w += 2 * (cosine * cosine + sine * sine) / static_cast<double>(sample.size());
    }
    return w;
}

TEST(MardiaWatsonWheeler, OfDifferentAnglesIsThatOfTheDefinition) {
    const auto test = MardiaWatsonWheeler(ZarsFirst(), ZarsSecond(), {});
    ASSERT_TRUE(test);
    EXPECT_NEAR(test->statistic, DefinedScores(ZarsFirst(), ZarsSecond()), 1e-9);
    // By chi-square, which is close for samples of ten and more.
    EXPECT_NEAR(test->probability, std::exp(-test->statistic / 2), 0.02);
}

/// The share of all choices of the first sample that are at least as extreme.
template <class Test>
double ByAllChoices(const std::vector<double>& all, std::size_t members, Test statistic) {
    const auto at = [&](std::uint32_t choice) {
        std::vector<double> first;
        std::vector<double> second;
        for (std::size_t i = 0; i < all.size(); ++i) {
            ((choice >> i & 1U) != 0 ? first : second).push_back(all[i]);
        }
        return first.size() == members ? statistic(first, second) : -1;
    };
    const double found = at((1U << members) - 1);
    int choices = 0;
    int extreme = 0;
    for (std::uint32_t choice = 0; choice < (1U << all.size()); ++choice) {
        const double one = at(choice);
        choices += one >= 0 ? 1 : 0;
        extreme += one >= found - 1e-9 ? 1 : 0;
    }
    return static_cast<double>(extreme) / choices;
}

TEST(TwoSamples, HaveTheProbabilitiesOfAllPermutations) {
    // The first five are the first sample; three equal angles are in both.
    const auto all = Radians({10, 40, 40, 70, 95, 40, 100, 160, 200, 250});
    const std::vector<double> first(all.begin(), all.begin() + 5);
    const std::vector<double> second(all.begin() + 5, all.end());
    Repetition one;
    one.tries = 1;
    const double watson = ByAllChoices(all, 5, [&one](const auto& a, const auto& b) {
        return WatsonTwoSamples(a, b, one)->statistic;
    });
    const double scores = ByAllChoices(all, 5, [&one](const auto& a, const auto& b) {
        return MardiaWatsonWheeler(a, b, one)->statistic;
    });
    EXPECT_NEAR(WatsonTwoSamples(first, second, {})->probability, watson, 0.02);
    EXPECT_NEAR(MardiaWatsonWheeler(first, second, {})->probability, scores, 0.02);
}

TEST(TwoSamples, DoNotDependOnNorthNorOnTheirOrder) {
    const auto first = Radians({10, 40, 40, 70, 95, 350});
    const auto second = Radians({40, 100, 160, 200, 250, 350, 359});
    const auto watson = WatsonTwoSamples(first, second, {});
    const auto scores = MardiaWatsonWheeler(first, second, {});
    for (const double turn : {-25.0, 37.0, 180.0}) {
        std::vector<double> a = first;
        std::vector<double> b = second;
        for (double& one : a) {
            one += turn * kPerDegree;
        }
        for (double& one : b) {
            one += turn * kPerDegree;
        }
        EXPECT_NEAR(WatsonTwoSamples(a, b, {})->statistic, watson->statistic, 1e-9) << turn;
        EXPECT_NEAR(MardiaWatsonWheeler(b, a, {})->statistic, scores->statistic, 1e-9) << turn;
    }
}

TEST(TwoSamples, HaveNoResultWithoutData) {
    const auto two = Radians({10, 40});
    EXPECT_FALSE(WatsonTwoSamples(Radians({10}), two, {}));
    EXPECT_FALSE(MardiaWatsonWheeler(two, {}, {}));
    EXPECT_FALSE(WatsonTwoSamples(Radians({10, 10}), Radians({10, 370}), {}));
    EXPECT_FALSE(MardiaWatsonWheeler(two, two, {}));
    EXPECT_TRUE(WatsonTwoSamples(two, two, {}));
    Repetition stopped;
    stopped.goesOn = [](double) { return false; };
    EXPECT_FALSE(WatsonTwoSamples(ZarsFirst(), ZarsSecond(), stopped));
    EXPECT_FALSE(MardiaWatsonWheeler(ZarsFirst(), ZarsSecond(), stopped));
}

TEST(TwoSamples, FindDifferencesOfMeanAndOfSpread) {
    RandomStream random(12);
    const auto about = [&random](double mean, double kappa) {
        return SampleOf(30, [&] { return mean + VonMisesAzimuth(random, kappa); });
    };
    EXPECT_LT(WatsonTwoSamples(about(1, 5), about(2, 5), {})->probability, 0.01);
    EXPECT_LT(MardiaWatsonWheeler(about(1, 5), about(2, 5), {})->probability, 0.01);
    EXPECT_LT(WatsonTwoSamples(about(1, 30), about(1, 1), {})->probability, 0.01);
    EXPECT_LT(MardiaWatsonWheeler(about(1, 30), about(1, 1), {})->probability, 0.01);
}

TEST(TwoSamplesTrial, OfWholeDegreesAreRejectedAtTheLevels) {
    RandomStream random(13);
    Repetition repetition;
    repetition.tries = 199;
    // Steps of five degrees, so that many are equal; above 1000 the formulas of large samples.
    for (const auto& [n1, n2] : {std::pair(8, 12), {40, 25}, {700, 400}}) {
        SCOPED_TRACE(n1);
        Rejections watson;
        Rejections scores;
        for (int i = 0; i < TrialRounds(8000); ++i) {
            const auto one = [&random] {
                return std::nearbyint(VonMisesAzimuth(random, 2) / kPerDegree / 5) * 5 * kPerDegree;
            };
            const auto first = SampleOf(n1, one);
            const auto second = SampleOf(n2, one);
            repetition.seed = static_cast<std::uint64_t>(i);
            watson.Add(WatsonTwoSamples(first, second, repetition)->probability);
            scores.Add(MardiaWatsonWheeler(first, second, repetition)->probability);
        }
        watson.ExpectLevels();
        scores.ExpectLevels();
    }
}

} // namespace
} // namespace quandrel
