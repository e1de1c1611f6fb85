// SPDX-License-Identifier: MIT

#include "edit/history/edit_step.h"

#include "core/plot_store.h"
#include "core/replot.h"
#include "rotation/rotate_data.h"

#include <new>
#include <utility>

namespace quandrel {

namespace {

void Draw(int slot, Redraw redraw) {
    switch (redraw) {
    case Redraw::Nothing:
        break;
    case Redraw::Picture:
        RedrawPlot(slot);
        break;
    case Redraw::Plot:
        ReplotPlot(slot, ReplotCause::Settings);
        break;
    case Redraw::Rows:
        ReplotPlot(slot, ReplotCause::Rows);
        break;
    }
}

/// Ends the undo of a plot whose rows have changed without a step.
void ForgetSteps(int slot) {
    ForgetUndo(slot);
    ForgetRotation();
}

} // namespace

void FinishUnkept(int slot, Redraw redraw) {
    RecordOf(slot).Modified = kTrue;
    Draw(slot, redraw);
}

void FinishUnkeptRows(int slot, Redraw redraw) {
    ForgetSteps(slot);
    FinishUnkept(slot, redraw);
}

EditStep::EditStep(EditKind kind, std::unique_ptr<PlotChange> (*before)(int slot), EditRun run) {
    step_.slot = gActivePlot;
    step_.kind = kind;
    step_.run = run;
    step_.modifiedBefore = ActiveRecord().Modified;
    joins_ = run == EditRun::Joins && IsWithinRun(kind);
    try {
        step_.selection = Selection::now.slot == gActivePlot ? Selection::now : Selection{};
        step_.change = before(gActivePlot);
        step_.hashBefore = step_.change->FingerprintOf(gActivePlot);
    } catch (const std::bad_alloc&) {
        step_.change.reset();
    }
}

void EditStep::Finish(Redraw redraw) {
    const int slot = step_.slot;
    RecordOf(slot).Modified = kTrue;
    Keep();
    Draw(slot, redraw);
}

void EditStep::Keep() {
    const int slot = step_.slot;
    if (step_.change != nullptr) {
        try {
            step_.change->Complete(slot);
            step_.hashAfter = step_.change->FingerprintOf(slot);
            KeepStep(std::move(step_), joins_);
            return;
        } catch (const std::bad_alloc&) {
            // An edit that cannot be kept is still made.
        }
    }
    ForgetSteps(slot);
}

void EditStep::PutBack() {
    step_.change->Complete(step_.slot);
    step_.change->Revert(step_.slot);
    RecordOf(step_.slot).Modified = step_.modifiedBefore;
}

} // namespace quandrel
