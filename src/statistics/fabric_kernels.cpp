// SPDX-License-Identifier: MIT

#include "statistics/fabric_kernels.h"

#include "orientation/direction_vectors.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <numeric>

namespace quandrel {

namespace {

constexpr std::size_t kPlunges = 91;
constexpr std::size_t kTrends = 361;

/// Components smaller than this are rounding errors of 0.
constexpr double kLeastComponent = 1e-12;

/// @param whole  the size of the vector to which the component belongs
double WithoutRounding(double component, double whole = 1) {
    return std::abs(component) < kLeastComponent * whole ? 0 : component;
}

Direction WithoutRounding(const Direction& vector, double whole = 1) {
    return {WithoutRounding(vector.l, whole), WithoutRounding(vector.m, whole),
            WithoutRounding(vector.n, whole)};
}

/// The factors of the direction cosines of whole degrees.
struct DegreeCosines {
    std::array<Direction, kPlunges> toNorth; ///< lines that plunge to the north
    std::array<Direction, kTrends> level;    ///< horizontal lines
};

const DegreeCosines& CosinesOfDegrees() {
    static const DegreeCosines cosines = [] {
        DegreeCosines made;
        for (std::size_t plunge = 0; plunge < kPlunges; ++plunge) {
            made.toNorth[plunge] =
                WithoutRounding(LineToCosines(DegToRad(static_cast<double>(plunge)), 0));
        }
        for (std::size_t trend = 0; trend < kTrends; ++trend) {
            made.level[trend] =
                WithoutRounding(LineToCosines(0, DegToRad(static_cast<double>(trend))));
        }
        return made;
    }();
    return cosines;
}

/// The index of the first greatest value.
std::size_t PlaceOfGreatest(const std::array<double, 3>& values) {
    std::size_t greatest = 0;
    for (std::size_t i = 1; i < values.size(); ++i) {
        if (values[i] > values[greatest]) {
            greatest = i;
        }
    }
    return greatest;
}

/// The index of the first least value.
std::size_t PlaceOfLeast(const std::array<double, 3>& values) {
    std::size_t least = 0;
    for (std::size_t i = 1; i < values.size(); ++i) {
        if (values[i] < values[least]) {
            least = i;
        }
    }
    return least;
}

/// The indexes of three values in ascending order.
std::array<std::size_t, 3> AscendingPlaces(const std::array<double, 3>& values) {
    const std::size_t greatest = PlaceOfGreatest(values);
    const std::size_t least = PlaceOfLeast(values);
    if (greatest == least) {
        return {0, 1, 2};
    }
    return {least, 3 - greatest - least, greatest};
}

/// A vector as a unit vector that points down; a horizontal one points north or east.
Direction Downward(const Direction& vector) {
    const double length = LengthOf(vector);
    const Direction unit =
        WithoutRounding({vector.l / length, vector.m / length, vector.n / length});
    return LowerEnd(unit);
}

/// ln(a/b) of two eigenvalues; empty when one counts as 0.
double LogRatio(double a, double b) {
    return a < kLeastEigenvalue || b < kLeastEigenvalue ? kFailedResult : std::log(a / b);
}

double SquaredDifference12(const AxisSample& sample) {
    const double difference = sample.eigenvalues[1] - sample.eigenvalues[0];
    return difference * difference;
}

} // namespace

WeightedDirections DirectionsOf(std::span<const DistinctLine> lines, LinePolarity polarity) {
    const DegreeCosines& cosines = CosinesOfDegrees();
    WeightedDirections result;
    result.directions.resize(lines.size());
    result.weights.resize(lines.size());
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const DistinctLine& line = lines[i];
        const Direction& level = cosines.level[static_cast<std::size_t>(line.trend)];
        const Direction& steep = cosines.toNorth[static_cast<std::size_t>(std::abs(line.plunge))];
        const double sign = polarity == LinePolarity::kDirected && line.plunge < 0 ? -1 : 1;
        // The sums turn -0 into 0.
        result.directions[i] = {sign * steep.l * level.l + 0.0, sign * steep.l * level.m + 0.0,
                                sign * steep.n};
        result.weights[i] = line.rows;
    }
    return result;
}

WeightedDirections DirectionsOf(const RowLines& lines, LinePolarity polarity) {
    if (!lines.AreMeasured()) {
        return DirectionsOf(std::span(lines.whole), polarity);
    }
    const bool isDirected = polarity == LinePolarity::kDirected;
    WeightedDirections result;
    result.directions.resize(lines.measured.size());
    std::transform(lines.measured.begin(), lines.measured.end(), result.directions.begin(),
                   [isDirected](const MeasuredLine& line) {
                       return isDirected ? DirectionOf(line) : AxisOf(line);
                   });
    result.weights.assign(lines.measured.size(), 1);
    return result;
}

double TotalWeight(std::span<const double> weights) {
    return std::accumulate(weights.begin(), weights.end(), 0.0);
}

Direction ResultantOf(std::span<const Direction> directions, std::span<const double> weights) {
    Direction sum;
    for (std::size_t i = 0; i < directions.size(); ++i) {
        sum.l += weights[i] * directions[i].l;
        sum.m += weights[i] * directions[i].m;
        sum.n += weights[i] * directions[i].n;
    }
    return WithoutRounding(sum, TotalWeight(weights));
}

std::optional<Matrix3> OrientationTensor(std::span<const Direction> directions,
                                         std::span<const double> weights) {
    double lm = 0;
    double ln = 0;
    double mn = 0;
    double ll = 0;
    double mm = 0;
    double nn = 0;
    double total = 0;
    for (std::size_t i = 0; i < directions.size(); ++i) {
        const auto& [l, m, n] = directions[i];
        const double weight = weights[i];
        lm += weight * l * m;
        ln += weight * l * n;
        mn += weight * m * n;
        ll += weight * l * l;
        mm += weight * m * m;
        nn += weight * n * n;
        total += weight;
    }
    if (total == 0) {
        return std::nullopt;
    }
    return Matrix3{{{ll / total, lm / total, ln / total},
                    {lm / total, mm / total, mn / total},
                    {ln / total, mn / total, nn / total}}};
}

std::optional<double> FourthMoment(std::span<const Direction> directions,
                                   std::span<const double> weights, const Direction& axis) {
    double sum = 0;
    double total = 0;
    for (std::size_t i = 0; i < directions.size(); ++i) {
        const double cosine = DotProduct(directions[i], axis);
        const double square = cosine * cosine;
        sum += weights[i] * square * square;
        total += weights[i];
    }
    if (total == 0) {
        return std::nullopt;
    }
    return sum / total;
}

FabricAxes SortedAxes(const EigenSystem3& system) {
    FabricAxes sorted;
    const std::array<std::size_t, 3> places = AscendingPlaces(system.values);
    for (std::size_t i = 0; i < places.size(); ++i) {
        const std::size_t column = places[i];
        sorted.values[i] = system.values[column];
        sorted.axes[i] = Downward(
            {system.vectors[0][column], system.vectors[1][column], system.vectors[2][column]});
    }
    return sorted;
}

void AxisToLine(const Direction& axis, double& plunge, double& trend) {
    // The trend is already that of the lower end.
    CosinesToLine(axis, plunge, trend);
    plunge = std::abs(plunge);
}

void DirectedLine(const Direction& direction, double& plunge, double& trend) {
    CosinesToLine(direction, plunge, trend);
    if (direction.n < 0 && direction.l == 0 && direction.m == 0) {
        plunge = -plunge; // CosinesToLine gives straight up as straight down
    }
}

FabricShape ShapeOf(const std::array<double, 3>& eigenvalues) {
    const auto [e1, e2, e3] = eigenvalues;
    FabricShape shape;
    shape.ratio12 = LogRatio(e2, e1);
    shape.ratio23 = LogRatio(e3, e2);
    shape.zeta = LogRatio(e3, e1);
    // Equal eigenvalues differ by rounding; such a small difference must not be a divisor.
    const bool hasRatios = shape.ratio12 != kFailedResult && shape.ratio23 != kFailedResult;
    if (hasRatios && e2 - e1 >= kLeastEigenvalue) {
        shape.gamma = shape.ratio23 / shape.ratio12;
    }
    return shape;
}

double SymmetryStatistic(const AxisSample& sample) {
    // Kept: E3 has no factor 2 here, unlike in the textbook.
    const double divisor = 1 - sample.eigenvalues[2] + sample.fourthMoment;
    return divisor == 0 ? kFailedResult : 2 * sample.count * SquaredDifference12(sample) / divisor;
}

double TextbookSymmetryStatistic(const AxisSample& sample) {
    const double above = 2 * sample.count * SquaredDifference12(sample);
    const double divisor = 1 - 2 * sample.eigenvalues[2] + sample.fourthMoment;
    if (divisor > kLeastComponent) {
        return above / divisor;
    }
    return above > kLeastComponent ? std::numeric_limits<double>::infinity() : 0;
}

bool IsSymmetricAboutAxis(const AxisSample& sample, Formulas formulas) {
    const double statistic = formulas == Formulas::Textbook ? TextbookSymmetryStatistic(sample)
                                                            : SymmetryStatistic(sample);
    return !(statistic > kSymmetryLimit);
}

std::optional<AxisSample> AxisSampleOf(const WeightedDirections& axes) {
    const auto tensor = OrientationTensor(axes.directions, axes.weights);
    if (!tensor) {
        return std::nullopt;
    }
    const FabricAxes sorted = SortedAxes(SymmetricEigen3(*tensor));
    return AxisSample{TotalWeight(axes.weights), sorted.values,
                      FourthMoment(axes.directions, axes.weights, sorted.axes[2]).value_or(0)};
}

bool IsAxisDetermined(const std::array<double, 3>& eigenvalues, std::size_t axis) {
    const double own = eigenvalues.at(axis - 1);
    const bool isAboveLower = axis == 1 || own - eigenvalues[axis - 2] >= kLeastEigenvalue;
    return isAboveLower && (axis == 3 || eigenvalues[axis] - own >= kLeastEigenvalue);
}

double SphericalStandardError(const AxisSample& sample) {
    const double scatter = sample.eigenvalues[2] - sample.fourthMoment;
    const double divisor = sample.eigenvalues[2] - sample.eigenvalues[1];
    if (sample.count <= 1 || divisor < kLeastEigenvalue || scatter < -kLeastEigenvalue) {
        return kFailedResult;
    }
    return scatter < kLeastEigenvalue ? 0 : std::sqrt(scatter / sample.count) / divisor;
}

} // namespace quandrel
