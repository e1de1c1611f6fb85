// SPDX-License-Identifier: MIT
//
// Changes of what a plot shows of its densities and confidence regions. They can be undone.

#pragma once

#include "core/plot_record.h"
#include "edit/history/undo.h"

namespace quandrel {

/// Gives a plot another choice of densities and draws it. Nothing happens when it has this
/// choice already, or the choice is beyond its limits.
///
/// @param run  EditRun::Joins for the steps of a slider that is dragged: they are undone together
void ChangeDensities(int slot, const RecordDensityView& view, EditRun run = EditRun::Alone);

/// The same of its confidence regions.
void ChangeRegions(int slot, const RecordRegions& regions, EditRun run = EditRun::Alone);

/// The same of its style and layers.
void ChangeFigure(int slot, const RecordFigure& figure, EditRun run = EditRun::Alone);

} // namespace quandrel
