// SPDX-License-Identifier: MIT

#include "density/even_maxima.h"

#include "density/density_field.h"
#include "density/even_sample.h"
#include "density/shared_work.h"
#include "density/sphere_lattice.h"
#include "orientation/direction_vectors.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cmath>
#include <cstddef>
#include <thread>
#include <utility>

namespace quandrel {

namespace {

/// Weights of less than this share of the greatest are left out.
constexpr double kLeastWeight = 1e-6;

constexpr std::size_t kClimbs = 8;    ///< how many of the densest places are climbed from
constexpr double kFirstStep = 0.25;   ///< of the half-angle
constexpr double kLastStep = 0.01;    ///< of the half-angle
constexpr double kPlacesApart = 0.35; ///< of the half-angle: distance of places in an even net

/// The cosine beyond which weights do not count.
double ReachOf(const DensityFormula& formula) {
    const double logarithm = std::log(kLeastWeight);
    switch (formula.method) {
    case DensityMethod::KambExponential:
        return 1 + logarithm / formula.factor;
    case DensityMethod::Kernel:
        return formula.sense == LineSense::Axes
                   ? std::sqrt(std::max(0.0, 1 + logarithm / formula.factor))
                   : 1 + logarithm / formula.factor;
    default:
        return formula.cosine - kCosineRounding;
    }
}

/// Places spread evenly over the lower hemisphere, on a spiral (R. Swinbank, R. J. Purser, 2006).
std::vector<Direction> EvenPlaces(std::size_t count) {
    constexpr double kGoldenTurn = 2.399963229728653;
    std::vector<Direction> places;
    for (std::size_t i = 0; i < count; ++i) {
        const double down = (static_cast<double>(i) + 0.5) / static_cast<double>(count);
        const double across = std::sqrt(1 - down * down);
        const double turn = kGoldenTurn * static_cast<double>(i);
        places.push_back({across * std::cos(turn), across * std::sin(turn), down});
    }
    return places;
}

/// Finds the greatest sum of a sample.
template <class Weight>
class Summit {
public:
    Summit(const EvenSample& sample, const Weight& weight, const DensityFormula& formula)
        : sample_(sample)
        , weight_(weight)
        , sense_(formula.sense)
        , halfAngle_(HalfAngleOf(formula)) {}

    /// The greatest sum, climbing from the densest of some places.
    [[nodiscard]] double From(std::span<const Direction> places) const {
        std::vector<Found> found;
        found.reserve(places.size());
        for (const Direction& place : places) {
            found.push_back({SumAt(place), place});
        }
        const auto climbed = static_cast<std::ptrdiff_t>(std::min(kClimbs, found.size()));
        std::partial_sort(found.begin(), found.begin() + climbed, found.end(),
                          [](const Found& a, const Found& b) { return a.sum > b.sum; });
        double greatest = 0;
        for (auto start = found.begin(); start != found.begin() + climbed; ++start) {
            greatest = std::max(greatest, Climb(*start));
        }
        return greatest;
    }

private:
    /// The place of a direction above the net: of axes the other end, of directions the nearest
    /// place of the primitive.
    [[nodiscard]] Direction OnNet(const Direction& above) const {
        return sense_ == LineSense::Axes ? Reversed(above) : Normalised({above.l, above.m, 0});
    }

    struct Found {
        double sum = 0;
        Direction at;
    };

    [[nodiscard]] double SumAt(const Direction& place) const {
        double sum = 0;
        sample_.VisitNear(place, [&](double cosine) { sum += weight_(cosine); });
        return sum;
    }

    [[nodiscard]] double Climb(Found now) const {
        constexpr std::array<std::array<int, 2>, 8> kAround = {
            {{1, 0}, {-1, 0}, {0, 1}, {0, -1}, {1, 1}, {1, -1}, {-1, 1}, {-1, -1}}};
        for (double step = kFirstStep * halfAngle_; step > kLastStep * halfAngle_;) {
            const std::array<Direction, 2> tangents = TangentsAt(now.at);
            Found best = now;
            for (const auto& [first, second] : kAround) {
                Direction next = Moved(now.at, tangents, first * step, second * step);
                if (next.n < 0) {
                    next = OnNet(next);
                }
                if (const double sum = SumAt(next); sum > best.sum) {
                    best = {sum, next};
                }
            }
            if (best.sum > now.sum) {
                now = best;
            } else {
                step /= 2;
            }
        }
        return now.sum;
    }

    const EvenSample& sample_;
    const Weight& weight_;
    LineSense sense_;
    double halfAngle_;
};

/// The greatest density of one sample of few rows.
double MaximumOfRows(const DensityFormula& formula, std::int64_t rows, RandomStream& random,
                     bool wholeDegrees, std::span<const Direction> places) {
    std::vector<Direction> drawn = EvenDirections(rows, random, wholeDegrees, formula.sense);
    std::vector<Direction> starts(places.begin(), places.end());
    if (starts.empty()) {
        const double highest = -std::sin(std::min(HalfAngleOf(formula), kPi / 2));
        for (const Direction& row : drawn) {
            if (row.n >= 0) {
                starts.push_back(row);
            } else if (row.n > highest) {
                starts.push_back(Normalised({row.l, row.m, 0}));
            }
        }
    }
    const EvenSample sample(std::move(drawn), formula.sense, ReachOf(formula));
    return WithWeight(
        formula, [&](const auto& weight) { return Summit(sample, weight, formula).From(starts); });
}

/// The same of many rows, by the numbers in cells of a lattice.
double MaximumOfCells(const DensityFormula& formula, std::int64_t rows, RandomStream& random) {
    const std::vector<DistinctLine> lines = EvenCells(rows, random, formula.sense);
    DensityRows gathered(lines, formula.sense);
    const DensityField field(gathered, formula, 1);
    const std::vector<double> nodes = field.AtNodes(1);
    // The number of rows varies by chance: the densities are those of the wanted number.
    return std::ranges::max(nodes) * static_cast<double>(rows) / gathered.Weight();
}

} // namespace

std::optional<std::vector<double>> MaximaOfEvenSamples(const DensityFormula& formula,
                                                       std::int64_t rows,
                                                       const EvenSampling& sampling) {
    std::vector<double> maxima(static_cast<std::size_t>(std::max(sampling.samples, 0)));
    const double apart = kPlacesApart * HalfAngleOf(formula);
    const auto count = static_cast<std::int64_t>(kTwoPi / (apart * apart));
    const std::vector<Direction> places =
        count < rows ? EvenPlaces(static_cast<std::size_t>(count)) : std::vector<Direction>();
    std::atomic<bool> goesOn = true;
    std::atomic<int> done = 0;
    const std::thread::id caller = std::this_thread::get_id();
    ShareRuns(maxima.size(), 1, sampling.threads, [&](std::size_t first, std::size_t end) {
        for (std::size_t i = first; i < end && goesOn; ++i) {
            RandomStream random(sampling.seed, i);
            maxima[i] = rows > kMostDrawnRows
                            ? MaximumOfCells(formula, rows, random)
                            : MaximumOfRows(formula, rows, random, sampling.wholeDegrees, places);
            ++done;
            if (sampling.onDone && std::this_thread::get_id() == caller && !sampling.onDone(done)) {
                goesOn = false;
            }
        }
    });
    if (!goesOn) {
        return std::nullopt;
    }
    std::ranges::sort(maxima);
    return maxima;
}

EnvelopeLevel EnvelopeOf(std::span<const double> maxima) {
    constexpr double kShare = 0.95;
    const auto count = static_cast<double>(maxima.size());
    // Of n values with n + 1 divisible by 20, the rank that leaves one in twenty above.
    const double rank = kShare * (count + 1);
    const double spread = std::sqrt(kShare * (1 - kShare) * count);
    const auto at = [&](double place) {
        return maxima[static_cast<std::size_t>(std::clamp(std::round(place), 1.0, count)) - 1];
    };
    return {at(rank), (at(rank + spread) - at(rank - spread)) / 2};
}

} // namespace quandrel
