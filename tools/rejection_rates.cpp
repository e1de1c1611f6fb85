// SPDX-License-Identifier: MIT

// Prints how often the statistical tests reject true hypotheses, at 10, 5 and 1%.
//
//   rejection_rates [SAMPLES] [GROUP]
//
// SAMPLES of each kind; 4000 without it. GROUP: sphere, fabric, fisher, azimuths, pairs or means;
// all without it.
//
// A share that differs from its level by more than three standard errors has an asterisk. Tests by
// permutations and by samples use 199 tries, with which they keep these levels exactly; those of
// equal means do so only approximately. Takes some minutes.

#include "orientation/repeated_tries.h"
#include "rose/azimuth_samples.h"
#include "rose/azimuth_tests.h"
#include "rose/circular_reference.h"
#include "statistics/equal_means.h"
#include "statistics/fabric_kernels.h"
#include "statistics/fabric_models.h"
#include "statistics/fisher_fit.h"
#include "statistics/uniformity_tests.h"
#include "support/random_samples.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <numbers>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace quandrel {

namespace {

constexpr std::array<double, 3> kLevels = {0.1, 0.05, 0.01};
constexpr double kPerDegree = std::numbers::pi / 180;

/// The probabilities of the tests of one random sample, in the order of their names.
using Probabilities = std::vector<double>;
using Trial = std::function<Probabilities(RandomStream& random, std::uint64_t seed)>;

void PrintShare(int rejected, int samples, double level) {
    const double share = static_cast<double>(rejected) / samples;
    const double error = std::sqrt(level * (1 - level) / samples);
    std::printf(" %7.2f%c", 100 * share, std::abs(share - level) > 3 * error ? '*' : ' ');
}

void Print(const std::vector<std::string>& names, const std::string& kind, int samples,
           const Trial& trial) {
    std::vector<std::array<int, 3>> rejected(names.size());
    RandomStream random(1922);
    for (int i = 0; i < samples; ++i) {
        const Probabilities found = trial(random, static_cast<std::uint64_t>(i));
        for (std::size_t test = 0; test < names.size(); ++test) {
            for (std::size_t level = 0; level < kLevels.size(); ++level) {
                // The shares of 199 tries have the levels among their values.
                rejected[test][level] += found[test] <= kLevels[level] + 1e-9 ? 1 : 0;
            }
        }
    }
    for (std::size_t test = 0; test < names.size(); ++test) {
        std::printf("%-28s %-34s", names[test].c_str(), kind.c_str());
        for (std::size_t level = 0; level < kLevels.size(); ++level) {
            PrintShare(rejected[test][level], samples, kLevels[level]);
        }
        std::printf("\n");
    }
    std::fflush(stdout);
}

Repetition ShortRepetition(std::uint64_t seed) {
    Repetition repetition;
    repetition.tries = 199;
    repetition.seed = seed;
    return repetition;
}

/// The probability of a test; a sample without result counts as not rejected.
double ProbabilityOf(const std::optional<TestOutcome>& test) {
    return test ? test->probability : 1;
}

std::string Named(const char* text, double first, double second = 0) {
    std::array<char, 80> buffer{};
    std::snprintf(buffer.data(), buffer.size(), text, first, second);
    return buffer.data();
}

std::array<double, 3> EigenvaluesOf(const std::vector<Direction>& axes) {
    const std::vector<double> weights(axes.size(), 1);
    return SortedAxes(SymmetricEigen3(*OrientationTensor(axes, weights))).values;
}

double MeanLengthOf(const std::vector<Direction>& directions) {
    const std::vector<double> weights(directions.size(), 1);
    return LengthOf(ResultantOf(directions, weights)) / static_cast<double>(directions.size());
}

void TrySphereUniformity(int samples) {
    for (const int n : {10, 20, 50, 200}) {
        Print({"Bingham, uniform axes", "Rayleigh, uniform directions"}, Named("n %.0f", n),
              samples, [n](RandomStream& random, std::uint64_t) -> Probabilities {
                  const auto sample = SampleOf(n, [&random] { return UniformDirection(random); });
                  return {BinghamUniformity(EigenvaluesOf(sample), n).probability,
                          RayleighUniformity(MeanLengthOf(sample), n).probability};
              });
    }
}

void TryFabricModels(int samples) {
    for (const int n : {30, 100, 300}) {
        for (const double kappa : {3.0, 10.0}) {
            Print({"cluster by likelihood", "girdle by likelihood"},
                  Named("n %.0f, Watson's kappa +-%.0f", n, kappa), samples,
                  [n, kappa](RandomStream& random, std::uint64_t) -> Probabilities {
                      const auto cluster =
                          SampleOf(n, [&] { return BinghamDirection(random, -kappa, -kappa); });
                      const auto girdle =
                          SampleOf(n, [&] { return BinghamDirection(random, -kappa, 0); });
                      const auto first = FabricModelsOf(EigenvaluesOf(cluster), n);
                      const auto second = FabricModelsOf(EigenvaluesOf(girdle), n);
                      return {first ? first->cluster.probability : 1,
                              second ? second->girdle.probability : 1};
                  });
        }
    }
}

void TryFisherFit(int samples) {
    for (const int n : {10, 30, 100}) {
        for (const double kappa : {5.0, 10.0, 30.0, 200.0}) {
            Print({"Fisher: colatitudes", "Fisher: longitudes", "Fisher: two variables"},
                  Named("n %.0f, kappa %.0f", n, kappa), samples,
                  [n, kappa](RandomStream& random, std::uint64_t) -> Probabilities {
                      const auto fit =
                          FitFisher(SampleOf(n, [&] { return FisherDirection(random, kappa); }));
                      return {fit->colatitudes.outcome.probability,
                              fit->longitudes.outcome.probability,
                              fit->twoVariables.outcome.probability};
                  });
        }
    }
}

/// Samples of axes of Bingham's distributions with equal means.
struct AxisPair {
    int n1;
    std::array<double, 2> k1;
    int n2;
    std::array<double, 2> k2;
};

void TryEqualMeans(int samples) {
    const std::array<AxisPair, 5> pairs = {{{15, {-10, -10}, 15, {-10, -10}},
                                            {30, {-10, -10}, 30, {-3, -3}},
                                            {30, {-20, -5}, 20, {-10, -10}},
                                            {100, {-30, -2}, 30, {-20, -5}},
                                            {100, {-20, -5}, 100, {-20, -5}}}};
    for (const AxisPair& pair : pairs) {
        const std::string kind =
            Named("n %.0f", pair.n1) + Named(" (%.0f, %.0f)", pair.k1[0], pair.k1[1])
            + Named(" and %.0f", pair.n2) + Named(" (%.0f, %.0f)", pair.k2[0], pair.k2[1]);
        Print({"equal means of axes"}, kind, samples,
              [&pair](RandomStream& random, std::uint64_t seed) -> Probabilities {
                  const auto first = SampleOf(
                      pair.n1, [&] { return BinghamDirection(random, pair.k1[0], pair.k1[1]); });
                  const auto second = SampleOf(
                      pair.n2, [&] { return BinghamDirection(random, pair.k2[0], pair.k2[1]); });
                  return {ProbabilityOf(
                      EqualMeansTest(first, second, LinePolarity::kAxial, ShortRepetition(seed)))};
              });
    }
    for (const auto& kappas : {std::pair(5.0, 5.0), {30.0, 30.0}, {20.0, 5.0}}) {
        for (const auto& sizes : {std::pair(15, 15), {20, 50}}) {
            const double kappa1 = kappas.first;
            const double kappa2 = kappas.second;
            const int n1 = sizes.first;
            const int n2 = sizes.second;
            Print({"equal means of directions"},
                  Named("n %.0f and %.0f, ", n1, n2) + Named("kappa %.0f and %.0f", kappa1, kappa2),
                  samples, [=](RandomStream& random, std::uint64_t seed) -> Probabilities {
                      const auto first =
                          SampleOf(n1, [&] { return FisherDirection(random, kappa1); });
                      const auto second =
                          SampleOf(n2, [&] { return FisherDirection(random, kappa2); });
                      return {ProbabilityOf(EqualMeansTest(first, second, LinePolarity::kDirected,
                                                           ShortRepetition(seed)))};
                  });
        }
    }
}

double AzimuthLengthOf(const std::vector<double>& angles) {
    double sine = 0;
    double cosine = 0;
    for (const double angle : angles) {
        sine += std::sin(angle);
        cosine += std::cos(angle);
    }
    return std::hypot(sine, cosine) / static_cast<double>(angles.size());
}

void TryUniformAzimuths(int samples) {
    for (const int n : {5, 10, 20, 50, 200, 2000}) {
        Print({"Rayleigh, azimuths", "Kuiper, azimuths", "Watson, azimuths"}, Named("n %.0f", n),
              samples, [n](RandomStream& random, std::uint64_t) -> Probabilities {
                  const auto angles = SampleOf(n, [&random] { return UniformAzimuth(random); });
                  return {RayleighTest(n, AzimuthLengthOf(angles)).probability,
                          ProbabilityOf(KuiperUniformity(angles, kWithoutSteps, {})),
                          WatsonUniformity(angles).probability};
              });
    }
    for (const int n : {10, 50, 200, 600, 2000}) {
        Print({"Rayleigh, azimuths", "Kuiper, azimuths", "Watson, azimuths", "Rao, azimuths"},
              Named("n %.0f in whole degrees", n), samples,
              [n](RandomStream& random, std::uint64_t seed) -> Probabilities {
                  const auto angles =
                      SampleOf(n, [&random] { return random.Below(360) * kPerDegree; });
                  const Repetition repetition = ShortRepetition(seed);
                  return {RayleighTest(n, AzimuthLengthOf(angles)).probability,
                          ProbabilityOf(KuiperUniformity(angles, kStepsOfDirections, repetition)),
                          WatsonUniformity(angles).probability,
                          ProbabilityOf(RaoSpacingTest(angles, kStepsOfDirections, repetition))};
              });
    }
    for (const int n : {10, 100, 1500}) {
        Print({"Rao, azimuths"}, Named("n %.0f", n), n > 100 ? samples : samples / 2,
              [n](RandomStream& random, std::uint64_t seed) -> Probabilities {
                  const auto angles = SampleOf(n, [&random] { return UniformAzimuth(random); });
                  return {
                      ProbabilityOf(RaoSpacingTest(angles, kWithoutSteps, ShortRepetition(seed)))};
              });
    }
}

void TryTwoSamples(int samples) {
    for (const auto& sizes : {std::pair(6, 8), {20, 40}, {600, 500}}) {
        const int n1 = sizes.first;
        const int n2 = sizes.second;
        for (const double step : {1.0, 10.0}) {
            Print({"Watson, two samples", "Mardia-Watson-Wheeler"},
                  Named("n %.0f and %.0f", n1, n2) + Named(" in steps of %.0f degrees", step),
                  samples, [=](RandomStream& random, std::uint64_t seed) -> Probabilities {
                      const auto one = [&random, step] {
                          const double angle = VonMisesAzimuth(random, 2) / kPerDegree;
                          return std::nearbyint(angle / step) * step * kPerDegree;
                      };
                      const auto first = SampleOf(n1, one);
                      const auto second = SampleOf(n2, one);
                      const Repetition repetition = ShortRepetition(seed);
                      return {ProbabilityOf(WatsonTwoSamples(first, second, repetition)),
                              ProbabilityOf(MardiaWatsonWheeler(first, second, repetition))};
                  });
        }
    }
}

} // namespace

} // namespace quandrel

int main(int argc, char** argv) {
    using namespace quandrel;
    const int samples = argc > 1 ? std::max(std::atoi(argv[1]), 2) : 4000;
    const std::string group = argc > 2 ? argv[2] : "";
    const std::array<std::pair<const char*, void (*)(int)>, 6> groups = {
        {{"sphere", TrySphereUniformity},
         {"fabric", TryFabricModels},
         {"fisher", TryFisherFit},
         {"azimuths", TryUniformAzimuths},
         {"pairs", TryTwoSamples},
         {"means", TryEqualMeans}}};
    std::printf("%-28s %-34s %8s %8s %8s\n", "test", "samples", "10%", "5%", "1%");
    for (const auto& [name, tryAll] : groups) {
        if (group.empty() || group == name) {
            tryAll(samples);
        }
    }
    return 0;
}
