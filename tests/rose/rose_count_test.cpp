// SPDX-License-Identifier: MIT

#include "orientation/angles.h"
#include "rose/circular_statistics.h"
#include "rose/rose_count.h"

#include <cmath>
#include <limits>
#include <numeric>
#include <random>

namespace quandrel {
namespace {

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

/// Columns of rows to be counted.
struct Columns {
    std::vector<std::int32_t> azimuths{};
    std::vector<float> numbers{};
    std::vector<double> textNumbers{};
    std::vector<std::int16_t> classes{};
    std::vector<std::int32_t> dips{};
    std::vector<std::int32_t> linePlunges{};
    std::vector<std::int32_t> lineTrends{};

    [[nodiscard]] RoseRows Rows() {
        dips.resize(azimuths.size(), 0);
        return {dips, azimuths, numbers, textNumbers, classes, linePlunges, lineTrends};
    }
};

/// Sectors of 10 degrees from north; of lines, or of polar lines.
RoseCountSettings TenDegrees(int kind = kRoseFrequency, bool directional = true) {
    RoseCountSettings settings;
    settings.kind = kind;
    settings.layout = LayOutSectors(DivideCircle(10), 0, directional);
    return settings;
}

/// With its sectors numbered so, 1 ends at 10, 36 at 20, 35 at 30.
constexpr int kEndsAt10 = 1;
constexpr int kEndsAt20 = 36;
constexpr int kEndsAt30 = 35;

RoseTables Count(const RoseCountSettings& settings, Columns columns) {
    return CountRoseRows(settings, columns.Rows());
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

TEST(RoseCount, HeadsItsTablesWithTheNumbersOfSectorsAndClasses) {
    RoseCountSettings settings = TenDegrees();
    settings.classes = 4;
    const RoseTables tables = Count(settings, {.azimuths = {5}});
    EXPECT_EQ(tables.sectors(0, 0, kRoseFrequencyLayer), 36);
    EXPECT_EQ(tables.sectors(0, 1, kRoseFrequencyLayer), 4);
    EXPECT_EQ(tables.sectors.Classes(), 4);
    EXPECT_EQ(tables.stats.size(), 37U);
}

TEST(RoseCount, OfRowsAloneIsTheirNumber) {
    const RoseTables tables = Count(TenDegrees(), {.azimuths = {5, 10, 15, 360, 0}});
    EXPECT_EQ(StatsOf(tables, kEndsAt10, kRoseCount), 2);
    EXPECT_EQ(StatsOf(tables, kEndsAt20, kRoseCount), 1);
    EXPECT_EQ(StatsOf(tables, 2, kRoseCount), 2) << "0 and 360, at the end of 350 to 360";
    EXPECT_EQ(tables.totals[kRoseCount], (std::array<double, 3>{5, 5, 2}));
    EXPECT_EQ(tables.totals[kRoseValueSum], (std::array<double, 3>{}));
    EXPECT_EQ(tables.sectors(0, 0, kRoseValueLayer), 5) << "weighted count";
    EXPECT_EQ(tables.rowsCounted, 5);
    EXPECT_EQ(tables.leftOut, 0);
}

TEST(RoseCount, OfErrorRowsIsNone) {
    const RoseTables tables =
        Count(TenDegrees(), {.azimuths = {5, 6, 7}, .dips = {10, kErrorRow, 20}});
    EXPECT_EQ(tables.totals[kRoseCount][0], 2);
    EXPECT_EQ(tables.leftOut, 0);
}

TEST(RoseCount, OfNoRowsIsZeroThroughout) {
    const RoseTables tables = Count(TenDegrees(kRoseMeanValue), {});
    EXPECT_EQ(tables.totals, (Table<double, 7, 3>{}));
    EXPECT_EQ(tables.angles.size(), 1U);
}

TEST(RoseCount, ShowsStrikesOfPlanes) {
    RoseCountSettings settings = TenDegrees(kRoseFrequency, false);
    settings.strikes = true;
    const RoseTables tables = Count(settings, {.azimuths = {90, 270, 275, 0}});
    // Strikes 180, 360, 365 and 90.
    EXPECT_EQ(StatsOf(tables, SectorOfAzimuth(settings.layout, 0), kRoseCount), 2);
    EXPECT_EQ(StatsOf(tables, kEndsAt10, kRoseCount), 1);
    EXPECT_EQ(StatsOf(tables, SectorOfAzimuth(settings.layout, 90), kRoseCount), 1);
    EXPECT_EQ(tables.angles, (std::vector<double>{0, 0, 0, DegToRad(5), kPi / 2}));
}

TEST(RoseCount, TakesTenPlanesEachWayForOneSectorOfTwenty) {
    RoseCountSettings settings = TenDegrees(kRoseFrequency, false);
    settings.strikes = true;
    Columns columns;
    columns.azimuths.assign(10, 90);
    columns.azimuths.insert(columns.azimuths.end(), 10, 270);
    const RoseTables tables = Count(settings, columns);
    EXPECT_EQ(tables.totals[kRoseCount], (std::array<double, 3>{20, 20, 20}));
}

TEST(RoseCount, ListsTheAzimuthOfEachRowInItsOrder) {
    const RoseTables axial = Count(TenDegrees(kRoseFrequency, false), {.azimuths = {200, 5, 180}});
    EXPECT_EQ(axial.angles, (std::vector<double>{0, DegToRad(20), DegToRad(5), 0}));
    const RoseTables polar = Count(TenDegrees(), {.azimuths = {200, 5, 360}});
    EXPECT_EQ(polar.angles, (std::vector<double>{0, DegToRad(200), DegToRad(5), DegToRad(360)}));
}

TEST(RoseCount, SumsSinesAndCosinesOfAnglesAndTheirMultiples) {
    const std::vector<std::int32_t> azimuths = {10, 100, 200, 350, 360, 45};
    for (const bool directional : {false, true}) {
        const RoseTables tables = Count(TenDegrees(kRoseValue, directional),
                                        {.azimuths = azimuths, .numbers = {1, 2, 3, 4, 5, 6}});
        std::array<std::array<double, 4>, 2> sums{};
        for (std::size_t i = 0; i < azimuths.size(); ++i) {
            const double angle = azimuths[i] * M_PI / 180 * (directional ? 1 : 2);
            const std::array<double, 2> factors = {1.0, static_cast<double>(i + 1)};
            for (std::size_t layer = 0; layer < 2; ++layer) {
                sums[layer][0] += factors[layer] * std::sin(angle);
                sums[layer][1] += factors[layer] * std::cos(angle);
                sums[layer][2] += factors[layer] * std::sin(2 * angle);
                sums[layer][3] += factors[layer] * std::cos(2 * angle);
            }
        }
        for (std::size_t layer = 0; layer < 2; ++layer) {
            for (std::size_t term = 0; term < 4; ++term) {
                EXPECT_NEAR(tables.trigSums[layer][term], sums[layer][term], 1e-12)
                    << directional << layer << term;
            }
        }
    }
}

TEST(RoseCount, OfValuesHasSumsMeansAndDeviations) {
    // 10: 1, 2, 6 (mean 3, deviation sqrt(14 / 2)); 20: 4 alone.
    const RoseTables tables =
        Count(TenDegrees(kRoseMeanValue), {.azimuths = {5, 6, 15, 7}, .numbers = {1, 2, 4, 6}});
    EXPECT_EQ(StatsOf(tables, kEndsAt10, kRoseValueSum), 9);
    EXPECT_EQ(StatsOf(tables, kEndsAt10, kRoseMean), 3);
    EXPECT_NEAR(StatsOf(tables, kEndsAt10, kRoseDeviation), std::sqrt(7.0), 1e-15);
    EXPECT_EQ(StatsOf(tables, kEndsAt20, kRoseMean), 4);
    EXPECT_EQ(StatsOf(tables, kEndsAt20, kRoseDeviation), 0) << "one row has no spread";
    EXPECT_EQ(StatsOf(tables, kEndsAt30, kRoseMean), 0) << "a sector without rows";
    EXPECT_EQ(tables.totals[kRoseValueSum], (std::array<double, 3>{13, 13, 9}));
    EXPECT_EQ(tables.totals[kRoseMean], (std::array<double, 3>{7, 7, 4})) << "sum of the means";
    EXPECT_NEAR(tables.totals[kRoseDeviation][0], std::sqrt(7.0), 1e-15);
    EXPECT_NEAR(tables.totals[kRoseDeviation][2], std::sqrt(7.0), 1e-15);
    EXPECT_EQ(tables.sectors(kEndsAt10, 0, kRoseValueLayer), 9);
    EXPECT_EQ(tables.sectors(kEndsAt10, 1, kRoseValueLayer), 9);
}

TEST(RoseCount, OfEqualValuesHasNoSpreadAtAll) {
    const RoseTables tables =
        Count(TenDegrees(kRoseVariance), {.azimuths = {5, 5, 5}, .numbers = {0.1F, 0.1F, 0.1F}});
    EXPECT_EQ(tables.totals[kRoseDeviation], (std::array<double, 3>{}));
}

TEST(RoseCount, KeepsSmallSpreadsOfLargeValues) {
    // 16777210 + 0, 1, 2, 3, 4: the deviation is that of 0 to 4, sqrt(2.5).
    Columns columns;
    for (int i = 0; i < 5000; ++i) {
        columns.azimuths.push_back(5);
        columns.numbers.push_back(static_cast<float>(16777210 + i % 5));
    }
    const RoseTables tables = Count(TenDegrees(kRoseVariance), columns);
    EXPECT_NEAR(StatsOf(tables, kEndsAt10, kRoseDeviation), std::sqrt(2 * 5000.0 / 4999), 1e-9);
}

TEST(RoseCount, LeavesOutRowsWithoutANumberWhereTheKindNeedsIt) {
    struct KindCase {
        int kind;
        bool grouped;
        int leftOut;
    };

    const std::vector<KindCase> cases = {
        {kRoseFrequency, false, 0},     {kRoseFrequency, true, 1},
        {kRoseValue, false, 1},         {kRoseMeanValue, false, 1},
        {kRoseVariance, false, 1},      {kRoseWindSpeed, false, 0},
        {kRoseWindSpeed, true, 1},      {kRoseWindEnergy, false, 1},
        {kRoseOverlaidWind, false, 1},  {kRoseValueOverFrequency, false, 1},
        {kRoseValueOverMean, false, 1},
    };
    for (const KindCase& test : cases) {
        RoseCountSettings settings = TenDegrees(test.kind);
        settings.grouped = test.grouped;
        const RoseTables tables = Count(
            settings,
            {.azimuths = {5, 15, 25}, .numbers = {1, kInvalidNumber, 1}, .textNumbers = {1, 1, 1}});
        EXPECT_EQ(tables.leftOut, test.leftOut) << test.kind << test.grouped;
        EXPECT_EQ(tables.totals[kRoseCount][0], 3 - test.leftOut) << test.kind << test.grouped;
        EXPECT_EQ(tables.rowsCounted, 3 - test.leftOut) << test.kind << test.grouped;
    }
}

TEST(RoseCount, TakesAMissingNumberForNothingWhereItIsNotNeeded) {
    const RoseTables tables =
        Count(TenDegrees(), {.azimuths = {5, 5}, .numbers = {3, kInvalidNumber}});
    EXPECT_EQ(StatsOf(tables, kEndsAt10, kRoseValueSum), 3);
}

TEST(RoseCount, OfWindHasSpeedsEnergiesAndFrequencies) {
    const Columns columns = {.azimuths = {5, 6, 15, 25, 26},
                             .numbers = {10, 20, 5, 7, 9},
                             .textNumbers = {2, 3, 4, kNoNumber, 1e40}};
    // Energies 8 x 10 + 27 x 20 = 620 and 64 x 5 = 320.
    for (const int kind : {kRoseWindEnergy, kRoseOverlaidWind}) {
        const RoseTables tables = Count(TenDegrees(kind), columns);
        EXPECT_EQ(StatsOf(tables, kEndsAt10, kRoseSpeedSum), 5);
        EXPECT_EQ(StatsOf(tables, kEndsAt10, kRoseEnergySum), 620);
        EXPECT_EQ(StatsOf(tables, kEndsAt10, kRoseWindFrequencySum), 30);
        EXPECT_EQ(StatsOf(tables, kEndsAt10, kRoseValueSum), 620);
        EXPECT_EQ(tables.totals[kRoseEnergySum], (std::array<double, 3>{940, 940, 620}));
        EXPECT_EQ(tables.totals[kRoseWindFrequencySum], (std::array<double, 3>{35, 35, 30}));
        const double speeds = kind == kRoseOverlaidWind ? 9 : 0;
        EXPECT_EQ(tables.totals[kRoseSpeedSum][0], speeds) << kind;
        EXPECT_EQ(tables.leftOut, 2) << "no number, and one whose cube is beyond all winds";
    }
    const RoseTables speeds = Count(TenDegrees(kRoseWindSpeed), columns);
    EXPECT_EQ(StatsOf(speeds, kEndsAt10, kRoseSpeedSum), 5);
    EXPECT_EQ(StatsOf(speeds, kEndsAt10, kRoseEnergySum), 0);
    EXPECT_EQ(StatsOf(speeds, kEndsAt10, kRoseValueSum), 5);
    EXPECT_EQ(speeds.totals[kRoseSpeedSum][2], 1e40);
    EXPECT_EQ(speeds.totals[kRoseEnergySum][0], 0);
    EXPECT_EQ(speeds.leftOut, 1);
}

TEST(RoseCount, OfWindWithoutSpeedsIsOfNoRows) {
    const RoseTables tables = Count(TenDegrees(kRoseWindSpeed), {.azimuths = {5, 6}});
    EXPECT_EQ(tables.leftOut, 2);
    EXPECT_EQ(tables.totals, (Table<double, 7, 3>{}));
}

TEST(RoseCount, OfGroupedRowsCountsTheirObservations) {
    RoseCountSettings settings = TenDegrees();
    settings.grouped = true;
    const RoseTables tables =
        Count(settings, {.azimuths = {5, 6, 15, 16, 17}, .numbers = {5, 2.9F, 3, 0, -1}});
    EXPECT_EQ(StatsOf(tables, kEndsAt10, kRoseCount), 7);
    EXPECT_EQ(StatsOf(tables, kEndsAt20, kRoseCount), 3);
    EXPECT_EQ(tables.totals[kRoseCount], (std::array<double, 3>{10, 10, 7}));
    EXPECT_EQ(tables.leftOut, 1) << "no count is below 0";
    EXPECT_NEAR(tables.trigSums[kRoseFrequencyLayer][kSine],
                5 * std::sin(5 * M_PI / 180) + 2 * std::sin(6 * M_PI / 180)
                    + 3 * std::sin(15 * M_PI / 180),
                1e-12);
}

// Kept: classes count rows.
// A row of five observations counts as five in its sector and as one in its class.
TEST(RoseCount, OfGroupedRowsAddsFiveToTheSectorAndOneToTheClass) {
    RoseCountSettings settings = TenDegrees();
    settings.grouped = true;
    settings.classes = 2;
    const RoseTables tables = Count(settings, {.azimuths = {5}, .numbers = {5}, .classes = {2}});
    EXPECT_EQ(tables.sectors(kEndsAt10, 0, kRoseFrequencyLayer), 5);
    EXPECT_EQ(tables.sectors(kEndsAt10, 2, kRoseFrequencyLayer), 1);
    EXPECT_EQ(tables.sectors(kEndsAt10, 1, kRoseFrequencyLayer), 0);
}

TEST(RoseCount, OfGroupedRowsListsEveryObservation) {
    RoseCountSettings settings = TenDegrees();
    settings.grouped = true;
    const RoseTables tables = Count(settings, {.azimuths = {30, 60}, .numbers = {3, 2}});
    EXPECT_EQ(tables.angles, (std::vector<double>{0, DegToRad(30), DegToRad(30), DegToRad(30),
                                                  DegToRad(60), DegToRad(60)}));
}

TEST(RoseCount, OfGroupedSpeedsHasMeansOverTheObservations) {
    // Three winds of 2 and one of 6: mean 3, deviation sqrt((3 x 1 + 9) / 3) = 2.
    RoseCountSettings settings = TenDegrees(kRoseWindSpeed);
    settings.grouped = true;
    const RoseTables tables =
        Count(settings, {.azimuths = {5, 6}, .numbers = {3, 1}, .textNumbers = {2, 6}});
    EXPECT_EQ(StatsOf(tables, kEndsAt10, kRoseMean), 3);
    EXPECT_DOUBLE_EQ(StatsOf(tables, kEndsAt10, kRoseDeviation), 2);
}

TEST(RoseCount, ListsNoAnglesWhenThereAreTooManyObservations) {
    RoseCountSettings settings = TenDegrees();
    settings.grouped = true;
    const RoseTables full = Count(settings, {.azimuths = {30}, .numbers = {1e7F}});
    EXPECT_EQ(full.angles.size(), 10000001U);
    const RoseTables tables = Count(settings, {.azimuths = {30, 31, 32}, .numbers = {1, 1e9F, 1}});
    EXPECT_EQ(tables.angles.size(), 1U);
    EXPECT_EQ(tables.totals[kRoseCount][0], 1000000002);
}

TEST(RoseCount, WithoutNumbersKnowsNoGroups) {
    RoseCountSettings settings = TenDegrees();
    settings.grouped = true;
    EXPECT_EQ(Count(settings, {.azimuths = {5, 6}}).totals[kRoseCount][0], 2);
}

TEST(RoseCount, ByClassCountsAndSumsWhatIsInAClass) {
    RoseCountSettings settings = TenDegrees(kRoseValue);
    settings.classes = 3;
    const RoseTables tables = Count(settings, {.azimuths = {5, 6, 7, 8, 15, 16},
                                               .numbers = {1, 2, 3, 4, 5, 6},
                                               .classes = {1, 3, 3, 0, 2, kNoClassValue}});
    const std::vector<std::array<double, 4>> expected = {
        // whole, then classes 1 to 3
        {3, 1, 0, 2},
        {6, 1, 0, 5},
        {1, 0, 1, 0},
        {5, 0, 5, 0},
    };
    std::size_t line = 0;
    for (const int sector : {kEndsAt10, kEndsAt20}) {
        for (const RoseLayer layer : {kRoseFrequencyLayer, kRoseValueLayer}) {
            for (int c = 0; c < 4; ++c) {
                EXPECT_EQ(tables.sectors(sector, c, layer),
                          expected[line][static_cast<std::size_t>(c)])
                    << sector << ' ' << layer << ' ' << c;
            }
            ++line;
        }
    }
    EXPECT_EQ(tables.rowsCounted, 4);
    EXPECT_EQ(tables.leftOut, 1) << "the value 4 is valid, though in no class";
    EXPECT_EQ(tables.totals[kRoseCount][0], 4);
}

TEST(RoseCount, WeighsRowsByTheirAngleToTheSampleLine) {
    // Level lines, sample line 000: angles 30 and 5, weights 2 and 1 / sin 5 degrees.
    RoseCountSettings settings = TenDegrees(kRoseMeanValue);
    settings.bias = {kSpaceAngle, false, 0};
    settings.sampleLine = {0, 0};
    const double steep = 1 / std::sin(5 * M_PI / 180);
    const RoseTables tables =
        Count(settings, {.azimuths = {30, 30, 5, 355}, .numbers = {4, 8, 1, 7}});
    EXPECT_NEAR(tables.sectors(kEndsAt30, 0, kRoseFrequencyLayer), 4, 1e-12);
    EXPECT_NEAR(tables.sectors(kEndsAt30, 1, kRoseFrequencyLayer), 4, 1e-12);
    EXPECT_NEAR(tables.sectors(kEndsAt30, 0, kRoseValueLayer), 24, 1e-12);
    EXPECT_NEAR(tables.sectors(kEndsAt10, 0, kRoseFrequencyLayer), steep, 1e-12);
    EXPECT_EQ(StatsOf(tables, kEndsAt30, kRoseCount), 2) << "the raw count";
    EXPECT_EQ(StatsOf(tables, kEndsAt30, kRoseValueSum), 12) << "the raw sum";
    EXPECT_NEAR(StatsOf(tables, kEndsAt30, kRoseMean), 6, 1e-12);
    EXPECT_NEAR(tables.totals[kRoseCount][1], 4 + 2 * steep, 1e-12);
    EXPECT_NEAR(tables.totals[kRoseCount][2], steep, 1e-12);
    EXPECT_NEAR(tables.totals[kRoseValueSum][1], 24 + 8 * steep, 1e-10);
    EXPECT_NEAR(tables.trigSums[kRoseFrequencyLayer][kCosine],
                4 * std::cos(M_PI / 6) + 2 * steep * std::cos(5 * M_PI / 180), 1e-12);
}

TEST(RoseCount, HasWeightedMeansAndDeviationsUnderBias) {
    // One sector of 90 degrees; trends 30 and 90 to a line along 000: weights 2 and 1.
    RoseCountSettings settings = TenDegrees(kRoseMeanValue);
    settings.layout = LayOutSectors(DivideCircle(90), 0, true);
    settings.bias = {kHorizontalAngle, false, 0};
    const RoseTables tables = Count(settings, {.azimuths = {30, 90}, .numbers = {3, 6}});
    EXPECT_NEAR(StatsOf(tables, 1, kRoseMean), (2 * 3 + 6) / 3.0, 1e-12);
    // Squares about the mean of 4: 2 x 1 + 1 x 4, over the weights 3, times 2 / 1.
    EXPECT_NEAR(StatsOf(tables, 1, kRoseDeviation), 2, 1e-12);
}

TEST(RoseCount, WeighsOnlyTheFirstThreeKinds) {
    for (int kind = kRoseFrequency; kind <= kRoseValueOverMean; ++kind) {
        RoseCountSettings settings = TenDegrees(kind);
        settings.bias = {kSpaceAngle, false, 0};
        const RoseTables tables =
            Count(settings, {.azimuths = {30}, .numbers = {1}, .textNumbers = {1}});
        EXPECT_NEAR(tables.totals[kRoseCount][1], kind <= kRoseMeanValue ? 2 : 1, 1e-12) << kind;
    }
}

TEST(RoseCount, UsesTheSampleLineOfEachRow) {
    RoseCountSettings settings = TenDegrees();
    settings.bias = {kSpaceAngle, false, 0, true};
    const RoseTables tables = Count(settings, {.azimuths = {5, 15, 25, 25},
                                               .linePlunges = {0, 90, kInvalidAppendedLine, -90},
                                               .lineTrends = {35, 0, 0, 0}});
    EXPECT_NEAR(tables.sectors(kEndsAt10, 0, kRoseFrequencyLayer), 2, 1e-12);
    EXPECT_NEAR(tables.sectors(kEndsAt20, 0, kRoseFrequencyLayer), 1, 1e-12);
    EXPECT_NEAR(tables.sectors(kEndsAt30, 0, kRoseFrequencyLayer), 1, 1e-12);
    EXPECT_EQ(tables.leftOut, 1);
}

/// Random azimuths with all edges of whole degrees among them.
std::vector<std::int32_t> RandomAzimuths(std::mt19937& random, int rows) {
    std::vector<std::int32_t> azimuths;
    for (int i = 0; i < rows; ++i) {
        azimuths.push_back(static_cast<int>(random() % 361));
    }
    return azimuths;
}

TEST(RoseCount, PutsEachRowIntoOneSectorWhateverTheLayout) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> anySize(1, 360);
    std::uniform_real_distribution<double> anyStart(0, 360);
    for (int i = 0; i < 600; ++i) {
        const double size = i % 2 == 0 ? anySize(random) : 1 + static_cast<double>(random() % 360);
        const double start = i % 3 == 0 ? anyStart(random) : static_cast<double>(random() % 361);
        RoseCountSettings settings = TenDegrees();
        settings.layout = LayOutSectors(DivideCircle(size), start, i % 5 < 3);
        if (settings.layout.bothEnds) {
            continue; // two sectors per row
        }
        const RoseTables tables = Count(settings, {.azimuths = RandomAzimuths(random, 500)});
        const std::vector<double> counts = CountsBySector(tables);
        EXPECT_EQ(std::accumulate(counts.begin(), counts.end(), 0.0), 500) << size << ' ' << start;
        EXPECT_EQ(tables.stats[kAllSectors][kRoseCount], 500);
        EXPECT_EQ(tables.angles.size(), 501U);
    }
}

std::vector<std::int32_t> Turned(std::vector<std::int32_t> azimuths, int degrees) {
    for (std::int32_t& azimuth : azimuths) {
        azimuth = (azimuth + degrees) % 360;
    }
    return azimuths;
}

TEST(RoseCount, TurnsWithTheRows) {
    std::mt19937 random(6);
    for (const int size : {1, 2, 3, 5, 6, 9, 10, 15, 18, 20, 30, 36, 45, 60, 90, 120, 180, 360}) {
        for (const double start : {0.0, 7.0, 33.5, 180.0, 270.0, 359.25}) {
            RoseCountSettings settings = TenDegrees();
            settings.layout = LayOutSectors(DivideCircle(size), start, true);
            const std::vector<std::int32_t> azimuths = RandomAzimuths(random, 300);
            std::vector<double> counts = CountsBySector(Count(settings, {.azimuths = azimuths}));
            // Clockwise by a sector is from each number to the one before it.
            std::rotate(counts.begin(), counts.begin() + 1, counts.end());
            EXPECT_EQ(CountsBySector(Count(settings, {.azimuths = Turned(azimuths, size)})), counts)
                << size << ' ' << start;
        }
    }
}

TEST(RoseCount, TurnsWithTheRowsByPairsOfAxialData) {
    std::mt19937 random(7);
    for (const int size : {1, 2, 3, 5, 6, 9, 10, 15, 18, 20, 30, 36, 45, 60, 90, 180}) {
        for (const double start : {0.0, 7.0, 33.5, 180.0, 270.0, 359.25}) {
            RoseCountSettings settings = TenDegrees();
            settings.layout = LayOutSectors(DivideCircle(size), start, false);
            const auto pairs = [&settings](const std::vector<std::int32_t>& azimuths) {
                std::vector<double> counts =
                    CountsBySector(Count(settings, {.azimuths = azimuths}));
                const auto half = static_cast<std::ptrdiff_t>(counts.size() / 2);
                for (std::ptrdiff_t i = 0; i < half; ++i) {
                    double& lower = counts[static_cast<std::size_t>(i)];
                    const double upper = counts[static_cast<std::size_t>(i + half)];
                    EXPECT_TRUE(lower == 0 || upper == 0) << "one of the two holds both";
                    lower += upper;
                }
                counts.resize(static_cast<std::size_t>(half));
                return counts;
            };
            const std::vector<std::int32_t> azimuths = RandomAzimuths(random, 300);
            std::vector<double> counts = pairs(azimuths);
            std::rotate(counts.begin(), counts.begin() + 1, counts.end());
            EXPECT_EQ(pairs(Turned(azimuths, size)), counts) << size << ' ' << start;
        }
    }
}

TEST(RoseCount, OfEqualValuesUnderWeightsHasNoNegativeSpread) {
    std::mt19937 random(16);
    std::uniform_real_distribution<double> any(0, 1);
    for (int sample = 0; sample < 2000; ++sample) {
        RoseCountSettings settings = TenDegrees(kRoseMeanValue);
        settings.bias = {kSpaceAngle, false, 1, false};
        settings.sampleLine = {static_cast<int>(random() % 91), static_cast<int>(random() % 361)};
        const auto value = static_cast<float>(std::exp(40 * any(random) - 20));
        Columns columns;
        for (int i = 0; i < 2 + sample % 5; ++i) {
            columns.azimuths.push_back(1 + static_cast<int>(random() % 10));
            columns.dips.push_back(static_cast<int>(random() % 91));
            columns.numbers.push_back(value);
        }
        const RoseTables tables = Count(settings, columns);
        const double deviation = StatsOf(tables, kEndsAt10, kRoseDeviation);
        ASSERT_FALSE(std::isnan(deviation)) << sample;
        EXPECT_NEAR(deviation / static_cast<double>(value), 0, 1e-7);
    }
}

TEST(RoseCount, IsTheSameWhenRowsAndStartAreTurned) {
    std::mt19937 random(8);
    for (const double size : {7.0, 10.2, 7.2, 11.5, 13.0, 77.7, 100.0, 359.9, 360.0, 360.0 / 7}) {
        for (const int turn : {1, 7, 45, 90, 100, 180, 300, 359}) {
            RoseCountSettings settings = TenDegrees();
            settings.layout = LayOutSectors(DivideCircle(size), 20.5, true);
            const std::vector<std::int32_t> azimuths = RandomAzimuths(random, 300);
            const auto counts = CountsBySector(Count(settings, {.azimuths = azimuths}));
            settings.layout = LayOutSectors(DivideCircle(size), 20.5 + turn, true);
            EXPECT_EQ(CountsBySector(Count(settings, {.azimuths = Turned(azimuths, turn)})), counts)
                << size << ' ' << turn;
        }
    }
}

} // namespace
} // namespace quandrel
