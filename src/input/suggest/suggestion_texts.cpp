// SPDX-License-Identifier: MIT

#include "input/suggest/suggestion_texts.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace quandrel {

namespace {

const char* NounOf(const FormatChoice& choice) {
    switch (choice.primary) {
    case kPrimaryPlane:
        return "planes";
    case kPrimaryLine:
        return choice.plotDataKind == kPolarLines ? "polar lines" : "lines";
    default:
        return "directions";
    }
}

std::string Joined(const std::vector<std::string>& phrases) {
    std::string text;
    for (const std::string& phrase : phrases) {
        text += (text.empty() ? "" : "; ") + phrase;
    }
    return text;
}

} // namespace

std::string TextOfSuggestion(const FormatSuggestion& suggestion) {
    const FormatChoice& choice = suggestion.choice;
    const std::array<bool, kColumnSlots> used = ColumnsInUse(choice);
    const std::array<std::string, kColumnSlots> names = LongColumnNames(choice);
    std::string text = std::to_string(std::lround(100 * suggestion.probability)) + "%: ";
    text += NounOf(choice);
    for (std::size_t slot = 0; slot < used.size(); ++slot) {
        if (used[slot]) {
            text += ", " + names[slot] + " " + std::to_string(choice.columns[slot] + 1);
        }
    }
    if (choice.placeColumns.AreUsed()) {
        text += ", x " + std::to_string(choice.placeColumns.x + 1) + ", y "
                + std::to_string(choice.placeColumns.y + 1);
    }
    return text + (choice.isQuadrant ? ", in quadrants" : "");
}

std::string TextOfDoubt(const std::vector<FormatSuggestion>& suggestions) {
    if (suggestions.empty()) {
        return "no format can be suggested for this text";
    }
    std::string text = "no format is sure enough:";
    for (const FormatSuggestion& suggestion : suggestions) {
        text += "\n  " + TextOfSuggestion(suggestion) + " (" + Joined(suggestion.reasons) + ")";
    }
    return text;
}

} // namespace quandrel
