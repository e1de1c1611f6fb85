// SPDX-License-Identifier: MIT

#include "core/plot_style.h"

#include "core/figure_style_text.h"
#include "core/settings_value.h"

namespace quandrel {

namespace {

/// A style that lives as long as the program.
std::shared_ptr<const FigureStyle> Lasting(const FigureStyle& style) {
    return {std::shared_ptr<const FigureStyle>(), &style};
}

} // namespace

std::shared_ptr<const FigureStyle> StyleOfChoice(const StyleChoice& choice) {
    if (!choice.text.empty()) {
        if (Result<FigureStyle> style = StyleOfText(choice.text)) {
            return std::make_shared<const FigureStyle>(std::move(*style));
        }
    }
    const FigureStyle* const standard = StandardStyle(choice.name);
    return Lasting(standard != nullptr ? *standard : ClassicStyle());
}

StyleChoice ChoiceOfStandard(std::string_view name) {
    const FigureStyle* const style = StandardStyle(name);
    const bool isClassic = style == nullptr || style == &ClassicStyle();
    return {isClassic ? std::string() : style->name, {}};
}

StyleChoice StyleChoiceOf(const RecordFigure& figure) {
    return {figure.StyleName, figure.StyleText};
}

void SetStyle(RecordFigure& figure, const StyleChoice& choice) {
    figure.StyleName = choice.name;
    figure.StyleText = choice.text;
}

std::shared_ptr<const FigureStyle> StyleOfPlot(const PlotRecord& record) {
    return StyleOfChoice(StyleChoiceOf(record));
}

StyleChoice StyleChoiceForPrint(const RecordFigure& figure) {
    StyleChoice own = StyleChoiceOf(figure);
    const bool isOfWindows =
        own.text.empty()
        && (own.name.empty() || StandardStyle(own.name) == StandardStyle(kScreenStyle));
    return isOfWindows ? gSettings.files.exportStyle : own;
}

} // namespace quandrel
