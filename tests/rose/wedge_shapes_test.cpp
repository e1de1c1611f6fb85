// SPDX-License-Identifier: MIT

#include "orientation/angles.h"
#include "rose/rose_furniture.h"
#include "rose/wedge_shapes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace quandrel {
namespace {

RoseWedge Wedge(double start, double end, double radius = 1000) {
    RoseWedge wedge;
    wedge.start = WrappedAngle(start);
    wedge.end = WrappedAngle(end);
    wedge.radius = radius;
    return wedge;
}

/// Whether a wedge holds an angle, and how far the nearest of its edges is.
bool Holds(const RoseWedge& wedge, double angle) {
    return wedge.start == wedge.end
           || WrappedAngle(angle - wedge.start) < WrappedAngle(wedge.end - wedge.start);
}

double FromEdges(const RoseWedge& wedge, double angle) {
    return std::min(std::abs(std::remainder(angle - wedge.start, kTwoPi)),
                    std::abs(std::remainder(angle - wedge.end, kTwoPi)));
}

TEST(PartsShown, AreWhereTheWedgeAndTheHalfBothAre) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> angle(0, kTwoPi);
    for (int i = 0; i < 20000; ++i) {
        const int shape = 1 + i % 4;
        const double start = angle(random);
        const RoseWedge wedge = Wedge(start, i % 50 == 0 ? start : angle(random));
        const double at = angle(random);
        const bool isInHalf = IsAzimuthShown(shape, kPi / 2 - at);
        if (FromEdges(wedge, at) < 1e-6
            || std::abs(std::remainder(at - ShownArc(shape).start, kPi)) < 1e-6) {
            continue;
        }
        int parts = 0;
        for (const RoseWedge& part : PartsShown(wedge, shape)) {
            EXPECT_NE(part.start, part.end);
            parts += Holds(part, at) ? 1 : 0;
        }
        EXPECT_EQ(parts, Holds(wedge, at) && isInHalf ? 1 : 0) << shape << " " << at;
    }
}

TEST(PartsShown, AreTheWedgeItselfInAWholeRose) {
    const std::vector<RoseWedge> parts = PartsShown(Wedge(1, 5), 0);
    ASSERT_EQ(parts.size(), 1U);
    EXPECT_EQ(parts[0].start, 1);
    EXPECT_EQ(parts[0].end, 5);
}

TEST(CornersOfRingPart, EncloseTheAreaOfTheRing) {
    const std::vector<Point> corners = CornersOfRingPart(Wedge(0.3, 1.5, 900), 400);
    double area = 0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Point& a = corners[i];
        const Point& b = corners[(i + 1) % corners.size()];
        area += (a.x * b.y - b.x * a.y) / 2;
    }
    const double ring = 1.2 / 2 * (900.0 * 900 - 400.0 * 400);
    EXPECT_NEAR(area / ring, 1, 2e-5);
}

TEST(InnerRadiusOf, IsThatOfTheNextClassOfTheSameEnd) {
    std::vector<RoseWedge> wedges = {Wedge(0, 1, 900), Wedge(3, 4, 900), Wedge(0, 1, 500),
                                     Wedge(3, 4, 500), Wedge(1, 2, 700)};
    wedges[1].mirror = wedges[3].mirror = true;
    wedges[4].sector = 2;
    EXPECT_EQ(InnerRadiusOf(wedges, 0, 100), 500);
    EXPECT_EQ(InnerRadiusOf(wedges, 1, 100), 500);
    EXPECT_EQ(InnerRadiusOf(wedges, 2, 100), 100);
    EXPECT_EQ(InnerRadiusOf(wedges, 4, 100), 100);
}

} // namespace
} // namespace quandrel
