// SPDX-License-Identifier: MIT
//
// Public layers, densities and regions of figures as plots keep them.

#pragma once

#include "core/plot.h"
#include "core/record_figure.h"
#include "quandrel/figure.h"

namespace quandrel::api {

/// A checked layer that a plot can show.
[[nodiscard]] quandrel::FigureLayer LayerIn(const quandrel::Plot& plot, const FigureLayer& layer);

[[nodiscard]] FigureLayer LayerOut(const quandrel::FigureLayer& layer);

/// The densities of a record changed by checked ones.
[[nodiscard]] RecordDensityView DensitiesIn(const FigureDensities& densities,
                                            RecordDensityView view);

/// The regions of a record changed by checked ones.
[[nodiscard]] RecordRegions RegionsIn(const FigureRegions& regions, RecordRegions choice);

} // namespace quandrel::api
