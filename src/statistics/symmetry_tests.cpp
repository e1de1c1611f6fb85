// SPDX-License-Identifier: MIT

#include "statistics/symmetry_tests.h"

#include "orientation/probability.h"

namespace quandrel {

namespace {

/// Below this the fourth power of a distance from the centre is rounding error.
constexpr double kLeastFourth = 1e-40;

/// The probability of P about the last axis of a frame.
double SymmetryAbout(const RegionSample& sample, const Frame& frame) {
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
        return 1;
    }
    const double squaredMean =
        (real * real + imaginary * imaginary) / (sample.total * sample.total);
    return ChiSquareTail(2 * sample.count * squaredMean / meanFourth, 2);
}

} // namespace

double SymmetryOfAxes(const RegionSample& sample, const AxisFrame& frame) {
    return SymmetryAbout(sample, frame.axes);
}

double SymmetryOfDirections(const RegionSample& sample, const MeanFrame& frame) {
    return SymmetryAbout(sample, frame.axes);
}

} // namespace quandrel
