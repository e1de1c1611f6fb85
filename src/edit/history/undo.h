// SPDX-License-Identifier: MIT
//
// The edits that can be taken back, one after the other, and made again.
//
// Each edit is a step: a change of one part of one plot (plot_change.h), made by an EditStep
// (edit_step.h). The steps of all plots are one list in the order in which they were made. Undo
// takes back the newest one of them, whichever plot is the active one, and makes its plot the
// active one; Redo makes again what was taken back last. A new edit, of whichever plot, ends the
// redo.
//
// Steps belong to their plot: its closing takes them from the list, and so does an edit of it that
// is not kept. Such an edit calls ForgetUndo; one that does not is found out, as each step knows a
// hash of its part before and after it. The clipboard has no part in undo.
//
// What steps keep is bounded by kUndoMemory: the oldest go first. The newest one always stays.

#pragma once

#include "edit/history/plot_change.h"
#include "edit/selection/marquee.h"
#include "rotation/rotation_undo.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
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

/// Whether an edit is taken back with those before or after it.
enum class EditRun {
    Alone,
    First, ///< later ones may join it
    Joins, ///< joins the one before it, if that was of the same kind on the same selection, and
           ///< nothing has come between; later ones may join it
};

/// PlotRecord::Modified of a plot that nothing has changed since its last step was made. Any other
/// change writes kTrue, saving 0.
inline constexpr std::int16_t kModifiedByLastEdit = 1;

/// The bytes that steps may keep in all.
inline constexpr std::size_t kUndoMemory = std::size_t{256} << 20;

extern std::int16_t gLastEditKind; ///< an EditKind; kNoEdit when nothing can be taken back

/// An edit that has been made.
struct UndoStep {
    int slot = 0;
    EditKind kind = kNoEdit;
    EditRun run = EditRun::Alone;
    std::unique_ptr<PlotChange> change; ///< complete
    KeptSelection selection;            ///< of the other side; nothing where it was of another plot
    std::optional<RotationMemory> rotation; ///< that can be taken back once the edit has been
    std::uint64_t hashBefore = 0;           ///< of its part of the plot
    std::uint64_t hashAfter = 0;
    std::int16_t modifiedBefore = 0; ///< PlotRecord::Modified
    std::int16_t modifiedAfter = 0;
    std::size_t bytes = 0; ///< of all that it keeps
};

/// Adds a step to the list, whose plot is as the step left it, and sets Modified of that. What an
/// edit of rows ends is kept with it: the rotation that can be taken back.
/// @param joins  it becomes part of the step before it
void KeepStep(UndoStep step, bool joins);

/// True when an edit of gActivePlot would be part of the one before it.
[[nodiscard]] bool IsWithinRun(EditKind kind);

/// From now on no edit can be taken back or made again. Called when the user loads a file.
void ForgetUndo();

/// As ForgetUndo, for the edits of a plot. Called by every edit that is not kept, and when a plot
/// closes.
void ForgetUndo(int slot);

/// True while a step can be taken back: its plot is as it left it. O(rows) of that plot.
[[nodiscard]] bool CanUndo();

/// Makes the plot of the newest step the active one, puts what the step changed back exactly as it
/// was and draws the plot. Selects the rows concerned: with the frame about them where the edit was
/// one of the selection. Does nothing when CanUndo is false or while a long loop runs.
void UndoLastEdit();

/// True while a step can be made again: its plot is as its undo left it.
[[nodiscard]] bool CanRedo();

/// Makes the step that was taken back last once more, as UndoLastEdit takes it back.
void RedoLastEdit();

/// The slot of the plot whose edit would be taken back, 0 for none.
[[nodiscard]] int UndoSlot();

/// Caption of the undo item: "&Undo Cut" and the like, "&Undo" when there is nothing to take back.
[[nodiscard]] std::string UndoCaption();

/// Caption of the redo item: "Redo Cut" and the like, "Redo" when there is nothing.
[[nodiscard]] std::string RedoCaption();

/// Bounds what steps keep, for tests; kUndoMemory at the start.
void SetUndoMemory(std::size_t bytes);

/// What the steps keep now, and how many they are.
struct UndoUse {
    std::size_t bytes = 0;
    std::size_t steps = 0;
};

[[nodiscard]] UndoUse UseOfUndo();

} // namespace quandrel
