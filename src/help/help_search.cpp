// SPDX-License-Identifier: MIT

#include "help/help_search.h"

#include "core/letter_case.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>

namespace quandrel {

namespace {

constexpr double kTextWeight = 1;
constexpr double kHeadingWeight = 6;
constexpr double kTitleWeight = 20;

/// Bytes before and after the first match of a word that an excerpt shows.
constexpr std::size_t kExcerptBefore = 60;
constexpr std::size_t kExcerptLength = 180;

/// Length of the UTF-8 sequence that begins with this byte.
std::size_t LengthOfSequence(unsigned char first) {
    if (first < 0xC0) {
        return 1;
    }
    return first < 0xE0 ? 2U : first < 0xF0 ? 3U : 4U;
}

/// Letters and digits: those of ASCII, and of all scripts up to the punctuation at U+2000 except
/// the signs below U+00C0.
bool IsWordSequence(std::string_view sequence) {
    const auto first = static_cast<unsigned char>(sequence[0]);
    if (first < 0x80) {
        return (first >= '0' && first <= '9') || (first >= 'A' && first <= 'Z')
               || (first >= 'a' && first <= 'z');
    }
    return first >= 0xC3 && first < 0xE2 && sequence != "\u00D7" && sequence != "\u00F7";
}

struct Span {
    std::size_t start = 0;
    std::size_t length = 0;
};

/// The positions of the words of a text.
std::vector<Span> SpansOfWords(std::string_view text) {
    std::vector<Span> spans;
    bool inWord = false;
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length =
            std::min(LengthOfSequence(static_cast<unsigned char>(text[i])), text.size() - i);
        const bool isWord = IsWordSequence(text.substr(i, length));
        if (isWord && !inWord) {
            spans.push_back({i, 0});
        }
        if (isWord) {
            spans.back().length += length;
        }
        inWord = isWord;
        i += length;
    }
    return spans;
}

/// The first word of a text that begins with `start`.
std::optional<Span> FindWord(std::string_view text, const std::string& start) {
    for (const Span& span : SpansOfWords(text)) {
        if (LowerCase(std::string(text.substr(span.start, span.length))).starts_with(start)) {
            return span;
        }
    }
    return std::nullopt;
}

/// A piece of a text around a position, cut between words.
std::string ExcerptAbout(const std::string& text, std::size_t place) {
    std::size_t first = place > kExcerptBefore ? place - kExcerptBefore : 0;
    if (first > 0) {
        const std::size_t blank = text.find(' ', first);
        first = blank < place ? blank + 1 : place;
    }
    std::size_t last = std::min(text.size(), first + kExcerptLength);
    if (last < text.size()) {
        const std::size_t blank = text.rfind(' ', last);
        last = blank > place && blank != std::string::npos ? blank : last;
    }
    return (first > 0 ? "\u2026 " : "") + text.substr(first, last - first)
           + (last < text.size() ? " \u2026" : "");
}

} // namespace

std::vector<std::string> HelpWords(std::string_view text) {
    std::vector<std::string> words;
    for (const Span& span : SpansOfWords(text)) {
        words.push_back(LowerCase(std::string(text.substr(span.start, span.length))));
    }
    return words;
}

void HelpSearch::Add(const std::string& file, const HelpPage& page) {
    Page added{file, page.title, page.text, {}};
    const auto count = [&added](std::string_view text, double weight) {
        for (const std::string& word : HelpWords(text)) {
            added.weights[word] += weight;
        }
    };
    count(page.text, kTextWeight);
    for (const std::string& heading : page.headings) {
        count(heading, kHeadingWeight);
    }
    count(page.title, kTitleWeight);
    pages_.push_back(std::move(added));
}

double HelpSearch::WeightOf(const Page& page, const std::string& start) {
    double weight = 0;
    for (auto word = page.weights.lower_bound(start);
         word != page.weights.end() && word->first.starts_with(start); ++word) {
        weight += word->first == start ? 2 * word->second : word->second;
    }
    return weight;
}

double HelpSearch::RarityOf(const std::string& start) const {
    const auto holders = std::ranges::count_if(
        pages_, [&start](const Page& page) { return WeightOf(page, start) > 0; });
    return std::log(1
                    + static_cast<double>(pages_.size())
                          / static_cast<double>(std::max<std::ptrdiff_t>(1, holders)));
}

std::vector<HelpHit> HelpSearch::Find(std::string_view query) const {
    std::vector<std::string> words = HelpWords(query);
    std::ranges::sort(words);
    words.erase(std::unique(words.begin(), words.end()), words.end());
    if (words.empty()) {
        return {};
    }
    std::vector<double> rarities;
    rarities.reserve(words.size());
    for (const std::string& word : words) {
        rarities.push_back(RarityOf(word));
    }
    const auto rarest =
        static_cast<std::size_t>(std::ranges::max_element(rarities) - rarities.begin());
    std::vector<HelpHit> hits;
    for (const Page& page : pages_) {
        double score = 0;
        bool hasAll = true;
        for (std::size_t i = 0; i < words.size(); ++i) {
            const double weight = WeightOf(page, words[i]);
            hasAll = hasAll && weight > 0;
            score += rarities[i] * std::log(1 + weight);
        }
        if (hasAll) {
            const auto place = FindWord(page.text, words[rarest]);
            hits.push_back(
                {page.file, page.title, ExcerptAbout(page.text, place ? place->start : 0), score});
        }
    }
    std::ranges::sort(hits, [](const HelpHit& a, const HelpHit& b) {
        return a.score != b.score ? a.score > b.score : a.title < b.title;
    });
    return hits;
}

} // namespace quandrel
