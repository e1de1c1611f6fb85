// SPDX-License-Identifier: MIT
//
// Both texts of small roses, with numbers worked out by hand or with complex moments.

#include "core/plot_store.h"
#include "rose/circular_statistics.h"
#include "rose/rose_plot.h"
#include "rose/rose_radii.h"
#include "rose/rose_sectors.h"
#include "rose/rose_statistics_texts.h"
#include "rose/rose_tables.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <limits>

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

/// The text contains this line.
::testing::AssertionResult HasLine(const std::string& text, const std::string& line) {
    if (("\r\n" + text).find("\r\n" + line + "\r\n") != std::string::npos) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << "no line '" << line << "' in\n" << text;
}

class RoseStatisticsTexts : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gRoseOddAsked = false;
    }

    void NewRose(std::int16_t kind, int type = kRoseFrequency) {
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kind;
        NewPlot();
        PlotRecord& record = ActiveRecord();
        record.PlotKind = kRose;
        record.RoseType = static_cast<std::int16_t>(type);
        record.RoseSectorSize = 10;
        record.RoseScaleType = "tick5";
    }

    static void AddRows(const std::vector<std::int32_t>& azimuths) {
        for (const std::int32_t azimuth : azimuths) {
            AddRow(0, azimuth);
        }
    }

    static void AddNumbers(const std::vector<float>& numbers, const std::string& name) {
        ActiveRecord().HasAppendedNumeric = kTrue;
        ActiveRecord().AppNumName = name;
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
        std::int32_t row = 0;
        for (const float number : numbers) {
            gAppNumeric.At(gActivePlot, ++row) = number;
        }
    }

    static void AddTexts(const std::vector<std::string>& texts) {
        ActiveRecord().HasAppendedText = kTrue;
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Text));
        std::int32_t row = 0;
        for (const std::string& text : texts) {
            gAppText.Set(gActivePlot, ++row, text);
        }
    }

    /// Counts and computes; `ranges` holds what a drawing would note of its layers.
    static void Work(const std::vector<std::array<double, 2>>& ranges) {
        PlotRecord& record = ActiveRecord();
        ASSERT_TRUE(RoseCountSectors());
        RoseCircularStats(MeasureOfRose(record.RoseType));
        for (std::size_t layer = 0; layer < ranges.size(); ++layer) {
            record.RoseRangeB[layer] = {ranges[layer][0], ranges[layer][1]};
        }
    }
};

const std::vector<std::string> kShortOfFourLines = {
    "Axial (non-polar) data",
    "No. of Data = 4",
    "Sector angle = 10°",
    "",
    "Scale: tick interval = 5%",
    "  [0.2 data]",
    "Maximum = 50.0%  [2 data]",
    "Total No.of data = 4.00",
    "Mean Resultant dir'n  = 050-230",
    "[Bootstrap 95% Confidence interval = ±12.6°]", // 12.64 by all 256 resamples
    "  (2000 resamples; unimodal data)",
};

TEST_F(RoseStatisticsTexts, ShortOfAxialData) {
    NewRose(kLines);
    AddRows({40, 50, 50, 60});
    Work({{50, 2}});
    EXPECT_EQ(RoseStatsShort(), Lines(kShortOfFourLines));
}

// Kept: the second sum is called Sbar.
TEST_F(RoseStatisticsTexts, FullOfAxialData) {
    NewRose(kLines);
    AddRows({40, 50, 220 + 10, 60});
    Work({{50, 2}});
    // Doubled angles 80, 100, 100, 120: R1 = (1 + cos 20) / 2, R2 = (1 + cos 40) / 2.
    EXPECT_EQ(RoseStatsFull(), Lines(kShortOfFourLines)
                                   + Lines({
                                       "_________________________",
                                       "Mean Resultant dir'n  = 050.0 - 230.0",
                                       "Circ.Median = 050.0 - 230.0",
                                       "Circ.Mean Dev.about median = 5.0°",
                                       "Circ. Variance = 0.01",
                                       "Circular Std.Dev. = 7.09°",
                                       "Circ. Dispersion = 0.06",
                                       "Circ.Std Error = 0.1247",
                                       "Circ.Skewness = 0.00",
                                       "Circ.Kurtosis = -1.88",
                                       "kappa = 16.58",
                                       "(textbook: 16.84)",
                                       "     (von Mises concentration param. estimate)",
                                       "Resultant length = 3.88",
                                       "Mean Resultant length = 0.9698",
                                       "'Mean' Moments: Cbar = -0.1684; Sbar = 0.9551",
                                       "'Full' trig. sums: SumCos = -0.6736; Sbar = 3.8204",
                                       "Mean resultant of doubled angles = 0.9698",
                                       "Mean direction of doubled angles = 100",
                                       "",
                                       "Formulas follow:",
                                       "  K.V. Mardia (1972),",
                                       "    Statistics of Directional Data",
                                       "  N.I. Fisher (1993),",
                                       "    Statistical Analysis of Circular Data",
                                       "The confidence interval is by the method",
                                       "for few data, the bootstrap.",
                                   }));
}

TEST_F(RoseStatisticsTexts, OfPolarLinesHaveOneEndAndNoDoubledAngles) {
    NewRose(kPolarLines);
    AddRows({350, 10, 30});
    Work({{33.3333, 1}});
    const std::string text = RoseStatsFull();
    EXPECT_EQ(text.find("Axial"), std::string::npos);
    EXPECT_EQ(text.find("doubled"), std::string::npos);
    EXPECT_TRUE(HasLine(text, "Mean Resultant dir'n  = 010"));
    EXPECT_TRUE(HasLine(text, "Mean Resultant dir'n  = 010.0"));
    EXPECT_TRUE(HasLine(text, "Circ.Median = 010.0"));
    EXPECT_TRUE(HasLine(text, "Circ.Mean Dev.about median = 13.3°"));
    EXPECT_TRUE(HasLine(text, "Maximum = 33.3%  [1 data]"));
}

TEST_F(RoseStatisticsTexts, TellTheConfidenceIntervalByTheMethodForTheirNumber) {
    for (const int count : {25, 26}) {
        NewRose(kPolarLines);
        for (int i = 0; i < count; ++i) {
            AddRow(0, i % 2 == 0 ? 40 : 60);
        }
        Work({{50, 13}});
        const std::string text = RoseStatsShort();
        if (count == 25) {
            EXPECT_EQ(text.find("Approx."), std::string::npos);
            EXPECT_NE(text.find("\r\n[Bootstrap 95% Confidence interval = ±4."), std::string::npos)
                << text;
            EXPECT_TRUE(HasLine(text, "  (2000 resamples; unimodal data)"));
            EXPECT_TRUE(HasLine(RoseStatsFull(), "for few data, the bootstrap."));
            continue;
        }
        // R1 = cos 10, R2 = cos 20: sin = 1.9604 sqrt((1 - cos 20) / (2 cos^2 10) / 26) = 0.06779.
        EXPECT_TRUE(HasLine(text, "[Approx. 95% Confidence interval = ±3.9°]"));
        EXPECT_TRUE(HasLine(text, "  (valid only for unimodal data)"));
        EXPECT_TRUE(HasLine(RoseStatsFull(), "for large samples."));
        EXPECT_EQ(text.find("Bootstrap"), std::string::npos);
    }
}

TEST_F(RoseStatisticsTexts, TellTheTextbookBelowWhatDiffersFromIt) {
    NewRose(kLines);
    AddRows({40, 45, 50});
    Work({{33.3, 1}});
    EXPECT_TRUE(
        HasLine(RoseStatsShort(), "Mean Resultant dir'n  = 090-270\r\n(textbook: 045-225)"));
    const std::string own = RoseStatsFull();
    EXPECT_TRUE(HasLine(own, "Mean Resultant dir'n  = 090.0 - 270.0\r\n(textbook: 045.0 - 225.0)"));
    EXPECT_TRUE(HasLine(own, "Mean direction of doubled angles = 180\r\n(textbook: 090)"));
    gSettings.notation.formulas = Formulas::Textbook;
    Work({{33.3, 1}});
    const std::string textbook = RoseStatsFull();
    EXPECT_TRUE(HasLine(textbook, "Mean Resultant dir'n  = 045-225"));
    EXPECT_TRUE(HasLine(textbook, "Mean Resultant dir'n  = 045.0 - 225.0"));
    EXPECT_TRUE(HasLine(textbook, "Mean direction of doubled angles = 090"));
    EXPECT_EQ(textbook.find("(textbook:"), std::string::npos) << textbook;
}

TEST_F(RoseStatisticsTexts, HaveNoNoteWhereADirectionIsTheSameOtherwiseWritten) {
    // The program's own formula gives north as a full turn.
    for (const std::int16_t kind : {kPolarLines, kLines}) {
        NewRose(kind);
        AddRows({350, 0, 10});
        Work({{33.3, 1}});
        const std::string text = RoseStatsFull();
        EXPECT_TRUE(HasLine(text, kind == kLines ? "Mean Resultant dir'n  = 180-360"
                                                 : "Mean Resultant dir'n  = 360"))
            << text;
        EXPECT_EQ(RoseStatsShort().find("(textbook:"), std::string::npos) << text;
    }
}

TEST_F(RoseStatisticsTexts, TellWhatTheTextbookLeavesOpen) {
    NewRose(kPolarLines);
    AddRows({70, 70, 70});
    Work({{100, 3}});
    const std::string equal = RoseStatsFull();
    EXPECT_TRUE(HasLine(equal, "kappa = 0.00\r\n(textbook: infinite)"));
    EXPECT_TRUE(HasLine(equal, "Circ.Skewness = 0.00\r\n(textbook: undetermined)"));
    gSettings.notation.formulas = Formulas::Textbook;
    Work({{100, 3}});
    EXPECT_TRUE(HasLine(RoseStatsFull(), "kappa = infinite"));
    EXPECT_TRUE(HasLine(RoseStatsFull(), "Circ.Kurtosis = undetermined"));
}

TEST_F(RoseStatisticsTexts, TellTheMedianOfLeastDeviationWhereItIsAnother) {
    // From 060 the five are 66 degrees away on average, from 040 62 degrees.
    NewRose(kPolarLines);
    AddRows({20, 40, 60, 150, 240});
    Work({{20, 1}});
    const std::string own = RoseStatsFull();
    EXPECT_TRUE(HasLine(own, "Circ.Median = 060.0\r\n(textbook: 040.0)")) << own;
    EXPECT_TRUE(HasLine(own, "Circ.Mean Dev.about median = 66.0°\r\n(textbook: 62.0°)")) << own;
    gSettings.notation.formulas = Formulas::Textbook;
    Work({{20, 1}});
    const std::string textbook = RoseStatsFull();
    EXPECT_TRUE(HasLine(textbook, "Circ.Median = 040.0")) << textbook;
    EXPECT_TRUE(HasLine(textbook, "Circ.Mean Dev.about median = 62.0°")) << textbook;
}

TEST_F(RoseStatisticsTexts, OppositeRowsHaveUndeterminedDirections) {
    NewRose(kLines);
    AddRows({20, 110});
    Work({{50, 1}});
    EXPECT_TRUE(HasLine(RoseStatsShort(), "Mean Resultant dir'n  = undetermined"));
    EXPECT_EQ(RoseStatsShort().find("Confidence"), std::string::npos);
    const std::string text = RoseStatsFull();
    EXPECT_TRUE(HasLine(text, "Circ.Median = undetermined"));
    EXPECT_TRUE(HasLine(text, "Circ.Mean Dev.about median = undetermined"));
    EXPECT_TRUE(HasLine(text, "Mean direction of doubled angles = undetermined"));
    EXPECT_EQ(ActiveRecord().RoseMeanDir[kOfAngles], 0);
}

TEST_F(RoseStatisticsTexts, HalveTheConfidenceIntervalOfAxialData) {
    NewRose(kLines);
    for (int i = 0; i < 26; ++i) {
        AddRow(0, i % 2 == 0 ? 45 : 55);
    }
    Work({{50, 13}});
    EXPECT_TRUE(HasLine(RoseStatsShort(), "[Approx. 95% Confidence interval = ±1.9°]"));
}

TEST_F(RoseStatisticsTexts, TellOfBiasCorrectedDataBothTotals) {
    NewRose(kPolarLines);
    PlotRecord& record = ActiveRecord();
    record.RoseBiasMode = 2;
    record.RoseSampleTrend = 0;
    record.RoseMinBiasAngle = 5;
    AddRows({90, 30});
    Work({{66.6667, 2}});
    const std::string text = RoseStatsShort();
    // Weights 1 / sin 90 and 1 / sin 30.
    EXPECT_TRUE(HasLine(text, "Observed no. of Data = 2"));
    EXPECT_TRUE(HasLine(text, "(Bias-corrected total = 3.00)"));
    EXPECT_TRUE(HasLine(text, "Total No.of data = 3.00"));
}

TEST_F(RoseStatisticsTexts, TellOfGroupedDataAndApproximateDeviations) {
    NewRose(kPolarLines);
    AddRows({5, 15, 25});
    AddNumbers({1, 4, 2}, "count");
    ActiveRecord().HasFrequencyColumn = kTrue;
    Work({{57.1, 4}});
    EXPECT_TRUE(HasLine(RoseStatsShort(), "No. of Data = 7 (grouped)"));
    EXPECT_TRUE(HasLine(RoseStatsFull(), "Approx.Circ.Mean Dev. = 4.3°"));
}

TEST_F(RoseStatisticsTexts, CountTheRowsWithoutAValue) {
    NewRose(kPolarLines, kRoseValue);
    AddRows({10, 20, 30, 40});
    AddNumbers({1, kInvalidNumber, 3, 4}, "length");
    Work({{50, 4}});
    EXPECT_TRUE(HasLine(RoseStatsShort(), "1 row without a valid value left out"));
    AddNumbers({1, kInvalidNumber, 3, kInvalidNumber}, "length");
    Work({{75, 3}});
    EXPECT_TRUE(HasLine(RoseStatsShort(), "2 rows without a valid value left out"));
    AddNumbers({1, 2, 3, 4}, "length");
    Work({{40, 4}});
    EXPECT_EQ(RoseStatsShort().find("left out"), std::string::npos);
}

TEST_F(RoseStatisticsTexts, OfValuesAreInTheirUnit) {
    NewRose(kPolarLines, kRoseValue);
    AddRows({10, 20});
    AddNumbers({1.5, 2.5}, "length of vein in metres");
    Work({{62.5, 2.5}});
    const std::string text = RoseStatsShort();
    EXPECT_TRUE(HasLine(text, "  [0.2: length of ve]"));
    EXPECT_TRUE(HasLine(text, "Maximum = 62.5%  [2.5: length of ve]"));
    EXPECT_TRUE(HasLine(text, "Total length of ve = 4.00"));
}

TEST_F(RoseStatisticsTexts, WeighTheResultantOfValuesByTheValues) {
    NewRose(kPolarLines, kRoseValue);
    AddRows({0, 90});
    AddNumbers({3, 4}, "length");
    Work({{57.1, 4}});
    const std::string text = RoseStatsFull();
    EXPECT_TRUE(HasLine(text, "Resultant length = 5.00"));
    EXPECT_TRUE(HasLine(text, "Mean Resultant length = 0.7143"));
    EXPECT_TRUE(HasLine(text, "'Full' trig. sums: SumCos = 3.0; Sbar = 4.0"));
}

TEST_F(RoseStatisticsTexts, OfAnOverlaidWindRoseTellEachLayer) {
    NewRose(kPolarLines, kRoseOverlaidWind);
    AddRows({10, 20});
    AddNumbers({3, 1}, "Wind frequency");
    AddTexts({"2", "4"});
    Work({{72.7273, 64}, {66.6667, 4}, {75, 3}});
    const std::string text = RoseStatsShort();
    EXPECT_TRUE(HasLine(text, "Top Plot [ Wind Energy]"));
    EXPECT_TRUE(HasLine(text, "  [4.4: Energy]")); // 5 % of 8 x 3 + 64 x 1
    EXPECT_TRUE(HasLine(text, "Maximum = 72.7%  [64: Energy]"));
    EXPECT_TRUE(HasLine(text, "Total Energy = 88.00"));
    const std::string below = Lines({
        "Middle plot [Mean Wind Speed]",
        "  (sum of speeds/sector)",
        "Maximum = 66.7%  [4: Speed]",
        "Base plot [Mean Wind Frequency]",
        "Maximum = 75.0%  [3: Wind freq]",
    });
    EXPECT_TRUE(text.ends_with(below)) << text;
}

TEST_F(RoseStatisticsTexts, OfOverlaidValuesTellTheBase) {
    NewRose(kPolarLines, kRoseValueOverFrequency);
    AddRows({10, 20});
    AddNumbers({3, 1}, "length");
    Work({{75, 3}, {50, 1}});
    const std::string overFrequency = RoseStatsShort();
    EXPECT_TRUE(HasLine(overFrequency, "Top Plot [ length]"));
    EXPECT_TRUE(HasLine(overFrequency, "Maximum = 75.0%  [3: length]"));
    EXPECT_TRUE(overFrequency.ends_with(
        Lines({"Base plot [Data Frequency]", "Maximum = 50.0%  [1 data]"})));
    ActiveRecord().RoseType = kRoseValueOverMean;
    Work({{75, 3}, {75, 3}});
    EXPECT_TRUE(RoseStatsShort().ends_with(
        Lines({"Base plot [Mean length]", "Maximum = 75.0%  [3: length]"})));
}

TEST_F(RoseStatisticsTexts, OfMeansTellNoDirection) {
    NewRose(kPolarLines, kRoseMeanValue);
    AddRows({10, 20});
    AddNumbers({3, 1}, "length");
    Work({{75, 3}});
    const std::string text = RoseStatsFull();
    EXPECT_EQ(text.find("Mean Resultant"), std::string::npos);
    EXPECT_EQ(text.find("Circ."), std::string::npos);
    EXPECT_NE(text.find("Total length = 4.00\r\n  (sum of the means of the sectors)\r\n"),
              std::string::npos);
    EXPECT_TRUE(text.ends_with("(no circular statistics of this kind of rose)\r\n"));
}

TEST_F(RoseStatisticsTexts, OfDeviationsSayThatTheyAreDeviations) {
    NewRose(kPolarLines, kRoseVariance);
    AddRows({10, 10, 20});
    AddNumbers({3, 1, 7}, "length");
    Work({{100, 1.4142}});
    // The deviation of 3 and 1; one row alone has none.
    EXPECT_NE(RoseStatsShort().find(
                  "Total length = 1.41\r\n  (sum of the standard deviations of the sectors)\r\n"),
              std::string::npos)
        << RoseStatsShort();
    ActiveRecord().RoseType = kRoseValue;
    Work({{100, 11}});
    EXPECT_EQ(RoseStatsShort().find("(sum of"), std::string::npos);
}

TEST_F(RoseStatisticsTexts, SayThatValuesOfBothSignsHaveNoStatistics) {
    NewRose(kPolarLines, kRoseValue);
    AddRows({0, 90});
    AddNumbers({3, -1}, "length"); // (3, -1) over 2 is longer than 1
    Work({{150, 3}});
    const char* const line = "(no circular statistics: values of both signs)";
    EXPECT_TRUE(HasLine(RoseStatsShort(), line));
    EXPECT_TRUE(RoseStatsFull().ends_with(std::string(line) + "\r\n"));
    EXPECT_EQ(RoseStatsFull().find("Mean Resultant"), std::string::npos);
    EXPECT_EQ(RoseStatsFull().find("of this kind"), std::string::npos);
}

TEST_F(RoseStatisticsTexts, TellSectorAnglesWithTheirDecimals) {
    AddRow(0, 5);
    for (const auto& [size, text] : {std::pair{40.0, "40°"},
                                     {22.5, "22.5°"},
                                     {7.2, "7.2°"},
                                     {11.25, "11.25°"},
                                     {360.0 / 7, "51.43°"}}) {
        ActiveRecord().RoseSectorSize = size;
        Work({{100, 1}});
        EXPECT_TRUE(HasLine(RoseStatsShort(), std::string("Sector angle = ") + text)) << size;
    }
}

TEST_F(RoseStatisticsTexts, SayThatTheMedianWasNotCalculated) {
    NewRose(kPolarLines);
    for (int i = 0; i < 2001; ++i) {
        AddRow(0, i % 90);
    }
    Work({{11.5, 230}});
    ActiveRecord().RoseMedian = 0; // skipped in a file of an earlier version
    const std::string lines = Lines({
        "Circ.Median = not calculated",
        "Circ.Mean Dev.about median = not calculated",
        "(Not calculated if too many data, or data are",
        "axial (non-polar), and too coarsely grouped",
        "Circ. Variance = 0.10",
    });
    EXPECT_NE(RoseStatsFull().find("\r\n" + lines), std::string::npos) << RoseStatsFull();
}

TEST_F(RoseStatisticsTexts, WriteFailedNumbersAsTheyStand) {
    NewRose(kPolarLines);
    AddRows({0, 180});
    Work({{50, 1}});
    EXPECT_TRUE(HasLine(RoseStatsFull(), "Circ. Dispersion = 99999.00"));
    EXPECT_TRUE(HasLine(RoseStatsFull(), "Circular Std.Dev. = 180.00°"));
}

} // namespace
} // namespace quandrel
