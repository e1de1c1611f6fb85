// SPDX-License-Identifier: MIT

#include "border/random_lines.h"
#include "quandrel/fabric.h"
#include "statistics/reference_statistics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace quandrel::api {
namespace {

namespace qt = quandrel::testing;

constexpr double kRounding = 1e-9;

/// Lines about an axis: the larger the spread, the farther away.
std::vector<Line> LinesAbout(const qt::Vector& axis, double spread, std::size_t count,
                             std::uint32_t seed) {
    RandomValues random(seed);
    std::vector<Line> lines;
    while (lines.size() < count) {
        qt::Vector vector = {random.Between(-1, 1), random.Between(-1, 1), random.Between(-1, 1)};
        vector = qt::Unit(qt::Sum(axis, 1, vector, spread));
        lines.push_back(LineOf({vector.north, vector.east, vector.down}));
    }
    return lines;
}

std::array<double, 3> Times(const Matrix3& matrix, const qt::Vector& v) {
    std::array<double, 3> result{};
    for (std::size_t i = 0; i < 3; ++i) {
        result[i] = matrix[i][0] * v.north + matrix[i][1] * v.east + matrix[i][2] * v.down;
    }
    return result;
}

TEST(PublicFabric, TheTensorIsTheMeanOfOuterProducts) {
    RandomValues random(20260731);
    const std::vector<Line> lines = random.Lines(100, -90);
    std::vector<double> weights(lines.size());
    Matrix3 truth{};
    double sum = 0;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        weights[i] = random.Between(0, 3);
        sum += weights[i];
        const qt::Vector v = TrueVector(lines[i]);
        const std::array<double, 3> parts = {v.north, v.east, v.down};
        for (std::size_t row = 0; row < 3; ++row) {
            for (std::size_t column = 0; column < 3; ++column) {
                truth[row][column] += weights[i] * parts[row] * parts[column];
            }
        }
    }
    const Matrix3 tensor = OrientationTensorOf(lines, weights).value_or(Matrix3{});
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t column = 0; column < 3; ++column) {
            EXPECT_NEAR(tensor[row][column], truth[row][column] / sum, 1e-12);
        }
    }
}

TEST(PublicFabric, AxesAreEigenvectorsOfTheTensor) {
    for (const double spread : {0.1, 0.5, 2.0}) {
        const std::vector<Line> lines = LinesAbout({0.5, 0.4, 0.7}, spread, 300, 20260732);
        const Fabric fabric = FabricOf(lines).value_or(Fabric{});
        const Matrix3 tensor = *OrientationTensorOf(lines);
        for (std::size_t axis = 0; axis < 3; ++axis) {
            EXPECT_TRUE(fabric.isDetermined[axis]);
            const qt::Vector vector = TrueVector(fabric.axes[axis]);
            const std::array<double, 3> image = Times(tensor, vector);
            EXPECT_NEAR(image[0], fabric.eigenvalues[axis] * vector.north, kRounding);
            EXPECT_NEAR(image[1], fabric.eigenvalues[axis] * vector.east, kRounding);
            EXPECT_NEAR(image[2], fabric.eigenvalues[axis] * vector.down, kRounding);
        }
        const auto [e1, e2, e3] = fabric.eigenvalues;
        EXPECT_NEAR(e1 + e2 + e3, 1, 1e-12);
        EXPECT_NEAR(*fabric.gamma, std::log(e3 / e2) / std::log(e2 / e1), kRounding);
        EXPECT_NEAR(*fabric.zeta, std::log(e3 / e1), kRounding);
    }
}

TEST(PublicFabric, FractionsOfDegreesCount) {
    const std::vector<Line> lines = {{30.2, 100.4}, {30.4, 100.2}};
    const Fabric fabric = FabricOf(lines).value_or(Fabric{});
    EXPECT_NEAR(fabric.axes[2].plunge, 30.3, 1e-3);
    EXPECT_NEAR(fabric.axes[2].trend, 100.3, 1e-3);
}

TEST(PublicFabric, OfWholeDegreesIsTheReferenceOfTheProgram) {
    RandomValues random(20260733);
    std::vector<Line> lines;
    std::vector<DistinctLine> rows;
    std::vector<double> counts;
    for (int i = 0; i < 200; ++i) {
        const auto plunge = static_cast<std::int16_t>(random.Between(-90, 90));
        const auto trend = static_cast<std::int16_t>(random.Between(0, 120));
        const auto count = static_cast<std::int32_t>(random.Between(1, 5));
        lines.push_back({static_cast<double>(plunge), static_cast<double>(trend)});
        rows.push_back({plunge, trend, count});
        counts.push_back(count);
    }
    const Fabric fabric = FabricOf(lines, counts, Sense::kDirections).value_or(Fabric{});
    const auto truth = ComputeReferenceStatistics(rows, RowSense::kPolarLines);
    EXPECT_EQ(fabric.count, truth->count);
    EXPECT_NEAR(fabric.eigenvalues[2], truth->eigenvalues[2], 1e-12);
    EXPECT_NEAR(*fabric.symmetryStatistic, *truth->symmetryStatistic, 1e-6);
    EXPECT_NEAR(*fabric.coneAngle, InDegrees(*truth->coneAngle), kRounding);
    EXPECT_NEAR(fabric.ellipse->major, InDegrees(truth->ellipse->major), kRounding);
    EXPECT_NEAR(fabric.fisher->mean->plunge, InDegrees(truth->fisher->plunge), kRounding);
    EXPECT_NEAR(fabric.fisher->resultant, truth->fisher->resultant, kRounding);
    EXPECT_NEAR(*fabric.fisher->kappa, *truth->fisher->kappa, kRounding);
}

TEST(PublicFabric, CountsAreRepeatedLines) {
    const std::vector<Line> lines = {{10, 20}, {30, 50}, {50, 20}, {70, 300}};
    const std::vector<double> counts = {1, 3, 0, 2};
    const std::vector<Line> repeated = {{10, 20}, {30, 50},  {30, 50},
                                        {30, 50}, {70, 300}, {70, 300}};
    const Fabric counted = FabricOf(lines, counts).value_or(Fabric{});
    const Fabric single = FabricOf(repeated).value_or(Fabric{});
    EXPECT_EQ(counted.count, 6);
    for (std::size_t i = 0; i < 3; ++i) {
        EXPECT_NEAR(counted.eigenvalues[i], single.eigenvalues[i], 1e-12);
    }
    EXPECT_NEAR(*counted.standardError, *single.standardError, 1e-12);
}

TEST(PublicFabric, TheConeHoldsTheTrueAxisNineteenTimesInTwenty) {
    const qt::Vector axis = qt::Unit({0.3, 0.5, 0.8});
    const Line truth = LineOf({axis.north, axis.east, axis.down});
    int held = 0;
    for (std::uint32_t sample = 0; sample < 400; ++sample) {
        const Fabric fabric = FabricOf(LinesAbout(axis, 0.4, 100, sample)).value_or(Fabric{});
        held += AxesApart(fabric.axes[2], truth) <= *fabric.coneAngle ? 1 : 0;
    }
    // 380 of 400, with a standard deviation of 4.4.
    EXPECT_NEAR(held, 380, 18);
}

TEST(PublicFabric, WithoutLinesThereIsNone) {
    EXPECT_FALSE(FabricOf({}));
    EXPECT_FALSE(OrientationTensorOf({}));
    EXPECT_FALSE(FabricOf(std::vector<Line>{{10, 20}}, std::vector<double>{0}));
}

TEST(PublicFabric, WhatIsNotDeterminedIsMissing) {
    const Fabric single = FabricOf(std::vector<Line>{{30, 60}}, {}, Sense::kDirections).value();
    EXPECT_EQ(single.isDetermined, (std::array<bool, 3>{false, false, true}));
    EXPECT_FALSE(single.gamma || single.zeta || single.standardError || single.ellipse);
    EXPECT_FALSE(single.fisher->kappa);
    const Fabric opposite =
        FabricOf(std::vector<Line>{{30, 60}, {-30, 60}}, {}, Sense::kDirections).value();
    EXPECT_FALSE(opposite.fisher->mean);
    EXPECT_TRUE(opposite.meanOfAxes);
    EXPECT_FALSE(FabricOf(std::vector<Line>{{30, 60}})->fisher);
}

TEST(PublicFabric, RefusesWhatItCannotCount) {
    const std::vector<Line> lines = {{10, 20}, {30, 40}};
    EXPECT_THROW(static_cast<void>(FabricOf(lines, std::vector<double>{1})), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(FabricOf(lines, std::vector<double>{1, -1})),
                 std::invalid_argument);
    EXPECT_THROW(static_cast<void>(FabricOf(std::vector<Line>{{100, 0}})), std::invalid_argument);
}

} // namespace
} // namespace quandrel::api
