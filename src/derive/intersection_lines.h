// SPDX-License-Identifier: MIT
//
// Plots of the intersection lines of the two planes of each row.

#pragma once

namespace quandrel {

/// Makes a plot of the intersection of the primary with the secondary plane of each row of
/// gActivePlot, or recomputes the rows of the plot that was made before. It becomes the active
/// plot; a plot that was changed since is only shown.
///
/// Rows are in the order of the source's rows; their texts are the source's row numbers. Parallel
/// planes have no line: their row holds the plunge -90 and is an error row of the table. Rows
/// without a second plane are left out. The description states the number of both.
///
/// @return false when nothing was made: no row holds two planes, the plot has been changed, or for
///         a reason that was reported
bool MakeIntersectionPlot();

/// Gives a plot the form of an empty plot of intersection lines.
void PrepareIntersectionPlot(int slot);

} // namespace quandrel
