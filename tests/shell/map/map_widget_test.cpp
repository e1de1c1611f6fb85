// SPDX-License-Identifier: MIT
//
// Maps and browsers of the map link, driven by mouse and keys.

#include "shell/map/frm_layer_control.h"
#include "shell/map/map_link_fixture.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>
#include <QWheelEvent>

namespace quandrel {
namespace {

class MapPages : public MapinfoWindow {};

TEST_F(MapPages, ThePointToolLightsUpARowOnTheNet) {
    LinkTo("joints.tab");
    const int slot = PlotTable();
    Click("PointLink");
    EXPECT_TRUE(MapButton("PointLink").isChecked());
    EXPECT_FALSE(MapButton("SelectTool").isChecked());
    const int before = done;
    QTest::mouseClick(&Map(), Qt::LeftButton, {}, AtRow(57));
    EXPECT_EQ(Selection::now.slot, slot);
    EXPECT_EQ(gSelectionRows, Rows{57});
    EXPECT_EQ(LitOnMap(), std::vector<int>{57});
    EXPECT_GT(done, before);
}

TEST_F(MapPages, BothMarqueesLightUpRowsOnTheNet) {
    LinkTo("joints.tab");
    PlotTable();
    const std::vector<int> inBox = {12, 13, 14, 32, 33, 34};
    for (const char* tool : {"MarqueeLink", "RectTool"}) {
        ClearSelection();
        Click(tool);
        Drag(At({10.5, -0.5}), At({13.5, 1.5}));
        EXPECT_EQ(gSelectionRows, RowsOfPlot(inBox)) << tool;
    }
    EXPECT_EQ(Selected(), inBox) << "the session keeps its own selection";
    Click("RadiusSelect");
    Drag(AtRow(105), At({4, 6.2}));
    // 105 is at (4, 5): within 1.2 units lie its four neighbours.
    EXPECT_EQ(gSelectionRows, (Rows{85, 104, 105, 106, 125}));
}

TEST_F(MapPages, ToolsCanBeChosenWhileATableIsInFrontOfTheMap) {
    LinkTo("joints.tab");
    PlotTable();
    const MapBrowser& browser = Browse("joints");
    EXPECT_EQ(Session().State().frontWindowId, browser.Id());
    EXPECT_FALSE(windows->Actions().Of("LayerControl").isEnabled());
    Click("PointLink");
    QTest::mouseClick(&Map(), Qt::LeftButton, {}, AtRow(57));
    EXPECT_EQ(gSelectionRows, Rows{57});
    EXPECT_TRUE(windows->Actions().Of("LayerControl").isEnabled());
    Session().WindowClosedByUser(Map().Id());
    EXPECT_FALSE(MapButton("PointLink").isEnabled());
}

TEST_F(MapPages, TheSelectorTakesOneObjectAndMoreWithShift) {
    LinkTo("joints.tab");
    PlotTable();
    QTest::mouseClick(&Map(), Qt::LeftButton, {}, AtRow(21));
    QTest::mouseClick(&Map(), Qt::LeftButton, Qt::ShiftModifier, AtRow(60));
    EXPECT_EQ(Selected(), (std::vector<int>{21, 60}));
    EXPECT_EQ(gSelectionRows, (Rows{21, 60}));
}

TEST_F(MapPages, RowsChosenInTheBrowserLightUpOnMapAndNet) {
    LinkTo("joints.tab");
    const int slot = PlotTable();
    const MapBrowser& browser = Browse("joints");
    QTableView& rows = browser.Grid();
    const auto placeOf = [&rows](int row) {
        return rows.visualRect(rows.model()->index(row - 1, 0)).center();
    };
    QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, placeOf(2));
    QTest::mouseClick(rows.viewport(), Qt::LeftButton, Qt::ShiftModifier, placeOf(4));
    QTest::mouseClick(rows.viewport(), Qt::LeftButton, Qt::ControlModifier, placeOf(7));
    QCoreApplication::processEvents();
    const std::vector<int> expected = {2, 3, 4, 7};
    EXPECT_EQ(Selected(), expected);
    EXPECT_EQ(Selection::now.slot, slot);
    EXPECT_EQ(gSelectionRows, RowsOfPlot(expected));
    EXPECT_EQ(LitOnMap(), expected);
    EXPECT_EQ(LitIn(browser), expected);
    QTest::keyClick(&rows, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Selected().size(), static_cast<std::size_t>(kRowsOfTable));
}

TEST_F(MapPages, WheelAndKeysShowTheMapLargerAboutWhatTheyMean) {
    LinkTo("joints.tab");
    const double whole = View().UnitsPerPixel();
    const QPoint at = AtRow(1);
    const QPointF place(at);
    QWheelEvent wheel(place, Map().mapToGlobal(place), {}, {0, 120}, Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&Map(), &wheel);
    EXPECT_DOUBLE_EQ(View().UnitsPerPixel(), whole / 1.25);
    EXPECT_LE((AtRow(1) - at).manhattanLength(), 1) << "the point below the mouse stays";
    QTest::keyClick(&Map(), Qt::Key_Minus);
    EXPECT_DOUBLE_EQ(View().UnitsPerPixel(), whole);
    const MapPoint middle = View().Middle();
    QTest::keyClick(&Map(), Qt::Key_Right);
    EXPECT_NEAR(View().Middle().x, middle.x + Map().width() * whole / 8, whole);
    QTest::keyClick(&Map(), Qt::Key_Home);
    EXPECT_NEAR(View().Middle().x, 9.5, 1e-9);
    EXPECT_DOUBLE_EQ(View().UnitsPerPixel(), whole);
}

TEST_F(MapPages, TheMapIsMovedByTheGrabberAndByTheMiddleButton) {
    LinkTo("joints.tab");
    const QPoint before = AtRow(50);
    Drag({100, 100}, {130, 85}, Qt::MiddleButton);
    EXPECT_EQ(AtRow(50) - before, QPoint(30, -15));
    Click("Grabber");
    Drag({100, 100}, {90, 120});
    EXPECT_EQ(AtRow(50) - before, QPoint(20, 5));
    EXPECT_TRUE(Selected().empty());
}

TEST_F(MapPages, EscapeLetsADragGo) {
    LinkTo("joints.tab");
    PlotTable();
    Click("RectTool");
    QTest::mousePress(&Map(), Qt::LeftButton, {}, {2, 2});
    QTest::mouseMove(&Map(), QPoint(200, 200));
    QTest::keyClick(&Map(), Qt::Key_Escape);
    QTest::mouseRelease(&Map(), Qt::LeftButton, {}, {200, 200});
    EXPECT_TRUE(Selected().empty());
}

TEST_F(MapPages, ADraggedShapeIsSeenAndLeavesNoTrace) {
    LinkTo("joints.tab");
    Click("RectTool");
    const QImage before = Map().grab().toImage();
    QTest::mousePress(&Map(), Qt::LeftButton, {}, {10, 10});
    QTest::mouseMove(&Map(), QPoint(60, 60));
    EXPECT_NE(Map().grab().toImage(), before);
    QTest::keyClick(&Map(), Qt::Key_Escape);
    EXPECT_EQ(Map().grab().toImage(), before);
}

TEST_F(MapPages, TheShortcutMenuChoosesTools) {
    LinkTo("joints.tab");
    QContextMenuEvent wanted(QContextMenuEvent::Mouse, {20, 20}, Map().mapToGlobal(QPoint(20, 20)));
    QCoreApplication::sendEvent(&Map(), &wanted);
    auto* menu = LinkForm()->findChild<QMenu*>("MapperShortcut");
    ASSERT_NE(menu, nullptr);
    QStringList captions;
    for (const QAction* item : menu->actions()) {
        captions << item->text();
    }
    EXPECT_EQ(captions.join('|').toStdString(),
              "Selector|Marquee Select|Zoom-in|Zoom-out|Grabber|Find Selection|Layer Control...");
    menu->actions()[4]->trigger();
    EXPECT_TRUE(MapButton("Grabber").isChecked());
    menu->close();
}

TEST_F(MapPages, LayersThatAreNotSelectableAreNotFound) {
    LinkTo("joints.tab");
    PlotTable();
    QTimer::singleShot(0, [] {
        auto* dialog = dynamic_cast<frmLayerControl*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        auto& layers = ControlOf<QTableWidget>(*dialog, "grdLayers");
        EXPECT_EQ(layers.item(0, 0)->text(), "joints");
        layers.item(0, 2)->setCheckState(Qt::Unchecked);
        ControlOf<QPushButton>(*dialog, "cmdOK").click();
    });
    windows->Actions().Of("LayerControl").trigger();
    QTest::mouseClick(&Map(), Qt::LeftButton, {}, AtRow(21));
    EXPECT_TRUE(Selected().empty());
}

TEST_F(MapPages, TheInformationShowsTheFirstSelectedObject) {
    LinkTo("joints.tab");
    windows->Actions().Of(kMIInformation).trigger();
    QTest::mouseClick(&Map(), Qt::LeftButton, {}, AtRow(42));
    auto& values = ControlOf<QTableWidget>(*LinkForm(), "grdInformation");
    ASSERT_EQ(values.rowCount(), 4);
    EXPECT_EQ(values.item(1, 0)->text(), "DipDir");
    EXPECT_EQ(values.item(1, 1)->text(), "42");
}

TEST_F(MapPages, ABrowserOfTheSelectionFollowsIt) {
    LinkTo("joints.tab");
    QTest::mouseClick(&Map(), Qt::LeftButton, {}, AtRow(57));
    const MapBrowser& browser = Browse("Selection");
    const QAbstractItemModel& model = *browser.Grid().model();
    ASSERT_EQ(model.rowCount(), 1);
    EXPECT_EQ(model.headerData(0, Qt::Vertical).toInt(), 57);
    Click("RectTool");
    Drag(At({10.5, -0.5}), At({13.5, 1.5}));
    ASSERT_EQ(model.rowCount(), 6);
    EXPECT_EQ(model.index(5, 1).data().toString(), "34");
    Drag({1, 1}, {3, 3});
    EXPECT_EQ(model.rowCount(), 0);
}

TEST_F(MapPages, NothingIsSelectedDuringALongLoop) {
    LinkTo("joints.tab");
    PlotTable();
    gBusy = true;
    QTest::mouseClick(&Map(), Qt::LeftButton, {}, AtRow(21));
    EXPECT_FALSE(LinkForm()->close());
    gBusy = false;
    EXPECT_TRUE(Selected().empty());
    EXPECT_TRUE(IsMapInfoLinked());
}

} // namespace
} // namespace quandrel
