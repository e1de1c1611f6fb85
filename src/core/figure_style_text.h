// SPDX-License-Identifier: MIT
//
// Styles of figures as text: files that people read, change and give to others.
//
// A style is a JSON object: its name, and an object for each part of FigureStyle with the
// properties of the part under their names; colours are "#rrggbb".
//
//     {"name": "Thesis", "net": {"rimWidth": 1, "showNorth": true}, "text": {"size": 8}}

#pragma once

#include "core/figure_style.h"
#include "core/result.h"

#include <string>
#include <string_view>

namespace quandrel {

/// The longest text that is read as a style, bytes.
inline constexpr std::size_t kLongestStyleText = 30'000;

/// The text of a style, with all properties, one a line.
[[nodiscard]] std::string TextOfStyle(const FigureStyle& style);

/// The style of a text: the inverse of TextOfStyle. Properties that are missing are those of the
/// standard style that the text names by "basis", else of Journal. A property that is unknown, or
/// of another kind or beyond its limits, is a failure that names it.
[[nodiscard]] Result<FigureStyle> StyleOfText(std::string_view text);

} // namespace quandrel
