// SPDX-License-Identifier: MIT

#include "rose/rose_plot.h"
#include "rose/rose_radii.h"
#include "support/test_platform.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numeric>
#include <vector>

namespace quandrel {

namespace {

/// Tables of a rose of one class with these sector values.
struct Rose {
    explicit Rose(const std::vector<double>& values, int measure = kRoseFrequency)
        : sectors(static_cast<int>(values.size()), 1)
        , stats(values.size() + 1) {
        const auto row = static_cast<std::size_t>(measure);
        for (std::size_t i = 0; i < values.size(); ++i) {
            const int sector = static_cast<int>(i) + 1;
            const RoseLayer layer =
                measure == kRoseFrequency ? kRoseFrequencyLayer : kRoseValueLayer;
            if (measure <= kRoseValue) {
                sectors(sector, 0, layer) = values[i];
                sectors(sector, 1, layer) = values[i];
            }
            stats[i + 1].at(row) = values[i];
            totals[row][0] += values[i];
            totals[row][1] += values[i];
            totals[row][2] = std::max(totals[row][2], values[i]);
        }
    }

    [[nodiscard]] RoseRadiiResult Radii(const RoseRadiiSettings& settings) const {
        return RadiiOfRose(sectors, stats, totals, settings);
    }

    RoseSectorTable sectors;
    RoseSectorStats stats;
    Table<double, 7, 3> totals{};
};

RoseRadiiSettings EqualArea(double zeroRadius = 0) {
    RoseRadiiSettings settings;
    settings.equalArea = true;
    settings.zeroRadius = zeroRadius;
    return settings;
}

} // namespace

TEST(RadiiOfRose, GivesTheLargestSectorTheWholeRadius) {
    const RoseRadiiResult rose = Rose({3, 12, 0, 6}).Radii({});
    EXPECT_DOUBLE_EQ(rose.radii(1, 0), 250);
    EXPECT_DOUBLE_EQ(rose.radii(2, 0), 1000);
    EXPECT_DOUBLE_EQ(rose.radii(3, 0), 0);
    EXPECT_DOUBLE_EQ(rose.radii(4, 0), 500);
    EXPECT_DOUBLE_EQ(rose.total, 21);
    EXPECT_DOUBLE_EQ(rose.radii(0, 0), 12);
    EXPECT_DOUBLE_EQ(rose.radii(0, 1), 1000.0 / 12);
}

TEST(RadiiOfRose, LeavesTheZeroCircleOut) {
    RoseRadiiSettings settings;
    settings.zeroRadius = 200;
    const RoseRadiiResult rose = Rose({3, 12}).Radii(settings);
    EXPECT_DOUBLE_EQ(rose.radii(1, 0), 200);
    EXPECT_DOUBLE_EQ(rose.radii(2, 0), 800);
}

TEST(RadiiOfRose, TakesTheRootForEqualAreaWithoutAZeroCircle) {
    const RoseRadiiResult rose = Rose({3, 12, 1}).Radii(EqualArea());
    for (const auto& [sector, value] : {std::pair{1, 3.0}, {2, 12.0}, {3, 1.0}}) {
        EXPECT_DOUBLE_EQ(rose.radii(sector, 0), std::sqrt(value * 1000000 / 12)) << sector;
    }
}

TEST(RadiiOfRose, MakesTheAreaOfTheRingProportionalToTheValue) {
    const std::array<double, 4> values = {5, 1, 4, 2};
    const double r0 = 300;
    const RoseRadiiResult rose = Rose({5, 1, 4, 2}).Radii(EqualArea(r0));
    for (int sector = 1; sector <= 4; ++sector) {
        const double outer = r0 + rose.radii(sector, 0);
        const double whole = 1000.0 * 1000 - r0 * r0;
        EXPECT_NEAR((outer * outer - r0 * r0) / whole,
                    values[static_cast<std::size_t>(sector) - 1] / 5, 1e-12);
    }
}

TEST(RadiiOfRose, HasNoScaleWithoutAnyValue) {
    for (const bool equalArea : {false, true}) {
        RoseRadiiSettings settings = EqualArea(100);
        settings.equalArea = equalArea;
        const RoseRadiiResult rose = Rose({0, 0, 0}).Radii(settings);
        EXPECT_EQ(rose.radii(0, 1), 0);
        EXPECT_EQ(rose.radii(1, 0), 0);
        EXPECT_EQ(rose.radii(3, 0), 0);
    }
}

TEST(RadiiOfRose, ReadsEachMeasureFromItsOwnColumn) {
    for (const int measure : {kRoseValue, kRoseMeanValue, kRoseVariance, kRoseWindSpeed,
                              kRoseWindEnergy, kRoseOverlaidWind}) {
        RoseRadiiSettings settings;
        settings.measure = measure;
        const RoseRadiiResult rose = Rose({1, 4}, measure).Radii(settings);
        EXPECT_DOUBLE_EQ(rose.radii(1, 0), 250) << measure;
        EXPECT_DOUBLE_EQ(rose.radii(2, 0), 1000) << measure;
        EXPECT_DOUBLE_EQ(rose.total, 5) << measure;
    }
    for (const int measure : {kRoseValueOverFrequency, kRoseValueOverMean}) {
        RoseRadiiSettings settings;
        settings.measure = measure;
        EXPECT_DOUBLE_EQ(Rose({1, 4}, kRoseValue).Radii(settings).radii(1, 0), 250) << measure;
    }
}

TEST(RadiiOfRose, LengthensTheSmallerLastSectorOfEqualArea) {
    RoseRadiiSettings settings = EqualArea();
    settings.sectorSize = 7;
    settings.oddSectorSize = 3;
    // 1 of 100 has a tenth of the radius, and seven thirds of that.
    const RoseRadiiResult rose = Rose({100, 1}).Radii(settings);
    EXPECT_NEAR(rose.radii(2, 0), 100 * 7.0 / 3, 1e-9);
    EXPECT_NEAR(rose.radii(1, 0), 1000, 1e-9);
    settings.equalArea = false;
    EXPECT_NEAR(Rose({100, 1}).Radii(settings).radii(2, 0), 10, 1e-9);
}

TEST(RadiiOfRose, ShortensAllWhenTheLastSectorPassesTheRim) {
    RoseRadiiSettings settings = EqualArea();
    settings.sectorSize = 7;
    settings.oddSectorSize = 3;
    // 81 of 100: 900, lengthened to 2100, shortened to 1000.
    const RoseRadiiResult rose = Rose({100, 81}).Radii(settings);
    EXPECT_NEAR(rose.radii(2, 0), 1000, 1e-9);
    EXPECT_NEAR(rose.radii(1, 0), 1000 / 2.1, 1e-9);
    EXPECT_NEAR(rose.radii(0, 1), 10000 / 2.1, 1e-9);
}

// Kept: tried against the whole radius.
TEST(RadiiOfRose, TriesTheLastSectorAgainstTheWholeRadius) {
    // The ring is 800 wide; lengthened to between 800 and 1000 the last sector stays as it is.
    RoseRadiiSettings settings = EqualArea(200);
    settings.sectorSize = 10;
    settings.oddSectorSize = 9;
    const RoseRadiiResult rose = Rose({100, 100}).Radii(settings);
    EXPECT_NEAR(rose.radii(2, 0), 800 * 10.0 / 9, 1e-9);
    EXPECT_NEAR(rose.radii(1, 0), 800, 1e-9);
    // Beyond 1000 it is shortened to the ring's width.
    settings.oddSectorSize = 7;
    EXPECT_NEAR(Rose({100, 100}).Radii(settings).radii(2, 0), 800, 1e-9);
}

// Kept: each segment of equal area begins at a whole number.
TEST(RadiiOfRose, StacksTheClassesOfASectorToItsLength) {
    RoseSectorTable sectors(2, 3);
    const std::array<double, 3> first = {1, 2, 5};
    for (int c = 1; c <= 3; ++c) {
        sectors(1, c, kRoseFrequencyLayer) = first[static_cast<std::size_t>(c) - 1];
    }
    sectors(1, 0, kRoseFrequencyLayer) = 8;
    sectors(2, 0, kRoseFrequencyLayer) = 4;
    sectors(2, 3, kRoseFrequencyLayer) = 4;
    Table<double, 7, 3> totals{};
    totals[0] = {12, 12, 8};
    RoseRadiiSettings settings;
    settings.classes = true;
    const RoseRadiiTable linear = RadiiOfRose(sectors, RoseSectorStats(3), totals, settings).radii;
    EXPECT_DOUBLE_EQ(linear(1, 1), 125);
    EXPECT_DOUBLE_EQ(linear(1, 2), 250);
    EXPECT_DOUBLE_EQ(linear(1, 3), 625);
    EXPECT_DOUBLE_EQ(linear(2, 3), 500);
    EXPECT_DOUBLE_EQ(linear(2, 1), 0);
    settings.equalArea = true;
    const RoseRadiiTable areas = RadiiOfRose(sectors, RoseSectorStats(3), totals, settings).radii;
    // 1000000 / 8 for each datum; each segment begins at the whole number below the last one's end.
    const double first1 = std::sqrt(125000.0);
    const double second = std::sqrt(250000.0 + 353.0 * 353) - 353;
    EXPECT_DOUBLE_EQ(areas(1, 1), first1);
    EXPECT_DOUBLE_EQ(areas(1, 2), second);
    const double base = std::trunc(353 + second);
    EXPECT_DOUBLE_EQ(areas(1, 3), std::sqrt(625000.0 + base * base) - base);
}

TEST(RadiiOfRose, FillsASectorOfGroupedDataWithItsClasses) {
    // Two rows of one class and one of the other, of 30 observations in all.
    RoseSectorTable sectors(2, 2);
    sectors(1, 0, kRoseFrequencyLayer) = 30;
    sectors(1, 1, kRoseFrequencyLayer) = 2;
    sectors(1, 2, kRoseFrequencyLayer) = 1;
    Table<double, 7, 3> totals{};
    totals[0] = {30, 30, 30};
    RoseRadiiSettings settings;
    settings.classes = true;
    settings.grouped = true;
    const RoseRadiiTable radii = RadiiOfRose(sectors, RoseSectorStats(3), totals, settings).radii;
    EXPECT_NEAR(radii(1, 1), 1000 * 2.0 / 3, 1e-9);
    EXPECT_NEAR(radii(1, 2), 1000 / 3.0, 1e-9);
    EXPECT_EQ(radii(2, 1), 0);
}

TEST(RadiiOfRose, FillsALengthenedSectorWithItsClasses) {
    RoseSectorTable sectors(2, 2);
    for (int sector = 1; sector <= 2; ++sector) {
        sectors(sector, 0, kRoseFrequencyLayer) = 4;
        sectors(sector, 1, kRoseFrequencyLayer) = 1;
        sectors(sector, 2, kRoseFrequencyLayer) = 3;
    }
    Table<double, 7, 3> totals{};
    totals[0] = {8, 8, 4};
    RoseRadiiSettings settings = EqualArea(100);
    settings.classes = true;
    settings.sectorSize = 7;
    settings.oddSectorSize = 3;
    const RoseRadiiTable radii = RadiiOfRose(sectors, RoseSectorStats(3), totals, settings).radii;
    for (int sector = 1; sector <= 2; ++sector) {
        EXPECT_NEAR(radii(sector, 1) + radii(sector, 2), radii(sector, 0), 1e-9) << sector;
        EXPECT_GT(radii(sector, 1), 0) << sector;
    }
}

TEST(MeasureOfRose, IsThatOfTheTopLayer) {
    const std::array<int, 9> measures = {0, 1, 2, 3, 4, 5, 5, 1, 1};
    for (int kind = 0; kind <= 8; ++kind) {
        EXPECT_EQ(MeasureOfRose(kind), measures[static_cast<std::size_t>(kind)]);
        EXPECT_EQ(MeasureOfRose(kind + 20), measures[static_cast<std::size_t>(kind)]);
    }
    EXPECT_EQ(MeasureOfRose(9), kRoseFrequency);
    EXPECT_EQ(MeasureOfRose(-4), kRoseFrequency);
}

TEST(HasRoseClasses, IsFalseForMeansAndDeviations) {
    for (int kind = 0; kind <= 8; ++kind) {
        EXPECT_FALSE(HasRoseClasses(kind));
        EXPECT_EQ(HasRoseClasses(10 + kind), kind != 2 && kind != 3) << kind;
        EXPECT_EQ(HasRoseClasses(20 + kind), kind != 2 && kind != 3) << kind;
    }
}

TEST(ZeroRadiusOfRose, StaysBelowTheOuterCircle) {
    PlotRecord record;
    const std::array<std::pair<std::int16_t, double>, 5> cases = {
        {{0, 0}, {15, 150}, {90, 900}, {100, 990}, {-5, 0}}};
    for (const auto& [perCent, radius] : cases) {
        record.RoseZeroCircle = perCent;
        EXPECT_EQ(ZeroRadiusOfRose(record), radius) << perCent;
    }
}

TEST(OddSectorOfRose, IgnoresASizeKeptFromAnotherDivision) {
    PlotRecord record;
    record.RoseOddSectorSize = 3;
    record.RoseSectorSize = 7;
    EXPECT_EQ(OddSectorOfRose(record, 52), 3);
    record.RoseSectorSize = 10;
    EXPECT_EQ(OddSectorOfRose(record, 36), 0);
}

class RoseRadiiOfPlot : public EngineTest {};

TEST_F(RoseRadiiOfPlot, LeavesTheClassesOutForOneClass) {
    NewPlot();
    PlotRecord& record = ActiveRecord();
    record.RoseType = 10;
    record.RoseStats[kRoseCount] = {4, 4, 4};
    gRoseSectors = RoseSectorTable(2, 3);
    gRoseSectorStats->assign(3, {});
    gRoseSectors(1, 0, kRoseFrequencyLayer) = 4;
    gRoseSectors(1, 2, kRoseFrequencyLayer) = 4;
    RoseRadii(kRoseFrequency);
    EXPECT_EQ(gRoseRadii->Classes(), 3);
    EXPECT_EQ(gRoseRadii(1, 2), 1000);
    EXPECT_EQ(*gRoseTotal, 4);
    RoseRadii(kRoseFrequency, 1);
    EXPECT_EQ(gRoseRadii->Classes(), 1);
    EXPECT_EQ(gRoseRadii(1, 0), 1000);
}

} // namespace quandrel
