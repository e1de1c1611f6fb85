// SPDX-License-Identifier: MIT
//
// The whole path from a file to a plot.

#include "input/file_loading.h"
#include "input/line_loop.h"
#include "input/plot_files.h"
#include "orientation/angles.h"
#include "persistence/open_plot.h"
#include "support/test_platform.h"

#include <algorithm>
#include <stdexcept>

namespace quandrel {
namespace {

class OpenPlot : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        AcceptFormat({}, 1000);
    }

    /// Opens a file of these lines as a new plot.
    std::string Open(const std::string& name, const std::string& text) {
        return OpenPlotFile(kNewCommand, WriteFile(name, text));
    }

    static std::int32_t Dip(std::int32_t row) { return gDataDip(gActivePlot, row); }

    static std::int32_t Azimuth(std::int32_t row) { return gDataAz(gActivePlot, row); }

    /// The place of a row in the sorted table.
    static std::size_t PlaceOf(std::int32_t row) {
        const std::vector<std::int32_t>& index = TableOf(gActivePlot).index;
        return static_cast<std::size_t>(std::find(index.begin(), index.end(), row) - index.begin());
    }

    static std::string Repeated(const std::string& line, int times) {
        std::string text;
        for (int i = 0; i < times; ++i) {
            text += line;
        }
        return text;
    }
};

TEST_F(OpenPlot, ANewPlotHoldsTheRowsAndTheNameOfItsFile) {
    EXPECT_EQ(Open("beds.txt", "30\t120\n45\t270\n"), kNewCommand);
    const PlotRecord& record = ActiveRecord();
    EXPECT_EQ(record.NumData, 2);
    EXPECT_EQ(record.NumValidData, 2);
    EXPECT_EQ(record.NumLoadedData, 2);
    EXPECT_EQ(record.NumFiles, 1);
    EXPECT_EQ(record.FileTitle, "beds.txt");
    EXPECT_EQ(record.PlotTitle, "beds.txt: 1");
    EXPECT_EQ(record.FileNames[kFirstFile], (folder / "beds.txt").string());
    EXPECT_EQ(Dip(1), 30);
    EXPECT_EQ(Azimuth(2), 270);
    EXPECT_EQ(gDataDip(gActivePlot, 0), 0) << "row 0 is never used";
    EXPECT_EQ(gDataOrder(gActivePlot, 2), 2);
    EXPECT_EQ(gSettings.files.recent.front(), (folder / "beds.txt").string());
    EXPECT_EQ(gSettings.files.lastFolder, folder.string());
    EXPECT_EQ(Form(gActivePlot).Caption(), "beds.txt: 1   [Planes]     ");
    EXPECT_EQ(Form(gActivePlot).Told(PlotBox::NumberOfData), "2");
}

TEST_F(OpenPlot, ValuesAreRoundedToEvenAndAzimuthsWrapped) {
    Open("a.txt", "44.5\t-90\n45.5\t359.6\n-0.4\t-360\n");
    EXPECT_EQ(Dip(1), 44);
    EXPECT_EQ(Azimuth(1), 270);
    EXPECT_EQ(Dip(2), 46);
    EXPECT_EQ(Azimuth(2), 360);
    EXPECT_EQ(Dip(3), 0);
    EXPECT_EQ(Azimuth(3), 0);
}

TEST_F(OpenPlot, EveryLineIsARowAndOnlyGoodOnesAreValid) {
    Expect("Critical orientation information", Button::Ignore);
    Expect("1 invalid data have been detected");
    Open("a.txt", "; comment\n30\t120\n\n\t45\nletters only\n40\t200\n");
    const PlotRecord& record = ActiveRecord();
    EXPECT_EQ(record.NumData, 6);
    EXPECT_EQ(record.NumValidData, 2);
    EXPECT_EQ(LastLoad().rowsRead, 6);
    EXPECT_EQ(LastLoad().rowsValid, 2);
    EXPECT_EQ(LastLoad().blankLines, 3);
    EXPECT_EQ(LastLoad().invalidLines, 1);
    EXPECT_EQ(Dip(1), kErrorRow);
    EXPECT_EQ(Dip(2), 30);
    const auto& lines = ActivePlot().rows.errorLines;
    EXPECT_EQ(lines.at(1), "; comment");
    EXPECT_EQ(lines.at(5), "letters only");
    EXPECT_EQ(RowTableText(TableOf(gActivePlot), PlaceOf(1), 3), "-9999");
    EXPECT_EQ(RowTableText(TableOf(gActivePlot), PlaceOf(2), 0), "2");
}

TEST_F(OpenPlot, TheHeadingIsTheFirstLineThatIsNoCommentOrBlank) {
    gSettings.format.hasHeadings = true;
    Expect("2 non-data");
    Open("a.txt", "; made by hand\n\ndip 1\tdirection 2\n30\t120\n");
    EXPECT_EQ(ActiveRecord().FileHeadLine, "dip 1\tdirection 2");
    EXPECT_EQ(ActiveRecord().NumValidData, 1);
    EXPECT_EQ(LastLoad().rowsRead, 3);
}

TEST_F(OpenPlot, AThousandInvalidLinesInARowAreCalledSo) {
    Expect("The following line of invalid orientation data", Button::Ignore);
    Expect("Reading ended at line 1001, after 1000 invalid lines in a row.");
    Open("a.txt", "30\t120\n" + Repeated("95\t120\n", 1200) + "40\t100\n");
    EXPECT_EQ(ActiveRecord().NumValidData, 1);
    EXPECT_EQ(LastLoad().invalidLines, 1000);
    EXPECT_EQ(LastLoad().blankLines, 0);
}

TEST_F(OpenPlot, AThousandNonDataLinesInARowEndTheReading) {
    Expect("Reading ended at line 1001, after 1000 lines in a row without data.");
    Open("a.txt", "30\t120\n" + Repeated("no data\n", 1200) + "40\t100\n");
    EXPECT_EQ(ActiveRecord().NumValidData, 1);
    EXPECT_EQ(LastLoad().blankLines, 1000);
    EXPECT_EQ(LastLoad().stoppedAtLine, 1001);
}

TEST_F(OpenPlot, NonDataLinesBetweenDataDoNotEndTheReading) {
    Expect("1500 non-data");
    Open("a.txt", Repeated("30\t120\n\n", 1500));
    EXPECT_EQ(ActiveRecord().NumValidData, 1500);
    EXPECT_EQ(LastLoad().stoppedAtLine, 0);
}

TEST_F(OpenPlot, RetryReadsTheFileFromTheStartWithFreshCounters) {
    Expect("but this line does not appear to contain that many columns", Button::Retry);
    int asked = 0;
    AcceptFormat(
        [&](FormatAnswer&) {
            if (++asked == 2) {
                gFileDelimiter = ",";
            }
        },
        2);
    gFileDelimiter = "\t";
    EXPECT_EQ(Open("a.txt", "30,120\n40,130\n"), kNewCommand);
    EXPECT_EQ(formatQuestions.size(), 2U);
    EXPECT_EQ(LastLoad().rowsRead, 2);
    EXPECT_EQ(LastLoad().invalidLines, 0);
    EXPECT_EQ(ActiveRecord().NumData, 2);
    EXPECT_EQ(TableOf(gActivePlot).size(), 2U);
    EXPECT_EQ(Dip(2), 40);
}

TEST_F(OpenPlot, AbortKeepsTheRowsSoFar) {
    Expect("The following line of invalid orientation data", Button::Abort);
    EXPECT_EQ(Open("a.txt", "30\t120\n99\t10\n40\t130\n"), kNewCommand);
    EXPECT_EQ(ActiveRecord().NumValidData, 1);
}

TEST_F(OpenPlot, AbortWithoutARowGivesThePlotUp) {
    gConventions = 1;
    Expect("The following line of invalid orientation data", Button::Abort);
    EXPECT_EQ(Open("a.txt", "99\t10\n40\t130\n"), kLoadError);
    EXPECT_EQ(CountOpenPlots(), 0);
    EXPECT_EQ(gActivePlot, 0);
    EXPECT_TRUE(gSettings.files.recent.empty());
}

TEST_F(OpenPlot, IgnoreDoesNotAskAgain) {
    Expect("The following line of invalid orientation data", Button::Ignore);
    Expect("2 invalid data have been detected");
    Open("a.txt", "30\t120\n99\t10\n98\t10\n40\t130\n");
    EXPECT_EQ(ActiveRecord().NumValidData, 2);
}

TEST_F(OpenPlot, WrongQuadrantNotationMayEndTheReading) {
    gConventions = -1;
    Expect("Incorrect quadrant notation has been detected", Button::Cancel);
    Open("a.txt", "30\tN20E\n30\tX20E\n40\tS5W\n");
    EXPECT_EQ(ActiveRecord().NumValidData, 1);
    EXPECT_EQ(Azimuth(1), 20);
}

TEST_F(OpenPlot, AFileWithoutDataAsksForTheFormatAgain) {
    Expect("All datalines were found to contain invalid data and no data were plotted.");
    AcceptFormat({}, 1);
    gConventions = 3;
    EXPECT_EQ(Open("a.txt", "nothing here\n"), kLoadError);
    EXPECT_EQ(formatQuestions.size(), 2U);
    EXPECT_EQ(CountOpenPlots(), 0);
}

TEST_F(OpenPlot, ALoadThatFailsPutsTheFormatBack) {
    Expect("All datalines were found");
    AcceptFormat([](FormatAnswer&) { gFileDelimiter = ";"; }, 1);
    gPlotDataKind = kLines;
    Open("a.txt", "/T3 /C-4\nnothing\n");
    EXPECT_EQ(gConventions, 1);
    EXPECT_EQ(gFileDelimiter, "\t");
    EXPECT_EQ(gPlotDataKind, kLines);
}

TEST_F(OpenPlot, CancellingTheFormatDialogLeavesNothing) {
    AcceptFormat({}, 0);
    EXPECT_EQ(Open("a.txt", "30\t120\n"), kLoadError);
    EXPECT_EQ(CountOpenPlots(), 0);
}

TEST_F(OpenPlot, ADirectionsFileIsARoseWhateverWasAskedFor) {
    gPrimaryDataType = kDirections;
    gPlotKind = kEqualAngle;
    Open("a.txt", "0\t120\n0\t360\n");
    EXPECT_EQ(ActiveRecord().PlotKind, kRose);
    EXPECT_EQ(gPlotKind, kEqualArea) << "the next plot is not a rose";
    gPrimaryDataType = kPrimaryPlane;
    Open("b.txt", "30\t120\n");
    EXPECT_EQ(ActiveRecord().PlotKind, kEqualArea);
}

TEST_F(OpenPlot, TheSecondOverlayOfAFileIsRefused) {
    Open("a.txt", "30\t120\n");
    const std::string overlay = WriteFile("b.txt", "40\t100\n50\t90\n");
    EXPECT_EQ(OpenPlotFile(kOverlayCommand, overlay), kOverlayCommand);
    EXPECT_EQ(ActiveRecord().OverlayRows[kOverlayCount], 1);
    EXPECT_EQ(ActiveRecord().OverlayRows[1], 2);
    EXPECT_EQ(ActiveRecord().NumData, 1);
    EXPECT_EQ(ActiveRecord().NumValidData, 1);
    EXPECT_EQ(ActiveRecord().NumLoadedData, 3);
    EXPECT_EQ(ActiveRecord().PlotTitle, "a.txt: 1 + b.txt");
    Expect("You have already plotted this file");
    EXPECT_EQ(OpenPlotFile(kOverlayCommand, overlay), kLoadError);
    EXPECT_EQ(ActiveRecord().OverlayRows[kOverlayCount], 1);
    EXPECT_EQ(ActiveRecord().NumFiles, 2);
    EXPECT_EQ(ActiveRecord().PlotTitle, "a.txt: 1 + b.txt");
}

TEST_F(OpenPlot, MergingAFileAgainAsksFromTheSecondTimeOn) {
    const std::string path = WriteFile("a.txt", "30\t120\n");
    OpenPlotFile(kNewCommand, path);
    EXPECT_EQ(OpenPlotFile(kMergeCommand, path), kMergeCommand);
    EXPECT_EQ(ActiveRecord().NumData, 2);
    Expect("This plot already contains data from this file.", Button::Cancel);
    EXPECT_EQ(OpenPlotFile(kMergeCommand, path), kLoadError);
    EXPECT_EQ(ActiveRecord().NumData, 2);
    EXPECT_EQ(ActiveRecord().PlotTitle, "a.txt: 1") << "the title names each file once";
}

TEST_F(OpenPlot, MergedRowsFollowTheFirstOnes) {
    Open("a.txt", "30\t120\n31\t121\n");
    OpenPlotFile(kMergeCommand, WriteFile("b.txt", "40\t100\n"));
    EXPECT_EQ(ActiveRecord().NumData, 3);
    EXPECT_EQ(ActiveRecord().NumValidData, 3);
    EXPECT_EQ(Dip(3), 40);
    EXPECT_NE(ActiveRecord().Modified, 0);
}

TEST_F(OpenPlot, LinesMergedIntoAPlotOfPlanesKeepTheirPlaces) {
    Open("planes.txt", "30\t120\n");
    gPrimaryDataType = kPrimaryLine;
    gPlotDataKind = kLines;
    Expect("lines with plane data in this plot", Button::Ok);
    OpenPlotFile(kMergeCommand, WriteFile("lines.txt", "20\t75\n"));
    EXPECT_EQ(Dip(2), 70);
    EXPECT_EQ(Azimuth(2), 255);
    const PlottedRow line = TableOf(gActivePlot)[PlaceOf(2)];
    EXPECT_NEAR(line.plunge, DegToRad(20), 1e-12);
    EXPECT_NEAR(line.trend, DegToRad(75), 1e-12);
}

TEST_F(OpenPlot, MergingOtherDataMayBeCancelled) {
    Open("planes.txt", "30\t120\n");
    gPrimaryDataType = kPrimaryLine;
    gPlotDataKind = kLines;
    Expect("Continue anyway?", Button::Cancel);
    EXPECT_EQ(OpenPlotFile(kMergeCommand, WriteFile("lines.txt", "20\t75\n")), kLoadError);
    EXPECT_EQ(ActiveRecord().NumData, 1);
    EXPECT_EQ(ActiveRecord().NumFiles, 1);
}

TEST_F(OpenPlot, TwentyFilesAndTwentyOverlaysAreTheMost) {
    Open("a.txt", "30\t120\n");
    ActiveRecord().NumFiles = 20;
    Expect("You can't have more than 20 files in any one plot.");
    EXPECT_EQ(OpenPlotFile(kMergeCommand, WriteFile("b.txt", "1\t1\n")), kLoadError);
    Expect("You can't have more than 20 total files in any one plot.");
    EXPECT_EQ(OpenPlotFile(kOverlayCommand, WriteFile("b.txt", "1\t1\n")), kLoadError);
    ActiveRecord().NumFiles = 1;
    ActiveRecord().OverlayRows[kOverlayCount] = 20;
    Expect("You can't overlay more than 20 datasets in any one plot.");
    EXPECT_EQ(OpenPlotFile(kOverlayCommand, WriteFile("b.txt", "1\t1\n")), kLoadError);
    ActiveRecord().OverlayRows[kOverlayCount] = 0;
}

TEST_F(OpenPlot, AMissingSecondaryValueIsNeverZero) {
    gSecondaryDataType = kTrendInPlane;
    gFileColumnSettings = {0, 1, 2, 3, 2, 5, 6, 7, 8, 9};
    Open("a.txt", "60\t90\t90\n60\t90\t-\n");
    EXPECT_EQ(gData2Dip(gActivePlot, 1), 60);
    EXPECT_EQ(gData2Az(gActivePlot, 1), 90);
    EXPECT_EQ(gData2Dip(gActivePlot, 2), kErrorRow);
    EXPECT_EQ(ActiveRecord().NumValidData, 2);
}

TEST_F(OpenPlot, AWrongDecimalDelimiterIsAskedAboutOnceAndConverted) {
    gFileNumericAppended = true;
    gFileColumnSettings[kSlotNumber] = 2;
    Expect("appears to contain an incorrect decimal delimiter", Button::Retry);
    Open("a.txt", "30\t120\t2,5\n31\t120\t3,5\n");
    EXPECT_TRUE(gConvertDecimals);
    EXPECT_FLOAT_EQ(gAppNumeric(gActivePlot, 1), 2.5F);
    EXPECT_FLOAT_EQ(gAppNumeric(gActivePlot, 2), 3.5F);
    EXPECT_EQ(LastLoad().badNumeric, 0);
}

TEST_F(OpenPlot, AWrongDecimalDelimiterThatIsIgnoredIsAnInvalidValue) {
    gFileNumericAppended = true;
    gFileColumnSettings[kSlotNumber] = 2;
    gDecimalIsComma = true;
    Expect("Your Windows Regional Settings are set to use a comma ", Button::Ignore);
    Expect("2 of the 2 lines of valid orientation data were found to contain invalid appended "
           "numeric data.");
    Open("a.txt", "30\t120\t2.5\n31\t120\t3.5\n");
    EXPECT_EQ(gAppNumeric(gActivePlot, 1), kInvalidNumber);
    EXPECT_EQ(LastLoad().badNumeric, 2);
    EXPECT_EQ(ActiveRecord().NumValidData, 2);
}

TEST_F(OpenPlot, AMissingNumberIsCountedAndNotAskedAbout) {
    gFileNumericAppended = true;
    gFileNonNumericAppended = true;
    gFileColumnSettings[kSlotNumber] = 2;
    gFileColumnSettings[kSlotText] = 3;
    Expect("1 of the 2 lines of valid ");
    Open("a.txt", "30\t120\tNA\tslate\n31\t120\t4\tEocene\n");
    EXPECT_EQ(gAppText(gActivePlot, 1), "slate");
    EXPECT_EQ(gAppText(gActivePlot, 2), "Eocene");
    EXPECT_EQ(gAppNumeric(gActivePlot, 1), kInvalidNumber);
}

TEST_F(OpenPlot, TextsThatLookLikeNumbersOfAnotherRegionAreWarnedAbout) {
    gFileNonNumericAppended = true;
    gFileColumnSettings[kSlotText] = 2;
    Expect("Apparent decimal values in your Appended data");
    Open("a.txt", "30\t120\t2,5\n31\t120\t3,5\n");
}

TEST_F(OpenPlot, OutOfMemoryKeepsTheRowsSoFarAndForbidsAMerge) {
    gPlatform.mostRows = 2;
    Expect("An 'Out of Memory' error has been encountered after 2 data points");
    Open("a.txt", "30\t120\n31\t121\n32\t122\n");
    gPlatform.mostRows = std::numeric_limits<std::int32_t>::max() / 2;
    EXPECT_EQ(ActiveRecord().NumValidData, 2);
    EXPECT_NE(ActiveRecord().DataFull, 0);
    Expect("This plot already contains the maximum no. of data");
    EXPECT_EQ(OpenPlotFile(kMergeCommand, WriteFile("b.txt", "1\t1\n")), kLoadError);
}

TEST_F(OpenPlot, FilesNamedInAParameterLineGoInBehindTheFirst) {
    WriteFile("more data.txt", "50\t10\n");
    Expect("1 non-data");
    Open("a.txt", "/T1\t/Xmore data.txt\t/Xmissing.txt\n30\t120\n");
    EXPECT_EQ(ActiveRecord().NumValidData, 2);
    EXPECT_EQ(ActiveRecord().NumFiles, 2);
    EXPECT_EQ(Dip(3), 50);
}

TEST_F(OpenPlot, AParameterLineStatesTheFormat) {
    Expect("1 non-data");
    Open("a.txt", "/T2\t/N2\t/C11\t/13\t/20\t/L0\t/W0\n30\t120\n");
    const PlotRecord& record = ActiveRecord();
    EXPECT_EQ(record.DataKind, kLines);
    EXPECT_EQ(record.PlotKind, kEqualAngle);
    EXPECT_EQ(record.PrimaryFormat, kPrimaryLine);
    EXPECT_EQ(gConventions, 11);
    EXPECT_EQ(formatQuestions.at(0).plotKindFromFile, kLines);
}

TEST_F(OpenPlot, WindColumnsChooseTheirRose) {
    gFileNonNumericAppended = true;
    gFileAppNonNumName = "Mean Wind Speed";
    gFileColumnSettings[kSlotText] = 2;
    Open("a.txt", "30\t120\t7 m\n");
    EXPECT_EQ(ActiveRecord().RoseType, 4);
}

TEST_F(OpenPlot, NamesOfColumnsThatAreNotReadChooseNoRose) {
    gFileAppNonNumName = "Mean Wind Speed";
    gFileAppNumName = "mean wind frequency";
    Open("a.txt", "30\t120\n");
    EXPECT_EQ(ActiveRecord().RoseType, 0);
    gFileNumericAppended = true;
    gFileColumnSettings[kSlotNumber] = 2;
    Open("b.txt", "30\t120\t7\n");
    EXPECT_EQ(ActiveRecord().RoseType, 1);
}

TEST_F(OpenPlot, FilesThatAreNoneAreToldAndLeaveNothing) {
    Expect("The indicated file cannot be opened");
    EXPECT_EQ(OpenPlotFile(kNewCommand, (folder / "missing.txt").string()), kLoadError);
    Expect("The indicated file cannot be opened");
    EXPECT_EQ(OpenPlotFile(kNewCommand, folder.string()), kLoadError);
    Expect("The indicated file cannot be opened");
    EXPECT_EQ(Open("plot.qpx", std::string("bin9.5") + std::string(200, '\0')), kLoadError);
    EXPECT_EQ(CountOpenPlots(), 0);
}

TEST_F(OpenPlot, ATextThatBeginsWithBinIsText) {
    gPrimaryDataType = kPrimaryPlane;
    Expect("1 non-data");
    EXPECT_EQ(Open("a.txt", "binned data\n30\t120\n"), kNewCommand);
    EXPECT_EQ(ActiveRecord().NumValidData, 1);
}

TEST_F(OpenPlot, ABlankPlotIsANetWhateverWasPlottedBefore) {
    gPrimaryDataType = kDirections;
    gPlotDataKind = kPolarLines;
    EXPECT_EQ(OpenPlotFile(kBlankCommand), kBlankCommand);
    EXPECT_EQ(ActiveRecord().PlotKind, kEqualArea);
    EXPECT_EQ(ActiveRecord().PrimaryFormat, kPrimaryPlane);
    EXPECT_EQ(ActiveRecord().DataKind, kPlanes);
    gPlotKind = kRose;
    gPrimaryDataType = kPrimaryLine;
    EXPECT_EQ(OpenPlotFile(kBlankCommand), kBlankCommand);
    EXPECT_EQ(ActiveRecord().PlotKind, kEqualArea);
    EXPECT_EQ(ActiveRecord().PrimaryFormat, kPrimaryLine);
    EXPECT_EQ(ActiveRecord().DataKind, kPolarLines);
    gPlotKind = kEqualAngle;
    EXPECT_EQ(OpenPlotFile(kBlankCommand), kBlankCommand);
    EXPECT_EQ(ActiveRecord().PlotKind, kEqualAngle) << "the net that was asked for";
}

TEST_F(OpenPlot, ABlankPlotHasNoFile) {
    EXPECT_EQ(OpenPlotFile(kBlankCommand), kBlankCommand);
    EXPECT_EQ(ActiveRecord().PlotTitle, "Plot 1: Untitled");
    EXPECT_EQ(ActiveRecord().NumFiles, 0);
    EXPECT_EQ(ActiveRecord().NumValidData, 0);
}

TEST_F(OpenPlot, RunsOfBadLinesAreCountedByTheirKind) {
    Expect("The following line of invalid orientation data", Button::Ignore);
    Expect("1200 non-data");
    Open("a.txt",
         "30\t120\n" + Repeated("\n", 600) + "99\t10\n" + Repeated("\n", 600) + "40\t100\n");
    EXPECT_EQ(ActiveRecord().NumValidData, 2);
}

TEST_F(OpenPlot, AThousandInvalidLinesInARowEndTheReading) {
    Expect("The following line of invalid orientation data", Button::Ignore);
    Expect("The first 1000 datalines were found to contain invalid data");
    AcceptFormat({}, 1);
    EXPECT_EQ(Open("a.txt", Repeated("99\t10\n", 1500)), kLoadError);
    EXPECT_EQ(LastLoad().invalidLines, 1000);
}

TEST_F(OpenPlot, ALoadThatTheUserEndsKeepsItsRows) {
    const auto usual = gPlatform.timeWithoutProgress;
    gPlatform.timeWithoutProgress = std::chrono::milliseconds(0);
    status.RequestCancel();
    Open("a.txt", Repeated("30\t120\n", 20000));
    gPlatform.timeWithoutProgress = usual;
    EXPECT_TRUE(LastLoad().cancelled);
    EXPECT_GT(ActiveRecord().NumValidData, 0);
    EXPECT_LT(ActiveRecord().NumValidData, 20000);
    EXPECT_EQ(TableOf(gActivePlot).size(), static_cast<std::size_t>(ActiveRecord().NumLoadedData));
    EXPECT_FALSE(status.ProgressIsShown()) << "the bar goes with the load";
}

TEST_F(OpenPlot, TheThirdMergeOfAFileAsksAndTheSecondDoesNot) {
    Open("a.txt", "30\t120\n");
    const std::string path = WriteFile("b.txt", "40\t100\n");
    EXPECT_EQ(OpenPlotFile(kMergeCommand, path), kMergeCommand);
    EXPECT_EQ(OpenPlotFile(kMergeCommand, path), kMergeCommand);
    Expect("This plot already contains data from this file.", Button::Ok);
    EXPECT_EQ(OpenPlotFile(kMergeCommand, path), kMergeCommand);
    EXPECT_EQ(ActiveRecord().NumData, 4);
    EXPECT_EQ(ActiveRecord().PlotTitle, "a.txt: 1 + b.txt");
}

TEST_F(OpenPlot, AFileIsKnownAgainByAnotherSpelling) {
    Open("a.txt", "30\t120\n");
    Expect("You have already plotted this file");
    EXPECT_EQ(OpenPlotFile(kOverlayCommand, (folder / "." / "x" / ".." / "a.txt").string()),
              kLoadError);
}

TEST_F(OpenPlot, RemovingAnOverlayLeavesNoTraceOfIt) {
    Open("a.txt", "30\t120\n");
    Expect("1 non-data");
    OpenPlotFile(kOverlayCommand, WriteFile("b.txt", "; note\n50\t90\n"));
    OpenPlotFile(kMergeCommand, WriteFile("c.txt", "20\t80\n"));
    EXPECT_EQ(ActiveRecord().OverlayRows[1], 3);
    EXPECT_EQ(ActiveRecord().NumFiles, 3);
    ActiveRecord().SelectedOverlay = 1;
    RemoveLastOverlay(gActivePlot);
    const PlotRecord& record = ActiveRecord();
    EXPECT_EQ(record.OverlayRows[kOverlayCount], 0);
    EXPECT_EQ(record.NumLoadedData, 1);
    EXPECT_EQ(record.NumData, 1);
    EXPECT_EQ(record.NumValidData, 1);
    EXPECT_EQ(record.NumFiles, 1);
    EXPECT_EQ(record.FileNames[kFirstFile + 1], "");
    EXPECT_EQ(record.PlotTitle, "a.txt: 1");
    EXPECT_EQ(record.SelectedOverlay, 0);
    EXPECT_TRUE(ActivePlot().rows.errorLines.empty());
    EXPECT_EQ(TableOf(gActivePlot).size(), 1U);
    EXPECT_EQ(OpenPlotFile(kOverlayCommand, (folder / "c.txt").string()), kOverlayCommand);
}

TEST_F(OpenPlot, RowsMergedIntoAnOverlayTakeItsForm) {
    Open("a.txt", "30\t120\n");
    OpenPlotFile(kOverlayCommand, WriteFile("b.txt", "50\t90\n"));
    gPrimaryDataType = kPrimaryLine;
    gPlotDataKind = kLines;
    Expect("lines with plane data in this plot", Button::Ok);
    OpenPlotFile(kMergeCommand, WriteFile("c.txt", "20\t75\n"));
    const PlottedRow line = TableOf(gActivePlot)[PlaceOf(3)];
    EXPECT_NEAR(line.plunge, DegToRad(20), 1e-12);
    EXPECT_NEAR(line.trend, DegToRad(75), 1e-12);
}

TEST_F(OpenPlot, MergingIntoAPlotThatShowsItsSecondaryLinesKeepsThePlanes) {
    gSecondaryDataType = kSecondaryLine;
    gFileColumnSettings = {0, 1, 2, 2, 3, 5, 6, 7, 8, 9};
    AcceptFormat([](FormatAnswer& answer) { answer.plotSecondary = true; }, 1000);
    Open("a.txt", "30\t120\t20\t80\n");
    OpenPlotFile(kMergeCommand, WriteFile("b.txt", "35\t125\t22\t77\n"));
    EXPECT_EQ(Dip(2), 35);
    EXPECT_EQ(Azimuth(2), 125);
    EXPECT_EQ(gData2Dip(gActivePlot, 2), 22);
}

TEST_F(OpenPlot, AnOverlayOnAPlotThatShowsItsSecondaryLinesShowsItsOwn) {
    gSecondaryDataType = kSecondaryLine;
    gFileColumnSettings = {0, 1, 2, 2, 3, 5, 6, 7, 8, 9};
    AcceptFormat([](FormatAnswer& answer) { answer.plotSecondary = true; }, 1000);
    Open("a.txt", "30\t120\t20\t80\n");
    OpenPlotFile(kOverlayCommand, WriteFile("b.txt", "35\t125\t22\t77\n"));
    const PlottedRow line = TableOf(gActivePlot)[PlaceOf(2)];
    EXPECT_NEAR(line.plunge, DegToRad(22), 1e-12);
    EXPECT_NEAR(line.trend, DegToRad(77), 1e-12);
    EXPECT_EQ(ActiveRecord().OverlayKind[1], kOverlayLines);
}

TEST_F(OpenPlot, RetryMayChangeTheKindOfAnOverlay) {
    Open("a.txt", "30\t120\n");
    Expect("Check that you have indicated", Button::Retry);
    int asked = 0;
    AcceptFormat(
        [&](FormatAnswer&) {
            if (++asked == 2) {
                gPrimaryDataType = kPrimaryLine;
                gPlotDataKind = kPolarLines;
                gFileColumnSettings = {1, 0, 2, 3, 4, 5, 6, 7, 8, 9};
            }
        },
        2);
    OpenPlotFile(kOverlayCommand, WriteFile("b.txt", "120\t-30\n"));
    EXPECT_EQ(ActiveRecord().OverlayKind[1], kOverlayPolarLines);
    EXPECT_NEAR(TableOf(gActivePlot)[PlaceOf(2)].plunge, DegToRad(-30), 1e-12);
    EXPECT_EQ(gDataSymbol(gActivePlot, 2), CodeOfStyleRow(4)) << "the symbol of upward lines";
}

TEST_F(OpenPlot, AMergeThatComesToNothingPutsEverythingBack) {
    gFileNumericAppended = true;
    gFileColumnSettings[kSlotNumber] = 2;
    gSettings.format.hasHeadings = true;
    Open("a.txt", "head 1\n30\t120\t5\n");
    ActiveRecord().Modified = 0;
    gSettings.format.hasHeadings = false;
    Expect("Check that you have indicated", Button::Retry);
    AcceptFormat({}, 1);
    EXPECT_EQ(OpenPlotFile(kMergeCommand, WriteFile("b.txt", "31\t121\t999\n99\t0\t1\n")),
              kLoadError);
    const PlotRecord& record = ActiveRecord();
    EXPECT_EQ(record.NumData, 1);
    EXPECT_EQ(record.AppendedMax[kOfNumbers], 5);
    EXPECT_EQ(record.Modified, 0);
    EXPECT_EQ(record.FileHeadLine, "head 1");
    EXPECT_EQ(record.PlotTitle, "a.txt: 1");
}

TEST_F(OpenPlot, AnEmptyPlotTakesTheFormatOfItsFirstFile) {
    OpenPlotFile(kBlankCommand);
    gPrimaryDataType = kPrimaryLine;
    gPlotDataKind = kLines;
    OpenPlotFile(kMergeCommand, WriteFile("lines.txt", "20\t75\n"));
    EXPECT_EQ(Dip(1), 20);
    EXPECT_EQ(ActiveRecord().DataKind, kLines);
    EXPECT_EQ(ActiveRecord().NumFiles, 1);
}

TEST_F(OpenPlot, ANumberThatIsTooLargeToKeepIsInvalid) {
    gFileNumericAppended = true;
    gFileColumnSettings[kSlotNumber] = 2;
    Expect("2 of the 3 lines of valid ");
    Open("a.txt", "30\t120\t1e39\n30\t120\t-1e300\n30\t120\t1e38\n");
    EXPECT_EQ(gAppNumeric(gActivePlot, 1), kInvalidNumber);
    EXPECT_EQ(gAppNumeric(gActivePlot, 3), 1e38F);
}

TEST_F(OpenPlot, OverlaysTakeTheStylesOfTheirNumbers) {
    Open("a.txt", "30\t120\n");
    gPrimaryDataType = kPrimaryLine;
    gPlotDataKind = kPolarLines;
    for (int overlay = 1; overlay <= 7; ++overlay) {
        OpenPlotFile(kOverlayCommand,
                     WriteFile("o" + std::to_string(overlay) + ".txt", "20\t75\n-20\t75\n"));
        const std::int32_t row = 2 * overlay;
        EXPECT_EQ(gDataSymbol(gActivePlot, row), CodeOfStyleRow(2 + overlay % 7));
        EXPECT_EQ(gDataSymbol(gActivePlot, row + 1), CodeOfStyleRow(2 + (overlay + 1) % 7));
    }
}

TEST_F(OpenPlot, FurtherFilesOfAnOverlayBelongToTheOverlay) {
    Open("a.txt", "30\t120\n");
    WriteFile("more.txt", "50\t10\nbad 9\n");
    Expect("1 non-data");
    Expect("1 invalid data");
    OpenPlotFile(kOverlayCommand, WriteFile("b.txt", "/Xmore.txt\n40\t100\n"));
    EXPECT_EQ(ActiveRecord().OverlayFiles[1].size(), 2U);
    EXPECT_EQ(ActiveRecord().MainFiles.size(), 1U);
    EXPECT_EQ(ActiveRecord().PlotTitle, "a.txt: 1 + b.txt + more.txt");
}

TEST_F(OpenPlot, TheFileDialogStartsWhereTheLastFileWas) {
    prompts.QueueOpenPath(WriteFile("a.txt", "30\t120\n"));
    EXPECT_EQ(OpenPlotFile(kNewCommand), kNewCommand);
    EXPECT_EQ(gSettings.files.lastFolder, folder.string());
    EXPECT_EQ(OpenPlotFile(kNewCommand), kLoadError) << "cancelled with a plot open";
    EXPECT_EQ(CountOpenPlots(), 1);
    Expect("The indicated file cannot be opened");
    OpenPlotFile("File/no/such/file.txt");
    EXPECT_EQ(gSettings.files.lastFolder, folder.string());
}

TEST_F(OpenPlot, CancellingTheFileDialogWithNoPlotMakesABlankOne) {
    EXPECT_EQ(OpenPlotFile(kNewCommand), kBlankCommand);
    EXPECT_EQ(ActiveRecord().PlotTitle, "Plot 1: Untitled");
}

TEST_F(OpenPlot, AKindThatWasAskedForServesOnePlotAndOutlivesWhatIsCancelled) {
    OpenPlotFile(kBlankCommand);
    gPlotKind = kEqualAngle;
    EXPECT_EQ(OpenPlotFile(kNewCommand), kLoadError);
    EXPECT_EQ(gPlotKind, kEqualAngle);
    AcceptFormat({}, 0);
    EXPECT_EQ(Open("a.txt", "30\t120\n"), kLoadError);
    EXPECT_EQ(gPlotKind, kEqualAngle);
    AcceptFormat({}, 1);
    EXPECT_EQ(Open("a.txt", "30\t120\n"), kNewCommand);
    EXPECT_EQ(ActiveRecord().PlotKind, kEqualAngle);
    EXPECT_EQ(gPlotKind, kEqualArea);
}

TEST_F(OpenPlot, EncodingsAndHashLinesEndToEnd) {
    gFileNonNumericAppended = true;
    gFileColumnSettings[kSlotText] = 2;
    Expect("The following line of invalid orientation data", Button::Ignore);
    Expect("1 non-data");
    Open("latin.txt", "# note\n# 1 2\t3\t4\n30\t120\tgr\xe8s\n");
    EXPECT_EQ(gAppText(gActivePlot, 3), "gr\xc3\xa8s");
    EXPECT_EQ(LastLoad().invalidLines, 1);
    Open("marked.txt", "\xef\xbb\xbf"
                       "30\t120\tgr\xc3\xa8s\n");
    EXPECT_EQ(Dip(1), 30);
    EXPECT_EQ(gAppText(gActivePlot, 1), "gr\xc3\xa8s");
}

TEST_F(OpenPlot, AFailureOfTheProgramEndsTheLoadAndKeepsTheRows) {
    bool failed = false;
    prompts.OnBox([&failed](const ShownBox&) {
        if (!failed) {
            failed = true;
            throw std::runtime_error("the disk is on fire");
        }
    });
    Expect("The following line of invalid orientation data", Button::Ignore);
    Expect("the disk is on fire\nafter 1 valid new data have been loaded.");
    EXPECT_EQ(Open("a.txt", "30\t120\n99\t1\n40\t130\n"), kNewCommand);
    EXPECT_EQ(ActiveRecord().NumValidData, 1);
    EXPECT_FALSE(gBusy);
    EXPECT_EQ(status.BusyDepth(), 0);
}

TEST_F(OpenPlot, TooManyPlotsAreTold) {
    gMaxPlots = 1;
    OpenPlotFile(kBlankCommand);
    Expect("You have too many plot windows already open");
    EXPECT_EQ(OpenPlotFile(kBlankCommand), kLoadError);
    EXPECT_EQ(gActivePlot, 1);
}

TEST_F(OpenPlot, TheFileCommandTakesAPathWithBlanks) {
    const std::string path = WriteFile("my beds \xc3\xa9.txt", "30\t120\n");
    EXPECT_EQ(OpenPlotFile("File" + path), kNewCommand);
    EXPECT_EQ(ActiveRecord().FileTitle, "my beds \xc3\xa9.txt");
}

TEST_F(OpenPlot, AnAbortedOverlayOrMergeLeavesNoTraceOfItsFile) {
    Open("a.txt", "30\t120\n45\t270\n");
    const std::string title = ActiveRecord().PlotTitle;
    for (const char* command : {kOverlayCommand, kMergeCommand}) {
        Expect("The following line of invalid orientation data", Button::Abort);
        EXPECT_EQ(OpenPlotFile(command, WriteFile("b.txt", "130\t20\n140\t30\n")), kLoadError);
        const PlotRecord& record = ActiveRecord();
        EXPECT_EQ(record.PlotTitle, title) << command;
        EXPECT_EQ(record.NumFiles, 1) << command;
        EXPECT_EQ(record.OverlayRows[kOverlayCount], 0) << command;
        EXPECT_EQ(record.NumLoadedData, 2) << command;
        EXPECT_EQ(record.Modified, 0) << command;
        EXPECT_EQ(TableOf(gActivePlot).size(), 2U) << command;
    }
    EXPECT_EQ(status.Text(), "2 data in " + title) << "no step is under way";
}

} // namespace
} // namespace quandrel
