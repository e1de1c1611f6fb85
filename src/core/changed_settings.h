// SPDX-License-Identifier: MIT
//
// What this session has changed of the settings. Two sessions share a store: each writes the keys
// that it changed, and leaves the others as the other session has them.

#pragma once

#include "platform/settings_store.h"

namespace quandrel {

/// Takes note of the settings as a load found them.
///
/// @param wouldWrite  what a save of all groups would write now; it holds for the keys that the
///                    store lacks
void NoteLoadedSettings(const SettingsStore& wouldWrite);

/// Writes those keys that differ from what was noted, or that the store lacks, and notes them.
///
/// @param wanted  the keys to save, with their values
/// @return false when the store could not be written
[[nodiscard]] bool WriteChangedSettings(const SettingsStore& wanted);

} // namespace quandrel
