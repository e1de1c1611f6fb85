// SPDX-License-Identifier: MIT

#include "statistics/direction_regions.h"

#include "orientation/probability.h"

#include <cmath>
#include <limits>

namespace quandrel {

namespace {

/// A region without its bounds; the frame is empty, and the region undefined, where there are none.
struct Begun {
    ConfidenceRegion region;
    std::optional<MeanFrame> frame;
};

Begun Begin(const RegionSample& sample, double level, RegionMethod method) {
    Begun begun{UnboundedRegion(RegionTarget::MeanDirection, method, level, sample.count), {}};
    if (sample.count < kFewestRowsOfRegion) {
        return begun;
    }
    begun.frame = MeanFrameOf(sample);
    begun.region.reason = RegionReason::AxesAlike;
    return begun;
}

std::array<Direction, 2> PlaneOf(const MeanFrame& frame) {
    return {frame.axes[0], frame.axes[1]};
}

/// 1 - R/n: the mean of 1 - cos, each from the chord to the mean, which keeps its digits for
/// concentrated directions.
double MeanShortfall(const RegionSample& sample, const MeanFrame& frame) {
    double sum = 0;
    for (std::size_t i = 0; i < sample.rows.directions.size(); ++i) {
        const Direction chord = Combined(sample.rows.directions[i], 1, frame.axes[2], -1);
        sum += sample.rows.weights[i] * DotProduct(chord, chord) / 2;
    }
    return sum / sample.total;
}

/// The sine of a cone of which 1 - cos is given; infinite for a right angle and more.
double SineOfCone(double shortfall) {
    return shortfall < 1 ? std::sqrt(shortfall * (2 - shortfall))
                         : std::numeric_limits<double>::infinity();
}

/// The matrix V of a frame as its entries 11, 12 and 22.
std::array<double, 3> MeanCovariance(const RegionSample& sample, const MeanFrame& frame) {
    std::array<double, 3> sums{};
    for (std::size_t i = 0; i < sample.rows.directions.size(); ++i) {
        const auto [y1, y2, along] = InFrame(frame.axes, sample.rows.directions[i]);
        const double weight = sample.rows.weights[i];
        sums[0] += weight * y1 * y1;
        sums[1] += weight * y1 * y2;
        sums[2] += weight * y2 * y2;
    }
    const double divisor = sample.total * frame.meanLength * frame.meanLength;
    return {sums[0] / divisor, sums[1] / divisor, sums[2] / divisor};
}

} // namespace

ConfidenceRegion FisherCone(const RegionSample& sample, double level) {
    auto [region, frame] = Begin(sample, level, RegionMethod::FisherCone);
    if (!frame) {
        return region;
    }
    const double n = sample.count;
    const double shortfall = MeanShortfall(sample, *frame);
    if (shortfall > 0) {
        region.concentration = (n - 1) / (n * shortfall);
    }
    // (1/p)^(1/(n - 1)) - 1.
    const double growth = std::expm1(-std::log1p(-level) / (n - 1));
    const double sine = SineOfCone(shortfall / (1 - shortfall) * growth);
    SetSemiAxes(region, frame->axes[2], PlaneOf(*frame), {sine, sine});
    return region;
}

ConfidenceRegion DirectionEllipseOf(const RegionSample& sample, double level, double limit) {
    auto [region, frame] = Begin(sample, level, RegionMethod::Ellipse);
    if (frame) {
        SetEllipse(region, frame->axes[2], PlaneOf(*frame), MeanCovariance(sample, *frame),
                   limit / sample.count);
    }
    return region;
}

ConfidenceRegion DirectionEllipse(const RegionSample& sample, double level) {
    return DirectionEllipseOf(sample, level, ChiSquareLimitOfTwo(level));
}

} // namespace quandrel
