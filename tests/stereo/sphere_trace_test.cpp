// SPDX-License-Identifier: MIT

#include "core/data_format.h"
#include "orientation/projection.h"
#include "stereo/sphere_trace.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>

namespace quandrel {
namespace {

/// The small circle about a horizontal axis, closed, from the steepest point.
std::vector<Direction> CircleAboutNorth(double halfAngle) {
    constexpr int kSides = 72;
    std::vector<Direction> line;
    for (int i = 0; i < kSides; ++i) {
        const double turn = kTwoPi * i / kSides;
        line.push_back({std::cos(halfAngle), std::sin(halfAngle) * std::sin(turn),
                        std::sin(halfAngle) * std::cos(turn)});
    }
    line.push_back(line.front());
    return line;
}

TEST(SphereTrace, ALineOnTheLowerHemisphereIsOnePiece) {
    const std::array<Direction, 3> line = {{{0, 0, 1}, {0.6, 0, 0.8}, {1, 0, 0}}};
    for (const int kind : {int{kEqualArea}, int{kEqualAngle}}) {
        const auto pieces = TraceOnNet(kind, line);
        ASSERT_EQ(pieces.size(), 1U);
        ASSERT_EQ(pieces[0].size(), 3U);
        EXPECT_EQ(pieces[0][0], (Point{0, 0}));
        // tan(c/2) and sqrt(1 - cos c) of a colatitude whose cosine is 0.8
        EXPECT_NEAR(pieces[0][1].y, kNetRadius * (kind == kEqualAngle ? 1.0 / 3 : std::sqrt(0.2)),
                    1e-9);
        EXPECT_NEAR(pieces[0][2].y, kNetRadius, 1e-9);
    }
    EXPECT_TRUE(TraceOnNet(kEqualArea, {}).empty());
}

TEST(SphereTrace, AnUpwardLineIsThatOfItsOppositeEnds) {
    const std::array<Direction, 2> up = {{{0.6, 0, -0.8}, {0, 0.6, -0.8}}};
    const std::array<Direction, 2> down = {{{-0.6, 0, 0.8}, {0, -0.6, 0.8}}};
    EXPECT_EQ(TraceOnNet(kEqualArea, up), TraceOnNet(kEqualArea, down));
}

TEST(SphereTrace, ContinuesOnTheFarSideOfThePrimitive) {
    const auto pieces = TraceOnNet(kEqualArea, CircleAboutNorth(DegToRad(20)));
    ASSERT_EQ(pieces.size(), 2U) << "the piece about north is joined over the start";
    for (const auto& piece : pieces) {
        EXPECT_NEAR(std::hypot(piece.front().x, piece.front().y), kNetRadius, 1e-6);
        EXPECT_NEAR(std::hypot(piece.back().x, piece.back().y), kNetRadius, 1e-6);
    }
    const Point end = pieces[0].back();
    const Point start = pieces[1].front();
    EXPECT_NEAR(end.x, -start.x, 1e-6);
    EXPECT_NEAR(end.y, -start.y, 1e-6);
    // The lower half is about north, the upper half about south: both show the same arc turned.
    EXPECT_GT(pieces[0][5].y, 0);
    EXPECT_LT(pieces[1][5].y, 0);
    EXPECT_NEAR(end.y, kNetRadius * std::cos(DegToRad(20)), 1e-6);
}

TEST(SphereTrace, ALevelLineIsNotTornByRounding) {
    const std::array<Direction, 4> line = {
        {{1, 0, 1e-17}, {0.8, 0.6, -1e-17}, {0, 1, 1e-17}, {-1, 0, -1e-17}}};
    EXPECT_EQ(TraceOnNet(kEqualArea, line).size(), 1U);
}

} // namespace
} // namespace quandrel
