// SPDX-License-Identifier: MIT

#include "statistics/statistics_texts.h"

#include "core/data_format.h"
#include "core/plot_formulas.h"
#include "core/plot_store.h"
#include "core/plot_texts.h"
#include "core/result_lines.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "statistics/axis_statistics.h"
#include "statistics/fabric_kernels.h"
#include "statistics/fabric_statistics.h"
#include "statistics/orientation_notation.h"
#include "statistics/plot_region_texts.h"
#include "stereo/distinct_lines.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace quandrel {

namespace {

constexpr const char* kFixed = "Fixed";
constexpr const char* kThreeDecimals = "0.000";
constexpr const char* kNotSymmetricText = "(non-symmetric distribution)";
constexpr std::int16_t kByAppendedNumber = 1; ///< ClassMode of a plot with value grids

std::string Line(const std::string& text) {
    return text + kLineEnd;
}

std::string Line(const char* label, double value, const char* format, const char* behind = "") {
    return label + FormatNumber(value, format) + behind + kLineEnd;
}

std::string NumberLine(const PlotRecord& record) {
    return Line("No. of Data = " + std::to_string(record.NumValidData));
}

/// Whether there is nothing to report but the number of data. A rose writes its own statistics.
bool HasStereoStatistics(const PlotRecord& record) {
    return record.PlotKind < kRose && !LinesOf(ActivePlot()).empty();
}

/// A pair of angles in degrees with two decimals.
std::string DegreePair(double first, double second) {
    return FormatNumber(RadToDeg(first), kFixed) + " - " + FormatNumber(RadToDeg(second), kFixed);
}

/// An axis of the record in degrees.
std::string DegreesOfAxis(const PlotRecord& record, std::size_t axis) {
    if (!IsAxisDetermined(record, axis)) {
        return kUndetermined;
    }
    const AxisLine line = FabricAxis(record, axis);
    return DegreePair(line.plunge, line.trend) + " (plunge - trend)";
}

/// The plane normal to it.
std::string DegreesOfPlane(const PlotRecord& record, std::size_t axis) {
    if (!IsAxisDetermined(record, axis)) {
        return kUndetermined;
    }
    const AxisLine pole = FabricAxis(record, axis);
    double dip = 0;
    double dipDirection = 0;
    PoleOfPlane(pole.plunge, pole.trend, dip, dipDirection);
    return DegreePair(dip, dipDirection) + " (dip - dip dir'n)";
}

/// An axis in the current notation, or the plane normal to it.
///
/// @param text  TextOfLine or TextOfPlaneOfPole
std::string TextOfAxis(const PlotRecord& record, std::size_t axis,
                       std::string (*text)(double, double, int)) {
    const AxisLine line = FabricAxis(record, axis);
    return IsAxisDetermined(record, axis) ? text(line.plunge, line.trend, DecimalsShown(record))
                                          : std::string(kUndetermined);
}

std::string MeanText(const PlotRecord& record) {
    return HasMeanDirection(record)
               ? TextOfLine(static_cast<double>(record.FabricValueA),
                            static_cast<double>(record.FabricValueB), DecimalsShown(record))
               : std::string(kUndetermined);
}

std::string MeanLines(const PlotRecord& record) {
    const double length = record.RoseResultant[kOfAngles];
    const char* const what = record.DataKind == kPolarLines ? "Mean Principal Direction = "
                                                            : "Mean Principal Orientation = ";
    return Line(what + TextOfAxis(record, kGreatestAxis, TextOfLine))
           + Line("Mean Resultant dir'n = " + MeanText(record))
           + Line("Mean Resultant length = ", length, kFixed)
           + Line("         (Variance = ", 1 - length, kFixed, ")")
           + Line("Calculated. girdle: " + TextOfAxis(record, kLeastAxis, TextOfPlaneOfPole))
           + Line("Calculated beta axis: " + TextOfAxis(record, kLeastAxis, TextOfLine));
}

std::string GirdleLines(const PlotRecord& record) {
    const int decimals = DecimalsShown(record);
    std::string lines;
    for (std::size_t item = kFirstUserGirdle; item <= kLastUserGirdle; ++item) {
        const auto& values = record.AxisItems[item];
        if (NumberOf(values[kItemShown]) != 0) {
            const double plunge = NumberOf(values[kItemPlunge]);
            const double trend = NumberOf(values[kItemTrend]);
            lines += Line("Girdle" + std::to_string(item) + ": "
                          + TextOfPlaneOfPole(plunge, trend, decimals)
                          + " [axis: " + TextOfLine(plunge, trend, decimals) + "]");
        }
    }
    return lines;
}

std::string AppendedLines(const PlotRecord& record) {
    if (record.HasAppendedNumeric == 0) {
        return {};
    }
    const auto appended = AppendedStatisticsOfActivePlot();
    if (!appended) {
        return {};
    }
    return Line("Min.Appended value: ", appended->least, "0.####")
           + Line("Max.Appended value: ", appended->greatest, "0.####")
           + Line("Mean Appended value: ", appended->mean, "0.####")
           + Line("StdDev. of Appended values: ", appended->standardDeviation, "0.##");
}

struct Range {
    double least = 0;
    double greatest = 0;
};

/// The minimum and maximum of a layer of the class grid, without unset nodes.
std::optional<Range> RangeOfGrid(const GridValues& grid, std::size_t layer, int gridSize) {
    std::optional<Range> range;
    const auto nodes = static_cast<std::size_t>(std::clamp(gridSize + 3, 0, kGridNodes));
    for (std::size_t i = 0; i < nodes; ++i) {
        for (std::size_t j = 0; j < nodes; ++j) {
            const double value = grid[layer][i][j];
            if (value == kUnsetValue) {
                continue;
            }
            range = range ? Range{std::min(range->least, value), std::max(range->greatest, value)}
                          : Range{value, value};
        }
    }
    return range;
}

std::string GridLines(const PlotRecord& record) {
    const auto slot = static_cast<std::size_t>(gActivePlot);
    if (record.ClassMode != kByAppendedNumber || slot >= gGridCount.size() || gGridCount[slot] == 0
        || !gGridValues[slot]) {
        return {};
    }
    const auto means = RangeOfGrid(*gGridValues[slot], kMeanLayer, record.GridSize);
    const auto sums = RangeOfGrid(*gGridValues[slot], kCumulativeLayer, record.GridSize);
    std::string lines = Line("______________");
    if (means) {
        lines += Line("Min. mean grid value: ", means->least, "0.#")
                 + Line("Max. mean grid value: ", means->greatest, "0.#");
    }
    if (sums) {
        lines += Line("Min. cumulative grid value: ", sums->least, "0.#")
                 + Line("Max. cumulative grid value: ", sums->greatest, "0.#");
    }
    return lines;
}

/// The printed values of the lines about the precision of the principal axis.
struct PrecisionTexts {
    std::string error;
    std::string cone;
};

/// @param error  as FabricValueC
PrecisionTexts PrecisionBy(Formulas formulas, double error) {
    if (error == kNotSymmetric) {
        return {kNotSymmetricText, kNotSymmetricText};
    }
    const double sine = ConeFactor(formulas) * error;
    // Kept: a standard error that is too large for a cone, the one that failed included, has a
    // semi-angle of 90 by the program's own formula.
    const PrecisionTexts texts = {FormatNumber(error, kThreeDecimals),
                                  FormatNumber(RadToDeg(ArcSin(sine)), kFixed) + "°"};
    if (formulas == Formulas::Own) {
        return texts;
    }
    return {error == kFailedResult ? kUndetermined : texts.error,
            sine >= 1 ? kUndetermined : texts.cone};
}

std::string StandardErrorLines(const PlotRecord& record, const RowLines& rows) {
    const Formulas formulas = FormulasInForce(record);
    const PrecisionTexts own = PrecisionBy(formulas, record.FabricValueC);
    const PrecisionTexts textbook =
        formulas == Formulas::Textbook
            ? own
            : PrecisionBy(Formulas::Textbook, StandardErrorOf(record, rows, Formulas::Textbook));
    if (own.error == kNotSymmetricText) {
        return ResultLine({}, {own.error, textbook.error}) + kLineEnd;
    }
    if (textbook.error == kNotSymmetricText) { // one note for both lines
        return ResultLine("Spherical standard error: ", {own.error, own.error})
               + ResultLine("95% conf. cone semi-angle: ", {own.cone, "non-symmetric distribution"})
               + kLineEnd;
    }
    return ResultLine("Spherical standard error: ", {own.error, textbook.error})
           + ResultLine("95% conf. cone semi-angle: ", {own.cone, textbook.cone}) + kLineEnd;
}

std::string PrincipalLines(const PlotRecord& record, const RowLines& rows) {
    return Line("Principal Eigenvector: " + DegreesOfAxis(record, kGreatestAxis))
           + Line("(i.e. normal to plane dipping: " + DegreesOfPlane(record, kGreatestAxis) + ")")
           + StandardErrorLines(record, rows);
}

std::string ResultantLines(const PlotRecord& record) {
    auto plunge = static_cast<double>(record.FabricValueA);
    auto trend = static_cast<double>(record.FabricValueB);
    SettleForPrint(2, plunge, trend);
    const std::string mean =
        HasMeanDirection(record) ? DegreePair(trend, plunge) + " (trend - plunge)" : kUndetermined;
    const double length = record.RoseResultant[kOfAngles];
    return Line("Mean Direction:  " + mean) + Line("Mean Resultant = ", length, kThreeDecimals)
           + Line("('Variance' = ", 1 - length, kThreeDecimals, ")")
           + Line("E2-E3 (girdle) plane: " + DegreesOfPlane(record, kLeastAxis)) + kLineEnd;
}

/// The components of an axis, each followed by a tab.
std::string ComponentsOf(const PlotRecord& record, std::size_t axis) {
    if (!IsAxisDetermined(record, axis)) {
        return std::string(kUndetermined) + "\t\t"; // as wide as two columns
    }
    std::string components;
    for (std::size_t component = kNorthOfAxis; component <= kDownOfAxis; ++component) {
        const auto value = static_cast<double>(record.FabricResults[component][axis]);
        components += FormatNumber(value, "#0.000") + "\t";
    }
    return components;
}

/// A row for each axis: its components, n E, and E in brackets.
std::string EigenvectorLines(const PlotRecord& record, const RowLines& rows) {
    const double count = CountOfLines(rows);
    std::string lines = Line("\t\t\t(Normalised)") + Line(" Eigenvectors\t\t(Eigenvalue)");
    for (std::size_t axis = kLeastAxis; axis <= kGreatestAxis; ++axis) {
        const auto eigenvalue = static_cast<double>(record.FabricResults[axis][kEigenvalue]);
        lines += ComponentsOf(record, axis) + FormatNumber(count * eigenvalue, "##0.000") + " ("
                 + FormatNumber(eigenvalue, kThreeDecimals) + ")" + kLineEnd;
    }
    return lines;
}

/// A failed number: the program's own marker, and the textbook's text for undetermined.
PrintedResult ShapeNumber(double value, Formulas formulas) {
    const std::string text = FormatNumber(value, kFixed);
    const std::string textbook = value == kFailedResult ? std::string(kUndetermined) : text;
    return {formulas == Formulas::Textbook ? textbook : text, textbook};
}

std::string ShapeLines(const PlotRecord& record) {
    const auto& results = record.EigenResults;
    const Formulas formulas = FormulasInForce(record);
    const auto number = [&results, formulas](std::size_t row, EigenPlace place) {
        return ShapeNumber(static_cast<double>(results[row][place]), formulas);
    };
    const PrintedResult first = number(kMiddleToLeast, kLogRatio);
    const PrintedResult second = number(kGreatestToMiddle, kLogRatio);
    constexpr const char* kBetween = " \t|      ";
    return ResultLine("Shape parameter, gamma = ", number(kGamma, kShapeNumber))
           + ResultLine("Strength parameter, zeta   = ", number(kZeta, kShapeNumber))
           + Line("Eigenvalue log ratios:") + Line("(E2/E1\t|    E3/E2)")
           + ResultLine({}, {first.value + kBetween + second.value,
                             first.textbook + kBetween + second.textbook});
}

std::string FabricLines(const PlotRecord& record, const RowLines& rows) {
    return PrincipalLines(record, rows) + ResultantLines(record) + EigenvectorLines(record, rows)
           + ShapeLines(record);
}

std::string AssumptionLine(const PlotRecord& record) {
    const std::string text = AssumedSenseText(record);
    return text.empty() ? text : Line(text);
}

/// The normal text of P, followed by that of T.
std::string MeanLinesOfBothAxes() {
    std::string lines;
    for (const AxisKind kind : {AxisKind::Shortening, AxisKind::Extension}) {
        const AxisStatistics axes = StatisticsOfAxes(kind);
        lines += (lines.empty() ? "" : kLineEnd) + Line(NameOfAxes(kind)) + NumberLine(axes.record);
        lines += axes.lines.empty() ? std::string() : MeanLines(axes.record);
    }
    return lines;
}

/// The advanced text of P, followed by that of T.
std::string FabricLinesOfBothAxes() {
    std::string lines;
    for (const AxisKind kind : {AxisKind::Shortening, AxisKind::Extension}) {
        const AxisStatistics axes = StatisticsOfAxes(kind);
        if (!axes.lines.empty()) {
            lines += (lines.empty() ? "" : kLineEnd) + Line(NameOfAxes(kind))
                     + FabricLines(axes.record, axes.lines);
        }
    }
    return lines;
}

/// The confidence regions, below a line of their own.
std::string RegionLines(const Plot& plot) {
    const std::string text = TextOfRegions(plot, kLineEnd);
    return text.empty() ? text : Line("______________") + text;
}

} // namespace

std::optional<AppendedStatistics> AppendedStatisticsOfActivePlot() {
    const std::span<const float> numbers = gAppNumeric.Rows(gActivePlot);
    const std::span<const std::int32_t> dips = gDataDip.Rows(gActivePlot);
    const std::size_t rows = std::min(
        {numbers.size(), dips.size(), static_cast<std::size_t>(ActiveRecord().NumData) + 1});
    AppendedStatistics result;
    double count = 0;
    double squares = 0;
    for (std::size_t row = 1; row < rows; ++row) {
        if (dips[row] == kErrorRow || numbers[row] == kInvalidNumber) {
            continue;
        }
        // The sums are updated with the mean, so that large numbers close to each other keep their
        // precision (B. P. Welford 1962, Technometrics 4, 419-420).
        const auto number = static_cast<double>(numbers[row]);
        count += 1;
        const double step = number - result.mean;
        result.mean += step / count;
        squares += step * (number - result.mean);
        result.least = count == 1 ? number : std::min(result.least, number);
        result.greatest = count == 1 ? number : std::max(result.greatest, number);
    }
    if (count == 0) {
        return std::nullopt;
    }
    result.standardDeviation = count > 1 ? std::sqrt(squares / (count - 1)) : 0;
    return result;
}

std::string StatsBoxText() {
    const PlotRecord& record = ActiveRecord();
    if (!HasStereoStatistics(record)) {
        return NumberLine(record);
    }
    const std::string means =
        HoldsBothAxes(record) ? MeanLinesOfBothAxes() : NumberLine(record) + MeanLines(record);
    return AssumptionLine(record) + means + GirdleLines(record) + Line("(" + OrderInForce() + ")")
           + kLineEnd + AppendedLines(record) + GridLines(record);
}

std::string FabricBoxText() {
    const PlotRecord& record = ActiveRecord();
    Plot& plot = ActivePlot();
    if (!HasStereoStatistics(record)) {
        return record.PlotKind < kRose ? NumberLine(record) : std::string();
    }
    return AssumptionLine(record)
           + (HoldsBothAxes(record) ? FabricLinesOfBothAxes() : FabricLines(record, LinesOf(plot)))
           + RegionLines(plot);
}

void WriteStatsBox() {
    KeepNormalStatistics(ActivePlot(), StatsBoxText());
}

void WriteFabricBox() {
    KeepAdvancedStatistics(ActivePlot(), FabricBoxText());
}

void WriteStatisticsBoxes() {
    if (ActiveRecord().PlotKind != kRose) {
        WriteStatsBox();
        WriteFabricBox();
    }
}

} // namespace quandrel
