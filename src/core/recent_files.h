// SPDX-License-Identifier: MIT
//
// The recent files, shared by all windows with the same settings. AddRecentFile (settings.h) puts a
// file at the head of the list and writes the list at once; files that other windows opened since
// follow it.

#pragma once

#include "platform/settings_store.h"

#include <string>
#include <vector>

namespace quandrel {

/// The recent files of a store, the latest first.
[[nodiscard]] std::vector<std::string> StoredRecentFiles(const SettingsStore& store,
                                                         const char* application);

/// Reads the recent files (FileSettings) from the store.
void LoadRecentFiles(const char* application);

/// Writes the recent files if they differ from those last read or written.
void SaveRecentFiles();

/// Removes a file from the list, and from the store.
void RemoveRecentFile(const std::string& path);

} // namespace quandrel
