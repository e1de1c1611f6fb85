// SPDX-License-Identifier: MIT
//
// The help: its folder, its pages with their search, its contents and its index, and the page of
// each window.
//
// This folder holds no windows: nothing here displays a page or knows plots.
// Input: HTML pages from the help's folder, search words, names of windows.
// Output: pages and search results as values.

#pragma once

#include "core/result.h"
#include "help/help_search.h"
#include "help/help_text.h"

#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// Name of the folder in an installation.
inline constexpr const char* kHelpFolderName = "Quandrel_Help";

inline constexpr const char* kHelpContentsPage = "contents.html";
inline constexpr const char* kHelpIndexPage = "terms.html";
inline constexpr const char* kHowToUseHelpPage = "using_help.html";

/// The message shown when the help cannot be read.
inline constexpr const char* kHelpFailureTitle = "Quandrel Help not displaying";
inline constexpr const char* kHelpFailureText =
    "There has been an error caused accessing Help and the attempt will be aborted. Please let the "
    "author know of any problem here";

/// The help folder of a program: that of an installation, else that of the sources that it was
/// built from. Nothing when neither exists.
///
/// @param programFolder  folder of the program file
[[nodiscard]] std::optional<std::filesystem::path>
FindHelpFolder(const std::filesystem::path& programFolder);

/// A window class and its page.
struct HelpTopic {
    std::string_view window;
    std::string_view page; ///< may end with "#" and an anchor
};

/// All windows that have a page.
[[nodiscard]] std::span<const HelpTopic> HelpTopics();

/// The page of a window class, or of a panel, by its name; empty when it has none.
[[nodiscard]] std::string_view HelpPageOf(std::string_view window);

class HelpLibrary {
public:
    /// Reads all pages of a folder. Fails, with kHelpFailureText, when the contents page cannot be
    /// read.
    [[nodiscard]] static Result<HelpLibrary> Read(const std::filesystem::path& folder);

    [[nodiscard]] const std::vector<HelpEntry>& Contents() const { return contents_; }

    /// The terms of the index page, without its letter headings, in order.
    [[nodiscard]] const std::vector<HelpEntry>& Index() const { return index_; }

    /// Searches the pages for words; see HelpSearch.
    [[nodiscard]] std::vector<HelpHit> Find(std::string_view query) const {
        return search_.Find(query);
    }

private:
    std::vector<HelpEntry> contents_;
    std::vector<HelpEntry> index_;
    HelpSearch search_;
};

} // namespace quandrel
