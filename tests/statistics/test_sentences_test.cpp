// SPDX-License-Identifier: MIT
//
// The words of the tests of axes and directions.

#include "statistics/fabric_kernels.h"
#include "statistics/test_sentences.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

TEST(UniformSentences, SayWhetherAnOrientationIsPreferred) {
    EXPECT_EQ(UniformAxesSentence({17.69, 0.0034}),
              "The axes have a preferred orientation: uniform axes are rejected (S = 17.69, p = "
              "0.003).");
    EXPECT_EQ(UniformDirectionsSentence({3.2, 0.36}),
              "The directions may be uniform (S = 3.20, p = 0.36).");
}

/// Models with given probabilities of uniform axes, a cluster and a girdle.
FabricModels ModelsWith(double uniform, double cluster, double girdle) {
    FabricModels models;
    models.uniform.probability = uniform;
    models.cluster.probability = cluster;
    models.girdle.probability = girdle;
    models.woodcock = 2.1;
    return models;
}

TEST(FabricSentence, NamesTheKindAndWhatSpeaksForIt) {
    EXPECT_EQ(
        FabricSentence(ModelsWith(0, 0.34, 0)),
        "A cluster: a girdle is rejected (p < 0.001), a cluster is not (p = 0.34). Woodcock's "
        "K is 2.10.");
    EXPECT_EQ(
        FabricSentence(ModelsWith(0, 0.01, 0.2)),
        "A girdle: a cluster is rejected (p = 0.010), a girdle is not (p = 0.20). Woodcock's K "
        "is 2.10.");
    EXPECT_EQ(FabricSentence(ModelsWith(0, 0.01, 0.02)),
              "Between a cluster (p = 0.010) and a girdle (p = 0.020): both are rejected for "
              "Bingham's distribution of three different axes. Woodcock's K is 2.10.");
    EXPECT_EQ(FabricSentence(ModelsWith(0, 0.1, 0.2)),
              "A cluster (p = 0.10) or a girdle (p = 0.20): there are too few axes to tell which. "
              "Woodcock's K is 2.10.");
    FabricModels uniform = ModelsWith(0.5, 0.1, 0.2);
    uniform.woodcock = kFailedResult;
    EXPECT_EQ(FabricSentence(uniform),
              "Neither a cluster nor a girdle: the axes may be uniform (p = 0.50).");
}

TEST(FisherSentence, RejectsAtAThirdOfTheLevelOfEachTest) {
    FisherFit fit;
    fit.colatitudes.outcome.probability = 0.43;
    fit.longitudes.outcome.probability = 0.02;
    fit.twoVariables.outcome.probability = 0.21;
    EXPECT_EQ(FisherSentence(fit), "The directions may be a Fisher distribution: colatitudes p = "
                                   "0.43, longitudes p = 0.020, two variables p = 0.21.");
    fit.longitudes.outcome.probability = 0.003;
    EXPECT_EQ(FisherSentence(fit), "Fisher's distribution is rejected: colatitudes p = 0.43, "
                                   "longitudes p = 0.003, two variables p = 0.21.");
}

TEST(EqualMeansSentence, SaysWhetherTheMeansDiffer) {
    EXPECT_EQ(EqualMeansSentence({12.31, 0.002}), "The means differ (G = 12.31, p = 0.002).");
    EXPECT_EQ(EqualMeansSentence({1.5, 0.4}), "The means may be equal (G = 1.50, p = 0.40).");
}

} // namespace
} // namespace quandrel
