// SPDX-License-Identifier: MIT

#include "mapsession/embedded_sessions.h"
#include "mapsession/table_plugin.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace quandrel {
namespace {

namespace fs = std::filesystem;

/// A folder for one test, removed with it.
class ScratchFolder {
public:
    ScratchFolder() {
        std::string name = (fs::temp_directory_path() / "quandrel_plugin_XXXXXX").string();
        path = mkdtemp(name.data());
    }

    ~ScratchFolder() { fs::remove_all(path); }

    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    fs::path path;
};

constexpr const char* kFile = "quandrel_mapsession_gdal.so";

void WriteFile(const fs::path& file, const char* text) {
    fs::create_directories(file.parent_path());
    std::ofstream(file) << text;
}

TEST(TablePlugin, IsLookedForBesideTheProgramAndInItsLibraries) {
    unsetenv("QUANDREL_PLUGIN_DIR");
    const ScratchFolder scratch;
    const std::vector<fs::path> folders = TablePluginFolders(scratch.path / "bin");
    EXPECT_TRUE(FindTablePlugin(folders).empty());
    WriteFile(scratch.path / "lib" / "quandrel" / "plugins" / kFile, "");
    EXPECT_EQ(FindTablePlugin(folders), scratch.path / "lib" / "quandrel" / "plugins" / kFile);
    WriteFile(scratch.path / "bin" / kFile, "");
    EXPECT_EQ(FindTablePlugin(folders), scratch.path / "bin" / kFile);
}

TEST(TablePlugin, IsTakenFirstFromTheFolderOfTheEnvironment) {
    const ScratchFolder scratch;
    WriteFile(scratch.path / "own" / kFile, "");
    WriteFile(scratch.path / "bin" / kFile, "");
    setenv("QUANDREL_PLUGIN_DIR", (scratch.path / "own").c_str(), 1);
    EXPECT_EQ(FindTablePlugin(TablePluginFolders(scratch.path / "bin")),
              scratch.path / "own" / kFile);
    unsetenv("QUANDREL_PLUGIN_DIR");
}

TEST(TablePlugin, OfAProgramThatUsersRunIsInItsOwnFoldersAlone) {
    const ScratchFolder scratch;
    WriteFile(scratch.path / "own" / kFile, "");
    setenv("QUANDREL_PLUGIN_DIR", (scratch.path / "own").c_str(), 1);
    const std::vector<fs::path> folders =
        TablePluginFolders(scratch.path / "bin", PluginVariable::Ignored);
    unsetenv("QUANDREL_PLUGIN_DIR");
    EXPECT_EQ(folders, (std::vector<fs::path>{scratch.path / "bin",
                                              scratch.path / "lib" / "quandrel" / "plugins"}));
    EXPECT_TRUE(FindTablePlugin(folders).empty());
}

TEST(LoadTableSource, SaysWhyThereIsNone) {
    const auto missing = LoadTableSource({});
    ASSERT_FALSE(missing);
    EXPECT_EQ(missing.Error().text,
              "The map link is not available: quandrel_mapsession_gdal.so is not installed");
    const ScratchFolder scratch;
    WriteFile(scratch.path / kFile, "no library");
    const auto broken = LoadTableSource(scratch.path / kFile);
    ASSERT_FALSE(broken);
    EXPECT_NE(broken.Error().text.find("not available: "), std::string::npos);
}

TEST(EmbeddedMapSessions, HasNoneWithoutTheLibrary) {
    unsetenv("QUANDREL_PLUGIN_DIR");
    const ScratchFolder scratch;
    EmbeddedMapSessions sessions(scratch.path, nullptr);
    EXPECT_EQ(sessions.FindRunning(), nullptr);
    EXPECT_FALSE(sessions.IsRegistered());
    EXPECT_EQ(sessions.Start(), nullptr);
    EXPECT_FALSE(sessions.StartError().empty());
    WriteFile(scratch.path / kFile, "no library");
    EXPECT_TRUE(sessions.IsRegistered());
    EXPECT_EQ(sessions.Start(), nullptr);
}

} // namespace
} // namespace quandrel
