// SPDX-License-Identifier: MIT
//
// The rows of a plot in the hands of the user: what is done with the selected ones, and with the
// overlay on top.
//
// What is inside: rows that are added, pasted, moved, restyled and removed (add_point.h,
// paste_rows.h, move_rows.h, this file, remove_rows.h), their text on the clipboard
// (clipboard_text.h), and an edit of rows as a difference that undo keeps (row_change.h).
// What enters: the selection, places on the net, texts of the clipboard, answers of the user.
// What leaves: changed rows and counts of gActivePlot, drawn anew, with a step of the undo list.
// Nothing is done while a long loop runs (gBusy).

#pragma once

#include "core/style_tables.h"
#include "edit/history/undo.h"
#include "edit/rows/clipboard_text.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace quandrel {

/// Tells the keeper of a link to a table which rows of a linked plot are about to go; ascending
/// point indices. May be empty.
extern std::function<void(std::int32_t slot, std::span<const std::int32_t> rows)> gRowsLeaveLink;

/// Writes the selected rows to the clipboard. Too many intersections are told and not copied.
/// @return false when nothing was written
bool CopyRows(CopiedFields fields);

/// Removes the selected rows of gActivePlot, with those of the secondary overlay that belong to
/// them.
/// @param kind  kCutEdit or kDeleteEdit
void RemoveSelectedRows(EditKind kind);

/// The rows that go with a list when it is cut or deleted: the list, with the rows of the secondary
/// overlay that belong to its main rows, ascending and without repeats.
[[nodiscard]] std::vector<std::int32_t> RowsToRemove(int slot, std::span<const std::int32_t> rows);

/// Symbols in which the symbol dialog opens.
struct RowStyles {
    SymbolRow down{};
    SymbolRow up{};
};

/// The rows whose symbols change: the selected ones of gActivePlot, or without any those of its top
/// overlay.
[[nodiscard]] std::vector<std::int32_t> RowsToRestyle();

/// Styles of the first downward and the first upward row of RowsToRestyle; one takes the other's
/// place where there is none. Nothing without rows, and on a plot of beta intersections, which is
/// told.
[[nodiscard]] std::optional<RowStyles> StylesOfSelection();

/// Gives rows other symbols, each by its sense. Error rows stay as they are.
void ChangeSymbols(const RowStyles& styles);

/// Removes the top overlay, after which the plot has one less; nothing happens without overlays, or
/// when the top one holds the secondary data. Kept for undo.
void RemoveOverlay();

} // namespace quandrel
