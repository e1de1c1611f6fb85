// SPDX-License-Identifier: MIT
//
// Figures on pages of a given height, such as slides.

#pragma once

#include "drawing/figure_layout.h"

namespace quandrel {

/// A slide of 16:9, millimetres.
inline constexpr double kSlideWidth = 254;
inline constexpr double kSlideHeight = 142.875;

/// As LayOutFigure, on a page of a height: a net whose diameter is open becomes as small as it has
/// to, and what remains is above and below the whole.
///
/// @param height  millimetres; 0 for that of what is on the page
/// @return a failure, too, for a page that is too low for the net or its legend
[[nodiscard]] Result<FigureLayout> LayOutFigureOnPage(const Plot& plot, const Drawing& drawing,
                                                      const FigureSize& size, double height);

} // namespace quandrel
