// SPDX-License-Identifier: MIT
//
// The fabrics of plots: whose they are, their values beside the statistics of the plot, their
// texts.

#include "classify/classification.h"
#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/settings_value.h"
#include "fabric/fabric_points.h"
#include "fabric/fabric_texts.h"
#include "statistics/fabric_statistics.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <cmath>

namespace quandrel {
namespace {

class FabricPoints : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        BuildStyleTables();
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kLines;
        AddPlot("folds");
    }

    void AddPlot(const std::string& title) {
        NewPlot();
        ActiveRecord().PlotTitle = title;
        for (int i = 0; i < 40; ++i) {
            AddRow(30 + i * 7 % 31, (80 + i * 13 % 71) % 360);
        }
    }

    static std::vector<FabricPoint> Points(std::int16_t of) {
        const std::vector<Plot*> plots = {&ActivePlot()};
        return FabricPointsOf(plots, gSettings.styles, of);
    }
};

TEST_F(FabricPoints, HaveTheEigenvaluesOfTheStatistics) {
    ComputeFabricStatistics();
    const PlotRecord& record = ActiveRecord();
    const auto points = Points(kRegionsOfPlot);
    ASSERT_EQ(points.size(), 1U);
    EXPECT_EQ(points[0].name, "folds");
    EXPECT_EQ(points[0].count, 40);
    const std::array<std::size_t, 3> axes = {kGreatestAxis, kMiddleAxis, kLeastAxis};
    for (std::size_t i = 0; i < axes.size(); ++i) {
        EXPECT_NEAR(points[0].eigenvalues[i],
                    static_cast<double>(record.FabricResults[axes[i]][kEigenvalue]), 1e-6);
    }
    ASSERT_TRUE(points[0].place);
    const auto& numbers = record.EigenResults;
    EXPECT_NEAR(points[0].place->x, static_cast<double>(numbers[kMiddleToLeast][kLogRatio]), 1e-5);
    EXPECT_NEAR(points[0].place->y, static_cast<double>(numbers[kGreatestToMiddle][kLogRatio]),
                1e-5);
    EXPECT_NEAR(points[0].place->k.value(), static_cast<double>(numbers[kGamma][kShapeNumber]),
                1e-4);
    EXPECT_NEAR(points[0].place->c, static_cast<double>(numbers[kZeta][kShapeNumber]), 1e-5);
}

TEST_F(FabricPoints, ShowTheSymbolOfTheRows) {
    const SymbolCode code = CodeOfStyleRow(gSettings.styles, kRowSymbol);
    const auto points = Points(kRegionsOfPlot);
    ASSERT_EQ(points.size(), 1U);
    EXPECT_EQ(points[0].symbol, CodeSymbol(code));
    EXPECT_EQ(points[0].colour, TableColour(gSettings.styles, CodeColour(code)));
}

TEST_F(FabricPoints, OfSeveralPlotsBearTheirTitles) {
    AddPlot("faults");
    const std::vector<Plot*> plots = OpenPlots();
    ASSERT_EQ(plots.size(), 2U);
    const auto points = FabricPointsOf(plots, gSettings.styles, kRegionsOfPlot);
    ASSERT_EQ(points.size(), 2U);
    EXPECT_EQ(points[0].name, "folds");
    EXPECT_EQ(points[1].name, "faults");
    EXPECT_FALSE(FabricOfferOf(plots).hasOverlays);
    EXPECT_FALSE(FabricOfferOf(plots).hasClasses);
}

TEST_F(FabricPoints, WithoutRowsAreNone) {
    NewPlot();
    EXPECT_TRUE(Points(kRegionsOfPlot | kRegionsOfOverlays | kRegionsOfClasses).empty());
    EXPECT_EQ(FabricNote({}), "There are no rows to show.");
}

TEST_F(FabricPoints, OfOnePlaneHaveNoLogRatiosAndAreTold) {
    NewPlot();
    AddRow(0, 10);
    AddRow(0, 50);
    AddRow(0, 120);
    const auto points = Points(kRegionsOfPlot);
    ASSERT_EQ(points.size(), 1U);
    EXPECT_FALSE(points[0].place);
    EXPECT_NEAR(CylindricityOf(points[0].shares), 1, 1e-9);
    EXPECT_NE(FabricNote(points).find("One fabric is not in the diagram"), std::string::npos);
    const std::vector<std::string> cells = FabricCells(points[0]);
    ASSERT_EQ(cells.size(), FabricHeadings().size());
    EXPECT_EQ(cells[5], "-");
    EXPECT_EQ(cells[8], "-");
    EXPECT_EQ(cells[12], "1.000");
}

TEST_F(FabricPoints, AreATableWithTabs) {
    ActiveRecord().PlotTitle = "two\twords";
    const std::string table = FabricTable(Points(kRegionsOfPlot));
    EXPECT_TRUE(table.starts_with("Rows\tn\tS1\tS2\tS3\tln(S2/S3)\tln(S1/S2)\tK\tC\tP\tG\tR\tB\n"));
    EXPECT_NE(table.find("\ntwo words\t40\t"), std::string::npos);
}

} // namespace
} // namespace quandrel
