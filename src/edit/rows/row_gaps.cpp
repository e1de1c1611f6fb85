// SPDX-License-Identifier: MIT

#include "edit/rows/row_gaps.h"

#include "core/plot_store.h"
#include "core/row_removal.h"
#include "edit/rows/kept_rows.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <utility>

namespace quandrel {

namespace {

/// Moves row i + 1 to the row of list element i; the others become empty.
void MoveDown(const TextColumn& column, int slot, std::span<const std::int32_t> stay,
              std::span<const std::int32_t> others, std::int32_t count) {
    if (column.RowCount(slot) == 0) {
        return;
    }
    column.Grow(slot, count);
    for (std::size_t place = stay.size(); place > 0; --place) {
        const auto row = static_cast<std::int32_t>(place);
        if (row != stay[place - 1]) {
            column.Set(slot, stay[place - 1], std::string(column(slot, row)));
        }
    }
    for (const std::int32_t row : others) {
        column.Set(slot, row, "");
    }
}

} // namespace

std::vector<std::int32_t> RowsBeside(std::span<const std::int32_t> others, std::int32_t count) {
    std::vector<std::int32_t> rows;
    rows.reserve(static_cast<std::size_t>(count) - others.size());
    auto next = others.begin();
    for (std::int32_t row = 1; row <= count; ++row) {
        if (next != others.end() && *next == row) {
            ++next;
        } else {
            rows.push_back(row);
        }
    }
    return rows;
}

void CloseGaps(int slot, std::span<const std::int32_t> rows, std::int32_t count) {
    RemoveCells(PlotOf(slot).rows, count, rows);
}

void OpenGaps(int slot, std::span<const std::int32_t> rows, std::int32_t count) {
    const std::vector<std::int32_t> stay = RowsBeside(rows, count);
    ForEachColumn([&](auto& column, std::size_t) {
        if (column.RowCount(slot) > 0) {
            column.Grow(slot, count);
        }
    });
    MoveDown(gAppText, slot, stay, rows, count);
    ForEachColumn([&](auto& column, std::size_t) {
        for (std::size_t place = column.RowCount(slot) > 0 ? stay.size() : 0; place > 0; --place) {
            column.At(slot, stay[place - 1]) = column(slot, static_cast<std::int32_t>(place));
        }
    });
    ErrorLines& lines = PlotOf(slot).rows.errorLines;
    ErrorLines renumbered;
    for (auto& [row, line] : lines) {
        if (row >= 1 && static_cast<std::size_t>(row) <= stay.size()) {
            renumbered[stay[static_cast<std::size_t>(row) - 1]] = std::move(line);
        }
    }
    lines = std::move(renumbered);
}

} // namespace quandrel
