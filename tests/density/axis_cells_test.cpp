// SPDX-License-Identifier: MIT

#include "density/axis_cells.h"
#include "density/cone_counts.h"
#include "density/count_classes.h"
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

struct LineSample {
    std::string name;
    std::vector<MeasuredLine> lines;
};

/// Lines spread about a direction: uniform on the sphere for the direction 0.
std::vector<MeasuredLine> LinesAbout(const Direction& middle, double spread, int count,
                                     std::mt19937_64& random) {
    std::normal_distribution<double> normal;
    std::vector<MeasuredLine> lines;
    for (int i = 0; i < count; ++i) {
        MeasuredLine line;
        CosinesToLine(middle.l + spread * normal(random), middle.m + spread * normal(random),
                      middle.n + spread * normal(random), line.plunge, line.trend);
        lines.push_back(line);
    }
    return lines;
}

std::vector<LineSample> Samples() {
    std::mt19937_64 random(3);
    std::vector<LineSample> samples;
    samples.push_back({"uniform", LinesAbout({0, 0, 0}, 1, 3000, random)});
    samples.push_back(
        {"cluster over the primitive", LinesAbout({0.9, 0.4, 0.1}, 0.1, 3000, random)});
    samples.push_back({"cluster at the centre", LinesAbout({0, 0, 1}, 0.15, 3000, random)});
    std::vector<MeasuredLine> girdle = LinesAbout({0, 0, 0}, 1, 1500, random);
    for (MeasuredLine& line : girdle) {
        line.trend = line.trend < kPi ? line.trend / 30 : kPi + line.trend / 30;
    }
    const std::vector<MeasuredLine> tight = LinesAbout({0, 1, 0}, 1e-4, 1500, random);
    girdle.insert(girdle.end(), tight.begin(), tight.end());
    samples.push_back({"girdle with a tight cluster", girdle});
    std::vector<MeasuredLine> whole;
    std::uniform_int_distribution<int> degrees(0, 90);
    for (int i = 0; i < 3000; ++i) {
        whole.push_back({DegToRad(degrees(random) / 9), DegToRad(4 * degrees(random))});
    }
    samples.push_back({"whole degrees with many equal ones", whole});
    std::vector<MeasuredLine> facing =
        LinesAbout({std::cos(kCountCone), 0, std::sin(kCountCone)}, 0.004, 1500, random);
    const std::vector<MeasuredLine> opposite = LinesAbout({-1, 0, 0}, 0.004, 1500, random);
    facing.insert(facing.end(), opposite.begin(), opposite.end());
    samples.push_back({"two tight clusters as far apart as the cone is wide", facing});
    std::vector<MeasuredLine> copies;
    for (int i = 0; i < 3000; ++i) {
        copies.push_back(facing[static_cast<std::size_t>(i % 40 + (i % 80 < 40 ? 0 : 1500))]);
    }
    samples.push_back({"copies of a few of them", copies});
    samples.push_back({"corners of the net",
                       {{kPi / 2, 0},
                        {kPi / 2, kTwoPi},
                        {0, 0},
                        {0, kTwoPi},
                        {-0.0, kPi},
                        {-kPi / 2, 1},
                        {1e-9, kPi / 2}}});
    samples.push_back({"one line in both senses", {{0.6, 0.8}, {-0.6, 0.8}}});
    samples.push_back({"none", {}});
    return samples;
}

std::vector<Direction> AxesOf(const std::vector<MeasuredLine>& lines) {
    std::vector<Direction> axes(lines.size());
    std::transform(lines.begin(), lines.end(), axes.begin(), AxisOf);
    return axes;
}

std::int32_t CountOneByOne(const std::vector<Direction>& axes, const MeasuredLine& centre,
                           double halfAngle) {
    const Direction axis = AxisOf(centre);
    const double cosine = std::cos(halfAngle);
    return static_cast<std::int32_t>(
        std::count_if(axes.begin(), axes.end(), [&](const Direction& other) {
            return std::abs(axis.l * other.l + axis.m * other.m + axis.n * other.n) >= cosine;
        }));
}

TEST(AxisCells, CountsAreThoseOfEachAxisByItself) {
    std::mt19937_64 random(4);
    for (const LineSample& sample : Samples()) {
        const AxisCells cells(sample.lines);
        const std::vector<Direction> axes = AxesOf(sample.lines);
        EXPECT_EQ(cells.Count(), static_cast<std::int32_t>(sample.lines.size()));
        for (const double halfAngle : {0.0, 1e-4, 0.02, kCountCone, 0.5, kPi / 4}) {
            for (const MeasuredLine& centre : LinesAbout({0, 0, 0}, 1, 100, random)) {
                ASSERT_EQ(cells.CountWithin(centre, halfAngle),
                          CountOneByOne(axes, centre, halfAngle))
                    << sample.name << " " << halfAngle;
            }
        }
    }
}

TEST(AxisCells, CountsAboutItsOwnAxesAreThoseOfEachPair) {
    for (const LineSample& sample : Samples()) {
        const AxisCells cells(sample.lines);
        const std::vector<Direction> axes = AxesOf(sample.lines);
        for (std::size_t i = 0; i < sample.lines.size(); i += 5) {
            ASSERT_EQ(cells.CountWithin(sample.lines[i], kCountCone),
                      CountOneByOne(axes, sample.lines[i], kCountCone))
                << sample.name << " " << i;
        }
    }
}

TEST(AxisCells, AnAxisOnTheBoundCounts) {
    const AxisCells cells(std::vector<MeasuredLine>{{kPi / 2, 0}});
    EXPECT_EQ(cells.CountWithin({kPi / 2 - 0.25, 1}, 0.25 + 1e-14), 1);
    EXPECT_EQ(cells.CountWithin({kPi / 2 - 0.2501, 1}, 0.25), 0);
}

/// Cells of half a degree serve larger samples.
TEST(AxisCells, FinerCellsOfManyAxesCountTheSame) {
    std::mt19937_64 random(6);
    for (const int count : {40'000, 210'000}) {
        std::vector<MeasuredLine> lines = LinesAbout({0, 0, 0}, 1, count / 2, random);
        const auto more = LinesAbout({0.2, 0.3, 0.9}, 0.2, count - count / 2, random);
        lines.insert(lines.end(), more.begin(), more.end());
        const AxisCells cells(lines);
        const std::vector<Direction> axes = AxesOf(lines);
        for (const MeasuredLine& centre : LinesAbout({0, 0, 0}, 1, 40, random)) {
            ASSERT_EQ(cells.CountWithin(centre, kGridCountCone),
                      CountOneByOne(axes, centre, kGridCountCone));
        }
        const CountClasses counts = ClassesOfCounts(
            cells, kCountCone, [](std::int32_t number) { return number / 500; }, 2);
        for (std::size_t i = 0; i < lines.size(); i += lines.size() / 100) {
            ASSERT_EQ(counts.ofAxis[i], CountOneByOne(axes, lines[i], kCountCone) / 500) << i;
        }
    }
}

TEST(AxisCells, TheOrderDoesNotDependOnThreads) {
    std::mt19937_64 random(7);
    std::vector<MeasuredLine> lines = LinesAbout({0, 0, 0}, 1, 8000, random);
    const auto more = LinesAbout({0.2, 0.3, 0.9}, 0.002, 8000, random);
    lines.insert(lines.end(), more.begin(), more.end());
    const AxisCells one(lines);
    std::vector<bool> isKnown(lines.size());
    for (const unsigned threads : {2U, 3U}) {
        const AxisCells several(lines, threads);
        for (std::int32_t place = 0; place < one.Count(); ++place) {
            ASSERT_EQ(several.NumberAt(place), one.NumberAt(place));
            const auto number = static_cast<std::size_t>(one.NumberAt(place));
            const Direction axis = AxisOf(lines[number]);
            ASSERT_EQ(several.AxisAt(place).l, axis.l);
            ASSERT_EQ(several.AxisAt(place).m, axis.m);
            ASSERT_EQ(several.AxisAt(place).n, axis.n);
            isKnown[number] = true;
        }
    }
    EXPECT_EQ(std::count(isKnown.begin(), isKnown.end(), true), one.Count());
}

TEST(AxisCells, AxesOfACellKeepTheirOrder) {
    std::mt19937_64 random(8);
    const std::vector<MeasuredLine> lines = LinesAbout({0, 0, 0}, 1, 20'000, random);
    const AxisCells cells(lines, 2);
    const CellRings& rings = cells.Rings();
    for (int ring = 0; ring < rings.Rings(); ++ring) {
        for (int cell = 0; cell < rings.Trends(); ++cell) {
            const AxisRun run = cells.RunOf(ring, cell, cell + 1);
            for (std::int32_t place = run.first; place < run.end; ++place) {
                const auto number = static_cast<std::size_t>(cells.NumberAt(place));
                ASSERT_EQ(rings.RingOf(lines[number].plunge), ring);
                ASSERT_EQ(rings.PlaceOf(lines[number].trend), cell);
                ASSERT_TRUE(place == run.first
                            || cells.NumberAt(place - 1) < cells.NumberAt(place));
            }
        }
    }
}

TEST(AxisCells, VisitedAxesAreThoseWithin) {
    const LineSample sample = Samples()[1];
    const AxisCells cells(sample.lines);
    const MeasuredLine centre{0.05, 3.6};
    std::vector<bool> isVisited(sample.lines.size());
    cells.VisitWithin(centre, kCountCone, [&isVisited](std::int32_t number) {
        EXPECT_FALSE(isVisited[static_cast<std::size_t>(number)]);
        isVisited[static_cast<std::size_t>(number)] = true;
    });
    EXPECT_GT(std::count(isVisited.begin(), isVisited.end(), true), 1000);
    for (std::size_t i = 0; i < sample.lines.size(); ++i) {
        ASSERT_EQ(isVisited[i],
                  AreWithin(AxisOf(sample.lines[i]), AxisOf(centre), std::cos(kCountCone)));
    }
}

TEST(AxisCells, CountsAboutManyLinesDoNotDependOnThreads) {
    const LineSample sample = Samples()[0];
    const AxisCells cells(sample.lines);
    const std::vector<Direction> axes = AxesOf(sample.lines);
    std::int64_t told = -1;
    const auto one = CountsAbout(cells, sample.lines, kGridCountCone, 1,
                                 [&told](std::int64_t done) { told = done; });
    EXPECT_GT(told, 0);
    EXPECT_EQ(CountsAbout(cells, sample.lines, kGridCountCone, 2, [](std::int64_t) {}), one);
    for (std::size_t i = 0; i < one.size(); i += 11) {
        ASSERT_EQ(one[i], CountOneByOne(axes, sample.lines[i], kGridCountCone));
    }
}

TEST(CountClasses, AreThoseOfTheCountsOfEachPair) {
    for (const LineSample& sample : Samples()) {
        const AxisCells cells(sample.lines);
        const std::vector<Direction> axes = AxesOf(sample.lines);
        const auto rows = static_cast<std::int32_t>(sample.lines.size());
        const auto bandOf = [rows](std::int32_t count) { return PointDensityBand(count, rows); };
        const CountClasses classes = ClassesOfCounts(cells, kCountCone, bandOf, 1);
        ASSERT_EQ(classes.ofAxis.size(), sample.lines.size());
        std::int32_t greatest = 0;
        for (std::size_t i = 0; i < sample.lines.size(); ++i) {
            const std::int32_t count = CountOneByOne(axes, sample.lines[i], kCountCone);
            greatest = std::max(greatest, count);
            ASSERT_EQ(classes.ofAxis[i], bandOf(count)) << sample.name << " " << i;
        }
        EXPECT_EQ(classes.greatest, greatest) << sample.name;
    }
}

TEST(CountClasses, EachCountCanBeAClassOfItsOwn) {
    for (const LineSample& sample : Samples()) {
        const std::vector<Direction> axes = AxesOf(sample.lines);
        const CountClasses classes = ClassesOfCounts(
            AxisCells(sample.lines), kCountCone, [](std::int32_t count) { return count; }, 1);
        for (std::size_t i = 0; i < sample.lines.size(); i += 3) {
            ASSERT_EQ(classes.ofAxis[i], CountOneByOne(axes, sample.lines[i], kCountCone))
                << sample.name << " " << i;
        }
    }
}

TEST(CountClasses, TwoThreadsFindWhatOneDoes) {
    for (const LineSample& sample : Samples()) {
        const AxisCells cells(sample.lines);
        const auto rows = static_cast<std::int32_t>(sample.lines.size());
        const auto bandOf = [rows](std::int32_t count) { return PointDensityBand(count, rows); };
        const CountClasses one = ClassesOfCounts(cells, kCountCone, bandOf, 1);
        const CountClasses two = ClassesOfCounts(cells, kCountCone, bandOf, 2);
        EXPECT_EQ(one.ofAxis, two.ofAxis) << sample.name;
        EXPECT_EQ(one.greatest, two.greatest) << sample.name;
    }
}

} // namespace
} // namespace quandrel
