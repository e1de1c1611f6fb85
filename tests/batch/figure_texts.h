// SPDX-License-Identifier: MIT
//
// The texts of a figure, as its SVG file has them.

#pragma once

#include "svg/text_metrics.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace quandrel {

/// The box of the letters of a text and the size of its font, points.
struct TextBox {
    std::string text;
    double left, top, right, bottom;
    double size;
};

/// All texts with the boxes of their letters; a group before them has their font.
inline std::vector<TextBox> TextsOf(const std::string& svg) {
    static const std::regex font("font-size=\"([0-9.]+)\"");
    static const std::regex text("<text x=\"([-0-9.]+)\" y=\"([-0-9.]+)\"[^>]*>([^<]*)</text>");
    std::vector<TextBox> boxes;
    std::istringstream lines(svg);
    double size = 0;
    bool isBold = false;
    for (std::string line; std::getline(lines, line);) {
        std::smatch found;
        if (std::regex_search(line, found, font)) {
            size = std::stod(found[1]);
            isBold = line.find("bold") != std::string::npos;
        }
        if (std::regex_search(line, found, text)) {
            const double x = std::stod(found[1]);
            const double y = std::stod(found[2]);
            boxes.push_back({found[3], x, y - 0.72 * size,
                             x + WidthInEms(std::string(found[3]), isBold) * size, y + 0.21 * size,
                             size});
        }
    }
    return boxes;
}

inline bool Has(const std::vector<TextBox>& boxes, const std::string& text) {
    return std::ranges::any_of(boxes, [&](const TextBox& box) { return box.text == text; });
}

/// Texts of a page of 84 mm are large enough, within it, and not on each other.
inline void ExpectClear(const std::vector<TextBox>& boxes) {
    constexpr double kWidth = 84 / 25.4 * 72;
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        const TextBox& a = boxes[i];
        EXPECT_GE(a.size, 6) << a.text;
        EXPECT_GE(a.left, 0) << a.text;
        EXPECT_GE(a.top, 0) << a.text;
        EXPECT_LE(a.right, kWidth) << a.text;
        for (std::size_t k = 0; k < i; ++k) {
            const TextBox& b = boxes[k];
            EXPECT_TRUE(a.left >= b.right || b.left >= a.right || a.top >= b.bottom
                        || b.top >= a.bottom)
                << a.text << " on " << b.text;
        }
    }
}

} // namespace quandrel
