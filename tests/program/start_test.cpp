// SPDX-License-Identifier: MIT

#include "program/start.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class Start : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        AcceptFormat({}, 100);
    }
};

TEST_F(Start, ACommandLineThatNamesAFileIsThatFile) {
    const std::string path = WriteFile("my data.txt", "30\t120\n");
    EXPECT_EQ(GetCommandLineFile({path}), path);
    const std::size_t blank = path.rfind(' ');
    EXPECT_EQ(GetCommandLineFile({path.substr(0, blank), path.substr(blank + 1)}), path);
}

TEST_F(Start, ACommandLineThatNamesNoFileIsEmpty) {
    EXPECT_EQ(GetCommandLineFile({}), "");
    EXPECT_EQ(GetCommandLineFile({(folder / "missing.txt").string()}), "");
    EXPECT_EQ(GetCommandLineFile({folder.string()}), "");
}

TEST_F(Start, InitialisingMakesAnEmptyStoreAndTheDefaults) {
    gPlatform.decimalIsComma = true;
    InitialiseApplication();
    EXPECT_TRUE(gDecimalIsComma);
    EXPECT_EQ(gPlotKind, kEqualArea);
    EXPECT_EQ(gPlotDataKind, kPlanes);
    EXPECT_EQ(gActivePlot, 0);
    EXPECT_EQ(gDataDip.Capacity(), 0);
    EXPECT_TRUE(gPrinters.empty());
}

TEST_F(Start, TheRoseStartMakesThatOnePlotARose) {
    prompts.QueueOpenPath(WriteFile("a.txt", "30\t120\n"));
    EXPECT_TRUE(IntroStart(1));
    EXPECT_EQ(ActiveRecord().PlotKind, kRose);
    prompts.QueueOpenPath(WriteFile("b.txt", "30\t120\n"));
    EXPECT_TRUE(IntroStart(0));
    EXPECT_EQ(ActiveRecord().PlotKind, kEqualArea);
}

TEST_F(Start, ARoseStartThatIsCancelledDoesNotOutliveItself) {
    EXPECT_TRUE(IntroStart(2));
    gPlotKind = kEqualAngle;
    EXPECT_FALSE(IntroStart(1));
    EXPECT_EQ(gPlotKind, kEqualAngle);
}

TEST_F(Start, TheBlankStartAsksForNoFile) {
    EXPECT_TRUE(IntroStart(2));
    EXPECT_EQ(ActiveRecord().PlotTitle, "Plot 1: Untitled");
}

TEST_F(Start, TheMapLinkAndWorkspacesOpenNoDataFile) {
    prompts.Expect("Could not find a Registered MapInfo Application\n"
                   "The link will have to be abandoned.",
                   Button::Ok);
    EXPECT_FALSE(IntroStart(3));
    EXPECT_FALSE(IntroStart(6));
    EXPECT_EQ(CountOpenPlots(), 0);
}

TEST_F(Start, RecentFilesOpenByTheirNumber) {
    gRecentFiles = {WriteFile("a.txt", "30\t120\n"), WriteFile("b.txt", "30\t120\n40\t10\n")};
    EXPECT_TRUE(IntroStart(92));
    EXPECT_EQ(ActiveRecord().NumData, 2);
    EXPECT_FALSE(IntroStart(95)) << "there are two";
}

TEST_F(Start, ARecentFileThatHasGoneIsToldAndLeavesTheList) {
    const std::string gone = (folder / "gone.txt").string();
    const std::string kept = WriteFile("b.txt", "30\t120\n");
    gRecentFiles = {gone, kept};
    Expect("The indicated file cannot be opened\n" + gone);
    EXPECT_FALSE(IntroStart(91));
    EXPECT_EQ(gRecentFiles, std::vector<std::string>{kept});
}

} // namespace
} // namespace quandrel
