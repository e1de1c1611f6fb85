// SPDX-License-Identifier: MIT

#include "core/row_table.h"

#include "core/tagged_value.h"
#include "orientation/angles.h"

#include <algorithm>
#include <atomic>
#include <new>
#include <numeric>

namespace quandrel {

namespace {

template <class T>
void Permute(std::vector<T>& column, const std::vector<std::uint32_t>& order) {
    std::vector<T> sorted(order.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        sorted[i] = column[order[i]];
    }
    std::copy(sorted.begin(), sorted.end(), column.begin());
}

/// The positions of the first `rows` lines, sorted by x.
std::vector<std::uint32_t> OrderByX(const std::vector<std::int16_t>& x, std::size_t rows) {
    const auto [lowest, highest] =
        std::minmax_element(x.begin(), x.begin() + static_cast<long>(rows));
    const int first = *lowest;
    std::vector<std::uint32_t> starts(static_cast<std::size_t>(*highest - first) + 2, 0);
    for (std::size_t i = 0; i < rows; ++i) {
        ++starts[static_cast<std::size_t>(x[i] - first) + 1];
    }
    std::partial_sum(starts.begin(), starts.end(), starts.begin());
    std::vector<std::uint32_t> order(rows);
    for (std::size_t i = 0; i < rows; ++i) {
        order[starts[static_cast<std::size_t>(x[i] - first)]++] = static_cast<std::uint32_t>(i);
    }
    return order;
}

/// Atomic, for plots of several threads are filled at once.
std::atomic<std::uint64_t> lastVersion = 0;

void MarkChanged(RowTable& table) {
    table.version = ++lastVersion;
}

} // namespace

bool IsErrorRow(double plunge) {
    return plunge == kErrorRow;
}

void ClearRowTable(RowTable& table) {
    ResizeRowTable(table, 0);
}

void ReleaseRowTable(RowTable& table) {
    ClearRowTable(table);
    const auto release = [](auto&... columns) { (columns.shrink_to_fit(), ...); };
    release(table.index, table.x, table.y, table.plunge, table.trend);
}

void AppendRow(RowTable& table, const PlottedRow& row) {
    table.index.push_back(row.index);
    table.x.push_back(row.x);
    table.y.push_back(row.y);
    table.plunge.push_back(row.plunge);
    table.trend.push_back(row.trend);
    MarkChanged(table);
}

void AppendRows(RowTable& table, std::span<const PlottedRow> rows, std::int32_t last) {
    std::size_t place = table.size();
    const std::size_t end = place + rows.size();
    const auto grow = [end](auto&... columns) { (columns.resize(end), ...); };
    grow(table.index, table.x, table.y, table.plunge, table.trend);
    for (const PlottedRow& row : rows) {
        table.index[place] = ++last;
        table.x[place] = row.x;
        table.y[place] = row.y;
        table.plunge[place] = row.plunge;
        table.trend[place] = row.trend;
        ++place;
    }
    MarkChanged(table);
}

void SetRow(RowTable& table, std::size_t place, const PlottedRow& row) {
    table.index[place] = row.index;
    table.x[place] = row.x;
    table.y[place] = row.y;
    table.plunge[place] = row.plunge;
    table.trend[place] = row.trend;
    MarkChanged(table);
}

void ReserveRows(RowTable& table, std::size_t rows) {
    try {
        table.index.reserve(rows);
        table.x.reserve(rows);
        table.y.reserve(rows);
        table.plunge.reserve(rows);
        table.trend.reserve(rows);
    } catch (const std::bad_alloc&) {
        // Rows that come one by one may find enough memory where the whole did not.
        return;
    }
}

void ResizeRowTable(RowTable& table, std::size_t rows) {
    table.index.resize(rows);
    table.x.resize(rows);
    table.y.resize(rows);
    table.plunge.resize(rows);
    table.trend.resize(rows);
    MarkChanged(table);
}

void SortRowTable(RowTable& table, std::size_t rows) {
    if (rows < 2 || std::is_sorted(table.x.begin(), table.x.begin() + static_cast<long>(rows))) {
        return;
    }
    const std::vector<std::uint32_t> order = OrderByX(table.x, rows);
    Permute(table.index, order);
    Permute(table.x, order);
    Permute(table.y, order);
    Permute(table.plunge, order);
    Permute(table.trend, order);
}

std::string RowTableText(const RowTable& table, std::size_t place, int column) {
    const PlottedRow row = table[place];
    const bool isError = IsErrorRow(row.plunge);
    switch (column) {
    case 0:
        return TextOf(row.index);
    case 1:
        return isError ? std::string() : TextOf(row.x);
    case 2:
        return isError ? std::string() : TextOf(row.y);
    case 3:
        return TextOf(row.plunge);
    case 4:
        return isError ? std::string() : TextOf(row.trend);
    default:
        return {};
    }
}

} // namespace quandrel
