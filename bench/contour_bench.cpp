// SPDX-License-Identifier: MIT
//
// Contours of a density grid at all levels: tracing, joining, and drawing on 1000 pixels. The
// baseline traces every triangle of every cell and draws each segment separately.

#include "bench_engine.h"
#include "core/plot_store.h"
#include "core/settings_value.h"
#include "density/cone_counts.h"
#include "density/contour_levels.h"
#include "density/contours.h"
#include "density/grid_density.h"
#include "density/grid_geometry.h"
#include "stereo/distinct_lines.h"
#include "stereo/row_positions.h"
#include "stereo/window_drawing.h"

#ifdef QUANDREL_WITH_QT
#include "qt/painter_surface.h"

#include <QImage>
#include <QPainter>
#endif

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>
#include <random>
#include <vector>

namespace quandrel {
namespace {

enum Spread : int { kAnywhere, kClustered };

/// A plot of planes with its finest grid.
class PlotWithGrid : public BenchEngine {
public:
    PlotWithGrid(std::int64_t rows, Spread spread) {
        PlotRecord& record = NewPlotWithColumns(rows);
        std::mt19937 random(1);
        std::normal_distribution<double> dips(40, 15);
        std::normal_distribution<double> azimuths(120, 40);
        for (std::int32_t row = 1; row <= record.NumData; ++row) {
            const bool anywhere = spread == kAnywhere;
            gDataDip.At(gActivePlot, row) =
                anywhere ? static_cast<std::int32_t>(random() % 91)
                         : static_cast<std::int32_t>(std::clamp(dips(random), 0.0, 90.0));
            gDataAz.At(gActivePlot, row) =
                anywhere ? static_cast<std::int32_t>(random() % 361)
                         : static_cast<std::int32_t>(std::clamp(azimuths(random), 0.0, 360.0));
        }
        RebuildRowTable(gActivePlot);
        gSettings.gridSize = kLargestGridSize;
        ComputeGridDensity();
        const ContourLevelSet set =
            ContourLevelsOf(CountOfLines(LinesOf(ActivePlot())), record.GridDensityMax);
        record.ContourLevels = set.levels;
        record.NumContours = set.count;
    }
};

void TellSegments(benchmark::State& state) {
    std::size_t segments = 0;
    for (const LevelContour& contour : ContoursOf(ActivePlot())) {
        segments += contour.segments.size();
    }
    state.counters["segments"] = static_cast<double>(segments);
    state.counters["levels"] = ActiveRecord().NumContours;
}

/// The segments of the four triangles of a cell, given its corners in order.
template <class Take>
void TraceCell(const std::array<TriangleVertex, 4>& corners, Take take) {
    TriangleVertex centre;
    for (const TriangleVertex& corner : corners) {
        centre.at.x += corner.at.x / 4;
        centre.at.y += corner.at.y / 4;
        centre.height += corner.height / 4;
    }
    for (std::size_t side = 0; side < 4; ++side) {
        const auto segment = TriangleSegment({corners[side], centre, corners[(side + 1) % 4]});
        const auto clipped = segment ? ClippedToPrimitive(*segment) : std::nullopt;
        if (clipped) {
            take(*clipped);
        }
    }
}

/// All levels of the active plot, without skipping any cell. Calls take(level number, segment).
template <class Take>
void TraceEveryTriangle(Take take) {
    const PlotRecord& record = ActiveRecord();
    const int nodes = GridNodes(record.GridSize);
    const int step = GridStep(record.GridSize);
    const std::int32_t rows = CountOfLines(LinesOf(ActivePlot()));
    for (int k = 0; k < record.NumContours; ++k) {
        const double level = CountOfLevel(record.ContourLevels[static_cast<std::size_t>(k)], rows);
        const auto vertex = [&](int i, int j) -> TriangleVertex {
            const std::int32_t count =
                (*record.DensityGrid)[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)];
            return {{static_cast<double>(NodePosition(i, step)),
                     static_cast<double>(NodePosition(j, step))},
                    count - level};
        };
        const auto takeOfLevel = [&](const ContourSegment& segment) { take(k, segment); };
        for (int i = 1; i < nodes; ++i) {
            for (int j = 1; j < nodes; ++j) {
                TraceCell({vertex(i - 1, j - 1), vertex(i, j - 1), vertex(i, j), vertex(i - 1, j)},
                          takeOfLevel);
            }
        }
    }
}

using Clock = std::chrono::steady_clock;

/// Ratio of the time of one run of the baseline to that of `fast`.
template <class Fast>
void TellRatio(benchmark::State& state, Clock::time_point start, Fast fast) {
    constexpr int kRepeats = 20;
    const auto end = Clock::now();
    fast(); // warms up
    const auto half = Clock::now();
    for (int i = 0; i < kRepeats; ++i) {
        fast();
    }
    const std::chrono::duration<double> slow = end - start;
    const std::chrono::duration<double> quick = Clock::now() - half;
    state.counters["ratio"] =
        slow / static_cast<double>(state.iterations()) / (quick / static_cast<double>(kRepeats));
}

void TraceOneByOne(benchmark::State& state, Spread spread) {
    const PlotWithGrid plot(state.range(0), spread);
    const auto start = Clock::now();
    for (auto _ : state) {
        std::vector<ContourSegment> segments;
        TraceEveryTriangle(
            [&](int, const ContourSegment& segment) { segments.push_back(segment); });
        benchmark::DoNotOptimize(segments.data());
    }
    TellRatio(state, start, [] { benchmark::DoNotOptimize(ContoursOf(ActivePlot())); });
}

void Trace(benchmark::State& state, Spread spread) {
    const PlotWithGrid plot(state.range(0), spread);
    for (auto _ : state) {
        benchmark::DoNotOptimize(ContoursOf(ActivePlot()));
    }
    TellSegments(state);
}

void TraceAndJoin(benchmark::State& state, Spread spread) {
    const PlotWithGrid plot(state.range(0), spread);
    for (auto _ : state) {
        for (const LevelContour& contour : ContoursOf(ActivePlot())) {
            benchmark::DoNotOptimize(ChainSegments(contour.segments));
        }
    }
    TellSegments(state);
}

#ifdef QUANDREL_WITH_QT
/// Draws on 1000 pixels while it lives.
class OnImage {
public:
    OnImage() {
        image_.fill(Qt::white);
        net_.SetUserScale(kPlotScale);
    }

    Surface& Net() { return net_; }

    void TraceContours() {
        FindContourLevels(ActivePlot());
        DrawContours(ActivePlot(), PaperDrawing(ActiveRecord(), net_, legend_));
    }

private:
    QImage image_{1000, 1000, QImage::Format_RGB32};
    QPainter painter_{&image_};
    PainterSurface net_{painter_, QRectF(0, 0, 1000, 1000), 1, Medium::Raster};
    PainterSurface legend_{painter_, QRectF(0, 0, 200, 200), 1, Medium::Raster};
};

void Draw(benchmark::State& state, Spread spread) {
    const PlotWithGrid plot(state.range(0), spread);
    OnImage image;
    for (auto _ : state) {
        image.TraceContours();
    }
    TellSegments(state);
}

void DrawOneByOne(benchmark::State& state, Spread spread) {
    const PlotWithGrid plot(state.range(0), spread);
    OnImage image;
    const auto start = Clock::now();
    for (auto _ : state) {
        TraceEveryTriangle([&](int level, const ContourSegment& segment) {
            const AxisStyle style = ContourStyleOf(gSettings.styles, level);
            DrawState drawing = image.Net().State();
            drawing.drawStyle = style[kStyleLine];
            drawing.drawWidth = style[kStyleWidth];
            image.Net().SetState(drawing);
            image.Net().Line(segment.from, segment.to, TableColour(style[kStyleColour]));
        });
    }
    TellRatio(state, start, [&image] { image.TraceContours(); });
}
#endif

void Sizes(benchmark::internal::Benchmark* bench) {
    bench->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(Trace, Anywhere, kAnywhere)->Apply(Sizes);
BENCHMARK_CAPTURE(Trace, Clustered, kClustered)->Apply(Sizes);
BENCHMARK_CAPTURE(TraceOneByOne, Anywhere, kAnywhere)->Apply(Sizes);
BENCHMARK_CAPTURE(TraceOneByOne, Clustered, kClustered)->Apply(Sizes);
BENCHMARK_CAPTURE(TraceAndJoin, Anywhere, kAnywhere)->Apply(Sizes);
BENCHMARK_CAPTURE(TraceAndJoin, Clustered, kClustered)->Apply(Sizes);
#ifdef QUANDREL_WITH_QT
BENCHMARK_CAPTURE(Draw, Anywhere, kAnywhere)->Apply(Sizes);
BENCHMARK_CAPTURE(Draw, Clustered, kClustered)->Apply(Sizes);
BENCHMARK_CAPTURE(DrawOneByOne, Anywhere, kAnywhere)->Apply(Sizes);
BENCHMARK_CAPTURE(DrawOneByOne, Clustered, kClustered)->Apply(Sizes);
#endif

} // namespace
} // namespace quandrel
