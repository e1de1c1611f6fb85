// SPDX-License-Identifier: MIT

#include "statistics/fisher_fit.h"

#include "orientation/direction_vectors.h"
#include "orientation/normal_distribution.h"
#include "statistics/fabric_kernels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace quandrel {

namespace {

/// Directions that differ by less from their mean are equal.
constexpr double kRounding = 1e-12;

constexpr std::size_t kTabulated = 20;

/// Probabilities, descending, and for each test the statistics that belong to them.
constexpr std::array<double, kTabulated> kProbabilities = {
    0.999, 0.99, 0.97, 0.95, 0.9,  0.8,   0.7,  0.6,   0.5,   0.4,
    0.3,   0.2,  0.15, 0.1,  0.05, 0.025, 0.01, 0.005, 0.002, 0.001};
constexpr std::array<double, kTabulated> kOfColatitudes = {
    0.3370, 0.3934, 0.4335, 0.4576, 0.4991, 0.5573, 0.6051, 0.6504, 0.6968, 0.7470,
    0.8049, 0.8784, 0.9267, 0.9905, 1.0905, 1.1822, 1.2937, 1.3732, 1.4716, 1.5389};
constexpr std::array<double, kTabulated> kOfLongitudes = {
    0.6034, 0.6809, 0.7327, 0.7625, 0.8112, 0.8751, 0.9242, 0.9682, 1.0111, 1.0558,
    1.1059, 1.1670, 1.2058, 1.2559, 1.3332, 1.4029, 1.4890, 1.5492, 1.6261, 1.6817};
constexpr std::array<double, kTabulated> kOfTwoVariables = {
    0.3199, 0.3686, 0.4032, 0.4236, 0.4581, 0.5056, 0.5442, 0.5800, 0.6161, 0.6546,
    0.6987, 0.7542, 0.7900, 0.8373, 0.9109, 0.9779, 1.0586, 1.1153, 1.1867, 1.2368};

/// A statistic is the deviation times sqrt(n) + constant + inverse/sqrt(n), times 1 + spread/kappa.
struct Modification {
    double constant;
    double inverse;
    double spread;
    const std::array<double, kTabulated>& table;
};

constexpr Modification kColatitudes{0.06, 0.70, 0, kOfColatitudes};
constexpr Modification kLongitudes{0.29, 0.12, 0.10, kOfLongitudes};
constexpr Modification kTwoVariables{0.20, 0.20, 0.08, kOfTwoVariables};

/// Logarithms of probabilities are interpolated by the square of the statistic, to which those of
/// large deviations are proportional.
double TabulatedProbability(double statistic, const std::array<double, kTabulated>& table) {
    const auto found = std::upper_bound(table.begin() + 1, table.end() - 1, statistic);
    const auto above = static_cast<std::size_t>(found - table.begin());
    const double low = table[above - 1] * table[above - 1];
    const double high = table[above] * table[above];
    const double share = (statistic * statistic - low) / (high - low);
    const double logarithm =
        std::log(kProbabilities[above - 1]) * (1 - share) + std::log(kProbabilities[above]) * share;
    return std::min(std::exp(logarithm), 1.0);
}

/// The number of directions and their concentration.
struct SampleSize {
    double count = 0;
    double concentration = 0;
};

TestOutcome OutcomeOf(double deviation, const SampleSize& size, const Modification& modification) {
    const double root = std::sqrt(size.count);
    const double statistic = deviation
                             * (root + modification.constant + modification.inverse / root)
                             * (1 + modification.spread / size.concentration);
    return {statistic, TabulatedProbability(statistic, modification.table)};
}

/// The greatest deviations of the shares of a sample above and below a distribution function.
struct Deviations {
    double above = 0;
    double below = 0;
};

/// @param sorted  the function's values at the sample, ascending
Deviations DeviationsOf(const std::vector<double>& sorted) {
    const auto n = static_cast<double>(sorted.size());
    Deviations deviations;
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        deviations.above = std::max(deviations.above, static_cast<double>(i + 1) / n - sorted[i]);
        deviations.below = std::max(deviations.below, sorted[i] - static_cast<double>(i) / n);
    }
    return deviations;
}

/// @param quantile  of a probability
template <class Quantile>
std::vector<QuantilePoint> PointsOf(const std::vector<double>& sorted, Quantile quantile) {
    std::vector<QuantilePoint> points;
    points.reserve(sorted.size());
    for (std::size_t i = 0; i < sorted.size(); ++i) {
        const double share = (static_cast<double>(i) + 0.5) / static_cast<double>(sorted.size());
        points.push_back({quantile(share), sorted[i]});
    }
    return points;
}

template <class Function>
std::vector<double> Transformed(const std::vector<double>& values, Function function) {
    std::vector<double> results(values.size());
    std::transform(values.begin(), values.end(), results.begin(), function);
    return results;
}

FitTest TestColatitudes(std::vector<double> excesses, const SampleSize& size) {
    std::sort(excesses.begin(), excesses.end());
    const auto [above, below] = DeviationsOf(Transformed(
        excesses, [&size](double excess) { return -std::expm1(-size.concentration * excess); }));
    return {OutcomeOf(std::max(above, below), size, kColatitudes),
            PointsOf(excesses, [](double share) { return -std::log1p(-share); })};
}

FitTest TestLongitudes(std::vector<double> turns, const SampleSize& size) {
    std::sort(turns.begin(), turns.end());
    const auto [above, below] = DeviationsOf(turns);
    return {OutcomeOf(above + below, size, kLongitudes),
            PointsOf(turns, [](double share) { return share; })};
}

FitTest TestTwoVariables(std::vector<double> values, const SampleSize& size) {
    std::sort(values.begin(), values.end());
    double squares = 0;
    for (const double value : values) {
        squares += value * value;
    }
    const double deviation = std::sqrt(squares / static_cast<double>(values.size()));
    const auto [above, below] = DeviationsOf(
        Transformed(values, [deviation](double value) { return NormalBelow(value / deviation); }));
    return {OutcomeOf(std::max(above, below), size, kTwoVariables),
            PointsOf(values, NormalQuantile)};
}

/// The mean with two directions at right angles to it and to each other.
struct MeanAxes {
    Direction level; ///< horizontal; north for a vertical mean
    Direction steep;
    Direction mean;
};

MeanAxes AxesAbout(const Direction& mean) {
    const double width = std::hypot(mean.l, mean.m);
    const Direction level =
        width > kRounding ? Direction{mean.m / width, -mean.l / width, 0} : Direction{1, 0, 0};
    const Direction steep = CrossProduct(mean, level);
    return {level, steep, mean};
}

/// The values of the directions that the tests are about.
struct FitValues {
    std::vector<double> excesses; ///< 1 - cos of the angle to the mean
    std::vector<double> turns;
    std::vector<double> normals;
};

FitValues ValuesOf(std::span<const Direction> directions, const MeanAxes& axes) {
    FitValues values;
    for (const Direction& one : directions) {
        const double level = DotProduct(one, axes.level);
        const double steep = DotProduct(one, axes.steep);
        // Half the square of the chord keeps the digits that 1 - cos loses.
        const Direction chord = {one.l - axes.mean.l, one.m - axes.mean.m, one.n - axes.mean.n};
        values.excesses.push_back(DotProduct(chord, chord) / 2);
        const double turn = std::atan2(steep, level) / (2 * std::numbers::pi);
        values.turns.push_back(turn < 0 ? turn + 1 : turn);
        const double sine = std::sqrt(std::max((1 - steep) * (1 + steep), 0.0));
        values.normals.push_back(std::atan2(level, DotProduct(one, axes.mean)) * std::sqrt(sine));
    }
    return values;
}

} // namespace

std::optional<FisherFit> FitFisher(std::span<const Direction> directions) {
    const std::vector<double> weights(directions.size(), 1);
    const Direction resultant = ResultantOf(directions, weights);
    const double length = LengthOf(resultant);
    const auto n = static_cast<double>(directions.size());
    if (directions.size() < kFewestDirectionsOfFit || length <= n * kLeastMeanLength) {
        return std::nullopt;
    }
    const MeanAxes axes =
        AxesAbout({resultant.l / length, resultant.m / length, resultant.n / length});
    FitValues values = ValuesOf(directions, axes);
    double excess = 0;
    for (const double one : values.excesses) {
        excess += one;
    }
    if (excess <= n * kRounding) {
        return std::nullopt;
    }
    FisherFit fit;
    fit.concentration = (n - 1) / excess;
    const SampleSize size = {n, fit.concentration};
    fit.colatitudes = TestColatitudes(std::move(values.excesses), size);
    fit.longitudes = TestLongitudes(std::move(values.turns), size);
    fit.twoVariables = TestTwoVariables(std::move(values.normals), size);
    return fit;
}

} // namespace quandrel
