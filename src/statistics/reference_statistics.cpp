// SPDX-License-Identifier: MIT

#include "statistics/reference_statistics.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "orientation/concentration.h"
#include "orientation/direction_vectors.h"
#include "orientation/eigen.h"
#include "statistics/fabric_kernels.h"

#include <algorithm>
#include <cmath>

namespace quandrel {

namespace {

/// A value smaller than this, relative to 1, is a rounding error of doubles.
constexpr double kRounding = 1e-12;

double WithoutRounding(double value) {
    return std::abs(value) < kRounding ? 0 : value;
}

/// The value, or 1 if it differs only by rounding.
double SettledAtOne(double value) {
    return 1 - WithoutRounding(1 - value);
}

/// Eigenvalues count as equal if they differ by less than the printed ones can show.
bool Tie(double e, double greater) {
    return greater - e < kLeastEigenvalue;
}

std::optional<double> LogOfQuotient(double above, double below) {
    if (below == 0 || Tie(below, above)) {
        return std::nullopt;
    }
    return std::log(above / below);
}

/// Removes rounding errors from ascending eigenvalues: from 0 and 1, and between equal ones.
std::array<double, 3> SettledEigenvalues(std::array<double, 3> values) {
    for (double& value : values) {
        value = WithoutRounding(SettledAtOne(value));
    }
    for (std::size_t i = 1; i < values.size(); ++i) {
        if (WithoutRounding(values[i] - values[i - 1]) == 0) {
            values[i] = values[i - 1];
        }
    }
    return values;
}

void FindAxes(ReferenceStatistics& result, const Matrix3& tensor) {
    const FabricAxes sorted = SortedAxes(SymmetricEigen3(tensor));
    result.eigenvalues = SettledEigenvalues(sorted.values);
    result.axes = sorted.axes;
    const bool lowTie = Tie(result.eigenvalues[0], result.eigenvalues[1]);
    const bool highTie = Tie(result.eigenvalues[1], result.eigenvalues[2]);
    result.hasAxis = {!lowTie, !lowTie && !highTie, !highTie};
}

void FindAxialMean(ReferenceStatistics& result, const WeightedDirections& axes) {
    const Direction resultant = ResultantOf(axes.directions, axes.weights);
    result.axialResultantLength = SettledAtOne(LengthOf(resultant) / result.count);
    result.axialPlunge = kNoDirection;
    result.axialTrend = kNoDirection;
    if (result.axialResultantLength >= kLeastMeanLength) {
        AxisToLine(resultant, result.axialPlunge, result.axialTrend);
    }
}

void FindShape(ReferenceStatistics& result) {
    const auto [e1, e2, e3] = result.eigenvalues;
    result.logRatio12 = LogOfQuotient(e2, e1);
    result.logRatio23 = LogOfQuotient(e3, e2);
    result.zeta = LogOfQuotient(e3, e1);
    if (result.logRatio12 && result.logRatio23) {
        result.gamma = *result.logRatio23 / *result.logRatio12;
    }
}

void FindSymmetry(ReferenceStatistics& result, const WeightedDirections& axes) {
    if (!result.hasAxis[2]) {
        return;
    }
    const double moment = FourthMoment(axes.directions, axes.weights, result.axes[2]).value_or(0);
    result.fourthMoment = moment;
    result.symmetryStatistic =
        TextbookSymmetryStatistic({result.count, result.eigenvalues, moment});
    if (result.count > 1) {
        const double scatter = std::max(WithoutRounding(result.eigenvalues[2] - moment), 0.0);
        result.standardError =
            std::sqrt(scatter / result.count) / (result.eigenvalues[2] - result.eigenvalues[1]);
        const double sine = std::sqrt(kSymmetryLimit / 2) * *result.standardError;
        if (sine < 1) {
            result.coneAngle = std::asin(sine);
        }
    }
}

/// The covariances of the axis's deviations toward e1 and e2, in radians squared.
struct AxisCovariance {
    double toward1 = 0;
    double toward2 = 0;
    double mixed = 0;
};

AxisCovariance CovarianceOf(const WeightedDirections& rows, const ReferenceStatistics& result) {
    AxisCovariance sum;
    for (std::size_t i = 0; i < rows.directions.size(); ++i) {
        const double along1 = DotProduct(rows.directions[i], result.axes[0]);
        const double along2 = DotProduct(rows.directions[i], result.axes[1]);
        const double along3 = DotProduct(rows.directions[i], result.axes[2]);
        const double weight = rows.weights[i] * along3 * along3;
        sum.toward1 += weight * along1 * along1;
        sum.toward2 += weight * along2 * along2;
        sum.mixed += weight * along1 * along2;
    }
    const double gap1 = result.eigenvalues[2] - result.eigenvalues[0];
    const double gap2 = result.eigenvalues[2] - result.eigenvalues[1];
    const double squaredCount = result.count * result.count;
    return {sum.toward1 / (squaredCount * gap1 * gap1), sum.toward2 / (squaredCount * gap2 * gap2),
            sum.mixed / (squaredCount * gap1 * gap2)};
}

/// The 95% confidence ellipse of the axis: chi-square with two degrees of freedom.
void FindEllipse(ReferenceStatistics& result, const WeightedDirections& rows) {
    if (result.count <= 1 || !result.hasAxis[2]) {
        return;
    }
    const AxisCovariance covariance = CovarianceOf(rows, result);
    const double mean = (covariance.toward1 + covariance.toward2) / 2;
    const double half = (covariance.toward1 - covariance.toward2) / 2;
    const double radius = std::hypot(half, covariance.mixed);
    ConfidenceEllipse ellipse;
    ellipse.major = ArcSin(std::sqrt(kSymmetryLimit * (mean + radius)));
    const double least = mean - radius > kRounding * mean ? mean - radius : 0;
    ellipse.minor = ArcSin(std::sqrt(kSymmetryLimit * least));
    const double turn = std::atan2(covariance.mixed, half) / 2;
    const Direction& axis1 = result.axes[0];
    const Direction& axis2 = result.axes[1];
    Direction major = {std::cos(turn) * axis1.l + std::sin(turn) * axis2.l,
                       std::cos(turn) * axis1.m + std::sin(turn) * axis2.m,
                       std::cos(turn) * axis1.n + std::sin(turn) * axis2.n};
    if (major.n < 0) {
        major = Reversed(major);
    }
    ellipse.majorDirection = major;
    result.ellipse = ellipse;
}

FisherStatistics FisherOf(const WeightedDirections& rows, double count) {
    FisherStatistics fisher{kNoDirection, kNoDirection, 0, {}, {}};
    const Direction resultant = ResultantOf(rows.directions, rows.weights);
    const double length = LengthOf(resultant);
    if (length >= kLeastMeanLength * count) {
        fisher.resultant = SettledAtOne(length / count) * count;
        DirectedLine(resultant, fisher.plunge, fisher.trend);
    }
    if (fisher.resultant < count) {
        fisher.kappa = (count - 1) / (count - fisher.resultant);
        fisher.kappaMaximumLikelihood = FisherKappaOf(fisher.resultant / count);
    }
    return fisher;
}

/// The mean resultant length of a precision parameter.
double MeanLengthOf(double kappa) {
    if (kappa < 1e-3) {
        return kappa / 3 - kappa * kappa * kappa / 45; // the series, where the two terms cancel
    }
    return 1 / std::tanh(kappa) - 1 / kappa;
}

} // namespace

std::optional<ReferenceStatistics> ReferenceStatisticsOf(const WeightedDirections& axes,
                                                         const WeightedDirections* polar) {
    const auto tensor = OrientationTensor(axes.directions, axes.weights);
    if (!tensor) {
        return std::nullopt;
    }
    ReferenceStatistics result;
    result.count = TotalWeight(axes.weights);
    FindAxes(result, *tensor);
    FindAxialMean(result, axes);
    FindShape(result);
    FindSymmetry(result, axes);
    FindEllipse(result, axes);
    if (polar != nullptr) {
        result.fisher = FisherOf(*polar, result.count);
    }
    return result;
}

std::optional<ReferenceStatistics> ComputeReferenceStatistics(std::span<const DistinctLine> lines,
                                                              RowSense sense) {
    return ReferenceStatisticsOfLines({{lines.begin(), lines.end()}, {}, {}}, sense);
}

std::optional<ReferenceStatistics> ReferenceStatisticsOfLines(const RowLines& lines,
                                                              RowSense sense) {
    WeightedDirections polar;
    if (sense == RowSense::kPolarLines) {
        polar = DirectionsOf(lines, LinePolarity::kDirected);
    }
    return ReferenceStatisticsOf(DirectionsOf(lines, LinePolarity::kAxial),
                                 sense == RowSense::kPolarLines ? &polar : nullptr);
}

std::optional<ReferenceStatistics> ReferenceStatisticsOfActivePlot() {
    return ReferenceStatisticsOfLines(MeasuredStatisticsLinesOf(ActivePlot(), gSettings.styles),
                                      ActiveRecord().DataKind == kPolarLines ? RowSense::kPolarLines
                                                                             : RowSense::kAxes);
}

double FisherKappaOf(double meanLength) {
    return ConcentrationOf(MeanLengthOf, meanLength);
}

} // namespace quandrel
