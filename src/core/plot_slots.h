// SPDX-License-Identifier: MIT
//
// The slots of the store, each with its plot, and views that address a part of each plot by its
// slot. A view has no state of its own.

#pragma once

#include "core/plot.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>
#include <vector>

namespace quandrel {

/// The plots by their slots. Slot 0 is never an open plot.
class PlotSlots {
public:
    [[nodiscard]] static std::size_t Count() { return plots_.size(); }

    /// The plot of a slot, or null for a slot that was never made.
    [[nodiscard]] static Plot* Find(int slot) {
        const auto s = static_cast<std::size_t>(slot);
        return s < plots_.size() ? plots_[s].get() : nullptr;
    }

    /// The plot of a slot. Throws std::out_of_range for a slot that was never made.
    [[nodiscard]] static Plot& At(std::size_t slot) { return *plots_.at(slot); }

    /// Adds slots with empty plots, or removes the last ones. Addresses of other plots are stable.
    static void Resize(std::size_t count);

private:
    static constinit inline std::vector<std::unique_ptr<Plot>> plots_;
};

/// A part of every plot, as a table indexed by slot: `Path` leads from a plot to the part.
template <auto... Path>
class SlotView {
public:
    [[nodiscard]] auto& operator[](std::size_t slot) const {
        return (PlotSlots::At(slot).*....*Path);
    }

    [[nodiscard]] auto& at(std::size_t slot) const { return (*this)[slot]; }

    [[nodiscard]] static std::size_t size() { return PlotSlots::Count(); }
};

/// The column of rows to which `Path` leads.
template <auto... Path>
[[nodiscard]] auto& ColumnAt(PlotRows& rows) {
    return (rows.*....*Path);
}

/// A column of the rows of all plots. A cell is addressed by (slot, row).
template <class T>
class DataColumn {
public:
    explicit constexpr DataColumn(RowColumn<T>& (*column)(PlotRows&))
        : column_(column) {}

    /// The cell, or the default when nothing was written there.
    [[nodiscard]] T operator()(int slot, std::int32_t row) const {
        Plot* plot = PlotSlots::Find(slot);
        return plot != nullptr ? column_(plot->rows)(row) : T{};
    }

    /// The cell, writable. The slot must have been grown to hold the row.
    [[nodiscard]] T& At(int slot, std::int32_t row) const { return Of(slot).At(row); }

    /// The cells of rows 0 to n of a slot, where n is the number of rows that it was grown to.
    [[nodiscard]] std::span<const T> Rows(int slot) const {
        Plot* plot = PlotSlots::Find(slot);
        return plot != nullptr ? column_(plot->rows).Rows() : std::span<const T>();
    }

    /// How many cells a slot has, the unused one of row 0 included; 0 when it never grew.
    [[nodiscard]] std::int32_t RowCount(int slot) const {
        return static_cast<std::int32_t>(Rows(slot).size());
    }

    /// The highest row that any slot can hold. 0 when none has rows.
    [[nodiscard]] std::int32_t Capacity() const {
        std::int32_t most = 1;
        for (std::size_t slot = 0; slot < PlotSlots::Count(); ++slot) {
            most = std::max(most, RowCount(static_cast<int>(slot)));
        }
        return most - 1;
    }

    /// As RowColumn::Grow.
    void Grow(int slot, std::int32_t capacity) const { Of(slot).Grow(capacity); }

private:
    [[nodiscard]] RowColumn<T>& Of(int slot) const {
        return column_(PlotSlots::At(static_cast<std::size_t>(slot)).rows);
    }

    RowColumn<T>& (*column_)(PlotRows&);
};

/// The column of the texts of all plots.
class TextColumn {
public:
    /// The text, or an empty one when nothing was written there. Valid until the slot's next Set.
    [[nodiscard]] std::string_view operator()(int slot, std::int32_t row) const {
        const Plot* plot = PlotSlots::Find(slot);
        return plot != nullptr ? plot->rows.text(row) : std::string_view();
    }

    /// Writes a text. The slot must have been grown to hold the row. Throws std::bad_alloc.
    void Set(int slot, std::int32_t row, std::string_view text) const { Of(slot).Set(row, text); }

    [[nodiscard]] std::int32_t RowCount(int slot) const {
        const Plot* plot = PlotSlots::Find(slot);
        return plot != nullptr ? plot->rows.text.RowCount() : 0;
    }

    void Grow(int slot, std::int32_t capacity) const { Of(slot).Grow(capacity); }

private:
    [[nodiscard]] static RowTexts& Of(int slot) {
        return PlotSlots::At(static_cast<std::size_t>(slot)).rows.text;
    }
};

} // namespace quandrel
