// SPDX-License-Identifier: MIT
//
// The circular statistics of a rose, its median and its reference. The baseline computes the median
// by walking from angle to angle.

#include "bench_engine.h"
#include "core/plot_store.h"
#include "orientation/angles.h"
#include "rose/circular_median.h"
#include "rose/circular_reference.h"
#include "rose/circular_statistics.h"
#include "rose/rose_sectors.h"
#include "rose/rose_statistics_texts.h"
#include "rose/rose_tables.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>
#include <random>
#include <vector>

namespace quandrel {
namespace {

/// A rose of random lines as the active plot, its rows counted. The median is never skipped.
class RoseOfLines : public BenchEngine {
public:
    explicit RoseOfLines(std::int64_t rows) {
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kLines;
        NewPlotWithColumns(rows);
        FillColumns(static_cast<std::int32_t>(rows));
        if (!RoseCountSectors()) {
            std::abort();
        }
    }

    void Work() {
        Prompts().QueueAnswer(Button::No);
        RoseCircularStats(kRoseFrequency);
    }

private:
    static void FillColumns(std::int32_t rows) {
        PlotRecord& record = ActiveRecord();
        record.PlotKind = kRose;
        std::mt19937 random(1);
        for (std::int32_t row = 1; row <= rows; ++row) {
            gDataAz.At(gActivePlot, row) = static_cast<std::int32_t>(random() % 361);
        }
    }
};

void StatisticsOfARose(benchmark::State& state) {
    RoseOfLines rose(state.range(0));
    for (auto _ : state) {
        rose.Work();
        benchmark::DoNotOptimize(RoseStatsFull());
    }
    if (!(ActiveRecord().RoseMedian > 0)) {
        state.SkipWithError("no median");
    }
}

std::vector<double> WholeDegrees(std::int64_t count) {
    std::mt19937 random(2);
    std::vector<double> angles(static_cast<std::size_t>(count));
    for (double& angle : angles) {
        angle = DegToRad(static_cast<int>(random() % 180));
    }
    return angles;
}

void Median(benchmark::State& state) {
    const std::vector<double> angles = WholeDegrees(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(CircularMedian(angles, 1, AngleSense::kAxial));
    }
}

void MedianByWalk(benchmark::State& state) {
    const std::vector<double> angles = WholeDegrees(state.range(0));
    const double antipode = WrappedAngle(2 + kPi);
    for (auto _ : state) {
        std::vector<bool> isUsed(angles.size());
        std::size_t reached = 0;
        for (std::size_t step = 0; step < angles.size() / 2 + 1; ++step) {
            double nearest = 2 * kTwoPi;
            for (std::size_t i = 0; i < angles.size(); ++i) {
                const double way = WayFromAntipode(antipode, WrappedAngle(2 * angles[i]));
                if (!isUsed[i] && way < nearest) {
                    nearest = way;
                    reached = i;
                }
            }
            isUsed[reached] = true;
        }
        benchmark::DoNotOptimize(angles[reached]);
    }
}

void Reference(benchmark::State& state) {
    const std::vector<double> angles = WholeDegrees(state.range(0));
    const auto count = static_cast<double>(angles.size());
    const CircularSample sample{{1, 1, 1, 1}, count, count, angles, AngleSense::kAxial};
    for (auto _ : state) {
        benchmark::DoNotOptimize(ComputeCircularReference(sample));
    }
}

BENCHMARK(StatisticsOfARose)
    ->RangeMultiplier(10)
    ->Range(1000, 1000000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Median)->Arg(1000)->Arg(2000)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(MedianByWalk)->Arg(1000)->Arg(2000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(Reference)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace quandrel
