// SPDX-License-Identifier: MIT

#include "statistics/axis_statistics.h"

#include "core/plot_formulas.h"
#include "core/plot_store.h"
#include "statistics/orientation_notation.h"

namespace quandrel {

AxisStatistics StatisticsOfAxes(const Plot& plot, const Styles& styles, Formulas formulas,
                                AxisKind kind) {
    AxisStatistics axes;
    axes.lines = LinesOfAxes(plot, styles, kind);
    axes.record.DataKind = plot.record.DataKind;
    axes.record.UseDecimals = plot.record.UseDecimals;
    axes.record.PlotFormulas = plot.record.PlotFormulas;
    SetCountOfValid(axes.record, CountOfLines(axes.lines));
    StoreFabricStatistics(axes.record, axes.lines, formulas);
    return axes;
}

AxisStatistics StatisticsOfAxes(AxisKind kind) {
    const Plot& plot = ActivePlot();
    return StatisticsOfAxes(plot, gSettings.styles, FormulasInForce(plot.record), kind);
}

std::string NameOfAxes(AxisKind kind) {
    return kind == AxisKind::Shortening ? "P shortening axes" : "T extension axes";
}

std::vector<std::string> AxisLegendTexts(const AxisStatistics& axes) {
    std::vector<std::string> texts = {"n = " + std::to_string(axes.record.NumValidData)};
    if (axes.lines.empty()) {
        return texts;
    }
    const auto text = [&axes](std::size_t axis, std::string (*write)(double, double, int)) {
        const AxisLine line = FabricAxis(axes.record, axis);
        return IsAxisDetermined(axes.record, axis)
                   ? write(line.plunge, line.trend, DecimalsShown(axes.record))
                   : std::string(kUndetermined);
    };
    texts.push_back("principal axis " + text(3, TextOfLine));
    texts.push_back("girdle " + text(1, TextOfPlaneOfPole));
    return texts;
}

} // namespace quandrel
