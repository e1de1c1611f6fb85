// SPDX-License-Identifier: MIT
//
// Changes of a plot's own list of layers that follow from changes of its data. A plot without a
// list shows the layers of its mode, and stays without one.

#pragma once

#include "core/record_figure.h"

#include <vector>

namespace quandrel {

/// Adds a layer: rows on top of rows and densities and below results, results on top of all.
void AddInOrder(std::vector<FigureLayer>& layers, const FigureLayer& layer);

/// A new overlay is shown as symbols, unless the list is full.
void TakeOverlayIn(std::vector<FigureLayer>& layers, int overlay);

/// The layers of an overlay leave the list, and those of the overlays after it have its number and
/// the following ones. A list that would be empty keeps a hidden layer: without any, the plot would
/// have the layers of its mode.
void TakeOverlayOut(std::vector<FigureLayer>& layers, int overlay);

} // namespace quandrel
