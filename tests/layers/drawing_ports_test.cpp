// SPDX-License-Identifier: MIT
//
// Drawing code meets the outside only in its arguments: folders that draw do not access a port,
// except for the few sources that fill in a drawing or deal with windows and questions.

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>

namespace quandrel {
namespace {

namespace fs = std::filesystem;

constexpr std::array<const char*, 8> kDrawingFolders = {
    "stereo", "statistics", "density", "classify", "rose", "edit/marks", "drawing", "fabric"};

std::string TextOfFile(const fs::path& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Sources of the folders that draw with a word in them.
std::set<std::string> SourcesWith(const std::string& word) {
    std::set<std::string> found;
    const fs::path root = fs::path(QUANDREL_SOURCE_DIR) / "src";
    for (const char* folder : kDrawingFolders) {
        for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
            if (TextOfFile(entry.path()).find(word) != std::string::npos) {
                found.insert(fs::relative(entry.path(), root).generic_string());
            }
        }
    }
    return found;
}

TEST(DrawingPorts, AreReadWhereDrawingsAreFilledInAndWindowsAreWrittenAlone) {
    EXPECT_EQ(SourcesWith("gPlatform"),
              (std::set<std::string>{"drawing/plot_driver.cpp", "drawing/plot_state.cpp",
                                     "edit/marks/annotation_edits.cpp", "edit/marks/girdles.cpp",
                                     "edit/marks/small_circle_pick.cpp", "rose/rose_plot.cpp",
                                     "stereo/window_drawing.cpp"}));
}

TEST(DrawingPorts, SurfacesOfWindowsAreTakenInOnePlace) {
    EXPECT_EQ(SourcesWith(".PlotSurface()"), std::set<std::string>{"stereo/window_drawing.cpp"});
    EXPECT_EQ(SourcesWith(".LegendSurface()"), std::set<std::string>{"stereo/window_drawing.cpp"});
}

} // namespace
} // namespace quandrel
