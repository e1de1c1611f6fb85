// SPDX-License-Identifier: MIT

#include "mapsession/map_drawing.h"
#include "platform/scripted/recording_surface.h"
#include "sample_session.h"

#include <algorithm>

namespace quandrel {
namespace {

using Kind = DrawOperation::Kind;

std::vector<DrawOperation> Drawn(const SessionState& state, std::int64_t window) {
    RecordingSurface surface(1000, 1000);
    DrawState before;
    before.drawWidth = 7;
    surface.SetState(before);
    const MapColours colours = DefaultMapColours();
    DrawMapWindow(state, *FindSessionWindow(state, window), colours, surface);
    EXPECT_EQ(surface.State(), before);
    return surface.Operations();
}

std::vector<DrawOperation> OfKind(const std::vector<DrawOperation>& operations, Kind kind) {
    std::vector<DrawOperation> found;
    std::copy_if(operations.begin(), operations.end(), std::back_inserter(found),
                 [kind](const DrawOperation& operation) { return operation.kind == kind; });
    return found;
}

/// A session with one table of one row, in a map of 1000 by 1000 pixels that shows 0 to 100.
struct OneShape : SampleSession {
    explicit OneShape(const MapShape& shape) {
        SessionTable table("shape", "shape.tab");
        table.AddRow({});
        for (const MapShapePart& part : shape) {
            table.AddPart(part.kind, part.points);
        }
        tables->files["shape.tab"] = {table};
        (void)session->Do("Open Table \"shape.tab\"");
        (void)session->Do("Map From shape");
        session->ResizeWindow(1, 1000, 1000);
        // 90 units on 900 pixels.
        FindSessionWindow(session->State(), 1)->view.FitTo(MapBox::Of({5, 5}, {95, 95}));
    }
};

TEST(DrawMapWindow, DrawsAllPointsInOneCallAndTheSelectedOnesAbove) {
    SampleSession sample;
    const std::int64_t map = sample.OpenMapOfDips();
    (void)sample.session->Do("Select * From dips Where RowID = 1 or RowID = 12");
    const std::vector<DrawOperation> drawn = Drawn(sample.session->State(), map);
    ASSERT_EQ(drawn.size(), 3U);
    EXPECT_EQ(drawn[0].kind, Kind::Clear);
    EXPECT_EQ(drawn[1].points.size(), 98U);
    EXPECT_EQ(drawn[2].text, "selected map point");
    EXPECT_EQ(drawn[2].colour, DefaultMapColours().selected);
    ASSERT_EQ(drawn[2].points.size(), 2U);
    // Nine units over 900 of 1000 pixels: (1, 0) is at the bottom left, (2, 1) 100 pixels on.
    EXPECT_NEAR(drawn[2].points[0].x, 50, 1e-9);
    EXPECT_NEAR(drawn[2].points[0].y, -950, 1e-9);
    EXPECT_NEAR(drawn[2].points[1].x, 150, 1e-9);
    EXPECT_NEAR(drawn[2].points[1].y, -850, 1e-9);
}

TEST(DrawMapWindow, LeavesOutWhatTheWindowDoesNotShow) {
    SampleSession sample;
    const std::int64_t map = sample.OpenMapOfDips();
    (void)sample.session->RunMenuCommand(kToolZoomIn);
    sample.session->UseTool(map, {2.6, 2.6}, {4.4, 4.4}, {});
    const auto markers = OfKind(Drawn(sample.session->State(), map), Kind::Markers);
    ASSERT_EQ(markers.size(), 1U);
    EXPECT_EQ(markers[0].points.size(), 4U); // (3, 3) to (4, 4)
}

TEST(DrawMapWindow, DrawsTheTopmostLayerLast) {
    SampleSession sample;
    (void)sample.session->Do("Open Table \"dips.tab\"");
    (void)sample.session->Do("Open Table \"faults.tab\"");
    (void)sample.session->Do("Map From faults, dips");
    const auto markers = OfKind(Drawn(sample.session->State(), 1), Kind::Markers);
    ASSERT_EQ(markers.size(), 2U);
    EXPECT_EQ(markers[0].points.size(), 100U);
    EXPECT_EQ(markers[1].points.size(), 3U);
    EXPECT_NE(markers[0].colour, markers[1].colour);
}

TEST(DrawMapWindow, SelectedPointsKeepTheFinePenOfSymbols) {
    SampleSession sample;
    const std::int64_t map = sample.OpenMapOfDips();
    (void)sample.session->Do("Select * From dips Where RowID = 1 or RowID = 100");
    const auto markers = OfKind(Drawn(sample.session->State(), map), Kind::Markers);
    ASSERT_EQ(markers.size(), 2U);
    EXPECT_EQ(markers[1].points.size(), 2U);
    EXPECT_EQ(markers[1].state.drawWidth, 1) << "only selected lines are broad";
}

TEST(DrawMapWindow, CutsLinesAtTheWindow) {
    // Crosses the window at half height, goes far out, and comes back in at a quarter.
    const std::vector<MapPoint> line = {{-1e7, 50}, {1e7, 50}, {1e7, 25}, {-1e7, 25}};
    const OneShape sample({{MapPartKind::Line, line}});
    const auto lines = OfKind(Drawn(sample.session->State(), 1), Kind::Polyline);
    ASSERT_EQ(lines.size(), 2U);
    for (const DrawOperation& operation : lines) {
        ASSERT_EQ(operation.points.size(), 2U);
        for (const Point& point : operation.points) {
            EXPECT_LT(std::abs(point.x - 500), 530);
        }
    }
    EXPECT_NEAR(lines[0].points[0].y, -500, 1e-6);
    EXPECT_NEAR(lines[1].points[0].y, -750, 1e-6);
}

TEST(DrawMapWindow, ClosesTheOutlinesOfAreas) {
    const std::vector<MapPoint> triangle = {{10, 10}, {90, 10}, {50, 90}};
    const OneShape sample({{MapPartKind::Ring, triangle}});
    const auto lines = OfKind(Drawn(sample.session->State(), 1), Kind::Polyline);
    ASSERT_EQ(lines.size(), 1U);
    ASSERT_EQ(lines[0].points.size(), 4U);
    EXPECT_NEAR(lines[0].points[3].x, lines[0].points[0].x, 1e-9);
    EXPECT_NEAR(lines[0].points[3].y, lines[0].points[0].y, 1e-9);
}

/// Signed area of a closed outline.
double AreaOf(const std::vector<Point>& outline) {
    double twice = 0;
    for (std::size_t i = 0; i < outline.size(); ++i) {
        const Point& from = outline[i];
        const Point& to = outline[(i + 1) % outline.size()];
        twice += from.x * to.y - to.x * from.y;
    }
    return twice / 2;
}

TEST(DrawMapWindow, HatchesSelectedAreasAndLeavesTheirHoles) {
    const std::vector<MapPoint> outer = {{10, 10}, {90, 10}, {90, 90}, {10, 90}};
    const std::vector<MapPoint> hole = {{40, 40}, {40, 60}, {60, 60}, {60, 40}};
    const std::vector<MapPoint> second = {{20, 70}, {20, 80}, {30, 80}, {30, 70}};
    OneShape sample(
        {{MapPartKind::Ring, outer}, {MapPartKind::Ring, hole}, {MapPartKind::Ring, second}});
    EXPECT_TRUE(OfKind(Drawn(sample.session->State(), 1), Kind::Polygon).empty());
    (void)sample.session->Do("Select * From shape Where RowID = 1");
    const auto areas = OfKind(Drawn(sample.session->State(), 1), Kind::Polygon);
    ASSERT_EQ(areas.size(), 1U);
    EXPECT_EQ(areas[0].state.drawStyle, kNoLine);
    EXPECT_EQ(areas[0].state.fillStyle, kDiagonalCrossHatch);
    // 800 by 800 pixels less the holes, which run the other way round.
    EXPECT_NEAR(std::abs(AreaOf(areas[0].points)), 640000 - 40000 - 10000, 1e-6);
}

TEST(DrawMapWindow, DrawsNothingOfALayerThatIsNotVisible) {
    SampleSession sample;
    const std::int64_t map = sample.OpenMapOfDips();
    (void)sample.session->Do("Select * From dips Where RowID = 1");
    FindSessionWindow(sample.session->State(), map)->layers.front().visible = false;
    EXPECT_EQ(Drawn(sample.session->State(), map).size(), 1U);
}

TEST(DrawMapWindow, ShowsTheSelectionAsALayerOfItsOwn) {
    SampleSession sample;
    (void)sample.session->Do("Open Table \"dips.tab\"");
    (void)sample.session->Do("Select * From dips Where RowID = 1 or RowID = 100");
    ASSERT_EQ(sample.Do("Map From Selection"), "Done");
    EXPECT_EQ(sample.Eval("LayerInfo(1,1,1)"), "Selection");
    const auto markers = OfKind(Drawn(sample.session->State(), 1), Kind::Markers);
    ASSERT_EQ(markers.size(), 1U);
    EXPECT_EQ(markers[0].points.size(), 2U);
    ASSERT_EQ(sample.Eval("SearchRect(1,-100,-100,100,100)"), "2");
    EXPECT_EQ(sample.Eval("SearchInfo(2,1)"), "dips");
    EXPECT_EQ(sample.Eval("SearchInfo(2,2)"), "100");
}

TEST(DrawDraggedShape, IsACircleForTheRadiusToolAndABoxElse) {
    SampleSession sample;
    const std::int64_t map = sample.OpenMapOfDips();
    const SessionWindow& window = *FindSessionWindow(sample.session->State(), map);
    RecordingSurface surface(1000, 1000);
    DrawDraggedShape(window, kToolRadius, {2, 2}, {2, 3}, surface);
    DrawDraggedShape(window, kToolMarquee, {2, 2}, {2, 3}, surface);
    ASSERT_EQ(surface.Operations().size(), 2U);
    EXPECT_EQ(surface.Operations()[0].kind, Kind::Circle);
    EXPECT_NEAR(surface.Operations()[0].radius, 100, 1e-9);
    EXPECT_EQ(surface.Operations()[1].kind, Kind::Box);
}

} // namespace
} // namespace quandrel
