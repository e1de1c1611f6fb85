// SPDX-License-Identifier: MIT
//
// Edits of the rows of a plot by the user: of the selected ones, and of the top overlay.
//
// This folder holds rows that are added, pasted, moved, restyled and removed (add_point.h,
// paste_rows.h, move_rows.h, this file, remove_rows.h), their text on the clipboard
// (clipboard_text.h), and an edit of rows as a difference for undo (row_change.h).
// Input: the selection, positions on the net, texts of the clipboard, answers of the user.
// Output: changed rows and counts of gActivePlot, redrawn, with a step of the undo list. Nothing is
// done while a long loop runs (gBusy).

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

/// Copies the selected rows to the clipboard. Too many intersections are reported and not copied.
/// @return false when nothing was copied
bool CopyRows(CopiedFields fields);

/// Removes the selected rows of gActivePlot, with their rows of the secondary overlay.
/// @param kind  kCutEdit or kDeleteEdit
void RemoveSelectedRows(EditKind kind);

/// The rows that are removed when a list is cut or deleted: the list, with the rows of the
/// secondary overlay that belong to its main rows, ascending and without repeats.
[[nodiscard]] std::vector<std::int32_t> RowsToRemove(int slot, std::span<const std::int32_t> rows);

/// The initial symbols of the symbol dialog.
struct RowStyles {
    SymbolRow down{};
    SymbolRow up{};
};

/// The rows whose symbols change: the selected ones of gActivePlot, or else those of its top
/// overlay.
[[nodiscard]] std::vector<std::int32_t> RowsToRestyle();

/// Styles of the first downward and the first upward row of RowsToRestyle; if one is missing, it
/// gets the other's style. Nothing without rows, and, with a message, on a plot of beta
/// intersections.
[[nodiscard]] std::optional<RowStyles> StylesOfSelection();

/// Gives rows other symbols, each by its sense. Error rows stay unchanged.
void ChangeSymbols(const RowStyles& styles);

/// Removes the top overlay. Does nothing without overlays, or when the top one holds the secondary
/// data. Undoable.
void RemoveOverlay();

} // namespace quandrel
