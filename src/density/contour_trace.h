// SPDX-License-Identifier: MIT
//
// Contours of values at the nodes of a square grid over the net.
//
// Each cell is split into four triangles between its centre, which has the mean of the corners, and
// two neighbouring corners. Within a triangle the surface is a plane, and a contour is a straight
// segment. After P. Bourke, CONREC - a contouring subroutine, Byte 12 (6), 1987. The ends that two
// segments share are equal to the last bit, so that segments can be chained. Positions are plot
// units; the primitive is the circle of radius kNetRadius about (0, 0). A vertex exactly on a level
// counts as above it: it is inside the contour.

#pragma once

#include "platform/surface.h"

#include <array>
#include <optional>
#include <span>
#include <vector>

namespace quandrel {

/// A straight segment of a contour.
struct ContourSegment {
    Point from;
    Point to;

    friend bool operator==(const ContourSegment&, const ContourSegment&) = default;
};

/// Values at the nodes of a square grid. Node (i, j), i across and j up, is at (first + i * step,
/// first + j * step).
struct NodeValues {
    std::span<const double> values; ///< nodes * nodes of them, node (i, j) at i * nodes + j
    int nodes = 0;                  ///< along each side, 0 or more
    double first = 0;
    double step = 1; ///< above 0
};

/// A corner of a triangle, with its height above the level.
struct TriangleVertex {
    Point at;
    double height = 0;
};

/// The course of a contour through a triangle, by the signs (-1, 0, 1) of the heights of its
/// vertices: 0 not at all; 1 to 3 along side 1-2, 2-3, 3-1; 4 to 6 from vertex 1, 2, 3 to the
/// opposite side; 7 from side 1-2 to 2-3, 8 from 2-3 to 3-1, 9 from 3-1 to 1-2.
///
/// A side on the level belongs to a contour only where the third vertex is below, so that only one
/// of the two triangles beside it draws it.
[[nodiscard]] int TriangleCase(int sign1, int sign2, int sign3);

/// The segment of the contour at height 0 in a triangle, if there is one.
[[nodiscard]] std::optional<ContourSegment>
TriangleSegment(const std::array<TriangleVertex, 3>& triangle);

/// The part of a segment within the primitive. Where it leaves, the second end is on the circle.
/// Empty when neither end is inside.
[[nodiscard]] std::optional<ContourSegment> ClippedToPrimitive(const ContourSegment& segment);

/// The contour of one level, clipped to the primitive, cell by cell: across, then up.
///
/// @param grid    finite values, or NaN for a node without a value: the cells around it have no
///                contour
/// @param level   in the unit of the values; for whole numbers best half-way between two of them
///
/// Segments have a length above 0. Where the contour does not end on the primitive or at the border
/// of the grid, each end of a segment meets another one. O(nodes^2).
[[nodiscard]] std::vector<ContourSegment> TraceContour(const NodeValues& grid, double level);

/// Segments chained into lines by their common ends, so that dash patterns continue: the vertices
/// of each line; a closed line repeats the first one as the last. Lines are in the order of their
/// first segments; each segment is in one line. O(segments).
[[nodiscard]] std::vector<std::vector<Point>>
ChainSegments(std::span<const ContourSegment> segments);

/// The segments without those of closed lines that enclose less than an area. Lines that end on the
/// primitive stay. O(segments).
[[nodiscard]] std::vector<ContourSegment> WithoutSpecks(std::span<const ContourSegment> segments,
                                                        double leastArea);

} // namespace quandrel
