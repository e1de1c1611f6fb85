// SPDX-License-Identifier: MIT
//
// The bootstrap interval of a mean direction: how often it holds the true one.

#include "rose/mean_bootstrap.h"
#include "support/random_samples.h"
#include "support/trial.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

namespace quandrel {
namespace {

constexpr double pi = std::numbers::pi;
constexpr unsigned kSeed = 4711;

std::vector<WeightedAngle> SampleOf(const std::vector<double>& degrees, double factor = 1) {
    std::vector<WeightedAngle> sample;
    for (const double one : degrees) {
        sample.push_back({factor * one * pi / 180, 1});
    }
    return sample;
}

double Degrees(double radians) {
    return radians * 180 / pi;
}

TEST(BootstrapHalfWidthTrial, HoldsTheTrueAxisInNinetyFivePercentOfSamples) {
    RandomStream random(kSeed);
    const int samples = TrialRounds(4000);
    // Three standard errors of a share of 0.95.
    const double error = 3 * std::sqrt(0.95 * 0.05 / samples);
    for (const int n : {8, 12, 25}) {
        for (const double kappa : {1.5, 8.0}) {
            int held = 0;
            for (int i = 0; i < samples; ++i) {
                // Axes about 70 degrees: half of the angles that are distributed so.
                std::vector<WeightedAngle> doubled;
                double sine = 0;
                double cosine = 0;
                for (int k = 0; k < n; ++k) {
                    const double axis = 70 * pi / 180 + VonMisesAzimuth(random, kappa) / 2;
                    doubled.push_back({2 * axis, 1});
                    sine += std::sin(2 * axis);
                    cosine += std::cos(2 * axis);
                }
                const double mean = std::atan2(sine, cosine) / 2;
                const double off = std::abs(std::remainder(mean - 70 * pi / 180, pi));
                // No interval counts as one that holds all axes.
                const auto halfWidth = BootstrapHalfWidth(doubled);
                held += !halfWidth || off <= *halfWidth / 2 ? 1 : 0;
            }
            // Small samples hold more: 96.2% of 4000 with 12 axes.
            const double share = static_cast<double>(held) / samples;
            SCOPED_TRACE(testing::Message()
                         << "seed " << kSeed << " n " << n << " kappa " << kappa);
            EXPECT_GT(share, 0.95 - error);
            EXPECT_LT(share, n < 10 ? 1 : 0.983);
        }
    }
}

TEST(BootstrapHalfWidth, OfConcentratedAnglesIsNearThatOfStudentsT) {
    // Deviations so small that the circle is a line: 2.262 is the 97.5% point of t with 9 degrees
    // of freedom, and the bootstrap's is close to it.
    std::vector<double> degrees;
    double squares = 0;
    const std::vector<double> deviations = {-1.6, -1.1, -0.7, -0.4, -0.1, 0.1, 0.4, 0.7, 1.1, 1.6};
    for (const double deviation : deviations) {
        degrees.push_back(200 + deviation);
        squares += deviation * deviation;
    }
    const double byT = 2.262 * std::sqrt(squares / 9 / 10);
    EXPECT_NEAR(Degrees(*BootstrapHalfWidth(SampleOf(degrees))), byT, 0.15 * byT);
}

TEST(BootstrapHalfWidth, IsThatOfAllResamplesOfAFewAngles) {
    // All n^n resamples, each by the sines of its angles about its own mean.
    const std::vector<double> degrees = {10, 20, 32, 41, 75};
    const auto meanOf = [](const std::vector<double>& angles) {
        double sine = 0;
        double cosine = 0;
        for (const double angle : angles) {
            sine += std::sin(angle);
            cosine += std::cos(angle);
        }
        const double mean = std::atan2(sine, cosine);
        double squares = 0;
        for (const double angle : angles) {
            squares += std::pow(std::sin(angle - mean), 2);
        }
        const auto n = static_cast<double>(angles.size());
        return std::pair(mean, std::sqrt(squares / n) / (std::hypot(sine, cosine) / n));
    };
    std::vector<double> angles;
    for (const double one : degrees) {
        angles.push_back(one * pi / 180);
    }
    const auto [mean, error] = meanOf(angles);
    std::vector<double> quotients;
    for (int code = 0; code < 3125; ++code) {
        std::vector<double> resample;
        for (int rest = code, k = 0; k < 5; ++k, rest /= 5) {
            resample.push_back(angles[static_cast<std::size_t>(rest % 5)]);
        }
        const auto [itsMean, itsError] = meanOf(resample);
        const double off = std::abs(std::sin(itsMean - mean));
        quotients.push_back(off < 1e-9 ? 0 : itsError < 1e-9 ? 1e9 : off / itsError);
    }
    std::sort(quotients.begin(), quotients.end());
    const auto at = [&](double share) {
        return std::asin(quotients[static_cast<std::size_t>(3125 * share)] * error);
    };
    // The share beyond the limit of 2000 resamples is 5% within two standard errors.
    EXPECT_GE(*BootstrapHalfWidth(SampleOf(degrees)), at(0.94));
    EXPECT_LE(*BootstrapHalfWidth(SampleOf(degrees)), at(0.96));
    EXPECT_NEAR(Degrees(at(0.95)), 36.0, 0.1);
}

TEST(BootstrapHalfWidth, IsTheSameAtEachCallAndInAnyOrder) {
    std::vector<WeightedAngle> sample = SampleOf({12, 20, 31, 33, 40, 47, 60, 81});
    const auto first = BootstrapHalfWidth(sample);
    ASSERT_TRUE(first);
    EXPECT_EQ(BootstrapHalfWidth(sample), first);
    std::reverse(sample.begin(), sample.end());
    EXPECT_EQ(BootstrapHalfWidth(sample), first);
}

TEST(BootstrapHalfWidth, TurnsWithNothing) {
    // A turn of all angles changes the interval by no more than other resamples would.
    const std::vector<double> degrees = {12, 20, 31, 33, 40, 47, 60, 81};
    const double still = *BootstrapHalfWidth(SampleOf(degrees));
    std::vector<double> turned = degrees;
    for (double& one : turned) {
        one += 100;
    }
    EXPECT_NEAR(*BootstrapHalfWidth(SampleOf(turned)), still, 1e-9);
}

TEST(BootstrapHalfWidth, WeightsCountAsRepeatedLengthsDo) {
    // Equal weights change nothing, even if all of them are negative.
    const std::vector<WeightedAngle> plain = SampleOf({12, 20, 31, 33, 40, 47, 60, 81});
    for (const double weight : {3.5, -2.0}) {
        std::vector<WeightedAngle> weighted = plain;
        for (WeightedAngle& one : weighted) {
            one.weight = weight;
            one.angle += weight < 0 ? pi : 0;
        }
        const auto found = BootstrapHalfWidth(weighted);
        ASSERT_TRUE(found) << weight;
        EXPECT_NEAR(*found, *BootstrapHalfWidth(plain), 1e-9) << weight;
    }
    // A heavy angle pulls the mean and narrows what the light ones can do to it.
    std::vector<WeightedAngle> heavy = plain;
    heavy[3].weight = 2;
    EXPECT_NE(*BootstrapHalfWidth(heavy), *BootstrapHalfWidth(plain));
}

TEST(BootstrapHalfWidth, IsNoneWhereNothingHoldsNinetyFivePercent) {
    EXPECT_FALSE(BootstrapHalfWidth({}));
    EXPECT_FALSE(BootstrapHalfWidth(SampleOf({50})));
    EXPECT_FALSE(BootstrapHalfWidth(SampleOf({50, 230})));         // no resultant
    EXPECT_FALSE(BootstrapHalfWidth(SampleOf({50, 60})));          // half of all pairs are equal
    EXPECT_FALSE(BootstrapHalfWidth(SampleOf({50, 60, 70})));      // a ninth of all triples
    EXPECT_FALSE(BootstrapHalfWidth(SampleOf({0, 90, 180, 269}))); // hardly a resultant
    EXPECT_EQ(*BootstrapHalfWidth(SampleOf({50, 50, 50})), 0);
}

} // namespace
} // namespace quandrel
