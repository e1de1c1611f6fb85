// SPDX-License-Identifier: MIT

#include "drawing/figure_text_rule.h"

#include "stereo/drawable_text.h"
#include "stereo/figure_text.h"
#include "stereo/text_lines.h"

#include <algorithm>

namespace quandrel {

FontSpec FontOfLegend(const Drawing& drawing) {
    return FontInFigure(drawing, kLegendFont);
}

TextRule::TextRule(Surface& surface, const FontSpec& font)
    : surface_(surface) {
    DrawState state;
    state.font = font;
    surface.SetState(state);
}

double TextRule::Unit() const {
    return kMillimetresInPixel / surface_.PixelSize().x;
}

double TextRule::Width(const std::string& text) const {
    return surface_.TextWidth(DrawableText(text)) * Unit();
}

double TextRule::Height() const {
    return surface_.TextHeight() / surface_.PixelSize().y * kMillimetresInPixel;
}

double TextRule::Width(const std::vector<std::string>& lines) const {
    double width = 0;
    for (const std::string& line : lines) {
        width = std::max(width, Width(line));
    }
    return width;
}

std::vector<std::string> TextRule::Wrapped(const std::string& text, double width) const {
    // A text that just fits is not to be broken by rounding.
    constexpr double kSlack = 1e-6;
    return WrappedLines(surface_, text, (width + kSlack) / Unit());
}

} // namespace quandrel
