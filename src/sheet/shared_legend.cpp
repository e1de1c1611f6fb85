// SPDX-License-Identifier: MIT

#include "sheet/shared_legend.h"

#include <algorithm>
#include <string_view>

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

void AddEntry(const FigureEntry& entry, std::vector<FigureEntry>& entries) {
    for (FigureEntry& former : entries) {
        if (!HaveEqualSigns(former, entry)) {
            continue;
        }
        if (former.text == entry.text) {
            return;
        }
        const std::string words = WordsOfEntry(entry.text);
        if (WordsOfEntry(former.text) == words && !words.empty()) {
            former.text = words;
            return;
        }
    }
    entries.push_back(entry);
}

bool AreEqual(const FigureBar& one, const FigureBar& other) {
    return one.colours == other.colours && one.numbers == other.numbers
           && one.opacity == other.opacity && one.title == other.title;
}

/// A bar with the letters of its panels.
struct BarOfPanels {
    FigureBar bar;
    std::string letters;
};

void AddBar(const FigureBar& bar, const std::string& letter, std::vector<BarOfPanels>& bars) {
    const auto same = std::ranges::find_if(
        bars, [&bar](const BarOfPanels& former) { return AreEqual(former.bar, bar); });
    if (same == bars.end()) {
        bars.push_back({bar, letter});
    } else if (!letter.empty()) {
        same->letters += ", " + letter;
    }
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
    SharedLegend shared;
    std::vector<BarOfPanels> bars;
    for (std::size_t i = 0; i < contents.size(); ++i) {
        if (sheet.panels[i].kind != PanelKind::Plot) {
            continue;
        }
        const Plot& plot = *contents[i].plot;
        const FigureLegend legend =
            LegendOfFigure(plot, DrawingOfPanel(plot, look, unseen, unseen));
        for (const FigureEntry& entry : legend.entries) {
            AddEntry(entry, shared.entries);
        }
        if (legend.bar) {
            AddBar(*legend.bar, LetterOf(sheet, i), bars);
        }
    }
    for (BarOfPanels& one : bars) {
        if (bars.size() > 1 && !one.letters.empty()) {
            one.bar.title = one.letters + " " + one.bar.title;
        }
        shared.bars.push_back(std::move(one.bar));
    }
    return shared;
}

} // namespace quandrel
