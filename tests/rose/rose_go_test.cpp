// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/replot.h"
#include "rose/rose_go.h"
#include "rose/rose_plot.h"
#include "rose/rose_scale.h"
#include "rose/rose_wedges.h"
#include "stereo/axis_rows.h"
#include "stereo/row_positions.h"
#include "support/drawing_requests.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace quandrel {

class RoseGoTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPlotKind = kRose;
        NewPlot();
        Record().DataKind = kLines;
        Record().PrimaryFormat = kPrimaryLine;
        for (const int azimuth : {12, 15, 33, 35, 38, 120}) {
            AddRow(10, azimuth);
        }
    }

    void TearDown() override {
        gPlotKind = kEqualArea;
        EngineTest::TearDown();
    }

    static PlotRecord& Record() { return ActiveRecord(); }

    /// Gives each row the length 1, in the only class.
    static void AddLengths() {
        PlotRecord& record = Record();
        record.HasAppendedNumeric = kTrue;
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
        for (std::int32_t row = 1; row <= record.NumData; ++row) {
            gAppNumeric.At(gActivePlot, row) = 1;
        }
        record.ClassTable[kBaseRow][kNumberClasses] = std::int16_t{1};
        record.ClassTable[kLowestRow][kNumberClasses] = 0.0;
        record.ClassTable[kTopRow][kNumberClasses] = 10.0;
    }

    DrawingRequests requests;
};

TEST_F(RoseGoTest, ReadsBackWhatItWrote) {
    AddLengths();
    RoseSettings rose;
    rose.kind = kRoseFrequency;
    rose.classes = kRoseByLength;
    rose.shape = 3;
    rose.equalArea = true;
    rose.sectorSize = 360.0 / 7; // in full
    rose.startAngle = 12.5;
    rose.sectorFraction = 80;
    rose.zeroCircle = 25;
    rose.histStyle = 2;
    rose.segShape = 1;
    rose.circles = true;
    rose.interval = 2.5;
    rose.outerCircle = false;
    rose.biasMode = 2;
    rose.samplePlunge = 30;
    rose.sampleTrend = 270;
    rose.minBiasAngle = 7;
    EXPECT_EQ(ApplyRoseSettings(rose).verdict, RoseVerdict::Done);
    const PlotRecord& record = Record();
    EXPECT_EQ(record.RoseType, 10);
    EXPECT_EQ(record.RoseShape, 3);
    EXPECT_EQ(record.RoseEqualArea, kTrue);
    EXPECT_EQ(record.RoseSectorSize, 360.0 / 7);
    EXPECT_EQ(record.RoseScaleType, "circ2.5");
    EXPECT_EQ(record.RoseHistStyle, 2);
    EXPECT_EQ(record.Modified, kTrue);
    EXPECT_EQ(requests.Causes(), std::vector<ReplotCause>{ReplotCause::Rows});
    const RoseSettings read = RoseSettingsOf(ActiveRecord());
    EXPECT_EQ(read.kind, rose.kind);
    EXPECT_EQ(read.classes, rose.classes);
    EXPECT_EQ(read.shape, rose.shape);
    EXPECT_EQ(read.equalArea, rose.equalArea);
    EXPECT_EQ(read.sectorSize, rose.sectorSize);
    EXPECT_EQ(read.startAngle, rose.startAngle);
    EXPECT_EQ(read.sectorFraction, rose.sectorFraction);
    EXPECT_EQ(read.zeroCircle, rose.zeroCircle);
    EXPECT_EQ(read.histStyle, rose.histStyle);
    EXPECT_EQ(read.segShape, rose.segShape);
    EXPECT_EQ(read.circles, rose.circles);
    EXPECT_EQ(read.interval, rose.interval);
    EXPECT_EQ(read.outerCircle, rose.outerCircle);
    EXPECT_EQ(read.biasMode, rose.biasMode);
    EXPECT_EQ(read.ownLines, rose.ownLines);
    EXPECT_EQ(read.samplePlunge, rose.samplePlunge);
    EXPECT_EQ(read.sampleTrend, rose.sampleTrend);
    EXPECT_EQ(read.minBiasAngle, rose.minBiasAngle);
}

TEST_F(RoseGoTest, RefusesShorteningAndExtensionAxesTogether) {
    Record().PlotKind = kEqualArea;
    Record().AxesTitle = kBothAxes;
    const RoseOutcome outcome = ApplyRoseSettings({});
    ASSERT_EQ(outcome.verdict, RoseVerdict::Refused);
    EXPECT_EQ(outcome.refusal->reason, kMixedRoseRefusal);
    EXPECT_EQ(Record().PlotKind, kEqualArea);
    Record().AxesTitle = kShorteningAxes;
    EXPECT_EQ(ApplyRoseSettings({}).verdict, RoseVerdict::Done);
    EXPECT_EQ(Record().PlotKind, kRose);
}

TEST_F(RoseGoTest, MakesSizeWidthAndScaleTheDefaults) {
    RoseSettings rose;
    rose.sectorSize = 15;
    rose.sectorFraction = 70;
    rose.circles = true;
    rose.outerCircle = false;
    EXPECT_EQ(ApplyRoseSettings(rose).verdict, RoseVerdict::Done);
    EXPECT_EQ(gRoseSectorSize, 15);
    EXPECT_EQ(gRoseSectorFraction, 70);
    EXPECT_EQ(gSettings.newPlots.rose.scaleType, "circauto");
    EXPECT_FALSE(gRoseOuterCircle);
}

TEST_F(RoseGoTest, LeavesAutoInThePlot) {
    EXPECT_EQ(ApplyRoseSettings({}).verdict, RoseVerdict::Done);
    EXPECT_EQ(RoseScaleInterval(Record()), 10) << "three of six in one sector: 50 %";
    EXPECT_EQ(Record().RoseScaleType, "tickauto");
    EXPECT_FALSE(RoseSettingsOf(ActiveRecord()).interval);
    EXPECT_EQ(ApplyRoseSettings(RoseSettingsOf(ActiveRecord())).verdict, RoseVerdict::Done);
    EXPECT_EQ(Record().RoseScaleType, "tickauto");
    EXPECT_EQ(gSettings.newPlots.rose.scaleType, "tickauto");
    RoseSettings rose = RoseSettingsOf(ActiveRecord());
    rose.interval = 10;
    EXPECT_EQ(ApplyRoseSettings(rose).verdict, RoseVerdict::Done);
    EXPECT_EQ(Record().RoseScaleType, "tick10");
    EXPECT_EQ(gSettings.newPlots.rose.scaleType, "tick10") << "typed";
}

TEST_F(RoseGoTest, MakesNoDefaultOfAnIntervalThatThePlotHad) {
    gSettings.newPlots.rose.scaleType = "tickauto";
    Record().RoseScaleType = "tick4"; // of an older file
    RoseSettings rose = RoseSettingsOf(ActiveRecord());
    rose.sectorFraction = 60;
    EXPECT_EQ(ApplyRoseSettings(rose).verdict, RoseVerdict::Done);
    EXPECT_EQ(Record().RoseScaleType, "tick4");
    EXPECT_EQ(gSettings.newPlots.rose.scaleType, "tickauto");
    rose.circles = true;
    EXPECT_EQ(ApplyRoseSettings(rose).verdict, RoseVerdict::Done);
    EXPECT_EQ(Record().RoseScaleType, "circ4");
    EXPECT_EQ(gSettings.newPlots.rose.scaleType, "circauto")
        << "the form was chosen, the number was not";
    rose.interval = 3;
    EXPECT_EQ(ApplyRoseSettings(rose).verdict, RoseVerdict::Done);
    EXPECT_EQ(gSettings.newPlots.rose.scaleType, "circ3");
}

TEST_F(RoseGoTest, MakesARoseOfAStereoPlot) {
    Record().PlotKind = kEqualAngle;
    EXPECT_EQ(ApplyRoseSettings({}).verdict, RoseVerdict::Done);
    EXPECT_EQ(Record().PlotKind, kRose);
    EXPECT_EQ(requests.Causes().size(), 1U);
}

TEST_F(RoseGoTest, ForgetsTheSmallerSectorOfTheLastSize) {
    Record().RoseOddSectorSize = 3;
    EXPECT_EQ(ApplyRoseSettings({}).verdict, RoseVerdict::Done);
    EXPECT_EQ(Record().RoseOddSectorSize, 0);
}

TEST_F(RoseGoTest, AsksAboutASmallerSectorAtEachGo) {
    RoseSettings rose;
    rose.sectorSize = 7;
    Expect("odd sector size");
    EXPECT_EQ(ApplyRoseSettings(rose).verdict, RoseVerdict::Done);
    EXPECT_EQ(Record().RoseOddSectorSize, 3);
    Expect("odd sector size");
    EXPECT_EQ(ApplyRoseSettings(rose).verdict, RoseVerdict::Done);
}

TEST_F(RoseGoTest, LeavesClassesOutOfMeansAndDeviations) {
    Record().HasAppendedNumeric = kTrue;
    ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
    for (std::int32_t row = 1; row <= Record().NumData; ++row) {
        gAppNumeric.At(gActivePlot, row) = static_cast<float>(row);
    }
    RoseSettings rose;
    rose.kind = kRoseMeanValue;
    rose.classes = kRoseByType;
    EXPECT_EQ(ApplyRoseSettings(rose).verdict, RoseVerdict::Done);
    EXPECT_EQ(Record().RoseType, kRoseMeanValue);
}

TEST_F(RoseGoTest, WritesAClassTableWhenItIsGivenOne) {
    RoseSettings rose;
    Record().ClassTable[kLowestRow][kNumberClasses] = 5.0;
    EXPECT_EQ(ApplyRoseSettings(rose).verdict, RoseVerdict::Done);
    EXPECT_EQ(NumberOf(Record().ClassTable[kLowestRow][kNumberClasses]), 5);
    rose.table = Record().ClassTable;
    (*rose.table)[1][0] = 6.0;
    EXPECT_EQ(ApplyRoseSettings(rose).verdict, RoseVerdict::Done);
    EXPECT_EQ(NumberOf(Record().ClassTable[kLowestRow][kNumberClasses]), 6);
}

TEST_F(RoseGoTest, WritesOwnLinesAsAMark) {
    Record().HasAppendedLine = kTrue;
    ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Line));
    RoseSettings rose;
    rose.biasMode = 1;
    rose.ownLines = true;
    EXPECT_EQ(ApplyRoseSettings(rose).verdict, RoseVerdict::Done);
    EXPECT_EQ(Record().RoseSamplePlunge, -9999);
    EXPECT_TRUE(RoseSettingsOf(ActiveRecord()).ownLines);
}

TEST_F(RoseGoTest, RefusesWhatCannotBeDrawn) {
    struct Case {
        std::function<void(RoseSettings&)> change;
        RoseField field;
    };

    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::vector<Case> cases = {
        {[](RoseSettings& s) { s.sectorSize = 0.99; }, RoseField::SectorSize},
        {[](RoseSettings& s) { s.sectorSize = 360.01; }, RoseField::SectorSize},
        {[nan](RoseSettings& s) { s.sectorSize = nan; }, RoseField::SectorSize},
        {[](RoseSettings& s) { s.startAngle = -1; }, RoseField::StartAngle},
        {[](RoseSettings& s) { s.startAngle = 361; }, RoseField::StartAngle},
        {[](RoseSettings& s) { s.sectorFraction = 0; }, RoseField::SectorFraction},
        {[](RoseSettings& s) { s.sectorFraction = 101; }, RoseField::SectorFraction},
        {[](RoseSettings& s) { s.zeroCircle = -1; }, RoseField::ZeroCircle},
        {[](RoseSettings& s) { s.zeroCircle = 91; }, RoseField::ZeroCircle},
        {[](RoseSettings& s) { s.interval = -1; }, RoseField::ScaleInterval},
        {[nan](RoseSettings& s) { s.interval = nan; }, RoseField::ScaleInterval},
        {[](RoseSettings& s) { s.samplePlunge = -5; }, RoseField::SamplePlunge},
        {[](RoseSettings& s) { s.samplePlunge = 91; }, RoseField::SamplePlunge},
        {[](RoseSettings& s) { s.sampleTrend = 361; }, RoseField::SampleTrend},
        {[](RoseSettings& s) { s.minBiasAngle = 0; }, RoseField::MinBiasAngle},
        {[](RoseSettings& s) { s.biasMode = 4; }, RoseField::BiasMode},
        {[](RoseSettings& s) { s.kind = 9; }, RoseField::Kind},
        {[](RoseSettings& s) { s.classes = 3; }, RoseField::Classes},
        {[](RoseSettings& s) { s.shape = 5; }, RoseField::Shape},
        {[](RoseSettings& s) {
             s.biasMode = 1;
             s.ownLines = true;
         },
         RoseField::OwnLines},
    };
    for (const Case& c : cases) {
        RoseSettings rose;
        c.change(rose);
        const RoseOutcome outcome = ApplyRoseSettings(rose);
        EXPECT_EQ(outcome.verdict, RoseVerdict::Refused);
        const auto refusal = outcome.refusal;
        ASSERT_TRUE(refusal) << static_cast<int>(c.field);
        EXPECT_EQ(refusal->field, c.field);
        EXPECT_FALSE(refusal->reason.empty());
    }
    EXPECT_TRUE(requests.Causes().empty());
    EXPECT_EQ(Record().Modified, 0);
}

TEST_F(RoseGoTest, ARoseWithItsSettingsAsTheyWereChangesNothingThatIsToBeSaved) {
    Record().Modified = 0;
    RoseSettings rose = RoseSettingsOf(ActiveRecord());
    EXPECT_EQ(ApplyRoseSettings(rose).verdict, RoseVerdict::Done);
    EXPECT_EQ(Record().PlotKind, kRose);
    EXPECT_EQ(Record().Modified, 0);
    rose.sectorSize = 20;
    EXPECT_EQ(ApplyRoseSettings(rose).verdict, RoseVerdict::Done);
    EXPECT_EQ(Record().Modified, kTrue) << "settings of a rose are its style";
}

TEST_F(RoseGoTest, AcceptsTheEndsOfEachRange) {
    for (const double size : {1.0, 360.0}) {
        RoseSettings rose;
        rose.sectorSize = size;
        rose.sectorFraction = size == 1 ? 1 : 100;
        rose.zeroCircle = size == 1 ? 0 : 90;
        rose.startAngle = size == 1 ? 0 : 360;
        rose.samplePlunge = size == 1 ? 0 : 90;
        rose.minBiasAngle = size == 1 ? 1 : 90;
        EXPECT_FALSE(CheckRoseSettings(ActivePlot(), rose)) << size;
    }
}

TEST_F(RoseGoTest, RefusesAnIntervalOfTooManyMarks) {
    RoseSettings rose; // three of six lines in one sector: 50 %
    rose.interval = 0.49;
    ASSERT_TRUE(CheckRoseSettings(ActivePlot(), rose));
    EXPECT_EQ(CheckRoseSettings(ActivePlot(), rose)->field, RoseField::ScaleInterval);
    rose.interval = 0.5;
    EXPECT_FALSE(CheckRoseSettings(ActivePlot(), rose));
    rose.interval = 0; // leaves it to the drawing
    EXPECT_FALSE(CheckRoseSettings(ActivePlot(), rose));
}

TEST_F(RoseGoTest, JudgesTheIntervalByTheRoseAskedFor) {
    RoseSettings whole;
    whole.sectorSize = 360; // all six in one sector: 100 %
    RoseSettings fine;
    fine.sectorSize = 10;
    EXPECT_EQ(ApplyRoseSettings(whole).verdict, RoseVerdict::Done);
    EXPECT_EQ(Record().RoseRangeB[kTopRoseLayer][kInPerCent], 100);
    fine.interval = 0.5;
    EXPECT_EQ(ApplyRoseSettings(fine).verdict, RoseVerdict::Done);
    EXPECT_EQ(Record().RoseRangeB[kTopRoseLayer][kInPerCent], 50);
    EXPECT_EQ(Record().RoseScaleType, "tick0.5");
    whole.interval = 0.5;
    const RoseOutcome outcome = ApplyRoseSettings(whole);
    ASSERT_TRUE(outcome.refusal);
    EXPECT_EQ(outcome.refusal->field, RoseField::ScaleInterval);
    EXPECT_EQ(Record().RoseSectorSize, 10);
}

TEST_F(RoseGoTest, JudgesTheIntervalByTheFrequenciesThatAFaultLeaves) {
    RoseSettings rose;
    rose.kind = kRoseValue; // there are no values
    rose.interval = 0.49;
    EXPECT_TRUE(CheckRoseSettings(ActivePlot(), rose));
    rose.interval = 0.5;
    EXPECT_FALSE(CheckRoseSettings(ActivePlot(), rose));
    EXPECT_TRUE(prompts.Shown().empty());
}

/// Everything that a Go may change besides the tables.
struct RoseTraces {
    std::string fields;
    double sectorSize = gRoseSectorSize;
    int fraction = gRoseSectorFraction;
    std::string scale = gSettings.newPlots.rose.scaleType;
    bool outerCircle = gRoseOuterCircle;

    friend bool operator==(const RoseTraces&, const RoseTraces&) = default;
};

RoseTraces TracesOf(const PlotRecord& record) {
    RoseTraces traces;
    for (const double field :
         {double(record.PlotKind), double(record.Modified), double(record.RoseType),
          double(record.RoseShape), double(record.RoseEqualArea), record.RoseSectorSize,
          record.RoseOddSectorSize, record.RoseStartAngle, double(record.RoseSectorFraction),
          double(record.RoseZeroCircle), double(record.RoseSegShape), double(record.RoseHistStyle),
          double(record.RoseBiasMode), double(record.RoseSamplePlunge),
          double(record.RoseMinBiasAngle), double(record.RowsChanged),
          record.RoseRangeA[kTopRoseLayer][kInPerCent],
          NumberOf(record.ClassTable[kLowestRow][kNumberClasses])}) {
        traces.fields += std::to_string(field) + ' ';
    }
    traces.fields += record.RoseScaleType;
    return traces;
}

RoseSettings UnwantedRose() {
    RoseSettings rose;
    rose.sectorSize = 7;
    rose.kind = kRoseFrequency;
    rose.classes = kRoseByLength;
    rose.table = ActiveRecord().ClassTable;
    (*rose.table)[1][0] = 77.0;
    rose.shape = 2;
    rose.equalArea = true;
    rose.startAngle = 5;
    rose.sectorFraction = 60;
    rose.zeroCircle = 30;
    rose.segShape = 1;
    rose.histStyle = 2;
    rose.circles = true;
    rose.interval = 3;
    rose.outerCircle = !gRoseOuterCircle;
    rose.biasMode = 2;
    rose.samplePlunge = 12;
    rose.minBiasAngle = 8;
    return rose;
}

TEST_F(RoseGoTest, LeavesNoTraceWhenTheSizeIsNotWanted) {
    AddLengths();
    EXPECT_EQ(ApplyRoseSettings({}).verdict, RoseVerdict::Done);
    Record().Modified = 0;
    const RoseTraces before = TracesOf(Record());
    const std::vector<RoseWedge> petals = ActiveRose().wedges;
    Expect("odd sector size", Button::Cancel);
    EXPECT_EQ(ApplyRoseSettings(UnwantedRose()).verdict, RoseVerdict::Cancelled);
    EXPECT_EQ(TracesOf(Record()), before);
    EXPECT_EQ(ActiveRose().wedges.size(), petals.size());
    EXPECT_EQ(requests.Causes().size(), 1U);
    Expect("odd sector size");
    EXPECT_EQ(ApplyRoseSettings(UnwantedRose()).verdict, RoseVerdict::Done);
    EXPECT_NE(TracesOf(Record()), before);
    EXPECT_EQ(Record().Modified, kTrue);
}

TEST_F(RoseGoTest, LeavesAStereoPlotWhenTheSizeIsNotWanted) {
    Record().PlotKind = kEqualAngle;
    RebuildRowTable(gActivePlot);
    Record().RowsChanged = 0;
    const RoseTraces before = TracesOf(Record());
    const std::vector<double> plunges = TableOf(gActivePlot).plunge;
    const std::uint64_t version = TableOf(gActivePlot).version;
    Expect("odd sector size", Button::Cancel);
    EXPECT_EQ(ApplyRoseSettings(UnwantedRose()).verdict, RoseVerdict::Cancelled);
    EXPECT_EQ(TracesOf(Record()), before);
    EXPECT_EQ(TableOf(gActivePlot).plunge, plunges);
    EXPECT_EQ(TableOf(gActivePlot).version, version);
    EXPECT_TRUE(requests.Causes().empty());
}

TEST_F(RoseGoTest, KeepsTheOldRoseWhenTheSizeIsNotWanted) {
    EXPECT_EQ(ApplyRoseSettings({}).verdict, RoseVerdict::Done);
    const auto before = gRoseSectors->Sectors();
    RoseSettings rose;
    rose.sectorSize = 7;
    rose.shape = 2;
    rose.startAngle = 5;
    Expect("odd sector size", Button::Cancel);
    EXPECT_EQ(ApplyRoseSettings(rose).verdict, RoseVerdict::Cancelled);
    EXPECT_EQ(gRoseSectors->Sectors(), before);
    EXPECT_EQ(Record().RoseSectorSize, 10);
    EXPECT_EQ(Record().RoseShape, 0);
    EXPECT_EQ(Record().RoseStartAngle, 0);
    RosePlot(false); // nothing is asked
    EXPECT_EQ(gRoseSectors->Sectors(), before);
}

TEST(CorrectedBiasValue, IsTheNearestThatCounts) {
    EXPECT_EQ(CorrectedBiasValue(BiasBox::Plunge, 95), 90);
    EXPECT_EQ(CorrectedBiasValue(BiasBox::Plunge, -3), 0);
    EXPECT_EQ(CorrectedBiasValue(BiasBox::Plunge, 45), 45);
    EXPECT_EQ(CorrectedBiasValue(BiasBox::Trend, 400), 360);
    EXPECT_EQ(CorrectedBiasValue(BiasBox::Trend, 359), 359);
    EXPECT_EQ(CorrectedBiasValue(BiasBox::MinAngle, 0), 1);
    EXPECT_EQ(CorrectedBiasValue(BiasBox::MinAngle, 5), 5);
}

TEST_F(RoseGoTest, ReadsBoxesByTheRegionalDelimiter) {
    EXPECT_EQ(NumberOfRoseBox(""), 0);
    EXPECT_EQ(NumberOfRoseBox("  "), 0);
    EXPECT_EQ(NumberOfRoseBox("7.5"), 7.5);
    EXPECT_EQ(NumberOfRoseBox("ten"), std::nullopt);
    gDecimalIsComma = true;
    EXPECT_EQ(NumberOfRoseBox("7,5"), 7.5);
    gDecimalIsComma = false;
}

TEST(SizeOfSectors, IsKeptInFull) {
    EXPECT_EQ(SizeOfSectors(7), 360.0 / 7);
    EXPECT_TRUE(DividesCircle(SizeOfSectors(7)));
    EXPECT_TRUE(DividesCircle(7.2));
    EXPECT_FALSE(DividesCircle(7));
}

} // namespace quandrel
