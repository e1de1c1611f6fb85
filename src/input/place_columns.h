// SPDX-License-Identifier: MIT
//
// The place of a row on the map, from two columns of its line.

#pragma once

#include "core/map_places.h"
#include "input/format_model.h"

#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

/// The place that a line states. Nothing where the format has no columns for it, the line ends
/// before them, or they do not hold two numbers. O(length of the line).
[[nodiscard]] std::optional<MapPlace> MapPlaceIn(std::string_view line, const LineFormat& format);

/// A coordinate with up to 15 significant digits and a decimal point.
[[nodiscard]] std::string CoordinateText(double coordinate);

} // namespace quandrel
