// SPDX-License-Identifier: MIT

#include "derive/kinematic_plots.h"
#include "program/start.h"
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
        ConnectPlotStages();
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
    EXPECT_EQ(ActiveRecord().OverlayRows[0], 0);
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
    Press("mnuFileClose_0");
    EXPECT_EQ(CountOpenPlots(), 0);
    prompts.QueueOpenPath((folder / "w.qwo").string());
    Press("mnuFileLoad_4");
    ASSERT_EQ(CountOpenPlots(), 1);
    EXPECT_EQ(ActiveRecord().NumValidData, 3);
    EXPECT_EQ(ActiveRecord().SaveFileName, (folder / "faults.qpx").string());
}

} // namespace
} // namespace quandrel
