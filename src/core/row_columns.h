// SPDX-License-Identifier: MIT
//
// The columns that hold the rows of one plot. Cells are addressed by row, from 1; row 0 is never
// used. A cell that was never written reads as the default, even beyond the end of a column.

#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace quandrel {

template <class T>
class RowColumn {
public:
    /// The cell, or the default when nothing was written there.
    [[nodiscard]] T operator()(std::int32_t row) const {
        const auto r = static_cast<std::size_t>(row);
        return r < cells_.size() ? cells_[r] : T{};
    }

    /// The cell, writable. The column must have been grown to hold the row.
    [[nodiscard]] T& At(std::int32_t row) { return cells_[static_cast<std::size_t>(row)]; }

    /// The cells of rows 0 to n, where n is the number of rows that the column was grown to.
    [[nodiscard]] std::span<const T> Rows() const { return cells_; }

    [[nodiscard]] std::span<T> Rows() { return cells_; }

    /// How many cells there are, the unused one of row 0 included; 0 when it never grew.
    [[nodiscard]] std::int32_t RowCount() const { return static_cast<std::int32_t>(cells_.size()); }

    /// Grows to hold rows up to `capacity`, keeping contents; amortised O(1) per row. Never
    /// shrinks. On std::bad_alloc or std::length_error the column is unchanged.
    void Grow(std::int32_t capacity) {
        const auto size = static_cast<std::size_t>(capacity) + 1;
        if (size <= cells_.size()) {
            return;
        }
        if (size > cells_.capacity()) {
            cells_.reserve(std::max(size, cells_.capacity() + cells_.capacity() / 2));
        }
        cells_.resize(size);
    }

    /// Reserves memory for rows up to `capacity`. Throws as Grow.
    void Reserve(std::int32_t capacity) { cells_.reserve(static_cast<std::size_t>(capacity) + 1); }

    /// Undoes a growth: the column has `rowCount` cells again.
    void Shrink(std::int32_t rowCount) { cells_.resize(static_cast<std::size_t>(rowCount)); }

    /// Releases the memory. All cells read as the default again.
    void Release() { std::vector<T>().swap(cells_); } // an assignment would keep the capacity

private:
    std::vector<T> cells_;
};

/// A column of texts, stored one after another in one buffer.
class RowTexts {
public:
    /// The text, or an empty one when nothing was written there. Valid until the next Set.
    [[nodiscard]] std::string_view operator()(std::int32_t row) const;

    /// Writes a text. The column must have been grown to hold the row. Throws std::bad_alloc.
    void Set(std::int32_t row, std::string_view text);

    /// Writes the first `count` texts of another column to the rows after `last`. The column must
    /// have been grown to hold them. On std::bad_alloc it is unchanged.
    void TakeRows(const RowTexts& from, std::int32_t count, std::int32_t last);

    [[nodiscard]] std::int32_t RowCount() const { return places_.RowCount(); }

    void Grow(std::int32_t capacity) { places_.Grow(capacity); }

    /// Reserves memory for the rows, not for their texts.
    void Reserve(std::int32_t capacity) { places_.Reserve(capacity); }

    void Shrink(std::int32_t rowCount) { places_.Shrink(rowCount); }

    /// Makes all texts empty, but keeps the memory.
    void Clear();

    void Release();

private:
    struct Place {
        std::uint32_t offset = 0;
        std::uint32_t length = 0;
    };

    /// Throws std::bad_alloc when the buffer cannot take more bytes.
    void RequireRoom(std::size_t bytes) const;

    /// Removes overwritten texts from the buffer.
    void Compact();

    RowColumn<Place> places_;
    std::vector<char> texts_;
    std::size_t unused_ = 0; ///< bytes of the buffer that no row refers to
};

} // namespace quandrel
