// SPDX-License-Identifier: MIT
//
// How far a net or a rose reaches from its centre on the page of a figure, with the texts around
// it.

#pragma once

#include "core/plot.h"
#include "stereo/drawing.h"

namespace quandrel {

/// A distance that grows with the radius of the primitive or the rim: a share of it, and
/// millimetres, which texts have at any radius.
struct ReachOfSide {
    double share = 0;
    double millimetres = 0;

    [[nodiscard]] double At(double radius) const { return share * radius + millimetres; }
};

struct FigureReach {
    ReachOfSide left;
    ReachOfSide right;
    ReachOfSide top;
    ReachOfSide bottom;

    [[nodiscard]] double Width(double radius) const { return left.At(radius) + right.At(radius); }

    [[nodiscard]] double Height(double radius) const { return top.At(radius) + bottom.At(radius); }

    /// By how much the height grows with the radius.
    [[nodiscard]] double SlopeOfHeight() const { return top.share + bottom.share; }

    /// The inverse of Width.
    [[nodiscard]] double RadiusOfWidth(double width) const {
        return (width - left.millimetres - right.millimetres) / (left.share + right.share);
    }
};

/// The reach of a plot in the style of a drawing: of a net with ticks, "N" and mean arrow, of a
/// rose with the labels of its rim; a half rose has no other half.
///
/// @param drawing  its surface of the legend measures texts; its state changes
[[nodiscard]] FigureReach ReachOfFigure(const Plot& plot, const Drawing& drawing);

} // namespace quandrel
