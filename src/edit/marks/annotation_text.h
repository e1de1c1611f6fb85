// SPDX-License-Identifier: MIT
//
// Annotations as text on the clipboard: the head line of the program's own texts, the line
// "/Annotations 1", then a line for each annotation, its fields parted by tabs: x, y, symbol type,
// colour, size, line style, tag, then x and y of each node.

#pragma once

#include "core/plot_record.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// True when a text begins as the program's own texts do, in any case.
[[nodiscard]] bool IsOwnClipboardText(std::string_view text);

/// The head line of the program's own texts, of rows and of annotations, with its line end.
[[nodiscard]] std::string ClipboardHead();

/// What stands on the clipboard, as far as annotations are concerned.
enum class AnnotationTextKind {
    Foreign, ///< not the program's own text
    NoParts, ///< its own, with nothing behind the head
    Marks,   ///< annotations
    Rows,    ///< its own, with something else
};

[[nodiscard]] AnnotationTextKind KindOfAnnotationText(std::string_view text);

/// The annotations as a text.
[[nodiscard]] std::string AnnotationText(const Annotations& annotations);

/// A text, read.
struct ReadAnnotations {
    Annotations annotations;
    std::size_t badLines = 0; ///< lines that are no annotations; blank ones are passed over
};

/// Reads a text of kind Marks. Inverse: AnnotationText.
[[nodiscard]] ReadAnnotations ReadAnnotationText(std::string_view text);

} // namespace quandrel
