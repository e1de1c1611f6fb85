// SPDX-License-Identifier: MIT
//
// What a page of the help says, read from its HTML. The pages are our own: well-formed, in UTF-8,
// without scripts. A page that is not so gives what can be read of it.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

struct HelpPage {
    std::string title;                 ///< of the head of the page
    std::vector<std::string> headings; ///< h1 to h4, in their order
    std::string text;                  ///< what is seen, blanks and line ends as single blanks
    std::vector<std::string> links;    ///< targets, in their order
    std::vector<std::string> pictures; ///< file names
    std::vector<std::string> anchors;  ///< places that links may lead to
};

/// Reads a page. O(size).
[[nodiscard]] HelpPage ReadHelpPage(std::string_view html);

/// A line of the contents or of the index.
struct HelpEntry {
    int level =
        0; ///< 0 for a heading of second order, 1 for an item of a list, 2 for one within it
    std::string title;
    std::string target; ///< page, perhaps with "#" and an anchor; empty for a heading
};

/// The headings of second order and the items of lists of a page. The text of an item is that of
/// its link; one without a link is left out.
[[nodiscard]] std::vector<HelpEntry> ReadHelpList(std::string_view html);

} // namespace quandrel
