// SPDX-License-Identifier: MIT

#include "input/file_loading.h"
#include "persistence/ascii_plot_file.h"
#include "persistence/open_plot.h"
#include "session/unplotted_lines.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class UnplottedLines : public EngineTest {
protected:
    void Open(const std::string& text) {
        AcceptFormat({}, 1000);
        EXPECT_EQ(OpenPlotFile(kNewCommand, WriteFile("a.txt", text)), kNewCommand);
    }
};

TEST_F(UnplottedLines, NoPlotAndGoodFilesHaveNone) {
    EXPECT_FALSE(HasUnplottedLines());
    EXPECT_EQ(UnplottedLinesText(), "");
    Open("30\t120\n40\t200\n");
    EXPECT_FALSE(HasUnplottedLines());
}

TEST_F(UnplottedLines, AreListedByRowInTheirOwnWords) {
    prompts.ExpectAny("line of invalid orientation data");
    prompts.ExpectAny("invalid data have been detected");
    Open("30\t120\n; second station\n40\t200\n95\t400\n");
    EXPECT_TRUE(HasUnplottedLines());
    const std::string text = UnplottedLinesText();
    EXPECT_NE(text.find("row\tline\n2\t; second station\n4\t95\t400\n"), std::string::npos) << text;
}

TEST_F(UnplottedLines, OfAPlotFileAreThoseOfItsDataFile) {
    prompts.ExpectAny("line of invalid orientation data");
    prompts.ExpectAny("invalid data have been detected");
    Open("30\t120\n; second station\n40\t200\n95\t400\n");
    const std::string path = (folder / "a.qpx").string();
    ASSERT_EQ(SavePlotAs(path, SaveKind::SaveAs), SaveOutcome::Saved);
    ASSERT_EQ(OpenPlotFile(kNewCommand, path), kBinaryCommand);
    EXPECT_TRUE(HasUnplottedLines());
    EXPECT_EQ(UnplottedLinesText(), "row\tline\n2\t; second station\n4\t95\t400\n");
}

TEST_F(UnplottedLines, TheOpeningOfAWorkspaceIsToldByItsFilesAndOthersByTheirRows) {
    AcceptFormat({}, 10);
    WriteFile("one.txt", "30\t120\n");
    const std::string path = WriteFile("w.qwo", "[Files List]\none.txt\ngone.txt\n");
    EXPECT_EQ(OpeningText(), "");
    ASSERT_EQ(OpenPlotFile(kNewCommand, path), kNewCommand);
    EXPECT_EQ(OpeningText(), "1 of 2 files opened");
    Open("30\t120\n40\t200\n");
    EXPECT_EQ(OpeningText().substr(0, 11), "2 rows read");
}

TEST_F(UnplottedLines, TheOpeningOfAFileWithDecimalsSaysSo) {
    AcceptFormat({}, 10);
    Open("47.3\t218.6\n40\t200\n");
    EXPECT_EQ(OpeningText(), "2 rows read, 2 of them data; 0 lines without data, 0 invalid. "
                             "1 row has decimals; Plot > Use Decimals shows it.");
    ActiveRecord().UseDecimals = kTrue;
    EXPECT_TRUE(OpeningText().ends_with(" 0 invalid. 1 row has decimals."));
    ActiveRecord().UseDecimals = 0;
    const std::string path = (folder / "plot.qpx").string();
    ASSERT_EQ(SavePlotAs(path, SaveKind::SaveAs), SaveOutcome::Saved);
    ASSERT_EQ(OpenPlotFile(kNewCommand, path), kBinaryCommand);
    EXPECT_EQ(OpeningText(), "1 row has decimals; Plot > Use Decimals shows it.");
}

TEST_F(UnplottedLines, DigitsBeyondSixDecimalsAreReportedOnce) {
    AcceptFormat({}, 10);
    Open("47.3\t218.6000001\n40.1234567\t200\n30\t120.00000049\n");
    EXPECT_TRUE(LastLoad().hasMoreDecimals);
    EXPECT_EQ(OpeningText(), "3 rows read, 3 of them data; 0 lines without data, 0 invalid. "
                             "2 rows have decimals; Plot > Use Decimals shows them. "
                             "Angles with more than six decimals were rounded to six.");
    Open("47.3\t218.600000\n");
    EXPECT_FALSE(LastLoad().hasMoreDecimals);
}

TEST_F(UnplottedLines, NameTheFilesThatAWorkspaceMisses) {
    AcceptFormat({}, 10);
    WriteFile("one.txt", "30\t120\n");
    const std::string path = WriteFile("w.qwo", "[Files List]\none.txt\ngone.txt\nlost.qpx\n");
    ASSERT_EQ(OpenPlotFile(kNewCommand, path), kNewCommand);
    EXPECT_TRUE(HasUnplottedLines());
    EXPECT_EQ(UnplottedLinesText(), "1 of 3 files opened of the workspace " + path
                                        + ".\nNot opened:\n" + (folder / "gone.txt").string() + "\n"
                                        + (folder / "lost.qpx").string() + "\n");
    Open("30\t120\n40\t200\n");
    EXPECT_FALSE(HasUnplottedLines()) << "another plot has nothing to do with it";
}

} // namespace
} // namespace quandrel
