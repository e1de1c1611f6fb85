// SPDX-License-Identifier: MIT
//
// The help folder as it is shipped, and how it is found.

#include "help/help_library.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace quandrel {
namespace {

namespace fs = std::filesystem;

const fs::path kHelp = fs::path(QUANDREL_SOURCE_DIR) / "docs" / "help";

std::string ReadWhole(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

const std::map<std::string, HelpPage>& Pages() {
    static const auto pages = [] {
        std::map<std::string, HelpPage> all;
        for (const auto& file : fs::directory_iterator(kHelp)) {
            if (file.path().extension() == ".html") {
                all[file.path().filename().string()] = ReadHelpPage(ReadWhole(file.path()));
            }
        }
        return all;
    }();
    return pages;
}

std::string FileOf(const std::string& target) {
    return target.substr(0, target.find('#'));
}

/// Why a target leads nowhere; empty if it leads somewhere.
std::string FaultOf(const std::string& from, const std::string& target) {
    const std::string file = target.starts_with('#') ? from : FileOf(target);
    const auto page = Pages().find(file);
    if (page == Pages().end()) {
        return "no page " + file;
    }
    const std::size_t mark = target.find('#');
    if (mark == std::string::npos) {
        return {};
    }
    const auto& anchors = page->second.anchors;
    return std::ranges::count(anchors, target.substr(mark + 1)) == 1 ? "" : "no anchor " + target;
}

TEST(HelpPages, HaveATitleThatIsTheirFirstHeading) {
    ASSERT_GT(Pages().size(), 30U);
    std::set<std::string> titles;
    for (const auto& [file, page] : Pages()) {
        ASSERT_FALSE(page.headings.empty()) << file;
        EXPECT_EQ(page.title, page.headings.front()) << file;
        EXPECT_TRUE(titles.insert(page.title).second) << file << " has the title of another page";
    }
}

TEST(HelpPages, LinkOnlyToWhatThereIs) {
    for (const auto& [file, page] : Pages()) {
        for (const std::string& target : page.links) {
            EXPECT_EQ(FaultOf(file, target), "") << "in " << file;
        }
    }
}

TEST(HelpPages, ShowOnlyPicturesThatThereAreAndAllOfThem) {
    std::set<std::string> shown;
    for (const auto& [file, page] : Pages()) {
        for (const std::string& picture : page.pictures) {
            EXPECT_TRUE(fs::is_regular_file(kHelp / picture)) << picture << " in " << file;
            shown.insert(fs::path(picture).filename().string());
        }
    }
    for (const auto& picture : fs::directory_iterator(kHelp / "pictures")) {
        // Beside each picture is the same picture at twice the size, for screens of high density.
        std::string name = picture.path().filename().string();
        if (const std::size_t dense = name.find("@2x"); dense != std::string::npos) {
            name.erase(dense, 3);
        }
        EXPECT_TRUE(shown.contains(name)) << picture.path();
        EXPECT_LT(picture.file_size(), 100'000U) << picture.path();
    }
}

TEST(HelpPages, AreAllInTheContentsUnderTheirTitles) {
    const auto library = HelpLibrary::Read(kHelp);
    ASSERT_TRUE(library);
    std::map<std::string, std::string> listed;
    for (const HelpEntry& entry : library->Contents()) {
        if (!entry.target.empty()) {
            EXPECT_TRUE(listed.emplace(entry.target, entry.title).second) << entry.target;
        }
    }
    for (const auto& [file, page] : Pages()) {
        if (file != kHelpContentsPage) {
            EXPECT_EQ(listed[file], page.title) << file;
        }
    }
    EXPECT_EQ(library->Contents().front().level, 0) << "begins with a heading";
}

TEST(HelpPages, AreAllInTheIndexWhichIsSorted) {
    const auto library = HelpLibrary::Read(kHelp);
    ASSERT_TRUE(library);
    std::set<std::string> reached;
    std::string former;
    for (const HelpEntry& entry : library->Index()) {
        EXPECT_EQ(entry.level, 1) << entry.title;
        const std::vector<std::string> words = HelpWords(entry.title);
        ASSERT_FALSE(words.empty());
        EXPECT_LE(former, words.front()) << entry.title;
        former = words.front();
        reached.insert(FileOf(entry.target));
    }
    for (const auto& [file, page] : Pages()) {
        const bool needsTerms = file.starts_with("dialog_") || file.starts_with("statistics_");
        EXPECT_TRUE(!needsTerms || reached.contains(file)) << file;
    }
}

TEST(HelpPages, AreUtf8WithTheSharedStyle) {
    for (const auto& [file, page] : Pages()) {
        const std::string html = ReadWhole(kHelp / file);
        EXPECT_TRUE(html.starts_with("<!DOCTYPE html>")) << file;
        EXPECT_NE(html.find("<meta charset=\"utf-8\">"), std::string::npos) << file;
        EXPECT_NE(html.find("href=\"help.css\""), std::string::npos) << file;
    }
}

TEST(HelpTopics, LeadToPages) {
    std::set<std::string_view> windows;
    for (const HelpTopic& topic : HelpTopics()) {
        EXPECT_TRUE(windows.insert(topic.window).second) << topic.window;
        EXPECT_EQ(FaultOf("", std::string(topic.page)), "") << topic.window;
    }
}

TEST(HelpTopics, KnowNumberedWindows) {
    EXPECT_EQ(HelpPageOf("frmPlotForms_12"), HelpPageOf("frmPlotForms"));
    EXPECT_FALSE(HelpPageOf("frmPlotForms").empty());
    EXPECT_TRUE(HelpPageOf("frmNothing").empty());
    EXPECT_TRUE(HelpPageOf("").empty());
}

TEST(HelpLibrary, FindsWhatAReaderLooksFor) {
    const auto library = HelpLibrary::Read(kHelp);
    ASSERT_TRUE(library);
    const std::vector<std::pair<std::string, std::string>> wanted = {
        {"small circle", "dialog_small_circles.html"},
        {"Woodcock gamma", "statistics_fabric.html"},
        {"terzaghi", "dialog_rose.html"},
        {"kinematic axes", "faults.html"},
        {"true size page", "dialog_printing.html"},
        {"rayleigh", "dialog_tests.html"},
        {"quantile plots", "dialog_tests.html"},
        {"two samples equal means", "dialog_tests.html"},
        {"unfold", "dialog_rotation.html"},
        {"preferences fonts", "dialog_preferences.html"},
        {"measured faults Angelier", "tutorial_measured.html"},
        {"fold outcrops map tutorial", "tutorial_map.html"},
        {"stop printing", "dialog_printing.html"},
        {"default printer", "dialog_printing.html"},
    };
    for (const auto& [query, file] : wanted) {
        const auto hits = library->Find(query);
        ASSERT_FALSE(hits.empty()) << query;
        EXPECT_EQ(hits.front().file, file) << query;
    }
}

class HelpFolders : public ::testing::Test {
protected:
    void SetUp() override {
        root_ = fs::temp_directory_path() / ("quandrel_help_" + std::to_string(::getpid()));
        fs::create_directories(root_);
    }

    void TearDown() override { fs::remove_all(root_); }

    fs::path Make(const fs::path& relative) {
        fs::create_directories(root_ / relative);
        std::ofstream(root_ / relative / kHelpContentsPage) << "<title>Contents</title>";
        return root_ / relative;
    }

    fs::path root_;
};

TEST_F(HelpFolders, AreFoundBesideAnInstalledProgram) {
    EXPECT_EQ(FindHelpFolder(root_ / "usr/bin"), std::nullopt);
    const fs::path installed = Make("usr/share/quandrel/Quandrel_Help");
    EXPECT_EQ(FindHelpFolder(root_ / "usr/bin"), installed);
}

TEST_F(HelpFolders, AreFoundInTheProgramsOwnFolder) {
    const fs::path own = Make("quandrel/Quandrel_Help");
    EXPECT_EQ(FindHelpFolder(root_ / "quandrel"), own);
}

TEST_F(HelpFolders, AreFoundFromABuildTree) {
    const fs::path sources = Make("docs/help");
    EXPECT_EQ(FindHelpFolder(root_ / "build/dev/src"), sources);
}

TEST_F(HelpFolders, WithoutContentsFailWithTheMessage) {
    const auto library = HelpLibrary::Read(root_);
    ASSERT_FALSE(library);
    EXPECT_EQ(library.Error(),
              "There has been an error caused accessing Help and the attempt will be aborted. "
              "Please let the author know of any problem here");
}

} // namespace
} // namespace quandrel
