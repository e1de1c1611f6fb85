// SPDX-License-Identifier: MIT
//
// Drawing plots on a surface of 1000 pixels.

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "persistence/open_plot.h"
#include "platform/memory_settings_store.h"
#include "platform/platform.h"
#include "platform/qt/painter_surface.h"
#include "platform/quiet_status_line.h"
#include "platform/recording_form.h"
#include "platform/scripted_prompts.h"
#include "program/start.h"
#include "stereo/plot_driver.h"
#include "stereo/row_positions.h"

#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>

#include <random>

namespace quandrel {
namespace {

/// A plot of random planes, and a picture to draw it on.
class PlotOnImage {
public:
    explicit PlotOnImage(std::int64_t rows, std::int16_t mode) {
        gPlatform = {};
        gPlatform.prompts = &prompts_;
        gPlatform.status = &status_;
        gPlatform.settings = &settings_;
        gPlatform.makePlotForm = [](int) { return std::make_unique<RecordingForm>(); };
        InitialiseApplication();
        OpenPlotFile("Blank");
        PlotRecord& record = ActiveRecord();
        record.NumData = record.NumValidData = record.NumLoadedData = static_cast<int>(rows);
        record.PlotSymbolMode = mode;
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

    void Draw() {
        PainterSurface net(painter_, QRectF(0, 0, 1000, 1000), 1, Medium::Raster);
        PainterSurface legend(painter_, QRectF(0, 0, 200, 200), 1, Medium::Raster);
        DrawActivePlotOn(net, legend);
    }

private:
    ScriptedPrompts prompts_{ScriptedPrompts::Mode::Batch};
    QuietStatusLine status_;
    MemorySettingsStore settings_;
    QImage image_{1000, 1000, QImage::Format_RGB32};
    QPainter painter_{&image_};
};

void Replot(benchmark::State& state, std::int16_t mode) {
    PlotOnImage plot(state.range(0), mode);
    for (auto _ : state) {
        plot.Draw();
    }
}

BENCHMARK_CAPTURE(Replot, Symbols, kPointSymbols)
    ->RangeMultiplier(10)
    ->Range(1000, 1000000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Replot, GreatCircles, kGreatCircles)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Replot, BetaIntersections, kBetaIntersections)
    ->Arg(500)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace quandrel
