// SPDX-License-Identifier: MIT
//
// How often even rows stay within the envelope of significant density: simulated samples of which
// the greatest density is sought by direct sums.

#pragma once

#include "density/direct_density.h"
#include "density/even_maxima.h"
#include "support/density_samples.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace quandrel {

/// Even rows from a seed.
inline std::vector<Direction> EvenRows(LineSense sense, Precision precision, int count,
                                       std::uint64_t seed) {
    RandomLines random(seed);
    std::vector<Direction> rows;
    for (int row = 0; row < count; ++row) {
        const MeasuredLine line = random.Even(sense);
        rows.push_back(
            DirectionOf(precision == Precision::WholeDegrees ? InWholeDegrees(line) : line));
    }
    return rows;
}

/// Seeks the greatest sum of weights on the lower hemisphere.
class GreatestDensity {
public:
    explicit GreatestDensity(const DensityFormula& formula)
        : formula_(formula)
        , step_(kPlacesApart * HalfAngleOf(formula)) {
        const auto count = static_cast<int>(std::ceil(kTwoPi / (step_ * step_)));
        constexpr double kGoldenTurn = 2.399963229728653;
        for (int i = 0; i < count; ++i) { // of equal areas, on a spiral
            places_.push_back({ArcSin((i + 0.5) / count), kGoldenTurn * i});
        }
    }

    [[nodiscard]] double Of(const std::vector<Direction>& rows) const {
        std::vector<Found> found;
        found.reserve(places_.size());
        for (const MeasuredLine& place : places_) {
            found.push_back({SumAt(rows, place), place});
        }
        const std::size_t tried = std::min<std::size_t>(kClimbs, found.size());
        std::partial_sort(found.begin(), found.begin() + static_cast<std::ptrdiff_t>(tried),
                          found.end(),
                          [](const Found& a, const Found& b) { return a.sum > b.sum; });
        double greatest = 0;
        for (std::size_t i = 0; i < tried; ++i) {
            greatest = std::max(greatest, Climb(rows, found[i]));
        }
        return greatest;
    }

private:
    static constexpr double kPlacesApart = 0.4; ///< of the half-angle
    static constexpr std::size_t kClimbs = 6;
    static constexpr int kHalvings = 6;

    struct Found {
        double sum = 0;
        MeasuredLine place;
    };

    [[nodiscard]] double SumAt(const std::vector<Direction>& rows,
                               const MeasuredLine& place) const {
        const double across = std::cos(place.plunge);
        return DirectDensity(formula_, rows, {},
                             {across * std::cos(place.trend), across * std::sin(place.trend),
                              std::sin(place.plunge)});
    }

    /// Goes on in plunge and trend as long as the sum grows, by ever smaller steps. A step across
    /// the pole or the primitive leads to a place of the net as well.
    [[nodiscard]] double Climb(const std::vector<Direction>& rows, Found best) const {
        double step = step_;
        for (int halvings = 0; halvings < kHalvings;) {
            const MeasuredLine from = best.place;
            for (const auto& [down, across] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
                const double plunge = std::abs(from.plunge + down * step);
                const double wide = std::max(std::cos(from.plunge), std::sin(step));
                const double trend = from.trend + across * step / wide;
                const MeasuredLine place = plunge <= kPi / 2
                                               ? MeasuredLine{plunge, trend}
                                               : MeasuredLine{kPi - plunge, trend + kPi};
                if (const double sum = SumAt(rows, place); sum > best.sum) {
                    best = {sum, place};
                }
            }
            if (best.place.plunge == from.plunge && best.place.trend == from.trend) {
                step /= 2;
                ++halvings;
            }
        }
        return best.sum;
    }

    DensityFormula formula_;
    double step_;
    std::vector<MeasuredLine> places_;
};

/// The level of significant density, simulated as for a plot of so many rows.
inline double LevelOfEnvelope(const DensityFormula& formula, Precision precision) {
    EvenSampling sampling;
    sampling.wholeDegrees = precision == Precision::WholeDegrees;
    const auto maxima =
        MaximaOfEvenSamples(formula, static_cast<std::int64_t>(formula.rows), sampling);
    return EnvelopeOf(*maxima).sum;
}

/// How many of some samples of even rows exceed a level nowhere, and how many even stay a row below
/// it, which matters where sums are counts.
struct EnvelopeTally {
    int within = 0;
    int below = 0;
};

inline EnvelopeTally TallyOfEnvelope(const DensityFormula& formula, Precision precision,
                                     double level, int samples, std::uint64_t seed) {
    const GreatestDensity greatest(formula);
    EnvelopeTally tally;
    for (int sample = 0; sample < samples; ++sample) {
        const double sum =
            greatest.Of(EvenRows(formula.sense, precision, static_cast<int>(formula.rows),
                                 seed * 1'000'003 + static_cast<std::uint64_t>(sample)));
        tally.within += sum <= level ? 1 : 0;
        tally.below += sum <= level - 1 ? 1 : 0;
    }
    return tally;
}

} // namespace quandrel
