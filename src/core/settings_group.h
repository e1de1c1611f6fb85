// SPDX-License-Identifier: MIT
//
// Settings that are saved together.

#pragma once

#include <array>

namespace quandrel {

/// The groups, with the numbers that SaveSettings(int) takes.
enum class SettingsGroup {
    Conventions = 0, ///< this and the next two from the data format dialog
    Columns = 1,
    Names = 3, ///< of appended columns
    Preferences = 4,
    PlotCount = 5, ///< maximum number of plots, from the next run on
    Session = 6,   ///< what the program remembers automatically
    DataFolder = 7,
};

inline constexpr std::array kSettingsGroups = {
    SettingsGroup::Conventions, SettingsGroup::Columns,   SettingsGroup::Names,
    SettingsGroup::Preferences, SettingsGroup::PlotCount, SettingsGroup::Session,
    SettingsGroup::DataFolder};

/// Saves a group of the settings, and the date.
/// @return false when the store could not be written
bool SaveSettings(SettingsGroup group);

} // namespace quandrel
