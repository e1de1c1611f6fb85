// SPDX-License-Identifier: MIT
//
// Edits of the selected annotations of gActivePlot: those in the marquee that stands, while they
// are shown. Each edit keeps the undo, sets Modified and draws; none is made while a long loop
// runs.

#pragma once

#include "edit/marks/annotations.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quandrel {

/// What is told when an edit finds none in the marquee.
inline constexpr const char* kNoAnnotationsSelected =
    "No annotations were selected for editing from the chosen annotation layer!";

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

/// What is done with the selected annotations on their way to the clipboard.
enum class AnnotationRemoval { Copy, Cut, Delete };

/// Copies, cuts or deletes the selected annotations; without a selection tells so.
void TakeAnnotations(AnnotationRemoval removal);

/// Pastes a text of annotations (annotation_text.h) onto the plot and shows the layer; tells of
/// lines that could not be read. Tags are free numbers.
void PasteAnnotationText(const std::string& text);

} // namespace quandrel
