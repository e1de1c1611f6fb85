// SPDX-License-Identifier: MIT
//
// The table of the settings. Each line is one setting: its section and key in the store, its
// global, its default, its range, and the groups that save it. Loads and saves walk the table.

#pragma once

#include "core/settings.h"
#include "core/settings_group.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace quandrel {

/// A setting under a key. Some globals have two entries: one key is written, the other is read.
struct Setting {
    std::vector<SettingsGroup> groups; ///< groups that save it; none for a key that is only read
    const char* section = "";
    std::string key;

    /// The value for a store without the key. An empty text leaves numbers of the style tables at
    /// their built-in values.
    std::string otherwise;

    /// Sets the global from a text of the store. A text that cannot be read gives the default; a
    /// number out of range gives the nearest limit. Empty for a key that is only saved.
    std::function<void(const std::string& text)> take;

    /// The global as a text of the store; empty while it must not be saved.
    std::function<std::optional<std::string>()> text;
};

/// All settings but the recent files and the date, in the order in which they are read.
[[nodiscard]] const std::vector<Setting>& SettingsTable();

} // namespace quandrel
