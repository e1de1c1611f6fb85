// SPDX-License-Identifier: MIT
//
// The grid density slider: how fine the grid of a plot's densities is, nodes across the net.

#pragma once

namespace quandrel {

/// Values of the grid density slider.
inline constexpr int kCoarsestGrid = 10;
inline constexpr int kFinestGrid = 150;
inline constexpr int kGridStep = 10;

/// Value of the grid density slider, kCoarsestGrid to kFinestGrid.
extern int gGridDensitySlider;

/// Moves the slider, down to a multiple of kGridStep within its range.
void MoveGridSlider(int value);

/// The slider shows the grid of the active plot, if it has one.
void FollowGridOfPlot();

} // namespace quandrel
