// SPDX-License-Identifier: MIT

#include "statistics/bessel.h"

#include <cmath>
#include <numbers>

namespace quandrel {

namespace {

constexpr double kLargeArgument = 30;
constexpr double kPrecision = 1e-17;

/// I0 = sum of q^k / k!^2 and I1 = z/2 sum of q^k / (k! (k + 1)!), q = z^2/4.
ScaledBessel BySeries(double z) {
    const double q = z * z / 4;
    double term = 1;
    double sum0 = 1;
    double sum1 = 1;
    for (int k = 1; term > kPrecision * sum0; ++k) {
        term *= q / (static_cast<double>(k) * k);
        sum0 += term;
        sum1 += term / (k + 1);
    }
    const double scale = std::exp(-z);
    ScaledBessel bessel;
    bessel.i0 = scale * sum0;
    bessel.i1OverArgument = scale * sum1 / 2;
    bessel.i1 = z * bessel.i1OverArgument;
    bessel.difference = bessel.i0 - bessel.i1;
    return bessel;
}

/// The factor of 1/(8z)^k in the expansions: that of order n is the former one times
/// -(4n^2 - (2k - 1)^2)/k. The differences are summed apart, since the first terms cancel.
ScaledBessel ByExpansion(double z) {
    double term0 = 1;
    double term1 = 1;
    double sum0 = 1;
    double sum1 = 1;
    double difference = 0;
    for (int k = 1; std::abs(term0) > kPrecision && k < 60; ++k) {
        const double odd = 2.0 * k - 1;
        term0 *= odd * odd / (8 * z * k);
        term1 *= (odd * odd - 4) / (8 * z * k);
        sum0 += term0;
        sum1 += term1;
        difference += term0 - term1;
    }
    const double scale = 1 / std::sqrt(2 * std::numbers::pi * z);
    return {scale * sum0, scale * sum1, scale * difference, scale * sum1 / z};
}

} // namespace

ScaledBessel ScaledBesselOf(double z) {
    return z <= kLargeArgument ? BySeries(z) : ByExpansion(z);
}

} // namespace quandrel
