// SPDX-License-Identifier: MIT
//
// Showing a selection above the picture of a plot. Positions are plot units; `offset` is how far
// the selection has been dragged. The state of the surface is restored.

#pragma once

#include "platform/surface.h"

#include <vector>

namespace quandrel {

/// Marks the positions of selected rows, each with a halo so that it is visible on any background.
/// Up to fifty have rings, which leave their symbols visible; more have discs, as rings would
/// merge. A position that the offset would move off the net is marked where it was.
void DrawRings(Surface& surface, std::vector<Point> places, Point offset, Colour highlight);

/// Highlights rows that are drawn as great circles, by the positions of their poles. Many have no
/// halo, which would cover what is below them.
void DrawArcs(Surface& surface, int plotKind, std::vector<Point> poles, Point offset,
              Colour highlight);

/// Handles at the selected annotations of gActivePlot: at the mark, and at the end of its line.
void DrawHandlesOfMarks(Surface& surface, Point offset, Colour highlight);

/// Draws the frame of a marquee, in a pen visible on any background: drawing it twice removes it.
void DrawMarquee(Surface& surface, Point corner, Point opposite);

/// Draws a lasso of at least one corner, closed, in the same pen.
void DrawLasso(Surface& surface, std::vector<Point> corners, Point offset);

/// Draws the marquee that is shown, with handles at its corners, or the lasso.
void DrawStandingMarquee(Surface& surface, Point offset, Colour highlight);

} // namespace quandrel
