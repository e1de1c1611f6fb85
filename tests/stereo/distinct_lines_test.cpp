// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "orientation/angles.h"
#include "stereo/distinct_lines.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"
#include "support/trial.h"

#include <random>

namespace quandrel {
namespace {

class DistinctLines : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kPolarLines;
        NewPlot();
    }
};

TEST_F(DistinctLines, EveryWholeDegreeLineHasItsOwnNumber) {
    for (int plunge = -90; plunge <= 90; ++plunge) {
        for (int trend = 0; trend <= 360; ++trend) {
            const int key = LineKeyOfDegrees(plunge, trend);
            ASSERT_GE(key, 0);
            ASSERT_LT(key, kLineKeys);
            ASSERT_EQ(LineKey(DegToRad(plunge), DegToRad(trend)), key) << plunge << " " << trend;
        }
    }
}

TEST_F(DistinctLines, RowsOfOneLineAreOne) {
    AddRow(30, 120);
    AddRow(-30, 120);
    AddRow(30, 120);
    AddRow(kErrorRow, 0);
    AddRow(0, 0);
    const std::vector<DistinctLine> expected = {{-30, 120, 1}, {0, 0, 1}, {30, 120, 2}};
    EXPECT_EQ(DistinctLinesOf(TableOf(gActivePlot), ActiveRecord().NumData), expected);
}

TEST_F(DistinctLines, OverlaysTakeNoPart) {
    AddRow(30, 120);
    AddOverlay(kOverlayLines, 40, 10, CodeOfStyleRow(2));
    EXPECT_EQ(DistinctLinesOf(TableOf(gActivePlot), ActiveRecord().NumData),
              (std::vector<DistinctLine>{{30, 120, 1}}));
}

TEST_F(DistinctLines, CountsAddUpToTheRows) {
    std::mt19937 random(7);
    for (int i = 0; i < 500; ++i) {
        AddRow(static_cast<std::int32_t>(random() % 10), static_cast<std::int32_t>(random() % 20));
    }
    std::int32_t sum = 0;
    for (const DistinctLine& line : LinesOf(ActivePlot()).whole) {
        sum += line.rows;
    }
    EXPECT_EQ(sum, 500);
    EXPECT_LE(LinesOf(ActivePlot()).whole.size(), 200U);
}

TEST_F(DistinctLines, ChangedRowsAndOtherPlotsAreSeen) {
    AddRow(30, 120);
    EXPECT_EQ(LinesOf(ActivePlot()).whole.size(), 1U);
    AddRow(40, 120);
    EXPECT_EQ(LinesOf(ActivePlot()).whole.size(), 2U);
    const int first = gActivePlot;
    NewPlot();
    EXPECT_TRUE(LinesOf(ActivePlot()).whole.empty());
    gActivePlot = first;
    EXPECT_EQ(LinesOf(ActivePlot()).whole.size(), 2U);
    SortRowTable(TableOf(first), 2);
    EXPECT_EQ(LinesOf(ActivePlot()).whole.size(), 2U);
}

/// A block with all whole-degree lines of the lower hemisphere but for trend 360, once each.
RowBlock AllLines(const PlotRecord& record) {
    RowBlock block(ColumnsOf(record, false));
    for (std::int32_t plunge = 0; plunge <= 90; ++plunge) {
        for (std::int32_t trend = 0; trend < 360; ++trend) {
            RowValues values;
            values.isData = true;
            values.dip = plunge;
            values.azimuth = trend;
            values.place = PlottedOrientation(kEqualArea, false, 0, {plunge, trend});
            block.Add(values);
        }
    }
    return block;
}

TEST_F(DistinctLines, AHundredMillionRowsAreCountedTrial) {
    constexpr std::int32_t kLines = 91 * 360;
    const std::int32_t times = TrialRounds(100'000'000 / kLines);
    Plot& plot = ActivePlot();
    const RowBlock block = AllLines(plot.record);
    ReserveBlocks(plot, times * kLines, false);
    for (std::int32_t i = 0; i < times; ++i) {
        ASSERT_EQ(AppendBlock(plot, 0, block), kLines);
    }
    EXPECT_EQ(plot.record.NumValidData, times * kLines);
    const std::vector<DistinctLine> lines = DistinctLinesOf(plot.table, plot.record.NumData);
    ASSERT_EQ(lines.size(), static_cast<std::size_t>(kLines));
    for (const DistinctLine& line : lines) {
        ASSERT_EQ(line.rows, times) << line.plunge << " " << line.trend;
    }
    EXPECT_EQ(plot.table.index.back(), times * kLines);
}

} // namespace
} // namespace quandrel
