// SPDX-License-Identifier: MIT

#include "rose/rose_reference.h"

#include "core/data_format.h"
#include "orientation/angles.h"
#include "rose/rose_confidence.h"
#include "rose/rose_count.h"
#include "rose/rose_radii.h"
#include "rose/rose_sectors.h"
#include "rose/rose_tables.h"
#include "stereo/distinct_lines.h"

#include <cmath>
#include <span>
#include <vector>

namespace quandrel {

namespace {

constexpr const char* kFixed = "Fixed";
constexpr const char* kOneDecimal = "0.0";
constexpr const char* kFourDecimals = "0.0###";
constexpr const char* kErrorFormat = "##0.0###";

double PeriodOf(const PlotRecord& record) {
    return record.DataKind == kPolarLines ? kTwoPi : kPi;
}

/// A number that prints as a word with the textbook's formulas where they leave it undetermined.
void AddNumber(ReferenceLines& lines, const char* name, const std::optional<double>& value,
               double printed, const char* format, Formulas formulas) {
    if (formulas == Formulas::Textbook && (!value || std::isinf(*value))) {
        lines.Add(name, value);
    } else {
        lines.Add(name, value, printed, format);
    }
}

/// The mean direction, which the texts also print as undetermined without a resultant.
void AddMeanDirection(ReferenceLines& lines, const CircularReference& reference,
                      const PlotRecord& record) {
    constexpr const char* kName = "mean direction";
    if (record.RoseResultant[kOfAngles] == 0) {
        lines.Add(kName, std::nullopt);
    } else {
        lines.AddDirection(kName, reference.meanDirection, record.RoseMeanDir[kOfAngles],
                           kOneDecimal, PeriodOf(record));
    }
}

void AddMoments(ReferenceLines& lines, const CircularReference& reference, const PlotRecord& record,
                Formulas formulas) {
    AddMeanDirection(lines, reference, record);
    lines.Add("mean resultant length R1", reference.resultant[kOfAngles],
              record.RoseResultant[kOfAngles], kFourDecimals);
    lines.Add("mean resultant length R2", reference.resultant[kOfDoubledAngles],
              record.RoseResultant[kOfDoubledAngles], kFourDecimals);
    lines.Add("circular variance", reference.variance, record.RoseVariance, kFixed);
    if (formulas == Formulas::Textbook && !reference.standardDeviation) {
        lines.Add("circular standard deviation", std::nullopt);
    } else {
        lines.AddAngle("circular standard deviation", reference.standardDeviation,
                       record.RoseStdDev, kFixed);
    }
    AddNumber(lines, "circular dispersion", reference.dispersion, record.RoseDispersion, kFixed,
              formulas);
    AddNumber(lines, "circular skewness", reference.skewness, record.RoseSkewness, kFixed,
              formulas);
    AddNumber(lines, "circular kurtosis", reference.kurtosis, record.RoseKurtosis, kFixed,
              formulas);
}

void AddPrecision(ReferenceLines& lines, const CircularReference& reference, const Plot& plot,
                  Formulas formulas) {
    const PlotRecord& record = plot.record;
    const double printedError =
        std::sqrt(record.RoseDispersion / record.RoseStats[kRoseCount][kWeightedTotal]);
    AddNumber(lines, "circular standard error", reference.standardError, printedError, kErrorFormat,
              formulas);
    constexpr const char* kHalfWidth = "95% confidence half-width";
    const std::optional<double> printed = RoseConfidenceHalfWidth(plot, formulas);
    if (printed && record.RoseStats[kRoseCount][kWeightedTotal] > kLargeSample) {
        lines.AddAngle(kHalfWidth, reference.confidenceHalfWidth, *printed, kOneDecimal);
    } else if (reference.confidenceHalfWidth) {
        lines.Add(kHalfWidth, RadToDeg(*reference.confidenceHalfWidth));
    } else {
        lines.Add(kHalfWidth, std::nullopt);
    }
    const std::optional<RoseConfidence>& confidence = RoseOf(plot).confidence;
    if (confidence && confidence->method == ConfidenceMethod::kBootstrap) {
        lines.Add("95% bootstrap half-width", confidence->halfWidth
                                                  ? std::optional(RadToDeg(*confidence->halfWidth))
                                                  : std::nullopt);
    }
    AddNumber(lines, "kappa, maximum likelihood", reference.kappa, record.RoseKappa, kFixed,
              formulas);
    AddNumber(lines, "kappa, corrected for small samples", reference.correctedKappa,
              record.RoseKappa, kFixed, formulas);
}

void AddMedian(ReferenceLines& lines, const LeastDeviation& least, const PlotRecord& record) {
    constexpr const char* kMedian = "median of least mean deviation";
    constexpr const char* kDeviation = "least mean deviation";
    constexpr const char* kNotCalculated = "not calculated";
    if (record.RoseResultant[kOfAngles] == 0) {
        lines.AddBesideWords(kMedian, RadToDeg(least.median), kUndetermined);
        lines.AddBesideWords(kDeviation, RadToDeg(least.deviation), kUndetermined);
    } else if (record.RoseMedian > 0) {
        lines.AddDirection(kMedian, least.median, record.RoseMedian, kOneDecimal, PeriodOf(record));
        lines.AddAngle(kDeviation, least.deviation, record.RoseMeanDev, kOneDecimal);
    } else {
        lines.AddBesideWords(kMedian, RadToDeg(least.median), kNotCalculated);
        lines.AddBesideWords(kDeviation, RadToDeg(least.deviation), kNotCalculated);
    }
}

void AddTests(ReferenceLines& lines, const CircularReference& reference) {
    if (reference.rayleigh) {
        lines.Add("Rayleigh n R^2", reference.rayleigh->statistic);
        lines.Add("Rayleigh p", reference.rayleigh->probability);
    }
    if (reference.kuiper) {
        lines.Add("Kuiper V", reference.kuiper->range);
        lines.Add("Kuiper V, for any n", reference.kuiper->test.statistic);
        lines.Add("Kuiper p", reference.kuiper->test.probability);
    }
}

} // namespace

std::optional<CircularReference> RoseReferenceOf(const Plot& plot) {
    const PlotRecord& record = plot.record;
    const PlotRose& rose = RoseOf(plot);
    if (record.PlotKind != kRose || !rose.isCounted || !HasCircularStatistics(record)) {
        return std::nullopt;
    }
    const bool isFrequency = MeasureOfRose(record.RoseType) == kRoseFrequency;
    const RoseLayer layer = isFrequency ? kRoseFrequencyLayer : kRoseValueLayer;
    CircularSample sample;
    sample.sums = rose.trigSums[layer];
    sample.weight = WeightOfStatistics(record);
    sample.count = record.RoseStats[kRoseCount][kWeightedTotal];
    RoseTables measured; // holds the angles of the sample
    if (record.UseDecimals == 0 && HasMeasuredLines(plot)) {
        measured = MeasuredTablesOfRose(plot);
        sample.sums = measured.trigSums[layer];
        sample.weight = measured.totals[isFrequency ? kRoseCount : kRoseValueSum][kWeightedTotal];
        sample.count = measured.totals[kRoseCount][kWeightedTotal];
    }
    const std::vector<double>& angles = measured.angles.size() > 1 ? measured.angles : rose.angles;
    sample.angles = std::span<const double>(angles).subspan(angles.empty() ? 0 : 1);
    sample.sense = rose.isDirectional ? AngleSense::kDirected : AngleSense::kAxial;
    return ComputeCircularReference(sample);
}

std::vector<ReferenceLine> RoseReferenceLines(const CircularReference& reference, const Plot& plot,
                                              Formulas formulas) {
    const PlotRecord& record = plot.record;
    ReferenceLines lines;
    lines.Add("n", reference.count);
    AddMoments(lines, reference, record, formulas);
    AddPrecision(lines, reference, plot, formulas);
    if (reference.median) {
        AddMedian(lines, *reference.median, record);
    }
    AddTests(lines, reference);
    return lines.Take();
}

} // namespace quandrel
