// SPDX-License-Identifier: MIT

#include "core/data_format.h"
#include "core/replot.h"
#include "edit/selection/marquee.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

using namespace testing;

class MarqueeTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        ClearSelection();
        NewPlot();
        ActiveRecord().DataKind = kLines;
        ActiveRecord().PrimaryFormat = kPrimaryLine;
    }

    void TearDown() override {
        ConnectSelection({});
        ClearSelection();
        EngineTest::TearDown();
    }

    using Rows = std::vector<std::int32_t>;
};

TEST_F(MarqueeTest, TheRecordHoldsFirstCornerAndExtent) {
    StandMarquee(gActivePlot, {10, 20}, {-30, 60});
    EXPECT_EQ(gMarquee, (std::array<float, 7>{0, 10, 20, -40, 40, 0, 9999}));
    EXPECT_EQ(Selection::now.slot, gActivePlot);
}

TEST_F(MarqueeTest, SelectAllIsTheWholeNet) {
    AddRow(0, 0);
    AddRow(90, 0);
    AddRow(0, 135);
    SelectAll();
    EXPECT_EQ(gMarquee, (std::array<float, 7>{0, -1000, 1000, 2000, -2000, 0, 9999}));
    EXPECT_EQ(gSelectionRows, (Rows{1, 2, 3}));
}

TEST_F(MarqueeTest, PlotsWithALayerOfTheSelectionAreDrawnAgain) {
    AddRow(0, 0);
    std::vector<int> drawn;
    ConnectPlotDrawer([&drawn](int slot, ReplotCause) { drawn.push_back(slot); });
    SelectAll();
    EXPECT_TRUE(drawn.empty()) << "no layer shows it";
    FigureLayer layer;
    layer.LayerOf = kLayerOfSelection;
    ActiveRecord().Layers = {layer};
    ClearSelection();
    SelectRows(gActivePlot, {1});
    EXPECT_EQ(drawn, (std::vector<int>{gActivePlot, gActivePlot}));
    ClearSelectionOf(gActivePlot);
    EXPECT_EQ(drawn.size(), 2U) << "the change of its rows draws it";
    EXPECT_TRUE(gSelectionRows.empty());
    ActiveRecord().Layers[0].LayerHidden = kTrue;
    SelectAll();
    EXPECT_EQ(drawn.size(), 2U);
    ConnectPlotDrawer({});
}

TEST_F(MarqueeTest, RowsOnTheEdgeAreInside) {
    AddRow(0, 0);   // (0, 1000)
    AddRow(0, 90);  // (1000, 0)
    AddRow(90, 10); // the centre

    const struct {
        Point corner;
        Point opposite;
        Rows rows;
    } cases[] = {
        {{0, 0}, {1000, 1000}, {1, 2, 3}}, // three corners of the rectangle
        {{1000, 1000}, {0, 0}, {1, 2, 3}}, // drawn the other way
        {{1, 0}, {1000, 1000}, {2}},         {{0, 999}, {1000, 1}, {}},
        {{-1000, 999.5}, {1000, 1000}, {1}},
    };

    for (const auto& [corner, opposite, rows] : cases) {
        StandMarquee(gActivePlot, corner, opposite);
        SelectRowsInMarquee();
        EXPECT_EQ(gSelectionRows, rows) << corner.x << " " << opposite.x;
    }
}

TEST_F(MarqueeTest, HiddenAndErrorRowsAreNotSelectedOverlayRowsAre) {
    AddRow(80, 0);
    AddRow(kErrorRow, 0);                    // is at (0, 0)
    AddRow(80, 90, MakeSymbolCode(5, 0, 2)); // symbol 0 hides it
    AddOverlay(kOverlayLines, 80, 180, CodeOfStyleRow(2));
    SelectAll();
    EXPECT_EQ(gSelectionRows, (Rows{1, 4}));
}

TEST_F(MarqueeTest, PolesCountWhereTheyArePlotted) {
    ActiveRecord().DataKind = kPlanes;
    ActiveRecord().PrimaryFormat = kPrimaryPlane;
    AddRow(10, 90); // the pole plunges 80 to the west
    StandMarquee(gActivePlot, {-400, 100}, {0, -100});
    SelectRowsInMarquee();
    EXPECT_EQ(gSelectionRows, Rows{1});
    StandMarquee(gActivePlot, {1, 100}, {1000, -100});
    SelectRowsInMarquee();
    EXPECT_EQ(gSelectionRows, Rows{});
}

TEST_F(MarqueeTest, TheSelectionIsInTheOrderOfTheRowsWhateverTheTableIs) {
    for (int trend = 0; trend < 360; trend += 30) {
        AddRow(45, trend);
    }
    SortRowTable(TableOf(gActivePlot), 12);
    SelectAll();
    EXPECT_EQ(gSelectionRows, (Rows{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}));
}

TEST_F(MarqueeTest, TheAnnotationLayerSelectsNoRows) {
    AddRow(45, 45);
    gActiveLayer = kAnnotationLayer;
    SelectAll();
    EXPECT_EQ(gSelectionRows, Rows{});
    EXPECT_TRUE(MarqueeStandsOn(gActivePlot));
}

TEST_F(MarqueeTest, ARoseSelectsAllItsValidRowsWithoutARectangle) {
    AddRow(45, 45);
    AddRow(kErrorRow, 0);
    AddRow(30, 300);
    ActiveRecord().PlotKind = kRose;
    SelectAll();
    EXPECT_EQ(gSelectionRows, (Rows{1, 3}));
    EXPECT_FALSE(MarqueeStands());
    StandMarquee(gActivePlot, {-1000, 1000}, {1000, -1000});
    SelectRowsInMarquee();
    EXPECT_EQ(gSelectionRows, Rows{});
}

TEST_F(MarqueeTest, ALassoTakesWhatItsPolygonHolds) {
    AddRow(90, 0); // the centre: in the notch
    AddRow(0, 0);  // (0, 1000): a corner
    AddRow(45, 90);
    AddRow(45, 270);
    // A triangle pointing north with a notch cut from the base to above the centre.
    StandLasso(gActivePlot, {{0, 1000}, {900, -900}, {0, 100}, {-900, -900}});
    SelectRowsInMarquee();
    EXPECT_EQ(gSelectionRows, Rows{2});
    EXPECT_EQ(gMarquee, (std::array<float, 7>{0, -900, 1000, 1800, -1900, 0, 9999}));
    EXPECT_FALSE(IsInMarquee({0, 0}));
    EXPECT_TRUE(IsInMarquee({0, 500}));
}

TEST_F(MarqueeTest, PolygonsKeepTheirEdge) {
    const std::vector<Point> square = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
    for (const Point at : {Point{0, 0}, {10, 10}, {5, 0}, {0, 5}, {10, 5}, {5, 10}, {5, 5}}) {
        EXPECT_TRUE(IsWithin(square, at)) << at.x << " " << at.y;
    }
    for (const Point at : {Point{-1, 0}, {11, 10}, {5, -1}, {-0.001, 5}, {10.001, 5}}) {
        EXPECT_FALSE(IsWithin(square, at)) << at.x << " " << at.y;
    }
}

TEST_F(MarqueeTest, HandlesReachTenUnitsOrEightPixels) {
    StandMarquee(gActivePlot, {0, 100}, {200, -100});
    const Point fine{0.5, 0.5};
    const Point coarse{4, 4}; // eight pixels are 32 units

    const struct {
        Point at;
        Point pixel;
        int corner;
    } cases[] = {
        {{0, 100}, fine, 0},      {{200, 100}, fine, 1},     {{200, -100}, fine, 2},
        {{0, -100}, fine, 3},     {{10, 110}, fine, 0},      {{-10, 90}, fine, 0},
        {{10.5, 100}, fine, -1},  {{0, 111}, fine, -1},      {{100, 0}, fine, -1},
        {{232, -132}, coarse, 2}, {{233, -100}, coarse, -1},
    };

    for (const auto& [at, pixel, corner] : cases) {
        EXPECT_EQ(HandleAt(at, pixel), corner) << at.x << " " << at.y;
    }
    StandLasso(gActivePlot, {{0, 0}, {100, 0}, {0, 100}});
    EXPECT_EQ(HandleAt({0, 0}, fine), -1); // a lasso has none
}

TEST_F(MarqueeTest, AMarqueeOnAnotherPlotTakesTheSelectionWithIt) {
    AddRow(45, 45);
    SelectAll();
    const int first = gActivePlot;
    const int second = NewPlot();
    EXPECT_EQ(SelectedRowsOf(first).size(), 1U);
    EXPECT_TRUE(SelectedRowsOf(second).empty());
    StandMarquee(second, {0, 0}, {10, 10});
    EXPECT_TRUE(gSelectionRows.empty());
    ClearSelectionOf(first); // the marquee is no longer its own
    EXPECT_TRUE(MarqueeStandsOn(second));
    ClearSelectionOf(second);
    EXPECT_FALSE(MarqueeStands());
    EXPECT_EQ(gMarquee, (std::array<float, 7>{}));
}

TEST_F(MarqueeTest, RowsCanBeSelectedOneByOne) {
    AddRow(45, 45);
    AddRow(45, 90);
    int told = 0;
    ConnectSelection([&] { ++told; });
    SelectRows(gActivePlot, {2, 1, 2, 7, 0, -3});
    EXPECT_EQ(gSelectionRows, (Rows{1, 2}));
    EXPECT_FALSE(MarqueeStands());
    EXPECT_EQ(told, 1);
    SelectRows(gActivePlot, {});
    EXPECT_EQ(Selection::now.slot, 0);
}

TEST_F(MarqueeTest, ASelectionThatWasKeptComesBackWithoutRowsThatAreGone) {
    AddRow(45, 45);
    AddRow(45, 90);
    SelectAll();
    const std::array<float, 7> marquee = gMarquee;
    const Selection kept = Selection::now;
    ClearSelection();
    PutSelectionBack(kept);
    EXPECT_EQ(gSelectionRows, (Rows{1, 2}));
    EXPECT_EQ(gMarquee, marquee);
    ActiveRecord().NumLoadedData = 1;
    PutSelectionBack(kept);
    EXPECT_EQ(gSelectionRows, Rows{1});
}

TEST_F(MarqueeTest, TheMarqueeFitsAboutTheRows) {
    AddRow(0, 90);
    AddRow(0, 180);
    SelectRows(gActivePlot, {1, 2});
    FitMarqueeToRows();
    const PlotRectangle about = RectangleOfMarquee();
    EXPECT_EQ(about.left, -10);
    EXPECT_EQ(about.right, 1010);
    EXPECT_EQ(about.bottom, -1010);
    EXPECT_EQ(about.top, 10);
}

TEST_F(MarqueeTest, TheMarqueeHoldsWhatTheLayerHasInIt) {
    AddRow(45, 90);
    UseLayer(kAnnotationLayer);
    StandMarquee(gActivePlot, {400, 200}, {700, -200});
    SelectRowsInMarquee();
    ASSERT_TRUE(gSelectionRows.empty());
    UseLayer(kDataLayer);
    EXPECT_EQ(gSelectionRows, Rows{1});
    UseLayer(kAnnotationLayer);
    EXPECT_TRUE(gSelectionRows.empty());
    EXPECT_TRUE(MarqueeStands());
    // Rows that were picked one by one do not depend on a position.
    SelectRows(gActivePlot, {1});
    UseLayer(kDataLayer);
    EXPECT_EQ(gSelectionRows, Rows{1});
}

TEST_F(MarqueeTest, TheCountSaysWhenRowsAreTakenByPolesThatAreNotSeen) {
    AddRow(45, 90);
    AddRow(45, 270);
    SelectAll();
    EXPECT_EQ(SelectionText(), "2 rows selected");
    ActiveRecord().PlotSymbolMode = kGreatCircles;
    EXPECT_EQ(SelectionText(), "2 rows selected by their poles");
    StandMarquee(gActivePlot, {400, 200}, {700, -200});
    SelectRowsInMarquee();
    EXPECT_EQ(SelectionText(), "1 row selected by its pole");
    SelectRows(gActivePlot, {1, 2});
    EXPECT_EQ(SelectionText(), "2 rows selected") << "rows that were picked in a table";
    // An overlay of points among the great circles.
    ActiveRecord().NumData = 1;
    ActiveRecord().OverlayRows[kOverlayCount] = 1;
    ActiveRecord().OverlayRows[1] = 1;
    ActiveRecord().OverlayKind[1] = kOverlayLines;
    SelectAll();
    EXPECT_EQ(SelectionText(), "2 rows selected");
    ActiveRecord().OverlayKind[1] = kOverlayGreatCircles;
    EXPECT_EQ(SelectionText(), "2 rows selected by their poles");
}

TEST_F(MarqueeTest, EachPlaceIsGivenOnce) {
    AddRow(0, 90);
    AddRow(0, 90);
    AddRow(kErrorRow, 0);
    const Rows rows = {1, 2, 3};
    EXPECT_EQ(PlacesOfRows(gActivePlot, rows), (std::vector<Point>{{1000, 0}}));
}

TEST_F(MarqueeTest, FollowsRowsThatWereTurned) {
    AddRow(0, 90); // east
    StandMarquee(gActivePlot, {900, 100}, {1050, -100});
    SelectRowsInMarquee();
    ASSERT_EQ(gSelectionRows, Rows{1});
    gDataAz.At(gActivePlot, 1) = 0; // north
    RebuildRowTable(gActivePlot);
    FollowMovedRows();
    EXPECT_TRUE(IsInMarquee({0, 1000}));
    EXPECT_FALSE(IsInMarquee({1000, 0}));
    ClearSelection();
    StandMarquee(gActivePlot, {900, 100}, {1050, -100});
    FollowMovedRows();
    EXPECT_FALSE(MarqueeStands());
}

} // namespace
} // namespace quandrel
