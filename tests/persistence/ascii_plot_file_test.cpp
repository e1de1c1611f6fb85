// SPDX-License-Identifier: MIT

#include "core/plot_life.h"
#include "input/file_loading.h"
#include "orientation/angles.h"
#include "persistence/ascii_plot_file.h"
#include "persistence/open_plot.h"
#include "support/test_platform.h"

#include <sstream>

namespace quandrel {
namespace {

class AsciiPlotFile : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        AcceptFormat({}, 1000);
    }

    [[nodiscard]] static std::string FileText(const std::string& path) {
        std::ostringstream text;
        text << std::ifstream(path, std::ios::binary).rdbuf();
        return text.str();
    }

    /// Saves the active plot, and reads it back as a new plot with the format of a first run.
    void SaveAndReopen() {
        const std::string path = (folder / "saved.txt").string();
        ASSERT_EQ(SavePlotAs(path, SaveKind::SaveAs), SaveOutcome::Saved);
        LoadSettings();
        prompts.ExpectAny("non-data");
        ASSERT_EQ(OpenPlotFile(kNewCommand, path), kNewCommand);
    }
};

/// A file of every layout that a saved one can have.
struct Layout {
    std::int16_t primary;
    std::int16_t secondary;
    bool line;
    bool number;
    bool text;
    std::string rows;
};

TEST_F(AsciiPlotFile, ReadsBackTheSameRowsSymbolsAndFormat) {
    const std::vector<Layout> layouts = {
        {kPrimaryPlane, kNoSecondary, false, false, false, "30\t120\n-40\t130\n"},
        {kPrimaryLine, kNoSecondary, false, true, true, "30\t120\t2.25\tred slate\n-40\t0\t\tx\n"},
        {kPrimaryPlane, kSecondaryPlane, false, false, true, "30\t120\t50\t210\tEocene\n"},
        {kPrimaryPlane, kSecondaryLine, true, true, false,
         "30\t120\t-20\t80\t10\t200\t1e-3\n35\t125\t20\t85\t\t\t7\n"},
        {kPrimaryPlane, kTrendInPlane, false, false, false, "60\t90\t45\n60\t90\t-\n"},
        {kPrimaryPlane, kHadeInPlane, false, false, false, "60\t90\t200\n"},
        {kDirections, kNoSecondary, false, true, false, "0\t120\t5\n0\t360\t6\n"},
    };
    for (const Layout& layout : layouts) {
        SCOPED_TRACE(layout.rows);
        gPrimaryDataType = layout.primary;
        gSecondaryDataType = layout.secondary;
        gFileLineAppended = layout.line;
        gFileNumericAppended = layout.number;
        gFileNonNumericAppended = layout.text;
        gFileAppNumName = "bed thickness/m";
        const bool isOneColumn =
            layout.secondary == kTrendInPlane || layout.secondary == kHadeInPlane;
        int column = layout.secondary == kNoSecondary ? 2 : isOneColumn ? 3 : 4;
        gFileColumnSettings = {0, 1, 2, 2, isOneColumn ? 2 : 3, 5, 6, 7, 8, 9};
        if (layout.line) {
            gFileColumnSettings[6] = column++;
            gFileColumnSettings[7] = column++;
        }
        gFileColumnSettings[8] = layout.number ? column++ : 0;
        gFileColumnSettings[9] = column;
        prompts.ExpectAny("invalid appended");
        ASSERT_EQ(OpenPlotFile(kNewCommand, WriteFile("in.txt", layout.rows)), kNewCommand);
        const int original = gActivePlot;
        const std::int32_t rows = ActiveRecord().NumData;
        prompts.ExpectAny("invalid appended");
        SaveAndReopen();
        const int copy = gActivePlot;
        ASSERT_NE(copy, original);
        ASSERT_EQ(ActiveRecord().NumValidData, RecordOf(original).NumValidData);
        EXPECT_EQ(ActiveRecord().PrimaryFormat, layout.primary);
        EXPECT_EQ(ActiveRecord().HasAppendedNumeric, RecordOf(original).HasAppendedNumeric);
        if (layout.number) {
            EXPECT_EQ(ActiveRecord().AppNumName, "bed thickness/m");
        }
        const std::int32_t shift = ActiveRecord().NumData - rows;
        for (std::int32_t row = 1; row <= rows; ++row) {
            const std::int32_t other = row + shift;
            EXPECT_EQ(gDataDip(copy, other), gDataDip(original, row));
            EXPECT_EQ(gDataAz(copy, other), gDataAz(original, row));
            EXPECT_EQ(gData2Dip(copy, other), gData2Dip(original, row));
            EXPECT_EQ(gData2Az(copy, other), gData2Az(original, row));
            EXPECT_EQ(gAppLineDip(copy, other), gAppLineDip(original, row));
            EXPECT_EQ(gAppLineAz(copy, other), gAppLineAz(original, row));
            EXPECT_EQ(gAppNumeric(copy, other), gAppNumeric(original, row));
            EXPECT_EQ(gAppText(copy, other), gAppText(original, row));
            EXPECT_EQ(gDataSymbol(copy, other), gDataSymbol(original, row));
        }
        ClosePlot(copy);
        ClosePlot(original);
    }
}

TEST_F(AsciiPlotFile, ReadsBackUnderADecimalComma) {
    gFileNumericAppended = true;
    gFileColumnSettings[8] = 2;
    OpenPlotFile(kNewCommand, WriteFile("in.txt", "30\t120\t2.5\n"));
    gDecimalIsComma = true;
    SaveAndReopen();
    gDecimalIsComma = true;
    EXPECT_EQ(gAppNumeric(gActivePlot, ActiveRecord().NumData), 2.5F);
}

TEST_F(AsciiPlotFile, TheSavedPlotGoesByTheNameOfItsFile) {
    OpenPlotFile(kNewCommand, WriteFile("in.txt", "30\t120\n"));
    ActiveRecord().Modified = kTrue;
    const std::string path = (folder / "out.txt").string();
    EXPECT_EQ(SavePlotAs(path, SaveKind::SaveAs), SaveOutcome::Saved);
    EXPECT_EQ(ActiveRecord().PlotTitle, "out.txt: 1");
    EXPECT_EQ(ActiveRecord().FileTitle, "out.txt");
    EXPECT_EQ(ActiveRecord().Modified, 0);
    const std::string text = FileText(path);
    EXPECT_TRUE(text.starts_with(";Quandrel")) << text;
    EXPECT_NE(text.find("\r\n/T1\t/P0\t/N1\t/I2\t/C1\t/U0\t/12\t/20\t/S0\t/A0\t/L0\t/W0\r\n"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("\r\n30\t120\r\n"), std::string::npos);
}

TEST_F(AsciiPlotFile, BetaIntersectionsAreSavedAsLines) {
    OpenPlotFile(kNewCommand, WriteFile("in.txt", "30\t120\n"));
    ActiveRecord().PlotSymbolMode = kBetaIntersections;
    EXPECT_TRUE(BuildParameterLine(true).starts_with("/T2"));
}

TEST_F(AsciiPlotFile, SeveralFilesAndOverlaysAreAskedAbout) {
    OpenPlotFile(kNewCommand, WriteFile("in.txt", "30\t120\n"));
    OpenPlotFile(kOverlayCommand, WriteFile("over.txt", "40\t10\n"));
    const std::string path = (folder / "out.txt").string();
    Expect("This plot contains data from more than one file.", Button::Ok);
    Expect("Only the primary data set will be saved as an ASCII file.", Button::Cancel);
    EXPECT_EQ(SavePlotAs(path, SaveKind::SaveAs), SaveOutcome::Cancelled);
    EXPECT_FALSE(std::filesystem::exists(path));
    Expect("This plot contains data from more than one file.", Button::Cancel);
    EXPECT_EQ(SavePlotAs(path, SaveKind::SaveAs), SaveOutcome::Cancelled);
}

TEST_F(AsciiPlotFile, AFailedSaveLeavesTheOldFileAndThePlotModified) {
    OpenPlotFile(kNewCommand, WriteFile("in.txt", "30\t120\n"));
    ActiveRecord().Modified = kTrue;
    Expect("There has been an unknown error trying to save\nthis plot: in.txt: 1");
    EXPECT_EQ(SavePlotAs("/dev/full", SaveKind::SaveAs), SaveOutcome::Failed);
    Expect("We will continue to try and save any remaining plots");
    EXPECT_EQ(SavePlotAs((folder / "no" / "such" / "folder.txt").string(), SaveKind::SaveAll),
              SaveOutcome::Failed);
    Expect("There has been an unknown error");
    EXPECT_EQ(SavePlotAs(folder.string(), SaveKind::SaveAs), SaveOutcome::Failed);
    EXPECT_NE(ActiveRecord().Modified, 0);
    EXPECT_EQ(ActiveRecord().PlotTitle, "in.txt: 1");
    EXPECT_EQ(FileText((folder / "in.txt").string()), "30\t120\n");
}

TEST_F(AsciiPlotFile, QuotesAboutATextSurvive) {
    gFileNonNumericAppended = true;
    gFileColumnSettings[9] = 2;
    OpenPlotFile(kNewCommand, WriteFile("in.txt", "30\t120\t\"\"\"red\"\" one\"\n"));
    ASSERT_EQ(gAppText(gActivePlot, 1), "\"red\" one");
    SaveAndReopen();
    EXPECT_EQ(gAppText(gActivePlot, ActiveRecord().NumData), "\"red\" one");
}

TEST_F(AsciiPlotFile, AReadOnlyFileIsNotReplaced) {
    OpenPlotFile(kNewCommand, WriteFile("in.txt", "30\t120\n"));
    const std::string path = WriteFile("keep.txt", "old");
    std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    Expect("it is read-only");
    EXPECT_EQ(SavePlotAs(path, SaveKind::SaveAs), SaveOutcome::Failed);
    EXPECT_EQ(FileText(path), "old");
}

TEST_F(AsciiPlotFile, ASaveLeavesNothingBesideTheFile) {
    OpenPlotFile(kNewCommand, WriteFile("in.txt", "30\t120\n"));
    ASSERT_EQ(SavePlotAs((folder / "out.txt").string(), SaveKind::SaveAs), SaveOutcome::Saved);
    std::size_t files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        files += entry.is_regular_file() ? 1 : 0;
    }
    EXPECT_EQ(files, 2U);
}

TEST_F(AsciiPlotFile, ABinaryNameInAnyCaseIsNoText) {
    OpenPlotFile(kNewCommand, WriteFile("in.txt", "30\t120\n"));
    const std::string path = (folder / "out.QPX").string();
    EXPECT_EQ(SavePlotAs(path, SaveKind::SaveAs), SaveOutcome::Saved);
    EXPECT_EQ(FileText(path).substr(0, 6), "bin9.5");
}

TEST_F(AsciiPlotFile, SavingAsksForAPathAndMayBeCancelled) {
    OpenPlotFile(kNewCommand, WriteFile("in.txt", "30\t120\n"));
    EXPECT_EQ(SaveAsciiPlot(SaveKind::Save), SaveOutcome::Cancelled);
    prompts.QueueSavePath((folder / "chosen.txt").string());
    EXPECT_EQ(SaveAsciiPlot(SaveKind::Save), SaveOutcome::Saved);
    EXPECT_TRUE(std::filesystem::exists(folder / "chosen.txt"));
}

constexpr const char* kMixedFile = "; measured in May\n30\t120\n\nsecond outcrop\n40\t200\n"
                                   "95\t200\n/T2\n50\t10\n; the end\n";

class NonDataLines : public AsciiPlotFile {
protected:
    void Load(const std::string& text) {
        prompts.ExpectAny(""); // of the invalid line, then of all
        prompts.ExpectAny("not been plotted");
        ASSERT_EQ(OpenPlotFile(kNewCommand, WriteFile("mixed.txt", text)), kNewCommand);
    }

    /// What follows the parameter line.
    static std::string Body() {
        const std::string text = AsciiPlotText();
        return text.substr(text.find("\r\n", text.find("\r\n/") + 2) + 2);
    }
};

TEST_F(NonDataLines, AreLeftOutUnlessTheyAreWanted) {
    Load(kMixedFile);
    EXPECT_EQ(Body(), "30\t120\r\n40\t200\r\n50\t10\r\n");
}

TEST_F(NonDataLines, StandInTheirPlacesWhenTheyAreWanted) {
    Load(kMixedFile);
    gSettings.files.nonDataLines = true;
    EXPECT_EQ(Body(), "; measured in May\r\n30\t120\r\nsecond outcrop\r\n40\t200\r\n95\t200\r\n"
                      "50\t10\r\n; the end\r\n")
        << "blank lines are not text, and a parameter line is another file's format";
}

TEST_F(NonDataLines, AreReadBackAsWhatTheyWereAndTheHeadDoesNotGrow) {
    Load(kMixedFile);
    gSettings.files.nonDataLines = true;
    const std::string path = (folder / "saved.txt").string();
    ASSERT_EQ(SavePlotAs(path, SaveKind::SaveAs), SaveOutcome::Saved);
    const std::string first = Body();
    prompts.ExpectAny("");
    prompts.ExpectAny("non-data");
    ASSERT_EQ(OpenPlotFile(kNewCommand, path), kNewCommand);
    EXPECT_EQ(ActiveRecord().NumValidData, 3);
    EXPECT_EQ(Body(), first);
}

TEST_F(NonDataLines, ALineThatTheNewFormatWouldTakeForDataIsAComment) {
    gConventions = kDipDirectionDip; // there is no dip of 95
    gFileColumnSettings[0] = 1;
    gFileColumnSettings[1] = 0;
    Load("30\t60\n45\t95\n40\t70\n");
    ASSERT_EQ(ActiveRecord().NumValidData, 2);
    gSettings.files.nonDataLines = true;
    EXPECT_NE(Body().find("\r\n; 45\t95\r\n"), std::string::npos) << Body();
    EXPECT_EQ(gConventions, kDipDirectionDip) << "the format in force stays";
}

} // namespace
} // namespace quandrel
