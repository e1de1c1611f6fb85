// SPDX-License-Identifier: MIT
//
// Reading and saving the user's settings (settings_value.h). plot_store.h has parts of them under
// their given names.

#pragma once

#include "core/style_tables.h"

#include <cstdint>
#include <string>

namespace quandrel {

inline constexpr const char* kApplicationName = "Quandrel 9";
inline constexpr const char* kEarlierApplicationName = "Quandrel configuration";

/// The version in files and settings: five characters, including one blank.
inline constexpr const char* kVersionText = "9.51 ";

/// The version's date, as the intro screen shows it.
inline constexpr const char* kVersionDate = "21 November 2026";

inline constexpr std::size_t kMaxRecentFiles = 6;
inline constexpr std::int16_t kStartMaxPlots = 10;
inline constexpr std::int16_t kMostPlots = 99;
inline constexpr int kWidestLine = 20; ///< draw width of a style, logical pixels

/// The width of a new plot window from the user's number, per cent of the main window: 50 for a
/// number below 1, at most 100.
[[nodiscard]] std::int16_t PlotWidthOf(double percent);

/// Height over width of a new plot window from the user's number, above 0 and at most 1. A number
/// above 1 is in per cent; one that is not above 0 gives 0.75.
[[nodiscard]] float PlotAspectOf(double aspect);

/// Resets every setting to its value at a first run.
void SetDefaultSettings();

/// The truth value of a text of the store.
[[nodiscard]] bool TruthOfSetting(const std::string& text);

/// Reads the settings. A key that is missing or cannot be read takes its default. If there are no
/// settings of this generation, those of the earlier generation are read and saved again at once.
void LoadSettings();

/// Saves a group of the settings:
/// 0 conventions, 1 columns, 3 names of appended columns (all three from the data format dialog),
/// 4 preferences, 5 number of plots, 6 the session, 7 default data folder. Every call, whatever its
/// group, saves the date.
/// @return false when the store could not be written
bool SaveSettings(int group);

/// Puts a path at the head of the recent files.
void AddRecentFile(const std::string& path);

} // namespace quandrel
