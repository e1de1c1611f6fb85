// SPDX-License-Identifier: MIT

#include "edit/rows/remove_rows.h"

#include "core/plot_store.h"
#include "derive/derived_plots.h"
#include "orientation/angles.h"
#include "stereo/row_positions.h"

namespace quandrel {

void RemoveRows(int slot, std::span<const std::int32_t> rows) {
    if (rows.empty()) {
        return;
    }
    const PlotInWork work(slot);
    PlotRecord& record = RecordOf(slot);
    // Axes no longer match their parent's faults after some have been removed.
    TakeAxesAsLines(record);
    RemoveRows(PlotOf(slot), rows);
    record.DataFull = 0;
    record.Modified = kTrue;
    record.ClassifyCheckPending = kTrue;
    RecountAppendedRange();
    RebuildRowTable(slot);
}

void RecountAppendedRange() {
    ResetAppendedRange();
    const PlotRecord& record = ActiveRecord();
    if (record.HasAppendedNumeric == 0 && record.HasAppendedText == 0) {
        return;
    }
    for (std::int32_t row = 1; row <= record.NumLoadedData; ++row) {
        if (gDataDip(gActivePlot, row) != kErrorRow) {
            TrackAppendedRange(row);
        }
    }
}

} // namespace quandrel
