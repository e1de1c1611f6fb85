// SPDX-License-Identifier: MIT
//
// The grid of appended numbers of a plot classified by them: means or sums of the rows around each
// node, as symbols of the nodes' classes and as contours between classes.

#pragma once

#include "core/plot.h"
#include "density/contour_trace.h"
#include "stereo/drawing.h"

#include <vector>

namespace quandrel {

/// Draws, at each node on the net whose value has a class, the symbol of that class. Does nothing
/// without value grids.
void DrawValueGrid(const Plot& plot, const Drawing& drawing);

/// True for each class that DrawValueGrid draws a node of: [c] for class c up to the last one.
/// Empty without value grids.
[[nodiscard]] std::vector<bool> ClassesOfValueNodes(const Plot& plot);

/// The contour at the lower limit of a class.
struct ValueContour {
    int classNumber = 0; ///< of the values from the limit upwards
    double limit = 0;
    std::vector<ContourSegment> segments;
};

/// Contours of the grid shown, at the lower limits of the classes of a plot, within the primitive.
/// Nodes without rows have the plot's background value; without one, contours end there.
///
/// @param watcher  the status line, or nullptr
[[nodiscard]] std::vector<ValueContour> ValueContoursOf(const Plot& plot,
                                                        StatusLine* watcher = nullptr);

/// True for each class with a contour, as ClassesOfValueNodes. O(classes * nodes^2).
[[nodiscard]] std::vector<bool> ClassesOfValueContours(const Plot& plot);

/// Draws these contours in the colours of their classes.
void DrawValueContours(const Plot& plot, const Drawing& drawing);

/// Draws them for gActivePlot, in its window.
void TraceContoursClassified();

} // namespace quandrel
