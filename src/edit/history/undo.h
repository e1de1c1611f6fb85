// SPDX-License-Identifier: MIT
//
// The list of edits that can be undone and redone.
//
// Each edit is a step: a change of one part of one plot (plot_change.h), made by an EditStep
// (edit_step.h). The steps of all plots are one list in the order in which they were made. Undo
// reverts the newest step, whichever plot is active, and makes its plot the active one; Redo
// repeats what was undone last. A new edit of any plot ends the redo.
//
// Steps belong to their plot: closing it removes them from the list, and so does an edit of it that
// is not kept. Such an edit calls ForgetUndo; one that does not is detected, as each step has a
// hash of its part before and after it. Undo does not affect the clipboard.
//
// kUndoMemory limits the memory of the steps: the oldest are dropped first, never the newest.

#pragma once

#include "edit/history/plot_change.h"
#include "edit/selection/marquee.h"
#include "rotation/rotation_undo.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>

namespace quandrel {

/// Codes of gLastEditKind. Codes from 101 on are edits of the annotation layer.
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
    kGirdleEdit = 13, ///< dragged with the mouse
    kDensityEdit = 14,
    kRegionEdit = 15,
    kFigureEdit = 16, ///< style and layers
    kAnnotationCut = 101,
    kAnnotationPaste = 104,
    kAnnotationDelete = 105,
    kAnnotationSymbol = 106,
    kAnnotationMove = 109,
    kAnnotationAdd = 110,
    kAnnotationRemoval = 111, ///< removal of all of them
};

/// Whether an edit is undone together with those before or after it.
enum class EditRun {
    Alone,
    First, ///< later ones may join it
    Joins, ///< joins the previous one if that was of the same kind on the same selection, with
           ///< nothing in between; later ones may join it
};

/// PlotRecord::Modified of a plot that is unchanged since its last step. Any other change writes
/// kTrue, saving writes 0.
inline constexpr std::int16_t kModifiedByLastEdit = 1;

/// Memory limit of all steps, in bytes.
inline constexpr std::size_t kUndoMemory = std::size_t{256} << 20;

/// An edit that has been made.
struct UndoStep {
    int slot = 0;
    EditKind kind = kNoEdit;
    EditRun run = EditRun::Alone;
    std::unique_ptr<PlotChange> change; ///< complete
    Selection selection;                ///< of the other side; nothing when it was in another plot
    std::optional<RotationMemory> rotation; ///< can be undone once the edit has been
    std::uint64_t hashBefore = 0;           ///< hash of its part of the plot
    std::uint64_t hashAfter = 0;
    std::int16_t modifiedBefore = 0; ///< PlotRecord::Modified
    std::int16_t modifiedAfter = 0;
    std::size_t bytes = 0; ///< memory of everything that it keeps
};

/// The edits to undo, and those to redo. Only the procedures below change it.
struct EditHistory {
    std::deque<UndoStep> done;   ///< the newest last
    std::deque<UndoStep> undone; ///< the next one to redo is the last
    std::size_t bound = kUndoMemory;
    std::int16_t lastKind = kNoEdit; ///< EditKind of the newest; kNoEdit when there is none

    static EditHistory now;
};

/// Adds a step, whose plot must be in the state after it, to the list, and sets the plot's
/// Modified. A rotation that an edit of rows makes final is kept with it.
/// @param joins  it becomes part of the previous step
void KeepStep(UndoStep step, bool joins);

/// True when an edit of gActivePlot would join the previous one.
[[nodiscard]] bool IsWithinRun(EditKind kind);

/// Drops all steps. Called when the user loads a file.
void ForgetUndo();

/// Drops the steps of a plot. Called by every edit that is not kept, and when a plot closes.
void ForgetUndo(int slot);

/// True while a step can be undone: its plot is in the state after it. O(rows) of that plot.
[[nodiscard]] bool CanUndo();

/// Makes the plot of the newest step the active one, restores exactly what the step changed, and
/// draws the plot. Selects the affected rows, with the frame around them if the edit was one of the
/// selection. Does nothing when CanUndo is false or while a long loop runs.
void UndoLastEdit();

/// True while a step can be redone: its plot is as its undo left it.
[[nodiscard]] bool CanRedo();

/// Redoes the step that was undone last, in the same way as UndoLastEdit.
void RedoLastEdit();

/// The slot of the plot whose edit would be undone; 0 when there is none.
[[nodiscard]] int UndoSlot();

/// Caption of the undo item: "&Undo Cut" and the like, "&Undo" when there is nothing to undo.
[[nodiscard]] std::string UndoCaption();

/// Caption of the redo item: "Redo Cut" and the like, "Redo" when there is nothing to redo.
[[nodiscard]] std::string RedoCaption();

/// Sets the memory limit of the steps, for tests; initially kUndoMemory.
void SetUndoMemory(std::size_t bytes);

/// Present memory and number of the steps.
struct UndoUse {
    std::size_t bytes = 0;
    std::size_t steps = 0;
};

[[nodiscard]] UndoUse UseOfUndo();

} // namespace quandrel
