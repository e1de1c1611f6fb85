// SPDX-License-Identifier: MIT

#include "session/reference.h"

#include "core/data_format.h"
#include "core/plot_formulas.h"
#include "core/plot_store.h"
#include "rose/rose_reference.h"
#include "statistics/axis_statistics.h"
#include "statistics/reference_entries.h"

#include <utility>

namespace quandrel {

namespace {

/// The separate references of P and T axes; the axis precedes each name.
std::vector<ReferenceLine> ReferenceOfBothAxes(const Plot& plot) {
    const Styles& styles = gSettings.styles;
    std::vector<ReferenceLine> lines;
    for (const AxisKind kind : {AxisKind::Shortening, AxisKind::Extension}) {
        const AxisStatistics axes =
            StatisticsOfAxes(plot, styles, FormulasInForce(plot.record), kind);
        const auto reference = ReferenceStatisticsOfLines(
            LinesOfAxes(plot, styles, kind, LinePrecision::Measured), RowSense::kAxes);
        if (!reference) {
            continue;
        }
        for (ReferenceLine& line : ReferenceEntries(*reference, axes.record)) {
            line.name = (kind == AxisKind::Shortening ? "P " : "T ") + line.name;
            lines.push_back(std::move(line));
        }
    }
    return lines;
}

} // namespace

std::vector<ReferenceLine> ReferenceOfActivePlot() {
    const Plot& plot = ActivePlot();
    if (plot.record.PlotKind == kRose) {
        const auto reference = RoseReferenceOf(plot);
        return reference ? RoseReferenceLines(*reference, plot, FormulasInForce(plot.record))
                         : std::vector<ReferenceLine>();
    }
    if (HoldsBothAxes(plot.record)) {
        return ReferenceOfBothAxes(plot);
    }
    const auto reference = ReferenceStatisticsOfActivePlot();
    return reference ? ReferenceEntries(*reference, plot.record) : std::vector<ReferenceLine>();
}

} // namespace quandrel
