// SPDX-License-Identifier: MIT
//
// Densities of plots that use decimals, against counts row by row.

#include "core/data_format.h"
#include "density/class_grid.h"
#include "density/cone_counts.h"
#include "density/grid_density.h"
#include "density/grid_geometry.h"
#include "density/point_density.h"
#include "orientation/projection.h"
#include "orientation/vectors.h"
#include "support/measured_plots.h"
#include "support/test_platform.h"

#include <algorithm>
#include <cmath>

namespace quandrel {
namespace {

using testing::Dot;
using testing::Radians;
using testing::Vector;

constexpr int kRows = 3000;
constexpr int kGridSize = 20;

Vector VectorOf(double plunge, double trend) {
    return {std::cos(plunge) * std::cos(trend), std::cos(plunge) * std::sin(trend),
            std::sin(plunge)};
}

std::vector<Vector> VectorsOf(const std::vector<Attitude>& rows) {
    std::vector<Vector> vectors;
    for (const Attitude& row : rows) {
        vectors.push_back(VectorOf(Radians(row.dip), Radians(row.azimuth)));
    }
    return vectors;
}

bool IsNear(const Vector& a, const Vector& b, double cone) {
    return std::abs(Dot(a, b)) >= std::cos(cone);
}

std::int32_t CountNear(const std::vector<Vector>& rows, const Vector& centre, double cone) {
    return static_cast<std::int32_t>(std::count_if(
        rows.begin(), rows.end(), [&](const Vector& row) { return IsNear(row, centre, cone); }));
}

/// The line at a node of a grid.
Vector VectorOfNode(int plotKind, int gridSize, int column, int row) {
    const int step = GridStep(gridSize);
    double plunge = 0;
    double trend = 0;
    UnprojectPoint(plotKind, NodePosition(column, step), NodePosition(row, step), plunge, trend);
    return VectorOf(std::abs(plunge), trend);
}

/// The sample as a file of whole degrees has it.
MeasuredSample Rounded(MeasuredSample sample) {
    for (Attitude& row : sample.rows) {
        row = RoundedAttitude(row, false);
    }
    return sample;
}

class MeasuredDensity : public EngineTest {
protected:
    void NewPlotOf(const MeasuredSample& sample, std::int16_t plotKind) {
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kLines;
        NewPlot();
        ActiveRecord().PlotKind = plotKind;
        AddMeasuredRows(sample.rows);
    }

    static std::vector<std::int32_t> Bands() {
        ComputePointDensities();
        std::vector<std::int32_t> bands;
        for (std::int32_t row = 1; row <= ActiveRecord().NumData; ++row) {
            bands.push_back(gPointDensity(gActivePlot, row));
        }
        return bands;
    }

    static std::vector<std::int32_t> Grid() {
        ComputeGridDensity(ActivePlot(), kGridSize, nullptr);
        std::vector<std::int32_t> counts;
        for (int column = 0; column < GridNodes(kGridSize); ++column) {
            for (int row = 0; row < GridNodes(kGridSize); ++row) {
                counts.push_back((*ActiveRecord().DensityGrid)[static_cast<std::size_t>(column)]
                                                              [static_cast<std::size_t>(row)]);
            }
        }
        return counts;
    }
};

TEST_F(MeasuredDensity, NodesCountAsEachRowByItself) {
    for (const std::int16_t plotKind : {kEqualArea, kEqualAngle}) {
        for (const MeasuredSample& sample : MeasuredSamples(kRows)) {
            NewPlotOf(sample, plotKind);
            UseDecimals(true);
            const std::vector<Vector> rows = VectorsOf(sample.rows);
            const std::vector<std::int32_t> counts = Grid();
            std::int32_t greatest = 0;
            std::size_t place = 0;
            for (int column = 0; column < GridNodes(kGridSize); ++column) {
                for (int row = 0; row < GridNodes(kGridSize); ++row) {
                    const Vector node = VectorOfNode(plotKind, kGridSize, column, row);
                    const std::int32_t expected = CountNear(rows, node, kGridCountCone);
                    ASSERT_EQ(counts[place++], expected) << sample.name << column << " " << row;
                    greatest = std::max(greatest, expected);
                }
            }
            EXPECT_FLOAT_EQ(ActiveRecord().GridDensityMax,
                            static_cast<float>(100.0 * greatest / kRows));
            ReleasePlotSlot(gActivePlot);
        }
    }
}

TEST_F(MeasuredDensity, BandsOfPointsAreThoseOfEachPair) {
    for (const std::int16_t plotKind : {kEqualArea, kEqualAngle}) {
        for (const MeasuredSample& sample : MeasuredSamples(kRows)) {
            NewPlotOf(sample, plotKind);
            AddRow(kErrorRow, 0);
            UseDecimals(true);
            SortRowTable(TableOf(gActivePlot), static_cast<std::size_t>(ActiveRecord().NumData));
            const std::vector<std::int32_t> bands = Bands();
            const std::vector<Vector> rows = VectorsOf(sample.rows);
            std::int32_t greatest = 0;
            for (std::size_t i = 0; i < rows.size(); ++i) {
                const std::int32_t count = CountNear(rows, rows[i], kCountCone);
                ASSERT_EQ(bands[i], PointDensityBand(count, kRows))
                    << plotKind << " " << sample.name << " " << i;
                greatest = std::max(greatest, count);
            }
            EXPECT_EQ(bands.back(), 0);
            EXPECT_EQ(ActiveRecord().PointDensityMax, PointDensity(greatest, kRows));
            ReleasePlotSlot(gActivePlot);
        }
    }
}

TEST_F(MeasuredDensity, SwitchedOffItIsThatOfWholeDegrees) {
    for (const std::int16_t plotKind : {kEqualArea, kEqualAngle}) {
        for (const MeasuredSample& sample : MeasuredSamples(kRows)) {
            SCOPED_TRACE(sample.name + " " + std::to_string(plotKind));
            NewPlotOf(Rounded(sample), plotKind);
            ASSERT_EQ(CountRowsWithDecimals(ActivePlot().rows, 1, kRows), 0);
            const std::vector<std::int32_t> grid = Grid();
            const std::vector<std::int32_t> bands = Bands();
            ReleasePlotSlot(gActivePlot);
            NewPlotOf(sample, plotKind);
            EXPECT_EQ(Grid(), grid);
            EXPECT_EQ(Bands(), bands);
            UseDecimals(true);
            EXPECT_NE(Grid(), grid);
            EXPECT_NE(Bands(), bands);
            UseDecimals(false);
            EXPECT_EQ(Grid(), grid);
            EXPECT_EQ(Bands(), bands);
            RemoveDecimals();
            UseDecimals(true); // of a plot without decimals
            EXPECT_EQ(Grid(), grid);
            EXPECT_EQ(Bands(), bands);
            ReleasePlotSlot(gActivePlot);
        }
    }
}

TEST_F(MeasuredDensity, AboutALineIsThatOfEachRow) {
    const MeasuredSample sample = MeasuredSamples(kRows)[1];
    NewPlotOf(sample, kEqualArea);
    UseDecimals(true);
    const std::vector<Vector> rows = VectorsOf(sample.rows);
    for (int trend = -20; trend < 20; trend += 7) {
        const ConeDensity density = DensityAt(ActivePlot(), Radians(4.3), Radians(trend));
        const std::int32_t count =
            CountNear(rows, VectorOf(Radians(4.3), Radians(trend)), kGridCountCone);
        EXPECT_EQ(density.count, count);
        EXPECT_DOUBLE_EQ(density.perCent, 100.0 * count / kRows);
    }
}

TEST_F(MeasuredDensity, ValuesOfNodesAreThoseOfTheRowsInTheirCones) {
    const MeasuredSample sample = MeasuredSamples(400)[0];
    NewPlotOf(sample, kEqualArea);
    PlotRecord& record = ActiveRecord();
    record.HasAppendedNumeric = kTrue;
    record.ClassMode = 1;
    ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
    for (std::int32_t row = 1; row <= record.NumData; ++row) {
        gAppNumeric.At(gActivePlot, row) =
            row % 10 == 0 ? kInvalidNumber : static_cast<float>(row % 37);
    }
    UseDecimals(true);
    ComputeGridDensity(ActivePlot(), kGridSize, nullptr);
    const std::vector<Vector> rows = VectorsOf(sample.rows);
    ASSERT_NE(gGridCount[static_cast<std::size_t>(gActivePlot)], 0);
    for (int column = 0; column < GridNodes(kGridSize); ++column) {
        for (int row = 0; row < GridNodes(kGridSize); ++row) {
            const Vector node = VectorOfNode(kEqualArea, kGridSize, column, row);
            double sum = 0;
            int values = 0;
            for (std::size_t i = 0; i < rows.size(); ++i) {
                if ((i + 1) % 10 != 0 && IsNear(rows[i], node, kGridCountCone)) {
                    sum += static_cast<double>((i + 1) % 37);
                    ++values;
                }
            }
            const auto at = [&](GridLayer layer) {
                return (*ActivePlot().gridValues)[layer][static_cast<std::size_t>(column)]
                                                 [static_cast<std::size_t>(row)];
            };
            ASSERT_EQ(at(kCumulativeLayer), values > 0 ? sum : kUnsetValue);
            ASSERT_EQ(at(kMeanLayer), values > 0 ? sum / values : kUnsetValue);
        }
    }
}

} // namespace
} // namespace quandrel
