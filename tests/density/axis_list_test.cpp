// SPDX-License-Identifier: MIT

#include "density/axis_list.h"
#include "density/cone_counts.h"
#include "orientation/random_stream.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace quandrel {
namespace {

/// Lines all over the net, and as many on the bound of the cone about a vertical one.
std::vector<MeasuredLine> LinesWithBound(RandomStream& random) {
    std::vector<MeasuredLine> lines;
    for (int i = 0; i < 4000; ++i) {
        lines.push_back({std::asin(random.Uniform()), kTwoPi * random.Uniform()});
        lines.push_back(
            {kPi / 2 - kCountCone + 1e-7 * (random.Uniform() - 0.5), kTwoPi * random.Uniform()});
    }
    return lines;
}

AxisList ListOfAll(const AxisCells& cells) {
    AxisList list(cells);
    list.Clear(static_cast<std::size_t>(cells.Count()));
    for (std::int32_t first = 0; first < cells.Count(); first += 37) {
        list.Append({first, std::min(first + 37, cells.Count())});
        list.Append({first, first}); // none
    }
    return list;
}

std::int32_t CountOneByOne(const AxisCells& cells, const Direction& centre) {
    std::int32_t count = 0;
    for (std::int32_t place = 0; place < cells.Count(); ++place) {
        count += AreWithin(cells.AxisAt(place), centre, std::cos(kCountCone)) ? 1 : 0;
    }
    return count;
}

TEST(AxisList, CountsAreThoseOfEachAxisByItself) {
    RandomStream random(21);
    const AxisCells cells(LinesWithBound(random));
    const AxisList list = ListOfAll(cells);
    const Direction vertical = AxisOf({kPi / 2, 0});
    const std::int32_t atBound = CountOneByOne(cells, vertical);
    EXPECT_GT(atBound, 1500);
    EXPECT_LT(atBound, 3000);
    EXPECT_EQ(list.CountWithin(vertical, std::cos(kCountCone)), atBound);
    for (int i = 0; i < 50; ++i) {
        const Direction centre = AxisOf({std::asin(random.Uniform()), kTwoPi * random.Uniform()});
        ASSERT_EQ(list.CountWithin(centre, std::cos(kCountCone)), CountOneByOne(cells, centre));
    }
}

TEST(AxisList, AnEmptyListCountsNone) {
    const AxisCells cells(std::vector<MeasuredLine>{{0.5, 0.5}});
    EXPECT_EQ(AxisList(cells).CountWithin(AxisOf({0.5, 0.5}), 0.98), 0);
}

TEST(AxisList, AShorterListWithTheAxesInsideCountsTheSame) {
    RandomStream random(22);
    const AxisCells cells(LinesWithBound(random));
    const AxisList list = ListOfAll(cells);
    constexpr double kRadius = 0.01;
    for (int i = 0; i < 20; ++i) {
        const double plunge = kPi / 2 - 0.3 * i / 20;
        const Direction middle = AxisOf({plunge, 1});
        const RoughCone cones(middle, std::cos(kCountCone - kRadius),
                              std::cos(kCountCone + kRadius));
        std::int32_t inside = 0;
        const AxisList shorter = list.Between(cones, inside);
        EXPECT_GT(inside, 0);
        for (const double away : {-0.99, -0.4, 0.0, 0.7, 0.99}) {
            const Direction centre = AxisOf({std::min(plunge + kRadius * away, kPi / 2), 1});
            ASSERT_EQ(inside + shorter.CountWithin(centre, std::cos(kCountCone)),
                      CountOneByOne(cells, centre))
                << i << " " << away;
        }
    }
}

} // namespace
} // namespace quandrel
