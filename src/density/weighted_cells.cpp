// SPDX-License-Identifier: MIT

#include "density/weighted_cells.h"

#include "orientation/direction_vectors.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace quandrel {

namespace {

constexpr double kDegreesPerRadian = 180 / kPi;

/// The arcs of rings are trusted to this, in radians.
constexpr double kDoubtOfArc = 2e-5;

/// Products of sines and cosines are trusted to this.
constexpr double kRounding = 1e-12;

/// Of rings with a smaller product of cosines no arc is computed: all of it may be on the border.
constexpr double kLeastProduct = 1e-6;

/// Added to the distances of rows from the middles of their cells, radians.
constexpr double kDoubtOfRadius = 1e-8;

/// 1 - cos of the cones in which totals of linear and of square weights lose too many digits, which
/// is in proportion to the second and the fourth power of the angle, and to the rows in the cone.
constexpr double kLowLinearCap = 6.0917298090423787e-4; // 2 degrees
constexpr double kLowSquareCap = 5.4781046317266712e-3; // 6 degrees

/// -ln of the weight of KambExponential that is left out.
constexpr double kLeftOutExponent = 25.4;

constexpr auto kTurn = static_cast<std::ptrdiff_t>(kRingLength);

/// The cosine of the farthest row that can count.
double ReachCosine(const DensityFormula& formula) {
    if (formula.method == DensityMethod::KambExponential) {
        const double least = formula.sense == LineSense::Axes ? 0 : -1;
        return std::max(1 - kLeftOutExponent / formula.factor, least);
    }
    return formula.cosine;
}

/// Whether the cells inside the cone are taken by totals.
bool TakesTotals(const DensityFormula& formula) {
    switch (formula.method) {
    case DensityMethod::Cone:
    case DensityMethod::Kamb:
        return true;
    case DensityMethod::KambLinear:
        return 1 - formula.cosine > kLowLinearCap;
    case DensityMethod::KambSquare:
        return 1 - formula.cosine > kLowSquareCap;
    case DensityMethod::KambExponential:
    case DensityMethod::Kernel:
        break;
    }
    return false;
}

} // namespace

/// An end of the axis through a place, or its only one.
struct WeightedCells::End {
    Direction direction;
    LatticePlace place; ///< below plunge 0 for the upper end of an axis
    double sine = std::sin(place.plunge / kDegreesPerRadian);
    double cosine = std::cos(place.plunge / kDegreesPerRadian);
};

/// The cone that rows count in.
struct WeightedCells::Reach {
    double angle = 0;
    double cosine = 1;
    double sine = 0;
    bool takesTotals = false;
};

/// The cells of a ring from `first` to before `end` may have rows within the cone, those from
/// `firstInside` to before `endInside` have no others. From one turn below the ring to one above.
struct WeightedCells::Arc {
    std::ptrdiff_t first = 0;
    std::ptrdiff_t firstInside = 0;
    std::ptrdiff_t endInside = 0;
    std::ptrdiff_t end = 0;

    /// Takes the cells up to a distance from a middle; none of them is inside.
    void SetOuter(double middle, double halfWidth) {
        first = static_cast<std::ptrdiff_t>(std::ceil(middle - halfWidth));
        end = static_cast<std::ptrdiff_t>(std::floor(middle + halfWidth)) + 1;
        end = std::min(end, first + kTurn);
        firstInside = end;
        endInside = end;
    }

    /// Those up to a lesser distance are inside.
    void SetInner(double middle, double halfWidth) {
        const auto from = static_cast<std::ptrdiff_t>(std::ceil(middle - halfWidth));
        const auto to = static_cast<std::ptrdiff_t>(std::floor(middle + halfWidth)) + 1;
        if (from < to) {
            firstInside = std::max(from, first);
            endInside = std::min(to, end);
        }
    }
};

/// The sum of a weight over rows within the cone, from their totals.
class WeightedCells::Inside {
public:
    Inside(const DensityFormula& formula, const Direction& place)
        : method_(formula.method)
        , cosine_(formula.cosine)
        , factor_(formula.factor)
        , place_(place) {}

    [[nodiscard]] double Sum(const WeightedCells& cells, std::size_t first, std::size_t end) const {
        const double weight = cells.weightTotals_[end] - cells.weightTotals_[first];
        if (method_ == DensityMethod::Cone || method_ == DensityMethod::Kamb || weight == 0) {
            return weight;
        }
        const Direction& to = cells.vectorTotals_[end];
        const Direction& from = cells.vectorTotals_[first];
        const double linear =
            (to.l - from.l) * place_.l + (to.m - from.m) * place_.m + (to.n - from.n) * place_.n;
        if (method_ == DensityMethod::KambLinear) {
            return factor_ * (linear - cosine_ * weight);
        }
        const double square = Square(cells.productTotals_[first], cells.productTotals_[end]);
        return factor_ * (square - 2 * cosine_ * linear + cosine_ * cosine_ * weight);
    }

private:
    [[nodiscard]] double Square(const std::array<double, 6>& from,
                                const std::array<double, 6>& to) const {
        const auto [l, m, n] = place_;
        return l * l * (to[0] - from[0]) + m * m * (to[1] - from[1]) + n * n * (to[2] - from[2])
               + 2
                     * (l * m * (to[3] - from[3]) + l * n * (to[4] - from[4])
                        + m * n * (to[5] - from[5]));
    }

    DensityMethod method_;
    double cosine_;
    double factor_;
    Direction place_;
};

WeightedCells::WeightedCells(std::span<const MeasuredLine> rows, std::span<const double> rowWeights,
                             LineSense sense)
    : sense_(sense)
    , rings_(static_cast<std::size_t>(RingsOf(sense)))
    , starts_(NodesOf(sense) + 1)
    , rows_(rows.size()) {
    std::vector<std::size_t> cells(rows.size());
    for (std::size_t row = 0; row < rows.size(); ++row) {
        cells[row] = NearestNode(LatticePlaceOf(rows[row], sense), sense);
        ++starts_[cells[row]];
    }
    std::inclusive_scan(starts_.begin(), starts_.end(), starts_.begin());
    // From the last row to the first, so that those of a cell keep their order.
    for (std::size_t row = rows.size(); row-- > 0;) {
        const MeasuredLine& line = rows[row];
        rows_[--starts_[cells[row]]] = {sense == LineSense::Axes ? AxisOf(line) : DirectionOf(line),
                                        rowWeights[row]};
    }
    FindRings(rows);
    AddTotals();
}

void WeightedCells::FindRings(std::span<const MeasuredLine> rows) {
    for (const MeasuredLine& row : rows) {
        const LatticePlace place = LatticePlaceOf(row, sense_);
        double& radius = rings_[NearestNode(place, sense_) / kRingLength].radius;
        const auto fromMiddle = [](double degrees) {
            return std::abs(degrees - RoundToEven(degrees)) / kDegreesPerRadian;
        };
        // With the cosine of a plunge that neither the row nor the ring is below.
        const double least = std::max(std::abs(place.plunge) - 0.5, 0.0) / kDegreesPerRadian;
        radius = std::max(radius, std::hypot(fromMiddle(place.plunge),
                                             std::cos(least) * fromMiddle(place.trend)));
    }
    double plunge = FirstPlunge(sense_);
    for (Ring& ring : rings_) {
        ring.radius += kDoubtOfRadius;
        ring.sine = std::sin(plunge / kDegreesPerRadian);
        ring.cosine = std::cos(plunge / kDegreesPerRadian);
        ring.sineOfRadius = std::sin(ring.radius);
        ring.cosineOfRadius = std::cos(ring.radius);
        plunge += 1;
    }
}

void WeightedCells::AddTotals() {
    for (std::size_t ring = 0; ring < rings_.size(); ++ring) {
        double weight = 0;
        Direction vector;
        std::array<double, 6> products{};
        for (std::size_t trend = 0; trend <= kRingLength; ++trend) {
            weightTotals_.push_back(weight);
            vectorTotals_.push_back(vector);
            productTotals_.push_back(products);
            if (trend == kRingLength) {
                break;
            }
            const std::size_t cell = ring * kRingLength + trend;
            for (std::size_t i = starts_[cell]; i < starts_[cell + 1]; ++i) {
                const auto [l, m, n] = rows_[i].direction;
                const double share = rows_[i].weight;
                weight += share;
                vector = {vector.l + share * l, vector.m + share * m, vector.n + share * n};
                const std::array<double, 6> more = {l * l, m * m, n * n, l * m, l * n, m * n};
                for (std::size_t place = 0; place < more.size(); ++place) {
                    products[place] += share * more[place];
                }
            }
        }
    }
}

bool WeightedCells::FindArc(const End& end, const Reach& reach, const Ring& ring, Arc& arc) const {
    const double height = end.sine * ring.sine;
    const double product = end.cosine * ring.cosine;
    const bool isAll = reach.angle + ring.radius >= kPi;
    const bool mayBeInside = reach.takesTotals && reach.angle > ring.radius;
    const double outer = reach.cosine * ring.cosineOfRadius - reach.sine * ring.sineOfRadius;
    const double inner = reach.cosine * ring.cosineOfRadius + reach.sine * ring.sineOfRadius;
    if (!isAll && height + product < outer - kRounding) {
        return false;
    }
    if (mayBeInside && height - product > inner + kRounding) {
        arc = {0, 0, kTurn, kTurn};
        return true;
    }
    arc = {0, kTurn, kTurn, kTurn};
    if (product < kLeastProduct) {
        return true;
    }
    const auto halfWidth = [&](double cosine, double doubt) {
        const double quotient = std::clamp((cosine - height) / product, -1.0, 1.0);
        return (std::acos(quotient) + doubt) * kDegreesPerRadian;
    };
    const double middle = end.place.trend;
    const double whole = 0.5 * static_cast<double>(kTurn);
    const double width = isAll ? whole : halfWidth(outer, kDoubtOfArc);
    arc.SetOuter(middle, std::min(width, whole));
    if (mayBeInside && height + product > inner) {
        arc.SetInner(middle, halfWidth(inner, -kDoubtOfArc));
    }
    return true;
}

/// Calls a function for the runs of cells of an arc that do not pass north.
///
/// @param visit  takes the numbers of the first cell in the ring and of that after the last
template <class Visit>
void SplitAtNorth(std::ptrdiff_t first, std::ptrdiff_t end, Visit visit) {
    while (first < end) {
        const std::ptrdiff_t place = ((first % kTurn) + kTurn) % kTurn;
        const std::ptrdiff_t count = std::min(end - first, kTurn - place);
        visit(static_cast<std::size_t>(place), static_cast<std::size_t>(place + count));
        first += count;
    }
}

template <class Weight>
double WeightedCells::SumInRun(const Weight& weightOf, const Direction& place,
                               std::size_t firstCell, std::size_t endCell) const {
    double sum = 0;
    for (std::size_t i = starts_[firstCell]; i < starts_[endCell]; ++i) {
        const auto& [direction, weight] = rows_[i];
        sum += weight * weightOf(DotProduct(direction, place));
    }
    return sum;
}

template <class Weight>
double WeightedCells::SumOfArc(const Weight& weightOf, const Inside& inside, const Direction& place,
                               std::size_t ring, const Arc& arc) const {
    double sum = 0;
    const auto addBorder = [&](std::size_t first, std::size_t end) {
        sum += SumInRun(weightOf, place, ring * kRingLength + first, ring * kRingLength + end);
    };
    SplitAtNorth(arc.first, arc.firstInside, addBorder);
    SplitAtNorth(arc.firstInside, arc.endInside, [&](std::size_t first, std::size_t end) {
        const std::size_t total = ring * (kRingLength + 1);
        sum += inside.Sum(*this, total + first, total + end);
    });
    SplitAtNorth(arc.endInside, arc.end, addBorder);
    return sum;
}

template <class Weight>
double WeightedCells::SumAtEnd(const Weight& weightOf, const DensityFormula& formula,
                               const Reach& reach, const End& end) const {
    const Inside inside(formula, end.direction);
    const double widest =
        reach.angle * kDegreesPerRadian + 1; // the radius of a cell is less than 1
    const auto ringAt = [this](double plunge) {
        const double ring = plunge - FirstPlunge(sense_);
        return std::clamp(ring, -1.0, static_cast<double>(rings_.size()));
    };
    const auto first =
        static_cast<std::size_t>(std::max(std::ceil(ringAt(end.place.plunge - widest)), 0.0));
    const auto last = static_cast<std::ptrdiff_t>(std::floor(ringAt(end.place.plunge + widest)));
    double sum = 0;
    Arc arc;
    for (std::size_t ring = first;
         static_cast<std::ptrdiff_t>(ring) <= last && ring < rings_.size(); ++ring) {
        const bool hasRows = starts_[ring * kRingLength] < starts_[(ring + 1) * kRingLength];
        if (hasRows && FindArc(end, reach, rings_[ring], arc)) {
            sum += SumOfArc(weightOf, inside, end.direction, ring, arc);
        }
    }
    return sum;
}

double WeightedCells::At(const DensityFormula& formula, const MeasuredLine& place) const {
    Reach reach;
    reach.cosine = ReachCosine(formula);
    reach.angle = ArcCos(reach.cosine);
    reach.sine = std::sin(reach.angle);
    reach.takesTotals = TakesTotals(formula);
    const LatticePlace at = LatticePlaceOf(place, sense_);
    return WithWeight(formula, [&](const auto& weightOf) {
        if (sense_ == LineSense::Directions) {
            return SumAtEnd(weightOf, formula, reach, {DirectionOf(place), at});
        }
        // Each end has the rows on its own side; those between them are taken once.
        const auto ofSide = [&weightOf](double c) { return c >= 0 ? weightOf(c) : 0; };
        const auto ofOtherSide = [&weightOf](double c) { return c > 0 ? weightOf(c) : 0; };
        const Direction axis = AxisOf(place);
        const LatticePlace opposite{-at.plunge, at.trend < 180 ? at.trend + 180 : at.trend - 180};
        return SumAtEnd(ofSide, formula, reach, {axis, at})
               + SumAtEnd(ofOtherSide, formula, reach, {Reversed(axis), opposite});
    });
}

} // namespace quandrel
