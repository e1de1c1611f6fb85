// SPDX-License-Identifier: MIT
//
// Densities of plots of whole-degree rows, and of rows with six decimals: around each row, and on
// the finest grid. The baseline takes the rows one by one.

#include "bench_engine.h"
#include "core/plot_rows.h"
#include "core/settings_value.h"
#include "density/cone_counts.h"
#include "density/grid_density.h"
#include "density/grid_geometry.h"
#include "density/point_density.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "session/start.h"
#include "stereo/measured_line.h"
#include "stereo/row_positions.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <random>
#include <vector>

namespace quandrel {
namespace {

/// Distributions of axes. Each stresses another part of the counting: the counts of uniform axes
/// all lie at the bound of two bands.
enum class Fabric { Uniform, Cluster, Girdle, FiveClusters };

double Uniform(std::mt19937_64& random) {
    return std::uniform_real_distribution<double>(0, 1)(random);
}

/// Height above the equator of an axis of Watson's distribution, by rejection: density
/// exp(concentration z^2). K. V. Mardia, P. E. Jupp, Directional Statistics (2000), 9.4.2.
double DrawHeight(double concentration, std::mt19937_64& random) {
    for (;;) {
        const double height = Uniform(random);
        const double exponent = concentration * height * height - std::max(concentration, 0.0);
        if (Uniform(random) <= std::exp(exponent)) {
            return height;
        }
    }
}

/// An axis near one of five directions.
Direction DrawOfFive(std::mt19937_64& random) {
    constexpr double kSpread = 0.05;
    std::normal_distribution<double> normal(0, kSpread);
    const auto cluster = static_cast<double>(random() % 5);
    const double trend = 1.3 * cluster;
    const double plunge = 0.3 * cluster;
    return {std::cos(plunge) * std::cos(trend) + normal(random),
            std::cos(plunge) * std::sin(trend) + normal(random), std::sin(plunge) + normal(random)};
}

/// Dip and dip direction in degrees of a plane, whose pole is the axis. That of clusters and
/// girdles plunges at 60 degrees.
Attitude DrawAxis(Fabric fabric, std::mt19937_64& random) {
    constexpr double kConcentration = 10;
    Direction axis;
    if (fabric == Fabric::FiveClusters) {
        axis = DrawOfFive(random);
    } else {
        const double height = DrawHeight(fabric == Fabric::Cluster  ? kConcentration
                                         : fabric == Fabric::Girdle ? -kConcentration
                                                                    : 0,
                                         random);
        const double azimuth = kTwoPi * Uniform(random);
        const double level = std::sqrt(1 - height * height) * std::cos(azimuth);
        axis = {std::cos(kPi / 6) * height - 0.5 * level,
                std::sqrt(1 - height * height) * std::sin(azimuth),
                0.5 * height + std::cos(kPi / 6) * level};
    }
    MeasuredLine line;
    CosinesToLine(axis.l, axis.m, axis.n, line.plunge, line.trend);
    return {90 - RadToDeg(std::abs(line.plunge)), RadToDeg(WrappedAngle(line.trend + kPi))};
}

/// A plot of random lines over the whole net, sorted as a drawing leaves it.
class PlotOfLines : public BenchEngine {
public:
    explicit PlotOfLines(std::int64_t rows) {
        PlotRecord& record = NewPlotWithColumns(rows);
        record.PlotKind = 1;
        std::mt19937 random(1);
        for (std::int32_t row = 1; row <= record.NumData; ++row) {
            gDataDip.At(gActivePlot, row) = static_cast<std::int32_t>(random() % 91);
            gDataAz.At(gActivePlot, row) = static_cast<std::int32_t>(random() % 361);
        }
        RebuildRowTable(gActivePlot);
        SortRowTable(TableOf(gActivePlot), static_cast<std::size_t>(rows));
        gSettings.gridSize = kLargestGridSize;
    }

    /// Gives the rows decimals, half a degree at most.
    void AddDecimals() const {
        std::mt19937 random(2);
        std::uniform_real_distribution<double> offset(-0.499, 0.499);
        PlotRecord& record = ActiveRecord();
        for (std::int32_t row = 1; row <= record.NumData; ++row) {
            const Attitude whole{gDataDip(gActivePlot, row), gDataAz(gActivePlot, row)};
            const Attitude measured{std::clamp(whole.dip + offset(random), 0.0, 90.0),
                                    std::clamp(whole.azimuth + offset(random), 0.0, 360.0)};
            SetMeasuredOrientation(ActivePlot(), row, whole, ToMicrodegree(measured));
        }
        record.UseDecimals = kTrue;
        RebuildRowTable(gActivePlot);
        SortRowTable(TableOf(gActivePlot), static_cast<std::size_t>(record.NumData));
    }

    /// Gives the rows the measured orientations of a fabric.
    void MeasureFabric(Fabric fabric) const {
        std::mt19937_64 random(3);
        PlotRecord& record = ActiveRecord();
        for (std::int32_t row = 1; row <= record.NumData; ++row) {
            const Attitude measured = DrawAxis(fabric, random);
            const Attitude whole{std::round(measured.dip), std::round(measured.azimuth)};
            gDataDip.At(gActivePlot, row) = static_cast<std::int32_t>(whole.dip);
            gDataAz.At(gActivePlot, row) = static_cast<std::int32_t>(whole.azimuth);
            SetMeasuredOrientation(ActivePlot(), row, whole, ToMicrodegree(measured));
        }
        record.UseDecimals = kTrue;
        RebuildRowTable(gActivePlot);
        SortRowTable(TableOf(gActivePlot), static_cast<std::size_t>(record.NumData));
    }

    /// Makes the next count read the rows again.
    static void TouchRows() {
        RowTable& table = TableOf(gActivePlot);
        SetRow(table, 0, table[0]);
    }
};

/// With the pass over the rows that finds the distinct lines.
void PointDensities(benchmark::State& state) {
    const PlotOfLines plot(state.range(0));
    for (auto _ : state) {
        PlotOfLines::TouchRows();
        ComputePointDensities();
    }
}

void GridOf150(benchmark::State& state) {
    const PlotOfLines plot(state.range(0));
    for (auto _ : state) {
        PlotOfLines::TouchRows();
        ComputeGridDensity();
    }
}

/// When the distinct lines are known, as in a replot after the slider was moved.
void GridOf150Again(benchmark::State& state) {
    const PlotOfLines plot(state.range(0));
    for (auto _ : state) {
        ComputeGridDensity();
    }
}

void PointDensitiesOfDecimals(benchmark::State& state) {
    const PlotOfLines plot(state.range(0));
    plot.AddDecimals();
    for (auto _ : state) {
        PlotOfLines::TouchRows();
        ComputePointDensities();
    }
}

void GridOf150OfDecimals(benchmark::State& state) {
    const PlotOfLines plot(state.range(0));
    plot.AddDecimals();
    for (auto _ : state) {
        PlotOfLines::TouchRows();
        ComputeGridDensity();
    }
}

void PointDensitiesOfFabric(benchmark::State& state) {
    const PlotOfLines plot(1'000'000);
    plot.MeasureFabric(static_cast<Fabric>(state.range(0)));
    for (auto _ : state) {
        PlotOfLines::TouchRows();
        ComputePointDensities();
    }
}

void GridOf150OfFabric(benchmark::State& state) {
    const PlotOfLines plot(1'000'000);
    plot.MeasureFabric(static_cast<Fabric>(state.range(0)));
    for (auto _ : state) {
        PlotOfLines::TouchRows();
        ComputeGridDensity();
    }
}

/// Ratio of the time row by row to that of `fast`.
template <class Fast>
void PrintRatio(benchmark::State& state, std::chrono::steady_clock::time_point start, Fast fast) {
    const auto half = std::chrono::steady_clock::now();
    PlotOfLines::TouchRows();
    fast();
    const auto end = std::chrono::steady_clock::now();
    state.counters["ratio"] = std::chrono::duration<double>(half - start)
                              / static_cast<double>(state.iterations())
                              / std::chrono::duration<double>(end - half);
}

void PointDensitiesOneByOne(benchmark::State& state) {
    const PlotOfLines plot(state.range(0));
    const RowTable& table = TableOf(gActivePlot);
    ComputePointDensities(); // creates its tables
    const auto start = std::chrono::steady_clock::now();
    for (auto _ : state) {
        std::int64_t sum = 0;
        for (std::size_t i = 0; i < table.size(); ++i) {
            for (std::size_t j = 0; j < table.size(); ++j) {
                double angle = 0;
                AngleBetweenLines(table.plunge[i], table.trend[i], table.plunge[j], table.trend[j],
                                  angle, LineAngle::kAcute);
                sum += angle <= kCountCone ? 1 : 0;
            }
        }
        benchmark::DoNotOptimize(sum);
    }
    PrintRatio(state, start, [] { ComputePointDensities(); });
}

void GridOf150OneByOne(benchmark::State& state) {
    const PlotOfLines plot(state.range(0));
    const RowTable& table = TableOf(gActivePlot);
    const int step = GridStep(kLargestGridSize);
    ComputeGridDensity();
    const auto start = std::chrono::steady_clock::now();
    for (auto _ : state) {
        std::int64_t sum = 0;
        for (int node = 0; node < kGridNodes * kGridNodes; ++node) {
            double plunge = 0;
            double trend = 0;
            UnprojectPoint(1, NodePosition(node / kGridNodes, step),
                           NodePosition(node % kGridNodes, step), plunge, trend);
            for (std::size_t row = 0; row < table.size(); ++row) {
                double angle = 0;
                AngleBetweenLines(plunge, trend, table.plunge[row], table.trend[row], angle,
                                  LineAngle::kAcute);
                sum += angle <= kGridCountCone ? 1 : 0;
            }
        }
        benchmark::DoNotOptimize(sum);
    }
    PrintRatio(state, start, [] { ComputeGridDensity(); });
}

void AllSizes(benchmark::internal::Benchmark* bench) {
    bench->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);
}

void AllFabrics(benchmark::internal::Benchmark* bench) {
    bench->DenseRange(0, static_cast<int>(Fabric::FiveClusters))->Unit(benchmark::kMillisecond);
}

BENCHMARK(PointDensities)->Apply(AllSizes);
BENCHMARK(GridOf150)->Apply(AllSizes);
BENCHMARK(GridOf150Again)->Apply(AllSizes);
BENCHMARK(PointDensitiesOfDecimals)->Apply(AllSizes)->UseRealTime()->MeasureProcessCPUTime();
BENCHMARK(GridOf150OfDecimals)->Apply(AllSizes)->UseRealTime()->MeasureProcessCPUTime();
BENCHMARK(PointDensitiesOfFabric)->Apply(AllFabrics)->UseRealTime()->MeasureProcessCPUTime();
BENCHMARK(GridOf150OfFabric)->Apply(AllFabrics)->UseRealTime()->MeasureProcessCPUTime();
BENCHMARK(PointDensitiesOneByOne)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(GridOf150OneByOne)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace quandrel
