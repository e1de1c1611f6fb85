// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "rose/bias_weights.h"
#include "rose/circular_statistics.h"
#include "rose/rose_plot.h"
#include "rose/rose_sectors.h"
#include "rose/rose_tables.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <cmath>
#include <limits>
#include <optional>
#include <random>
#include <set>

namespace quandrel {
namespace {

struct DivisionCase {
    double asked;
    double size;
    int sectors;
    double oddSize;
};

TEST(DivideCircle, LeavesAWholeNumberOfDegreesToTheLastSector) {
    const std::vector<DivisionCase> cases = {
        {10, 10, 36, 0},           {0.5, 1, 360, 0},  {0, 1, 360, 0},       {-7, 1, 360, 0},
        {std::nan(""), 1, 360, 0}, {400, 360, 1, 0},  {360, 360, 1, 0},     {7, 7, 52, 3},
        {10.2, 10.2, 36, 3},       {7.2, 7.2, 50, 0}, {359.9, 359.9, 1, 0}, {200, 200, 2, 160},
        {359.5, 359.5, 1, 0},  // half a degree rounds to none
        {358.5, 358.5, 2, 2},  // one and a half to two
        {10.25, 10.25, 36, 1}, // 1.25
        {51.42, 51.42, 7, 0},  // 0.06
    };
    for (const DivisionCase& test : cases) {
        const SectorDivision division = DivideCircle(test.asked);
        EXPECT_EQ(division.size, test.size) << test.asked;
        EXPECT_EQ(division.sectors, test.sectors) << test.asked;
        EXPECT_EQ(division.oddSize, test.oddSize) << test.asked;
    }
}

TEST(DivideCircle, ByEqualPartsMakesThatManySectors) {
    for (int parts = 1; parts <= 360; ++parts) {
        const SectorDivision division = DivideCircle(360.0 / parts);
        EXPECT_EQ(division.sectors, parts);
        EXPECT_EQ(division.oddSize, 0) << parts;
    }
}

TEST(SectorLayout, StartsOneSectorClockwiseOfTheStartAzimuth) {
    // A sector's start counter-clockwise is its end clockwise: start + size, as a math angle.
    const std::vector<std::array<double, 3>> cases = {
        {0, 10, 80},   {90, 10, 350}, {80, 10, 0},  {100, 10, 340}, {350, 10, 90},
        {360, 10, 80}, {45, 90, 315}, {0, 360, 90}, {-30, 10, 110}, {390, 10, 50},
    };
    for (const auto& [start, size, math] : cases) {
        EXPECT_EQ(LayOutSectors(DivideCircle(size), start, true).startMath, math) << start;
    }
}

TEST(SectorLayout, MakesPairsOfAxialSectorsInEvenNumberOnly) {
    EXPECT_TRUE(LayOutSectors(DivideCircle(10), 0, false).pairs);
    EXPECT_FALSE(LayOutSectors(DivideCircle(10), 0, true).pairs) << "polar lines";
    EXPECT_FALSE(LayOutSectors(DivideCircle(40), 0, false).pairs) << "nine";
    EXPECT_FALSE(LayOutSectors(DivideCircle(7), 0, false).pairs) << "52, but one is smaller";
}

/// The sector of a whole-degree azimuth by whole tenths of degrees, so that nothing is rounded.
int SectorByTenths(int size, int start, int azimuth, int sectors) {
    const int fromEnd = ((start + size - 10 * azimuth) % 3600 + 3600) % 3600;
    return std::min(fromEnd / size + 1, sectors);
}

TEST(SectorOfAzimuth, IsExactOnEdgesOfAnySizeInTenths) {
    for (int size = 10; size <= 3600; size += 1) {
        for (const int start : {0, 1, 70, 895, 900, 905, 1800, 2703, 3600}) {
            const SectorLayout layout =
                LayOutSectors(DivideCircle(size / 10.0), start / 10.0, true);
            for (int azimuth = size % 7; azimuth <= 360; azimuth += 7) {
                ASSERT_EQ(SectorOfAzimuth(layout, azimuth),
                          SectorByTenths(size, start, azimuth, layout.sectors))
                    << size << ' ' << start << ' ' << azimuth;
            }
        }
    }
}

TEST(SectorOfAzimuth, IsTheSectorThatEndsAtAnEdge) {
    const SectorLayout layout = LayOutSectors(DivideCircle(10), 0, true);
    EXPECT_EQ(SectorOfAzimuth(layout, 10), SectorOfAzimuth(layout, 1));
    EXPECT_EQ(SectorOfAzimuth(layout, 10), 1);
    EXPECT_EQ(SectorOfAzimuth(layout, 11), 36);
    EXPECT_EQ(SectorOfAzimuth(layout, 360), 2);
    EXPECT_EQ(SectorOfAzimuth(layout, 0), 2);
    EXPECT_EQ(SectorOfAzimuth(layout, 350), 3);
}

TEST(SectorOfAzimuth, PutsTheSmallerSectorLast) {
    // 51 sectors of 7 degrees counter-clockwise from 7; 10 to 7 are left.
    const SectorLayout layout = LayOutSectors(DivideCircle(7), 0, true);
    EXPECT_EQ(SectorOfAzimuth(layout, 10), 52);
    EXPECT_EQ(SectorOfAzimuth(layout, 8), 52);
    EXPECT_EQ(SectorOfAzimuth(layout, 7), 1);
    EXPECT_EQ(SectorOfAzimuth(layout, 11), 51);
}

TEST(SectorOfAzimuth, BeyondTheLastSectorIsTheLast) {
    const SectorLayout layout = LayOutSectors(DivideCircle(359.9), 0.5, true);
    ASSERT_EQ(layout.sectors, 1);
    for (int azimuth = 0; azimuth <= 360; ++azimuth) {
        EXPECT_EQ(SectorOfAzimuth(layout, azimuth), 1);
    }
}

TEST(SectorOfAzimuth, OfAxialDataIsOneForBothEnds) {
    for (const double size : {1.0, 7.2, 10.0, 30.0, 90.0, 180.0, 360.0 / 14}) {
        for (const double start : {0.0, 5.0, 90.0, 123.4, 180.0, 355.0}) {
            const SectorLayout layout = LayOutSectors(DivideCircle(size), start, false);
            ASSERT_TRUE(layout.pairs);
            const SectorLayout polar = LayOutSectors(DivideCircle(size), start, true);
            std::set<int> used;
            for (int azimuth = 0; azimuth <= 180; ++azimuth) {
                const int sector = SectorOfAzimuth(layout, azimuth);
                EXPECT_EQ(SectorOfAzimuth(layout, azimuth + 180), sector);
                EXPECT_EQ((sector - SectorOfAzimuth(polar, azimuth)) % (layout.sectors / 2), 0)
                    << "that of the direction, or the opposite one";
                used.insert(sector);
            }
            EXPECT_LE(static_cast<int>(used.size()), layout.sectors / 2) << size << ' ' << start;
        }
    }
}

TEST(SectorOfAzimuth, OfAPairIsTheOneThatEndsInTheEasternHalf) {
    // From 5: 355 to 5 holds what lies near north, not 175 to 185.
    const SectorLayout layout = LayOutSectors(DivideCircle(10), 5, false);
    EXPECT_EQ(SectorOfAzimuth(layout, 0), 2);
    EXPECT_EQ(SectorOfAzimuth(layout, 178), 2);
    EXPECT_EQ(SectorOfAzimuth(layout, 185), 2);
    // From north: 170 to 180 holds due north and south.
    const SectorLayout fromNorth = LayOutSectors(DivideCircle(10), 0, false);
    for (const int azimuth : {0, 175, 180, 360}) {
        EXPECT_EQ(SectorOfAzimuth(fromNorth, azimuth), 20);
    }
}

TEST(SectorLayout, CountsAxesAtBothEndsWhereSectorsMakeNoPairs) {
    for (const double size : {24.0, 40.0, 72.0, 120.0, 7.0, 50.0, 200.0, 360.0 / 7}) {
        EXPECT_TRUE(LayOutSectors(DivideCircle(size), 0, false).bothEnds) << size;
        EXPECT_FALSE(LayOutSectors(DivideCircle(size), 0, true).bothEnds) << "polar " << size;
    }
    for (const double size : {1.0, 10.0, 90.0, 180.0, 360.0 / 14}) {
        EXPECT_FALSE(LayOutSectors(DivideCircle(size), 0, false).bothEnds) << "pairs " << size;
    }
    EXPECT_FALSE(LayOutSectors(DivideCircle(360), 0, false).bothEnds) << "one for both";
}

TEST(SectorsOfAxis, AreThoseOfBothEnds) {
    const SectorLayout axial = LayOutSectors(DivideCircle(40), 340, false);
    const SectorLayout polar = LayOutSectors(DivideCircle(40), 340, true);
    for (int azimuth = 0; azimuth <= 360; ++azimuth) {
        const CountedSectors counted = SectorsOfAxis(axial, azimuth);
        EXPECT_EQ(counted.first, SectorOfAzimuth(polar, azimuth));
        EXPECT_EQ(counted.second, SectorOfAzimuth(polar, (azimuth + 180) % 360));
        EXPECT_EQ(SectorsOfAxis(polar, azimuth).second, 0);
    }
}

TEST(SectorsOfAxis, AreOneWhereASectorHoldsBothEnds) {
    // 0 to 200, and 200 to 360, the smaller one.
    const SectorLayout layout = LayOutSectors(DivideCircle(200), 0, false);
    EXPECT_EQ(SectorsOfAxis(layout, 10).first, 1);
    EXPECT_EQ(SectorsOfAxis(layout, 10).second, 0) << "190 lies there too";
    EXPECT_EQ(SectorsOfAxis(layout, 90).second, 2);
}

constexpr const char* kOddQuestion =
    "Because you have chosen an odd sector size\none sector will be smaller than the others."
    "Continue anyway?";

class RoseSectors : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gRoseOddAsked = false;
        NewRose();
    }

    void TearDown() override {
        for (int slot = 1; slot <= HighestSlot(); ++slot) {
            ForgetAcceptedSectorSize(PlotOf(slot));
        }
        EngineTest::TearDown();
    }

    /// A new plot of polar lines, or of another kind if given, drawn as a rose of 10 degrees.
    void NewRose(std::int16_t primary = kPrimaryLine, std::int16_t kind = kPolarLines) {
        gPrimaryDataType = primary;
        gPlotDataKind = kind;
        NewPlot();
        ActiveRecord().PlotKind = kRose;
        ActiveRecord().RoseSectorSize = 10;
    }

    /// A row with an appended number and text.
    static void AddValued(std::int32_t azimuth, float number, const std::string& text = {}) {
        AddRow(0, azimuth);
        PlotRecord& record = ActiveRecord();
        record.HasAppendedNumeric = record.HasAppendedText = kTrue;
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Text));
        gAppNumeric.At(gActivePlot, record.NumData) = number;
        gAppText.Set(gActivePlot, record.NumData, text);
    }

    static void AddOwnLine(std::int32_t azimuth, std::int32_t plunge, std::int32_t trend) {
        AddRow(0, azimuth);
        PlotRecord& record = ActiveRecord();
        record.HasAppendedLine = kTrue;
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Line));
        gAppLineDip.At(gActivePlot, record.NumData) = plunge;
        gAppLineAz.At(gActivePlot, record.NumData) = trend;
    }

    /// Limits 1, 2 and 4 of two classes in a column.
    static void SetLimits(std::size_t column, std::int16_t flags) {
        auto& table = ActiveRecord().ClassTable;
        table[0][column] = std::int16_t{2};
        table[1][column] = 1.0;
        table[2][column] = 2.0;
        table[11][column] = 4.0;
        table[12][column] = flags;
    }

    static void SetNames(const std::vector<std::string>& names, bool keepOthers) {
        auto& table = ActiveRecord().ClassTable;
        table[0][1] = static_cast<std::int16_t>(names.size());
        table[0][2] = std::int16_t{0};
        for (std::size_t i = 0; i < names.size(); ++i) {
            table[i + 1][2] = names[i];
        }
        table[12][1] = static_cast<std::int16_t>(keepOthers ? 1 : 0);
        table[12][2] = std::int16_t{0};
    }

    /// Rows by class 0 to m of layer 0 over all sectors.
    static std::vector<double> RowsByClass() {
        std::vector<double> sums;
        for (int c = 0; c <= gRoseSectors->Classes(); ++c) {
            double sum = 0;
            for (int s = 1; s <= gRoseSectors->Sectors(); ++s) {
                sum += gRoseSectors(s, c, kRoseFrequencyLayer);
            }
            sums.push_back(sum);
        }
        return sums;
    }
};

using Sums = std::vector<double>;

TEST_F(RoseSectors, FillTheTablesAndTheRecord) {
    AddValued(5, 2);
    AddValued(6, 5);
    AddValued(95, 1);
    ActiveRecord().RoseStats[kRoseWindFrequencySum][kLargestSector] = 77;
    ActiveRecord().RoseStartAngle = 90;
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_EQ(gRoseSectors->Sectors(), 36);
    EXPECT_EQ(gRoseSectors(1, 0, kRoseFrequencyLayer), 1) << "90 to 100";
    EXPECT_EQ(gRoseSectors(10, 0, kRoseFrequencyLayer), 2) << "0 to 10";
    EXPECT_EQ(gRoseSectorStats->at(10)[kRoseValueSum], 7);
    EXPECT_EQ(*gRoseAngles, (Sums{0, DegToRad(5), DegToRad(6), DegToRad(95)}));
    EXPECT_NEAR(gRoseTrigSums[kRoseFrequencyLayer][kSine],
                std::sin(5 * M_PI / 180) + std::sin(6 * M_PI / 180) + std::sin(95 * M_PI / 180),
                1e-12);
    EXPECT_TRUE(gRoseDirectional);
    EXPECT_EQ(*gRoseStartMath, 350);
    EXPECT_TRUE(ActiveRose().isCounted);
    EXPECT_EQ(ActiveRose().leftOut, 0);
    EXPECT_EQ(ActiveRecord().RoseStats[kRoseCount], (std::array<double, 3>{3, 3, 2}));
    EXPECT_EQ(ActiveRecord().RoseStats[kRoseValueSum], (std::array<double, 3>{8, 8, 7}));
    EXPECT_EQ(ActiveRecord().RoseStats[kRoseWindFrequencySum][kLargestSector], 0)
        << "of another kind, before";
}

TEST_F(RoseSectors, OfAPlotWithoutValidRowsStayAsTheyWere) {
    AddRow(0, 5);
    ASSERT_TRUE(RoseCountSectors());
    const int slot = gActivePlot;
    NewRose();
    AddRow(kErrorRow, 0);
    ActiveRecord().RoseSectorSize = 0.5;
    ActiveRecord().RoseStats[kRoseCount][kRawTotal] = 9;
    EXPECT_TRUE(RoseCountSectors());
    EXPECT_FALSE(ActiveRose().isCounted);
    EXPECT_EQ(RoseOf(PlotOf(slot)).sectors(0, 0, kRoseValueLayer), 1);
    EXPECT_EQ(ActiveRecord().RoseSectorSize, 0.5);
    EXPECT_EQ(ActiveRecord().RoseStats[kRoseCount][kRawTotal], 9);
}

TEST_F(RoseSectors, LeaveErrorRowsAndOverlaysOut) {
    AddRow(0, 5);
    AddRow(kErrorRow, 5);
    AddRow(0, 5);
    AddOverlay(kOverlayLines, 0, 5, CodeOfStyleRow(2));
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_EQ(ActiveRecord().RoseStats[kRoseCount][kRawTotal], 2);
}

TEST_F(RoseSectors, OfPlanesShowStrikesAndAreAxial) {
    NewRose(kPrimaryPlane, kPlanes);
    for (int i = 0; i < 10; ++i) {
        AddRow(30, 90);
        AddRow(30, 270);
    }
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_FALSE(gRoseDirectional);
    EXPECT_EQ(gRoseSectors(20, 0, kRoseFrequencyLayer), 20) << "170 to 180";
    EXPECT_EQ(ActiveRecord().RoseStats[kRoseCount], (std::array<double, 3>{20, 20, 20}));
}

TEST_F(RoseSectors, OfPolarLinesThatPointUpAreOppositeTheirLowerEnds) {
    AddRow(30, 50);
    AddRow(-30, 50);
    AddRow(-1, 355);
    AddRow(-90, 0);
    AddRow(0, 5);
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_EQ(*gRoseAngles,
              (Sums{0, DegToRad(50), DegToRad(230), DegToRad(175), DegToRad(180), DegToRad(5)}));
    EXPECT_NEAR(gRoseTrigSums[kRoseFrequencyLayer][kCosine],
                -std::cos(5 * M_PI / 180) - 1 + std::cos(5 * M_PI / 180), 1e-12);
}

TEST_F(RoseSectors, OfLinesAndOfPlanesTakeNoSenseFromTheSign) {
    for (const std::int16_t kind : {kLines, kPolarLines}) {
        NewRose(kind == kLines ? kPrimaryLine : kPrimaryPlane, kind);
        AddRow(-30, 50);
        ASSERT_TRUE(RoseCountSectors());
        EXPECT_EQ(*gRoseAngles, (Sums{0, DegToRad(50)})) << kind;
    }
}

TEST_F(RoseSectors, OfTAxesHaveTheTrendsOfTheirLowerEnds) {
    ActiveRecord().AxesTitle = "T-axes";
    // The sign marks T axes, and a level one cannot have it: both stay on their side.
    AddRow(-10, 50);
    AddRow(0, 50);
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_EQ(*gRoseAngles, (Sums{0, DegToRad(50), DegToRad(50)}));
}

TEST_F(RoseSectors, OfPolarSecondaryLinesFollowTheirSense) {
    AddRow(30, 5);
    int withSecondary = 1;
    GrowDataColumns(withSecondary, 1);
    gData2Dip.At(gActivePlot, 1) = -10;
    gData2Az.At(gActivePlot, 1) = 100;
    ActiveRecord().SecondaryFormat = kSecondaryLine;
    ActiveRecord().ShowSecondary = kTrue;
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_EQ(*gRoseAngles, (Sums{0, DegToRad(280)}));
}

TEST_F(RoseSectors, OfUpwardPolarLinesAreWeightedAsTheirLowerEnds) {
    AddRow(-30, 50);
    PlotRecord& record = ActiveRecord();
    record.RoseBiasMode = kSpaceAngle;
    record.RoseSamplePlunge = 90;
    record.RoseMinBiasAngle = 10;
    ASSERT_TRUE(RoseCountSectors());
    // The sample line is 60 degrees from the line, whichever way that points.
    EXPECT_NEAR(gRoseSectors(0, 0, kRoseValueLayer), 1 / std::sin(60 * M_PI / 180), 1e-12);
}

TEST_F(RoseSectors, OfShownSecondaryDataAreTheirs) {
    AddRow(0, 5);
    AddRow(kErrorRow, 5);
    AddRow(0, 5);
    int withSecondary = 1;
    GrowDataColumns(withSecondary, 3);
    for (std::int32_t row = 1; row <= 3; ++row) {
        gData2Dip.At(gActivePlot, row) = row == 3 ? kErrorRow : 10;
        gData2Az.At(gActivePlot, row) = 100;
    }
    ActiveRecord().ShowSecondary = kTrue;
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_EQ(*gRoseAngles, (Sums{0, DegToRad(100)}));
}

TEST_F(RoseSectors, BringTheirSizeIntoItsRange) {
    AddRow(0, 5);
    ActiveRecord().RoseSectorSize = 0.5;
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_EQ(ActiveRecord().RoseSectorSize, 1);
    ActiveRecord().RoseSectorSize = 400;
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_EQ(ActiveRecord().RoseSectorSize, 360);
    EXPECT_EQ(gRoseSectors->Sectors(), 1);
}

TEST_F(RoseSectors, AreAskedAboutWhenOneIsSmaller) {
    AddRow(0, 8);
    ActiveRecord().RoseSectorSize = 7;
    Expect(kOddQuestion);
    ASSERT_TRUE(RoseCountSectors());
    ASSERT_EQ(prompts.Shown().size(), 1U);
    const Message& box = prompts.Shown()[0].message;
    EXPECT_EQ(box.title, "Quandrel, ver 9.5.1");
    EXPECT_EQ(box.text, kOddQuestion);
    EXPECT_EQ(box.icon, Icon::Question);
    EXPECT_EQ(box.buttons, Buttons::OkCancel);
    EXPECT_EQ(ActiveRecord().RoseOddSectorSize, 3);
    EXPECT_EQ(gRoseSectors->Sectors(), 52);
    EXPECT_EQ(gRoseSectors(52, 0, kRoseFrequencyLayer), 1);
    EXPECT_FALSE(gRoseOddAsked);
}

TEST_F(RoseSectors, StayAsTheyAreWhenTheUserThinksBetterOfIt) {
    AddRow(0, 8);
    ASSERT_TRUE(RoseCountSectors());
    ActiveRecord().RoseSectorSize = 7;
    AddRow(0, 9);
    Expect(kOddQuestion, Button::Cancel);
    EXPECT_FALSE(RoseCountSectors());
    EXPECT_EQ(gRoseSectors->Sectors(), 36);
    EXPECT_EQ(ActiveRecord().RoseStats[kRoseCount][kRawTotal], 1);
    EXPECT_EQ(ActiveRecord().RoseOddSectorSize, 0);
    Expect(kOddQuestion, Button::Cancel);
    EXPECT_FALSE(RoseCountSectors()) << "asked again";
}

TEST_F(RoseSectors, AreNotAskedAboutAgainForASizeThatWasAccepted) {
    AddRow(0, 8);
    ActiveRecord().RoseSectorSize = 7;
    Expect(kOddQuestion);
    ASSERT_TRUE(RoseCountSectors());
    ASSERT_TRUE(RoseCountSectors());
    const int first = gActivePlot;
    NewRose();
    AddRow(0, 8);
    ActiveRecord().RoseSectorSize = 7;
    Expect(kOddQuestion);
    ASSERT_TRUE(RoseCountSectors()) << "of another plot it was not";
    gActivePlot = first;
    ASSERT_TRUE(RoseCountSectors());
    ActiveRecord().RoseSectorSize = 11;
    Expect(kOddQuestion);
    ASSERT_TRUE(RoseCountSectors()) << "another size";
    EXPECT_EQ(prompts.Shown().size(), 3U);
}

TEST_F(RoseSectors, AreAskedAboutAnewOnceTheAnswerIsForgotten) {
    AddRow(0, 8);
    ActiveRecord().RoseSectorSize = 7;
    Expect(kOddQuestion);
    ASSERT_TRUE(RoseCountSectors());
    ForgetAcceptedSectorSize(ActivePlot());
    Expect(kOddQuestion);
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_EQ(prompts.Shown().size(), 2U);
}

TEST_F(RoseSectors, AreNotAskedAboutOnPagesAndInFiles) {
    AddRow(0, 8);
    ActiveRecord().RoseSectorSize = 7;
    ASSERT_TRUE(CountRose(ActivePlot(), MayAsk::No));
    EXPECT_EQ(gRoseSectors->Sectors(), 52);
}

TEST_F(RoseSectors, AreNotAskedAboutWhenTheQuestionWasAnswered) {
    AddRow(0, 8);
    ActiveRecord().RoseSectorSize = 7;
    gRoseOddAsked = true;
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_FALSE(gRoseOddAsked) << "for one pass";
    EXPECT_EQ(ActiveRecord().RoseOddSectorSize, 3);
}

// Kept: not cleared when all are equal.
// Equal sectors leave the size of the smaller one as it is.
TEST_F(RoseSectors, OfEqualSizeLeaveTheSizeOfTheSmallerOneAlone) {
    AddRow(0, 8);
    ActiveRecord().RoseOddSectorSize = 3;
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_EQ(ActiveRecord().RoseOddSectorSize, 3);
}

TEST_F(RoseSectors, ByLengthStandInTheClassesOfTheirNumbers) {
    struct FlagCase {
        std::int16_t flags;
        Sums rows; ///< whole, then class by class
        std::int32_t leftOut;
    };

    const std::vector<float> numbers = {0.5F, 1, 1.5F, 2, 4, 4.5F, kInvalidNumber};
    for (const float number : numbers) {
        AddValued(15, number);
    }
    // Class 2 is 1 to below 2, class 3 is 2 to 4; without a low class, 7 numbers lose one below 1.
    const std::vector<FlagCase> cases = {
        {0, {4, 0, 2, 2}, 1},
        {1, {6, 2, 2, 2}, 0},
        {2, {5, 0, 2, 2, 1}, 1},
        {3, {7, 2, 2, 2, 1}, 0},
    };
    for (const FlagCase& test : cases) {
        SetLimits(0, test.flags);
        ActiveRecord().RoseType = 10;
        ASSERT_TRUE(RoseCountSectors());
        EXPECT_EQ(RowsByClass(), test.rows) << test.flags;
        EXPECT_EQ(ActiveRecord().NumClassified, test.rows[0]) << test.flags;
        EXPECT_EQ(ActiveRose().leftOut, test.leftOut) << test.flags;
    }
}

TEST_F(RoseSectors, OfValuesByLengthSumThemByClass) {
    AddValued(15, 1.5F);
    AddValued(16, 1);
    AddValued(17, 3);
    AddValued(18, kInvalidNumber);
    SetLimits(0, 1);
    ActiveRecord().RoseType = 11;
    ASSERT_TRUE(RoseCountSectors());
    const int sector = 36;
    EXPECT_EQ(gRoseSectors(sector, 0, kRoseValueLayer), 5.5);
    EXPECT_EQ(gRoseSectors(sector, 1, kRoseValueLayer), 0);
    EXPECT_EQ(gRoseSectors(sector, 2, kRoseValueLayer), 2.5);
    EXPECT_EQ(gRoseSectors(sector, 3, kRoseValueLayer), 3);
    EXPECT_EQ(ActiveRose().leftOut, 1);
}

TEST_F(RoseSectors, ByTypeStandInTheClassesOfTheirNames) {
    for (const char* text : {"vein", "Joint", "fault", "", "VEIN", "vein", "dyke"}) {
        AddValued(15, 0, text);
    }
    ActiveRecord().RoseType = 20;
    SetNames({"Vein", "joint"}, true);
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_EQ(RowsByClass(), (Sums{7, 3, 3, 1}));
    EXPECT_EQ(ActiveRecord().NumClassified, 7);
    SetNames({"Vein", "joint"}, false);
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_EQ(RowsByClass(), (Sums{4, 0, 3, 1}));
    EXPECT_EQ(ActiveRecord().NumClassified, 4);
    EXPECT_EQ(ActiveRose().leftOut, 0);
}

TEST_F(RoseSectors, ByMoreNamesThanAreRememberedAreStillRight) {
    for (int i = 0; i < 3000; ++i) {
        AddValued(15, 0, "type " + std::to_string(i % 1500));
    }
    ActiveRecord().RoseType = 20;
    SetNames({"TYPE 3", "type 1499"}, true);
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_EQ(RowsByClass(), (Sums{3000, 2996, 2, 2}));
}

TEST_F(RoseSectors, ByTypeAsNumberFollowTheDecimalDelimiter) {
    for (const char* text : {"0.5", "1.5", "1,5", "", "x", "3"}) {
        AddValued(15, 0, text);
    }
    ActiveRecord().RoseType = 20;
    SetLimits(1, 1);
    ActiveRecord().ClassTable[kBaseRow][kNameClasses] = std::int16_t{1};
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_EQ(RowsByClass(), (Sums{3, 1, 1, 1}));
    EXPECT_EQ(ActiveRose().leftOut, 3);
    gDecimalIsComma = true;
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_EQ(RowsByClass(), (Sums{2, 0, 1, 1}));
    EXPECT_EQ(ActiveRose().leftOut, 4);
}

TEST_F(RoseSectors, WithoutClassesLeaveTheCountOfClassifiedRowsAlone) {
    AddRow(0, 5);
    ActiveRecord().NumClassified = 12;
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_EQ(ActiveRecord().NumClassified, 12);
}

TEST_F(RoseSectors, OfWindReadSpeedsFromTheTexts) {
    AddValued(15, 10, "2");
    AddValued(16, 20, "3.0");
    AddValued(17, 30, "calm");
    AddValued(18, kInvalidNumber, "4");
    ActiveRecord().RoseType = 6;
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_EQ(ActiveRecord().RoseStats[kRoseSpeedSum], (std::array<double, 3>{5, 5, 5}));
    EXPECT_EQ(ActiveRecord().RoseStats[kRoseEnergySum], (std::array<double, 3>{620, 620, 620}));
    EXPECT_EQ(ActiveRecord().RoseStats[kRoseWindFrequencySum], (std::array<double, 3>{30, 30, 30}));
    EXPECT_EQ(ActiveRose().leftOut, 2);
}

TEST_F(RoseSectors, OfGroupedRowsCountObservations) {
    AddValued(15, 5);
    AddValued(25, 3);
    AddValued(25, kInvalidNumber);
    ActiveRecord().HasFrequencyColumn = kTrue;
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_EQ(ActiveRecord().RoseStats[kRoseCount], (std::array<double, 3>{8, 8, 5}));
    EXPECT_EQ(gRoseAngles->size(), 9U);
    EXPECT_EQ(ActiveRose().leftOut, 1);
}

TEST_F(RoseSectors, AreWeighedByTheSampleLineOfTheRecord) {
    AddRow(0, 30);
    PlotRecord& record = ActiveRecord();
    record.RoseBiasMode = kSpaceAngle;
    record.RoseSamplePlunge = 0;
    record.RoseSampleTrend = 0;
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_NEAR(record.RoseStats[kRoseCount][kWeightedTotal], 2, 1e-12);
    EXPECT_EQ(record.RoseStats[kRoseCount][kRawTotal], 1);
    record.RoseSampleTrend = 30;
    record.RoseMinBiasAngle = 10;
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_NEAR(record.RoseStats[kRoseCount][kWeightedTotal], 1 / std::sin(10 * M_PI / 180), 1e-9);
}

TEST_F(RoseSectors, OfPlanesAreWeighedByTheirPoles) {
    NewRose(kPrimaryPlane, kPlanes);
    AddRow(30, 120);
    PlotRecord& record = ActiveRecord();
    record.RoseBiasMode = kSpaceAngle;
    record.RoseSamplePlunge = 90; // 60 degrees to the plane
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_NEAR(record.RoseStats[kRoseCount][kWeightedTotal], 2 / std::sqrt(3.0), 1e-9);
}

TEST_F(RoseSectors, AreWeighedByTheLinesOfTheRows) {
    AddOwnLine(30, 0, 0);
    AddOwnLine(40, 90, 0);
    AddOwnLine(50, kInvalidAppendedLine, 0);
    PlotRecord& record = ActiveRecord();
    record.RoseBiasMode = kSpaceAngle;
    record.RoseSamplePlunge = -9999;
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_NEAR(record.RoseStats[kRoseCount][kWeightedTotal], 3, 1e-12);
    EXPECT_EQ(ActiveRose().leftOut, 1);
}

TEST_F(RoseSectors, WithoutTheLinesOfTheRowsSaySo) {
    AddRow(0, 30);
    PlotRecord& record = ActiveRecord();
    record.RoseBiasMode = kSpaceAngle;
    record.RoseSamplePlunge = -9999;
    Expect("no appended lines");
    ASSERT_TRUE(RoseCountSectors());
    EXPECT_EQ(record.RoseBiasMode, kNoBias);
    EXPECT_EQ(record.RoseStats[kRoseCount][kWeightedTotal], 1);
    ASSERT_TRUE(RoseCountSectors()) << "once";
}

TEST_F(RoseSectors, OfDirectionsAreWeighedByHorizontalAnglesAlone) {
    struct ModeCase {
        std::int16_t primary;
        std::int16_t before;
        std::int16_t kind;
        std::int16_t after;
    };

    const std::vector<ModeCase> cases = {
        {kDirections, kSpaceAngle, kRoseFrequency, kHorizontalAngle},
        {kDirections, kDipOnly, kRoseFrequency, kHorizontalAngle},
        {kDirections, kNoBias, kRoseFrequency, kNoBias},
        {kDirections, kSpaceAngle, kRoseVariance, kSpaceAngle},
        {kPrimaryLine, kSpaceAngle, kRoseFrequency, kSpaceAngle},
    };
    for (const ModeCase& test : cases) {
        NewRose(test.primary);
        AddRow(0, 30);
        ActiveRecord().RoseBiasMode = test.before;
        ActiveRecord().RoseType = test.kind;
        ASSERT_TRUE(RoseCountSectors());
        EXPECT_EQ(ActiveRecord().RoseBiasMode, test.after) << test.before;
    }
}

} // namespace
} // namespace quandrel
