// SPDX-License-Identifier: MIT
//
// The grid of appended numbers of a plot that is classified by them: means or sums of the rows
// about each node, as symbols of the nodes' classes and as contours where classes meet.

#pragma once

#include "density/contour_trace.h"

#include <vector>

namespace quandrel {

/// Draws the symbol of its class at each node on the net that has a value in one. Without value
/// grids nothing is drawn.
void DrawValueGrid();

/// True for each class that DrawValueGrid draws a node of: [c] for class c to the last one. Empty
/// without value grids.
[[nodiscard]] std::vector<bool> ClassesOfValueNodes();

/// Where a class begins.
struct ValueContour {
    int classNumber = 0; ///< of the values from the limit on
    double limit = 0;
    std::vector<ContourSegment> segments;
};

/// Contours of the grid shown at the lower limits of the classes of gActivePlot, within the
/// primitive. Nodes without rows have the plot's background value; without one contours end there.
[[nodiscard]] std::vector<ValueContour> ValueContoursOfActivePlot();

/// True for each class with a contour, as ClassesOfValueNodes. O(classes * nodes^2).
[[nodiscard]] std::vector<bool> ClassesOfValueContours();

/// Draws them in the colours of their classes.
void TraceContoursClassified();

} // namespace quandrel
