// SPDX-License-Identifier: MIT
//
// Which rows of a plot can be tested.

#include "classify/classification.h"
#include "core/data_format.h"
#include "core/settings_value.h"
#include "hypotheses/row_sets.h"
#include "hypotheses/test_form.h"
#include "rose/azimuth_tests.h"
#include "rose/rose_tables.h"
#include "support/measured_plots.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class RowSets : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        BuildStyleTables();
        AddPlot("folds");
    }

    int AddPlot(const std::string& title, std::int16_t kind = kLines) {
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kind;
        const int slot = NewPlot();
        ActiveRecord().PlotTitle = title;
        ActiveRecord().PlotKind = kEqualArea;
        ActiveRecord().DataKind = kind;
        for (int i = 0; i < 6; ++i) {
            AddRow(10 * i, 30 * i);
        }
        return slot;
    }

    static TestSample Sample(const RowSetId& id) {
        for (const RowSet& set : RowSetsOf(ActivePlot())) {
            if (set.id == id) {
                return TestSampleOf(ActivePlot(), gSettings.styles, set);
            }
        }
        ADD_FAILURE() << "no such set";
        return {};
    }

    static std::vector<std::string> Names(const std::vector<RowSetEntry>& entries) {
        std::vector<std::string> names;
        for (const RowSetEntry& entry : entries) {
            names.push_back(entry.name);
        }
        return names;
    }
};

TEST_F(RowSets, OfANetAreMainRowsAndOverlays) {
    AddOverlay(kOverlayLines, 20, 40, CodeOfStyleRow(1));
    AddOverlay(kOverlayPolarLines, -30, 50, CodeOfStyleRow(2));
    const auto sets = RowSetsOf(ActivePlot());
    ASSERT_EQ(sets.size(), 3U);
    EXPECT_EQ(sets[0].name, "Main rows");
    EXPECT_EQ(sets[1].name, "Overlay 1");
    EXPECT_EQ(sets[1].as, RowsTestedAs::Axes);
    EXPECT_EQ(sets[2].as, RowsTestedAs::Directions);
    ActiveRecord().OverlayFiles[2] = {"folder/veins.txt"};
    EXPECT_EQ(RowSetsOf(ActivePlot())[2].name, "veins.txt") << "as the legend names it";
    EXPECT_EQ(Sample({}).directions.size(), 6U);
    const TestSample overlay = Sample({RowGroupKind::Overlay, 2});
    ASSERT_EQ(overlay.directions.size(), 1U);
    EXPECT_NEAR(overlay.directions[0].n, -0.5, 1e-12) << "it points up";
}

TEST_F(RowSets, RowsOnOneLineAreEachTested) {
    AddRow(20, 60);
    AddRow(20, 60);
    EXPECT_EQ(Sample({}).Count(), 8U);
}

TEST_F(RowSets, ClassesFollowTheMainRows) {
    PlotRecord& record = ActiveRecord();
    record.ClassMode = kClassesByNumber;
    record.HasAppendedNumeric = kTrue;
    record.ClassTable[kBaseRow][kNumberClasses] = std::int16_t{2};
    record.ClassTable[kLowestRow][kNumberClasses] = 0.0;
    record.ClassTable[kLowestRow + 1][kNumberClasses] = 2.5;
    record.ClassTable[kTopRow][kNumberClasses] = 9.0;
    record.ClassTable[kFlagRow][kNumberClasses] = std::int16_t{0};
    ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
    for (int row = 1; row <= 6; ++row) {
        gAppNumeric.At(gActivePlot, row) = static_cast<float>(row);
    }
    ASSERT_EQ(RowSetsOf(ActivePlot()).size(), 3U);
    // Class 1 of the table is of values below the limits, which are not kept.
    EXPECT_EQ(Sample({RowGroupKind::Class, 2}).Count(), 2U);
    EXPECT_EQ(Sample({RowGroupKind::Class, 3}).Count(), 4U);
}

TEST_F(RowSets, PAndTAxesAreApart) {
    ActiveRecord().AxesTitle = kBothAxes;
    const auto sets = RowSetsOf(ActivePlot());
    ASSERT_EQ(sets.size(), 2U);
    EXPECT_EQ(sets[0].id.kind, RowGroupKind::Shortening);
    EXPECT_EQ(sets[1].id.kind, RowGroupKind::Extension);
    EXPECT_EQ(sets[0].name, "P shortening axes");
}

TEST_F(RowSets, DecimalsCountWhereThePlotUsesThem) {
    gPrimaryDataType = kPrimaryLine;
    NewPlot();
    ActiveRecord().PlotKind = kEqualArea;
    ActiveRecord().DataKind = kLines;
    AddMeasuredRows({{30.4, 90}});
    EXPECT_NEAR(Sample({}).directions.at(0).n, 0.5, 1e-12);
    UseDecimals(true);
    EXPECT_NEAR(Sample({}).directions.at(0).n, std::sin(DegToRad(30.4)), 1e-12);
}

TEST_F(RowSets, OfARoseAreItsAzimuths) {
    ActiveRecord().PlotKind = kRose;
    const auto sets = RowSetsOf(ActivePlot());
    ASSERT_EQ(sets.size(), 1U);
    EXPECT_EQ(sets[0].as, RowsTestedAs::AxialAzimuths);
    const TestSample sample = Sample({});
    EXPECT_EQ(sample.Count(), 6U);
    EXPECT_EQ(sample.azimuths.steps, kStepsOfAxes);
    ActiveRecord().DataKind = kPolarLines;
    EXPECT_EQ(RowSetsOf(ActivePlot())[0].as, RowsTestedAs::PolarAzimuths);
}

TEST_F(RowSets, OthersOfTheSameSenseAreCompared) {
    const int first = gActivePlot;
    AddOverlay(kOverlayLines, 20, 40, CodeOfStyleRow(1));
    AddPlot("palaeocurrents", kPolarLines);
    AddPlot("veins");
    EXPECT_EQ(Names(SetsToTest(first)), (std::vector<std::string>{"Main rows", "Overlay 1"}));
    EXPECT_EQ(Names(SetsToCompare({first, {}})),
              (std::vector<std::string>{"Overlay 1", "veins: Main rows"}));
    EXPECT_TRUE(SetsToCompare({first, {RowGroupKind::Class, 4}}).empty());
    EXPECT_FALSE(RowsOf({{first, {RowGroupKind::Overlay, 2}}, {}}));
    EXPECT_FALSE(RowsOf({{99, {}}, {}}));
    const auto rows = RowsOf({{first, {}}, RowSetPlace{gActivePlot, {}}});
    ASSERT_TRUE(rows);
    EXPECT_EQ(HeadingOf(*rows), "folds: Main rows, 6 axes\ncompared with veins: Main rows, 6 axes");
    EXPECT_EQ(rows->Count(), 12U);
}

} // namespace
} // namespace quandrel
