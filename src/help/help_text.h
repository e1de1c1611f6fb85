// SPDX-License-Identifier: MIT
//
// The text of a help page, read from its HTML. The pages are our own: well-formed, in UTF-8,
// without scripts. Of any other page only the readable parts are returned.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

struct HelpPage {
    std::string title;                 ///< from the head of the page
    std::vector<std::string> headings; ///< h1 to h4, in order
    std::string text;                  ///< the visible text, runs of blanks as single ones
    std::vector<std::string> links;    ///< targets, in order
    std::vector<std::string> pictures; ///< file names
    std::vector<std::string> anchors;  ///< link targets on the page
};

/// Reads a page. O(size).
[[nodiscard]] HelpPage ReadHelpPage(std::string_view html);

/// A line of the contents or of the index.
struct HelpEntry {
    /// 0 for a heading of second order, 1 for an item of a list, 2 for one within it.
    int level = 0;
    std::string title;
    std::string target; ///< page, with an optional "#" and anchor; empty for a heading
};

/// The second-level headings and the list items of a page. The text of an item is that of its link;
/// an item without a link is left out.
[[nodiscard]] std::vector<HelpEntry> ReadHelpList(std::string_view html);

} // namespace quandrel
