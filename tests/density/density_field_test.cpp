// SPDX-License-Identifier: MIT

#include "density/density_field.h"
#include "density/direct_density.h"
#include "support/density_samples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

namespace quandrel {
namespace {

constexpr std::array kKambMethods = {DensityMethod::Kamb, DensityMethod::KambLinear,
                                     DensityMethod::KambSquare, DensityMethod::KambExponential};

/// The bound of a field as a part of the greatest density.
double BoundOf(const DensityFormula& formula) {
    return IsSpline(formula) ? 5e-4 : 1e-9;
}

/// Holds a field against direct sums.
void ExpectDirectSums(const DensityFormula& formula, const std::vector<MeasuredLine>& rows,
                      const std::vector<double>& weights, DensityRows& gathered) {
    const std::vector<Direction> directions = DirectionsOfLines(rows);
    const DensityField field(gathered, formula, 2);
    const std::vector<MeasuredLine> places = PlacesFor(rows, formula.sense, 100, 41);
    std::vector<double> expected;
    for (const MeasuredLine& place : places) {
        expected.push_back(DirectDensity(formula, directions, weights, DirectionOf(place)));
    }
    const double bound =
        BoundOf(formula) * *std::max_element(expected.begin(), expected.end()) + 1e-300;
    for (std::size_t i = 0; i < places.size(); ++i) {
        ASSERT_NEAR(field.At(places[i]), expected[i], bound)
            << NameOf(formula) << " at " << RadToDeg(places[i].plunge) << " "
            << RadToDeg(places[i].trend);
    }
}

/// All methods, narrow and wide, for each fabric. The girdle is in whole degrees.
void ExpectDirectSums(LineSense sense, std::size_t count, double kernelDegrees) {
    for (const Fabric fabric : kFabrics) {
        const bool isWhole = fabric == Fabric::Girdle;
        const auto rows = RowsOf(
            fabric, sense, isWhole ? Precision::WholeDegrees : Precision::Decimals, count, 42);
        const auto n = static_cast<double>(count);
        DensityRows gathered(rows, {}, sense);
        EXPECT_EQ(gathered.Weight(), n);
        EXPECT_EQ(gathered.AreWhole(), isWhole);
        for (const DensityMethod method : kKambMethods) {
            ExpectDirectSums(FormulaOf({method, sense, 2}, n), rows, {}, gathered);
        }
        ExpectDirectSums(FormulaOf({DensityMethod::KambLinear, sense, 20}, n), rows, {}, gathered);
        ExpectDirectSums(FormulaOf({DensityMethod::KambSquare, sense, 20}, n), rows, {}, gathered);
        const DensityChoice kernel{DensityMethod::Kernel, sense, 0, DegToRad(kernelDegrees)};
        ExpectDirectSums(FormulaOf(kernel, n), rows, {}, gathered);
        if (sense == LineSense::Axes) {
            ExpectDirectSums(FormulaOf({DensityMethod::Cone}, n), rows, {}, gathered);
        }
    }
}

TEST(DensityField, OfFewAxesIsTheirDirectSum) {
    ExpectDirectSums(LineSense::Axes, 20, 2);
}

TEST(DensityField, OfAxesIsTheirDirectSum) {
    ExpectDirectSums(LineSense::Axes, 300, 15);
}

TEST(DensityField, OfManyAxesIsTheirDirectSum) {
    ExpectDirectSums(LineSense::Axes, 3000, 4);
}

TEST(DensityField, OfFewDirectionsIsTheirDirectSum) {
    ExpectDirectSums(LineSense::Directions, 20, 4);
}

TEST(DensityField, OfDirectionsIsTheirDirectSum) {
    ExpectDirectSums(LineSense::Directions, 300, 2);
}

TEST(DensityField, OfManyDirectionsIsTheirDirectSum) {
    ExpectDirectSums(LineSense::Directions, 3000, 60);
}

TEST(DensityField, OfRowsThatCountMoreOrLessIsTheirDirectSum) {
    for (const LineSense sense : kSenses) {
        auto rows = RowsOf(Fabric::Girdle, sense, Precision::Decimals, 300, 43);
        std::transform(rows.begin(), rows.begin() + 100, rows.begin(), InWholeDegrees);
        RandomLines random(44);
        std::vector<double> weights;
        for (std::size_t row = 0; row < rows.size(); ++row) {
            weights.push_back(row % 7 == 0 ? 0 : 3 * random.Fraction());
        }
        DensityRows gathered(rows, weights, sense);
        for (const DensityMethod method : kKambMethods) {
            for (const double k : {3.0, 15.0}) {
                ExpectDirectSums(FormulaOf({method, sense, k}, gathered.Weight()), rows, weights,
                                 gathered);
            }
        }
    }
}

// The edge of the weight is at a right angle from each row. All rows have it in the same place.
TEST(DensityField, OfWideExponentialsHasTheirEdge) {
    const std::vector<MeasuredLine> rows(25, {DegToRad(33.3), DegToRad(77.7)});
    DensityRows gathered(rows, {}, LineSense::Axes);
    for (const double k : {8.0, 30.0, 1000.0}) {
        const DensityFormula formula =
            FormulaOf({DensityMethod::KambExponential, LineSense::Axes, k}, 25);
        ASSERT_TRUE(IsSpline(formula));
        const DensityField field(gathered, formula, 2);
        const std::vector<Direction> directions = DirectionsOfLines(rows);
        for (double degrees = 55; degrees < 58; degrees += 0.05) {
            const MeasuredLine place{DegToRad(degrees), DegToRad(257.7)};
            EXPECT_NEAR(field.At(place), DirectDensity(formula, directions, {}, DirectionOf(place)),
                        5e-4 * 25)
                << k << " " << degrees;
        }
    }
}

TEST(DensityField, IsASplineWhereThisIsExactEnough) {
    const auto isSpline = [](DensityMethod method, double degrees) {
        DensityFormula formula;
        formula.method = method;
        formula.cosine = std::cos(DegToRad(degrees));
        formula.factor = std::log(2.0) / (1 - formula.cosine);
        return IsSpline(formula);
    };
    EXPECT_TRUE(isSpline(DensityMethod::KambExponential, 2.01));
    EXPECT_FALSE(isSpline(DensityMethod::KambExponential, 1.99));
    EXPECT_TRUE(isSpline(DensityMethod::KambSquare, 25.1));
    EXPECT_FALSE(isSpline(DensityMethod::KambSquare, 24.9));
    EXPECT_FALSE(isSpline(DensityMethod::KambLinear, 60));
    EXPECT_FALSE(isSpline(DensityMethod::Kamb, 60));
    EXPECT_FALSE(isSpline(DensityMethod::Cone, 11.5));
    EXPECT_TRUE(IsSpline(FormulaOf({DensityMethod::Kernel, LineSense::Axes, 3, 0}, 9)));
    EXPECT_TRUE(IsSpline(FormulaOf({DensityMethod::Kernel, LineSense::Directions, 3, 0}, 9)));
}

// The figures of the header: near the bound at the limits, far below it at 4 degrees.
TEST(DensityField, KeepsItsBoundForSingleRows) {
    for (const LineSense sense : kSenses) {
        for (const auto& [degrees, bound] : {std::pair{2.0, 5e-4}, {4.0, 5e-6}}) {
            const DensityFormula formula =
                FormulaOf({DensityMethod::Kernel, sense, 0, DegToRad(degrees)}, 1);
            RandomLines random(45);
            for (int round = 0; round < 3; ++round) {
                const std::vector<MeasuredLine> row = {random.Even(sense)};
                DensityRows gathered(row, {}, sense);
                const DensityField field(gathered, formula, 2);
                for (int i = 0; i < 200; ++i) {
                    const MeasuredLine place = random.Near(row[0], 5, sense);
                    ASSERT_NEAR(
                        field.At(place),
                        DirectDensity(formula, DirectionsOfLines(row), {}, DirectionOf(place)),
                        bound * formula.scale);
                }
            }
        }
    }
}

TEST(DensityField, TakesLinesWithCountsAsSoManyRows) {
    const std::vector<DistinctLine> lines = {{90, 12, 3}, {-30, 350, 2}, {0, 360, 1}, {45, 100, 7}};
    std::vector<MeasuredLine> rows;
    for (const DistinctLine& line : lines) {
        rows.insert(rows.end(), static_cast<std::size_t>(line.rows),
                    {DegToRad(line.plunge), DegToRad(line.trend)});
    }
    for (const LineSense sense : kSenses) {
        DensityRows ofLines(lines, sense);
        EXPECT_EQ(ofLines.Weight(), 13);
        for (const DensityMethod method : {DensityMethod::KambExponential, DensityMethod::Kamb}) {
            ExpectDirectSums(FormulaOf({method, sense, 3}, 13), rows, {}, ofLines);
        }
    }
}

TEST(DensityField, IsTheSameForAnyNumberOfThreads) {
    for (const LineSense sense : kSenses) {
        const auto rows = RowsOf(Fabric::Even, sense, Precision::Decimals, 70'000, 46);
        const auto places = PlacesFor(rows, sense, 600, 47);
        const DensityFormula formula =
            FormulaOf({DensityMethod::Kernel, sense, 0, DegToRad(8)}, 70'000);
        const auto densitiesBy = [&](unsigned threads) {
            DensityRows gathered(rows, {}, sense);
            return DensityField(gathered, formula, threads).At(places, threads);
        };
        EXPECT_EQ(densitiesBy(3), densitiesBy(1));
    }
}

TEST(DensityField, AtItsNodesIsTheFieldThere) {
    for (const LineSense sense : kSenses) {
        const auto rows = RowsOf(Fabric::Girdle, sense, Precision::Decimals, 100, 48);
        DensityRows gathered(rows, {}, sense);
        for (const DensityMethod method : {DensityMethod::Kamb, DensityMethod::Kernel}) {
            const DensityField field(gathered, FormulaOf({method, sense, 3, 0.1}, 100), 2);
            const std::vector<double> nodes = field.AtNodes(2);
            ASSERT_EQ(nodes.size(), NodesOf(sense));
            const double greatest = *std::max_element(nodes.begin(), nodes.end());
            for (std::size_t node = 0; node < nodes.size(); node += 97) {
                ASSERT_NEAR(nodes[node], field.At(LineOfNode(node, sense)), 1e-11 * greatest);
            }
        }
    }
}

TEST(DensityField, IsNowhereBelowZero) {
    const auto rows = RowsOf(Fabric::Cluster, LineSense::Axes, Precision::Decimals, 50, 49);
    DensityRows gathered(rows, {}, LineSense::Axes);
    const DensityField field(
        gathered, FormulaOf({DensityMethod::Kernel, LineSense::Axes, 0, DegToRad(2)}, 50), 2);
    for (const double density : field.AtNodes(2)) {
        ASSERT_GE(density, 0);
    }
    RandomLines random(50);
    for (int i = 0; i < 20000; ++i) {
        ASSERT_GE(field.At(random.Even(LineSense::Axes)), 0);
    }
}

TEST(DensityField, OfNoRowsIsZero) {
    DensityRows gathered(std::vector<MeasuredLine>{}, {}, LineSense::Axes);
    for (const DensityMethod method : {DensityMethod::Kernel, DensityMethod::Kamb}) {
        const DensityField field(gathered, FormulaOf({method}, 0), 1);
        EXPECT_EQ(field.At({0.3, 1}), 0);
    }
}

} // namespace
} // namespace quandrel
