// SPDX-License-Identifier: MIT
//
// Both texts of small plots, with numbers worked out by hand.

#include "core/plot_store.h"
#include "core/plot_texts.h"
#include "core/replot.h"
#include "orientation/angles.h"
#include "statistics/fabric_statistics.h"
#include "statistics/statistics_texts.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

/// The lines of a text, each ended by CR LF.
std::string Lines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + "\r\n";
    }
    return text;
}

class StatisticsTexts : public EngineTest {
protected:
    void NewPlotOf(std::int16_t kind) {
        gPrimaryDataType = kind == kPlanes ? kPrimaryPlane : kPrimaryLine;
        gPlotDataKind = kind;
        NewPlot();
    }

    /// Lines with the tensor diag(1/8, 1/4, 5/8) and the resultant (0, 1, 2.7321) of length 2.9093.
    void AddFourLines() {
        AddRow(60, 0);
        AddRow(60, 180);
        AddRow(90, 0);
        AddRow(0, 90);
        ComputeFabricStatistics();
    }

    /// The text contains this line.
    static ::testing::AssertionResult HasLine(const std::string& text, const std::string& line) {
        if (("\r\n" + text).find("\r\n" + line + "\r\n") != std::string::npos) {
            return ::testing::AssertionSuccess();
        }
        return ::testing::AssertionFailure() << "no line '" << line << "' in\n" << text;
    }

    /// Gives the rows of the active plot appended numbers.
    static void Append(const std::vector<float>& numbers) {
        ActiveRecord().HasAppendedNumeric = kTrue;
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
        std::int32_t row = 0;
        for (const float number : numbers) {
            gAppNumeric.At(gActivePlot, ++row) = number;
        }
    }
};

TEST_F(StatisticsTexts, NormalTextOfLines) {
    NewPlotOf(kLines);
    AddFourLines();
    EXPECT_EQ(StatsBoxText(), Lines({
                                  "No. of Data = 4",
                                  "Mean Principal Orientation = 90-000",
                                  "Mean Resultant dir'n = 70-090",
                                  "Mean Resultant length = 0.73",
                                  "         (Variance = 0.27)",
                                  "Calculated. girdle: 90/180",
                                  "Calculated beta axis: 0-000",
                                  "(planes as Dip,Dip Dir'n; lines as Plunge,Trend)",
                                  "",
                              }));
}

TEST_F(StatisticsTexts, AdvancedTextOfLines) {
    NewPlotOf(kLines);
    AddFourLines();
    // m4 = 17/32: the standard error is sqrt(0.09375/4) / 0.375, the cone arcsin(1.731 * 0.40825).
    EXPECT_EQ(FabricBoxText(),
              Lines({
                  "Principal Eigenvector: 90.00 - 0.00 (plunge - trend)",
                  "(i.e. normal to plane dipping: 0.00 - 180.00 (dip - dip dir'n))",
                  "Spherical standard error: 0.408",
                  "95% conf. cone semi-angle: 44.97°",
                  "(textbook: 44.96°)", // sqrt(-ln 0.05) is 1.7308
                  "",
                  "Mean Direction:  90.00 - 69.90 (trend - plunge)",
                  "Mean Resultant = 0.727",
                  "('Variance' = 0.273)",
                  "E2-E3 (girdle) plane: 90.00 - 180.00 (dip - dip dir'n)",
                  "",
                  "\t\t\t(Normalised)",
                  " Eigenvectors\t\t(Eigenvalue)",
                  "1.000\t0.000\t0.000\t0.500 (0.125)",
                  "0.000\t1.000\t0.000\t1.000 (0.250)",
                  "0.000\t0.000\t1.000\t2.500 (0.625)",
                  "Shape parameter, gamma = 1.32",
                  "Strength parameter, zeta   = 1.61",
                  "Eigenvalue log ratios:",
                  "(E2/E1\t|    E3/E2)",
                  "0.69 \t|      0.92",
              }));
}

TEST_F(StatisticsTexts, PlanesAreToldByTheirPoles) {
    // Planes with the poles of the four lines.
    NewPlotOf(kPlanes);
    AddRow(30, 180);
    AddRow(30, 0);
    AddRow(0, 180);
    AddRow(90, 270);
    ComputeFabricStatistics();
    const std::string ofPlanes = StatsBoxText();
    const std::string advanced = FabricBoxText();
    NewPlotOf(kLines);
    AddFourLines();
    EXPECT_EQ(ofPlanes, StatsBoxText());
    EXPECT_EQ(advanced, FabricBoxText());
}

TEST_F(StatisticsTexts, PolarLinesAreToldWithTheirSense) {
    NewPlotOf(kPolarLines);
    // Twice down and once up by 30 toward north, where the upward one has its lower end in the
    // south: the resultant is (3 cos 30, 0, sin 30), of length sqrt(7), and plunges
    // arctan(sqrt(3)/9) = 10.89. As axes the three have the tensor diag(3/4, 0, 1/4) but for
    // lm = sqrt(3)/12, and an axis at half of arctan(1/sqrt(3)) below the horizontal.
    AddRow(30, 0);
    AddRow(30, 0);
    AddRow(-30, 180);
    ComputeFabricStatistics();
    const std::string text = StatsBoxText();
    EXPECT_TRUE(HasLine(text, "Mean Principal Direction = 15-000"));
    EXPECT_TRUE(HasLine(text, "Mean Resultant dir'n = 11-000"));
    EXPECT_TRUE(HasLine(text, "Mean Resultant length = 0.88"));
    EXPECT_TRUE(HasLine(text, "         (Variance = 0.12)"));
    const std::string advanced = FabricBoxText();
    EXPECT_TRUE(HasLine(advanced, "Principal Eigenvector: 15.00 - 0.00 (plunge - trend)"));
    EXPECT_TRUE(
        HasLine(advanced, "(i.e. normal to plane dipping: 75.00 - 180.00 (dip - dip dir'n))"));
    EXPECT_TRUE(HasLine(advanced, "Mean Direction:  0.00 - 10.89 (trend - plunge)"));
    EXPECT_TRUE(HasLine(advanced, "Mean Resultant = 0.882"));
    EXPECT_TRUE(HasLine(advanced, "('Variance' = 0.118)"));
}

TEST_F(StatisticsTexts, AnUpwardMeanHasANegativePlunge) {
    NewPlotOf(kPolarLines);
    AddRow(-30, 120);
    AddRow(-30, 120);
    ComputeFabricStatistics();
    EXPECT_TRUE(HasLine(StatsBoxText(), "Mean Resultant dir'n = -30-120"));
    EXPECT_TRUE(HasLine(FabricBoxText(), "Mean Direction:  120.00 - -30.00 (trend - plunge)"));
}

TEST_F(StatisticsTexts, AMeanThatIsLevelAsPrintedHasTheTrendThatItPointsTo) {
    NewPlotOf(kPolarLines);
    // The mean rises by arctan(tan(1)/3) = 0.33 toward 040, and its lower end lies toward 220.
    AddRow(0, 40);
    AddRow(0, 40);
    AddRow(-1, 220);
    ComputeFabricStatistics();
    EXPECT_TRUE(HasLine(StatsBoxText(), "Mean Resultant dir'n = 0-040"));
    EXPECT_TRUE(HasLine(FabricBoxText(), "Mean Direction:  220.00 - -0.33 (trend - plunge)"));
}

TEST_F(StatisticsTexts, AMeanWithoutDirectionIsUndetermined) {
    NewPlotOf(kPolarLines);
    AddRow(30, 10);
    AddRow(-30, 10);
    ComputeFabricStatistics();
    EXPECT_TRUE(HasLine(StatsBoxText(), "Mean Resultant dir'n = undetermined"));
    EXPECT_TRUE(HasLine(StatsBoxText(), "Mean Resultant length = 0.00"));
    EXPECT_TRUE(HasLine(FabricBoxText(), "Mean Direction:  undetermined"));
}

TEST_F(StatisticsTexts, OneRowPrintsWhatFailed) {
    NewPlotOf(kLines);
    AddRow(40, 200);
    ComputeFabricStatistics();
    const std::string text = FabricBoxText();
    EXPECT_TRUE(HasLine(text, "Spherical standard error: 99999.000"));
    EXPECT_TRUE(HasLine(text, "Shape parameter, gamma = 99999.00"));
    EXPECT_TRUE(HasLine(text, "Strength parameter, zeta   = 99999.00"));
    EXPECT_TRUE(HasLine(text, "99999.00 \t|      99999.00"));
    EXPECT_TRUE(HasLine(text, "Principal Eigenvector: 40.00 - 200.00 (plunge - trend)"));
    EXPECT_TRUE(HasLine(StatsBoxText(), "No. of Data = 1"));
}

TEST_F(StatisticsTexts, VerticalRowsOfDifferentTrendsHaveTheTrendOfNorth) {
    NewPlotOf(kLines);
    AddRow(90, 0);
    AddRow(90, 120);
    AddRow(90, 250);
    ComputeFabricStatistics();
    EXPECT_TRUE(HasLine(StatsBoxText(), "Mean Principal Orientation = 90-000"));
    EXPECT_TRUE(HasLine(StatsBoxText(), "Mean Resultant dir'n = 90-000"));
    EXPECT_TRUE(HasLine(FabricBoxText(), "Mean Direction:  0.00 - 90.00 (trend - plunge)"));
}

// Kept: a standard error that is too large for a cone.
TEST_F(StatisticsTexts, AnErrorTooLargeForAConeHasASemiAngleOf90) {
    NewPlotOf(kLines);
    // Three lines about the vertical, s = sin^2 38 = 0.379: the standard error is
    // sqrt((s - s^2) / 3) / (s - (1 - s) / 2) = 4.086.
    AddRow(38, 0);
    AddRow(38, 120);
    AddRow(38, 240);
    ComputeFabricStatistics();
    EXPECT_TRUE(HasLine(FabricBoxText(), "Spherical standard error: 4.086"));
    EXPECT_TRUE(HasLine(FabricBoxText(), "95% conf. cone semi-angle: 90.00°"));
    NewPlotOf(kLines);
    AddRow(40, 200); // the error of a single row fails
    ComputeFabricStatistics();
    EXPECT_TRUE(HasLine(FabricBoxText(), "Spherical standard error: 99999.000"));
    EXPECT_TRUE(HasLine(FabricBoxText(), "95% conf. cone semi-angle: 90.00°"));
}

TEST_F(StatisticsTexts, AnUnsymmetricDistributionHasNoCone) {
    NewPlotOf(kLines);
    // Tensor diag(0, 1/3, 2/3), m4 = 2/3: the statistic is 2 * 60 / 9 = 13.3.
    for (int i = 0; i < 20; ++i) {
        AddRow(90, 0);
        AddRow(90, 0);
        AddRow(0, 90);
    }
    ComputeFabricStatistics();
    const std::string text = FabricBoxText();
    EXPECT_NE(text.find("\r\n(non-symmetric distribution)\r\n\r\nMean Direction:"),
              std::string::npos);
    EXPECT_EQ(text.find("standard error"), std::string::npos);
    EXPECT_EQ(text.find("cone"), std::string::npos);
}

TEST_F(StatisticsTexts, WithoutAValidRowOnlyTheNumberIsTold) {
    NewPlotOf(kLines);
    EXPECT_EQ(StatsBoxText(), Lines({"No. of Data = 0"}));
    EXPECT_EQ(FabricBoxText(), Lines({"No. of Data = 0"})) << "the box stays";
    AddRow(kErrorRow, 0);
    ComputeFabricStatistics();
    EXPECT_EQ(StatsBoxText(), Lines({"No. of Data = 0"}));
    EXPECT_EQ(FabricBoxText(), Lines({"No. of Data = 0"})) << "the box stays";
}

TEST_F(StatisticsTexts, TheTextbookIsToldBelowWhatDiffersFromIt) {
    NewPlotOf(kLines);
    // Four steep lines, three times as far apart to north and south as to east and west.
    AddRow(78, 0);
    AddRow(78, 180);
    AddRow(86, 90);
    AddRow(86, 270);
    for (int i = 0; i < 8; ++i) {
        AddRow(78, i % 2 == 0 ? 0 : 180);
    }
    ComputeFabricStatistics();
    const std::string own = FabricBoxText();
    EXPECT_NE(own.find("\r\nSpherical standard error: 0."), std::string::npos) << own;
    EXPECT_NE(own.find("°\r\n(textbook: non-symmetric distribution)\r\n\r\nMean Direction:"),
              std::string::npos)
        << own;
    gSettings.notation.formulas = Formulas::Textbook;
    ComputeFabricStatistics();
    const std::string textbook = FabricBoxText();
    EXPECT_NE(textbook.find("\r\n(non-symmetric distribution)\r\n\r\nMean Direction:"),
              std::string::npos)
        << textbook;
    EXPECT_EQ(textbook.find("(textbook:"), std::string::npos) << textbook;
}

TEST_F(StatisticsTexts, OneRowIsUndeterminedInTheTextbook) {
    NewPlotOf(kLines);
    AddRow(40, 200);
    ComputeFabricStatistics();
    const std::string own = FabricBoxText();
    EXPECT_TRUE(HasLine(own, "Spherical standard error: 99999.000\r\n(textbook: undetermined)"));
    EXPECT_TRUE(HasLine(own, "95% conf. cone semi-angle: 90.00°\r\n(textbook: undetermined)"));
    EXPECT_TRUE(HasLine(own, "Shape parameter, gamma = 99999.00\r\n(textbook: undetermined)"));
    gSettings.notation.formulas = Formulas::Textbook;
    ComputeFabricStatistics();
    const std::string textbook = FabricBoxText();
    EXPECT_TRUE(HasLine(textbook, "Spherical standard error: undetermined"));
    EXPECT_TRUE(HasLine(textbook, "95% conf. cone semi-angle: undetermined"));
    EXPECT_TRUE(HasLine(textbook, "Strength parameter, zeta   = undetermined"));
    EXPECT_EQ(textbook.find("99999"), std::string::npos) << textbook;
    EXPECT_EQ(ActiveRecord().FabricValueC, 99999) << "fields keep their number";
}

TEST_F(StatisticsTexts, DirectionsThatTheDataLeaveOpenAreUndetermined) {
    NewPlotOf(kLines);
    AddRow(40, 200);
    AddRow(40, 200);
    ComputeFabricStatistics();
    const std::string equal = StatsBoxText();
    EXPECT_TRUE(HasLine(equal, "Mean Principal Orientation = 40-200"));
    EXPECT_TRUE(HasLine(equal, "Calculated. girdle: undetermined"));
    EXPECT_TRUE(HasLine(equal, "Calculated beta axis: undetermined"));
    const std::string advanced = FabricBoxText();
    EXPECT_TRUE(HasLine(advanced, "E2-E3 (girdle) plane: undetermined"));
    EXPECT_TRUE(HasLine(advanced, "undetermined\t\t0.000 (0.000)"));
    NewPlotOf(kLines);
    AddRow(0, 0);
    AddRow(0, 90);
    ComputeFabricStatistics();
    EXPECT_TRUE(HasLine(StatsBoxText(), "Mean Principal Orientation = undetermined"));
    EXPECT_TRUE(HasLine(FabricBoxText(), "Principal Eigenvector: undetermined"));
    EXPECT_TRUE(HasLine(FabricBoxText(), "(i.e. normal to plane dipping: undetermined)"));
}

TEST_F(StatisticsTexts, ARoseHasNoneOfIt) {
    NewPlotOf(kLines);
    AddFourLines();
    ActiveRecord().PlotKind = kRose;
    EXPECT_EQ(StatsBoxText(), Lines({"No. of Data = 4"}));
    EXPECT_EQ(FabricBoxText(), "");
}

TEST_F(StatisticsTexts, TheNotationInForceIsUsed) {
    NewPlotOf(kLines);
    AddFourLines();
    gConventions = 10 + kDipDirectionDip;
    gLineSeparator = "-";
    gPlaneSeparator = ":";
    EXPECT_TRUE(HasLine(StatsBoxText(), "(planes as Dip Dir'n,Dip; lines as Trend,Plunge)"));
    EXPECT_TRUE(HasLine(StatsBoxText(), "Mean Resultant dir'n = 090-70"));
    EXPECT_TRUE(HasLine(StatsBoxText(), "Calculated. girdle: 180:90"));
    gConventions = -kStrikeDipSense;
    EXPECT_TRUE(HasLine(StatsBoxText(), "Mean Resultant dir'n = 70-N90E"));
    EXPECT_TRUE(HasLine(StatsBoxText(), "Calculated. girdle: N90E:90S"));
}

TEST_F(StatisticsTexts, ShownGirdlesAreListed) {
    NewPlotOf(kLines);
    AddFourLines();
    PlotRecord& record = ActiveRecord();
    for (const std::size_t item : {2U, 8U, 9U}) {
        record.AxisItems[item][kItemShown] = true;
    }
    record.AxisItems[2][kItemPlunge] = DegToRad(45);
    record.AxisItems[2][kItemTrend] = DegToRad(300);
    record.AxisItems[5][kItemPlunge] = DegToRad(10); // not shown
    record.AxisItems[8][kItemPlunge] = DegToRad(20);
    record.AxisItems[8][kItemTrend] = DegToRad(10);
    const std::string text = StatsBoxText();
    EXPECT_NE(text.find("Calculated beta axis: 0-000\r\n"
                        "Girdle2: 45/120 [axis: 45-300]\r\n"
                        "Girdle8: 70/190 [axis: 20-010]\r\n"
                        "(planes as Dip,Dip Dir'n; lines as Plunge,Trend)\r\n"
                        "\r\n"),
              std::string::npos)
        << text;
    EXPECT_EQ(text.find("Girdle5"), std::string::npos);
    EXPECT_EQ(text.find("Girdle9"), std::string::npos);
}

TEST_F(StatisticsTexts, AppendedNumbersAreSummedUp) {
    NewPlotOf(kLines);
    AddFourLines();
    AddRow(kErrorRow, 0);
    AddRow(20, 20);
    // 2, 4, 4 and 7: mean 4.25, squares 5.0625 + 2 * 0.0625 + 7.5625 = 12.75, over 3 is 4.25.
    Append({2, 4, kInvalidNumber, 4, 100, 7});
    const std::string text = StatsBoxText();
    EXPECT_NE(text.find("\r\n\r\nMin.Appended value: 2\r\nMax.Appended value: 7\r\n"
                        "Mean Appended value: 4.25\r\nStdDev. of Appended values: 2.06\r\n"),
              std::string::npos)
        << text;
}

TEST_F(StatisticsTexts, AppendedNumbersOfCloseLargeValuesKeepTheirDeviation) {
    NewPlotOf(kLines);
    AddFourLines();
    Append({1000000.5F, 1000001.5F, 1000000.5F, 1000001.5F});
    const auto appended = AppendedStatisticsOfActivePlot();
    ASSERT_TRUE(appended);
    EXPECT_NEAR(appended->mean, 1000001, 1e-9);
    EXPECT_NEAR(appended->standardDeviation, std::sqrt(1.0 / 3), 1e-9);
}

TEST_F(StatisticsTexts, WithoutValidAppendedNumbersThereAreNoLines) {
    NewPlotOf(kLines);
    AddRow(10, 10);
    ComputeFabricStatistics();
    Append({kInvalidNumber});
    EXPECT_FALSE(AppendedStatisticsOfActivePlot());
    EXPECT_EQ(StatsBoxText().find("ppended"), std::string::npos);
    Append({3});
    EXPECT_TRUE(HasLine(StatsBoxText(), "StdDev. of Appended values: 0"));
}

TEST_F(StatisticsTexts, AClassGridShowsItsRanges) {
    NewPlotOf(kLines);
    AddFourLines();
    const auto slot = static_cast<std::size_t>(gActivePlot);
    ActiveRecord().GridSize = 10;
    gGridValues[slot] = std::make_unique<GridValues>();
    for (auto& layer : *gGridValues[slot]) {
        for (auto& row : layer) {
            row.fill(kUnsetValue);
        }
    }
    (*gGridValues[slot])[kMeanLayer][3][4] = 1.25;
    (*gGridValues[slot])[kMeanLayer][12][12] = 7;
    (*gGridValues[slot])[kCumulativeLayer][3][4] = 0;
    (*gGridValues[slot])[kCumulativeLayer][5][5] = 42;
    (*gGridValues[slot])[kCumulativeLayer][13][5] = 1000; // after the grid
    EXPECT_EQ(StatsBoxText().find("grid value"), std::string::npos);
    gGridCount[slot] = 1;
    EXPECT_EQ(StatsBoxText().find("grid value"), std::string::npos) << "not classified by numbers";
    ActiveRecord().ClassMode = 1;
    const std::string text = StatsBoxText();
    EXPECT_NE(text.find("\r\n______________\r\nMin. mean grid value: 1.3\r\n"
                        "Max. mean grid value: 7\r\nMin. cumulative grid value: 0\r\n"
                        "Max. cumulative grid value: 42\r\n"),
              std::string::npos)
        << text;
}

TEST_F(StatisticsTexts, AReplotWritesBothBoxesAnew) {
    NewPlotOf(kLines);
    AddFourLines();
    FormOf(gActivePlot).SetBoxText(PlotBox::StatsNormal, "edited");
    FormOf(gActivePlot).SetBoxText(PlotBox::StatsAdvanced, "edited");
    ReplotActivePlot(false);
    EXPECT_EQ(Form(gActivePlot).Told(PlotBox::StatsNormal), StatsBoxText());
    EXPECT_EQ(Form(gActivePlot).Told(PlotBox::StatsAdvanced), FabricBoxText());
    AddRow(45, 45);
    ReplotActivePlot(false);
    EXPECT_TRUE(HasLine(Form(gActivePlot).Told(PlotBox::StatsNormal), "No. of Data = 5"));
}

TEST_F(StatisticsTexts, AreKeptWithTheirPlotUntilItCloses) {
    NewPlotOf(kLines);
    const int first = gActivePlot;
    AddFourLines();
    EXPECT_EQ(StatisticsOf(PlotOf(first)).normal, "") << "nothing was worked out";
    ReplotActivePlot(true);
    const std::string normal = StatsBoxText();
    const std::string advanced = FabricBoxText();
    Form(first).SetBoxText(PlotBox::StatsNormal, "shown otherwise");
    NewPlotOf(kLines);
    ReplotActivePlot(true);
    EXPECT_EQ(StatisticsOf(PlotOf(first)).normal, normal) << "whatever its window shows";
    EXPECT_EQ(StatisticsOf(PlotOf(first)).advanced, advanced);
    EXPECT_EQ(StatisticsInUse(PlotOf(first)), normal);
    RecordOf(first).StatsBoxKind = 1;
    EXPECT_EQ(StatisticsInUse(PlotOf(first)), advanced);
    ReleasePlotSlot(first);
    EXPECT_EQ(StatisticsOf(PlotOf(first)).normal, "");
}

} // namespace
} // namespace quandrel
