// SPDX-License-Identifier: MIT

#include "sheet/figure_sheet.h"

namespace quandrel {

namespace {

constexpr std::size_t kAlphabet = 26;

/// Also false for what is not a number.
bool IsWithin(double number, double least, double most) {
    return number >= least && number <= most;
}

std::string FaultOf(const SheetPanel& panel, int columns) {
    if (!IsWithin(panel.columns, 1, columns) || !IsWithin(panel.rows, 1, kMostSheetColumns)) {
        return "it takes more columns than the sheet has, or too many rows";
    }
    if (panel.title.size() > kLongestSheetText || panel.text.size() > kLongestSheetText
        || panel.name.size() > kLongestSheetText) {
        return "its text is too long";
    }
    if (panel.kind == PanelKind::Text) {
        return panel.file.empty() && panel.data.empty() ? std::string() : "a text has no plot";
    }
    return panel.file.empty() != panel.data.empty() ? std::string()
                                                    : "it needs a file or data, and not both";
}

} // namespace

std::string FaultOf(const FigureSheet& sheet) {
    if (!IsWithin(sheet.width, kLeastSheetSide, kMostSheetSide)
        || (sheet.height != 0 && !IsWithin(sheet.height, kLeastSheetSide, kMostSheetSide))) {
        return "the page is not 20 to 1000 mm wide and high";
    }
    if (!IsWithin(sheet.columns, 1, kMostSheetColumns)) {
        return "there are 1 to 10 columns";
    }
    if (!IsWithin(sheet.gapAcross, 0, kMostSheetGap)
        || !IsWithin(sheet.gapDown, 0, kMostSheetGap)) {
        return "a gap is 0 to 50 mm";
    }
    if (sheet.caption.size() > kLongestSheetText || sheet.style.size() > kLongestSheetText) {
        return "the caption or the style is too long";
    }
    if (sheet.panels.size() > kMostPanels) {
        return "there are 50 panels at most";
    }
    for (std::size_t i = 0; i < sheet.panels.size(); ++i) {
        if (const std::string fault = FaultOf(sheet.panels[i], sheet.columns); !fault.empty()) {
            return "panel " + std::to_string(i + 1) + ": " + fault;
        }
    }
    return {};
}

void MovePanel(FigureSheet& sheet, std::size_t from, std::size_t to) {
    const auto at = [&sheet](std::size_t place) {
        return sheet.panels.begin() + static_cast<std::ptrdiff_t>(place);
    };
    if (from < to) {
        std::rotate(at(from), at(from + 1), at(to + 1));
    } else {
        std::rotate(at(to), at(from), at(from + 1));
    }
}

std::string LetterOf(const FigureSheet& sheet, std::size_t panel) {
    if (sheet.letters == SheetLetters::None) {
        return {};
    }
    const char first = sheet.letters == SheetLetters::Capital ? 'A' : 'a';
    std::string letter(1, static_cast<char>(first + static_cast<char>(panel % kAlphabet)));
    if (panel >= kAlphabet) {
        letter.insert(0, 1, static_cast<char>(first + static_cast<char>(panel / kAlphabet - 1)));
    }
    return sheet.letters == SheetLetters::Brackets ? "(" + letter + ")" : letter;
}

} // namespace quandrel
