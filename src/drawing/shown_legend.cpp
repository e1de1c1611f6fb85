// SPDX-License-Identifier: MIT

#include "drawing/shown_legend.h"

#include "core/data_format.h"
#include "drawing/legend.h"

#include <utility>

namespace quandrel {

namespace {

/// A line for each band below the bar's title, lowest first.
void AddBar(const FigureBar& bar, std::vector<LegendLine>& lines) {
    LegendLine title;
    title.text = bar.title;
    lines.push_back(std::move(title));
    for (std::size_t band = 0; band < bar.colours.size(); ++band) {
        LegendLine line;
        line.sample = LegendSample::Band;
        line.band = bar.colours[band];
        line.opacity = bar.opacity;
        line.text = band + 1 < bar.numbers.size()
                        ? " " + bar.numbers[band] + " - " + bar.numbers[band + 1]
                        : " > " + bar.numbers[band];
        lines.push_back(std::move(line));
    }
}

ShownLegend LinesOfFigure(FigureLegend legend) {
    ShownLegend shown;
    for (FigureEntry& entry : legend.entries) {
        shown.layers.push_back(entry.layer);
        LegendLine line;
        line.text = entry.text;
        if (entry.sign != FigureSign::None) {
            line.sample = LegendSample::Figure;
            line.code = static_cast<SymbolCode>(shown.signs.size());
            shown.signs.push_back(std::move(entry));
        }
        shown.lines.push_back(std::move(line));
    }
    for (const FigureBar& bar : legend.bars) {
        AddBar(bar, shown.lines);
        shown.layers.resize(shown.lines.size(), bar.layer);
    }
    return shown;
}

} // namespace

ShownLegend LegendShown(const Plot& plot, const Drawing& drawing) {
    const bool hasLayers = !plot.record.Layers.empty() && plot.record.PlotKind != kRose;
    if (FigureOf(drawing) == ClassicStyle() && !hasLayers) {
        return {LegendLines(plot, drawing.styles, drawing.formulas), {}, {}};
    }
    return LinesOfFigure(LegendOfFigure(plot, drawing));
}

} // namespace quandrel
