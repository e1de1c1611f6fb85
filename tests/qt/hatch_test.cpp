// SPDX-License-Identifier: MIT

#include "qt/hatch.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace quandrel {
namespace {

constexpr double kPi = 3.14159265358979323846;

double TotalLength(const std::vector<QLineF>& lines) {
    double length = 0;
    for (const QLineF& line : lines) {
        length += line.length();
    }
    return length;
}

QPolygonF Circle(double radius) {
    QPolygonF circle;
    for (int i = 0; i < 720; ++i) {
        circle << QPointF(radius * std::cos(i * kPi / 360), radius * std::sin(i * kPi / 360));
    }
    return circle;
}

TEST(HatchLines, OfABoxAreItsWidthOrHeight) {
    const QPolygonF box({{1, 1}, {11, 1}, {11, 9}, {1, 9}});
    const std::vector<QLineF> across = HatchLines(box, 0, 2, {0, 0});
    ASSERT_EQ(across.size(), 4U) << "at 2, 4, 6, 8";
    for (std::size_t i = 0; i < across.size(); ++i) {
        EXPECT_NEAR(across[i].y1(), 2.0 * static_cast<double>(i + 1), 1e-12);
        EXPECT_NEAR(across[i].y2(), across[i].y1(), 1e-12);
        EXPECT_NEAR(across[i].length(), 10, 1e-12);
    }
    const std::vector<QLineF> down = HatchLines(box, kPi / 2, 2, {0, 0});
    ASSERT_EQ(down.size(), 5U) << "at 2, 4, 6, 8, 10";
    EXPECT_NEAR(TotalLength(down), 5 * 8, 1e-9);
}

TEST(HatchLines, RunDownwardsToTheRightAtPositiveAngles) {
    const QPolygonF box({{0, 0}, {100, 0}, {100, 100}, {0, 100}});
    for (const QLineF& line : HatchLines(box, kPi / 4, 7, {3, 0})) {
        EXPECT_NEAR(line.dy(), line.dx(), 1e-9);
    }
}

// The lines cover the plane evenly, so that their length times their distance is the area.
TEST(HatchLines, TimesTheirDistanceAreTheArea) {
    for (const double angle : {0.0, kPi / 4, -kPi / 4, 1.0, kPi / 2}) {
        EXPECT_NEAR(TotalLength(HatchLines(Circle(50), angle, 0.5, {0.1, 0.2})) * 0.5,
                    kPi * 50 * 50, 10)
            << angle;
        const QPolygonF triangle({{0, 0}, {80, 10}, {20, 60}});
        EXPECT_NEAR(TotalLength(HatchLines(triangle, angle, 0.5, {0.1, 0.2})) * 0.5,
                    (80 * 60 - 10 * 20) / 2.0, 10)
            << angle;
    }
}

TEST(HatchLines, LeaveOutTheHolesOfAShape) {
    const std::vector<QPolygonF> rings = {Circle(50), Circle(30), Circle(10)};
    for (const double angle : {0.0, 0.4, kPi / 2}) {
        EXPECT_NEAR(TotalLength(HatchLines(rings, angle, 0.5, {0.1, 0.2})) * 0.5,
                    kPi * (50 * 50 - 30 * 30 + 10 * 10), 10)
            << angle;
    }
    EXPECT_TRUE(HatchLines(std::span<const QPolygonF>(), 0, 1, {0, 0}).empty());
}

TEST(HatchLines, LeaveOutTheNotchOfAShape) {
    const QPolygonF notched({{0, 0}, {10, 0}, {10, 10}, {6, 10}, {6, 5}, {4, 5}, {4, 10}, {0, 10}});
    const std::vector<QLineF> lines = HatchLines(notched, 0, 10, {0, 8});
    ASSERT_EQ(lines.size(), 2U);
    EXPECT_EQ(lines[0], QLineF(0, 8, 4, 8));
    EXPECT_EQ(lines[1], QLineF(6, 8, 10, 8));
}

TEST(HatchLines, OfShapesBesideEachOtherMeet) {
    const QPolygonF left({{0, 0}, {10, 0}, {10, 20}, {0, 20}});
    const QPolygonF right = left.translated(10, 0);
    const std::vector<QLineF> ofLeft = HatchLines(left, 0, 3, {5, 1});
    const std::vector<QLineF> ofRight = HatchLines(right, 0, 3, {5, 1});
    ASSERT_EQ(ofLeft.size(), ofRight.size());
    for (std::size_t i = 0; i < ofLeft.size(); ++i) {
        EXPECT_NEAR(ofLeft[i].y1(), ofRight[i].y1(), 1e-12);
    }
}

TEST(HatchLines, AreNoneForShapesThatCannotBeDrawn) {
    EXPECT_TRUE(HatchLines(QPolygonF(), 0, 2, {0, 0}).empty());
    EXPECT_TRUE(HatchLines(QPolygonF({{1, 1}}), 0, 2, {0, 0}).empty());
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(HatchLines(QPolygonF({{0, 0}, {nan, 5}, {5, 9}}), 0, 2, {0, 0}).empty());
    EXPECT_TRUE(HatchLines(QPolygonF({{0, 0}, {1, 1e9}, {5, 9}}), 0, 2, {0, 0}).empty());
}

} // namespace
} // namespace quandrel
