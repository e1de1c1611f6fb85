// SPDX-License-Identifier: MIT

#include "density/cone_tests.h"
#include "orientation/angles.h"
#include "orientation/direction_vectors.h"
#include "orientation/random_stream.h"
#include "stereo/measured_line.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
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

Direction AnyAxis(RandomStream& random) {
    return AxisOf({std::asin(random.Uniform()), kTwoPi * random.Uniform()});
}

/// The axis at a distance from another.
Direction AxisAtDistance(const Direction& from, double distance, RandomStream& random) {
    const Direction other = AnyAxis(random);
    const double along = DotProduct(from, other);
    const double length = std::sqrt(1 - along * along);
    const auto part = [&](double own, double of) {
        return std::cos(distance) * own + std::sin(distance) * (of - along * own) / length;
    };
    return {part(from.l, other.l), part(from.m, other.m), part(from.n, other.n)};
}

TEST(ConeTests, BoundsHoldTheCountForAxesAtAnyDistanceFromTheBound) {
    RandomStream random(11);
    const double halfAngle = 0.2;
    const double cosine = std::cos(halfAngle);
    int unequal = 0;
    for (int turn = 0; turn < 2000; ++turn) {
        const Direction centre = AnyAxis(random);
        ListedAxes list;
        std::int32_t count = 0;
        for (int i = 0; i < turn % 40; ++i) {
            const double away = std::pow(10.0, -9 * random.Uniform());
            const double side = random.Bits() % 2 == 0 ? 1 : -1;
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
    RandomStream random(12);
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
