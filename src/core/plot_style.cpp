// SPDX-License-Identifier: MIT

#include "core/plot_style.h"

#include "core/figure_style_text.h"

namespace quandrel {

namespace {

/// A style that lives as long as the program.
std::shared_ptr<const FigureStyle> Lasting(const FigureStyle& style) {
    return {std::shared_ptr<const FigureStyle>(), &style};
}

} // namespace

std::shared_ptr<const FigureStyle> StyleOfPlot(const PlotRecord& record) {
    if (!record.StyleText.empty()) {
        if (Result<FigureStyle> style = StyleOfText(record.StyleText)) {
            return std::make_shared<const FigureStyle>(std::move(*style));
        }
    }
    const FigureStyle* const standard = StandardStyle(record.StyleName);
    return Lasting(standard != nullptr ? *standard : ClassicStyle());
}

} // namespace quandrel
