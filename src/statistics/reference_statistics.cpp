// SPDX-License-Identifier: MIT

#include "statistics/reference_statistics.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "orientation/eigen.h"
#include "orientation/number_text.h"
#include "statistics/fabric_kernels.h"
#include "statistics/fabric_statistics.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace quandrel {

namespace {

/// Eigenvalues, and their differences, below this are rounding of doubles.
constexpr double kRounding = 1e-12;

double Dot(const Direction& a, const Direction& b) {
    return a.l * b.l + a.m * b.m + a.n * b.n;
}

std::optional<double> LogOfQuotient(double above, double below) {
    if (above < kRounding || below < kRounding) {
        return std::nullopt;
    }
    return std::log(above / below);
}

void FindShape(ReferenceStatistics& result) {
    const auto [e1, e2, e3] = result.eigenvalues;
    result.logRatio12 = LogOfQuotient(e2, e1);
    result.logRatio23 = LogOfQuotient(e3, e2);
    result.zeta = LogOfQuotient(e3, e1);
    if (result.logRatio12 && result.logRatio23 && e2 - e1 > kRounding) {
        result.gamma = *result.logRatio23 / *result.logRatio12;
    }
}

void FindSymmetry(ReferenceStatistics& result) {
    const AxisSample sample{result.count, result.eigenvalues, result.fourthMoment};
    result.printedSymmetryStatistic = SymmetryStatistic(sample);
    result.symmetryStatistic = TextbookSymmetryStatistic(sample);
    const double difference = result.eigenvalues[2] - result.eigenvalues[1];
    if (result.count > 1 && difference > kRounding) {
        const double scatter = std::max(result.eigenvalues[2] - result.fourthMoment, 0.0);
        result.standardError = std::sqrt(scatter / result.count) / difference;
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
        const double along1 = Dot(rows.directions[i], result.axes[0]);
        const double along2 = Dot(rows.directions[i], result.axes[1]);
        const double along3 = Dot(rows.directions[i], result.axes[2]);
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

/// The ellipse that holds the axis at 95%: chi-square with two degrees of freedom.
void FindEllipse(ReferenceStatistics& result, const WeightedDirections& rows) {
    if (result.count <= 1 || result.eigenvalues[2] - result.eigenvalues[1] <= kRounding) {
        return;
    }
    const AxisCovariance covariance = CovarianceOf(rows, result);
    const double mean = (covariance.toward1 + covariance.toward2) / 2;
    const double half = (covariance.toward1 - covariance.toward2) / 2;
    const double radius = std::hypot(half, covariance.mixed);
    ConfidenceEllipse ellipse;
    ellipse.major = ArcSin(std::sqrt(kSymmetryLimit * (mean + radius)));
    ellipse.minor = ArcSin(std::sqrt(kSymmetryLimit * std::max(mean - radius, 0.0)));
    const double turn = std::atan2(covariance.mixed, half) / 2;
    const Direction& axis1 = result.axes[0];
    const Direction& axis2 = result.axes[1];
    Direction major = {std::cos(turn) * axis1.l + std::sin(turn) * axis2.l,
                       std::cos(turn) * axis1.m + std::sin(turn) * axis2.m,
                       std::cos(turn) * axis1.n + std::sin(turn) * axis2.n};
    if (major.n < 0) {
        major = {-major.l, -major.m, -major.n};
    }
    ellipse.majorDirection = major;
    result.ellipse = ellipse;
}

FisherStatistics FisherOf(const WeightedDirections& rows, double count) {
    FisherStatistics fisher{kNoDirection, kNoDirection, 0, {}, {}};
    const Direction resultant = ResultantOf(rows.directions, rows.weights);
    const double length = LengthOf(resultant);
    if (length >= kLeastMeanLength * count) {
        fisher.resultant = length;
        DirectedLine(resultant, fisher.plunge, fisher.trend);
    }
    if (count - fisher.resultant > kRounding * count) {
        fisher.kappa = (count - 1) / (count - fisher.resultant);
        fisher.kappaMaximumLikelihood = FisherKappaOf(fisher.resultant / count);
    }
    return fisher;
}

/// The mean resultant length that a precision parameter leads to.
double MeanLengthOf(double kappa) {
    if (kappa < 1e-3) {
        return kappa / 3 - kappa * kappa * kappa / 45; // the series, where the two terms cancel
    }
    return 1 / std::tanh(kappa) - 1 / kappa;
}

/// The shortest digits that read back as the value.
std::string AllDigits(double value) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return std::string(digits.data(), end);
}

/// Gathers entries, and notes where the printed text has another number.
class EntryList {
public:
    void Add(std::string_view name, std::optional<double> value) {
        if (value) {
            entries_.push_back({name, *value, {}});
        }
    }

    /// @param printed  the number behind the printed text, which rounds by `format`
    void Add(std::string_view name, std::optional<double> value, double printed,
             std::string_view format) {
        if (value) {
            const std::string text = FormatNumber(printed, format);
            const bool agree = text == FormatNumber(*value, format);
            entries_.push_back({name, *value, agree ? std::string() : text});
        }
    }

    void AddAngle(std::string_view name, double radians) { Add(name, RadToDeg(radians)); }

    [[nodiscard]] std::vector<ReferenceEntry> Take() { return std::move(entries_); }

private:
    std::vector<ReferenceEntry> entries_;
};

constexpr std::string_view kThreeDecimals = "0.000";

void AddAxes(EntryList& list, const ReferenceStatistics& statistics, const PlotRecord& record) {
    constexpr std::array<std::array<std::string_view, 3>, 3> kNames = {{
        {"eigenvalue 1", "axis 1 plunge", "axis 1 trend"},
        {"eigenvalue 2", "axis 2 plunge", "axis 2 trend"},
        {"eigenvalue 3", "axis 3 plunge", "axis 3 trend"},
    }};
    for (std::size_t i = 0; i < 3; ++i) {
        list.Add(kNames[i][0], statistics.eigenvalues[i],
                 static_cast<double>(record.FabricResults[i + 1][0]), kThreeDecimals);
        double plunge = 0;
        double trend = 0;
        AxisToLine(statistics.axes[i], plunge, trend);
        list.AddAngle(kNames[i][1], plunge);
        list.AddAngle(kNames[i][2], trend);
    }
}

void AddShape(EntryList& list, const ReferenceStatistics& statistics, const PlotRecord& record) {
    const auto printed = [&record](std::size_t row, std::size_t place) {
        return static_cast<double>(record.EigenResults[row][place]);
    };
    list.Add("ln(E2/E1)", statistics.logRatio12, printed(1, kLogRatio), "Fixed");
    list.Add("ln(E3/E2)", statistics.logRatio23, printed(2, kLogRatio), "Fixed");
    list.Add("gamma", statistics.gamma, printed(1, kShapeNumber), "Fixed");
    list.Add("zeta", statistics.zeta, printed(2, kShapeNumber), "Fixed");
}

void AddPrincipalAxis(EntryList& list, const ReferenceStatistics& statistics,
                      const PlotRecord& record) {
    list.Add("fourth moment", statistics.fourthMoment);
    list.Add("symmetry statistic, 1 - 2 E3 + m4", statistics.symmetryStatistic);
    list.Add("symmetry statistic, 1 - E3 + m4 (printed judgement)",
             statistics.printedSymmetryStatistic);
    list.Add("symmetry limit", kSymmetryLimit);
    if (record.FabricValueC == kNotSymmetric) {
        list.Add("spherical standard error", statistics.standardError);
    } else {
        list.Add("spherical standard error", statistics.standardError, record.FabricValueC,
                 kThreeDecimals);
    }
    if (statistics.ellipse) {
        list.AddAngle("95% ellipse major semi-axis", statistics.ellipse->major);
        list.AddAngle("95% ellipse minor semi-axis", statistics.ellipse->minor);
    }
}

void AddFisher(EntryList& list, const FisherStatistics& fisher, double count,
               const PlotRecord& record) {
    if (fisher.plunge != kNoDirection) {
        list.AddAngle("Fisher mean plunge", fisher.plunge);
        list.AddAngle("Fisher mean trend", fisher.trend);
    }
    list.Add("Fisher R", fisher.resultant);
    list.Add("Fisher R/n", fisher.resultant / count, record.RoseResultant[0], kThreeDecimals);
    list.Add("Fisher kappa", fisher.kappa);
    list.Add("Fisher kappa, maximum likelihood", fisher.kappaMaximumLikelihood);
}

} // namespace

std::optional<ReferenceStatistics> ComputeReferenceStatistics(std::span<const DistinctLine> lines,
                                                              RowSense sense) {
    const WeightedDirections axes = DirectionsOf(lines, LineSense::kAxial);
    const auto tensor = OrientationTensor(axes.directions, axes.weights);
    if (!tensor) {
        return std::nullopt;
    }
    ReferenceStatistics result;
    result.count = TotalWeight(axes.weights);
    const FabricAxes sorted = SortedAxes(SymmetricEigen3(*tensor));
    result.eigenvalues = sorted.values;
    result.axes = sorted.axes;
    result.axialResultantLength =
        LengthOf(ResultantOf(axes.directions, axes.weights)) / result.count;
    result.fourthMoment = FourthMoment(axes.directions, axes.weights, result.axes[2]).value_or(0);
    FindShape(result);
    FindSymmetry(result);
    FindEllipse(result, axes);
    if (sense == RowSense::kPolarLines) {
        result.fisher = FisherOf(DirectionsOf(lines, LineSense::kDirected), result.count);
    }
    return result;
}

std::optional<ReferenceStatistics> ReferenceStatisticsOfActivePlot() {
    return ComputeReferenceStatistics(DistinctLinesOfActivePlot(),
                                      ActiveRecord().DataKind == kPolarLines ? RowSense::kPolarLines
                                                                             : RowSense::kAxes);
}

double FisherKappaOf(double meanLength) {
    if (meanLength <= 0) {
        return 0;
    }
    // The mean length grows with kappa, and is above 1 - 1/kappa.
    double low = 0;
    double high = 1 / (1 - meanLength) + 1;
    for (int step = 0; step < 200 && high - low > 1e-15 * high; ++step) {
        const double middle = (low + high) / 2;
        (MeanLengthOf(middle) < meanLength ? low : high) = middle;
    }
    return (low + high) / 2;
}

std::vector<ReferenceEntry> ReferenceEntries(const ReferenceStatistics& statistics,
                                             const PlotRecord& record) {
    EntryList list;
    list.Add("n", statistics.count);
    AddAxes(list, statistics, record);
    AddShape(list, statistics, record);
    AddPrincipalAxis(list, statistics, record);
    if (statistics.fisher) {
        list.Add("axial R/n", statistics.axialResultantLength);
        AddFisher(list, *statistics.fisher, statistics.count, record);
    } else {
        list.Add("axial R/n", statistics.axialResultantLength, record.RoseResultant[0],
                 kThreeDecimals);
    }
    return list.Take();
}

std::string ReferenceText(const std::vector<ReferenceEntry>& entries) {
    std::string text;
    for (const ReferenceEntry& entry : entries) {
        text += std::string(entry.name) + " = " + AllDigits(entry.value);
        if (!entry.printed.empty()) {
            text += " (printed " + entry.printed + ")";
        }
        text += '\n';
    }
    return text;
}

} // namespace quandrel
