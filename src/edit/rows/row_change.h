// SPDX-License-Identifier: MIT
//
// An edit of the rows of a plot as differences: the cells, texts and error lines that it changed,
// and the complete rows that it removed or added. It also keeps the related fields of the record,
// and the state of the followers of rows (core/row_links.h).
//
// Rows are paired before they are compared: rows that stay may change their numbers.

#pragma once

#include "edit/history/plot_change.h"
#include "edit/rows/kept_rows.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// The rows of two states of a plot that have no partner in the other state. All others are
/// partners in order.
struct RowPairing {
    std::vector<std::int32_t> removed; ///< ascending, of the rows before
    std::vector<std::int32_t> added;   ///< ascending, of the rows after
};

/// Pairs the rows 1 to `before` of a state with the rows 1 to `after` of another. Equal numbers of
/// rows are paired one by one. Otherwise rows were removed or added; they are found if all others
/// are the same, else the last ones are taken. O(rows), with as many comparisons.
///
/// @param isSame  whether a row before and a row after are equal
[[nodiscard]] RowPairing
PairRows(std::int32_t before, std::int32_t after,
         const std::function<bool(std::int32_t before, std::int32_t after)>& isSame);

class RowChange final : public PlotChange {
public:
    /// Keeps the rows of a plot before the edit. Throws std::bad_alloc. O(rows).
    explicit RowChange(int slot);

    [[nodiscard]] PlotPart Part() const override { return PlotPart::Rows; }

    /// Reduces this to what the edit has changed. O(rows).
    void Complete(int slot) override;

    void Revert(int slot) override { Exchange(slot); }

    void Apply(int slot) override { Exchange(slot); }

    /// False for an edit that removed or added rows.
    [[nodiscard]] bool Join(PlotChange& next) override;

    [[nodiscard]] std::vector<std::int32_t> RowsConcerned() const override;

    [[nodiscard]] std::uint64_t FingerprintOf(int slot) const override {
        return FingerprintOfRows(slot);
    }

    [[nodiscard]] std::size_t Bytes() const override;

private:
    struct Cell {
        std::int32_t row = 0; ///< by the numbers after the edit, as in all lists of changes
        std::uint32_t bits = 0;
    };

    struct Text {
        std::int32_t row = 0;
        std::string text;
    };

    struct ErrorLine {
        std::int32_t row = 0;
        std::optional<std::string> line;
    };

    /// Rows that exist on only one side of the edit; holds their contents while they do not exist.
    struct Block {
        std::vector<std::int32_t> rows;
        std::array<std::vector<std::uint32_t>, kRowColumns> cells; ///< empty for unused columns
        std::vector<std::string> texts;                            ///< empty for an unused column
        std::vector<ErrorLine> errorLines;

        [[nodiscard]] bool MovesRows() const { return !rows.empty(); }
    };

    void CompareRows(int slot, const KeptRows& before, const RowPairing& pairing);
    void CompareTexts(int slot, const KeptRows& before, const RowPairing& pairing);
    void Exchange(int slot);
    void ExchangeCells(int slot, bool isOtherDisplay);
    void PutLinksBack(int slot) const;
    void FollowBack(std::vector<std::int32_t>& rows) const;

    [[nodiscard]] bool MovesRows() const { return removed_.MovesRows() || added_.MovesRows(); }

    static void FillBlock(Block& block, const KeptRows& before);
    static void TakeOut(int slot, Block& block, std::int32_t& count);
    static void PutIn(int slot, Block& block, std::int32_t& count, bool isOtherDisplay);
    static std::size_t BytesOf(const Block& block);

    std::unique_ptr<KeptRows> before_; ///< until the edit is complete
    RowSettings settings_;             ///< for the other side, as are all below
    std::shared_ptr<const void> links_;
    std::array<std::vector<Cell>, kRowColumns> cells_;
    std::vector<Text> texts_;
    std::vector<ErrorLine> errorLines_;
    Block removed_;
    Block added_;
    bool breaksLink_ = false; ///< the edit ended the link of the plot to a table
    bool isReverted_ = false;
};

} // namespace quandrel
