// SPDX-License-Identifier: MIT
//
// Cut, copy, paste, delete and change of symbols: what the items of the Edit menu do with the
// selected rows. All of it does nothing while a long loop runs (gBusy). Cut, delete, paste and
// changes of symbols can be undone (undo.h).

#pragma once

#include "core/style_tables.h"
#include "edit/clipboard_text.h"
#include "edit/paste_rows.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <vector>

namespace quandrel {

/// Items of the Edit menu, as mnuEditSelection numbers them.
enum EditItem : int {
    kCutItem = 1,
    kCopyItem = 2,
    kCopyAllItem = 3,
    kPasteItem = 4,
    kDeleteItem = 5,
    kChangeSymbolItem = 6, ///< its dialog comes between: StylesOfSelection, ChangeSymbols
    kSelectAllItem = 7,
    kUnselectItem = 8,
};

/// Tells the keeper of a link to a table which rows of a linked plot are about to go; ascending
/// point indices. May be empty.
extern std::function<void(std::int32_t slot, std::span<const std::int32_t> rows)> gRowsLeaveLink;

/// Does what an item of the Edit menu does: with the selected rows of gActivePlot, or on the
/// annotation layer with its annotations (EditAnnotations). Without selected rows, cut, copy and
/// delete do nothing. "Copy pts" copies from another plot when the selection is there. A plot of
/// beta intersections refuses cut, delete and change of symbols with a message; for the latter the
/// item does nothing else here.
void EditSelection(int index);

/// Writes the selected rows to the clipboard. Too many intersections are told and not copied.
/// @return false when nothing was written
bool CopyRows(CopiedFields fields);

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

/// Takes the last edit back, or makes it again after UndoEdits: its plot is the active one then,
/// its layer the active layer (undo.h).
void UndoEdits();
void RedoEdits();

} // namespace quandrel
