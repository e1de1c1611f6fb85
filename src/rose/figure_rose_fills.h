// SPDX-License-Identifier: MIT
//
// The fills of petals in the style of a figure.
//
// A fill that the tables have at its start value is that of the style: of petals its colour, of
// classes of numbers a palette from low to high, of classes of names the colours of sets. A fill
// that the user has chosen in the preferences stays.

#pragma once

#include "core/plot_record.h"
#include "platform/surface.h"
#include "rose/rose_tables.h"
#include "stereo/drawing.h"

namespace quandrel {

/// A fill on a surface.
struct PetalFill {
    Colour colour;
    int pattern = kSolidFill; ///< FillStyle

    friend bool operator==(const PetalFill&, const PetalFill&) = default;
};

/// Whether a drawing has roses of a style other than Classic.
[[nodiscard]] bool HasFigureRoses(const Drawing& drawing);

/// Of a class, from 1. Where a palette has no further colour well apart from the others, the first
/// ones return, hatched.
[[nodiscard]] PetalFill FillOfFigureClass(const PlotRecord& record, const Drawing& drawing,
                                          int classNumber);

/// Whether a type of rose lays one rose over another.
[[nodiscard]] bool HasLayersOfRose(int roseType);

/// Of a layer 0 to 2 of an overlaid rose, from dark on top to pale; 0 is also a rose without layers
/// and classes.
[[nodiscard]] PetalFill FillOfFigureLayer(const PlotRecord& record, const Drawing& drawing,
                                          int layer);

/// Of a petal, by its class or its layer.
[[nodiscard]] PetalFill FillOfFigureWedge(const PlotRecord& record, const Drawing& drawing,
                                          const RoseWedge& wedge);

/// The colour of the outlines of petals.
[[nodiscard]] Colour OutlineOfPetals(const Styles& styles);

/// Makes a fill, with an outline as wide as the style has it, the state of a surface.
void UseFill(Surface& surface, const Drawing& drawing, const PetalFill& fill);

} // namespace quandrel
