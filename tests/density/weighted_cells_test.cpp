// SPDX-License-Identifier: MIT

#include "density/axis_cells.h"
#include "density/cone_counts.h"
#include "density/direct_density.h"
#include "density/weighted_cells.h"
#include "support/density_samples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

namespace quandrel {
namespace {

constexpr std::array kMethods = {DensityMethod::Cone, DensityMethod::Kamb,
                                 DensityMethod::KambLinear, DensityMethod::KambSquare,
                                 DensityMethod::KambExponential};

/// Holds the sums of cells against those of each row, at 1e-9 of the greatest of them.
void ExpectDirectSums(const DensityFormula& formula, const std::vector<MeasuredLine>& rows,
                      const std::vector<double>& weights, const WeightedCells& cells) {
    const std::vector<Direction> directions = DirectionsOfLines(rows);
    std::vector<double> expected;
    const std::vector<MeasuredLine> places = PlacesFor(rows, formula.sense, 60, 31);
    for (const MeasuredLine& place : places) {
        expected.push_back(DirectDensity(formula, directions, weights, DirectionOf(place)));
    }
    const double greatest = *std::max_element(expected.begin(), expected.end());
    for (std::size_t i = 0; i < places.size(); ++i) {
        ASSERT_NEAR(cells.At(formula, places[i]), expected[i], 1e-9 * greatest)
            << NameOf(formula) << " at " << RadToDeg(places[i].plunge) << " "
            << RadToDeg(places[i].trend);
    }
}

TEST(WeightedCells, SumAsEachRow) {
    for (const LineSense sense : kSenses) {
        for (const Precision precision : kPrecisions) {
            for (const Fabric fabric : kFabrics) {
                const auto rows = RowsOf(fabric, sense, precision, 300, 32);
                const std::vector<double> weights(rows.size(), 1);
                const WeightedCells cells(rows, weights, sense);
                for (const double k : {1.0, 3.0, 8.0, 100.0, 1000.0}) {
                    for (const DensityMethod method : kMethods) {
                        const DensityFormula formula = FormulaOf({method, sense, k}, 300);
                        if (formula.sense == sense) {
                            ExpectDirectSums(formula, rows, weights, cells);
                        }
                    }
                }
            }
        }
    }
}

TEST(WeightedCells, SumRowsThatCountMoreOrLess) {
    for (const LineSense sense : kSenses) {
        const auto rows = RowsOf(Fabric::Girdle, sense, Precision::Decimals, 300, 33);
        RandomLines random(34);
        std::vector<double> weights;
        for (std::size_t row = 0; row < rows.size(); ++row) {
            weights.push_back(row % 5 == 0 ? 0 : 3 * random.Fraction());
        }
        const WeightedCells cells(rows, weights, sense);
        for (const DensityMethod method : kMethods) {
            if (const DensityFormula formula = FormulaOf({method, sense, 4}, 300);
                formula.sense == sense) {
                ExpectDirectSums(formula, rows, weights, cells);
            }
        }
    }
}

// Down to the angles below which rows are looked at one by one, and below them. Most rows of the
// cluster's rings are far from most cones.
TEST(WeightedCells, KeepTheirDigitsInNarrowCones) {
    for (const Fabric fabric : {Fabric::Cluster, Fabric::Girdle}) {
        const auto rows = RowsOf(fabric, LineSense::Axes, Precision::Decimals, 20'000, 35);
        const std::vector<double> weights(rows.size(), 1);
        const WeightedCells cells(rows, weights, LineSense::Axes);
        for (const double degrees : {0.5, 1.9, 2.1, 4.0, 5.9, 6.1, 12.0}) {
            const double k = KambKOfHalfAngle(DegToRad(degrees), 20'000, LineSense::Axes);
            for (const DensityMethod method :
                 {DensityMethod::Kamb, DensityMethod::KambLinear, DensityMethod::KambSquare}) {
                ExpectDirectSums(FormulaOf({method, LineSense::Axes, k}, 20'000), rows, weights,
                                 cells);
            }
        }
    }
}

TEST(WeightedCells, CountInTheConeAsTheCellsOfAxes) {
    const auto rows = RowsOf(Fabric::Cluster, LineSense::Axes, Precision::Decimals, 2000, 36);
    const WeightedCells cells(rows, std::vector<double>(rows.size(), 1), LineSense::Axes);
    const AxisCells counted(rows);
    const DensityFormula formula = FormulaOf({DensityMethod::Cone}, 2000);
    for (const MeasuredLine& place : PlacesFor(rows, LineSense::Axes, 300, 37)) {
        EXPECT_EQ(cells.At(formula, place), counted.CountWithin(place, kCountCone));
    }
}

// Rows at whole degrees lie exactly on cones of whole degrees about whole degrees.
TEST(WeightedCells, CountRowsExactlyOnTheCone) {
    std::vector<MeasuredLine> rows;
    for (int trend = 0; trend < 360; ++trend) {
        rows.push_back({DegToRad(75), DegToRad(trend)});
        rows.push_back({DegToRad(20), DegToRad(trend)});
    }
    const WeightedCells cells(rows, std::vector<double>(rows.size(), 1), LineSense::Axes);
    const double k = KambKOfHalfAngle(DegToRad(15), 720, LineSense::Axes);
    const DensityFormula formula = FormulaOf({DensityMethod::Kamb, LineSense::Axes, k}, 720);
    EXPECT_EQ(cells.At(formula, {kPi / 2, 0}), 360);
    for (int trend = 0; trend < 360; ++trend) {
        const MeasuredLine place{DegToRad(35), DegToRad(trend)};
        ASSERT_EQ(cells.At(formula, place),
                  DirectDensity(formula, DirectionsOfLines(rows), {}, DirectionOf(place)))
            << trend;
    }
}

TEST(WeightedCells, OfNoRowsSumToZero) {
    const WeightedCells cells({}, {}, LineSense::Directions);
    const DensityFormula formula =
        FormulaOf({DensityMethod::KambSquare, LineSense::Directions, 3}, 0);
    EXPECT_EQ(cells.At(formula, {0.3, 1}), 0);
}

} // namespace
} // namespace quandrel
