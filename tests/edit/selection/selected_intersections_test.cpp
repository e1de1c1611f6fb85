// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "edit/commands/plot_mouse.h"
#include "edit/rows/add_point.h"
#include "edit/rows/clipboard_text.h"
#include "edit/rows/edit_rows.h"
#include "edit/rows/move_rows.h"
#include "edit/selection/linked_rows.h"
#include "edit/selection/marquee.h"
#include "edit/selection/selected_intersections.h"
#include "orientation/projection.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <cmath>
#include <random>

namespace quandrel {
namespace {

constexpr const char* kRefusal = "Can't perform this action on a beta intersection plot";

class SelectedIntersectionsTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPrimaryDataType = kPrimaryPlane;
        gPlotDataKind = kPlanes;
        gActiveLayer = kDataLayer;
        ClearSelection();
    }

    void TearDown() override {
        ClearSelection();
        EngineTest::TearDown();
    }

    /// Vertical planes that strike north and east, and one that dips 40 to the east: they meet in
    /// the vertical line at the centre, in 0/000 and in 40/090.
    int NewBetaPlot() {
        const int slot = NewPlot();
        AddRow(90, 90);
        AddRow(90, 180);
        AddRow(40, 90);
        ActiveRecord().PlotSymbolMode = kBetaIntersections;
        return slot;
    }

    static Point PlaceOfLine(double plunge, double trend) {
        double x = 0;
        double y = 0;
        ProjectPoint(kEqualArea, DegToRad(plunge), DegToRad(trend), x, y);
        return {x, y};
    }

    static void Frame(int slot, Point at, double half) {
        StandMarquee(slot, {at.x - half, at.y + half}, {at.x + half, at.y - half});
        SelectRowsInMarquee();
    }
};

TEST_F(SelectedIntersectionsTest, AreThoseWithinTheMarqueeAndNoRows) {
    const int slot = NewBetaPlot();
    Frame(slot, PlaceOfLine(40, 90), 20);
    EXPECT_TRUE(gSelectionRows.empty()) << "the poles are not seen";
    ASSERT_EQ(IntersectionsSelectedIn(slot).lines.size(), 1U);
    EXPECT_NEAR(IntersectionsSelectedIn(slot).lines[0].n, std::sin(DegToRad(40)), 1e-9);
    EXPECT_EQ(SelectionText(), "1 intersection selected");
    ASSERT_EQ(LitPlaces(slot).size(), 1U) << "the ring is where the symbol is";
    EXPECT_NEAR(LitPlaces(slot)[0].x, PlaceOfLine(40, 90).x, 0.51);
    // Poles of the three planes lie on the rim and at 50/270: a frame about one holds nothing.
    Frame(slot, PlaceOfLine(50, 270), 20);
    EXPECT_TRUE(IntersectionsSelectedIn(slot).lines.empty());
    EXPECT_TRUE(LitPlaces(slot).empty());
}

TEST_F(SelectedIntersectionsTest, AreCopiedAlone) {
    const int slot = NewBetaPlot();
    Frame(slot, {0, 0}, 30);
    ASSERT_TRUE(CopyRows(CopiedFields::Points));
    const std::string text = clipboard.Text().value_or("");
    EXPECT_NE(text.find("\r\n90\t"), std::string::npos) << text;
    EXPECT_EQ(text.find("40\t90"), std::string::npos) << text;
    Frame(slot, {-500, -500}, 10);
    EXPECT_FALSE(CopyRows(CopiedFields::Points));
}

TEST_F(SelectedIntersectionsTest, AgreeWithEveryPairOnManyPlanes) {
    const int slot = NewPlot();
    std::mt19937 random(20261122);
    for (int i = 0; i < 60; ++i) {
        AddRow(static_cast<std::int32_t>(random() % 91), static_cast<std::int32_t>(random() % 361));
    }
    ActiveRecord().PlotSymbolMode = kBetaIntersections;
    StandMarquee(slot, {-300, 500}, {400, -100});
    SelectRowsInMarquee();
    std::size_t expected = 0;
    for (std::int32_t i = 1; i <= 60; ++i) {
        for (std::int32_t j = i + 1; j <= 60; ++j) {
            double plunge = 0;
            double trend = 0;
            IntersectPlanes(DegToRad(gDataDip(slot, i)), DegToRad(gDataAz(slot, i)),
                            DegToRad(gDataDip(slot, j)), DegToRad(gDataAz(slot, j)), plunge, trend);
            std::int16_t x = 0;
            std::int16_t y = 0;
            ProjectPointInt(kEqualArea, plunge, trend, x, y);
            const bool isInside = x >= -300 && x <= 400 && y >= -100 && y <= 500;
            expected += plunge >= 0 && isInside ? 1 : 0;
        }
    }
    ASSERT_GT(expected, 50U);
    EXPECT_EQ(IntersectionsSelectedIn(slot).lines.size(), expected);
}

TEST_F(SelectedIntersectionsTest, AreNotMovedAndNothingIsAdded) {
    const int slot = NewBetaPlot();
    Frame(slot, {0, 0}, 30);
    Expect(kRefusal);
    EXPECT_EQ(MoveSelection(50, 50), 0);
    Expect(kRefusal);
    EXPECT_EQ(NudgeSelection(1, 0), 0);
    Expect(kRefusal);
    EXPECT_FALSE(AddPointToPlot("30", "120"));
    EXPECT_EQ(RecordOf(slot).NumData, 3);
    PlotMouse mouse;
    Expect(kRefusal);
    EXPECT_TRUE(mouse.Key(PlotKey::Up));
}

TEST_F(SelectedIntersectionsTest, FollowRowsThatAreSelectedInAGrid) {
    const int slot = NewBetaPlot();
    SelectRows(slot, {1, 3});
    ASSERT_EQ(IntersectionsSelectedIn(slot).lines.size(), 1U) << "0/000";
    EXPECT_NEAR(IntersectionsSelectedIn(slot).lines[0].n, 0, 1e-9);
    SelectRows(slot, {2});
    EXPECT_TRUE(LitPlaces(slot).empty()) << "one plane meets nothing";
}

TEST_F(SelectedIntersectionsTest, RowsOfOverlaysAreSelectedAmongThem) {
    const int slot = NewBetaPlot();
    AddOverlay(kOverlayLines, 60, 0, CodeOfStyleRow(2));
    Frame(slot, PlaceOfLine(60, 0), 20);
    EXPECT_EQ(gSelectionRows, std::vector<std::int32_t>{4});
}

TEST_F(SelectedIntersectionsTest, AreGoneWithTheMode) {
    const int slot = NewBetaPlot();
    Frame(slot, {0, 0}, 30);
    RecordOf(slot).PlotSymbolMode = kPointSymbols;
    EXPECT_TRUE(IntersectionsSelectedIn(slot).lines.empty());
}

class LitArcsTest : public SelectedIntersectionsTest {};

TEST_F(LitArcsTest, RowsThatAreDrawnAsGreatCirclesLightUpAsThese) {
    const int slot = NewPlot();
    AddRow(30, 120);
    AddRow(70, 300);
    ActiveRecord().PlotSymbolMode = kGreatCircles;
    SelectRows(slot, {1});
    EXPECT_TRUE(LitPlaces(slot).empty());
    ASSERT_EQ(LitArcs(slot).size(), 1U);
    RecordingSurface surface(1000, 1000);
    surface.SetUserScale({-1100, 1100, 1100, -1100});
    PlotMouse().OverlayShapes(surface, slot, {10, 20, 30});
    std::vector<DrawOperation> arcs;
    for (const DrawOperation& operation : surface.Operations()) {
        EXPECT_NE(operation.kind, DrawOperation::Kind::Markers) << "no rings at poles";
        if (operation.kind == DrawOperation::Kind::Arc) {
            arcs.push_back(operation);
        }
    }
    ASSERT_EQ(arcs.size(), 2U) << "a halo and the arc";
    EXPECT_EQ(arcs[0].colour, kWhite);
    EXPECT_EQ(arcs[1].colour, (Colour{10, 20, 30}));
    EXPECT_GT(arcs[0].state.drawWidth, arcs[1].state.drawWidth);
    // The arc of the row itself, except that the position of its pole is rounded.
    double plunge = 0;
    double trend = 0;
    PoleOfPlane(DegToRad(30), DegToRad(120), plunge, trend);
    const GreatCircle circle = GreatCircleArc(kEqualArea, plunge, trend);
    EXPECT_NEAR(arcs[1].radius, circle.radius, 5);
    RecordOf(slot).PlotSymbolMode = kPointSymbols;
    EXPECT_EQ(LitPlaces(slot).size(), 1U) << "at once when the mode changes";
    EXPECT_TRUE(LitArcs(slot).empty());
}

TEST_F(LitArcsTest, OverlaysGoByTheirOwnForm) {
    const int slot = NewPlot();
    AddRow(30, 120);
    AddOverlay(kOverlayGreatCircles, 60, 10, CodeOfStyleRow(2));
    SelectRows(slot, {1, 2});
    EXPECT_EQ(LitPlaces(slot).size(), 1U);
    EXPECT_EQ(LitArcs(slot).size(), 1U);
}

} // namespace
} // namespace quandrel
