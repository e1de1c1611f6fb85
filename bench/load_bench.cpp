// SPDX-License-Identifier: MIT
//
// Loading a file of planes with a number and a text, from bytes on the disk to rows in the store.
// The floor only reads the file and converts its columns.

#include "core/plot_life.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "input/file_loading.h"
#include "platform/memory_settings_store.h"
#include "platform/platform.h"
#include "platform/scripted/quiet_status_line.h"
#include "platform/scripted/recording_form.h"
#include "platform/scripted/scripted_prompts.h"
#include "session/start.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

namespace quandrel {
namespace {

/// A made-up file of tab-separated planes, kept until the program ends.
class DataFile {
public:
    explicit DataFile(std::int64_t rows)
        : path_(std::filesystem::temp_directory_path()
                / ("quandrel_bench_" + std::to_string(rows) + ".txt")) {
        static const char* const types[] = {"slate", "schist", "gneiss", "quartzite", "marble"};
        std::mt19937 random(1);
        std::string text;
        for (std::int64_t row = 0; row < rows; ++row) {
            text += std::to_string(random() % 91) + "\t" + std::to_string(random() % 361) + "\t"
                    + std::to_string(random() % 1000) + "." + std::to_string(random() % 10) + "\t"
                    + types[random() % 5] + "\n";
        }
        std::ofstream(path_, std::ios::binary) << text;
    }

    ~DataFile() { std::filesystem::remove(path_); }

    DataFile(const DataFile&) = delete;
    DataFile& operator=(const DataFile&) = delete;

    [[nodiscard]] std::string Path() const { return path_.string(); }

private:
    std::filesystem::path path_;
};

/// An engine without windows.
class Engine {
public:
    Engine() {
        gPlatform = {};
        prompts_.OnFormat([](const FormatQuestion&) { return std::optional(FormatAnswer()); });
        gPlatform.prompts = &prompts_;
        gPlatform.status = &status_;
        gPlatform.settings = &settings_;
        gPlatform.makePlotForm = [](int) { return std::make_unique<RecordingForm>(); };
        InitialiseApplication();
        gFileNumericAppended = true;
        gFileNonNumericAppended = true;
        gFileColumnSettings = {0, 1, 2, 3, 4, 5, 6, 7, 2, 3};
    }

    ~Engine() {
        MakeStoreTables();
        gPlatform = {};
    }

    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

private:
    ScriptedPrompts prompts_{ScriptedPrompts::Mode::Batch};
    QuietStatusLine status_;
    MemorySettingsStore settings_;
};

/// Reads the file and converts three numbers per line.
double ReadAndConvert(const std::string& path) {
    std::FILE* file = std::fopen(path.c_str(), "rb");
    std::string text(std::filesystem::file_size(path), '\0');
    const std::size_t read = std::fread(text.data(), 1, text.size(), file);
    std::fclose(file);
    double sum = 0;
    const char* position = text.data();
    const char* const end = position + read;
    while (position < end) {
        for (int column = 0; column < 3; ++column) {
            double value = 0;
            position = std::from_chars(position, end, value).ptr + 1;
            sum += value;
        }
        while (position < end && *position != '\n') {
            ++position;
        }
        ++position;
    }
    return sum;
}

/// The floor for a file in milliseconds: the best of several runs.
double FloorOf(const std::string& path) {
    constexpr int kRuns = 5;
    double best = 0;
    for (int run = 0; run < kRuns; ++run) {
        const auto start = std::chrono::steady_clock::now();
        benchmark::DoNotOptimize(ReadAndConvert(path));
        const std::chrono::duration<double, std::milli> took =
            std::chrono::steady_clock::now() - start;
        best = run == 0 ? took.count() : std::min(best, took.count());
    }
    return best;
}

/// Loads a file with this many threads, 0 for those of the machine; prints the floor as well.
void LoadWith(benchmark::State& state, unsigned threads) {
    const DataFile file(state.range(0));
    const Engine engine;
    gPlatform.threads = threads;
    for (auto _ : state) {
        state.PauseTiming();
        if (!PrepareNewPlotWindow()) {
            state.SkipWithError("no slot is free");
            break;
        }
        state.ResumeTiming();
        benchmark::DoNotOptimize(ReadTextFile(kNewCommand, file.Path()));
        state.PauseTiming();
        ClosePlot(gActivePlot);
        state.ResumeTiming();
    }
    state.counters["floor_ms"] = FloorOf(file.Path());
}

void LoadFile(benchmark::State& state) {
    LoadWith(state, 0);
}

void LoadFileByOneThread(benchmark::State& state) {
    LoadWith(state, 1);
}

BENCHMARK(LoadFile)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadFileByOneThread)
    ->RangeMultiplier(10)
    ->Range(1000, 1000000)
    ->Unit(benchmark::kMillisecond);

void Floor(benchmark::State& state) {
    const DataFile file(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(ReadAndConvert(file.Path()));
    }
}

BENCHMARK(Floor)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace quandrel
