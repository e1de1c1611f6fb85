// SPDX-License-Identifier: MIT
//
// Samples of styles: small pictures drawn by the procedures for plots, from plots made for them, as
// in a plot window on the screen.

#pragma once

#include "platform/surface.h"
#include "rose/rose_wedges.h"

#include <array>
#include <cstdint>
#include <vector>

namespace quandrel {

/// An empty net with an axes style, a value of plotAxesStyle.
void DrawNetSample(Surface& surface, Styles styles, std::int16_t axesStyle);

/// The frame and scale of a rose with an axes style, a value of roseAxesStyle.
void DrawRoseAxesSample(Surface& surface, Styles styles, std::int16_t axesStyle);

/// A net with contours of all levels and a girdle of each kind.
void DrawLinesSample(Surface& surface, const Styles& styles);

/// Three roses side by side: a simple one, an overlaid wind rose and a classified one.
inline constexpr int kSampleRoses = 3;

/// The wedges of each rose, around its own centre.
using SampleWedges = std::array<std::vector<RoseWedge>, kSampleRoses>;

/// Draws the three roses over a surface three times as wide as high.
[[nodiscard]] SampleWedges DrawRoseSamples(Surface& surface, Styles styles);

/// The row of Styles::symbols used at a position of a sample: that of its petal, or
/// kRoseBackgroundStyle outside the petals.
///
/// @param across, down  fractions of the surface's width and height, 0 to 1 from the top left
///                corner
[[nodiscard]] int StyleRowAt(const SampleWedges& wedges, double across, double down);

} // namespace quandrel
