// SPDX-License-Identifier: MIT

#include "density/ring_convolution.h"

#include "density/shared_work.h"

#include <array>
#include <cmath>
#include <cstdint>

namespace quandrel {

namespace {

/// See LatticeDensityWithoutEdge.
struct EdgelessWeight {
    double factor = 0;
    double slope = 0;

    double operator()(double c) const { return std::exp(factor * (c - 1)) - slope * c; }
};

/// Two rings that have no weight between them.
constexpr std::int32_t kApart = -1;

/// Weights below this part of the greatest are taken as 0 if a pair of rings has no other.
constexpr double kNegligible = 1e-17;

/// Sines and cosines of the whole degrees from 0 to 360.
struct DegreeTable {
    std::array<double, kRingLength + 1> sine{};
    std::array<double, kRingLength + 1> cosine{};
};

const DegreeTable& Degrees() {
    static const DegreeTable table = [] {
        DegreeTable made;
        for (std::size_t degree = 0; degree <= kRingLength; ++degree) {
            // The east and the north of level lines: exact at whole right angles.
            const Direction level = AxisOf({0, DegToRad(static_cast<double>(degree))});
            made.sine[degree] = level.m;
            made.cosine[degree] = level.l;
        }
        return made;
    }();
    return table;
}

/// Two rings by their numbers.
struct RingPair {
    std::int32_t first = 0;
    std::int32_t second = 0;
};

/// The pairs of rings with different weights between them, and which of these each pair has.
struct RingPairs {
    std::vector<RingPair> different;
    std::vector<std::int32_t> numbers; ///< by first * rings + second; kApart for none
};

double SineOfRing(int plunge) {
    const double sine = Degrees().sine[static_cast<std::size_t>(std::abs(plunge))];
    return plunge < 0 ? -sine : sine;
}

double CosineOfRing(int plunge) {
    return Degrees().cosine[static_cast<std::size_t>(std::abs(plunge))];
}

/// The weights between a node of one ring and the nodes of another, by the difference of trend in
/// whole degrees, 0 to 180.
template <class Weight>
class RingWeights {
public:
    RingWeights(const Weight& weightOf, LineSense sense)
        : weightOf_(weightOf)
        , sense_(sense) {}

    [[nodiscard]] double At(int plunge, int otherPlunge, std::size_t trends) const {
        const double product =
            SineOfRing(plunge) * SineOfRing(otherPlunge)
            + CosineOfRing(plunge) * CosineOfRing(otherPlunge) * Degrees().cosine[trends];
        return weightOf_(sense_ == LineSense::Axes ? std::abs(product) : product);
    }

    /// The weight that no pair of nodes of the rings exceeds.
    [[nodiscard]] double Greatest(int plunge, int otherPlunge) const {
        return std::max(At(plunge, otherPlunge, 0), At(plunge, otherPlunge, kRingLength / 2));
    }

private:
    const Weight& weightOf_;
    LineSense sense_;
};

/// Weights are the same in both orders of two rings, and where both plunges have the other sign.
template <class Weight>
RingPairs PairsOf(const RingWeights<Weight>& weights, const LatticeSpectra& rows) {
    const int rings = RingsOf(rows.sense);
    const int first = FirstPlunge(rows.sense);
    const auto at = [rings](int a, int b) { return static_cast<std::size_t>(a * rings + b); };
    const double least = kNegligible * weights.Greatest(0, 0);
    RingPairs pairs;
    pairs.numbers.assign(at(rings, 0), kApart);
    for (int a = 0; a < rings; ++a) {
        for (int b = a; b < rings; ++b) {
            std::int32_t& number = pairs.numbers[at(a, b)];
            const int mirroredA = rings - 1 - b;
            const int mirroredB = rings - 1 - a;
            if (rows.sense == LineSense::Directions && mirroredA < a) {
                number = pairs.numbers[at(mirroredA, mirroredB)];
            } else if (weights.Greatest(a + first, b + first) >= least) {
                number = static_cast<std::int32_t>(pairs.different.size());
                pairs.different.push_back({a, b});
            }
            pairs.numbers[at(b, a)] = number;
        }
    }
    return pairs;
}

/// The spectra of the weights of pairs of rings, kRingFrequencies real numbers for each: rings of
/// weights are even. Two of them are transformed as one complex ring.
template <class Weight>
std::vector<double> SpectraOfWeights(const RingWeights<Weight>& weights, int firstPlunge,
                                     std::span<const RingPair> pairs, unsigned threads) {
    constexpr std::size_t kAtOnce = 2 * RingTransform::kLanes;
    std::vector<double> spectra(pairs.size() * kRingFrequencies);
    ShareRuns(pairs.size(), 8 * kAtOnce, threads, [&](std::size_t first, std::size_t end) {
        RingTransform transform;
        const auto part = [&transform](std::size_t place, std::size_t lane) -> double& {
            return lane % 2 == 0 ? transform.Real(place, lane / 2)
                                 : transform.Imaginary(place, lane / 2);
        };
        for (std::size_t from = first; from < end; from += kAtOnce) {
            const std::size_t count = std::min(kAtOnce, end - from);
            for (std::size_t lane = 0; lane < count; ++lane) {
                const RingPair& pair = pairs[from + lane];
                part(0, lane) = weights.At(pair.first + firstPlunge, pair.second + firstPlunge, 0);
                for (std::size_t trends = 1; trends < kRingFrequencies; ++trends) {
                    const double weight =
                        weights.At(pair.first + firstPlunge, pair.second + firstPlunge, trends);
                    part(trends, lane) = weight;
                    part(kRingLength - trends, lane) = weight;
                }
            }
            transform.Transform();
            for (std::size_t lane = 0; lane < count; ++lane) {
                double* const spectrum = spectra.data() + (from + lane) * kRingFrequencies;
                for (std::size_t m = 0; m < kRingFrequencies; ++m) {
                    spectrum[m] = part(m, lane);
                }
            }
        }
    });
    return spectra;
}

/// Adds the product of a real spectrum and the spectrum of a ring to a spectrum.
void AddProduct(const double* __restrict weights, const double* __restrict ring,
                double* __restrict sum) {
    for (std::size_t m = 0; m < kRingFrequencies; ++m) {
        sum[m] += weights[m] * ring[m];
    }
}

/// The densities of some rings of the lattice.
void AddRings(const RingPairs& pairs, std::span<const double> weights, const LatticeSpectra& rows,
              std::size_t firstRing, std::span<double> densities) {
    const std::size_t rings = rows.hasRows.size();
    const std::size_t count = densities.size() / kRingLength;
    std::vector<double> real(count * kRingFrequencies);
    std::vector<double> imaginary(count * kRingFrequencies);
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t ring = 0; ring < rings; ++ring) {
            const std::int32_t number = pairs.numbers[(firstRing + i) * rings + ring];
            if (number == kApart || !rows.hasRows[ring]) {
                continue;
            }
            const double* const spectrum =
                weights.data() + static_cast<std::size_t>(number) * kRingFrequencies;
            const std::size_t from = ring * kRingFrequencies;
            AddProduct(spectrum, rows.real.data() + from, real.data() + i * kRingFrequencies);
            AddProduct(spectrum, rows.imaginary.data() + from,
                       imaginary.data() + i * kRingFrequencies);
        }
    }
    RealRingsOf(real, imaginary, densities);
}

template <class Weight>
std::vector<double> DensityOf(const Weight& weightOf, const LatticeSpectra& rows,
                              unsigned threads) {
    const RingWeights<Weight> weights(weightOf, rows.sense);
    const RingPairs pairs = PairsOf(weights, rows);
    const std::vector<double> spectra =
        SpectraOfWeights(weights, FirstPlunge(rows.sense), pairs.different, threads);
    std::vector<double> densities(NodesOf(rows.sense));
    ShareRuns(rows.hasRows.size(), RingTransform::kLanes, threads,
              [&](std::size_t first, std::size_t end) {
                  AddRings(pairs, spectra, rows, first,
                           std::span(densities).subspan(first * kRingLength,
                                                        (end - first) * kRingLength));
              });
    return densities;
}

} // namespace

LatticeSpectra SpectraOf(std::span<const double> nodes, LineSense sense) {
    LatticeSpectra spectra;
    spectra.sense = sense;
    TransformRealRings(nodes, spectra.real, spectra.imaginary);
    for (std::size_t first = 0; first < nodes.size(); first += kRingLength) {
        const auto ring = nodes.subspan(first, kRingLength);
        spectra.hasRows.push_back(
            std::any_of(ring.begin(), ring.end(), [](double weight) { return weight != 0; }));
    }
    return spectra;
}

std::vector<double> LatticeDensity(const DensityFormula& formula, const LatticeSpectra& rows,
                                   unsigned threads) {
    return WithWeight(formula,
                      [&](const auto& weightOf) { return DensityOf(weightOf, rows, threads); });
}

std::vector<double> LatticeDensityWithoutEdge(const DensityFormula& formula,
                                              const LatticeSpectra& rows, unsigned threads) {
    return DensityOf(EdgelessWeight{formula.factor, EdgeOf(formula).factor}, rows, threads);
}

DensityFormula EdgeOf(const DensityFormula& formula) {
    DensityFormula edge = formula;
    edge.method = DensityMethod::KambLinear;
    edge.cosine = 0;
    edge.factor = formula.factor * std::exp(-formula.factor);
    return edge;
}

} // namespace quandrel
