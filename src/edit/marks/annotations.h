// SPDX-License-Identifier: MIT
//
// Annotations: points and polylines on the net that belong to a plot and are not data.
//
// What is inside this room: what users put on a net besides rows, as annotations (this file,
// annotation_edits.h, annotation_text.h), girdles (girdles.h, girdle_pull.h) and small circles
// (small_circles.h, small_circle_pick.h).
// What enters: places on the net, texts of boxes and of the clipboard, the selection. What leaves:
// marks in the record of a plot, their drawing, and steps of the undo list.
//
// Positions are plot units. SymbolType 21 and 22 are rows of Styles::symbols, those of the left and
// the right button, and give the shape alone; a lower SymbolType is the code of a symbol itself.
// Colour and size are the annotation's own. All procedures work on gActivePlot unless they say
// otherwise; those that change it keep the undo, set Modified and draw, and do nothing while a long
// loop runs (gBusy).

#pragma once

#include "core/plot_record.h"
#include "core/style_tables.h"
#include "stereo/drawing.h"

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

// Kernels.

/// What an annotation is drawn with: colour index, symbol code, size. Where it has no symbol, no
/// size or no colour of its own, those of the style of its button.
[[nodiscard]] SymbolRow StyleOfAnnotation(const Styles& styles, const Annotation& annotation);

[[nodiscard]] constexpr bool IsOfRightButton(const Annotation& annotation) {
    return annotation.SymbolType == kRightAnnotationStyle;
}

// The layer.

/// The annotations of gActivePlot, to be changed; made if there are none yet.
[[nodiscard]] Annotations& AnnotationsOfActivePlot();

/// True when gActivePlot has a layer to edit: it is open and no rose, and no long loop runs.
[[nodiscard]] bool CanEditAnnotations();

/// The annotations of a plot, none where there are none.
[[nodiscard]] std::span<const Annotation> AnnotationsOf(const PlotRecord& record);
[[nodiscard]] std::span<const Annotation> AnnotationsOf(int slot);

/// Draws the annotations of a plot in their order, each with its polyline below its symbol, if they
/// are shown.
void DrawAnnotations(const PlotRecord& record, const Drawing& drawing);

/// The same of gActivePlot, in its window.
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

} // namespace quandrel
