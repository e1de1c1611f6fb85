// SPDX-License-Identifier: MIT
//
// Contours of a smooth field over the net, as lines and as outlines of regions.
//
// The net is split into cells of one degree of plunge and trend, each into four triangles about its
// centre. A line passes a triangle where the field's values at its corners lie on both sides of the
// level. Each vertex is on the level, found by root finding along a side; where the line bends,
// vertices are added until chords are as good as the line at print size. A place on the level
// counts as above it.
//
// Lines are closed, or end on the primitive. In a field of axes the ends are antipodal pairs, as
// the field has the same values at both ends of a diameter. The field is above the level to the
// left of a line, as seen on the net.

#pragma once

#include "density/net_place.h"

#include <functional>
#include <span>
#include <vector>

namespace quandrel {

inline constexpr int kFieldRings = 91;   ///< plunges 0 to 90
inline constexpr int kFieldTrends = 360; ///< trends 0 to 359

/// A continuous field over the net.
struct NetField {
    /// At whole degrees: kFieldTrends values for each plunge from 0 to 90; those of 90 are equal.
    std::span<const double> nodes;

    /// At any place; at whole degrees the values of `nodes`.
    std::function<double(const NetPlace&)> at;
};

/// A contour line. A closed one does not repeat its first vertex.
struct FieldLine {
    std::vector<NetPlace> vertices;
    bool isClosed = false;
};

/// The contour of one level. O(cells of the net), plus some values of the field for each vertex.
[[nodiscard]] std::vector<FieldLine> FieldContour(const NetField& field, double level);

/// The outlines of the region within the primitive where the field is at or above a level, to be
/// filled by the even-odd rule: the closed lines of its contour, the others joined along the
/// primitive, or the primitive itself.
///
/// @param contour  FieldContour of the level
[[nodiscard]] std::vector<std::vector<NetPlace>>
RegionAbove(const NetField& field, std::span<const FieldLine> contour, double level);

} // namespace quandrel
