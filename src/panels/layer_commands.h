// SPDX-License-Identifier: MIT
//
// What the panel of layers does with the layers of an open plot. All can be undone, and draw the
// plot. A plot in the layers of its mode gets a list of its own. Places count from the lowest
// layer, 0; one beyond the list does nothing.

#pragma once

#include "core/record_figure.h"
#include "edit/history/undo.h"

#include <cstddef>
#include <string>

namespace quandrel {

void ShowLayer(int slot, std::size_t place, bool isShown);

/// Hides all layers but this one and the net. Where they are hidden already, all are shown again.
void ShowLayerAlone(int slot, std::size_t place);

/// Names a layer in the legend; empty for the name of its data.
void RenameLayer(int slot, std::size_t place, const std::string& name);

/// Names an entry in the legend of a rose; without words, the program names it again.
void RenameRoseEntry(int slot, const RoseName& name);

/// Moves a layer to the place of another one.
void MoveLayer(int slot, std::size_t from, std::size_t to);

void RemoveLayer(int slot, std::size_t place);

/// Adds a layer on top of the rows, unless the plot has one of the same data shown in the same way.
///
/// @return its place, or that of the layer it has
std::size_t AddLayer(int slot, const FigureLayer& layer);

/// Gives a layer other properties.
///
/// @param run  EditRun::Joins for the steps of a control that is held: they are undone together
void ChangeLayer(int slot, std::size_t place, const FigureLayer& layer,
                 EditRun run = EditRun::Alone);

/// Gives a plot the layers of its mode again.
void UseLayersOfMode(int slot);

/// Makes the properties of a layer those of its way of showing in the style of new plots.
void UseLayerForNewPlots(int slot, std::size_t place);

/// Asks for a file, and writes the rows of a layer into it as text.
void ExportRowsOfLayer(int slot, std::size_t place);

} // namespace quandrel
