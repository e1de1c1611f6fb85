// SPDX-License-Identifier: MIT
//
// The circles of a rose in the style of a figure, with their values: per cent of the total, or for
// means and deviations, whose total means nothing, the values themselves.

#pragma once

#include "core/plot.h"
#include "stereo/drawing.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// A circle below the largest petal, which ends at the rim.
struct FigureCircle {
    double radius = 0; ///< plot units
    std::string text;  ///< of its value; the outermost has the unit
};

/// The scale of a rose.
struct FigureScale {
    std::vector<FigureCircle> circles; ///< from the centre outward; none where the scale is off
    bool isPerCent = true;
    double step = 0; ///< between circles, per cent or a value
    double rim = 0;  ///< the largest petal, in the same unit
};

/// 1, 2 or 5 times a power of ten: the step that gives a largest value about four circles.
///
/// @param largest  above 0
[[nodiscard]] double RoundStep(double largest);

/// The scale of a rose whose results are worked out.
[[nodiscard]] FigureScale ScaleOfFigure(const Plot& plot);

/// A value of a scale with its unit, if it has one: "2%", "1.5".
[[nodiscard]] std::string TextOfScaleValue(const FigureScale& scale, double value);

/// Draws spokes to the labels of the rim, and the circles.
void DrawFigureCircles(const Plot& plot, const Drawing& drawing);

/// Where the value of a circle is written.
struct PlacedValue {
    std::size_t circle = 0; ///< index of FigureScale::circles
    Point centre;
};

/// Places for the values along one azimuth, where most circles can have one without overlaps, away
/// from the mean and with as little of the petals beneath them as possible.
///
/// @param sizes  of the texts, plot units
[[nodiscard]] std::vector<PlacedValue> PlacesOfValues(const Plot& plot, const Drawing& drawing,
                                                      const FigureScale& scale,
                                                      const std::vector<Point>& sizes);

/// Writes the values, each on a pale ground.
void DrawFigureValues(const Plot& plot, const Drawing& drawing);

} // namespace quandrel
