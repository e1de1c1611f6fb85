// SPDX-License-Identifier: MIT
//
// The settings that this session has changed. Two sessions share a store: each writes only the keys
// that it changed and leaves the others as the other session wrote them.

#pragma once

#include "platform/memory_settings_store.h"
#include "platform/settings_store.h"

#include <string>
#include <vector>

namespace quandrel {

/// The settings as this session last read or wrote them.
struct StoredSettings {
    MemorySettingsStore values;
    std::vector<std::string> recentFiles;

    static StoredSettings now;
};

/// Records the settings as they were loaded.
///
/// @param wouldWrite  what a save of all groups would write now; used for the keys that the store
///                    lacks
void NoteLoadedSettings(const SettingsStore& wouldWrite);

/// Writes the keys whose values differ from the recorded ones or that the store lacks, and records
/// them.
///
/// @param wanted  the keys to save, with their values
/// @return false when the store could not be written
[[nodiscard]] bool WriteChangedSettings(const SettingsStore& wanted);

} // namespace quandrel
