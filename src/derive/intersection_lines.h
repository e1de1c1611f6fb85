// SPDX-License-Identifier: MIT
//
// Plots of the lines in which the two planes of each row meet.

#pragma once

namespace quandrel {

/// Makes a plot of the intersection of the primary with the secondary plane of each row of
/// gActivePlot, or makes the rows of the one that was made before anew. It becomes the active plot;
/// one that was changed since is only shown.
///
/// Rows follow the order of the source's rows, whose numbers are their texts. Parallel planes have
/// no line: their row holds the plunge -90 and is an error row of the table. Rows without a second
/// plane are left out. The description says how many there are of both.
///
/// @return false when nothing was made: the rows hold no two planes, the plot has been changed, or
///         what was told stood in the way
bool MakeIntersectionPlot();

/// Gives a plot the form of an empty plot of intersection lines.
void PrepareIntersectionPlot(int slot);

} // namespace quandrel
