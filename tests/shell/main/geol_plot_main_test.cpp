// SPDX-License-Identifier: MIT
//
// The main window: its controls, menus and keys, the start, the windows of the plots and the end.

#include "core/plot_texts.h"
#include "core/style_tables.h"
#include "pdf/pdf_file.h"
#include "persistence/open_plot.h"
#include "qt/plot_picture.h"
#include "session/closing.h"
#include "shell/controls/picture_box.h"
#include "shell/main/frm_intro.h"
#include "support/main_window_test.h"
#include "support/plot_rows.h"

#include <QApplication>
#include <QClipboard>
#include <QDockWidget>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTabBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include <fstream>
#include <set>

namespace quandrel {
namespace {

class MainWindow : public MainWindowTest {
protected:
    [[nodiscard]] std::vector<QString> MenusInBar() const {
        std::vector<QString> names;
        for (const QAction* action : main->menuBar()->actions()) {
            names.push_back(action->menu()->objectName());
        }
        return names;
    }
};

TEST_F(MainWindow, EveryControlHasItsName) {
    const char* names[] = {"panInfoLine",
                           "progBar",
                           "panDipAzBox",
                           "panToolbarBox",
                           "cmdOpenButton",
                           "cmdMergeButton",
                           "cmdOverlayButton",
                           "cmdBlankButton",
                           "cmdSaveButton",
                           "cmdPrintButton",
                           "cmdRotateButton",
                           "cmdSmallCircle",
                           "cmdIntersecLinButton",
                           "cmdClassifToggle",
                           "grpAnnotationButton",
                           "panGridDensity",
                           "sldGridDensity",
                           "panGirdleBox",
                           "toolMapInfo",
                           "lblGirdle",
                           "mnuFile",
                           "mnuPlotTypes",
                           "mnuHelps",
                           "mnuMapInfoTop",
                           "mnuFileQuit",
                           "mnuFileStruct",
                           "mnuMapinfoToolbar",
                           "mnuHelpAbout",
                           "mnuEdit",
                           "mnuPlot",
                           "mnuView",
                           "mnuWindow",
                           "mnuEditAdd",
                           "mnuEditGirdle",
                           "mnuEditGirdles",
                           "mnuEditRefresh",
                           "mnuEditReCalculate",
                           "mnuEditRemoveOverlay",
                           "mnuEditRemoveAnnotation",
                           "mnuEditSmallCircles",
                           "mnuEditUndo",
                           "mnuEditPreferences",
                           "mnuViewPreferences",
                           "mnuEditFileFormat",
                           "mnuFileFormat",
                           "mnuPlotSecondary",
                           "mnuPlotDecimals",
                           "mnuPlotFormulas",
                           "mnuPlotIntersection",
                           "mnuPlotAnnotation",
                           "mnuViewAnnotations",
                           "mnuViewAdvStats",
                           "mnuViewClassification",
                           "mnuViewDensities",
                           "mnuViewRegions",
                           "mnuViewToolbar",
                           "mnuViewRawData",
                           "mnuViewPlotData",
                           "mnuFileMILink",
                           "frmIntro"};
    for (const char* name : names) {
        EXPECT_NE(main->findChild<QObject*>(name), nullptr) << name;
    }
    const std::pair<const char*, std::pair<int, int>> arrays[] = {
        {"grpPlotTypeButton", {0, 2}}, {"grpDataTypeButton", {0, 2}}, {"grpSymbolButton", {0, 6}},
        {"grpSymbolButton", {8, 10}},  {"grpDisplayButton", {0, 8}},  {"grpPlotSecondary", {0, 1}},
        {"chkGirdle", {0, 10}},        {"txtGirdle", {0, 10}},        {"cmdGirdle", {0, 1}},
        {"mnuFileLoad", {0, 4}},       {"mnuFileSave", {0, 3}},       {"mnuFileClose", {0, 1}},
        {"mnuFileCopyImage", {0, 1}},  {"mnuFileCopyStats", {0, 1}},  {"mnuFilePrint", {0, 1}},
        {"mnuFilePrevious", {1, 6}},   {"mnuEditSelection", {1, 8}},  {"mnuPlotType", {0, 2}},
        {"mnuPlotDataType", {0, 2}},   {"mnuPlotSymbols", {0, 6}},    {"mnuPlotSymbols", {8, 11}},
        {"mnuKinematicPlots", {0, 2}}, {"mnuViewLegends", {0, 8}},    {"mnuWindow", {0, 3}},
        {"mnuMapinfo", {0, 1}},        {"mnuHelpQuandrel", {0, 1}},   {"cmdStart", {0, 2}}};
    for (const auto& [name, range] : arrays) {
        for (int i = range.first; i <= range.second; ++i) {
            EXPECT_NE(main->findChild<QObject*>(QString(name) + "_" + QString::number(i)), nullptr)
                << name << " " << i;
        }
    }
}

TEST_F(MainWindow, EveryControlOfAPlotWindowHasItsName) {
    const frmPlotForms& form = FormOfSlot(OpenFile("a.txt"));
    EXPECT_EQ(form.property("Tag").toString(), "1");
    for (const char* name :
         {"picLegendBox", "txtDescBox", "txtStatsBox_0", "txtStatsBox_1", "tabLayers",
          "picStereoArea", "txtFabricBox", "cmdResizeButton", "shpAnnUp", "lblNumBox"}) {
        EXPECT_NE(form.findChild<QWidget*>(name), nullptr) << name;
    }
}

TEST_F(MainWindow, TipsAndCaptionsAreTheProgramsOwn) {
    const std::pair<const char*, const char*> tips[] = {
        {"cmdBlankButton", "Open blank plot"},
        {"cmdRotateButton", "Rotate data..."},
        {"cmdSmallCircle", "Open small circle dialog box"},
        {"cmdIntersecLinButton", "Interesection line plot using primary and secondary planes"},
        {"cmdClassifToggle", "Toggle the stereo classification dialog"},
        {"grpPlotTypeButton_0", "Equal Area plot"},
        {"grpPlotTypeButton_1", "Equal angle plot"},
        {"grpPlotTypeButton_2", "Rose diagram"},
        {"grpDataTypeButton_2", "Polar Lines"},
        {"grpSymbolButton_0", "Cyclographic plot"},
        {"grpSymbolButton_1", "Points only"},
        {"grpSymbolButton_2", "Beta intersections of great circles"},
        {"grpSymbolButton_3", "Point density"},
        {"grpSymbolButton_4", "Gridded density"},
        {"grpSymbolButton_6", "Contours and gridded density"},
        {"grpSymbolButton_8", "Slip arrows alone"},
        {"grpSymbolButton_9", "Slip arrows on plane girdles"},
        {"grpSymbolButton_10", "Slip arrows on poles to planes"},
        {"grpDisplayButton_0", "Fit girdles..."},
        {"grpDisplayButton_1", "Show Fabric text"},
        {"grpDisplayButton_2", "Show description"},
        {"grpDisplayButton_3", "Show legend"},
        {"grpDisplayButton_4", "Show data number"},
        {"grpDisplayButton_5", "Show statistics"},
        {"grpDisplayButton_6", "Show Rose scale"},
        {"grpDisplayButton_7", "Show Rose Mean arrow"},
        {"grpDisplayButton_8", "Show 95% confidence arc for mean direction"},
        {"grpPlotSecondary_0", "Use Secondary Data as base plot"},
        {"grpPlotSecondary_1", "Overlay Secondary data"},
        {"grpAnnotationButton", "Show annotation points"},
    };
    for (const auto& [name, tip] : tips) {
        // A shortcut may follow the tip.
        EXPECT_EQ(ToolButton(name).toolTip().toStdString().rfind(tip, 0), 0U) << name;
        EXPECT_FALSE(ToolButton(name).accessibleName().isEmpty()) << name;
    }
    EXPECT_EQ(main->windowTitle(), "Quandrel, ver 9.5.1");
    const std::pair<const char*, const char*> captions[] = {
        {"mnuEditSelection_1", "Cu&t"},
        {"mnuEditSelection_8", "Unse&lect"},
        {"mnuPlotSymbols_4", "&Gridded density (/1% area) symbols"},
        {"mnuPlotSymbols_6", "Bot&h contours and gridded symbols"},
        {"mnuViewLegends_8", "Show Rose Mean.Dev. &Arc"},
        {"mnuFileCopyImage_1", "Copy legen&d image to Clipboard"},
        {"mnuFileLoad_4", "Open Wor&kspace..."},
        {"mnuFileMILink", "Lin&k to Mapinfo..."},
        {"mnuFileSave_2", "Save &All"},
        {"mnuPlotType_0", "E&qual area  projection"},
        {"mnuPlotType_1", "Eq&ual a&ngle projection"},
        {"mnuFilePrint_1", "Prin&ter Setup..."},
        {"mnuHelpQuandrel_1", "&How to use Help..."},
        {"mnuViewToolbar", "Hide &Toolbar"},
    };
    for (const auto& [name, caption] : captions) {
        EXPECT_EQ(Action(name).text().toStdString(), caption) << name;
    }
}

TEST_F(MainWindow, EachMenuUsesAKeyOnce) {
    OpenFile("a & b.txt");
    for (const QMenu* menu : main->findChildren<QMenu*>()) {
        std::set<QString> keys;
        for (const QAction* action : menu->actions()) {
            const QString key = QKeySequence::mnemonic(action->text()).toString();
            // Two captions of the File menu are given with one key.
            const bool isGiven = action->text() == "Lin&k to Mapinfo...";
            if (!key.isEmpty() && action->isVisible() && !isGiven) {
                EXPECT_TRUE(keys.insert(key).second)
                    << menu->objectName().toStdString() << ": " << action->text().toStdString();
            }
        }
    }
}

TEST_F(MainWindow, ShortcutsAreUniqueAndTheUsualOnes) {
    std::map<QString, QString> used;
    for (const QAction* action : main->findChildren<QAction*>()) {
        const QString shortcut = action->shortcut().toString();
        if (!shortcut.isEmpty()) {
            EXPECT_TRUE(used.emplace(shortcut, action->objectName()).second)
                << shortcut.toStdString();
        }
    }
    const std::pair<const char*, const char*> usual[] = {
        {"Ctrl+N", "mnuFileLoad_3"},      {"Ctrl+O", "mnuFileLoad_0"},
        {"Ctrl+S", "mnuFileSave_0"},      {"Ctrl+P", "mnuFilePrint_0"},
        {"Ctrl+W", "mnuFileClose_0"},     {"Ctrl+C", "mnuEditSelection_2"},
        {"Ctrl+X", "mnuEditSelection_1"}, {"Ctrl+V", "mnuEditSelection_4"},
        {"Ctrl+Z", "mnuEditUndo"},        {"F5", "mnuEditRefresh"},
        {"F1", "mnuHelpQuandrel_0"},
    };
    for (const auto& [shortcut, name] : usual) {
        EXPECT_EQ(used[shortcut], name);
    }
}

TEST_F(MainWindow, TheMenuBarFollowsThePlots) {
    const std::vector<QString> without = {"mnuFile", "mnuPlotTypes", "mnuMapInfoTop", "mnuHelps"};
    const std::vector<QString> with = {"mnuFile",       "mnuEdit",   "mnuPlot", "mnuView",
                                       "mnuMapInfoTop", "mnuWindow", "mnuHelps"};
    EXPECT_EQ(MenusInBar(), without);
    EXPECT_TRUE(ControlOf<frmIntro>(*main, "frmIntro").isVisible());
    OpenFile("a.txt");
    EXPECT_EQ(MenusInBar(), with);
    EXPECT_FALSE(ControlOf<frmIntro>(*main, "frmIntro").isVisible());
    Press("mnuFileClose_0");
    EXPECT_EQ(MenusInBar(), without);
    EXPECT_TRUE(ControlOf<frmIntro>(*main, "frmIntro").isVisible());
}

TEST_F(MainWindow, EachMenuOpensByItsKeyInBothSets) {
    const auto expectOpens = [this](Qt::Key key, const char* name) {
        QTest::keyClick(main.get(), key, Qt::AltModifier);
        auto* menu = main->findChild<QMenu*>(name);
        EXPECT_TRUE(menu->isVisible()) << name;
        menu->close();
    };
    main->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(main.get()));
    expectOpens(Qt::Key_F, "mnuFile");
    expectOpens(Qt::Key_P, "mnuPlotTypes");
    expectOpens(Qt::Key_H, "mnuHelps");
    OpenFile("a.txt");
    for (const auto& [key, name] : {std::pair{Qt::Key_F, "mnuFile"},
                                    {Qt::Key_E, "mnuEdit"},
                                    {Qt::Key_P, "mnuPlot"},
                                    {Qt::Key_V, "mnuView"},
                                    {Qt::Key_M, "mnuMapInfoTop"},
                                    {Qt::Key_W, "mnuWindow"},
                                    {Qt::Key_H, "mnuHelps"}}) {
        expectOpens(key, name);
    }
    Press("mnuFileClose_0");
    expectOpens(Qt::Key_P, "mnuPlotTypes");
}

TEST_F(MainWindow, CommandsWithoutSelectionAreDisabledWhateverThePlot) {
    OpenFile("a.txt");
    for (const char* name :
         {"mnuEditUndo", "mnuEditRedo", "mnuEditSelection_1", "mnuEditSelection_8"}) {
        EXPECT_FALSE(Action(name).isEnabled()) << name;
    }
}

TEST_F(MainWindow, PlotCommandsNeedAPlot) {
    const char* names[] = {"mnuFileLoad_1",   "mnuFileLoad_2",      "mnuFileSave_0",
                           "mnuFileSave_1",   "mnuFileClose_0",     "mnuFileClose_1",
                           "mnuFileExport",   "mnuFileCopyImage_0", "mnuFileCopyImage_1",
                           "mnuEditRefresh",  "mnuEditReCalculate", "mnuWindow_0",
                           "mnuPlotSymbols_0"};
    for (const char* name : names) {
        EXPECT_FALSE(Action(name).isEnabled()) << name;
    }
    OpenFile("a.txt");
    for (const char* name : names) {
        EXPECT_TRUE(Action(name).isEnabled()) << name;
    }
    EXPECT_FALSE(Action("mnuFileSave_2").isEnabled()) << "there is one plot";
    OpenFile("b.txt");
    EXPECT_TRUE(Action("mnuFileSave_2").isEnabled());
}

TEST_F(MainWindow, TheIntroScreenStartsASession) {
    auto& intro = ControlOf<frmIntro>(*main, "frmIntro");
    EXPECT_EQ(intro.cmdStart[0]->text(), "&Stereographic projection");
    EXPECT_EQ(intro.cmdStart[1]->text(), "&Rose Diagram");
    EXPECT_EQ(intro.cmdStart[2]->text(), "&Blank plot window");
    EXPECT_EQ(ControlOf<QLabel>(intro, "lblVersionDate").text().left(14), "Version Date: ");
    prompts.QueueOpenPath(WriteFile("a.txt", "10\t20\n"));
    QTest::mouseClick(intro.cmdStart[0], Qt::LeftButton);
    EXPECT_EQ(ActiveRecord().FileTitle, "a.txt");
    Press("mnuFileClose_0");
    QTest::mouseClick(intro.cmdStart[2], Qt::LeftButton);
    EXPECT_EQ(ActiveRecord().PlotTitle, "Plot 1: Untitled");
}

TEST_F(MainWindow, TheRoseStartOpensARose) {
    main->UpdatePlotState();
    auto& intro = ControlOf<frmIntro>(*main, "frmIntro");
    prompts.QueueOpenPath(WriteFile("a.txt", "10\t20\n"));
    QTest::mouseClick(intro.cmdStart[1], Qt::LeftButton);
    EXPECT_EQ(ActiveRecord().PlotKind, kRose);
    EXPECT_NE(StatisticsOf(ActivePlot()).normal.find("Sector angle"), std::string::npos)
        << "drawn as a rose";
    EXPECT_TRUE(Action("mnuPlotType_2").isChecked());
    EXPECT_TRUE(Action("mnuViewLegends_6").isEnabled());
    Press("mnuPlotType_0");
    EXPECT_EQ(ActiveRecord().PlotKind, kEqualArea);
}

TEST_F(MainWindow, AWorkspaceSaysHowManyFilesItOpenedAndWhichAreMissing) {
    WriteFile("beds.txt", "30\t120\n45\t270\n");
    prompts.QueueOpenPath(WriteFile("w.qwo", "[Files List]\nbeds.txt\ngone.txt\n"));
    Press("mnuFileLoad_0");
    EXPECT_EQ(ActiveRecord().FileTitle, "beds.txt");
    EXPECT_EQ(ControlOf<QLabel>(*main, "panInfoLine").text().toStdString(), "1 of 2 files opened");
    EXPECT_TRUE(Action("mnuViewUnplotted").isEnabled());
    EXPECT_EQ(gSettings.files.recent.front(), (folder / "w.qwo").string());
    EXPECT_EQ(settings.Read(kApplicationName, "FileMenuArray", "1", ""),
              gSettings.files.recent.front())
        << "written when it was opened";
}

TEST_F(MainWindow, RecentFilesAreOfferedByNameAndOpenByPath) {
    OpenFile("a & b.txt");
    OpenFile("c.txt");
    QAction* second = main->findChild<QAction*>("mnuFilePrevious_2");
    EXPECT_EQ(second->text(), "&2 a && b.txt");
    EXPECT_EQ(second->data().toString().toStdString(), (folder / "a & b.txt").string());
    EXPECT_FALSE(main->findChild<QAction*>("mnuFilePrevious_3")->isVisible());
    second->trigger();
    EXPECT_EQ(ActiveRecord().FileTitle, "a & b.txt");
    EXPECT_EQ(main->findChild<QAction*>("mnuFilePrevious_1")->text(), "&1 a && b.txt");
    std::filesystem::remove(folder / "c.txt");
    Expect("The indicated file cannot be opened");
    main->findChild<QAction*>("mnuFilePrevious_2")->trigger();
    EXPECT_EQ(gSettings.files.recent.size(), 1U);
    EXPECT_FALSE(main->findChild<QAction*>("mnuFilePrevious_2")->isVisible());
}

TEST_F(MainWindow, RecentFilesStandOnTheIntroScreen) {
    OpenFile("c.txt");
    Press("mnuFileClose_0");
    auto& recent = ControlOf<QPushButton>(*main, "cmdRecent_1");
    EXPECT_EQ(recent.text(), "c.txt");
    auto& intro = ControlOf<frmIntro>(*main, "frmIntro");
    EXPECT_EQ(intro.size(), intro.sizeHint()) << "nothing is squeezed";
    EXPECT_GE(intro.sizeHint().height(), intro.cmdStart[2]->geometry().bottom() + recent.height());
    QTest::mouseClick(&recent, Qt::LeftButton);
    QApplication::processEvents();
    EXPECT_EQ(ActiveRecord().FileTitle, "c.txt");
}

TEST_F(MainWindow, TheToolbarHidesAndComesBack) {
    OpenFile("a.txt");
    auto& strip = ControlOf<QToolBar>(*main, "panToolbarBox");
    Press("mnuViewToolbar");
    EXPECT_FALSE(strip.isVisible());
    EXPECT_EQ(Action("mnuViewToolbar").text(), "Show &Toolbar");
    Press("mnuViewToolbar");
    EXPECT_TRUE(strip.isVisible());
}

TEST_F(MainWindow, CommandsDoNothingWhileALoopRuns) {
    OpenFile("a.txt");
    gBusy = true;
    Action("mnuPlotType_1").trigger();
    Action("mnuFileClose_0").trigger();
    Action("mnuFileLoad_3").trigger();
    main->OpenFiles({QString::fromStdString(WriteFile("b.txt", "1\t2\n"))});
    main->IntroButtonStart(2);
    gBusy = false;
    EXPECT_EQ(ActiveRecord().PlotKind, kEqualArea);
    EXPECT_EQ(CountOpenPlots(), 1);
}

TEST_F(MainWindow, DroppedFilesOpenAsPlots) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(WriteFile("a.txt", "1\t2\n"))),
                  QUrl::fromLocalFile(QString::fromStdString(WriteFile("b.txt", "1\t2\n")))});
    prompts.Expect("Make a plot of each of these 2 tables?", Button::Yes);
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(main.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                    Qt::ShiftModifier);
    drop.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(main.get(), &drop);
    EXPECT_EQ(drop.dropAction(), Qt::CopyAction) << "the files stay where they are";
    QApplication::processEvents();
    EXPECT_EQ(CountOpenPlots(), 2);
    QMimeData image;
    image.setData("image/png", "1");
    QDragEnterEvent other(QPoint(50, 50), Qt::CopyAction, &image, Qt::LeftButton, Qt::NoModifier);
    other.ignore();
    QApplication::sendEvent(main.get(), &other);
    EXPECT_FALSE(other.isAccepted());
}

TEST_F(MainWindow, ADroppedPictureOpensThePlotThatItHolds) {
    const auto drop = [this](const std::string& path) {
        QMimeData data;
        data.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
        QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &data, Qt::LeftButton,
                              Qt::NoModifier);
        QApplication::sendEvent(main.get(), &enter);
        QDropEvent event(QPointF(50, 50), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(main.get(), &event);
        QApplication::processEvents();
    };
    const auto bytesOf = [](const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    };
    OpenState::now.readPdf = AttachmentOfPdf;
    PictureOptions options;
    options.hasData = true;
    options.size = 300;
    int slot = OpenFile("a.txt");
    for (const char* name : {"net.svg", "net.png", "net.pdf"}) {
        const std::string first = (folder / name).string();
        const std::string again = (folder / ("again_" + std::string(name))).string();
        gActivePlot = slot;
        ASSERT_EQ(SavePlotPicture(first, options), "");
        const int before = CountOpenPlots();
        drop(first);
        ASSERT_EQ(CountOpenPlots(), before + 1) << name;
        EXPECT_EQ(ActiveRecord().PlotTitle, name + (": " + std::to_string(gActivePlot)));
        EXPECT_EQ(ActiveRecord().NumData, RecordOf(slot).NumData);
        ASSERT_EQ(SavePlotPicture(again, options), "");
        EXPECT_TRUE(bytesOf(first) == bytesOf(again)) << name;
        slot = gActivePlot; // the next one is a picture of what came out of this one
    }
    options.hasData = false;
    ASSERT_EQ(SavePlotPicture((folder / "bare.svg").string(), options), "");
    Expect("The picture holds no plot");
    const int before = CountOpenPlots();
    drop((folder / "bare.svg").string());
    EXPECT_EQ(CountOpenPlots(), before);
    OpenState::now.readPdf = nullptr;
}

TEST_F(MainWindow, TheAboutBoxNamesTheVersion) {
    QString shown;
    QTimer::singleShot(0, [&shown] {
        QWidget& box = *QApplication::activeModalWidget();
        shown = ControlOf<QLabel>(box, "lblCaption").text() + "\n"
                + ControlOf<QLabel>(box, "lblVersionDate").text();
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    Press("mnuHelpAbout");
    EXPECT_EQ(shown, "Quandrel, ver 9.5.1\nVersion Date: 21 November 2026");
}

TEST_F(MainWindow, ActivatingAWindowMakesItsPlotTheActiveOne) {
    OpenFile("a.txt");
    OpenFile("b.txt");
    Press("mnuPlotSymbols_0");
    QMdiArea& room = Room();
    room.setActiveSubWindow(&FormOfSlot(1));
    EXPECT_EQ(gActivePlot, 1);
    EXPECT_TRUE(Action("mnuPlotSymbols_1").isChecked());
    room.setActiveSubWindow(&FormOfSlot(2));
    EXPECT_EQ(gActivePlot, 2);
    EXPECT_TRUE(Action("mnuPlotSymbols_0").isChecked());
    main->findChild<QAction*>("mnuWindowPlot_1")->trigger();
    EXPECT_EQ(gActivePlot, 1);
    EXPECT_TRUE(main->findChild<QAction*>("mnuWindowPlot_1")->isChecked());
}

TEST_F(MainWindow, WindowsAreArranged) {
    for (const char* name : {"a.txt", "b.txt", "c.txt"}) {
        OpenFile(name);
    }
    const auto overlap = [] {
        return FormOfSlot(1).geometry().intersects(FormOfSlot(2).geometry())
               || FormOfSlot(2).geometry().intersects(FormOfSlot(3).geometry());
    };
    Press("mnuWindow_1");
    EXPECT_FALSE(overlap());
    EXPECT_EQ(FormOfSlot(1).height(), FormOfSlot(3).height());
    Press("mnuWindow_2");
    EXPECT_FALSE(overlap());
    EXPECT_EQ(FormOfSlot(1).width(), FormOfSlot(3).width());
    Press("mnuWindow_0");
    EXPECT_TRUE(overlap());
    FormOfSlot(1).showMinimized();
    Press("mnuWindow_3");
    EXPECT_TRUE(FormOfSlot(1).isMinimized());
    const QRect room = Room().viewport()->rect();
    EXPECT_EQ(FormOfSlot(1).geometry().bottom(), room.bottom());
}

TEST_F(MainWindow, TheProgressBarComesAndGoes) {
    EXPECT_FALSE(main->progBar->isVisible());
    gPlatform.status->SetProgress(30, 60);
    EXPECT_TRUE(main->progBar->isVisible());
    EXPECT_EQ(main->progBar->value() * 2, main->progBar->maximum());
    gPlatform.status->SetProgress(0, 0);
    EXPECT_FALSE(main->progBar->isVisible());
}

TEST_F(MainWindow, TheBusyPointerNests) {
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    {
        const BusyPointer outer(*gPlatform.status);
        const BusyPointer inner(*gPlatform.status);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    }
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(MainWindow, EscEndsAStepAndNothingElseIsHeardMeanwhile) {
    OpenFile("a.txt");
    EXPECT_FALSE(gPlatform.status->CancelRequested());
    gBusy = true;
    QToolButton& button = ToolButton("grpPlotTypeButton_1");
    QApplication::postEvent(&button,
                            new QMouseEvent(QEvent::MouseButtonPress, button.rect().center(),
                                            button.mapToGlobal(button.rect().center()),
                                            Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
    EXPECT_FALSE(gPlatform.status->CancelRequested());
    EXPECT_FALSE(button.isDown()) << "the press did not reach the button";
    QApplication::postEvent(main.get(),
                            new QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier));
    EXPECT_TRUE(gPlatform.status->CancelRequested());
    EXPECT_FALSE(gPlatform.status->CancelRequested()) << "once";
    gBusy = false;
}

TEST_F(MainWindow, ClosingAWindowByItsButtonAsksAndCloses) {
    OpenChanged("a.txt");
    Expect("has not been saved", Button::Cancel);
    FormOfSlot(1).close();
    QApplication::processEvents();
    EXPECT_TRUE(IsOpenSlot(1));
    EXPECT_TRUE(FormOfSlot(1).isVisible());
    Expect("has not been saved", Button::No);
    FormOfSlot(1).close();
    QApplication::processEvents();
    EXPECT_FALSE(IsOpenSlot(1));
    EXPECT_EQ(gActivePlot, 0);
    EXPECT_TRUE(Room().subWindowList().isEmpty());
}

TEST_F(MainWindow, ClosingTheFocusedWindowActivatesAnother) {
    OpenFile("a.txt");
    OpenFile("b.txt");
    Press("mnuFileClose_0");
    EXPECT_EQ(CountOpenPlots(), 1);
    EXPECT_EQ(gActivePlot, 1);
    EXPECT_EQ(Room().activeSubWindow(), &FormOfSlot(1));
}

TEST_F(MainWindow, CloseAllAsksOneByOne) {
    OpenChanged("a.txt");
    OpenFile("b.txt");
    Expect("a.txt: 1", Button::Cancel);
    Press("mnuFileClose_1");
    EXPECT_EQ(CountOpenPlots(), 2);
    Expect("a.txt: 1", Button::No);
    Press("mnuFileClose_1");
    EXPECT_EQ(CountOpenPlots(), 0);
}

TEST_F(MainWindow, LeavingAsksAndSavesTheSession) {
    OpenChanged("a.txt");
    OpenChanged("b.txt");
    prompts.ExpectSavePlots("Quandrel   b.txt: 2", SaveAnswer::Cancel);
    Press("mnuFileQuit");
    EXPECT_TRUE(main->isVisible());
    EXPECT_EQ(CountOpenPlots(), 2);
    EXPECT_EQ(settings.Read("Quandrel 9", "StartUp", "WinState", "none"), "none");
    prompts.ExpectSavePlots("Quandrel   b.txt: 2", SaveAnswer::SkipAll);
    Press("mnuFileQuit");
    EXPECT_FALSE(main->isVisible());
    EXPECT_EQ(CountOpenPlots(), 0);
    EXPECT_EQ(settings.Read("Quandrel 9", "StartUp", "WinState", "none"), "0");
    EXPECT_EQ(settings.Read("Quandrel 9", "StartUp", "WinWidth", "none"),
              std::to_string(main->geometry().width() * 15));
    EXPECT_EQ(settings.Read("Quandrel 9", "FileMenuArray", "1", "none"),
              (folder / "b.txt").string());
}

TEST_F(MainWindow, LeavingIsRefusedWhileALoopRuns) {
    gBusy = true;
    main->close();
    EXPECT_TRUE(main->isVisible());
    gBusy = false;
}

TEST_F(MainWindow, TooManyPlotsAreTold) {
    for (int i = 1; i <= gMaxPlots; ++i) {
        Press("mnuFileLoad_3");
    }
    EXPECT_EQ(CountOpenPlots(), 10);
    Expect("You have too many plot windows already open to complete this operation.");
    Press("mnuFileLoad_3");
    EXPECT_EQ(CountOpenPlots(), 10);
}

TEST_F(MainWindow, TheWindowMenuLeavesMaximisedWindowsSo) {
    OpenFile("a.txt");
    OpenFile("b.txt");
    FormOfSlot(2).showMaximized();
    main->findChild<QAction*>("mnuWindowPlot_1")->trigger();
    EXPECT_EQ(gActivePlot, 1);
    EXPECT_TRUE(FormOfSlot(1).isMaximized()) << "all are, while one is";
    main->findChild<QAction*>("mnuWindowPlot_1")->trigger();
    EXPECT_TRUE(main->findChild<QAction*>("mnuWindowPlot_1")->isChecked());
    FormOfSlot(2).showMinimized();
    main->findChild<QAction*>("mnuWindowPlot_2")->trigger();
    EXPECT_FALSE(FormOfSlot(2).isMinimized());
}

TEST_F(MainWindow, HasNoMenuOfItsOwnMaking) {
    EXPECT_EQ(main->contextMenuPolicy(), Qt::NoContextMenu);
}

TEST_F(MainWindow, TwoRequestsToCloseAskOnce) {
    OpenChanged("a.txt");
    Expect("has not been saved", Button::No);
    FormOfSlot(1).close();
    FormOfSlot(1).close();
    QApplication::processEvents();
    EXPECT_EQ(CountOpenPlots(), 0);
}

} // namespace
} // namespace quandrel
