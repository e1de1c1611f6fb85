// SPDX-License-Identifier: MIT
//
// One level of undo for edits of rows, of annotations and of girdles, with its inverse.
//
// An edit of rows calls KeepForUndo before it changes them, or RowsBeforeEdit before and
// KeepStateForUndo after it, then SealUndo. What is kept is the rows of the plot as they were,
// every field of them with their order and overlays, and the marquee; the clipboard has no part in
// it. With them is kept the rotation that the edit came after, which can be taken back once the
// edit has been, and the link that the edit broke. An edit that is not kept calls ForgetUndo; one
// that does not is found out by the seal.

#pragma once

#include "edit/kept_girdles.h"
#include "edit/kept_rows.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace quandrel {

/// Codes of gLastEditKind. From 101 on the edit was made on the annotation layer.
enum EditKind : std::int16_t {
    kNoEdit = 0,
    kCutEdit = 1,
    kPasteEdit = 4,
    kDeleteEdit = 5,
    kSymbolEdit = 6,
    kMoveEdit = 9,
    kAddEdit = 10,  ///< points added with the mouse
    kGridEdit = 11, ///< cells of the data grid
    kOverlayRemoval = 12,
    kGirdleEdit = 13, ///< pulled with the mouse
    kAnnotationCut = 101,
    kAnnotationPaste = 104,
    kAnnotationDelete = 105,
    kAnnotationSymbol = 106,
    kAnnotationMove = 109,
    kAnnotationAdd = 110,
    kAnnotationRemoval = 111, ///< of all of them
};

/// Whether an edit is taken back with those before it.
enum class EditRun {
    Alone,
    Steps, ///< with the steps before it on the same rows, as long as nothing else came between
};

extern std::int16_t gLastEditKind; ///< an EditKind; kNoEdit when nothing can be taken back

/// Keeps the rows of gActivePlot before some of them change or go.
/// @param rows  point indices of those that the edit is about; an empty list keeps nothing
void KeepForUndo(EditKind kind, std::span<const std::int32_t> rows, EditRun run = EditRun::Alone);

/// The rows of gActivePlot for an edit that may come to nothing, to be handed to KeepStateForUndo
/// once it has been made; nothing when there is no memory for them. O(rows).
[[nodiscard]] std::optional<KeptRows> RowsBeforeEdit();

/// Keeps the rows of gActivePlot as they were before an edit that has been made, with the selection
/// of the moment. Not sealed. Without rows there is nothing to take back.
void KeepStateForUndo(EditKind kind, std::optional<KeptRows> before);

/// Keeps the annotations of gActivePlot before some of them change, come or go.
void KeepAnnotationsForUndo(EditKind kind);

/// Keeps the girdles of a plot as they were before a pull that has been made.
void KeepGirdlesForUndo(int slot, KeptGirdles before);

/// The edit that was kept is complete: from now on another change of its rows ends the undo.
void SealUndo();

/// From now on the last edit can be neither taken back nor made again. Called by every edit that is
/// not kept, by a load, and when a plot closes.
void ForgetUndo();

/// As ForgetUndo, when the edit that is kept is one of this slot.
void ForgetUndo(int slot);

/// True while the plot of the last edit stands as the edit left it. O(rows) of that plot.
[[nodiscard]] bool CanUndo();

/// Makes the plot of the last edit the active one, puts its rows or annotations back exactly as
/// they were and draws it. Does nothing when CanUndo is false or while a long loop runs.
void UndoLastEdit();

/// True while the plot stands as the last undo left it.
[[nodiscard]] bool CanRedo();

/// Makes the edit that was taken back once more.
void RedoLastEdit();

/// The slot of the plot whose edit is kept, 0 for none.
[[nodiscard]] int UndoSlot();

/// Caption of the undo item: "&Undo Cut" and the like, "&Undo" when there is nothing to take back.
[[nodiscard]] std::string UndoCaption();

/// Caption of the redo item: "Redo Cut" and the like, "Redo" when there is nothing.
[[nodiscard]] std::string RedoCaption();

} // namespace quandrel
