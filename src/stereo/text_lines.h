// SPDX-License-Identifier: MIT
//
// Texts of several lines on a surface: line breaks, and columns of numbers at tab stops. Texts may
// hold anything; they are drawn and measured as DrawableText returns them.

#pragma once

#include "platform/surface.h"

#include <string>
#include <vector>

namespace quandrel {

/// A text as wide as the distance of tab stops in its font: two tab stops hold the widest heading
/// of the statistics' columns.
inline constexpr const char* kTabSample = "-0.0000 ";

/// The lines of a text in the surface's font, broken at blanks so that each line fits the width or
/// is a single word. The rows of a table, which contain tabs, stay whole.
///
/// @param width  in the surface's units
[[nodiscard]] std::vector<std::string> WrappedLines(const Surface& surface, const std::string& text,
                                                    double width);

/// Draws a line from its top left corner. A tab leads to the next tab stop; their distance is the
/// width of a number with four decimals.
void DrawTabbedLine(Surface& surface, Point topLeft, const std::string& line);

/// The width of DrawTabbedLine.
[[nodiscard]] double TabbedWidth(const Surface& surface, const std::string& line);

} // namespace quandrel
