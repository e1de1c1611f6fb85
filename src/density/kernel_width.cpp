// SPDX-License-Identifier: MIT

#include "density/kernel_width.h"

#include "density/ring_convolution.h"
#include "density/shared_work.h"
#include "density/sphere_lattice.h"
#include "orientation/direction_vectors.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace quandrel {

namespace {

/// Rows with a direction, and the whole degrees that they are left out with.
struct PlacedRows {
    LineSense sense = LineSense::Axes;
    std::vector<Direction> directions;
    std::vector<double> weights;
    std::vector<std::size_t> nodes;

    [[nodiscard]] std::size_t size() const { return weights.size(); }

    void Add(const MeasuredLine& line, double weight, std::size_t node) {
        if (weight > 0) {
            directions.push_back(sense == LineSense::Axes ? AxisOf(line) : DirectionOf(line));
            weights.push_back(weight);
            nodes.push_back(node);
        }
    }
};

/// The node of a line, one for all nodes at the same place: those of a pole, and of axes those that
/// are opposite on the rim.
std::size_t NodeOf(const MeasuredLine& line, LineSense sense) {
    const std::size_t node = NearestNode(LatticePlaceOf(line, sense), sense);
    const std::size_t ring = node / kRingLength;
    const auto last = static_cast<std::size_t>(RingsOf(sense)) - 1;
    if (ring == last || (ring == 0 && sense == LineSense::Directions)) {
        return ring * kRingLength;
    }
    return ring == 0 ? node % (kRingLength / 2) : node;
}

/// The exponent of the kernel between two rows for a kappa of 1.
double ExponentBetween(const PlacedRows& rows, std::size_t a, std::size_t b) {
    const Direction& from = rows.directions[a];
    const Direction& to = rows.directions[b];
    const double c = DotProduct(from, to);
    return rows.sense == LineSense::Axes ? c * c - 1 : c - 1;
}

/// ExponentBetween a row and the nearest one with another node.
double NearestExponent(const PlacedRows& rows, std::size_t row) {
    double nearest = -2;
    for (std::size_t other = 0; other < rows.size(); ++other) {
        if (rows.nodes[other] != rows.nodes[row]) {
            nearest = std::max(nearest, ExponentBetween(rows, row, other));
        }
    }
    return nearest;
}

/// The logarithm of the density at a row of those with other nodes, for a scale of 1. The sum is
/// relative to the nearest of them: its terms may be too small for a number.
///
/// @param nearest  NearestExponent
double LogOfOthers(const PlacedRows& rows, std::size_t row, double nearest, double kappa) {
    constexpr double kFar = 40; // exp(-kFar) does not show in a sum
    double sum = 0;
    for (std::size_t other = 0; other < rows.size(); ++other) {
        const double exponent = kappa * (ExponentBetween(rows, row, other) - nearest);
        if (exponent > -kFar && rows.nodes[other] != rows.nodes[row]) {
            sum += rows.weights[other] * std::exp(exponent);
        }
    }
    return kappa * nearest + std::log(sum);
}

double WeightedSum(const PlacedRows& rows, std::span<const double> logarithms) {
    double sum = 0;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        sum += rows.weights[row] * logarithms[row];
    }
    return sum;
}

/// The logarithm of the likelihood, pair by pair, less what does not depend on kappa.
class PairLikelihood {
public:
    PairLikelihood(const PlacedRows& rows, unsigned threads)
        : rows_(rows)
        , threads_(threads)
        , nearest_(rows.size()) {
        ShareRuns(rows.size(), 16, threads, [&](std::size_t first, std::size_t end) {
            for (std::size_t row = first; row < end; ++row) {
                nearest_[row] = NearestExponent(rows, row);
            }
        });
    }

    double operator()(double kappa) const {
        const double logOfScale = std::log(KernelScale(kappa, rows_.sense));
        std::vector<double> logarithms(rows_.size());
        ShareRuns(rows_.size(), 16, threads_, [&](std::size_t first, std::size_t end) {
            for (std::size_t row = first; row < end; ++row) {
                logarithms[row] = logOfScale + LogOfOthers(rows_, row, nearest_[row], kappa);
            }
        });
        return WeightedSum(rows_, logarithms);
    }

private:
    const PlacedRows& rows_;
    unsigned threads_;
    std::vector<double> nearest_;
};

/// The same of rows at nodes, one for each node, from the densities at all nodes.
class LatticeLikelihood {
public:
    LatticeLikelihood(const PlacedRows& rows, unsigned threads)
        : rows_(rows)
        , threads_(threads) {
        std::vector<double> nodes(NodesOf(rows.sense));
        for (std::size_t row = 0; row < rows.size(); ++row) {
            nodes[rows.nodes[row]] += rows.weights[row];
        }
        spectra_ = SpectraOf(nodes, rows.sense);
    }

    double operator()(double kappa) const {
        DensityChoice choice{DensityMethod::Kernel, rows_.sense};
        choice.halfWidth = HalfWidthOfKappa(kappa, rows_.sense);
        const DensityFormula formula = FormulaOf(choice, 0);
        const std::vector<double> densities = LatticeDensity(formula, spectra_, threads_);
        // Less than this part of the greatest density has too few digits.
        constexpr double kLeastPart = 1e-7;
        const double least = kLeastPart * *std::max_element(densities.begin(), densities.end());
        std::vector<double> logarithms(rows_.size());
        ShareRuns(rows_.size(), 16, threads_, [&](std::size_t first, std::size_t end) {
            for (std::size_t row = first; row < end; ++row) {
                const double ofOthers =
                    densities[rows_.nodes[row]] - rows_.weights[row] * formula.scale;
                logarithms[row] =
                    ofOthers > least
                        ? std::log(ofOthers)
                        : std::log(formula.scale)
                              + LogOfOthers(rows_, row, NearestExponent(rows_, row), kappa);
            }
        });
        return WeightedSum(rows_, logarithms);
    }

private:
    const PlacedRows& rows_;
    unsigned threads_;
    LatticeSpectra spectra_;
};

/// The place of a maximum, and the value there.
struct Maximum {
    double place = 0;
    double value = 0;
};

/// The best of equal steps between two limits.
template <class Function>
Maximum BestStep(const Function& valueAt, double low, double high, int steps) {
    Maximum best{low, valueAt(low)};
    for (int i = 1; i <= steps; ++i) {
        const double place = low + (high - low) * i / steps;
        if (const double value = valueAt(place); value > best.value) {
            best = {place, value};
        }
    }
    return best;
}

/// The place of the maximum between two limits: that of the parabola through the best place and its
/// two neighbours, again and again with a tenth of the distance.
template <class Function>
double PlaceOfMaximum(const Function& valueAt, double low, double high) {
    constexpr int kSteps = 16;
    constexpr double kShrink = 10;
    constexpr double kFinest = 1e-3; // the parabola is then off by the square of some times this
    Maximum best = BestStep(valueAt, low, high, kSteps);
    double step = (high - low) / kSteps;
    while (step > kFinest) {
        const Maximum before{best.place - step,
                             best.place - step < low ? -HUGE_VAL : valueAt(best.place - step)};
        const Maximum after{best.place + step,
                            best.place + step > high ? -HUGE_VAL : valueAt(best.place + step)};
        if (const Maximum& better = before.value > after.value ? before : after;
            better.value > best.value) {
            best = better;
            continue;
        }
        const double bend = 2 * best.value - before.value - after.value;
        if (std::isfinite(bend) && bend > 0) {
            best.place += step * (after.value - before.value) / (2 * bend);
            best.value = valueAt(best.place);
        }
        step /= kShrink;
    }
    return best.place;
}

template <class Likelihood>
double MostLikely(const Likelihood& likelihood, LineSense sense) {
    const double low = KappaOfHalfWidth(kLargestKernelWidth, sense);
    const double high = KappaOfHalfWidth(kSmallestKernelWidth, sense);
    const auto ofLogarithm = [&](double logarithm) {
        return likelihood(std::clamp(std::exp(logarithm), low, high));
    };
    const double place = PlaceOfMaximum(ofLogarithm, std::log(low), std::log(high));
    return std::clamp(std::exp(place), low, high);
}

/// One row for each node that has rows, at the node.
PlacedRows AtNodes(const PlacedRows& rows) {
    std::vector<double> weights(NodesOf(rows.sense));
    for (std::size_t row = 0; row < rows.size(); ++row) {
        weights[rows.nodes[row]] += rows.weights[row];
    }
    PlacedRows placed;
    placed.sense = rows.sense;
    for (std::size_t node = 0; node < weights.size(); ++node) {
        placed.Add(LineOfNode(node, rows.sense), weights[node], node);
    }
    return placed;
}

std::optional<double> LikelyKappaOf(const PlacedRows& rows, unsigned threads) {
    const auto isElsewhere = [&rows](std::size_t node) { return node != rows.nodes.front(); };
    if (std::none_of(rows.nodes.begin(), rows.nodes.end(), isElsewhere)) {
        return std::nullopt;
    }
    if (rows.size() <= kMostMeasuredRows) {
        return MostLikely(PairLikelihood(rows, threads), rows.sense);
    }
    const PlacedRows atNodes = AtNodes(rows);
    return MostLikely(LatticeLikelihood(atNodes, threads), rows.sense);
}

} // namespace

std::optional<double> LikelyKappa(std::span<const MeasuredLine> rows,
                                  std::span<const double> rowWeights, LineSense sense,
                                  unsigned threads) {
    PlacedRows placed;
    placed.sense = sense;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        placed.Add(rows[row], rowWeights.empty() ? 1 : rowWeights[row], NodeOf(rows[row], sense));
    }
    return LikelyKappaOf(placed, threads);
}

std::optional<double> LikelyKappa(std::span<const DistinctLine> lines, LineSense sense,
                                  unsigned threads) {
    PlacedRows placed;
    placed.sense = sense;
    for (const DistinctLine& line : lines) {
        const MeasuredLine measured{DegToRad(line.plunge), DegToRad(line.trend)};
        placed.Add(measured, line.rows, NodeOf(measured, sense));
    }
    return LikelyKappaOf(placed, threads);
}

} // namespace quandrel
