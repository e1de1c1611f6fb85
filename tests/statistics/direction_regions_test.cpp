// SPDX-License-Identifier: MIT

#include "statistics/direction_regions.h"
#include "support/weighted_samples.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace quandrel {
namespace {

constexpr double kLevel = 0.95;

/// Directions evenly round a small circle about straight up.
RegionSample Ring(int count, double angle) {
    WeightedDirections rows;
    for (int i = 0; i < count; ++i) {
        const double turn = 2 * std::numbers::pi * i / count;
        rows.directions.push_back(
            {std::sin(angle) * std::cos(turn), std::sin(angle) * std::sin(turn), -std::cos(angle)});
        rows.weights.push_back(1);
    }
    return RegionSampleOf(rows, RowsAre::Directions);
}

TEST(FisherCone, OfARingFollowsFromItsResultant) {
    // R = n cos a.
    for (const double angle : {1e-4, 0.1, 0.5, 1.0}) {
        const double n = 20;
        const double resultant = n * std::cos(angle);
        const ConfidenceRegion cone = FisherCone(Ring(20, angle), kLevel);
        const double cosine =
            1 - (n - resultant) / resultant * (std::pow(1 / 0.05, 1 / (n - 1)) - 1);
        const auto semiAxes = SemiAxes(cone);
        ASSERT_TRUE(semiAxes);
        EXPECT_NEAR(std::cos((*semiAxes)[0]), cosine, 1e-12);
        EXPECT_EQ((*semiAxes)[0], (*semiAxes)[1]);
        // n - R loses digits here, 2 n sin^2(a/2) does not.
        const double shortfall = 2 * n * std::pow(std::sin(angle / 2), 2);
        ASSERT_TRUE(cone.concentration);
        EXPECT_NEAR(*cone.concentration * shortfall / (n - 1), 1, 1e-10) << angle;
        EXPECT_EQ(cone.centre.n, -1);
    }
}

TEST(FisherCone, HoldsTheMeanOfConcentratedDirectionsAsOftenAsItSays) {
    // The formula is exact for concentrated directions in samples of any size.
    RandomStream random(11);
    constexpr int kSamples = 4000;
    for (const double level : {0.63, 0.95}) {
        int covered = 0;
        for (int i = 0; i < kSamples; ++i) {
            const RegionSample sample = RegionSampleOf(
                WeightedSampleOf(random, 5, [](RandomStream& r) { return FisherDirection(r, 50); }),
                RowsAre::Directions);
            covered += Contains(FisherCone(sample, level), {0, 0, 1}) ? 1 : 0;
        }
        const double deviation = std::sqrt(level * (1 - level) / kSamples);
        EXPECT_NEAR(static_cast<double>(covered) / kSamples, level, 3.5 * deviation);
    }
}

TEST(FisherCone, OfARightAngleAndMoreIsUndefined) {
    const ConfidenceRegion cone = FisherCone(Ring(3, 1.0), 0.99);
    EXPECT_EQ(cone.state, RegionState::Undefined);
    EXPECT_EQ(cone.reason, RegionReason::WithoutBounds);
    EXPECT_TRUE(Contains(cone, {1, 0, 0}));
}

TEST(DirectionEllipse, OfARingFollowsFromItsAngle) {
    // The components at right angles to the mean have the variance sin^2 a / 2, the mean length is
    // cos a.
    for (const double angle : {1e-4, 0.1, 0.5, 1.0}) {
        const ConfidenceRegion region = DirectionEllipse(Ring(40, angle), kLevel);
        const double sine = std::tan(angle) * std::sqrt(-2 * std::log(0.05) / 2 / 40);
        EXPECT_NEAR(region.components[0], sine, 1e-9 * sine);
        EXPECT_NEAR(region.components[1], sine, 1e-9 * sine);
    }
}

TEST(DirectionEllipse, IsTheSpreadOfMeansOfSamples) {
    constexpr int kRows = 150;
    constexpr int kSamples = 1500;
    constexpr int kMany = 100000;
    RandomStream random(12);
    const auto draw = [](RandomStream& r) { return ElongatedDirection(r, 0.2, 0.7); };
    const ConfidenceRegion large = DirectionEllipse(
        RegionSampleOf(WeightedSampleOf(random, kMany, draw), RowsAre::Directions), kLevel);
    std::array<double, 2> squares{};
    for (int i = 0; i < kSamples; ++i) {
        const RegionSample sample =
            RegionSampleOf(WeightedSampleOf(random, kRows, draw), RowsAre::Directions);
        const Direction mean = MeanFrameOf(sample)->axes[2];
        for (std::size_t j = 0; j < 2; ++j) {
            const double along = DotProduct(Combined(mean, 1, large.centre, -1), large.frame[j]);
            squares[j] += along * along / kSamples;
        }
    }
    EXPECT_GT(large.components[0], 2 * large.components[1]);
    for (std::size_t j = 0; j < 2; ++j) {
        const double expected =
            std::pow(large.components[j], 2) / (-2 * std::log(0.05)) * kMany / kRows;
        EXPECT_NEAR(squares[j] / expected, 1, 0.13) << j; // 3.5 standard deviations of a variance
    }
}

TEST(DirectionRegions, AreUndefinedWithoutAMeanOrWithRowsAlike) {
    const auto reasons = [](const WeightedDirections& rows) {
        const RegionSample sample = RegionSampleOf(rows, RowsAre::Directions);
        EXPECT_EQ(FisherCone(sample, kLevel).state, RegionState::Undefined);
        EXPECT_EQ(FisherCone(sample, kLevel).reason, DirectionEllipse(sample, kLevel).reason);
        return DirectionEllipse(sample, kLevel).reason;
    };
    EXPECT_EQ(reasons({}), RegionReason::TooFewRows);
    EXPECT_EQ(reasons({{{0, 0, 1}}, {1}}), RegionReason::TooFewRows);
    EXPECT_EQ(reasons({{{0, 0, 1}}, {7}}), RegionReason::RowsAlike);
    EXPECT_EQ(reasons({{{0, 0, 1}, {0, 0, -1}}, {3, 3}}), RegionReason::AxesAlike);
}

} // namespace
} // namespace quandrel
