// SPDX-License-Identifier: MIT

#include "core/changed_settings.h"

#include "core/setting_keys.h"
#include "core/settings.h"
#include "platform/platform.h"

#include <array>
#include <string>

namespace quandrel {

StoredSettings StoredSettings::now;

namespace {

constexpr std::array kSections = {kStartUp, kDataFormats,   kSymbolArray,
                                  kFonts,   kFileMenuArray, kDataClassifArray};

/// A value that no setting has.
const std::string kMissing = "\x1b(missing)";

std::string ValueIn(const SettingsStore& store, const char* section, const std::string& key) {
    return store.Read(kApplicationName, section, key, kMissing);
}

template <class Act>
void ForEachKey(const SettingsStore& store, const Act& act) {
    for (const char* section : kSections) {
        for (const std::string& key : store.Keys(kApplicationName, section)) {
            act(section, key, ValueIn(store, section, key));
        }
    }
}

} // namespace

void NoteLoadedSettings(const SettingsStore& wouldWrite) {
    MemorySettingsStore& noted = StoredSettings::now.values;
    noted = {};
    ForEachKey(wouldWrite,
               [&](const char* section, const std::string& key, const std::string& value) {
                   const std::string found = ValueIn(*gPlatform.settings, section, key);
                   noted.Write(kApplicationName, section, key, found == kMissing ? value : found);
               });
}

bool WriteChangedSettings(const SettingsStore& wanted) {
    SettingsStore& store = *gPlatform.settings;
    MemorySettingsStore& noted = StoredSettings::now.values;
    (void)store.Sync(); // fetches what other sessions wrote; the result of the second Sync counts
    ForEachKey(wanted, [&](const char* section, const std::string& key, const std::string& value) {
        if (value == ValueIn(noted, section, key) && ValueIn(store, section, key) != kMissing) {
            return;
        }
        store.Write(kApplicationName, section, key, value);
        noted.Write(kApplicationName, section, key, value);
    });
    return store.Sync();
}

} // namespace quandrel
