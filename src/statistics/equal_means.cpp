// SPDX-License-Identifier: MIT

#include "statistics/equal_means.h"

#include "orientation/direction_vectors.h"
#include "orientation/random_members.h"
#include "statistics/mean_forms.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <vector>

namespace quandrel {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// Statistics that differ by less, of themselves, are equal.
constexpr double kRounding = 1e-9;

/// The rows in an order of their own, axes by their lower ends.
std::vector<Direction> OrderedRows(std::span<const Direction> rows, LinePolarity polarity) {
    std::vector<Direction> ordered(rows.begin(), rows.end());
    if (polarity == LinePolarity::kAxial) {
        std::transform(ordered.begin(), ordered.end(), ordered.begin(), LowerEnd);
    }
    std::sort(ordered.begin(), ordered.end(), [](const Direction& a, const Direction& b) {
        return std::tie(a.l, a.m, a.n) < std::tie(b.l, b.m, b.n);
    });
    return ordered;
}

/// The shortest rotation from one direction to another.
class ShortestTurn {
public:
    ShortestTurn(const Direction& from, const Direction& to)
        : cosine_(DotProduct(from, to))
        , axis_(CrossProduct(from, to))
        , across_(FrameAbout(from)[0]) {}

    /// By the formula of O. Rodrigues (1840); axis_ is as long as the sine.
    [[nodiscard]] Direction Of(const Direction& v) const {
        if (1 + cosine_ < kRounding) { // to the opposite: half a turn about any axis across
            return Combined(across_, 2 * DotProduct(across_, v), v, -1);
        }
        const double along = DotProduct(axis_, v) / (1 + cosine_);
        return Combined(Combined(v, cosine_, axis_, along), 1, CrossProduct(axis_, v), 1);
    }

private:
    double cosine_;
    Direction axis_;
    Direction across_;
};

/// The least eigenvalue of the sum of two forms; infinite for opposed means of directions.
double StatisticOf(const MeanForm& first, const MeanForm& second, LinePolarity polarity) {
    if (polarity == LinePolarity::kDirected && DotProduct(first.mean, second.mean) < 0) {
        return kInfinity;
    }
    Matrix3 sum = first.form;
    for (std::size_t i = 0; i < 3; ++i) {
        for (std::size_t j = 0; j < 3; ++j) {
            sum[i][j] += second.form[i][j];
        }
    }
    const std::array<double, 3> values = SymmetricEigen3(sum).values;
    // Of equal means it is 0, but for rounding.
    return std::max(*std::min_element(values.begin(), values.end()), 0.0);
}

template <class Sums>
using TermRows = std::vector<typename Sums::Terms>;

template <class Sums>
void Add(typename Sums::Terms& sums, const typename Sums::Terms& more, double sign = 1) {
    for (std::size_t i = 0; i < sums.size(); ++i) {
        sums[i] += sign * more[i];
    }
}

template <class Sums>
typename Sums::Terms SumsOf(std::span<const Direction> rows) {
    typename Sums::Terms sums{};
    for (const Direction& row : rows) {
        Add<Sums>(sums, Sums::TermsOf(row));
    }
    return sums;
}

/// Adds the terms of rows that are turned from their mean to another.
template <class Sums>
void AddTurned(TermRows<Sums>& terms, std::span<const Direction> rows, const Direction& from,
               const Direction& to, LinePolarity polarity) {
    const bool isReversed = polarity == LinePolarity::kAxial && DotProduct(from, to) < 0;
    const ShortestTurn turn(isReversed ? Reversed(from) : from, to);
    for (const Direction& row : rows) {
        terms.push_back(Sums::TermsOf(turn.Of(row)));
    }
}

/// Rows of two samples with equal means, to be exchanged.
template <class Sums>
class Exchange {
public:
    Exchange(const TermRows<Sums>& terms, std::size_t inFirst, LinePolarity polarity)
        : terms_(terms)
        // The smaller sample is drawn, the other one is what is left.
        , inDrawn_(std::min(inFirst, terms.size() - inFirst))
        , polarity_(polarity)
        , members_(inDrawn_, terms.size()) {
        for (const auto& one : terms) {
            Add<Sums>(whole_, one);
        }
    }

    /// The statistic of a random exchange. Samples without a form count as extreme.
    double Draw(RandomStream& random) {
        typename Sums::Terms drawn{};
        for (const std::size_t member : members_.Draw(random)) {
            Add<Sums>(drawn, terms_[member]);
        }
        typename Sums::Terms left = whole_;
        Add<Sums>(left, drawn, -1);
        const auto first = Sums::FormOf(drawn, static_cast<double>(inDrawn_));
        const auto second = Sums::FormOf(left, static_cast<double>(terms_.size() - inDrawn_));
        return first && second ? StatisticOf(*first, *second, polarity_) : kInfinity;
    }

private:
    const TermRows<Sums>& terms_;
    std::size_t inDrawn_;
    LinePolarity polarity_;
    RandomMembers members_;
    typename Sums::Terms whole_{};
};

template <class Sums>
std::optional<TestOutcome> TestWith(std::span<const Direction> first,
                                    std::span<const Direction> second, LinePolarity polarity,
                                    const Repetition& repetition) {
    typename Sums::Terms sums = SumsOf<Sums>(first);
    const auto ofFirst = Sums::FormOf(sums, static_cast<double>(first.size()));
    const typename Sums::Terms others = SumsOf<Sums>(second);
    const auto ofSecond = Sums::FormOf(others, static_cast<double>(second.size()));
    Add<Sums>(sums, others);
    const auto ofAll = Sums::FormOf(sums, static_cast<double>(first.size() + second.size()));
    if (!ofFirst || !ofSecond || !ofAll) {
        return std::nullopt;
    }
    const double statistic = StatisticOf(*ofFirst, *ofSecond, polarity);
    TermRows<Sums> terms;
    AddTurned<Sums>(terms, first, ofFirst->mean, ofAll->mean, polarity);
    AddTurned<Sums>(terms, second, ofSecond->mean, ofAll->mean, polarity);
    const auto probability = ProbabilityByTries(repetition, [&]() -> RandomTry {
        return [exchange = Exchange<Sums>(terms, first.size(), polarity),
                statistic](RandomStream& random) mutable {
            return exchange.Draw(random) >= statistic * (1 - kRounding);
        };
    });
    return probability ? std::optional(TestOutcome{statistic, *probability}) : std::nullopt;
}

} // namespace

std::optional<TestOutcome> EqualMeansTest(std::span<const Direction> first,
                                          std::span<const Direction> second, LinePolarity polarity,
                                          const Repetition& repetition) {
    if (first.size() < kFewestRowsOfMean || second.size() < kFewestRowsOfMean) {
        return std::nullopt;
    }
    const std::vector<Direction> rows1 = OrderedRows(first, polarity);
    const std::vector<Direction> rows2 = OrderedRows(second, polarity);
    return polarity == LinePolarity::kAxial
               ? TestWith<AxisSums>(rows1, rows2, polarity, repetition)
               : TestWith<DirectionSums>(rows1, rows2, polarity, repetition);
}

} // namespace quandrel
