// SPDX-License-Identifier: MIT

#include "core/settings.h"

#include "core/changed_settings.h"
#include "core/plot_store.h"
#include "core/recent_files.h"
#include "core/setting_keys.h"
#include "core/settings_table.h"
#include "platform/memory_settings_store.h"
#include "platform/platform.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace quandrel {

namespace {

constexpr const char* kFirstRunKey = "First93ver";
constexpr const char* kDateKey = "LastAccessDate";

bool IsSavedIn(const Setting& setting, SettingsGroup group) {
    return setting.text && std::ranges::find(setting.groups, group) != setting.groups.end();
}

/// Writes a group into a store.
void SaveGroup(SettingsStore& store, SettingsGroup group) {
    store.Write(kApplicationName, kStartUp, kDateKey, gPlatform.today);
    for (const Setting& setting : SettingsTable()) {
        if (!IsSavedIn(setting, group)) {
            continue;
        }
        if (const std::optional<std::string> text = setting.text()) {
            store.Write(kApplicationName, setting.section, setting.key, *text);
        }
    }
}

/// Reads the table of an application. If the first font has no name, no font was ever chosen.
void ReadTable(const char* application) {
    const SettingsStore& store = *gPlatform.settings;
    const bool hasFonts =
        store.Read(application, kFonts, FontKey(kFontNameKey, 0), kNoFontName) != kNoFontName;
    for (const Setting& setting : SettingsTable()) {
        if (setting.take && (hasFonts || setting.section != kFonts)) {
            setting.take(store.Read(application, setting.section, setting.key, setting.otherwise));
        }
    }
}

/// The data folder of an earlier version is discarded once.
void ForgetFolderOnce(const char* application) {
    SettingsStore& store = *gPlatform.settings;
    if (TruthOfSetting(store.Read(application, kStartUp, kFirstRunKey, kTrueText))) {
        gSettings.files.folder.clear();
        store.Write(kApplicationName, kStartUp, kFirstRunKey, kFalseText);
    }
}

void NoteAllGroups() {
    MemorySettingsStore wouldWrite;
    for (const SettingsGroup group : kSettingsGroups) {
        SaveGroup(wouldWrite, group);
    }
    NoteLoadedSettings(wouldWrite);
}

} // namespace

std::int16_t PlotWidthOf(double percent) {
    constexpr double kMost = 100;
    return percent < 1 ? std::int16_t{50}
                       : static_cast<std::int16_t>(std::min(std::nearbyint(percent), kMost));
}

float PlotAspectOf(double aspect) {
    const double share = aspect > 1 ? std::min(aspect / 100, 1.0) : aspect;
    return share > 0 ? static_cast<float>(share) : 0.75F;
}

void SetDefaultSettings() {
    BuildStyleTables();
    gSettings.styles.fonts = {};
    for (const Setting& setting : SettingsTable()) {
        if (setting.take && setting.section != kFonts) {
            setting.take(setting.otherwise);
        }
    }
    gSettings.files.recent.clear();
    gPlotKind = kEqualArea;
    gPlotDataKind = kPlanes;
    gSettings.format.hasHeadings = false;
    gSettings.newPlots.statsBoxKind = 0;
    gSettings.newPlots.statisticsShown = true;
}

bool TruthOfSetting(const std::string& text) {
    return text == kTrueText || text == "true" || text == "-1" || text == "1";
}

void LoadSettings() {
    SetDefaultSettings();
    const SettingsStore& store = *gPlatform.settings;
    const bool fromEarlier =
        !store.Exists(kApplicationName) && store.Exists(kEarlierApplicationName);
    const char* const application = fromEarlier ? kEarlierApplicationName : kApplicationName;
    ReadTable(application);
    ForgetFolderOnce(application);
    LoadRecentFiles(application);
    NoteAllGroups();
    if (fromEarlier) {
        using enum SettingsGroup;
        for (const SettingsGroup group : {Conventions, Columns, Names, Preferences}) {
            SaveSettings(group);
        }
    }
}

bool SaveSettings(int group) {
    return SaveSettings(static_cast<SettingsGroup>(group));
}

bool SaveSettings(SettingsGroup group) {
    MemorySettingsStore wanted;
    SaveGroup(wanted, group);
    if (group == SettingsGroup::Session) {
        SaveRecentFiles();
    }
    return WriteChangedSettings(wanted);
}

} // namespace quandrel
