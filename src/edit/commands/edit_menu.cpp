// SPDX-License-Identifier: MIT

#include "edit/commands/edit_menu.h"

#include "core/messages.h"
#include "core/plot_store.h"
#include "edit/history/undo.h"
#include "edit/marks/annotation_edits.h"
#include "edit/marks/annotation_text.h"
#include "edit/rows/edit_rows.h"
#include "edit/rows/paste_rows.h"
#include "edit/selection/marquee.h"
#include "edit/selection/selected_intersections.h"
#include "platform/platform.h"

#include <new>
#include <string>

namespace quandrel {

namespace {

constexpr const char* kNothingCopied = "No annotations have been copied yet";
constexpr const char* kNoAnnotations = "The data on the clipboard is not annotation data!";
constexpr const char* kOtherData =
    "The data on the clipboard is not annotation data. Plot it in the data layer?";

bool CanEdit() {
    return !gBusy && IsOpenSlot(gActivePlot);
}

/// Cut, copy and delete.
void TakeSelection(int index) {
    if (index != kCopyItem && index != kCopyAllItem && RefusesBetaPlot()) {
        return;
    }
    const bool isCopied = index != kDeleteItem;
    if (isCopied && !CopyRows(index == kCopyItem ? CopiedFields::Points : CopiedFields::All)) {
        return;
    }
    if (index == kCutItem || index == kDeleteItem) {
        RemoveSelectedRows(index == kCutItem ? kCutEdit : kDeleteEdit);
    }
}

/// Pastes onto the annotation layer.
void PasteMarks() {
    const std::string text = gPlatform.clipboard->Text().value_or("");
    switch (KindOfAnnotationText(text)) {
    case AnnotationTextKind::Foreign:
        Tell(kNothingCopied);
        return;
    case AnnotationTextKind::NoParts:
        Tell(kNoAnnotations);
        return;
    case AnnotationTextKind::Marks:
        PasteAnnotationText(text);
        return;
    case AnnotationTextKind::Rows:
        if (AskYes(kOtherData)) {
            UseLayer(kDataLayer);
            PasteData();
        }
        return;
    }
}

} // namespace

void EditSelection(int index) {
    if (!CanEdit()) {
        return;
    }
    if (gActiveLayer == kAnnotationLayer) {
        EditAnnotations(index);
        return;
    }
    switch (index) {
    case kCutItem:
    case kCopyItem:
    case kCopyAllItem:
    case kDeleteItem:
        try {
            TakeSelection(index);
        } catch (const std::bad_alloc&) {
            Tell("There is not enough memory for this.");
        }
        return;
    case kPasteItem:
        PasteData();
        return;
    case kChangeSymbolItem:
        (void)RefusesBetaPlot();
        return;
    case kSelectAllItem:
        SelectAll();
        return;
    case kUnselectItem:
        ClearSelection();
        return;
    default:
        return;
    }
}

void EditAnnotations(int index) {
    if (!CanEditAnnotations()) {
        return;
    }
    switch (index) {
    case kCutAnnotations:
        TakeAnnotations(AnnotationRemoval::Cut);
        return;
    case kCopyAnnotations:
    case kCopyAllOfAnnotations:
        TakeAnnotations(AnnotationRemoval::Copy);
        return;
    case kDeleteAnnotations:
        TakeAnnotations(AnnotationRemoval::Delete);
        return;
    case kPasteAnnotations:
        PasteMarks();
        return;
    case kSelectAllAnnotations:
        SelectAll();
        return;
    case kUnselectAnnotations:
        ClearSelection();
        return;
    default:
        return;
    }
}

void UndoEdits() {
    UndoLastEdit();
}

void RedoEdits() {
    RedoLastEdit();
}

} // namespace quandrel
