// SPDX-License-Identifier: MIT

#include "statistics/region_sample.h"
#include "statistics/symmetry_tests.h"
#include "support/weighted_samples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace quandrel {
namespace {

TEST(RegionSampleOf, DependsNeitherOnOrderNorOnRowsGivenAsOne) {
    RandomStream random(4);
    WeightedDirections rows =
        WeightedSampleOf(random, 40, [](RandomStream& r) { return WatsonDirection(r, 2); });
    WeightedDirections shuffled;
    for (std::size_t i = 40; i-- > 0;) {
        // Each row twice, the second time as its other end.
        const Direction& row = rows.directions[i];
        shuffled.directions.push_back({-row.l, -row.m, -row.n});
        shuffled.weights.push_back(1);
        shuffled.directions.push_back(row);
        shuffled.weights.push_back(1);
        rows.weights[i] = 2;
    }
    shuffled.directions.push_back({0, 0, 1});
    shuffled.weights.push_back(0);
    const RegionSample once = RegionSampleOf(rows, RowsAre::Axes);
    const RegionSample again = RegionSampleOf(shuffled, RowsAre::Axes);
    EXPECT_EQ(again.count, 80);
    EXPECT_EQ(again.total, once.total);
    EXPECT_EQ(again.rows.weights, once.rows.weights);
    ASSERT_EQ(again.rows.directions.size(), 40U);
    for (std::size_t i = 0; i < 40; ++i) {
        EXPECT_EQ(again.rows.directions[i].l, once.rows.directions[i].l);
        EXPECT_EQ(again.rows.directions[i].m, once.rows.directions[i].m);
        EXPECT_EQ(again.rows.directions[i].n, once.rows.directions[i].n);
        EXPECT_GT(once.rows.directions[i].n, 0);
    }
    EXPECT_EQ(RegionSampleOf(shuffled, RowsAre::Directions).rows.directions.size(), 80U);
}

TEST(RegionSampleOf, TakesTheEffectiveNumber) {
    const WeightedDirections rows = {{{0, 0, 1}, {0, 1, 0}}, {3, 4}};
    EXPECT_EQ(RegionSampleOf(rows, RowsAre::Axes).count, 7);
    EXPECT_EQ(RegionSampleOf(rows, RowsAre::Axes, 1.96).count, 1.96);
    EXPECT_EQ(RegionSampleOf(rows, RowsAre::Axes, 1.96).total, 7);
}

TEST(AxisFrameOf, HasItsCentreLast) {
    const WeightedDirections rows = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}, {3, 6, 1}};
    const RegionSample sample = RegionSampleOf(rows, RowsAre::Axes);
    const auto about3 = AxisFrameOf(sample, FrameCentre::Greatest);
    const auto about1 = AxisFrameOf(sample, FrameCentre::Least);
    ASSERT_TRUE(about3 && about1);
    EXPECT_EQ(about3->axes[2].m, 1);
    EXPECT_NEAR(about3->values[2], 0.6, 1e-15);
    EXPECT_EQ(about1->axes[2].n, 1);
    EXPECT_NEAR(about1->values[2], 0.1, 1e-15);
    EXPECT_NEAR(about1->values[1], 0.3, 1e-15);
    EXPECT_FALSE(AxisFrameOf(RegionSample{}, FrameCentre::Least));
}

TEST(MeanFrameOf, DirectionsThatCancelHaveNone) {
    const WeightedDirections rows = {{{1, 0, 0}, {-1, 0, 0}}, {1, 1}};
    EXPECT_FALSE(MeanFrameOf(RegionSampleOf(rows, RowsAre::Directions)));
    EXPECT_FALSE(MeanFrameOf(RegionSample{}));
    const WeightedDirections angle = {{{1, 0, 0}, {0, 1, 0}}, {1, 1}};
    const auto frame = MeanFrameOf(RegionSampleOf(angle, RowsAre::Directions));
    ASSERT_TRUE(frame);
    EXPECT_NEAR(frame->meanLength, std::sqrt(0.5), 1e-15);
}

// Symmetry.

TEST(SymmetryOfAxes, AboutThePrincipalAxisIsTheTestOfTheStatistics) {
    RandomStream random(5);
    for (int i = 0; i < 50; ++i) {
        const WeightedDirections rows = WeightedSampleOf(
            random, 30, [](RandomStream& r) { return BinghamDirection(r, -8, -4); });
        const RegionSample sample = RegionSampleOf(rows, RowsAre::Axes);
        const auto axes = AxisSampleOf(rows);
        ASSERT_TRUE(axes);
        const double expected = std::exp(-TextbookSymmetryStatistic(*axes) / 2);
        EXPECT_NEAR(SymmetryOfAxes(sample, *AxisFrameOf(sample, FrameCentre::Greatest)), expected,
                    1e-10);
    }
}

/// The share of samples in which a test rejects.
template <class Probability>
double ShareRejected(int samples, Probability probability) {
    int rejected = 0;
    for (int i = 0; i < samples; ++i) {
        rejected += probability() < kSymmetryLevel ? 1 : 0;
    }
    return static_cast<double>(rejected) / samples;
}

TEST(SymmetryOfAxes, RejectsOneInTwentySymmetricSamplesAboutEitherAxis) {
    RandomStream random(6);
    const auto share = [&random](double k1, double k2, FrameCentre centre) {
        return ShareRejected(2000, [&] {
            const RegionSample sample = RegionSampleOf(
                WeightedSampleOf(random, 60,
                                 [=](RandomStream& r) { return BinghamDirection(r, k1, k2); }),
                RowsAre::Axes);
            return SymmetryOfAxes(sample, *AxisFrameOf(sample, centre));
        });
    };
    // The standard deviation of a share is 0.005.
    EXPECT_NEAR(share(-10, -10, FrameCentre::Greatest), 0.05, 0.02);
    EXPECT_NEAR(share(-8, 0, FrameCentre::Least), 0.05, 0.02);
    EXPECT_GT(share(-12, -3, FrameCentre::Greatest), 0.9);
    EXPECT_GT(share(-12, -3, FrameCentre::Least), 0.9);
}

TEST(SymmetryOfDirections, RejectsOneInTwentySymmetricSamples) {
    RandomStream random(7);
    const auto share = [&random](auto draw) {
        return ShareRejected(2000, [&] {
            const RegionSample sample =
                RegionSampleOf(WeightedSampleOf(random, 60, draw), RowsAre::Directions);
            return SymmetryOfDirections(sample, *MeanFrameOf(sample));
        });
    };
    EXPECT_NEAR(share([](RandomStream& r) { return FisherDirection(r, 10); }), 0.05, 0.02);
    EXPECT_NEAR(share([](RandomStream& r) { return FisherDirection(r, 2); }), 0.05, 0.02);
    EXPECT_GT(share([](RandomStream& r) { return ElongatedDirection(r, 0.1, 0.4); }), 0.9);
}

TEST(SymmetryTestOfAxes, IsOfTheLesserEigenvaluesOverTheFourthMoment) {
    // Two axes each at 0.6 and 0.8 of a right angle's sine from the vertical, along north and east:
    // t1 = 0.18, t2 = 0.32, mean((1 - c^2)^2) = (0.6^4 + 0.8^4)/2.
    const WeightedDirections rows = {{{0.6, 0, 0.8}, {-0.6, 0, 0.8}, {0, 0.8, 0.6}, {0, -0.8, 0.6}},
                                     {1, 1, 1, 1}};
    const RegionSample sample = RegionSampleOf(rows, RowsAre::Axes);
    const TestOutcome test =
        SymmetryTestOfAxes(sample, *AxisFrameOf(sample, FrameCentre::Greatest));
    const double expected = 2 * 4 * 0.14 * 0.14 / ((0.1296 + 0.4096) / 2);
    EXPECT_NEAR(test.statistic, expected, 1e-12);
    EXPECT_NEAR(test.probability, std::exp(-expected / 2), 1e-12);
}

TEST(SymmetryOfAxes, RowsOnOneLineAreSymmetric) {
    const WeightedDirections rows = {{{0.6, 0, 0.8}}, {9}};
    const RegionSample sample = RegionSampleOf(rows, RowsAre::Axes);
    EXPECT_EQ(SymmetryOfAxes(sample, *AxisFrameOf(sample, FrameCentre::Greatest)), 1);
}

} // namespace
} // namespace quandrel
