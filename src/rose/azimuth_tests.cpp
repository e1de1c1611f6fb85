// SPDX-License-Identifier: MIT

#include "rose/azimuth_tests.h"

#include "rose/circular_reference.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace quandrel {

namespace {

constexpr double kTurn = 2 * std::numbers::pi;

/// Angles that are drawn in all tries together.
constexpr double kMostDraws = 1e9;
constexpr int kLeastTries = 999;

using StepCounts = std::vector<std::int64_t>;

/// The share of a turn, from 0, below 1.
double TurnsOf(double angle) {
    const double turns = angle / kTurn;
    const double within = turns - std::floor(turns);
    return within < 1 ? within : 0;
}

std::vector<double> SortedTurns(std::span<const double> angles) {
    std::vector<double> sorted(angles.size());
    std::transform(angles.begin(), angles.end(), sorted.begin(), TurnsOf);
    std::sort(sorted.begin(), sorted.end());
    return sorted;
}

StepCounts CountsOf(std::span<const double> angles, int steps) {
    StepCounts counts(static_cast<std::size_t>(steps));
    for (const double angle : angles) {
        const double step = std::nearbyint(TurnsOf(angle) * steps);
        ++counts[static_cast<std::size_t>(step) % counts.size()];
    }
    return counts;
}

void DrawCounts(RandomStream& random, std::int64_t n, StepCounts& counts) {
    std::fill(counts.begin(), counts.end(), 0);
    const auto steps = static_cast<std::uint32_t>(counts.size());
    for (std::int64_t i = 0; i < n; ++i) {
        ++counts[random.Below(steps)];
    }
}

/// The tries that keep the time of large samples bounded.
Repetition WithinDraws(const Repetition& repetition, std::size_t n) {
    const double most =
        std::max(std::floor(kMostDraws / static_cast<double>(n)), static_cast<double>(kLeastTries));
    Repetition bounded = repetition;
    bounded.tries = static_cast<int>(std::min(most, static_cast<double>(repetition.tries)));
    return bounded;
}

/// Kuiper's V of n rounded angles, times n and the number of steps.
std::int64_t KuiperRange(const StepCounts& counts, std::int64_t n) {
    const auto steps = static_cast<std::int64_t>(counts.size());
    std::int64_t above = 0;
    std::int64_t below = 0;
    std::int64_t reached = 0;
    for (std::int64_t step = 0; step < steps; ++step) {
        const std::int64_t count = counts[static_cast<std::size_t>(step)];
        if (count > 0) {
            below = std::max(below, step * n - reached * steps);
            reached += count;
            above = std::max(above, reached * steps - step * n);
        }
    }
    return above + below;
}

/// The sum of the deviations of n spacings between rounded angles, times n and the number of steps.
std::int64_t SpacingSum(const StepCounts& counts, std::int64_t n) {
    const auto steps = static_cast<std::int64_t>(counts.size());
    const auto isTaken = [](std::int64_t count) { return count > 0; };
    const auto first = std::find_if(counts.begin(), counts.end(), isTaken);
    std::int64_t sum = 0;
    for (auto at = first; at != counts.end();) {
        const auto next = std::find_if(at + 1, counts.end(), isTaken);
        const std::int64_t gap = next != counts.end() ? next - at : steps - (at - first);
        sum += std::abs(n * gap - steps) + (*at - 1) * steps;
        at = next;
    }
    return sum;
}

/// A test of rounded angles by tries.
///
/// @param statistic  of counts and their sum, increasing against the hypothesis
template <class Statistic>
std::optional<double> RoundedProbability(const StepCounts& counts, std::int64_t n,
                                         const Repetition& repetition, Statistic statistic) {
    const std::int64_t found = statistic(counts, n);
    return ProbabilityByTries(WithinDraws(repetition, static_cast<std::size_t>(n)),
                              [&]() -> RandomTry {
                                  return [drawn = StepCounts(counts.size()), n, found,
                                          statistic](RandomStream& random) mutable {
                                      DrawCounts(random, n, drawn);
                                      return statistic(drawn, n) >= found;
                                  };
                              });
}

/// Half the sum of the deviations of spacings, turns.
double SpacingOf(const std::vector<double>& sorted) {
    const auto n = static_cast<double>(sorted.size());
    double sum = std::abs(sorted.front() + 1 - sorted.back() - 1 / n);
    for (std::size_t i = 1; i < sorted.size(); ++i) {
        sum += std::abs(sorted[i] - sorted[i - 1] - 1 / n);
    }
    return sum / 2;
}

/// Sherman's statistic of many spacings is normal, of the mean (1 - 1/n)^n and the variance
/// (2/e - 5/e^2)/n.
double NormalSpacingProbability(double turns, double n) {
    const double mean = std::pow(1 - 1 / n, n);
    const double variance = (2 / std::numbers::e - 5 / (std::numbers::e * std::numbers::e)) / n;
    return std::erfc((turns - mean) / std::sqrt(2 * variance)) / 2;
}

std::optional<double> SpacingProbability(double turns, std::size_t n,
                                         const Repetition& repetition) {
    if (n > kMostAnglesBySpacings) {
        return NormalSpacingProbability(turns, static_cast<double>(n));
    }
    constexpr double rounding = 1e-12;
    return ProbabilityByTries(repetition, [turns, n]() -> RandomTry {
        return [turns, drawn = std::vector<double>(n)](RandomStream& random) mutable {
            std::generate(drawn.begin(), drawn.end(), [&random] { return random.Uniform(); });
            std::sort(drawn.begin(), drawn.end());
            return SpacingOf(drawn) >= turns - rounding;
        };
    });
}

} // namespace

double WatsonTail(double statistic) {
    // Below this the series is 1 to nine digits.
    if (statistic < 0.005) {
        return 1;
    }
    double sum = 0;
    for (int j = 1; j <= 20; ++j) {
        const double term = std::exp(-2 * j * j * std::numbers::pi * std::numbers::pi * statistic);
        sum += (j % 2 == 1 ? 2 : -2) * term;
    }
    return std::clamp(sum, 0.0, 1.0);
}

TestOutcome WatsonUniformity(std::span<const double> angles) {
    const std::vector<double> sorted = SortedTurns(angles);
    const auto n = static_cast<double>(sorted.size());
    double sum = 0;
    double squares = 0;
    for (std::size_t first = 0; first < sorted.size();) {
        const auto end = std::upper_bound(sorted.begin(), sorted.end(), sorted[first]);
        const auto last = static_cast<std::size_t>(end - sorted.begin());
        const auto count = static_cast<double>(last - first);
        const double deviation = sorted[first] - static_cast<double>(first + last) / (2 * n);
        sum += count * deviation;
        squares += count * deviation * deviation;
        first = last;
    }
    const double statistic = squares - sum * sum / n + 1 / (12 * n);
    const double corrected = (statistic - 0.1 / n + 0.1 / (n * n)) * (1 + 0.8 / n);
    return {corrected, WatsonTail(corrected)};
}

std::optional<TestOutcome> KuiperUniformity(std::span<const double> angles, int steps,
                                            const Repetition& repetition) {
    const KuiperResult byFormula = KuiperTest(angles);
    TestOutcome test{byFormula.test.statistic, byFormula.test.probability};
    if (steps == kWithoutSteps || angles.size() <= kMostAnglesByFormula) {
        return test;
    }
    const auto n = static_cast<std::int64_t>(angles.size());
    const auto found = RoundedProbability(CountsOf(angles, steps), n, repetition, KuiperRange);
    if (!found) {
        return std::nullopt;
    }
    test.probability = *found;
    return test;
}

std::optional<TestOutcome> RaoSpacingTest(std::span<const double> angles, int steps,
                                          const Repetition& repetition) {
    const auto n = static_cast<std::int64_t>(angles.size());
    if (steps == kWithoutSteps) {
        const double turns = SpacingOf(SortedTurns(angles));
        const auto found = SpacingProbability(turns, angles.size(), repetition);
        return found ? std::optional(TestOutcome{turns * kTurn, *found}) : std::nullopt;
    }
    const StepCounts counts = CountsOf(angles, steps);
    const auto found = RoundedProbability(counts, n, repetition, SpacingSum);
    const double turns = static_cast<double>(SpacingSum(counts, n)) / 2 / static_cast<double>(n)
                         / static_cast<double>(steps);
    return found ? std::optional(TestOutcome{turns * kTurn, *found}) : std::nullopt;
}

} // namespace quandrel
