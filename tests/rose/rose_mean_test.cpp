// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "rose/circular_statistics.h"
#include "rose/rose_confidence.h"
#include "rose/rose_mean.h"
#include "rose/rose_plot.h"
#include "rose/rose_sectors.h"
#include "rose/rose_shown.h"
#include "rose/rose_statistics_texts.h"
#include "rose/rose_tables.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

namespace quandrel {

namespace {

constexpr double kClose = 1e-9;

double Degrees(double radians) {
    return radians * 180 / std::acos(-1.0);
}

double Radians(double degrees) {
    return degrees * std::acos(-1.0) / 180;
}

std::vector<DrawOperation> DrawnMean() {
    RecordingSurface surface(600, 600);
    DrawRoseMean(ActivePlot(), {surface, surface, gSettings.styles});
    return surface.Operations();
}

} // namespace

class RoseMeanTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        NewPlot();
        PlotRecord& record = ActiveRecord();
        record.RoseDisplay7 = kTrue;
        record.RoseDisplay8 = 0;
        record.RoseStats[kRoseCount] = {100, 100, 20};
        record.RoseMeanDir[kOfAngles] = Radians(60);
        record.RoseResultant = {0.8, 0.5};
        record.RoseDispersion = 0.25;
        gRoseSectors = RoseSectorTable(4, 1);
        gRoseSectors(0, 0, kRoseValueLayer) = 100;
        gRoseDirectional = false;
    }

    std::vector<DrawOperation> Draw() {
        ActiveRose().confidence = RoseConfidenceOf(ActivePlot(), Formulas::Own);
        return DrawnMean();
    }
};

TEST_F(RoseMeanTest, PointsBothWaysForAxialData) {
    const auto ends = RoseArrowAzimuths(ActivePlot());
    ASSERT_EQ(ends.size(), 2U);
    EXPECT_NEAR(Degrees(ends[0]), 60, kClose);
    EXPECT_NEAR(Degrees(ends[1]), 240, kClose);
    gRoseDirectional = true;
    ASSERT_EQ(RoseArrowAzimuths(ActivePlot()).size(), 1U);
    EXPECT_NEAR(Degrees(RoseArrowAzimuths(ActivePlot())[0]), 60, kClose);
}

TEST_F(RoseMeanTest, ShowsNoArrowWhereThereIsNoMean) {
    PlotRecord& record = ActiveRecord();
    record.RoseDisplay7 = 0;
    EXPECT_TRUE(RoseArrowAzimuths(ActivePlot()).empty());
    record.RoseDisplay7 = kTrue;
    record.RoseResultant[kOfAngles] = 0;
    EXPECT_TRUE(RoseArrowAzimuths(ActivePlot()).empty());
    EXPECT_FALSE(RoseConfidenceHalfWidth(ActivePlot()));
    record.RoseResultant[kOfAngles] = 0.8;
    for (const std::int16_t kind : std::array<std::int16_t, 2>{2, 3}) {
        record.RoseType = kind;
        EXPECT_TRUE(RoseArrowAzimuths(ActivePlot()).empty()) << kind;
        EXPECT_FALSE(RoseConfidenceHalfWidth(ActivePlot())) << kind;
    }
}

TEST_F(RoseMeanTest, ShowsTheEndsInTheHalfDrawn) {
    const std::array<double, 5> ends = {0, 60, 60, 240, 240};
    for (std::int16_t shape = 1; shape <= 4; ++shape) {
        ActiveRecord().RoseShape = shape;
        const auto shown = RoseArrowAzimuths(ActivePlot());
        ASSERT_EQ(shown.size(), 1U) << shape;
        EXPECT_NEAR(Degrees(shown[0]), ends[static_cast<std::size_t>(shape)], kClose) << shape;
    }
}

TEST_F(RoseMeanTest, DrawsArrowsOutsideTheRim) {
    const auto drawn = Draw();
    ASSERT_EQ(drawn.size(), 6U); // shaft and two barbs, twice
    for (const DrawOperation& line : drawn) {
        EXPECT_EQ(line.kind, DrawOperation::Kind::Line);
        EXPECT_EQ(line.state.drawWidth, 2);
        for (const Point& end : line.points) {
            EXPECT_GE(std::hypot(end.x, end.y), 1000 - kClose);
            EXPECT_LE(std::hypot(end.x, end.y), 1100);
        }
    }
    const Point tip = drawn[0].points[1];
    EXPECT_NEAR(Degrees(std::atan2(tip.x, tip.y)), 60, kClose);
    EXPECT_EQ(drawn[1].points[0], tip);
    EXPECT_EQ(drawn[2].points[0], tip);
}

TEST_F(RoseMeanTest, HasAnIntervalFromTheStandardError) {
    // Standard error 0.05: asin(0.09802) is 5.625 degrees; axial data have half of it.
    PlotRecord& record = ActiveRecord();
    EXPECT_NEAR(Degrees(*RoseConfidenceHalfWidth(ActivePlot())), 5.62514 / 2, 1e-4);
    gRoseDirectional = true;
    EXPECT_NEAR(Degrees(*RoseConfidenceHalfWidth(ActivePlot())), 5.62514, 1e-4);
    record.RoseDispersion = 1000;
    EXPECT_NEAR(Degrees(*RoseConfidenceHalfWidth(ActivePlot())), 90, kClose);
}

// Kept: a right angle where there is no interval.
TEST_F(RoseMeanTest, KeepsTheRightAngleOfAnIntervalThatDoesNotExistAndDrawsNoArc) {
    PlotRecord& record = ActiveRecord();
    gRoseDirectional = true;
    record.RoseDisplay7 = 0;
    record.RoseDisplay8 = kTrue;
    record.RoseDispersion = 26.1; // 1.9604 x sqrt(0.261) is 1.0015
    EXPECT_NEAR(Degrees(*RoseConfidenceHalfWidth(ActivePlot())), 90, kClose);
    EXPECT_TRUE(Draw().empty());
    record.RoseDispersion = 26; // and of 0.26 it is 0.9996
    EXPECT_LT(Degrees(*RoseConfidenceHalfWidth(ActivePlot())), 90);
    EXPECT_EQ(Draw().size(), 1U);
    gRoseDirectional = false;
    record.RoseDispersion = 26.1;
    EXPECT_NEAR(Degrees(*RoseConfidenceHalfWidth(ActivePlot())), 45, kClose);
    EXPECT_TRUE(Draw().empty());
}

TEST_F(RoseMeanTest, CountsTheWeightedDataUnderABiasCorrection) {
    gRoseDirectional = true;
    ActiveRecord().RoseStats[kRoseCount] = {100, 400, 20}; // 400 weighted: half the standard error
    EXPECT_NEAR(std::sin(*RoseConfidenceHalfWidth(ActivePlot())), 1.9604 * 0.025, 1e-12);
}

TEST_F(RoseMeanTest, DrawsTheArcOnTheRimAboutBothEnds) {
    PlotRecord& record = ActiveRecord();
    record.RoseDisplay7 = 0;
    record.RoseDisplay8 = kTrue;
    const double half = Degrees(*RoseConfidenceHalfWidth(ActivePlot()));
    const auto drawn = Draw();
    ASSERT_EQ(drawn.size(), 2U);
    const std::array<double, 2> middles = {30, 210}; // azimuths 60 and 240
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(drawn[i].kind, DrawOperation::Kind::Arc);
        EXPECT_EQ(drawn[i].radius, 1000);
        EXPECT_NEAR(Degrees(drawn[i].start), middles[i] - half, 1e-6);
        EXPECT_NEAR(Degrees(drawn[i].end), middles[i] + half, 1e-6);
    }
    record.RoseShape = 1;
    EXPECT_EQ(Draw().size(), 1U);
}

TEST_F(RoseMeanTest, TakesTheFactorOfTheFormulasInForce) {
    gRoseDirectional = true;
    EXPECT_NEAR(std::sin(*RoseConfidenceHalfWidth(ActivePlot(), Formulas::Textbook)), 1.96 * 0.05,
                1e-12);
    EXPECT_NEAR(std::sin(*RoseConfidenceHalfWidth(ActivePlot(), Formulas::Own)), 1.9604 * 0.05,
                1e-12);
}

/// A rose of a few rows, drawn with its arcs alone.
class RoseOfFewData : public EngineTest {
protected:
    void Work(std::int16_t kind, const std::vector<std::int32_t>& azimuths) {
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kind;
        NewPlot();
        PlotRecord& record = ActiveRecord();
        record.PlotKind = kRose;
        record.RoseSectorSize = 10;
        record.RoseDisplay7 = 0;
        record.RoseDisplay8 = kTrue;
        for (const std::int32_t azimuth : azimuths) {
            AddRow(0, azimuth);
        }
        ASSERT_TRUE(RoseCountSectors());
        RoseCircularStats(kRoseFrequency);
    }

    static std::vector<DrawOperation> Draw() { return DrawnMean(); }

    void TearDown() override {
        ForgetRose(ActivePlot());
        EngineTest::TearDown();
    }
};

TEST_F(RoseOfFewData, DrawsTheArcOfTheIntervalThatIsPrinted) {
    for (const std::int16_t kind : {kPolarLines, kLines}) {
        Work(kind, {20, 32, 10, 41, 28, 35});
        const auto confidence = RoseConfidenceOf(ActivePlot(), Formulas::Own);
        ASSERT_TRUE(confidence && confidence->halfWidth);
        EXPECT_EQ(confidence->method, ConfidenceMethod::kBootstrap);
        EXPECT_EQ(RoseConfidenceOf(ActivePlot(), Formulas::Textbook)->halfWidth,
                  confidence->halfWidth);
        const auto drawn = Draw();
        ASSERT_EQ(drawn.size(), kind == kLines ? 2U : 1U);
        EXPECT_NEAR((drawn[0].end - drawn[0].start) / 2, *confidence->halfWidth, 1e-9);
        const std::string width = FormatNumber(Degrees(*confidence->halfWidth), "##0.0");
        EXPECT_NE(RoseStatsShort().find("[Bootstrap 95% Confidence interval = ±" + width + "°]"),
                  std::string::npos)
            << RoseStatsShort();
    }
}

TEST_F(RoseOfFewData, HalvesTheIntervalOfTheDoubledAnglesOfAxes) {
    Work(kPolarLines, {40, 64, 20, 82, 56, 70});
    const double ofDoubled = *RoseConfidenceOf(ActivePlot(), Formulas::Own)->halfWidth;
    Work(kLines, {20, 32, 10, 41, 28, 35});
    EXPECT_NEAR(*RoseConfidenceOf(ActivePlot(), Formulas::Own)->halfWidth, ofDoubled / 2, 1e-9);
}

TEST_F(RoseOfFewData, DrawsNoArcWhereNoIntervalIsPrinted) {
    Work(kPolarLines, {20, 60, 100});
    EXPECT_TRUE(Draw().empty());
    EXPECT_NE(RoseStatsShort().find("[Bootstrap 95% Confidence interval = undetermined]"),
              std::string::npos);
    Work(kPolarLines, {20});
    EXPECT_TRUE(Draw().empty());
    Work(kPolarLines, {20, 200});
    EXPECT_TRUE(Draw().empty());
    EXPECT_EQ(RoseStatsShort().find("Confidence"), std::string::npos);
}

TEST_F(RoseOfFewData, CountsGroupedRowsAsOftenAsTheyOccur) {
    Work(kPolarLines, {10, 10, 20, 30, 30, 30, 40});
    const auto oneByOne = RoseConfidenceOf(ActivePlot(), Formulas::Own)->halfWidth;
    Work(kPolarLines, {10, 20, 30, 40});
    ActiveRecord().HasAppendedNumeric = kTrue;
    ActiveRecord().HasFrequencyColumn = kTrue;
    ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
    const std::array<float, 4> counts = {2, 1, 3, 1};
    for (std::int32_t row = 1; row <= 4; ++row) {
        gAppNumeric.At(gActivePlot, row) = counts[static_cast<std::size_t>(row - 1)];
    }
    ASSERT_TRUE(RoseCountSectors());
    RoseCircularStats(kRoseFrequency);
    EXPECT_EQ(RoseConfidenceOf(ActivePlot(), Formulas::Own)->halfWidth, oneByOne);
}

TEST_F(RoseOfFewData, FollowsTheFormulasWithItsArrows) {
    Work(kLines, {40, 45, 50});
    ActiveRecord().RoseDisplay7 = kTrue;
    EXPECT_NEAR(Degrees(RoseArrowAzimuths(ActivePlot())[0]), 90, 1e-9);
    gSettings.notation.formulas = Formulas::Textbook;
    RoseCircularStats(kRoseFrequency);
    EXPECT_NEAR(Degrees(RoseArrowAzimuths(ActivePlot())[0]), 45, 1e-9);
}

TEST_F(RoseMeanTest, LeavesTheSurfaceAsItWas) {
    RecordingSurface surface(600, 600);
    const DrawState before = surface.State();
    ActiveRecord().RoseDisplay8 = kTrue;
    ActiveRose().confidence = RoseConfidenceOf(ActivePlot(), Formulas::Own);
    DrawRoseMean(ActivePlot(), {surface, surface, gSettings.styles});
    EXPECT_FALSE(surface.Operations().empty());
    EXPECT_EQ(surface.State(), before);
}

} // namespace quandrel
