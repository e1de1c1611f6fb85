// SPDX-License-Identifier: MIT

#include "orientation/vectors.h"
#include "statistics/fabric_kernels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>

namespace quandrel {
namespace {

using testing::Radians;
using testing::Vector;

constexpr unsigned kSeed = 1965;

Direction Along(double north, double east, double down) {
    return {north, east, down};
}

double LargestDifference(const Matrix3& a, const Matrix3& b) {
    double largest = 0;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            largest = std::max(largest, std::abs(a[row][column] - b[row][column]));
        }
    }
    return largest;
}

// Directions.

TEST(DirectionsOf, AxesAreTheCosinesOfTheirLines) {
    std::vector<DistinctLine> lines;
    for (std::int16_t plunge = -90; plunge <= 90; plunge += 3) {
        for (std::int16_t trend = 0; trend <= 360; ++trend) {
            lines.push_back({plunge, trend, 1 + trend});
        }
    }
    const WeightedDirections rows = DirectionsOf(lines, LinePolarity::kAxial);
    ASSERT_EQ(rows.directions.size(), lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const testing::Vector expected = testing::LineVector(
            testing::Radians(std::abs(lines[i].plunge)), testing::Radians(lines[i].trend));
        ASSERT_NEAR(rows.directions[i].l, expected.north, 1e-14);
        ASSERT_NEAR(rows.directions[i].m, expected.east, 1e-14);
        ASSERT_NEAR(rows.directions[i].n, expected.down, 1e-14);
        ASSERT_EQ(rows.weights[i], lines[i].rows);
    }
}

TEST(DirectionsOf, QuarterTurnsHaveCosinesOfZero) {
    const std::vector<DistinctLine> lines = {{90, 0, 1}, {90, 37, 1}, {-90, 250, 1}, {0, 0, 1},
                                             {0, 90, 1}, {0, 180, 1}, {0, 270, 1},   {0, 360, 1}};
    for (const Direction& direction : DirectionsOf(lines, LinePolarity::kDirected).directions) {
        EXPECT_EQ((direction.l == 0) + (direction.m == 0) + (direction.n == 0), 2);
    }
}

TEST(ResultantOf, DirectionsThatCancelLeaveNothing) {
    std::vector<DistinctLine> lines;
    for (std::int16_t trend = 0; trend < 360; ++trend) {
        lines.push_back({45, trend, 100003});
    }
    const WeightedDirections rows = DirectionsOf(lines, LinePolarity::kAxial);
    const Direction resultant = ResultantOf(rows.directions, rows.weights);
    EXPECT_EQ(resultant.l, 0);
    EXPECT_EQ(resultant.m, 0);
    EXPECT_NEAR(resultant.n, 360 * 100003 * std::sqrt(0.5), 1e-5);
}

TEST(DirectionsOf, ANegativePlungePointsAwayFromTheLowerEnd) {
    for (std::int16_t plunge = -90; plunge <= 90; plunge += 5) {
        for (std::int16_t trend = 0; trend <= 360; trend += 5) {
            const std::vector<DistinctLine> line = {{plunge, trend, 1}};
            const Direction direction = DirectionsOf(line, LinePolarity::kDirected).directions[0];
            const Vector expected = testing::LineVector(Radians(plunge), Radians(trend));
            ASSERT_NEAR(direction.l, expected.north, 1e-13);
            ASSERT_NEAR(direction.m, expected.east, 1e-13);
            ASSERT_NEAR(direction.n, expected.down, 1e-13);
            const Direction axis = DirectionsOf(line, LinePolarity::kAxial).directions[0];
            const double sign = plunge < 0 ? -1 : 1;
            ASSERT_EQ(direction.l, sign * axis.l);
            ASSERT_EQ(direction.m, sign * axis.m);
            ASSERT_EQ(direction.n, sign * axis.n);
        }
    }
}

TEST(AxisToLine, KeepsTheTrendOfTheDownwardEnd) {
    std::mt19937 random(kSeed);
    std::normal_distribution<double> normal;
    for (int i = 0; i < 5000; ++i) {
        const Vector axis = testing::Unit({normal(random), normal(random), normal(random)});
        double plunge = 0;
        double trend = 0;
        AxisToLine({axis.north, axis.east, axis.down}, plunge, trend);
        ASSERT_GE(plunge, 0);
        ASSERT_LT(testing::AcuteAngleOf(testing::LineVector(plunge, trend), axis), 1e-9)
            << "seed " << kSeed << " " << i;
    }
}

TEST(DirectedLine, IsTheInverseOfDirectedDirections) {
    for (int plunge = -89; plunge <= 89; ++plunge) {
        for (int trend = 0; trend < 360; trend += 7) {
            const double dip = Radians(plunge);
            const double azimuth = Radians(trend);
            const Vector direction = testing::LineVector(dip, azimuth);
            double foundPlunge = 0;
            double foundTrend = 0;
            DirectedLine({direction.north, direction.east, direction.down}, foundPlunge,
                         foundTrend);
            ASSERT_NEAR(foundPlunge, dip, 1e-9) << plunge << " " << trend;
            ASSERT_NEAR(std::cos(foundTrend - azimuth), 1, 1e-12) << plunge << " " << trend;
        }
    }
}

TEST(DirectedLine, TellsStraightUpFromStraightDown) {
    double plunge = 0;
    double trend = 0;
    DirectedLine(Along(0, 0, -3), plunge, trend);
    EXPECT_NEAR(plunge, -std::numbers::pi / 2, 1e-12);
    DirectedLine(Along(0, 0, 3), plunge, trend);
    EXPECT_NEAR(plunge, std::numbers::pi / 2, 1e-12);
}

// Sums.

TEST(OrientationTensor, IsTheMeanOfOuterProducts) {
    // One row along (0.6, 0, 0.8), three along east.
    const std::vector<Direction> directions = {Along(0.6, 0, 0.8), Along(0, 1, 0)};
    const std::vector<double> weights = {1, 3};
    const auto tensor = OrientationTensor(directions, weights);
    ASSERT_TRUE(tensor);
    const Matrix3 expected = {{{0.09, 0, 0.12}, {0, 0.75, 0}, {0.12, 0, 0.16}}};
    EXPECT_LT(LargestDifference(*tensor, expected), 1e-15);
}

TEST(OrientationTensor, HasNoneWithoutRows) {
    EXPECT_FALSE(OrientationTensor({}, {}));
    const std::vector<Direction> directions = {Along(1, 0, 0)};
    const std::vector<double> none = {0};
    EXPECT_FALSE(OrientationTensor(directions, none));
    EXPECT_FALSE(FourthMoment(directions, none, Along(1, 0, 0)));
}

TEST(FourthMoment, IsTheMeanFourthPower) {
    const std::vector<Direction> directions = {Along(1, 0, 0), Along(0.6, 0, 0.8), Along(0, 1, 0)};
    const std::vector<double> weights = {1, 2, 1};
    // (1 + 2 * 0.6^4 + 0) / 4
    EXPECT_NEAR(*FourthMoment(directions, weights, Along(1, 0, 0)), 0.3148, 1e-15);
}

TEST(Sums, OfDistinctLinesAreThoseOfTheirRows) {
    std::mt19937 random(kSeed);
    std::vector<DistinctLine> lines;
    std::vector<DistinctLine> rows;
    for (std::int16_t trend = 0; trend <= 360; trend += 11) {
        const auto plunge = static_cast<std::int16_t>(static_cast<int>(random() % 181) - 90);
        const auto count = static_cast<std::int32_t>(1 + random() % 9);
        lines.push_back({plunge, trend, count});
        rows.insert(rows.end(), static_cast<std::size_t>(count), {plunge, trend, 1});
    }
    std::shuffle(rows.begin(), rows.end(), random);
    const WeightedDirections few = DirectionsOf(lines, LinePolarity::kDirected);
    const WeightedDirections many = DirectionsOf(rows, LinePolarity::kDirected);
    EXPECT_EQ(TotalWeight(few.weights), static_cast<double>(rows.size()));
    EXPECT_EQ(TotalWeight(many.weights), static_cast<double>(rows.size()));
    const Direction sumOfFew = ResultantOf(few.directions, few.weights);
    const Direction sumOfMany = ResultantOf(many.directions, many.weights);
    EXPECT_NEAR(sumOfFew.l, sumOfMany.l, 1e-11);
    EXPECT_NEAR(sumOfFew.m, sumOfMany.m, 1e-11);
    EXPECT_NEAR(sumOfFew.n, sumOfMany.n, 1e-11);
    EXPECT_LT(LargestDifference(*OrientationTensor(few.directions, few.weights),
                                *OrientationTensor(many.directions, many.weights)),
              1e-13);
    const Direction axis = Along(0.6, 0, 0.8);
    EXPECT_NEAR(*FourthMoment(few.directions, few.weights, axis),
                *FourthMoment(many.directions, many.weights, axis), 1e-13);
}

// Axes in order.

struct OrderCase {
    std::array<double, 3> values;
    std::array<std::size_t, 3> order; ///< columns from the least to the greatest
};

TEST(SortedAxes, TakesTheEarliestOfEqualValues) {
    const std::vector<OrderCase> cases = {
        {{0.1, 0.2, 0.7}, {0, 1, 2}}, {{0.7, 0.2, 0.1}, {2, 1, 0}}, {{0.2, 0.7, 0.1}, {2, 0, 1}},
        {{0.1, 0.7, 0.2}, {0, 2, 1}}, {{0, 0, 1}, {0, 1, 2}},       {{1, 0, 0}, {1, 2, 0}},
        {{0, 1, 0}, {0, 2, 1}},       {{0.5, 0.5, 0}, {2, 1, 0}},   {{0, 0.5, 0.5}, {0, 2, 1}},
        {{0.5, 0, 0.5}, {1, 2, 0}},   {{1, 1, 1}, {0, 1, 2}},
    };
    for (const OrderCase& given : cases) {
        const FabricAxes sorted = SortedAxes({given.values, {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}}});
        for (std::size_t i = 0; i < 3; ++i) {
            const std::array<double, 3> components = {sorted.axes[i].l, sorted.axes[i].m,
                                                      sorted.axes[i].n};
            EXPECT_EQ(sorted.values[i], given.values[given.order[i]]);
            EXPECT_EQ(components[given.order[i]], 1) << given.values[0] << " " << given.values[1];
        }
    }
}

TEST(SortedAxes, PointDownAndHaveUnitLength) {
    const FabricAxes sorted =
        SortedAxes({{1, 2, 3}, {{{0.6, -2, 0}, {0, 0, -5}, {-0.8, 1e-16, -0.0}}}});
    EXPECT_NEAR(sorted.axes[0].l, -0.6, 1e-15);
    EXPECT_NEAR(sorted.axes[0].n, 0.8, 1e-15);
    EXPECT_EQ(sorted.axes[1].l, 1); // horizontal: to the north
    EXPECT_EQ(sorted.axes[2].m, 1); // or to the east
    EXPECT_FALSE(std::signbit(sorted.axes[2].n));
}

// Shape and strength.

TEST(ShapeOf, FollowsTheLogarithms) {
    const FabricShape shape = ShapeOf({0.125, 0.25, 0.625});
    EXPECT_NEAR(shape.ratio12, std::numbers::ln2, 1e-15);
    EXPECT_NEAR(shape.ratio23, std::log(2.5), 1e-15);
    EXPECT_NEAR(shape.gamma, std::log(2.5) / std::numbers::ln2, 1e-14);
    EXPECT_NEAR(shape.zeta, std::log(5.0), 1e-15);
}

TEST(ShapeOf, OneLineHasNone) {
    const FabricShape shape = ShapeOf({0, 1e-8, 1});
    EXPECT_EQ(shape.ratio12, kFailedResult);
    EXPECT_EQ(shape.ratio23, kFailedResult);
    EXPECT_EQ(shape.gamma, kFailedResult);
    EXPECT_EQ(shape.zeta, kFailedResult);
}

TEST(ShapeOf, OnePlaneHasTheSecondRatioAlone) {
    const FabricShape shape = ShapeOf({-3e-8, 0.5, 0.5});
    EXPECT_EQ(shape.ratio12, kFailedResult);
    EXPECT_EQ(shape.zeta, kFailedResult);
    EXPECT_EQ(shape.gamma, kFailedResult);
    EXPECT_EQ(shape.ratio23, 0);
}

TEST(ShapeOf, EigenvaluesBelowTheLeastCountAsZero) {
    EXPECT_EQ(ShapeOf({0.99e-6, 0.4, 0.6}).zeta, kFailedResult);
    EXPECT_NEAR(ShapeOf({1.01e-6, 0.4, 0.6}).zeta, std::log(0.6 / 1.01e-6), 1e-12);
}

TEST(ShapeOf, EqualLeastEigenvaluesDivideByNothing) {
    EXPECT_EQ(ShapeOf({0.25, 0.25, 0.5}).gamma, kFailedResult);
    EXPECT_EQ(ShapeOf({0.25, 0.25 + 3e-8, 0.5}).gamma, kFailedResult);
    EXPECT_NEAR(ShapeOf({0.25, 0.25, 0.5}).zeta, std::numbers::ln2, 1e-15);
}

// Tests of the principal axis.

// Kept: E3 has no factor 2 here.
TEST(SymmetryStatistic, KeepsItsDenominatorWithoutTheFactorTwo) {
    const AxisSample sample{4, {0.125, 0.25, 0.625}, 0.53125};
    // 2 * 4 * 0.125^2 = 0.125, over 1 - 0.625 + 0.53125
    EXPECT_NEAR(SymmetryStatistic(sample), 0.125 / 0.90625, 1e-15);
    EXPECT_NEAR(TextbookSymmetryStatistic(sample), 0.125 / 0.28125, 1e-15);
}

TEST(SymmetryStatistic, ADenominatorOfZeroFails) {
    EXPECT_EQ(SymmetryStatistic({5, {0, 0, 1}, 0}), kFailedResult);
}

TEST(TextbookSymmetryStatistic, OneLineIsSymmetric) {
    EXPECT_EQ(TextbookSymmetryStatistic({5, {0, 0, 1}, 1}), 0);
    EXPECT_EQ(TextbookSymmetryStatistic({5, {0, 0.25, 0.75}, 0.5}),
              std::numeric_limits<double>::infinity());
}

TEST(TextbookSymmetryStatistic, IsChiSquareWithTwoDegreesOfFreedom) {
    // Girdles about the vertical, of equally likely trends: 5% of the samples exceed the limit.
    std::mt19937 random(kSeed);
    std::uniform_real_distribution<double> part(0, 1);
    constexpr int kSamples = 2000;
    int beyond = 0;
    for (int sample = 0; sample < kSamples; ++sample) {
        WeightedDirections rows;
        for (int row = 0; row < 100; ++row) {
            const double plunge = 1.2 + 0.3 * part(random);
            const double trend = 2 * std::numbers::pi * part(random);
            const Vector line = testing::LineVector(plunge, trend);
            rows.directions.push_back({line.north, line.east, line.down});
            rows.weights.push_back(1);
        }
        const auto tensor = OrientationTensor(rows.directions, rows.weights);
        const FabricAxes axes = SortedAxes(SymmetricEigen3(*tensor));
        const AxisSample about{100, axes.values,
                               *FourthMoment(rows.directions, rows.weights, axes.axes[2])};
        beyond += TextbookSymmetryStatistic(about) > kSymmetryLimit ? 1 : 0;
    }
    // 100 are expected, with a standard deviation of 10.
    EXPECT_NEAR(beyond, kSamples / 20, 40) << "seed " << kSeed;
}

TEST(SphericalStandardError, FollowsItsFormula) {
    const AxisSample sample{4, {0.125, 0.25, 0.625}, 0.53125};
    EXPECT_NEAR(SphericalStandardError(sample), std::sqrt(0.09375 / 4) / 0.375, 1e-15);
}

TEST(SphericalStandardError, FailsWhereThereIsNone) {
    EXPECT_EQ(SphericalStandardError({1, {0, 0, 1}, 1}), kFailedResult);       // a single row
    EXPECT_EQ(SphericalStandardError({2, {0, 0.5, 0.5}, 0.4}), kFailedResult); // no principal axis
    EXPECT_EQ(SphericalStandardError({9, {0, 0.2, 0.8}, 0.9}), kFailedResult); // a negative root
}

TEST(SphericalStandardError, RowsOfOneLineHaveZero) {
    EXPECT_EQ(SphericalStandardError({9, {0, 0, 1}, 1}), 0);
    EXPECT_EQ(SphericalStandardError({9, {0, 0, 1 - 6e-8}, 1}), 0);
}

} // namespace
} // namespace quandrel
