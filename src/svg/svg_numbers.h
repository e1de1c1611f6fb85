// SPDX-License-Identifier: MIT
//
// Numbers and attributes of SVG elements.

#pragma once

#include "platform/surface.h"

#include <string>
#include <string_view>

namespace quandrel {

/// A number rounded to thousandths, without trailing zeros, whatever the locale: "12.5", "-3".
/// Numbers beyond 1e12 are cut to it.
///
/// @param value  not NaN
void AppendNumber(std::string& text, double value);

[[nodiscard]] std::string NumberText(double value);

/// "12.5 -3"
[[nodiscard]] std::string PlaceText(Point place);

/// An attribute with a blank before it: ' x="12.5"'. The text is written as it is.
[[nodiscard]] std::string Attribute(std::string_view name, std::string_view value);
[[nodiscard]] std::string Attribute(std::string_view name, double value);

/// "#rrggbb"
[[nodiscard]] std::string ColourText(Colour colour);

} // namespace quandrel
