// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/row_links.h"
#include "orientation/angles.h"
#include "support/allocated_memory.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class PlotStore : public EngineTest {
protected:
    /// Takes a row with an appended number and text into the active plot's range.
    static void TakeAppended(std::int32_t row, float number, const std::string& text) {
        int secondary = 0;
        GrowDataColumns(secondary, row);
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Text));
        gAppNumeric.At(gActivePlot, row) = number;
        gAppText.Set(gActivePlot, row, text);
        TrackAppendedRange(row);
    }
};

TEST_F(PlotStore, ReusesTheLowestFreeSlotFirst) {
    for (int slot = 1; slot <= 3; ++slot) {
        EXPECT_EQ(NewPlot(), slot);
    }
    ReleasePlotSlot(3);
    ReleasePlotSlot(1);
    EXPECT_EQ(FindFreePlotSlot(), 1);
    EXPECT_EQ(FindFreePlotSlot(), 3);
    EXPECT_EQ(FindFreePlotSlot(), 4);
}

TEST_F(PlotStore, RefusesASlotBeyondTheMaximumAndChangesNothing) {
    gMaxPlots = 2;
    NewPlot();
    NewPlot();
    EXPECT_EQ(FindFreePlotSlot(), -1);
    EXPECT_TRUE(gPlotTableFull);
    EXPECT_EQ(HighestSlot(), 2);
    ReleasePlotSlot(2);
    EXPECT_EQ(FindFreePlotSlot(), 2);
    EXPECT_FALSE(gPlotTableFull);
}

TEST_F(PlotStore, AReusedSlotInheritsNothing) {
    const int slot = NewPlot();
    PlotRecord& record = ActiveRecord();
    record.NumFiles = 3;
    record.FileNames[kFirstFile + 1] = "old.txt";
    record.AxesTitle = "P & T";
    record.RoseOddSectorSize = 3;
    record.OverlayRows = {2, 5, 7};
    record.DistinctValues[0][kOfTexts] = std::string("slate");
    PlotOf(slot).rows.errorLines[4] = "old line";
    AppendRow(TableOf(slot), {1, 2, 3, 0.1, 0.2});
    int secondary = 0;
    GrowDataColumns(secondary, 5);
    gDataDip.At(slot, 5) = 45;
    ReleasePlotSlot(slot);
    EXPECT_EQ(NewPlot(), slot);
    const PlotRecord& fresh = RecordOf(slot);
    EXPECT_EQ(fresh.NumFiles, 0);
    EXPECT_EQ(fresh.FileNames[kFirstFile + 1], "");
    EXPECT_EQ(fresh.AxesTitle, "");
    EXPECT_EQ(fresh.RoseOddSectorSize, 0);
    EXPECT_EQ(fresh.OverlayRows[1], 0);
    EXPECT_TRUE(IsEmpty(fresh.DistinctValues[0][kOfTexts]));
    EXPECT_TRUE(PlotOf(slot).rows.errorLines.empty());
    EXPECT_EQ(TableOf(slot).size(), 0U);
    EXPECT_EQ(gDataDip(slot, 5), 0);
}

TEST_F(PlotStore, FindsTheOpenPlotWithAnAttachedValue) {
    struct Value {};

    NewPlot();
    const int slot = NewPlot();
    NewPlot();
    EXPECT_EQ(SlotWith<Value>(), 0);
    PlotOf(slot).attachments.Of<Value>() = {};
    EXPECT_EQ(SlotWith<Value>(), slot);
    EXPECT_EQ(SlotWith<int>(), 0);
    ReleasePlotSlot(slot);
    EXPECT_EQ(SlotWith<Value>(), 0);
}

TEST_F(PlotStore, ANewPlotStartsWithTheToldValues) {
    gFileAppNumName = "thickness";
    gRoseSectorSize = 15;
    NewPlot();
    const PlotRecord& record = ActiveRecord();
    EXPECT_EQ(record.PlotSymbolMode, kPointSymbols);
    EXPECT_EQ(record.AppNumName, "thickness");
    EXPECT_EQ(record.ClassWidth, -999999999999999.0);
    EXPECT_EQ(NumberOf(record.ClassTable[kTopRow][kNumberClasses]), 999999);
    EXPECT_EQ(NumberOf(record.ClassTable[kFlagRow][kNumberClasses]), 1);
    EXPECT_EQ(record.RoseSectorSize, 15);
    EXPECT_EQ(record.RoseDisplay6, -1);
    EXPECT_EQ(record.RoseDisplay8, 0);
    EXPECT_EQ(record.RoseMinBiasAngle, 5);
    EXPECT_EQ(record.RoseScaleType, "tickauto");
    const std::array<std::int16_t, 6> layers = {0, -1, -1, -1, -1, -1};
    EXPECT_EQ(record.LayerVisible, layers);
    ASSERT_NE(record.PlotSmallCircles, nullptr);
    EXPECT_EQ(record.PlotSmallCircles->size(), 5U);
    for (const auto& item : record.AxisItems) {
        EXPECT_EQ(NumberOf(item[kItemShown]), 0);
        EXPECT_EQ(TextOf(item[kItemText]), "");
    }
    EXPECT_EQ(Form(gActivePlot).Caption(), "1");
}

TEST_F(PlotStore, StartsWithoutFocusAndSelection) {
    gActivePlot = NewPlot();
    Selection::now.rows = {1, 2};
    Selection::now.slot = gActivePlot;
    gActiveLayer = kAnnotationLayer;
    gBusy = true;
    MakeStoreTables();
    EXPECT_EQ(gActivePlot, 0);
    EXPECT_EQ(Selection::now.slot, 0);
    EXPECT_TRUE(gSelectionRows.empty());
    EXPECT_EQ(gActiveLayer, kDataLayer);
    EXPECT_FALSE(gBusy);
}

TEST_F(PlotStore, TellsOfAPlotThatClosesWhileItIsOpen) {
    const int slot = NewPlot();
    std::vector<int> closing;
    ConnectClosing([&](int closed) {
        EXPECT_TRUE(IsOpenSlot(closed));
        closing.push_back(closed);
    });
    ReleasePlotSlot(slot);
    ConnectClosing({});
    ReleasePlotSlot(slot);
    EXPECT_EQ(closing, std::vector<int>{slot});
}

TEST_F(PlotStore, RowsThatNobodyFollowsGoUnnoticed) {
    ConnectRowFollower({});
    const RowFollower& nobody = FollowerOfRows();
    const std::vector<std::int32_t> rows = {1};
    nobody.leave(1, rows);
    nobody.cut(1, 0);
    nobody.putBack(1, nullptr);
    nobody.unlink(1);
    nobody.linkAgain(1, nullptr);
    EXPECT_EQ(nobody.keep(1), nullptr);
    EXPECT_EQ(nobody.linkedTable(1), "");
}

TEST_F(PlotStore, TheStatisticsButtonDecidesWhetherANewPlotShowsThem) {
    gSettings.newPlots.statisticsShown = false;
    NewPlot();
    EXPECT_EQ(ActiveRecord().LayerVisible[5], 0);
}

long AllocatedMegabytes() {
    return static_cast<long>(AllocatedBytes() >> 20U);
}

TEST_F(PlotStore, AClosedPlotGivesItsMemoryBack) {
    NewPlot();
    const long before = AllocatedMegabytes();
    const int slot = NewPlot();
    constexpr std::int32_t kRows = 1000000;
    int secondary = 0;
    GrowDataColumns(secondary, kRows);
    for (std::int32_t row = 1; row <= kRows; ++row) {
        AppendRow(TableOf(slot), {row, 1, 2, 0.5, 0.25});
    }
    PlotOf(slot).rows.errorLines[7] = "a line";
    EXPECT_GT(AllocatedMegabytes() - before, 40);
    ReleasePlotSlot(slot);
    EXPECT_LT(AllocatedMegabytes() - before, 5);
    EXPECT_EQ(TableOf(slot).size(), 0U);
    EXPECT_TRUE(PlotOf(slot).rows.errorLines.empty());
}

TEST_F(PlotStore, ADirectionsDefaultMakesTheNewPlotARose) {
    for (const std::int16_t format : {std::int16_t{0}, std::int16_t{1}}) {
        gPrimaryDataType = format;
        NewPlot();
        EXPECT_EQ(ActiveRecord().PlotKind, kRose);
        EXPECT_EQ(gPlotKind, kEqualArea);
    }
}

TEST_F(PlotStore, SecondaryColumnsStayShortUntilARowNeedsThem) {
    NewPlot();
    int secondary = 0;
    GrowDataColumns(secondary, 100);
    EXPECT_EQ(secondary, 0);
    EXPECT_EQ(gDataDip.Capacity(), 100);
    EXPECT_EQ(gData2Dip.Capacity(), 0);
    secondary = 1;
    GrowDataColumns(secondary, 120);
    EXPECT_EQ(secondary, 0);
    EXPECT_EQ(gData2Dip.Capacity(), 120);
}

TEST_F(PlotStore, GrowingByOneKeepsContents) {
    NewPlot();
    for (std::int32_t row = 1; row <= 50; ++row) {
        int secondary = 0;
        GrowDataColumns(secondary);
        gDataAz.At(gActivePlot, row) = 3 * row;
    }
    EXPECT_EQ(gDataAz.Capacity(), 50);
    EXPECT_EQ(gDataAz(gActivePlot, 17), 51);
}

TEST_F(PlotStore, OutOfMemoryIsReportedAndNothingChanges) {
    NewPlot();
    int secondary = 0;
    GrowDataColumns(secondary, 10);
    gPlatform.mostRows = 20;
    secondary = 1;
    GrowDataColumns(secondary, 21);
    gPlatform.mostRows = std::numeric_limits<std::int32_t>::max() / 2;
    EXPECT_EQ(secondary, -1);
    EXPECT_NE(ActiveRecord().DataFull, 0);
    EXPECT_EQ(gDataDip.Capacity(), 10);
}

TEST_F(PlotStore, CellsOfOtherPlotsReadAsDefaultWithinTheSharedCapacity) {
    NewPlot();
    const int second = NewPlot();
    int secondary = 0;
    GrowDataColumns(secondary, 1000);
    gDataDip.At(second, 1000) = 7;
    EXPECT_EQ(gDataDip(1, 1000), 0);
    EXPECT_EQ(gDataDip(second, 1000), 7);
}

TEST_F(PlotStore, RemembersElevenDistinctValuesAndNotATwelfth) {
    NewPlot();
    ActiveRecord().HasAppendedNumeric = kTrue;
    ActiveRecord().HasAppendedText = kTrue;
    for (std::int32_t row = 1; row <= 12; ++row) {
        TakeAppended(row, static_cast<float>(row), "unit " + std::to_string(row));
    }
    const PlotRecord& record = ActiveRecord();
    EXPECT_EQ(NumberOf(record.DistinctValues[10][kOfNumbers]), 11);
    EXPECT_EQ(TextOf(record.DistinctValues[10][kOfTexts]), "unit 11");
    EXPECT_EQ(record.AppendedMax[kOfNumbers], 12);
}

TEST_F(PlotStore, ATextOfDigitsWidensTheTextRangeOnly) {
    NewPlot();
    ActiveRecord().HasAppendedText = kTrue;
    TakeAppended(1, 99, "2.5");
    const PlotRecord& record = ActiveRecord();
    EXPECT_EQ(TextOf(record.DistinctValues[0][kOfTexts]), "2.5");
    EXPECT_EQ(record.AppendedMin[kOfTexts], 2.5);
    EXPECT_EQ(record.AppendedMax[kOfTexts], 2.5);
    EXPECT_EQ(record.AppendedMin[kOfNumbers], 999999999999999.0);
    EXPECT_TRUE(IsEmpty(record.DistinctValues[0][kOfNumbers]));
}

TEST_F(PlotStore, DistinctTextsAreKeptAsTypedAndComparedWithoutCase) {
    NewPlot();
    ActiveRecord().HasAppendedText = kTrue;
    TakeAppended(1, 0, "Slate");
    TakeAppended(2, 0, "SLATE");
    TakeAppended(3, 0, "Schist");
    EXPECT_EQ(TextOf(ActiveRecord().DistinctValues[0][kOfTexts]), "Slate");
    EXPECT_EQ(TextOf(ActiveRecord().DistinctValues[1][kOfTexts]), "Schist");
    EXPECT_TRUE(IsEmpty(ActiveRecord().DistinctValues[2][kOfTexts]));
}

TEST_F(PlotStore, InvalidAppendedValuesAreNotTracked) {
    NewPlot();
    ActiveRecord().HasAppendedNumeric = kTrue;
    ActiveRecord().HasAppendedText = kTrue;
    TakeAppended(1, kInvalidNumber, "");
    EXPECT_TRUE(IsEmpty(ActiveRecord().DistinctValues[0][kOfNumbers]));
    EXPECT_TRUE(IsEmpty(ActiveRecord().DistinctValues[0][kOfTexts]));
}

} // namespace
} // namespace quandrel
