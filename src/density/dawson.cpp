// SPDX-License-Identifier: MIT

#include "density/dawson.h"

#include <cmath>

namespace quandrel {

namespace {

constexpr double kSquareRootOfPi = 1.7724538509055160;

/// The sum of (-2)^k x^(2 k + 1) / (2 k + 1)!!.
double BySeries(double x) {
    double term = x;
    double sum = x;
    for (int odd = 3; std::abs(term) > 1e-18 * std::abs(sum); odd += 2) {
        term *= -2 * x * x / odd;
        sum += term;
    }
    return sum;
}

/// The sum of exp(-(x - n h)^2) / (n sqrt(pi)) over odd n. Its error is exp(-(pi / 2 h)^2).
double BySampling(double x) {
    constexpr double kStep = 0.25;
    constexpr double kReach = 6.5; // exp(-kReach^2) is below 1e-18
    const auto firstOdd = static_cast<long>(std::floor((x - kReach) / kStep / 2)) * 2 + 1;
    double sum = 0;
    for (long n = firstOdd; static_cast<double>(n) * kStep <= x + kReach; n += 2) {
        const double offset = x - static_cast<double>(n) * kStep;
        sum += std::exp(-offset * offset) / static_cast<double>(n);
    }
    return sum / kSquareRootOfPi;
}

} // namespace

double Dawson(double x) {
    constexpr double kSmall = 0.5;
    return std::abs(x) < kSmall ? BySeries(x) : BySampling(x);
}

} // namespace quandrel
