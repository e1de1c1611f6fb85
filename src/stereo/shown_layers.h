// SPDX-License-Identifier: MIT
//
// How the main rows of a plot are shown: by its list of layers, or by its mode.

#pragma once

#include "core/plot_record.h"

#include <vector>

namespace quandrel {

/// The ways in which a mode shows the main rows, lowest first; not whether they are shown at all.
///
/// @param picture  a ContourPictureCode, for the modes with contours
[[nodiscard]] std::vector<LayerShowCode> ShowsOfMode(std::int16_t mode, std::int16_t picture);

/// Whether the main rows of a net are shown in a way.
[[nodiscard]] bool ShowsMainRowsAs(const PlotRecord& record, LayerShowCode show);

/// Whether a net has a visible layer of some data in a way. Data other than the main rows have
/// layers of densities in lists alone.
///
/// @param data  a layer of these data
[[nodiscard]] bool ShowsDataAs(const PlotRecord& record, const FigureLayer& data,
                               LayerShowCode show);

/// Whether a net has a visible layer of the selection, which changes with the selection.
[[nodiscard]] bool ShowsSelection(const PlotRecord& record);

/// Whether densities of the main rows are shown in any way.
[[nodiscard]] bool ShowsDensities(const PlotRecord& record);

} // namespace quandrel
