// SPDX-License-Identifier: MIT

#include "core/plot_life.h"
#include "core/replot.h"
#include "derive/derived_plots.h"
#include "derive/fault_plot.h"
#include "derive/intersection_lines.h"
#include "orientation/vectors.h"

#include <cmath>
#include <limits>
#include <random>

namespace quandrel {
namespace {

using testing::AcuteAngleOf;
using testing::CrossProduct;
using testing::LineVector;
using testing::PlaneNormal;
using testing::Radians;

class IntersectionLines : public FaultTest {
protected:
    static int Make() {
        EXPECT_TRUE(MakeIntersectionPlot());
        return gActivePlot;
    }

    int NewPairs(const std::vector<FaultRow>& rows) { return NewFaultPlot(rows, kSecondaryPlane); }
};

/// Planes that dip 45 to the north and to the east meet at atan(1 / sqrt 2) = 35 to the north-east;
/// the level one meets a plane along its strike; the last two planes are the same.
const std::vector<FaultRow> kThreePairs = {{45, 0, 45, 90}, {0, 10, 30, 90}, {45, 360, 45, 0}};

TEST_F(IntersectionLines, MakeAPlotOfLinesBoundToItsSource) {
    const int source = NewPairs({kThreePairs[0], kThreePairs[1]});
    const int child = Make();
    EXPECT_NE(child, source);
    EXPECT_EQ(Lines(child)[0], "35/045");
    EXPECT_EQ(gDataDip(child, 2), 0);
    EXPECT_EQ(gDataAz(child, 2) % 180, 0);
    const PlotRecord& record = RecordOf(child);
    EXPECT_EQ(record.PlotTitle, "Plot 2: Intersection lines of planes in Plot 1");
    EXPECT_EQ(record.AxesTitle, "");
    EXPECT_EQ(record.DataKind, kLines);
    EXPECT_EQ(record.PrimaryFormat, kPrimaryLine);
    EXPECT_EQ(record.SecondaryFormat, kNoSecondary);
    EXPECT_EQ(record.KinematicState, source);
    EXPECT_EQ(RecordOf(source).IntersectionState, child);
    EXPECT_EQ(NumberOf(record.KinematicBlock[1]), 2);
    EXPECT_EQ(record.NumValidData, 2);
    EXPECT_EQ(record.NumData, 2);
    EXPECT_EQ(record.NumLoadedData, 2);
    EXPECT_EQ(record.Modified, 0);
    EXPECT_EQ(Form(child).Told(PlotBox::NumberOfData), "2");
    EXPECT_EQ(record.DescriptionText,
              "Derived from faults.txt: 1: intersection lines of 2 of 2 rows");
}

TEST_F(IntersectionLines, AreTheCrossProductsOfTheNormals) {
    std::mt19937 random(20270110);
    std::vector<FaultRow> rows;
    for (int i = 0; i < 500; ++i) {
        const auto within = [&random](unsigned int values) {
            return static_cast<std::int32_t>(random() % values);
        };
        rows.push_back({within(91), within(361), within(91), within(361)});
    }
    NewPairs(rows);
    const int child = Make();
    ASSERT_EQ(RecordOf(child).NumData, 500);
    int compared = 0;
    for (std::int32_t i = 1; i <= 500; ++i) {
        const FaultRow& row = rows[static_cast<std::size_t>(i) - 1];
        const auto line = CrossProduct(PlaneNormal(Radians(row.dip), Radians(row.dipDirection)),
                                       PlaneNormal(Radians(row.plunge), Radians(row.trend)));
        if (testing::Length(line) < 1e-6) {
            continue;
        }
        const auto stored = LineVector(Radians(gDataDip(child, i)), Radians(gDataAz(child, i)));
        EXPECT_GE(gDataDip(child, i), 0);
        EXPECT_LT(AcuteAngleOf(line, stored), Radians(0.75)) << i << ": half a degree each way";
        ++compared;
    }
    EXPECT_GT(compared, 490);
}

TEST_F(IntersectionLines, FollowTheOrderOfTheirRowsAndNameThem) {
    NewPairs({{45, 180, 45, 90}, {kErrorRow, 0, 45, 90}, {45, 0, 45, 270}, {45, 0, 45, 90}});
    ReplotActivePlot(true); // sorts the table by x
    const int child = Make();
    EXPECT_EQ(Lines(child), (std::vector<std::string>{"35/135", "35/315", "35/045"}));
    EXPECT_EQ(gAppText(child, 1), "1");
    EXPECT_EQ(gAppText(child, 2), "3");
    EXPECT_EQ(gAppText(child, 3), "4");
    EXPECT_EQ(RecordOf(child).AppNonNumName, kRowColumn);
}

TEST_F(IntersectionLines, OfParallelPlanesAreKeptAsErrorRows) {
    NewPairs(kThreePairs);
    const int child = Make();
    EXPECT_EQ(gDataDip(child, 3), -90);
    EXPECT_EQ(RecordOf(child).NumData, 3);
    EXPECT_EQ(RecordOf(child).NumValidData, 2);
    EXPECT_EQ(RecordOf(child).DescriptionText,
              "Derived from faults.txt: 1: intersection lines of 2 of 3 rows; 1 without a line: "
              "parallel planes");
    const auto isError = [child] {
        const RowTable& table = TableOf(child);
        for (std::size_t place = 0; place < table.size(); ++place) {
            if (table.index[place] == 3) {
                return IsErrorRow(table.plunge[place]);
            }
        }
        return false;
    };
    EXPECT_TRUE(isError());
    RebuildRowTable(child);
    EXPECT_TRUE(isError()) << "on the other net, too";
    BreakDerivedLinks(1);
    ClosePlot(1);
    RebuildRowTable(child);
    EXPECT_TRUE(isError()) << "without the source, too";
    EXPECT_EQ(gDataDip(child, 3), kErrorRow);
}

TEST_F(IntersectionLines, AVerticalLineOfAnotherPlotIsNoErrorRow) {
    const int slot = NewPlot();
    ActiveRecord().PrimaryFormat = kPrimaryLine;
    ActiveRecord().DataKind = kPolarLines;
    AddRow(-90, 0);
    RebuildRowTable(slot);
    EXPECT_FALSE(IsErrorRow(TableOf(slot).plunge[0]));
}

TEST_F(IntersectionLines, LeaveOutRowsWithoutBothPlanes) {
    NewPairs({{45, 0, kErrorRow, kErrorRow}, {kErrorRow, 0, 45, 90}, {45, 0, 45, 90}});
    const int child = Make();
    EXPECT_EQ(Lines(child), std::vector<std::string>{"35/045"});
    EXPECT_EQ(RecordOf(child).DescriptionText,
              "Derived from faults.txt: 1: intersection lines of 1 of 2 rows; 1 left out: no "
              "second plane");
}

TEST_F(IntersectionLines, AreMadeAnewInTheirPlot) {
    const int source = NewPairs(kThreePairs);
    const int child = Make();
    SetSecondary(source, 1, 45, 270);
    gActivePlot = source;
    EXPECT_EQ(Make(), child);
    EXPECT_EQ(Line(child, 1), "35/315");
    EXPECT_EQ(RecordOf(child).NumData, 3);
    EXPECT_EQ(TableOf(child).size(), 3U);
    EXPECT_EQ(CountOpenPlots(), 2);
}

TEST_F(IntersectionLines, ThatTheUserHasChangedAreOnlyShown) {
    const int source = NewPairs(kThreePairs);
    const int child = Make();
    RecordOf(child).Modified = kTrue;
    SetSecondary(source, 1, 45, 270);
    gActivePlot = source;
    EXPECT_FALSE(MakeIntersectionPlot());
    EXPECT_EQ(gActivePlot, child);
    EXPECT_EQ(Line(child, 1), "35/045");
}

TEST_F(IntersectionLines, GetAnotherPlotOnceTheirsHasClosed) {
    const int source = NewPairs(kThreePairs);
    const int child = Make();
    BreakDerivedLinks(child);
    ClosePlot(child);
    EXPECT_EQ(RecordOf(source).IntersectionState, 0);
    const int other = NewPlot();
    EXPECT_EQ(other, child) << "another plot has its slot now";
    gActivePlot = source;
    EXPECT_NE(Make(), other);
}

TEST_F(IntersectionLines, DoNothingWithoutTwoPlanes) {
    NewFaultPlot({{45, 0, 45, 90}}, kSecondaryLine);
    EXPECT_FALSE(MakeIntersectionPlot());
    NewPairs(kThreePairs);
    ActiveRecord().PrimaryFormat = kPrimaryLine;
    EXPECT_FALSE(MakeIntersectionPlot());
    EXPECT_EQ(CountOpenPlots(), 2);
}

TEST_F(IntersectionLines, TellWhenMemoryRunsOut) {
    const int source = NewPairs(kThreePairs);
    gPlatform.mostRows = 1;
    Expect("An error has been encountered and plot could not be completed");
    EXPECT_FALSE(MakeIntersectionPlot());
    gPlatform.mostRows = std::numeric_limits<std::int32_t>::max() / 2;
    EXPECT_EQ(ActiveRecord().NumData, 0);
    EXPECT_EQ(TableOf(gActivePlot).size(), 0U);
    EXPECT_EQ(RecordOf(source).IntersectionState, gActivePlot);
    gActivePlot = source;
    EXPECT_EQ(RecordOf(Make()).NumData, 3) << "and again with memory";
}

TEST_F(IntersectionLines, WithoutAWindowLeaveTheSourceAsItIs) {
    gMaxPlots = 1;
    const int source = NewPairs(kThreePairs);
    Expect("You have too many plot windows already open");
    EXPECT_FALSE(MakeIntersectionPlot());
    EXPECT_EQ(gActivePlot, source);
    EXPECT_EQ(RecordOf(source).IntersectionState, 0);
}

} // namespace
} // namespace quandrel
