// SPDX-License-Identifier: MIT

#include "statistics/bingham_distribution.h"

#include "statistics/bessel.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace quandrel {

namespace {

constexpr std::size_t kNodes = 32;
constexpr int kMostSteps = 200;
constexpr double kSmallGain = 1e-3;
constexpr double kLastGain = 1e-20;

/// Nodes and weights of the rule of Gauss for 0 to 1.
struct GaussRule {
    std::array<double, kNodes> nodes{};
    std::array<double, kNodes> weights{};
};

/// A Legendre polynomial of degree kNodes and its derivative.
struct Legendre {
    double value = 0;
    double slope = 0;
};

Legendre LegendreAt(double x) {
    double before = 1;
    double value = x;
    for (std::size_t degree = 2; degree <= kNodes; ++degree) {
        const auto n = static_cast<double>(degree);
        const double next = ((2 * n - 1) * x * value - (n - 1) * before) / n;
        before = value;
        value = next;
    }
    const auto n = static_cast<double>(kNodes);
    return {value, n * (x * value - before) / (x * x - 1)};
}

GaussRule MakeGaussRule() {
    GaussRule rule;
    for (std::size_t i = 0; i < kNodes; ++i) {
        const double place = (static_cast<double>(i) + 0.75) / (static_cast<double>(kNodes) + 0.5);
        double x = std::cos(std::numbers::pi * place);
        for (int step = 0; step < 10; ++step) {
            const Legendre at = LegendreAt(x);
            x -= at.value / at.slope;
        }
        const double slope = LegendreAt(x).slope;
        rule.nodes[i] = (1 - x) / 2;
        rule.weights[i] = 1 / ((1 - x * x) * slope * slope);
    }
    return rule;
}

/// Sums over v = x1^2 + x2^2 of 1, and of v and v^2 times means over the angle about e3.
struct Sums {
    double one = 0;
    std::array<double, 2> squares{};
    std::array<double, 3> fourths{};
};

/// Adds a node of the rule.
///
/// Over the angle, x1^2 = v (1 + C)/2 and x2^2 = v (1 - C)/2 with C the cosine of twice the angle,
/// whose density is that of exp(z C). mean(C) = I1/I0 and mean(C^2) = 1 - I1/(z I0).
///
/// @param wide    place in `squares` of the component with the greater concentration
void AddNode(Sums& sums, double v, double weight, double greater, double half, std::size_t wide) {
    const ScaledBessel bessel = ScaledBesselOf(half * v);
    const double density = weight * std::exp(greater * v);
    const std::size_t narrow = 1 - wide;
    sums.one += density * bessel.i0;
    sums.squares[wide] += density * v * (bessel.i0 + bessel.i1) / 2;
    sums.squares[narrow] += density * v * bessel.difference / 2;
    const double square = v * v / 4;
    const double across = bessel.i1OverArgument; // mean of 1 - C^2, times I0
    sums.fourths[2 * wide] += density * square * (2 * bessel.i0 - across + 2 * bessel.i1);
    sums.fourths[2 * narrow] += density * square * (2 * bessel.difference - across);
    sums.fourths[1] += density * square * across;
}

std::optional<std::array<double, 2>> NewtonStep(const BinghamMoments& at, double t1, double t2) {
    const auto& [a, b, c] = at.covariances;
    const double determinant = a * c - b * b;
    if (!(determinant > 0)) {
        return std::nullopt;
    }
    const double g1 = t1 - at.squares[0];
    const double g2 = t2 - at.squares[1];
    return std::array{(c * g1 - b * g2) / determinant, (a * g2 - b * g1) / determinant};
}

/// Mean logarithm of the likelihood of a row.
double LogLikelihood(const BinghamMoments& at, const std::array<double, 2>& k, double t1,
                     double t2) {
    return k[0] * t1 + k[1] * t2 - std::log(at.constant);
}

bool IsWithinBounds(const std::array<double, 2>& k) {
    return std::min(k[0], k[1]) >= -kGreatestAxialConcentration && std::max(k[0], k[1]) <= 1;
}

/// The concentrations after a step of Newton, which is halved until the likelihood grows; empty
/// where it does not.
///
/// @param gain  twice the growth of the likelihood that the whole step promises. A small one is
///              squared by each step, which then needs no test.
std::optional<std::array<double, 2>> AfterStep(const std::array<double, 2>& k,
                                               const std::array<double, 2>& step, double gain,
                                               const BinghamMoments& at, double t1, double t2) {
    const double before = LogLikelihood(at, k, t1, t2);
    for (double share = 1; share > 1e-6; share /= 2) {
        const std::array<double, 2> next = {k[0] + share * step[0], k[1] + share * step[1]};
        if (!IsWithinBounds(next)) {
            continue;
        }
        if (gain < kSmallGain
            || LogLikelihood(BinghamMomentsOf(next), next, t1, t2) > before + share * gain / 4) {
            return next;
        }
    }
    return std::nullopt;
}

} // namespace

BinghamMoments BinghamMomentsOf(const std::array<double, 2>& k) {
    const auto& [k1, k2] = k;
    static const GaussRule rule = MakeGaussRule();
    const double greater = std::max(k1, k2);
    const double half = std::abs(k1 - k2) / 2;
    const std::size_t wide = k1 > k2 ? 0 : 1;
    const double size = std::max({std::abs(greater), half, 1.0});
    Sums sums;
    // The integrand changes over lengths of 1/size at u = 1: each panel of w = 1 - u is as wide as
    // it is far from there. The first begins at 0.
    double end = 1;
    for (bool isFirst = false; !isFirst; end /= 2) {
        isFirst = end * size < 1;
        const double begin = isFirst ? 0 : end / 2;
        for (std::size_t i = 0; i < kNodes; ++i) {
            const double w = begin + (end - begin) * rule.nodes[i];
            AddNode(sums, w * (2 - w), (end - begin) * rule.weights[i], greater, half, wide);
        }
    }
    BinghamMoments result;
    result.constant = sums.one;
    result.squares = {sums.squares[0] / sums.one, sums.squares[1] / sums.one};
    const auto& [m1, m2] = result.squares;
    result.covariances = {sums.fourths[0] / sums.one - m1 * m1,
                          sums.fourths[1] / sums.one - m1 * m2,
                          sums.fourths[2] / sums.one - m2 * m2};
    return result;
}

std::optional<std::array<double, 2>> BinghamConcentrations(double t1, double t2) {
    if (!(t1 > 0)) {
        return std::nullopt;
    }
    // The concentrations of a plane normal distribution with these variances.
    std::array<double, 2> k = {std::max(-1 / (2 * t1), -kGreatestAxialConcentration / 2),
                               std::max(-1 / (2 * t2), -kGreatestAxialConcentration / 2)};
    for (int count = 0; count < kMostSteps; ++count) {
        const BinghamMoments at = BinghamMomentsOf(k);
        const auto step = NewtonStep(at, t1, t2);
        if (!step) {
            return std::nullopt;
        }
        const double gain = (*step)[0] * (t1 - at.squares[0]) + (*step)[1] * (t2 - at.squares[1]);
        const auto next = AfterStep(k, *step, gain, at, t1, t2);
        if (!next) {
            return std::nullopt;
        }
        k = *next;
        if (gain < kLastGain) {
            return std::array{std::min(k[0], 0.0), std::min(k[1], 0.0)};
        }
    }
    return std::nullopt;
}

} // namespace quandrel
