// SPDX-License-Identifier: MIT
//
// The rules of the dialog of confidence regions: what a plot can be asked for.

#pragma once

#include "core/plot.h"

#include <span>
#include <string>

namespace quandrel {

/// A method as the dialog offers it.
struct RegionMethodEntry {
    std::int16_t code = kRegionAutomatic; ///< RegionMethodCode
    const char* name = "";
};

/// The methods in the order of the dialog, the automatic choice first.
[[nodiscard]] std::span<const RegionMethodEntry> RegionMethodEntries();

/// The levels, per cent, in the order of the dialog.
[[nodiscard]] std::span<const std::int16_t> RegionLevelEntries();

/// Whether a target has a method. The automatic choice is for any.
///
/// @param about  sum of RegionsAboutCode: one target with the method is enough. Without a target
///               each method of any is offered.
[[nodiscard]] bool HasMethod(std::int16_t about, std::int16_t method);

/// What can be changed for a plot.
struct RegionFormState {
    bool isUsable = false;     ///< the plot has a net
    bool hasMean = false;      ///< polar lines
    bool hasOverlays = false;  ///< there are some
    bool hasClasses = false;   ///< it is classified
    bool canResample = false;  ///< a bootstrap may be taken
    bool hasRefused = false;   ///< a region is refused, so that it can be shown all the same
    bool hasResamples = false; ///< a region has a cloud
};

/// @param plot  null without one
[[nodiscard]] RegionFormState RegionFormOf(const Plot* plot);

/// What the dialog says of the regions: their texts, or how to get some.
[[nodiscard]] std::string RegionFormText(const Plot* plot);

/// The choice with a target added or taken out. The method becomes automatic where no target has
/// it.
///
/// @param code  a RegionsAboutCode
[[nodiscard]] RecordRegions WithTarget(RecordRegions choice, std::int16_t code, bool isWanted);

/// The same of the rows; without any it is those of the plot.
///
/// @param code  a RegionsOfCode
[[nodiscard]] RecordRegions WithRows(RecordRegions choice, std::int16_t code, bool isWanted);

} // namespace quandrel
