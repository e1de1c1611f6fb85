// SPDX-License-Identifier: MIT

#include "statistics/symmetry_tests.h"

#include "orientation/probability.h"

namespace quandrel {

namespace {

/// Below this the fourth power of a distance from the centre is rounding error.
constexpr double kLeastFourth = 1e-40;

/// P about the last axis of a frame.
TestOutcome SymmetryAbout(const RegionSample& sample, const Frame& frame) {
    double real = 0;
    double imaginary = 0;
    double fourth = 0;
    for (std::size_t i = 0; i < sample.rows.directions.size(); ++i) {
        const auto [y1, y2, along] = InFrame(frame, sample.rows.directions[i]);
        const double weight = sample.rows.weights[i];
        const double square = y1 * y1 + y2 * y2;
        real += weight * (y1 * y1 - y2 * y2);
        imaginary += weight * 2 * y1 * y2;
        fourth += weight * square * square;
    }
    const double meanFourth = fourth / sample.total;
    if (!(meanFourth > kLeastFourth)) {
        return {0, 1};
    }
    const double squaredMean =
        (real * real + imaginary * imaginary) / (sample.total * sample.total);
    const double statistic = 2 * sample.count * squaredMean / meanFourth;
    return {statistic, ChiSquareTail(statistic, 2)};
}

} // namespace

TestOutcome SymmetryTestOfAxes(const RegionSample& sample, const AxisFrame& frame) {
    return SymmetryAbout(sample, frame.axes);
}

TestOutcome SymmetryTestOfDirections(const RegionSample& sample, const MeanFrame& frame) {
    return SymmetryAbout(sample, frame.axes);
}

double SymmetryOfAxes(const RegionSample& sample, const AxisFrame& frame) {
    return SymmetryTestOfAxes(sample, frame).probability;
}

double SymmetryOfDirections(const RegionSample& sample, const MeanFrame& frame) {
    return SymmetryTestOfDirections(sample, frame).probability;
}

} // namespace quandrel
