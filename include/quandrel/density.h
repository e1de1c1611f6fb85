// SPDX-License-Identifier: MIT
//
// Densities of lines: counts within a cone on a grid over the net, and contours of these.
//
// Lines are axes here, and are counted at their nearest whole degrees (half-way cases to even). A
// line is counted when it, or its opposite, lies within the cone. Angles are degrees; densities are
// per cent of the lines within a cone of 1% of the area; positions are measured from the centre in
// radii of the primitive.
//
// Example: the contours of a cluster of poles.
//
//     namespace qd = quandrel::api;
//     const std::vector<qd::Line> poles = {{60, 120}, {62, 118}, {58, 125}, {20, 300}};
//     const qd::DensityField field = qd::DensityFieldOf(poles, qd::Projection::kEqualArea, 50);
//     std::cout << qd::GreatestDensity(field) << '\n'; // -> 75
//     const std::vector<qd::Contour> contours = qd::ContoursOf(field, std::vector<double>{50});
//     std::cout << contours[0].lines.size() << '\n'; // -> 1

#pragma once

#include "quandrel/net.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quandrel::api {

/// Half-angle of the cone of 1% of the sphere at each end: its cosine is 0.98.
inline constexpr double kCountingCone = 11.478340954533574;

/// Counts at the nodes of a square grid over the net.
struct DensityField {
    Projection projection = Projection::kEqualArea;
    std::int32_t lines = 0; ///< number of lines counted
    int nodes = 0;          ///< number along each side
    double first = 0;       ///< east of the first column, north of the first row
    double step = 0;        ///< distance between neighbours

    /// nodes x nodes: the count at node (i, j), i from west to east, j from south to north, is
    /// counts[i * nodes + j]. A node outside the primitive stands for the line that left the net
    /// on this side and entered on the other.
    std::vector<std::int32_t> counts;
};

/// Counts lines at the nodes of a grid, within kCountingCone of the line at each node.
///
/// @param gridSize  steps across the net, 10 to 150; the field has gridSize + 3 nodes per side
///
/// O(lines + nodes).
[[nodiscard]] DensityField DensityFieldOf(std::span<const Line> lines, Projection projection,
                                          int gridSize);

/// The greatest density of a field; 0 without lines.
[[nodiscard]] double GreatestDensity(const DensityField& field);

/// Counts lines within cones about m axes.
///
/// @param axes        not rounded
/// @param halfAngle   of the cones, above 0 and below 45
/// @param[out] counts  m numbers
///
/// O(lines + m).
void CountAbout(std::span<const Line> lines, std::span<const Line> axes, double halfAngle,
                std::span<std::int32_t> counts);

/// The contour at a density.
struct Contour {
    double level = 0;           ///< per cent
    std::vector<NetLine> lines; ///< a closed line repeats its first vertex at the end; the others
                                ///< end on the primitive
};

/// The levels that the program draws: the density of one line, rounded up to a whole per cent, then
/// doubled repeatedly up to the greatest density, at most nine levels.
[[nodiscard]] std::vector<double> UsualLevels(const DensityField& field);

/// The contours of a field within the primitive, one for each level, in order. They run half-way
/// between the least count that has the level's density and the next lower count. Closed parts that
/// enclose less than four cells of the grid are left out.
///
/// @param field   must have nodes * nodes counts
/// @param levels  per cent, above 0
///
/// O(levels * nodes^2). Method: straight segments across the triangles of each cell, after
/// P. Bourke, CONREC - a contouring subroutine, Byte 12 (6), 1987.
[[nodiscard]] std::vector<Contour> ContoursOf(const DensityField& field,
                                              std::span<const double> levels);

} // namespace quandrel::api
