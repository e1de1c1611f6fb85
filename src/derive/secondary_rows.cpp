// SPDX-License-Identifier: MIT

#include "derive/secondary_rows.h"

#include "core/plot_store.h"
#include "derive/fault_rows.h"
#include "input/data_rows.h"
#include "orientation/angles.h"
#include "stereo/row_positions.h"

#include <string>

namespace quandrel {

namespace {

/// The secondary orientation of a main row; the error marker for a row that lacks either.
Attitude SecondaryOfRow(std::int32_t row) {
    const Attitude line = FaultOfRow(gActivePlot, row).line;
    return IsReadable(line) ? line : Attitude{kErrorRow, 0};
}

void CopyAppended(std::int32_t row, const PlotRecord& record, ParsedRow& parsed) {
    if (record.HasAppendedLine != 0 && gAppLineDip(gActivePlot, row) != kInvalidAppendedLine) {
        parsed.lineStatus = AppendedLineStatus::Good;
        parsed.linePlunge = gAppLineDip(gActivePlot, row);
        parsed.lineTrend = gAppLineAz(gActivePlot, row);
    }
    if (record.HasAppendedNumeric != 0 && gAppNumeric(gActivePlot, row) != kInvalidNumber) {
        parsed.numberStatus = NumberStatus::Good;
        parsed.number = static_cast<double>(gAppNumeric(gActivePlot, row));
    }
    if (record.HasAppendedText != 0) {
        parsed.textStatus = TextStatus::Good;
        parsed.text.Keep(std::string(gAppText(gActivePlot, row)));
    }
}

ParsedRow OverlayRowOf(std::int32_t row, const PlotRecord& record) {
    ParsedRow parsed;
    const Attitude secondary = SecondaryOfRow(row);
    if (secondary.dip == kErrorRow) {
        return parsed;
    }
    parsed.status = LineStatus::Row;
    parsed.dip = secondary.dip;
    parsed.az = secondary.azimuth;
    CopyAppended(row, record, parsed);
    return parsed;
}

} // namespace

bool AppendSecondaryOverlay(std::int16_t kind) {
    Plot& plot = ActivePlot();
    PlotRecord& record = plot.record;
    const int overlay = OpenOverlay(record, kind);
    record.Modified = kTrue;
    record.SelectedOverlay = static_cast<std::int16_t>(overlay);
    const RowTarget target{overlay, record.SecondaryFormat, false, false};
    MakeRoomForRows(plot, record.NumLoadedData + record.NumData, target.secondaryFormat != 0);
    RowFaults faults;
    for (std::int32_t row = 1; row <= record.NumData; ++row) {
        if (!StoreDataRow(plot, OverlayRowOf(row, record), target, faults)) {
            return false;
        }
    }
    return true;
}

void RewriteSecondaryOverlay(int overlay) {
    const PlotRecord& record = ActiveRecord();
    const std::int32_t first = FirstRowOfOverlay(record, overlay);
    const std::int32_t rows = record.OverlayRows[static_cast<std::size_t>(overlay)];
    for (std::int32_t i = 0; i < rows; ++i) {
        const std::int32_t row = first + i;
        const Attitude line = SecondaryOfRow(i + 1);
        SetWholeAttitude(ActivePlot().rows, RowAngles::Primary, row, line);
        StoreRowPosition(gActivePlot, static_cast<std::size_t>(row) - 1, row, line,
                         IsPlottedAsPole(record, overlay));
    }
}

} // namespace quandrel
