// SPDX-License-Identifier: MIT
//
// Rows as the text that plots exchange over the clipboard, and the kinds of clipboard text.
//
// The program's own text: a head line ";Quandrel, ver 9.5.1", a parameter line (parameter_line.h),
// then a line for each row, its fields separated by tabs; every line ends with CR LF. Planes are
// dip and dip direction, lines plunge and trend, whatever notation is in force, with the decimals
// that they were measured with, at most six. Intersections have decimals in plots that use them.
// Annotations have a line of their own after the head.

#pragma once

#include "orientation/angles.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace quandrel {

/// The first characters of the companion calculator's text.
inline constexpr std::string_view kCompanionTextStart = ";Velmixor";

enum class ClipboardKind {
    Empty,
    OwnRows,
    Marks, ///< annotations in the program's own text
    Companion,
    Foreign,
};

/// The kind of a text, by its first 9 characters in any case.
[[nodiscard]] ClipboardKind KindOfClipboardText(std::string_view text);

/// The kind of the clipboard's text. Empty when there is none.
[[nodiscard]] ClipboardKind KindOfClipboard();

/// Which fields of a row are copied.
enum class CopiedFields {
    Points, ///< the orientation in its plotted form
    All,    ///< every column of the plot
};

/// True when the rows of a plot have more than their orientation.
[[nodiscard]] bool HasFurtherFields(int slot);

/// The text of selected intersections of a plot that shows these: lines without other fields.
[[nodiscard]] std::string TextOfIntersections(int slot, std::span<const Direction> lines);

/// The text of rows of a plot. Error rows are left out. O(rows).
///
/// A plot that shows beta intersections gives, instead of the rows, those of the planes of each
/// pair of main rows: lines without other fields. Coinciding planes have none. If all rows belong
/// to overlays, the text states the overlays' kind; otherwise rows of overlays are converted to the
/// kind of the main rows, at the same positions on the net.
///
/// @param rows  point indices
[[nodiscard]] std::string TextOfRows(int slot, std::span<const std::int32_t> rows,
                                     CopiedFields fields);

} // namespace quandrel
