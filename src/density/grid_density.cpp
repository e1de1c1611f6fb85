// SPDX-License-Identifier: MIT

#include "density/grid_density.h"

#include "core/plot_store.h"
#include "core/settings_value.h"
#include "core/told_step.h"
#include "density/class_grid.h"
#include "density/grid_geometry.h"
#include "orientation/projection.h"
#include "platform/platform.h"
#include "stereo/distinct_lines.h"
#include "stereo/symbols.h"
#include "stereo/window_drawing.h"

#include <algorithm>
#include <cmath>
#include <type_traits>
#include <vector>

namespace quandrel {

namespace {

constexpr const char* kCountingText = " Please wait - calculating grid value densities";
constexpr const char* kDrawingText = " Please wait - plotting grid densities";
constexpr int kSquaredRim = 1000000;

using DensityTable = std::remove_reference_t<decltype(*PlotRecord::DensityGrid)>;

/// The cleared table of a plot, made on first use.
DensityTable& EmptyGrid(PlotRecord& record) {
    if (record.DensityGrid == nullptr) {
        record.DensityGrid = std::make_unique<DensityTable>();
    }
    for (auto& column : *record.DensityGrid) {
        column.fill(0);
    }
    return *record.DensityGrid;
}

/// Fills the table and returns the greatest count.
std::int32_t CountGrid(PlotRecord& record, const LineHistogram& rows, StatusLine* watcher) {
    const int gridSize = record.GridSize;
    const int nodes = GridNodes(gridSize);
    DensityTable& grid = EmptyGrid(record);
    std::vector<std::int32_t> counts(static_cast<std::size_t>(nodes));
    std::int32_t greatest = 0;
    ToldStep step(kCountingText, (gridSize + 2) * (gridSize + 2) + 1, watcher);
    for (int column = 0; column < nodes; ++column) {
        step.Reach(std::int64_t{column} * nodes);
        CountGridColumn(rows, record.PlotKind, gridSize, column, counts);
        std::copy(counts.begin(), counts.end(), grid[static_cast<std::size_t>(column)].begin());
        greatest = std::max(greatest, *std::max_element(counts.begin(), counts.end()));
    }
    return greatest;
}

/// Fills the table with the counts of measured rows and returns the greatest.
std::int32_t StoreMeasuredGrid(PlotRecord& record, const AxisCells& rows, StatusLine* watcher) {
    const auto nodes = static_cast<std::size_t>(GridNodes(record.GridSize));
    ToldStep step(kCountingText, static_cast<std::int64_t>(nodes * nodes), watcher);
    const std::vector<std::int32_t> counts =
        CountMeasuredGrid(rows, record.PlotKind, record.GridSize, ThreadsToUse(),
                          [&step](std::int64_t done) { step.Reach(done); });
    DensityTable& grid = EmptyGrid(record);
    for (std::size_t column = 0; column < nodes; ++column) {
        std::copy_n(counts.begin() + static_cast<std::ptrdiff_t>(column * nodes), nodes,
                    grid[column].begin());
    }
    return *std::max_element(counts.begin(), counts.end());
}

/// A node that shows a symbol.
struct DrawnNode {
    Point at;
    int band = 0;
};

std::vector<DrawnNode> NodesToDraw(const PlotRecord& record, std::int32_t rows) {
    const int nodes = GridNodes(record.GridSize);
    const int step = GridStep(record.GridSize);
    std::vector<DrawnNode> drawn;
    for (int column = 0; column < nodes; ++column) {
        const int x = NodePosition(column, step);
        for (int row = 0; row < nodes; ++row) {
            const int y = NodePosition(row, step);
            const std::int32_t count = (*record.DensityGrid)[static_cast<std::size_t>(column)]
                                                            [static_cast<std::size_t>(row)];
            if (count >= 1 && x * x + y * y <= kSquaredRim) {
                drawn.push_back(
                    {{static_cast<double>(x), static_cast<double>(y)}, GridBand(count, rows)});
            }
        }
    }
    return drawn;
}

SymbolCode CodeOfBand(const Styles& styles, int band) {
    return CodeOfStyleRow(styles, std::min(kFirstBandSymbol + band - 1, kLastBandSymbol));
}

} // namespace

void CountGridColumn(const LineHistogram& rows, int plotKind, int gridSize, int column,
                     std::span<std::int32_t> counts) {
    const int step = GridStep(gridSize);
    const int x = NodePosition(column, step);
    for (std::size_t row = 0; row < counts.size(); ++row) {
        double plunge = 0;
        double trend = 0;
        UnprojectPoint(plotKind, x, NodePosition(static_cast<int>(row), step), plunge, trend);
        counts[row] = CountWithin(rows, plunge, trend, kGridCountCone);
    }
}

std::vector<std::int32_t> CountMeasuredGrid(const AxisCells& rows, int plotKind, int gridSize,
                                            unsigned threads,
                                            const std::function<void(std::int64_t)>& onDone) {
    const int step = GridStep(gridSize);
    const int nodes = GridNodes(gridSize);
    std::vector<MeasuredLine> centres;
    for (int column = 0; column < nodes; ++column) {
        for (int row = 0; row < nodes; ++row) {
            double plunge = 0;
            double trend = 0;
            UnprojectPoint(plotKind, NodePosition(column, step), NodePosition(row, step), plunge,
                           trend);
            centres.push_back({plunge, WrappedAngle(trend)});
        }
    }
    return CountsAbout(rows, centres, kGridCountCone, threads, onDone);
}

bool HasDensityGrid(const PlotRecord& record) {
    return record.DensityGrid != nullptr && record.GridSize >= kSmallestGridSize
           && record.GridSize <= kLargestGridSize;
}

int GridBandBase(std::int32_t rows) {
    const double unit = 100.0 / rows;
    // Kept: the base is rounded up, unlike the base of the bands of points.
    return unit < 1 ? 1 : std::max(static_cast<int>(RoundToEven(unit + 0.4999)), 1);
}

int GridBand(std::int32_t count, std::int32_t rows) {
    const int base = GridBandBase(rows);
    const double density = 100.0 * count / rows;
    return density < base ? 1 : std::ilogb(density / base) + 2;
}

void ComputeGridDensity(Plot& plot, int gridSize, StatusLine* watcher) {
    PlotRecord& record = plot.record;
    const RowLines& lines = LinesOf(plot);
    const std::int32_t rows = CountOfLines(lines);
    record.GridSize =
        static_cast<std::int16_t>(std::clamp(gridSize, kSmallestGridSize, kLargestGridSize));
    const AxisCells* const measured = MeasuredCellsOf(plot);
    const std::int32_t greatest = measured != nullptr
                                      ? StoreMeasuredGrid(record, *measured, watcher)
                                      : CountGrid(record, LineHistogram(lines.whole), watcher);
    record.GridDensityMax = rows > 0 ? static_cast<float>(100.0 * greatest / rows) : 0;
    record.DensityCount = record.NumValidData;
    record.DensityGridFromFile = false;
    ComputeGridValues(plot);
}

void ComputeGridDensity() {
    ComputeGridDensity(ActivePlot(), gSettings.gridSize, WatcherInForce());
}

void DrawGridSymbols(const Plot& plot, const Drawing& drawing) {
    const PlotRecord& record = plot.record;
    const std::int32_t rows = CountOfMainRows(plot);
    if (!HasDensityGrid(record) || rows == 0) {
        return;
    }
    const std::vector<DrawnNode> nodes = NodesToDraw(record, rows);
    ToldStep step(kDrawingText, static_cast<std::int64_t>(nodes.size()), drawing.watcher);
    // Consecutive nodes of the same band are sent to the surface together.
    std::vector<Point> places;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        places.push_back(nodes[i].at);
        if (i + 1 == nodes.size() || nodes[i + 1].band != nodes[i].band) {
            step.Reach(static_cast<std::int64_t>(i));
            DrawSymbols(drawing.plot, drawing.styles, places,
                        CodeOfBand(drawing.styles, nodes[i].band));
            places.clear();
        }
    }
}

void DrawGridSymbols() {
    DrawGridSymbols(ActivePlot(), WindowDrawing(gActivePlot));
}

ConeDensity DensityAt(Plot& plot, double plunge, double trend) {
    const RowLines& lines = LinesOf(plot);
    const std::int32_t rows = CountOfLines(lines);
    if (rows == 0) {
        return {};
    }
    const AxisCells* const measured = MeasuredCellsOf(plot);
    const std::int32_t count =
        measured != nullptr
            ? measured->CountWithin({plunge, WrappedAngle(trend)}, kGridCountCone)
            : CountWithin(LineHistogram(lines.whole), plunge, trend, kGridCountCone);
    return {count, 100.0 * count / rows};
}

} // namespace quandrel
