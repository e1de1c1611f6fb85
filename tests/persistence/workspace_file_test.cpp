// SPDX-License-Identifier: MIT

#include "core/settings.h"
#include "input/file_loading.h"
#include "persistence/ascii_plot_file.h"
#include "persistence/open_plot.h"
#include "persistence/workspace_file.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <fstream>
#include <iterator>

namespace quandrel {
namespace {

using Paths = std::vector<std::string>;

TEST(WorkspaceText, HasTheLinesThatReadersLookFor) {
    const Paths paths = {"/data/area/a.qpx", "/data/area/deep/b.qpx", "/other/c.txt"};
    EXPECT_EQ(WorkspaceText(paths, "/data/area"),
              "Quandrel Workspace\r\n"
              "[Version]: 9.5.1\r\n"
              "\r\n"
              "The following file paths can be edited as required. \r\n"
              "Pathnames are relative for files in or below the folder of this workspace file\r\n"
              "Files above this folder require the full pathname\r\n"
              "\r\n"
              "[Files List]:\r\n"
              "     a.qpx\r\n"
              "     deep/b.qpx\r\n"
              "     /other/c.txt\r\n"
              "[End Files List]: \r\n");
}

TEST(WorkspaceText, IsBelowAFolderByWholeNamesOnly) {
    const Paths paths = {"/data/area2/a.qpx"};
    EXPECT_NE(WorkspaceText(paths, "/data/area").find("     /data/area2/a.qpx\r\n"),
              std::string::npos);
}

TEST(PathsOfWorkspace, ReadsBackWhatWasWritten) {
    const Paths paths = {"/data/area/a.qpx", "/data/area/deep/b c.qpx", "/other/c.txt"};
    EXPECT_EQ(PathsOfWorkspace(WorkspaceText(paths, "/data/area"), "/data/area"), paths);
}

TEST(PathsOfWorkspace, TakesPathsEditedByHandAndAnyLineEnd) {
    const std::string text = "anything\n[Files List]\n\tone.qpx \rsub\\two.qpx\r\n\n"
                             "../three.qpx\n[End Files List]\nfour.qpx\n";
    EXPECT_EQ(PathsOfWorkspace(text, "/w/here"),
              (Paths{"/w/here/one.qpx", "/w/here/sub/two.qpx", "/w/three.qpx"}));
}

TEST(PathsOfWorkspace, WithoutAListIsNothing) {
    EXPECT_TRUE(PathsOfWorkspace("Quandrel Workspace\na.qpx\n", "/w").empty());
    EXPECT_FALSE(HasFilesList("Quandrel Workspace\na.qpx\n"));
    EXPECT_TRUE(HasFilesList("x\r\n[Files List]:\r\n"));
}

class Workspace : public EngineTest {
protected:
    static std::string TextOf(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    }

    [[nodiscard]] std::string Path(const std::string& name) const {
        return (folder / name).string();
    }

    /// A plot with a row, saved or not.
    int PlotWith(const std::string& savedAs, bool modified) {
        const int slot = NewPlot();
        AddRow(30, 120);
        ActiveRecord().PlotTitle = "beds";
        ActiveRecord().SaveFileName = savedAs;
        ActiveRecord().Modified = modified ? kTrue : std::int16_t{0};
        return slot;
    }
};

TEST_F(Workspace, ListsSavedPlotsWithoutAQuestion) {
    PlotWith(Path("a.qpx"), false);
    PlotWith("/elsewhere/b.qpx", false);
    EXPECT_EQ(SaveWorkspaceAs(Path("w.qwo")), WorkspaceOutcome::Saved);
    EXPECT_EQ(TextOf(Path("w.qwo")),
              WorkspaceText(Paths{Path("a.qpx"), "/elsewhere/b.qpx"}, folder));
    EXPECT_EQ(gLastUsedWSpaceFileTitle, "w.qwo");
}

TEST_F(Workspace, LeavesOutWhatIsNotToBeSavedEvenWithAPath) {
    const int edited = PlotWith(Path("a.qpx"), true);
    const int never = PlotWith("", false);
    const int both = PlotWith("", true);
    Expect("Plot " + std::to_string(edited)
               + ": beds has unsaved edits\nSave it now?\n"
                 "(If the answer is No it will be omitted from the workspace)",
           Button::No);
    Expect("Plot " + std::to_string(never)
               + ": beds has not yet been saved as a .qpx file\nSave it now?",
           Button::No);
    Expect("Plot " + std::to_string(both)
               + ": beds has unsaved edits and has not yet been saved as a .qpx file\n",
           Button::No);
    EXPECT_EQ(SaveWorkspaceAs(Path("w.qwo")), WorkspaceOutcome::Saved);
    EXPECT_EQ(TextOf(Path("w.qwo")), WorkspaceText(Paths{}, folder));
}

TEST_F(Workspace, NamesAPlotWithoutAFileOnceAndBringsItToTheFront) {
    const int slot = PlotWith("", false);
    ActiveRecord().PlotTitle = "Plot " + std::to_string(slot) + ": Untitled";
    const auto& form = static_cast<const RecordingForm&>(FormOf(slot));
    Expect("Save it now?", Button::No);
    EXPECT_EQ(SaveWorkspaceAs(Path("w.qwo")), WorkspaceOutcome::Saved);
    EXPECT_TRUE(prompts.Shown()[0].message.text.starts_with("Plot " + std::to_string(slot)
                                                            + ": Untitled has not yet been saved"))
        << prompts.Shown()[0].message.text;
    EXPECT_EQ(form.TimesRaised(), 1);
}

TEST_F(Workspace, IsNotWrittenWhenAQuestionIsCancelled) {
    PlotWith(Path("a.qpx"), false);
    PlotWith("", true);
    WriteFile("w.qwo", "the former one");
    Expect("Save it now?", Button::Cancel);
    EXPECT_EQ(SaveWorkspaceAs(Path("w.qwo")), WorkspaceOutcome::Cancelled);
    EXPECT_EQ(prompts.Shown()[0].message.buttons, Buttons::YesNoCancel);
    EXPECT_EQ(TextOf(Path("w.qwo")), "the former one");
}

TEST_F(Workspace, LeavesOutEmptyUntitledPlotsWithoutAQuestion) {
    PlotWith(Path("a.qpx"), false);
    NewPlot();
    EXPECT_EQ(SaveWorkspaceAs(Path("w.qwo")), WorkspaceOutcome::Saved);
    EXPECT_TRUE(prompts.Shown().empty());
    EXPECT_EQ(PathsOfWorkspace(TextOf(Path("w.qwo")), folder), Paths{Path("a.qpx")});
    NewPlot();
    ActiveRecord().Modified = kTrue; // a description, an annotation
    Expect("Save it now?", Button::No);
    EXPECT_EQ(SaveWorkspaceAs(Path("w.qwo")), WorkspaceOutcome::Saved);
}

TEST_F(Workspace, ListsWhatIsSavedOnTheWay) {
    PlotWith("", true);
    Expect("Save it now?", Button::Yes);
    prompts.QueueSavePath(Path("beds.txt"));
    EXPECT_EQ(SaveWorkspaceAs(Path("w.qwo")), WorkspaceOutcome::Saved);
    EXPECT_EQ(PathsOfWorkspace(TextOf(Path("w.qwo")), folder), Paths{Path("beds.txt")});
}

TEST_F(Workspace, IsNotWrittenWhenASaveComesToNothing) {
    PlotWith("", true);
    WriteFile("w.qwo", "the former one");
    Expect("Save it now?", Button::Yes);
    prompts.QueueSavePath(Path("missing/beds.qpx"));
    Expect("unknown error trying to save");
    EXPECT_EQ(SaveWorkspaceAs(Path("w.qwo")), WorkspaceOutcome::Cancelled);
    EXPECT_EQ(TextOf(Path("w.qwo")), "the former one");
}

TEST_F(Workspace, ListsAPlotSavedUnderARelativePath) {
    const std::filesystem::path former = std::filesystem::current_path();
    std::filesystem::create_directories(folder / "s");
    std::filesystem::current_path(folder);
    PlotWith("", true);
    EXPECT_EQ(SavePlotAs("s/a.qpx", SaveKind::SaveAs), SaveOutcome::Saved);
    EXPECT_EQ(SaveWorkspaceAs("s/w.qwo"), WorkspaceOutcome::Saved);
    std::filesystem::current_path(former);
    EXPECT_EQ(PathsOfWorkspace(TextOf(Path("s/w.qwo")), folder / "s"), Paths{Path("s/a.qpx")});
}

TEST_F(Workspace, ThatCannotBeWrittenIsTold) {
    Expect("The workspace could not be saved");
    EXPECT_EQ(SaveWorkspaceAs(Path("missing/w.qwo")), WorkspaceOutcome::Failed);
}

TEST_F(Workspace, OpensTheFilesThatItFinds) {
    WriteFile("one.txt", "30\t120\n45\t270\n");
    WriteFile("w.qwo", WorkspaceText(Paths{Path("one.txt"), Path("gone.txt")}, folder));
    AcceptFormat({}, 1);
    EXPECT_EQ(OpenWorkspace(Path("w.qwo")), 1);
    EXPECT_EQ(CountOpenPlots(), 1);
    EXPECT_EQ(ActiveRecord().NumValidData, 2);
}

TEST_F(Workspace, OpensOwnTextFilesWithoutTheFormatDialog) {
    PlotWith("", true);
    Expect("Save it now?", Button::Yes);
    prompts.QueueSavePath(Path("beds.txt"));
    ASSERT_EQ(SaveWorkspaceAs(Path("w.qwo")), WorkspaceOutcome::Saved);
    MakeStoreTables();
    AcceptFormat({}, 0);
    EXPECT_EQ(OpenWorkspace(Path("w.qwo")), 1);
    EXPECT_TRUE(formatQuestions.empty());
    EXPECT_EQ(ActiveRecord().NumValidData, 1);
    EXPECT_EQ(gDataAz(gActivePlot, ActiveRecord().NumLoadedData), 120);
}

TEST_F(Workspace, OpensLikeAnyFile) {
    WriteFile("one.txt", "30\t120\n45\t270\n");
    WriteFile("w.qwo", WorkspaceText(Paths{Path("one.txt"), Path("w.qwo")}, folder));
    AcceptFormat({}, 1);
    EXPECT_NE(OpenPlotFile(kNewCommand, Path("w.qwo")), kLoadError) << "it lists itself, too";
    EXPECT_EQ(CountOpenPlots(), 1);
    EXPECT_EQ(gRecentFiles.front(), Path("w.qwo"));
}

TEST_F(Workspace, ByAnotherNameNeedsItsList) {
    WriteFile("one.txt", "30\t120\n");
    WriteFile("session.txt", WorkspaceText(Paths{Path("one.txt")}, folder));
    WriteFile("title.txt", "Our workspace\n30\t120\n");
    AcceptFormat({}, 2);
    EXPECT_NE(OpenPlotFile(kNewCommand, Path("session.txt")), kLoadError);
    EXPECT_EQ(ActiveRecord().FileTitle, "one.txt");
    Expect("1 non-data");
    EXPECT_NE(OpenPlotFile(kNewCommand, Path("title.txt")), kLoadError);
    EXPECT_EQ(ActiveRecord().FileTitle, "title.txt") << "these are data";
}

TEST_F(Workspace, ThatOpensNothingIsTold) {
    WriteFile("w.qwo", WorkspaceText(Paths{Path("gone.txt")}, folder));
    Expect("None of the files that this workspace lists was opened");
    EXPECT_EQ(OpenPlotFile(kNewCommand, Path("w.qwo")), kLoadError);
}

TEST_F(Workspace, ThatDoesNotExistIsTold) {
    Expect("The indicated file cannot be opened");
    EXPECT_EQ(OpenWorkspace(Path("none.qwo")), std::nullopt);
}

TEST_F(Workspace, DialogRemembersWhereTheUserWent) {
    prompts.QueueOpenPath(Path("w.qwo"));
    EXPECT_EQ(WorkspaceFileDialog(WorkspaceDialog::Open), Path("w.qwo"));
    EXPECT_EQ(gLastUsedWorkSpacePath, folder.string());
    EXPECT_EQ(gLastUsedWorkSpaceFileName, Path("w.qwo"));
}

} // namespace
} // namespace quandrel
