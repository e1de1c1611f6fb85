// SPDX-License-Identifier: MIT
//
// Confidence regions: resamples of a bootstrap, on one thread and on two, and the concentrations of
// Bingham's distribution.

#include "orientation/angles.h"
#include "statistics/bingham_distribution.h"
#include "statistics/bootstrap_region.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>

namespace quandrel {
namespace {

/// A cluster of unit vectors about the vertical.
RegionSample Cluster(std::int64_t rows, RowsAre kind) {
    std::mt19937_64 random(1);
    WeightedDirections sample;
    for (std::int64_t i = 0; i < rows; ++i) {
        const double plunge = std::acos(std::sqrt(static_cast<double>(random() % 10000) / 20000));
        const double trend = static_cast<double>(random() % 36000) / 100;
        sample.directions.push_back(LineToCosines(plunge, DegToRad(trend)));
        sample.weights.push_back(1);
    }
    return RegionSampleOf(sample, kind);
}

void Resamples(benchmark::State& state, RegionTarget target, unsigned threads) {
    const RegionSample sample =
        Cluster(state.range(0),
                target == RegionTarget::MeanDirection ? RowsAre::Directions : RowsAre::Axes);
    BootstrapOptions options;
    options.resamples = kMostResamples;
    options.threads = threads;
    for (auto _ : state) {
        benchmark::DoNotOptimize(Resample(sample, target, options));
    }
}

void ResamplesOfAxes(benchmark::State& state) {
    Resamples(state, RegionTarget::PrincipalAxis, 1);
}

void ResamplesOfAxesByTwo(benchmark::State& state) {
    Resamples(state, RegionTarget::PrincipalAxis, 2);
}

void ResamplesOfDirectionsByTwo(benchmark::State& state) {
    Resamples(state, RegionTarget::MeanDirection, 2);
}

void ConcentrationsOfBingham(benchmark::State& state) {
    for (auto _ : state) {
        benchmark::DoNotOptimize(BinghamConcentrations(0.02, 0.1));
    }
}

BENCHMARK(ResamplesOfAxes)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(ResamplesOfAxesByTwo)
    ->Arg(1000)
    ->Arg(10000)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ResamplesOfDirectionsByTwo)->Arg(1000)->UseRealTime()->Unit(benchmark::kMillisecond);
BENCHMARK(ConcentrationsOfBingham);

} // namespace
} // namespace quandrel
