// SPDX-License-Identifier: MIT
//
// Annotations: points and polylines on the net that belong to a plot and are not data.
//
// This folder holds the marks that users put on a net in addition to rows: annotations (this file,
// annotation_edits.h, annotation_text.h), girdles (girdles.h, girdle_pull.h) and small circles
// (small_circles.h, small_circle_pick.h).
// Input: positions on the net, texts of boxes and of the clipboard, the selection.
// Output: marks in the record of a plot, their drawing, and steps of the undo list.
//
// Positions are plot units. SymbolType 21 and 22 are rows of Styles::symbols, for the left and the
// right button, and determine only the shape; a lower SymbolType is a symbol code itself. Each
// annotation has its own colour and size. All procedures act on gActivePlot unless stated
// otherwise. Those that change it are undoable, set Modified and draw, and do nothing while a long
// loop runs (gBusy).

#pragma once

#include "core/plot_record.h"
#include "core/style_tables.h"
#include "edit/marks/girdles.h"
#include "stereo/drawing.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quandrel {

// Given names.
inline constinit auto& gActiveGirdle = GirdleInWork::now.row;

/// Rows of gSymbolTable for annotations.
inline constexpr std::int16_t kLeftAnnotationStyle = 21;
inline constexpr std::int16_t kRightAnnotationStyle = 22;

/// Mouse buttons, as numbered in events.
inline constexpr int kLeftMouseButton = 1;
inline constexpr int kRightMouseButton = 2;

/// The smallest distance between nodes of a polyline.
inline constexpr double kNodeDistance = 10;

// Kernels.

/// The drawn style of an annotation: colour index, symbol code, size. A missing symbol, size or
/// colour is that of its button's style.
[[nodiscard]] SymbolRow StyleOfAnnotation(const Styles& styles, const Annotation& annotation);

[[nodiscard]] constexpr bool IsOfRightButton(const Annotation& annotation) {
    return annotation.SymbolType == kRightAnnotationStyle;
}

// The layer.

/// The annotations of gActivePlot, for changes; created if necessary.
[[nodiscard]] Annotations& AnnotationsOfActivePlot();

/// True if gActivePlot has a layer to edit: it is open and not a rose, and no long loop runs.
[[nodiscard]] bool CanEditAnnotations();

/// The annotations of a plot; empty if there are none.
[[nodiscard]] std::span<const Annotation> AnnotationsOf(const PlotRecord& record);
[[nodiscard]] std::span<const Annotation> AnnotationsOf(int slot);

/// Draws the annotations of a plot in their order, if they are shown. Each symbol is drawn over its
/// polyline.
void DrawAnnotations(const PlotRecord& record, const Drawing& drawing);

/// As above for gActivePlot, in its window.
void DrawAnnotations();

/// Adds an annotation in the style of the button, shows the layer and draws the annotation. Does
/// nothing outside the net or on a rose.
///
/// @param button  kLeftMouseButton or kRightMouseButton
/// @return true if it was added. If there is no unused number, the user sees a message
bool AddAnnotation(int button, double x, double y);

/// Makes the last annotation a polyline, or extends it, by a node at a position on the net that is
/// kNodeDistance or more from its end. Undone together with AddAnnotation.
///
/// @return true if a node was added
bool ExtendAnnotation(double x, double y);

/// Shows or hides the layer; its members are kept.
void SetAnnotationsShown(bool shown);

/// Removes all annotations. Undoable.
void RemoveAllAnnotations();

} // namespace quandrel
