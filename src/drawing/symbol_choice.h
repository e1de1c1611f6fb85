// SPDX-License-Identifier: MIT
//
// The symbol buttons of a net: on which data they act, and what they make of the layers.
//
// A button shows the chosen data in one way. Where a plot has a list of its own, the layers of
// these data are replaced in it; all others stay.

#pragma once

#include "core/plot.h"
#include "core/record_figure.h"

#include <cstdint>
#include <vector>

namespace quandrel {

/// The buttons: great circles, points, beta intersections, point density, gridded density,
/// contours, contours and grid.
inline constexpr int kModeButtons = 7;

/// The symbol mode of a button from 0 to kModeButtons - 1. Mode 2 has no button.
[[nodiscard]] std::int16_t ModeOfButton(int button);

/// The data on which the buttons act: LayerOf and LayerIndex. Main rows, until others are chosen,
/// and when those that were chosen are gone.
[[nodiscard]] FigureLayer ChosenDataOf(const Plot& plot);

/// Makes the buttons act on other data of rows.
void ChooseData(Plot& plot, const FigureLayer& data);

/// Whether a button can show data: one way at least is possible. Main rows always have a way,
/// though not of P and T axes together, which is told when the button is pressed.
[[nodiscard]] bool CanShowDataBy(const Plot& plot, const FigureLayer& data, int button);

/// Whether the layers of data are just those of a button; of main rows in a plot without a list of
/// its own, whether its mode is that of the button.
[[nodiscard]] bool AreDataShownBy(const Plot& plot, const FigureLayer& data, int button);

/// The layers of a plot with those of the data replaced by those of a button.
[[nodiscard]] std::vector<FigureLayer> LayersByButton(const Plot& plot, const FigureLayer& data,
                                                      int button);

/// The layers of a plot with those of a button added, as far as they are missing, or without them
/// when none is missing.
[[nodiscard]] std::vector<FigureLayer> LayersWithButton(const Plot& plot, const FigureLayer& data,
                                                        int button);

} // namespace quandrel
