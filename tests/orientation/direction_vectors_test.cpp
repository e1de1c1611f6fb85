// SPDX-License-Identifier: MIT

#include "orientation/direction_vectors.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace quandrel {
namespace {

/// Unit vectors all over the sphere, among them the coordinate axes, both ends.
std::vector<Direction> UnitVectors() {
    std::vector<Direction> vectors = {{1, 0, 0},  {0, 1, 0},  {0, 0, 1},
                                      {-1, 0, 0}, {0, -1, 0}, {0, 0, -1}};
    for (double height = -0.95; height < 1; height += 0.1) {
        for (double turn = 0.05; turn < 6.2; turn += 0.3) {
            const double across = std::sqrt(1 - height * height);
            vectors.push_back({across * std::cos(turn), across * std::sin(turn), height});
        }
    }
    return vectors;
}

void ExpectEqual(const Direction& found, const Direction& expected, double tolerance) {
    EXPECT_NEAR(found.l, expected.l, tolerance);
    EXPECT_NEAR(found.m, expected.m, tolerance);
    EXPECT_NEAR(found.n, expected.n, tolerance);
}

void ExpectRightHanded(const Direction& first, const Direction& second, const Direction& third) {
    constexpr double rounding = 1e-15;
    EXPECT_NEAR(LengthOf(first), 1, rounding);
    EXPECT_NEAR(LengthOf(second), 1, rounding);
    EXPECT_NEAR(DotProduct(first, second), 0, rounding);
    ExpectEqual(CrossProduct(first, second), third, rounding);
}

TEST(CrossProduct, OfNorthAndEastIsDown) {
    ExpectEqual(CrossProduct({2, 0, 0}, {0, 3, 0}), {0, 0, 6}, 0);
    ExpectEqual(CrossProduct({1, 2, 3}, {4, 5, 6}), {-3, 6, -3}, 0);
    EXPECT_EQ(DotProduct({1, 2, 3}, {4, 5, 6}), 32);
    EXPECT_EQ(LengthOf({2, 3, 6}), 7);
}

TEST(FrameAbout, IsRightHandedWithTheVectorAsItsLast) {
    for (const Direction& axis : UnitVectors()) {
        const Frame frame = FrameAbout(axis);
        ExpectRightHanded(frame[0], frame[1], axis);
        ExpectEqual(frame[2], axis, 0);
        const Direction other = {1, -2, 2};
        ExpectEqual(FromFrame(frame, InFrame(frame, other)), other, 2e-15);
    }
}

TEST(TangentsAt, AreAtRightAnglesAndTheFirstIsHorizontalUnlessSteep) {
    for (const Direction& at : UnitVectors()) {
        const auto [first, second] = TangentsAt(at);
        ExpectRightHanded(first, second, at);
        EXPECT_TRUE(first.n == 0 || std::abs(at.n) >= 0.9);
    }
}

TEST(Moved, TurnsByTheAngleOfTheTangent) {
    for (const Direction& at : UnitVectors()) {
        const auto tangents = TangentsAt(at);
        const Direction moved = Moved(at, tangents, 0.3, 0.4);
        EXPECT_NEAR(LengthOf(moved), 1, 1e-15);
        EXPECT_NEAR(std::acos(DotProduct(moved, at)), std::atan(0.5), 1e-14);
        EXPECT_NEAR(DotProduct(moved, tangents[1]) / DotProduct(moved, tangents[0]), 4.0 / 3,
                    1e-14);
    }
}

TEST(LowerEnd, OfALevelLineIsTheNorthernOrEasternEnd) {
    ExpectEqual(LowerEnd({0.6, 0, -0.8}), {-0.6, 0, 0.8}, 0);
    ExpectEqual(LowerEnd({-0.6, 0, 0.8}), {-0.6, 0, 0.8}, 0);
    ExpectEqual(LowerEnd({-0.6, 0.8, 0}), {0.6, -0.8, 0}, 0);
    ExpectEqual(LowerEnd({0, -1, 0}), {0, 1, 0}, 0);
    EXPECT_FALSE(std::signbit(LowerEnd({0, -1, 0}).n)); // -0 would print as such
}

} // namespace
} // namespace quandrel
