// SPDX-License-Identifier: MIT
//
// The layer that is seen at a point of a net, or in a line of its legend.

#pragma once

#include "core/plot.h"
#include "stereo/drawing.h"

#include <cstddef>
#include <optional>

namespace quandrel {

/// The uppermost layer with a line, a symbol, a text or a filled band at a point; its place in
/// LayersOf, the lowest is 0. Empty for a bare place, and for a rose. O(rows).
///
/// @param drawing  as the net is drawn
/// @param at       user units of its surface
/// @param reach    how far lines and symbols may be from the point, the same units
[[nodiscard]] std::optional<std::size_t> LayerAt(const Plot& plot, const Drawing& drawing, Point at,
                                                 double reach);

/// The layer that a line of the legend beside the net is about. Empty beside the lines, in the
/// legend of a rose, and in that of the tables (drawing/shown_legend.h).
///
/// @param drawing  as the legend is drawn
/// @param at       logical pixels from the top left corner of the box
[[nodiscard]] std::optional<std::size_t> LayerOfLegendAt(const Plot& plot, const Drawing& drawing,
                                                         Point at);

/// The entry that a line of the legend beside a rose is. Empty as above, and for a net.
[[nodiscard]] std::optional<RoseName> RoseEntryAt(const Plot& plot, const Drawing& drawing,
                                                  Point at);

} // namespace quandrel
