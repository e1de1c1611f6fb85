// SPDX-License-Identifier: MIT
//
// What the program saves, byte by byte: the plots of all scripts as plot files, texts and
// workspaces, the kept plot files of earlier versions saved again, and the settings.

#include "core/plot_store.h"
#include "core/settings.h"
#include "core/settings_group.h"
#include "golden/golden_file.h"
#include "golden/script_run.h"
#include "platform/platform.h"
#include "qt/qt_settings_store.h"

#include <QSettings>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <vector>

namespace quandrel {
namespace {

/// A 64-bit hash of bytes (FNV-1a).
std::string HashOf(const std::string& bytes) {
    std::uint64_t hash = 0xcbf29ce484222325U;
    for (const char byte : bytes) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001b3U;
    }
    std::array<char, 16> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), hash, 16);
    const std::string text(digits.data(), end.ptr);
    return std::string(digits.size() - text.size(), '0') + text;
}

std::string LineOf(const std::string& name, const std::filesystem::path& file) {
    const std::string bytes = BytesOf(file);
    return name + " " + std::to_string(bytes.size()) + " " + HashOf(bytes) + "\n";
}

/// Saves a session's plots, and returns a line for each file.
std::string SavedFiles(ScriptRun& run, const std::string& name) {
    std::string text;
    for (int slot = 1; slot <= HighestSlot(); ++slot) {
        if (!IsOpenSlot(slot)) {
            continue;
        }
        const std::string base = "saved_" + std::to_string(slot);
        EXPECT_EQ(run.Run("activate " + std::to_string(slot)), "");
        for (const std::string command : {".txt\" lines=all", ".qpx\""}) {
            const std::string ending = command.substr(0, 4);
            EXPECT_EQ(run.Run("save \"FOLDER/" + base + command), "") << name;
            text += LineOf(name + "/" + base + ending, run.Folder() / (base + ending));
        }
    }
    EXPECT_EQ(run.Run("workspace save \"FOLDER/saved.qwo\""), "") << name;
    return text + LineOf(name + "/saved.qwo", run.Folder() / "saved.qwo");
}

TEST(SavedFiles, AreAsTheReferenceHasThem) {
    std::string text;
    for (const std::string& name : NamesIn(ScriptFolder())) {
        if (name == "net_blank") { // holds nothing that could be saved
            continue;
        }
        ScriptRun run;
        run.Play(name);
        text += SavedFiles(run, name);
    }
    std::vector<std::filesystem::path> kept;
    for (const auto& entry :
         std::filesystem::directory_iterator(QUANDREL_TEST_DATA "/persistence")) {
        kept.push_back(entry.path());
    }
    std::sort(kept.begin(), kept.end());
    for (const std::filesystem::path& file : kept) {
        ScriptRun run;
        EXPECT_EQ(run.Run("open \"" + file.string() + "\""), "") << file;
        text += SavedFiles(run, file.filename().string());
    }
    ExpectGolden("files", text);
}

TEST(SavedSettings, AreAsTheReferenceHasThem) {
    const QTemporaryDir folder;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder.path());
    const Platform former = gPlatform;
    QtSettingsStore store;
    gPlatform = {};
    gPlatform.settings = &store;
    gPlatform.today = "2026-11-21";
    LoadSettings();
    for (const SettingsGroup group : kSettingsGroups) {
        EXPECT_TRUE(SaveSettings(group));
    }
    std::string text;
    for (const auto& entry :
         std::filesystem::recursive_directory_iterator(folder.path().toStdString())) {
        if (entry.is_regular_file()) {
            text += entry.path().filename().string() + "\n" + BytesOf(entry.path());
        }
    }
    gPlatform = former;
    ExpectGolden("settings", text);
}

} // namespace
} // namespace quandrel
