// SPDX-License-Identifier: MIT

#include "core/plot_life.h"
#include "core/plot_texts.h"
#include "derive/kinematic_plots.h"
#include "drawing/layer_rows.h"
#include "drawing/symbol_choice.h"
#include "session/start.h"
#include "support/main_window_test.h"

#include <QMdiSubWindow>

namespace quandrel {
namespace {

constexpr const char* kFaults = "60\t90\t60\t90\n50\t270\t50\t270\n70\t100\t68\t80\n";

/// Faults with slip lines in a window whose drawings go through all stages.
class DerivedWindow : public MainWindowTest {
protected:
    void SetUp() override {
        MainWindowTest::SetUp();
        AcceptFormat(
            [](FormatAnswer&) {
                gPrimaryDataType = kPrimaryPlane;
                gSecondaryDataType = kSecondaryLine;
                gPlotDataKind = kPlanes;
                gFileColumnSettings = {0, 1, 2, 2, 3, 2, 6, 7, 8, 9};
            },
            1000);
    }

    [[nodiscard]] bool IsDown(int item) const {
        return Action("mnuPlotSymbols_" + std::to_string(item)).isChecked();
    }
};

TEST_F(DerivedWindow, AxesComeIntoAWindowOfTheirOwn) {
    const int faults = OpenFile("faults.txt", kFaults);
    Expect(kSenseQuestion, Button::Yes);
    Press("mnuKinematicPlots_0");
    EXPECT_EQ(CountOpenPlots(), 2);
    EXPECT_NE(gActivePlot, faults);
    EXPECT_EQ(ActiveRecord().AxesTitle, "P & T");
    EXPECT_EQ(ActiveRecord().KinematicState, faults);
    EXPECT_EQ(Room().activeSubWindow(), &FormOfSlot(gActivePlot));
}

TEST_F(DerivedWindow, TwoPlotsOfAxesStandSideBySide) {
    OpenFile("faults.txt", kFaults);
    Expect(kSenseQuestion, Button::Yes);
    Press("mnuKinematicPlots_1");
    ASSERT_EQ(CountOpenPlots(), 3);
    const QRect first = FormOfSlot(2).geometry();
    const QRect second = FormOfSlot(3).geometry();
    EXPECT_EQ(first.top(), second.top());
    EXPECT_GT(second.left(), first.left());
}

TEST_F(DerivedWindow, ChildrenOfAClosedPlotStandOnTheirOwn) {
    const int faults = OpenFile("faults.txt", kFaults);
    Expect(kSenseQuestion, Button::Yes);
    Press("mnuKinematicPlots_0");
    const int axes = gActivePlot;
    Room().setActiveSubWindow(&FormOfSlot(faults));
    Press("mnuFileClose_0");
    ASSERT_TRUE(IsOpenSlot(axes));
    EXPECT_EQ(RecordOf(axes).KinematicState, 0);
}

TEST_F(DerivedWindow, TheButtonsOfSecondaryDataToggle) {
    OpenFile("faults.txt", kFaults);
    Press("mnuPlotSymbols_8");
    EXPECT_TRUE(IsDown(8));
    EXPECT_EQ(ActiveRecord().SelectedOverlay, 1);
    Press("mnuPlotSymbols_8");
    EXPECT_FALSE(IsDown(8));
    EXPECT_EQ(ActiveRecord().OverlayRows[kOverlayCount], 0);
    Press("mnuPlotSymbols_11");
    EXPECT_TRUE(IsDown(11));
    EXPECT_EQ(ActiveRecord().NumSymbolsInPlot, 3);
    Press("mnuPlotSymbols_11");
    EXPECT_FALSE(IsDown(11));
    Press("mnuPlotSecondary");
    EXPECT_NE(ActiveRecord().ShowSecondary, 0);
    EXPECT_TRUE(Action("mnuPlotSecondary").isChecked());
}

TEST_F(DerivedWindow, AWorkspaceIsSavedAndOpened) {
    const int slot = OpenFile("faults.txt", kFaults);
    prompts.QueueSavePath((folder / "w.qwo").string());
    Expect("Save it now?", Button::Yes);
    prompts.QueueSavePath((folder / "faults.qpx").string());
    Press("mnuFileSave_3");
    EXPECT_EQ(RecordOf(slot).SaveFileName, (folder / "faults.qpx").string());
    EXPECT_EQ(Info(), "Saved as w.qwo");
    main->UpdatePlotState();
    EXPECT_EQ(Info(), "Saved as w.qwo");
    OpenFile("others.txt", kFaults);
    main->UpdatePlotState();
    Room().setActiveSubWindow(&FormOfSlot(slot));
    EXPECT_EQ(Info(), "") << "the workspace lacks a plot";
    ClosePlot(gActivePlot == slot ? slot + 1 : gActivePlot);
    Press("mnuFileClose_0");
    EXPECT_EQ(CountOpenPlots(), 0);
    prompts.QueueOpenPath((folder / "w.qwo").string());
    Press("mnuFileLoad_4");
    ASSERT_EQ(CountOpenPlots(), 1);
    EXPECT_EQ(ActiveRecord().NumValidData, 3);
    EXPECT_EQ(ActiveRecord().SaveFileName, (folder / "faults.qpx").string());
}

TEST_F(DerivedWindow, ContoursOverBothAxesAreRefusedAndTheButtonComesUp) {
    OpenFile("faults.txt", kFaults);
    Expect(kSenseQuestion, Button::Yes);
    Press("mnuKinematicPlots_0");
    EXPECT_NE(FormOfSlot(gActivePlot).windowTitle().toStdString().find("sense assumed"),
              std::string::npos);
    Expect(kMixedAxesRefusal);
    Press("mnuPlotSymbols_5");
    EXPECT_FALSE(IsDown(5));
    EXPECT_TRUE(IsDown(1));
}

TEST_F(DerivedWindow, ARoseOfBothAxesIsRefusedWithoutItsDialog) {
    OpenFile("faults.txt", kFaults);
    Expect(kSenseQuestion, Button::Yes);
    Press("mnuKinematicPlots_0");
    Expect(kMixedRoseRefusal);
    Press("mnuPlotType_2");
    EXPECT_EQ(ActiveRecord().PlotKind, kEqualArea);
    EXPECT_EQ(main->findChild<QDialog*>("frmRoseDiag"), nullptr);
}

TEST_F(DerivedWindow, ANewNotationShowsInTheStatisticsOfAllPlotsAtOnce) {
    const int first = OpenFile("faults.txt", kFaults);
    const int second = OpenFile("others.txt", kFaults);
    const std::string before = StatisticsOf(PlotOf(first)).normal;
    AcceptFormat([](FormatAnswer&) { gConventions = 2; }, 1000);
    Press("mnuFileFormat");
    EXPECT_NE(StatisticsOf(PlotOf(first)).normal, before);
    EXPECT_NE(StatisticsOf(PlotOf(second)).normal, before);
}

TEST_F(DerivedWindow, ArrangingKeepsTheActivePlotOnTop) {
    const int first = OpenFile("faults.txt", kFaults);
    OpenFile("others.txt", kFaults);
    OpenFile("more.txt", kFaults);
    for (const char* way : {"mnuWindow_0", "mnuWindow_1", "mnuWindow_2"}) {
        Room().setActiveSubWindow(&FormOfSlot(first));
        Press(way);
        EXPECT_EQ(Room().activeSubWindow(), &FormOfSlot(first)) << way;
        EXPECT_EQ(Room().subWindowList(QMdiArea::StackingOrder).last(), &FormOfSlot(first)) << way;
    }
}

TEST_F(DerivedWindow, TheFirstSymbolsSayOfWhichDataTheyAre) {
    OpenFile("faults.txt", kFaults);
    EXPECT_EQ(Action("mnuPlotSymbols_0").text(), "Great C&ircles");
    Press("mnuPlotSymbols_8");
    EXPECT_EQ(Action("mnuPlotSymbols_0").text(), "Great C&ircles") << "of the main rows";
    FigureLayer overlay;
    overlay.LayerOf = kLayerOfOverlay;
    overlay.LayerIndex = 1;
    const std::string name = NameOfLayerData(ActivePlot(), overlay);
    ChooseData(ActivePlot(), overlay);
    main->UpdatePlotState();
    EXPECT_EQ(Action("mnuPlotSymbols_0").text().toStdString(), "Great C&ircles (" + name + ")");
    EXPECT_EQ(Action("mnuPlotSymbols_1").text().toStdString(), "Point &symbols (" + name + ")");
}

TEST_F(DerivedWindow, NewWindowsDoNotHangOverTheEdge) {
    OpenFile("faults.txt", kFaults);
    Expect(kSenseQuestion, Button::Yes);
    Press("mnuKinematicPlots_1");
    const QRect room = Room().viewport()->rect();
    for (int slot = 1; slot <= 3; ++slot) {
        EXPECT_TRUE(room.contains(FormOfSlot(slot).geometry())) << slot;
    }
}

} // namespace
} // namespace quandrel
