// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/settings_value.h"
#include "density/grid_density.h"
#include "density/grid_geometry.h"
#include "density/point_density.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "stereo/symbols.h"
#include "support/line_samples.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"
#include "support/trial.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <numeric>
#include <random>

namespace quandrel {
namespace {

TEST(GridStep, ReachesTheRimOnAllSides) {
    for (int gridSize = kSmallestGridSize; gridSize <= kLargestGridSize; ++gridSize) {
        const int step = GridStep(gridSize);
        EXPECT_EQ(NodePosition(0, step), -1000 - step) << gridSize;
        EXPECT_EQ(NodePosition(1, step), -1000) << gridSize;
        EXPECT_GE(NodePosition(GridNodes(gridSize) - 1, step), 1000) << gridSize;
        EXPECT_LE(NodePosition(GridNodes(gridSize) - 1, step), 1000 + 10 * step) << gridSize;
    }
}

TEST(GridStep, IsTheWholePartUnlessThatLeavesAGap) {
    const std::map<int, int> steps = {{10, 200}, {20, 100}, {30, 66},  {40, 50},  {50, 40},
                                      {60, 33},  {70, 29},  {80, 25},  {90, 22},  {100, 20},
                                      {110, 19}, {120, 17}, {130, 16}, {140, 15}, {150, 14}};
    for (const auto& [gridSize, step] : steps) {
        EXPECT_EQ(GridStep(gridSize), step) << gridSize;
    }
}

TEST(GridNodes, OfTheFinestGridFillTheTable) {
    EXPECT_EQ(GridNodes(kLargestGridSize) - 1, 152);
    EXPECT_EQ(GridNodes(kLargestGridSize), kGridNodes);
}

TEST(GridBandBase, IsTheDensityOfOneRowRoundedUp) {
    const std::map<int, int> bases = {{1, 100}, {2, 50}, {3, 34},  {40, 3},  {50, 2},
                                      {60, 2},  {99, 2}, {100, 1}, {101, 1}, {500, 1}};
    for (const auto& [rows, base] : bases) {
        EXPECT_EQ(GridBandBase(rows), base) << rows;
    }
}

TEST(GridBand, DoublesFromTheBaseOn) {
    struct Case {
        int rows;
        int count;
        int band;
    };

    const std::vector<Case> cases = {
        {1, 1, 2},   // 100 over 100
        {2, 1, 2},   // 50 over 50
        {2, 2, 3},   // 100 over 50
        {3, 1, 1},   // 33.3 below 34
        {60, 1, 1},  // 1.67 below 2
        {60, 2, 2},  // 3.33 over 2
        {60, 3, 3},  // 5 over 2
        {60, 60, 7}, // 50, 32 is passed
        {100, 1, 2},  {100, 2, 3}, {100, 3, 3},  {100, 4, 4},   {500, 4, 1},
        {500, 5, 2},  {500, 9, 2}, {500, 10, 3}, {500, 500, 8}, // 100, 64 is passed
        {700, 14, 3},                                           // exactly 2
    };
    for (const Case& test : cases) {
        EXPECT_EQ(GridBand(test.count, test.rows), test.band) << test.count << " of " << test.rows;
    }
}

// Kept: the base is rounded up.
// Kept: here the density of one row is rounded down.
// 60 rows have the base 1 at points and 2 on the grid.
TEST(GridBand, HasAnotherBaseThanTheBandOfPoints) {
    EXPECT_EQ(PointDensityBand(2, 60), 4);
    EXPECT_EQ(GridBand(2, 60), 2);
}

/// The rows that count at a node, by the rule itself.
std::int32_t CountAtNode(const std::vector<DistinctLine>& lines, int plotKind, int x, int y) {
    double plunge = 0;
    double trend = 0;
    UnprojectPoint(plotKind, x, y, plunge, trend);
    std::int32_t count = 0;
    for (const DistinctLine& line : lines) {
        double angle = 0;
        AngleBetweenLines(plunge, trend, DegToRad(line.plunge), DegToRad(line.trend), angle,
                          LineAngle::kAcute);
        count += angle <= 0.20033485 ? line.rows : 0;
    }
    return count;
}

void ExpectEveryNode(const LineSample& sample, int plotKind, int gridSize) {
    const LineHistogram rows(sample.lines);
    const int step = GridStep(gridSize);
    std::vector<std::int32_t> counts(static_cast<std::size_t>(GridNodes(gridSize)));
    for (int column = 0; column < GridNodes(gridSize); ++column) {
        CountGridColumn(rows, plotKind, gridSize, column, counts);
        for (int row = 0; row < GridNodes(gridSize); ++row) {
            const int x = NodePosition(column, step);
            const int y = NodePosition(row, step);
            ASSERT_EQ(counts[static_cast<std::size_t>(row)],
                      CountAtNode(sample.lines, plotKind, x, y))
                << sample.name << " kind " << plotKind << " size " << gridSize << " at " << x
                << ", " << y;
        }
    }
}

TEST(CountGridColumnTrial, EqualsTheExactRuleAtEveryNodeOfEveryGrid) {
    TrialShare share;
    const std::vector<LineSample> samples = LineSamples(25);
    for (const int plotKind : {1, 2}) {
        for (int gridSize = kSmallestGridSize; gridSize <= kLargestGridSize; gridSize += 10) {
            for (const LineSample& sample : samples) {
                if (share.Takes()) {
                    ExpectEveryNode(sample, plotKind, gridSize);
                }
            }
        }
    }
}

TEST(CountGridColumnTrial, EqualsTheExactRuleForManyRowsAndOddGrids) {
    TrialShare share;
    const std::vector<LineSample> samples = LineSamples();
    for (const int plotKind : {1, 2}) {
        for (const int gridSize : {11, 37, 63}) {
            for (const LineSample& sample : samples) {
                if (share.Takes()) {
                    ExpectEveryNode(sample, plotKind, gridSize);
                }
            }
        }
    }
}

// Exact: x^2 + y^2 is 20000 there, and the cosine of the colatitude in the equal area net is 0.98.
TEST(CountGridColumn, AVerticalLineCountsAtNodesOnTheVeryEdgeOfItsCone) {
    const LineSample vertical = {"vertical", {}, {{90, 0, 1}, {90, 77, 1}, {90, 360, 1}}};
    const LineHistogram rows(vertical.lines);
    std::vector<std::int32_t> counts(GridNodes(100));
    const auto at = [](int position) { return (position + 1000 + GridStep(100)) / GridStep(100); };
    for (const int x : {-140, -100, -20, 20, 100, 140}) {
        const int y = std::abs(x) == 100 ? 100 : (std::abs(x) == 20 ? 140 : 20);
        CountGridColumn(rows, 1, 100, at(x), counts);
        EXPECT_EQ(counts[static_cast<std::size_t>(at(y))], 3) << x << ", " << y;
        EXPECT_EQ(counts[static_cast<std::size_t>(at(-y))], 3) << x << ", " << -y;
        EXPECT_EQ(counts[static_cast<std::size_t>(at(y + 20))], 0) << x << ", " << y + 20;
    }
    ExpectEveryNode(vertical, 1, 100);
}

class GridDensity : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kPolarLines;
        gSettings.gridSize = 20;
        NewPlot();
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

    static void AddRows(const WholeDegreeRows& rows) {
        for (const auto& [plunge, trend] : rows) {
            AddRow(plunge, trend);
        }
    }

    static std::int32_t Cell(int column, int row) {
        return (*ActiveRecord()
                     .DensityGrid)[static_cast<std::size_t>(column)][static_cast<std::size_t>(row)];
    }

    /// All cells, those outside the grid included.
    static std::vector<std::int32_t> Cells() {
        std::vector<std::int32_t> cells;
        for (int column = 0; column < kGridNodes; ++column) {
            for (int row = 0; row < kGridNodes; ++row) {
                cells.push_back(Cell(column, row));
            }
        }
        return cells;
    }
};

TEST_F(GridDensity, HoldsTheCountsOfEveryNodeAndNothingElse) {
    for (const std::int16_t kind : {kEqualArea, kEqualAngle}) {
        for (const LineSample& sample : LineSamples(60)) {
            FreshPlot();
            ActiveRecord().PlotKind = kind;
            AddRows(sample.rows);
            ComputeGridDensity();
            std::int32_t greatest = 0;
            for (int column = 0; column < kGridNodes; ++column) {
                for (int row = 0; row < kGridNodes; ++row) {
                    const bool isNode = std::max(column, row) < GridNodes(20);
                    const std::int32_t expected =
                        isNode
                            ? CountAtNode(sample.lines, kind, column * 100 - 1100, row * 100 - 1100)
                            : 0;
                    greatest = std::max(greatest, expected);
                    ASSERT_EQ(Cell(column, row), expected)
                        << sample.name << " " << column << ", " << row;
                }
            }
            EXPECT_FLOAT_EQ(ActiveRecord().GridDensityMax,
                            100.0F * static_cast<float>(greatest) / 60.0F);
        }
    }
}

TEST_F(GridDensity, ASingleRowMakesAPatchOfOnes) {
    AddRow(90, 0);
    gSettings.gridSize = 100;
    ComputeGridDensity();
    EXPECT_EQ(ActiveRecord().GridDensityMax, 100);
    for (int column = 0; column < GridNodes(100); ++column) {
        for (int row = 0; row < GridNodes(100); ++row) {
            const int x = NodePosition(column, 20);
            const int y = NodePosition(row, 20);
            ASSERT_EQ(Cell(column, row), x * x + y * y <= 20000 ? 1 : 0) << x << ", " << y;
        }
    }
}

TEST_F(GridDensity, NodesOutsideTheNetCountAtTheOppositeRim) {
    AddRow(0, 270);
    ComputeGridDensity();
    EXPECT_EQ(Cell(1, 11), 1) << "at the row itself";
    EXPECT_EQ(Cell(21, 11), 1) << "on the rim opposite";
    EXPECT_EQ(Cell(22, 11), 1) << "a step beyond the rim opposite";
    EXPECT_EQ(Cell(0, 11), 1) << "a step beyond the rim";
    EXPECT_EQ(Cell(11, 11), 0);
}

TEST_F(GridDensity, TakesItsSizeFromTheSlider) {
    AddRow(30, 120);
    const std::map<int, int> sizes = {{10, 10}, {70, 70}, {150, 150}, {400, 150}, {3, 10}};
    for (const auto& [slider, size] : sizes) {
        gSettings.gridSize = slider;
        ComputeGridDensity();
        EXPECT_EQ(ActiveRecord().GridSize, size);
    }
}

TEST_F(GridDensity, RemembersTheRowsItWasCountedFor) {
    AddRows({{30, 120}, {kErrorRow, 0}, {60, 300}});
    ComputeGridDensity();
    EXPECT_EQ(ActiveRecord().DensityCount, 2);
    EXPECT_EQ(ActiveRecord().GridDensityMax, 50);
}

TEST_F(GridDensity, IsAShareOfTheRowsCountedInAPlotOfKinematicAxes) {
    AddRows({{10, 0}, {10, 0}, {80, 0}, {45, 90}});
    ActiveRecord().AxesTitle = "P & T";
    ActiveRecord().NumValidData = 2;
    ComputeGridDensity();
    EXPECT_EQ(ActiveRecord().GridDensityMax, 50);
    EXPECT_EQ(ActiveRecord().DensityCount, 2) << "as the driver compares it";
}

TEST_F(GridDensity, LeavesOverlaysOut) {
    AddRow(30, 120);
    ComputeGridDensity();
    const std::vector<std::int32_t> cells = Cells();
    AddOverlay(kOverlayLines, 60, 300, CodeOfStyleRow(2));
    ComputeGridDensity();
    EXPECT_EQ(Cells(), cells);
}

TEST_F(GridDensity, APlotWithoutRowsHasAnEmptyGrid) {
    AddRow(30, 120);
    ComputeGridDensity();
    ActiveRecord().NumData = ActiveRecord().NumValidData = 0;
    ComputeGridDensity();
    EXPECT_EQ(ActiveRecord().GridDensityMax, 0);
    EXPECT_EQ(std::ranges::max(Cells()), 0);
    DrawGridSymbols();
    EXPECT_TRUE(DrawnOn(Form(gActivePlot).Plot()).empty());
}

TEST_F(GridDensity, DoesNotDependOnTheOrderOrTheSenseOfTheRows) {
    for (const LineSample& sample : LineSamples(100)) {
        FreshPlot();
        AddRows(sample.rows);
        ComputeGridDensity();
        const std::vector<std::int32_t> cells = Cells();
        WholeDegreeRows rows = sample.rows;
        std::shuffle(rows.begin(), rows.end(), std::mt19937(9));
        FreshPlot();
        AddRows(rows);
        ComputeGridDensity();
        EXPECT_EQ(Cells(), cells) << sample.name;
        FreshPlot();
        for (const auto& [plunge, trend] : rows) {
            AddRow(-plunge, plunge == 0 ? (trend + 180) % 360 : trend);
        }
        ComputeGridDensity();
        EXPECT_EQ(Cells(), cells) << "antipodes of " << sample.name;
    }
}

TEST_F(GridDensity, CountsMoreThanSixteenBitsHold) {
    AddRow(45, 45);
    RowTable& table = TableOf(gActivePlot);
    const PlottedRow row = table[0];
    for (std::int32_t index = 2; index <= 40000; ++index) {
        AppendRow(table, {index, row.x, row.y, row.plunge, row.trend});
    }
    ActiveRecord().NumData = ActiveRecord().NumValidData = 40000;
    ComputeGridDensity();
    EXPECT_EQ(std::ranges::max(Cells()), 40000);
    EXPECT_EQ(ActiveRecord().GridDensityMax, 100);
    EXPECT_EQ(DensityAt(ActivePlot(), DegToRad(45), DegToRad(45)).count, 40000);
}

TEST_F(GridDensity, AtALineIsWhatANodeThereWouldHold) {
    AddRows(LineSamples()[0].rows);
    ComputeGridDensity();
    for (int column = 0; column < GridNodes(20); ++column) {
        for (int row = 0; row < GridNodes(20); ++row) {
            double plunge = 0;
            double trend = 0;
            UnprojectPoint(kEqualArea, column * 100 - 1100, row * 100 - 1100, plunge, trend);
            const ConeDensity density = DensityAt(ActivePlot(), plunge, trend);
            ASSERT_EQ(density.count, Cell(column, row));
            ASSERT_DOUBLE_EQ(density.perCent, density.count / 3.0) << "of 300 rows";
        }
    }
}

TEST_F(GridDensity, AtALineOfAnEmptyPlotIsNothing) {
    EXPECT_EQ(DensityAt(ActivePlot(), 1, 1).count, 0);
    EXPECT_EQ(DensityAt(ActivePlot(), 1, 1).perCent, 0);
}

// Symbols.

/// The positions and glyphs of symbols, from all operations since the surface was cleared.
std::map<std::pair<int, int>, std::string> SymbolsDrawn() {
    std::map<std::pair<int, int>, std::string> symbols;
    const auto& form = static_cast<RecordingForm&>(FormOf(gActivePlot));
    for (const DrawOperation& operation : DrawnOn(form.Plot())) {
        EXPECT_EQ(operation.kind, DrawOperation::Kind::Markers);
        for (const Point& at : operation.points) {
            const bool isNew =
                symbols
                    .emplace(std::pair(static_cast<int>(at.x), static_cast<int>(at.y)),
                             operation.text)
                    .second;
            EXPECT_TRUE(isNew) << at.x << ", " << at.y;
        }
    }
    return symbols;
}

TEST_F(GridDensity, SymbolsStandAtCountedNodesOfTheNetInTheirBands) {
    AddRows(LineSamples()[0].rows);
    AddRows(LineSamples()[1].rows);
    ComputeGridDensity();
    DrawGridSymbols();
    const auto symbols = SymbolsDrawn();
    std::size_t expected = 0;
    for (int x = -1100; x <= 1100; x += 100) {
        for (int y = -1100; y <= 1100; y += 100) {
            const std::int32_t count = Cell((x + 1100) / 100, (y + 1100) / 100);
            const auto symbol = symbols.find({x, y});
            if (count == 0 || std::hypot(x, y) > 1000) {
                EXPECT_EQ(symbol, symbols.end()) << x << ", " << y;
                continue;
            }
            ++expected;
            ASSERT_NE(symbol, symbols.end()) << x << ", " << y;
            // 600 rows: the base is 1%.
            const double percent = count / 6.0;
            const int band = percent < 1 ? 1 : 2 + static_cast<int>(std::log2(percent));
            const SymbolRow& style = gSymbolTable[static_cast<std::size_t>(std::min(9 + band, 15))];
            EXPECT_EQ(symbol->second,
                      std::to_string(style[kPlaceSymbol]) + "/" + std::to_string(style[kPlaceSize]))
                << x << ", " << y;
        }
    }
    EXPECT_EQ(symbols.size(), expected);
    EXPECT_TRUE(symbols.contains({0, 1000})) << "a node on the primitive is on the net";
}

TEST_F(GridDensity, SymbolsStandInTheOrderOfTheNodes) {
    AddRows(LineSamples()[0].rows);
    ComputeGridDensity();
    DrawGridSymbols();
    std::vector<std::pair<double, double>> places;
    for (const DrawOperation& operation : DrawnOn(Form(gActivePlot).Plot())) {
        for (const Point& at : operation.points) {
            places.emplace_back(at.x, at.y);
        }
    }
    EXPECT_GT(places.size(), 100U);
    EXPECT_TRUE(std::ranges::is_sorted(places));
}

TEST_F(GridDensity, ABandWithoutASymbolIsHidden) {
    AddRow(90, 0);
    ComputeGridDensity();
    gSymbolTable[kFirstBandSymbol + 1][kPlaceSymbol] = kNoSymbol; // of 100 over 100
    DrawGridSymbols();
    EXPECT_TRUE(DrawnOn(Form(gActivePlot).Plot()).empty());
}

TEST_F(GridDensity, APlotWithoutAGridDrawsNoSymbols) {
    AddRow(30, 120);
    DrawGridSymbols();
    EXPECT_TRUE(DrawnOn(Form(gActivePlot).Plot()).empty());
}

} // namespace
} // namespace quandrel
