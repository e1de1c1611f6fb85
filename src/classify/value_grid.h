// SPDX-License-Identifier: MIT
//
// The grid of appended numbers of a plot classified by them: means or sums of the rows around each
// node, as symbols of the nodes' classes and as contours between classes.

#pragma once

#include "density/contour_trace.h"

#include <vector>

namespace quandrel {

/// Draws, at each node on the net whose value has a class, the symbol of that class. Does nothing
/// without value grids.
void DrawValueGrid();

/// True for each class that DrawValueGrid draws a node of: [c] for class c up to the last one.
/// Empty without value grids.
[[nodiscard]] std::vector<bool> ClassesOfValueNodes();

/// The contour at the lower limit of a class.
struct ValueContour {
    int classNumber = 0; ///< of the values from the limit upwards
    double limit = 0;
    std::vector<ContourSegment> segments;
};

/// Contours of the grid shown, at the lower limits of the classes of gActivePlot, within the
/// primitive. Nodes without rows have the plot's background value; without one, contours end there.
[[nodiscard]] std::vector<ValueContour> ValueContoursOfActivePlot();

/// True for each class with a contour, as ClassesOfValueNodes. O(classes * nodes^2).
[[nodiscard]] std::vector<bool> ClassesOfValueContours();

/// Draws these contours in the colours of their classes.
void TraceContoursClassified();

} // namespace quandrel
