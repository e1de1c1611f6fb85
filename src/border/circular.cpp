// SPDX-License-Identifier: MIT

#include "quandrel/circular.h"

#include "border/border.h"
#include "rose/circular_reference.h"
#include "rose/mean_bootstrap.h"

#include <algorithm>
#include <vector>

namespace quandrel::api {

namespace {

AngleSense In(Sense sense) {
    return sense == Sense::kAxes ? AngleSense::kAxial : AngleSense::kDirected;
}

/// Azimuths in radians with their weights.
std::vector<WeightedAngle> AnglesIn(std::span<const double> azimuths,
                                    std::span<const double> weights) {
    if (!weights.empty()) {
        SameLength(azimuths.size(), weights.size(), "azimuths and weights");
        NotNegative(weights, "weight");
    }
    std::vector<WeightedAngle> angles;
    angles.reserve(azimuths.size());
    for (std::size_t i = 0; i < azimuths.size(); ++i) {
        angles.push_back({AzimuthIn(azimuths[i], "azimuth"), weights.empty() ? 1 : weights[i]});
    }
    return angles;
}

/// The sample without its angles.
CircularSample SampleOf(std::span<const WeightedAngle> angles, AngleSense sense) {
    CircularSample sample;
    sample.weight = 0;
    sample.count = static_cast<double>(angles.size());
    sample.sense = sense;
    for (const auto& [angle, weight] : angles) {
        const TrigSums terms = TrigTermsOf(angle, sense);
        for (std::size_t i = 0; i < terms.size(); ++i) {
            sample.sums[i] += weight * terms[i];
        }
        sample.weight += weight;
    }
    return sample;
}

std::optional<double> DegreesOf(const std::optional<double>& radians) {
    return radians ? std::optional(RadToDeg(*radians)) : std::nullopt;
}

UniformityTest TestOut(const quandrel::UniformityTest& test) {
    return {test.statistic, test.probability};
}

/// @param reference  for a sample with angles
CircularStatistics StatisticsOut(const CircularReference& reference) {
    CircularStatistics result;
    result.count = reference.count;
    result.meanDirection = DegreesOf(reference.meanDirection);
    result.resultantLength = reference.resultant;
    result.variance = reference.variance;
    result.standardDeviation = DegreesOf(reference.standardDeviation);
    result.dispersion = reference.dispersion;
    result.standardError = reference.standardError;
    result.confidenceHalfWidth = DegreesOf(reference.confidenceHalfWidth);
    result.skewness = reference.skewness;
    result.kurtosis = reference.kurtosis;
    result.kappa = reference.kappa;
    result.correctedKappa = reference.correctedKappa;
    result.median = {RadToDeg(reference.median->median), RadToDeg(reference.median->deviation)};
    result.rayleigh = TestOut(*reference.rayleigh);
    result.kuiper = TestOut(reference.kuiper->test);
    result.kuiperRange = reference.kuiper->range;
    return result;
}

} // namespace

std::optional<CircularStatistics> CircularStatisticsOf(std::span<const double> azimuths,
                                                       Sense sense,
                                                       std::span<const double> weights) {
    const std::vector<WeightedAngle> weighted = AnglesIn(azimuths, weights);
    CircularSample sample = SampleOf(weighted, In(sense));
    std::vector<double> angles(weighted.size());
    std::ranges::transform(weighted, angles.begin(), &WeightedAngle::angle);
    sample.angles = angles;
    const std::optional<CircularReference> reference = ComputeCircularReference(sample);
    return reference ? std::optional(StatisticsOut(*reference)) : std::nullopt;
}

std::optional<double> BootstrapHalfWidthOf(std::span<const double> azimuths, Sense sense,
                                           std::span<const double> weights) {
    std::vector<WeightedAngle> angles = AnglesIn(azimuths, weights);
    const double factor = sense == Sense::kAxes ? 2 : 1;
    for (WeightedAngle& angle : angles) {
        angle.angle *= factor;
    }
    const std::optional<double> halfWidth = BootstrapHalfWidth(angles);
    return halfWidth ? std::optional(RadToDeg(*halfWidth / factor)) : std::nullopt;
}

} // namespace quandrel::api
