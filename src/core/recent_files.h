// SPDX-License-Identifier: MIT
//
// The files last opened, shared by all windows on the same settings. AddRecentFile (settings.h)
// puts a file at their head and writes them at once; what other windows opened since goes behind
// it.

#pragma once

#include "platform/settings_store.h"

#include <string>
#include <vector>

namespace quandrel {

/// The recent files of a store, the last one first.
[[nodiscard]] std::vector<std::string> StoredRecentFiles(const SettingsStore& store,
                                                         const char* application);

/// Reads the recent files (FileSettings) from the store.
void LoadRecentFiles(const char* application);

/// Writes the recent files if they are no longer those that were last read or written.
void SaveRecentFiles();

/// Takes a file out of the list, in the store too.
void RemoveRecentFile(const std::string& path);

} // namespace quandrel
