// SPDX-License-Identifier: MIT
//
// The preferences: a working copy of the settings that the user changes, and how it is applied.
//
// The caller owns the copy. Nothing changes until ApplyPreferences: a discarded copy has no effect.
//
// This folder holds that copy, samples drawn with it, and the effect of a changed style on rows.
// Input: the settings, and the user's changes to them.
// Output: the current settings and their file, and all open plots redrawn with them.

#pragma once

#include "core/formulas.h"
#include "core/settings.h"
#include "core/style_tables.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace quandrel {

/// The current preferences. Their number of plots is that in the store: the running session keeps
/// its initial number.
[[nodiscard]] Settings CurrentPreferences();

/// The preferences of a first run.
[[nodiscard]] Settings DefaultPreferences();

/// The first of the names for a pitch if the text is neither of them.
[[nodiscard]] std::string PitchNameOf(std::string_view text);

/// The number of plots in a text: whole, 1 to kMostPlots. An invalid text gives `otherwise`.
[[nodiscard]] std::int16_t MaxPlotsOf(std::string_view text, std::int16_t otherwise);

enum class KeepSettings { No, Yes };

/// Applies the preferences: copies them into the globals, asks about a changed number of plots and
/// saves it at once if the user agrees, saves the settings if requested, and redraws all open plots
/// (RedrawStyles).
///
/// The width and the aspect of new windows are brought into their ranges (PlotWidthOf,
/// PlotAspectOf). The number of plots of the running session is unchanged. Reports a store that
/// cannot be written.
void ApplyPreferences(const Settings& preferences, KeepSettings keep);

} // namespace quandrel
