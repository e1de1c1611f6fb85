// SPDX-License-Identifier: MIT

#include "density/direct_density.h"
#include "density/ring_convolution.h"
#include "support/density_samples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

namespace quandrel {
namespace {

constexpr std::array kMethods = {DensityMethod::Kamb, DensityMethod::KambLinear,
                                 DensityMethod::KambSquare, DensityMethod::KambExponential,
                                 DensityMethod::Kernel};

/// Rows at nodes.
struct NodeRows {
    std::vector<double> nodes;
    std::vector<Direction> directions;
};

NodeRows RowsAtNodes(LineSense sense, std::size_t count) {
    NodeRows rows{std::vector<double>(NodesOf(sense)), {}};
    for (const Fabric fabric : kFabrics) {
        for (const MeasuredLine& row :
             RowsOf(fabric, sense, Precision::WholeDegrees, count / kFabrics.size(), 21)) {
            rows.nodes[NearestNode(LatticePlaceOf(row, sense), sense)] += 1;
            rows.directions.push_back(DirectionOf(row));
        }
    }
    return rows;
}

void ExpectDirectSums(const DensityFormula& formula, const std::vector<double>& densities,
                      const NodeRows& rows) {
    const double greatest = *std::max_element(densities.begin(), densities.end());
    for (std::size_t node = 0; node < densities.size(); node += 173) {
        const Direction place = DirectionOf(LineOfNode(node, formula.sense));
        ASSERT_NEAR(densities[node], DirectDensity(formula, rows.directions, {}, place),
                    1e-12 * greatest)
            << NameOf(formula) << ", node " << node;
    }
}

// For any weight, also of cones with sharp edges.
TEST(LatticeDensity, IsTheDirectSumAtEachNode) {
    for (const LineSense sense : kSenses) {
        const NodeRows rows = RowsAtNodes(sense, 150);
        const LatticeSpectra spectra = SpectraOf(rows.nodes, sense);
        for (const DensityMethod method : kMethods) {
            for (const double width : {2.0, 60.0}) {
                const DensityFormula formula =
                    FormulaOf({method, sense, width, DegToRad(width)}, 150);
                ExpectDirectSums(formula, LatticeDensity(formula, spectra, 2), rows);
            }
        }
    }
}

TEST(LatticeDensity, IsTheSameForAnyNumberOfThreads) {
    for (const LineSense sense : kSenses) {
        const LatticeSpectra spectra = SpectraOf(RowsAtNodes(sense, 60).nodes, sense);
        const DensityFormula formula = FormulaOf({DensityMethod::KambExponential, sense, 3}, 60);
        const std::vector<double> alone = LatticeDensity(formula, spectra, 1);
        EXPECT_EQ(LatticeDensity(formula, spectra, 2), alone);
        EXPECT_EQ(LatticeDensity(formula, spectra, 5), alone);
    }
}

TEST(LatticeDensity, OfNoRowsIsZero) {
    const std::vector<double> none(NodesOf(LineSense::Axes));
    const DensityFormula formula = FormulaOf({DensityMethod::Kernel}, 0);
    EXPECT_EQ(LatticeDensity(formula, SpectraOf(none, LineSense::Axes), 1), none);
}

TEST(LatticeDensity, AndItsEdgeAreTheWhole) {
    const NodeRows rows = RowsAtNodes(LineSense::Axes, 60);
    const DensityFormula formula =
        FormulaOf({DensityMethod::KambExponential, LineSense::Axes, 20}, 60);
    const std::vector<double> densities =
        LatticeDensityWithoutEdge(formula, SpectraOf(rows.nodes, LineSense::Axes), 2);
    const DensityFormula edge = EdgeOf(formula);
    for (std::size_t node = 0; node < densities.size(); node += 501) {
        const Direction place = DirectionOf(LineOfNode(node, LineSense::Axes));
        ASSERT_NEAR(densities[node] + DirectDensity(edge, rows.directions, {}, place),
                    DirectDensity(formula, rows.directions, {}, place), 1e-11);
    }
}

} // namespace
} // namespace quandrel
