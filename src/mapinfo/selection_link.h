// SPDX-License-Identifier: MIT
//
// Linking selections between plots and maps, in both directions.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quandrel {

/// Rows of a table that were chosen on a map.
struct MapRows {
    std::string table;
    std::vector<std::int32_t> rows;
};

/// Handles a message of the session: "MI:" with fields separated by commas, of which 1, 2 and 5, 6
/// are the corners and 7 the tool. The point tool and the marquee tool select objects; any other
/// tool means that the session's own selection has changed. A message without a tool reports such a
/// change in passing, so problems go to the status line. Other messages are ignored, and so are all
/// during a long loop (gBusy).
void HandleToolButton(const std::string& message);

/// Links the objects at a point of the front map, in its coordinates. Does nothing when there are
/// none, or no map.
void SelectFromMap(double x, double y);

/// The same for the objects in a rectangle, by two opposite corners.
void SelectFromMap(double x, double y, double x2, double y2);

/// Selects in a plot what the session has selected. The session's selection is unchanged.
void LinkMapSelectionToPlot();

/// Selects in a plot what was found on a map, and in the session too.
///
/// Of several tables the active plot's counts, else that of the lowest slot. Another plot that is
/// linked to the table becomes the active one. Rows without a plot row are left out. Reports when
/// there is no plot, no linked plot, or none that is linked to a table found.
void LinkMapSelectionToPlot(const std::vector<MapRows>& found);

/// Selects in the session what is selected in a linked plot, or clears its selection. Does nothing
/// unless that plot has a link.
void SelectPlotRowsInMap();

/// SelectPlotRowsInMap after any change of the selection; called through ConnectSelection. Sends
/// nothing while the selection comes from the map, or when the session has it already. A failure is
/// reported once, until a selection succeeds again.
void FollowSelectionInMap();

/// Forgets the last selection, for a new link.
void ForgetMapSelection();

} // namespace quandrel
