// SPDX-License-Identifier: MIT
//
// Shapes as the openings of SVG elements, with their geometry and without style: '<path d="M0 0L1
// 1"'.
//
// Positions are units of the document, +x to the right and y down. Angles are radians clockwise
// from +x. A shape without points, or with a position that is not finite, is an empty text.

#pragma once

#include "platform/surface.h"

#include <span>
#include <string>
#include <vector>

namespace quandrel {

/// A part of an ellipse. The point at an angle a is the centre and (radiusX cos a, radiusY sin a);
/// a negative radius mirrors.
struct SvgArc {
    Point centre;
    double radiusX = 0;
    double radiusY = 0;
    double start = 0;
    double sweep = 0; ///< from the start; at most a turn either way
};

/// An open line, or a closed one.
[[nodiscard]] std::string LineShape(std::span<const Point> points);
[[nodiscard]] std::string ClosedShape(std::span<const Point> points);

/// Closed rings, filled by the even-odd rule. Empty rings are left out.
[[nodiscard]] std::string RingsShape(std::span<const std::vector<Point>> rings);

/// A circle, or an ellipse where its radii differ. Radii are positive.
[[nodiscard]] std::string EllipseShape(Point centre, double radiusX, double radiusY);

/// A box by two opposite corners.
[[nodiscard]] std::string BoxShape(Point corner, Point opposite);

/// An open arc, and one that is closed by both radii. An arc is written in pieces of less than 120
/// degrees: the centre of a piece near half a turn would depend on the rounding of its ends.
[[nodiscard]] std::string ArcShape(const SvgArc& arc);
[[nodiscard]] std::string WedgeShape(const SvgArc& arc);

} // namespace quandrel
