// SPDX-License-Identifier: MIT

#include "core/grid_slider.h"

#include "core/plot_store.h"

#include <algorithm>

namespace quandrel {

int gGridDensitySlider = 50;

void MoveGridSlider(int value) {
    gGridDensitySlider = std::clamp(value / kGridStep * kGridStep, kCoarsestGrid, kFinestGrid);
}

void FollowGridOfPlot() {
    if (IsOpenSlot(gActivePlot) && ActiveRecord().GridSize > 0) {
        MoveGridSlider(ActiveRecord().GridSize);
    }
}

} // namespace quandrel
