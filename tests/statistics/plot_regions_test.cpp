// SPDX-License-Identifier: MIT
//
// The confidence regions of a plot: whose they are, when they are computed, what is said of them.

#include "core/data_format.h"
#include "core/settings_value.h"
#include "statistics/plot_region_texts.h"
#include "statistics/plot_regions.h"
#include "statistics/region_form.h"
#include "statistics/statistics_texts.h"
#include "stereo/lines_of_rows.h"
#include "support/plot_rows.h"
#include "support/random_samples.h"
#include "support/test_platform.h"

#include <cmath>

namespace quandrel {
namespace {

class PlotRegions : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        BuildStyleTables();
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kLines;
        NewPlot();
        ActiveRecord().RegionsAbout = kRegionOfAxis;
    }

    /// Rows about 60/090, in whole degrees.
    static void AddCluster(int count, double deviation = 0.15) {
        RandomStream random(5);
        for (int i = 0; i < count; ++i) {
            const Direction d = ElongatedDirection(random, deviation, deviation / 2);
            double plunge = 0;
            double trend = 0;
            // Turned by 30 degrees about the north axis, from the vertical to the east.
            const double c = std::cos(DegToRad(30));
            const double s = std::sin(DegToRad(30));
            AxisToLine({d.l, c * d.m + s * d.n, c * d.n - s * d.m}, plunge, trend);
            AddRow(static_cast<std::int32_t>(std::lround(RadToDeg(plunge))),
                   static_cast<std::int32_t>(std::lround(RadToDeg(trend))) % 360);
        }
    }

    static std::span<const PlotRegion> Regions(StatusLine* watcher = nullptr,
                                               const RowClasses& classes = {}) {
        WorkOutRegions(ActivePlot(), gSettings.styles, classes, watcher);
        return RegionsOfPlot(ActivePlot());
    }

    /// The sample of rows by vector algebra.
    static RegionSample Sample(std::int32_t first, std::int32_t last, RowsAre kind) {
        WeightedDirections rows;
        for (std::int32_t row = first; row <= last; ++row) {
            rows.directions.push_back(LineToCosines(DegToRad(gDataDip(gActivePlot, row)),
                                                    DegToRad(gDataAz(gActivePlot, row))));
            rows.weights.push_back(1);
        }
        return RegionSampleOf(rows, kind);
    }

    static void ExpectEqual(const PlotRegion& region, const RegionSample& sample) {
        RegionChoice choice;
        choice.target = region.target;
        choice.bootstrap.seed = 1;
        const auto expected = ChooseRegion(sample, choice);
        ASSERT_TRUE(region.chosen && expected);
        const ConfidenceRegion& a = region.chosen->region;
        const ConfidenceRegion& b = expected->region;
        EXPECT_EQ(a.method, b.method);
        EXPECT_EQ(a.state, b.state);
        EXPECT_EQ(a.count, b.count);
        EXPECT_NEAR(a.components[0], b.components[0], 1e-9);
        EXPECT_NEAR(a.components[1], b.components[1], 1e-9);
        EXPECT_NEAR(a.centre.l, b.centre.l, 1e-9);
        EXPECT_NEAR(a.centre.m, b.centre.m, 1e-9);
        EXPECT_NEAR(a.centre.n, b.centre.n, 1e-9);
    }
};

TEST_F(PlotRegions, AreThoseOfTheKernels) {
    AddCluster(70);
    ActiveRecord().RegionsAbout = kRegionOfAxis | kRegionOfGirdle;
    const auto regions = Regions();
    ASSERT_EQ(regions.size(), 2U);
    EXPECT_EQ(regions[1].target, RegionTarget::GirdlePole);
    for (const PlotRegion& region : regions) {
        ExpectEqual(region, Sample(1, 70, RowsAre::Axes));
    }
    EXPECT_EQ(regions[0].chosen->region.state, RegionState::Given);
}

TEST_F(PlotRegions, OfFewRowsTakeTheSeedOfThePlot) {
    AddCluster(20);
    const auto regions = Regions();
    ASSERT_EQ(regions.size(), 1U);
    EXPECT_EQ(regions[0].chosen->region.method, RegionMethod::Bootstrap);
    ExpectEqual(regions[0], Sample(1, 20, RowsAre::Axes));
    const double width = regions[0].chosen->region.components[0];
    ActiveRecord().RegionSeed = 2;
    EXPECT_NE(Regions()[0].chosen->region.components[0], width);
}

TEST_F(PlotRegions, TheMeanIsThatOfPolarLines) {
    ActiveRecord().DataKind = kPolarLines;
    for (int i = 0; i < 120; ++i) {
        AddRow(-40 - i % 17, 30 + i % 23);
    }
    ActiveRecord().RegionsAbout = kRegionOfMean;
    const auto regions = Regions();
    ASSERT_EQ(regions.size(), 1U);
    EXPECT_LT(regions[0].chosen->region.centre.n, 0) << "the rows point up";
    ExpectEqual(regions[0], Sample(1, 120, RowsAre::Directions));
    ActiveRecord().DataKind = kLines;
    EXPECT_TRUE(Regions().empty());
    EXPECT_NE(TextOfRegions(ActivePlot(), "\n").find("Only polar lines"), std::string::npos);
    EXPECT_FALSE(RegionFormOf(&ActivePlot()).hasMean);
}

TEST_F(PlotRegions, AreOfOverlaysAndClassesToo) {
    AddCluster(60);
    AddOverlay(kOverlayLines, 10, 20, 0);
    ActiveRecord().RegionsOf = kRegionsOfPlot | kRegionsOfOverlays | kRegionsOfClasses;
    RowClasses classes;
    classes.names = {"", "thin", "empty", "thick"};
    classes.ofRow.assign(61, 1);
    for (std::size_t row = 31; row <= 60; ++row) {
        classes.ofRow[row] = 3;
    }
    const auto regions = Regions(nullptr, classes);
    ASSERT_EQ(regions.size(), 4U) << "a class without rows has none";
    EXPECT_EQ(regions[0].rows, "");
    EXPECT_EQ(regions[1].rows, "Overlay 1");
    EXPECT_EQ(regions[1].chosen->region.state, RegionState::Undefined) << "a single row";
    EXPECT_EQ(regions[2].rows, "thin");
    ExpectEqual(regions[2], Sample(1, 30, RowsAre::Axes));
    EXPECT_EQ(regions[3].rows, "thick");
    ExpectEqual(regions[3], Sample(31, 60, RowsAre::Axes));
    ActiveRecord().OverlayFiles[1] = {"/data/cleavage.txt"};
    EXPECT_EQ(Regions(nullptr, classes)[1].rows, "cleavage.txt") << "as the legend names it";
    EXPECT_NE(TextOfRegions(ActivePlot(), "\n").find("cleavage.txt: "), std::string::npos);
    classes.ofRow[31] = 1;
    EXPECT_EQ(Regions(nullptr, classes)[2].chosen->region.count, 31) << "classes have changed";
}

TEST_F(PlotRegions, FollowRowsAndChoice) {
    AddCluster(60);
    EXPECT_EQ(Regions()[0].chosen->region.count, 60);
    AddRow(50, 85);
    EXPECT_EQ(Regions()[0].chosen->region.count, 61);
    ActiveRecord().RegionMethod = kRegionByBingham;
    EXPECT_EQ(Regions()[0].chosen->region.method, RegionMethod::Bingham);
    ActiveRecord().RegionMethod = kRegionByFisher;
    EXPECT_NE(Regions()[0].chosen->region.grounds, RegionGrounds::Wanted) << "not of axes";
    ActiveRecord().RegionsAbout = 0;
    EXPECT_TRUE(Regions().empty());
}

TEST_F(PlotRegions, AnotherLevelNeedsNoResamples) {
    AddCluster(20);
    const std::vector<double> before = Regions()[0].chosen->resampled.statistics;
    ActiveRecord().RegionLevel = 63;
    status.RequestCancel();
    const auto regions = Regions(&status);
    ASSERT_TRUE(regions[0].chosen) << "there was nothing to stop";
    EXPECT_EQ(regions[0].chosen->resampled.statistics, before);
    const ConfidenceRegion narrow = regions[0].chosen->region;
    ActiveRecord().RegionSeed = 2; // computes anew without the former resamples
    static_cast<void>(Regions());
    ActiveRecord().RegionSeed = 1;
    const ConfidenceRegion fresh = Regions()[0].chosen->region;
    EXPECT_EQ(narrow.level, 0.63);
    EXPECT_EQ(narrow.components, fresh.components);
}

TEST_F(PlotRegions, AStoppedBootstrapSaysSo) {
    AddCluster(20);
    status.RequestCancel();
    ASSERT_EQ(Regions(&status).size(), 1U);
    EXPECT_FALSE(RegionsOfPlot(ActivePlot())[0].chosen);
    EXPECT_EQ(TextOfRegions(ActivePlot(), "\n"),
              "95% region of the principal axis\nStopped by the user.\n");
    ActiveRecord().RegionLevel = 90;
    EXPECT_TRUE(Regions()[0].chosen) << "another choice computes it";
}

TEST_F(PlotRegions, AreInTheAdvancedBoxAndTheLegend) {
    AddCluster(70, 0.1);
    ActiveRecord().RegionsAbout = kRegionOfAxis | kRegionOfGirdle;
    EXPECT_EQ(FabricBoxText().find("95% region"), std::string::npos) << "not computed yet";
    static_cast<void>(Regions());
    const std::string box = FabricBoxText();
    const std::size_t head = box.find("95% region of the principal axis at ");
    ASSERT_NE(head, std::string::npos);
    EXPECT_NE(box.find("(plunge - trend)\r\nAxes, n = 70. Not symmetric about the axis", head),
              std::string::npos);
    EXPECT_NE(box.find("Semi-axes", head), std::string::npos);
    const auto legend = RegionLegendLines(ActivePlot(), gSettings.styles);
    ASSERT_EQ(legend.size(), 2U);
    EXPECT_EQ(legend[0].sample, LegendSample::Line);
    EXPECT_EQ(legend[0].text, "95% region of the principal axis");
}

TEST_F(PlotRegions, ARefusedOneIsShownAtWish) {
    RandomStream random(8);
    for (int i = 0; i < 200; ++i) { // a round cluster has no girdle
        const Direction d = ElongatedDirection(random, 0.2, 0.2);
        double plunge = 0;
        double trend = 0;
        AxisToLine(d, plunge, trend);
        AddRow(static_cast<std::int32_t>(std::lround(RadToDeg(plunge))),
               static_cast<std::int32_t>(std::lround(RadToDeg(trend))) % 360);
    }
    ActiveRecord().RegionsAbout = kRegionOfGirdle;
    const PlotRegion region = Regions()[0];
    ASSERT_EQ(region.chosen->region.state, RegionState::Refused);
    EXPECT_FALSE(IsShown(ActiveRecord(), region));
    EXPECT_TRUE(RegionFormOf(&ActivePlot()).hasRefused);
    const auto hidden = RegionLegendLines(ActivePlot(), gSettings.styles);
    EXPECT_EQ(hidden[0].sample, LegendSample::Indent);
    ASSERT_EQ(hidden.size(), 2U);
    EXPECT_EQ(hidden[1].text.find("(girdle not told apart from a cluster (p = "), 0U);
    ActiveRecord().RegionDespite = kTrue;
    EXPECT_TRUE(IsShown(ActiveRecord(), region));
    EXPECT_EQ(RegionLegendLines(ActivePlot(), gSettings.styles)[0].sample, LegendSample::Line);
    EXPECT_NE(TextOfRegions(ActivePlot(), "\n").find("Semi-"), std::string::npos);
}

TEST_F(PlotRegions, TheFormOffersMethodsOfItsTargets) {
    EXPECT_TRUE(HasMethod(kRegionOfAxis, kRegionByWatson));
    EXPECT_FALSE(HasMethod(kRegionOfAxis, kRegionByFisher));
    EXPECT_FALSE(HasMethod(kRegionOfAxis | kRegionOfGirdle, kRegionByEllipseOfDirections));
    EXPECT_TRUE(HasMethod(kRegionOfMean, kRegionByEllipseOfDirections));
    EXPECT_FALSE(HasMethod(kRegionOfMean, kRegionByBingham));
    EXPECT_TRUE(HasMethod(kRegionOfAxis | kRegionOfMean, kRegionByFisher));
    for (const std::int16_t about : {kRegionOfAxis, kRegionOfGirdle, kRegionOfMean}) {
        EXPECT_TRUE(HasMethod(about, kRegionAutomatic));
        EXPECT_TRUE(HasMethod(about, kRegionByBootstrap));
    }
    RecordRegions choice;
    choice.RegionsAbout = kRegionOfAxis | kRegionOfMean;
    choice.RegionMethod = kRegionByFisher;
    choice = WithTarget(choice, kRegionOfMean, false);
    EXPECT_EQ(choice.RegionsAbout, kRegionOfAxis);
    EXPECT_EQ(choice.RegionMethod, kRegionAutomatic);
    EXPECT_EQ(WithRows(choice, kRegionsOfPlot, false).RegionsOf, kRegionsOfPlot);
    EXPECT_FALSE(RegionFormOf(nullptr).isUsable);
}

TEST_F(PlotRegions, LinesOfAllRowsAreThoseOfThePlot) {
    AddCluster(60);
    AddRow(kErrorRow, 0);
    const RowLines all = LinesOfRows(ActivePlot(), [](std::int32_t) { return true; });
    EXPECT_EQ(all.whole, LinesOf(ActivePlot()).whole);
    ActiveRecord().UseDecimals = kTrue;
    const RowLines some = LinesOfRows(ActivePlot(), [](std::int32_t row) { return row > 50; });
    EXPECT_EQ(some.measured.size(), 10U);
    EXPECT_EQ(some.rows.front(), 51);
}

} // namespace
} // namespace quandrel
