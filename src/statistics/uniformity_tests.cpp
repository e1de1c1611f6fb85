// SPDX-License-Identifier: MIT

#include "statistics/uniformity_tests.h"

#include "orientation/probability.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

// The coefficients of Jupp's correction for axes in three dimensions.
constexpr double kConstantPart = 31.0 / 42;
constexpr double kLinearPart = -41.0 / 294;
constexpr double kSquarePart = 20.0 / 5292;

/// Jupp's correction is a cubic of S: S (n - B0)/n - B1 S^2/n - B2 S^3/n. It is followed to its
/// greatest value.
double CorrectedBingham(double s, double n) {
    const double turn =
        (-kLinearPart
         + std::sqrt(kLinearPart * kLinearPart + 3 * kSquarePart * (n - kConstantPart)))
        / (3 * kSquarePart);
    const double within = std::min(s, turn);
    return within * (1 - (kConstantPart + within * (kLinearPart + within * kSquarePart)) / n);
}

} // namespace

TestOutcome BinghamUniformity(const std::array<double, 3>& t, double n) {
    double squares = 0;
    for (const double one : t) {
        squares += (one - 1.0 / 3) * (one - 1.0 / 3);
    }
    const double statistic = CorrectedBingham(7.5 * n * squares, n);
    return {statistic, ChiSquareTail(statistic, 5)};
}

TestOutcome RayleighUniformity(double meanLength, double n) {
    const double s = 3 * n * meanLength * meanLength;
    const double statistic = (1 - 1 / (2 * n)) * s + s * s / (10 * n);
    return {statistic, ChiSquareTail(statistic, 3)};
}

} // namespace quandrel
