// SPDX-License-Identifier: MIT

#include "orientation/vectors.h"
#include "statistics/fabric_kernels.h"
#include "statistics/reference_statistics.h"

#include <Eigen/Eigenvalues>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>
#include <random>

namespace quandrel {
namespace {

using testing::Radians;
using Lines = std::vector<DistinctLine>;

constexpr unsigned kSeed = 1984;

// Tensor diag(1/8, 1/4, 5/8).
const Lines kFourLines = {{60, 0, 1}, {60, 180, 1}, {90, 0, 1}, {0, 90, 1}};

TEST(ReferenceStatistics, FourLinesAsDoneByHand) {
    const auto found = ComputeReferenceStatistics(kFourLines, RowSense::kAxes);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->count, 4);
    EXPECT_NEAR(found->eigenvalues[0], 0.125, 1e-12);
    EXPECT_NEAR(found->eigenvalues[1], 0.25, 1e-12);
    EXPECT_NEAR(found->eigenvalues[2], 0.625, 1e-12);
    EXPECT_NEAR(*found->logRatio12, std::log(2.0), 1e-12);
    EXPECT_NEAR(*found->logRatio23, std::log(2.5), 1e-12);
    EXPECT_NEAR(*found->gamma, std::log(2.5) / std::log(2.0), 1e-12);
    EXPECT_NEAR(*found->zeta, std::log(5.0), 1e-12);
    EXPECT_NEAR(*found->fourthMoment, 0.53125, 1e-12);
    EXPECT_NEAR(*found->symmetryStatistic, 0.125 / 0.28125, 1e-12);
    EXPECT_NEAR(*found->standardError, std::sqrt(0.09375 / 4) / 0.375, 1e-12);
    EXPECT_NEAR(std::sin(*found->coneAngle), std::sqrt(-std::log(0.05)) * *found->standardError,
                1e-12);
    EXPECT_NEAR(found->axialResultantLength, std::hypot(1, 1 + std::numbers::sqrt3) / 4, 1e-12);
    EXPECT_NEAR(found->axialPlunge, std::atan(1 + std::numbers::sqrt3), 1e-12);
    EXPECT_NEAR(found->axialTrend, std::numbers::pi / 2, 1e-12);
    EXPECT_FALSE(found->fisher);
    // The deviations lie along north alone: the sum of (c3 c1)^2 is 2 * 3/16.
    const double variance = 0.375 / (16 * 0.5 * 0.5);
    EXPECT_NEAR(found->ellipse->major, std::asin(std::sqrt(kSymmetryLimit * variance)), 1e-9);
    EXPECT_EQ(found->ellipse->minor, 0);
    EXPECT_NEAR(std::abs(found->ellipse->majorDirection.l), 1, 1e-9);
}

TEST(ReferenceStatistics, NoneWithoutRows) {
    EXPECT_FALSE(ComputeReferenceStatistics({}, RowSense::kAxes));
}

TEST(ReferenceStatistics, OneRowLeavesOutWhatItCannotHave) {
    const Lines lines = {{37, 222, 1}};
    const auto found = ComputeReferenceStatistics(lines, RowSense::kPolarLines);
    ASSERT_TRUE(found);
    EXPECT_NEAR(found->eigenvalues[2], 1, 1e-12);
    EXPECT_FALSE(found->gamma);
    EXPECT_FALSE(found->zeta);
    EXPECT_FALSE(found->standardError);
    EXPECT_FALSE(found->ellipse);
    ASSERT_TRUE(found->fisher);
    EXPECT_NEAR(found->fisher->resultant, 1, 1e-12);
    EXPECT_FALSE(found->fisher->kappa);
}

TEST(ReferenceStatistics, EqualEigenvaluesLeaveTheirAxesOpen) {
    struct Case {
        Lines lines;
        std::array<bool, 3> hasAxis;
    };

    const std::vector<Case> cases = {
        {{{0, 0, 5}, {0, 90, 5}}, {true, false, false}},    // diag(1/2, 1/2, 0)
        {{{90, 0, 2}, {90, 250, 1}}, {false, false, true}}, // diag(0, 0, 1)
        {{{0, 0, 7}, {0, 90, 7}, {90, 0, 7}}, {false, false, false}},
        {{{30, 40, 3}, {60, 220, 3}}, {true, false, false}}, // two at a right angle
        {kFourLines, {true, true, true}},
    };
    for (const Case& c : cases) {
        const auto found = ComputeReferenceStatistics(c.lines, RowSense::kAxes);
        EXPECT_EQ(found->hasAxis, c.hasAxis);
        EXPECT_EQ(found->fourthMoment.has_value(), c.hasAxis[2]);
        EXPECT_EQ(found->symmetryStatistic.has_value(), c.hasAxis[2]);
        EXPECT_EQ(found->standardError.has_value(), c.hasAxis[2]);
        EXPECT_EQ(found->ellipse.has_value(), c.hasAxis[2]);
        EXPECT_EQ(found->logRatio12.has_value(), c.hasAxis[1]) << "without an eigenvalue of 0 only";
        for (const double value : found->eigenvalues) {
            EXPECT_TRUE(value == 0 || value > 1e-3) << "rounding: " << value;
        }
    }
}

TEST(ReferenceStatistics, RowsOfOneLineHaveNoRounding) {
    const auto found = ComputeReferenceStatistics(Lines{{17, 222, 12345}}, RowSense::kPolarLines);
    EXPECT_EQ(found->eigenvalues, (std::array<double, 3>{0, 0, 1}));
    EXPECT_EQ(found->axialResultantLength, 1);
    EXPECT_EQ(found->fisher->resultant, 12345);
    EXPECT_EQ(*found->standardError, 0);
    EXPECT_EQ(*found->coneAngle, 0);
}

TEST(ReferenceStatistics, AnErrorTooLargeForAConeHasNone) {
    // Tensor diag(0.3, 0.3, 0.4), m4 = 0.4: no scatter about the axis, and a cone of angle 0.
    const auto exact =
        ComputeReferenceStatistics(Lines{{0, 0, 3}, {0, 90, 3}, {90, 0, 4}}, RowSense::kAxes);
    EXPECT_EQ(*exact->coneAngle, 0);
    // Three lines about the vertical, s = sin^2 38: E3 = s, E2 = (1 - s) / 2, m4 = s^2.
    const double s = std::pow(std::sin(Radians(38)), 2);
    const auto wide =
        ComputeReferenceStatistics(Lines{{38, 0, 1}, {38, 120, 1}, {38, 240, 1}}, RowSense::kAxes);
    EXPECT_NEAR(*wide->standardError, std::sqrt((s - s * s) / 3) / (s - (1 - s) / 2), 1e-12);
    EXPECT_FALSE(wide->coneAngle);
}

TEST(ReferenceStatistics, EigenvaluesAgreeWithAnotherSolver) {
    std::mt19937 random(kSeed);
    for (int sample = 0; sample < 200; ++sample) {
        Lines lines;
        Eigen::Matrix3d tensor = Eigen::Matrix3d::Zero();
        double total = 0;
        const int count = 1 + static_cast<int>(random() % 30);
        for (int i = 0; i < count; ++i) {
            const auto plunge = static_cast<std::int16_t>(random() % 91);
            const auto trend = static_cast<std::int16_t>(random() % 361);
            const auto rows = static_cast<std::int32_t>(1 + random() % 50);
            lines.push_back({plunge, trend, rows});
            const testing::Vector line = testing::LineVector(Radians(plunge), Radians(trend));
            const Eigen::Vector3d axis(line.north, line.east, line.down);
            tensor += rows * axis * axis.transpose();
            total += rows;
        }
        const Eigen::SelfAdjointEigenSolver<Eigen::Matrix3d> other(Eigen::Matrix3d(tensor / total));
        const auto found = ComputeReferenceStatistics(lines, RowSense::kAxes);
        for (int i = 0; i < 3; ++i) {
            ASSERT_NEAR(found->eigenvalues[static_cast<std::size_t>(i)], other.eigenvalues()[i],
                        1e-12)
                << "seed " << kSeed << " sample " << sample;
        }
    }
}

TEST(ReferenceStatistics, TheEllipseOfASymmetricDistributionIsThePrintedCone) {
    // Equal numbers all round at the same distance from the vertical.
    Lines lines;
    for (std::int16_t trend = 0; trend < 360; trend += 5) {
        lines.push_back({70, trend, 3});
    }
    const auto found = ComputeReferenceStatistics(lines, RowSense::kAxes);
    ASSERT_TRUE(found && found->ellipse && found->standardError);
    const double cone = std::asin(std::sqrt(-std::log(0.05)) * *found->standardError);
    EXPECT_NEAR(found->ellipse->major, cone, 1e-9);
    EXPECT_NEAR(found->ellipse->minor, cone, 1e-9);
    EXPECT_EQ(*found->symmetryStatistic, 0) << "without rounding";
    EXPECT_FALSE(found->hasAxis[0] || found->hasAxis[1]);
}

TEST(ReferenceStatistics, TheEllipseHoldsTheTrueAxisInNineteenOfTwentySamples) {
    std::mt19937 random(kSeed);
    std::normal_distribution<double> normal;
    constexpr int kSamples = 1000;
    int held = 0;
    for (int sample = 0; sample < kSamples; ++sample) {
        std::vector<DistinctLine> lines;
        for (int row = 0; row < 200; ++row) {
            // About the vertical, wider to the north than to the east.
            const double north = 0.5 * normal(random);
            const double east = 0.2 * normal(random);
            double trend = std::atan2(east, north) * 180 / std::numbers::pi;
            trend += trend < 0 ? 360 : 0;
            const double plunge = std::atan2(1, std::hypot(north, east)) * 180 / std::numbers::pi;
            lines.push_back({static_cast<std::int16_t>(std::lround(plunge)),
                             static_cast<std::int16_t>(std::lround(trend)), 1});
        }
        const auto found = ComputeReferenceStatistics(lines, RowSense::kAxes);
        const ConfidenceEllipse& ellipse = *found->ellipse;
        const Direction& axis = found->axes[2];
        const Direction& major = ellipse.majorDirection;
        // The vertical, measured along the axes of the ellipse.
        const double alongMajor = major.n / std::sin(ellipse.major);
        const double alongMinor = (axis.l * major.m - axis.m * major.l) / std::sin(ellipse.minor);
        held += alongMajor * alongMajor + alongMinor * alongMinor <= 1 ? 1 : 0;
    }
    // 950 are expected, with a standard deviation of 7.
    EXPECT_NEAR(held, 950, 28) << "seed " << kSeed;
}

TEST(FisherStatistics, AreThoseOfTheResultant) {
    // Down and up by 30 toward north, twice each: R = 4 cos 30.
    const Lines lines = {{-30, 180, 2}, {30, 0, 2}};
    const auto found = ComputeReferenceStatistics(lines, RowSense::kPolarLines);
    ASSERT_TRUE(found && found->fisher);
    const double resultant = 4 * std::cos(Radians(30));
    EXPECT_NEAR(found->fisher->resultant, resultant, 1e-12);
    EXPECT_NEAR(found->fisher->plunge, 0, 1e-12);
    EXPECT_NEAR(*found->fisher->kappa, 3 / (4 - resultant), 1e-11);
}

TEST(FisherStatistics, RowsOfOneLineHaveNoKappa) {
    const Lines lines = {{-30, 120, 1000}};
    const auto found = ComputeReferenceStatistics(lines, RowSense::kPolarLines);
    EXPECT_NEAR(found->fisher->plunge, Radians(-30), 1e-9);
    EXPECT_NEAR(found->fisher->trend, Radians(120), 1e-9);
    EXPECT_FALSE(found->fisher->kappa);
    EXPECT_FALSE(found->fisher->kappaMaximumLikelihood);
}

TEST(FisherStatistics, OpposedDirectionsHaveNoMean) {
    const Lines lines = {{-30, 10, 5}, {30, 10, 5}};
    const auto found = ComputeReferenceStatistics(lines, RowSense::kPolarLines);
    EXPECT_EQ(found->fisher->resultant, 0);
    EXPECT_EQ(found->fisher->plunge, kNoDirection);
    EXPECT_NEAR(*found->fisher->kappa, 0.9, 1e-12);
    EXPECT_EQ(*found->fisher->kappaMaximumLikelihood, 0);
}

TEST(FisherKappaOf, SolvesItsEquation) {
    EXPECT_EQ(FisherKappaOf(0), 0);
    for (const double meanLength : {1e-9, 1e-4, 3.3e-4, 0.01, 0.3, 0.5, 0.9, 0.99, 0.999999}) {
        const double kappa = FisherKappaOf(meanLength);
        const double back =
            kappa < 0.01 ? kappa / 3 - std::pow(kappa, 3) / 45 : 1 / std::tanh(kappa) - 1 / kappa;
        EXPECT_NEAR(back / meanLength, 1, 1e-9) << meanLength;
    }
}

} // namespace
} // namespace quandrel
