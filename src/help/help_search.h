// SPDX-License-Identifier: MIT
//
// Full-text search over the pages of the help.
//
// A word is a run of letters and digits; case is ignored. A word of the query matches every word
// that begins with it, so that hits appear while the user types.

#pragma once

#include "help/help_text.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// The words of a text, in lower case, in order.
[[nodiscard]] std::vector<std::string> HelpWords(std::string_view text);

struct HelpHit {
    std::string file;
    std::string title;
    std::string excerpt; ///< around the first match of the word that is rarest in the help
    double score = 0;    ///< above 0
};

class HelpSearch {
public:
    /// Adds a page to the search. O(size).
    void Add(const std::string& file, const HelpPage& page);

    /// The pages that hold every word of the query, the best first, then by title. A word is
    /// weighted by its rarity among the pages, more in a heading, most in a title; an exact match
    /// counts double. Empty for a query without words.
    [[nodiscard]] std::vector<HelpHit> Find(std::string_view query) const;

private:
    struct Page {
        std::string file;
        std::string title;
        std::string text;
        std::map<std::string, double> weights; ///< for each word on the page
    };

    /// Weight of all words of a page that begin with `start`; 0 when there are none.
    static double WeightOf(const Page& page, const std::string& start);
    [[nodiscard]] double RarityOf(const std::string& start) const;

    std::vector<Page> pages_;
};

} // namespace quandrel
