// SPDX-License-Identifier: MIT

#include "derive/derived_plots.h"
#include "edit/rows/add_point.h"
#include "edit/rows/edit_rows.h"
#include "edit/selection/marquee.h"
#include "print/print_run.h"
#include "session/start.h"
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

TEST_F(Start, EachArgumentMayNameAFileAndTheOthersAreTold) {
    const std::string first = WriteFile("a.txt", "30\t120\n");
    const std::string second = WriteFile("b c.txt", "30\t120\n");
    const std::string missing = (folder / "missing.txt").string();
    const NamedFiles named = FilesOfCommandLine({first, missing, second, folder.string()});
    EXPECT_EQ(named.files, (std::vector<std::string>{first, second}));
    EXPECT_EQ(named.missing, (std::vector<std::string>{missing, folder.string()}));
    EXPECT_EQ(TextOfMissing(named),
              "These files were not found:\n" + missing + "\n" + folder.string());
    EXPECT_EQ(TextOfMissing({{}, {missing}}), "This file was not found:\n" + missing);
    EXPECT_EQ(TextOfMissing({{first}, {}}), "");
    const std::size_t blank = second.rfind(' ');
    const NamedFiles cut = FilesOfCommandLine({second.substr(0, blank), second.substr(blank + 1)});
    EXPECT_EQ(cut.files, std::vector<std::string>{second}) << "a path that was cut at its blank";
    EXPECT_TRUE(cut.missing.empty());
    EXPECT_TRUE(FilesOfCommandLine({}).files.empty());
}

TEST_F(Start, HelpAndVersionAreAnsweredWithoutAWindow) {
    for (const std::string option : {"--help", "-h"}) {
        const auto answer = AnswerToOptions({"a.txt", option});
        ASSERT_TRUE(answer) << option;
        EXPECT_EQ(answer->exitCode, 0);
        EXPECT_TRUE(answer->text.starts_with("Usage: quandrel [OPTION]... [FILE]...\n"));
    }
    for (const std::string option : {"--version", "-v"}) {
        const auto answer = AnswerToOptions({option});
        ASSERT_TRUE(answer) << option;
        EXPECT_EQ(answer->exitCode, 0);
        EXPECT_EQ(answer->text, std::string(gCaption) + "\n");
    }
}

TEST_F(Start, UnknownOptionsAreRefusedAndFilesAreNone) {
    const auto answer = AnswerToOptions({"--full-screen"});
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->exitCode, 2);
    EXPECT_EQ(answer->text, "quandrel: '--full-screen' is not an option; see quandrel --help\n");
    EXPECT_FALSE(AnswerToOptions({}));
    EXPECT_FALSE(AnswerToOptions({"-"}));
    EXPECT_FALSE(AnswerToOptions({WriteFile("a.txt", ""), "missing.txt"}));
    EXPECT_FALSE(AnswerToOptions({"--", "--help"}));
    EXPECT_EQ(FilesOfCommandLine({"--", "-x.txt"}).missing, std::vector<std::string>{"-x.txt"});
    const std::string cut = WriteFile("beds -h now.txt", "");
    EXPECT_FALSE(AnswerToOptions({cut.substr(0, cut.size() - 11), "-h", "now.txt"}));
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

TEST_F(Start, APlotThatClosesUnaskedLeavesNoEditForTheNextOneInItsSlot) {
    InitialiseApplication();
    const int slot = NewPlot();
    ActiveRecord().PrimaryFormat = kPrimaryPlane;
    ActiveRecord().DataKind = kPlanes;
    ASSERT_TRUE(AddRowByHand({30, 120}));
    SelectRows(slot, {1});
    RemoveSelectedRows(kDeleteEdit);
    ASSERT_TRUE(CanUndo());
    CloseDerivedPlot(slot);
    ASSERT_EQ(NewPlot(), slot);
    EXPECT_FALSE(CanUndo());
    EXPECT_EQ(UseOfUndo().steps, 0U);
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
    gSettings.files.recent = {WriteFile("a.txt", "30\t120\n"),
                              WriteFile("b.txt", "30\t120\n40\t10\n")};
    EXPECT_TRUE(IntroStart(92));
    EXPECT_EQ(ActiveRecord().NumData, 2);
    EXPECT_FALSE(IntroStart(95)) << "there are two";
}

TEST_F(Start, ARecentFileThatHasGoneIsToldAndLeavesTheList) {
    const std::string gone = (folder / "gone.txt").string();
    const std::string kept = WriteFile("b.txt", "30\t120\n");
    gSettings.files.recent = {gone, kept};
    Expect("The indicated file cannot be opened\n" + gone);
    EXPECT_FALSE(IntroStart(91));
    EXPECT_EQ(gSettings.files.recent, std::vector<std::string>{kept});
}

} // namespace
} // namespace quandrel
