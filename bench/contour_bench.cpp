// SPDX-License-Identifier: MIT
//
// Contours of a density grid, all levels: tracing, joining, and drawing on 1000 pixels.

#include "core/plot_store.h"
#include "core/settings.h"
#include "density/cone_counts.h"
#include "density/contour_levels.h"
#include "density/contours.h"
#include "density/grid_density.h"
#include "density/grid_geometry.h"
#include "platform/memory_settings_store.h"
#include "platform/platform.h"
#include "platform/quiet_status_line.h"
#include "platform/recording_form.h"
#include "platform/scripted_prompts.h"
#include "stereo/distinct_lines.h"
#include "stereo/draw_target.h"
#include "stereo/plot_driver.h"
#include "stereo/row_positions.h"

#ifdef QUANDREL_WITH_QT
#include "platform/qt/painter_surface.h"

#include <QImage>
#include <QPainter>
#endif

#include <benchmark/benchmark.h>

#include <algorithm>
#include <random>

namespace quandrel {
namespace {

enum Spread : int { kAnywhere, kClustered };

/// A plot of planes with its grid of the finest kind.
class PlotWithGrid {
public:
    PlotWithGrid(std::int64_t rows, Spread spread) {
        gPlatform = {};
        gPlatform.prompts = &prompts_;
        gPlatform.status = &status_;
        gPlatform.settings = &settings_;
        gPlatform.makePlotForm = [](int) { return std::make_unique<RecordingForm>(); };
        LoadSettings();
        MakeStoreTables();
        gActivePlot = FindFreePlotSlot();
        ResetPlotRecord(gActivePlot);
        PlotRecord& record = ActiveRecord();
        record.NumData = record.NumValidData = record.NumLoadedData = static_cast<int>(rows);
        int secondary = 0;
        GrowDataColumns(secondary, record.NumData);
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
        gGridDensitySlider = kLargestGridSize;
        ComputeGridDensity();
        const ContourLevelSet set =
            ContourLevelsOf(RowsOf(DistinctLinesOfActivePlot()), record.GridDensityMax);
        record.ContourLevels = set.levels;
        record.NumContours = set.count;
    }

    ~PlotWithGrid() {
        MakeStoreTables();
        gPlatform = {};
    }

    PlotWithGrid(const PlotWithGrid&) = delete;
    PlotWithGrid& operator=(const PlotWithGrid&) = delete;

private:
    ScriptedPrompts prompts_{ScriptedPrompts::Mode::Batch};
    QuietStatusLine status_;
    MemorySettingsStore settings_;
};

void TellSegments(benchmark::State& state) {
    std::size_t segments = 0;
    for (const LevelContour& contour : ContoursOfActivePlot()) {
        segments += contour.segments.size();
    }
    state.counters["segments"] = static_cast<double>(segments);
    state.counters["levels"] = ActiveRecord().NumContours;
}

void Trace(benchmark::State& state, Spread spread) {
    const PlotWithGrid plot(state.range(0), spread);
    for (auto _ : state) {
        benchmark::DoNotOptimize(ContoursOfActivePlot());
    }
    TellSegments(state);
}

void TraceAndJoin(benchmark::State& state, Spread spread) {
    const PlotWithGrid plot(state.range(0), spread);
    for (auto _ : state) {
        for (const LevelContour& contour : ContoursOfActivePlot()) {
            benchmark::DoNotOptimize(ChainSegments(contour.segments));
        }
    }
    TellSegments(state);
}

#ifdef QUANDREL_WITH_QT
void Draw(benchmark::State& state, Spread spread) {
    const PlotWithGrid plot(state.range(0), spread);
    QImage image(1000, 1000, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    PainterSurface net(painter, QRectF(0, 0, 1000, 1000), 1, Medium::Raster);
    net.SetUserScale(kPlotScale);
    PainterSurface legend(painter, QRectF(0, 0, 200, 200), 1, Medium::Raster);
    const DrawElsewhere elsewhere(net, legend);
    for (auto _ : state) {
        TraceContours();
    }
    TellSegments(state);
}
#endif

void Sizes(benchmark::internal::Benchmark* bench) {
    bench->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(Trace, Anywhere, kAnywhere)->Apply(Sizes);
BENCHMARK_CAPTURE(Trace, Clustered, kClustered)->Apply(Sizes);
BENCHMARK_CAPTURE(TraceAndJoin, Anywhere, kAnywhere)->Apply(Sizes);
BENCHMARK_CAPTURE(TraceAndJoin, Clustered, kClustered)->Apply(Sizes);
#ifdef QUANDREL_WITH_QT
BENCHMARK_CAPTURE(Draw, Anywhere, kAnywhere)->Apply(Sizes);
BENCHMARK_CAPTURE(Draw, Clustered, kClustered)->Apply(Sizes);
#endif

} // namespace
} // namespace quandrel
