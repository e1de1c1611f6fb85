// SPDX-License-Identifier: MIT

#include "sheet/shared_legend.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

namespace quandrel {

namespace {

constexpr std::string_view kCount = ", n = ";
constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kNumber = "0123456789.,";

/// Whether a word is two numbers with a sign between them: "19-169", "252/71".
bool IsOrientation(std::string_view word) {
    const std::size_t first = word.find_first_not_of(kNumber);
    if (first == 0 || first == std::string_view::npos
        || word.find_first_of(kDigits, first) == std::string_view::npos) {
        return false;
    }
    const std::size_t second = word.find_first_of(kDigits, first);
    return second - first <= 3 && word.find_first_not_of(kNumber, second) == std::string_view::npos;
}

bool HaveEqualSigns(const FigureEntry& one, const FigureEntry& other) {
    return one.sign == other.sign && one.code == other.code && one.axis == other.axis
           && one.line.state == other.line.state && one.line.colour == other.line.colour
           && one.patch == other.patch && one.layer.LayerColour == other.layer.LayerColour
           && one.layer.LayerSymbol == other.layer.LayerSymbol
           && one.layer.LayerSize == other.layer.LayerSize;
}

/// An entry with the letters of its panels.
struct EntryOfPanels {
    FigureEntry entry;
    std::vector<std::string> letters;
};

void AddEntry(const FigureEntry& entry, const std::string& letter,
              std::vector<EntryOfPanels>& entries) {
    const bool isNote = entry.sign == FigureSign::Blank;
    for (EntryOfPanels& former : entries) {
        if (!HaveEqualSigns(former.entry, entry)) {
            continue;
        }
        const std::string words = WordsOfEntry(entry.text);
        const bool isSame = former.entry.text == entry.text;
        if (isSame || (!isNote && !words.empty() && WordsOfEntry(former.entry.text) == words)) {
            former.entry.text = isSame ? former.entry.text : words;
            former.letters.push_back(letter);
            return;
        }
    }
    entries.push_back({entry, {letter}});
}

std::string Joined(const std::vector<std::string>& letters) {
    std::string joined;
    for (const std::string& letter : letters) {
        joined += (joined.empty() ? "" : ", ") + letter;
    }
    return joined;
}

/// Whether a note, such as the scale of a rose, is true of some of the panels with notes alone.
bool IsOfSomePanels(const EntryOfPanels& one, const std::set<std::string>& withNotes) {
    return one.entry.sign == FigureSign::Blank && !one.letters.front().empty()
           && one.letters.size() < withNotes.size();
}

bool AreEqual(const FigureBar& one, const FigureBar& other) {
    return one.colours == other.colours && one.numbers == other.numbers
           && one.opacity == other.opacity && one.title == other.title;
}

/// A bar with the letters of its panels.
struct BarOfPanels {
    FigureBar bar;
    std::vector<std::string> letters;
};

void AddBar(const FigureBar& bar, const std::string& letter, std::vector<BarOfPanels>& bars) {
    const auto same = std::ranges::find_if(
        bars, [&bar](const BarOfPanels& former) { return AreEqual(former.bar, bar); });
    if (same == bars.end()) {
        bars.push_back({bar, {letter}});
    } else {
        same->letters.push_back(letter);
    }
}

/// The entries and bars, with letters where they are of some panels alone.
SharedLegend LegendOf(std::vector<EntryOfPanels> entries, std::vector<BarOfPanels> bars) {
    SharedLegend shared;
    std::set<std::string> withNotes;
    for (const EntryOfPanels& one : entries) {
        if (one.entry.sign == FigureSign::Blank) {
            withNotes.insert(one.letters.begin(), one.letters.end());
        }
    }
    for (EntryOfPanels& one : entries) {
        if (IsOfSomePanels(one, withNotes)) {
            one.entry.text = Joined(one.letters) + " " + one.entry.text;
        }
        shared.entries.push_back(std::move(one.entry));
    }
    for (BarOfPanels& one : bars) {
        if (bars.size() > 1 && !one.letters.front().empty()) {
            one.bar.title = Joined(one.letters) + " " + one.bar.title;
        }
        shared.bars.push_back(std::move(one.bar));
    }
    return shared;
}

} // namespace

std::string WordsOfEntry(const std::string& text) {
    std::string words = text.substr(0, text.find(kCount));
    const std::size_t last = words.rfind(' ');
    if (last != std::string::npos && IsOrientation(std::string_view(words).substr(last + 1))) {
        words.resize(last);
    }
    return words;
}

SharedLegend SharedLegendOf(const FigureSheet& sheet, const std::vector<PanelContent>& contents,
                            const SheetLook& look, Surface& unseen) {
    std::vector<EntryOfPanels> entries;
    std::vector<BarOfPanels> bars;
    for (std::size_t i = 0; i < contents.size(); ++i) {
        if (sheet.panels[i].kind != PanelKind::Plot) {
            continue;
        }
        const Plot& plot = *contents[i].plot;
        const FigureLegend legend =
            LegendOfFigure(plot, DrawingOfPanel(plot, look, unseen, unseen));
        for (const FigureEntry& entry : legend.entries) {
            AddEntry(entry, LetterOf(sheet, i), entries);
        }
        for (const FigureBar& bar : legend.bars) {
            AddBar(bar, LetterOf(sheet, i), bars);
        }
    }
    return LegendOf(std::move(entries), std::move(bars));
}

} // namespace quandrel
