// SPDX-License-Identifier: MIT

#include "classify/class_settings.h"

#include "classify/column_statistics.h"
#include "core/appended_number.h"
#include "core/data_format.h"
#include "core/messages.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "density/class_grid.h"
#include "orientation/number_text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <vector>

namespace quandrel {

namespace {

constexpr std::int16_t kOn = 1; ///< for cells that hold a yes or no

constexpr const char* kNoNumbers = "The plot has no appended numbers to classify by.";
constexpr const char* kNoTexts = "The plot has no appended texts to classify by.";
constexpr const char* kNoSuchChoice = "The plot has no such classification.";

std::size_t At(int place) {
    return static_cast<std::size_t>(place);
}

TaggedValue WholeCell(int value) {
    return static_cast<std::int16_t>(value);
}

int WholeOf(const TaggedValue& cell, int most) {
    const double number = NumberOf(cell);
    return number > 0 ? static_cast<int>(std::min(number, static_cast<double>(most))) : 0;
}

ClassRanges RangesOfTable(const ClassTableCells& table, ClassColumn column) {
    ClassRanges ranges;
    ranges.limits.base = WholeOf(table[kBaseRow][column], kMostRanges);
    for (std::size_t k = 0; k < ranges.limits.limits.size(); ++k) {
        ranges.limits.limits[k] = NumberOf(table[kLowestRow + k][column]);
    }
    ranges.limits.top = NumberOf(table[kTopRow][column]);
    const int flags = WholeOf(table[kFlagRow][column], 3);
    ranges.keepLow = flags % 2 == 1;
    ranges.keepHigh = flags > 1;
    return ranges;
}

void WriteRanges(ClassTableCells& table, ClassColumn column, const ClassRanges& ranges) {
    const ClassLimits& limits = ranges.limits;
    for (int k = 0; k < std::max(limits.base, 1); ++k) {
        table[kLowestRow + At(k)][column] = limits.limits[At(k)];
    }
    table[kTopRow][column] = limits.top;
    table[kBaseRow][column] = WholeCell(limits.base);
    table[kFlagRow][column] = WholeCell((ranges.keepLow ? 1 : 0) + (ranges.keepHigh ? 2 : 0));
}

/// Shows a column's lowest value as the lowest limit of a plot that was never classified.
void ShowLowest(const Plot& plot, ClassRanges& ranges, ClassColumn column) {
    if (ranges.limits.base > 0) {
        return;
    }
    if (const auto statistics = StatisticsOfNumbers(ValidNumbersOfColumn(plot, column))) {
        ranges.limits.limits[0] = statistics->least;
    }
}

bool DividesGrid(const PlotRecord& record, const ClassSettings& settings) {
    return settings.mode == kClassesByNumber && settings.plotType != kClassifiedPoints
           && record.PlotKind != kRose;
}

/// The numbers that ranges divide: those of the rows, or of the nodes of a grid to be shown.
NumberStatistics NumbersToDivide(const Plot& plot, const ClassSettings& settings, int gridSize) {
    const NumberStatistics rows = StatisticsOfNumbers(ValidNumbersOfColumn(plot, kNumberClasses))
                                      .value_or(NumberStatistics{});
    if (!DividesGrid(plot.record, settings)) {
        return rows;
    }
    const GridLayer layer =
        settings.gridValue == ClassGridValue::Mean ? kMeanLayer : kCumulativeLayer;
    std::optional<NumberStatistics> nodes =
        StatisticsOfNumbers(NodeValuesOf(plot, layer, gridSize));
    if (nodes && settings.plotType == kContoursWithDataPoints) {
        nodes->least = std::min(nodes->least, rows.least);
        nodes->greatest = std::max(nodes->greatest, rows.greatest);
    }
    return nodes.value_or(rows);
}

std::vector<double> NumbersAmong(const std::vector<std::string>& texts) {
    std::vector<double> numbers;
    for (const std::string& text : texts) {
        const std::optional<double> number = ParseAppendedNumber(text);
        // "2" and "2.0" are different names for one number.
        if (number && std::ranges::find(numbers, *number) == numbers.end()) {
            numbers.push_back(*number);
        }
    }
    return numbers;
}

std::string RefusalOf(const ClassSettings& settings, const PlotRecord& record) {
    if (settings.mode < kNotClassified || settings.mode > kClassesByName
        || settings.plotType < kClassifiedPoints || settings.plotType > kContoursWithDataPoints) {
        return kNoSuchChoice;
    }
    if (settings.mode == kClassesByNumber && record.HasAppendedNumeric == 0) {
        return kNoNumbers;
    }
    if (settings.mode > kClassesByNumber && record.HasAppendedText == 0) {
        return kNoTexts;
    }
    return {};
}

/// Mean width of classes within the limits; finite for any range.
double MeanWidth(const ClassLimits& limits) {
    constexpr double kMost = std::numeric_limits<double>::max();
    return std::clamp((limits.top - limits.limits[0]) / limits.base, -kMost, kMost);
}

void WriteSettings(PlotRecord& record, const ClassSettings& settings) {
    record.ClassTable = TableOfSettings(settings, record.ClassTable);
    record.ClassMode = settings.mode;
    record.NumClasses =
        settings.mode == kClassesByNumber ? settings.plotType : std::int16_t{kClassifiedPoints};
    record.ClassStats[kGridChoice] = {static_cast<double>(settings.gridValue),
                                      settings.background.value_or(kUnsetValue)};
    const std::optional<ClassColumn> column = ColumnOfClassMode(settings.mode);
    const bool hasRanges = column && *column != kNameClasses;
    const ClassLimits& limits =
        column == kTextNumberClasses ? settings.textNumbers.limits : settings.numbers.limits;
    record.ClassLow = hasRanges ? limits.limits[0] : 0;
    record.ClassHigh = hasRanges ? limits.top : 0;
    record.ClassWidth = hasRanges && limits.base > 0 ? MeanWidth(limits) : kUnsetValue;
    record.Modified = kTrue;
}

} // namespace

ClassSettings ClassSettingsOf(const Plot& plot) {
    const PlotRecord& record = plot.record;
    const ClassTableCells& table = record.ClassTable;
    ClassSettings settings;
    settings.mode = record.ClassMode;
    settings.plotType = record.NumClasses;
    settings.numbers = RangesOfTable(table, kNumberClasses);
    settings.textNumbers = RangesOfTable(table, kTextNumberClasses);
    if (record.ClassMode == kNotClassified) {
        ShowLowest(plot, settings.numbers, kNumberClasses);
        ShowLowest(plot, settings.textNumbers, kTextNumberClasses);
    }
    settings.types = WholeOf(table[kBaseRow][kTextNumberClasses], kMostNames);
    for (std::size_t k = 0; k < settings.names.size(); ++k) {
        settings.names[k] = NameOfCell(table[kLowestRow + k][kNameClasses]);
    }
    settings.keepOthers = NumberOf(table[kFlagRow][kTextNumberClasses]) > 0;
    settings.treatAsNumeric = NumberOf(table[kBaseRow][kNameClasses]) == kOn;
    settings.caseSensitive = NumberOf(table[kFlagRow][kNameClasses]) == kOn;
    settings.gridValue = GridValueShown(record);
    settings.background = GridBackground(record);
    return settings;
}

ClassSettings SettingsOfActivePlot() {
    return ClassSettingsOf(ActivePlot());
}

ClassTableCells TableOfSettings(const ClassSettings& settings, const ClassTableCells& former) {
    ClassTableCells table = former;
    WriteRanges(table, kNumberClasses, settings.numbers);
    WriteRanges(table, kTextNumberClasses, settings.textNumbers);
    if (!settings.treatAsNumeric) {
        table[kBaseRow][kTextNumberClasses] = WholeCell(std::clamp(settings.types, 0, kMostNames));
        table[kFlagRow][kTextNumberClasses] = WholeCell(settings.keepOthers ? 1 : 0);
    }
    for (std::size_t k = 0; k < settings.names.size(); ++k) {
        table[kLowestRow + k][kNameClasses] = settings.names[k];
    }
    table[kBaseRow][kNameClasses] = WholeCell(settings.treatAsNumeric ? kOn : 0);
    table[kFlagRow][kNameClasses] = WholeCell(settings.caseSensitive ? kOn : 0);
    return table;
}

std::string FillRanges(ClassSettings& settings, RangeProcedure procedure, int classes) {
    ClassLimits& limits = settings.numbers.limits;
    if (procedure == RangeProcedure::LastUsed || procedure == RangeProcedure::Custom) {
        SetNumberOfRanges(limits, classes);
        return {};
    }
    const NumberStatistics numbers = NumbersToDivide(ActivePlot(), settings, gSettings.gridSize);
    if (procedure == RangeProcedure::EqualRanges) {
        limits = EqualRanges(numbers.least, numbers.greatest, classes);
        return {};
    }
    Result<ClassLimits> splits = DeviationSplits(numbers.mean, numbers.standardDeviation, classes);
    if (!splits) {
        return splits.Error();
    }
    limits = *splits;
    return {};
}

void FillTypes(ClassSettings& settings, TypeProcedure procedure, int classes) {
    settings.types = std::clamp(classes, 1, kMostNames);
    if (procedure == TypeProcedure::LastUsed || procedure == TypeProcedure::Custom) {
        SetNumberOfRanges(settings.textNumbers.limits, classes);
        return;
    }
    std::vector<std::string> found =
        OrderNames(DistinctTexts(settings.caseSensitive), static_cast<NameOrder>(procedure));
    found.resize(std::min(found.size(), At(settings.types)));
    settings.textNumbers.limits = ValueRanges(NumbersAmong(found));
    settings.names.fill({});
    std::ranges::move(found, settings.names.begin());
}

namespace {

std::optional<RangeProcedure> ProcedureOf(const Plot& plot, const ClassSettings& settings,
                                          int gridSize) {
    const ClassLimits& limits = settings.numbers.limits;
    // Both procedures make classes of equal width: comparing two avoids most of the work.
    const double width = UpperLimit(limits, 1) - LowerLimit(limits, 1);
    const double next = UpperLimit(limits, 2) - LowerLimit(limits, 2);
    if (limits.base < 1 || (limits.base > 1 && std::abs(width - next) > 1e-5 * std::abs(width))) {
        return std::nullopt;
    }
    const NumberStatistics numbers = NumbersToDivide(plot, settings, gridSize);
    if (AreAlike(limits, EqualRanges(numbers.least, numbers.greatest, limits.base))) {
        return RangeProcedure::EqualRanges;
    }
    const Result<ClassLimits> splits =
        DeviationSplits(numbers.mean, numbers.standardDeviation, limits.base);
    return splits && AreAlike(limits, *splits) ? std::optional(RangeProcedure::DeviationSplits)
                                               : std::nullopt;
}

LimitForm FormOf(const std::optional<RangeProcedure>& procedure) {
    return procedure == RangeProcedure::DeviationSplits ? LimitForm::Deviations : LimitForm::Plain;
}

} // namespace

std::optional<RangeProcedure> ProcedureOfRanges(const ClassSettings& settings) {
    return ProcedureOf(ActivePlot(), settings, gSettings.gridSize);
}

LimitForm LimitFormOf(const ClassSettings& settings) {
    return FormOf(ProcedureOfRanges(settings));
}

LimitForm LimitFormOf(const Plot& plot, ClassColumn column) {
    return column == kNumberClasses
               ? FormOf(ProcedureOf(plot, ClassSettingsOf(plot), plot.record.GridSize))
               : LimitForm::Plain;
}

void SetNumberOfRanges(ClassLimits& limits, int classes) {
    const int base = std::clamp(classes, 1, kMostRanges);
    // New classes have the top limit until the user moves it.
    for (int k = std::max(limits.base, 1); k < base; ++k) {
        limits.limits[At(k)] = limits.top;
    }
    limits.base = base;
}

std::optional<double> LimitOfBox(std::string_view text, std::string_view shown, double held) {
    if (text == shown) {
        return held;
    }
    const double number = NumberFromText(text, gDecimalIsComma);
    if (number == 0 && !ReadNumber(text)) {
        return std::nullopt;
    }
    return number;
}

ClassChoices ChoicesOf(const ClassSettings& settings, const PlotRecord& record) {
    ClassChoices choices;
    choices.byNumber = record.HasAppendedNumeric != 0;
    choices.byType = record.HasAppendedText != 0;
    choices.ranges = choices.byNumber && settings.mode == kClassesByNumber;
    choices.types = choices.byType && settings.mode > kClassesByNumber;
    choices.treatAsNumeric = choices.types;
    choices.caseSensitive = choices.byType && settings.mode == kClassesByName;
    choices.plotType = choices.ranges;
    choices.gridValues = choices.ranges && settings.plotType != kClassifiedPoints;
    choices.background = choices.gridValues && settings.plotType != kGriddedValues;
    return choices;
}

std::string ApplyClassSettings(const ClassSettings& settings) {
    PlotRecord& record = ActiveRecord();
    if (std::string refusal = RefusalOf(settings, record); !refusal.empty()) {
        return refusal;
    }
    ClassSettings applied = settings;
    if (settings.mode > kClassesByNumber) {
        applied.treatAsNumeric = settings.mode == kClassesByTextNumber;
    }
    WriteSettings(record, applied);
    ApplyClassification(record.ClassMode);
    ReplotActivePlot(true);
    UpdateClassStats();
    const std::optional<ClassColumn> column = ColumnOfClassMode(record.ClassMode);
    if (column && DecimalWarningNeeded(ActivePlot(), *column)) {
        Tell(DecimalWarningText(record), Icon::Stop);
    }
    return {};
}

} // namespace quandrel
