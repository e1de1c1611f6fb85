// SPDX-License-Identifier: MIT
//
// Annotations as text on the clipboard: the head line of the program's own texts, the line
// "/Annotations 1", then a line for each annotation. Its fields are separated by tabs: x, y, symbol
// type, colour, size, line style, tag, then x and y of each node.

#pragma once

#include "core/plot_record.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// True if a text begins like the program's own texts, in upper or lower case.
[[nodiscard]] bool IsOwnClipboardText(std::string_view text);

/// The head line of the program's own texts, of rows and of annotations, including its line end.
[[nodiscard]] std::string ClipboardHead();

/// The contents of the clipboard, with respect to annotations.
enum class AnnotationTextKind {
    Foreign, ///< not the program's own text
    NoParts, ///< its own, with nothing after the head
    Marks,   ///< annotations
    Rows,    ///< its own, with other contents
};

[[nodiscard]] AnnotationTextKind KindOfAnnotationText(std::string_view text);

/// The text of the annotations.
[[nodiscard]] std::string AnnotationText(const Annotations& annotations);

/// The contents of a text.
struct ReadAnnotations {
    Annotations annotations;
    std::size_t badLines = 0; ///< invalid lines; blank lines do not count
};

/// Reads a text of kind Marks. Inverse: AnnotationText.
[[nodiscard]] ReadAnnotations ReadAnnotationText(std::string_view text);

} // namespace quandrel
