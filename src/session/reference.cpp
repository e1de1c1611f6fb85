// SPDX-License-Identifier: MIT

#include "session/reference.h"

#include "core/data_format.h"
#include "core/plot_store.h"
#include "rose/rose_reference.h"
#include "statistics/axis_statistics.h"
#include "statistics/reference_entries.h"

#include <utility>

namespace quandrel {

namespace {

/// The separate references of P and T axes; the axis precedes each name.
std::vector<ReferenceLine> ReferenceOfBothAxes() {
    std::vector<ReferenceLine> lines;
    for (const AxisKind kind : {AxisKind::Shortening, AxisKind::Extension}) {
        const AxisStatistics axes = StatisticsOfAxes(kind);
        const auto reference = ComputeReferenceStatistics(axes.lines, RowSense::kAxes);
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
    const PlotRecord& record = ActiveRecord();
    if (record.PlotKind == kRose) {
        const auto reference = RoseReferenceOf(ActivePlot());
        return reference ? RoseReferenceLines(*reference, ActivePlot(), gSettings.notation.formulas)
                         : std::vector<ReferenceLine>();
    }
    if (HoldsBothAxes(record)) {
        return ReferenceOfBothAxes();
    }
    const auto reference = ReferenceStatisticsOfActivePlot();
    return reference ? ReferenceEntries(*reference, record) : std::vector<ReferenceLine>();
}

} // namespace quandrel
