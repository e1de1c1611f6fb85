// SPDX-License-Identifier: MIT
//
// The style that a plot is drawn in.

#pragma once

#include "core/figure_style.h"
#include "core/plot_record.h"
#include "core/style_choice.h"

#include <memory>
#include <string_view>

namespace quandrel {

/// The style of a choice: that of its text, else the standard style that it names. Classic where
/// neither can be read.
[[nodiscard]] std::shared_ptr<const FigureStyle> StyleOfChoice(const StyleChoice& choice);

/// The choice of a standard style; that of Classic for another name.
[[nodiscard]] StyleChoice ChoiceOfStandard(std::string_view name);

/// The choice of a plot.
[[nodiscard]] StyleChoice StyleChoiceOf(const RecordFigure& figure);

void SetStyle(RecordFigure& figure, const StyleChoice& choice);

/// The style of a plot.
[[nodiscard]] std::shared_ptr<const FigureStyle> StyleOfPlot(const PlotRecord& record);

/// The choice for a plot as a figure for print: its own, but for the styles of windows, Classic and
/// Screen, that of exports in the settings.
[[nodiscard]] StyleChoice StyleChoiceForPrint(const RecordFigure& figure);

} // namespace quandrel
