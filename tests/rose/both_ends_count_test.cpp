// SPDX-License-Identifier: MIT
//
// Axes in sectors that make no pairs, counted at both ends: compared with brute force.

#include "rose/rose_count.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <vector>

namespace quandrel {
namespace {

/// Columns of rows to be counted.
struct Columns {
    std::vector<std::int32_t> azimuths{};
    std::vector<float> numbers{};
    std::vector<std::int16_t> classes{};
};

RoseCountSettings SettingsOf(int kind, double size, double start) {
    RoseCountSettings settings;
    settings.kind = kind;
    settings.layout = LayOutSectors(DivideCircle(size), start, false);
    return settings;
}

RoseTables Count(const RoseCountSettings& settings, const Columns& columns) {
    const std::vector<std::int32_t> dips(columns.azimuths.size());
    return CountRoseRows(settings, {.dips = dips,
                                    .azimuths = columns.azimuths,
                                    .numbers = columns.numbers,
                                    .textNumbers = {},
                                    .classes = columns.classes,
                                    .linePlunges = {},
                                    .lineTrends = {}});
}

double StatsOf(const RoseTables& tables, int sector, RoseStatsColumn column) {
    return tables.stats.at(static_cast<std::size_t>(sector))[column];
}

std::vector<double> CountsBySector(const RoseTables& tables) {
    std::vector<double> counts;
    for (std::size_t sector = 1; sector < tables.stats.size(); ++sector) {
        counts.push_back(tables.stats[sector][kRoseCount]);
    }
    return counts;
}

/// A row of brute force: an axis by its azimuth, and what it counts.
struct Axis {
    int azimuth = 0;
    double value = 0;
    int classNumber = 1;
};

/// True when an azimuth lies in a sector, which its clockwise end belongs to. All in tenths of
/// degrees, so that nothing is rounded.
bool HoldsTenths(int from, int width, int azimuth) {
    const int beyond = ((azimuth - from) % 3600 + 3600) % 3600;
    return beyond == 0 ? width == 3600 : beyond <= width;
}

/// The sectors as widths counter-clockwise from a first end, in tenths of degrees.
struct TenthSectors {
    int firstEnd = 0;
    std::vector<int> widths{};
};

TenthSectors TenthsOf(int size, int start) {
    TenthSectors sectors{start + size, {}};
    int left = 3600;
    for (; left >= size; left -= size) {
        sectors.widths.push_back(size);
    }
    if (left > 0) {
        sectors.widths.push_back(left);
    }
    return sectors;
}

/// What brute force counts in a sector, of all classes and of class 2.
struct SectorTruth {
    double count = 0;
    double values = 0;
    double countOfTwo = 0;
    double valuesOfTwo = 0;
};

SectorTruth TruthOf(const std::vector<Axis>& axes, int from, int width) {
    SectorTruth truth;
    for (const Axis& axis : axes) {
        if (HoldsTenths(from, width, 10 * axis.azimuth)
            || HoldsTenths(from, width, 10 * axis.azimuth + 1800)) {
            truth.count += 1;
            truth.values += axis.value;
            truth.countOfTwo += axis.classNumber == 2 ? 1 : 0;
            truth.valuesOfTwo += axis.classNumber == 2 ? axis.value : 0;
        }
    }
    return truth;
}

Columns ColumnsOf(const std::vector<Axis>& axes) {
    Columns columns;
    for (const Axis& axis : axes) {
        columns.azimuths.push_back(axis.azimuth);
        columns.numbers.push_back(static_cast<float>(axis.value));
        columns.classes.push_back(static_cast<std::int16_t>(axis.classNumber));
    }
    return columns;
}

std::vector<Axis> RandomAxes(std::mt19937& random) {
    std::vector<Axis> axes(200);
    for (Axis& axis : axes) {
        axis.azimuth = static_cast<int>(random() % 361);
        axis.value = 1 + static_cast<double>(random() % 40) / 4;
        axis.classNumber = 1 + static_cast<int>(random() % 3);
    }
    return axes;
}

TEST(BothEndsCount, IsThatOfBruteForce) {
    std::mt19937 random(15);
    // Odd numbers of sectors, then smaller last ones, some above half of the circle.
    for (const int size : {240, 400, 720, 1200, 80, 3600 / 25, 3600 / 15, 3600 / 9, 70, 130, 500,
                           1000, 1010, 2000, 2500, 3590}) {
        for (const int start : {0, 5, 200, 900, 1234, 1800, 3400, 3600}) {
            RoseCountSettings settings = SettingsOf(kRoseValue, size / 10.0, start / 10.0);
            settings.classes = 3;
            ASSERT_TRUE(settings.layout.bothEnds) << size;
            const std::vector<Axis> axes = RandomAxes(random);
            const RoseTables tables = Count(settings, ColumnsOf(axes));
            const TenthSectors sectors = TenthsOf(size, start);
            ASSERT_EQ(tables.sectors.Sectors(), static_cast<int>(sectors.widths.size()));
            int end = sectors.firstEnd;
            double ends = 0;
            double most = 0;
            for (int s = 1; s <= tables.sectors.Sectors(); ++s) {
                const int width = sectors.widths.at(static_cast<std::size_t>(s - 1));
                const SectorTruth truth = TruthOf(axes, end - width, width);
                end -= width;
                ends += truth.count;
                most = std::max(most, truth.count);
                EXPECT_EQ(StatsOf(tables, s, kRoseCount), truth.count) << size << ' ' << start;
                EXPECT_EQ(tables.sectors(s, 0, kRoseFrequencyLayer), truth.count);
                EXPECT_EQ(tables.sectors(s, 2, kRoseFrequencyLayer), truth.countOfTwo);
                EXPECT_NEAR(StatsOf(tables, s, kRoseValueSum), truth.values, 1e-9);
                EXPECT_NEAR(tables.sectors(s, 0, kRoseValueLayer), truth.values, 1e-9);
                EXPECT_NEAR(tables.sectors(s, 2, kRoseValueLayer), truth.valuesOfTwo, 1e-9);
            }
            if (size <= 1800) {
                EXPECT_EQ(ends, 400) << "petals of twice the whole";
            }
            EXPECT_EQ(tables.totals[kRoseCount], (std::array<double, 3>{200, 200, most}));
            EXPECT_NEAR(tables.totals[kRoseValueSum][0], TruthOf(axes, 0, 3600).values, 1e-9);
            EXPECT_EQ(tables.sectors(0, 0, kRoseValueLayer), 200);
            EXPECT_EQ(tables.rowsCounted, 200);
            EXPECT_EQ(tables.angles.size(), 201U);
        }
    }
}

TEST(BothEndsCount, OfNineAxesAboutNorthFillsThePetalAboutNorth) {
    const RoseCountSettings settings = SettingsOf(kRoseFrequency, 40, 340);
    const RoseTables tables = Count(settings, {.azimuths = {356, 357, 358, 359, 0, 1, 2, 3, 4}});
    EXPECT_EQ(tables.totals[kRoseCount], (std::array<double, 3>{9, 9, 9}));
    EXPECT_EQ(StatsOf(tables, 1, kRoseCount), 9) << "340 to 20";
    // The other ends, about south: 176 to 180 in 140 to 180, 181 to 184 in 180 to 220.
    EXPECT_EQ(CountsBySector(tables), (std::vector<double>{9, 0, 0, 0, 4, 5, 0, 0, 0}));
}

TEST(BothEndsCount, HalvesTheSumsOfMeans) {
    const RoseCountSettings settings = SettingsOf(kRoseMeanValue, 120, 0);
    const RoseTables tables = Count(settings, {.azimuths = {30, 40}, .numbers = {2, 4}});
    EXPECT_EQ(StatsOf(tables, 1, kRoseMean), 3) << "0 to 120";
    EXPECT_EQ(StatsOf(tables, 2, kRoseMean), 0);
    EXPECT_EQ(StatsOf(tables, 3, kRoseMean), 3) << "120 to 240";
    EXPECT_EQ(tables.totals[kRoseMean], (std::array<double, 3>{3, 3, 3}));
    EXPECT_NEAR(tables.totals[kRoseDeviation][1], std::sqrt(2), 1e-12);
}

} // namespace
} // namespace quandrel
