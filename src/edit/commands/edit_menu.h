// SPDX-License-Identifier: MIT
//
// What the Edit menu and the mouse on the net do: the uppermost room of the edits, which finds out
// whether rows or annotations are meant, and hands on.
//
// What is inside: the items of the Edit menu (this file), the mouse and the keys on the net
// (plot_mouse.h), and what is painted of them above the picture (selection_shapes.h).
// What enters: items, buttons, keys and places on the net.
// What leaves: calls of the rooms below, which change the plot, keep the undo and draw.

#pragma once

namespace quandrel {

/// Items of the Edit menu, as mnuEditSelection numbers them.
enum EditItem : int {
    kCutItem = 1,
    kCopyItem = 2,
    kCopyAllItem = 3,
    kPasteItem = 4,
    kDeleteItem = 5,
    kChangeSymbolItem = 6, ///< its dialog comes between: StylesOfSelection, ChangeSymbols
    kSelectAllItem = 7,
    kUnselectItem = 8,
};

/// Does what an item of the Edit menu does: with the selected rows of gActivePlot, or on the
/// annotation layer with its annotations (EditAnnotations). Without selected rows, cut, copy and
/// delete do nothing. "Copy pts" copies from another plot when the selection is there. A plot of
/// beta intersections refuses cut, delete and change of symbols with a message; for the latter the
/// item does nothing else here.
void EditSelection(int index);

/// Items of the Edit menu.
enum AnnotationEdit : int {
    kCutAnnotations = 1,
    kCopyAnnotations = 2,
    kCopyAllOfAnnotations = 3, ///< as kCopyAnnotations: there is no more to them
    kPasteAnnotations = 4,
    kDeleteAnnotations = 5,
    kSelectAllAnnotations = 7,
    kUnselectAnnotations = 8,
};

/// Does what an item of the Edit menu does on the annotation layer. A change of symbols is not
/// among them, as its dialog comes between. Without a selection, cut, copy and delete tell so. To
/// paste other data than annotations it asks, and then changes to the data layer (gActiveLayer).
void EditAnnotations(int index);

/// Takes the last edit back, or makes it again after UndoEdits: its plot is the active one then,
/// its layer the active layer (undo.h).
void UndoEdits();
void RedoEdits();

} // namespace quandrel
