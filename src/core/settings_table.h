// SPDX-License-Identifier: MIT
//
// The table of the settings: of each its section and key in the store, its global, its default, its
// range, and the groups that save it. Loads, saves and defaults walk it, so that a setting is one
// line of it.

#pragma once

#include "core/settings.h"
#include "core/settings_group.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// A setting under a key. Some globals have two: what is written under one key and read under
/// another.
struct Setting {
    std::vector<SettingsGroup> groups; ///< that save it; none for a key that is read alone
    const char* section = "";
    std::string key;

    /// What a store without the key is read as. An empty text leaves numbers of the style tables as
    /// they were built.
    std::string otherwise;

    /// Takes a text of the store into the global: one that makes no sense as the default, a number
    /// beyond the range as the nearest within it. Empty for a key that is saved alone.
    std::function<void(const std::string& text)> take;

    /// The global as the store has it; nothing where it is not to be saved now.
    std::function<std::optional<std::string>()> text;
};

/// All settings but the recent files and the date, in the order in which they are read.
[[nodiscard]] const std::vector<Setting>& SettingsTable();

} // namespace quandrel
