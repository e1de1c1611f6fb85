// SPDX-License-Identifier: MIT

#include "statistics/axis_regions.h"

#include "orientation/probability.h"
#include "statistics/bingham_distribution.h"

#include <cmath>

namespace quandrel {

namespace {

bool IsSetApart(const AxisFrame& frame) {
    return std::abs(frame.values[2] - frame.values[0]) >= kLeastEigenvalue
           && std::abs(frame.values[2] - frame.values[1]) >= kLeastEigenvalue;
}

/// A region without its bounds; the frame is empty, and the region undefined, where there are none.
struct Begun {
    ConfidenceRegion region;
    std::optional<AxisFrame> frame;
};

Begun Begin(const RegionSample& sample, RegionTarget target, double level, RegionMethod method) {
    Begun begun{UnboundedRegion(target, method, level, sample.count), {}};
    if (sample.count < kFewestRowsOfRegion) {
        return begun;
    }
    begun.frame = AxisFrameOf(sample, CentreOf(target));
    if (begun.frame && !IsSetApart(*begun.frame)) {
        begun.region.reason = RegionReason::AxesAlike;
        begun.frame.reset();
    }
    return begun;
}

std::array<Direction, 2> PlaneOf(const AxisFrame& frame) {
    return {frame.axes[0], frame.axes[1]};
}

/// The matrix E of a frame as its entries 11, 12 and 22.
std::array<double, 3> AxisCovariance(const RegionSample& sample, const AxisFrame& frame) {
    std::array<double, 3> sums{};
    for (std::size_t i = 0; i < sample.rows.directions.size(); ++i) {
        const auto [p1, p2, along] = InFrame(frame.axes, sample.rows.directions[i]);
        const double factor = sample.rows.weights[i] * along * along;
        sums[0] += factor * p1 * p1;
        sums[1] += factor * p1 * p2;
        sums[2] += factor * p2 * p2;
    }
    const double gap1 = frame.values[2] - frame.values[0];
    const double gap2 = frame.values[2] - frame.values[1];
    return {sums[0] / (sample.total * gap1 * gap1), sums[1] / (sample.total * gap1 * gap2),
            sums[2] / (sample.total * gap2 * gap2)};
}

} // namespace

FrameCentre CentreOf(RegionTarget target) {
    return target == RegionTarget::GirdlePole ? FrameCentre::Least : FrameCentre::Greatest;
}

ConfidenceRegion WatsonCone(const RegionSample& sample, RegionTarget target, double level) {
    auto [region, frame] = Begin(sample, target, level, RegionMethod::WatsonCone);
    if (!frame) {
        return region;
    }
    // tc - m4 is the mean of c^2 (1 - c^2), which keeps its digits for concentrated axes.
    double sum = 0;
    for (std::size_t i = 0; i < sample.rows.directions.size(); ++i) {
        const auto [p1, p2, along] = InFrame(frame->axes, sample.rows.directions[i]);
        sum += sample.rows.weights[i] * along * along * (p1 * p1 + p2 * p2);
    }
    const double gap = std::abs(frame->values[2] - frame->values[1]);
    const double error = std::sqrt(sum / (sample.total * sample.count)) / gap;
    const double sine = std::sqrt(ChiSquareLimitOfTwo(level) / 2) * error;
    SetSemiAxes(region, frame->axes[2], PlaneOf(*frame), {sine, sine});
    return region;
}

ConfidenceRegion AxisEllipseOf(const RegionSample& sample, RegionTarget target, double level,
                               double limit) {
    auto [region, frame] = Begin(sample, target, level, RegionMethod::Ellipse);
    if (frame) {
        SetEllipse(region, frame->axes[2], PlaneOf(*frame), AxisCovariance(sample, *frame),
                   limit / sample.count);
    }
    return region;
}

ConfidenceRegion AxisEllipse(const RegionSample& sample, RegionTarget target, double level) {
    return AxisEllipseOf(sample, target, level, ChiSquareLimitOfTwo(level));
}

ConfidenceRegion BinghamEllipse(const RegionSample& sample, RegionTarget target, double level) {
    auto [region, frame] = Begin(sample, target, level, RegionMethod::Bingham);
    if (!frame) {
        return region;
    }
    const bool isPole = target == RegionTarget::GirdlePole;
    const std::array<double, 3> values =
        isPole ? std::array{frame->values[2], frame->values[1], frame->values[0]} : frame->values;
    region.binghamConcentrations = BinghamConcentrations(values[0], values[1]);
    if (!region.binghamConcentrations) {
        region.reason = RegionReason::NoMaximum;
        return region;
    }
    const auto [k1, k2] = *region.binghamConcentrations;
    const std::array<double, 3> concentrations =
        isPole ? std::array{0.0, k2, k1} : std::array{k1, k2, 0.0};
    std::array<double, 2> sines{};
    for (std::size_t j = 0; j < 2; ++j) {
        const double information = 2 * sample.count * (frame->values[2] - frame->values[j])
                                   * (concentrations[2] - concentrations[j]);
        sines[j] = std::sqrt(ChiSquareLimitOfTwo(level) / information);
    }
    SetSemiAxes(region, frame->axes[2], PlaneOf(*frame), sines);
    return region;
}

} // namespace quandrel
