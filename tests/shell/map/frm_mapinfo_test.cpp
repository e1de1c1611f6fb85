// SPDX-License-Identifier: MIT
//
// The window of the map link: its start, its menus, its end.

#include "shell/map/frm_mi_table_dialog.h"
#include "shell/map/map_link_fixture.h"

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTabWidget>
#include <QTimer>

#include <cstdlib>
#include <set>

namespace quandrel {
namespace {

TEST_F(MapinfoWindow, AStartOpensTheWindowWithItsMenusAndShowsTheToolbar) {
    ASSERT_TRUE(StartMapInfoLink());
    const frmMapinfo* form = LinkForm();
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->windowTitle(), "MapInfo link window");
    EXPECT_EQ(form->lblMIStatus->text(), "Use 'File_Open' to select a MapInfo Table for linking");
    EXPECT_TRUE(toolbar->isVisible());
    EXPECT_GE(form->x(), room->viewport()->width() / 2) << "a plot is beside it";
    EXPECT_TRUE(MapButton("OpenMITable").isEnabled());
    EXPECT_FALSE(MapButton("PlotMITable").isEnabled());
    EXPECT_FALSE(MapButton("SelectTool").isEnabled());
    EXPECT_TRUE(form->mnuFile->actions().contains(&windows->Actions().Of("OpenMITable")));
    EXPECT_TRUE(form->mnuSelect->actions().contains(form->mnuPointSelect));
    EXPECT_TRUE(form->mnuSelect->actions().contains(form->mnuMarqueeSelect));
    EXPECT_TRUE(form->mnuQuandrel->actions().contains(form->mnuShowMIToolbar));
}

TEST_F(MapinfoWindow, EveryButtonHasItsIconAndAName) {
    for (const char* name : {"OpenMITable", "PlotMITable", "SelectTool", "RectTool", "RadiusSelect",
                             "ZoomIn", "ZoomOut", "Grabber", "PointLink", "MarqueeLink"}) {
        EXPECT_FALSE(MapButton(name).icon().isNull()) << name;
        EXPECT_FALSE(MapButton(name).accessibleName().isEmpty()) << name;
    }
}

TEST_F(MapinfoWindow, MnemonicsOfTheMenusAreTheirOwn) {
    ASSERT_TRUE(StartMapInfoLink());
    const std::set<QChar> ofMainWindow = {'F', 'E', 'P', 'V', 'M', 'W', 'H'};
    std::set<QChar> taken;
    const auto keyOf = [](const QString& caption) {
        return caption.at(caption.indexOf('&') + 1).toUpper();
    };
    for (const QAction* menu : LinkForm()->findChild<QMenuBar*>()->actions()) {
        EXPECT_FALSE(ofMainWindow.contains(keyOf(menu->text()))) << menu->text().toStdString();
        EXPECT_TRUE(taken.insert(keyOf(menu->text())).second) << menu->text().toStdString();
        std::set<QChar> ofItems;
        for (const QAction* item : menu->menu()->actions()) {
            EXPECT_TRUE(item->isSeparator() || ofItems.insert(keyOf(item->text())).second)
                << item->text().toStdString();
        }
    }
}

TEST_F(MapinfoWindow, AnOpenedTableIsShownAsAMapAndCanBePlotted) {
    LinkTo("joints.tab");
    EXPECT_EQ(LinkForm()->windowTitle(), "MapInfo Tables: joints");
    EXPECT_EQ(LinkForm()->lblMIStatus->text(), "Opened: joints");
    EXPECT_TRUE(MapButton("PlotMITable").isEnabled());
    EXPECT_TRUE(MapButton("MarqueeLink").isEnabled());
    EXPECT_TRUE(MapButton("SelectTool").isChecked());
    // All points lie within the map.
    EXPECT_TRUE(Map().rect().contains(AtRow(1)));
    EXPECT_TRUE(Map().rect().contains(AtRow(kRowsOfTable)));
    const int slot = PlotTable();
    EXPECT_EQ(plotted, std::vector<std::string>{"New"});
    EXPECT_EQ(RecordOf(slot).FileTitle, "MapInfo Table:joints");
    EXPECT_EQ(gMIGeoLinks.Item(slot)->RowCount(), kRowsOfTable - 1U);
}

TEST_F(MapinfoWindow, AFileThatIsNoTableIsToldAndTheLinkStays) {
    ASSERT_TRUE(StartMapInfoLink());
    Expect(std::string(kCommandFailed) + "\n\nThis is not a table");
    LinkTo("broken.tab");
    EXPECT_TRUE(IsMapInfoLinked());
    EXPECT_EQ(ControlOf<QTabWidget>(*LinkForm(), "tabMaps").count(), 0);
}

TEST_F(MapinfoWindow, WhatIsSelectedOnTheNetLightsUpOnTheMapAndInTheBrowser) {
    LinkTo("joints.tab");
    const int slot = PlotTable();
    const MapBrowser& browser = Browse("joints");
    EXPECT_TRUE(LitOnMap().empty());
    SelectRows(slot, {3, 44, 45, 46, 199});
    const std::vector<int> expected = {3, 44, 45, 46, 199};
    EXPECT_EQ(Selected(), expected);
    EXPECT_EQ(LitOnMap(), expected);
    EXPECT_EQ(LitIn(browser), expected);
    ClearSelection();
    EXPECT_TRUE(LitOnMap().empty());
    EXPECT_TRUE(LitIn(browser).empty());
}

TEST_F(MapinfoWindow, TheDialogOfTablesOpensWithTheOneInFront) {
    LinkTo("joints.tab");
    LinkTo("faults.tab");
    ASSERT_TRUE(MIDo("Select * From joints Where RowID = 5"));
    QStringList offered;
    QString open;
    QTimer::singleShot(0, [&] {
        auto* dialog = dynamic_cast<frmMITableDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        auto& box = ControlOf<QComboBox>(*dialog, "cboMITables");
        open = box.currentText();
        for (int i = 0; i < box.count(); ++i) {
            offered << box.itemText(i);
        }
        box.setCurrentText("joints");
        ControlOf<QPushButton>(*dialog, "cmdOK").click();
    });
    PlotTable();
    EXPECT_EQ(offered.join(' ').toStdString(), "joints faults Selection");
    EXPECT_EQ(open, "faults");
    EXPECT_EQ(gMIGeoLinks.Item(gActivePlot)->MITableName, "joints");
}

TEST_F(MapinfoWindow, TwoMapsArePagesAndTheCaptionFollowsTheOneInFront) {
    LinkTo("joints.tab");
    LinkTo("faults.tab");
    auto& maps = ControlOf<QTabWidget>(*LinkForm(), "tabMaps");
    ASSERT_EQ(maps.count(), 2);
    EXPECT_EQ(LinkForm()->windowTitle(), "MapInfo Tables: faults");
    maps.setCurrentIndex(0);
    EXPECT_EQ(LinkForm()->windowTitle(), "MapInfo Tables: joints");
    Q_EMIT maps.tabCloseRequested(0);
    EXPECT_EQ(maps.count(), 1);
    EXPECT_EQ(LinkForm()->windowTitle(), "MapInfo Tables: faults");
    EXPECT_EQ(Session().Eval("NumWindows()").text, "1");
}

TEST_F(MapinfoWindow, ClosingTheWindowEndsTheLinkAndLeavesThePlots) {
    LinkTo("joints.tab");
    const int slot = PlotTable();
    LinkForm()->close();
    EXPECT_FALSE(IsMapInfoLinked());
    EXPECT_EQ(LinkForm(), nullptr);
    EXPECT_FALSE(toolbar->isVisible());
    EXPECT_FALSE(MapButton("OpenMITable").isEnabled());
    EXPECT_EQ(RecordOf(slot).NumData, kRowsOfTable);
    SelectRows(slot, {1, 2});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(room->subWindowList().isEmpty());
    LinkTo("joints.tab"); // once more
    EXPECT_TRUE(IsMapInfoLinked());
    SelectRows(slot, {8});
    EXPECT_EQ(LitOnMap(), std::vector<int>{8}) << "the plot knows its rows still";
}

TEST_F(MapinfoWindow, TheMenuItemEndsTheLinkToo) {
    LinkTo("joints.tab");
    windows->Actions().Of(kCloseMILink).trigger();
    EXPECT_FALSE(IsMapInfoLinked());
    EXPECT_EQ(LinkForm(), nullptr);
    EXPECT_EQ(windows->Host().Session(), nullptr);
}

TEST_F(MapinfoWindow, TheToolbarIsShownAndHiddenByItsMenuItem) {
    LinkTo("joints.tab");
    QAction& item = *LinkForm()->mnuShowMIToolbar;
    EXPECT_TRUE(item.isChecked());
    item.trigger();
    EXPECT_FALSE(toolbar->isVisible());
    EXPECT_FALSE(gSettings.windows.mapToolbar);
    ShowMIToolbar(true); // by the main window
    EXPECT_TRUE(toolbar->isVisible());
    EXPECT_TRUE(item.isChecked());
}

TEST_F(MapinfoWindow, ASessionThatDiesTakesTheWindowWithItAndIsTold) {
    gPlatform.mapLink.sessions = &sessions;
    script.tables = {Joints()};
    ASSERT_TRUE(StartMapInfoLink());
    ASSERT_NE(LinkForm(), nullptr);
    script.dies = "Menu 102";
    Expect(kCommandFailed);
    Click("OpenMITable");
    EXPECT_EQ(LinkForm(), nullptr);
    EXPECT_EQ(gMapInfo, nullptr);
    EXPECT_FALSE(toolbar->isVisible());
    gPlatform.mapLink.sessions = &grid;
    LinkTo("joints.tab"); // the program goes on
    EXPECT_TRUE(IsMapInfoLinked());
}

TEST_F(MapinfoWindow, WithoutReadersOfMapsTheBoxNamesThePackage) {
    // The sessions of the program itself, which find no library beside the tests.
    windows.reset();
    windows = std::make_unique<MapLinkWindows>(main, *room, *toolbar, MapLinkSigns());
    setenv("QUANDREL_PLUGIN_DIR", folder.c_str(), 1);
    Expect("Could not find a Registered MapInfo Application");
    EXPECT_FALSE(StartMapInfoLink());
    unsetenv("QUANDREL_PLUGIN_DIR");
    const std::string& told = prompts.Shown().back().message.text;
    EXPECT_NE(told.find("not available"), std::string::npos) << told;
    EXPECT_NE(told.find("package libgdal"), std::string::npos) << told;
    EXPECT_EQ(LinkForm(), nullptr);
}

} // namespace
} // namespace quandrel
