// SPDX-License-Identifier: MIT

#include "orientation/probability.h"

#include <cmath>
#include <limits>

namespace quandrel {

namespace {

constexpr int kMostTerms = 100000;
constexpr double kPrecision = std::numeric_limits<double>::epsilon();

/// x^a e^-x / Gamma(a).
double FrontFactor(double a, double x) {
    return std::exp(a * std::log(x) - x - std::lgamma(a));
}

/// P(a, x) = x^a e^-x / Gamma(a + 1) (1 + x/(a + 1) + x^2/((a + 1)(a + 2)) + ...).
double LowerBySeries(double a, double x) {
    double term = 1 / a;
    double sum = term;
    for (int i = 1; i < kMostTerms && term > kPrecision * sum; ++i) {
        term *= x / (a + i);
        sum += term;
    }
    return sum * FrontFactor(a, x);
}

/// Q(a, x) by the even part of the continued fraction,
/// 1/(x + 1 - a - 1 (1 - a)/(x + 3 - a - 2 (2 - a)/(x + 5 - a - ...))).
///
/// The quotients of successive numerators and denominators are followed from the front, so that
/// neither overflows (W. J. Lentz, 1976). All are positive for x > a - 1.
double UpperByFraction(double a, double x) {
    double partial = x + 1 - a;
    double numerators = std::numeric_limits<double>::infinity();
    double denominators = 1 / partial;
    double value = denominators;
    for (int i = 1; i < kMostTerms; ++i) {
        const double factor = -i * (i - a);
        partial += 2;
        denominators = 1 / (partial + factor * denominators);
        numerators = partial + factor / numerators;
        const double change = numerators * denominators;
        value *= change;
        if (std::abs(change - 1) <= kPrecision) {
            break;
        }
    }
    return value * FrontFactor(a, x);
}

} // namespace

double ChiSquareTail(double value, double degrees) {
    if (std::isnan(value)) {
        return value;
    }
    if (value <= 0) {
        return 1;
    }
    if (std::isinf(value)) {
        return 0;
    }
    const double a = degrees / 2;
    const double x = value / 2;
    if (degrees == 2) { // the whole function is an exponential
        return std::exp(-x);
    }
    return x < a + 1 ? 1 - LowerBySeries(a, x) : UpperByFraction(a, x);
}

double ChiSquareLimitOfTwo(double level) {
    return -2 * std::log1p(-level);
}

} // namespace quandrel
