// SPDX-License-Identifier: MIT

#include "session/start.h"
#include "shell/controls/picture_box.h"
#include "support/main_window_test.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QToolButton>

namespace quandrel {
namespace {

class PlotWindow : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        form = &FormOfSlot(OpenFile("a.txt"));
    }

    frmPlotForms* form = nullptr;
};

TEST_F(PlotWindow, ItsTextsStartAsHintsAndAreNoData) {
    EXPECT_EQ(form->txtDescBox->placeholderText(), "Data description");
    EXPECT_EQ(form->txtFabricBox->placeholderText(), "Fabric");
    EXPECT_EQ(form->txtDescBox->toPlainText(), "");
    EXPECT_EQ(ActiveRecord().DescriptionText, "");
    EXPECT_EQ(ActiveRecord().Modified, 0);
    Press("mnuFileLoad_3");
    const frmPlotForms& blank = FormOfSlot(gActivePlot);
    EXPECT_EQ(blank.lblNumBox->text(), "0");
}

TEST_F(PlotWindow, WhatTheUserWritesIsKeptInThePlot) {
    QTest::keyClicks(form->txtDescBox, "Northern limb");
    QTest::keyClicks(form->txtFabricBox, "S1");
    EXPECT_EQ(ActiveRecord().DescriptionText, "Northern limb");
    EXPECT_EQ(ActiveRecord().FabricText, "S1");
    EXPECT_NE(ActiveRecord().Modified, 0);
}

TEST_F(PlotWindow, TextsGoToThePlotOfTheWindowWhicheverIsActive) {
    OpenFile("b.txt");
    EXPECT_EQ(gActivePlot, 2);
    form->txtDescBox->setPlainText("of the first");
    EXPECT_EQ(RecordOf(1).DescriptionText, "of the first");
    EXPECT_EQ(RecordOf(2).DescriptionText, "");
}

TEST_F(PlotWindow, TextsOfARecordAreShown) {
    ActiveRecord().DescriptionText = "from a file";
    ActiveRecord().FabricText = "L2";
    form->Show();
    EXPECT_EQ(form->txtDescBox->toPlainText(), "from a file");
    EXPECT_EQ(form->txtFabricBox->text(), "L2");
}

TEST_F(PlotWindow, FocusOnATextShowsItsHint) {
    main->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(main.get()));
    const QString told = Info();
    const QString before = Hint();
    form->txtDescBox->setFocus();
    EXPECT_EQ(Hint(), "Enter description of data if required");
    form->txtFabricBox->setFocus();
    EXPECT_EQ(Hint(), "Enter name of structural fabric");
    EXPECT_EQ(Info(), told) << "a message has its own place";
    main->SetStatusText("something");
    EXPECT_EQ(Info(), "something");
    EXPECT_EQ(Hint(), "Enter name of structural fabric") << "a message takes no hint away";
    form->picStereoArea->setFocus();
    EXPECT_EQ(Hint(), before);
}

TEST_F(PlotWindow, TheTabsChooseTheLayerUnderEdit) {
    EXPECT_EQ(form->tabLayers->count(), 2);
    EXPECT_EQ(form->tabLayers->tabText(0), "Annotations");
    EXPECT_EQ(form->tabLayers->tabToolTip(0), "Select Annotation layer for editing");
    EXPECT_EQ(form->tabLayers->tabToolTip(1), "Select main data set");
    EXPECT_EQ(gActiveLayer, kDataLayer);
    EXPECT_FALSE(form->shpAnnUp->isVisible());
    const QImage before = form->picStereoArea->Image().copy();
    QTest::mouseClick(form->tabLayers, Qt::LeftButton, Qt::NoModifier,
                      form->tabLayers->tabRect(0).center());
    EXPECT_EQ(gActiveLayer, kAnnotationLayer);
    EXPECT_TRUE(form->shpAnnUp->isVisible());
    EXPECT_EQ(form->picStereoArea->Image(), before) << "the plot is left as it is";
    form->tabLayers->setCurrentIndex(1);
    EXPECT_EQ(gActiveLayer, kDataLayer);
    EXPECT_FALSE(form->shpAnnUp->isVisible());
}

TEST_F(PlotWindow, EachWindowHasItsOwnLayer) {
    form->tabLayers->setCurrentIndex(0);
    OpenFile("b.txt");
    EXPECT_EQ(gActiveLayer, kDataLayer);
    Room().setActiveSubWindow(form);
    EXPECT_EQ(gActiveLayer, kAnnotationLayer);
}

TEST_F(PlotWindow, TheTabOfTheDataIsNamedWhenDataArrive) {
    Press("mnuFileLoad_3");
    const frmPlotForms& blank = FormOfSlot(gActivePlot);
    EXPECT_EQ(blank.tabLayers->tabText(1), "Data Layer");
    EXPECT_EQ(blank.tabLayers->tabToolTip(1), "Select 1st data layer for editing");
    form->tabLayers->setCurrentIndex(0);
    form->AddLayerTab("a.txt", "Overlay");
    EXPECT_EQ(form->tabLayers->currentIndex(), 0) << "an overlay has no tab";
    form->AddLayerTab("File12", "Binary");
    EXPECT_EQ(form->tabLayers->tabText(1), "File");
    EXPECT_EQ(form->tabLayers->currentIndex(), 1);
    EXPECT_EQ(form->tabLayers->count(), 2);
}

TEST_F(PlotWindow, TheTabOfTheDataGoesByTheDataAlone) {
    Press("mnuFileLoad_3");
    const frmPlotForms& blank = FormOfSlot(gActivePlot);
    EXPECT_EQ(blank.tabLayers->tabText(1), "Data Layer");
    prompts.QueueOpenPath(WriteFile("more.txt", "30\t120\n45\t270\n"));
    Press("mnuFileLoad_1");
    ASSERT_EQ(ActiveRecord().NumValidData, 2);
    EXPECT_EQ(blank.tabLayers->tabText(1), "Data layer") << "rows joined to a blank plot";
    EXPECT_EQ(blank.tabLayers->tabToolTip(1), "Select main data set");
    blank.tabLayers->setCurrentIndex(0);
    blank.tabLayers->setCurrentIndex(1);
    EXPECT_EQ(blank.tabLayers->tabText(1), "Data layer");
    Press("mnuFileLoad_3");
    FormOfSlot(gActivePlot).AddLayerTab("none.txt", "New");
    EXPECT_EQ(FormOfSlot(gActivePlot).tabLayers->tabText(1), "Data Layer") << "no data came";
}

TEST_F(PlotWindow, ThePictureFollowsTheSizeOfTheWindow) {
    const int before = form->picStereoArea->Image().width();
    form->resize(form->size() + QSize(200, 150));
    form->grab();
    EXPECT_GT(form->picStereoArea->width(), before);
    EXPECT_FALSE(form->picStereoArea->IsStale());
    EXPECT_EQ(form->picStereoArea->Image().width(), form->picStereoArea->width());
    EXPECT_EQ(form->picStereoArea->Image().pixelColor(3, 3), QColor(Qt::white));
}

TEST_F(PlotWindow, AWindowThatIsNotActiveDrawsItsOwnPlot) {
    OpenFile("b.txt", "10\t10\n");
    const QString before = Info();
    form->resize(form->size() + QSize(60, 60));
    form->grab();
    EXPECT_EQ(gActivePlot, 2);
    EXPECT_EQ(Info(), before);
    const QImage drawn = form->picStereoArea->Image().copy();
    const PlotInWork work(1);
    form->ReplotIntoWindow();
    EXPECT_EQ(form->picStereoArea->Image(), drawn) << "the same plot in the same size";
}

TEST_F(PlotWindow, APlotFileOfManyDirectionsOpensAndIsPaintedWithoutAQuestion) {
    gPrimaryDataType = kDirections;
    gFileColumnSettings[kSlotDirection] = 0;
    std::string lines;
    for (int i = 0; i < 2001; ++i) {
        lines += std::to_string(i % 30) + "\n";
    }
    OpenFile("directions.txt", lines);
    ASSERT_EQ(ActiveRecord().PlotKind, kRose);
    prompts.QueueSavePath((folder / "directions.qpx").string());
    Press("mnuFileSave_1");
    Press("mnuFileClose_0");
    prompts.QueueOpenPath((folder / "directions.qpx").string());
    Press("mnuFileLoad_0");
    frmPlotForms& opened = FormOfSlot(gActivePlot);
    ASSERT_EQ(ActiveRecord().NumValidData, 2001);
    opened.grab();
    opened.resize(opened.size() + QSize(80, 60)); // painted again
    opened.grab();
    EXPECT_TRUE(prompts.Shown().empty());
    EXPECT_GT(ActiveRecord().RoseMedian, 0) << "worked out all the same";
}

TEST_F(PlotWindow, WhatHasToBeAskedWaitsForTheCommand) {
    PlotRecord& record = ActiveRecord();
    Press("mnuPlotType_2");
    // A step that changes the plot, and draws it only after the window was painted.
    record.RoseSectorSize = 100;
    record.RowsChanged = kTrue;
    form->resize(form->size() + QSize(80, 60));
    form->grab();
    EXPECT_TRUE(prompts.Shown().empty());
    Expect("sector", Button::Ok);
    Press("mnuEditRefresh");
    EXPECT_EQ(prompts.Shown().size(), 1U);
    form->resize(form->size() + QSize(20, 20));
    form->grab();
    EXPECT_EQ(prompts.Shown().size(), 1U);
}

TEST_F(PlotWindow, TheResizeButtonReplots) {
    EXPECT_EQ(form->cmdResizeButton->toolTip(), "Replot into current window");
    ActiveRecord().PlotSymbolMode = kGreatCircles;
    const QImage before = form->picStereoArea->Image().copy();
    QTest::mouseClick(form->cmdResizeButton, Qt::LeftButton);
    EXPECT_NE(form->picStereoArea->Image(), before);
}

TEST_F(PlotWindow, ASizeGivenByHandHoldsForTheNextWindowWhileTheSettingSaysSo) {
    const std::int16_t percent = gPlotWidthPercent;
    form->resize(480, 480);
    EXPECT_EQ(gPlotWidthPercent, percent);
    gPlotWinLast = true;
    form->resize(600, 300);
    EXPECT_EQ(gPlotWidthPercent, 50);
    EXPECT_FLOAT_EQ(gPlotAspect, 0.5F);
    OpenFile("b.txt");
    EXPECT_EQ(FormOfSlot(2).size(), QSize(600, 300));
    Press("mnuWindow_1");
    EXPECT_FLOAT_EQ(gPlotAspect, 0.5F) << "tiling is not the user's size";
    gPlotWinLast = false;
}

/// The menus of the boxes, called as a user does: by the mouse, through the main window.
class BoxMenus : public PlotWindow {
protected:
    void SetUp() override {
        PlotWindow::SetUp();
        ActiveRecord().LayerVisible[kStatisticsLayer] = kTrue;
        ActiveRecord().LayerVisible[kDescriptionLayer] = kTrue;
        ActiveRecord().LayerVisible[kLegendLayer] = kTrue;
    }

    /// Presses the right button on a box. Returns the menu, or a null pointer if another one
    /// opened.
    QMenu* MenuOf(QWidget& box) {
        auto* text = qobject_cast<QPlainTextEdit*>(&box);
        const QWidget* seen = text != nullptr ? text->viewport() : &box;
        const QPoint at = seen->mapTo(main.get(), QPoint(5, 5));
        QTest::mousePress(main->windowHandle(), Qt::RightButton, Qt::NoModifier, at);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        return menu != nullptr && menu->objectName() == "mnuBox" ? menu : nullptr;
    }

    static void CloseMenus() {
        while (QWidget* popup = QApplication::activePopupWidget()) {
            popup->close();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static QAction* ItemOf(const QMenu& menu, const QString& caption) {
        for (QAction* action : menu.actions()) {
            if (action->text().section('\t', 0, 0).remove('&') == caption) {
                return action;
            }
        }
        return nullptr;
    }
};

TEST_F(BoxMenus, HaveCopySelectAllAndTheViewItems) {
    const QList<QAction*> viewItems = main->findChild<QMenu*>("mnuView")->actions();
    form->SetBoxText(PlotBox::StatsNormal, "Fabric statistics");
    form->FollowRecord();
    for (QWidget* box : std::initializer_list<QWidget*>{form->picLegendBox, form->txtStatsBox[0],
                                                        form->txtDescBox, form->txtFabricBox}) {
        ASSERT_TRUE(box->isVisible()) << box->objectName().toStdString();
        const QMenu* menu = MenuOf(*box);
        EXPECT_NE(menu, nullptr) << box->objectName().toStdString();
        if (menu != nullptr) {
            EXPECT_EQ(menu->actions().mid(menu->actions().size() - viewItems.size()), viewItems);
            EXPECT_NE(ItemOf(*menu, "Copy"), nullptr) << box->objectName().toStdString();
            EXPECT_EQ(ItemOf(*menu, "Select All") != nullptr, box != form->picLegendBox);
        }
        CloseMenus();
    }
}

TEST_F(BoxMenus, OfTheStatisticsCopyAllWhereNothingIsSelected) {
    form->SetBoxText(PlotBox::StatsNormal, "Fabric statistics");
    form->SetBoxText(PlotBox::StatsAdvanced, "Eigenvectors");
    for (const bool isAdvanced : {false, true}) {
        ActiveRecord().StatsBoxKind = isAdvanced ? 1 : 0;
        form->FollowRecord();
        QPlainTextEdit& box = *form->txtStatsBox.at(isAdvanced ? 1 : 0);
        ASSERT_TRUE(box.isVisible());
        const QMenu* menu = MenuOf(box);
        ASSERT_NE(menu, nullptr) << box.objectName().toStdString();
        ASSERT_TRUE(ItemOf(*menu, "Copy")->isEnabled());
        ItemOf(*menu, "Copy")->trigger();
        EXPECT_EQ(QGuiApplication::clipboard()->text(), box.toPlainText());
        ItemOf(*menu, "Select All")->trigger();
        EXPECT_EQ(box.textCursor().selectedText(), box.toPlainText());
        CloseMenus();
    }
}

TEST_F(PlotWindow, KeysBelongToTheBoxThatHasTheFocus) {
    main->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(main.get()));
    ActiveRecord().LayerVisible[kStatisticsLayer] = kTrue;
    form->SetBoxText(PlotBox::StatsNormal, "Mean 045-10");
    form->FollowRecord();
    QPlainTextEdit& box = *form->txtStatsBox[0];
    ASSERT_TRUE(box.isVisible());
    QGuiApplication::clipboard()->setText("before");
    form->picStereoArea->setFocus();
    QTest::keyClick(form->picStereoArea, Qt::Key_A, Qt::ControlModifier); // all rows
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "Mean 045-10");
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClick(&box, Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(ActiveRecord().NumValidData, 3) << "the rows are left alone";
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(box.textCursor().selectedText(), "Mean 045-10");
    for (QWidget* text : std::initializer_list<QWidget*>{&box, form->txtDescBox}) {
        text->setFocus();
        QTest::keyClick(text, Qt::Key_Escape);
        EXPECT_TRUE(form->picStereoArea->hasFocus()) << text->objectName().toStdString();
    }
}

TEST_F(PlotWindow, TheStatusLineBelongsToThePlotInFront) {
    EXPECT_EQ(Hint(), gHintText);
    const QString first = Info();
    OpenFile("b.txt", "10\t10\n");
    EXPECT_NE(Info(), first);
    main->SetStatusText("told of the second");
    Room().setActiveSubWindow(form);
    EXPECT_EQ(Info(), first);
    Room().setActiveSubWindow(&FormOfSlot(2));
    EXPECT_EQ(Info(), "told of the second");
    Press("mnuPlotType_2");
    EXPECT_NE(Hint(), gHintText) << "points cannot be added to a rose";
    Press("mnuFileClose_0");
    EXPECT_EQ(Info(), first);
    EXPECT_EQ(Hint(), gHintText);
    Press("mnuFileClose_0");
    EXPECT_EQ(Info(), "");
    EXPECT_EQ(Hint(), "");
}

TEST_F(PlotWindow, MinimisingAndRestoringKeepsThePicture) {
    const QImage before = form->picStereoArea->Image().copy();
    form->showMinimized();
    form->showNormal();
    form->grab();
    EXPECT_EQ(form->picStereoArea->Image(), before);
}

TEST_F(PlotWindow, ShowingATextIsNoChangeOfThePlot) {
    PlotRecord& record = ActiveRecord();
    record.DescriptionText = "two\r\nlines";
    record.FabricText = "with\na break";
    record.Modified = 0;
    form->Show();
    form->Show();
    EXPECT_EQ(record.Modified, 0);
    EXPECT_EQ(record.DescriptionText, "two\r\nlines");
    EXPECT_EQ(record.FabricText, "with\na break");
}

TEST_F(PlotWindow, TextsOfThePlotAreSavedWithIt) {
    QTest::keyClicks(form->txtDescBox, "Northern limb");
    QTest::keyClicks(form->txtFabricBox, "S1");
    prompts.QueueSavePath((folder / "saved.txt").string());
    Press("mnuFileSave_0");
    std::ifstream file(folder / "saved.txt");
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    EXPECT_NE(text.find("; Fabric: S1\r\n"), std::string::npos) << text;
    EXPECT_NE(text.find("; Description: Northern limb\r\n"), std::string::npos);
}

} // namespace
} // namespace quandrel
