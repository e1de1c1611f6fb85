// SPDX-License-Identifier: MIT
//
// Colours for bands of values whose order is seen without a legend. The lightness changes by equal
// steps, so that the order survives in grey print, and neighbours are told apart by eyes that do
// not tell red from green.

#pragma once

#include "platform/colour_space.h"
#include "platform/surface.h"

namespace quandrel {

enum class Palette {
    Warm,      ///< pale yellow over orange to dark red
    Cool,      ///< pale green over blue to dark violet
    Diverging, ///< dark blue over near white to dark brown, for values about a middle
    Grey,      ///< light to dark
};

enum class PaletteOrder { Forward, Reversed };

inline constexpr int kLeastPaletteSteps = 2;
inline constexpr int kMostPaletteSteps = 9;

/// The steps at which every two neighbours are well apart, for all kinds of vision
/// (ColourDifference of at least 8).
[[nodiscard]] int BestPaletteSteps(Palette palette);

/// The place of a palette in CIELAB before it is rounded to bytes.
///
/// @param part  0 (its first colour) to 1 (its last); others are taken as the nearer of the two
[[nodiscard]] LabColour PalettePlace(Palette palette, double part);

/// The colour of a step.
///
/// @param step   0 to steps - 1
/// @param steps  kLeastPaletteSteps to kMostPaletteSteps, at equal distances along the palette,
///               with both of its ends. Numbers outside are taken as the nearest.
[[nodiscard]] Colour PaletteColour(Palette palette, int step, int steps,
                                   PaletteOrder order = PaletteOrder::Forward);

} // namespace quandrel
