// SPDX-License-Identifier: MIT
//
// Which style a plot, or something about plots, has.

#pragma once

#include <string>

namespace quandrel {

/// A style as RecordFigure keeps it.
struct StyleChoice {
    std::string name; ///< of a standard style, or of the text; empty for Classic
    std::string text; ///< of a style that is not a standard one (core/figure_style_text.h)

    friend bool operator==(const StyleChoice&, const StyleChoice&) = default;
};

} // namespace quandrel
