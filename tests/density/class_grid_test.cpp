// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/settings_value.h"
#include "density/class_grid.h"
#include "density/cone_counts.h"
#include "density/grid_density.h"
#include "density/grid_geometry.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "support/line_samples.h"
#include "support/numbered_rows.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class ClassGrid : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kPolarLines;
        gSettings.gridSize = 20;
        NewPlot();
        ActiveRecord().ClassMode = 1;
        ActiveRecord().HasAppendedNumeric = kTrue;
    }

    /// A new plot in the place of the active one.
    void FreshPlot() {
        ReleasePlotSlot(gActivePlot);
        NewPlot();
    }

    void TearDown() override {
        gSettings.gridSize = 50;
        EngineTest::TearDown();
    }

    static const GridValues& Values() {
        return *gGridValues[static_cast<std::size_t>(gActivePlot)];
    }

    static std::int16_t Count() { return gGridCount[static_cast<std::size_t>(gActivePlot)]; }
};

TEST_F(ClassGrid, HoldsSumAndMeanOfTheRowsAtEachNode) {
    for (const std::int16_t kind : {kEqualArea, kEqualAngle}) {
        for (const LineSample& sample : LineSamples(60)) {
            FreshPlot();
            ActiveRecord().PlotKind = kind;
            ActiveRecord().ClassMode = 1;
            ActiveRecord().HasAppendedNumeric = kTrue;
            float value = -20;
            for (const auto& [plunge, trend] : sample.rows) {
                AddNumberedRow(plunge, trend, value += 0.75F);
            }
            ComputeGridDensity();
            EXPECT_NE(Count(), 0);
            const RowTable& table = TableOf(gActivePlot);
            for (std::size_t column = 0; column < 23; ++column) {
                for (std::size_t row = 0; row < 23; ++row) {
                    double nodePlunge = 0;
                    double nodeTrend = 0;
                    UnprojectPoint(kind, static_cast<int>(column) * 100 - 1100,
                                   static_cast<int>(row) * 100 - 1100, nodePlunge, nodeTrend);
                    double sum = 0;
                    int rows = 0;
                    for (std::size_t place = 0; place < table.size(); ++place) {
                        double angle = 0;
                        AngleBetweenLines(nodePlunge, nodeTrend, table.plunge[place],
                                          table.trend[place], angle, LineAngle::kAcute);
                        if (angle <= kGridCountCone) {
                            sum +=
                                static_cast<double>(gAppNumeric(gActivePlot, table.index[place]));
                            ++rows;
                        }
                    }
                    const double total = Values()[kCumulativeLayer][column][row];
                    const double mean = Values()[kMeanLayer][column][row];
                    if (rows == 0) {
                        ASSERT_EQ(total, kUnsetValue);
                        ASSERT_EQ(mean, kUnsetValue);
                    } else {
                        ASSERT_NEAR(total, sum, 1e-9) << sample.name;
                        ASSERT_NEAR(mean, sum / rows, 1e-9) << sample.name;
                    }
                }
            }
        }
    }
}

TEST_F(ClassGrid, LeavesOutRowsWithoutAValidNumberAndErrorRows) {
    AddNumberedRow(90, 0, 4);
    AddNumberedRow(90, 0, kInvalidNumber);
    AddNumberedRow(kErrorRow, 0, 100);
    AddNumberedRow(90, 90, 8);
    ComputeGridDensity();
    EXPECT_EQ(Values()[kCumulativeLayer][11][11], 12);
    EXPECT_EQ(Values()[kMeanLayer][11][11], 6);
    EXPECT_EQ(Values()[kMeanLayer][1][11], kUnsetValue);
}

TEST_F(ClassGrid, IsGivenUpByAPlotThatIsNotClassifiedByNumbers) {
    AddNumberedRow(90, 0, 4);
    ComputeGridDensity();
    EXPECT_NE(Count(), 0);
    ActiveRecord().ClassMode = 2;
    ComputeGridDensity();
    EXPECT_EQ(Count(), 0);
    ActiveRecord().ClassMode = 1;
    ActiveRecord().HasAppendedNumeric = 0;
    ComputeGridDensity();
    EXPECT_EQ(Count(), 0);
}

TEST(ValuesWithin, SumsBothEndsOfTheConeAndAFullTurn) {
    LineValues values;
    values.Add(-2, 0, 1);
    values.Add(2, 360, 10);
    values.Add(3, 180, 100);
    values.Add(40, 180, 1000);
    const ValueSum sum = ValuesWithin(values, 0, 0, kCountCone);
    EXPECT_EQ(sum.sum, 111);
    EXPECT_EQ(sum.values, 3);
    EXPECT_EQ(ValuesWithin(values, DegToRad(60), 0, kCountCone).values, 0);
}

} // namespace
} // namespace quandrel
