// SPDX-License-Identifier: MIT
//
// Rows without data, through binary plot files of all versions.

#include "input/file_loading.h"
#include "orientation/angles.h"
#include "persistence/ascii_plot_file.h"
#include "persistence/binary_plot_file.h"
#include "persistence/binary_samples.h"
#include "persistence/error_row_text.h"
#include "persistence/open_plot.h"
#include "stereo/row_positions.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class ErrorRows : public EngineTest {
protected:
    using Lines = std::unordered_map<std::int32_t, std::string>;

    static const Lines& LinesOf(int slot) { return PlotOf(slot).rows.errorLines; }

    void Load(const std::string& bytes) {
        if (CountOpenPlots() >= gMaxPlots) {
            MakeStoreTables();
        }
        NewPlot();
        std::string version;
        LoadBinaryPlot(WriteFile("plot.qpx", bytes), gActivePlot, version);
        ASSERT_NE(version, kLoadError);
    }

    /// Writes the active plot and loads it into another slot.
    void SaveAndLoad() {
        const Result<std::string> bytes = BinaryPlotBytes(gActivePlot);
        ASSERT_TRUE(bytes) << bytes.Error();
        ASSERT_NO_FATAL_FAILURE(Load(*bytes));
        const Result<std::string> again = BinaryPlotBytes(gActivePlot);
        ASSERT_TRUE(again);
        EXPECT_TRUE(*again == *bytes);
    }

    /// The line of the first row after it was written and read.
    std::string AfterSaving(const std::string& line) {
        MakeStoreTables();
        NewPlot();
        PlotRecord& record = ActiveRecord();
        record.NumData = 1;
        record.NumLoadedData = 1;
        int secondary = 0;
        GrowDataColumns(secondary, 1);
        gDataDip.At(gActivePlot, 1) = kErrorRow;
        ActivePlot().rows.errorLines[1] = line;
        RebuildRowTable(gActivePlot);
        SaveAndLoad();
        return LinesOf(gActivePlot).contains(1) ? LinesOf(gActivePlot).at(1) : "(none)";
    }
};

TEST_F(ErrorRows, KeepTheirLineInFilesOfAllVersions) {
    for (const OldVersion& version : OldVersions()) {
        OldPlot plot = SampleOfVersion(version);
        plot.rows[2].code = "; Limb north, 12/34";
        plot.overlays[1].second[0] = {-9999, 0, 0, 0, 0, 0, 0, "", "gr\xe8s 95 12"};
        ASSERT_NO_FATAL_FAILURE(Load(OldPlotWriter(plot).Bytes())) << version.file;
        const Lines expected = {{3, "; Limb north, 12/34"}, {6, "gr\xc3\xa8s 95 12"}};
        EXPECT_EQ(LinesOf(gActivePlot), expected) << version.file;
        EXPECT_EQ(gDataSymbol(gActivePlot, 3), 0U);
        EXPECT_EQ(gDataSymbol(gActivePlot, 4), MakeSymbolCode(3, 2, 6));
        ASSERT_NO_FATAL_FAILURE(SaveAndLoad());
        EXPECT_EQ(LinesOf(gActivePlot), expected) << version.file;
    }
}

TEST_F(ErrorRows, WithoutALineHaveNoneInFilesOfAllVersions) {
    for (const OldVersion& version : OldVersions()) {
        for (const char* field : {"000000", ""}) {
            OldPlot plot = SampleOfVersion(version);
            plot.rows[2].code = field;
            ASSERT_NO_FATAL_FAILURE(Load(OldPlotWriter(plot).Bytes())) << version.file;
            EXPECT_TRUE(LinesOf(gActivePlot).empty()) << version.file;
        }
    }
}

TEST_F(ErrorRows, AMainRowThatIsDataStillNeedsACode) {
    OldPlot plot = SampleOfVersion(OldVersions().back());
    plot.rows[0].code = "; Limb north";
    EXPECT_FALSE(ReadBinaryPlot(OldPlotWriter(plot).Bytes()));
}

TEST_F(ErrorRows, LinesOfTextFilesGoThroughPlotFilesIntoTextsAgain) {
    AcceptFormat({}, 2);
    prompts.ExpectAny("line of invalid orientation data");
    prompts.ExpectAny("1 invalid data have been detected");
    prompts.ExpectAny("1 non-data (blank");
    const std::string main = WriteFile("beds.txt", "; Limb north\n30\t120\n95\t14\n\n45\t270\n");
    ASSERT_EQ(OpenPlotFile(kNewCommand, main), kNewCommand);
    ASSERT_EQ(OpenPlotFile(kOverlayCommand, WriteFile("more.txt", "10\t20\n* joints\n")),
              kOverlayCommand);
    const Lines before = LinesOf(gActivePlot);
    ASSERT_EQ(before, (Lines{{1, "; Limb north"}, {3, "95\t14"}, {7, "* joints"}}));
    gSettings.files.nonDataLines = true;
    const std::string text = AsciiPlotText();
    ASSERT_NE(text.find("; Limb north\r\n30\t120\r\n95\t14\r\n45\t270"), std::string::npos) << text;
    ASSERT_NO_FATAL_FAILURE(SaveAndLoad());
    EXPECT_EQ(LinesOf(gActivePlot), before);
    const std::string again = AsciiPlotText();
    EXPECT_EQ(again.substr(again.find("/T")), text.substr(text.find("/T")));
    gSettings.files.nonDataLines = false;
}

TEST_F(ErrorRows, LongLinesAreCutAtACharacter) {
    const auto repeated = [](const std::string& part, int times) {
        std::string text;
        for (int i = 0; i < times; ++i) {
            text += part;
        }
        return text;
    };

    struct Case {
        const char* what;
        std::string line;
        std::size_t kept; ///< bytes of UTF-8
    };

    const Case cases[] = {
        {"the longest that fits", std::string(32767, 'x'), 32767},
        {"one more", std::string(32768, 'x'), 32767},
        {"a byte each in the file, two here", repeated("\xc3\xa8", 40000), 2 * 32767},
        {"three bytes each", repeated("\xe2\x86\x92", 20000), 32766},
        {"ASCII as far as it is kept", std::string(40000, 'x') + "\xe2\x86\x92", 32767},
        {"a byte each, with a rest that is read as they are",
         repeated("\xc3\x83\xc2\xa9", 16383) + "\xc3\xa8xxx", 65534},
        // The bytes C3 A9 are one letter of UTF-8 as well as two of Windows-1252.
        {"a byte each, with a rest that would be read as another text",
         "x" + repeated("\xc3\x83\xc2\xa9", 16383) + "\xc3\xa8", 32767},
    };
    for (const Case& test : cases) {
        const std::string kept = AfterSaving(test.line);
        EXPECT_EQ(kept.size(), test.kept) << test.what;
        EXPECT_TRUE(test.line.starts_with(kept)) << test.what;
    }
}

TEST_F(ErrorRows, LinesThatLookLikeACodeComeBackAsTheyWere) {
    for (const char* line : {"123456", "000000", "010106", "010106 ", "010106  ", " 010106",
                             "12345", "1234567", "010106 x"}) {
        EXPECT_EQ(AfterSaving(line), line);
    }
}

TEST_F(ErrorRows, OfPlotsThatMayDrawThemKeepTheirCode) {
    PlotRecord measured;
    PlotRecord secondary;
    secondary.SecondaryFormat = kSecondaryLine;
    PlotRecord derived;
    derived.AxesTitle = "P & T";
    const SymbolCode code = MakeSymbolCode(3, 2, 6);
    for (const PlotRecord* record : {&secondary, &derived}) {
        EXPECT_EQ(FieldOfErrorRow(*record, {code, {}}), "030206");
        EXPECT_EQ(ErrorRowOfField(*record, "030206").code, code);
        EXPECT_EQ(ErrorRowOfField(*record, "030206").line, "");
        EXPECT_EQ(FieldOfErrorRow(*record, {code, "030206"}), "030206 ");
        EXPECT_EQ(ErrorRowOfField(*record, "030206 ").line, "030206");
    }
    EXPECT_EQ(FieldOfErrorRow(measured, {code, {}}), "");
    EXPECT_EQ(ErrorRowOfField(measured, "030206").line, "030206") << "it is never drawn";
}

TEST_F(ErrorRows, DrawnByTheirSecondaryLineAloneKeepTheirSymbol) {
    OldPlot plot = SampleOfVersion(OldVersions().back());
    plot.rows[2] = {-9999, 0, 20, 80, 0, 0, 0, "0", "020106"};
    ASSERT_NO_FATAL_FAILURE(Load(OldPlotWriter(plot).Bytes()));
    ASSERT_NO_FATAL_FAILURE(SaveAndLoad());
    EXPECT_EQ(gDataSymbol(gActivePlot, 3), MakeSymbolCode(2, 1, 6));
    EXPECT_TRUE(LinesOf(gActivePlot).empty());
}

} // namespace
} // namespace quandrel
