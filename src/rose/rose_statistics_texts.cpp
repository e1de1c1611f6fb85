// SPDX-License-Identifier: MIT

#include "rose/rose_statistics_texts.h"

#include "core/data_format.h"
#include "core/plot_formulas.h"
#include "core/plot_store.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "rose/circular_statistics.h"
#include "rose/circular_texts.h"
#include "rose/rose_legend.h"
#include "rose/rose_radii.h"
#include "rose/rose_scale.h"
#include "rose/rose_tables.h"
#include "stereo/axis_rows.h"

namespace quandrel {

namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr const char* kFixed = "Fixed";
constexpr const char* kFourDecimals = "0.0###";
constexpr const char* kDegreeSign = "°";

std::string Line(const std::string& text) {
    return text + kLineEnd;
}

std::string Line(const char* label, double value, const char* format, const char* behind = "") {
    return label + FormatNumber(value, format) + behind + kLineEnd;
}

bool IsAxial(const PlotRecord& record) {
    return record.DataKind != kPolarLines;
}

std::string ValueName(const PlotRecord& record) {
    return RoseValueLabel(record.AppNumName);
}

/// The unit that a measure counts.
std::string UnitOf(const PlotRecord& record, int measure) {
    switch (measure) {
    case kRoseFrequency:
        return "No.of data";
    case kRoseWindSpeed:
        return "Speed";
    case kRoseWindEnergy:
        return "Energy";
    default:
        return ValueName(record);
    }
}

/// An amount of a measure, after per cents: "  [12 data]", "  [3.5: Speed]".
std::string AmountText(const PlotRecord& record, int measure, double amount) {
    const bool isFrequency = measure == kRoseFrequency;
    return "  [" + FormatNumber(amount, isFrequency ? "0.##" : "0.####")
           + (isFrequency ? " data]" : ": " + UnitOf(record, measure) + "]");
}

std::string LeftOutLine(const PlotRose& rose) {
    if (!rose.isCounted || rose.leftOut == 0) {
        return {};
    }
    return Line(std::to_string(rose.leftOut) + (rose.leftOut == 1 ? " row" : " rows")
                + " without a valid value left out");
}

std::string DataLines(const Plot& plot) {
    const PlotRecord& record = plot.record;
    const auto& counts = record.RoseStats[kRoseCount];
    const bool isCorrected = IsRoseBiasCorrected(record);
    std::string lines;
    if (IsAxial(record)) {
        lines += Line("Axial (non-polar) data");
    }
    lines += Line(isCorrected ? "Observed no. of Data = " : "No. of Data = ", counts[kRawTotal],
                  "0", record.HasFrequencyColumn != 0 ? " (grouped)" : "");
    if (isCorrected) {
        lines += Line("(Bias-corrected total = ", counts[kWeightedTotal], kFixed, ")");
    }
    return lines + LeftOutLine(RoseOf(plot))
           + Line("Sector angle = ", record.RoseSectorSize, "0.##", kDegreeSign) + kLineEnd;
}

std::string MaximumLine(const PlotRecord& record, std::size_t layer, int measure) {
    const auto& range = record.RoseRangeB[layer];
    return Line("Maximum = " + FormatNumber(range[kInPerCent], "0.0") + "%"
                + AmountText(record, measure, range[kInUnits]));
}

std::string TopHeading(const PlotRecord& record) {
    switch (RoseKindOf(record.RoseType)) {
    case kRoseOverlaidWind:
        return Line("Top Plot [ Wind Energy]");
    case kRoseValueOverFrequency:
    case kRoseValueOverMean:
        return Line("Top Plot [ " + ValueName(record) + "]");
    default:
        return {};
    }
}

/// The description of a total or a layer whose name alone would mislead; empty for the others.
std::string MeaningOf(int measure) {
    switch (measure) {
    case kRoseMeanValue:
        return Line("  (sum of the means of the sectors)");
    case kRoseVariance:
        return Line("  (sum of the standard deviations of the sectors)");
    default:
        return {};
    }
}

std::string ScaleLines(const PlotRecord& record) {
    const int measure = MeasureOfRose(record.RoseType);
    const double interval = RoseScaleInterval(record);
    const double total = record.RoseStats[static_cast<std::size_t>(measure)][kWeightedTotal];
    return TopHeading(record)
           + Line("Scale: tick interval = " + FormatNumber(interval, "0.####") + "%")
           + Line(AmountText(record, measure, interval * total / 100))
           + MaximumLine(record, 0, measure)
           + Line("Total " + UnitOf(record, measure) + " = " + FormatNumber(total, kFixed))
           + MeaningOf(measure);
}

constexpr const char* kBothSignsText = "(no circular statistics: values of both signs)";

std::string MeanLines(const Plot& plot, Formulas formulas) {
    if (IsResultantTooLong(plot.record)) {
        return Line(kBothSignsText);
    }
    if (!HasCircularStatistics(plot.record)) {
        return {};
    }
    const CircularTexts texts = CircularTextsOf(plot, formulas);
    return ResultLine("Mean Resultant dir'n  = ",
                      plot.record.UseDecimals != 0 ? texts.fineMean : texts.wholeMean)
           + ConfidenceLines(plot, formulas);
}

std::string LowerLayerLines(const PlotRecord& record) {
    switch (RoseKindOf(record.RoseType)) {
    case kRoseOverlaidWind:
        return Line("Middle plot [Mean Wind Speed]") + Line("  (sum of speeds/sector)")
               + MaximumLine(record, 1, kRoseWindSpeed) + Line("Base plot [Mean Wind Frequency]")
               + MaximumLine(record, 2, kRoseOverlaidWind);
    case kRoseValueOverFrequency:
        return Line("Base plot [Data Frequency]") + MaximumLine(record, 1, kRoseFrequency);
    case kRoseValueOverMean:
        return Line("Base plot [Mean " + ValueName(record) + "]")
               + MaximumLine(record, 1, kRoseMeanValue);
    default:
        return {};
    }
}

std::string MedianLines(const PlotRecord& record, const CircularTexts& texts) {
    if (!(record.RoseMedian > 0)) {
        return Line("Circ.Median = not calculated")
               + Line("Circ.Mean Dev.about median = not calculated")
               + Line("(Not calculated if too many data, or data are")
               + Line("axial (non-polar), and too coarsely grouped");
    }
    const char* const deviation = record.HasFrequencyColumn != 0 ? "Approx.Circ.Mean Dev. = "
                                                                 : "Circ.Mean Dev.about median = ";
    return ResultLine("Circ.Median = ", texts.median)
           + ResultLine(deviation, texts.medianDeviation);
}

std::string SpreadLines(const PlotRecord& record, const CircularTexts& texts) {
    return Line("Circ. Variance = ", record.RoseVariance, kFixed)
           + ResultLine("Circular Std.Dev. = ", texts.deviation)
           + ResultLine("Circ. Dispersion = ", texts.dispersion)
           + ResultLine("Circ.Std Error = ", texts.error)
           + ResultLine("Circ.Skewness = ", texts.skewness)
           + ResultLine("Circ.Kurtosis = ", texts.kurtosis) + ResultLine("kappa = ", texts.kappa)
           + Line("     (von Mises concentration param. estimate)");
}

/// Two numbers on one line.
std::string PairLine(const char* label, double first, double second) {
    return Line(label + FormatNumber(first, kFourDecimals)
                + "; Sbar = " + FormatNumber(second, kFourDecimals));
}

std::string ResultantLines(const PlotRecord& record, const CircularTexts& texts) {
    const double weight = WeightOfStatistics(record);
    const double length = record.RoseResultant[kOfAngles];
    const auto [cosine, sine] = record.RoseMoments;
    std::string lines = Line("Resultant length = ", weight * length, kFixed)
                        + Line("Mean Resultant length = ", length, kFourDecimals)
                        + PairLine("'Mean' Moments: Cbar = ", cosine, sine);
    // Kept: the second sum is called Sbar.
    lines += PairLine("'Full' trig. sums: SumCos = ", weight * cosine, weight * sine);
    if (IsAxial(record)) {
        lines += Line("Mean resultant of doubled angles = ", length, kFourDecimals)
                 + ResultLine("Mean direction of doubled angles = ",
                              record.UseDecimals != 0 ? texts.fineDoubledMean : texts.doubledMean);
    }
    return lines;
}

std::string SourceLines(const PlotRecord& record) {
    const bool isSmall = record.RoseStats[kRoseCount][kWeightedTotal] <= kLargeSample;
    return kLineEnd + Line("Formulas follow:") + Line("  K.V. Mardia (1972),")
           + Line("    Statistics of Directional Data") + Line("  N.I. Fisher (1993),")
           + Line("    Statistical Analysis of Circular Data")
           + Line("The confidence interval is by the method")
           + Line(isSmall ? "for few data, the bootstrap." : "for large samples.");
}

} // namespace

std::string RoseStatsShort(const Plot& plot, Formulas formulas) {
    const PlotRecord& record = plot.record;
    const std::string assumption = AssumedSenseText(record);
    return (assumption.empty() ? assumption : Line(assumption)) + DataLines(plot)
           + ScaleLines(record) + MeanLines(plot, formulas) + LowerLayerLines(record);
}

std::string RoseStatsFull(const Plot& plot, Formulas formulas) {
    const PlotRecord& record = plot.record;
    std::string text = RoseStatsShort(plot, formulas) + Line("_________________________");
    if (!HasCircularStatistics(record)) {
        return text
               + Line(IsResultantTooLong(record) ? kBothSignsText
                                                 : "(no circular statistics of this kind of rose)");
    }
    const CircularTexts texts = CircularTextsOf(plot, formulas);
    return text + ResultLine("Mean Resultant dir'n  = ", texts.fineMean)
           + MedianLines(record, texts) + SpreadLines(record, texts) + ResultantLines(record, texts)
           + SourceLines(record);
}

std::string RoseStatsShort() {
    const Plot& plot = ActivePlot();
    return RoseStatsShort(plot, FormulasInForce(plot.record));
}

std::string RoseStatsFull() {
    const Plot& plot = ActivePlot();
    return RoseStatsFull(plot, FormulasInForce(plot.record));
}

} // namespace quandrel
