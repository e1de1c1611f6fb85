// SPDX-License-Identifier: MIT

#include "quandrel/fabric.h"

#include "border/border.h"
#include "statistics/fabric_kernels.h"
#include "statistics/reference_statistics.h"

#include <algorithm>

namespace quandrel::api {

namespace {

/// Lines as directions, with their weights.
WeightedDirections DirectionsWith(std::span<const Line> lines, std::span<const double> weights,
                                  Direction (*toDirection)(const Line&)) {
    if (!weights.empty()) {
        SameLength(lines.size(), weights.size(), "lines and weights");
        NotNegative(weights, "weight");
    }
    WeightedDirections result;
    result.directions.resize(lines.size());
    std::ranges::transform(lines, result.directions.begin(), toDirection);
    result.weights.assign(weights.begin(), weights.end());
    result.weights.resize(lines.size(), 1);
    return result;
}

std::optional<double> DegreesOf(const std::optional<double>& radians) {
    return radians ? std::optional(RadToDeg(*radians)) : std::nullopt;
}

/// A mean line; nothing if the mean has no direction.
std::optional<Line> MeanOut(double plunge, double trend) {
    return plunge == kNoDirection ? std::nullopt : std::optional(LineOut(plunge, trend));
}

Line AxisOut(const Direction& axis) {
    RadianLine line;
    AxisToLine(axis, line.plunge, line.trend);
    return LineOut(line.plunge, line.trend);
}

Fabric FabricOut(const ReferenceStatistics& statistics) {
    Fabric fabric;
    fabric.count = statistics.count;
    fabric.eigenvalues = statistics.eigenvalues;
    std::ranges::transform(statistics.axes, fabric.axes.begin(), AxisOut);
    fabric.isDetermined = statistics.hasAxis;
    fabric.meanOfAxes = MeanOut(statistics.axialPlunge, statistics.axialTrend);
    fabric.resultantLengthOfAxes = statistics.axialResultantLength;
    fabric.logRatio12 = statistics.logRatio12;
    fabric.logRatio23 = statistics.logRatio23;
    fabric.gamma = statistics.gamma;
    fabric.zeta = statistics.zeta;
    fabric.fourthMoment = statistics.fourthMoment;
    fabric.symmetryStatistic = statistics.symmetryStatistic;
    fabric.standardError = statistics.standardError;
    fabric.coneAngle = DegreesOf(statistics.coneAngle);
    if (const auto& ellipse = statistics.ellipse) {
        fabric.ellipse = AxisEllipse{RadToDeg(ellipse->major), RadToDeg(ellipse->minor),
                                     AxisOut(ellipse->majorDirection)};
    }
    if (const auto& fisher = statistics.fisher) {
        fabric.fisher = FisherStatistics{MeanOut(fisher->plunge, fisher->trend), fisher->resultant,
                                         fisher->kappa, fisher->kappaMaximumLikelihood};
    }
    return fabric;
}

} // namespace

std::optional<Matrix3> OrientationTensorOf(std::span<const Line> lines,
                                           std::span<const double> weights) {
    const WeightedDirections axes = DirectionsWith(lines, weights, AxisOf);
    return OrientationTensor(axes.directions, axes.weights);
}

std::optional<Fabric> FabricOf(std::span<const Line> lines, std::span<const double> counts,
                               Sense sense) {
    WeightedDirections directions;
    if (sense == Sense::kDirections) {
        directions = DirectionsWith(lines, counts, DirectionOf);
    }
    const std::optional<ReferenceStatistics> statistics = ReferenceStatisticsOf(
        DirectionsWith(lines, counts, AxisOf), sense == Sense::kDirections ? &directions : nullptr);
    return statistics ? std::optional(FabricOut(*statistics)) : std::nullopt;
}

} // namespace quandrel::api
