// SPDX-License-Identifier: MIT

#include "density/axis_tree.h"
#include "density/cone_counts.h"
#include "density/point_density.h"
#include "orientation/projection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace quandrel {
namespace {

struct AxisSample {
    std::string name;
    std::vector<Direction> axes;
};

Direction Unit(double l, double m, double n) {
    const double length = std::sqrt(l * l + m * m + n * n);
    return {l / length, m / length, n / length};
}

/// Axes spread about a direction: uniform on the sphere for a spread beyond all bounds.
std::vector<Direction> AxesAbout(const Direction& middle, double spread, int count,
                                 std::mt19937_64& random) {
    std::normal_distribution<double> normal;
    std::vector<Direction> axes;
    for (int i = 0; i < count; ++i) {
        axes.push_back(Unit(middle.l + spread * normal(random), middle.m + spread * normal(random),
                            middle.n + spread * normal(random)));
    }
    return axes;
}

std::vector<AxisSample> Samples() {
    std::mt19937_64 random(3);
    std::vector<AxisSample> samples;
    samples.push_back({"uniform", AxesAbout({0, 0, 0}, 1, 3000, random)});
    samples.push_back({"cluster", AxesAbout({0.6, 0, 0.8}, 0.1, 3000, random)});
    std::vector<Direction> girdle = AxesAbout({0, 0, 0}, 1, 1500, random);
    for (Direction& axis : girdle) {
        axis = Unit(axis.l, axis.m * 0.05, axis.n);
    }
    const std::vector<Direction> tight = AxesAbout({0, 1, 0}, 1e-4, 1500, random);
    girdle.insert(girdle.end(), tight.begin(), tight.end());
    samples.push_back({"girdle with a tight cluster", girdle});
    std::vector<Direction> whole;
    std::uniform_int_distribution<int> degrees(0, 90);
    for (int i = 0; i < 3000; ++i) {
        whole.push_back(LineToCosines(DegToRad(degrees(random) / 9), DegToRad(degrees(random))));
    }
    samples.push_back({"whole degrees with many equal ones", whole});
    samples.push_back({"one axis alone", {{0, 0, 1}}});
    samples.push_back({"one axis in both senses", {{0.6, 0.8, 0}, {-0.6, -0.8, 0}}});
    samples.push_back({"none", {}});
    return samples;
}

std::int32_t CountOneByOne(const std::vector<Direction>& axes, const Direction& centre,
                           double halfAngle) {
    const double cosine = std::cos(halfAngle);
    return static_cast<std::int32_t>(
        std::count_if(axes.begin(), axes.end(), [&](const Direction& axis) {
            return std::abs(axis.l * centre.l + axis.m * centre.m + axis.n * centre.n) >= cosine;
        }));
}

TEST(AxisTree, CountsAreThoseOfEachAxisByItself) {
    std::mt19937_64 random(4);
    for (const AxisSample& sample : Samples()) {
        const AxisTree tree(sample.axes);
        EXPECT_EQ(tree.Count(), static_cast<std::int32_t>(sample.axes.size()));
        for (const double halfAngle : {0.0, 1e-4, 0.02, kCountCone, 0.7, 1.5}) {
            for (const Direction& centre : AxesAbout({0, 0, 0}, 1, 100, random)) {
                ASSERT_EQ(tree.CountWithin(centre, halfAngle),
                          CountOneByOne(sample.axes, centre, halfAngle))
                    << sample.name << " " << halfAngle;
            }
        }
    }
}

TEST(AxisTree, CountsAboutItsOwnAxesAreThoseOfEachPair) {
    for (const AxisSample& sample : Samples()) {
        const AxisTree tree(sample.axes);
        for (std::size_t i = 0; i < sample.axes.size(); i += 7) {
            ASSERT_EQ(tree.CountWithin(sample.axes[i], kCountCone),
                      CountOneByOne(sample.axes, sample.axes[i], kCountCone))
                << sample.name << " " << i;
        }
    }
}

TEST(AxisTree, AnAxisOnTheBoundCounts) {
    const AxisTree tree(std::vector<Direction>{{0, 0, 1}});
    const double halfAngle = 0.25;
    EXPECT_EQ(tree.CountWithin({std::sin(halfAngle), 0, std::cos(halfAngle)}, halfAngle), 1);
    EXPECT_EQ(tree.CountWithin({std::sin(0.2501), 0, std::cos(0.2501)}, halfAngle), 0);
}

TEST(AxisTree, NodesOfAGridCountAsEachAxisByItself) {
    for (const AxisSample& sample : Samples()) {
        const AxisTree tree(sample.axes);
        for (const int plotKind : {1, 2}) {
            for (int x = -990; x <= 990; x += 90) {
                for (int y = -990; y <= 990; y += 90) {
                    double plunge = 0;
                    double trend = 0;
                    UnprojectPoint(plotKind, x, y, plunge, trend);
                    const Direction node = LineToCosines(plunge, trend);
                    ASSERT_EQ(tree.CountWithin(node, kGridCountCone),
                              CountOneByOne(sample.axes, node, kGridCountCone))
                        << sample.name << " " << x << " " << y;
                }
            }
        }
    }
}

TEST(AxisTree, ClassesAreThoseOfTheCountsOfEachPair) {
    for (const AxisSample& sample : Samples()) {
        const AxisTree tree(sample.axes);
        const auto rows = static_cast<std::int32_t>(sample.axes.size());
        const auto bandOf = [rows](std::int32_t count) { return PointDensityBand(count, rows); };
        const AxisTree::Classes classes = tree.ClassesOfCounts(kCountCone, bandOf, 1);
        ASSERT_EQ(classes.ofAxis.size(), sample.axes.size());
        std::int32_t greatest = 0;
        for (std::size_t i = 0; i < sample.axes.size(); ++i) {
            const std::int32_t count = CountOneByOne(sample.axes, sample.axes[i], kCountCone);
            greatest = std::max(greatest, count);
            ASSERT_EQ(classes.ofAxis[i], bandOf(count)) << sample.name << " " << i;
        }
        EXPECT_EQ(classes.greatest, greatest) << sample.name;
    }
}

TEST(AxisTree, EachCountCanBeAClassOfItsOwn) {
    const AxisSample sample = Samples()[1];
    const AxisTree::Classes classes =
        AxisTree(sample.axes)
            .ClassesOfCounts(
                kCountCone, [](std::int32_t count) { return count; }, 1);
    for (std::size_t i = 0; i < sample.axes.size(); i += 3) {
        ASSERT_EQ(classes.ofAxis[i], CountOneByOne(sample.axes, sample.axes[i], kCountCone)) << i;
    }
}

TEST(AxisTree, TwoThreadsFindWhatOneDoes) {
    for (const AxisSample& sample : Samples()) {
        const AxisTree tree(sample.axes);
        const auto rows = static_cast<std::int32_t>(sample.axes.size());
        const auto bandOf = [rows](std::int32_t count) { return PointDensityBand(count, rows); };
        const AxisTree::Classes one = tree.ClassesOfCounts(kCountCone, bandOf, 1);
        const AxisTree::Classes two = tree.ClassesOfCounts(kCountCone, bandOf, 2);
        EXPECT_EQ(one.ofAxis, two.ofAxis) << sample.name;
        EXPECT_EQ(one.greatest, two.greatest) << sample.name;
    }
}

} // namespace
} // namespace quandrel
