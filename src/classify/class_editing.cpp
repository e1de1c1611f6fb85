// SPDX-License-Identifier: MIT

#include "classify/class_editing.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "core/settings.h"
#include "orientation/angles.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace quandrel {

namespace {

std::size_t At(int place) {
    return static_cast<std::size_t>(place);
}

bool IsBaseLine(int line, int classes) {
    return line >= 1 && line <= classes;
}

void FillFirstTypes(ClassSettings& settings) {
    const std::size_t found = DistinctTexts(settings.caseSensitive).size();
    FillTypes(settings, TypeProcedure::FirstFound, static_cast<int>(found));
}

/// Gives the rows of a plot other than the active one the present styles of their classes.
void TakeClassStyles(int slot) {
    const PlotInWork work(slot);
    PlotRecord& record = ActiveRecord();
    const std::int32_t counted = record.NumClassified;
    ApplyClassification(record.ClassMode);
    if (record.PlotKind == kRose) {
        record.NumClassified = counted; // the count of the rose, which shows no symbols
    } else {
        RedrawPlot(slot);
    }
}

} // namespace

ClassKind KindOfMode(int mode) {
    const std::optional<ClassColumn> column = ColumnOfClassMode(mode);
    if (!column) {
        return ClassKind::None;
    }
    return *column == kNumberClasses ? ClassKind::Numbers : ClassKind::Types;
}

void ChooseClassKind(ClassSettings& settings, ClassKind kind) {
    switch (kind) {
    case ClassKind::None:
        settings.mode = kNotClassified;
        return;
    case ClassKind::Numbers:
        settings.mode = kClassesByNumber;
        if (settings.numbers.limits.base == 0) {
            // Equal ranges are valid for any number of classes.
            (void)FillRanges(settings, RangeProcedure::EqualRanges, kFirstRangeCount);
        }
        return;
    case ClassKind::Types:
        settings.mode = settings.treatAsNumeric ? kClassesByTextNumber : kClassesByName;
        if (ClassesOfKind(settings, kind) == 0) {
            FillFirstTypes(settings);
        }
        return;
    }
}

void ChooseNumericTypes(ClassSettings& settings, bool areNumbers) {
    settings.treatAsNumeric = areNumbers;
    if (KindOfMode(settings.mode) == ClassKind::Types) {
        settings.mode = areNumbers ? kClassesByTextNumber : kClassesByName;
    }
    const ClassLimits& limits = settings.textNumbers.limits;
    if (areNumbers && (limits.base == 0 || !LimitsAscend(limits))) {
        ClassSettings filled = settings;
        FillFirstTypes(filled);
        settings.textNumbers.limits = filled.textNumbers.limits;
    }
    if (!areNumbers && settings.types == 0) {
        FillFirstTypes(settings);
    }
}

bool HasRangeLines(const ClassSettings& settings, ClassKind kind) {
    return kind != ClassKind::Types || settings.treatAsNumeric;
}

ClassRanges& RangesOfKind(ClassSettings& settings, ClassKind kind) {
    return kind == ClassKind::Types ? settings.textNumbers : settings.numbers;
}

const ClassRanges& RangesOfKind(const ClassSettings& settings, ClassKind kind) {
    return kind == ClassKind::Types ? settings.textNumbers : settings.numbers;
}

int ClassesOfKind(const ClassSettings& settings, ClassKind kind) {
    return HasRangeLines(settings, kind) ? RangesOfKind(settings, kind).limits.base
                                         : settings.types;
}

int ClassOfLine(const ClassSettings& settings, ClassKind kind, int line) {
    const int classes = ClassesOfKind(settings, kind);
    if (!HasRangeLines(settings, kind)) {
        return line == 0 || IsBaseLine(line, classes) ? line + 1 : 0;
    }
    if (line == kHighLine) {
        return classes + 2;
    }
    if (classes == 0) {
        // Without base classes the limits enclose class 1, and no low class is kept.
        return line == 1 ? 1 : 0;
    }
    return line == 0 || IsBaseLine(line, classes) ? line + 1 : 0;
}

bool IsLineKept(const ClassSettings& settings, ClassKind kind, int line) {
    if (ClassOfLine(settings, kind, line) == 0) {
        return false;
    }
    if (!HasRangeLines(settings, kind)) {
        return line > 0 || settings.keepOthers;
    }
    const ClassRanges& ranges = RangesOfKind(settings, kind);
    if (line == 0) {
        return ranges.keepLow;
    }
    return line != kHighLine || ranges.keepHigh;
}

double LimitAt(const ClassLimits& limits, int box) {
    const int range = box / 2 + 1;
    return box % 2 == 0 ? LowerLimit(limits, range) : UpperLimit(limits, range);
}

void SetLimitAt(ClassLimits& limits, int box, double value) {
    const int place = (box + 1) / 2; // limit 0 is the lowest, limit k the upper limit of range k
    if (place > 0 && place >= limits.base) {
        limits.top = value;
    } else {
        limits.limits[At(place)] = value;
    }
}

bool LimitsAscend(const ClassLimits& limits) {
    for (int range = 1; range <= std::max(limits.base, 1); ++range) {
        if (UpperLimit(limits, range) < LowerLimit(limits, range)) {
            return false;
        }
    }
    return true;
}

std::string LimitBoxText(const ClassLimits& limits, int box, LimitForm form) {
    const double limit = LimitAt(limits, box);
    if (form == LimitForm::Plain) {
        return ShownNumber(limit);
    }
    const double deviation = UpperLimit(limits, 1) - LowerLimit(limits, 1);
    return WithRegionalDelimiter(DeviationLimitText(limit, deviation));
}

std::string ShownNumber(double number) {
    return WithRegionalDelimiter(LimitText(number));
}

ClassFigures FiguresOfActivePlot() {
    const bool hasNumbers = ActiveRecord().HasAppendedNumeric != 0;
    ClassFigures figures;
    figures.column = StatisticsOfColumn(hasNumbers ? kNumberClasses : kTextNumberClasses);
    figures.types = StatisticsOfColumn(kNameClasses).distinct;
    figures.means = RangeOfGridValues(ClassGridValue::Mean);
    figures.sums = RangeOfGridValues(ClassGridValue::Cumulative);
    return figures;
}

bool HasNumericTypes() {
    const std::int32_t rows = ActiveRecord().NumData;
    for (std::int32_t row = 1; row <= rows; ++row) {
        if (DipOfRow(gActivePlot, row) != kErrorRow && AppendedTextNumberOfRow(ActivePlot(), row)) {
            return true;
        }
    }
    return false;
}

ClassStyles StylesOfClasses(int firstRow) {
    ClassStyles styles;
    std::copy_n(gSymbolTable.begin() + firstRow, styles.size(), styles.begin());
    return styles;
}

void WriteStylesOfClasses(const ClassStyles& styles, int firstRow) {
    std::ranges::copy(styles, gSymbolTable.begin() + firstRow);
}

std::string ApplyClasses(const ClassSettings& settings, const ClassStyles& styles) {
    const ClassStyles former = StylesOfClasses(kFirstClassStyle);
    WriteStylesOfClasses(styles, kFirstClassStyle);
    std::string refusal = ApplyClassSettings(settings);
    if (!refusal.empty()) {
        WriteStylesOfClasses(former, kFirstClassStyle);
        return refusal;
    }
    for (int slot = 1; styles != former && slot <= HighestSlot(); ++slot) {
        if (slot != gActivePlot && IsOpenSlot(slot) && RecordOf(slot).ClassMode > kNotClassified) {
            TakeClassStyles(slot);
        }
    }
    return {};
}

} // namespace quandrel
