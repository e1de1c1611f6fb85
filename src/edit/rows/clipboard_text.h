// SPDX-License-Identifier: MIT
//
// Rows as the text that plots exchange over the clipboard, and what a text on it is.
//
// The program's own text: a head line ";Quandrel, ver 9.5.1", a parameter line (parameter_line.h),
// then a line for each row, its fields parted by tabs, every line with CR LF. Planes are dip and
// dip direction, lines plunge and trend, in whole degrees, whatever notation is in force.
// Annotations have a line of their own behind the head.

#pragma once

#include "orientation/angles.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace quandrel {

/// How the text of the companion calculator begins.
inline constexpr std::string_view kCompanionTextStart = ";Velmixor";

enum class ClipboardKind {
    Empty,
    OwnRows,
    Marks, ///< annotations, of the program's own
    Companion,
    Foreign,
};

/// What a text is, by its first 9 characters in any case.
[[nodiscard]] ClipboardKind KindOfClipboardText(std::string_view text);

/// What is on the clipboard. Empty when there is none.
[[nodiscard]] ClipboardKind KindOfClipboard();

/// How many fields of a row are copied.
enum class CopiedFields {
    Points, ///< the orientation as it is plotted
    All,    ///< every column of the plot
};

/// True when the rows of a plot have more than their orientation.
[[nodiscard]] bool HasFurtherFields(int slot);

/// The text of selected intersections of a plot that shows these: lines without further fields.
[[nodiscard]] std::string TextOfIntersections(int slot, std::span<const Direction> lines);

/// The text of rows of a plot. Error rows are left out. O(rows).
///
/// A plot that shows beta intersections gives those of the planes of each pair of main rows in
/// place of the rows: lines without further fields. Coinciding planes have none. Rows of overlays
/// alone are told to be what their overlays hold; among others they are turned into what the main
/// rows are, and keep their places on the net.
///
/// @param rows  point indices
[[nodiscard]] std::string TextOfRows(int slot, std::span<const std::int32_t> rows,
                                     CopiedFields fields);

} // namespace quandrel
