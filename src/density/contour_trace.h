// SPDX-License-Identifier: MIT
//
// Contours of values at the nodes of a square grid over the net.
//
// Each cell is split into the four triangles between its centre, which has the mean of the corners,
// and two neighbouring corners; within a triangle the surface is a plane, and a contour a straight
// segment. After P. Bourke, CONREC - a contouring subroutine, Byte 12 (6), 1987. The ends that two
// segments share are equal to the last bit, so that segments can be chained. Positions are plot
// units, the primitive is the circle of radius kNetRadius about (0, 0). A level counts as above
// ground: a vertex exactly on it lies inside of its contour.

#pragma once

#include "platform/surface.h"

#include <array>
#include <optional>
#include <span>
#include <vector>

namespace quandrel {

/// A straight piece of a contour.
struct ContourSegment {
    Point from;
    Point to;

    friend bool operator==(const ContourSegment&, const ContourSegment&) = default;
};

/// Values at the nodes of a square grid. Node (i, j), i across and j up, stands at
/// (first + i * step, first + j * step).
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

/// How a contour runs through a triangle, by the signs (-1, 0, 1) of the heights of its vertices:
/// 0 not at all; 1 to 3 along side 1-2, 2-3, 3-1; 4 to 6 from vertex 1, 2, 3 to the side that faces
/// it; 7 from side 1-2 to 2-3, 8 from 2-3 to 3-1, 9 from 3-1 to 1-2.
///
/// A side that lies on the level belongs to a contour only where the third vertex lies below, so
/// that of two triangles on either side of it one alone draws it.
[[nodiscard]] int TriangleCase(int sign1, int sign2, int sign3);

/// The piece of the contour at height 0 in a triangle, if there is any.
[[nodiscard]] std::optional<ContourSegment>
TriangleSegment(const std::array<TriangleVertex, 3>& triangle);

/// The part of a segment within the primitive. Where it leaves, the second end lies on the circle.
/// Nothing when neither end lies inside.
[[nodiscard]] std::optional<ContourSegment> ClippedToPrimitive(const ContourSegment& segment);

/// The contour of one level, clipped to the primitive, cell by cell: across, then up.
///
/// @param grid    the values, finite; the cells about a node without a value, which is not a
///                number, have no contour
/// @param level   in the unit of the values; of whole numbers best half-way between two of them
///
/// Segments have some length. Where the contour does not end on the primitive or at the border of
/// the grid, each end of a segment meets another one. O(nodes^2).
[[nodiscard]] std::vector<ContourSegment> TraceContour(const NodeValues& grid, double level);

/// Segments with ends in common as lines, so that patterns of dashes run on: the vertices of each
/// line, of a closed one the first again as the last. Lines come in the order of their first
/// segments; each segment is in one line. O(segments).
[[nodiscard]] std::vector<std::vector<Point>>
ChainSegments(std::span<const ContourSegment> segments);

/// The segments without those of closed lines that enclose less than an area. Lines that end on the
/// primitive stay. O(segments).
[[nodiscard]] std::vector<ContourSegment> WithoutSpecks(std::span<const ContourSegment> segments,
                                                        double leastArea);

} // namespace quandrel
