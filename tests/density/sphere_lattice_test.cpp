// SPDX-License-Identifier: MIT

#include "density/sphere_lattice.h"
#include "support/density_samples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>
#include <vector>

namespace quandrel {
namespace {

Direction DirectionIn(const MeasuredLine& line, LineSense sense) {
    return sense == LineSense::Axes ? AxisOf(line) : DirectionOf(line);
}

/// A smooth function of the sphere, and of axes the same at both ends. Its greatest value is
/// near 1.
double SmoothAt(const MeasuredLine& line, LineSense sense) {
    const Direction at = DirectionIn(line, sense);
    const double c = 0.48 * at.l - 0.6 * at.m + 0.64 * at.n;
    const double d = 0.8 * at.l + 0.6 * at.n;
    return sense == LineSense::Axes ? std::exp(20 * (c * c - 1)) + 0.3 * d * at.m
                                    : std::exp(20 * (c - 1)) + 0.3 * d;
}

std::vector<double> SmoothAtNodes(LineSense sense) {
    std::vector<double> nodes;
    for (std::size_t node = 0; node < NodesOf(sense); ++node) {
        nodes.push_back(SmoothAt(LineOfNode(node, sense), sense));
    }
    return nodes;
}

TEST(SphereLattice, HasTheRingsOfItsSense) {
    EXPECT_EQ(RingsOf(LineSense::Axes), 91);
    EXPECT_EQ(RingsOf(LineSense::Directions), 181);
    EXPECT_EQ(NodesOf(LineSense::Directions), 181U * 360);
}

TEST(SphereLattice, NodesHaveTheirLines) {
    for (const LineSense sense : kSenses) {
        for (std::size_t node = 0; node < NodesOf(sense); node += 7) {
            const MeasuredLine line = LineOfNode(node, sense);
            const LatticePlace place = LatticePlaceOf(line, sense);
            ASSERT_TRUE(IsNode(place)) << node;
            ASSERT_EQ(NearestNode(place, sense), node);
        }
    }
}

// A line that points up to the east has its lower end in the west.
TEST(SphereLattice, UpwardDirectionsHaveTheTrendToWhichTheyPoint) {
    const MeasuredLine upward{DegToRad(-30), DegToRad(270)};
    ASSERT_NEAR(DirectionOf(upward).m, std::cos(DegToRad(30)), 1e-12);
    const LatticePlace place = LatticePlaceOf(upward, LineSense::Directions);
    EXPECT_NEAR(place.plunge, -30, 1e-10);
    EXPECT_NEAR(place.trend, 90, 1e-10);
    const LatticePlace axis = LatticePlaceOf(upward, LineSense::Axes);
    EXPECT_NEAR(axis.plunge, 30, 1e-10);
    EXPECT_NEAR(axis.trend, 270, 1e-10);
}

TEST(SphereLattice, PlacesBetweenNodesAreNone) {
    EXPECT_TRUE(IsNode({17, 359}));
    EXPECT_TRUE(IsNode({17 - 1e-12, 359 + 1e-12}));
    EXPECT_FALSE(IsNode({17.001, 359}));
    EXPECT_FALSE(IsNode({17, 358.5}));
}

TEST(LatticeSpline, GoesThroughTheNodes) {
    for (const LineSense sense : kSenses) {
        std::vector<double> nodes = SmoothAtNodes(sense);
        nodes[1234] += 0.5; // any values, not only smooth ones
        const LatticeSpline spline(nodes, sense);
        for (std::size_t node = 2 * kRingLength; node + 2 * kRingLength < nodes.size();
             node += 11) {
            const LatticePlace place = LatticePlaceOf(LineOfNode(node, sense), sense);
            ASSERT_NEAR(spline.At(place), nodes[node], 1e-11) << node;
        }
    }
}

TEST(LatticeSpline, IsSmoothOverThePoleAndTheRim) {
    for (const LineSense sense : kSenses) {
        const LatticeSpline spline(SmoothAtNodes(sense), sense);
        RandomLines random(11);
        for (int i = 0; i < 4000; ++i) {
            const std::array<MeasuredLine, 5> corners = {
                MeasuredLine{kPi / 2, 0}, {0, 0}, {0, 4}, {-kPi / 2, 0}, random.Even(sense)};
            const MeasuredLine line =
                random.Near(corners[static_cast<std::size_t>(i) % corners.size()], 2, sense);
            ASSERT_NEAR(spline.At(LatticePlaceOf(line, sense)), SmoothAt(line, sense), 2e-8)
                << RadToDeg(line.plunge) << " " << RadToDeg(line.trend);
        }
    }
}

TEST(LatticeSpline, TakesAFullTurnAsNorth) {
    for (const LineSense sense : kSenses) {
        const LatticeSpline spline(SmoothAtNodes(sense), sense);
        for (const double plunge : {0.0, 33.4, 89.9, 90.0}) {
            EXPECT_NEAR(spline.At({plunge, 360}), spline.At({plunge, 0}), 1e-13);
        }
    }
}

// The sum of a smooth function over the shares is its value at the row.
TEST(RowShares, SumASmoothFunctionToItsValueAtTheRow) {
    for (const LineSense sense : kSenses) {
        const std::vector<double> values = SmoothAtNodes(sense);
        RandomLines random(12);
        for (const MeasuredLine& corner :
             {MeasuredLine{kPi / 2, 0}, {0, 0}, {0, 3}, {-kPi / 2, 0}, {0.5, 6.28}, {0.01, 1}}) {
            const MeasuredLine line = random.Near(corner, 1.5, sense);
            RowShares shares(sense);
            shares.Add(LatticePlaceOf(line, sense), 2);
            std::vector<double> nodes(NodesOf(sense));
            std::move(shares).AddTo(nodes);
            EXPECT_NEAR(std::accumulate(nodes.begin(), nodes.end(), 0.0), 2, 1e-12);
            const double sum = std::inner_product(nodes.begin(), nodes.end(), values.begin(), 0.0);
            EXPECT_NEAR(sum, 2 * SmoothAt(line, sense), 4e-8)
                << RadToDeg(line.plunge) << " " << RadToDeg(line.trend);
        }
    }
}

TEST(RowShares, OfARowAtANodeAreAllAtIt) {
    for (const LineSense sense : kSenses) {
        const std::size_t node = 40 * kRingLength + 359;
        RowShares shares(sense);
        shares.Add(LatticePlaceOf(LineOfNode(node, sense), sense), 3);
        std::vector<double> nodes(NodesOf(sense));
        std::move(shares).AddTo(nodes);
        EXPECT_NEAR(nodes[node], 3, 1e-11);
        nodes[node] = 0;
        for (const double share : nodes) {
            ASSERT_NEAR(share, 0, 1e-11);
        }
    }
}

TEST(RowShares, OfTwoPartsAreThoseOfTheWhole) {
    const LineSense sense = LineSense::Directions;
    RowShares whole(sense);
    RowShares first(sense);
    RowShares second(sense);
    RandomLines random(13);
    for (int row = 0; row < 20; ++row) {
        const LatticePlace place = LatticePlaceOf(random.Even(sense), sense);
        whole.Add(place, 1);
        (row % 3 == 0 ? first : second).Add(place, 1);
    }
    first.Add(second);
    std::vector<double> ofWhole(NodesOf(sense));
    std::vector<double> ofParts(NodesOf(sense));
    std::move(whole).AddTo(ofWhole);
    std::move(first).AddTo(ofParts);
    for (std::size_t node = 0; node < ofWhole.size(); ++node) {
        ASSERT_NEAR(ofParts[node], ofWhole[node], 1e-14);
    }
}

} // namespace
} // namespace quandrel
