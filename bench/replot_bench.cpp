// SPDX-License-Identifier: MIT
//
// Drawing plots on a surface of 1000 pixels: unchanged, and after recomputing everything that
// depends on changed rows. For the latter the memory is reported too, without the columns and the
// table.

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "core/settings.h"
#include "core/settings_value.h"
#include "drawing/draw_plot.h"
#include "drawing/plot_driver.h"
#include "persistence/open_plot.h"
#include "platform/memory_settings_store.h"
#include "platform/platform.h"
#include "platform/scripted/quiet_status_line.h"
#include "platform/scripted/recording_form.h"
#include "platform/scripted/scripted_prompts.h"
#include "qt/painter_surface.h"
#include "session/start.h"
#include "stereo/row_positions.h"
#include "stereo/window_drawing.h"

#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>
#include <random>

namespace {

std::atomic<std::int64_t> bytesInUse = 0;
std::atomic<std::int64_t> mostBytesInUse = 0;

void* Counted(void* memory) {
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    const std::int64_t bytes = bytesInUse += static_cast<std::int64_t>(malloc_usable_size(memory));
    std::int64_t most = mostBytesInUse;
    while (bytes > most && !mostBytesInUse.compare_exchange_weak(most, bytes)) {
    }
    return memory;
}

void Release(void* memory) {
    bytesInUse -= static_cast<std::int64_t>(malloc_usable_size(memory));
    std::free(memory);
}

} // namespace

void* operator new(std::size_t bytes) {
    return Counted(std::malloc(std::max<std::size_t>(bytes, 1)));
}

void operator delete(void* memory) noexcept {
    Release(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    Release(memory);
}

namespace quandrel {
namespace {

/// A window with the net and the legend of a picture.
class PictureForm : public RecordingForm {
public:
    PictureForm(Surface& net, Surface& legend)
        : net_(net)
        , legend_(legend) {}

    [[nodiscard]] Surface& PlotSurface() override { return net_; }

    [[nodiscard]] Surface& LegendSurface() override { return legend_; }

private:
    Surface& net_;
    Surface& legend_;
};

/// A plot of random planes, and a picture to draw it on.
class PlotOnImage {
public:
    PlotOnImage(std::int64_t rows, std::int16_t mode, std::string_view style) {
        gPlatform = {};
        gPlatform.prompts = &prompts_;
        gPlatform.status = &status_;
        gPlatform.settings = &settings_;
        gPlatform.makePlotForm = [this](int) {
            return std::make_unique<PictureForm>(net_, legend_);
        };
        InitialiseApplication();
        OpenPlotFile("Blank");
        PlotRecord& record = ActiveRecord();
        record.NumData = record.NumValidData = record.NumLoadedData = static_cast<int>(rows);
        record.PlotSymbolMode = mode;
        record.StyleName = style;
        int secondary = 0;
        GrowDataColumns(secondary, record.NumData);
        std::mt19937 random(1);
        for (std::int32_t row = 1; row <= record.NumData; ++row) {
            gDataDip.At(gActivePlot, row) = static_cast<std::int32_t>(random() % 91);
            gDataAz.At(gActivePlot, row) = static_cast<std::int32_t>(random() % 361);
            gDataSymbol.At(gActivePlot, row) = CodeOfStyleRow(0);
        }
        RebuildRowTable(gActivePlot);
        image_.fill(Qt::white);
    }

    ~PlotOnImage() {
        painter_.end();
        MakeStoreTables();
        gPlatform = {};
    }

    PlotOnImage(const PlotOnImage&) = delete;
    PlotOnImage& operator=(const PlotOnImage&) = delete;

    void Draw() { DrawPlot(ActivePlot(), PaperDrawing(ActiveRecord(), net_, legend_)); }

    /// The rows as loaded from a file, unsorted and without results.
    static void ForgetResults() {
        ActiveRecord().DensityGrid.reset();
        RebuildRowTable(gActivePlot);
    }

private:
    ScriptedPrompts prompts_{ScriptedPrompts::Mode::Batch};
    QuietStatusLine status_;
    MemorySettingsStore settings_;
    QImage image_{1000, 1000, QImage::Format_RGB32};
    QPainter painter_{&image_};
    PainterSurface net_{painter_, QRectF(0, 0, 1000, 1000), 1, Medium::Raster};
    PainterSurface legend_{painter_, QRectF(0, 0, 200, 200), 1, Medium::Raster};
};

void Replot(benchmark::State& state, std::int16_t mode, std::string_view style) {
    PlotOnImage plot(state.range(0), mode, style);
    for (auto _ : state) {
        plot.Draw();
    }
}

/// Statistics, point densities, the grid and its contours as required by the mode, and the drawing.
void ReplotOfChangedRows(benchmark::State& state, std::int16_t mode) {
    PlotOnImage plot(state.range(0), mode, kClassicStyle);
    gSettings.gridSize = kFinestGrid;
    ReplotActivePlot(true); // creates fonts and tables
    std::int64_t most = 0;
    for (auto _ : state) {
        state.PauseTiming();
        PlotOnImage::ForgetResults();
        const std::int64_t before = bytesInUse;
        mostBytesInUse = before;
        state.ResumeTiming();
        ReplotActivePlot(true);
        most = std::max(most, mostBytesInUse - before);
    }
    state.counters["peakMB"] = static_cast<double>(most) / 1e6;
}

void AllSizes(benchmark::internal::Benchmark* bench) {
    bench->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);
}

BENCHMARK_CAPTURE(ReplotOfChangedRows, Symbols, kPointSymbols)->Apply(AllSizes);
BENCHMARK_CAPTURE(ReplotOfChangedRows, PointDensity, kPointDensitySymbols)->Apply(AllSizes);
BENCHMARK_CAPTURE(ReplotOfChangedRows, GridDensity, kGridDensitySymbols)->Apply(AllSizes);
BENCHMARK_CAPTURE(ReplotOfChangedRows, Contours, kContours)->Apply(AllSizes);
BENCHMARK_CAPTURE(ReplotOfChangedRows, ContoursAndGrid, kContoursAndGrid)->Apply(AllSizes);
BENCHMARK_CAPTURE(Replot, Symbols, kPointSymbols, kClassicStyle)->Apply(AllSizes);
BENCHMARK_CAPTURE(Replot, SymbolsOnScreen, kPointSymbols, kScreenStyle)->Apply(AllSizes);
BENCHMARK_CAPTURE(Replot, GreatCircles, kGreatCircles, kClassicStyle)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Replot, BetaIntersections, kBetaIntersections, kClassicStyle)
    ->Arg(500)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace quandrel
