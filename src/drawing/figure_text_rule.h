// SPDX-License-Identifier: MIT
//
// Sizes of texts on the page of a figure, millimetres.

#pragma once

#include "stereo/drawing.h"

#include <string>
#include <vector>

namespace quandrel {

inline constexpr double kMillimetresInPixel = 25.4 / 96;

/// The font of the legend of a figure.
[[nodiscard]] FontSpec FontOfLegend(const Drawing& drawing);

/// Measures texts in a font, whatever the scale of the surface.
class TextRule {
public:
    /// @param surface  whose state this changes
    TextRule(Surface& surface, const FontSpec& font);

    [[nodiscard]] double Width(const std::string& text) const;
    [[nodiscard]] double Height() const;

    /// Of the widest line.
    [[nodiscard]] double Width(const std::vector<std::string>& lines) const;

    /// A text in lines that are at most so wide, as far as its words allow.
    [[nodiscard]] std::vector<std::string> Wrapped(const std::string& text, double width) const;

private:
    [[nodiscard]] double Unit() const; ///< millimetres in a user unit

    Surface& surface_;
};

} // namespace quandrel
