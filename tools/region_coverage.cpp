// SPDX-License-Identifier: MIT
//
// How often confidence regions hold the true centre: simulated samples of known distributions.
//
// usage: region_coverage [SAMPLES] [LEVEL]    2000 samples of each kind and level 0.95 by default
//
// A row of the table is a distribution with a target and a number of rows. The columns of the
// methods give the share of all samples whose region holds the true centre; a region that is
// refused is counted as the one that it hides, one without bounds by its formula. The last columns
// give the shares of samples for which the automatic choice refuses its region or has none.

#include "statistics/axis_regions.h"
#include "statistics/direction_regions.h"
#include "statistics/region_choice.h"
#include "support/weighted_samples.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <thread>
#include <vector>

namespace {

using namespace quandrel;

constexpr std::array kCounts = {15, 30, 100};
constexpr double kDefaultLevel = 0.95;
constexpr int kDefaultSamples = 2000;

/// A distribution with what is estimated, and where it truly is.
struct Trial {
    std::string name;
    RegionTarget target = RegionTarget::PrincipalAxis;
    Direction truth;
    std::function<Direction(RandomStream&)> draw;
};

/// Counts of samples.
struct Tally {
    int covered = 0; ///< by the automatic choice
    int refused = 0;
    int undefined = 0;
    std::array<int, 4> byMethod{}; ///< in the order of MethodsFor

    void Add(const Tally& other) {
        covered += other.covered;
        refused += other.refused;
        undefined += other.undefined;
        for (std::size_t i = 0; i < byMethod.size(); ++i) {
            byMethod[i] += other.byMethod[i];
        }
    }
};

std::vector<Trial> Trials() {
    const Direction vertical = {0, 0, 1};
    const auto bingham = [](double k1, double k2) {
        return [=](RandomStream& random) { return BinghamDirection(random, k1, k2); };
    };
    const auto fisher = [](double kappa) {
        return [=](RandomStream& random) { return FisherDirection(random, kappa); };
    };
    const auto elongated = [](double a, double b) {
        return [=](RandomStream& random) { return ElongatedDirection(random, a, b); };
    };
    return {
        {"Watson 10", RegionTarget::PrincipalAxis, vertical, bingham(-10, -10)},
        {"Watson 3", RegionTarget::PrincipalAxis, vertical, bingham(-3, -3)},
        {"Bingham -20 -5", RegionTarget::PrincipalAxis, vertical, bingham(-20, -5)},
        {"Bingham -30 -2", RegionTarget::PrincipalAxis, vertical, bingham(-30, -2)},
        {"Fisher 30", RegionTarget::MeanDirection, vertical, fisher(30)},
        {"Fisher 5", RegionTarget::MeanDirection, vertical, fisher(5)},
        {"Fisher 1", RegionTarget::MeanDirection, vertical, fisher(1)},
        {"elongated .2 .6", RegionTarget::MeanDirection, vertical, elongated(0.2, 0.6)},
        {"elongated .05 .5", RegionTarget::MeanDirection, vertical, elongated(0.05, 0.5)},
        {"pole of -20 -5", RegionTarget::GirdlePole, {1, 0, 0}, bingham(-20, -5)},
        {"pole of -30 -2", RegionTarget::GirdlePole, {1, 0, 0}, bingham(-30, -2)},
        {"pole of -20 0", RegionTarget::GirdlePole, {1, 0, 0}, bingham(-20, 0)},
    };
}

Tally TallyOf(const Trial& trial, int count, double level, int sampleNumber) {
    // Each sample has a seed of its own, so that threads do not matter.
    RandomStream random(static_cast<std::uint64_t>(sampleNumber) * 1000U
                        + static_cast<std::uint64_t>(count));
    const bool isDirected = trial.target == RegionTarget::MeanDirection;
    const RegionSample sample = RegionSampleOf(WeightedSampleOf(random, count, trial.draw),
                                               isDirected ? RowsAre::Directions : RowsAre::Axes);
    RegionChoice choice;
    choice.target = trial.target;
    choice.level = level;
    choice.bootstrap.seed = static_cast<std::uint64_t>(sampleNumber);
    Tally tally;
    const ConfidenceRegion automatic = ChooseRegion(sample, choice)->region;
    tally.covered = Contains(automatic, trial.truth) ? 1 : 0;
    tally.refused = automatic.state == RegionState::Refused ? 1 : 0;
    tally.undefined = automatic.state == RegionState::Undefined ? 1 : 0;
    const auto methods = MethodsFor(trial.target);
    for (std::size_t i = 0; i < methods.size(); ++i) {
        choice.method = methods[i];
        const ConfidenceRegion region =
            methods[i] == automatic.method ? automatic : ChooseRegion(sample, choice)->region;
        tally.byMethod.at(i) = Contains(region, trial.truth) ? 1 : 0;
    }
    return tally;
}

Tally TallyOfAll(const Trial& trial, int count, double level, int samples) {
    const int threads = static_cast<int>(std::max(std::thread::hardware_concurrency(), 1U));
    std::vector<Tally> parts(static_cast<std::size_t>(threads));
    {
        std::vector<std::jthread> workers;
        workers.reserve(parts.size());
        for (int thread = 0; thread < threads; ++thread) {
            workers.emplace_back([&, thread] {
                for (int sample = thread; sample < samples; sample += threads) {
                    parts[static_cast<std::size_t>(thread)].Add(
                        TallyOf(trial, count, level, sample));
                }
            });
        }
    }
    Tally all;
    for (const Tally& part : parts) {
        all.Add(part);
    }
    return all;
}

void PrintRow(const Trial& trial, int count, const Tally& tally, int samples) {
    const auto share = [samples](int number) { return static_cast<double>(number) / samples; };
    const bool isDirected = trial.target == RegionTarget::MeanDirection;
    std::printf("%-18s %4d   %5.3f   %5.3f  ", trial.name.c_str(), count, share(tally.covered),
                share(tally.byMethod[0]));
    // Cones, ellipses and Bingham's; directions have no fourth method.
    std::printf("%5.3f  %5.3f  ", share(tally.byMethod[1]), share(tally.byMethod[2]));
    if (isDirected) {
        std::printf("  -  ");
    } else {
        std::printf("%5.3f", share(tally.byMethod[3]));
    }
    std::printf("   %5.3f  %5.3f\n", share(tally.refused), share(tally.undefined));
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv) {
    const int samples = argc > 1 ? std::atoi(argv[1]) : kDefaultSamples;
    const double level = argc > 2 ? std::atof(argv[2]) : kDefaultLevel;
    if (samples < 1 || !(level > 0 && level < 1)) {
        std::fprintf(stderr, "usage: region_coverage [SAMPLES] [LEVEL]\n");
        return 2;
    }
    std::printf("%-18s %4s   %5s   %5s  %5s  %5s  %5s   %5s  %5s\n", "distribution", "n", "auto",
                "boot", "cone", "ellip", "Bingh", "refus", "undef");
    for (const Trial& trial : Trials()) {
        for (const int count : kCounts) {
            PrintRow(trial, count, TallyOfAll(trial, count, level, samples), samples);
        }
    }
    return 0;
}
