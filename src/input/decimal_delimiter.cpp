// SPDX-License-Identifier: MIT

#include "input/decimal_delimiter.h"

#include "orientation/number_text.h"

#include <algorithm>

namespace quandrel {

std::string FixDecimalDelimiter(std::string_view value, bool decimalIsComma) {
    const char right = decimalIsComma ? ',' : '.';
    const char wrong = decimalIsComma ? '.' : ',';
    std::string fixed(value);
    const std::size_t lastWrong = fixed.rfind(wrong);
    const std::size_t lastRight = fixed.rfind(right);
    const bool hasRight = lastRight != std::string::npos;
    if (lastWrong == std::string::npos || (hasRight && lastRight > lastWrong)
        || (!hasRight && fixed.find(wrong) != lastWrong)) {
        return fixed;
    }
    for (char& c : fixed) {
        c = c == wrong ? right : c == right ? wrong : c;
    }
    return fixed;
}

std::optional<double> NumberWithGroups(std::string_view text, bool decimalIsComma,
                                       bool orOtherNotation) {
    if (text.find_first_of(",.") == std::string_view::npos) {
        return std::nullopt;
    }
    double value = NumberFromText(text, decimalIsComma);
    if (value == 0 && orOtherNotation) {
        value = NumberFromText(text, !decimalIsComma);
    }
    return value == 0 ? std::nullopt : std::optional<double>(value);
}

int DetectDecimalMismatch(std::span<const std::string> texts, bool decimalIsComma) {
    const char wrong = decimalIsComma ? '.' : ',';
    int decimals = 0;
    int mismatches = 0;
    for (const std::string& text : texts) {
        const std::size_t delimiter = text.find_last_of(",.");
        if (delimiter == std::string::npos
            || (!ReadNumber(text) && NumberFromText(text, text[delimiter] == ',') == 0)) {
            continue;
        }
        ++decimals;
        mismatches += text[delimiter] == wrong ? 1 : 0;
    }
    if (2 * mismatches <= decimals) {
        return 0;
    }
    return 2 - (decimalIsComma ? 1 : 0);
}

} // namespace quandrel
