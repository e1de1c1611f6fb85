// SPDX-License-Identifier: MIT
//
// The fabric statistics of a plot, with and without collecting its distinct lines. The baseline
// goes row by row and computes the cosines of each; the ratio of the times is reported.

#include "bench_engine.h"
#include "core/plot_rows.h"
#include "core/plot_store.h"
#include "orientation/angles.h"
#include "statistics/fabric_kernels.h"
#include "statistics/fabric_statistics.h"
#include "statistics/statistics_texts.h"
#include "stereo/distinct_lines.h"
#include "stereo/row_positions.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <memory>
#include <random>

namespace quandrel {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kRepeats = 20;

/// A plot of random lines as the active one.
class PlotOfLines : public BenchEngine {
public:
    explicit PlotOfLines(std::int64_t rows) {
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kPolarLines;
        const PlotRecord& record = NewPlotWithColumns(rows);
        std::mt19937 random(1);
        for (std::int32_t row = 1; row <= record.NumData; ++row) {
            const auto plunge = static_cast<int>(random() % 181) - 90;
            const auto trend = static_cast<int>(random() % 361);
            AppendRow(TableOf(gActivePlot), {row, 0, 0, DegToRad(plunge), DegToRad(trend)});
        }
    }
};

void StatisticsOfKnownLines(benchmark::State& state) {
    const PlotOfLines plot(state.range(0));
    ComputeFabricStatistics();
    for (auto _ : state) {
        ComputeFabricStatistics();
        WriteStatsBox();
        WriteFabricBox();
    }
}

/// Includes the pass over the rows that a changed row requires.
void StatisticsAnew() {
    SetRow(TableOf(gActivePlot), 0, TableOf(gActivePlot)[0]);
    ComputeFabricStatistics();
}

void StatisticsOfChangedRows(benchmark::State& state) {
    const PlotOfLines plot(state.range(0));
    for (auto _ : state) {
        StatisticsAnew();
    }
}

/// The same of rows with decimals, each of which has a line of its own.
void StatisticsOfDecimals(benchmark::State& state) {
    const PlotOfLines plot(state.range(0));
    std::mt19937 random(2);
    std::uniform_real_distribution<double> plunges(-90, 90);
    std::uniform_real_distribution<double> trends(0, 360);
    PlotRecord& record = ActiveRecord();
    for (std::int32_t row = 1; row <= record.NumData; ++row) {
        const Attitude measured = ToMicrodegree({plunges(random), trends(random)});
        SetMeasuredOrientation(ActivePlot(), row, RoundedAttitude(measured, false), measured);
    }
    record.UseDecimals = kTrue;
    RebuildRowTable(gActivePlot);
    for (auto _ : state) {
        StatisticsAnew();
    }
}

void RowByRow(benchmark::State& state) {
    const PlotOfLines plot(state.range(0));
    const RowTable& table = TableOf(gActivePlot);
    ComputeFabricStatistics(); // creates its tables
    const auto start = Clock::now();
    for (auto _ : state) {
        std::vector<Direction> directions(table.size());
        for (std::size_t place = 0; place < table.size(); ++place) {
            directions[place] = LineToCosines(std::abs(table.plunge[place]), table.trend[place]);
        }
        const std::vector<double> weights(table.size(), 1);
        benchmark::DoNotOptimize(OrientationTensor(directions, weights));
        benchmark::DoNotOptimize(FourthMoment(directions, weights, {1, 0, 0}));
    }
    const auto end = Clock::now();
    StatisticsAnew(); // warms up
    const auto half = Clock::now();
    for (int i = 0; i < kRepeats; ++i) {
        StatisticsAnew();
    }
    const std::chrono::duration<double> slow = end - start;
    const std::chrono::duration<double> fast = Clock::now() - half;
    state.counters["ratio"] =
        slow / static_cast<double>(state.iterations()) / (fast / static_cast<double>(kRepeats));
}

BENCHMARK(StatisticsOfKnownLines)
    ->RangeMultiplier(10)
    ->Range(1000, 1000000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(StatisticsOfChangedRows)
    ->RangeMultiplier(10)
    ->Range(1000, 1000000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(StatisticsOfDecimals)
    ->RangeMultiplier(10)
    ->Range(1000, 1000000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(RowByRow)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace quandrel
