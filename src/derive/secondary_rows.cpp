// SPDX-License-Identifier: MIT

#include "derive/secondary_rows.h"

#include "core/plot_store.h"
#include "derive/fault_rows.h"
#include "derive/measured_line.h"
#include "input/data_rows.h"
#include "orientation/angles.h"
#include "stereo/row_positions.h"

#include <string>

namespace quandrel {

namespace {

/// The secondary orientation of a main row; the error marker for a row that lacks either.
struct SecondaryOfRow {
    Attitude whole{kErrorRow, 0};
    Attitude measured{kErrorRow, 0};

    SecondaryOfRow(const Plot& plot, std::int32_t row) {
        const Attitude line = FaultOfRow(plot, row).line;
        if (IsReadable(line)) {
            whole = WholeAttitude(plot.rows, RowAngles::Secondary, row);
            measured = line;
        }
    }
};

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

ParsedRow OverlayRowOf(std::int32_t row, const Attitude& whole, const PlotRecord& record) {
    ParsedRow parsed;
    if (!IsKnown(whole)) {
        return parsed;
    }
    parsed.status = LineStatus::Row;
    parsed.dip = whole.dip;
    parsed.az = whole.azimuth;
    CopyAppended(row, record, parsed);
    return parsed;
}

[[nodiscard]] bool StoreOverlayRow(Plot& plot, std::int32_t row, const RowTarget& target) {
    const SecondaryOfRow secondary(plot, row);
    MeasuredValues measured;
    measured[static_cast<std::size_t>(RowAngles::Primary)] = secondary.measured;
    measured[static_cast<std::size_t>(RowAngles::Line)] =
        DecimalsOf(plot.rows, RowAngles::Line, row);
    return StoreMeasuredRow(plot, OverlayRowOf(row, secondary.whole, plot.record), measured,
                            target);
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
    for (std::int32_t row = 1; row <= record.NumData; ++row) {
        if (!StoreOverlayRow(plot, row, target)) {
            return false;
        }
    }
    return true;
}

void RewriteSecondaryOverlay(int overlay) {
    Plot& plot = ActivePlot();
    const PlotRecord& record = plot.record;
    const std::int32_t first = FirstRowOfOverlay(record, overlay);
    const std::int32_t rows = record.OverlayRows[static_cast<std::size_t>(overlay)];
    for (std::int32_t i = 0; i < rows; ++i) {
        const std::int32_t row = first + i;
        const SecondaryOfRow line(plot, i + 1);
        SetMeasuredOrientation(plot, row, line.whole, line.measured);
        StoreRowPosition(gActivePlot, static_cast<std::size_t>(row) - 1, row,
                         OrientationShown(plot, row), IsPlottedAsPole(record, overlay));
    }
}

} // namespace quandrel
