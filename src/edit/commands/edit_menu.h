// SPDX-License-Identifier: MIT
//
// The Edit menu and the mouse on the net: the top folder of the edits, which decides whether rows
// or annotations are meant.
//
// This folder holds the items of the Edit menu (this file), the mouse and the keys on the net
// (plot_mouse.h), and what they paint above the picture (selection_shapes.h).
// Input: items, buttons, keys and positions on the net.
// Output: calls of the other folders of edits, which change the plot, keep the undo and draw.

#pragma once

namespace quandrel {

/// Items of the Edit menu, as mnuEditSelection numbers them.
enum EditItem : int {
    kCutItem = 1,
    kCopyItem = 2,
    kCopyAllItem = 3,
    kPasteItem = 4,
    kDeleteItem = 5,
    kChangeSymbolItem = 6, ///< needs its dialog in between: StylesOfSelection, ChangeSymbols
    kSelectAllItem = 7,
    kUnselectItem = 8,
};

/// Runs an item of the Edit menu on the selected rows of gActivePlot, or on the annotation layer on
/// its annotations (EditAnnotations). Without selected rows, cut, copy and delete do nothing. "Copy
/// pts" copies from another plot if that has the selection. A plot of beta intersections refuses
/// cut, delete and change of symbols with a message; the last item does nothing else here.
void EditSelection(int index);

/// Items of the Edit menu.
enum AnnotationEdit : int {
    kCutAnnotations = 1,
    kCopyAnnotations = 2,
    kCopyAllOfAnnotations = 3, ///< as kCopyAnnotations: annotations have no other fields
    kPasteAnnotations = 4,
    kDeleteAnnotations = 5,
    kSelectAllAnnotations = 7,
    kUnselectAnnotations = 8,
};

/// Runs an item of the Edit menu on the annotation layer. A change of symbols is not one of them,
/// as it needs its dialog in between. Without a selection, cut, copy and delete report that.
/// Pasting data other than annotations asks first, and then changes to the data layer
/// (gActiveLayer).
void EditAnnotations(int index);

/// Undoes the last edit, or redoes it after UndoEdits. Its plot becomes the active one and its
/// layer the active layer (undo.h).
void UndoEdits();
void RedoEdits();

} // namespace quandrel
