// SPDX-License-Identifier: MIT

#include "core/row_removal.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace quandrel {

namespace {

/// The remaining rows, ascending.
std::vector<std::int32_t> RowsThatStay(std::int32_t count, std::span<const std::int32_t> removed) {
    std::vector<std::int32_t> stay;
    stay.reserve(static_cast<std::size_t>(count));
    auto next = removed.begin();
    for (std::int32_t row = 1; row <= count; ++row) {
        if (next != removed.end() && *next == row) {
            ++next;
        } else {
            stay.push_back(row);
        }
    }
    return stay;
}

/// Cells beyond a column's end were never written and read as the default.
template <class T>
void MoveUp(const std::vector<std::int32_t>& stay, RowColumn<T>& column) {
    const std::int32_t end = column.RowCount();
    for (std::size_t place = 0; place < stay.size(); ++place) {
        const auto row = static_cast<std::int32_t>(place) + 1;
        if (row >= end) {
            return;
        }
        column.At(row) = column(stay[place]);
    }
}

void MoveUp(const std::vector<std::int32_t>& stay, MeasuredColumns& columns) {
    MoveUp(stay, columns.dip);
    MoveUp(stay, columns.dipOffset);
    MoveUp(stay, columns.azimuth);
    MoveUp(stay, columns.azimuthOffset);
}

void MoveUp(const std::vector<std::int32_t>& stay, MapColumns& columns) {
    MoveUp(stay, columns.xHigh);
    MoveUp(stay, columns.xLow);
    MoveUp(stay, columns.yHigh);
    MoveUp(stay, columns.yLow);
}

void MoveUp(const std::vector<std::int32_t>& stay, RowTexts& column) {
    const std::int32_t end = column.RowCount();
    for (std::size_t place = 0; place < stay.size() && stay[place] < end; ++place) {
        const auto row = static_cast<std::int32_t>(place) + 1;
        if (row != stay[place]) {
            column.Set(row, std::string(column(stay[place])));
        }
    }
}

ErrorLines Renumbered(const std::vector<std::int32_t>& stay, ErrorLines lines) {
    ErrorLines renumbered;
    for (auto& [row, line] : lines) {
        const auto place = std::lower_bound(stay.begin(), stay.end(), row);
        if (place != stay.end() && *place == row) {
            renumbered[static_cast<std::int32_t>(place - stay.begin()) + 1] = std::move(line);
        }
    }
    return renumbered;
}

} // namespace

void RemoveCells(PlotRows& rows, std::int32_t count, std::span<const std::int32_t> removed) {
    const std::vector<std::int32_t> stay = RowsThatStay(count, removed);
    const auto moveUp = [&stay](auto&... columns) { (MoveUp(stay, columns), ...); };
    moveUp(rows.dip, rows.azimuth, rows.symbol, rows.symbolBase, rows.pointDensity, rows.order,
           rows.dip2, rows.azimuth2, rows.lineDip, rows.lineAzimuth, rows.number, rows.text,
           rows.measured, rows.measured2, rows.measuredLine, rows.mapPlaces);
    rows.errorLines = Renumbered(stay, std::move(rows.errorLines));
}

} // namespace quandrel
