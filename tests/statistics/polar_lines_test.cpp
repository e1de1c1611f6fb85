// SPDX-License-Identifier: MIT
//
// Statistics of polar lines under rotations and of their antipodes. The rotations are vector
// algebra of the tests.

#include "statistics/fabric_kernels.h"
#include "statistics/reference_statistics.h"
#include "support/turning.h"

#include <cmath>
#include <map>
#include <random>
#include <utility>

namespace quandrel {
namespace {

using testing::Radians;
using testing::Vector;

constexpr unsigned kSeed = 4711;

/// A cluster of directions about an axis, of both senses where `isMixed`.
std::vector<Vector> RandomDirections(std::mt19937& random, std::size_t count, double scatter,
                                     bool isMixed) {
    std::normal_distribution<double> normal;
    const auto drawn = [&] { return Vector{normal(random), normal(random), normal(random)}; };
    const Vector axis = testing::Unit(drawn());
    std::vector<Vector> directions;
    for (std::size_t i = 0; i < count; ++i) {
        const Vector direction = testing::Unit(testing::Sum(axis, 1, drawn(), scatter));
        directions.push_back(isMixed && i % 5 == 0 ? testing::Opposite(direction) : direction);
    }
    return directions;
}

/// The whole-degree line of a direction: the trend of its lower end, the plunge negative when it
/// points up. One that comes out level has the trend that it points to.
std::pair<std::int16_t, std::int16_t> WholeLine(const Vector& direction) {
    const double degrees = 180 / testing::kHalfTurn;
    const auto plunge = static_cast<std::int16_t>(std::lround(std::asin(direction.down) * degrees));
    const Vector end = plunge < 0 ? testing::Opposite(direction) : direction;
    const long trend = std::lround(std::atan2(end.east, end.north) * degrees);
    return {plunge, static_cast<std::int16_t>((trend + 360) % 360)};
}

std::vector<DistinctLine> LinesOf(const std::vector<Vector>& directions) {
    std::map<std::pair<std::int16_t, std::int16_t>, std::int32_t> counts;
    for (const Vector& direction : directions) {
        ++counts[WholeLine(direction)];
    }
    std::vector<DistinctLine> lines;
    for (const auto& [line, rows] : counts) {
        lines.push_back({line.first, line.second, rows});
    }
    return lines;
}

ReferenceStatistics StatisticsOf(const std::vector<DistinctLine>& lines) {
    return ComputeReferenceStatistics(lines, RowSense::kPolarLines).value();
}

Vector MeanOf(const ReferenceStatistics& statistics) {
    return testing::LineVector(statistics.fisher->plunge, statistics.fisher->trend);
}

/// The errors that rounding may leave.
struct Tolerances {
    double number = 0; ///< of eigenvalues and R/n
    double kappa = 0;  ///< as a part of it
    double angle = 0;  ///< of the mean direction, radians
};

void ExpectTurnedAlike(const std::vector<Vector>& directions, const Vector& axis, double angle,
                       const Tolerances& tolerances) {
    std::vector<Vector> turned;
    for (const Vector& direction : directions) {
        turned.push_back(testing::TurnedAbout(direction, axis, angle));
    }
    const ReferenceStatistics before = StatisticsOf(LinesOf(directions));
    const ReferenceStatistics after = StatisticsOf(LinesOf(turned));
    ASSERT_EQ(before.count, after.count);
    for (std::size_t i = 0; i < 3; ++i) {
        ASSERT_NEAR(after.eigenvalues[i], before.eigenvalues[i], tolerances.number) << i;
    }
    ASSERT_NEAR(after.fisher->resultant / after.count, before.fisher->resultant / before.count,
                tolerances.number);
    ASSERT_NEAR(*after.fisher->kappa / *before.fisher->kappa, 1, tolerances.kappa);
    ASSERT_LT(testing::AngleOf(MeanOf(after), testing::TurnedAbout(MeanOf(before), axis, angle)),
              tolerances.angle);
}

TEST(PolarLines, AnyRotationLeavesTheirStatistics) {
    std::mt19937 random(kSeed);
    std::uniform_real_distribution<double> angles(0, 2 * testing::kHalfTurn);
    for (int i = 0; i < 400; ++i) {
        const bool isMixed = i % 2 == 1;
        const auto directions = RandomDirections(random, 150, i % 3 == 0 ? 0.05 : 0.4, isMixed);
        const Vector axis = RandomDirections(random, 1, 1, false)[0];
        // What is left is the rounding to whole degrees.
        ASSERT_NO_FATAL_FAILURE(
            ExpectTurnedAlike(directions, axis, angles(random), {0.004, 0.08, 0.006}))
            << "seed " << kSeed << ", round " << i;
    }
}

TEST(PolarLines, WholeTurnsAboutTheVerticalLeaveTheirStatisticsExactly) {
    std::mt19937 random(kSeed);
    const Vector down = {0, 0, 1};
    for (int i = 0; i < 100; ++i) {
        std::vector<Vector> directions;
        for (const Vector& direction : RandomDirections(random, 100, 0.4, i % 2 == 1)) {
            const auto [plunge, trend] = WholeLine(direction);
            directions.push_back(testing::LineVector(Radians(plunge), Radians(trend)));
        }
        const double angle = Radians(static_cast<double>(random() % 360));
        ASSERT_NO_FATAL_FAILURE(ExpectTurnedAlike(directions, down, angle, {1e-12, 1e-9, 1e-7}))
            << "seed " << kSeed << ", round " << i;
    }
}

TEST(PolarLines, ASetAcrossTheHorizonIsAsTightAsOneBelowIt) {
    // Every 10 degrees of a small circle of 20 degrees, about a vertical and about a level axis.
    std::vector<Vector> steep;
    for (int i = 0; i < 36; ++i) {
        steep.push_back(testing::LineVector(Radians(70), Radians(10 * i)));
    }
    std::vector<Vector> level;
    for (const Vector& direction : steep) {
        level.push_back(testing::TurnedAbout(direction, {0, 1, 0}, testing::kHalfTurn / 2));
    }
    const double expected = std::cos(Radians(20));
    for (const auto& directions : {steep, level}) {
        const ReferenceStatistics found = StatisticsOf(LinesOf(directions));
        EXPECT_NEAR(found.fisher->resultant / found.count, expected, 0.003);
    }
}

TEST(PolarLines, AntipodesChangeNoAxialNumber) {
    std::mt19937 random(kSeed);
    for (int i = 0; i < 100; ++i) {
        const auto lines = LinesOf(RandomDirections(random, 100, 0.4, true));
        std::vector<DistinctLine> opposite = lines;
        for (DistinctLine& line : opposite) {
            // A level line's other end is in its trend, and the axial mean takes the end as given.
            line.plunge = static_cast<std::int16_t>(random() % 2 == 0 ? -line.plunge : line.plunge);
        }
        const ReferenceStatistics before = StatisticsOf(lines);
        const ReferenceStatistics after = StatisticsOf(opposite);
        EXPECT_EQ(after.eigenvalues, before.eigenvalues);
        EXPECT_EQ(after.axialPlunge, before.axialPlunge);
        EXPECT_EQ(after.axialTrend, before.axialTrend);
        EXPECT_EQ(after.axialResultantLength, before.axialResultantLength);
        EXPECT_EQ(after.gamma, before.gamma);
        EXPECT_EQ(after.zeta, before.zeta);
        EXPECT_EQ(after.standardError, before.standardError);
        EXPECT_EQ(after.symmetryStatistic, before.symmetryStatistic);
        EXPECT_EQ(after.ellipse->major, before.ellipse->major);
    }
}

TEST(PolarLines, AntipodesOfAllTurnTheMeanRound) {
    std::mt19937 random(kSeed);
    for (int i = 0; i < 100; ++i) {
        const auto directions = RandomDirections(random, 100, 0.4, i % 2 == 1);
        std::vector<Vector> opposite;
        for (const Vector& direction : directions) {
            opposite.push_back(testing::Opposite(direction));
        }
        const ReferenceStatistics before = StatisticsOf(LinesOf(directions));
        const ReferenceStatistics after = StatisticsOf(LinesOf(opposite));
        ASSERT_NEAR(after.fisher->resultant, before.fisher->resultant, 1e-9);
        ASSERT_LT(testing::AngleOf(MeanOf(after), testing::Opposite(MeanOf(before))), 1e-7);
        for (std::size_t k = 0; k < 3; ++k) {
            ASSERT_NEAR(after.eigenvalues[k], before.eigenvalues[k], 1e-12);
        }
    }
}

TEST(PolarLines, TwoAntipodalGroupsHaveNoResultant) {
    // 20 about 50/010 and as many that point the other way, with their lower ends at 50/010.
    std::vector<DistinctLine> lines;
    for (std::int16_t i = 0; i < 20; ++i) {
        const auto plunge = static_cast<std::int16_t>(46 + i % 9);
        const auto trend = static_cast<std::int16_t>(2 + i % 17);
        lines.push_back({plunge, trend, 1});
        lines.push_back({static_cast<std::int16_t>(-plunge), trend, 1});
    }
    const ReferenceStatistics found = StatisticsOf(lines);
    EXPECT_GT(found.eigenvalues[2], 0.97);
    EXPECT_LT(found.fisher->resultant / found.count, 1e-9);
}

} // namespace
} // namespace quandrel
