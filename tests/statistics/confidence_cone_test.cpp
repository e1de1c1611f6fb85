// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "orientation/angles.h"
#include "statistics/confidence_cone.h"
#include "statistics/fabric_statistics.h"
#include "stereo/window_drawing.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <cmath>
#include <utility>

namespace quandrel {
namespace {

class ConfidenceCone : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kLines;
        NewPlot();
    }

    std::size_t LinesDrawn() {
        Form(gActivePlot).PlotSurface().Clear(kWhite);
        const std::size_t before = DrawnOn(Form(gActivePlot).Plot()).size();
        DrawConfidenceCone(ActiveRecord(), WindowDrawing(gActivePlot));
        return DrawnOn(Form(gActivePlot).Plot()).size() - before;
    }
};

TEST_F(ConfidenceCone, ItsAngleIsThatOfTheStandardError) {
    PlotRecord& record = ActiveRecord();
    record.NumValidData = 40;
    record.FabricValueC = 0.1;
    ASSERT_TRUE(ConfidenceConeAngle(record));
    // sin q = sqrt(-ln 0.05) x 0.1, the root rounded to three places
    EXPECT_NEAR(std::sin(*ConfidenceConeAngle(record)), std::sqrt(-std::log(0.05)) * 0.1, 1e-4);
}

TEST_F(ConfidenceCone, ThereIsNoneWithoutSymmetryErrorOrRows) {
    PlotRecord& record = ActiveRecord();
    record.NumValidData = 40;
    for (const double none : {-1.0, 0.0, 0.6, 99999.0}) {
        record.FabricValueC = none;
        EXPECT_FALSE(ConfidenceConeAngle(record)) << none;
    }
    record.FabricValueC = 0.1;
    record.NumValidData = 1;
    EXPECT_FALSE(ConfidenceConeAngle(record));
}

TEST_F(ConfidenceCone, IsDrawnWhenItIsAskedFor) {
    for (int i = 0; i < 12; ++i) {
        AddRow(60, i * 30); // a ring about the vertical
    }
    ComputeFabricStatistics();
    ASSERT_TRUE(ConfidenceConeAngle(ActiveRecord()));
    EXPECT_EQ(LinesDrawn(), 0U);
    ActiveRecord().ShowConfidenceCone = true;
    EXPECT_EQ(LinesDrawn(), 1U) << "the axis is vertical, so the cone is one closed line";
    ActiveRecord().FabricValueC = -1;
    EXPECT_EQ(LinesDrawn(), 0U);
}

TEST_F(ConfidenceCone, GoesOnAtTheFarSideWhereItPassesThePrimitive) {
    // Rows all round the line 3/040, some 40 away from it, have their axis near there; the cone
    // about it is wider than its plunge.
    for (const auto& [plunge, trend] : {std::pair{43, 40},
                                        {37, 220},
                                        {2, 80},
                                        {2, 0},
                                        {30, 67},
                                        {26, 246},
                                        {30, 13},
                                        {26, 194}}) {
        AddRow(plunge, trend);
    }
    ActiveRecord().ShowConfidenceCone = true;
    for (const std::int16_t kind : {kEqualArea, kEqualAngle}) {
        ActiveRecord().PlotKind = kind;
        RebuildRowTable(gActivePlot);
        ComputeFabricStatistics();
        const auto angle = ConfidenceConeAngle(ActiveRecord());
        const AxisLine axis = FabricAxis(ActiveRecord(), 3);
        ASSERT_TRUE(angle);
        ASSERT_GT(*angle, axis.plunge);
        Form(gActivePlot).PlotSurface().Clear(kWhite);
        DrawConfidenceCone(ActiveRecord(), WindowDrawing(gActivePlot));
        int ends = 0;
        int nearSide = 0;
        int farSide = 0;
        for (const DrawOperation& line : DrawnOn(Form(gActivePlot).Plot())) {
            for (const Point& point : line.points) {
                const double radius = std::hypot(point.x, point.y);
                EXPECT_LE(radius, 1000.01);
                ends += radius > 999.99 ? 1 : 0;
                const double toward =
                    point.x * std::sin(axis.trend) + point.y * std::cos(axis.trend);
                (toward > 0 ? nearSide : farSide) += 1;
            }
        }
        EXPECT_GE(ends, 4) << "leaves the net twice and comes back twice";
        EXPECT_GT(nearSide, 0);
        EXPECT_GT(farSide, 0) << "the part that points up";
    }
}

} // namespace
} // namespace quandrel
