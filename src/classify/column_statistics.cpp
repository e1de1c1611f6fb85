// SPDX-License-Identifier: MIT

#include "classify/column_statistics.h"

#include "core/appended_number.h"
#include "core/letter_case.h"
#include "core/plot_store.h"
#include "density/class_grid.h"
#include "density/grid_geometry.h"
#include "orientation/angles.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <unordered_set>

namespace quandrel {

namespace {

/// Calls a function with each valid main row of a plot until it returns false.
template <class Visit>
void VisitRows(const Plot& plot, Visit visit) {
    for (std::int32_t row = 1; row <= plot.record.NumData; ++row) {
        if (DipOfRow(plot, row) != kErrorRow && !visit(row)) {
            return;
        }
    }
}

ColumnStatistics StatisticsOfNames() {
    ColumnStatistics result;
    std::unordered_set<std::string> known;
    VisitRows(ActivePlot(), [&](std::int32_t row) {
        const std::string_view text = gAppText(gActivePlot, row);
        if (!text.empty()) {
            ++result.valid;
            known.insert(LowerCase(std::string(text)));
        }
        return true;
    });
    result.distinct = known.size();
    return result;
}

void StoreRange(std::array<double, 2>& row, const std::optional<ValueRange>& range) {
    row = range ? std::array{range->least, range->greatest} : std::array{0.0, 0.0};
}

} // namespace

std::optional<double> AppendedNumberOfRow(const Plot& plot, std::int32_t row) {
    if (plot.record.HasAppendedNumeric == 0 || row >= plot.rows.number.RowCount()) {
        return std::nullopt;
    }
    const float number = plot.rows.number(row);
    return number == kInvalidNumber ? std::nullopt : std::optional(static_cast<double>(number));
}

std::optional<double> AppendedTextNumberOfRow(const Plot& plot, std::int32_t row) {
    return plot.record.HasAppendedText == 0 ? std::nullopt
                                            : ParseAppendedNumber(plot.rows.text(row));
}

std::optional<double> NumberOfRow(const Plot& plot, ClassColumn column, std::int32_t row) {
    return column == kNumberClasses ? AppendedNumberOfRow(plot, row)
                                    : AppendedTextNumberOfRow(plot, row);
}

ColumnStatistics StatisticsOfColumn(ClassColumn column) {
    if (column == kNameClasses) {
        return ActiveRecord().HasAppendedText != 0 ? StatisticsOfNames() : ColumnStatistics{};
    }
    const std::vector<double> numbers = ValidNumbersOfColumn(ActivePlot(), column);
    return {StatisticsOfNumbers(numbers), numbers.size(), CountDistinctNumbers(numbers)};
}

std::vector<double> ValidNumbersOfColumn(const Plot& plot, ClassColumn column) {
    std::vector<double> numbers;
    VisitRows(plot, [&](std::int32_t row) {
        if (const std::optional<double> number = NumberOfRow(plot, column, row)) {
            numbers.push_back(*number);
        }
        return true;
    });
    return numbers;
}

std::vector<std::string> DistinctTexts(bool caseSensitive, std::size_t most) {
    std::vector<std::string> found;
    if (ActiveRecord().HasAppendedText == 0) {
        return found;
    }
    VisitRows(ActivePlot(), [&](std::int32_t row) {
        const std::string_view text = gAppText(gActivePlot, row);
        const bool isKnown = std::ranges::any_of(found, [&](const std::string& held) {
            return caseSensitive ? held == text : EqualWithoutCase(held, text);
        });
        if (!text.empty() && !isKnown) {
            found.emplace_back(text);
        }
        return found.size() < most;
    });
    return found;
}

std::optional<ValueRange> RangeOfGridValues(ClassGridValue which) {
    const auto slot = static_cast<std::size_t>(gActivePlot);
    if (slot >= gGridCount.size() || gGridCount[slot] == 0 || gGridValues[slot] == nullptr) {
        return std::nullopt;
    }
    const auto& grid =
        (*gGridValues[slot])[which == ClassGridValue::Mean ? kMeanLayer : kCumulativeLayer];
    const auto nodes =
        static_cast<std::size_t>(std::clamp(GridNodes(ActiveRecord().GridSize), 0, kGridNodes));
    std::optional<ValueRange> range;
    for (std::size_t column = 0; column < nodes; ++column) {
        for (std::size_t row = 0; row < nodes; ++row) {
            const double value = grid[column][row];
            if (value != kUnsetValue) {
                range = range ? ValueRange{std::min(range->least, value),
                                           std::max(range->greatest, value)}
                              : ValueRange{value, value};
            }
        }
    }
    return range;
}

void UpdateClassStats() {
    PlotRecord& record = ActiveRecord();
    const ClassColumn column = record.HasAppendedNumeric != 0 ? kNumberClasses : kTextNumberClasses;
    const NumberStatistics raw = StatisticsOfNumbers(ValidNumbersOfColumn(ActivePlot(), column))
                                     .value_or(NumberStatistics{});
    record.ClassStats[kRawRange] = {raw.least, raw.greatest};
    record.ClassStats[kRawMean] = {raw.mean, raw.standardDeviation};
    StoreRange(record.ClassStats[kMeansRange], RangeOfGridValues(ClassGridValue::Mean));
    StoreRange(record.ClassStats[kCumulativeRange], RangeOfGridValues(ClassGridValue::Cumulative));
}

} // namespace quandrel
