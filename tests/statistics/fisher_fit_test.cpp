// SPDX-License-Identifier: MIT
//
// Tests of Fisher's distribution: statistics by other ways, published critical values, levels.

#include "statistics/fabric_kernels.h"
#include "statistics/fisher_fit.h"
#include "support/random_samples.h"
#include "support/rejections.h"
#include "support/trial.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace quandrel {
namespace {

Direction AtAngles(double colatitude, double longitude) {
    return {std::sin(colatitude) * std::cos(longitude), std::sin(colatitude) * std::sin(longitude),
            std::cos(colatitude)};
}

std::vector<Direction> FisherSample(int n, double kappa, std::uint64_t seed) {
    RandomStream random(seed);
    return SampleOf(n, [&random, kappa] { return FisherDirection(random, kappa); });
}

/// A sample about another mean, by a turn about the first axis.
std::vector<Direction> Tilted(const std::vector<Direction>& sample, double angle) {
    std::vector<Direction> tilted;
    for (const Direction& one : sample) {
        tilted.push_back({one.l, std::cos(angle) * one.m - std::sin(angle) * one.n,
                          std::sin(angle) * one.m + std::cos(angle) * one.n});
    }
    return tilted;
}

TEST(FitFisher, ColatitudesAreComparedWithTheExponentialDistribution) {
    const auto sample = FisherSample(20, 30, 1);
    const FisherFit fit = FitFisher(sample).value();
    Direction sum;
    for (const Direction& one : sample) {
        sum = {sum.l + one.l, sum.m + one.m, sum.n + one.n};
    }
    const double length = LengthOf(sum);
    EXPECT_NEAR(fit.concentration, 19 / (20 - length), 1e-9 * fit.concentration);
    std::vector<double> excesses;
    for (const Direction& one : sample) {
        excesses.push_back(1 - (one.l * sum.l + one.m * sum.m + one.n * sum.n) / length);
    }
    // The greatest distance of the two functions, from both sides of each step.
    double greatest = 0;
    for (const double excess : excesses) {
        const auto below = std::count_if(excesses.begin(), excesses.end(),
                                         [excess](double other) { return other < excess; });
        const double expected = 1 - std::exp(-fit.concentration * excess);
        greatest = std::max({greatest, std::abs(static_cast<double>(below) / 20 - expected),
                             std::abs(static_cast<double>(below + 1) / 20 - expected)});
    }
    const double root = std::sqrt(20.0);
    EXPECT_NEAR(fit.colatitudes.outcome.statistic, greatest * (root + 0.06 + 0.7 / root), 1e-9);
}

TEST(FitFisher, HasThePublishedCriticalValues) {
    // Of Stephens (1974) for an exponential distribution of unknown mean, 1.094 at 5% and so on of
    // (D - 0.2/n)(sqrt n + 0.26 + 0.5/sqrt n), as Fisher, Lewis, Embleton (1987) use them. Evenly
    // spread colatitudes with a gap have a deviation that grows with the gap: the gap of each
    // critical value is found by bisection.
    constexpr int n = 200;
    const double root = std::sqrt(static_cast<double>(n));
    for (const auto& [published, probability] :
         {std::pair(1.094, 0.05), {0.990, 0.10}, {1.308, 0.01}}) {
        const double deviation = published / (root + 0.26 + 0.5 / root) + 0.2 / n;
        double low = 0;
        double high = 0.5;
        TestOutcome outcome;
        for (int step = 0; step < 50; ++step) {
            const double gap = (low + high) / 2;
            std::vector<Direction> sample;
            for (int i = 0; i < n; ++i) {
                const double share = std::min((i + 0.5) / n + (i < n / 2 ? gap : 0), 1 - 0.5 / n);
                const double excess = -std::log1p(-share) / 100;
                sample.push_back(AtAngles(std::acos(1 - excess), i * 2.399963));
            }
            outcome = FitFisher(sample)->colatitudes.outcome;
            const double found = outcome.statistic / (root + 0.06 + 0.7 / root);
            (found < deviation ? low : high) = gap;
        }
        EXPECT_NEAR(outcome.probability / probability, 1, 0.12) << published;
    }
}

TEST(FitFisher, LongitudesDoNotDependOnTheMeanNorOnItsFrame) {
    const auto sample = FisherSample(30, 20, 2);
    const FisherFit fit = FitFisher(sample).value();
    for (const double angle : {0.3, 1.5, 2.9}) {
        const FisherFit tilted = FitFisher(Tilted(sample, angle)).value();
        EXPECT_NEAR(tilted.longitudes.outcome.statistic, fit.longitudes.outcome.statistic, 1e-9);
        EXPECT_NEAR(tilted.colatitudes.outcome.statistic, fit.colatitudes.outcome.statistic, 1e-9);
        EXPECT_NEAR(tilted.concentration, fit.concentration, 1e-8);
    }
}

TEST(FitFisher, TwoVariablesAreTheLevelAnglesOfConcentratedDirections) {
    // About a mean along north: the angle to the east is nearly the component m.
    std::vector<Direction> sample;
    const std::vector<double> easts = {-0.02, 0.013, 0.004, -0.008, 0.001, 0.016, -0.006};
    for (const double east : easts) {
        for (const double down : {-0.01, 0.01}) {
            sample.push_back({std::sqrt(1 - east * east - down * down), east, down});
        }
    }
    const FisherFit fit = FitFisher(sample).value();
    const auto& points = fit.twoVariables.points;
    ASSERT_EQ(points.size(), 14U);
    std::vector<double> found;
    for (const QuantilePoint& point : points) {
        found.push_back(std::abs(point.found));
    }
    EXPECT_NEAR(*std::max_element(found.begin(), found.end()), 0.02, 1e-4);
    EXPECT_NEAR(points.front().expected, -points.back().expected, 1e-9);
    EXPECT_TRUE(std::is_sorted(points.begin(), points.end(),
                               [](const auto& a, const auto& b) { return a.found < b.found; }));
}

TEST(FitFisher, PointsAreNearTheLineOfTheConcentration) {
    const FisherFit fit = FitFisher(FisherSample(5000, 50, 3)).value();
    const auto slopeOf = [](const std::vector<QuantilePoint>& points) {
        double products = 0;
        double squares = 0;
        for (const auto& [expected, found] : points) {
            products += expected * found;
            squares += expected * expected;
        }
        return products / squares;
    };
    EXPECT_NEAR(slopeOf(fit.colatitudes.points) * 50, 1, 0.06);
    EXPECT_NEAR(slopeOf(fit.longitudes.points), 1, 0.03);
    EXPECT_NEAR(slopeOf(fit.twoVariables.points) * std::sqrt(50.0), 1, 0.03);
    EXPECT_NEAR(fit.concentration / 50, 1, 0.06);
}

TEST(FitFisher, RejectsOtherDistributions) {
    RandomStream random(4);
    // A partial girdle is not symmetric, a ring has no directions near its mean.
    const auto girdle = SampleOf(100, [&random] { return BinghamDirection(random, -40, -4); });
    std::vector<Direction> upper;
    for (const Direction& one : girdle) {
        const double sign = one.n < 0 ? -1 : 1;
        upper.push_back({sign * one.l, sign * one.m, sign * one.n});
    }
    EXPECT_LT(FitFisher(upper)->longitudes.outcome.probability, 0.01);
    const auto ring = SampleOf(
        100, [&random] { return AtAngles(0.3 + 0.02 * random.Uniform(), UniformAzimuth(random)); });
    EXPECT_LT(FitFisher(ring)->colatitudes.outcome.probability, 0.001);
    EXPECT_LT(FitFisher(Tilted(ring, 1))->twoVariables.outcome.probability, 0.05);
}

TEST(FitFisher, HasNoResultOfTooFewOrEqualDirections) {
    EXPECT_FALSE(FitFisher(FisherSample(6, 10, 5)));
    EXPECT_TRUE(FitFisher(FisherSample(7, 10, 5)));
    EXPECT_FALSE(FitFisher(std::vector<Direction>(9, Direction{0, 0, 1})));
    std::vector<Direction> opposed(8, Direction{0, 0, 1});
    std::fill(opposed.begin() + 4, opposed.end(), Direction{0, 0, -1});
    EXPECT_FALSE(FitFisher(opposed));
}

TEST(FitFisherTrial, RejectsFisherSamplesAtTheLevels) {
    RandomStream random(1987);
    for (const int n : {10, 50}) {
        SCOPED_TRACE(n);
        const double kappa = n == 10 ? 20 : 40;
        Rejections colatitudes;
        Rejections longitudes;
        Rejections twoVariables;
        for (int i = 0; i < TrialRounds(20000); ++i) {
            const auto sample = SampleOf(n, [&] { return FisherDirection(random, kappa); });
            const FisherFit fit = FitFisher(sample).value();
            colatitudes.Add(fit.colatitudes.outcome.probability);
            longitudes.Add(fit.longitudes.outcome.probability);
            twoVariables.Add(fit.twoVariables.outcome.probability);
        }
        colatitudes.ExpectLevels();
        longitudes.ExpectLevels();
        twoVariables.ExpectLevels();
    }
}

} // namespace
} // namespace quandrel
