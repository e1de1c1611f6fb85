// SPDX-License-Identifier: MIT

#include "rose/azimuth_samples.h"

#include "orientation/probability.h"
#include "orientation/random_members.h"
#include "rose/azimuth_tests.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <utility>
#include <vector>

namespace quandrel {

namespace {

constexpr double kTurn = 2 * std::numbers::pi;

/// Angles closer than this, of a turn, are equal: they differ by rounding.
constexpr double kEqualTurns = 1e-12;

/// Two samples in the order of their angles.
struct PooledAngles {
    std::vector<bool> isFirst;     ///< whether an angle is of the first sample
    std::vector<std::size_t> ends; ///< the place after each group of equal angles
    std::size_t inFirst = 0;
    std::size_t inSecond = 0;
};

double TurnsOf(double angle) {
    const double turns = angle / kTurn;
    const double within = turns - std::floor(turns);
    return within < 1 - kEqualTurns ? within : 0;
}

PooledAngles PooledOf(std::span<const double> first, std::span<const double> second) {
    std::vector<std::pair<double, bool>> all;
    for (const double angle : first) {
        all.emplace_back(TurnsOf(angle), true);
    }
    for (const double angle : second) {
        all.emplace_back(TurnsOf(angle), false);
    }
    std::sort(all.begin(), all.end());
    PooledAngles pooled{{}, {}, first.size(), second.size()};
    for (std::size_t i = 0; i < all.size(); ++i) {
        pooled.isFirst.push_back(all[i].second);
        if (i + 1 == all.size() || all[i + 1].first - all[i].first > kEqualTurns) {
            pooled.ends.push_back(i + 1);
        }
    }
    return pooled;
}

/// A test by permutations of small samples.
///
/// @param largeSamples  the probability for large ones
/// @param isAsExtreme   of the members of the first sample, by place
template <class IsAsExtreme>
std::optional<double> PermutationProbability(const PooledAngles& pooled,
                                             const Repetition& repetition, double largeSamples,
                                             IsAsExtreme isAsExtreme) {
    const std::size_t places = pooled.isFirst.size();
    if (places > kMostAnglesInPermutations) {
        return largeSamples;
    }
    return ProbabilityByTries(repetition, [&pooled, places, isAsExtreme]() -> RandomTry {
        return [members = RandomMembers(pooled.inFirst, places),
                isFirst = std::vector<bool>(places), isAsExtreme](RandomStream& random) mutable {
            std::fill(isFirst.begin(), isFirst.end(), false);
            for (const std::size_t member : members.Draw(random)) {
                isFirst[member] = true;
            }
            return isAsExtreme(isFirst);
        };
    });
}

/// U^2 of two samples times N^3 n1 n2 for N angles together, of n1 and n2.
///
/// It is exact up to kMostAnglesInPermutations: at most (N n1 n2)^2, below 2^63.
std::int64_t WholeWatson(const std::vector<bool>& isFirst, const PooledAngles& pooled) {
    const auto n1 = static_cast<std::int64_t>(pooled.inFirst);
    const auto n2 = static_cast<std::int64_t>(pooled.inSecond);
    std::int64_t difference = 0; // of the distribution functions, times n1 n2
    std::int64_t sum = 0;
    std::int64_t squares = 0;
    std::size_t place = 0;
    for (const std::size_t end : pooled.ends) {
        const auto count = static_cast<std::int64_t>(end - place);
        for (; place < end; ++place) {
            difference += isFirst[place] ? n2 : -n1;
        }
        sum += count * difference;
        squares += count * difference * difference;
    }
    return (n1 + n2) * squares - sum * sum;
}

/// U^2 in floating point, for samples of any size.
double WatsonStatistic(const PooledAngles& pooled) {
    const auto n1 = static_cast<double>(pooled.inFirst);
    const auto n2 = static_cast<double>(pooled.inSecond);
    double difference = 0;
    double sum = 0;
    double squares = 0;
    std::size_t place = 0;
    for (const std::size_t end : pooled.ends) {
        const auto count = static_cast<double>(end - place);
        for (; place < end; ++place) {
            difference += pooled.isFirst[place] ? 1 / n1 : -1 / n2;
        }
        sum += count * difference;
        squares += count * difference * difference;
    }
    const double all = n1 + n2;
    return n1 * n2 / (all * all) * (squares - sum * sum / all);
}

/// The scores of the places, and the scatter of the scores.
struct UniformScores {
    std::vector<double> cosines;
    std::vector<double> sines;
    double cosineSquares = 0;
    double sineSquares = 0;
    double products = 0;
};

UniformScores ScoresOf(const PooledAngles& pooled) {
    const auto all = static_cast<double>(pooled.isFirst.size());
    UniformScores scores;
    std::size_t place = 0;
    for (const std::size_t end : pooled.ends) {
        const auto count = static_cast<double>(end - place);
        double cosine = 0;
        double sine = 0;
        for (std::size_t i = place; i < end; ++i) {
            const double score = kTurn * static_cast<double>(i + 1) / all;
            cosine += std::cos(score) / count;
            sine += std::sin(score) / count;
        }
        scores.cosines.insert(scores.cosines.end(), end - place, cosine);
        scores.sines.insert(scores.sines.end(), end - place, sine);
        scores.cosineSquares += count * cosine * cosine;
        scores.sineSquares += count * sine * sine;
        scores.products += count * cosine * sine;
        place = end;
    }
    return scores;
}

/// W: the sums of the scores of the first sample in terms of their variances under permutation,
/// times N/(N - 1), so that without equal angles it is W of the definition.
double UniformScoresStatistic(const std::vector<bool>& isFirst, const UniformScores& scores,
                              double sizes) {
    double cosine = 0;
    double sine = 0;
    for (std::size_t i = 0; i < isFirst.size(); ++i) {
        if (isFirst[i]) {
            cosine += scores.cosines[i];
            sine += scores.sines[i];
        }
    }
    const double determinant =
        scores.cosineSquares * scores.sineSquares - scores.products * scores.products;
    const double form = scores.sineSquares * cosine * cosine - 2 * scores.products * cosine * sine
                        + scores.cosineSquares * sine * sine;
    const auto all = static_cast<double>(isFirst.size());
    return all * all / sizes * form / determinant;
}

bool AreTooFew(const PooledAngles& pooled, std::size_t fewestGroups) {
    return pooled.inFirst < kFewestAnglesOfSample || pooled.inSecond < kFewestAnglesOfSample
           || pooled.ends.size() < fewestGroups;
}

} // namespace

std::optional<TestOutcome> WatsonTwoSamples(std::span<const double> first,
                                            std::span<const double> second,
                                            const Repetition& repetition) {
    const PooledAngles pooled = PooledOf(first, second);
    if (AreTooFew(pooled, 2)) {
        return std::nullopt;
    }
    const double statistic = WatsonStatistic(pooled);
    const bool isExact = pooled.isFirst.size() <= kMostAnglesInPermutations;
    const std::int64_t found = isExact ? WholeWatson(pooled.isFirst, pooled) : 0;
    const auto probability = PermutationProbability(
        pooled, repetition, WatsonTail(statistic),
        [&pooled, found](const auto& isFirst) { return WholeWatson(isFirst, pooled) >= found; });
    return probability ? std::optional(TestOutcome{statistic, *probability}) : std::nullopt;
}

std::optional<TestOutcome> MardiaWatsonWheeler(std::span<const double> first,
                                               std::span<const double> second,
                                               const Repetition& repetition) {
    const PooledAngles pooled = PooledOf(first, second);
    if (AreTooFew(pooled, 3)) {
        return std::nullopt;
    }
    constexpr double rounding = 1e-9;
    const UniformScores scores = ScoresOf(pooled);
    const double sizes = static_cast<double>(pooled.inFirst) * static_cast<double>(pooled.inSecond);
    const double statistic = UniformScoresStatistic(pooled.isFirst, scores, sizes);
    const auto probability = PermutationProbability(
        pooled, repetition, ChiSquareTail(statistic, 2), [&](const auto& isFirst) {
            return UniformScoresStatistic(isFirst, scores, sizes) >= statistic * (1 - rounding);
        });
    return probability ? std::optional(TestOutcome{statistic, *probability}) : std::nullopt;
}

} // namespace quandrel
