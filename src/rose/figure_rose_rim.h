// SPDX-License-Identifier: MIT
//
// The rim of a rose in the style of a figure: its circle or half circle, ticks, and the azimuths
// around it.

#pragma once

#include "core/figure_style.h"
#include "core/plot.h"
#include "stereo/drawing.h"

#include <string>
#include <vector>

namespace quandrel {

/// Where the labels around a rose may be.
enum class LabelRoom {
    Within, ///< on the surface: labels move inward, and those that would reach the rim are left out
    Beyond, ///< also beyond its edges, for pages that leave room for them (FigureReach)
};

/// A label at the rim.
struct RimLabel {
    double azimuth = 0; ///< radians
    std::string text;   ///< "N", "030"
    bool isNorth = false;
};

/// The labels of a shape of rose, clockwise from north: at each step of the style, or N, E, S and
/// W.
[[nodiscard]] std::vector<RimLabel> LabelsOfRim(const RoseStyle& style, int shape);

/// The font of a label: that of the style's texts or, without a size, of the tables; the "N" as the
/// style has it on nets.
[[nodiscard]] FontSpec FontOfRimLabel(const Drawing& drawing, const RimLabel& label);

/// From the centre to the near side of labels, shares of the radius of the rim.
[[nodiscard]] double ReachOfRim(const FigureStyle& figure);

/// Draws rim, ticks and labels.
void DrawFigureRim(const Plot& plot, const Drawing& drawing, LabelRoom room);

} // namespace quandrel
