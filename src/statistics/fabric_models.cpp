// SPDX-License-Identifier: MIT

#include "statistics/fabric_models.h"

#include "orientation/probability.h"
#include "statistics/bingham_distribution.h"
#include "statistics/fabric_kernels.h"
#include "statistics/uniformity_tests.h"
#include "statistics/watson_distribution.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

/// @param likelihood  logarithm of the likelihood under the hypothesis
/// @param greatest    that of the distribution that includes it
/// @param factor      corrects the statistic of small samples
TestOutcome LikelihoodRatio(double likelihood, double greatest, double factor) {
    // Of equal likelihoods one may be the greater by rounding.
    const double statistic = std::max(2 * (greatest - likelihood), 0.0) * factor;
    return {statistic, ChiSquareTail(statistic, 2)};
}

} // namespace

std::optional<FabricModels> FabricModelsOf(const std::array<double, 3>& t, double n) {
    const auto cluster = WatsonConcentration(t[2]);
    const auto girdle = WatsonConcentration(t[0]);
    const auto bingham = BinghamConcentrations(t[0], t[1]);
    if (!cluster || !girdle || !bingham) {
        return std::nullopt;
    }
    FabricModels models;
    // Equal eigenvalues differ by rounding, to either side.
    models.clusterConcentration = std::max(*cluster, 0.0);
    models.girdleConcentration = std::min(*girdle, 0.0);
    models.bingham = *bingham;
    const auto& [k1, k2] = *bingham;
    const double constant = BinghamMomentsOf(*bingham).constant;
    models.clusterLikelihood = n * (*cluster * t[2] - WatsonLogConstant(*cluster));
    models.girdleLikelihood = n * (*girdle * t[0] - WatsonLogConstant(*girdle));
    models.binghamLikelihood = n * (k1 * t[0] + k2 * t[1] - std::log(constant));
    models.cluster = LikelihoodRatio(models.clusterLikelihood, models.binghamLikelihood,
                                     std::max(1 - 2 / n, 0.0));
    models.girdle =
        LikelihoodRatio(models.girdleLikelihood, models.binghamLikelihood, 1 - 1 / (2 * n));
    models.uniform = BinghamUniformity(t, n);
    models.woodcock = ShapeOf(t).gamma;
    return models;
}

FabricKind KindOfFabric(const FabricModels& models, double level) {
    if (!IsRejected(models.uniform, level)) {
        return FabricKind::Uniform;
    }
    const bool mayBeCluster = !IsRejected(models.cluster, level);
    const bool mayBeGirdle = !IsRejected(models.girdle, level);
    if (mayBeCluster && mayBeGirdle) {
        return FabricKind::Undecided;
    }
    if (mayBeCluster) {
        return FabricKind::Cluster;
    }
    return mayBeGirdle ? FabricKind::Girdle : FabricKind::Neither;
}

} // namespace quandrel
