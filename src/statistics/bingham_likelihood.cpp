// SPDX-License-Identifier: MIT

#include "statistics/bingham_likelihood.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

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

/// What integration about x3 sums up: the constant, x1^2, x2^2, x1^4, x1^2 x2^2, x2^4.
using Integrals = std::array<double, 6>;

Integrals IntegralsAt(const std::array<double, 2>& k, double angle) {
    const double first = std::pow(std::cos(angle), 2);
    const double second = std::pow(std::sin(angle), 2);
    const double a = -k[0] * first - k[1] * second;
    const double squares = EdgeIntegral(1, a);
    const double fourths = EdgeIntegral(2, a);
    return {EdgeIntegral(0, a),      first * squares,          second * squares,
            first * first * fourths, first * second * fourths, second * second * fourths};
}

void Add(Integrals& sums, const Integrals& more, double weight) {
    for (std::size_t i = 0; i < sums.size(); ++i) {
        sums[i] += weight * more[i];
    }
}

bool AreEqual(const Integrals& a, const Integrals& b) {
    return std::equal(a.begin(), a.end(), b.begin(), [](double one, double other) {
        return std::abs(one - other) <= 1e-14 * std::abs(other);
    });
}

/// Means over a right angle, which by symmetry is all of the turn.
Integrals IntegralsAbout(const std::array<double, 2>& k) {
    constexpr int mostIntervals = 1 << 18;
    const double quarter = std::numbers::pi / 2;
    int intervals = 16;
    Integrals sums{};
    for (int i = 0; i <= intervals; ++i) {
        const bool isEnd = i == 0 || i == intervals;
        Add(sums, IntegralsAt(k, quarter * i / intervals), isEnd ? 0.5 : 1);
    }
    Integrals means = sums;
    for (double& one : means) {
        one /= intervals;
    }
    for (bool isSettled = false; !isSettled && intervals < mostIntervals; intervals *= 2) {
        for (int i = 0; i < intervals; ++i) {
            Add(sums, IntegralsAt(k, quarter * (i + 0.5) / intervals), 1);
        }
        const Integrals former = std::exchange(means, sums);
        for (double& one : means) {
            one /= 2 * intervals;
        }
        isSettled = AreEqual(means, former);
    }
    return means;
}

/// ln c - k t, whose minimum is the fit. It is convex.
double Misfit(const BinghamMoments& moments, const std::array<double, 2>& k,
              const std::array<double, 3>& t) {
    return std::log(moments.constant) - k[0] * t[0] - k[1] * t[1];
}

/// The step of Newton's method.
std::array<double, 2> StepOf(const BinghamMoments& moments, const std::array<double, 3>& t) {
    const auto& [m1, m2] = moments.squares;
    const double v11 = moments.fourth[0][0] - m1 * m1;
    const double v12 = moments.fourth[0][1] - m1 * m2;
    const double v22 = moments.fourth[1][1] - m2 * m2;
    const double determinant = v11 * v22 - v12 * v12;
    const double g1 = t[0] - m1;
    const double g2 = t[1] - m2;
    return {(v22 * g1 - v12 * g2) / determinant, (v11 * g2 - v12 * g1) / determinant};
}

bool IsFitted(const BinghamMoments& moments, const std::array<double, 3>& t) {
    constexpr double margin = 1e-12;
    return std::abs(moments.squares[0] - t[0]) <= margin * t[0]
           && std::abs(moments.squares[1] - t[1]) <= margin * t[1];
}

std::array<double, 2> Moved(const std::array<double, 2>& k, const std::array<double, 2>& step,
                            double share) {
    return {std::min(k[0] + share * step[0], 0.0), std::min(k[1] + share * step[1], 0.0)};
}

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

BinghamMoments BinghamMomentsOf(const std::array<double, 2>& k) {
    const auto [constant, first, second, first4, mixed, second4] = IntegralsAbout(k);
    return {constant,
            {first / constant, second / constant},
            {{{first4 / constant, mixed / constant}, {mixed / constant, second4 / constant}}}};
}

std::optional<std::array<double, 2>> BinghamConcentrations(const std::array<double, 3>& t) {
    if (!(t[0] > 0.5 / kGreatestAxialConcentration)) {
        return std::nullopt;
    }
    // Of concentrated axes these are nearly the concentrations: x1 is normal, of variance t1.
    std::array<double, 2> k = {-0.5 / t[0] + 1.5, -0.5 / t[1] + 1.5};
    k[0] = std::min(k[0], 0.0);
    k[1] = std::min(k[1], 0.0);
    BinghamMoments moments = BinghamMomentsOf(k);
    for (int round = 0; round < 100 && !IsFitted(moments, t); ++round) {
        const std::array<double, 2> step = StepOf(moments, t);
        const double misfit = Misfit(moments, k, t);
        double share = 1;
        std::array<double, 2> next = Moved(k, step, share);
        moments = BinghamMomentsOf(next);
        // Rounding errors of the last steps are not a reason to shorten them.
        while (Misfit(moments, next, t) > misfit + 1e-12 * std::abs(misfit) && share > 1e-6) {
            share /= 2;
            next = Moved(k, step, share);
            moments = BinghamMomentsOf(next);
        }
        k = next;
    }
    return k;
}

} // namespace quandrel
