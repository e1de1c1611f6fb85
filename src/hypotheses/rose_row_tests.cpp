// SPDX-License-Identifier: MIT
//
// The tests of azimuths of roses.

#include "hypotheses/made_tests.h"
#include "orientation/number_text.h"
#include "rose/azimuth_samples.h"
#include "rose/azimuth_sentences.h"
#include "rose/azimuth_tests.h"
#include "rose/circular_reference.h"
#include "rose/circular_statistics.h"
#include "rose/circular_texts.h"
#include "rose/mean_bootstrap.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <vector>

namespace quandrel {

namespace {

constexpr const char* kOneDecimal = "0.0";
constexpr const char* kTwoDecimals = "0.00";

/// The results of the angles as a sample of weight 1 each.
CircularReference ReferenceOf(const AzimuthSample& sample) {
    CircularSample circular;
    // Angles of axes are doubled already; statistics of axes only halve the results.
    for (const double angle : sample.angles) {
        const TrigSums terms = TrigTermsOf(angle, AngleSense::kDirected);
        for (std::size_t term = 0; term < terms.size(); ++term) {
            circular.sums[term] += terms[term];
        }
    }
    circular.count = static_cast<double>(sample.angles.size());
    circular.weight = circular.count;
    circular.sense = sample.areAxes ? AngleSense::kAxial : AngleSense::kDirected;
    return ComputeCircularReference(circular).value_or(CircularReference());
}

RowTest UniformTest(UniformAzimuthTest test, const char* name, const char* symbol,
                    TestOutcome outcome) {
    const std::string sentence = UniformAzimuthSentence(test, outcome);
    if (test == UniformAzimuthTest::Rao) {
        outcome.statistic = RadToDeg(outcome.statistic);
    }
    return DoneTest(name, symbol, outcome, sentence);
}

/// The tests of uniform azimuths.
void AddUniformity(const AzimuthSample& sample, const CircularReference& reference,
                   const TestChoice& choice, RowTests& tests) {
    const std::span<const double> angles = sample.angles;
    const auto count = static_cast<double>(angles.size());
    const bool areRounded = sample.steps != kWithoutSteps;
    const UniformityTest rayleigh = RayleighTest(count, reference.resultant[0]);
    tests.tests.push_back(UniformTest(UniformAzimuthTest::Rayleigh, "Uniform azimuths (Rayleigh)",
                                      "n R^2", {rayleigh.statistic, rayleigh.probability}));
    const auto by = [](bool isSimulated) {
        return isSimulated ? ProbabilityBy::Simulation : ProbabilityBy::Formula;
    };
    const bool simulatesKuiper =
        areRounded && angles.size() > static_cast<std::size_t>(kMostAnglesByFormula);
    const bool simulatesRao =
        areRounded || angles.size() <= static_cast<std::size_t>(kMostAnglesBySpacings);
    Simulations simulations(choice, (simulatesKuiper ? 1 : 0) + (simulatesRao ? 1 : 0));
    const auto [kuiperState, kuiper] =
        simulations.Run(by(simulatesKuiper), [&](const Repetition& repetition) {
            return KuiperUniformity(angles, sample.steps, repetition);
        });
    tests.tests.push_back(SimulatedTest(
        kuiperState,
        UniformTest(UniformAzimuthTest::Kuiper, "Uniform azimuths (Kuiper)", "V", kuiper), {}));
    tests.tests.push_back(UniformTest(UniformAzimuthTest::Watson, "Uniform azimuths (Watson)",
                                      "U^2", WatsonUniformity(angles)));
    constexpr const char* kRao = "Even spacing (Rao)";
    if (angles.size() < 2) {
        tests.tests.push_back(UndefinedTest(kRao, "U", "There are fewer than 2 rows."));
        return;
    }
    const auto [raoState, rao] =
        simulations.Run(by(simulatesRao), [&](const Repetition& repetition) {
            return RaoSpacingTest(angles, sample.steps, repetition);
        });
    tests.tests.push_back(
        SimulatedTest(raoState, UniformTest(UniformAzimuthTest::Rao, kRao, "U", rao), {}));
}

void AddKappa(const CircularReference& reference, RowTests& tests) {
    constexpr const char* kName = "Concentration";
    if (std::isinf(reference.kappa)) {
        tests.tests.push_back(
            UndefinedTest(kName, "kappa", "The azimuths are equal: kappa has no bound."));
        return;
    }
    const std::string whose = reference.count > 0 ? "Kappa of von Mises' distribution is " : "";
    tests.tests.push_back(
        Estimate(kName, "kappa", reference.kappa,
                 whose + FormatNumber(reference.kappa, kTwoDecimals) + " by maximum likelihood."));
    tests.tests.push_back(
        Estimate("Concentration without bias", "kappa", reference.correctedKappa,
                 whose + FormatNumber(reference.correctedKappa, kTwoDecimals)
                     + (reference.correctedKappa == reference.kappa
                            ? " also when corrected for the bias of samples of 15 and fewer."
                            : " when corrected for the bias of samples of 15 and fewer.")));
}

/// Half the interval of the mean, radians.
std::optional<double> HalfWidthOf(const AzimuthSample& sample, const CircularReference& reference) {
    if (static_cast<double>(sample.angles.size()) > kLargeSample) {
        return reference.confidenceHalfWidth;
    }
    std::vector<WeightedAngle> angles;
    for (const double angle : sample.angles) {
        angles.push_back({angle, 1});
    }
    const std::optional<double> halfWidth = BootstrapHalfWidth(angles);
    return halfWidth && sample.areAxes ? std::optional(*halfWidth / 2) : halfWidth;
}

void AddMean(const AzimuthSample& sample, const CircularReference& reference, RowTests& tests) {
    constexpr const char* kName = "Mean direction";
    constexpr const char* kSymbol = "95% half-width";
    if (!reference.meanDirection || reference.resultant[0] == 0) {
        tests.tests.push_back(UndefinedTest(kName, kSymbol, "The azimuths have no mean."));
        return;
    }
    const std::string mean =
        "The mean direction is "
        + FineAzimuthOf(*reference.meanDirection,
                        sample.areAxes ? AngleSense::kAxial : AngleSense::kDirected);
    const bool isLarge = static_cast<double>(sample.angles.size()) > kLargeSample;
    const std::string method = isLarge ? ", by the circular standard error."
                                       : ", by a symmetric bootstrap-t of "
                                             + std::to_string(kBootstrapResamples)
                                             + " resamples, as there are fewer than 26 rows.";
    const std::optional<double> halfWidth = HalfWidthOf(sample, reference);
    tests.tests.push_back(
        halfWidth ? Estimate(kName, kSymbol, RadToDeg(*halfWidth),
                             mean + " within " + FormatNumber(RadToDeg(*halfWidth), kOneDecimal)
                                 + " degrees at 95%" + method)
                  : UndefinedTest(kName, kSymbol,
                                  mean
                                      + "; no interval holds 95%: the azimuths are too few or too "
                                        "dispersed."));
}

} // namespace

RowTests TestsOfRose(const TestSample& sample, const TestChoice& choice) {
    const CircularReference reference = ReferenceOf(sample.azimuths);
    RowTests tests;
    AddUniformity(sample.azimuths, reference, choice, tests);
    AddKappa(reference, tests);
    AddMean(sample.azimuths, reference, tests);
    return tests;
}

RowTests TestsOfRoses(const TestSample& first, const TestSample& second, const TestChoice& choice) {
    const std::vector<double>& one = first.azimuths.angles;
    const std::vector<double>& other = second.azimuths.angles;
    constexpr const char* kWatson = "Equal distributions (Watson)";
    constexpr const char* kScores = "Equal distributions (Mardia, Watson, Wheeler)";
    RowTests tests;
    if (std::min(one.size(), other.size()) < kFewestAnglesOfSample) {
        tests.tests.push_back(UndefinedTest(kWatson, "U^2", "A sample has fewer than 2 rows."));
        return tests;
    }
    const ProbabilityBy by = one.size() + other.size() <= kMostAnglesInPermutations
                                 ? ProbabilityBy::Simulation
                                 : ProbabilityBy::Formula;
    Simulations simulations(choice, 2);
    const auto [watsonState, watson] = simulations.Run(
        by, [&](const Repetition& repetition) { return WatsonTwoSamples(one, other, repetition); });
    tests.tests.push_back(SimulatedTest(
        watsonState,
        DoneTest(kWatson, "U^2", watson, AzimuthSampleSentence(AzimuthSampleTest::Watson, watson)),
        "All azimuths are equal."));
    const auto [scoresState, scores] = simulations.Run(by, [&](const Repetition& repetition) {
        return MardiaWatsonWheeler(one, other, repetition);
    });
    tests.tests.push_back(SimulatedTest(
        scoresState,
        DoneTest(kScores, "W", scores,
                 AzimuthSampleSentence(AzimuthSampleTest::MardiaWatsonWheeler, scores)),
        "There are fewer than three different azimuths."));
    return tests;
}

} // namespace quandrel
