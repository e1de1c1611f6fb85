// SPDX-License-Identifier: MIT
//
// Saving and loading binary plot files of planes with a secondary line, a number and a text. Saving
// includes the check by reading back and the flush to the disk.

#include "core/data_format.h"
#include "core/plot_store.h"
#include "persistence/binary_plot_file.h"
#include "platform/memory_settings_store.h"
#include "platform/platform.h"
#include "platform/scripted/quiet_status_line.h"
#include "platform/scripted/recording_form.h"
#include "platform/scripted/scripted_prompts.h"
#include "session/start.h"
#include "stereo/row_positions.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <random>
#include <string>

namespace quandrel {
namespace {

/// An engine without windows, and a file of its own.
class Engine {
public:
    Engine() {
        gPlatform = {};
        gPlatform.prompts = &prompts_;
        gPlatform.status = &status_;
        gPlatform.settings = &settings_;
        gPlatform.makePlotForm = [](int) { return std::make_unique<RecordingForm>(); };
        InitialiseApplication();
    }

    ~Engine() {
        MakeStoreTables();
        gPlatform = {};
        std::filesystem::remove(path_);
    }

    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

    [[nodiscard]] std::string Path() const { return path_.string(); }

private:
    ScriptedPrompts prompts_{ScriptedPrompts::Mode::Batch};
    QuietStatusLine status_;
    MemorySettingsStore settings_;
    std::filesystem::path path_ = std::filesystem::temp_directory_path() / "quandrel_bench.qpx";
};

int NewPlot() {
    gActivePlot = FindFreePlotSlot();
    ResetPlotRecord(gActivePlot);
    return gActivePlot;
}

void FillPlot(std::int32_t rows) {
    static const char* const types[] = {"slate", "schist", "gneiss", "quartzite", "marble"};
    PlotRecord& record = ActiveRecord();
    record.PrimaryFormat = kPrimaryPlane;
    record.SecondaryFormat = kSecondaryLine;
    record.HasAppendedNumeric = kTrue;
    record.HasAppendedText = kTrue;
    record.NumData = rows;
    record.NumValidData = rows;
    record.NumLoadedData = rows;
    int secondary = 1;
    GrowDataColumns(secondary, rows);
    if (!GrowAppendedColumn(AppendedColumn::Number) || !GrowAppendedColumn(AppendedColumn::Text)) {
        return;
    }
    std::mt19937 random(1);
    const auto below = [&random](unsigned end) {
        return static_cast<std::int32_t>(random() % end);
    };
    for (std::int32_t row = 1; row <= rows; ++row) {
        gDataDip.At(gActivePlot, row) = below(91);
        gDataAz.At(gActivePlot, row) = below(361);
        gDataSymbol.At(gActivePlot, row) = CodeOfStyleRow(kRowSymbol);
        gDataOrder.At(gActivePlot, row) = row;
        gData2Dip.At(gActivePlot, row) = below(91);
        gData2Az.At(gActivePlot, row) = below(361);
        gAppNumeric.At(gActivePlot, row) = 0.1F * static_cast<float>(below(10000));
        gAppText.Set(gActivePlot, row, types[below(5)]);
    }
    RebuildRowTable(gActivePlot);
}

void SaveFile(benchmark::State& state) {
    const Engine engine;
    const int slot = NewPlot();
    FillPlot(static_cast<std::int32_t>(state.range(0)));
    for (auto _ : state) {
        if (const std::string error = SaveBinaryPlot(engine.Path(), slot); !error.empty()) {
            state.SkipWithError(error.c_str());
            break;
        }
    }
}

BENCHMARK(SaveFile)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);

void LoadFile(benchmark::State& state) {
    const Engine engine;
    FillPlot((NewPlot(), static_cast<std::int32_t>(state.range(0))));
    if (const std::string error = SaveBinaryPlot(engine.Path(), gActivePlot); !error.empty()) {
        state.SkipWithError(error.c_str());
        return;
    }
    for (auto _ : state) {
        std::string version;
        LoadBinaryPlot(engine.Path(), NewPlot(), version);
        benchmark::DoNotOptimize(version);
        state.PauseTiming();
        ReleasePlotSlot(gActivePlot);
        state.ResumeTiming();
    }
}

BENCHMARK(LoadFile)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace quandrel
