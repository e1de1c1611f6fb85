// SPDX-License-Identifier: MIT
//
// Selections of plots and of maps, each shown on the other side.

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

/// The statements that were sent last, in their order.
extern std::vector<std::string> gMIRowList;

/// Answers a message of the session: "MI:" with fields parted by commas, of which 1, 2 and 5, 6 are
/// the corners and 7 the tool. The point tool and the marquee tool select objects; anything else
/// means that the session's own selection has changed; a message that names no tool at all tells of
/// that in passing, and what hinders goes to the status line. Other messages are ignored, and so
/// are all during a long loop (gBusy).
void HandleToolButton(const std::string& message);

/// Links the objects under a point of the map in front, in its coordinates. Without any, or without
/// a map, nothing happens.
void SelectFromMap(double x, double y);

/// The same for the objects of a rectangle between two opposite corners.
void SelectFromMap(double x, double y, double x2, double y2);

/// Selects in a plot what the session has selected. The session's selection stays.
void LinkMapSelectionToPlot();

/// Selects in a plot what was found on a map, in the session too.
///
/// Of several tables that of the active plot counts, else that of the lowest slot. Another plot
/// that is linked to the table becomes the active one. Rows that no plot row belongs to are left
/// out. Tells when there is no plot, no linked plot, or none that is linked to a table found.
void LinkMapSelectionToPlot(const std::vector<MapRows>& found);

/// Selects in the session what is selected in a linked plot; nothing, when nothing is. Does nothing
/// without a link of that plot.
void SelectPlotRowsInMap();

/// SelectPlotRowsInMap after a change of the selection, by whatever means: called by whoever is
/// told of changes (gSelectionChanged). Sends nothing while the selection comes from the map, or
/// when the session has it already. A failure is told once, until a selection gets through again.
void FollowSelectionInMap();

/// Forgets what was selected last; a new link begins.
void ForgetMapSelection();

} // namespace quandrel
