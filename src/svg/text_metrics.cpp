// SPDX-License-Identifier: MIT

#include "svg/text_metrics.h"

#include "svg/font_width_table.h"
#include "svg/xml_text.h"

#include <algorithm>

namespace quandrel {

namespace {

double InEms(int units) {
    return static_cast<double>(units) / kFontUnitsInAnEm;
}

} // namespace

double AdvanceOf(char32_t character, bool bold) {
    const FontWidths& font = WidthsOfLiberationSans();
    // The last run that does not begin after the character.
    const auto after = std::ranges::upper_bound(font.runs, static_cast<std::uint32_t>(character),
                                                {}, &WidthRun::first);
    if (after == font.runs.begin()) {
        return 1;
    }
    const WidthRun& run = *(after - 1);
    const std::uint32_t offset = static_cast<std::uint32_t>(character) - run.first;
    if (offset >= run.count) {
        return 1;
    }
    return InEms((bold ? font.bold : font.regular)[run.start + offset]);
}

double WidthInEms(std::string_view utf8, bool bold) {
    double width = 0;
    while (!utf8.empty()) {
        width += AdvanceOf(TakeCharacter(utf8), bold);
    }
    return width;
}

double AscentInEms() {
    return InEms(WidthsOfLiberationSans().ascent);
}

double DescentInEms() {
    return InEms(WidthsOfLiberationSans().descent);
}

} // namespace quandrel
