// SPDX-License-Identifier: MIT

#include "edit/rows/edit_rows.h"

#include "core/messages.h"
#include "core/plot_store.h"
#include "core/row_links.h"
#include "edit/history/edit_step.h"
#include "edit/history/undo.h"
#include "edit/rows/remove_rows.h"
#include "edit/rows/row_change.h"
#include "edit/selection/marquee.h"
#include "edit/selection/selected_intersections.h"
#include "input/plot_files.h"
#include "orientation/angles.h"
#include "platform/platform.h"
#include "stereo/row_positions.h"
#include "stereo/row_sense.h"

#include <algorithm>
#include <new>

namespace quandrel {

namespace {

bool CanEdit() {
    return !gBusy && IsOpenSlot(gActivePlot);
}

SymbolRow StyleOfCode(SymbolCode code) {
    return {static_cast<std::int16_t>(CodeColour(code)),
            static_cast<std::int16_t>(CodeSymbol(code)), static_cast<std::int16_t>(CodeSize(code))};
}

bool PointsUp(std::int32_t row) {
    return IsStyledUpward(ActivePlot(), row);
}

bool IsValid(std::int32_t row) {
    return OrientationShown(gActivePlot, row).dip != kErrorRow;
}

/// The plot of the rows to copy: that of the selection; for points it may be another plot.
int SlotToCopy(CopiedFields fields) {
    if (!SelectedRowsOf(gActivePlot).empty() || fields == CopiedFields::All) {
        return gActivePlot;
    }
    return IsOpenSlot(Selection::now.slot) ? Selection::now.slot : gActivePlot;
}

/// Copies the selected intersections of a plot. False when there are none.
[[nodiscard]] bool CopyIntersections(int slot) {
    const SelectedIntersections& selected = IntersectionsSelectedIn(slot);
    if (selected.tooMany) {
        Tell("There are " + std::to_string(selected.pairs)
             + " intersections between these planes: too many to copy.");
        return false;
    }
    if (selected.lines.empty()) {
        return false;
    }
    gPlatform.clipboard->SetText(TextOfIntersections(slot, selected.lines));
    return true;
}

/// True when the top overlay can be removed, as it does not hold the secondary data.
bool HasOverlayToRemove(const PlotRecord& record) {
    return record.OverlayRows[kOverlayCount] >= 1
           && record.OverlayRows[kOverlayCount] != record.SelectedOverlay;
}

} // namespace

void RemoveSelectedRows(EditKind kind) {
    const std::vector<std::int32_t> rows = RowsToRemove(gActivePlot, SelectedRowsOf(gActivePlot));
    if (rows.empty()) {
        return;
    }
    EditStep step(kind, Before<RowChange>);
    PlotRecord& record = ActiveRecord();
    if (record.MapInfoLinked != 0) {
        FollowerOfRows().leave(gActivePlot, rows);
    }
    const std::int16_t secondaryOverlay = record.SelectedOverlay;
    RemoveRows(gActivePlot, rows);
    // An overlay that no longer matches the main rows row by row becomes an ordinary one.
    if (secondaryOverlay > 0 && record.SelectedOverlay > 0
        && record.OverlayRows[static_cast<std::size_t>(record.SelectedOverlay)] != record.NumData) {
        record.SelectedOverlay = 0;
    }
    ClearSelectionOf(gActivePlot);
    step.Finish(Redraw::Rows);
}

bool CopyRows(CopiedFields fields) {
    if (!CanEdit()) {
        return false;
    }
    const int slot = SlotToCopy(fields);
    const std::span<const std::int32_t> rows = SelectedRowsOf(slot);
    // Over intersections, rows of overlays are drawn as elsewhere.
    if (ShowsIntersections(slot) && (rows.empty() || rows.front() <= RecordOf(slot).NumData)) {
        return CopyIntersections(slot);
    }
    if (rows.empty()) {
        return false;
    }
    gPlatform.clipboard->SetText(TextOfRows(slot, rows, fields));
    return true;
}

std::vector<std::int32_t> RowsToRemove(int slot, std::span<const std::int32_t> rows) {
    const PlotRecord& record = RecordOf(slot);
    std::vector<std::int32_t> removed;
    const auto secondary =
        static_cast<std::size_t>(std::max<std::int16_t>(record.SelectedOverlay, 0));
    const bool hasPartners = secondary > 0 && record.OverlayRows[secondary] == record.NumData;
    const std::int32_t partners =
        hasPartners ? FirstRowOfOverlay(record, static_cast<int>(secondary)) : 0;
    for (const std::int32_t row : rows) {
        if (row < 1 || row > record.NumLoadedData) {
            continue;
        }
        removed.push_back(row);
        if (hasPartners && row <= record.NumData) {
            removed.push_back(partners + row - 1);
        }
    }
    std::sort(removed.begin(), removed.end());
    removed.erase(std::unique(removed.begin(), removed.end()), removed.end());
    return removed;
}

std::vector<std::int32_t> RowsToRestyle() {
    const std::span<const std::int32_t> selected = SelectedRowsOf(gActivePlot);
    std::vector<std::int32_t> rows(selected.begin(), selected.end());
    const PlotRecord& record = ActiveRecord();
    if (rows.empty() && record.OverlayRows[kOverlayCount] >= 1) {
        for (std::int32_t row = FirstRowOfOverlay(record, record.OverlayRows[kOverlayCount]);
             row <= record.NumLoadedData; ++row) {
            rows.push_back(row);
        }
    }
    std::erase_if(rows, [](std::int32_t row) { return !IsValid(row); });
    return rows;
}

std::optional<RowStyles> StylesOfSelection() {
    if (!CanEdit() || RefusesBetaPlot()) {
        return std::nullopt;
    }
    const std::vector<std::int32_t> rows = RowsToRestyle();
    if (rows.empty()) {
        return std::nullopt;
    }
    const auto up = std::find_if(rows.begin(), rows.end(), PointsUp);
    const auto down = std::find_if_not(rows.begin(), rows.end(), PointsUp);
    const auto styleOf = [&](auto place, auto other) {
        return StyleOfCode(gDataSymbolBase(gActivePlot, place != rows.end() ? *place : *other));
    };
    return RowStyles{styleOf(down, up), styleOf(up, down)};
}

void ChangeSymbols(const RowStyles& styles) {
    if (!CanEdit() || RefusesBetaPlot()) {
        return;
    }
    const std::vector<std::int32_t> rows = RowsToRestyle();
    if (rows.empty()) {
        return;
    }
    EditStep step(kSymbolEdit, Before<RowChange>);
    for (const std::int32_t row : rows) {
        const SymbolRow& style = PointsUp(row) ? styles.up : styles.down;
        const SymbolCode code =
            MakeSymbolCode(style[kPlaceColour], style[kPlaceSymbol], style[kPlaceSize]);
        SymbolCode& base = gDataSymbolBase.At(gActivePlot, row);
        SymbolCode& drawn = gDataSymbol.At(gActivePlot, row);
        // A row that shows the colour of its class keeps it.
        drawn = drawn == base ? code : drawn;
        base = code;
    }
    step.Finish(Redraw::Plot);
}

void RemoveOverlay() {
    if (!CanEdit() || !HasOverlayToRemove(ActiveRecord())) {
        return;
    }
    EditStep step(kOverlayRemoval, Before<RowChange>);
    ClearSelectionOf(gActivePlot);
    RemoveLastOverlay(gActivePlot);
    step.Finish(Redraw::Plot);
}

} // namespace quandrel
