// SPDX-License-Identifier: MIT
//
// Plots that use the decimals of their rows, and plots that do not.

#include "core/measured_rows.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "edit/commands/edit_menu.h"
#include "edit/history/undo.h"
#include "edit/marks/girdles.h"
#include "edit/rows/add_point.h"
#include "orientation/angles.h"
#include "session/recalculate.h"
#include "session/start.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class UseDecimalsTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gConventions = kDipDipDirection;
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kLines;
    }

    /// A plot of the line 47.3, 218.6 and of two lines in whole degrees.
    int NewPlotOfLines() {
        const int slot = NewPlot();
        AddRow(47, 219);
        AddRow(10, 20);
        AddRow(30, 100);
        EXPECT_TRUE(SetDecimals(ActivePlot().rows, RowAngles::Primary, 1, {47.3, 218.6}));
        ReplotActivePlot(true);
        return slot;
    }

    /// The plotted line of a row, degrees.
    static Attitude Plotted(int slot, std::int32_t row) {
        const RowTable& table = TableOf(slot);
        for (std::size_t i = 0; i < table.size(); ++i) {
            if (table.index[i] == row) {
                return {RadToDeg(table.plunge[i]), RadToDeg(table.trend[i])};
            }
        }
        return {kErrorRow, 0};
    }

    static void ExpectPlotted(int slot, std::int32_t row, const Attitude& line) {
        EXPECT_NEAR(Plotted(slot, row).dip, line.dip, 1e-6);
        EXPECT_NEAR(Plotted(slot, row).azimuth, line.azimuth, 1e-6);
    }
};

TEST_F(UseDecimalsTest, MovesTheRowsToWhereTheyWereMeasuredAndBack) {
    const int slot = NewPlotOfLines();
    ExpectPlotted(slot, 1, {47, 219});
    const RowTable before = TableOf(slot);
    UseDecimals(slot, true);
    EXPECT_EQ(RecordOf(slot).UseDecimals, kTrue);
    ExpectPlotted(slot, 1, {47.3, 218.6});
    ExpectPlotted(slot, 2, {10, 20});
    UseDecimals(slot, false);
    EXPECT_EQ(RecordOf(slot).UseDecimals, 0);
    EXPECT_EQ(TableOf(slot).index, before.index);
    EXPECT_EQ(TableOf(slot).x, before.x);
    EXPECT_EQ(TableOf(slot).y, before.y);
    EXPECT_EQ(TableOf(slot).plunge, before.plunge);
    EXPECT_EQ(TableOf(slot).trend, before.trend);
    EXPECT_EQ(gDataDip(slot, 1), 47);
    EXPECT_EQ(gDataAz(slot, 1), 219);
    EXPECT_TRUE(HasDecimals(PlotOf(slot).rows, 1)) << "nothing is lost";
}

TEST_F(UseDecimalsTest, ResultsAreRecomputedOnlyWhereItChangesSomething) {
    constexpr float kSpoilt = -7;
    const int slot = NewPlotOfLines();
    PlotRecord& record = RecordOf(slot);
    record.PointDensityMax = kSpoilt;
    UseDecimals(slot, true);
    EXPECT_NE(record.PointDensityMax, kSpoilt);
    EXPECT_EQ(record.RowsChanged, 0) << "the plot was drawn";
    record.PointDensityMax = kSpoilt;
    UseDecimals(slot, true);
    EXPECT_EQ(record.PointDensityMax, kSpoilt) << "it was on already";
    UseDecimals(slot, false);
    EXPECT_NE(record.PointDensityMax, kSpoilt);
}

TEST_F(UseDecimalsTest, IsAnotherViewThatNeedsNoSaveAndLeavesUndoAlone) {
    const int slot = NewPlotOfLines();
    ASSERT_TRUE(AddPointToPlot("50", "60"));
    ASSERT_TRUE(CanUndo());
    RecordOf(slot).Modified = 0;
    UseDecimals(slot, true);
    EXPECT_EQ(RecordOf(slot).Modified, 0);
    ASSERT_TRUE(CanUndo());
    UndoEdits();
    EXPECT_EQ(RecordOf(slot).NumData, 3);
    EXPECT_EQ(RecordOf(slot).UseDecimals, kTrue);
    ExpectPlotted(slot, 1, {47.3, 218.6});
}

TEST_F(UseDecimalsTest, ActsOnOnePlotWhicheverIsInFocus) {
    const int first = NewPlotOfLines();
    const int second = NewPlotOfLines();
    UseDecimals(first, true);
    EXPECT_EQ(gActivePlot, second);
    ExpectPlotted(first, 1, {47.3, 218.6});
    ExpectPlotted(second, 1, {47, 219});
    EXPECT_EQ(RecordOf(second).UseDecimals, 0);
}

TEST_F(UseDecimalsTest, GirdlesOfTheUserStayAsTheyAre) {
    const int slot = NewPlotOfLines();
    UpdateGirdle(3, "30/120");
    RecordOf(slot).Modified = 0;
    const auto girdle = RecordOf(slot).AxisItems[3];
    UseDecimals(slot, true);
    EXPECT_EQ(RecordOf(slot).AxisItems[3], girdle);
    EXPECT_EQ(GirdleText(3), "30/120");
    EXPECT_EQ(RecordOf(slot).Modified, 0);
}

TEST_F(UseDecimalsTest, DoesNothingWithoutAPlotOrWithinALongStep) {
    UseDecimals(0, true);
    UseDecimals(7, true);
    const int slot = NewPlotOfLines();
    gBusy = true;
    UseDecimals(slot, true);
    gBusy = false;
    EXPECT_EQ(RecordOf(slot).UseDecimals, 0);
    ExpectPlotted(slot, 1, {47, 219});
}

} // namespace
} // namespace quandrel
