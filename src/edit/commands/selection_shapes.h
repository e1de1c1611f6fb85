// SPDX-License-Identifier: MIT
//
// What shows a selection above the picture of a plot. Positions are plot units; `offset` is how far
// the selection has been dragged. The state of the surface is left as it was.

#pragma once

#include "platform/surface.h"

#include <vector>

namespace quandrel {

/// Marks the places of selected rows, each with a halo about it so that it is seen on any ground.
/// Few wear rings, through which their symbols are seen; above fifty places they are filled, as
/// rings would run together. A place that the offset would push off the net keeps its mark.
void DrawRings(Surface& surface, std::vector<Point> places, Point offset, Colour highlight);

/// Rows that are drawn as great circles light up as these, by the places of their poles. Many do
/// without a halo, which would cover what they lie over.
void DrawArcs(Surface& surface, int plotKind, std::vector<Point> poles, Point offset,
              Colour highlight);

/// Handles at the selected annotations of gActivePlot: at the mark, and at the end of its line.
void DrawHandlesOfMarks(Surface& surface, Point offset, Colour highlight);

/// Draws the frame of a marquee, in a pen that shows on any ground: drawn twice it is gone.
void DrawMarquee(Surface& surface, Point corner, Point opposite);

/// Draws a lasso of at least one corner, closed, in the same pen.
void DrawLasso(Surface& surface, std::vector<Point> corners, Point offset);

/// Draws the marquee that stands, with handles at its corners, or the lasso.
void DrawStandingMarquee(Surface& surface, Point offset, Colour highlight);

} // namespace quandrel
