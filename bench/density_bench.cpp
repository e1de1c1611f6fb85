// SPDX-License-Identifier: MIT
//
// Densities of plots of whole-degree rows, and of rows with six decimals: around each row, and on
// the finest grid. The baseline takes the rows one by one.
//
// Fields of density of axes and of directions: gathering the rows, a field of gathered rows, as for
// a step of a slider, and the densities of a field at a grid over the net.

#include "bench_engine.h"
#include "core/plot_rows.h"
#include "core/settings_value.h"
#include "density/cone_counts.h"
#include "density/density_field.h"
#include "density/grid_density.h"
#include "density/grid_geometry.h"
#include "density/kernel_width.h"
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

constexpr unsigned kThreads = 2;

/// Random lines over the sphere.
std::vector<MeasuredLine> RandomLines(std::int64_t count, bool areWhole) {
    std::mt19937_64 random(3);
    const auto fraction = [&random] { return static_cast<double>(random() >> 11U) * 0x1p-53; };
    const auto rounded = [areWhole](double angle) {
        return areWhole ? DegToRad(RoundToEven(RadToDeg(angle))) : angle;
    };
    std::vector<MeasuredLine> lines;
    for (std::int64_t i = 0; i < count; ++i) {
        const double plunge = ArcSin(2 * fraction() - 1);
        lines.push_back({rounded(plunge), rounded(fraction() * kTwoPi)});
    }
    return lines;
}

/// The senses and precisions of the fields' benchmarks.
struct RowsOfField {
    LineSense sense = LineSense::Axes;
    bool areWhole = true;
};

constexpr RowsOfField kWholeAxes{LineSense::Axes, true};
constexpr RowsOfField kAxes{LineSense::Axes, false};
constexpr RowsOfField kWholeDirections{LineSense::Directions, true};
constexpr RowsOfField kDirections{LineSense::Directions, false};

DensityFormula KernelOf(LineSense sense, double degrees, std::int64_t rows) {
    return FormulaOf({DensityMethod::Kernel, sense, 3, DegToRad(degrees)},
                     static_cast<double>(rows));
}

/// From the rows to the whole field.
void FieldOfRows(benchmark::State& state, RowsOfField kind) {
    const std::vector<MeasuredLine> lines = RandomLines(state.range(0), kind.areWhole);
    for (auto _ : state) {
        DensityRows rows(lines, {}, kind.sense);
        const DensityField field(rows, KernelOf(kind.sense, 10, state.range(0)), kThreads);
        benchmark::DoNotOptimize(field.At({0.3, 1}));
    }
}

/// Another width for the same rows.
void FieldAgain(benchmark::State& state, RowsOfField kind, double degrees) {
    DensityRows rows(RandomLines(state.range(0), kind.areWhole), {}, kind.sense);
    const DensityField first(rows, KernelOf(kind.sense, 10, state.range(0)), kThreads);
    for (auto _ : state) {
        const DensityField field(rows, KernelOf(kind.sense, degrees, state.range(0)), kThreads);
        benchmark::DoNotOptimize(field.At({0.3, 1}));
    }
}

/// The field at the nodes of the finest grid over the net, the rows in cells already.
void FieldOnGrid(benchmark::State& state, RowsOfField kind, DensityMethod method, double degrees) {
    DensityRows rows(RandomLines(state.range(0), kind.areWhole), {}, kind.sense);
    const auto count = static_cast<double>(state.range(0));
    const double k = KambKOfHalfAngle(DegToRad(degrees), count, kind.sense);
    std::vector<MeasuredLine> places;
    for (int node = 0; node < kGridNodes * kGridNodes; ++node) {
        const int step = GridStep(kLargestGridSize);
        MeasuredLine place;
        UnprojectPoint(1, NodePosition(node / kGridNodes, step),
                       NodePosition(node % kGridNodes, step), place.plunge, place.trend);
        place.trend = WrappedAngle(place.trend);
        places.push_back(place);
    }
    const DensityField field(rows, FormulaOf({method, kind.sense, k, 0.2}, count), kThreads);
    for (auto _ : state) {
        benchmark::DoNotOptimize(field.At(places, kThreads));
    }
}

void KernelWidth(benchmark::State& state, RowsOfField kind) {
    const std::vector<MeasuredLine> lines = RandomLines(state.range(0), kind.areWhole);
    for (auto _ : state) {
        benchmark::DoNotOptimize(LikelyKappa(lines, {}, kind.sense, kThreads));
    }
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

void FieldSizes(benchmark::internal::Benchmark* bench) {
    bench->Arg(1000)->Arg(1000000)->Unit(benchmark::kMillisecond);
    bench->UseRealTime()->MeasureProcessCPUTime();
}

constexpr auto kKamb = DensityMethod::Kamb;
constexpr auto kSquare = DensityMethod::KambSquare;
constexpr auto kExponential = DensityMethod::KambExponential;

BENCHMARK_CAPTURE(FieldOfRows, whole_axes, kWholeAxes)->Apply(FieldSizes);
BENCHMARK_CAPTURE(FieldOfRows, axes, kAxes)->Apply(FieldSizes);
BENCHMARK_CAPTURE(FieldOfRows, whole_directions, kWholeDirections)->Apply(FieldSizes);
BENCHMARK_CAPTURE(FieldOfRows, directions, kDirections)->Apply(FieldSizes);
BENCHMARK_CAPTURE(FieldAgain, axes_4_degrees, kAxes, 4)->Apply(FieldSizes);
BENCHMARK_CAPTURE(FieldAgain, axes_30_degrees, kAxes, 30)->Apply(FieldSizes);
BENCHMARK_CAPTURE(FieldAgain, directions_30_degrees, kDirections, 30)->Apply(FieldSizes);
BENCHMARK_CAPTURE(FieldOnGrid, kernel, kAxes, DensityMethod::Kernel, 10)->Apply(FieldSizes);
BENCHMARK_CAPTURE(FieldOnGrid, kamb_3_degrees_whole, kWholeAxes, kKamb, 3)->Apply(FieldSizes);
BENCHMARK_CAPTURE(FieldOnGrid, kamb_3_degrees, kAxes, kKamb, 3)->Apply(FieldSizes);
BENCHMARK_CAPTURE(FieldOnGrid, kamb_20_degrees_whole, kWholeAxes, kKamb, 20)->Apply(FieldSizes);
BENCHMARK_CAPTURE(FieldOnGrid, kamb_20_degrees, kAxes, kKamb, 20)->Apply(FieldSizes);
BENCHMARK_CAPTURE(FieldOnGrid, square_9_degrees, kAxes, kSquare, 9)->Apply(FieldSizes);
BENCHMARK_CAPTURE(FieldOnGrid, square_20_degrees, kAxes, kSquare, 20)->Apply(FieldSizes);
BENCHMARK_CAPTURE(FieldOnGrid, exponential_of_k_3, kAxes, kExponential, 2)->Apply(FieldSizes);
BENCHMARK_CAPTURE(KernelWidth, axes, kAxes)->Apply(FieldSizes);

} // namespace
} // namespace quandrel
