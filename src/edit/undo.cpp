// SPDX-License-Identifier: MIT

#include "edit/undo.h"

#include "core/plot_store.h"
#include "edit/kept_rows.h"
#include "edit/marquee.h"
#include "rotation/rotate_data.h"
#include "stereo/plot_driver.h"

#include <new>
#include <optional>
#include <utility>
#include <vector>

namespace quandrel {

std::int16_t gLastEditKind = kNoEdit;

namespace {

/// The first kind of an edit on the annotation layer.
constexpr std::int16_t kFirstAnnotationEdit = 101;

/// The state of a plot on the other side of the last edit.
struct EditMemory {
    int slot = 0;
    EditKind kind = kNoEdit;
    std::optional<KeptRows> rows; ///< or else
    KeptAnnotations annotations;
    std::vector<std::int32_t> selection;
    bool isTakenBack = false; ///< the edit was undone: what is kept is the state behind it
    std::optional<std::uint64_t> seal;
};

std::optional<EditMemory> gMemory;

bool IsOfAnnotations(EditKind kind) {
    return kind >= kFirstAnnotationEdit;
}

std::uint64_t FingerprintOf(const EditMemory& memory) {
    return IsOfAnnotations(memory.kind) ? FingerprintOfAnnotations(memory.slot)
                                        : FingerprintOfRows(memory.slot);
}

EditMemory StateOfPlot(int slot, EditKind kind) {
    EditMemory memory;
    memory.slot = slot;
    memory.kind = kind;
    if (IsOfAnnotations(kind)) {
        memory.annotations = KeepAnnotations(slot);
    } else {
        memory.rows = KeepRows(slot);
    }
    const std::span<const std::int32_t> selected = SelectedRowsOf(slot);
    memory.selection.assign(selected.begin(), selected.end());
    return memory;
}

void Keep(EditKind kind) {
    ForgetUndo();
    if (!IsOpenSlot(gActivePlot)) {
        return;
    }
    if (!IsOfAnnotations(kind)) {
        ForgetRotation();
    }
    try {
        gMemory = StateOfPlot(gActivePlot, kind);
        gLastEditKind = kind;
    } catch (const std::bad_alloc&) {
        // An edit that cannot be kept is made all the same.
        gMemory.reset();
    }
}

/// True when the plot still stands as the edit, or its undo, left it.
bool StandsAsLeft() {
    return gMemory && IsOpenSlot(gMemory->slot)
           && (!gMemory->seal || *gMemory->seal == FingerprintOf(*gMemory));
}

/// Selects the rows that were selected, the marquee about them where they were moved.
void TakeSelection(const EditMemory& memory) {
    if (memory.selection.empty()) {
        ClearSelectionOf(memory.slot);
        return;
    }
    SelectRows(memory.slot, memory.selection);
    if (memory.kind == kMoveEdit) {
        FitMarqueeToRows();
    }
}

/// Lets the plot and what is kept of it change places.
void ChangePlaces() {
    try {
        EditMemory other = StateOfPlot(gMemory->slot, gMemory->kind);
        other.isTakenBack = !gMemory->isTakenBack;
        gActivePlot = gMemory->slot;
        gActiveLayer = IsOfAnnotations(gMemory->kind) ? kAnnotationLayer : kDataLayer;
        if (gMemory->rows) {
            PutRowsBack(gMemory->slot, *gMemory->rows);
        } else {
            PutAnnotationsBack(gMemory->slot, gMemory->annotations);
        }
        if (gMemory->rows) {
            TakeSelection(*gMemory);
        }
        gMemory = std::move(other);
    } catch (const std::bad_alloc&) {
        ForgetUndo();
        return;
    }
    gLastEditKind = gMemory->isTakenBack ? kNoEdit : gMemory->kind;
    ForgetRotation();
    SealUndo();
    ReplotActivePlot(!IsOfAnnotations(gMemory->kind));
}

/// What an edit is called in the menu.
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

void KeepForUndo(EditKind kind, std::span<const std::int32_t> rows) {
    if (!rows.empty()) {
        Keep(kind);
    }
}

void KeepAddedForUndo(EditKind kind, std::int32_t firstRow, std::int32_t count) {
    if (count <= 0) {
        return;
    }
    Keep(kind);
    if (!gMemory || !gMemory->rows) {
        return;
    }
    DropRowsFrom(*gMemory->rows, firstRow, count);
    SealUndo();
}

void KeepStateForUndo(EditKind kind, KeptRows before) {
    ForgetUndo();
    ForgetRotation();
    EditMemory memory;
    memory.slot = gActivePlot;
    memory.kind = kind;
    memory.rows = std::move(before);
    gMemory = std::move(memory);
    gLastEditKind = kind;
}

void KeepAnnotationsForUndo(EditKind kind) {
    Keep(kind);
}

void SealUndo() {
    if (gMemory && IsOpenSlot(gMemory->slot)) {
        gMemory->seal = FingerprintOf(*gMemory);
    }
}

void ForgetUndo() {
    gMemory.reset();
    gLastEditKind = kNoEdit;
}

void ForgetUndo(int slot) {
    if (gMemory && gMemory->slot == slot) {
        ForgetUndo();
    }
}

bool CanUndo() {
    return gMemory && !gMemory->isTakenBack && StandsAsLeft();
}

void UndoLastEdit() {
    if (!gBusy && CanUndo()) {
        ChangePlaces();
    }
}

bool CanRedo() {
    return gMemory && gMemory->isTakenBack && StandsAsLeft();
}

void RedoLastEdit() {
    if (!gBusy && CanRedo()) {
        ChangePlaces();
    }
}

int UndoSlot() {
    return gMemory ? gMemory->slot : 0;
}

std::string UndoCaption() {
    return CanUndo() ? std::string("&Undo") + NameOf(gMemory->kind) : "&Undo";
}

std::string RedoCaption() {
    return CanRedo() ? std::string("Redo") + NameOf(gMemory->kind) : "Redo";
}

} // namespace quandrel
