// SPDX-License-Identifier: MIT
//
// The data pass of a rose: plain rows, values, names as classes, winds, and both kinds of sample
// line.

#include "bench_engine.h"
#include "core/plot_store.h"
#include "rose/bias_weights.h"
#include "rose/rose_sectors.h"
#include "rose/rose_tables.h"

#include <benchmark/benchmark.h>

#include <array>
#include <memory>
#include <random>
#include <stdexcept>

namespace quandrel {
namespace {

/// A plot of random planes with all appended columns as the active one.
class PlotOfPlanes : public BenchEngine {
public:
    explicit PlotOfPlanes(std::int64_t rows) {
        gPrimaryDataType = kPrimaryPlane;
        gPlotDataKind = kPlanes;
        NewPlotWithColumns(rows);
        FillColumns(static_cast<std::int32_t>(rows));
    }

private:
    static void FillColumns(std::int32_t rows) {
        PlotRecord& record = ActiveRecord();
        record.PlotKind = kRose;
        for (const auto column :
             {AppendedColumn::Line, AppendedColumn::Number, AppendedColumn::Text}) {
            if (!GrowAppendedColumn(column)) {
                throw std::runtime_error("no memory for the rows");
            }
        }
        std::mt19937 random(1);
        const auto below = [&random](int limit) {
            return static_cast<std::int32_t>(random() % static_cast<unsigned>(limit));
        };
        for (std::int32_t row = 1; row <= rows; ++row) {
            gDataDip.At(gActivePlot, row) = below(91);
            gDataAz.At(gActivePlot, row) = below(361);
            gAppLineDip.At(gActivePlot, row) = below(91);
            gAppLineAz.At(gActivePlot, row) = below(361);
            gAppNumeric.At(gActivePlot, row) = static_cast<float>(below(1000)) / 10;
            gAppText.Set(gActivePlot, row, std::to_string(below(100)) + ".5");
        }
    }
};

void Pass(benchmark::State& state) {
    for (auto _ : state) {
        if (!RoseCountSectors()) {
            state.SkipWithError("the pass was cancelled");
        }
    }
}

void PassOverBareRows(benchmark::State& state) {
    const PlotOfPlanes plot(state.range(0));
    Pass(state);
}

void PassOverValues(benchmark::State& state) {
    const PlotOfPlanes plot(state.range(0));
    ActiveRecord().HasAppendedNumeric = kTrue;
    ActiveRecord().RoseType = kRoseMeanValue;
    Pass(state);
}

void PassOverNames(benchmark::State& state) {
    const PlotOfPlanes plot(state.range(0));
    PlotRecord& record = ActiveRecord();
    record.HasAppendedText = kTrue;
    record.RoseType = 10 * kRoseByType;
    record.ClassTable[kBaseRow][kTextNumberClasses] = std::int16_t{11};
    record.ClassTable[kBaseRow][kNameClasses] = std::int16_t{0};
    for (std::size_t name = 1; name <= 11; ++name) {
        record.ClassTable[name][kNameClasses] = std::to_string(name * 8) + ".5";
    }
    record.ClassTable[kFlagRow][kTextNumberClasses] = std::int16_t{1};
    Pass(state);
}

void PassOverWinds(benchmark::State& state) {
    const PlotOfPlanes plot(state.range(0));
    ActiveRecord().HasAppendedNumeric = kTrue;
    ActiveRecord().HasAppendedText = kTrue;
    ActiveRecord().RoseType = kRoseOverlaidWind;
    Pass(state);
}

void PassWithOneSampleLine(benchmark::State& state) {
    const PlotOfPlanes plot(state.range(0));
    ActiveRecord().RoseBiasMode = kSpaceAngle;
    ActiveRecord().RoseSamplePlunge = 30;
    Pass(state);
}

void PassWithOwnSampleLines(benchmark::State& state) {
    const PlotOfPlanes plot(state.range(0));
    ActiveRecord().HasAppendedLine = kTrue;
    ActiveRecord().RoseBiasMode = kSpaceAngle;
    ActiveRecord().RoseSamplePlunge = -9999;
    Pass(state);
}

void AllSizes(benchmark::internal::Benchmark* bench) {
    bench->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(PassOverBareRows)->Apply(AllSizes);
BENCHMARK(PassOverValues)->Apply(AllSizes);
BENCHMARK(PassOverNames)->Apply(AllSizes);
BENCHMARK(PassOverWinds)->Apply(AllSizes);
BENCHMARK(PassWithOneSampleLine)->Apply(AllSizes);
BENCHMARK(PassWithOwnSampleLines)->Apply(AllSizes);

} // namespace
} // namespace quandrel
