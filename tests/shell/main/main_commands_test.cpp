// SPDX-License-Identifier: MIT
//
// The commands of the main window from end to end, by menu item and by button.

#include "core/plot_texts.h"
#include "core/settings_value.h"
#include "core/style_tables.h"
#include "orientation/angles.h"
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

#include <functional>
#include <set>

namespace quandrel {
namespace {

class MainCommands : public MainWindowTest {};

TEST_F(MainCommands, NewOpensAFileWithItsTitleRowsAndPicture) {
    const int slot = OpenFile("beds.txt");
    const frmPlotForms& form = FormOfSlot(slot);
    EXPECT_EQ(form.windowTitle(), "beds.txt: 1   [Planes]     ");
    EXPECT_EQ(form.lblNumBox->text(), "3");
    EXPECT_EQ(form.tabLayers->tabText(1), "Data layer");
    EXPECT_EQ(Info(), "3 rows read, 3 of them data; 0 lines without data, 0 invalid.");
    EXPECT_FALSE(form.picStereoArea->Image().isNull());
    EXPECT_EQ(form.picStereoArea->Image().pixelColor(2, 2), QColor(Qt::white));
    EXPECT_EQ(CountOpenPlots(), 1);
}

TEST_F(MainCommands, OpeningAFileTellsOfItsDecimals) {
    const std::string rows = "3 rows read, 3 of them data; 0 lines without data, 0 invalid.";
    OpenFile("phone.txt", "47.3\t218.6\n45\t7\n10.25\t20\n");
    EXPECT_EQ(Info().toStdString(),
              rows + " 2 rows have decimals; Plot > Use Decimals shows them.");
    OpenFile("one.txt", "47.3\t218.6\n45\t7\n10\t20\n");
    EXPECT_EQ(Info().toStdString(), rows + " 1 row has decimals; Plot > Use Decimals shows it.");
    OpenFile("fine.txt", "47.31234567\t218.6\n45\t7\n10\t20\n");
    EXPECT_EQ(Info().toStdString(),
              rows
                  + " 1 row has decimals; Plot > Use Decimals shows it. Angles with more than six "
                    "decimals were rounded to six.");
    OpenFile("whole.txt");
    EXPECT_EQ(Info().toStdString(), rows);
    gSettings.newPlots.useDecimals = true;
    OpenFile("used.txt", "47.3\t218.6\n45\t7\n10.25\t20\n");
    EXPECT_EQ(Info().toStdString(), rows + " 2 rows have decimals.");
}

TEST_F(MainCommands, MergeOverlayAndBlankDoWhatTheyAreCalled) {
    OpenFile("a.txt");
    prompts.QueueOpenPath(WriteFile("b.txt", "10\t20\n"));
    QTest::mouseClick(&ToolButton("cmdMergeButton"), Qt::LeftButton);
    EXPECT_EQ(ActiveRecord().NumData, 4);
    prompts.QueueOpenPath(WriteFile("c.txt", "10\t20\n12\t30\n"));
    QTest::mouseClick(&ToolButton("cmdOverlayButton"), Qt::LeftButton);
    EXPECT_EQ(ActiveRecord().OverlayRows[kOverlayCount], 1);
    EXPECT_EQ(ActiveRecord().OverlayRows[1], 2);
    EXPECT_TRUE(Action("mnuEditRemoveOverlay").isEnabled());
    Press("mnuEditRemoveOverlay");
    EXPECT_EQ(ActiveRecord().OverlayRows[kOverlayCount], 0);
    EXPECT_FALSE(Action("mnuEditRemoveOverlay").isEnabled());
    QTest::mouseClick(&ToolButton("cmdBlankButton"), Qt::LeftButton);
    EXPECT_EQ(CountOpenPlots(), 2);
    EXPECT_EQ(ActiveRecord().PlotTitle, "Plot 2: Untitled");
    prompts.QueueOpenPath(WriteFile("d.txt", "10\t20\n"));
    QTest::mouseClick(&ToolButton("cmdOpenButton"), Qt::LeftButton);
    EXPECT_EQ(CountOpenPlots(), 3);
}

TEST_F(MainCommands, TypesChangeThePlotByMenuAndButton) {
    OpenFile("a.txt");
    QTest::mouseClick(&ToolButton("grpPlotTypeButton_1"), Qt::LeftButton);
    EXPECT_EQ(ActiveRecord().PlotKind, kEqualAngle);
    EXPECT_TRUE(Action("mnuPlotType_1").isChecked());
    EXPECT_FALSE(Action("mnuPlotType_0").isChecked());
    Press("mnuPlotType_0");
    EXPECT_EQ(ActiveRecord().PlotKind, kEqualArea);
    Press("mnuPlotType_0");
    EXPECT_TRUE(Action("mnuPlotType_0").isChecked()) << "pressing it again does not release it";
    Expect("This will replot the data in the active plot:", Button::Ok);
    QTest::mouseClick(&ToolButton("grpDataTypeButton_1"), Qt::LeftButton);
    EXPECT_EQ(ActiveRecord().DataKind, kLines);
    Expect("This will replot the data in the active plot:", Button::Cancel);
    Press("mnuPlotDataType_0");
    EXPECT_EQ(ActiveRecord().DataKind, kLines);
    EXPECT_TRUE(Action("mnuPlotDataType_1").isChecked()) << "the buttons show what is";
    EXPECT_FALSE(Action("mnuPlotDataType_0").isChecked());
}

TEST_F(MainCommands, PolarLinesOfPlanesAreAskedAbout) {
    OpenFile("a.txt");
    Expect("You are trying to plot polar lines with plane data\nContinue anyway?", Button::Cancel);
    Press("mnuPlotDataType_2");
    EXPECT_EQ(ActiveRecord().DataKind, kPlanes);
}

TEST_F(MainCommands, TypesOfTheNextPlotAreChosenBeforehand) {
    Press("mnuPlotType_1");
    EXPECT_TRUE(Action("mnuPlotType_1").isChecked());
    OpenFile("a.txt");
    EXPECT_EQ(ActiveRecord().PlotKind, kEqualAngle);
}

TEST_F(MainCommands, SymbolButtonsSetTheMode) {
    OpenFile("a.txt");
    const std::pair<const char*, int> buttons[] = {
        {"grpSymbolButton_0", kGreatCircles},
        {"grpSymbolButton_2", kBetaIntersections},
        {"grpSymbolButton_1", kPointSymbols},
    };
    for (const auto& [name, mode] : buttons) {
        const QImage before = FormOfSlot(1).picStereoArea->Image().copy();
        QTest::mouseClick(&ToolButton(name), Qt::LeftButton);
        EXPECT_EQ(ActiveRecord().PlotSymbolMode, mode);
        EXPECT_TRUE(ToolButton(name).isChecked());
        EXPECT_NE(FormOfSlot(1).picStereoArea->Image(), before) << name;
    }
}

TEST_F(MainCommands, UseDecimalsIsAPropertyOfEachPlot) {
    EXPECT_FALSE(Action("mnuPlotDecimals").isEnabled()) << "there is no plot";
    const auto plungeOfPole = [](int slot) { return RadToDeg(TableOf(slot).plunge.at(0)); };
    const int first = OpenFile("a.txt", "47.3\t218.6\n");
    EXPECT_FALSE(Action("mnuPlotDecimals").isChecked());
    Press("mnuPlotDecimals");
    EXPECT_TRUE(Action("mnuPlotDecimals").isChecked());
    EXPECT_NE(RecordOf(first).UseDecimals, 0);
    EXPECT_NEAR(plungeOfPole(first), 42.7, 1e-6);
    EXPECT_EQ(RecordOf(first).Modified, 0);
    const int second = OpenFile("b.txt");
    EXPECT_FALSE(Action("mnuPlotDecimals").isChecked());
    EXPECT_TRUE(Action("mnuPlotDecimals").isEnabled()) << "rows may be added";
    EXPECT_EQ(RecordOf(second).UseDecimals, 0);
    Room().setActiveSubWindow(&FormOfSlot(first));
    EXPECT_TRUE(Action("mnuPlotDecimals").isChecked());
    Press("mnuPlotDecimals");
    EXPECT_FALSE(Action("mnuPlotDecimals").isChecked());
    EXPECT_NEAR(plungeOfPole(first), 43, 1e-9);
    Press("mnuFileClose_1");
    EXPECT_FALSE(Action("mnuPlotDecimals").isEnabled());
}

TEST_F(MainCommands, FormulasAreAPropertyOfEachPlot) {
    const auto checked = [this] {
        std::string items;
        for (const char* item : {"mnuPlotFormulas_0", "mnuPlotFormulas_1", "mnuPlotFormulas_2"}) {
            items += Action(item).isChecked() ? '1' : '0';
        }
        return items;
    };
    EXPECT_FALSE(Action("mnuPlotFormulas_0").isEnabled()) << "there is no plot";
    EXPECT_FALSE(Action("mnuPlotFormulas_2").isEnabled());
    const int first = OpenFile("a.txt", "40\t200\n");
    EXPECT_EQ(checked(), "100");
    Press("mnuPlotFormulas_2");
    EXPECT_EQ(checked(), "001");
    EXPECT_EQ(RecordOf(first).PlotFormulas, kTextbookFormulas);
    EXPECT_NE(StatisticsOf(PlotOf(first)).advanced.find("gamma = undetermined"), std::string::npos);
    EXPECT_EQ(RecordOf(first).Modified, 0);
    Press("mnuPlotFormulas_2");
    EXPECT_EQ(checked(), "001") << "pressing it again does not release it";
    const int second = OpenFile("b.txt", "40\t200\n");
    EXPECT_EQ(checked(), "100");
    EXPECT_NE(StatisticsOf(PlotOf(second)).advanced.find("gamma = 99999.00"), std::string::npos);
    Press("mnuPlotFormulas_1");
    EXPECT_EQ(checked(), "010");
    EXPECT_EQ(RecordOf(second).PlotFormulas, kOwnFormulas);
    Room().setActiveSubWindow(&FormOfSlot(first));
    EXPECT_EQ(checked(), "001");
    Press("mnuPlotFormulas_0");
    EXPECT_EQ(checked(), "100");
    EXPECT_NE(StatisticsOf(PlotOf(first)).advanced.find("gamma = 99999.00"), std::string::npos);
    Press("mnuFileClose_1");
    EXPECT_FALSE(Action("mnuPlotFormulas_1").isEnabled());
    EXPECT_EQ(checked(), "000");
}

TEST_F(MainCommands, DisplayButtonsShowAndHideTheBoxes) {
    const frmPlotForms& form = FormOfSlot(OpenFile("a.txt"));
    const std::pair<const char*, QWidget*> boxes[] = {
        {"grpDisplayButton_1", form.txtFabricBox},
        {"grpDisplayButton_2", form.txtDescBox},
        {"grpDisplayButton_3", form.picLegendBox},
        {"grpDisplayButton_4", form.lblNumBox},
    };
    for (const auto& [name, box] : boxes) {
        EXPECT_TRUE(box->isVisible()) << name;
        EXPECT_TRUE(ToolButton(name).isChecked());
        QTest::mouseClick(&ToolButton(name), Qt::LeftButton);
        EXPECT_FALSE(box->isVisible()) << name;
        EXPECT_FALSE(ToolButton(name).isChecked());
    }
    Press("mnuViewLegends_3");
    EXPECT_TRUE(form.picLegendBox->isVisible());
    EXPECT_EQ(ActiveRecord().LayerVisible[kLegendLayer], kTrue);
}

TEST_F(MainCommands, StatisticsSwapTheirBoxes) {
    const frmPlotForms& form = FormOfSlot(OpenFile("a.txt"));
    const std::string normal = form.txtStatsBox[0]->toPlainText().toStdString();
    const std::string advanced = form.txtStatsBox[1]->toPlainText().toStdString();
    EXPECT_NE(normal, advanced);
    EXPECT_TRUE(form.txtStatsBox[0]->isVisible());
    EXPECT_FALSE(form.txtStatsBox[1]->isVisible());
    EXPECT_EQ(Action("mnuViewAdvStats").text(), "Use Advanced Statistics Box");
    Press("mnuViewAdvStats");
    EXPECT_FALSE(form.txtStatsBox[0]->isVisible());
    EXPECT_TRUE(form.txtStatsBox[1]->isVisible());
    EXPECT_EQ(Action("mnuViewAdvStats").text(), "Use Normal Statistics Box");
    Press("mnuFileCopyStats_1");
    EXPECT_EQ(clipboard.Text(), advanced);
    Press("mnuFileCopyStats_0");
    EXPECT_EQ(clipboard.Text(), normal);
    Press("mnuViewLegends_5");
    EXPECT_FALSE(form.txtStatsBox[1]->isVisible());
}

TEST_F(MainCommands, TheGirdlePanelFollowsItsButton) {
    auto& panel = ControlOf<QDockWidget>(*main, "panGirdleBox");
    EXPECT_FALSE(panel.isVisible());
    OpenFile("a.txt");
    ActiveRecord().AxisItems[2][kItemText] = std::string("45/120");
    Press("mnuEditGirdles");
    EXPECT_TRUE(panel.isVisible());
    EXPECT_EQ(ControlOf<QLineEdit>(panel, "txtGirdle_2").text(), "45/120");
    EXPECT_TRUE(Action("mnuViewLegends_0").isChecked());
    panel.close();
    EXPECT_FALSE(Action("mnuViewLegends_0").isChecked());
    EXPECT_EQ(ActiveRecord().LayerVisible[kGirdleLayer], 0);
}

TEST_F(MainCommands, TheGridSliderSnapsAndReplotsWhenLetGo) {
    gSettings.gridSize = 50;
    OpenFile("a.txt");
    auto& slider = ControlOf<QSlider>(*main, "sldGridDensity");
    EXPECT_FALSE(slider.isEnabled());
    Press("mnuPlotSymbols_5");
    EXPECT_TRUE(slider.isEnabled());
    EXPECT_EQ(ActiveRecord().GridSize, 50);
    slider.setSliderDown(true);
    slider.setValue(87);
    EXPECT_EQ(gSettings.gridSize, 80);
    EXPECT_EQ(ActiveRecord().GridSize, 50) << "still held";
    slider.setSliderDown(false);
    EXPECT_EQ(slider.value(), 80) << "the handle shows what is in force";
    EXPECT_EQ(ActiveRecord().GridSize, 80);
    QTest::keyClick(&slider, Qt::Key_Right);
    EXPECT_EQ(ActiveRecord().GridSize, 90);
}

TEST_F(MainCommands, RefreshDrawsAndRecalculateWorksOut) {
    OpenFile("a.txt");
    float& result = ActiveRecord().EigenResults[kGreatestAxis][kAxisPlunge];
    const float worked = result;
    result = worked + 1;
    Press("mnuEditRefresh");
    EXPECT_EQ(result, worked + 1);
    Press("mnuEditReCalculate");
    EXPECT_EQ(result, worked);
}

TEST_F(MainCommands, CopiedPicturesAreOnWhiteAndLeaveTheWindowAsItIs) {
    const frmPlotForms& form = FormOfSlot(OpenFile("a.txt"));
    const QImage before = form.picStereoArea->Image().copy();
    Press("mnuFileCopyImage_0");
    const QImage plot = QApplication::clipboard()->image();
    EXPECT_EQ(plot.width(), form.picStereoArea->width() * 3) << "enough for paper";
    EXPECT_EQ(plot.width(), plot.height());
    EXPECT_EQ(plot.pixelColor(1, 1), QColor(Qt::white));
    const auto copiedSvg = [] {
        return QApplication::clipboard()->mimeData()->data("image/svg+xml");
    };
    EXPECT_TRUE(copiedSvg().contains("<g id=\"rows\">")) << "for drawing programs";
    EXPECT_EQ(form.picStereoArea->Image(), before);
    Press("mnuFileCopyImage_1");
    const QImage legend = QApplication::clipboard()->image();
    EXPECT_EQ(legend.size(), form.picLegendBox->PictureSize() * 3);
    EXPECT_TRUE(copiedSvg().contains("<g id=\"legend\">"));
    QImage white(legend.size(), legend.format());
    white.fill(Qt::white);
    EXPECT_NE(legend, white) << "it is not empty";
    Press("mnuViewLegends_3");
    EXPECT_FALSE(Action("mnuFileCopyImage_1").isEnabled()) << "a hidden legend";
}

TEST_F(MainCommands, ExportWritesThePictureThatWasAskedFor) {
    OpenFile("a.txt");
    const std::string path = (folder / "net.png").string();
    prompts.QueueSavePath(path);
    QTimer::singleShot(0, [] {
        QWidget& dialog = *QApplication::activeModalWidget();
        ASSERT_EQ(dialog.objectName(), "frmExportFigure");
        ControlOf<QAbstractButton>(dialog, "optPart_1").click();
        ControlOf<QSpinBox>(dialog, "spnSize").setValue(300);
        ControlOf<QPushButton>(dialog, "cmdOK").click();
    });
    Press("mnuFileExport");
    const QImage picture(QString::fromStdString(path));
    EXPECT_EQ(picture.size(), QSize(300, 300));
    EXPECT_TRUE(Info().contains("net.png"));
}

TEST_F(MainCommands, ExportCanBeCancelledAtBothQuestions) {
    OpenFile("a.txt");
    QTimer::singleShot(0,
                       [] { QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape); });
    Press("mnuFileExport");
    QTimer::singleShot(
        0, [] { ControlOf<QPushButton>(*QApplication::activeModalWidget(), "cmdOK").click(); });
    Press("mnuFileExport"); // no path is queued: the second question is cancelled
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
}

TEST_F(MainCommands, AFailedExportIsTold) {
    OpenFile("a.txt");
    prompts.QueueSavePath((folder / "missing" / "net.png").string());
    QTimer::singleShot(
        0, [] { ControlOf<QPushButton>(*QApplication::activeModalWidget(), "cmdOK").click(); });
    Expect("missing");
    Press("mnuFileExport");
}

TEST_F(MainCommands, TheFormatCommandAsksForNoLoad) {
    OpenFile("a.txt");
    formatQuestions.clear();
    for (const char* name : {"mnuFileFormat", "mnuEditFileFormat"}) {
        Press(name);
        EXPECT_EQ(formatQuestions.back().command, "None");
        EXPECT_EQ(formatQuestions.back().path, (folder / "a.txt").string());
    }
    Press("mnuFileClose_0");
    Press("mnuFileStruct");
    EXPECT_EQ(formatQuestions.back().path, "");
}

TEST_F(MainCommands, TheDataFolderIsChosenAndSaved) {
    QTimer::singleShot(0, [this] {
        QWidget& dialog = *QApplication::activeModalWidget();
        ASSERT_EQ(dialog.objectName(), "frmDirectoryDialog");
        auto& text = ControlOf<QLineEdit>(dialog, "txtDirectory");
        text.setText("/no such folder");
        EXPECT_FALSE(ControlOf<QPushButton>(dialog, "cmdOK").isEnabled());
        text.setText(QString::fromStdString(folder.string()));
        ControlOf<QPushButton>(dialog, "cmdOK").click();
    });
    Press("mnuFileDirectory");
    EXPECT_EQ(gSettings.files.folder, folder.string());
    EXPECT_EQ(settings.Read("Quandrel 9", "StartUp", "FilesDirectory", ""), folder.string());
    QTimer::singleShot(0, [] {
        QWidget& dialog = *QApplication::activeModalWidget();
        ControlOf<QPushButton>(dialog, "cmdUseLast").click();
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    Press("mnuFileDirectory");
    EXPECT_EQ(gSettings.files.folder, folder.string()) << "cancelled";
}

TEST_F(MainCommands, UnplottedLinesAreListed) {
    OpenFile("a.txt");
    EXPECT_FALSE(Action("mnuViewUnplotted").isEnabled());
    prompts.ExpectAny("non-data");
    OpenFile("b.txt", "30\t120\nno data here\n");
    QString text;
    QTimer::singleShot(0, [&text] {
        QWidget& window = *QApplication::activeModalWidget();
        text = ControlOf<QPlainTextEdit>(window, "txtText").toPlainText();
        ControlOf<QPushButton>(window, "cmdCopy").click();
        QTest::keyClick(&window, Qt::Key_Escape);
    });
    Press("mnuViewUnplotted");
    EXPECT_TRUE(text.contains("2\tno data here"));
    EXPECT_EQ(QApplication::clipboard()->text(), text);
}

TEST_F(MainCommands, WhatIsOnTheClipboardIsSaidAsLongAsItIsThere) {
    OpenFile("a.txt");
    Press("mnuFileCopyImage_0");
    EXPECT_EQ(Info(), "The plot is on the clipboard");
    QApplication::clipboard()->setText("something else");
    EXPECT_EQ(Info(), "");
    Press("mnuFileCopyImage_0");
    main->SetStatusText("another text");
    QApplication::clipboard()->setText("something else again");
    EXPECT_EQ(Info(), "another text");
}

TEST_F(MainCommands, SavingTellsWhereAndClearsTheChange) {
    const int slot = OpenChanged("a.txt");
    const std::string path = (folder / "saved.txt").string();
    prompts.QueueSavePath(path);
    QTest::mouseClick(&ToolButton("cmdSaveButton"), Qt::LeftButton);
    EXPECT_TRUE(std::filesystem::exists(path));
    EXPECT_EQ(RecordOf(slot).Modified, 0);
    EXPECT_EQ(Info(), "Saved as saved.txt");
    EXPECT_EQ(FormOfSlot(slot).windowTitle().left(12), "saved.txt: 1");
    prompts.QueueSavePath((folder / "other.txt").string());
    Press("mnuFileSave_1");
    EXPECT_TRUE(std::filesystem::exists(folder / "other.txt"));
    OpenChanged("b.txt");
    prompts.QueueSavePath((folder / "all.txt").string());
    Press("mnuFileSave_2");
    EXPECT_TRUE(std::filesystem::exists(folder / "all.txt"));
    EXPECT_EQ(Info(), "All plots are saved");
}

TEST_F(MainCommands, WhatWasSavedIsSaidUntilItIsChanged) {
    OpenFile("b.txt");
    const int slot = OpenChanged("a.txt");
    for (const char* const command : {"mnuFileSave_1", "mnuFileSave_2"}) {
        ActiveRecord().Modified = kTrue;
        main->UpdatePlotState();
        prompts.QueueSavePath((folder / "saved.txt").string());
        Press(command);
        const QString told = Info();
        EXPECT_FALSE(told.isEmpty()) << command;
        main->UpdatePlotState();
        EXPECT_EQ(Info(), told) << command;
        RecordOf(slot).Modified = kTrue;
        main->UpdatePlotState();
        EXPECT_EQ(Info(), "") << command;
        RecordOf(slot).Modified = 0;
        main->UpdatePlotState();
        EXPECT_EQ(Info(), "") << "a text that has gone does not come back";
    }
}

TEST_F(MainCommands, ATextThatFollowedStaysWhenWhatWasToldBeforeEnds) {
    const int slot = OpenChanged("a.txt");
    prompts.QueueSavePath((folder / "saved.txt").string());
    Press("mnuFileSave_1");
    main->SetStatusText("another text");
    RecordOf(slot).Modified = kTrue;
    main->UpdatePlotState();
    EXPECT_EQ(Info(), "another text");
}

TEST_F(MainCommands, ACancelledLoadLeavesNoWindow) {
    AcceptFormat({}, 0);
    prompts.QueueOpenPath(WriteFile("a.txt", "1\t2\n"));
    Press("mnuFileLoad_0");
    EXPECT_EQ(CountOpenPlots(), 0);
    EXPECT_TRUE(Room().subWindowList().isEmpty());
    EXPECT_TRUE(ControlOf<frmIntro>(*main, "frmIntro").isVisible());
}

TEST_F(MainCommands, CancellingTheFileDialogOfASessionWithoutPlotsMakesABlankPlot) {
    Press("mnuFileLoad_0");
    EXPECT_EQ(ActiveRecord().PlotTitle, "Plot 1: Untitled");
    Press("mnuFileLoad_0");
    EXPECT_EQ(CountOpenPlots(), 1);
}

/// Each command that can be used, by its menu item and by its button, with what must hold
/// afterwards.
TEST_F(MainCommands, MenuItemsAndButtonsDoTheSame) {
    struct Case {
        const char* command;
        const char* button;
        std::function<int()> state;
        int expected;
    };

    const auto mode = [] { return int{ActiveRecord().PlotSymbolMode}; };
    const auto kind = [] { return int{ActiveRecord().PlotKind}; };
    const auto layer = [](PlotLayer place) {
        return [place] { return ActiveRecord().LayerVisible[place] != 0 ? 1 : 0; };
    };
    const Case cases[] = {
        {"mnuPlotSymbols_0", "grpSymbolButton_0", mode, kGreatCircles},
        {"mnuPlotSymbols_2", "grpSymbolButton_2", mode, kBetaIntersections},
        {"mnuPlotSymbols_1", "grpSymbolButton_1", mode, kPointSymbols},
        {"mnuPlotType_1", "grpPlotTypeButton_1", kind, kEqualAngle},
        {"mnuPlotType_0", "grpPlotTypeButton_0", kind, kEqualArea},
        {"mnuViewLegends_0", "grpDisplayButton_0", layer(kGirdleLayer), 1},
        {"mnuViewLegends_1", "grpDisplayButton_1", layer(kFabricLayer), 0},
        {"mnuViewLegends_2", "grpDisplayButton_2", layer(kDescriptionLayer), 0},
        {"mnuViewLegends_3", "grpDisplayButton_3", layer(kLegendLayer), 0},
        {"mnuViewLegends_4", "grpDisplayButton_4", layer(kNumberLayer), 0},
    };
    OpenFile("by_menu.txt");
    for (const Case& test : cases) {
        Press(test.command);
        EXPECT_EQ(test.state(), test.expected) << test.command;
    }
    OpenFile("by_button.txt");
    for (const Case& test : cases) {
        QTest::mouseClick(&ToolButton(test.button), Qt::LeftButton);
        EXPECT_EQ(test.state(), test.expected) << test.button;
        EXPECT_EQ(ToolButton(test.button).defaultAction(), &Action(test.command));
    }
}

TEST_F(MainCommands, ShortcutsReachTheirCommands) {
    main->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(main.get()));
    const auto type = [this](int key) {
        QTest::keyClick(QApplication::focusWidget() != nullptr ? QApplication::focusWidget()
                                                               : main.get(),
                        static_cast<Qt::Key>(key & ~static_cast<int>(Qt::KeyboardModifierMask)),
                        Qt::KeyboardModifiers(key & static_cast<int>(Qt::KeyboardModifierMask)));
        QApplication::processEvents();
    };
    type(int{Qt::CTRL} | int{Qt::Key_N});
    EXPECT_EQ(CountOpenPlots(), 1);
    prompts.QueueOpenPath(WriteFile("a.txt", "30\t120\n"));
    type(int{Qt::CTRL} | int{Qt::Key_O});
    EXPECT_EQ(CountOpenPlots(), 2);
    prompts.QueueOpenPath(WriteFile("b.txt", "30\t120\n"));
    type(int{Qt::CTRL} | int{Qt::Key_M});
    EXPECT_EQ(ActiveRecord().NumData, 2);
    prompts.QueueSavePath((folder / "saved.txt").string());
    Expect("This plot contains data from more than one file.");
    type(int{Qt::CTRL} | int{Qt::Key_S});
    EXPECT_TRUE(std::filesystem::exists(folder / "saved.txt"));
    type(int{Qt::CTRL} | int{Qt::Key_W});
    EXPECT_EQ(CountOpenPlots(), 1) << "the window's own menu has the same key";
    type(int{Qt::CTRL} | int{Qt::SHIFT} | int{Qt::Key_W});
    EXPECT_EQ(CountOpenPlots(), 0);
}

TEST_F(MainCommands, ACancelledLoadLeavesTheFormerPlotInFront) {
    OpenFile("a.txt");
    OpenFile("b.txt");
    OpenFile("c.txt");
    Room().setActiveSubWindow(&FormOfSlot(2));
    AcceptFormat({}, 0);
    prompts.QueueOpenPath(WriteFile("d.txt", "1\t2\n"));
    Press("mnuFileLoad_0");
    EXPECT_EQ(gActivePlot, 2);
    EXPECT_EQ(Room().activeSubWindow(), &FormOfSlot(2));
}

TEST_F(MainCommands, AHintIsNotSaidTwice) {
    OpenFile("a.txt");
    main->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(main.get()));
    Press("mnuFileLoad_3");
    EXPECT_EQ(Info(), gHintText);
    EXPECT_EQ(Hint(), "");
    FormOfSlot(2).txtDescBox->setFocus();
    FormOfSlot(2).picStereoArea->setFocus();
    EXPECT_EQ(Info(), gHintText);
}

TEST_F(MainCommands, TextsAreSeenWithoutAPlotToo) {
    Press("mnuFileStruct");
    EXPECT_EQ(Info(), "The data format applies to the next file");
    OpenFile("a.txt");
    Press("mnuFileClose_0");
    EXPECT_EQ(Info(), "") << "what was reported about a plot goes with the last one";
}

TEST_F(MainCommands, ThePictureOfANewPlotIsOfferedUnderItsTitle) {
    Press("mnuFileLoad_3");
    EXPECT_EQ(PictureName(ActiveRecord()), "Plot 1- Untitled.png");
    OpenFile("my.beds.csv");
    EXPECT_EQ(PictureName(ActiveRecord()), "my.beds.png");
}

TEST_F(MainCommands, WhatThePasteItemSaysFollowsTheClipboard) {
    OpenFile("a.txt");
    clipboard.SetText(";Quandrel, ver 9.5.1\r\n");
    main->findChild<QMenu*>("mnuEdit")->popup(QPoint(0, 0));
    EXPECT_EQ(Action("mnuEditSelection_4").text(), "&Paste selection");
    main->findChild<QMenu*>("mnuEdit")->close();
}

} // namespace
} // namespace quandrel
