// SPDX-License-Identifier: MIT

#include "rose/circular_statistics.h"

#include "core/plot_formulas.h"
#include "core/plot_store.h"
#include "orientation/angles.h"
#include "rose/circular_median.h"
#include "rose/circular_reference.h"
#include "rose/rose_confidence.h"
#include "rose/rose_radii.h"
#include "rose/rose_tables.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>
#include <vector>

namespace quandrel {

namespace {

constexpr double kAxisWidth = 1e-10;       ///< around an axis in AngleFromSinCos
constexpr double kResultantMargin = 1e-12; ///< resultants this close to 0 and 1 count as 0 and 1
constexpr double kThreeRightAngles = 4.712388980384685;

/// An angle from 0 to below a full turn. A rounding error below 0 gives 0, not a full turn.
double AngleInTurn(double angle) {
    if (angle >= 0) {
        return angle;
    }
    return angle > -kAxisWidth ? 0 : angle + kTwoPi;
}

double StandardDeviationOf(double r, AngleSense sense) {
    const double deviation = r == 0 ? kPi : std::sqrt(-2 * std::log(r));
    return sense == AngleSense::kAxial ? deviation / 2 : deviation;
}

/// Skewness and kurtosis use 1 - R1, for axial data too: R2 belongs to the doubled angles.
void FindShape(CircularResults& results, double theta1, double theta2) {
    const auto [r1, r2] = results.resultant;
    const double variance = 1 - r1;
    if (variance == 0) {
        return;
    }
    const double difference = theta2 - 2 * theta1;
    results.skewness = r2 * std::sin(difference) / std::pow(variance, 1.5);
    results.kurtosis = (r2 * std::cos(difference) - std::pow(r1, 4)) / (variance * variance);
}

void ClearCircularStatistics(PlotRecord& record) {
    record.RoseMedian = 0;
    record.RoseMeanDev = 0;
    record.RoseDispersion = 0;
    record.RoseMoments = {};
    record.RoseResultant = {};
    record.RoseKappa = 0;
    record.RoseSkewness = 0;
    record.RoseKurtosis = 0;
    record.RoseMeanDir = {};
    record.RoseVariance = 0;
    record.RoseStdDev = 0;
}

void Store(PlotRecord& record, const CircularResults& results) {
    record.RoseMoments = results.moments;
    record.RoseResultant = results.resultant;
    record.RoseMeanDir = results.meanDirection;
    record.RoseVariance = results.variance;
    record.RoseStdDev = results.standardDeviation;
    record.RoseKappa = results.kappa;
    record.RoseDispersion = results.dispersion;
    record.RoseSkewness = results.skewness;
    record.RoseKurtosis = results.kurtosis;
}

/// The layer of the tables for a measure; empty for means and deviations.
std::optional<RoseLayer> LayerOfMeasure(int measure) {
    if (measure == kRoseMeanValue || measure == kRoseVariance) {
        return std::nullopt;
    }
    return measure == kRoseFrequency ? kRoseFrequencyLayer : kRoseValueLayer;
}

double WeightOfLayer(const PlotRose& rose, RoseLayer layer) {
    return rose.sectors(0, layer == kRoseFrequencyLayer ? 0 : 1, kRoseValueLayer);
}

/// Whether the kind has statistics, and there is a weight.
bool IsWorkedOn(const PlotRecord& record) {
    return LayerOfMeasure(MeasureOfRose(record.RoseType)) && WeightOfStatistics(record) != 0;
}

AngleSense SenseOf(const PlotRose& rose) {
    return rose.isDirectional ? AngleSense::kDirected : AngleSense::kAxial;
}

/// The median of grouped data is that of the rows repeated as often as they count. The weights of a
/// bias correction apply as they do for the mean.
void FindMedian(PlotRecord& record, const PlotRose& rose, Formulas formulas) {
    const std::vector<AngleCount>& azimuths = rose.azimuths;
    const AngleSense sense = SenseOf(rose);
    if (formulas == Formulas::Textbook) {
        const LeastDeviation least = TextbookMedian(azimuths, record.RoseMeanDir[kOfAngles], sense);
        record.RoseMedian = least.median;
        record.RoseMeanDev = least.deviation;
        return;
    }
    const double median = GroupedCircularMedian(azimuths, record.RoseMeanDir[kOfAngles], sense);
    if (median > 0) {
        record.RoseMedian = median;
        record.RoseMeanDev = CircularMeanDeviation(azimuths, median, sense);
    }
}

} // namespace

TrigSums TrigTermsOf(double angle, AngleSense sense) {
    const bool isDirected = sense == AngleSense::kDirected;
    const double a = WrappedAngle(isDirected ? angle : 2 * angle);
    const double b = WrappedAngle(isDirected ? 2 * angle : 4 * angle);
    return {std::sin(a), std::cos(a), std::sin(b), std::cos(b)};
}

double AngleFromSinCos(double y, double x, Formulas formulas) {
    const bool isNull = std::abs(x) < kAxisWidth && std::abs(y) < kAxisWidth;
    if (isNull) {
        return 0;
    }
    if (formulas == Formulas::Textbook) {
        return AngleInTurn(std::atan2(y, x));
    }
    if (std::abs(x) < kAxisWidth) {
        return y > 0 ? kPi : kThreeRightAngles; // Kept: east of the sines is pi, not pi/2
    }
    const double angle = std::atan(y / x);
    if (angle > 0) {
        return y >= 0 ? angle : angle + kPi;
    }
    return y <= 0 ? angle + kTwoPi : angle + kPi; // Kept: 2 pi for a y of exactly 0
}

double KappaOfLength(double r, Formulas formulas) {
    if (formulas == Formulas::Textbook) {
        return r < 1 ? VonMisesKappa(r) : kBoundlessKappa;
    }
    if (r < 0.53) {
        return 2 * r + std::pow(r, 3) + 5.0 / 6 * std::pow(r, 5);
    }
    if (r == 1) { // Kept: identical angles give 0; MeanResultantLength makes them exactly 1
        return 0;
    }
    // Kept: concentrated angles give 1 / (2 (1 - R)).
    return r < 0.85 ? 0.43 / (1 - r) + 1.39 * r - 0.4 : 1 / (2 * (1 - r));
}

std::optional<double> MeanResultantLength(double cosine, double sine) {
    const double length = std::sqrt(cosine * cosine + sine * sine);
    if (length > 1 + kResultantMargin) {
        return std::nullopt;
    }
    if (length > 1 - kResultantMargin) {
        return 1;
    }
    return length < kResultantMargin ? 0 : length;
}

std::optional<CircularResults> CircularStatistics(const std::array<double, 4>& sums, double n,
                                                  AngleSense sense, Formulas formulas) {
    CircularResults results;
    const double sine = sums[kSine] / n;
    const double cosine = sums[kCosine] / n;
    const double sineOfDouble = sums[kSineOfDouble] / n;
    const double cosineOfDouble = sums[kCosineOfDouble] / n;
    const std::optional<double> first = MeanResultantLength(cosine, sine);
    const std::optional<double> second = MeanResultantLength(cosineOfDouble, sineOfDouble);
    if (!first || !second) {
        return std::nullopt;
    }
    const double r1 = *first;
    const double r2 = *second;
    const double theta1 = AngleFromSinCos(sine, cosine, formulas);
    const double theta2 = AngleFromSinCos(sineOfDouble, cosineOfDouble, formulas);
    const bool isAxial = sense == AngleSense::kAxial;
    results.moments = {cosine, sine};
    results.resultant = {r1, r2};
    results.meanDirection = {isAxial ? theta1 / 2 : theta1, isAxial ? theta2 / 2 : theta2};
    results.variance = isAxial ? 1 - std::pow(r1, 0.25) : 1 - r1;
    results.standardDeviation = StandardDeviationOf(r1, sense);
    results.kappa = KappaOfLength(r1, formulas);
    results.dispersion = r1 == 0 ? kNoDispersion : (1 - r2) / (2 * r1 * r1);
    FindShape(results, theta1, theta2);
    return results;
}

void WorkOutCircularStats(Plot& plot, int measure, Formulas formulas) {
    PlotRecord& record = plot.record;
    PlotRose& rose = RoseOf(plot);
    ClearCircularStatistics(record);
    rose.confidence.reset();
    const std::optional<RoseLayer> layer = LayerOfMeasure(measure);
    if (!layer) {
        return;
    }
    const double weight = WeightOfLayer(rose, *layer);
    if (weight == 0 || !std::isfinite(weight)) {
        return;
    }
    if (const std::optional<CircularResults> results =
            CircularStatistics(rose.trigSums[*layer], weight, SenseOf(rose), formulas)) {
        Store(record, *results);
        FindMedian(record, rose, formulas);
        rose.confidence = RoseConfidenceOf(plot, formulas);
    }
}

void RoseCircularStats(int measure) {
    Plot& plot = ActivePlot();
    WorkOutCircularStats(plot, measure, FormulasInForce(plot.record));
}

CircularResults ResultsInRecord(const PlotRecord& record) {
    CircularResults results;
    results.moments = record.RoseMoments;
    results.resultant = record.RoseResultant;
    results.meanDirection = record.RoseMeanDir;
    results.variance = record.RoseVariance;
    results.standardDeviation = record.RoseStdDev;
    results.kappa = record.RoseKappa;
    results.dispersion = record.RoseDispersion;
    results.skewness = record.RoseSkewness;
    results.kurtosis = record.RoseKurtosis;
    return results;
}

std::optional<CircularResults> CircularResultsOf(const Plot& plot, Formulas formulas) {
    const PlotRecord& record = plot.record;
    const PlotRose& rose = RoseOf(plot);
    const std::optional<RoseLayer> layer = LayerOfMeasure(MeasureOfRose(record.RoseType));
    if (!rose.isCounted || !layer || !HasCircularStatistics(record)) {
        return std::nullopt;
    }
    return CircularStatistics(rose.trigSums[*layer], WeightOfStatistics(record), SenseOf(rose),
                              formulas);
}

bool HasCircularStatistics(const PlotRecord& record) {
    return IsWorkedOn(record) && !IsResultantTooLong(record);
}

bool IsResultantTooLong(const PlotRecord& record) {
    // A resultant of 0 has the dispersion kNoDispersion.
    return IsWorkedOn(record) && record.RoseResultant[kOfAngles] == 0 && record.RoseDispersion == 0;
}

double WeightOfStatistics(const PlotRecord& record) {
    const bool isFrequency = MeasureOfRose(record.RoseType) == kRoseFrequency;
    return record.RoseStats[isFrequency ? kRoseCount : kRoseValueSum][kWeightedTotal];
}

} // namespace quandrel
