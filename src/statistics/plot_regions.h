// SPDX-License-Identifier: MIT
//
// The confidence regions of a plot by its choice (RecordRegions): of its main rows, of each
// overlay, of each class.
//
// Rows are as the plot shows them: measured where it uses decimals, poles of planes, and each row
// counts as one. P and T axes in one plot have regions of their own. A mean is that of polar lines;
// other rows have none.

#pragma once

#include "core/plot.h"
#include "core/styles.h"
#include "platform/status_line.h"
#include "statistics/region_choice.h"
#include "statistics/row_groups.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quandrel {

struct PlotRegion {
    std::string rows; ///< the name of an overlay, a class, or P or T axes; empty for main rows
    RegionTarget target = RegionTarget::PrincipalAxis;
    std::optional<ChosenRegion> chosen; ///< empty if the user stopped the bootstrap
};

/// What the rows of a plot offer for regions.
struct RegionRows {
    bool hasPolarLines = false; ///< among main rows or overlays
    bool hasOverlays = false;
    bool hasClasses = false;
};

[[nodiscard]] RegionRows RegionRowsOf(const PlotRecord& record);

/// The method that a target is given by a RegionMethodCode. Empty, for the automatic choice, also
/// where the target does not have the method.
[[nodiscard]] std::optional<RegionMethod> MethodOfCode(std::int16_t code, RegionTarget target);

/// Computes the regions of a plot that shows some, as far as they are out of date, and keeps them
/// with the plot; drops those of others. Another level takes the same resamples. If the user stops
/// a bootstrap, its regions are missing until the rows or the choice change.
///
/// @param styles   the source of the symbols of P and T axes
/// @param classes  of the plot if it shows regions of classes, else empty
/// @param watcher  the status line, or null
void WorkOutRegions(Plot& plot, const Styles& styles, const RowClasses& classes,
                    StatusLine* watcher);

/// The regions that WorkOutRegions computed: of the main rows, of overlays, of classes; for each
/// the principal axis, the girdle's pole, the mean. Without rows there is no region.
[[nodiscard]] std::span<const PlotRegion> RegionsOfPlot(const Plot& plot);

/// Whether the plot shows a region: it is given, or refused but bounded and wanted all the same.
[[nodiscard]] bool IsShown(const PlotRecord& record, const PlotRegion& region);

} // namespace quandrel
