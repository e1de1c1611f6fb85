// SPDX-License-Identifier: MIT
//
// The petals of a rose as wedges: their geometry, and their drawing.
//
// Angles of wedges are radians, counter-clockwise from east; a wedge runs counter-clockwise from
// its start to its end, a full turn when both are equal. Radii are plot units; all wedges begin at
// the centre, and inner ones are on top of outer ones.

#pragma once

#include "platform/surface.h"
#include "rose/rose_tables.h"
#include "stereo/drawing.h"

#include <span>
#include <vector>

namespace quandrel {

struct RoseWedgeSettings {
    double startMath = 80;    ///< start of sector 1, degrees counter-clockwise from east
    double sectorSize = 10;   ///< degrees
    double oddSectorSize = 0; ///< of the smaller last sector, degrees; 0 for none
    double fraction = 1;      ///< part of the sector that its wedge fills, above 0
    double zeroRadius = 0;
    bool stepped = false; ///< whether classes differ in width too
    bool mirror = false;  ///< whether each wedge has an opposite one
    int layer = 0;
};

/// The angle of a wedge, in the middle of its sector. The smaller last sector ends where the first
/// one begins; its gaps are whole degrees where there is room for them.
struct RoseSpan {
    double start = 0; ///< radians, not wrapped
    double end = 0;
};

/// The span of a sector, 1 to `sectors`, before classes narrow it.
[[nodiscard]] RoseSpan SpanOfSector(const RoseWedgeSettings& settings, int sectors, int sector);

/// The wedges of all sectors with a length above 0, each followed by its mirror: the whole sector,
/// or its classes from the outermost to the innermost. Classes of different widths widen outward in
/// equal steps: class c of m is (2 c - 1) / (2 m - 1) as wide as its sector.
[[nodiscard]] std::vector<RoseWedge> WedgesOfRose(const RoseRadiiTable& radii,
                                                  const RoseWedgeSettings& settings);

/// The topmost wedge at a position, or empty.
[[nodiscard]] const RoseWedge* WedgeAt(std::span<const RoseWedge> wedges, Point at);

/// The fill of the petals of a class, or of a layer of an overlaid rose.
struct RoseFill {
    int colour = 0;  ///< index of Styles::colours
    int pattern = 0; ///< FillStyle
};

/// Of a class, 1 or more. Classes beyond the table have the colours of the first ones, hatched.
[[nodiscard]] RoseFill FillOfRoseClass(const Styles& styles, int classNumber);

/// Of a layer 0 to 2; 0 is also a rose without layers and classes.
[[nodiscard]] RoseFill FillOfRoseLayer(const Styles& styles, int layer);

/// Width of a wedge in the layers of an overlaid rose, as a fraction of its sector: the middle
/// layer is a quarter of its sector narrower, but never without width.
[[nodiscard]] double FractionOfLayer(double fraction, int layer);

/// Adds the wedges of a layer, from the radii of the rose, to those of the plot's rose. Layers are
/// added from 2 down to 0, in drawing order.
void AddRoseWedges(Plot& plot, int layer);

/// Draws the wedges of the rose of a plot, and after those of layer 0 the outlines of the layers
/// below it, the zero circle, and the blank of a half rose.
void DrawRoseWedges(const Plot& plot, const Drawing& drawing);

/// Adds and draws a layer of the rose of gActivePlot.
///
/// @param style  RoseHistStyle. Kept: it plays no part, wedges are always drawn
/// @param layer  0 to 2; above counts as 0
void DrawRoseWedges(int style, int layer = 0);

} // namespace quandrel
