// SPDX-License-Identifier: MIT
//
// The columns that hold the rows of all plots. A cell is addressed (slot, row); row 0 is never
// used. One capacity holds for all slots: a cell within it that was never written reads as the
// default. Inside, the rows of a slot are contiguous, and take memory only once the slot has rows.

#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace quandrel {

template <class T>
class DataColumn {
public:
    /// The cell, or the default when nothing was written there.
    [[nodiscard]] T operator()(int slot, std::int32_t row) const {
        const auto s = static_cast<std::size_t>(slot);
        const auto r = static_cast<std::size_t>(row);
        return s < rows_.size() && r < rows_[s].size() ? rows_[s][r] : T{};
    }

    /// The cell, to be written. The slot must have been grown to hold the row.
    [[nodiscard]] T& At(int slot, std::int32_t row) {
        return rows_[static_cast<std::size_t>(slot)][static_cast<std::size_t>(row)];
    }

    /// The cells of rows 0 to n of a slot, n the rows that it was grown to.
    [[nodiscard]] std::span<const T> Rows(int slot) const {
        const auto s = static_cast<std::size_t>(slot);
        return s < rows_.size() ? std::span<const T>(rows_[s]) : std::span<const T>();
    }

    /// How many cells a slot has, the unused one of row 0 included; 0 when it never grew.
    [[nodiscard]] std::int32_t RowCount(int slot) const {
        const auto s = static_cast<std::size_t>(slot);
        return s < rows_.size() ? static_cast<std::int32_t>(rows_[s].size()) : 0;
    }

    /// The highest row of any slot. 0 when nothing was ever stored.
    [[nodiscard]] std::int32_t Capacity() const { return capacity_; }

    /// Lets a slot hold rows up to `capacity`, keeping contents; amortised O(1) a row. Never
    /// shrinks. Throws std::bad_alloc or std::length_error, and then nothing has changed.
    void Grow(int slot, std::int32_t capacity) {
        const auto s = static_cast<std::size_t>(slot);
        const auto size = static_cast<std::size_t>(capacity) + 1;
        if (s >= rows_.size()) {
            rows_.resize(s + 1);
        }
        std::vector<T>& rows = rows_[s];
        if (size > rows.size()) {
            if (size > rows.capacity()) {
                rows.reserve(std::max(size, rows.capacity() + rows.capacity() / 2));
            }
            rows.resize(size);
        }
        capacity_ = std::max(capacity_, capacity);
    }

    /// Takes back a growth: the slot has `rowCount` cells and the column `capacity` again.
    void Shrink(int slot, std::int32_t rowCount, std::int32_t capacity) {
        const auto s = static_cast<std::size_t>(slot);
        if (s < rows_.size()) {
            rows_[s].resize(static_cast<std::size_t>(rowCount));
        }
        capacity_ = capacity;
    }

    /// Gives the memory of a slot back. Its cells read as the default again.
    void Release(int slot) {
        const auto s = static_cast<std::size_t>(slot);
        if (s < rows_.size()) {
            std::vector<T>().swap(rows_[s]); // an assignment would keep the capacity
        }
    }

    /// Forgets everything, the capacity too.
    void Reset() {
        rows_.clear();
        capacity_ = 0;
    }

private:
    std::vector<std::vector<T>> rows_;
    std::int32_t capacity_ = 0;
};

/// A column of texts. The texts of a slot stand one behind the other in one buffer.
class TextColumn {
public:
    /// The text, or an empty one when nothing was written there. Valid until the slot's next Set.
    [[nodiscard]] std::string_view operator()(int slot, std::int32_t row) const;

    /// Writes a text. The slot must have been grown to hold the row. Throws std::bad_alloc.
    void Set(int slot, std::int32_t row, std::string_view text);

    [[nodiscard]] std::int32_t RowCount(int slot) const { return places_.RowCount(slot); }

    [[nodiscard]] std::int32_t Capacity() const { return places_.Capacity(); }

    void Grow(int slot, std::int32_t capacity) { places_.Grow(slot, capacity); }

    void Shrink(int slot, std::int32_t rowCount, std::int32_t capacity) {
        places_.Shrink(slot, rowCount, capacity);
    }

    void Release(int slot);
    void Reset();

private:
    struct Place {
        std::uint32_t offset = 0;
        std::uint32_t length = 0;
    };

    /// Takes the texts that were written over out of a slot's buffer.
    void Compact(int slot);

    DataColumn<Place> places_;
    std::vector<std::vector<char>> texts_;
    std::vector<std::size_t> unused_; ///< bytes of each buffer that no row refers to
};

} // namespace quandrel
