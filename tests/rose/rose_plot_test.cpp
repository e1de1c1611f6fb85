// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "rose/draw_rose.h"
#include "rose/rose_plot.h"
#include "rose/rose_scale.h"
#include "rose/rose_sectors.h"
#include "rose/rose_tables.h"
#include "rose/rose_wedges.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <vector>

namespace quandrel {

namespace {

struct RoseRow {
    int azimuth;
    float number;
    const char* text;
};

double Degrees(double radians) {
    return radians * 180 / std::acos(-1.0);
}

} // namespace

class RosePlotTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        BuildStyleTables();
        gPlotKind = kRose;
        gRoseClassWarned = false;
        gRoseOddAsked = false;
        NewRose();
    }

    void TearDown() override {
        gPlotKind = kEqualArea;
        EngineTest::TearDown();
    }

    /// A rose of polar lines without rows.
    void NewRose() {
        NewPlot();
        ForgetAcceptedSectorSize(ActivePlot());
        Record().DataKind = kPolarLines;
        Record().PrimaryFormat = kPrimaryLine;
        Record().AppNumName = "Length";
        Record().AppNonNumName = "Speed";
        Record().FileNames[kFirstFile] = "slot" + std::to_string(gActivePlot);
    }

    static void AddRows(const std::vector<RoseRow>& rows) {
        PlotRecord& record = ActiveRecord();
        record.HasAppendedNumeric = kTrue;
        record.HasAppendedText = kTrue;
        for (const RoseRow& row : rows) {
            AddRow(10, row.azimuth);
            ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
            ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Text));
            gAppNumeric.At(gActivePlot, record.NumData) = row.number;
            gAppText.Set(gActivePlot, record.NumData, row.text);
        }
    }

    /// Three in the sector to 10, one in that to 100.
    static void AddFourRows() { AddRows({{5, 1, "2"}, {8, 2, "3"}, {10, 3, "1"}, {95, 10, "4"}}); }

    static PlotRecord& Record() { return ActiveRecord(); }

    [[nodiscard]] static const RoseWedge* WedgeEndingAt(double azimuth) {
        for (const RoseWedge& wedge : ActiveRose().wedges) {
            if (std::abs(std::remainder(90 - azimuth - Degrees(wedge.start), 360)) < 1e-6) {
                return &wedge;
            }
        }
        return nullptr;
    }
};

TEST_F(RosePlotTest, DrawsNothingWithoutRows) {
    ActiveRose().wedges.resize(3);
    RosePlot();
    EXPECT_TRUE(ActiveRose().wedges.empty());
    EXPECT_TRUE(DrawnOn(Form(gActivePlot).Plot()).empty());
    EXPECT_EQ(Form(gActivePlot).Told(PlotBox::StatsNormal), "No. of Data = 0\r\n");
    EXPECT_EQ(Form(gActivePlot).Told(PlotBox::StatsAdvanced), "No. of Data = 0\r\n");
}

TEST_F(RosePlotTest, GivesEachDirectionItsPetal) {
    AddFourRows();
    RosePlot();
    ASSERT_EQ(ActiveRose().wedges.size(), 2U);
    const RoseWedge* north = WedgeEndingAt(10);
    const RoseWedge* east = WedgeEndingAt(100);
    ASSERT_TRUE(north != nullptr && east != nullptr);
    EXPECT_NEAR(north->radius, 1000, 1e-9);
    EXPECT_NEAR(east->radius, 1000 / 3.0, 1e-9);
    EXPECT_EQ(Record().RoseRangeB[kTopRoseLayer][kInPerCent], 75);
    EXPECT_EQ(Record().RoseRangeB[kTopRoseLayer][kInUnits], 3);
    EXPECT_NEAR(Record().RoseRangeA[kTopRoseLayer][kInPerCent], 1000 / 75.0, 1e-9);
    EXPECT_NEAR(Record().RoseRangeA[kTopRoseLayer][kInUnits], 1000 / 3.0, 1e-9);
    EXPECT_EQ(RoseScaleInterval(Record()), 20);
    EXPECT_EQ(Record().RowsChanged, 0);
}

TEST_F(RosePlotTest, DrawsTheScaleOverThePetals) {
    AddFourRows();
    gRoseOuterCircle = true;
    Record().RoseDisplay7 = 0;
    RosePlot();
    const auto drawn = DrawnOn(Form(gActivePlot).Plot());
    EXPECT_EQ(drawn.front().kind, DrawOperation::Kind::Wedge);
    EXPECT_EQ(drawn.back().kind, DrawOperation::Kind::Arc);
    EXPECT_EQ(drawn.back().radius, 1000);
}

TEST_F(RosePlotTest, MirrorsLines) {
    AddFourRows();
    Record().DataKind = kLines;
    RosePlot();
    EXPECT_EQ(ActiveRose().wedges.size(), 4U);
}

TEST_F(RosePlotTest, WritesBothStatisticsTexts) {
    AddFourRows();
    RosePlot();
    EXPECT_NE(Form(gActivePlot).Told(PlotBox::StatsNormal).find("No. of Data = 4"),
              std::string::npos);
    EXPECT_NE(Form(gActivePlot).Told(PlotBox::StatsAdvanced).find("kappa"), std::string::npos);
}

TEST_F(RosePlotTest, CountsAgainWhenRowsOrSettingsChange) {
    AddFourRows();
    RosePlot();
    AddRows({{200, 1, "1"}});
    RosePlot(false);
    EXPECT_EQ(ActiveRose().wedges.size(), 3U);
    Record().RoseSectorSize = 120;
    RosePlot(false);
    EXPECT_EQ(gRoseSectors->Sectors(), 3);
    Record().RoseType = kRoseValue;
    RosePlot(false);
    EXPECT_EQ(*gRoseTotal, 17);
}

TEST_F(RosePlotTest, TakesTheTablesAsTheyStandOtherwise) {
    AddFourRows();
    RosePlot();
    gRoseSectors(1, 0, kRoseFrequencyLayer) = 99; // would not survive a count
    Record().RoseSectorFraction = 50;
    RosePlot(false);
    EXPECT_EQ(gRoseSectors(1, 0, kRoseFrequencyLayer), 99);
    RosePlot(true);
    EXPECT_NE(gRoseSectors(1, 0, kRoseFrequencyLayer), 99);
}

TEST_F(RosePlotTest, DrawsEachPlotFromItsOwnRows) {
    AddFourRows();
    RosePlot();
    const int first = gActivePlot;
    NewRose();
    AddRows({{300, 1, "1"}});
    RosePlot();
    EXPECT_EQ(ActiveRose().wedges.size(), 1U);
    gActivePlot = first;
    EXPECT_EQ(ActiveRose().wedges.size(), 2U) << "as it was drawn";
    const double counted = gRoseSectors(0, 0, kRoseValueLayer);
    gRoseSectors(0, 0, kRoseValueLayer) = 1000; // a count would show
    RosePlot(false);
    EXPECT_EQ(gRoseSectors(0, 0, kRoseValueLayer), 1000);
    gRoseSectors(0, 0, kRoseValueLayer) = counted;
    const double median = Record().RoseMedian;
    RosePlot(false);
    EXPECT_EQ(gRoseSectors(0, 0, kRoseValueLayer), counted);
    EXPECT_EQ(ActiveRose().wedges.size(), 2U);
    EXPECT_EQ(Record().RoseMedian, median);
}

TEST_F(RosePlotTest, StacksTheLayersOfAWindRose) {
    AddRows({{5, 2, "3"}, {95, 1, "4"}}); // energies 54 and 64, speeds 3 and 4
    Record().RoseType = kRoseOverlaidWind;
    RosePlot();
    ASSERT_EQ(ActiveRose().wedges.size(), 6U);
    const std::array<int, 6> layers = {2, 2, 1, 1, 0, 0};
    for (std::size_t i = 0; i < 6; ++i) {
        EXPECT_EQ(ActiveRose().wedges[i].layer, layers[i]);
    }
    EXPECT_NEAR(Record().RoseRangeB[kTopRoseLayer][kInUnits], 64, 1e-9);
    EXPECT_NEAR(Record().RoseRangeB[kTopRoseLayer][kInPerCent], 6400 / 118.0, 1e-9);
    EXPECT_NEAR(Record().RoseRangeB[kMiddleRoseLayer][kInUnits], 4, 1e-9);
    EXPECT_NEAR(Record().RoseRangeB[kBottomRoseLayer][kInUnits], 2, 1e-9);
}

TEST_F(RosePlotTest, LaysValuesOverFrequenciesAndMeans) {
    AddRows({{5, 2, ""}, {6, 4, ""}, {95, 5, ""}});
    Record().RoseType = kRoseValueOverFrequency;
    RosePlot();
    EXPECT_EQ(ActiveRose().wedges.size(), 4U);
    EXPECT_NEAR(Record().RoseRangeB[kMiddleRoseLayer][kInUnits], 2, 1e-9);
    EXPECT_NEAR(Record().RoseRangeB[kTopRoseLayer][kInUnits], 6, 1e-9);
    Record().RoseType = kRoseValueOverMean;
    RosePlot();
    EXPECT_NEAR(Record().RoseRangeB[kMiddleRoseLayer][kInUnits], 5, 1e-9);
    EXPECT_NEAR(Record().RoseRangeB[kTopRoseLayer][kInUnits], 6, 1e-9);
}

TEST_F(RosePlotTest, TurnsAKindWithoutValuesIntoFrequencies) {
    const std::vector<RoseRow> rows = {{5, kInvalidNumber, ""}, {95, kInvalidNumber, ""}};
    AddRows(rows);
    for (std::int16_t kind = 1; kind <= 8; ++kind) {
        Record().RoseType = kind;
        const bool isText = kind == kRoseWindSpeed;
        Expect(std::string("No appended ") + (isText ? "Speed" : "Length")
               + " data were found in this data set.\nThese data will only be plotted as "
                 "Frequency-Azimuth roses.");
        RosePlot();
        EXPECT_EQ(Record().RoseType, 0) << kind;
        EXPECT_EQ(ActiveRose().wedges.size(), 2U) << kind;
        EXPECT_EQ(TakeRoseFault(ActivePlot()), kNoRoseValues) << kind;
        EXPECT_EQ(TakeRoseFault(ActivePlot()), kNoRoseFault) << "it was taken";
    }
    RosePlot(); // says nothing any more
    EXPECT_EQ(TakeRoseFault(ActivePlot()), kNoRoseFault);
}

TEST_F(RosePlotTest, WithoutAColumnNamesWhatIsMissing) {
    AddRow(10, 5);
    AddRow(10, 95);

    struct Case {
        std::int16_t type;
        const char* name;
        int fault;
    };

    const std::vector<Case> cases = {
        {kRoseValue, "Length", kNoRoseValues},
        {kRoseMeanValue, "Length", kNoRoseValues},
        {kRoseVariance, "Length", kNoRoseValues},
        {kRoseWindSpeed, "Speed", kNoRoseValues},
        {kRoseWindEnergy, "Length", kNoRoseValues},
        {kRoseOverlaidWind, "Length", kNoRoseValues},
        {kRoseValueOverMean, "Length", kNoRoseValues},
        {10, "Length", kNoRoseLengths},
        {14, "Length", kNoRoseLengths},
        {20, "Speed", kNoRoseClasses},
        {12, "Length", kNoRoseValues},
    };
    for (const bool keepsLow : {false, true}) {
        Record().ClassTable[kBaseRow][kNumberClasses] =
            Record().ClassTable[kBaseRow][kTextNumberClasses] = std::int16_t{1};
        Record().ClassTable[kFlagRow][kNumberClasses] =
            Record().ClassTable[kFlagRow][kTextNumberClasses] =
                static_cast<std::int16_t>(keepsLow ? 1 : 0);
        for (const Case& test : cases) {
            Record().RoseType = test.type;
            Expect(std::string("No appended ") + test.name
                   + " data were found in this data set.\nThese data will only be plotted as "
                     "Frequency-Azimuth roses.");
            RosePlot();
            EXPECT_EQ(TakeRoseFault(ActivePlot()), test.fault) << test.type;
            EXPECT_EQ(Record().RoseType, 0) << test.type;
            EXPECT_EQ(ActiveRose().wedges.size(), 2U) << test.type;
        }
    }
}

TEST_F(RosePlotTest, OfWindEnergyNamesTheTextsWhenTheyAreMissing) {
    AddFourRows();
    Record().HasAppendedText = 0;
    for (const int row : {1, 2, 3, 4}) {
        gAppText.Set(gActivePlot, row, "");
    }
    Record().RoseType = kRoseWindEnergy;
    Expect("No appended Speed data were found in this data set.\nThese data");
    RosePlot();
    EXPECT_EQ(Record().RoseType, 0);
}

TEST_F(RosePlotTest, NamesTheLengthsWhenNoRowFallsInOne) {
    AddFourRows();
    Record().RoseType = 10;
    Record().ClassTable[kBaseRow][kNumberClasses] = std::int16_t{1};
    Record().ClassTable[kLowestRow][kNumberClasses] = 100.0;
    Record().ClassTable[kTopRow][kNumberClasses] = 200.0;
    Record().ClassTable[kFlagRow][kNumberClasses] = std::int16_t{0};
    Expect("No row of this data set falls in a class of Length.\n(Try checking your "
           "classification range settings)\nThese data will only be plotted as Frequency-Azimuth "
           "roses.");
    RosePlot();
    EXPECT_EQ(TakeRoseFault(ActivePlot()), kNoRoseLengths);
    EXPECT_EQ(ActiveRose().wedges.size(), 2U) << "never an empty rose";
}

TEST_F(RosePlotTest, NamesTheClassesWhenNoRowFallsInOne) {
    AddFourRows();
    Record().RoseType = 20;
    Record().ClassTable[kBaseRow][kTextNumberClasses] = std::int16_t{1};
    Record().ClassTable[kBaseRow][kNameClasses] = std::int16_t{0};
    Record().ClassTable[kLowestRow][kNameClasses] = std::string("nothing has this name");
    Record().ClassTable[kFlagRow][kTextNumberClasses] = std::int16_t{0};
    Expect("No row of this data set falls in a class of Speed.\n(Try checking your "
           "classification range settings)\nThese data will only be plotted as Frequency-Azimuth "
           "roses.");
    RosePlot();
    EXPECT_EQ(TakeRoseFault(ActivePlot()), kNoRoseClasses);
    EXPECT_EQ(Record().RoseType, 0);
}

TEST_F(RosePlotTest, LeavesDeviationsWithoutSpreadEmpty) {
    AddRows({{5, 2, ""}, {95, 5, ""}});
    Record().RoseType = kRoseVariance;
    RosePlot();
    EXPECT_EQ(Record().RoseType, kRoseVariance);
    EXPECT_TRUE(ActiveRose().wedges.empty());
    EXPECT_EQ(Record().RoseRangeA[kTopRoseLayer][kInPerCent], 0);
}

TEST_F(RosePlotTest, WarnsOnceAboutDelimiters) {
    AddRows({{5, kInvalidNumber, ""}, {15, kInvalidNumber, ""}, {95, 5, ""}});
    Record().RoseType = 10;
    Record().ClassifyCheckPending = kTrue;
    Record().ClassTable[kBaseRow][kNumberClasses] = std::int16_t{1};
    Record().ClassTable[kLowestRow][kNumberClasses] = 0.0;
    Record().ClassTable[kTopRow][kNumberClasses] = 10.0;
    Record().ClassTable[kFlagRow][kNumberClasses] = std::int16_t{0};
    Expect("of your Appended data contributed valid values");
    RosePlot();
    EXPECT_TRUE(gRoseClassWarned);
    EXPECT_EQ(Record().ClassifyCheckPending, 0);
    Record().ClassifyCheckPending = kTrue;
    RosePlot(); // no second time
}

TEST_F(RosePlotTest, DrawsNoRoseThatTheUserDoesNotWant) {
    AddFourRows();
    Record().RoseSectorSize = 7;
    Expect("odd sector size", Button::Cancel);
    RosePlot();
    EXPECT_TRUE(ActiveRose().wedges.empty());
    RosePlot(false); // does not ask again
    EXPECT_TRUE(ActiveRose().wedges.empty());
    Record().RoseSectorSize = 10;
    RosePlot(false);
    EXPECT_EQ(ActiveRose().wedges.size(), 2U);
}

TEST_F(RosePlotTest, SaysAndChangesNothingForPagesAndFiles) {
    AddFourRows();
    RosePlot();
    const int first = gActivePlot;
    NewRose();
    AddRows({{300, kInvalidNumber, ""}});
    Record().RoseType = kRoseValue;
    Record().RoseSectorSize = 7;
    WorkOutRoseUnseen(ActivePlot(), Formulas::Own); // neither the question nor the fault
    EXPECT_EQ(Record().RoseType, kRoseValue);
    EXPECT_EQ(Form(gActivePlot).Told(PlotBox::StatsNormal), "");
    gActivePlot = first;
    WorkOutRoseUnseen(ActivePlot(), Formulas::Own);
    EXPECT_EQ(ActiveRose().wedges.size(), 2U);
}

TEST_F(RosePlotTest, WaitsForItsCommandWhenPaintedAndIsCountedForAPage) {
    AddFourRows();
    RosePlot();
    AddRows({{200, 1, "1"}});
    Plot& plot = ActivePlot();
    RecordingSurface page(600, 600);
    const Drawing drawing{page, page, gSettings.styles, DrawnFor::Paper};
    WorkOutRose(plot, ReplotCause::Repaint, Formulas::Own);
    DrawRose(plot, drawing);
    EXPECT_TRUE(page.Operations().empty());
    WorkOutRoseUnseen(plot, Formulas::Own);
    DrawRose(plot, drawing);
    EXPECT_EQ(ActiveRose().wedges.size(), 3U);
    EXPECT_EQ(page.Operations().front().kind, DrawOperation::Kind::Wedge);
    EXPECT_NE(Record().RowsChanged, 0) << "the window has not shown them yet";
}

} // namespace quandrel
