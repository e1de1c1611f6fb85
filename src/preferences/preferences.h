// SPDX-License-Identifier: MIT
//
// The preferences: a working copy of the settings that the user changes in one go, and how it takes
// hold.
//
// The copy is the caller's. Nothing changes until ApplyPreferences: a copy that is dropped leaves
// no trace.
//
// Inside the folder: that copy, samples drawn by it, and what a changed style does to rows.
// Enters: the settings, and what the user changes of them.
// Leaves: settings in force and in their file, open plots drawn anew by them.

#pragma once

#include "core/formulas.h"
#include "core/settings.h"
#include "core/style_tables.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace quandrel {

/// The preferences in force. Their number of plots is that of the store: the running session keeps
/// what it began with.
[[nodiscard]] Settings CurrentPreferences();

/// Those of a first run.
[[nodiscard]] Settings DefaultPreferences();

/// The first of the names that a pitch can have when the text is neither.
[[nodiscard]] std::string PitchNameOf(std::string_view text);

/// A text of a number of plots: whole, 1 to kMostPlots; nothing readable gives `otherwise`.
[[nodiscard]] std::int16_t MaxPlotsOf(std::string_view text, std::int16_t otherwise);

enum class KeepSettings { No, Yes };

/// Lets the preferences take hold: copies them into the globals, asks about another number of plots
/// and saves it at once when the user agrees, saves the settings when asked to, and draws all open
/// plots anew (RedrawStyles).
///
/// The width and the aspect of new windows are brought into their ranges (PlotWidthOf,
/// PlotAspectOf). The number of plots of the running session stays. A store that cannot be written
/// is told of.
void ApplyPreferences(const Settings& preferences, KeepSettings keep);

} // namespace quandrel
