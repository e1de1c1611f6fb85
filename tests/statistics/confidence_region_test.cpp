// SPDX-License-Identifier: MIT

#include "orientation/direction_vectors.h"
#include "statistics/confidence_region.h"
#include "support/random_samples.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quandrel {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

const Direction kCentre = Scaled({1, -2, 2}, 1.0 / 3);

ConfidenceRegion RegionWith(double first, double second) {
    const Frame frame = FrameAbout(kCentre);
    ConfidenceRegion region;
    SetSemiAxes(region, kCentre, {frame[0], frame[1]}, {first, second});
    return region;
}

TEST(SetEllipse, HoldsWhatTheQuadraticFormHolds) {
    // d' C^-1 d by Cramer's rule for random matrices and directions.
    RandomStream random(2);
    int held = 0;
    for (int i = 0; i < 20000; ++i) {
        const double a = 0.01 + random.Uniform();
        const double c = 0.01 + random.Uniform();
        const double b = (2 * random.Uniform() - 1) * std::sqrt(a * c) * 0.99;
        const double limit = 3 * random.Uniform();
        const Frame frame = FrameAbout(UniformDirection(random));
        ConfidenceRegion region;
        SetEllipse(region, frame[2], {frame[0], frame[1]}, {a, b, c}, limit);
        const Direction direction = UniformDirection(random);
        const auto [d1, d2, d3] = InFrame(frame, direction);
        const double form = (c * d1 * d1 - 2 * b * d1 * d2 + a * d2 * d2) / (a * c - b * b);
        ASSERT_EQ(Contains(region, direction), form <= limit) << i;
        ASSERT_GE(region.components[0], region.components[1]);
        held += form <= limit ? 1 : 0;
    }
    EXPECT_GT(held, 2000);
    EXPECT_LT(held, 18000);
}

TEST(SetEllipse, WithoutALimitItHoldsEverything) {
    const Frame frame = FrameAbout(kCentre);
    ConfidenceRegion region;
    SetEllipse(region, kCentre, {frame[0], frame[1]}, {1, 0, 2}, kInfinity);
    EXPECT_EQ(region.state, RegionState::Undefined);
    EXPECT_EQ(region.reason, RegionReason::WithoutBounds);
    EXPECT_TRUE(Contains(region, frame[1]));
    EXPECT_FALSE(SemiAxes(region));
    EXPECT_TRUE(RegionOutline(region, 90).empty());
    EXPECT_TRUE(GirdleBand(region, 90)[0].empty());
}

TEST(SetSemiAxes, BoundsOfOneAndMoreAndOfNothingAreUndefined) {
    EXPECT_EQ(RegionWith(1, 0.5).reason, RegionReason::WithoutBounds);
    EXPECT_EQ(RegionWith(0.5, 1.5).reason, RegionReason::WithoutBounds);
    EXPECT_EQ(RegionWith(std::nan(""), std::nan("")).reason, RegionReason::WithoutBounds);
    EXPECT_EQ(RegionWith(0.5, 0).reason, RegionReason::RowsAlike);
    EXPECT_EQ(RegionWith(0.5, 0.999).state, RegionState::Given);
    EXPECT_EQ(RegionWith(0.5, 0.6).reason, RegionReason::None);
}

TEST(SemiAxes, AreTheAnglesOfTheirSinesTheLongerFirst) {
    const auto semiAxes = SemiAxes(RegionWith(std::sin(0.2), std::sin(0.7)));
    ASSERT_TRUE(semiAxes);
    EXPECT_NEAR((*semiAxes)[0], 0.7, 1e-15);
    EXPECT_NEAR((*semiAxes)[1], 0.2, 1e-15);
}

TEST(Contains, AMeanIsNotItsOppositeButAnAxisIs) {
    ConfidenceRegion region = RegionWith(0.3, 0.2);
    const Direction opposite = Scaled(kCentre, -1);
    EXPECT_TRUE(Contains(region, kCentre));
    EXPECT_TRUE(Contains(region, opposite));
    region.target = RegionTarget::MeanDirection;
    EXPECT_TRUE(Contains(region, kCentre));
    EXPECT_FALSE(Contains(region, opposite));
}

TEST(RegionOutline, IsAClosedPolygonOnTheBoundAroundTheCentre) {
    for (const auto& bounds : {std::array{0.05, 0.01}, {0.3, 0.3}, {0.9999999, 0.2}}) {
        const ConfidenceRegion region = RegionWith(bounds[0], bounds[1]);
        const std::vector<Direction> outline = RegionOutline(region, 72);
        ASSERT_EQ(outline.size(), 73U);
        EXPECT_EQ(outline.front().l, outline.back().l);
        EXPECT_EQ(outline.front().m, outline.back().m);
        EXPECT_EQ(outline.front().n, outline.back().n);
        for (std::size_t i = 0; i < outline.size(); ++i) {
            const double d1 = DotProduct(outline[i], region.frame[0]) / bounds[0];
            const double d2 = DotProduct(outline[i], region.frame[1]) / bounds[1];
            ASSERT_NEAR(d1 * d1 + d2 * d2, 1, 1e-12);
            ASSERT_NEAR(LengthOf(outline[i]), 1, 1e-12);
            ASSERT_GT(DotProduct(outline[i], kCentre), 0);
            // Once round: each vertex is a 72nd of a turn from the one before.
            const double expected = kTwoPi * static_cast<double>(i) / 72;
            ASSERT_NEAR(std::cos(std::atan2(d2, d1) - expected), 1, 1e-12);
        }
    }
}

TEST(RegionOutline, OfAConeIsAtItsAngle) {
    const ConfidenceRegion cone = RegionWith(std::sin(0.4), std::sin(0.4));
    for (const Direction& vertex : RegionOutline(cone, 36)) {
        EXPECT_NEAR(std::acos(DotProduct(vertex, kCentre)), 0.4, 1e-12);
    }
}

TEST(GirdleBand, HoldsTheGreatCirclesOfThePolesInTheRegion) {
    // A direction is on the great circle of some pole in the region if it has poles of the outline
    // on either side. The outline of many sides is short of the band by less than a thousandth.
    RandomStream random(3);
    for (const auto& bounds : {std::array{0.5, 0.1}, {0.2, 0.2}, {0.95, 0.4}}) {
        const ConfidenceRegion region = RegionWith(bounds[0], bounds[1]);
        const std::vector<Direction> poles = RegionOutline(region, 720);
        const double tangent1 = std::tan(std::asin(bounds[0]));
        const double tangent2 = std::tan(std::asin(bounds[1]));
        for (int i = 0; i < 1000; ++i) {
            const Direction direction = UniformDirection(random);
            const double x = DotProduct(direction, region.frame[0]) * tangent1;
            const double y = DotProduct(direction, region.frame[1]) * tangent2;
            const double z = DotProduct(direction, region.centre);
            if (std::abs(std::hypot(x, y) - std::abs(z)) < 1e-3) {
                continue;
            }
            bool isAbove = false;
            bool isBelow = false;
            for (const Direction& pole : poles) {
                (DotProduct(pole, direction) > 0 ? isAbove : isBelow) = true;
            }
            ASSERT_EQ(isAbove && isBelow, std::hypot(x, y) > std::abs(z));
        }
    }
}

TEST(GirdleBand, ItsEdgesTouchTheGreatCirclesOfTheOutline) {
    const ConfidenceRegion region = RegionWith(0.5, 0.1);
    const auto edges = GirdleBand(region, 60);
    const std::vector<Direction> poles = RegionOutline(region, 3600);
    for (std::size_t side = 0; side < 2; ++side) {
        ASSERT_EQ(edges[side].size(), 61U);
        EXPECT_EQ(edges[side].front().l, edges[side].back().l);
        for (const Direction& vertex : edges[side]) {
            ASSERT_NEAR(LengthOf(vertex), 1, 1e-12);
            ASSERT_EQ(DotProduct(vertex, region.centre) > 0, side == 0);
            double nearest = 1; // of the sines to the planes of the poles, all on one side
            for (const Direction& pole : poles) {
                nearest = std::min(nearest, DotProduct(pole, vertex) * (side == 0 ? 1 : -1));
            }
            ASSERT_NEAR(nearest, 0, 1e-5);
        }
    }
}

} // namespace
} // namespace quandrel
