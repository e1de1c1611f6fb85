// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/settings.h"
#include "edit/commands/plot_mouse.h"
#include "edit/history/edit_step.h"
#include "edit/history/undo.h"
#include "edit/marks/annotation_edits.h"
#include "edit/marks/annotations.h"
#include "edit/marks/girdle_pull.h"
#include "edit/marks/small_circle_pick.h"
#include "edit/marks/small_circles.h"
#include "edit/rows/move_rows.h"
#include "edit/selection/marquee.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

namespace quandrel {
namespace {

using namespace testing;

using Rows = std::vector<std::int32_t>;
using Kind = DrawOperation::Kind;

constexpr Colour kHighlight{10, 120, 250};

class PlotMouseTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        ClearSelection();
        ForgetUndo();
        gActiveGirdle = 0;
        NewPlot();
        ActiveRecord().PrimaryFormat = kPrimaryLine;
        ActiveRecord().DataKind = kLines;
    }

    void TearDown() override {
        CancelGirdlePull();
        EndSmallCirclePick();
        gActiveGirdle = 0;
        ClearSelection();
        ForgetUndo();
        EngineTest::TearDown();
    }

    MouseReport Press(double x, double y, int button = kLeftMouseButton, int shift = 0) {
        return mouse.Press({button, shift, x, y}, modes);
    }

    MouseReport Move(double x, double y, int shift = 0) {
        return mouse.Move({0, shift, x, y}, modes);
    }

    MouseReport Release(double x, double y, int button = kLeftMouseButton, int shift = 0) {
        return mouse.Release({button, shift, x, y}, modes);
    }

    void Drag(Point from, Point to, int button = kLeftMouseButton, int shift = 0) {
        (void)Press(from.x, from.y, button, shift);
        (void)Move((from.x + to.x) / 2, (from.y + to.y) / 2, shift);
        (void)Move(to.x, to.y, shift);
        (void)Release(to.x, to.y, button, shift);
    }

    [[nodiscard]] std::vector<DrawOperation> Overlay() const {
        RecordingSurface surface(1100, 1100);
        surface.SetUserScale(kPlotScale);
        mouse.OverlayShapes(surface, gActivePlot, kHighlight);
        return surface.Operations();
    }

    /// Places of the rings in the overlay painting.
    [[nodiscard]] std::vector<Point> Rings() const {
        for (const DrawOperation& operation : Overlay()) {
            if (operation.kind == Kind::Markers) {
                return operation.points;
            }
        }
        return {};
    }

    /// Corners of the frame in the overlay painting.
    [[nodiscard]] std::vector<Point> Frame() const {
        for (const DrawOperation& operation : Overlay()) {
            if (operation.kind == Kind::Box) {
                return operation.points;
            }
        }
        return {};
    }

    PlotMouse mouse;
    MouseModes modes{false, false, false, {2, 2}};
};

TEST_F(PlotMouseTest, ADragSelectsWhatItsRectangleHolds) {
    AddRow(80, 90);
    AddRow(80, 270);
    Drag({10, 200}, {400, -200});
    EXPECT_EQ(gSelectionRows, Rows{1});
    EXPECT_EQ(gMarquee, (std::array<float, 7>{0, 10, 200, 390, -400, 0, 9999}));
}

TEST_F(PlotMouseTest, WhileItIsDrawnTheMarqueeFollowsThePointerAndSelectsNothing) {
    AddRow(80, 90);
    (void)Press(10, 200);
    EXPECT_EQ(gMarquee[kMarqueeDragging], 9999);
    EXPECT_TRUE(Move(300, -100).overlayChanged);
    EXPECT_EQ(Frame(), (std::vector<Point>{{10, 200}, {300, -100}}));
    EXPECT_TRUE(gSelectionRows.empty());
    EXPECT_FALSE(MarqueeStands());
    (void)Release(300, -100);
    EXPECT_EQ(gSelectionRows, Rows{1});
    EXPECT_EQ(gMarquee[kMarqueeDragging], 0);
}

TEST_F(PlotMouseTest, ADragDrawsNothingAnew) {
    AddRow(80, 90);
    const int shown = Form(gActivePlot).TimesShown();
    (void)Press(-900, 900);
    for (int step = 0; step < 100; ++step) {
        (void)Move(-900 + 18 * step, 900 - 18 * step);
    }
    (void)Release(900, -900);
    EXPECT_EQ(Form(gActivePlot).TimesShown(), shown);
}

TEST_F(PlotMouseTest, AClickWithoutMovementClears) {
    AddRow(80, 90);
    SelectAll();
    (void)Press(-500, 500); // inside the marquee
    (void)Release(-500, 500);
    EXPECT_FALSE(MarqueeStands());
    EXPECT_TRUE(gSelectionRows.empty());
    EXPECT_EQ(gLastEditKind, kNoEdit);
    StandMarquee(gActivePlot, {0, 500}, {500, 0});
    SelectRowsInMarquee();
    (void)Press(-500, -500); // outside of it
    (void)Release(-499, -500);
    EXPECT_FALSE(MarqueeStands());
}

TEST_F(PlotMouseTest, EscapeClears) {
    AddRow(80, 90);
    SelectAll();
    EXPECT_TRUE(mouse.Key(PlotKey::Escape));
    EXPECT_TRUE(gSelectionRows.empty());
    EXPECT_FALSE(mouse.Key(PlotKey::Escape)); // nothing left for it
}

TEST_F(PlotMouseTest, APressInTheMarqueeMovesItsRows) {
    AddRow(90, 0);
    AddRow(10, 270);
    Drag({-100, 100}, {100, -100});
    ASSERT_EQ(gSelectionRows, Rows{1});
    EXPECT_EQ(Move(50, 50).pointer, PointerShape::Move);
    (void)Press(50, 50);
    (void)Move(250, 50);
    EXPECT_EQ(mouse.DragOffset(), (Point{200, 0}));
    EXPECT_EQ(Rings(), (std::vector<Point>{{200, 0}}));
    EXPECT_EQ(Frame(), (std::vector<Point>{{100, 100}, {300, -100}}));
    EXPECT_EQ(gDataDip(gActivePlot, 1), 90); // not yet
    (void)Release(250, 50);
    EXPECT_EQ(gDataAz(gActivePlot, 1), 90);
    // r = 1414.2 sin(c/2): 200 units are 16.3 degrees from the vertical.
    EXPECT_EQ(gDataDip(gActivePlot, 1), 74);
    EXPECT_EQ(gDataDip(gActivePlot, 2), 10);
    EXPECT_EQ(gLastEditKind, kMoveEdit);
    EXPECT_EQ(gMarquee, (std::array<float, 7>{0, 100, 100, 200, -200, 0, 9999}));
    EXPECT_EQ(gSelectionRows, Rows{1});
}

TEST_F(PlotMouseTest, AMoveThatThrowsAllRowsOutLeavesMarqueeAndUndoAlone) {
    AddRow(5, 90);
    SelectAll();
    Drag({0, 0}, {900, 0});
    EXPECT_EQ(gDataDip(gActivePlot, 1), 5);
    EXPECT_EQ(gLastEditKind, kNoEdit);
    EXPECT_EQ(gMarquee[kMarqueeX], -1000);
}

TEST_F(PlotMouseTest, ACornerIsPulledAgainstTheOppositeOne) {
    AddRow(80, 90);
    StandMarquee(gActivePlot, {-300, 300}, {-100, -300});
    SelectRowsInMarquee();
    ASSERT_TRUE(gSelectionRows.empty());
    EXPECT_EQ(Move(-100, 300).pointer, PointerShape::HandleRising);
    EXPECT_EQ(Move(-100, -300).pointer, PointerShape::HandleFalling);
    Drag({-95, 295}, {400, 310});
    EXPECT_EQ(gMarquee, (std::array<float, 7>{0, -300, -300, 700, 610, 0, 9999}));
    EXPECT_EQ(gSelectionRows, Rows{1});
}

TEST_F(PlotMouseTest, AltAddsAPointWhenTheButtonComesUp) {
    (void)Press(100, 0, kLeftMouseButton, kAltKey);
    EXPECT_EQ(ActiveRecord().NumData, 0);
    (void)Release(0, 200, kLeftMouseButton, kAltKey);
    ASSERT_EQ(ActiveRecord().NumData, 1);
    EXPECT_EQ(gDataAz(gActivePlot, 1), 0);
    EXPECT_EQ(gDataDip(gActivePlot, 1), 74);
    EXPECT_FALSE(MarqueeStands());
    (void)Press(0, 200, kRightMouseButton, kAltKey);
    EXPECT_FALSE(Release(0, 200, kRightMouseButton, kAltKey).opensEditMenu);
    EXPECT_EQ(gDataDip(gActivePlot, 2), -74);
}

TEST_F(PlotMouseTest, AltJustOutsideTheNetAddsNothing) {
    (void)Press(1001, 0, kLeftMouseButton, kAltKey);
    (void)Release(1001, 0, kLeftMouseButton, kAltKey);
    EXPECT_EQ(ActiveRecord().NumData, 0);
}

TEST_F(PlotMouseTest, AltAddsNothingOnARoseOrBesideTheRoseDialog) {
    modes.roseDialog = true;
    (void)Press(100, 0, kLeftMouseButton, kAltKey);
    (void)Release(100, 0, kLeftMouseButton, kAltKey);
    modes.roseDialog = false;
    ActiveRecord().PlotKind = kRose;
    (void)Press(100, 0, kLeftMouseButton, kAltKey);
    (void)Release(100, 0, kLeftMouseButton, kAltKey);
    EXPECT_EQ(ActiveRecord().NumData, 0);
    Drag({-500, 500}, {500, -500});
    EXPECT_FALSE(MarqueeStands());
}

TEST_F(PlotMouseTest, TheAddModeMakesAPlainPressAddPoints) {
    modes.addsPoints = true;
    EXPECT_EQ(Move(100, 0).pointer, PointerShape::Add);
    (void)Press(0, 200);
    (void)Release(0, 200);
    EXPECT_EQ(gDataDip(gActivePlot, 1), 74);
    (void)Press(0, 200, kRightMouseButton);
    EXPECT_FALSE(Release(0, 200, kRightMouseButton).opensEditMenu);
    EXPECT_EQ(gDataDip(gActivePlot, 2), -74);
}

TEST_F(PlotMouseTest, AltAndDragOnTheAnnotationLayerMakesAPolyline) {
    gActiveLayer = kAnnotationLayer;
    (void)Press(0, 0, kLeftMouseButton, kAltKey);
    ASSERT_EQ(AnnotationsOf(gActivePlot).size(), 1U); // at once
    for (int x = 1; x <= 25; ++x) {
        (void)Move(x, 0, kAltKey);
    }
    (void)Release(25, 0, kLeftMouseButton, kAltKey);
    ASSERT_EQ(AnnotationsOf(gActivePlot).size(), 1U);
    std::vector<int> nodes;
    for (const LineNode& node : AnnotationsOf(gActivePlot)[0].LineNodes) {
        nodes.push_back(node.X);
    }
    EXPECT_TRUE(std::find(nodes.begin(), nodes.end(), 10) != nodes.end());
    EXPECT_TRUE(std::find(nodes.begin(), nodes.end(), 20) != nodes.end());
    EXPECT_LE(nodes.size(), 3U);
    EXPECT_EQ(ActiveRecord().NumData, 0);
}

TEST_F(PlotMouseTest, ADragFromOutsideTheNetDrawsOnNoOtherAnnotation) {
    gActiveLayer = kAnnotationLayer;
    ASSERT_TRUE(AddAnnotation(kLeftMouseButton, 10, 20));
    for (const Point& from : {Point{1050, 0}, Point{-900, 900}}) {
        (void)mouse.Press({kLeftMouseButton, kAltKey, from.x, from.y}, modes);
        (void)mouse.Move({0, kAltKey, 300, 0}, modes);
        (void)mouse.Release({kLeftMouseButton, kAltKey, 200, 0}, modes);
    }
    ASSERT_EQ(AnnotationsOf(gActivePlot).size(), 1U);
    EXPECT_TRUE(AnnotationsOf(gActivePlot)[0].LineNodes.empty());
}

TEST_F(PlotMouseTest, AnnotationsAreMovedOnTheirLayer) {
    gActiveLayer = kAnnotationLayer;
    ASSERT_TRUE(AddAnnotation(kLeftMouseButton, 10, 20));
    AddRow(90, 0);
    Drag({-100, 100}, {100, -100});
    EXPECT_TRUE(gSelectionRows.empty());
    Drag({0, 0}, {50, 70});
    EXPECT_EQ(AnnotationsOf(gActivePlot)[0].X, 60);
    EXPECT_EQ(AnnotationsOf(gActivePlot)[0].Y, 90);
    EXPECT_EQ(gDataDip(gActivePlot, 1), 90);
    EXPECT_EQ(gMarquee[kMarqueeX], -50);
    EXPECT_EQ(gLastEditKind, kAnnotationMove);
}

TEST_F(PlotMouseTest, ShiftPullsTheActiveGirdleWhileTheButtonIsHeld) {
    FocusGirdle(3);
    AddRow(45, 45);
    const int shown = Form(gActivePlot).TimesShown();
    EXPECT_EQ(Press(100, 0, kLeftMouseButton, kShiftKey).information, kGirdleHint);
    EXPECT_EQ(PulledGirdle(), 3);
    const std::string pressed = GirdleText(3);
    (void)Move(200, 0, kShiftKey);
    EXPECT_NE(GirdleText(3), pressed);
    EXPECT_EQ(Form(gActivePlot).TimesShown(), shown);
    (void)Release(200, 0, kLeftMouseButton, kShiftKey);
    EXPECT_EQ(Form(gActivePlot).TimesShown(), shown + 1);
    const std::string released = GirdleText(3);
    (void)Move(300, 0, kShiftKey);
    EXPECT_EQ(GirdleText(3), released);
    EXPECT_TRUE(IsGirdleShown(3));
    EXPECT_FALSE(MarqueeStands());
}

TEST_F(PlotMouseTest, EscapeGivesTheGirdleBack) {
    FocusGirdle(3);
    UpdateGirdle(3, "40/120");
    (void)Press(100, 0, kLeftMouseButton, kShiftKey);
    (void)Move(200, 300, kShiftKey);
    EXPECT_NE(GirdleText(3), "40/120");
    EXPECT_TRUE(mouse.Key(PlotKey::Escape));
    EXPECT_EQ(GirdleText(3), "40/120");
    (void)Release(200, 300, kLeftMouseButton, kShiftKey);
    EXPECT_EQ(GirdleText(3), "40/120");
}

TEST_F(PlotMouseTest, ShiftWithoutAnActiveGirdleDrawsAMarquee) {
    AddRow(80, 90);
    for (const int girdle : {0, 9, 10}) {
        FocusGirdle(girdle);
        ClearSelection();
        Drag({-500, 500}, {500, -500}, kLeftMouseButton, kShiftKey);
        EXPECT_EQ(gSelectionRows, Rows{1}) << girdle;
        EXPECT_EQ(PulledGirdle(), 0);
    }
}

TEST_F(PlotMouseTest, TheRightButtonOpensTheEditMenu) {
    (void)Press(10, 10, kRightMouseButton);
    EXPECT_TRUE(Release(10, 10, kRightMouseButton).opensEditMenu);
    (void)Press(10, 10, kRightMouseButton, kCtrlKey);
    EXPECT_FALSE(Release(10, 10, kRightMouseButton, kCtrlKey).opensEditMenu);
    ActiveRecord().PlotKind = kRose;
    (void)Press(10, 10, kRightMouseButton);
    EXPECT_TRUE(Release(10, 10, kRightMouseButton).opensEditMenu);
}

TEST_F(PlotMouseTest, ASecondButtonDoesNotDisturbADrag) {
    AddRow(80, 90);
    (void)Press(-500, 500);
    (void)Press(0, 0, kRightMouseButton);
    EXPECT_FALSE(Release(0, 0, kRightMouseButton).opensEditMenu);
    EXPECT_TRUE(mouse.IsDragging());
    (void)Release(500, -500);
    EXPECT_EQ(gSelectionRows, Rows{1});
}

TEST_F(PlotMouseTest, PressesBelongToTheSmallCircleThatIsPicked) {
    ASSERT_TRUE(BeginSmallCirclePick(2));
    modes.addsPoints = true;
    EXPECT_EQ(Move(10, 10).information, kPickCircleHint);
    Drag({0, 0}, {300, 0});
    EXPECT_FALSE(MarqueeStands());
    EXPECT_EQ(ActiveRecord().NumData, 0);
    EXPECT_TRUE(IsSmallCircleShown(2));
    EXPECT_EQ(PickedSet(), 0);
    ASSERT_TRUE(BeginSmallCirclePick(2));
    (void)Press(500, 0);
    (void)Move(700, 0);
    EXPECT_TRUE(mouse.Key(PlotKey::Escape));
    EXPECT_EQ(SmallCircleOfSet(2)->AxisPl, "90");
    EXPECT_EQ(PickedSet(), 0);
}

TEST_F(PlotMouseTest, EscapeEndsADragAndGivesTheSelectionBack) {
    AddRow(90, 0);
    Drag({-100, 100}, {100, -100});
    (void)Press(400, 400);
    (void)Move(600, 600);
    EXPECT_TRUE(gSelectionRows.empty());
    EXPECT_TRUE(mouse.Key(PlotKey::Escape));
    EXPECT_EQ(gSelectionRows, Rows{1});
    EXPECT_TRUE(MarqueeStands());
    (void)Press(0, 0);
    (void)Move(200, 0);
    EXPECT_TRUE(mouse.Key(PlotKey::Escape));
    (void)Release(200, 0);
    EXPECT_EQ(gDataDip(gActivePlot, 1), 90);
    EXPECT_EQ(gMarquee[kMarqueeX], -100);
    EXPECT_EQ(gMarquee[kMarqueeDragging], 0);
}

TEST_F(PlotMouseTest, AnotherActivePlotEndsTheDrag) {
    AddRow(90, 0);
    (void)Press(-100, 100);
    NewPlot();
    (void)Move(100, -100);
    EXPECT_FALSE(mouse.IsDragging());
    (void)Release(100, -100);
    EXPECT_FALSE(MarqueeStands());
}

TEST_F(PlotMouseTest, ALassoSelectsWhatItGoesAround) {
    AddRow(90, 0);   // the centre
    AddRow(45, 90);  // (541, 0)
    AddRow(45, 270); // (-541, 0)
    modes.lasso = true;
    (void)Press(-700, 100);
    for (const Point at : {Point{0, -300}, {700, 100}, {500, -500}, {-500, -500}}) {
        (void)Move(at.x, at.y);
    }
    const std::vector<DrawOperation> shapes = Overlay();
    EXPECT_TRUE(std::any_of(shapes.begin(), shapes.end(), [](const DrawOperation& operation) {
        return operation.kind == Kind::Polyline && operation.points.size() == 6;
    }));
    (void)Release(-500, -500);
    EXPECT_EQ(gSelectionRows, (Rows{2, 3}));
    EXPECT_EQ(Selection::now.lasso.size(), 5U);
    (void)Press(0, -400);
    EXPECT_TRUE(mouse.IsDragging());
    EXPECT_EQ(Move(50, -400).pointer, PointerShape::Move);
    (void)Release(50, -400);
    EXPECT_EQ(gLastEditKind, kMoveEdit);
}

TEST_F(PlotMouseTest, ALassoThatGoesNowhereClears) {
    AddRow(90, 0);
    modes.lasso = true;
    SelectAll();
    mouse.Key(PlotKey::Escape);
    (void)Press(-10, 0);
    (void)Move(10, 0);
    (void)Release(10, 0);
    EXPECT_FALSE(MarqueeStands());
    EXPECT_TRUE(gSelectionRows.empty());
}

TEST_F(PlotMouseTest, ArrowsTurnTheSelectionByADegree) {
    AddRow(45, 10);
    EXPECT_FALSE(mouse.Key(PlotKey::Up)); // nothing selected
    SelectAll();

    const struct {
        PlotKey key;
        int plunge;
        int trend;
    } steps[] = {{PlotKey::Up, 46, 10},
                 {PlotKey::Right, 46, 11},
                 {PlotKey::Down, 45, 11},
                 {PlotKey::Left, 45, 10}};

    for (const auto& [key, plunge, trend] : steps) {
        EXPECT_TRUE(mouse.Key(key));
        EXPECT_EQ(gDataDip(gActivePlot, 1), plunge);
        EXPECT_EQ(gDataAz(gActivePlot, 1), trend);
    }
    gActiveLayer = kAnnotationLayer;
    EXPECT_FALSE(mouse.Key(PlotKey::Up));
}

TEST_F(PlotMouseTest, ShiftAddsWhatItsFrameHolds) {
    AddRow(80, 90);
    AddRow(80, 270);
    AddRow(80, 0);
    Drag({10, 100}, {300, -100});
    Drag({-300, 100}, {-10, -100}, kLeftMouseButton, kShiftKey);
    EXPECT_EQ(gSelectionRows, (Rows{1, 2}));
    EXPECT_EQ(gMarquee, (std::array<float, 7>{0, -300, 100, 290, -200, 0, 9999}))
        << "the last frame remains";
    Drag({-300, 100}, {-10, -100}, kLeftMouseButton, kShiftKey);
    EXPECT_EQ(gSelectionRows, (Rows{1, 2})) << "rows are added once";
}

TEST_F(PlotMouseTest, CtrlTogglesWhatItsFrameHolds) {
    AddRow(80, 90);
    AddRow(80, 270);
    AddRow(80, 0);
    Drag({-300, 100}, {300, -100});
    ASSERT_EQ(gSelectionRows, (Rows{1, 2}));
    Drag({-300, 300}, {-10, -100}, kLeftMouseButton, kCtrlKey);
    EXPECT_EQ(gSelectionRows, Rows{1});
    Drag({-300, 300}, {300, -100}, kLeftMouseButton, kCtrlKey);
    EXPECT_EQ(gSelectionRows, (Rows{2, 3}));
}

TEST_F(PlotMouseTest, WhileAFrameIsDrawnToAddTheFormerRowsStayLit) {
    AddRow(80, 90);
    AddRow(80, 270);
    Drag({10, 100}, {300, -100});
    (void)Press(-300, 100, kLeftMouseButton, kShiftKey);
    (void)Move(-200, 0, kShiftKey);
    EXPECT_EQ(gSelectionRows, Rows{1});
    EXPECT_FALSE(Rings().empty());
    EXPECT_TRUE(mouse.Key(PlotKey::Escape));
    EXPECT_EQ(gSelectionRows, Rows{1});
    EXPECT_EQ(gMarquee[kMarqueeX], 10);
}

TEST_F(PlotMouseTest, AClickWithShiftOrCtrlIsAboutTheRowsUnderIt) {
    AddRow(80, 90);  // (123, 0)
    AddRow(80, 270); // (-123, 0)
    const auto click = [&](double x, double y, int keys) {
        (void)Press(x, y, kLeftMouseButton, keys);
        (void)Release(x, y, kLeftMouseButton, keys);
    };
    click(120, 3, kShiftKey);
    EXPECT_EQ(gSelectionRows, Rows{1});
    click(-120, 0, kShiftKey);
    EXPECT_EQ(gSelectionRows, (Rows{1, 2}));
    click(120, 0, kCtrlKey);
    EXPECT_EQ(gSelectionRows, Rows{2});
    click(500, 500, kShiftKey);
    EXPECT_EQ(gSelectionRows, Rows{2}) << "beside all rows";
    EXPECT_TRUE(MarqueeStands());
    click(120, 0, 0);
    EXPECT_EQ(gSelectionRows, Rows{}) << "a plain click clears";
}

TEST_F(PlotMouseTest, ShiftAddsNothingWhileAGirdleIsActive) {
    AddRow(80, 90);
    AddRow(80, 270);
    Drag({10, 100}, {300, -100});
    FocusGirdle(3);
    Drag({-300, 100}, {-10, -100}, kLeftMouseButton, kShiftKey);
    EXPECT_EQ(gSelectionRows, Rows{1});
    EXPECT_TRUE(IsGirdleShown(3));
    Drag({-300, 100}, {-10, -100}, kLeftMouseButton, kCtrlKey);
    EXPECT_EQ(gSelectionRows, (Rows{1, 2})) << "Ctrl alone is not a key of girdles";
}

TEST_F(PlotMouseTest, DragsAndKeysActOnAllSelectedRows) {
    AddRow(80, 90);
    AddRow(80, 270);
    Drag({10, 100}, {300, -100});
    Drag({-300, 100}, {-10, -100}, kLeftMouseButton, kShiftKey);
    Drag({-200, 50}, {-200, 250}); // within the last frame
    EXPECT_GT(gDataAz(gActivePlot, 2), 270);
    EXPECT_LT(gDataAz(gActivePlot, 1), 90) << "a row outside the last frame";
    const int dip = gDataDip(gActivePlot, 1);
    EXPECT_TRUE(mouse.Key(PlotKey::Down));
    EXPECT_EQ(gDataDip(gActivePlot, 1), dip - 1);
}

TEST_F(PlotMouseTest, PullingACornerKeepsTheRowsOfOtherFrames) {
    AddRow(80, 90);
    AddRow(80, 270);
    AddRow(80, 0);
    Drag({10, 100}, {300, -100});
    Drag({-300, 100}, {-10, -100}, kLeftMouseButton, kShiftKey);
    Drag({-10, 100}, {60, 300});
    EXPECT_EQ(gSelectionRows, (Rows{1, 2, 3}));
    Drag({-300, -100}, {-50, 50});
    EXPECT_EQ(gSelectionRows, (Rows{1, 3})) << "what leaves the last frame goes";
}

TEST_F(PlotMouseTest, OnTheAnnotationLayerShiftAddsAndCtrlToggles) {
    gActiveLayer = kAnnotationLayer;
    for (const int x : {-500, 0, 500}) {
        ASSERT_TRUE(AddAnnotation(kLeftMouseButton, x, 0));
    }
    Drag({-600, 100}, {-400, -100});
    Drag({400, 100}, {600, -100}, kLeftMouseButton, kShiftKey);
    EXPECT_EQ(SelectedAnnotations(), (std::vector<std::size_t>{0, 2}));
    Drag({450, 50}, {450, 150});
    EXPECT_EQ(AnnotationsOf(gActivePlot)[0].Y, 100) << "outside the last frame";
    EXPECT_EQ(AnnotationsOf(gActivePlot)[1].Y, 0);
    EXPECT_EQ(AnnotationsOf(gActivePlot)[2].Y, 100);
    Drag({-600, 200}, {600, -100}, kLeftMouseButton, kCtrlKey);
    EXPECT_EQ(SelectedAnnotations(), std::vector<std::size_t>{1});
    EXPECT_TRUE(gSelectionRows.empty());
    Drag({-700, 300}, {700, -300});
    EXPECT_EQ(SelectedAnnotations().size(), 3U) << "a plain frame starts a new selection";
}

TEST_F(PlotMouseTest, ARunOfStepsIsTakenBackAsOne) {
    AddRow(45, 10);
    AddRow(20, 200);
    SelectRows(gActivePlot, {1});
    ActiveRecord().Modified = 0;
    for (const PlotKey key : {PlotKey::Up, PlotKey::Up, PlotKey::Right}) {
        ASSERT_TRUE(mouse.Key(key));
    }
    EXPECT_EQ(gDataDip(gActivePlot, 1), 47);
    UndoLastEdit();
    EXPECT_EQ(gDataDip(gActivePlot, 1), 45);
    EXPECT_EQ(gDataAz(gActivePlot, 1), 10);
    EXPECT_EQ(ActiveRecord().Modified, 0);
    RedoLastEdit();
    EXPECT_EQ(gDataDip(gActivePlot, 1), 47);
    EXPECT_EQ(gDataAz(gActivePlot, 1), 11);
}

TEST_F(PlotMouseTest, ARunOfStepsEndsAtAnotherSelectionEditOrSave) {
    AddRow(45, 10);
    AddRow(20, 200);
    SelectRows(gActivePlot, {1});
    ASSERT_TRUE(mouse.Key(PlotKey::Up));
    SelectRows(gActivePlot, {2});
    ASSERT_TRUE(mouse.Key(PlotKey::Up));
    UndoLastEdit();
    EXPECT_EQ(gDataDip(gActivePlot, 1), 46) << "the other selection's step is another run";
    EXPECT_EQ(gDataDip(gActivePlot, 2), 20);

    SelectRows(gActivePlot, {1});
    ASSERT_TRUE(mouse.Key(PlotKey::Up));
    ActiveRecord().Modified = 0; // saved
    ASSERT_TRUE(mouse.Key(PlotKey::Up));
    UndoLastEdit();
    EXPECT_EQ(gDataDip(gActivePlot, 1), 47);
    EXPECT_EQ(ActiveRecord().Modified, 0) << "as it was saved";

    ASSERT_TRUE(mouse.Key(PlotKey::Up));
    ASSERT_GT(MoveSelection(0, 150), 0);
    const int moved = gDataDip(gActivePlot, 1);
    ASSERT_TRUE(mouse.Key(PlotKey::Up));
    UndoLastEdit();
    EXPECT_EQ(gDataDip(gActivePlot, 1), moved);
}

TEST_F(PlotMouseTest, ThePointerTellsWhatAPressWouldDo) {
    AddRow(90, 0);
    EXPECT_EQ(Move(0, 0).pointer, PointerShape::Cross);
    EXPECT_EQ(Move(1050, 0).pointer, PointerShape::Arrow);
    EXPECT_EQ(Move(0, 0, kAltKey).pointer, PointerShape::Add);
    EXPECT_EQ(Move(1050, 0, kAltKey).pointer, PointerShape::Arrow);
    StandMarquee(gActivePlot, {-200, 200}, {200, -200});
    EXPECT_EQ(Move(0, 0).pointer, PointerShape::Move);
    EXPECT_EQ(Move(0, 0, kShiftKey).pointer, PointerShape::Cross);
    EXPECT_EQ(Move(-200, 200).pointer, PointerShape::HandleFalling);
    EXPECT_EQ(Move(300, 0).pointer, PointerShape::Cross);
    ActiveRecord().PlotKind = kRose;
    EXPECT_EQ(Move(0, 0).pointer, PointerShape::Arrow);
}

TEST_F(PlotMouseTest, ReadoutAndInformationComeWithEachMove) {
    gConventions = 1;
    gLineSeparator = "/";
    const MouseReport on = Move(0, 0);
    EXPECT_EQ(on.readout, "90/000");
    EXPECT_EQ(on.information, "");
    EXPECT_FALSE(on.overlayChanged);
    EXPECT_EQ(Move(0, 1001).readout, "");
    EXPECT_EQ(PlotMouse::Leave().readout, "");
}

TEST_F(PlotMouseTest, SelectedRowsWearARingAboveThePicture) {
    AddRow(0, 90);
    AddRow(0, 90); // one ring for both
    AddRow(0, 180);
    SelectRows(gActivePlot, {1, 2});
    const std::vector<DrawOperation> shapes = Overlay();
    ASSERT_EQ(shapes.size(), 2U); // no frame
    for (const DrawOperation& operation : shapes) {
        EXPECT_EQ(operation.points, (std::vector<Point>{{1000, 0}}));
    }
    EXPECT_EQ(shapes[0].colour, kWhite) << "the halo, below the ring";
    EXPECT_EQ(shapes[1].colour, kHighlight);
    EXPECT_EQ(shapes[1].state.drawWidth, 2);
    EXPECT_GT(shapes[0].state.drawWidth, shapes[1].state.drawWidth);
    StandMarquee(gActivePlot, {900, 100}, {1100, -100});
    for (const DrawOperation& operation : Overlay()) {
        if (operation.kind == Kind::Box) {
            EXPECT_EQ(operation.state.drawMode, kDrawNotXor);
            EXPECT_EQ(operation.state.drawStyle, kDashedLine);
        }
    }
    EXPECT_EQ(Overlay().size(), 7U); // halo, rings, frame, four handles
}

TEST_F(PlotMouseTest, AHundredThousandRowsDrawOneRingAPlace) {
    std::mt19937 random(9);
    std::uniform_int_distribution<int> plunge(0, 90);
    std::uniform_int_distribution<int> trend(0, 359);
    for (int row = 0; row < 100000; ++row) {
        AddRow(plunge(random), trend(random));
    }
    SelectAll();
    EXPECT_EQ(gSelectionRows.size(), 100000U);
    EXPECT_LE(Rings().size(), 91U * 360U);
    EXPECT_EQ(Overlay().size(), 7U);
}

TEST_F(PlotMouseTest, AboveFiftyPlacesTheRingsAreFilled) {
    const auto glyphOf = [&](std::int32_t rows) {
        Rows selected(static_cast<std::size_t>(rows));
        std::iota(selected.begin(), selected.end(), 1);
        SelectRows(gActivePlot, selected);
        return Overlay().back().text;
    };
    for (int row = 0; row < 51; ++row) {
        AddRow(30, 7 * row);
    }
    EXPECT_TRUE(glyphOf(50).starts_with("selection ring")) << glyphOf(50);
    EXPECT_TRUE(glyphOf(51).starts_with("selection disc")) << glyphOf(51);
}

TEST_F(PlotMouseTest, RingsAreSeenInSmallPicturesToo) {
    AddRow(30, 90);
    SelectAll();
    for (const int width : {200, 400, 1100}) {
        RecordingSurface surface(width, width);
        surface.SetUserScale(kPlotScale);
        mouse.OverlayShapes(surface, gActivePlot, kHighlight);
        const double radius = std::stod(surface.Operations()[0].text.substr(15));
        EXPECT_GE(radius / surface.PixelSize().x, 6 - 1e-9) << width;
    }
}

TEST_F(PlotMouseTest, TheFrameOfARowCanBeTakenHoldOfInSmallPictures) {
    AddRow(60, 90);
    for (const double pixel : {1.0, 5.5, 11.0}) {
        modes.pixel = {pixel, pixel};
        SelectRows(gActivePlot, {1});
        FitMarqueeToRows();
        const PlotRectangle frame = RectangleOfMarquee();
        const Point middle{(frame.left + frame.right) / 2, (frame.bottom + frame.top) / 2};
        EXPECT_EQ(Move(middle.x, middle.y).pointer, PointerShape::Move) << pixel;
        EXPECT_EQ(Move(frame.left, frame.top).pointer, PointerShape::HandleFalling) << pixel;
    }
}

TEST_F(PlotMouseTest, SelectedAnnotationsGetHandles) {
    gActiveLayer = kAnnotationLayer;
    ASSERT_TRUE(AddAnnotation(kLeftMouseButton, 100, 0));
    ASSERT_TRUE(AddAnnotation(kLeftMouseButton, -500, 0));
    StandMarquee(gActivePlot, {0, 200}, {300, -200});
    SelectRowsInMarquee();
    const auto handleAt = [&](double x, double y) {
        const std::vector<DrawOperation> shapes = Overlay();
        return std::ranges::count_if(shapes, [&](const DrawOperation& operation) {
            return operation.kind == Kind::FilledBox && operation.points[0].x < x
                   && operation.points[1].x > x && operation.points[0].y > y
                   && operation.points[1].y < y;
        });
    };
    EXPECT_EQ(handleAt(100, 0), 2) << "with a halo";
    EXPECT_EQ(handleAt(-500, 0), 0);
    (void)Press(100, 100);
    (void)Move(150, 120);
    EXPECT_EQ(handleAt(150, 20), 2) << "they follow a drag";
    (void)Release(100, 100);
    gActiveLayer = kDataLayer;
    EXPECT_EQ(handleAt(100, 0), 0);
}

TEST_F(PlotMouseTest, RandomEventsKeepTheStoreWhole) {
    std::mt19937 random(4711);
    for (int trend = 0; trend < 360; trend += 20) {
        AddRow(40, trend);
    }
    AddOverlay(kOverlayLines, 20, 20, CodeOfStyleRow(2));
    const int before = gActivePlot;
    std::uniform_real_distribution<double> place(-1200, 1200);
    std::uniform_int_distribution<int> any(0, 7);
    for (int step = 0; step < 3000; ++step) {
        modes.lasso = any(random) == 0;
        modes.addsPoints = any(random) == 0;
        gActiveGirdle = static_cast<std::int16_t>(any(random) == 0 ? 2 : 0);
        gActiveLayer = any(random) == 0 ? kAnnotationLayer : kDataLayer;
        const int button = any(random) < 5 ? kLeftMouseButton : kRightMouseButton;
        const int shift = any(random) < 4 ? 0 : any(random);
        switch (any(random)) {
        case 0:
            (void)mouse.Key(static_cast<PlotKey>(any(random) % 5));
            break;
        case 1:
        case 2:
            (void)Press(place(random), place(random), button, shift);
            break;
        case 3:
        case 4:
            (void)Release(place(random), place(random), button, shift);
            break;
        default:
            (void)Move(place(random), place(random), shift);
            break;
        }
        if (step % 50 == 0) {
            UndoLastEdit();
        }
        const PlotRecord& record = ActiveRecord();
        std::int32_t rows = record.NumData;
        for (int overlay = 1; overlay <= record.OverlayRows[kOverlayCount]; ++overlay) {
            rows += record.OverlayRows[static_cast<std::size_t>(overlay)];
        }
        ASSERT_EQ(rows, record.NumLoadedData) << step;
        ASSERT_EQ(TableOf(before).size(), static_cast<std::size_t>(rows)) << step;
        ASSERT_TRUE(std::all_of(gSelectionRows.begin(), gSelectionRows.end(),
                                [&](std::int32_t row) { return row >= 1 && row <= rows; }))
            << step;
        for (const std::int32_t row : gSelectionRows) {
            ASSERT_LE(std::abs(gDataDip(before, row)), 90) << step;
        }
    }
}

} // namespace
} // namespace quandrel
