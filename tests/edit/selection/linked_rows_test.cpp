// SPDX-License-Identifier: MIT

#include "core/data_format.h"
#include "derive/intersection_lines.h"
#include "derive/kinematic_plots.h"
#include "edit/selection/linked_rows.h"
#include "edit/selection/marquee.h"
#include "support/measured.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

using namespace testing;

using Rows = std::vector<std::int32_t>;

class LinkedRows : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        ClearSelection();
        parent = NewPlot();
        PlotRecord& record = ActiveRecord();
        record.PrimaryFormat = kPrimaryPlane;
        record.DataKind = kPlanes;
        record.SecondaryFormat = kSecondaryLine;
        // Slip down the dip of each plane; the third has no slip line, and so no axes.
        AddFault(60, 90, 60, 90);
        AddFault(30, 200, 30, 200);
        AddFault(45, 10, kErrorRow, 0);
        AddFault(70, 320, 70, 320);
    }

    void TearDown() override {
        ClearSelection();
        EngineTest::TearDown();
    }

    static void AddFault(int dip, int direction, int plunge, int trend) {
        AddRow(dip, direction);
        int secondary = 1;
        const std::int32_t row = ActiveRecord().NumData;
        GrowDataColumns(secondary, row);
        gData2Dip.At(gActivePlot, row) = plunge;
        gData2Az.At(gActivePlot, row) = trend;
    }

    int parent = 0;
};

TEST_F(LinkedRows, FaultsAndTheirAxesLightEachOther) {
    ASSERT_TRUE(MakeKinematicPlots(kAxesOnOnePlot, SlipSense::Normal));
    const int axes = gActivePlot;
    ASSERT_NE(axes, parent);
    ASSERT_EQ(RecordOf(axes).NumData, 6);
    // The normal fault dipping 60 to the east has P plunging 75 to the west and T 15 to the east.
    const Rows faults = {1};
    const Rows lit = RowsLinkedTo(axes, parent, faults);
    ASSERT_EQ(lit.size(), 2U);
    for (const std::int32_t row : lit) {
        const std::pair<int, int> line{gDataDip(axes, row), gDataAz(axes, row)};
        EXPECT_TRUE(line == std::pair(75, 270) || line == std::pair(-15, 90)) << line.first;
    }
    EXPECT_EQ(RowsLinkedTo(parent, axes, lit), faults);
    EXPECT_EQ(RowsLinkedTo(axes, parent, Rows{3}), Rows{});
    EXPECT_EQ(RowsLinkedTo(axes, parent, Rows{1, 2, 4}).size(), 6U);
}

TEST_F(LinkedRows, AxesOfAnAssumedReverseSenseAreFoundToo) {
    ASSERT_TRUE(MakeKinematicPlots(kAxesOnTwoPlots, SlipSense::Reverse));
    const int extension = gActivePlot;
    const Rows lit = RowsLinkedTo(extension, parent, Rows{1});
    ASSERT_EQ(lit.size(), 1U);
    EXPECT_EQ(gDataDip(extension, lit[0]), -75) << "the P axis of the normal fault";
    EXPECT_EQ(RowsLinkedTo(parent, extension, lit), Rows{1});
}

TEST_F(LinkedRows, TheMarqueeInOnePlotLightsTheOthers) {
    ASSERT_TRUE(MakeKinematicPlots(kAxesOnOnePlot, SlipSense::Normal));
    const int axes = gActivePlot;
    SelectRows(parent, {4});
    EXPECT_EQ(LitRows(parent), Rows{4});
    EXPECT_EQ(LitRows(axes).size(), 2U);
    EXPECT_EQ(LitPlaces(axes).size(), 2U);
    ClearSelection();
    EXPECT_TRUE(LitPlaces(axes).empty());
    EXPECT_TRUE(LitPlaces(parent).empty());
}

TEST_F(LinkedRows, AnotherSelectionOrACutLinkLightsOtherPlaces) {
    ASSERT_TRUE(MakeKinematicPlots(kAxesOnOnePlot, SlipSense::Normal));
    const int axes = gActivePlot;
    SelectRows(parent, {4});
    const std::vector<Point> places = LitPlaces(axes);
    SelectRows(parent, {1});
    EXPECT_EQ(LitPlaces(axes).size(), 2U);
    EXPECT_NE(LitPlaces(axes), places);
    EXPECT_EQ(LitPlaces(parent).size(), 1U);
    RecordOf(axes).KinematicState = 0;
    EXPECT_TRUE(LitPlaces(axes).empty());
    EXPECT_EQ(LitPlaces(parent).size(), 1U);
}

TEST_F(LinkedRows, MakingAndRefreshingADerivedPlotKeepsTheSelectionAndLightsItsRows) {
    SelectRows(parent, {1, 4});
    FitMarqueeToRows();
    const std::array<float, 7> frame = gMarquee;
    ASSERT_TRUE(MakeKinematicPlots(kAxesOnOnePlot, SlipSense::Normal));
    const int axes = gActivePlot;
    ASSERT_NE(axes, parent);
    EXPECT_EQ(gSelectionRows, (Rows{1, 4}));
    EXPECT_EQ(gMarquee, frame);
    EXPECT_TRUE(MarqueeStandsOn(parent));
    EXPECT_EQ(LitRows(axes).size(), 4U);
    gActivePlot = parent;
    gDataDip.At(parent, 1) = 50;
    gData2Dip.At(parent, 1) = 50;
    ASSERT_TRUE(MakeKinematicPlots(kAxesOnOnePlot, SlipSense::Normal));
    EXPECT_EQ(gSelectionRows, (Rows{1, 4}));
    EXPECT_EQ(LitRows(gActivePlot).size(), 4U);
}

TEST_F(LinkedRows, ASelectionInADerivedPlotLosesTheRowsThatItsRefreshDrops) {
    ASSERT_TRUE(MakeKinematicPlots(kAxesOnOnePlot, SlipSense::Normal));
    const int axes = gActivePlot;
    SelectRows(axes, {2, 6});
    gData2Dip.At(parent, 4) = kErrorRow; // one fault loses its line
    ASSERT_TRUE(MakeKinematicPlots(kAxesOnOnePlot, SlipSense::Normal));
    ASSERT_EQ(RecordOf(axes).NumData, 4);
    EXPECT_EQ(SelectedRowsOf(axes).size(), 1U);
    EXPECT_EQ(LitPlaces(axes).size(), 1U);
}

TEST_F(LinkedRows, TheTwoPlotsOfAxesGoByTheirNumbers) {
    ASSERT_TRUE(MakeKinematicPlots(kAxesOnTwoPlots, SlipSense::Normal));
    const int extension = gActivePlot;
    int shortening = 0;
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        shortening = IsOpenSlot(slot) && RecordOf(slot).AxesTitle == "P" ? slot : shortening;
    }
    ASSERT_NE(shortening, 0);
    EXPECT_EQ(RowsLinkedTo(extension, shortening, Rows{2, 3}), (Rows{2, 3}));
    EXPECT_EQ(RowsLinkedTo(extension, parent, Rows{1}).size(), 1U);
    EXPECT_EQ(RowsLinkedTo(shortening, parent, Rows{1}).size(), 1U);
}

TEST_F(LinkedRows, PairsOfPlanesAndTheirIntersectionsLightEachOther) {
    const int source = NewPlot();
    ActiveRecord().PrimaryFormat = kPrimaryPlane;
    ActiveRecord().SecondaryFormat = kSecondaryPlane;
    ActiveRecord().DataKind = kPlanes;
    // Two planes that dip equally to the east and to the west meet in a level line to the north;
    // vertical planes whose dip directions are east and north meet in a vertical line.
    AddFault(45, 90, 45, 270);
    AddFault(90, 90, 90, 0);
    AddFault(30, 120, 30, 120); // parallel
    ASSERT_TRUE(MakeIntersectionPlot());
    const int lines = gActivePlot;
    ASSERT_NE(lines, source);
    EXPECT_EQ(RowsLinkedTo(lines, source, Rows{1}), Rows{1});
    EXPECT_EQ(RowsLinkedTo(lines, source, Rows{2}), Rows{2});
    EXPECT_EQ(RowsLinkedTo(lines, source, Rows{3}), Rows{});
    EXPECT_EQ(RowsLinkedTo(source, lines, Rows{2}), Rows{2});
    EXPECT_TRUE(RowsLinkedTo(parent, lines, Rows{1}).empty());
    SelectRows(lines, {1});
    EXPECT_EQ(LitPlaces(source).size(), 1U);
}

TEST_F(LinkedRows, AreToldApartByTheirDecimals) {
    const int source = NewPlot();
    ActiveRecord().PrimaryFormat = kPrimaryPlane;
    ActiveRecord().SecondaryFormat = kSecondaryPlane;
    ActiveRecord().DataKind = kPlanes;
    AddFault(0, 0, 0, 0);
    AddFault(0, 0, 0, 0);
    testing::Measure(source, RowAngles::Primary, 1, {44.9, 90.1}, true);
    testing::Measure(source, RowAngles::Secondary, 1, {45.3, 180.2}, true);
    testing::Measure(source, RowAngles::Primary, 2, {45, 90}, true);
    testing::Measure(source, RowAngles::Secondary, 2, {45.2, 180.2}, true);
    ASSERT_TRUE(MakeIntersectionPlot());
    const int lines = gActivePlot;
    ASSERT_EQ(gDataDip(lines, 1), gDataDip(lines, 2)) << "the same in whole degrees";
    ASSERT_EQ(gDataAz(lines, 1), gDataAz(lines, 2));
    EXPECT_EQ(RowsLinkedTo(lines, source, Rows{1}), Rows{1});
    EXPECT_EQ(RowsLinkedTo(source, lines, Rows{2}), Rows{2});
    ClearDecimals(PlotOf(lines).rows, RowAngles::Primary, 2);
    EXPECT_EQ(RowsLinkedTo(lines, source, Rows{2}), Rows{2})
        << "by the whole degrees that are left";
}

TEST_F(LinkedRows, StrangersLightNothing) {
    const int other = NewPlot();
    AddRow(60, 90);
    SelectRows(parent, {1});
    EXPECT_TRUE(LitRows(other).empty());
    EXPECT_TRUE(RowsLinkedTo(parent, parent, Rows{1}).empty());
}

} // namespace
} // namespace quandrel
