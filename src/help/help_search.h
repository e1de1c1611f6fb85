// SPDX-License-Identifier: MIT
//
// Full-text search over the pages of the help.
//
// A word is a run of letters and digits; case plays no part. A word of the query stands for every
// word that begins with it, so that hits come while one types.

#pragma once

#include "help/help_text.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// The words of a text, in lower case, in their order.
[[nodiscard]] std::vector<std::string> HelpWords(std::string_view text);

struct HelpHit {
    std::string file;
    std::string title;
    std::string excerpt; ///< about the first place of the word that is rarest in the help
    double score = 0;    ///< above 0
};

class HelpSearch {
public:
    /// Takes a page into the search. O(size).
    void Add(const std::string& file, const HelpPage& page);

    /// The pages that hold every word of the query, the best first, then by title. A word weighs by
    /// its rarity among the pages, more in a heading, most in a title; one that is just the word of
    /// the query counts double. Nothing for a query without words.
    [[nodiscard]] std::vector<HelpHit> Find(std::string_view query) const;

private:
    struct Page {
        std::string file;
        std::string title;
        std::string text;
        std::map<std::string, double> weights; ///< of each word on the page
    };

    /// Weight of all words of a page that begin so; 0 when there are none.
    static double WeightOf(const Page& page, const std::string& start);
    [[nodiscard]] double RarityOf(const std::string& start) const;

    std::vector<Page> pages_;
};

} // namespace quandrel
