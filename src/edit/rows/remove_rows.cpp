// SPDX-License-Identifier: MIT

#include "edit/rows/remove_rows.h"

#include "core/plot_store.h"
#include "derive/derived_plots.h"
#include "edit/rows/row_gaps.h"
#include "orientation/angles.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <array>

namespace quandrel {

namespace {

/// Takes an overlay without rows out of the tables of a record.
void CloseUpOverlay(PlotRecord& record, std::size_t overlay) {
    const auto last = static_cast<std::size_t>(record.OverlayRows[0]);
    for (std::size_t k = overlay; k < last; ++k) {
        record.OverlayRows[k] = record.OverlayRows[k + 1];
        record.OverlayKind[k] = record.OverlayKind[k + 1];
        record.OverlayFiles[k] = std::move(record.OverlayFiles[k + 1]);
    }
    record.OverlayRows[last] = 0;
    record.OverlayKind[last] = 0;
    record.OverlayFiles[last].clear();
    --record.OverlayRows[0];
    if (record.SelectedOverlay == static_cast<std::int16_t>(overlay)) {
        record.SelectedOverlay = 0;
    } else if (record.SelectedOverlay > static_cast<std::int16_t>(overlay)) {
        --record.SelectedOverlay;
    }
}

/// Takes rows out of the counts of a plot. The columns must still hold them.
void CountRowsOut(int slot, std::span<const std::int32_t> rows) {
    PlotRecord& record = RecordOf(slot);
    std::array<std::int32_t, kMaxOverlays + 1> ofOverlay{};
    for (const std::int32_t row : rows) {
        const auto overlay = static_cast<std::size_t>(OverlayOfRow(record, row));
        ++ofOverlay[overlay];
        if (overlay == 0 && gDataDip(slot, row) != kErrorRow) {
            record.NumValidData = std::max(record.NumValidData - 1, 0);
        }
    }
    record.NumData -= ofOverlay[0];
    record.NumLoadedData -= static_cast<std::int32_t>(rows.size());
    for (auto overlay = static_cast<std::size_t>(record.OverlayRows[0]); overlay > 0; --overlay) {
        record.OverlayRows[overlay] -= ofOverlay[overlay];
        if (ofOverlay[overlay] > 0 && record.OverlayRows[overlay] == 0) {
            CloseUpOverlay(record, overlay);
        }
    }
}

} // namespace

void RemoveRows(int slot, std::span<const std::int32_t> rows) {
    if (rows.empty()) {
        return;
    }
    const PlotInWork work(slot);
    PlotRecord& record = RecordOf(slot);
    // Axes of which some are gone are no longer those of their parent's faults.
    TakeAxesAsLines(record);
    const std::int32_t count = record.NumLoadedData;
    CountRowsOut(slot, rows);
    CloseGaps(slot, rows, count);
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
