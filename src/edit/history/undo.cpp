// SPDX-License-Identifier: MIT

#include "edit/history/undo.h"

#include "core/plot_store.h"
#include "core/replot.h"
#include "rotation/rotate_data.h"

#include <algorithm>
#include <new>
#include <utility>
#include <vector>

namespace quandrel {

EditHistory EditHistory::now;

namespace {

constexpr EditHistory& history = EditHistory::now;

bool IsOfRows(const UndoStep& step) {
    return step.change->Part() == PlotPart::Rows;
}

bool IsOf(const UndoStep& step, int slot) {
    return step.slot == slot;
}

std::size_t BytesOf(const UndoStep& step) {
    std::size_t bytes = sizeof(UndoStep) + step.change->Bytes()
                        + step.selection.rows.capacity() * sizeof(std::int32_t)
                        + step.selection.lasso.capacity() * sizeof(Point);
    if (step.rotation) {
        for (const auto& column : step.rotation->orientations) {
            bytes += column.capacity() * sizeof(column.front());
        }
        bytes += step.rotation->symbols.capacity() * sizeof(SymbolChange);
    }
    return bytes;
}

/// Drops the oldest steps to undo, then the last ones to redo, until the rest is within the memory
/// limit. One step always stays.
void KeepToBound() {
    UndoUse use = UseOfUndo();
    while (use.bytes > history.bound && use.steps > 1) {
        std::deque<UndoStep>& steps =
            history.done.empty() || (history.done.size() == 1 && !history.undone.empty())
                ? history.undone
                : history.done;
        use.bytes -= steps.front().bytes;
        --use.steps;
        steps.pop_front();
    }
}

/// Call it after each change of the list.
void FollowList() {
    KeepToBound();
    history.lastKind = history.done.empty() ? kNoEdit : history.done.back().kind;
}

/// The newest step whose plot is in the state that the step needs; nullptr when there is none.
/// Steps of plots that have changed in other ways are skipped.
const UndoStep* NewestOf(const std::deque<UndoStep>& steps, std::uint64_t UndoStep::*hash) {
    std::vector<int> passed;
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
        if (std::ranges::find(passed, step->slot) != passed.end()) {
            continue;
        }
        if (IsOpenSlot(step->slot) && step->change->FingerprintOf(step->slot) == (*step).*hash) {
            return &*step;
        }
        passed.push_back(step->slot);
    }
    return nullptr;
}

const UndoStep* StepToUndo() {
    return NewestOf(history.done, &UndoStep::hashAfter);
}

const UndoStep* StepToRedo() {
    return NewestOf(history.undone, &UndoStep::hashBefore);
}

void DropSteps(int slot) {
    const auto isOfSlot = [slot](const UndoStep& step) { return IsOf(step, slot); };
    std::erase_if(history.done, isOfSlot);
    std::erase_if(history.undone, isOfSlot);
}

/// Drops the steps of the plots that were skipped on the way to a step, and returns that step.
UndoStep TakeStep(std::deque<UndoStep>& steps, const UndoStep* wanted) {
    while (&steps.back() != wanted) {
        DropSteps(steps.back().slot);
        wanted = &steps == &history.done ? StepToUndo() : StepToRedo(); // it may have moved
    }
    UndoStep step = std::move(steps.back());
    steps.pop_back();
    return step;
}

template <class Steps>
auto NewestOfSlot(Steps& steps, int slot) {
    return std::find_if(steps.rbegin(), steps.rend(),
                        [slot](const UndoStep& step) { return IsOf(step, slot); });
}

/// Records a change of a plot's Modified since its last step: after a save, its other states differ
/// from the file; after another change, all its states do.
void NoteModified(int slot, std::int16_t modified) {
    const auto done = NewestOfSlot(history.done, slot);
    const auto undone = NewestOfSlot(history.undone, slot);
    const bool hasDone = done != history.done.rend();
    const bool hasUndone = undone != history.undone.rend();
    if ((!hasDone && !hasUndone)
        || modified == (hasDone ? done->modifiedAfter : undone->modifiedBefore)) {
        return;
    }
    for (std::deque<UndoStep>* steps : {&history.done, &history.undone}) {
        for (UndoStep& step : *steps) {
            if (IsOf(step, slot)) {
                step.modifiedBefore = kTrue;
                step.modifiedAfter = kTrue;
            }
        }
    }
    if (hasDone) {
        done->modifiedAfter = modified;
    }
    if (hasUndone) {
        undone->modifiedBefore = modified;
    }
}

/// True when the part of a new step is unchanged since the last step of that part.
bool FollowsOn(const UndoStep& step) {
    const auto former =
        std::find_if(history.done.rbegin(), history.done.rend(), [&](const UndoStep& other) {
            return IsOf(other, step.slot) && other.change->Part() == step.change->Part();
        });
    return former == history.done.rend() || former->hashAfter == step.hashBefore;
}

Selection SelectionOf(int slot) {
    return Selection::now.slot == slot ? Selection::now : Selection{};
}

/// True for edits of what is selected.
bool IsOfSelection(EditKind kind) {
    return kind == kCutEdit || kind == kDeleteEdit || kind == kSymbolEdit || kind == kMoveEdit;
}

bool HasOneOf(const Selection& selection, const std::vector<std::int32_t>& rows) {
    return std::ranges::any_of(selection.rows, [&rows](std::int32_t row) {
        return std::ranges::binary_search(rows, row);
    });
}

/// Selects the rows that a step affects, after it has been undone or redone.
/// @param kept  the selection on that side of the step
void SelectRowsOf(const UndoStep& step, Selection kept, bool isUndo) {
    std::vector<std::int32_t> rows = step.change->RowsConcerned();
    const bool isOfPlot = kept.slot == step.slot;
    const bool isWholeSelection =
        rows.empty() ? isUndo : IsOfSelection(step.kind) && HasOneOf(kept, rows);
    if (isOfPlot && isWholeSelection) {
        PutSelectionBack(std::move(kept));
    } else if (rows.empty()) {
        ClearSelectionOf(step.slot); // its rows have changed
    } else {
        SelectRows(step.slot, std::move(rows));
    }
}

void TakeSelection(UndoStep& step, Selection now, bool isUndo) {
    Selection kept = std::exchange(step.selection, std::move(now));
    if (IsOfRows(step)) {
        SelectRowsOf(step, std::move(kept), isUndo);
    } else if (kept.slot != 0) {
        PutSelectionBack(std::move(kept));
    }
}

void UseLayerOf(PlotPart part) {
    if (part == PlotPart::Marks) {
        gActiveLayer = kAnnotationLayer;
    } else if (part == PlotPart::Rows) {
        gActiveLayer = kDataLayer;
    }
}

/// The rotation before an edit of rows can be undone while the edit is undone.
void FollowRotation(UndoStep& step, bool isUndo) {
    if (!IsOfRows(step)) {
        return;
    }
    std::optional<RotationMemory> now = TakeRotation(step.slot);
    if (!isUndo) {
        step.rotation = std::move(now);
    } else if (step.rotation) {
        OfferRotation(*std::exchange(step.rotation, std::nullopt));
    }
}

/// Undoes or redoes a step.
void Carry(const UndoStep* wanted, bool isUndo) {
    NoteModified(wanted->slot, RecordOf(wanted->slot).Modified);
    UndoStep step = TakeStep(isUndo ? history.done : history.undone, wanted);
    const int slot = step.slot;
    gActivePlot = slot;
    UseLayerOf(step.change->Part());
    const bool isOfRows = IsOfRows(step);
    try {
        Selection now = SelectionOf(slot);
        isUndo ? step.change->Revert(slot) : step.change->Apply(slot);
        TakeSelection(step, std::move(now), isUndo);
        FollowRotation(step, isUndo);
        step.bytes = BytesOf(step);
        RecordOf(slot).Modified = isUndo ? step.modifiedBefore : step.modifiedAfter;
        (isUndo ? history.undone : history.done).push_back(std::move(step));
    } catch (const std::bad_alloc&) {
        ForgetUndo(slot);
        ForgetRotation();
        return;
    }
    FollowList();
    ReplotActivePlot(isOfRows);
}

/// The name of an edit in the menu.
const char* NameOf(EditKind kind) {
    switch (kind) {
    case kCutEdit:
    case kAnnotationCut:
        return " Cut";
    case kPasteEdit:
        return " Paste";
    case kAnnotationPaste:
        return " paste";
    case kDeleteEdit:
    case kAnnotationDelete:
        return " deletion";
    case kSymbolEdit:
    case kAnnotationSymbol:
        return " Change";
    case kOverlayRemoval:
    case kAnnotationRemoval:
        return " Removal";
    case kGirdleEdit:
        return " Girdle";
    case kDensityEdit:
        return " Densities";
    case kRegionEdit:
        return " Regions";
    case kFigureEdit:
        return " Figure";
    case kMoveEdit:
    case kAnnotationMove:
        return " Move";
    case kAddEdit:
    case kAnnotationAdd:
        return " Add";
    case kGridEdit:
        return " Edit";
    case kNoEdit:
        break;
    }
    return "";
}

} // namespace

void KeepStep(UndoStep step, bool joins) {
    const int slot = step.slot;
    history.undone.clear();
    if (!FollowsOn(step)) {
        DropSteps(slot);
    }
    NoteModified(slot, step.modifiedBefore);
    RecordOf(slot).Modified = kModifiedByLastEdit;
    if (joins && !history.done.empty() && history.done.back().change->Join(*step.change)) {
        history.done.back().hashAfter = step.hashAfter;
        history.done.back().bytes = BytesOf(history.done.back());
    } else {
        step.modifiedAfter = kModifiedByLastEdit;
        if (IsOfRows(step)) {
            step.rotation = TakeRotation(slot);
        }
        step.bytes = BytesOf(step);
        history.done.push_back(std::move(step));
    }
    FollowList();
}

bool IsWithinRun(EditKind kind) {
    const UndoStep* const last = history.undone.empty() ? StepToUndo() : nullptr;
    return last != nullptr && last == &history.done.back() && last->kind == kind
           && last->run != EditRun::Alone && last->slot == gActivePlot
           && ActiveRecord().Modified == kModifiedByLastEdit
           && last->selection.slot == SelectionOf(gActivePlot).slot
           && last->selection.rows == SelectionOf(gActivePlot).rows;
}

void ForgetUndo() {
    history.done.clear();
    history.undone.clear();
    FollowList();
}

void ForgetUndo(int slot) {
    DropSteps(slot);
    FollowList();
}

bool CanUndo() {
    return StepToUndo() != nullptr;
}

void UndoLastEdit() {
    if (const UndoStep* const step = gBusy ? nullptr : StepToUndo()) {
        Carry(step, true);
    }
}

bool CanRedo() {
    return StepToRedo() != nullptr;
}

void RedoLastEdit() {
    if (const UndoStep* const step = gBusy ? nullptr : StepToRedo()) {
        Carry(step, false);
    }
}

int UndoSlot() {
    const UndoStep* const step = StepToUndo();
    return step == nullptr ? 0 : step->slot;
}

std::string UndoCaption() {
    const UndoStep* const step = StepToUndo();
    return step == nullptr ? "&Undo" : std::string("&Undo") + NameOf(step->kind);
}

std::string RedoCaption() {
    const UndoStep* const step = StepToRedo();
    return step == nullptr ? "Redo" : std::string("Redo") + NameOf(step->kind);
}

void SetUndoMemory(std::size_t bytes) {
    history.bound = bytes;
    FollowList();
}

UndoUse UseOfUndo() {
    UndoUse use;
    for (const std::deque<UndoStep>* steps : {&history.done, &history.undone}) {
        for (const UndoStep& step : *steps) {
            use.bytes += step.bytes;
            ++use.steps;
        }
    }
    return use;
}

} // namespace quandrel
