// SPDX-License-Identifier: MIT

#include "classify/classification.h"

#include "classify/class_limits.h"
#include "classify/column_statistics.h"
#include "core/plot_store.h"
#include "orientation/angles.h"
#include "orientation/number_text.h"
#include "stereo/row_positions.h"
#include "stereo/symbols.h"

#include <algorithm>

namespace quandrel {

namespace {

constexpr int kFirstShape = 2; ///< first symbol code of a shape
constexpr int kShapes = 16;
constexpr double kShareWithoutWarning = 0.7;
constexpr const char* kOtherData = "Other data";

/// The shape a number of steps later. Codes that are not shapes stay.
int LaterShape(int symbol, int steps) {
    const bool isShape = symbol >= kFirstShape && symbol < kFirstShape + kShapes;
    return isShape ? (symbol - kFirstShape + steps) % kShapes + kFirstShape : symbol;
}

int ClassOfValue(const ClassRule& rule, const std::optional<double>& value) {
    if (!value) {
        return rule.keepLow ? 1 : 0;
    }
    return ClassOfNumber(rule, *value);
}

void RestoreSymbols(Plot& plot) {
    for (std::int32_t row = 1; row <= plot.record.NumData; ++row) {
        plot.rows.symbol.At(row) = plot.rows.symbolBase(row);
    }
}

/// The limits of a column as texts.
class LimitLabels {
public:
    LimitLabels(const ClassTableCells& table, ClassColumn column, int base, LimitForm form)
        : table_(table)
        , column_(column)
        , base_(base)
        , form_(form) {}

    /// @param row  of the class table
    [[nodiscard]] std::string At(std::size_t row) const {
        const double limit = Limit(row);
        return WithRegionalDelimiter(form_ == LimitForm::Deviations
                                         ? DeviationLimitText(limit, Limit(2) - Limit(1))
                                         : LimitText(limit));
    }

    /// "lo-hi" of a base class, counted from 1; a class of one value is that value.
    [[nodiscard]] std::string Range(int k) const {
        const std::string low = At(static_cast<std::size_t>(k));
        const std::string high = At(k < base_ ? static_cast<std::size_t>(k) + 1 : kTopRow);
        return low == high ? low : low + "-" + high;
    }

private:
    [[nodiscard]] double Limit(std::size_t row) const { return NumberOf(table_[row][column_]); }

    const ClassTableCells& table_;
    ClassColumn column_;
    int base_;
    LimitForm form_;
};

} // namespace

std::optional<ClassColumn> ColumnOfClassMode(int mode) {
    switch (mode) {
    case kClassesByNumber:
        return kNumberClasses;
    case kClassesByTextNumber:
        return kTextNumberClasses;
    case kClassesByName:
        return kNameClasses;
    default:
        return std::nullopt;
    }
}

int ClassOfRow(const Plot& plot, const ClassRule& rule, std::int32_t row) {
    if (DipOfRow(plot, row) == kErrorRow) {
        return 0;
    }
    if (rule.column == kNameClasses) {
        const bool hasTexts = plot.record.HasAppendedText != 0;
        return ClassOfName(rule, hasTexts ? plot.rows.text(row) : std::string_view());
    }
    return ClassOfValue(rule, NumberOfRow(plot, rule.column, row));
}

int ClassifyRow(std::int32_t row, int mode) {
    const std::optional<ClassColumn> column = ColumnOfClassMode(mode);
    return column
               ? ClassOfRow(ActivePlot(), RuleOfClassTable(ActiveRecord().ClassTable, *column), row)
               : 0;
}

std::vector<std::int32_t> RowsOfClasses(const Plot& plot, int mode) {
    const std::optional<ClassColumn> column = ColumnOfClassMode(mode);
    if (!column) {
        return {};
    }
    const ClassRule rule = RuleOfClassTable(plot.record.ClassTable, *column);
    std::vector<std::int32_t> rows(static_cast<std::size_t>(LastClass(rule)) + 1);
    for (std::int32_t row = 1; row <= plot.record.NumData; ++row) {
        if (DipOfRow(plot, row) != kErrorRow) {
            ++rows[static_cast<std::size_t>(ClassOfRow(plot, rule, row))];
        }
    }
    return rows;
}

SymbolCode CodeOfClass(const Styles& styles, int classNumber) {
    const int place = classNumber - 1;
    const SymbolCode code = CodeOfStyleRow(styles, kFirstClassStyle + place % kClassStyles);
    const int rounds = place / kClassStyles;
    return MakeSymbolCode(CodeColour(code), LaterShape(CodeSymbol(code), rounds), CodeSize(code));
}

void ApplyClassification(Plot& plot, const Styles& styles, std::int16_t mode) {
    PlotRecord& record = plot.record;
    record.NumClassified = 0;
    const std::optional<ClassColumn> column = ColumnOfClassMode(mode);
    if (!column) {
        RestoreSymbols(plot);
        return;
    }
    const ClassRule rule = RuleOfClassTable(record.ClassTable, *column);
    std::vector<SymbolCode> codes = {0};
    for (int classNumber = 1; classNumber <= LastClass(rule); ++classNumber) {
        codes.push_back(CodeOfClass(styles, classNumber));
    }
    for (std::int32_t row = 1; row <= record.NumData; ++row) {
        const auto classNumber = static_cast<std::size_t>(ClassOfRow(plot, rule, row));
        plot.rows.symbol.At(row) = codes[classNumber];
        record.NumClassified += classNumber > 0 ? 1 : 0;
    }
}

void ApplyClassification(std::int16_t mode) {
    ApplyClassification(ActivePlot(), gSettings.styles, mode);
}

void RefreshClassification(Plot& plot, const Styles& styles) {
    if (plot.record.ClassMode > kNotClassified) {
        ApplyClassification(plot, styles, plot.record.ClassMode);
    }
}

std::string ClassLabel(const ClassTableCells& table, ClassColumn column, int classNumber,
                       LimitForm form) {
    const ClassRule rule = RuleOfClassTable(table, column);
    if (column == kNameClasses) {
        return classNumber == 1
                   ? kOtherData
                   : NameOfCell(table[static_cast<std::size_t>(classNumber) - 1][column]);
    }
    const LimitLabels labels(table, column, std::max(rule.base, 1), form);
    if (classNumber == 1) {
        return rule.base > 0 ? "< " + labels.At(1) : labels.Range(1);
    }
    return classNumber > rule.base + 1 ? "> " + labels.At(kTopRow) : labels.Range(classNumber - 1);
}

bool DecimalWarningNeeded(const Plot& plot, ClassColumn column) {
    const PlotRecord& record = plot.record;
    if (column == kNameClasses || record.NumValidData < 1
        || static_cast<double>(record.NumClassified) / record.NumValidData
               >= kShareWithoutWarning) {
        return false;
    }
    for (std::int32_t row = 1; row <= record.NumData; ++row) {
        if (DipOfRow(plot, row) != kErrorRow && !NumberOfRow(plot, column, row)) {
            return true;
        }
    }
    return false;
}

std::string DecimalWarningText(const PlotRecord& record) {
    const double share =
        record.NumValidData > 0 ? 100.0 * record.NumClassified / record.NumValidData : 0;
    return "Only " + FormatNumber(share, "#0.0")
           + "% of your Appended data contributed valid values to the classification. \n"
             "The problem appears to be that the decimal values in your Appended data "
             "do not appear to use "
           + (gDecimalIsComma ? "comma " : "period ")
           + "decimal delimiters consistent with your Windows Regional Settings.\n"
             "If this is a problem then you either need to change the delimiter in your data "
             "or reset the Regional Settings from the Windows Control Panel.";
}

} // namespace quandrel
