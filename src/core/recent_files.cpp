// SPDX-License-Identifier: MIT

#include "core/recent_files.h"

#include "core/changed_settings.h"
#include "core/setting_keys.h"
#include "core/settings.h"
#include "orientation/number_text.h"
#include "platform/platform.h"

#include <algorithm>

namespace quandrel {

namespace {

void WriteAll() {
    SettingsStore& store = *gPlatform.settings;
    store.Write(kApplicationName, kFileMenuArray, "0",
                std::to_string(gSettings.files.recent.size()));
    for (std::size_t number = 1; number <= kMaxRecentFiles; ++number) {
        const std::string key = std::to_string(number);
        if (number <= gSettings.files.recent.size()) {
            store.Write(kApplicationName, kFileMenuArray, key, gSettings.files.recent[number - 1]);
        } else {
            store.Remove(kApplicationName, kFileMenuArray, key);
        }
    }
    StoredSettings::now.recentFiles = gSettings.files.recent;
}

/// Appends a list to another, without the entries that are already there.
void Append(const std::vector<std::string>& more, std::vector<std::string>& files) {
    for (const std::string& path : more) {
        if (std::ranges::find(files, path) == files.end()) {
            files.push_back(path);
        }
    }
}

/// What other windows have opened since follows `first`; the rest of the list comes last.
void Merge(const std::string& first) {
    SettingsStore& store = *gPlatform.settings;
    (void)store.Sync(); // a store that cannot be written is reported at the end of the session
    std::vector<std::string> files;
    if (!first.empty()) {
        files.push_back(first);
    }
    Append(StoredRecentFiles(store, kApplicationName), files);
    Append(gSettings.files.recent, files);
    gSettings.files.recent = std::move(files);
}

void CutAndWrite() {
    gSettings.files.recent.resize(std::min(gSettings.files.recent.size(), kMaxRecentFiles));
    WriteAll();
    (void)gPlatform.settings->Sync();
}

} // namespace

std::vector<std::string> StoredRecentFiles(const SettingsStore& store, const char* application) {
    const auto text = [&](const std::string& key, const std::string& otherwise) {
        return store.Read(application, kFileMenuArray, key, otherwise);
    };
    const std::string count = text("0", text(" 1", "None"));
    const double files = std::min(ParseNumber(count), static_cast<double>(kMaxRecentFiles));
    std::vector<std::string> paths;
    for (int number = 1; number <= files; ++number) {
        const std::string path = text(std::to_string(number), {});
        if (!path.empty()) {
            paths.push_back(path);
        }
    }
    return paths;
}

void LoadRecentFiles(const char* application) {
    gSettings.files.recent = StoredRecentFiles(*gPlatform.settings, application);
    StoredSettings::now.recentFiles = StoredRecentFiles(*gPlatform.settings, kApplicationName);
}

void SaveRecentFiles() {
    if (gSettings.files.recent != StoredSettings::now.recentFiles) {
        WriteAll();
    }
}

void AddRecentFile(const std::string& path) {
    Merge(path);
    CutAndWrite();
}

void RemoveRecentFile(const std::string& path) {
    Merge({});
    std::erase(gSettings.files.recent, path);
    CutAndWrite();
}

} // namespace quandrel
