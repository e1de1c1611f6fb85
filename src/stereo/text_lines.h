// SPDX-License-Identifier: MIT
//
// Texts of several lines on a surface: breaking them, and columns of numbers at tab stops. Texts
// may hold anything; what is drawn and measured of them is what DrawableText gives.

#pragma once

#include "platform/surface.h"

#include <string>
#include <vector>

namespace quandrel {

/// A text as wide as the distance of tab stops in its font: two of them hold the widest head of the
/// statistics' columns.
inline constexpr const char* kTabSample = "-0.0000 ";

/// The lines of a text in the surface's font, broken at blanks so that each is as wide as asked for
/// or a single word. The rows of a table, which have tabs, stay whole.
///
/// @param width  in the surface's units
[[nodiscard]] std::vector<std::string> WrappedLines(const Surface& surface, const std::string& text,
                                                    double width);

/// Draws a line from its top left corner. A tab leads to the next tab stop, which are as far apart
/// as a number of four decimals is wide.
void DrawTabbedLine(Surface& surface, Point topLeft, const std::string& line);

/// What DrawTabbedLine takes.
[[nodiscard]] double TabbedWidth(const Surface& surface, const std::string& line);

} // namespace quandrel
