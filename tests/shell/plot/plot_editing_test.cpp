// SPDX-License-Identifier: MIT
//
// Edits by mouse and keys in the real windows.

#include "edit/marks/annotations.h"
#include "edit/rows/paste_rows.h"
#include "orientation/angles.h"
#include "shell/plot/plot_editing_fixture.h"
#include "support/drawing_requests.h"

#include <QCheckBox>
#include <QClipboard>
#include <QLineEdit>
#include <QMenu>
#include <QTabBar>

#include <cmath>

namespace quandrel {
namespace {

TEST_F(PlotEditing, AddSelectMoveUndo) {
    OpenLines("lines.txt", "30\t120\n45\t270\n");
    // 45 to 090 lies at 1000 * sqrt(2) * sin(22.5 deg) = 541 in equal area.
    Click(541, 0, Qt::AltModifier);
    ASSERT_EQ(Dips(), (std::vector<int>{30, 45, 45}));
    EXPECT_EQ(gDataAz(gActivePlot, 3), 90);
    EXPECT_EQ(Action("mnuEditUndo").text(), "&Undo Add");

    Drag({400, 150}, {700, -150});
    EXPECT_EQ(gSelectionRows, (std::vector<std::int32_t>{3}));
    EXPECT_TRUE(IsEnabled("mnuEditSelection_1"));

    // Moved to the north by the same distance, it keeps the trend of the line through both
    // positions.
    Drag({600, 50}, {600 - 541, 50 + 541});
    EXPECT_EQ(gDataAz(gActivePlot, 3), 0);
    EXPECT_NEAR(gDataDip(gActivePlot, 3), 45, 1);
    EXPECT_EQ(Action("mnuEditUndo").text(), "&Undo Move");
    Press("mnuEditUndo");
    EXPECT_EQ(gDataAz(gActivePlot, 3), 90);
    EXPECT_EQ(gDataDip(gActivePlot, 3), 45);
    EXPECT_EQ(Action("mnuEditUndo").text(), "&Undo Add");
    Press("mnuEditUndo");
    EXPECT_EQ(Dips(), (std::vector<int>{30, 45}));
    EXPECT_FALSE(IsEnabled("mnuEditUndo"));
    EXPECT_EQ(Action("mnuEditRedo").text(), "Redo Add");
    Press("mnuEditRedo");
    Press("mnuEditRedo");
    EXPECT_EQ(gDataAz(gActivePlot, 3), 0);
    EXPECT_FALSE(IsEnabled("mnuEditRedo"));
}

TEST_F(PlotEditing, TheStatusLineCountsTheSelectedRows) {
    OpenLines("lines.txt", "80\t90\n80\t270\n80\t0\n");
    Drag({10, 100}, {300, -100});
    EXPECT_EQ(Info(), "1 row selected");
    Drag({-300, 300}, {-10, -100}, Qt::ShiftModifier);
    EXPECT_EQ(Info(), "2 rows selected");
    Drag({-300, 300}, {50, -100}, Qt::ControlModifier);
    EXPECT_EQ(gSelectionRows, (std::vector<std::int32_t>{1, 3}));
    Press("mnuEditSelection_8");
    EXPECT_EQ(Info(), "");
    Press("mnuEditSelection_7");
    main->SetStatusText("another text");
    Press("mnuEditSelection_8");
    EXPECT_EQ(Info(), "another text");
}

TEST_F(PlotEditing, TheStatusLineCountsTheSelectedRowsAfterRedrawsToo) {
    OpenLines("lines.txt", "30\t90\n30\t270\n30\t0\n");
    Net().setFocus();
    QTest::keyClick(&Net(), Qt::Key_A, Qt::ControlModifier);
    ASSERT_EQ(Info(), "3 rows selected");
    QTest::keyClick(&Net(), Qt::Key_Right);
    ASSERT_EQ(gDataAz(gActivePlot, 1), 91);
    EXPECT_EQ(Info(), "3 rows selected") << "after a step";
    QTest::keyClick(&Net(), Qt::Key_Z, Qt::ControlModifier);
    ASSERT_EQ(gDataAz(gActivePlot, 1), 90);
    EXPECT_EQ(Info(), "3 rows selected") << "after undo";
    QTest::keyClick(&Net(), Qt::Key_Delete);
    EXPECT_NE(Info(), "3 rows selected");
    QTest::keyClick(&Net(), Qt::Key_Z, Qt::ControlModifier);
    ASSERT_EQ(gSelectionRows.size(), 3U);
    EXPECT_EQ(Info(), "3 rows selected") << "after rows are restored";
    Press("mnuPlotSymbols_0");
    EXPECT_EQ(Info(), "3 rows selected by their poles");
    QTest::keyClick(&Net(), Qt::Key_Escape);
    EXPECT_EQ(Info(), "");
    Press("mnuPlotSymbols_1");
    EXPECT_TRUE(Info().startsWith("3 data in")) << Info().toStdString();
}

TEST_F(PlotEditing, GirdlesOverlaysAndAnnotationsComeBackFromTheMenu) {
    OpenFile("a.txt");
    prompts.QueueOpenPath(WriteFile("b.txt", "10\t20\n"));
    Press("mnuFileLoad_2");
    ASSERT_EQ(ActiveRecord().OverlayRows[kOverlayCount], 1);
    Press("mnuEditRemoveOverlay");
    EXPECT_EQ(ActiveRecord().OverlayRows[kOverlayCount], 0);
    EXPECT_EQ(Action("mnuEditUndo").text(), "&Undo Removal");
    Press("mnuEditUndo");
    EXPECT_EQ(ActiveRecord().OverlayRows[kOverlayCount], 1);
    FormOfSlot(gActivePlot).tabLayers->setCurrentIndex(0);
    Click(-300, 300, Qt::AltModifier);
    ASSERT_EQ(AnnotationsOf(gActivePlot).size(), 1U);
    Press("mnuEditRemoveAnnotation");
    EXPECT_TRUE(AnnotationsOf(gActivePlot).empty());
    Press("mnuEditUndo");
    EXPECT_EQ(AnnotationsOf(gActivePlot).size(), 1U);
    FocusGirdle(3);
    Drag({100, 0}, {200, 0}, Qt::ShiftModifier);
    ASSERT_TRUE(IsGirdleShown(3));
    EXPECT_EQ(Action("mnuEditUndo").text(), "&Undo Girdle");
    Press("mnuEditUndo");
    EXPECT_FALSE(IsGirdleShown(3));
}

TEST_F(PlotEditing, CutAllAndUndo) {
    OpenFile("a.txt");
    Press("mnuEditSelection_7");
    EXPECT_EQ(gSelectionRows.size(), 3U);
    Press("mnuEditSelection_1");
    EXPECT_EQ(ActiveRecord().NumValidData, 0);
    EXPECT_FALSE(IsEnabled("mnuEditSelection_7"));
    Press("mnuEditUndo");
    EXPECT_EQ(Dips(), (std::vector<int>{30, 45, 60}));
    EXPECT_FALSE(IsEnabled("mnuEditUndo"));
}

TEST_F(PlotEditing, KeysSelectNudgeDeleteAndUnselect) {
    OpenFile("a.txt");
    Net().setFocus();
    QTest::keyClick(&Net(), Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(gSelectionRows.size(), 3U);
    QTest::keyClick(&Net(), Qt::Key_Up);
    EXPECT_EQ(Dips(), (std::vector<int>{31, 46, 61}));
    QTest::keyClick(&Net(), Qt::Key_Left);
    EXPECT_EQ(gDataAz(gActivePlot, 1), 119);
    QTest::keyClick(&Net(), Qt::Key_Escape);
    EXPECT_TRUE(gSelectionRows.empty());
    EXPECT_FALSE(IsEnabled("mnuEditSelection_8"));
    QTest::keyClick(&Net(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&Net(), Qt::Key_Delete);
    EXPECT_EQ(ActiveRecord().NumData, 0);
}

TEST_F(PlotEditing, AHeldLOrTheButtonDrawsALasso) {
    OpenLines("lines.txt", "45\t90\n45\t270\n");
    const auto around = [](double left = 400) {
        QTest::mousePress(&Net(), Qt::LeftButton, {}, At(left, 200));
        for (const Point& at : {Point{700, 200}, Point{700, -200}, Point{left, -200}}) {
            QMouseEvent move(QEvent::MouseMove, QPointF(At(at.x, at.y)),
                             Net().mapToGlobal(QPointF(At(at.x, at.y))), Qt::NoButton,
                             Qt::LeftButton, {});
            QCoreApplication::sendEvent(&Net(), &move);
        }
        QTest::mouseRelease(&Net(), Qt::LeftButton, {}, At(left, -200));
    };
    Net().setFocus();
    QTest::keyPress(&Net(), Qt::Key_L);
    around();
    QTest::keyRelease(&Net(), Qt::Key_L);
    EXPECT_EQ(Selection::now.lasso.size(), 4U);
    EXPECT_EQ(gSelectionRows, (std::vector<std::int32_t>{1}));
    around(350); // a press within what stands would move it
    EXPECT_TRUE(Selection::now.lasso.empty());
    Press("mnuEditLasso");
    Click(0, 0);
    around();
    EXPECT_EQ(Selection::now.lasso.size(), 4U);
}

TEST_F(PlotEditing, TheAddModeMakesAPlainPressAddAPoint) {
    OpenFile("a.txt");
    Press("mnuEditAddMode");
    Click(0, 0);
    EXPECT_EQ(Dips(), (std::vector<int>{30, 45, 60, 0})) << "the centre is the pole of a flat bed";
    Click(1050, 0);
    EXPECT_EQ(Dips().size(), 4U) << "outside the net nothing is added";
    Press("mnuEditAddMode");
    Click(0, 0);
    EXPECT_EQ(Dips().size(), 4U);
}

TEST_F(PlotEditing, AltAndTheRightButtonAddAPlaneOfTheOtherPolarityAtTheSamePlace) {
    OpenFile("a.txt");
    Click(541, 0, Qt::AltModifier);
    Click(541, 0, Qt::AltModifier, Qt::RightButton);
    EXPECT_EQ(Dips(), (std::vector<int>{30, 45, 60, 45, -45}));
    EXPECT_EQ(gDataAz(gActivePlot, 4), 270);
    const std::vector<Point> places = PlacesOfRows(gActivePlot, std::vector<std::int32_t>{4, 5});
    EXPECT_EQ(places.size(), 1U) << "each place once";
}

TEST_F(PlotEditing, TheReadoutFollowsTheMouse) {
    OpenFile("a.txt");
    QTest::mouseMove(&Net(), At(541, 0));
    EXPECT_EQ(main->panDipAzBox->text(), "45-090  (Pole to Plane: 45/270)");
    QTest::mouseMove(&Net(), At(1050, 1050));
    EXPECT_EQ(main->panDipAzBox->text(), "");
    QEvent leave(QEvent::Leave);
    QTest::mouseMove(&Net(), At(0, 0));
    QCoreApplication::sendEvent(&Net(), &leave);
    EXPECT_EQ(main->panDipAzBox->text(), "");
}

TEST_F(PlotEditing, OnARoseTheReadoutTellsSectorAndCountAndNothingIsAdded) {
    OpenFile("a.txt");
    Press("mnuPlotType_2");
    int count = 0;
    for (int sector = 0; sector < 36; ++sector) {
        const double azimuth = DegToRad(10 * sector + 5);
        QTest::mouseMove(&Net(), At(200 * std::sin(azimuth), 200 * std::cos(azimuth)));
        const QString text = main->panDipAzBox->text();
        const QString edges = QString("[%1 to %2: ").arg(10 * sector).arg(10 * sector + 10);
        EXPECT_TRUE(text.contains(edges)) << text.toStdString();
        count += text.section(": ", 1).section(' ', 0, 0).toInt();
    }
    EXPECT_EQ(count, 6) << "each strike at both its ends";
    Click(0, 300, Qt::AltModifier);
    Drag({-500, 500}, {500, -500});
    EXPECT_EQ(Dips().size(), 3U);
    EXPECT_TRUE(gSelectionRows.empty());
    Press("mnuEditSelection_7");
    EXPECT_EQ(gSelectionRows.size(), 3U);
    Press("mnuEditSelection_1");
    EXPECT_EQ(ActiveRecord().NumData, 0);
    Press("mnuEditUndo");
    EXPECT_EQ(Dips(), (std::vector<int>{30, 45, 60}));
    Press("mnuEditSelection_7");
    Press("mnuEditSelection_2");
    Press("mnuEditSelection_4");
    EXPECT_EQ(Dips(), (std::vector<int>{30, 45, 60, 30, 45, 60}));
}

TEST_F(PlotEditing, RowsPasteBetweenPlotsOfDifferentKindsWithTheQuestionAnsweredBothWays) {
    OpenFile("planes.txt");
    Press("mnuEditSelection_7");
    Press("mnuEditSelection_2");
    OpenLines("lines.txt", "30\t120\n");
    prompts.Expect("You are trying to paste planes into a plot containing lines.", Button::No);
    Press("mnuEditSelection_4");
    EXPECT_EQ(Dips(), (std::vector<int>{30}));
    prompts.Expect("You are trying to paste planes into a plot containing lines.", Button::Yes);
    Press("mnuEditSelection_4");
    // The poles of 30/120, 45/270, 60/15.
    EXPECT_EQ(Dips(), (std::vector<int>{30, 60, 45, 30}));
    EXPECT_EQ(gDataAz(gActivePlot, 3), 90);
    EXPECT_EQ(Action("mnuEditUndo").text(), "&Undo Paste");
    EXPECT_EQ(prompts.Problems(), "");
}

TEST_F(PlotEditing, TextOfASpreadsheetGoesThroughTheFormatDialogOnce) {
    int asked = 0;
    ForgetPasteFormat(); // that of an earlier test
    OpenFile("a.txt");
    prompts.OnFormat([&asked](const FormatQuestion& question) -> std::optional<FormatAnswer> {
        EXPECT_EQ(question.command, "Paste");
        ++asked;
        return FormatAnswer{};
    });
    gPlatform.clipboard->SetText("10\t20\r\n33\t44\r\n");
    Press("mnuEditSelection_4");
    Press("mnuEditSelection_4");
    EXPECT_EQ(asked, 1);
    EXPECT_EQ(Dips(), (std::vector<int>{30, 45, 60, 10, 33, 10, 33}));
}

TEST_F(PlotEditing, GirdlesAreSetByEachFormOfTheMouse) {
    OpenFile("a.txt");
    Press("mnuEditGirdles");
    auto& box = ControlOf<QLineEdit>(*main, "txtGirdle_1");
    auto& tick = ControlOf<QCheckBox>(*main, "chkGirdle_1");
    box.setFocus();
    EXPECT_EQ(gActiveGirdle, 1);
    EXPECT_FALSE(tick.isChecked());
    Drag({0, 541}, {541, 0}, Qt::ShiftModifier);
    EXPECT_EQ(box.text(), "45/090") << "the true dip";
    EXPECT_TRUE(tick.isChecked());
    Drag({0, 541}, {541, 0}, Qt::ShiftModifier, Qt::RightButton);
    EXPECT_EQ(box.text(), "45/270") << "the pole";
    Drag({0, 600}, {0, 1000}, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(box.text(), "45/270") << "the dip line 45/270 and the strike 0/000";
    EXPECT_FALSE(MarqueeStands());
}

TEST_F(PlotEditing, EscLeavesTheTextOfAGirdleAndDropsWhatWasTyped) {
    OpenFile("a.txt");
    Press("mnuEditGirdles");
    auto& box = ControlOf<QLineEdit>(*main, "txtGirdle_2");
    box.setFocus();
    box.selectAll();
    QTest::keyClicks(&box, "45/120");
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_EQ(box.text(), QString::fromStdString(GirdleText(2)));
    EXPECT_NE(box.text(), "45/120");
    EXPECT_FALSE(box.hasFocus());
    EXPECT_EQ(main->focusWidget()->objectName(), "picStereoArea");
    EXPECT_FALSE(IsGirdleShown(2));
}

TEST_F(PlotEditing, TypedGirdlesAreTakenOnEnterWithAnySeparator) {
    OpenFile("a.txt");
    Press("mnuEditGirdles");
    auto& box = ControlOf<QLineEdit>(*main, "txtGirdle_2");
    auto& tick = ControlOf<QCheckBox>(*main, "chkGirdle_2");
    for (const char* text : {"45/120", "46\\120", "47-120", "48,120"}) {
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, text);
        QTest::keyClick(&box, Qt::Key_Return);
        EXPECT_TRUE(tick.isChecked()) << text;
        EXPECT_EQ(box.text(), text);
    }
    prompts.Expect("Can't recognize the character used", Button::Ok);
    box.selectAll();
    QTest::keyClicks(&box, "45x120");
    QTest::keyClick(&box, Qt::Key_Return);
    EXPECT_EQ(box.text(), "48,120");
    EXPECT_FALSE(tick.isChecked());
    QTest::mouseClick(&tick, Qt::LeftButton);
    EXPECT_TRUE(IsGirdleShown(2));
    EXPECT_EQ(prompts.Problems(), "");
}

TEST_F(PlotEditing, TheAnnotationLayerTakesPressesAndEdits) {
    const int slot = OpenFile("a.txt");
    FormOfSlot(slot).tabLayers->setCurrentIndex(0);
    EXPECT_EQ(gActiveLayer, kAnnotationLayer);
    Click(-300, 300, Qt::AltModifier);
    Drag({300, 300}, {500, 300}, Qt::AltModifier, Qt::RightButton);
    ASSERT_EQ(AnnotationsOf(slot).size(), 2U);
    EXPECT_EQ(AnnotationsOf(slot)[0].SymbolType, 21);
    EXPECT_EQ(AnnotationsOf(slot)[1].SymbolType, 22);
    EXPECT_FALSE(AnnotationsOf(slot)[1].LineNodes.empty());
    EXPECT_EQ(Dips().size(), 3U);
    EXPECT_EQ(Action("mnuViewAnnotations").text(), "Hide Ann&otations");

    Drag({-400, 400}, {-200, 200});
    Drag({-300, 300}, {-300, 100});
    EXPECT_NEAR(AnnotationsOf(slot)[0].Y, 100, 5);
    Press("mnuEditSelection_1");
    EXPECT_EQ(AnnotationsOf(slot).size(), 1U);
    // Undo brings its layer back to the front.
    FormOfSlot(slot).tabLayers->setCurrentIndex(1);
    Press("mnuEditUndo");
    EXPECT_EQ(AnnotationsOf(slot).size(), 2U);
    EXPECT_EQ(FormOfSlot(slot).tabLayers->currentIndex(), 0);
    Press("mnuViewAnnotations");
    EXPECT_EQ(ActiveRecord().ShowAnnotations, 0);
    EXPECT_TRUE(IsEnabled("mnuEditRemoveAnnotation")) << "hidden ones are still there";
    Press("mnuEditRemoveAnnotation");
    EXPECT_TRUE(AnnotationsOf(slot).empty());
    EXPECT_FALSE(IsEnabled("mnuViewAnnotations"));
}

TEST_F(PlotEditing, TheRightButtonOpensTheEditMenu) {
    OpenFile("a.txt");
    Click(0, 0, {}, Qt::RightButton);
    auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(popup->objectName(), "mnuEdit");
    popup->close();
}

TEST_F(PlotEditing, ASelectionCanBeCopiedFromAnotherPlot) {
    OpenFile("a.txt");
    Press("mnuEditSelection_7");
    OpenFile("b.txt");
    EXPECT_FALSE(IsEnabled("mnuEditSelection_1"));
    EXPECT_TRUE(IsEnabled("mnuEditSelection_2"));
    EXPECT_FALSE(IsEnabled("mnuEditSelection_3"));
    EXPECT_FALSE(IsEnabled("mnuEditSelection_5"));
    EXPECT_TRUE(IsEnabled("mnuEditSelection_8"));
    Press("mnuEditSelection_2");
    Press("mnuEditSelection_4");
    EXPECT_EQ(Dips().size(), 6U);
}

TEST_F(PlotEditing, ClosingThePlotForgetsSelectionAndUndo) {
    OpenFile("a.txt");
    Press("mnuEditSelection_7");
    Press("mnuEditSelection_5");
    EXPECT_TRUE(CanUndo());
    prompts.Expect("Save it?", Button::No);
    Press("mnuFileClose_0");
    EXPECT_FALSE(CanUndo());
    EXPECT_EQ(Selection::now.slot, 0);
}

TEST_F(PlotEditing, BetaPlotsRefuseCutAndDelete) {
    OpenFile("a.txt");
    Press("mnuPlotSymbols_2");
    Press("mnuEditSelection_7");
    EXPECT_FALSE(IsEnabled("mnuEditSelection_1"));
    EXPECT_TRUE(IsEnabled("mnuEditSelection_2"));
    EXPECT_FALSE(IsEnabled("mnuEditSelection_5"));
    EXPECT_FALSE(IsEnabled("mnuEditSelection_6"));
}

TEST_F(PlotEditing, MovingTheMouseDrawsNoPlotAnew) {
    OpenFile("a.txt");
    main->grab();
    const QImage before = Net().Image().copy();
    QTest::mousePress(&Net(), Qt::LeftButton, {}, At(-900, 900));
    const DrawingRequests requests;
    for (int step = 0; step < 50; ++step) {
        const QPoint at = At(-900 + 36 * step, 900 - 36 * step);
        QMouseEvent move(QEvent::MouseMove, QPointF(at), Net().mapToGlobal(QPointF(at)),
                         Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&Net(), &move);
        Net().repaint();
    }
    QTest::mouseRelease(&Net(), Qt::LeftButton, {}, At(900, -900));
    EXPECT_TRUE(requests.Causes().empty());
    EXPECT_EQ(Net().Image(), before);
    EXPECT_EQ(gSelectionRows.size(), 3U);
    EXPECT_NE(Net().grab().toImage(), before) << "rings and marquee are above the picture";
}

} // namespace
} // namespace quandrel
