// SPDX-License-Identifier: MIT

#include "quandrel/fabric.h"

#include "border/border.h"
#include "border/row_lines.h"
#include "density/shared_work.h"
#include "orientation/eigen.h"
#include "statistics/fabric_kernels.h"
#include "statistics/reference_statistics.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

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

PrincipalAxes AxesOut(const Matrix3& tensor) {
    const FabricAxes sorted = SortedAxes(SymmetricEigen3(tensor));
    PrincipalAxes axes;
    axes.eigenvalues = sorted.values;
    std::ranges::transform(sorted.axes, axes.axes.begin(), AxisOut);
    return axes;
}

/// The sums of the products of directions, of which those of a block are added first, so that the
/// result does not depend on the threads.
template <class DirectionAt>
Matrix3 TensorOf(std::size_t count, unsigned threads, const DirectionAt& directionAt) {
    constexpr std::size_t kBlock = 16'384;
    using Sums = std::array<double, 6>;
    std::vector<Sums> blocks((count + kBlock - 1) / kBlock);
    ShareRuns(blocks.size(), 1, threads, [&](std::size_t block, std::size_t) {
        Sums sums{};
        for (std::size_t i = block * kBlock; i < std::min(count, (block + 1) * kBlock); ++i) {
            const auto [l, m, n] = directionAt(i);
            const Sums products = {l * l, m * m, n * n, l * m, l * n, m * n};
            for (std::size_t k = 0; k < sums.size(); ++k) {
                sums[k] += products[k];
            }
        }
        blocks[block] = sums;
    });
    Sums mean{};
    for (const Sums& sums : blocks) {
        for (std::size_t k = 0; k < mean.size(); ++k) {
            mean[k] += sums[k] / static_cast<double>(count);
        }
    }
    const auto& [ll, mm, nn, lm, ln, mn] = mean;
    return {{{ll, lm, ln}, {lm, mm, mn}, {ln, mn, nn}}};
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
    const bool areDirections = sense == Sense::kDirections;
    std::optional<ReferenceStatistics> statistics;
    if (counts.empty()) {
        statistics = ReferenceStatisticsOfLines(
            RowLinesIn(lines), areDirections ? RowSense::kPolarLines : RowSense::kAxes);
    } else {
        WeightedDirections directions;
        if (areDirections) {
            directions = DirectionsWith(lines, counts, DirectionOf);
        }
        statistics = ReferenceStatisticsOf(DirectionsWith(lines, counts, AxisOf),
                                           areDirections ? &directions : nullptr);
    }
    return statistics ? std::optional(FabricOut(*statistics)) : std::nullopt;
}

std::optional<PrincipalAxes> PrincipalAxesOf(std::span<const Line> lines, unsigned threads) {
    const RowLines rows = RowLinesIn(lines);
    if (rows.empty()) {
        return std::nullopt;
    }
    if (!rows.AreMeasured()) {
        const WeightedDirections axes = DirectionsOf(rows, LinePolarity::kAxial);
        return AxesOut(OrientationTensor(axes.directions, axes.weights).value());
    }
    return AxesOut(TensorOf(rows.measured.size(), threads, [&rows](std::size_t row) {
        return quandrel::AxisOf(rows.measured[row]);
    }));
}

std::optional<PrincipalAxes> PrincipalAxesOf(std::span<const Vector> vectors, unsigned threads) {
    if (vectors.empty()) {
        return std::nullopt;
    }
    const Matrix3 tensor = TensorOf(vectors.size(), threads, [&vectors](std::size_t row) {
        const auto& [north, east, down] = vectors[row];
        const double scale = 1 / std::sqrt(north * north + east * east + down * down);
        return Direction{north * scale, east * scale, down * scale};
    });
    if (!std::isfinite(tensor[0][0] + tensor[1][1] + tensor[2][2])) {
        throw std::invalid_argument("a vector has no length, or is not finite");
    }
    return AxesOut(tensor);
}

} // namespace quandrel::api
