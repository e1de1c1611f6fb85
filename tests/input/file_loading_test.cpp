// SPDX-License-Identifier: MIT

#include "input/file_loading.h"
#include "input/load_report.h"
#include "orientation/angles.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

/// A row of two orientations; a third number alone is a pitch, a trend or an angle in the plane.
constexpr const char* kTwoPairs = "60\t90\t20\t350\n";

class FileLoading : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        AcceptFormat({}, 1);
    }

    /// Reads a text as the file of a new plot.
    std::string Load(const std::string& name, const std::string& text) {
        NewPlot();
        return ReadTextFile(kNewCommand, WriteFile(name, text));
    }

    /// States four columns of two orientations, and which of them is to be shown.
    void StateTwoSets(std::int16_t primary, std::int16_t secondary, bool showSecondary) {
        gPrimaryDataType = primary;
        gSecondaryDataType = secondary;
        const bool isPair = secondary == kSecondaryLine || secondary == kSecondaryPlane;
        gFileColumnSettings = {0, 1, 2, 2, isPair ? 3 : 2, 2, 6, 7, 8, 9};
        AcceptFormat(
            [showSecondary](FormatAnswer& answer) { answer.plotSecondary = showSecondary; }, 1);
    }
};

struct ShownSet {
    std::int16_t primary;
    std::int16_t secondary;
    bool showsSecondary;
    std::int16_t asked;
    std::int16_t dataKind;
};

TEST_F(FileLoading, TheSecondarySetIsPlottedAsWhatItIs) {
    const std::vector<ShownSet> sets = {
        {kPrimaryPlane, kPitchInPlane, true, kPlanes, kLines},
        {kPrimaryPlane, kTrendInPlane, true, kPlanes, kLines},
        {kPrimaryPlane, kSecondaryLine, true, kPlanes, kLines},
        {kPrimaryPlane, kHadeInPlane, true, kPlanes, kLines},
        {kPrimaryPlane, kSecondaryLine, true, kLines, kLines},
        {kPrimaryPlane, kSecondaryLine, true, kPolarLines, kPolarLines},
        {kPrimaryPlane, kSecondaryPlane, true, kLines, kPlanes},
        {kPrimaryLine, kSecondaryPlane, true, kPolarLines, kPlanes},
        {kPrimaryLine, kSecondaryLine, true, kPlanes, kLines},
        {kPrimaryPlane, kSecondaryLine, false, kPlanes, kPlanes},
        {kPrimaryLine, kSecondaryPlane, false, kPlanes, kPlanes},
        {kPrimaryLine, kSecondaryPlane, false, kLines, kLines},
    };
    for (const ShownSet& set : sets) {
        SCOPED_TRACE(testing::Message() << set.primary << ' ' << set.secondary << ' '
                                        << set.showsSecondary << ' ' << set.asked);
        StateTwoSets(set.primary, set.secondary, set.showsSecondary);
        gPlotDataKind = set.asked;
        const std::string row = set.secondary == kPitchInPlane ? "60\t90\t40S\n" : kTwoPairs;
        ASSERT_EQ(Load("faults.txt", row), kNewCommand);
        EXPECT_EQ(ActiveRecord().DataKind, set.dataKind);
        EXPECT_EQ(ActiveRecord().ShowSecondary != 0, set.showsSecondary);
        EXPECT_EQ(gPlotDataKind, set.asked) << "the next load is asked for the same";
        ReleasePlotSlot(gActivePlot);
    }
}

TEST_F(FileLoading, SlipLinesAreShownAtTheirOwnPlaces) {
    StateTwoSets(kPrimaryPlane, kSecondaryLine, true);
    ASSERT_EQ(Load("faults.txt", kTwoPairs), kNewCommand);
    const PlottedRow line = TableOf(gActivePlot)[0];
    EXPECT_NEAR(line.plunge, DegToRad(20), 1e-12);
    EXPECT_NEAR(line.trend, DegToRad(350), 1e-12);
}

TEST_F(FileLoading, SecondaryPlanesAreShownByTheirPoles) {
    StateTwoSets(kPrimaryLine, kSecondaryPlane, true);
    gPlotDataKind = kLines;
    ASSERT_EQ(Load("lines.txt", kTwoPairs), kNewCommand);
    const PlottedRow pole = TableOf(gActivePlot)[0];
    EXPECT_NEAR(pole.plunge, DegToRad(70), 1e-12);
    EXPECT_NEAR(pole.trend, DegToRad(170), 1e-12);
}

TEST_F(FileLoading, ASetThatTheRowsDoNotHoldIsNotShown) {
    StateTwoSets(kPrimaryPlane, kNoSecondary, true);
    ASSERT_EQ(Load("planes.txt", "30\t120\n"), kNewCommand);
    EXPECT_EQ(ActiveRecord().ShowSecondary, 0);
    EXPECT_EQ(ActiveRecord().DataKind, kPlanes);
    EXPECT_NEAR(TableOf(gActivePlot)[0].plunge, DegToRad(60), 1e-12);
}

TEST_F(FileLoading, AnEmptyPlotShowsTheSecondarySetOfItsFirstFile) {
    StateTwoSets(kPrimaryPlane, kSecondaryLine, true);
    NewPlot();
    ASSERT_EQ(ReadTextFile(kMergeCommand, WriteFile("faults.txt", kTwoPairs)), kMergeCommand);
    EXPECT_EQ(ActiveRecord().DataKind, kLines);
    EXPECT_NEAR(TableOf(gActivePlot)[0].plunge, DegToRad(20), 1e-12);
}

TEST_F(FileLoading, AnEmptyPlotTakesTheFormatOfASecondTry) {
    int asked = 0;
    AcceptFormat(
        [&asked](FormatAnswer& answer) {
            if (++asked == 2) {
                gSecondaryDataType = kSecondaryLine;
                gFileColumnSettings = {0, 1, 2, 2, 3, 2, 6, 7, 8, 9};
                gFileDelimiter = "\t";
                answer.plotSecondary = true;
            }
        },
        2);
    gFileDelimiter = ";";
    Expect("does not appear to contain that many columns", Button::Retry);
    NewPlot();
    ActiveRecord().NumFiles = 0;
    ASSERT_EQ(ReadTextFile(kMergeCommand, WriteFile("faults.txt", kTwoPairs)), kMergeCommand);
    EXPECT_EQ(ActiveRecord().SecondaryFormat, kSecondaryLine);
    EXPECT_NE(ActiveRecord().ShowSecondary, 0);
    EXPECT_EQ(ActiveRecord().DataKind, kLines);
    EXPECT_EQ(ActiveRecord().NumFiles, 1);
    EXPECT_EQ(ActiveRecord().NumData, 1);
    EXPECT_EQ(gData2Dip(gActivePlot, 1), 20);
    EXPECT_NEAR(TableOf(gActivePlot)[0].plunge, DegToRad(20), 1e-12);
}

TEST_F(FileLoading, TheHeadOfAFileOfOurOwnIsNotReported) {
    ASSERT_EQ(Load("own.txt",
                   ";Quandrel, ver 9.5.1\r\n; beds.txt: 1\r\n\r\n; dip\tdip direction\r\n"
                   "/T1\t/N1\t/C1\t/12\t/20\r\n30\t120\r\n"),
              kNewCommand);
    EXPECT_TRUE(prompts.Shown().empty());
    EXPECT_EQ(LastLoad().blankLines, 5) << "they are counted like those of any file";
    EXPECT_EQ(LastLoad().rowsRead, 6);
    EXPECT_EQ(gDataDip(gActivePlot, 1), kErrorRow);
    EXPECT_EQ(ActivePlot().rows.errorLines.at(2), "; beds.txt: 1");
}

TEST_F(FileLoading, NonDataLinesBehindTheHeadOfAFileOfOurOwnAreReported) {
    Expect("2 non-data (blank, comments, etc.) lines were found in this file.");
    Load("own.txt", ";Quandrel, ver 9.5.1\n; head\n30\t120\n; a note\n\n40\t130\n");
    EXPECT_EQ(LastLoad().blankLines, 4);
}

TEST_F(FileLoading, LettersEndTheHeadOfAFileOfOurOwn) {
    Expect("2 non-data");
    Load("own.txt", ";Quandrel, ver 9.5.1\nno data here\n; a note\n30\t120\n");
}

TEST_F(FileLoading, TheHeadOfAnyOtherFileIsReported) {
    Expect("3 non-data");
    Load("other.txt", "; made by hand\n;Quandrel\n\n30\t120\n");
}

TEST_F(FileLoading, FurtherFilesHaveHeadsOfTheirOwn) {
    WriteFile("more.txt", ";Quandrel, ver 9.5.1\n; head\n50\t10\n");
    WriteFile("hand.txt", "; made by hand\n60\t10\n");
    Expect("1 non-data");
    ASSERT_EQ(Load("own.txt", ";Quandrel, ver 9.5.1\n/Xmore.txt\t/Xhand.txt\n30\t120\n"),
              kNewCommand);
    EXPECT_EQ(ActiveRecord().NumValidData, 3);
    EXPECT_EQ(LastLoad().blankLines, 5) << "of all three together";
}

// A number that equals the mark of invalid numbers cannot be distinguished from it.
// Kept: -9999 cannot be stored either.
TEST_F(FileLoading, ANumberThatIsTheInvalidMarkIsToldAsInvalid) {
    gFileNumericAppended = true;
    gFileColumnSettings[kSlotNumber] = 2;
    Expect("3 of the 5 lines of valid orientation data were found to contain invalid appended "
           "numeric data.");
    Load("a.txt", "30\t120\t-9999\n31\t120\t-9999.0001\n32\t120\t-9.999e3\n33\t120\t-9998\n"
                  "34\t120\t9999\n");
    EXPECT_EQ(LastLoad().badNumeric, 3);
    EXPECT_EQ(LastLoad().rowsValid, 5);
    EXPECT_EQ(gAppNumeric(gActivePlot, 1), kInvalidNumber);
    EXPECT_EQ(gAppNumeric(gActivePlot, 4), -9998.0F);
    EXPECT_EQ(ActiveRecord().AppendedMin[kOfNumbers], -9998) << "the mark is not a minimum";
}

TEST_F(FileLoading, AppendedDataThatAFileIsNotReadForAreNoneOfItsFaults) {
    gFileNumericAppended = true;
    gFileNonNumericAppended = true;
    gFileColumnSettings[kSlotNumber] = 2;
    gFileColumnSettings[kSlotText] = 3;
    ASSERT_EQ(Load("a.txt", "30\t120\t4\tslate\n"), kNewCommand);
    for (const std::string command : {kMergeCommand, kOverlayCommand}) {
        AcceptFormat([](FormatAnswer&) {
            gFileNumericAppended = false;
            gFileNonNumericAppended = false;
        });
        const std::string path = WriteFile(command + ".txt", "40\t130\n50\t140\n");
        ASSERT_EQ(ReadTextFile(command, path), command);
        EXPECT_EQ(LastLoad().rowsValid, 2);
        EXPECT_EQ(LoadSummaryText(LastLoad()), "") << command;
    }
    EXPECT_TRUE(prompts.Shown().empty());
}

TEST_F(FileLoading, AskedAgainTheFormatDialogStandsAsItWasLeft) {
    AcceptFormat(
        [this](FormatAnswer& answer) {
            gFileDelimiter = formatQuestions.size() == 1 ? "," : "\t";
            answer.plotSecondary = true;
            answer.frequencyColumn = true;
        },
        2);
    prompts.ExpectAny("columns of data in this file");
    Expect("All datalines were found to contain invalid data and no data were plotted.");
    Load("a.txt", "30\t120\n40\t130\n");
    ASSERT_EQ(formatQuestions.size(), 2U);
    EXPECT_FALSE(formatQuestions[0].showSecondary);
    EXPECT_FALSE(formatQuestions[0].frequencyColumn);
    EXPECT_TRUE(formatQuestions[1].showSecondary);
    EXPECT_TRUE(formatQuestions[1].frequencyColumn);
}

TEST_F(FileLoading, ALoadThatTheUserEndedSaysSo) {
    LoadCounters counters;
    counters.rowsRead = 7;
    counters.rowsValid = 7;
    EXPECT_EQ(LoadText(counters), "7 rows read, 7 of them data; 0 lines without data, 0 invalid.");
    counters.cancelled = true;
    EXPECT_EQ(LoadText(counters).rfind("You ended the load before the end of the file: ", 0), 0U);
}

} // namespace
} // namespace quandrel
