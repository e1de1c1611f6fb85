// SPDX-License-Identifier: MIT

#include "edit/rows/row_change.h"

#include "core/row_links.h"
#include "edit/rows/add_point.h"
#include "edit/rows/row_gaps.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quandrel {

namespace {

/// Memory of a row of a link to a table: a node of each of its two maps.
constexpr std::size_t kBytesOfLinkedRow = 64;

std::uint32_t KeptCell(const KeptRows& kept, std::size_t column, std::int32_t row) {
    const std::vector<std::uint32_t>& cells = kept.cells[column];
    const auto place = static_cast<std::size_t>(row);
    return place < cells.size() ? cells[place] : 0;
}

const std::string& KeptText(const KeptRows& kept, std::int32_t row) {
    static const std::string none;
    const auto place = static_cast<std::size_t>(row);
    return place < kept.texts.size() ? kept.texts[place] : none;
}

std::optional<std::string> LineOf(const ErrorLines& lines, std::int32_t row) {
    const auto found = lines.find(row);
    return found == lines.end() ? std::nullopt : std::optional(found->second);
}

ErrorLines& LinesOf(int slot) {
    return PlotOf(slot).rows.errorLines;
}

void SetLine(ErrorLines& lines, std::int32_t row, std::optional<std::string> line) {
    if (line) {
        lines[row] = std::move(*line);
    } else {
        lines.erase(row);
    }
}

void SetText(int slot, std::int32_t row, const std::string& text) {
    if (gAppText.RowCount(slot) <= row) {
        gAppText.Grow(slot, row);
    }
    if (gAppText(slot, row) != text) {
        gAppText.Set(slot, row, text);
    }
}

template <class T>
void WriteCell(const DataColumn<T>& column, int slot, std::int32_t row, std::uint32_t bits) {
    column.At(slot, row) = CellOf<T>(bits);
}

/// True when a row of the plot equals a kept one, except for what drawings recompute.
bool IsSameRow(int slot, std::int32_t row, const KeptRows& kept, std::int32_t formerRow) {
    bool isSame = true;
    ForEachColumn([&](const auto& column, std::size_t place) {
        isSame = isSame
                 && (IsWorkedOut(place)
                     || BitsOf(column(slot, row)) == KeptCell(kept, place, formerRow));
    });
    return isSame && gAppText(slot, row) == KeptText(kept, formerRow);
}

/// The rows without partners, if all rows of the shorter list have one in the longer, in order.
template <class IsSame>
std::optional<std::vector<std::int32_t>> RowsBetween(std::int32_t longer, std::int32_t shorter,
                                                     const IsSame& isSame) {
    std::vector<std::int32_t> between;
    std::int32_t partner = 1;
    for (std::int32_t row = 1; row <= longer; ++row) {
        if (partner <= shorter && isSame(row, partner)) {
            ++partner;
        } else {
            between.push_back(row);
        }
    }
    return partner > shorter ? std::optional(std::move(between)) : std::nullopt;
}

/// Calls visit(row, former row) for all partners of a pairing, for `count` rows after the edit.
template <class Visit>
void ForEachPair(const RowPairing& pairing, std::int32_t count, const Visit& visit) {
    auto removed = pairing.removed.begin();
    auto added = pairing.added.begin();
    std::int32_t former = 1;
    for (std::int32_t row = 1; row <= count; ++row) {
        if (added != pairing.added.end() && *added == row) {
            ++added;
            continue;
        }
        for (; removed != pairing.removed.end() && *removed == former; ++removed) {
            ++former;
        }
        visit(static_cast<std::size_t>(row), static_cast<std::size_t>(former++));
    }
}

std::vector<std::int32_t> RowsAfter(std::int32_t last, std::int32_t count) {
    std::vector<std::int32_t> rows;
    for (std::int32_t row = last + 1; row <= count; ++row) {
        rows.push_back(row);
    }
    return rows;
}

template <class T>
std::size_t BytesIn(const std::vector<T>& values) {
    return values.capacity() * sizeof(T);
}

/// Memory of a text in addition to the object itself.
std::size_t BytesBeside(const std::string& text) {
    return text.capacity() > std::string().capacity() ? text.capacity() + 1 : 0;
}

void SortOut(std::vector<std::int32_t>& rows) {
    std::ranges::sort(rows);
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
}

/// Merges entries of a later list for other rows into a list; both are sorted by row.
template <class Held>
void JoinLists(std::vector<Held>& held, std::vector<Held>& later) {
    std::vector<Held> joined;
    joined.reserve(held.size() + later.size());
    std::ranges::set_union(
        std::make_move_iterator(held.begin()), std::make_move_iterator(held.end()),
        std::make_move_iterator(later.begin()), std::make_move_iterator(later.end()),
        std::back_inserter(joined), [](const Held& a, const Held& b) { return a.row < b.row; });
    held = std::move(joined);
}

} // namespace

RowPairing PairRows(std::int32_t before, std::int32_t after,
                    const std::function<bool(std::int32_t, std::int32_t)>& isSame) {
    RowPairing pairing;
    if (after < before) {
        pairing.removed = RowsBetween(before, after, isSame).value_or(RowsAfter(after, before));
    } else if (after > before) {
        const auto isSameBackward = [&](std::int32_t a, std::int32_t b) { return isSame(b, a); };
        pairing.added =
            RowsBetween(after, before, isSameBackward).value_or(RowsAfter(before, after));
    }
    return pairing;
}

RowChange::RowChange(int slot)
    : before_(std::make_unique<KeptRows>(KeepRows(slot))) {}

void RowChange::Complete(int slot) {
    const std::unique_ptr<KeptRows> before = std::move(before_);
    settings_ = std::move(before->settings);
    const PlotRecord& record = RecordOf(slot);
    const RowPairing pairing = PairRows(settings_.counts.all, record.NumLoadedData,
                                        [&](std::int32_t former, std::int32_t row) {
                                            return IsSameRow(slot, row, *before, former);
                                        });
    CompareRows(slot, *before, pairing);
    removed_.rows = pairing.removed;
    FillBlock(removed_, *before);
    added_.rows = pairing.added;
    std::ranges::for_each(cells_, [](std::vector<Cell>& cells) { cells.shrink_to_fit(); });
    breaksLink_ = settings_.mapInfoLinked != 0 && record.MapInfoLinked == 0;
    // Links use row numbers, so they are unchanged when these are.
    if (MovesRows() || breaksLink_) {
        links_ = before->links;
    }
}

void RowChange::CompareRows(int slot, const KeptRows& before, const RowPairing& pairing) {
    const std::int32_t count = RecordOf(slot).NumLoadedData;
    // Column by column: most columns are the same, or not in use.
    ForEachColumn([&](const auto& column, std::size_t place) {
        const auto cells = column.Rows(slot);
        const std::vector<std::uint32_t>& formerCells = before.cells[place];
        if (cells.empty() && formerCells.empty()) {
            return;
        }
        ForEachPair(pairing, count, [&](std::size_t row, std::size_t former) {
            const std::uint32_t was = former < formerCells.size() ? formerCells[former] : 0;
            const std::uint32_t is = row < cells.size() ? BitsOf(cells[row]) : 0;
            if (was != is) {
                cells_[place].push_back({static_cast<std::int32_t>(row), was});
            }
        });
    });
    CompareTexts(slot, before, pairing);
}

void RowChange::CompareTexts(int slot, const KeptRows& before, const RowPairing& pairing) {
    const std::int32_t count = RecordOf(slot).NumLoadedData;
    if (!before.texts.empty() || gAppText.RowCount(slot) > 0) {
        ForEachPair(pairing, count, [&](std::size_t place, std::size_t formerPlace) {
            const auto row = static_cast<std::int32_t>(place);
            const std::string& was = KeptText(before, static_cast<std::int32_t>(formerPlace));
            if (was != gAppText(slot, row)) {
                texts_.push_back({row, was});
            }
        });
    }
    if (!before.errorLines.empty() || !LinesOf(slot).empty()) {
        ForEachPair(pairing, count, [&](std::size_t place, std::size_t formerPlace) {
            const auto row = static_cast<std::int32_t>(place);
            auto was = LineOf(before.errorLines, static_cast<std::int32_t>(formerPlace));
            if (was != LineOf(LinesOf(slot), row)) {
                errorLines_.push_back({row, std::move(was)});
            }
        });
    }
}

void RowChange::FillBlock(Block& block, const KeptRows& before) {
    for (std::size_t column = 0; column < kRowColumns; ++column) {
        if (!before.cells[column].empty()) {
            for (const std::int32_t row : block.rows) {
                block.cells[column].push_back(KeptCell(before, column, row));
            }
        }
    }
    for (const std::int32_t row : block.rows) {
        if (!before.texts.empty()) {
            block.texts.push_back(KeptText(before, row));
        }
        if (auto line = LineOf(before.errorLines, row)) {
            block.errorLines.push_back({row, std::move(line)});
        }
    }
}

void RowChange::TakeOut(int slot, Block& block, std::int32_t& count) {
    if (!block.MovesRows()) {
        return;
    }
    ForEachColumn([&](const auto& column, std::size_t place) {
        if (column.RowCount(slot) > 0) {
            for (const std::int32_t row : block.rows) {
                block.cells[place].push_back(BitsOf(column(slot, row)));
            }
        }
    });
    for (const std::int32_t row : block.rows) {
        if (gAppText.RowCount(slot) > 0) {
            block.texts.emplace_back(gAppText(slot, row));
        }
        if (auto line = LineOf(LinesOf(slot), row)) {
            block.errorLines.push_back({row, std::move(line)});
        }
    }
    CloseGaps(slot, block.rows, count);
    count -= static_cast<std::int32_t>(block.rows.size());
}

void RowChange::PutIn(int slot, Block& block, std::int32_t& count, bool isOtherDisplay) {
    if (!block.MovesRows()) {
        return;
    }
    if (isOtherDisplay) {
        block.cells[kDrawnColumn] = block.cells[kBaseColumn];
    }
    count += static_cast<std::int32_t>(block.rows.size());
    OpenGaps(slot, block.rows, count);
    ForEachColumn([&](auto& column, std::size_t place) {
        std::vector<std::uint32_t> cells = std::exchange(block.cells[place], {});
        if (column.RowCount(slot) == 0 && cells.empty()) {
            return;
        }
        cells.resize(block.rows.size());
        column.Grow(slot, count);
        for (std::size_t i = 0; i < cells.size(); ++i) {
            WriteCell(column, slot, block.rows[i], cells[i]);
        }
    });
    for (std::size_t i = 0; i < block.texts.size(); ++i) {
        SetText(slot, block.rows[i], block.texts[i]);
    }
    block.texts = {};
    for (ErrorLine& held : std::exchange(block.errorLines, {})) {
        SetLine(LinesOf(slot), held.row, std::move(held.line));
    }
}

void RowChange::ExchangeCells(int slot, bool isOtherDisplay) {
    ForEachColumn([&](auto& column, std::size_t place) {
        std::vector<Cell>& cells = cells_[place];
        if (!cells.empty()) {
            column.Grow(slot, cells.back().row);
        }
        for (Cell& cell : cells) {
            const std::uint32_t now = BitsOf(column(slot, cell.row));
            WriteCell(column, slot, cell.row, cell.bits);
            cell.bits = now;
        }
    });
    if (isOtherDisplay) {
        for (const std::size_t column : {kDrawnColumn, kBaseColumn}) {
            for (const Cell& cell : cells_[column]) {
                gDataSymbol.At(slot, cell.row) = gDataSymbolBase(slot, cell.row);
            }
        }
    }
    for (Text& held : texts_) {
        std::string now(gAppText(slot, held.row));
        SetText(slot, held.row, held.text);
        held.text = std::move(now);
    }
    for (ErrorLine& held : errorLines_) {
        std::optional<std::string> now = LineOf(LinesOf(slot), held.row);
        SetLine(LinesOf(slot), held.row, std::exchange(held.line, std::move(now)));
    }
}

/// Restores the followers' rows of the other side. The link that the edit broke is restored by its
/// undo, and removed again by its redo.
void RowChange::PutLinksBack(int slot) const {
    FollowerOfRows().putBack(slot, links_);
    if (breaksLink_ && isReverted_) {
        FollowerOfRows().linkAgain(slot, links_);
    } else if (breaksLink_) {
        FollowerOfRows().unlink(slot);
    }
}

void RowChange::Exchange(int slot) {
    isReverted_ = !isReverted_;
    const bool followsLinks = MovesRows() || breaksLink_;
    std::shared_ptr<const void> links = followsLinks ? FollowerOfRows().keep(slot) : nullptr;
    PlotRecord& record = RecordOf(slot);
    RowSettings settings = SettingsOfRows(record);
    // Colours of classes that are no longer shown are not restored.
    const bool isOtherDisplay = settings.classMode != settings_.classMode;
    std::int32_t count = record.NumLoadedData;
    if (isReverted_) {
        ExchangeCells(slot, isOtherDisplay);
        TakeOut(slot, added_, count);
        PutIn(slot, removed_, count, isOtherDisplay);
    } else {
        TakeOut(slot, removed_, count);
        PutIn(slot, added_, count, isOtherDisplay);
        ExchangeCells(slot, isOtherDisplay);
    }
    TakeSettingsOfRows(record, settings_);
    settings_ = std::move(settings);
    RebuildRowTable(slot);
    if (followsLinks) {
        PutLinksBack(slot);
        links_ = std::move(links);
    }
}

bool RowChange::Join(PlotChange& next) {
    auto* const other = dynamic_cast<RowChange*>(&next);
    if (other == nullptr || MovesRows() || other->MovesRows() || breaksLink_ || other->breaksLink_
        || isReverted_ || other->isReverted_) {
        return false;
    }
    // Where both changed a cell, the first one has its original value.
    for (std::size_t column = 0; column < kRowColumns; ++column) {
        JoinLists(cells_[column], other->cells_[column]);
    }
    JoinLists(texts_, other->texts_);
    JoinLists(errorLines_, other->errorLines_);
    return true;
}

std::vector<std::int32_t> RowChange::RowsConcerned() const {
    std::vector<std::int32_t> rows;
    for (std::size_t column = 0; column < kRowColumns; ++column) {
        if (!IsWorkedOut(column)) {
            std::ranges::transform(cells_[column], std::back_inserter(rows), &Cell::row);
        }
    }
    std::ranges::transform(texts_, std::back_inserter(rows), &Text::row);
    std::ranges::transform(errorLines_, std::back_inserter(rows), &ErrorLine::row);
    SortOut(rows);
    if (isReverted_ && MovesRows()) {
        FollowBack(rows);
    }
    const std::vector<std::int32_t>& there = isReverted_ ? removed_.rows : added_.rows;
    rows.insert(rows.end(), there.begin(), there.end());
    SortOut(rows);
    return rows;
}

/// Converts rows, ascending, to their numbers before the edit.
void RowChange::FollowBack(std::vector<std::int32_t>& rows) const {
    std::size_t added = 0;
    std::size_t removed = 0;
    for (std::int32_t& row : rows) {
        while (added < added_.rows.size() && added_.rows[added] < row) {
            ++added;
        }
        const auto place = row - static_cast<std::int32_t>(added);
        while (removed < removed_.rows.size()
               && removed_.rows[removed] <= place + static_cast<std::int32_t>(removed)) {
            ++removed;
        }
        row = place + static_cast<std::int32_t>(removed);
    }
}

std::size_t RowChange::BytesOf(const Block& block) {
    std::size_t bytes = BytesIn(block.rows) + BytesIn(block.texts) + BytesIn(block.errorLines);
    for (const auto& cells : block.cells) {
        bytes += BytesIn(cells);
    }
    for (const std::string& text : block.texts) {
        bytes += BytesBeside(text);
    }
    return bytes;
}

std::size_t RowChange::Bytes() const {
    std::size_t bytes = sizeof(*this) + BytesOf(removed_) + BytesOf(added_) + BytesIn(texts_)
                        + BytesIn(errorLines_);
    for (const auto& cells : cells_) {
        bytes += BytesIn(cells);
    }
    for (const Text& held : texts_) {
        bytes += BytesBeside(held.text);
    }
    if (links_ != nullptr) {
        bytes += static_cast<std::size_t>(settings_.counts.all) * kBytesOfLinkedRow;
    }
    return bytes;
}

} // namespace quandrel
