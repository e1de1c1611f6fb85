// SPDX-License-Identifier: MIT
//
// The tests of axes and directions on a net.

#include "hypotheses/made_tests.h"
#include "orientation/number_text.h"
#include "orientation/probability_text.h"
#include "statistics/equal_means.h"
#include "statistics/fabric_models.h"
#include "statistics/region_sample.h"
#include "statistics/symmetry_tests.h"
#include "statistics/test_sentences.h"
#include "statistics/uniformity_tests.h"

#include <cmath>
#include <vector>

namespace quandrel {

namespace {

/// Below this concentration the probabilities of Fisher's distribution are rough.
constexpr double kLeastConcentration = 5;

constexpr const char* kTwoDecimals = "0.00";

WeightedDirections Counted(const std::vector<Direction>& rows) {
    return {rows, std::vector<double>(rows.size(), 1.0)};
}

std::string Bracketed(const char* symbol, const TestOutcome& outcome) {
    return " (" + OutcomeText(symbol, outcome) + ").";
}

RowTest SymmetryTest(const std::string& name, const std::string& rows, const std::string& centre,
                     const TestOutcome& outcome) {
    const std::string sentence =
        IsRejected(outcome)
            ? "The " + rows + " are not symmetric about " + centre + Bracketed("P", outcome)
            : "The " + rows + " may be symmetric about " + centre + Bracketed("P", outcome);
    return DoneTest(name, "P", outcome, sentence);
}

void AddSymmetryOfAxes(const RegionSample& sample, RowTests& tests) {
    if (const auto frame = AxisFrameOf(sample, FrameCentre::Greatest)) {
        tests.tests.push_back(SymmetryTest("Rotational symmetry about e3", "axes",
                                           "the principal axis e3",
                                           SymmetryTestOfAxes(sample, *frame)));
    }
    if (const auto frame = AxisFrameOf(sample, FrameCentre::Least)) {
        tests.tests.push_back(SymmetryTest("Rotational symmetry about e1", "axes",
                                           "the girdle's pole e1",
                                           SymmetryTestOfAxes(sample, *frame)));
    }
}

RowTest ModelTest(const std::string& name, const std::string& model, const TestOutcome& outcome) {
    const std::string found =
        IsRejected(outcome) ? " is rejected against" : " is not rejected against";
    return DoneTest(name, "2 ln L", outcome,
                    model + found + " Bingham's distribution" + Bracketed("2 ln L", outcome));
}

std::string LikelihoodText(const FabricModels& models) {
    return " Log-likelihoods: Watson's cluster "
           + FormatNumber(models.clusterLikelihood, kTwoDecimals) + ", Watson's girdle "
           + FormatNumber(models.girdleLikelihood, kTwoDecimals) + ", Bingham "
           + FormatNumber(models.binghamLikelihood, kTwoDecimals) + ".";
}

void AddModels(const std::array<double, 3>& values, double count, RowTests& tests) {
    constexpr const char* kName = "Cluster, girdle or neither";
    const auto models = FabricModelsOf(values, count);
    if (!models) {
        tests.tests.push_back(UndefinedTest(
            kName, {}, "The axes are in one plane, or nearly: likelihoods have no bound."));
        return;
    }
    tests.tests.push_back(ModelTest("Watson's cluster", "A cluster", models->cluster));
    tests.tests.push_back(ModelTest("Watson's girdle", "A girdle", models->girdle));
    tests.tests.push_back(Remark(kName, FabricSentence(*models) + LikelihoodText(*models)));
}

void AddAxes(const TestSample& sample, RowTests& tests) {
    const RegionSample axes = RegionSampleOf(Counted(sample.directions), RowsAre::Axes);
    const auto frame = AxisFrameOf(axes, FrameCentre::Greatest);
    if (!frame) {
        return;
    }
    const TestOutcome uniform = BinghamUniformity(frame->values, axes.count);
    tests.tests.push_back(
        DoneTest("Uniform axes (Bingham)", "S", uniform, UniformAxesSentence(uniform)));
    AddSymmetryOfAxes(axes, tests);
    AddModels(frame->values, axes.count, tests);
}

void AddDirections(const TestSample& sample, RowTests& tests) {
    constexpr const char* kSymmetry = "Rotational symmetry about the mean";
    const RegionSample directions = RegionSampleOf(Counted(sample.directions), RowsAre::Directions);
    const auto frame = MeanFrameOf(directions);
    const TestOutcome uniform = RayleighUniformity(frame ? frame->meanLength : 0, directions.count);
    tests.tests.push_back(DoneTest("Uniform directions (Rayleigh)", "S", uniform,
                                   UniformDirectionsSentence(uniform)));
    tests.tests.push_back(frame ? SymmetryTest(kSymmetry, "directions", "their mean",
                                               SymmetryTestOfDirections(directions, *frame))
                                : UndefinedTest(kSymmetry, "P", "The directions have no mean."));
}

/// The ends of axes on the side of the principal axis.
std::vector<Direction> OnOneSide(const std::vector<Direction>& axes) {
    const auto frame =
        AxisFrameOf(RegionSampleOf(Counted(axes), RowsAre::Axes), FrameCentre::Greatest);
    std::vector<Direction> ends = axes;
    for (Direction& end : ends) {
        if (frame && DotProduct(end, frame->axes[2]) < 0) {
            end = Scaled(end, -1);
        }
    }
    return ends;
}

RowTest FisherTest(const std::string& values, const char* symbol, const TestOutcome& outcome) {
    const std::string sentence = IsRejected(outcome) ? " are not those of Fisher's distribution"
                                                     : " may be those of Fisher's distribution";
    return DoneTest("Fisher's distribution: " + values, symbol, outcome,
                    "The " + values + sentence + Bracketed(symbol, outcome));
}

void AddQuantiles(const FisherFit& fit, RowTests& tests) {
    tests.quantiles.push_back({"Colatitudes", "Exponential distribution", "1 - cos(colatitude)",
                               fit.colatitudes.points, 1 / fit.concentration, false});
    tests.quantiles.push_back({"Longitudes", "Uniform distribution", "Longitude, turns",
                               fit.longitudes.points, 1, false});
    tests.quantiles.push_back({"Two variables", "Normal distribution", "Scaled longitude",
                               fit.twoVariables.points, 1 / std::sqrt(fit.concentration), true});
}

std::string FisherRemark(const FisherFit& fit, bool areAxes) {
    std::string text = FisherSentence(fit) + " Its concentration is "
                       + FormatNumber(fit.concentration, kTwoDecimals);
    text +=
        fit.concentration < kLeastConcentration ? ", below 5: the probabilities are rough." : ".";
    return areAxes ? text + " Axes are taken by their ends on the side of e3." : text;
}

void AddFisher(const TestSample& sample, RowTests& tests) {
    constexpr const char* kName = "Fisher's distribution";
    const bool areAxes = sample.as == RowsTestedAs::Axes;
    const auto fit = FitFisher(areAxes ? OnOneSide(sample.directions) : sample.directions);
    if (!fit) {
        const bool areFew = sample.directions.size() < kFewestDirectionsOfFit;
        tests.tests.push_back(UndefinedTest(
            kName, {},
            areFew ? "There are fewer than " + std::to_string(kFewestDirectionsOfFit) + " rows."
                   : "The rows are equal, or have no mean."));
        return;
    }
    tests.tests.push_back(FisherTest("colatitudes", "D", fit->colatitudes.outcome));
    tests.tests.push_back(FisherTest("longitudes", "V", fit->longitudes.outcome));
    tests.tests.push_back(FisherTest("two variables", "D", fit->twoVariables.outcome));
    tests.tests.push_back(Remark(kName, FisherRemark(*fit, areAxes)));
    AddQuantiles(*fit, tests);
}

} // namespace

RowTests TestsOfNet(const TestSample& sample) {
    RowTests tests;
    if (sample.as == RowsTestedAs::Directions) {
        AddDirections(sample, tests);
        AddFisher(sample, tests);
        AddAxes(sample, tests);
    } else {
        AddAxes(sample, tests);
        AddFisher(sample, tests);
    }
    return tests;
}

RowTests TestsOfNets(const TestSample& first, const TestSample& second, const TestChoice& choice) {
    constexpr const char* kName = "Equal means";
    RowTests tests;
    if (std::min(first.Count(), second.Count()) < kFewestRowsOfMean) {
        tests.tests.push_back(UndefinedTest(
            kName, "G", "A sample has fewer than " + std::to_string(kFewestRowsOfMean) + " rows."));
        return tests;
    }
    const LinePolarity polarity =
        first.as == RowsTestedAs::Directions ? LinePolarity::kDirected : LinePolarity::kAxial;
    Simulations simulations(choice, 1);
    const auto [state, outcome] =
        simulations.Run(ProbabilityBy::Simulation, [&](const Repetition& repetition) {
            return EqualMeansTest(first.directions, second.directions, polarity, repetition);
        });
    tests.tests.push_back(SimulatedTest(
        state, DoneTest(kName, "G", outcome, EqualMeansSentence(outcome)),
        "A sample has no mean with an uncertainty: its rows are in one plane or along "
        "one line, or two of its eigenvalues are equal."));
    return tests;
}

} // namespace quandrel
