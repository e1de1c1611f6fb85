// SPDX-License-Identifier: MIT

#include "rose/circular_texts.h"

#include "core/data_format.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "rose/circular_reference.h"
#include "rose/mean_bootstrap.h"
#include "rose/rose_confidence.h"
#include "rose/rose_tables.h"

#include <cmath>
#include <optional>

namespace quandrel {

namespace {

constexpr const char* kLineEnd = "\r\n";
constexpr const char* kFixed = "Fixed";
constexpr const char* kDegreeFormat = "##0.0";
constexpr const char* kAzimuthFormat = "000.0";
constexpr const char* kErrorFormat = "##0.0###";
constexpr const char* kDegreeSign = "°";

AngleSense SenseOf(const PlotRecord& record) {
    return record.DataKind == kPolarLines ? AngleSense::kDirected : AngleSense::kAxial;
}

/// The texts of one set of results.
struct OwnTexts {
    std::string wholeMean;
    std::string fineMean;
    std::string doubledMean;
    std::string fineDoubledMean;
    std::string median;
    std::string medianDeviation;
    std::string deviation;
    std::string dispersion;
    std::string error;
    std::string skewness;
    std::string kurtosis;
    std::string kappa;
};

void WriteMeans(OwnTexts& texts, const CircularResults& results, AngleSense sense) {
    if (results.resultant[kOfAngles] == 0) {
        texts.wholeMean = texts.fineMean = kUndetermined;
        texts.doubledMean = texts.fineDoubledMean = kUndetermined;
        return;
    }
    const double mean = results.meanDirection[kOfAngles];
    texts.wholeMean = WholeAzimuthOf(mean, sense);
    texts.fineMean = FineAzimuthOf(mean, sense);
    const double doubled = WrappedAngle(2 * mean);
    texts.doubledMean = RadToAzimuthText(doubled);
    texts.fineDoubledMean = FineAzimuthOf(doubled, AngleSense::kDirected);
}

/// Without a resultant the circle cannot be cut, nor a median chosen among several.
void WriteMedian(OwnTexts& texts, const LeastDeviation& median, const CircularResults& results,
                 AngleSense sense) {
    if (results.resultant[kOfAngles] == 0) {
        texts.median = texts.medianDeviation = kUndetermined;
        return;
    }
    texts.median = FineAzimuthOf(median.median, sense);
    texts.medianDeviation = FormatNumber(RadToDeg(median.deviation), kDegreeFormat) + kDegreeSign;
}

/// The textbook's median beside the program's own. Halves of the last digit round the same way.
void WriteTextbookMedian(OwnTexts& texts, const CircularResults& results, const Plot& plot) {
    constexpr double kRounding = 1e-9;
    const PlotRecord& record = plot.record;
    const AngleSense sense = SenseOf(record);
    LeastDeviation median =
        TextbookMedian(RoseOf(plot).azimuths, results.meanDirection[kOfAngles], sense);
    if (std::abs(median.median - record.RoseMedian) < kRounding) {
        median.median = record.RoseMedian;
    }
    if (std::abs(median.deviation - record.RoseMeanDev) < kRounding) {
        median.deviation = record.RoseMeanDev;
    }
    WriteMedian(texts, median, results, sense);
}

/// A result that the textbook leaves undetermined, although the program's own formulas do not.
void OpenTextbookResults(OwnTexts& texts, const CircularResults& results) {
    if (results.resultant[kOfAngles] == 0) {
        texts.deviation = texts.dispersion = texts.error = kUndetermined;
    }
    if (results.resultant[kOfAngles] == 1) {
        texts.skewness = texts.kurtosis = kUndetermined;
        texts.kappa = kInfinite;
    }
}

/// @param count  of data
OwnTexts TextsOf(const CircularResults& results, AngleSense sense, Formulas formulas,
                 double count) {
    OwnTexts texts;
    WriteMeans(texts, results, sense);
    texts.deviation = FormatNumber(RadToDeg(results.standardDeviation), kFixed) + kDegreeSign;
    texts.dispersion = FormatNumber(results.dispersion, kFixed);
    texts.error = FormatNumber(std::sqrt(results.dispersion / count), kErrorFormat);
    texts.skewness = FormatNumber(results.skewness, kFixed);
    texts.kurtosis = FormatNumber(results.kurtosis, kFixed);
    texts.kappa = FormatNumber(results.kappa, kFixed);
    if (formulas == Formulas::Textbook) {
        OpenTextbookResults(texts, results);
    }
    return texts;
}

/// The mean directions print the same when they differ by a full turn, or by half a turn.
bool IsSameMean(const CircularResults& a, const CircularResults& b, AngleSense sense) {
    const double period = sense == AngleSense::kAxial ? kPi : kTwoPi;
    const double distance =
        std::abs(std::remainder(a.meanDirection[kOfAngles] - b.meanDirection[kOfAngles], period));
    constexpr double kRounding = 1e-9;
    return distance < kRounding;
}

std::string HalfWidthText(const RoseConfidence& confidence) {
    return confidence.halfWidth
               ? "±" + FormatNumber(RadToDeg(*confidence.halfWidth), kDegreeFormat) + kDegreeSign
               : kUndetermined;
}

} // namespace

std::string WholeAzimuthOf(double azimuth, AngleSense sense) {
    std::string text = RadToAzimuthText(azimuth);
    if (sense == AngleSense::kAxial) {
        text += "-" + RadToAzimuthText(WrappedAngle(azimuth + kPi));
    }
    return text;
}

std::string FineAzimuthOf(double azimuth, AngleSense sense) {
    std::string text = FormatNumber(RadToDeg(azimuth), kAzimuthFormat);
    if (sense == AngleSense::kAxial) {
        text += " - " + FormatNumber(RadToDeg(WrappedAngle(azimuth + kPi)), kAzimuthFormat);
    }
    return text;
}

CircularTexts CircularTextsOf(const Plot& plot, Formulas formulas) {
    const PlotRecord& record = plot.record;
    const AngleSense sense = SenseOf(record);
    const double count = record.RoseStats[kRoseCount][kWeightedTotal];
    const CircularResults results = ResultsInRecord(record);
    OwnTexts printed = TextsOf(results, sense, formulas, count);
    WriteMedian(printed, {record.RoseMedian, record.RoseMeanDev}, results, sense);
    OwnTexts textbook = printed;
    if (formulas != Formulas::Textbook) {
        if (const auto other = CircularResultsOf(plot, Formulas::Textbook)) {
            textbook = TextsOf(*other, sense, Formulas::Textbook, count);
            WriteTextbookMedian(textbook, *other, plot);
            if (IsSameMean(results, *other, sense)) {
                WriteMeans(textbook, results, sense);
            }
        }
    }
    return {{printed.wholeMean, textbook.wholeMean},
            {printed.fineMean, textbook.fineMean},
            {printed.doubledMean, textbook.doubledMean},
            {printed.fineDoubledMean, textbook.fineDoubledMean},
            {printed.median, textbook.median},
            {printed.medianDeviation, textbook.medianDeviation},
            {printed.deviation, textbook.deviation},
            {printed.dispersion, textbook.dispersion},
            {printed.error, textbook.error},
            {printed.skewness, textbook.skewness},
            {printed.kurtosis, textbook.kurtosis},
            {printed.kappa, textbook.kappa}};
}

std::string ConfidenceLines(const Plot& plot, Formulas formulas) {
    const std::optional<RoseConfidence>& own = RoseOf(plot).confidence;
    if (!own) {
        return {};
    }
    if (own->method == ConfidenceMethod::kBootstrap) {
        const std::string text = HalfWidthText(*own);
        return ResultLine("[Bootstrap 95% Confidence interval = ", {text, text}, "]") + "  ("
               + std::to_string(kBootstrapResamples) + " resamples; unimodal data)" + kLineEnd;
    }
    const std::optional<RoseConfidence> textbook = RoseConfidenceOf(plot, Formulas::Textbook);
    const PrintedResult printed = {HalfWidthText(*own), textbook && textbook->isInterval
                                                            ? HalfWidthText(*textbook)
                                                            : kUndetermined};
    return ResultLine("[Approx. 95% Confidence interval = ",
                      formulas == Formulas::Textbook
                          ? PrintedResult{printed.textbook, printed.textbook}
                          : printed,
                      "]")
           + "  (valid only for unimodal data)" + kLineEnd;
}

} // namespace quandrel
