// SPDX-License-Identifier: MIT

#include "edit/undo.h"

#include "core/plot_store.h"
#include "edit/kept_rows.h"
#include "edit/marquee.h"
#include "rotation/rotate_data.h"
#include "stereo/plot_driver.h"

#include <new>
#include <utility>

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
    KeptSelection selection;  ///< nothing where it was that of another plot
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

KeptSelection SelectionOf(int slot) {
    return gMarqueeSlot == slot ? KeepSelection() : KeptSelection{};
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
    memory.selection = SelectionOf(slot);
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

/// Selects what was selected, and puts the marquee back where it was.
void TakeSelection(const EditMemory& memory) {
    if (memory.selection.slot != 0) {
        PutSelectionBack(memory.selection);
    } else if (!IsOfAnnotations(memory.kind)) {
        ClearSelectionOf(memory.slot); // its rows are no longer the same
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
        TakeSelection(*gMemory);
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

std::optional<KeptRows> RowsBeforeEdit() {
    try {
        return KeepRows(gActivePlot);
    } catch (const std::bad_alloc&) {
        // An edit that cannot be kept is made all the same.
        return std::nullopt;
    }
}

void KeepStateForUndo(EditKind kind, std::optional<KeptRows> before) {
    ForgetUndo();
    ForgetRotation();
    if (!before) {
        return;
    }
    EditMemory memory;
    memory.slot = gActivePlot;
    memory.kind = kind;
    memory.rows = std::move(before);
    memory.selection = SelectionOf(gActivePlot);
    gMemory = std::move(memory);
    gLastEditKind = kind;
}

void KeepAnnotationsForUndo(EditKind kind) {
    Keep(kind);
}

void SealUndo() {
    if (gMemory && IsOpenSlot(gMemory->slot)) {
        gMemory->seal = FingerprintOf(*gMemory);
        std::int16_t& modified = RecordOf(gMemory->slot).Modified;
        modified = modified != 0 ? kModifiedByLastEdit : modified;
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
