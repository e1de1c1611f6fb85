// SPDX-License-Identifier: MIT

#include "class_fixture.h"
#include "classify/column_statistics.h"
#include "core/plot_store.h"
#include "core/settings_value.h"
#include "density/grid_density.h"

#include <cmath>
#include <optional>

namespace quandrel {
namespace {

class ColumnStatisticsTest : public ClassTest {};

TEST_F(ColumnStatisticsTest, CountValidNumbersOfMainRowsAlone) {
    AddValued(4, "2.5");
    AddValued(kInvalidNumber, "slate");
    AddValued(8, "7.5", kErrorRow);
    AddValued(6, "2.50");
    AddValued(4, "2,5");
    AddOverlay(kOverlayPoles, 10, 20, 50302);
    const ColumnStatistics numbers = StatisticsOfColumn(kNumberClasses);
    ASSERT_TRUE(numbers.numbers);
    EXPECT_EQ(numbers.valid, 3U);
    EXPECT_EQ(numbers.distinct, 2U);
    EXPECT_EQ(numbers.numbers->least, 4);
    EXPECT_EQ(numbers.numbers->greatest, 6);
    EXPECT_DOUBLE_EQ(numbers.numbers->mean, 14.0 / 3);
    const ColumnStatistics texts = StatisticsOfColumn(kTextNumberClasses);
    ASSERT_TRUE(texts.numbers);
    EXPECT_EQ(texts.valid, 2U);
    EXPECT_EQ(texts.distinct, 1U);
    EXPECT_EQ(texts.numbers->greatest, 2.5);
}

TEST_F(ColumnStatisticsTest, ReadTextsByTheRegionalDelimiter) {
    AddTexts({"2,5", "7", "2.5"});
    gDecimalIsComma = true;
    EXPECT_EQ(ValidNumbersOfColumn(ActivePlot(), kTextNumberClasses),
              (std::vector<double>{2.5, 7}));
    gDecimalIsComma = false;
    EXPECT_EQ(ValidNumbersOfColumn(ActivePlot(), kTextNumberClasses),
              (std::vector<double>{7, 2.5}));
}

TEST_F(ColumnStatisticsTest, CountNamesWithoutCase) {
    AddTexts({"Slate", "slate", "", "gneiss"});
    const ColumnStatistics names = StatisticsOfColumn(kNameClasses);
    EXPECT_EQ(names.valid, 3U);
    EXPECT_EQ(names.distinct, 2U);
    EXPECT_FALSE(names.numbers);
}

TEST_F(ColumnStatisticsTest, FindTheFirstDifferentTextsInRowOrder) {
    AddTexts({"b", "B", "a", ""});
    AddValued(1, "hidden", kErrorRow);
    AddTexts({"c"});
    EXPECT_EQ(DistinctTexts(false), (std::vector<std::string>{"b", "a", "c"}));
    EXPECT_EQ(DistinctTexts(true), (std::vector<std::string>{"b", "B", "a", "c"}));
    EXPECT_EQ(DistinctTexts(true, 2), (std::vector<std::string>{"b", "B"}));
}

TEST_F(ColumnStatisticsTest, AreEmptyWithoutTheColumn) {
    AddValued(3, "4");
    ActiveRecord().HasAppendedNumeric = 0;
    ActiveRecord().HasAppendedText = 0;
    EXPECT_EQ(StatisticsOfColumn(kNumberClasses).valid, 0U);
    EXPECT_EQ(StatisticsOfColumn(kTextNumberClasses).valid, 0U);
    EXPECT_EQ(StatisticsOfColumn(kNameClasses).valid, 0U);
    EXPECT_TRUE(DistinctTexts(false).empty());
}

TEST_F(ColumnStatisticsTest, GoIntoTheRecordWithTheRangesOfTheGrids) {
    gPlotDataKind = kLines;
    ActiveRecord().DataKind = kLines;
    ActiveRecord().ClassMode = 1;
    ActiveRecord().ClassStats[kGridChoice] = {1, -5};
    gSettings.gridSize = 20;
    AddNumbers({2, 4, 9}); // three rows of one place: their mean is 5, their sum 15 at every node
    ComputeGridDensity();
    UpdateClassStats();
    const auto& stats = ActiveRecord().ClassStats;
    EXPECT_EQ(stats[kRawRange][0], 2);
    EXPECT_EQ(stats[kRawRange][1], 9);
    EXPECT_DOUBLE_EQ(stats[kRawMean][0], 5);
    EXPECT_DOUBLE_EQ(stats[kRawMean][1], std::sqrt(13.0));
    EXPECT_EQ(stats[kMeansRange][0], 5);
    EXPECT_EQ(stats[kMeansRange][1], 5);
    EXPECT_EQ(stats[kCumulativeRange][0], 15);
    EXPECT_EQ(stats[kCumulativeRange][1], 15);
    EXPECT_EQ(GridValueShown(ActiveRecord()), ClassGridValue::Cumulative);
    EXPECT_EQ(GridBackground(ActiveRecord()), -5);
    gSettings.gridSize = 50;
}

TEST_F(ColumnStatisticsTest, AreZeroInTheRecordOfAPlotWithoutValues) {
    ActiveRecord().ClassStats[kRawRange] = {7, 8};
    ActiveRecord().ClassStats[kMeansRange] = {7, 8};
    UpdateClassStats();
    EXPECT_EQ(ActiveRecord().ClassStats[kRawRange][1], 0);
    EXPECT_EQ(ActiveRecord().ClassStats[kMeansRange][1], 0);
    EXPECT_EQ(GridValueShown(ActiveRecord()), ClassGridValue::Mean);
}

TEST_F(ColumnStatisticsTest, HaveNoBackgroundWhereItIsUnset) {
    ActiveRecord().ClassStats[kGridChoice][kBackground] = kUnsetValue;
    EXPECT_EQ(GridBackground(ActiveRecord()), std::nullopt);
}

TEST_F(ColumnStatisticsTest, TypesAreAlikeButForCaseInAnyAlphabet) {
    AddTexts({"Élite", "élite", "ÉLITE", "Яшма", "яшма"});
    EXPECT_EQ(DistinctTexts(false), (std::vector<std::string>{"Élite", "Яшма"}));
    EXPECT_EQ(DistinctTexts(true).size(), 5U);
    EXPECT_EQ(StatisticsOfColumn(kNameClasses).distinct, 2U);
}

} // namespace
} // namespace quandrel
