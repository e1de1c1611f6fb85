// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "density/contours.h"
#include "density/density_legend.h"
#include "density/grid_density.h"
#include "density/point_density.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <algorithm>
#include <set>

namespace quandrel {
namespace {

class DensityLegend : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        BuildStyleTables();
        gShowIsolatedPts = 0;
        NewPlot();
    }

    static void Show(int rows, std::int16_t mode, float most) {
        while (ActiveRecord().NumData < rows) {
            AddRow(ActiveRecord().NumData % 90, ActiveRecord().NumData % 360);
        }
        PlotRecord& record = ActiveRecord();
        record.PlotSymbolMode = mode;
        record.PointDensityMax = mode == kPointDensitySymbols ? most : -1;
        record.GridDensityMax = mode == kPointDensitySymbols ? -1 : most;
    }

    static void SetLevels(std::vector<std::int16_t> levels) {
        PlotRecord& record = ActiveRecord();
        record.NumContours = static_cast<std::int16_t>(levels.size());
        std::copy(levels.begin(), levels.end(), record.ContourLevels.begin());
    }

    static std::vector<std::string> Texts() {
        std::vector<std::string> texts;
        for (const LegendLine& line : BandLegendLines(ActivePlot(), gSettings.styles)) {
            texts.push_back(line.text);
        }
        return texts;
    }

    /// Rows of gSymbolTable of the samples, -1 for a line without one.
    static std::vector<int> SampleRows() {
        std::vector<int> rows;
        for (const LegendLine& line : BandLegendLines(ActivePlot(), gSettings.styles)) {
            int found = -1;
            for (int row = kFirstBandSymbol; row <= kLastBandSymbol; ++row) {
                found = line.sample == LegendSample::Symbol && line.code == CodeOfStyleRow(row)
                            ? row
                            : found;
            }
            rows.push_back(found);
        }
        return rows;
    }
};

using Lines = std::vector<std::string>;
using Rows = std::vector<int>;

TEST_F(DensityLegend, OfPointsTellsTheBandsThatOccur) {
    Show(60, kPointDensitySymbols, 10); // base 1; two rows are 3.33%, already in the band from 2
    EXPECT_EQ(Texts(),
              (Lines{" 1 pt. (1.67%)", " > 2.00%", " > 4.00%", " > 8.00%", "(Max. =10.00%)"}));
    EXPECT_EQ(SampleRows(), (Rows{10, 13, 14, 15, -1}));
}

TEST_F(DensityLegend, OfManyPointsHasABandBelowTheBase) {
    Show(500, kPointDensitySymbols, 3.4F); // one row is 0.2%, and two to four are below 1%
    EXPECT_EQ(Texts(),
              (Lines{" 1 pt. (0.20%)", " > 0.20%", " > 1.00%", " > 2.00%", "(Max. =3.40%)"}));
    EXPECT_EQ(SampleRows(), (Rows{10, 11, 12, 13, -1}));
}

TEST_F(DensityLegend, OfOneBandHasOneSampleAndTheMaximum) {
    Show(1, kPointDensitySymbols, 100);
    EXPECT_EQ(Texts(), (Lines{" 1 pt. (100.00%)", "(Max. =100.00%)"}));
    Show(500, kPointDensitySymbols, 0.2F);
    EXPECT_EQ(Texts(), (Lines{" 1 pt. (0.20%)", "(Max. =0.20%)"}));
    EXPECT_EQ(SampleRows(), (Rows{10, -1}));
}

TEST_F(DensityLegend, OfTheGridBeginsAtOneRowRoundedUp) {
    Show(60, kGridDensitySymbols, 16.667F);
    EXPECT_EQ(Texts(), (Lines{" 1 pt. (1.67%)", " > 2.00%", " > 4.00%", " > 8.00%", " > 16.00%",
                              "(Max. =16.67%)"}));
    EXPECT_EQ(SampleRows(), (Rows{10, 11, 12, 13, 14, -1}));
}

TEST_F(DensityLegend, OfTheGridHasNoSymbolForOnePointThatFallsIntoTheNextBand) {
    Show(50, kGridDensitySymbols, 4); // one row is 2% as it is
    EXPECT_EQ(Texts(), (Lines{" 1 pt. (2.00%)", " > 2.00%", " > 4.00%", "(Max. =4.00%)"}));
    EXPECT_EQ(SampleRows(), (Rows{-1, 11, 12, -1}));
}

TEST_F(DensityLegend, NeverReadsZeroPerCent) {
    struct Case {
        int rows;
        const char* one;
        const char* first;
        const char* second;
    };

    for (const Case& test : {Case{9000, " 1 pt. (0.01%)", " > 0.01%", " > 1.00%"},
                             {12000, " 1 pt. (0.0083%)", " > 0.0083%", " > 1.0000%"},
                             {30000, " 1 pt. (0.0033%)", " > 0.0033%", " > 1.0000%"}}) {
        Show(test.rows, kPointDensitySymbols, 5);
        EXPECT_EQ(Texts(), (Lines{test.one, test.first, test.second,
                                  test.rows == 9000 ? " > 2.00%" : " > 2.0000%",
                                  test.rows == 9000 ? " > 4.00%" : " > 4.0000%", "(Max. =5.00%)"}))
            << test.rows;
    }
    Show(30000, kPointDensitySymbols, 0.0033F);
    EXPECT_EQ(Texts(), (Lines{" 1 pt. (0.0033%)", "(Max. =0.0033%)"}));
}

TEST_F(DensityLegend, EndsWithTheBandOfTheLastStyle) {
    Show(500, kGridDensitySymbols, 80);
    EXPECT_EQ(SampleRows(), (Rows{10, 11, 12, 13, 14, 15, -1}));
    EXPECT_EQ(Texts()[5], " > 16.00%");
}

TEST_F(DensityLegend, OfContoursHasALineForEachLevelInItsStyle) {
    Show(60, kContours, 9);
    SetLevels({2, 4, 8});
    gSettings.styles.contours[1] = {7, kDashedLine, 3};
    EXPECT_EQ(Texts(),
              (Lines{" 1 pt. (1.67%)", " > 2.00%", " > 4.00%", " > 8.00%", "(Max. =9.00%)"}));
    const auto lines = BandLegendLines(ActivePlot(), gSettings.styles);
    EXPECT_EQ(lines[0].sample, LegendSample::Indent);
    EXPECT_EQ(lines[2].sample, LegendSample::Line);
    EXPECT_EQ(lines[2].code, MakeSymbolCode(7, kDashedLine, 3));
    EXPECT_EQ(CodeColour(lines[3].code), gSettings.styles.contours[2][kStyleColour]);
}

TEST_F(DensityLegend, OfContoursShowsTheSymbolOfIsolatedPoints) {
    Show(60, kContours, 9);
    gShowIsolatedPts = 1;
    EXPECT_EQ(SampleRows()[0], 10);
}

TEST_F(DensityLegend, OfBothHasBandsThenContours) {
    Show(60, kContoursAndGrid, 5);
    SetLevels({2, 4});
    EXPECT_EQ(Texts(), (Lines{" 1 pt. (1.67%)", " > 2.00%", " > 4.00%", " > 2.00%", " > 4.00%",
                              "(Max. =5.00%)"}));
    EXPECT_EQ(SampleRows(), (Rows{10, 11, 12, -1, -1, -1}));
}

TEST_F(DensityLegend, IsEmptyWhereNoDensitiesAreShown) {
    for (const std::int16_t mode :
         {kGreatCircles, kPointSymbols, kPointSymbolsToo, kBetaIntersections}) {
        Show(60, mode, 10);
        EXPECT_TRUE(BandLegendLines(ActivePlot(), gSettings.styles).empty()) << mode;
    }
}

TEST_F(DensityLegend, IsEmptyWithoutRows) {
    for (const std::int16_t mode : {kPointDensitySymbols, kContours, kContoursAndGrid}) {
        Show(0, mode, 0);
        EXPECT_TRUE(BandLegendLines(ActivePlot(), gSettings.styles).empty()) << mode;
    }
}

TEST_F(DensityLegend, IsEmptyWhereTheGridShowsValuesOfClasses) {
    Show(60, kContours, 9);
    ActiveRecord().GridDensityMax = 9;
    ActiveRecord().ClassMode = 1;
    SetLevels({2, 4});
    EXPECT_EQ(BandLegendLines(ActivePlot(), gSettings.styles).size(), 4U)
        << "densities of a plot of classified points";
    for (std::int16_t type = 1; type <= 3; ++type) {
        ActiveRecord().NumClasses = type;
        EXPECT_TRUE(BandLegendLines(ActivePlot(), gSettings.styles).empty()) << type;
    }
    ActiveRecord().NumClasses = 4;
    EXPECT_EQ(BandLegendLines(ActivePlot(), gSettings.styles).size(), 4U)
        << "contours of values over the densities";
    ActiveRecord().PlotSymbolMode = kPointSymbols;
    EXPECT_TRUE(BandLegendLines(ActivePlot(), gSettings.styles).empty()) << "and over points";
}

/// The styles of the bands that counts from `least` to n fall into.
std::set<int> StylesOf(std::int32_t n, std::int32_t least,
                       int (*band)(std::int32_t, std::int32_t)) {
    std::set<int> styles;
    for (std::int32_t count = least; count <= n; ++count) {
        styles.insert(std::min(kFirstBandSymbol + band(count, n) - 1, kLastBandSymbol));
    }
    return styles;
}

TEST_F(DensityLegend, ListsExactlyTheStylesThatCountsCanHave) {
    for (int n = 1; n <= 420; ++n) {
        Show(n, kPointDensitySymbols, 100);
        const Rows points = SampleRows();
        EXPECT_EQ(std::set<int>(points.begin(), points.end() - 1), StylesOf(n, 1, PointDensityBand))
            << n << " rows";
        Show(n, kGridDensitySymbols, 100);
        const Rows nodes = SampleRows();
        std::set<int> listed(nodes.begin(), nodes.end() - 1);
        listed.erase(-1);
        EXPECT_EQ(listed, StylesOf(n, 1, GridBand)) << n << " rows";
    }
}

TEST_F(DensityLegend, ListsNoBandAboveTheMaximum) {
    const int n = 300;
    for (int most = 1; most <= n; ++most) {
        Show(n, kPointDensitySymbols, PointDensity(most, n));
        const Rows rows = SampleRows();
        const int highest = *std::max_element(rows.begin(), rows.end());
        EXPECT_EQ(highest,
                  std::min(kFirstBandSymbol + PointDensityBand(most, n) - 1, kLastBandSymbol))
            << most;
    }
}

} // namespace
} // namespace quandrel
