// SPDX-License-Identifier: MIT

#include "statistics/axis_regions.h"
#include "statistics/bingham_distribution.h"
#include "statistics/reference_statistics.h"
#include "support/weighted_samples.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace quandrel {
namespace {

constexpr double kLevel = 0.95;
const double kChiSquare = -2 * std::log(1 - kLevel);

/// Axes evenly round a small circle about (0, 0, 1).
RegionSample Ring(int count, double angle) {
    WeightedDirections rows;
    for (int i = 0; i < count; ++i) {
        const double turn = 2 * std::numbers::pi * i / count;
        rows.directions.push_back(
            {std::sin(angle) * std::cos(turn), std::sin(angle) * std::sin(turn), std::cos(angle)});
        rows.weights.push_back(1);
    }
    return RegionSampleOf(rows, RowsAre::Axes);
}

RegionSample BinghamSample(std::uint64_t seed, int count, double k1, double k2) {
    RandomStream random(seed);
    return RegionSampleOf(
        WeightedSampleOf(random, count,
                         [=](RandomStream& r) { return BinghamDirection(r, k1, k2); }),
        RowsAre::Axes);
}

TEST(AxisRegions, OfARingFollowFromItsAngle) {
    // tc = cos^2 a, the other eigenvalues are sin^2 a / 2, and E is sin^2 a cos^2 a / 2 over the
    // squared difference. Cone and ellipse are the same circle.
    for (const auto& [angle, target] : {std::pair{0.3, RegionTarget::PrincipalAxis},
                                        {0.01, RegionTarget::PrincipalAxis},
                                        {1.2, RegionTarget::GirdlePole},
                                        {1.5, RegionTarget::GirdlePole}}) {
        const RegionSample ring = Ring(36, angle);
        const double square = std::pow(std::sin(angle), 2);
        const double gap = std::abs(1 - square - square / 2);
        const double sine = std::sqrt(kChiSquare * square * (1 - square) / 2 / 36) / gap;
        for (const ConfidenceRegion& region :
             {WatsonCone(ring, target, kLevel), AxisEllipse(ring, target, kLevel)}) {
            EXPECT_EQ(region.state, RegionState::Given) << angle;
            EXPECT_NEAR(region.components[0], sine, 1e-9 * sine) << angle;
            EXPECT_NEAR(region.components[1], sine, 1e-9 * sine) << angle;
            EXPECT_NEAR(region.centre.n, 1, 1e-12) << angle;
        }
    }
}

TEST(WatsonCone, IsThatOfTheStatistics) {
    for (std::uint64_t seed = 1; seed < 20; ++seed) {
        const RegionSample sample = BinghamSample(seed, 40, -6, -6);
        const auto axes = AxisSampleOf(sample.rows);
        ASSERT_TRUE(axes);
        const double sine = ConeFactor(Formulas::Textbook) * SphericalStandardError(*axes);
        const ConfidenceRegion cone = WatsonCone(sample, RegionTarget::PrincipalAxis, kLevel);
        EXPECT_NEAR(cone.components[0], sine, 1e-10);
        EXPECT_EQ(cone.components[0], cone.components[1]);
    }
}

TEST(AxisEllipse, OfThePrincipalAxisIsThatOfTheReference) {
    for (std::uint64_t seed = 1; seed < 20; ++seed) {
        const RegionSample sample = BinghamSample(seed, 40, -12, -4);
        const auto reference = ReferenceStatisticsOf(sample.rows, nullptr);
        ASSERT_TRUE(reference && reference->ellipse);
        const ConfidenceRegion region = AxisEllipse(sample, RegionTarget::PrincipalAxis, kLevel);
        const auto semiAxes = SemiAxes(region);
        ASSERT_TRUE(semiAxes);
        EXPECT_NEAR((*semiAxes)[0], reference->ellipse->major, 1e-9);
        EXPECT_NEAR((*semiAxes)[1], reference->ellipse->minor, 1e-9);
        const double cosine = DotProduct(region.frame[0], reference->ellipse->majorDirection);
        EXPECT_NEAR(std::abs(cosine), 1, 1e-9);
    }
}

/// Tests that the axes of samples vary as the ellipse of a large sample says.
void ExpectVarianceOfEllipse(RegionTarget target, const Direction& truth) {
    constexpr int kRows = 200;
    constexpr int kSamples = 1500;
    const ConfidenceRegion large = AxisEllipse(BinghamSample(1, 100000, -20, -5), target, kLevel);
    std::array<double, 2> squares{};
    for (int i = 0; i < kSamples; ++i) {
        const RegionSample sample =
            BinghamSample(100 + static_cast<std::uint64_t>(i), kRows, -20, -5);
        const Direction axis = AxisFrameOf(sample, CentreOf(target))->axes[2];
        for (std::size_t j = 0; j < 2; ++j) {
            squares[j] += std::pow(DotProduct(axis, large.frame[j]), 2) / kSamples;
        }
    }
    EXPECT_NEAR(std::abs(DotProduct(large.centre, truth)), 1, 1e-4);
    for (std::size_t j = 0; j < 2; ++j) {
        const double expected = std::pow(large.components[j], 2) / kChiSquare * 100000 / kRows;
        // The standard deviation of a variance of 1500 values is 4%; samples of 200 rows have a
        // little more variance than the limit of many.
        EXPECT_NEAR(squares[j] / expected, 1.03, 0.13) << j;
    }
}

TEST(AxisEllipse, IsTheSpreadOfAxesOfSamples) {
    ExpectVarianceOfEllipse(RegionTarget::PrincipalAxis, {0, 0, 1});
    ExpectVarianceOfEllipse(RegionTarget::GirdlePole, {1, 0, 0});
}

TEST(AxisEllipse, TurnsWithTheRows) {
    const RegionSample sample = BinghamSample(3, 30, -12, -4);
    const Frame turned = FrameAbout(Scaled({2, 3, 6}, 1.0 / 7));
    WeightedDirections rows = sample.rows;
    for (Direction& row : rows.directions) {
        row = FromFrame(turned, {row.l, row.m, row.n});
    }
    const RegionSample other = RegionSampleOf(rows, RowsAre::Axes);
    for (const RegionTarget target : {RegionTarget::PrincipalAxis, RegionTarget::GirdlePole}) {
        const ConfidenceRegion before = AxisEllipse(sample, target, kLevel);
        const ConfidenceRegion after = AxisEllipse(other, target, kLevel);
        for (std::size_t j = 0; j < 2; ++j) {
            EXPECT_NEAR(after.components[j], before.components[j], 1e-9);
            const Direction expected =
                FromFrame(turned, {before.frame[j].l, before.frame[j].m, before.frame[j].n});
            EXPECT_NEAR(std::abs(DotProduct(after.frame[j], expected)), 1, 1e-9);
        }
    }
}

TEST(AxisEllipse, ScalesWithTheEffectiveNumberAndTheLevel) {
    const RegionSample sample = BinghamSample(3, 60, -12, -4);
    RegionSample weighted = sample;
    weighted.count = 15;
    const ConfidenceRegion whole = AxisEllipse(sample, RegionTarget::PrincipalAxis, kLevel);
    const ConfidenceRegion fewer = AxisEllipse(weighted, RegionTarget::PrincipalAxis, kLevel);
    const ConfidenceRegion lower = AxisEllipse(sample, RegionTarget::PrincipalAxis, 0.63);
    for (std::size_t j = 0; j < 2; ++j) {
        EXPECT_NEAR(fewer.components[j], 2 * whole.components[j], 1e-12);
        const double ratio = std::sqrt(std::log(0.37) / std::log(0.05));
        EXPECT_NEAR(lower.components[j], ratio * whole.components[j], 1e-12);
    }
}

TEST(BinghamEllipse, IsWhereTheLikelihoodExceedsItsBound) {
    // Rows about frames turned by a semi-axis, with the concentrations kept, have a likelihood that
    // is less by half of chi-square.
    const RegionSample sample = BinghamSample(8, 80, -20, -5);
    for (const RegionTarget target : {RegionTarget::PrincipalAxis, RegionTarget::GirdlePole}) {
        const ConfidenceRegion region = BinghamEllipse(sample, target, kLevel);
        ASSERT_TRUE(region.binghamConcentrations);
        const std::array<double, 2> concentrations = *region.binghamConcentrations;
        const Frame axes = AxisFrameOf(sample, FrameCentre::Greatest)->axes;
        const bool isPole = target == RegionTarget::GirdlePole;
        const auto likelihoodOf = [&](const Frame& frame) {
            double sum = 0;
            for (const Direction& row : sample.rows.directions) {
                const auto [x1, x2, x3] = InFrame(frame, row);
                sum += concentrations[0] * x1 * x1 + concentrations[1] * x2 * x2;
            }
            return sum;
        };
        const auto semiAxes = SemiAxes(region);
        ASSERT_TRUE(semiAxes);
        // About the other axes in turn: e1 or e3 has the shorter semi-axis, e2 the longer one.
        for (const std::size_t other : {std::size_t{1}, isPole ? std::size_t{2} : 0}) {
            const std::size_t own = isPole ? 0 : 2;
            const double angle = (*semiAxes)[other == 1 ? 0 : 1];
            Frame turned = axes;
            turned[own] = Combined(axes[own], std::cos(angle), axes[other], std::sin(angle));
            turned[other] = Combined(axes[other], std::cos(angle), axes[own], -std::sin(angle));
            EXPECT_NEAR(likelihoodOf(axes) - likelihoodOf(turned), kChiSquare / 2, 1e-8);
        }
    }
}

TEST(BinghamEllipse, OfAManyRowsIsNearlyThatOfPrentice) {
    const RegionSample sample = BinghamSample(9, 20000, -20, -5);
    for (const RegionTarget target : {RegionTarget::PrincipalAxis, RegionTarget::GirdlePole}) {
        const ConfidenceRegion bingham = BinghamEllipse(sample, target, kLevel);
        const ConfidenceRegion ellipse = AxisEllipse(sample, target, kLevel);
        for (std::size_t j = 0; j < 2; ++j) {
            EXPECT_NEAR(bingham.components[j] / ellipse.components[j], 1, 0.03);
        }
    }
}

TEST(AxisRegions, AreUndefinedWithoutAnAxisOrWithRowsAlike) {
    const auto reasons = [](const WeightedDirections& rows, RegionTarget target) {
        const RegionSample sample = RegionSampleOf(rows, RowsAre::Axes);
        std::vector<RegionReason> found;
        for (const ConfidenceRegion& region :
             {WatsonCone(sample, target, kLevel), AxisEllipse(sample, target, kLevel),
              BinghamEllipse(sample, target, kLevel)}) {
            EXPECT_EQ(region.state, RegionState::Undefined);
            found.push_back(region.reason);
        }
        return found;
    };
    using Reasons = std::vector<RegionReason>;
    const RegionTarget axis = RegionTarget::PrincipalAxis;
    EXPECT_EQ(reasons({}, axis), Reasons(3, RegionReason::TooFewRows));
    EXPECT_EQ(reasons({{{0, 0, 1}}, {1}}, axis), Reasons(3, RegionReason::TooFewRows));
    const WeightedDirections square = {{{0, 0, 1}, {0, 1, 0}, {1, 0, 0}}, {5, 5, 5}};
    EXPECT_EQ(reasons(square, axis), Reasons(3, RegionReason::AxesAlike));
    EXPECT_EQ(reasons(square, RegionTarget::GirdlePole), Reasons(3, RegionReason::AxesAlike));
    const WeightedDirections line = {{{0, 0, 1}}, {5}};
    EXPECT_EQ(reasons(line, axis),
              (Reasons{RegionReason::RowsAlike, RegionReason::RowsAlike, RegionReason::NoMaximum}));
    EXPECT_EQ(reasons(line, RegionTarget::GirdlePole), Reasons(3, RegionReason::AxesAlike));
}

TEST(AxisRegions, WiderThanTheSphereAreUndefined) {
    // Two wide semi-axes of three rows.
    const RegionSample sample = Ring(3, 0.8);
    const ConfidenceRegion region = AxisEllipse(sample, RegionTarget::PrincipalAxis, 0.99);
    EXPECT_EQ(region.state, RegionState::Undefined);
    EXPECT_EQ(region.reason, RegionReason::WithoutBounds);
    EXPECT_GT(region.components[0], 1);
}

} // namespace
} // namespace quandrel
