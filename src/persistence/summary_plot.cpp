// SPDX-License-Identifier: MIT

#include "persistence/summary_plot.h"

#include "core/appended_range.h"
#include "core/new_record.h"
#include "core/plot_rows.h"
#include "stereo/cell_rows.h"
#include "stereo/row_sense.h"
#include "summary/summary_results.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quandrel {

namespace {

constexpr double kMostMeasurements = std::numeric_limits<std::int32_t>::max();

/// The measurements of a cell: its rows, or their weights rounded.
double MeasurementsOf(const SummaryCell& cell) {
    return std::round(cell.weight);
}

PlotRecord RecordFor(const RowSummary& summary, const Settings& settings) {
    PlotRecord record = NewPlotRecord(settings);
    const bool isPlane = summary.IsPlane();
    record.PrimaryFormat = summary.Kind().primary;
    record.DataKind = isPlane ? kPlanes : kLines;
    record.PlotKind = summary.Kind().primary == kDirections ? kRose : kEqualArea;
    record.PlotSymbolMode = kContours;
    record.UseDecimals = 0;
    record.HasAppendedNumeric = kTrue;
    record.HasFrequencyColumn = kTrue;
    record.AppNumName = summary.Kind().isWeighted ? "weight" : "rows";
    return record;
}

/// Adds the rows of a cell: one for each kMostOfCell measurements.
void AddCell(const SummaryCell& cell, SymbolCode code, BinaryPlot& plot, AppendedRange& range) {
    for (double left = MeasurementsOf(cell); left > 0; left -= kMostOfCell) {
        BinaryRow row;
        row.dip = cell.dip;
        row.azimuth = cell.azimuth;
        row.order = static_cast<std::int32_t>(plot.rows.size()) + 1;
        row.code = code;
        row.dip2 = kErrorRow;
        row.lineDip = kInvalidAppendedLine;
        row.number = static_cast<float>(std::min(left, static_cast<double>(kMostOfCell)));
        TrackNumber(range, row.number);
        plot.rows.push_back(row);
    }
}

} // namespace

Result<BinaryPlot> PlotOfSummary(const RowSummary& summary, const Settings& settings) {
    const std::vector<SummaryCell> cells = CellsOf(summary);
    double total = 0;
    for (const SummaryCell& cell : cells) {
        total += MeasurementsOf(cell);
    }
    if (total < 1) {
        return Failure{"The summary has no rows."};
    }
    if (total > kMostMeasurements) {
        return Failure{"The summary stands for more rows than a plot can count, 2,147,483,647."};
    }
    BinaryPlot plot;
    plot.record = RecordFor(summary, settings);
    plot.hasFrequencyField = true;
    plot.hasCellRows = true;
    AppendedRange range;
    for (const SummaryCell& cell : cells) {
        AddCell(cell, CodeOfNewRow(settings.styles, plot.record, 0, cell.dip < 0), plot, range);
    }
    MergeAppendedRange(plot.record, range);
    RowCounts counts;
    counts.main = static_cast<std::int32_t>(plot.rows.size());
    counts.valid = counts.main;
    counts.all = counts.main;
    SetCounts(plot.record, counts);
    return plot;
}

} // namespace quandrel
