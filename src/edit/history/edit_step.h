// SPDX-License-Identifier: MIT
//
// What can be taken back.
//
// What is inside this room: an edit as it is made (this file), a change of a plot as a value
// (plot_change.h), and the list of the edits that have been made (undo.h).
// What enters: changes that know how to go both ways, made by the rooms above for their parts of a
// plot. What leaves: steps back and forth, drawn, with the selection and Modified that belong to
// them.
//
// An EditStep is one edit of a plot, from before it to its drawing. Every edit that can be taken
// back is made with one:
//
//     EditStep step(kMoveEdit, Before<RowChange>);
//     ...                                          // the edit
//     step.Finish(Redraw::Rows);
//
// Finish marks the plot as modified, keeps what has changed as a step of the undo list (undo.h),
// takes the rotation before an edit of rows into it, and draws. An edit that comes to nothing is
// left without Finish. The marks that keep nothing (typed girdles, small circles) set Modified and
// draw themselves.

#pragma once

#include "edit/history/undo.h"

#include <memory>

namespace quandrel {

/// What is drawn anew after an edit.
enum class Redraw {
    Nothing, ///< the edit draws itself
    Plot,    ///< the plot as it is: marks and styles
    Rows,    ///< the plot with its statistics: rows have come, gone or changed
};

/// A change of gActivePlot, before it is made. Throws std::bad_alloc.
template <class Change>
[[nodiscard]] std::unique_ptr<PlotChange> Before(int slot) {
    return std::make_unique<Change>(slot);
}

class EditStep {
public:
    /// Keeps the part of gActivePlot that an edit is about to change. An edit that there is no
    /// memory to keep is made all the same, and cannot be taken back.
    /// @param before  Before<RowChange> and the like
    EditStep(EditKind kind, std::unique_ptr<PlotChange> (*before)(int slot),
             EditRun run = EditRun::Alone);

    /// False when there was no memory.
    [[nodiscard]] bool IsKept() const { return step_.change != nullptr; }

    /// The edit has turned out to be of another kind, of the same part.
    void CallIt(EditKind kind) { step_.kind = kind; }

    /// The edit has been made.
    void Finish(Redraw redraw);

    /// The edit has failed half way: the plot becomes again what it was. Does not draw. To be
    /// called for an edit that is kept.
    void PutBack();

private:
    void Keep();

    UndoStep step_;
    bool joins_ = false;
};

} // namespace quandrel
