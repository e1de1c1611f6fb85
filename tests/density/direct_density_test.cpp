// SPDX-License-Identifier: MIT

#include "density/direct_density.h"
#include "support/density_samples.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace quandrel {
namespace {

/// The sum over rows of a function of the angle between row and place, in radians.
template <class Function>
double SumOfAngles(const std::vector<MeasuredLine>& rows, const MeasuredLine& place,
                   LineSense sense, const Function& weightOf) {
    const Direction at = DirectionOf(place);
    double sum = 0;
    for (const MeasuredLine& row : rows) {
        const Direction line = DirectionOf(row);
        const double angle = ArcCos(at.l * line.l + at.m * line.m + at.n * line.n);
        sum += weightOf(sense == LineSense::Axes ? std::min(angle, kPi - angle) : angle);
    }
    return sum;
}

/// The weights written out from the angle, with A as a share of the hemisphere or the sphere.
double WrittenOut(DensityMethod method, LineSense sense, double n, double k, double angle) {
    const bool areAxes = sense == LineSense::Axes;
    const double share = k * k / (n + k * k);
    const double cone = std::acos(areAxes ? 1 - share : 1 - 2 * share);
    const double height = 1 - std::cos(cone);
    const double above = std::cos(angle) - std::cos(cone);
    switch (method) {
    case DensityMethod::Kamb:
        return angle <= cone ? 1 : 0;
    case DensityMethod::KambLinear:
        return angle <= cone ? 2 / height * above : 0;
    case DensityMethod::KambSquare:
        return angle <= cone ? 3 / (height * height) * above * above : 0;
    default:
        return std::exp((areAxes ? 2 : 1) * (1 + n / (k * k)) * (std::cos(angle) - 1));
    }
}

TEST(DirectDensity, IsTheSumOfTheWeightsWrittenOut) {
    for (const LineSense sense : kSenses) {
        const auto rows = RowsOf(Fabric::Girdle, sense, Precision::Decimals, 200, 1);
        const auto directions = DirectionsOfLines(rows);
        for (const MeasuredLine& place : PlacesFor(rows, sense, 40, 2)) {
            for (const DensityMethod method :
                 {DensityMethod::Kamb, DensityMethod::KambLinear, DensityMethod::KambSquare,
                  DensityMethod::KambExponential}) {
                const DensityFormula formula = FormulaOf({method, sense, 4}, 200);
                const double expected = SumOfAngles(rows, place, sense, [&](double angle) {
                    return WrittenOut(method, sense, 200, 4, angle);
                });
                EXPECT_NEAR(DirectDensity(formula, directions, {}, DirectionOf(place)), expected,
                            1e-11 * (1 + expected))
                    << NameOf(formula);
            }
        }
    }
}

TEST(DirectDensity, OfKernelsIsASumOfDensities) {
    for (const LineSense sense : kSenses) {
        const auto rows = RowsOf(Fabric::Cluster, sense, Precision::Decimals, 50, 3);
        const DensityFormula formula =
            FormulaOf({DensityMethod::Kernel, sense, 0, DegToRad(12)}, 50);
        // Half at 12 degrees: both kernels are exp(-ln 2 x), x the square of the sines' quotient,
        // of whole angles for axes and of half angles for directions.
        const double part = sense == LineSense::Axes ? 1 : 0.5;
        for (const MeasuredLine& place : PlacesFor(rows, sense, 30, 4)) {
            const double expected = SumOfAngles(rows, place, sense, [&](double angle) {
                const double quotient = std::sin(part * angle) / std::sin(part * DegToRad(12));
                return formula.scale * std::pow(0.5, quotient * quotient);
            });
            EXPECT_NEAR(DirectDensity(formula, DirectionsOfLines(rows), {}, DirectionOf(place)),
                        expected, 1e-11 * (1 + expected));
        }
    }
}

TEST(DirectDensity, CountsAxesAtBothEndsAndDirectionsAtOne) {
    const std::vector<Direction> rows = {DirectionOf({DegToRad(40), 1}),
                                         DirectionOf({DegToRad(-40), 1})};
    const Direction place = DirectionOf({DegToRad(42), 1});
    const DensityFormula axes = FormulaOf({DensityMethod::Kamb, LineSense::Axes, 1}, 30);
    EXPECT_EQ(DirectDensity(axes, rows, {}, place), 2);
    const DensityFormula directions =
        FormulaOf({DensityMethod::Kamb, LineSense::Directions, 1}, 30);
    EXPECT_EQ(DirectDensity(directions, rows, {}, place), 1);
}

TEST(DirectDensity, TakesARowAsOftenAsItCounts) {
    const std::vector<MeasuredLine> rows = {{0.2, 1}, {0.3, 1}, {0.25, 1.1}};
    std::vector<MeasuredLine> repeated = {rows[0], rows[0], rows[2], rows[2], rows[2]};
    const std::vector<double> counts = {2, 0, 3};
    for (const DensityMethod method : {DensityMethod::KambSquare, DensityMethod::Kernel}) {
        const DensityFormula formula = FormulaOf({method, LineSense::Axes, 3, 0.3}, 5);
        const Direction place = DirectionOf({0.22, 0.9});
        EXPECT_NEAR(DirectDensity(formula, DirectionsOfLines(rows), counts, place),
                    DirectDensity(formula, DirectionsOfLines(repeated), {}, place), 1e-12);
    }
}

// A vertical line and one of plunge 87 are 3 degrees apart, exactly on a cone of 3 degrees.
TEST(DirectDensity, CountsRowsExactlyOnTheCone) {
    const double k = KambKOfHalfAngle(DegToRad(3), 500, LineSense::Axes);
    const DensityFormula formula = FormulaOf({DensityMethod::Kamb, LineSense::Axes, k}, 500);
    for (int trend = 0; trend < 360; ++trend) {
        const std::vector<Direction> row = {DirectionOf({DegToRad(87), DegToRad(trend)})};
        EXPECT_EQ(DirectDensity(formula, row, {}, {0, 0, 1}), 1) << trend;
    }
}

} // namespace
} // namespace quandrel
