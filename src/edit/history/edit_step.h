// SPDX-License-Identifier: MIT
//
// Edits that can be undone.
//
// This folder holds an edit as it is made (this file), a change of a plot as a value
// (plot_change.h), and the list of the edits made so far (undo.h).
// Input: reversible changes, made by the other folders for their parts of a plot.
// Output: steps back and forth, drawn, with the selection and Modified of each side.
//
// An EditStep is one edit of a plot, from before it to its drawing. Every edit that can be undone
// uses one:
//
//     EditStep step(kMoveEdit, Before<RowChange>);
//     ...                                          // the edit
//     step.Finish(Redraw::Rows);
//
// Finish marks the plot as modified, adds the change as a step to the undo list (undo.h), includes
// the rotation before an edit of rows in it, and draws. An edit that changes nothing does not call
// Finish. Edits that cannot be undone (small circles, typed or ticked girdles) call FinishUnkept
// instead, edits of rows that cannot be undone (pasted tables) FinishUnkeptRows.

#pragma once

#include "edit/history/undo.h"

#include <memory>

namespace quandrel {

// Given names.
inline constinit auto& gLastEditKind = EditHistory::now.lastKind;

/// What is redrawn after an edit.
enum class Redraw {
    Nothing, ///< the edit draws itself
    Picture, ///< only the picture: texts and status line stay
    Plot,    ///< the plot as it is: marks and styles
    Rows,    ///< the plot with its statistics: rows were added, removed or changed
};

/// A change of gActivePlot, created before it is made. Throws std::bad_alloc.
template <class Change>
[[nodiscard]] std::unique_ptr<PlotChange> Before(int slot) {
    return std::make_unique<Change>(slot);
}

/// Ends an edit of a plot that cannot be undone: marks the plot as modified and draws.
void FinishUnkept(int slot, Redraw redraw);

/// The same for an edit of rows: former edits and the last rotation can no longer be undone.
void FinishUnkeptRows(int slot, Redraw redraw);

class EditStep {
public:
    /// Keeps the part of gActivePlot that an edit is about to change. If memory runs out, the edit
    /// can be made all the same, but not undone.
    /// @param before  Before<RowChange> and the like
    EditStep(EditKind kind, std::unique_ptr<PlotChange> (*before)(int slot),
             EditRun run = EditRun::Alone);

    /// False when memory ran out.
    [[nodiscard]] bool IsKept() const { return step_.change != nullptr; }

    /// Changes the kind of the edit, for the same part.
    void CallIt(EditKind kind) { step_.kind = kind; }

    /// Completes the step after the edit has been made.
    void Finish(Redraw redraw);

    /// Restores the plot after an edit that failed half way. Does not draw. Call it only for an
    /// edit that is kept.
    void PutBack();

private:
    void Keep();

    UndoStep step_;
    bool joins_ = false;
};

} // namespace quandrel
