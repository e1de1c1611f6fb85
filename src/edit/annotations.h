// SPDX-License-Identifier: MIT
//
// Annotations: points and polylines on the net that belong to a plot and are not data.
//
// Positions are plot units. SymbolType 21 and 22 are rows of gSymbolTable, those of the left and
// the right button, and give the shape alone; a lower SymbolType is the code of a symbol itself.
// Colour and size are the annotation's own. All procedures work on gActivePlot unless they say
// otherwise; those that change it keep the undo, set Modified and draw, and do nothing while a long
// loop runs (gBusy).

#pragma once

#include "core/plot_record.h"
#include "core/style_tables.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quandrel {

/// Rows of gSymbolTable for annotations.
inline constexpr std::int16_t kLeftAnnotationStyle = 21;
inline constexpr std::int16_t kRightAnnotationStyle = 22;

/// Buttons of the mouse, as events number them.
inline constexpr int kLeftMouseButton = 1;
inline constexpr int kRightMouseButton = 2;

/// Nodes of a polyline lie this far apart at least.
inline constexpr double kNodeDistance = 10;

/// What is told when an edit finds none in the marquee.
inline constexpr const char* kNoAnnotationsSelected =
    "No annotations were selected for editing from the chosen annotation layer!";

// Kernels.

/// The number for a new annotation: one more than the last one's, 1 without any, and on upward to
/// the first that none bears; numbers end at 32767 and go on at 1. Nothing after 100 numbers that
/// are taken.
[[nodiscard]] std::optional<int> FreeAnnotationTag(const Annotations& annotations);

/// What an annotation is drawn with: colour index, symbol code, size. Where it has no symbol, no
/// size or no colour of its own, those of the style of its button.
[[nodiscard]] SymbolRow StyleOfAnnotation(const Annotation& annotation);

// The layer.

/// The annotations of a slot, none where there are none.
[[nodiscard]] std::span<const Annotation> AnnotationsOf(int slot);

/// Draws the annotations of the plot in their order, each with its polyline below its symbol, if
/// they are shown.
void DrawAnnotations();

/// Adds an annotation in the style of the button, shows the layer and draws it. Nothing is added
/// outside the net, or on a rose.
///
/// @param button  kLeftMouseButton or kRightMouseButton
/// @return true when it was added. When no number is found for it the user is told.
bool AddAnnotation(int button, double x, double y);

/// Makes the last annotation a polyline, or lengthens it: by a node at a position on the net that
/// lies kNodeDistance or more from its end. Takes part in the undo of AddAnnotation.
///
/// @return true when a node was added
bool ExtendAnnotation(double x, double y);

/// Shows or hides the layer; its members stay.
void SetAnnotationsShown(bool shown);

/// Removes all annotations. Kept for undo.
void RemoveAllAnnotations();

// The selection: the members in the marquee that stands, while they are shown.

/// Places of the selected members in the collection, ascending.
[[nodiscard]] std::vector<std::size_t> SelectedAnnotations();

/// Moves annotations with their nodes. One that would leave the picture stays where it is.
///
/// @param members  places in the collection
/// @return true when one has moved
bool MoveAnnotations(std::span<const std::size_t> members, double dx, double dy);

/// Moves the selected annotations; the marquee stays. To be called before the marquee is moved.
bool MoveAnnotations(double dx, double dy);

/// Styles in which the symbol dialog opens: of annotations of the left and of the right button.
struct AnnotationStyles {
    SymbolRow down{};
    SymbolRow up{};
};

/// Those of the first selected annotation of each button; without one that of the first selected.
/// Nothing without a selection.
[[nodiscard]] std::optional<AnnotationStyles> StylesOfSelectedAnnotations();

/// Gives the selected annotations other symbols, colours and sizes, each by its button. A symbol of
/// 0 leaves the shape as it is.
void ChangeAnnotationSymbols(const AnnotationStyles& styles);

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

/// Pastes a text of annotations (annotation_text.h) onto the plot and shows the layer; tells of
/// lines that could not be read. Tags are free numbers.
void PasteAnnotationText(const std::string& text);

} // namespace quandrel
