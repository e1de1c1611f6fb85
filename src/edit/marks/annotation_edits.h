// SPDX-License-Identifier: MIT
//
// Edits of the selected annotations of gActivePlot: those within the visible marquee, while
// annotations are shown. Each edit is undoable, sets Modified and draws. No edit is made while a
// long loop runs.

#pragma once

#include "edit/marks/annotations.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quandrel {

/// The message of an edit that finds no annotation in the marquee.
inline constexpr const char* kNoAnnotationsSelected =
    "No annotations were selected for editing from the chosen annotation layer!";

/// Indices of the selected members in the collection, ascending.
[[nodiscard]] std::vector<std::size_t> SelectedAnnotations();

/// Moves annotations with their nodes. An annotation that would leave the picture stays.
///
/// @param members  indices in the collection
/// @return true if at least one has moved
bool MoveAnnotations(std::span<const std::size_t> members, double dx, double dy);

/// Moves the selected annotations; the marquee stays. Call it before the marquee is moved.
bool MoveAnnotations(double dx, double dy);

/// The initial styles of the symbol dialog: for annotations of the left and of the right button.
struct AnnotationStyles {
    SymbolRow down{};
    SymbolRow up{};
};

/// The styles of the first selected annotation of each button; if there is none, that of the first
/// selected annotation. Nothing without a selection.
[[nodiscard]] std::optional<AnnotationStyles> StylesOfSelectedAnnotations();

/// Gives the selected annotations new symbols, colours and sizes, each by its button. A symbol of 0
/// keeps the shape.
void ChangeAnnotationSymbols(const AnnotationStyles& styles);

/// The operations that copy or remove the selected annotations.
enum class AnnotationRemoval { Copy, Cut, Delete };

/// Copies, cuts or deletes the selected annotations; without a selection shows a message.
void TakeAnnotations(AnnotationRemoval removal);

/// Pastes a text of annotations (annotation_text.h) onto the plot and shows the layer; reports
/// lines that could not be read. Tags are unused numbers.
void PasteAnnotationText(const std::string& text);

} // namespace quandrel
