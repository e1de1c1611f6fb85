// SPDX-License-Identifier: MIT

#include "statistics/test_sentences.h"

#include "orientation/number_text.h"
#include "orientation/probability_text.h"
#include "statistics/fabric_kernels.h"

namespace quandrel {

namespace {

std::string UniformSentence(const std::string& rows, const TestOutcome& outcome) {
    const std::string numbers = " (" + OutcomeText("S", outcome) + ").";
    return IsRejected(outcome) ? "The " + rows + " have a preferred orientation: uniform " + rows
                                     + " are rejected" + numbers
                               : "The " + rows + " may be uniform" + numbers;
}

std::string InBrackets(const TestOutcome& outcome) {
    return "(" + ProbabilityText(outcome.probability) + ")";
}

std::string KindSentence(const FabricModels& models) {
    const std::string cluster = InBrackets(models.cluster);
    const std::string girdle = InBrackets(models.girdle);
    switch (KindOfFabric(models)) {
    case FabricKind::Uniform:
        return "Neither a cluster nor a girdle: the axes may be uniform "
               + InBrackets(models.uniform) + ".";
    case FabricKind::Cluster:
        return "A cluster: a girdle is rejected " + girdle + ", a cluster is not " + cluster + ".";
    case FabricKind::Girdle:
        return "A girdle: a cluster is rejected " + cluster + ", a girdle is not " + girdle + ".";
    case FabricKind::Neither:
        return "Between a cluster " + cluster + " and a girdle " + girdle
               + ": both are rejected for Bingham's distribution of three different axes.";
    case FabricKind::Undecided:
        break;
    }
    return "A cluster " + cluster + " or a girdle " + girdle
           + ": there are too few axes to tell which.";
}

} // namespace

std::string UniformAxesSentence(const TestOutcome& outcome) {
    return UniformSentence("axes", outcome);
}

std::string UniformDirectionsSentence(const TestOutcome& outcome) {
    return UniformSentence("directions", outcome);
}

std::string FabricSentence(const FabricModels& models) {
    const std::string kind = KindSentence(models);
    if (models.woodcock == kFailedResult) {
        return kind;
    }
    return kind + " Woodcock's K is " + FormatNumber(models.woodcock, "0.00") + ".";
}

std::string FisherSentence(const FisherFit& fit) {
    // One of three true hypotheses is rejected about as often as the level says.
    constexpr double level = kTestLevel / 3;
    const TestOutcome& colatitudes = fit.colatitudes.outcome;
    const TestOutcome& longitudes = fit.longitudes.outcome;
    const TestOutcome& twoVariables = fit.twoVariables.outcome;
    const bool isRejected = IsRejected(colatitudes, level) || IsRejected(longitudes, level)
                            || IsRejected(twoVariables, level);
    return std::string(isRejected ? "Fisher's distribution is rejected"
                                  : "The directions may be a Fisher distribution")
           + ": colatitudes " + ProbabilityText(colatitudes.probability) + ", longitudes "
           + ProbabilityText(longitudes.probability) + ", two variables "
           + ProbabilityText(twoVariables.probability) + ".";
}

std::string EqualMeansSentence(const TestOutcome& outcome) {
    return (IsRejected(outcome) ? "The means differ (" : "The means may be equal (")
           + OutcomeText("G", outcome) + ").";
}

} // namespace quandrel
