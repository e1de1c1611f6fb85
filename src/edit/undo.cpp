// SPDX-License-Identifier: MIT

#include "edit/undo.h"

#include "core/plot_store.h"
#include "core/row_links.h"
#include "edit/add_point.h"
#include "edit/marquee.h"
#include "rotation/rotate_data.h"
#include "rotation/rotation_undo.h"
#include "stereo/plot_driver.h"

#include <new>
#include <utility>
#include <variant>

namespace quandrel {

std::int16_t gLastEditKind = kNoEdit;

namespace {

/// The first kind of an edit on the annotation layer.
constexpr std::int16_t kFirstAnnotationEdit = 101;

using KeptState = std::variant<KeptRows, KeptAnnotations, KeptGirdles>;

/// The state of a plot on the other side of the last edit.
struct EditMemory {
    int slot = 0;
    EditKind kind = kNoEdit;
    KeptState state;
    KeptSelection selection;                ///< nothing where it was that of another plot
    std::optional<RotationMemory> rotation; ///< that can be taken back once the edit has been
    EditRun run = EditRun::Alone;
    bool breaksLink = false;  ///< the edit ended the link of the plot
    bool isTakenBack = false; ///< the edit was undone: what is kept is the state after it
    std::optional<std::uint64_t> seal;
};

std::optional<EditMemory> gMemory;

bool IsOfAnnotations(EditKind kind) {
    return kind >= kFirstAnnotationEdit;
}

bool IsOfRows(EditKind kind) {
    return !IsOfAnnotations(kind) && kind != kGirdleEdit;
}

KeptState StateOf(int slot, EditKind kind) {
    if (IsOfAnnotations(kind)) {
        return KeepAnnotations(slot);
    }
    return kind == kGirdleEdit ? KeptState(KeepGirdles(slot)) : KeptState(KeepRows(slot));
}

void PutBack(int slot, const KeptState& state) {
    if (const auto* rows = std::get_if<KeptRows>(&state)) {
        PutRowsBack(slot, *rows);
    } else if (const auto* annotations = std::get_if<KeptAnnotations>(&state)) {
        PutAnnotationsBack(slot, *annotations);
    } else {
        PutGirdlesBack(slot, std::get<KeptGirdles>(state));
    }
}

std::uint64_t FingerprintOf(const EditMemory& memory) {
    if (IsOfAnnotations(memory.kind)) {
        return FingerprintOfAnnotations(memory.slot);
    }
    return memory.kind == kGirdleEdit ? FingerprintOfGirdles(memory.slot)
                                      : FingerprintOfRows(memory.slot);
}

KeptSelection SelectionOf(int slot) {
    return gMarqueeSlot == slot ? KeepSelection() : KeptSelection{};
}

EditMemory MemoryOf(int slot, EditKind kind, KeptState state) {
    EditMemory memory;
    memory.slot = slot;
    memory.kind = kind;
    memory.state = std::move(state);
    memory.selection = SelectionOf(slot);
    return memory;
}

/// From now on an edit is what can be taken back.
void Remember(EditMemory memory) {
    if (IsOfRows(memory.kind)) {
        memory.rotation = TakeRotation(memory.slot);
    }
    gLastEditKind = memory.kind;
    gMemory = std::move(memory);
}

void Keep(EditKind kind, EditRun run = EditRun::Alone) {
    ForgetUndo();
    if (!IsOpenSlot(gActivePlot)) {
        return;
    }
    try {
        EditMemory memory = MemoryOf(gActivePlot, kind, StateOf(gActivePlot, kind));
        memory.run = run;
        Remember(std::move(memory));
    } catch (const std::bad_alloc&) {
        // An edit that cannot be kept is made all the same.
        ForgetUndo();
        ForgetRotation();
    }
}

/// True when the plot still stands as the edit, or its undo, left it.
bool StandsAsLeft() {
    return gMemory && IsOpenSlot(gMemory->slot)
           && (!gMemory->seal || *gMemory->seal == FingerprintOf(*gMemory));
}

/// True when the last edit was a step on the same rows, and nothing else has come between: neither
/// a change that is to be saved nor a save.
bool IsWithinRun(EditKind kind) {
    return CanUndo() && gMemory->kind == kind && gMemory->run == EditRun::Steps
           && gMemory->slot == gActivePlot && ActiveRecord().Modified == kModifiedByLastEdit
           && gMemory->selection.slot == gMarqueeSlot && gMemory->selection.rows == gSelectionRows;
}

/// Selects what was selected, and puts the marquee back where it was.
void TakeSelection(const EditMemory& memory) {
    if (memory.selection.slot != 0) {
        PutSelectionBack(memory.selection);
    } else if (IsOfRows(memory.kind)) {
        ClearSelectionOf(memory.slot); // its rows are no longer the same
    }
}

/// The link that the edit broke comes back with its undo, and goes again with its redo.
void FollowLink(const EditMemory& memory) {
    const auto* rows = std::get_if<KeptRows>(&memory.state);
    if (!memory.breaksLink || rows == nullptr) {
        return;
    }
    if (memory.isTakenBack) {
        if (gRemoveGeoLink) {
            gRemoveGeoLink(memory.slot);
        }
    } else if (gRowFollower.linkAgain) {
        gRowFollower.linkAgain(memory.slot, rows->links);
    }
}

void UseLayerOf(EditKind kind) {
    if (IsOfAnnotations(kind)) {
        gActiveLayer = kAnnotationLayer;
    } else if (IsOfRows(kind)) {
        gActiveLayer = kDataLayer;
    }
}

/// What is to be kept while the edit of a memory is taken back, or made again.
EditMemory OtherSideOf(const EditMemory& memory) {
    EditMemory other = MemoryOf(memory.slot, memory.kind, StateOf(memory.slot, memory.kind));
    other.isTakenBack = !memory.isTakenBack;
    other.breaksLink = memory.breaksLink;
    return other;
}

/// Lets the plot and what is kept of it change places.
void ChangePlaces() {
    const EditMemory memory = std::move(*gMemory);
    ForgetUndo();
    EditMemory other;
    try {
        other = OtherSideOf(memory);
        gActivePlot = memory.slot;
        UseLayerOf(memory.kind);
        PutBack(memory.slot, memory.state);
        FollowLink(memory);
        TakeSelection(memory);
    } catch (const std::bad_alloc&) {
        ForgetRotation();
        return;
    }
    Remember(std::move(other));
    if (memory.rotation) {
        OfferRotation(*memory.rotation);
    }
    gLastEditKind = gMemory->isTakenBack ? kNoEdit : gMemory->kind;
    SealUndo();
    ReplotActivePlot(IsOfRows(gMemory->kind));
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
    case kOverlayRemoval:
    case kAnnotationRemoval:
        return " Removal";
    case kGirdleEdit:
        return " Girdle";
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

void KeepForUndo(EditKind kind, std::span<const std::int32_t> rows, EditRun run) {
    const bool isStep = run == EditRun::Steps && IsWithinRun(kind);
    if (!rows.empty() && !isStep) {
        Keep(kind, run);
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
    if (!before) {
        ForgetRotation();
        return;
    }
    const bool wasLinked = before->settings.mapInfoLinked != 0;
    EditMemory memory = MemoryOf(gActivePlot, kind, std::move(*before));
    memory.breaksLink = wasLinked && ActiveRecord().MapInfoLinked == 0;
    Remember(std::move(memory));
}

void KeepAnnotationsForUndo(EditKind kind) {
    Keep(kind);
}

void KeepGirdlesForUndo(int slot, KeptGirdles before) {
    ForgetUndo();
    Remember(MemoryOf(slot, kGirdleEdit, std::move(before)));
}

void SealUndo() {
    if (gMemory && IsOpenSlot(gMemory->slot)) {
        gMemory->seal = FingerprintOf(*gMemory);
        std::int16_t& modified = RecordOf(gMemory->slot).Modified;
        // After an undo the rotation before it may be all that is to be saved.
        if (modified != 0 && modified != kModifiedByRotation) {
            modified = kModifiedByLastEdit;
        }
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
