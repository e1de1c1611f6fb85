// SPDX-License-Identifier: MIT

#include "orientation/angles.h"
#include "rose/circular_reference.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <vector>

namespace quandrel {
namespace {

using std::numbers::pi;

constexpr unsigned kSeed = 1960;

std::vector<double> Radians(const std::vector<int>& degrees) {
    std::vector<double> angles;
    for (const int degree : degrees) {
        angles.push_back(degree * pi / 180);
    }
    return angles;
}

/// I1 / I0 by the integrals of both over the circle, which equal steps sum up exactly.
double IntegratedLength(double kappa) {
    constexpr int kSteps = 20000;
    double above = 0;
    double below = 0;
    for (int i = 0; i < kSteps; ++i) {
        const double cosine = std::cos(2 * pi * i / kSteps);
        const double density = std::exp(kappa * (cosine - 1));
        above += cosine * density;
        below += density;
    }
    return above / below;
}

TEST(VonMisesLength, IsTheQuotientOfTheIntegrals) {
    for (const double kappa :
         {0.0, 1e-4, 0.01, 0.5, 1.0, 2.0, 3.7, 10.0, 49.5, 200.0, 499.0, 501.0, 1000.0, 1e5}) {
        EXPECT_NEAR(VonMisesLength(kappa), IntegratedLength(kappa), 1e-12) << kappa;
    }
}

TEST(VonMisesKappa, UndoesTheIntegratedLength) {
    for (const double kappa : {0.01, 0.3, 1.0, 2.5, 8.0, 40.0, 300.0, 3000.0}) {
        EXPECT_NEAR(VonMisesKappa(IntegratedLength(kappa)) / kappa, 1, 1e-8) << kappa;
    }
    EXPECT_EQ(VonMisesKappa(0), 0);
}

TEST(VonMisesKappa, AgreesWithThePrintedTable) {
    // K. V. Mardia, Statistics of Directional Data (1972), the table of maximum likelihood.
    const std::vector<std::pair<double, double>> table = {
        {0.10, 0.20101}, {0.20, 0.40828}, {0.30, 0.62922}, {0.40, 0.87408}, {0.50, 1.15932},
        {0.60, 1.51574}, {0.70, 2.01363}, {0.80, 2.87129}, {0.90, 5.3047},
    };
    for (const auto& [length, kappa] : table) {
        EXPECT_NEAR(VonMisesKappa(length), kappa, kappa < 5 ? 6e-6 : 6e-5) << length;
    }
}

TEST(CorrectedKappa, ShrinksThatOfSmallSamples) {
    EXPECT_DOUBLE_EQ(CorrectedKappa(1, 10), 1 - 2.0 / 10);
    EXPECT_EQ(CorrectedKappa(0.3, 10), 0);
    EXPECT_EQ(CorrectedKappa(0, 10), 0);
    EXPECT_DOUBLE_EQ(CorrectedKappa(2, 10), 729.0 * 2 / 1010);
    EXPECT_DOUBLE_EQ(CorrectedKappa(5, 15), 2744.0 * 5 / 3390);
    EXPECT_EQ(CorrectedKappa(5, 16), 5);
}

/// P(n R^2 >= z) of n uniform directions, by the Bessel integral of the random walk: 1 - r times
/// the integral of J1(r t) J0(t)^n, r the length of the walk. Simpson's rule.
double RandomWalkTail(int n, double z) {
    const double r = std::sqrt(n * z);
    constexpr double kEnd = 40;
    constexpr int kSteps = 8000;
    double sum = 0;
    for (int i = 1; i <= kSteps; ++i) {
        const double t = kEnd * i / kSteps;
        const double value = std::cyl_bessel_j(1, r * t) * std::pow(std::cyl_bessel_j(0, t), n);
        sum += value * (i == kSteps ? 1 : (i % 2 == 1 ? 4 : 2));
    }
    return 1 - r * sum * kEnd / kSteps / 3;
}

TEST(RayleighTest, HasTheProbabilityOfTheRandomWalk) {
    for (const int n : {10, 15, 30, 60}) {
        for (const double z : {0.2, 1.0, 2.0, 3.0, 4.5}) {
            const UniformityTest found = RayleighTest(n, std::sqrt(z / n));
            EXPECT_NEAR(found.statistic, z, 1e-12);
            EXPECT_NEAR(found.probability, RandomWalkTail(n, z), 3e-4) << n << ", " << z;
        }
    }
}

TEST(RayleighTest, AgreesWithPrintedCriticalValues) {
    // J. H. Zar, Biostatistical Analysis (1984), critical values of n R^2 at 5 %.
    EXPECT_NEAR(RayleighTest(10, std::sqrt(2.919 / 10)).probability, 0.05, 2e-4);
    EXPECT_NEAR(RayleighTest(1e6, std::sqrt(2.996 / 1e6)).probability, 0.05, 2e-5);
}

TEST(RayleighTest, GivesAProbabilityWhateverTheSample) {
    EXPECT_EQ(RayleighTest(20, 0).probability, 1);
    for (const double n : {1.0, 2.0, 5.0, 1000.0, 1e7}) {
        const double probability = RayleighTest(n, 1).probability;
        EXPECT_GE(probability, 0);
        EXPECT_LE(probability, 1);
    }
    EXPECT_EQ(RayleighTest(1e7, 1).probability, 0);
}

/// Largest difference between the share of angles in an arc and its share of the circle, over all
/// arcs that end at angles, with their ends or without.
double LargestArcDifference(const std::vector<double>& angles) {
    double largest = 0;
    for (const double from : angles) {
        for (const double to : angles) {
            const double width = std::fmod(to - from + 4 * pi, 2 * pi);
            double closed = 0;
            double open = 0;
            for (const double angle : angles) {
                const double place = std::fmod(angle - from + 4 * pi, 2 * pi);
                closed += place <= width ? 1 : 0;
                open += place > 0 && place < width ? 1 : 0;
            }
            const auto n = static_cast<double>(angles.size());
            largest =
                std::max({largest, closed / n - width / (2 * pi), width / (2 * pi) - open / n});
        }
    }
    return largest;
}

/// Angles on a grid of binary fractions of a turn, where differences come out exactly.
std::vector<double> GridAngles(std::mt19937& random, std::size_t count) {
    std::vector<double> angles(count);
    for (double& angle : angles) {
        angle = static_cast<double>(random() % 64) / 64 * 2 * pi;
    }
    return angles;
}

TEST(KuiperTest, TakesTheLargestDifferenceOverAllArcs) {
    std::mt19937 random(kSeed);
    for (int sample = 0; sample < 100; ++sample) {
        std::vector<double> angles = GridAngles(random, 2 + random() % 20);
        // With ties, the largest difference could need an arc of zero width.
        std::sort(angles.begin(), angles.end());
        angles.erase(std::unique(angles.begin(), angles.end()), angles.end());
        if (angles.size() > 1) {
            EXPECT_NEAR(KuiperTest(angles).range, LargestArcDifference(angles), 1e-9)
                << "seed " << kSeed << " sample " << sample;
        }
    }
}

TEST(KuiperTest, DoesNotDependOnWhereNorthIs) {
    std::mt19937 random(kSeed);
    for (int sample = 0; sample < 100; ++sample) {
        std::vector<double> angles = GridAngles(random, 1 + random() % 50);
        const double range = KuiperTest(angles).range;
        for (double& angle : angles) {
            angle += sample * 0.37 - 10;
        }
        EXPECT_NEAR(KuiperTest(angles).range, range, 1e-9);
    }
}

TEST(KuiperTest, OfEquallySpacedAnglesIsTheLeastPossible) {
    std::vector<double> angles;
    for (int i = 0; i < 40; ++i) {
        angles.push_back(2 * pi * i / 40 + 0.01);
    }
    const KuiperResult found = KuiperTest(angles);
    EXPECT_NEAR(found.range, 1.0 / 40, 1e-12);
    EXPECT_EQ(found.test.probability, 1);
}

TEST(KuiperTest, HasTheProbabilitiesOfThePrintedCriticalValues) {
    // M. A. Stephens (1970): 1.620 at 10 %, 1.747 at 5 %, 1.862 at 2.5 %, 2.001 at 1 %. Angles
    // spread evenly over an arc have V = 1 - arc / turn.
    const std::vector<std::pair<double, double>> table = {
        {1.620, 0.10}, {1.747, 0.05}, {1.862, 0.025}, {2.001, 0.01}};
    for (const auto& [critical, probability] : table) {
        constexpr int kCount = 30;
        const double range = critical / (std::sqrt(kCount) + 0.155 + 0.24 / std::sqrt(kCount));
        const double arc = (1 - range) * 2 * pi;
        std::vector<double> angles;
        for (int i = 0; i < kCount; ++i) {
            angles.push_back(arc * i / (kCount - 1));
        }
        const KuiperResult found = KuiperTest(angles);
        EXPECT_NEAR(found.range, range, 1e-9);
        EXPECT_NEAR(found.test.statistic, critical, 1e-9);
        EXPECT_NEAR(found.test.probability, probability, 3e-4);
    }
}

TEST(UniformityTests, RejectOneInTwentyUniformSamples) {
    std::mt19937 random(kSeed);
    std::uniform_real_distribution<double> uniform(0, 2 * pi);
    int rayleigh = 0;
    int kuiper = 0;
    constexpr int kSamples = 4000;
    for (int sample = 0; sample < kSamples; ++sample) {
        std::vector<double> angles(20);
        std::array<double, 4> sums{};
        for (double& angle : angles) {
            angle = uniform(random);
            sums[0] += std::sin(angle);
            sums[1] += std::cos(angle);
        }
        const auto found = ComputeCircularReference({sums, 20, 20, angles, AngleSense::kDirected});
        ASSERT_TRUE(found);
        rayleigh += found->rayleigh->probability < 0.05 ? 1 : 0;
        kuiper += found->kuiper->test.probability < 0.05 ? 1 : 0;
    }
    // Four standard deviations about 200.
    EXPECT_NEAR(rayleigh, 200, 55) << "seed " << kSeed;
    EXPECT_NEAR(kuiper, 200, 55) << "seed " << kSeed;
}

double MeanDistance(const std::vector<double>& angles, double direction) {
    double sum = 0;
    for (const double angle : angles) {
        sum += std::abs(std::remainder(angle - direction, 2 * pi));
    }
    return sum / static_cast<double>(angles.size());
}

TEST(TextbookMedian, IsThatOfTheSingleAnglesByBruteForce) {
    std::mt19937 random(20260);
    for (int sample = 0; sample < 100; ++sample) {
        const AngleSense sense = sample % 2 == 0 ? AngleSense::kDirected : AngleSense::kAxial;
        const double period = sense == AngleSense::kAxial ? 180 : 360;
        std::vector<AngleCount> groups;
        for (int group = 0; group < 9; ++group) {
            groups.push_back({std::fmod(static_cast<double>(random() % 140), period) * kPi / 180,
                              static_cast<double>(random() % 4)});
        }
        groups.front().count = 1;
        const LeastDeviation found = TextbookMedian(groups, 1, sense);
        // The mean distance from each quarter of a degree.
        double least = 360;
        const auto deviationFrom = [&](double degrees) {
            double sum = 0;
            double count = 0;
            for (const auto& [angle, weight] : groups) {
                const double off = std::abs(std::remainder(angle * 180 / kPi - degrees, period));
                sum += weight * off;
                count += weight;
            }
            return sum / count;
        };
        for (double degrees = 0; degrees < period; degrees += 0.25) {
            least = std::min(least, deviationFrom(degrees));
        }
        EXPECT_NEAR(found.deviation * 180 / kPi, least, 1e-9) << sample;
        EXPECT_NEAR(deviationFrom(found.median * 180 / kPi), least, 1e-9) << sample;
    }
}

TEST(TextbookMedian, AtNorthIsAFullTurnAndWithoutACountNone) {
    const std::vector<AngleCount> north = {{0, 3}, {0.2, 1}};
    EXPECT_EQ(TextbookMedian(north, 0, AngleSense::kDirected).median, kTwoPi);
    EXPECT_EQ(TextbookMedian({}, 0, AngleSense::kDirected).median, 0);
}

TEST(MedianOfLeastDeviation, HasNoDirectionNearerToTheAngles) {
    std::mt19937 random(kSeed);
    for (int sample = 0; sample < 200; ++sample) {
        const std::vector<double> angles = GridAngles(random, 1 + random() % 30);
        const LeastDeviation found = MedianOfLeastDeviation(angles, 1.0);
        ASSERT_NEAR(found.deviation, MeanDistance(angles, found.median), 1e-9);
        for (int step = 0; step < 640; ++step) {
            ASSERT_GE(MeanDistance(angles, 2 * pi * step / 640), found.deviation - 1e-9)
                << "seed " << kSeed << " sample " << sample << " step " << step;
        }
    }
}

TEST(MedianOfLeastDeviation, OfSmallSamplesIsTheMiddleOne) {
    struct MedianCase {
        std::vector<int> degrees;
        int mean;
        double median;
    };

    const std::vector<MedianCase> cases = {
        {{37}, 37, 37},
        {{10, 30, 20}, 20, 20},
        {{10, 20, 30, 40}, 25, 25},
        {{350, 20, 10, 0}, 5, 5},
        {{350, 10}, 0, 0},
        {{0, 0, 90}, 26, 0},
        {{0, 120, 240}, 125, 120},     // the nearest of three
        {{0, 90, 180, 270}, 100, 135}, // all are; of the middles the nearest
    };
    for (const MedianCase& test : cases) {
        const LeastDeviation found =
            MedianOfLeastDeviation(Radians(test.degrees), test.mean * pi / 180);
        EXPECT_NEAR(std::remainder(found.median * 180 / pi - test.median, 360), 0, 1e-9)
            << test.degrees.front() << " of " << test.degrees.size();
    }
}

std::array<double, 4> SumsOf(const std::vector<double>& angles, double factor) {
    std::array<double, 4> sums{};
    for (const double angle : angles) {
        sums[0] += std::sin(factor * angle);
        sums[1] += std::cos(factor * angle);
        sums[2] += std::sin(2 * factor * angle);
        sums[3] += std::cos(2 * factor * angle);
    }
    return sums;
}

TEST(CircularReference, HasNoLeaningsAtTheAxes) {
    for (int degrees = 0; degrees < 360; degrees += 15) {
        const std::vector<double> angles = Radians({degrees - 10, degrees + 10, degrees});
        const auto found =
            ComputeCircularReference({SumsOf(angles, 1), 3, 3, angles, AngleSense::kDirected});
        ASSERT_TRUE(found && found->meanDirection && found->median);
        EXPECT_NEAR(std::remainder(*found->meanDirection * 180 / pi - degrees, 360), 0, 1e-9);
        EXPECT_NEAR(std::remainder(found->median->median * 180 / pi - degrees, 360), 0, 1e-9);
        EXPECT_NEAR(found->median->deviation * 180 / pi, 20 / 3.0, 1e-9);
    }
}

TEST(CircularReference, StaysBelowAFullTurnInDegrees) {
    for (int spread = 1; spread < 90; ++spread) {
        for (int turn = 0; turn <= 1; ++turn) {
            // North in the middle, by different roundings.
            const std::vector<double> angles = {DegToRad(360 - spread), DegToRad(spread),
                                                DegToRad(360.0 * turn + spread)};
            const std::vector<double> pair = {angles[0], angles[1]};
            for (const auto& sample : {angles, pair}) {
                const auto n = static_cast<double>(sample.size());
                const auto found = ComputeCircularReference(
                    {SumsOf(sample, 1), n, n, sample, AngleSense::kDirected});
                ASSERT_TRUE(found && found->meanDirection && found->median);
                EXPECT_LT(RadToDeg(*found->meanDirection), 360) << spread;
                EXPECT_LT(RadToDeg(found->median->median), 360) << spread;
                const auto axes =
                    ComputeCircularReference({SumsOf(sample, 2), n, n, sample, AngleSense::kAxial});
                ASSERT_TRUE(axes && axes->median);
                EXPECT_LT(RadToDeg(axes->median->median), 180) << spread;
            }
        }
    }
}

TEST(CircularReference, OfWeightsOfBothSignsIsNoneWhenTheResultantIsTooLong) {
    // 3 times north less 1 times east.
    const std::vector<double> angles = Radians({0, 90});
    EXPECT_FALSE(ComputeCircularReference({{-1, 3, 0, 4}, 2, 2, angles, AngleSense::kDirected}));
    EXPECT_TRUE(ComputeCircularReference({{1, 3, 0, 2}, 4, 2, angles, AngleSense::kDirected}));
}

TEST(CircularReference, OfAxesIsThatOfTheDoubledAnglesHalved) {
    const std::vector<double> axes = Radians({170, 10, 20, 35});
    std::vector<double> doubled = axes;
    for (double& angle : doubled) {
        angle *= 2;
    }
    const auto of = ComputeCircularReference({SumsOf(axes, 2), 4, 4, axes, AngleSense::kAxial});
    const auto twice =
        ComputeCircularReference({SumsOf(doubled, 1), 4, 4, doubled, AngleSense::kDirected});
    ASSERT_TRUE(of && twice);
    EXPECT_NEAR(*of->meanDirection, *twice->meanDirection / 2, 1e-12);
    EXPECT_NEAR(*of->standardDeviation, *twice->standardDeviation / 2, 1e-12);
    EXPECT_NEAR(of->variance, 1 - std::pow(1 - twice->variance, 0.25), 1e-12);
    EXPECT_NEAR(of->median->median, twice->median->median / 2, 1e-12);
    EXPECT_NEAR(of->median->deviation, twice->median->deviation / 2, 1e-12);
    EXPECT_NEAR(*of->confidenceHalfWidth, *twice->confidenceHalfWidth / 2, 1e-12);
    EXPECT_NEAR(of->kappa, twice->kappa, 1e-9);
    EXPECT_NEAR(*of->skewness, *twice->skewness, 1e-9);
    EXPECT_NEAR(of->rayleigh->probability, twice->rayleigh->probability, 1e-12);
    EXPECT_NEAR(of->kuiper->range, twice->kuiper->range, 1e-12);
}

TEST(CircularReference, LeavesOutWhatFails) {
    const std::vector<double> same = Radians({40, 40, 40});
    const auto one = ComputeCircularReference({SumsOf(same, 1), 3, 3, same, AngleSense::kDirected});
    ASSERT_TRUE(one);
    EXPECT_TRUE(std::isinf(one->kappa));
    EXPECT_FALSE(one->skewness);
    EXPECT_FALSE(one->kurtosis);
    EXPECT_EQ(*one->standardError, 0);
    const std::vector<double> opposite = Radians({40, 220});
    const auto none =
        ComputeCircularReference({SumsOf(opposite, 1), 2, 2, opposite, AngleSense::kDirected});
    ASSERT_TRUE(none);
    EXPECT_FALSE(none->meanDirection);
    EXPECT_FALSE(none->standardDeviation);
    EXPECT_FALSE(none->dispersion);
    EXPECT_FALSE(none->confidenceHalfWidth);
    EXPECT_EQ(none->kappa, 0);
    EXPECT_EQ(none->rayleigh->probability, 1);
    const auto unlisted =
        ComputeCircularReference({SumsOf(same, 1), 3, 3, {}, AngleSense::kDirected});
    ASSERT_TRUE(unlisted);
    EXPECT_FALSE(unlisted->median);
    EXPECT_FALSE(unlisted->rayleigh);
    EXPECT_FALSE(unlisted->kuiper);
    EXPECT_FALSE(ComputeCircularReference({{}, 0, 0, {}, AngleSense::kDirected}));
}

TEST(CircularReference, ConfidenceIntervalHoldsTheMeanInNineteenOfTwentySamples) {
    std::mt19937 random(kSeed);
    std::normal_distribution<double> normal(1, 0.5);
    constexpr int kSamples = 2000;
    constexpr int kCount = 100;
    int held = 0;
    for (int sample = 0; sample < kSamples; ++sample) {
        std::vector<double> angles(kCount);
        for (double& angle : angles) {
            angle = normal(random);
        }
        const auto found = ComputeCircularReference(
            {SumsOf(angles, 1), kCount, kCount, {}, AngleSense::kDirected});
        ASSERT_TRUE(found && found->confidenceHalfWidth);
        held += std::abs(*found->meanDirection - 1) <= *found->confidenceHalfWidth ? 1 : 0;
    }
    EXPECT_NEAR(held, 0.95 * kSamples, 40) << "seed " << kSeed;
}

} // namespace
} // namespace quandrel
