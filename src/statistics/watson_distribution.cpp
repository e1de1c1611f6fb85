// SPDX-License-Identifier: MIT

#include "statistics/watson_distribution.h"

#include <cmath>
#include <limits>
#include <numbers>

namespace quandrel {

namespace {

constexpr double kPrecision = std::numeric_limits<double>::epsilon();

/// From here on the asymptotic series have more digits than a double, because their least term is
/// of the size exp(-a); below it the power series is short.
constexpr double kLargeArgument = 60;

/// exp(-a) 1F1(p; q; a), by Kummer's transformation 1F1(q - p; q; -a). All terms are positive.
double ScaledHypergeometric(double p, double q, double a) {
    double term = 1;
    double sum = 1;
    for (int m = 0; term > kPrecision * sum / 4; ++m) {
        term *= a * (p + m) / ((q + m) * (m + 1));
        sum += term;
    }
    return sum * std::exp(-a);
}

/// The integral of w^power exp(-a w) / (2 sqrt(1 - w)) for w from 0 to 1, a >= 0. With w = 1 - u^2
/// this is that of (1 - u^2)^power exp(-a (1 - u^2)) for u from 0 to 1.
double EdgeIntegral(int power, double a) {
    if (a < kLargeArgument) {
        // B(power + 1, 1/2)/2 is the product of 2 i/(2 i + 1).
        double front = 1;
        for (int i = 1; i <= power; ++i) {
            front *= 2.0 * i / (2.0 * i + 1);
        }
        return front * ScaledHypergeometric(0.5, power + 1.5, a);
    }
    // The series of 1/sqrt(1 - w), term by term.
    double term = 0.5 / a;
    for (int i = 1; i <= power; ++i) {
        term *= i / a;
    }
    double sum = term;
    for (int m = 0; m < kLargeArgument && term > kPrecision * sum / 4; ++m) {
        term *= (0.5 + m) * (power + m + 1) / ((m + 1) * a);
        sum += term;
    }
    return sum;
}

/// The integral of u^power exp(-a u^2) for u from 0 to 1; power 0 or 2, a >= 0.
double CentreIntegral(int power, double a) {
    if (a < kLargeArgument) {
        return ScaledHypergeometric(1, (power + 3) / 2.0, a) / (power + 1);
    }
    const double whole = std::sqrt(std::numbers::pi / a) / 2; // what is beyond 1 is below exp(-a)
    return power == 0 ? whole : whole / (2 * a);
}

/// Concentrations that differ by less are equal.
constexpr double kLeastDifference = 1e-15;

} // namespace

double WatsonLogConstant(double kappa) {
    return kappa >= 0 ? kappa + std::log(EdgeIntegral(0, kappa))
                      : std::log(CentreIntegral(0, -kappa));
}

double WatsonMeanSquare(double kappa) {
    return kappa >= 0 ? 1 - EdgeIntegral(1, kappa) / EdgeIntegral(0, kappa)
                      : CentreIntegral(2, -kappa) / CentreIntegral(0, -kappa);
}

std::optional<double> WatsonConcentration(double meanSquare) {
    double low = -kGreatestAxialConcentration;
    double high = kGreatestAxialConcentration;
    if (!(meanSquare > WatsonMeanSquare(low) && meanSquare < WatsonMeanSquare(high))) {
        return std::nullopt;
    }
    const bool isCluster = meanSquare > 1.0 / 3;
    (isCluster ? low : high) = 0;
    double middle = (low + high) / 2;
    while (middle > low && middle < high && high - low > kLeastDifference) {
        (WatsonMeanSquare(middle) < meanSquare ? low : high) = middle;
        middle = (low + high) / 2;
    }
    return middle;
}

} // namespace quandrel
