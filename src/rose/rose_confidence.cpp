// SPDX-License-Identifier: MIT

#include "rose/rose_confidence.h"

#include "core/data_format.h"
#include "orientation/angles.h"
#include "rose/circular_statistics.h"
#include "rose/mean_bootstrap.h"
#include "rose/rose_count.h"
#include "rose/rose_radii.h"
#include "rose/rose_sectors.h"
#include "rose/rose_tables.h"

#include <cmath>
#include <vector>

namespace quandrel {

namespace {

constexpr double kOwnQuantile = 1.9604;
constexpr double kTextbookQuantile = 1.96;

/// The sine of half the interval; above 1 there is no interval.
std::optional<double> SineOfConfidence(const PlotRecord& record, Formulas formulas) {
    const double count = record.RoseStats[kRoseCount][kWeightedTotal];
    if (!HasRoseMean(record) || !(count > 0)) {
        return std::nullopt;
    }
    const double quantile = formulas == Formulas::Textbook ? kTextbookQuantile : kOwnQuantile;
    return quantile * std::sqrt(record.RoseDispersion / count);
}

/// The observations for the statistics of a rose, with doubled angles for axial data.
std::vector<WeightedAngle> ObservationsOf(const Plot& plot) {
    const PlotRecord& record = plot.record;
    const bool isFrequency = MeasureOfRose(record.RoseType) == kRoseFrequency;
    const double factor = record.DataKind == kPolarLines ? 1 : 2;
    std::vector<WeightedAngle> observations;
    for (const RoseObservation& row : RowsOfRose(plot)) {
        const WeightedAngle one{factor * row.angle, isFrequency ? row.weight : row.valueWeight};
        observations.insert(observations.end(), isFrequency ? row.count : 1, one);
    }
    return observations;
}

RoseConfidence BootstrapConfidence(const Plot& plot) {
    RoseConfidence confidence{ConfidenceMethod::kBootstrap, {}, false};
    if (const std::optional<double> halfWidth = BootstrapHalfWidth(ObservationsOf(plot))) {
        confidence.halfWidth = plot.record.DataKind == kPolarLines ? *halfWidth : *halfWidth / 2;
        confidence.isInterval = true;
    }
    return confidence;
}

} // namespace

bool HasRoseMean(const PlotRecord& record) {
    return HasCircularStatistics(record) && record.RoseResultant[kOfAngles] > 0;
}

std::optional<double> RoseConfidenceHalfWidth(const Plot& plot, Formulas formulas) {
    const std::optional<double> sine = SineOfConfidence(plot.record, formulas);
    if (!sine) {
        return std::nullopt;
    }
    const double halfWidth = ArcSin(*sine); // Kept: a right angle where there is no interval
    return RoseOf(plot).isDirectional ? halfWidth : halfWidth / 2;
}

std::optional<RoseConfidence> RoseConfidenceOf(const Plot& plot, Formulas formulas) {
    const std::optional<double> sine = SineOfConfidence(plot.record, formulas);
    if (!sine) {
        return std::nullopt;
    }
    if (plot.record.RoseStats[kRoseCount][kWeightedTotal] <= kLargeSample) {
        return BootstrapConfidence(plot);
    }
    return RoseConfidence{ConfidenceMethod::kByDispersion, RoseConfidenceHalfWidth(plot, formulas),
                          *sine <= 1};
}

} // namespace quandrel
