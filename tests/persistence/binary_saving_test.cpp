// SPDX-License-Identifier: MIT

#include "core/replot.h"
#include "core/settings_value.h"
#include "input/file_loading.h"
#include "persistence/ascii_plot_file.h"
#include "persistence/binary_plot_file.h"
#include "persistence/binary_samples.h"
#include "persistence/open_plot.h"
#include "support/drawing_requests.h"
#include "support/test_platform.h"

#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>

#include <csignal>
#include <iterator>
#include <random>

namespace quandrel {
namespace {

class BinarySaving : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        AcceptFormat({}, 1000);
    }

    [[nodiscard]] std::string Path(const std::string& name) const {
        return (folder / name).string();
    }

    static std::string FileBytes(const std::string& path) {
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }

    std::size_t FilesBeside() const {
        const auto files = std::filesystem::directory_iterator(folder);
        return static_cast<std::size_t>(std::distance(begin(files), end(files)));
    }

    /// Opens two planes as the active plot.
    void OpenPlanes(const std::string& name = "beds.txt") {
        ASSERT_EQ(OpenPlotFile(kNewCommand, WriteFile(name, "30\t120\n45\t270\n")), kNewCommand);
    }

    /// Opens a binary plot of an earlier version as the active plot.
    void OpenSample(const std::string& name, const OldPlot& plot = SampleOfVersion({92, "", ""})) {
        const std::string path = WriteFile(name, OldPlotWriter(plot).Bytes());
        ASSERT_EQ(OpenPlotFile("File" + path), kBinaryCommand);
    }
};

TEST_F(BinarySaving, APlotTakesTheNameOfItsFileAndIsUnchanged) {
    OpenPlanes();
    ActiveRecord().Modified = kTrue;
    const std::string path = Path("beds.qpx");
    ASSERT_EQ(SavePlotAs(path, SaveKind::SaveAs), SaveOutcome::Saved);
    const PlotRecord& record = ActiveRecord();
    EXPECT_EQ(record.SaveFileName, path);
    EXPECT_EQ(record.Modified, 0);
    EXPECT_EQ(record.PlotTitle, "beds.qpx: 1");
    EXPECT_EQ(Form(1).Caption().substr(0, 11), "beds.qpx: 1");
    EXPECT_EQ(FileBytes(path).substr(0, 6), "bin9.5");
    EXPECT_EQ(FilesBeside(), 2U);
}

TEST_F(BinarySaving, APlotThatIsSavedAsTextHasNoPlotFileAnyMore) {
    OpenPlanes();
    const std::string plotFile = (folder / "beds.qpx").string();
    ASSERT_EQ(SavePlotAs(plotFile, SaveKind::SaveAs), SaveOutcome::Saved);
    EXPECT_EQ(ActiveRecord().SaveFileName, plotFile);
    gDataAz.At(gActivePlot, 1) = 200;
    ActiveRecord().Modified = kTrue;
    ASSERT_EQ(SavePlotAs((folder / "beds.txt").string(), SaveKind::SaveAs), SaveOutcome::Saved);
    EXPECT_EQ(ActiveRecord().SaveFileName, "") << "it holds the rows as they were";
}

TEST_F(BinarySaving, SaveWritesAgainWithoutAWord) {
    OpenPlanes();
    const std::string path = Path("beds.qpx");
    prompts.QueueSavePath(path);
    ASSERT_EQ(SaveAsciiPlot(SaveKind::Save), SaveOutcome::Saved);
    ActiveRecord().NumFiles = 2;
    ActiveRecord().FabricText = "S2";
    ASSERT_EQ(SaveAsciiPlot(SaveKind::Save), SaveOutcome::Saved);
    Result<BinaryPlot> plot = ReadBinaryPlotFile(path);
    ASSERT_TRUE(plot);
    EXPECT_EQ(plot->record.FabricText, "S2");
}

TEST_F(BinarySaving, SeveralFilesAreAskedAboutAndOverlaysAreKept) {
    OpenPlanes();
    OpenPlotFile(kOverlayCommand, WriteFile("more.txt", "10\t20\n"));
    Expect("This plot contains data from more than one file.", Button::Cancel);
    EXPECT_EQ(SavePlotAs(Path("all.qpx"), SaveKind::SaveAs), SaveOutcome::Cancelled);
    Expect("This plot contains data from more than one file.", Button::Ok);
    ASSERT_EQ(SavePlotAs(Path("all.qpx"), SaveKind::SaveAs), SaveOutcome::Saved);
    Result<BinaryPlot> plot = ReadBinaryPlotFile(Path("all.qpx"));
    ASSERT_TRUE(plot);
    EXPECT_EQ(plot->record.OverlayRows[1], 1);
}

TEST_F(BinarySaving, OverlayRowsComeBackWithoutAppendedLines) {
    OpenPlanes();
    OpenPlotFile(kOverlayCommand, WriteFile("more.txt", "10\t20\n"));
    ActiveRecord().HasAppendedLine = kTrue;
    ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Line));
    const std::int32_t last = ActiveRecord().NumLoadedData;
    gAppLineDip.At(gActivePlot, 1) = 14;
    gAppLineDip.At(gActivePlot, last) = 14;
    Expect("This plot contains data from more than one file.", Button::Ok);
    ASSERT_EQ(SavePlotAs(Path("all.qpx"), SaveKind::SaveAs), SaveOutcome::Saved);
    ASSERT_NE(OpenPlotFile(kNewCommand, Path("all.qpx")), kLoadError);
    EXPECT_EQ(gAppLineDip(gActivePlot, 1), 14);
    EXPECT_EQ(gAppLineDip(gActivePlot, last), kInvalidAppendedLine);
}

TEST_F(BinarySaving, AFailureIsToldAndLeavesThePlotChanged) {
    OpenPlanes();
    ActiveRecord().Modified = kTrue;
    Expect("There has been an unknown error trying to save\nthis plot: beds.txt: 1");
    EXPECT_EQ(SavePlotAs(Path("missing/beds.qpx"), SaveKind::SaveAs), SaveOutcome::Failed);
    std::filesystem::create_symlink("/dev/full", Path("full.qpx"));
    Expect("it is not an ordinary file");
    EXPECT_EQ(SavePlotAs(Path("full.qpx"), SaveKind::SaveAs), SaveOutcome::Failed);
    ActiveRecord().DescriptionText = std::string(40000, 'x');
    Expect("a text of the plot has 40000 bytes");
    EXPECT_EQ(SavePlotAs(Path("text.qpx"), SaveKind::SaveAs), SaveOutcome::Failed);
    EXPECT_EQ(prompts.Shown().back().message.icon, Icon::Exclamation);
    EXPECT_FALSE(std::filesystem::exists(Path("text.qpx")));
    EXPECT_EQ(ActiveRecord().Modified, kTrue);
    EXPECT_EQ(ActiveRecord().SaveFileName, "");
}

TEST_F(BinarySaving, ADeviceThatFailsAfterSomeBytesLeavesTheOldFile) {
    OpenPlanes();
    const std::string path = Path("beds.qpx");
    ASSERT_EQ(SaveBinaryPlot(path, gActivePlot), "");
    const std::string old = FileBytes(path);
    ActiveRecord().FabricText = "changed";
    const auto formerAct = std::signal(SIGXFSZ, SIG_IGN);
    rlimit former{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &former), 0);
    for (const std::size_t bytes :
         {std::size_t{0}, std::size_t{1}, std::size_t{4096}, old.size() / 2, old.size() - 1}) {
        rlimit limit = former;
        limit.rlim_cur = bytes;
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
        const std::string error = SaveBinaryPlot(path, gActivePlot);
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &former), 0);
        EXPECT_NE(error, "") << bytes;
        EXPECT_TRUE(FileBytes(path) == old) << bytes;
        EXPECT_EQ(FilesBeside(), 2U) << "nothing is left beside it";
    }
    std::signal(SIGXFSZ, formerAct);
}

TEST_F(BinarySaving, AProgramThatIsKilledLeavesTheOldOrTheNewFileWhole) {
    OpenPlanes();
    const std::string path = Path("beds.qpx");
    ActiveRecord().FabricText = "new";
    const Result<std::string> newer = BinaryPlotBytes(gActivePlot);
    ActiveRecord().FabricText = "old";
    const Result<std::string> older = BinaryPlotBytes(gActivePlot);
    ASSERT_TRUE(newer && older);
    ASSERT_EQ(SaveBinaryPlot(path, gActivePlot), "");
    std::mt19937 random(3);
    for (int i = 0; i < 200; ++i) {
        const auto moment = static_cast<suseconds_t>(1 + random() % 8000);
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            // Ended by the timer's signal, at a moment during the saves.
            std::signal(SIGALRM, SIG_DFL);
            const itimerval timer{{0, 0}, {0, moment}};
            setitimer(ITIMER_REAL, &timer, nullptr);
            for (int saves = 0;; ++saves) {
                ActiveRecord().FabricText = saves % 2 == 0 ? "new" : "old";
                if (!SaveBinaryPlot(path, gActivePlot).empty()) {
                    _exit(1);
                }
            }
        }
        int outcome = 0;
        ASSERT_EQ(waitpid(child, &outcome, 0), child);
        ASSERT_TRUE(WIFSIGNALED(outcome)) << "a save failed";
        const std::string found = FileBytes(path);
        ASSERT_TRUE(found == *older || found == *newer) << i;
    }
}

TEST_F(BinarySaving, OpeningTellsNameCaptionAndRecentFile) {
    OpenSample("old.qpx");
    const PlotRecord& record = ActiveRecord();
    const std::string path = Path("old.qpx");
    EXPECT_EQ(record.PlotTitle, "old.qpx: 1");
    EXPECT_EQ(record.FileTitle, "old.qpx");
    EXPECT_EQ(record.FileNames[kFirstFile], path);
    EXPECT_EQ(record.SaveFileName, path);
    EXPECT_EQ(record.NumFiles, 1);
    EXPECT_EQ(record.Modified, 0);
    EXPECT_EQ(record.KinematicState, 0);
    EXPECT_EQ(record.IntersectionState, 0);
    EXPECT_EQ(Form(1).Caption().substr(0, 10), "old.qpx: 1");
    EXPECT_EQ(Form(1).TimesShown(), 1);
    ASSERT_FALSE(gSettings.files.recent.empty());
    EXPECT_EQ(gSettings.files.recent[0], path);
    EXPECT_TRUE(formatQuestions.empty()) << "without a dialog";
}

TEST_F(BinarySaving, AnotherNameForAPlotFileIsStillOne) {
    const std::string bytes = OldPlotWriter(SampleOfVersion({92, "", ""})).Bytes();
    EXPECT_EQ(OpenPlotFile(kNewCommand, WriteFile("plot.dat", bytes)), kBinaryCommand);
    Expect("It was saved by version 6.5");
    EXPECT_EQ(OpenPlotFile(kNewCommand, WriteFile("old.qpx", "bin6.5" + bytes.substr(6))),
              kLoadError);
    EXPECT_EQ(OpenPlotFile(kNewCommand, WriteFile("text.qpx", "30\t120\n")), kNewCommand);
}

TEST_F(BinarySaving, APlotFileCannotJoinAnother) {
    OpenPlanes();
    const std::string path =
        WriteFile("old.qpx", OldPlotWriter(SampleOfVersion({92, "", ""})).Bytes());
    Expect("You can't Merge this type of file with this plot.\nLoad file as a separate plot?",
           Button::Cancel);
    EXPECT_EQ(OpenPlotFile(kMergeCommand, path), kLoadError);
    EXPECT_EQ(CountOpenPlots(), 1);
    Expect("You can't Overlay this type of file with this plot.", Button::Ok);
    EXPECT_EQ(OpenPlotFile(kOverlayCommand, path), kBinaryCommand);
    EXPECT_EQ(CountOpenPlots(), 2);
    EXPECT_EQ(RecordOf(1).OverlayRows[kOverlayCount], 0);
}

TEST_F(BinarySaving, TheSliderFollowsTheGridOfTheFile) {
    OldPlot plot = SampleOfVersion({92, "", ""});
    plot.gridSize = 30;
    plot.mode = kContours;
    OpenSample("grid.qpx", plot);
    EXPECT_EQ(gSettings.gridSize, 30);
    EXPECT_FALSE(ActiveRecord().DensityGridFromFile) << "counted again, at that density";
    EXPECT_EQ(ActiveRecord().GridSize, 30);
}

TEST_F(BinarySaving, SectorsOfARoseOfAFileAreNotAskedAbout) {
    const DrawingRequests requests;
    OldPlot plot = SampleOfVersion({92, "", ""});
    plot.plotKind = kRose;
    OpenSample("rose.qpx", plot);
    EXPECT_EQ(requests.Causes(), std::vector<ReplotCause>{ReplotCause::File});
}

TEST_F(BinarySaving, RowsMergedIntoALoadedPlotAreTracked) {
    OldPlot plot = SampleOfVersion({92, "", ""});
    plot.secondary = 0;
    plot.hasLine = false;
    plot.hasNumber = false;
    plot.overlays.clear();
    OpenSample("old.qpx", plot);
    gFileNonNumericAppended = true;
    gFileColumnSettings[kSlotText] = 2;
    EXPECT_EQ(OpenPlotFile(kMergeCommand, WriteFile("more.txt", "30\t120\tnew\n")), kMergeCommand);
    EXPECT_EQ(ActiveRecord().NumData, 5);
    EXPECT_EQ(gAppText(gActivePlot, 5), "new");
}

} // namespace
} // namespace quandrel
