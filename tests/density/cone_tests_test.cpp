// SPDX-License-Identifier: MIT

#include "density/cone_tests.h"
#include "orientation/angles.h"
#include "stereo/measured_line.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>
#include <vector>

namespace quandrel {
namespace {

/// Axes by component in single precision, and as they are.
struct ListedAxes {
    std::vector<Direction> axes;
    std::array<std::vector<float>, 3> columns;

    void Add(const Direction& axis) {
        axes.push_back(axis);
        columns[0].push_back(static_cast<float>(axis.l));
        columns[1].push_back(static_cast<float>(axis.m));
        columns[2].push_back(static_cast<float>(axis.n));
    }

    [[nodiscard]] AxisColumns Columns() const {
        return {columns[0].data(), columns[1].data(), columns[2].data()};
    }
};

double Uniform(std::mt19937_64& random) {
    return static_cast<double>(random() >> 11) / 9007199254740992.0;
}

Direction AnyAxis(std::mt19937_64& random) {
    return AxisOf({std::asin(Uniform(random)), kTwoPi * Uniform(random)});
}

/// The axis at a distance from another.
Direction AxisAtDistance(const Direction& from, double distance, std::mt19937_64& random) {
    const Direction other = AnyAxis(random);
    const double along = from.l * other.l + from.m * other.m + from.n * other.n;
    const double length = std::sqrt(1 - along * along);
    const auto part = [&](double own, double of) {
        return std::cos(distance) * own + std::sin(distance) * (of - along * own) / length;
    };
    return {part(from.l, other.l), part(from.m, other.m), part(from.n, other.n)};
}

TEST(ConeTests, BoundsHoldTheCountForAxesAtAnyDistanceFromTheBound) {
    std::mt19937_64 random(11);
    const double halfAngle = 0.2;
    const double cosine = std::cos(halfAngle);
    int unequal = 0;
    for (int turn = 0; turn < 2000; ++turn) {
        const Direction centre = AnyAxis(random);
        ListedAxes list;
        std::int32_t count = 0;
        for (int i = 0; i < turn % 40; ++i) {
            const double away = std::pow(10.0, -9 * Uniform(random));
            const double side = random() % 2 == 0 ? 1 : -1;
            list.Add(AxisAtDistance(centre, halfAngle + 0.1 * side * away, random));
            count += AreWithin(list.axes.back(), centre, cosine) ? 1 : 0;
        }
        const CountBounds bounds =
            CountRoughly(list.Columns(), list.axes.size(), RoughCone(centre, cosine, cosine));
        ASSERT_LE(bounds.least, count);
        ASSERT_GE(bounds.most, count);
        unequal += bounds.AreEqual() ? 0 : 1;
    }
    EXPECT_GT(unequal, 100);
}

TEST(ConeTests, AxesFarFromTheBoundAreClear) {
    std::mt19937_64 random(12);
    const double halfAngle = 0.2;
    const double cosine = std::cos(halfAngle);
    const Direction centre = AnyAxis(random);
    ListedAxes list;
    for (int i = 0; i < 300; ++i) {
        list.Add(AxisAtDistance(centre, halfAngle + (i % 3 == 0 ? -1e-5 : 1e-5), random));
        list.Add(AxisAtDistance(centre, kPi - halfAngle + (i % 3 == 0 ? 1e-5 : -1e-5), random));
    }
    const CountBounds bounds =
        CountRoughly(list.Columns(), list.axes.size(), RoughCone(centre, cosine, cosine));
    EXPECT_EQ(bounds.least, 200);
    EXPECT_EQ(bounds.most, 200);
}

} // namespace
} // namespace quandrel
