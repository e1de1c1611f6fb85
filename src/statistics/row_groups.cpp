// SPDX-License-Identifier: MIT

#include "statistics/row_groups.h"

#include "core/data_format.h"
#include "core/overlay_names.h"
#include "core/plot_rows.h"
#include "statistics/axis_statistics.h"
#include "stereo/axis_rows.h"
#include "stereo/lines_of_rows.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace quandrel {

namespace {

bool IsWanted(std::int16_t sum, int part) {
    return (sum & part) != 0;
}

void AddMainRows(Plot& plot, const Styles& styles, std::vector<RowGroup>& groups) {
    if (!HoldsBothAxes(plot.record)) {
        groups.push_back({{},
                          StatisticsLinesOf(plot, styles),
                          HasPolarMainRows(plot.record),
                          RowGroupKind::MainRows});
        return;
    }
    for (const AxisKind kind : {AxisKind::Shortening, AxisKind::Extension}) {
        groups.push_back(
            {NameOfAxes(kind), LinesOfAxes(plot, styles, kind), false,
             kind == AxisKind::Shortening ? RowGroupKind::Shortening : RowGroupKind::Extension});
    }
}

void AddOverlays(const Plot& plot, std::vector<RowGroup>& groups) {
    const PlotRecord& record = plot.record;
    for (int overlay = 1; overlay <= record.OverlayRows[kOverlayCount]; ++overlay) {
        const auto place = static_cast<std::size_t>(overlay);
        const std::int32_t first = FirstRowOfOverlay(record, overlay);
        const std::int32_t last = first + record.OverlayRows[place] - 1;
        const auto isOfOverlay = [first, last](std::int32_t row) {
            return row >= first && row <= last;
        };
        groups.push_back({NameOfOverlay(record, overlay), LinesOfRows(plot, isOfOverlay),
                          record.OverlayKind[place] == kOverlayPolarLines, RowGroupKind::Overlay,
                          overlay});
    }
}

void AddClasses(const Plot& plot, const RowClasses& classes, std::vector<RowGroup>& groups) {
    if (HoldsBothAxes(plot.record)) {
        return; // a class would mix P and T
    }
    for (std::size_t c = 1; c < classes.names.size(); ++c) {
        const auto isOfClass = [&classes, c](std::int32_t row) {
            const auto place = static_cast<std::size_t>(row);
            return place < classes.ofRow.size() && classes.ofRow[place] == c;
        };
        groups.push_back({classes.names[c], LinesOfRows(plot, isOfClass),
                          HasPolarMainRows(plot.record), RowGroupKind::Class, static_cast<int>(c)});
    }
}

} // namespace

bool HasPolarMainRows(const PlotRecord& record) {
    return record.DataKind == kPolarLines && record.AxesTitle.empty();
}

std::vector<RowGroup> RowGroupsOf(Plot& plot, const Styles& styles, const RowClasses& classes,
                                  std::int16_t of) {
    std::vector<RowGroup> groups;
    if (IsWanted(of, kRegionsOfPlot)) {
        AddMainRows(plot, styles, groups);
    }
    if (IsWanted(of, kRegionsOfOverlays)) {
        AddOverlays(plot, groups);
    }
    if (IsWanted(of, kRegionsOfClasses)) {
        AddClasses(plot, classes, groups);
    }
    std::erase_if(groups, [](const RowGroup& group) { return group.lines.empty(); });
    return groups;
}

} // namespace quandrel
