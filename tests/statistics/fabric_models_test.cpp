// SPDX-License-Identifier: MIT
//
// Uniformity, and the choice between cluster and girdle.

#include "statistics/bingham_distribution.h"
#include "statistics/fabric_kernels.h"
#include "statistics/fabric_models.h"
#include "statistics/uniformity_tests.h"
#include "support/random_samples.h"
#include "support/rejections.h"
#include "support/trial.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

namespace quandrel {
namespace {

std::array<double, 3> EigenvaluesOf(const std::vector<Direction>& axes) {
    const std::vector<double> weights(axes.size(), 1);
    return SortedAxes(SymmetricEigen3(*OrientationTensor(axes, weights))).values;
}

double MeanLengthOf(const std::vector<Direction>& directions) {
    const std::vector<double> weights(directions.size(), 1);
    return LengthOf(ResultantOf(directions, weights)) / static_cast<double>(directions.size());
}

TEST(BinghamUniformity, IsThatOfTheFormulaByHand) {
    // t = 0.2, 0.3, 0.5 of 50 axes: S = 375 (0.017777 + 0.001111 + 0.027777) = 17.5, and the
    // correction 17.5 (1 - (0.738095 - 2.440476 + 1.157407)/50) = 17.690741. The tail of
    // chi-square with 5 degrees of freedom is erfc(sqrt(x/2)) + sqrt(2 x/pi) e^(-x/2) (1 + x/3).
    const TestOutcome test = BinghamUniformity({0.2, 0.3, 0.5}, 50);
    EXPECT_NEAR(test.statistic, 17.690741, 1e-6);
    const double x = 17.690741;
    const double tail = std::erfc(std::sqrt(x / 2))
                        + std::sqrt(2 * x / std::acos(-1.0)) * std::exp(-x / 2) * (1 + x / 3);
    EXPECT_NEAR(test.probability, tail, 1e-9);
    EXPECT_NEAR(BinghamUniformity({1.0 / 3, 1.0 / 3, 1.0 / 3}, 20).statistic, 0, 1e-12);
}

TEST(BinghamUniformity, StaysSmallForAxesThatAreMoreAndMoreAlike) {
    // The correction alone would fall below 0.
    double last = 1;
    for (double t3 = 0.34; t3 <= 1; t3 += 0.01) {
        const double p = BinghamUniformity({(1 - t3) / 2, (1 - t3) / 2, t3}, 100).probability;
        EXPECT_LE(p, last) << t3;
        last = p;
    }
    EXPECT_LT(last, 1e-12);
}

TEST(RayleighUniformity, IsThatOfTheFormulaByHand) {
    // S = 3 * 20 * 0.09 = 5.4; 5.4 * 0.975 + 5.4^2 / 200 = 5.4108.
    EXPECT_NEAR(RayleighUniformity(0.3, 20).statistic, 5.4108, 1e-12);
    EXPECT_EQ(RayleighUniformity(0, 20).probability, 1);
}

TEST(UniformityTrial, RejectsUniformSamplesAtItsLevels) {
    RandomStream random(1974);
    for (const int n : {10, 40}) {
        SCOPED_TRACE(n);
        Rejections ofAxes;
        Rejections ofDirections;
        for (int i = 0; i < TrialRounds(20000); ++i) {
            const auto sample = SampleOf(n, [&random] { return UniformDirection(random); });
            ofAxes.Add(BinghamUniformity(EigenvaluesOf(sample), n).probability);
            ofDirections.Add(RayleighUniformity(MeanLengthOf(sample), n).probability);
        }
        ofAxes.ExpectLevels();
        ofDirections.ExpectLevels();
    }
}

TEST(FabricModels, LikelihoodsAreSumsOverTheRows) {
    RandomStream random(3);
    const auto sample = SampleOf(60, [&random] { return BinghamDirection(random, -12, -3); });
    const std::vector<double> weights(sample.size(), 1);
    const FabricAxes axes = SortedAxes(SymmetricEigen3(*OrientationTensor(sample, weights)));
    const FabricModels models = FabricModelsOf(axes.values, 60).value();
    const auto componentAlong = [](const Direction& a, const Direction& b) {
        return a.l * b.l + a.m * b.m + a.n * b.n;
    };
    double cluster = 0;
    double bingham = 0;
    const double constant = BinghamMomentsOf(models.bingham).constant;
    for (const Direction& one : sample) {
        const double c1 = componentAlong(one, axes.axes[0]);
        const double c2 = componentAlong(one, axes.axes[1]);
        const double c3 = componentAlong(one, axes.axes[2]);
        cluster +=
            models.clusterConcentration * c3 * c3 - WatsonLogConstant(models.clusterConcentration);
        bingham += models.bingham[0] * c1 * c1 + models.bingham[1] * c2 * c2 - std::log(constant);
    }
    EXPECT_NEAR(models.clusterLikelihood, cluster, 1e-9);
    EXPECT_NEAR(models.binghamLikelihood, bingham, 1e-9);
    const double corrected = (1 - 2.0 / 60) * (bingham - cluster);
    EXPECT_NEAR(models.cluster.statistic, 2 * corrected, 1e-9);
    EXPECT_NEAR(models.cluster.probability, std::exp(-corrected), 1e-9);
    EXPECT_NEAR(models.girdle.statistic, (1 - 1.0 / 120) * 2 * (bingham - models.girdleLikelihood),
                1e-9);
}

TEST(FabricModels, OfConcentratedClustersTestTheVariancesInThePlane) {
    // The exact probability of equal variances in a plane, with m degrees of freedom, is
    // (4 v1 v2/(v1 + v2)^2)^((m - 1)/2); here m = n - 1.
    const double v1 = 2e-5;
    const double v2 = 3e-5;
    for (const double n : {12.0, 40.0}) {
        const FabricModels models = FabricModelsOf({v1, v2, 1 - v1 - v2}, n).value();
        const double exact = std::pow(4 * v1 * v2 / ((v1 + v2) * (v1 + v2)), (n - 2) / 2);
        EXPECT_NEAR(models.cluster.probability, exact, 1e-4) << n;
    }
}

TEST(FabricModels, OfNarrowGirdlesTestTheAzimuthsInThePlane) {
    // Twice the azimuths have the mean resultant length (t3 - t2)/(t3 + t2) = 0.1; the likelihood
    // of von Mises' distribution is n (R^2 + R^4/4) above that of uniform ones.
    const double t1 = 1e-5;
    const FabricModels models = FabricModelsOf({t1, 0.45 * (1 - t1), 0.55 * (1 - t1)}, 200).value();
    const double expected = 2 * 200 * (0.01 + 0.0001 / 4) * (1 - 1.0 / 400);
    EXPECT_NEAR(models.girdle.statistic, expected, 1e-3);
}

TEST(FabricModels, FitAtLeastAsWellAsNearbyConcentrations) {
    const std::array<double, 3> t = {0.08, 0.22, 0.7};
    const FabricModels models = FabricModelsOf(t, 1).value();
    const auto likelihoodAt = [&t](double k1, double k2) {
        return k1 * t[0] + k2 * t[1] - std::log(BinghamMomentsOf({k1, k2}).constant);
    };
    const auto [k1, k2] = models.bingham;
    for (const double step : {-0.05, 0.05}) {
        EXPECT_LT(likelihoodAt(k1 + step, k2), models.binghamLikelihood);
        EXPECT_LT(likelihoodAt(k1, k2 + step), models.binghamLikelihood);
    }
    EXPECT_LT(models.clusterLikelihood, models.binghamLikelihood);
    EXPECT_LT(models.girdleLikelihood, models.clusterLikelihood);
    EXPECT_NEAR(models.woodcock, std::log(0.7 / 0.22) / std::log(0.22 / 0.08), 1e-12);
}

TEST(FabricModels, OfEqualEigenvaluesFitWatsonsExactly) {
    const FabricModels cluster = FabricModelsOf({0.1, 0.1, 0.8}, 200).value();
    EXPECT_NEAR(cluster.cluster.statistic, 0, 1e-7);
    EXPECT_NEAR(cluster.cluster.probability, 1, 1e-7);
    const FabricModels girdle = FabricModelsOf({0.1, 0.45, 0.45}, 200).value();
    EXPECT_NEAR(girdle.girdle.probability, 1, 1e-7);
    EXPECT_LT(girdle.cluster.probability, 1e-10);
    const FabricModels uniform = FabricModelsOf({1.0 / 3, 1.0 / 3, 1.0 / 3}, 200).value();
    EXPECT_NEAR(uniform.binghamLikelihood, 0, 1e-9);
    EXPECT_FALSE(FabricModelsOf({0, 0.3, 0.7}, 200));
}

TEST(FabricModels, DecideClearCases) {
    struct Row {
        std::array<double, 3> t;
        double n;
        FabricKind kind;
    };

    const std::vector<Row> rows = {{{0.09, 0.11, 0.8}, 100, FabricKind::Cluster},
                                   {{0.05, 0.46, 0.49}, 100, FabricKind::Girdle},
                                   {{0.05, 0.25, 0.7}, 200, FabricKind::Neither},
                                   {{0.30, 0.33, 0.37}, 50, FabricKind::Uniform},
                                   {{0.12, 0.30, 0.58}, 20, FabricKind::Undecided}};
    for (const Row& row : rows) {
        EXPECT_EQ(KindOfFabric(FabricModelsOf(row.t, row.n).value()), row.kind) << row.t[2];
    }
}

TEST(FabricModelsTrial, RejectTheTrueModelAtItsLevels) {
    RandomStream random(1965);
    Rejections ofClusters;
    Rejections ofGirdles;
    constexpr int n = 150;
    for (int i = 0; i < TrialRounds(8000); ++i) {
        const auto cluster = SampleOf(n, [&random] { return BinghamDirection(random, -6, -6); });
        ofClusters.Add(FabricModelsOf(EigenvaluesOf(cluster), n).value().cluster.probability);
        const auto girdle = SampleOf(n, [&random] { return BinghamDirection(random, -6, 0); });
        ofGirdles.Add(FabricModelsOf(EigenvaluesOf(girdle), n).value().girdle.probability);
    }
    ofClusters.ExpectLevels();
    ofGirdles.ExpectLevels();
}

} // namespace
} // namespace quandrel
