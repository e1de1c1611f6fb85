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

TEST(WorkspaceText, NamesTheSheetAfterTheList) {
    const Paths paths = {"/data/area/a.qpx"};
    const std::string text = WorkspaceText(paths, "/data/area", "/data/area/sub/f 1.qsheet");
    EXPECT_TRUE(text.ends_with("     a.qpx\r\n"
                               "[End Files List]: \r\n"
                               "[Figure Sheet]: sub/f 1.qsheet\r\n"))
        << text;
    EXPECT_EQ(PathsOfWorkspace(text, "/data/area"), paths);
    EXPECT_EQ(SheetOfWorkspace(text, "/data/area"), "/data/area/sub/f 1.qsheet");
    EXPECT_EQ(SheetOfWorkspace(WorkspaceText(paths, "/data/area"), "/data/area"), "");
}

TEST(WorkspaceText, EscapesTheListWhereTheSheetNeedsIt) {
    const Paths paths = {"/d/50%.qpx"};
    const std::string text = WorkspaceText(paths, "/d", "/d/ blank\n.qsheet");
    EXPECT_EQ(PathsOfWorkspace(text, "/d"), paths);
    EXPECT_EQ(SheetOfWorkspace(text, "/d"), "/d/ blank\n.qsheet");
}

TEST(SheetOfWorkspace, IsTheFirstAfterTheListAlone) {
    EXPECT_EQ(SheetOfWorkspace("[Figure Sheet]: a.qsheet\n[Files List]\n[Figure Sheet]: b\n"
                               "[End Files List]\n[Figure Sheet]:\tsub\\c.qsheet \n"
                               "[Figure Sheet]: d.qsheet\n",
                               "/w"),
              "/w/sub/c.qsheet");
    EXPECT_EQ(SheetOfWorkspace("[Files List]\na\n[End Files List]\n[Figure Sheet]: \n", "/w"), "");
    EXPECT_EQ(SheetOfWorkspace("", "/w"), "");
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

TEST(PathsOfWorkspace, LeaveOutLinesThatCanNameNoFile) {
    using std::string_literals::operator""s;
    const std::string text = "[Files List]:\na.qpx\nb\0c.qpx\nd.qpx\n[End Files List]\n"s;
    EXPECT_EQ(PathsOfWorkspace(text, "/d"), (Paths{"/d/a.qpx", "/d/d.qpx"}));
}

TEST(PathsOfWorkspace, WithoutAListIsNothing) {
    EXPECT_TRUE(PathsOfWorkspace("Quandrel Workspace\na.qpx\n", "/w").empty());
    EXPECT_FALSE(HasFilesList("Quandrel Workspace\na.qpx\n"));
    EXPECT_TRUE(HasFilesList("x\r\n[Files List]:\r\n"));
}

/// Names that a line cannot hold as they are.
const Paths& OddNames() {
    static const Paths names = {
        "/d/ leading.qpx", "/d/trailing.qpx ", "/d/back\\slash.qpx", "/d/line\nend.qpx",
        "/d/return\r.qpx", "/d/\ttab.qpx",     "/d/latin \xe8.qpx",  "/d/cut \xe2\x82",
        "/d/\x01\x7f.qpx", "/other/ leading",  "/d/sub / %41.qpx",   "/d/gr\xc3\xa8s \xff 100%.qpx",
    };
    return names;
}

TEST(PathsOfWorkspace, ReadsBackNamesOfAllKinds) {
    for (const std::string& name : OddNames()) {
        const Paths paths = {"/d/plain.qpx", name, "/d/50% %20.qpx"};
        const std::string text = WorkspaceText(paths, "/d");
        EXPECT_EQ(PathsOfWorkspace(text, "/d"), paths) << text;
        const bool isFitAsListed = name == "/other/ leading" || name == "/d/sub / %41.qpx";
        EXPECT_EQ(text.find("[Names]: %20 stands for a blank") == std::string::npos, isFitAsListed)
            << name;
        EXPECT_NE(text.find("\r\n     plain.qpx\r\n"), std::string::npos);
    }
}

TEST(PathsOfWorkspace, EveryByteOfANameComesBack) {
    for (int byte = 1; byte < 256; ++byte) {
        if (byte == '/') {
            continue;
        }
        for (const char* form : {"/d/?x", "/d/x?", "/d/x?x"}) {
            std::string name = form;
            name[name.find('?')] = static_cast<char>(byte);
            EXPECT_EQ(PathsOfWorkspace(WorkspaceText(Paths{name}, "/d"), "/d"), Paths{name})
                << byte;
        }
    }
}

TEST(WorkspaceText, EscapesNothingWhereNoNameNeedsIt) {
    const Paths paths = {"/d/50% %20.qpx", "/d/gr\xc3\xa8s  b.qpx", "/d/\"a\".txt"};
    const std::string text = WorkspaceText(paths, "/d");
    EXPECT_EQ(text.find("[Names]"), std::string::npos);
    EXPECT_NE(text.find("\r\n     50% %20.qpx\r\n"), std::string::npos);
    EXPECT_EQ(PathsOfWorkspace(text, "/d"), paths);
}

TEST(PathsOfWorkspace, LinesAddedByHandAmongEscapedOnesAreRead) {
    const std::string text =
        "[Names]: %20\n[Files List]:\n  sub\\a.qpx\n  50% b.qpx\n  c%2\n  %00\n"
        "  %e8.qpx\n";
    EXPECT_EQ(PathsOfWorkspace(text, "/w"),
              (Paths{"/w/sub/a.qpx", "/w/50% b.qpx", "/w/c%2", "/w/%00", "/w/\xe8.qpx"}));
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
    EXPECT_EQ(gSettings.files.workspaceTitle, "w.qwo");
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
    const int saved = PlotWith(Path("b.qpx"), false);
    EXPECT_EQ(SaveWorkspaceAs(Path("w.qwo")), WorkspaceOutcome::Saved);
    EXPECT_EQ(TextOf(Path("w.qwo")), WorkspaceText(Paths{Path("b.qpx")}, folder));
    ReleasePlotSlot(saved);
}

TEST_F(Workspace, IsNotWrittenWhenItWouldListNothing) {
    WriteFile("w.qwo", "the former one");
    const std::string told = "The workspace would list no plot and was not saved\n" + Path("w.qwo");
    Expect(told);
    EXPECT_EQ(SaveWorkspaceAs(Path("w.qwo")), WorkspaceOutcome::Failed) << "without plots";
    PlotWith("", true);
    Expect("Save it now?", Button::No);
    Expect(told);
    EXPECT_EQ(SaveWorkspaceAs(Path("w.qwo")), WorkspaceOutcome::Failed);
    EXPECT_EQ(TextOf(Path("w.qwo")), "the former one");
}

TEST_F(Workspace, NamesAPlotWithoutAFileOnceAndBringsItToTheFront) {
    const int slot = PlotWith("", false);
    ActiveRecord().PlotTitle = "Plot " + std::to_string(slot) + ": Untitled";
    const auto& form = static_cast<const RecordingForm&>(FormOf(slot));
    Expect("Save it now?", Button::No);
    Expect("The workspace would list no plot and was not saved");
    EXPECT_EQ(SaveWorkspaceAs(Path("w.qwo")), WorkspaceOutcome::Failed);
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
    PlotWith(Path("a.qpx"), false);
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
    EXPECT_EQ(gSettings.files.recent.front(), Path("w.qwo"));
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
    EXPECT_EQ(gSettings.files.workspaceFolder, folder.string());
    EXPECT_EQ(gSettings.files.workspaceName, Path("w.qwo"));
}

TEST_F(Workspace, OpensPlotsOfNamesOfAllKinds) {
    std::filesystem::create_directories(folder / "sub ");
    Paths saved;
    for (const std::string& name : OddNames()) {
        if (!name.starts_with("/d/") || name.ends_with('2')) {
            continue;
        }
        MakeStoreTables();
        NewPlot();
        AddRow(30, 120);
        saved.push_back(Path(name.substr(3)));
        ASSERT_EQ(SavePlotAs(saved.back() + ".qpx", SaveKind::SaveAs), SaveOutcome::Saved);
        ASSERT_EQ(SaveWorkspaceAs(Path("w.qwo")), WorkspaceOutcome::Saved);
        MakeStoreTables();
        EXPECT_EQ(OpenWorkspace(Path("w.qwo")), 1) << name;
    }
    EXPECT_GE(saved.size(), 9U);
}

TEST_F(Workspace, SaysHowManyFilesWereOpenedAndWhichAreMissing) {
    WriteFile("one.txt", "30\t120\n45\t270\n");
    WriteFile("bad.qpx", "bin9.5");
    WriteFile("two.txt", "30\t120\n");
    WriteFile("w.qwo", WorkspaceText(Paths{Path("one.txt"), Path("gone.txt"), Path("bad.qpx"),
                                           Path("two.txt")},
                                     folder));
    AcceptFormat({}, 2);
    Expect("The indicated file cannot be opened\n" + Path("bad.qpx"));
    EXPECT_EQ(OpenPlotFile(kNewCommand, Path("w.qwo")), kNewCommand);
    EXPECT_EQ(status.Text(), "2 of 4 files opened");
    EXPECT_EQ(LastOpenedWorkspace().path, Path("w.qwo"));
    EXPECT_EQ(LastOpenedWorkspace().opened, (Paths{Path("one.txt"), Path("two.txt")}));
    EXPECT_EQ(LastOpenedWorkspace().missing, (Paths{Path("gone.txt"), Path("bad.qpx")}));
    EXPECT_EQ(gSettings.files.recent.front(), Path("w.qwo"));
}

TEST_F(Workspace, ThatOpensNothingIsNoRecentFile) {
    WriteFile("w.qwo", WorkspaceText(Paths{Path("gone.txt")}, folder));
    Expect("None of the files that this workspace lists was opened");
    EXPECT_EQ(OpenPlotFile(kNewCommand, Path("w.qwo")), kLoadError);
    EXPECT_TRUE(gSettings.files.recent.empty());
    EXPECT_EQ(TextOfOpening({"w.qwo", {}, {"a"}}), "0 of 1 file opened");
}

TEST_F(Workspace, ListsOwnTextsWithoutAQuestionWhereThatIsAskedFor) {
    PlotWith("", true);
    ASSERT_EQ(SavePlotAs(Path("beds.txt"), SaveKind::SaveAs), SaveOutcome::Saved);
    EXPECT_EQ(SaveWorkspaceAs(Path("w.qwo"), PlotsSavedAsText::List), WorkspaceOutcome::Saved);
    EXPECT_EQ(PathsOfWorkspace(TextOf(Path("w.qwo")), folder), Paths{Path("beds.txt")});
    ActiveRecord().Modified = kTrue;
    const std::string listsNothing = "The workspace would list no plot and was not saved";
    Expect("has unsaved edits and has not yet been saved as a .qpx file", Button::No);
    Expect(listsNothing);
    EXPECT_EQ(SaveWorkspaceAs(Path("w.qwo"), PlotsSavedAsText::List), WorkspaceOutcome::Failed);
    WriteFile("other.txt", "30\t120\n");
    ActiveRecord().Modified = 0;
    ActiveRecord().MainFiles = {Path("other.txt")};
    Expect("has not yet been saved as a .qpx file", Button::No);
    Expect(listsNothing);
    EXPECT_EQ(SaveWorkspaceAs(Path("w.qwo"), PlotsSavedAsText::List), WorkspaceOutcome::Failed);
}

TEST_F(Workspace, APlotThatCannotBeSavedNamesTheFile) {
    PlotWith("", true);
    Expect("(" + Path("missing/a.qpx") + ": ");
    EXPECT_EQ(SavePlotAs(Path("missing/a.qpx"), SaveKind::SaveAs), SaveOutcome::Failed);
}

} // namespace
} // namespace quandrel
