// SPDX-License-Identifier: MIT

#include "core/plot_rows.h"

#include "core/layer_edits.h"
#include "core/row_removal.h"
#include "orientation/angles.h"

#include <algorithm>
#include <new>
#include <utility>

namespace quandrel {

namespace {

/// Adds rows at the end of a plot to its counts.
void CountIn(PlotRecord& record, int overlay, std::int32_t rows, std::int32_t valid) {
    record.NumLoadedData += rows;
    if (overlay > 0) {
        record.OverlayRows[static_cast<std::size_t>(overlay)] += rows;
        return;
    }
    record.NumData += rows;
    record.NumValidData += valid;
}

void DropErrorLines(ErrorLines& lines, std::int32_t last) {
    std::erase_if(lines, [last](const auto& held) { return held.first > last; });
}

/// Discards stored texts after the counted rows. Cells after the last row may keep old values.
void DropUncounted(Plot& plot) {
    const std::int32_t last = plot.record.NumLoadedData;
    ResizeRowTable(plot.table, static_cast<std::size_t>(last));
    DropErrorLines(plot.rows.errorLines, last);
}

template <class T>
void CopyCells(const RowColumn<T>& from, std::int32_t count, RowColumn<T>& to, std::int32_t last) {
    const auto cells = from.Rows().subspan(1, static_cast<std::size_t>(count));
    std::copy(cells.begin(), cells.end(), to.Rows().begin() + last + 1);
}

void CopyBaseColumns(const RowBlock& block, PlotRows& rows, std::int32_t last) {
    const PlotRows& cells = block.Cells();
    const std::int32_t count = block.Count();
    CopyCells(cells.dip, count, rows.dip, last);
    CopyCells(cells.azimuth, count, rows.azimuth, last);
    CopyCells(cells.symbol, count, rows.symbol, last);
    CopyCells(cells.symbolBase, count, rows.symbolBase, last);
    CopyCells(cells.pointDensity, count, rows.pointDensity, last);
    for (std::int32_t row = last + 1; row <= last + count; ++row) {
        rows.order.At(row) = row;
    }
}

void CopyOtherColumns(const RowBlock& block, PlotRows& rows, std::int32_t last) {
    const PlotRows& cells = block.Cells();
    const std::int32_t count = block.Count();
    if (block.Columns().secondary) {
        CopyCells(cells.dip2, count, rows.dip2, last);
        CopyCells(cells.azimuth2, count, rows.azimuth2, last);
    }
    if (block.Columns().line) {
        CopyCells(cells.lineDip, count, rows.lineDip, last);
        CopyCells(cells.lineAzimuth, count, rows.lineAzimuth, last);
    }
    if (block.Columns().number) {
        CopyCells(cells.number, count, rows.number, last);
    }
    if (block.Columns().text) {
        rows.text.TakeRows(cells.text, count, last);
    }
}

/// Copies measured angles to rows that have room for them.
void CopyMeasured(const MeasuredColumns& from, std::int32_t count, MeasuredColumns& to,
                  std::int32_t last) {
    CopyCells(from.dip, count, to.dip, last);
    CopyCells(from.dipOffset, count, to.dipOffset, last);
    CopyCells(from.azimuth, count, to.azimuth, last);
    CopyCells(from.azimuthOffset, count, to.azimuthOffset, last);
}

/// Stores the measured angles of a block, and clears those of former rows that are in their place.
void StoreMeasured(const RowBlock& block, PlotRows& rows, std::int32_t last) {
    for (const RowAngles which : kRowAngles) {
        if (block.HasMeasured(which)) {
            CopyMeasured(MeasuredOf(block.Cells(), which), block.Count(), MeasuredOf(rows, which),
                         last);
            continue;
        }
        const std::int32_t end =
            std::min(last + block.Count() + 1, MeasuredOf(rows, which).RowCount());
        for (std::int32_t row = last + 1; row < end; ++row) {
            ClearDecimals(rows, which, row);
        }
    }
}

/// The same for the places of a block.
void StoreMapPlaces(const RowBlock& block, PlotRows& rows, std::int32_t last) {
    const MapColumns& from = block.Cells().mapPlaces;
    MapColumns& to = rows.mapPlaces;
    const std::int32_t count = block.Count();
    if (block.HasMapPlaces()) {
        CopyCells(from.xHigh, count, to.xHigh, last);
        CopyCells(from.xLow, count, to.xLow, last);
        CopyCells(from.yHigh, count, to.yHigh, last);
        CopyCells(from.yLow, count, to.yLow, last);
        return;
    }
    for (std::int32_t row = last + 1; row < std::min(last + count + 1, to.RowCount()); ++row) {
        to.Clear(row);
    }
}

/// Makes room for the measured angles and the places of a block.
[[nodiscard]] bool MakeRoomForMoreOf(const RowBlock& block, PlotRows& rows, std::int32_t last) {
    return std::ranges::all_of(kRowAngles,
                               [&](RowAngles which) {
                                   return !block.HasMeasured(which)
                                          || MakeRoomForMeasured(rows, which, last);
                               })
           && (!block.HasMapPlaces() || MakeRoomForMapPlaces(rows, last));
}

/// The same for a row.
[[nodiscard]] bool MakeRoomForMoreOf(const RowValues& values, PlotRows& rows, std::int32_t row) {
    return std::ranges::all_of(kRowAngles,
                               [&](RowAngles which) {
                                   return !values.measured[static_cast<std::size_t>(which)]
                                          || MakeRoomForMeasured(rows, which, row);
                               })
           && (!values.mapPlace || MakeRoomForMapPlaces(rows, row));
}

/// Stores a block after the counted rows. False when memory ran out.
[[nodiscard]] bool StoreBlock(Plot& plot, const RowBlock& block) {
    const std::int32_t last = plot.record.NumLoadedData;
    if (!MakeRoom(plot.rows, last + block.Count(), block.Columns(), RoomAhead::None)
        || !MakeRoomForMoreOf(block, plot.rows, last + block.Count())) {
        return false;
    }
    CopyBaseColumns(block, plot.rows, last);
    CopyOtherColumns(block, plot.rows, last);
    StoreMeasured(block, plot.rows, last);
    StoreMapPlaces(block, plot.rows, last);
    for (const auto& [row, line] : block.Cells().errorLines) {
        plot.rows.errorLines[last + row] = line;
    }
    AppendRows(plot.table, block.Places(), last);
    return true;
}

bool IsMainData(const Plot& plot, std::int32_t row) {
    return row <= plot.record.NumData && plot.rows.dip(row) != kErrorRow;
}

/// Removes from the counts a row that has changed from data to an error row.
void CountOutValid(PlotRecord& record) {
    record.NumValidData = std::max(record.NumValidData - 1, 0);
}

/// Removes rows from the counts. The columns must still hold them.
void CountOut(Plot& plot, std::span<const std::int32_t> rows) {
    PlotRecord& record = plot.record;
    std::array<std::int32_t, kMaxOverlays + 1> ofOverlay{};
    for (const std::int32_t row : rows) {
        ++ofOverlay[static_cast<std::size_t>(OverlayOfRow(record, row))];
        if (IsMainData(plot, row)) {
            CountOutValid(record);
        }
    }
    record.NumData -= ofOverlay[0];
    record.NumLoadedData -= static_cast<std::int32_t>(rows.size());
    for (int overlay = record.OverlayRows[kOverlayCount]; overlay > 0; --overlay) {
        const auto k = static_cast<std::size_t>(overlay);
        record.OverlayRows[k] -= ofOverlay[k];
        if (ofOverlay[k] > 0 && record.OverlayRows[k] == 0) {
            CloseOverlay(record, overlay);
        }
    }
}

/// Appends the rows of a block as far as memory allows.
std::int32_t AppendOneByOne(Plot& plot, int overlay, const RowBlock& block) {
    std::int32_t done = 0;
    while (done < block.Count() && AppendRow(plot, overlay, block.Row(done + 1))) {
        ++done;
    }
    return done;
}

} // namespace

RowCounts CountsOf(const PlotRecord& record) {
    return {record.NumData, record.NumValidData, record.NumLoadedData, record.OverlayRows,
            record.OverlayKind};
}

void SetCounts(PlotRecord& record, const RowCounts& counts) {
    record.NumData = counts.main;
    record.NumValidData = counts.valid;
    record.NumLoadedData = counts.all;
    for (std::int32_t overlay = record.OverlayRows[kOverlayCount];
         overlay > counts.overlayRows[kOverlayCount]; --overlay) {
        TakeOverlayOut(record.Layers, overlay);
    }
    record.OverlayRows = counts.overlayRows;
    record.OverlayKind = counts.overlayKind;
}

int OverlayOfRow(const PlotRecord& record, std::int32_t row) {
    if (row <= record.NumData) {
        return 0;
    }
    std::int32_t end = record.NumData;
    for (int overlay = 1; overlay <= record.OverlayRows[kOverlayCount]; ++overlay) {
        end += record.OverlayRows[static_cast<std::size_t>(overlay)];
        if (row <= end) {
            return overlay;
        }
    }
    return record.OverlayRows[kOverlayCount];
}

std::int32_t FirstRowOfOverlay(const PlotRecord& record, int overlay) {
    std::int32_t first = record.NumData + 1;
    for (int k = 1; k < overlay; ++k) {
        first += record.OverlayRows[static_cast<std::size_t>(k)];
    }
    return first;
}

bool AppendRow(Plot& plot, int overlay, const RowValues& values) {
    const std::int32_t row = plot.record.NumLoadedData + 1;
    const ColumnSet columns = ColumnsOf(plot.record, values.hasSecondary);
    try {
        if (!MakeRoom(plot.rows, row, columns) || !MakeRoomForMoreOf(values, plot.rows, row)) {
            plot.record.DataFull = kTrue;
            return false;
        }
        StoreCells(plot.rows, row, values, columns);
        PlottedRow place = values.place;
        place.index = row;
        AppendRow(plot.table, place);
        if (values.isInRange) {
            TrackAppendedRange(plot, row);
        }
    } catch (const std::bad_alloc&) {
        plot.record.DataFull = kTrue;
        DropUncounted(plot);
        return false;
    }
    CountIn(plot.record, overlay, 1, values.isData ? 1 : 0);
    return true;
}

std::int32_t AppendBlock(Plot& plot, int overlay, const RowBlock& block) {
    if (block.Count() == 0) {
        return 0;
    }
    bool isStored = false;
    try {
        isStored = StoreBlock(plot, block);
        if (isStored) {
            MergeAppendedRange(plot.record, block.Range());
        }
    } catch (const std::bad_alloc&) {
        isStored = false;
    }
    if (!isStored) {
        DropUncounted(plot);
        return AppendOneByOne(plot, overlay, block);
    }
    CountIn(plot.record, overlay, block.Count(), block.CountOfValid());
    return block.Count();
}

void ReserveBlocks(Plot& plot, std::int32_t last, bool withSecondary) {
    ReserveRoom(plot.rows, last, ColumnsOf(plot.record, withSecondary));
    ReserveRows(plot.table, static_cast<std::size_t>(last));
}

void MakeRoomForRows(Plot& plot, std::int32_t last, bool withSecondary) {
    // A failure is ignored here: it is reported when a row finds no room.
    (void)MakeRoom(plot.rows, last, ColumnsOf(plot.record, withSecondary), RoomAhead::None);
    ReserveRows(plot.table, static_cast<std::size_t>(last));
}

void SetOrientation(Plot& plot, std::int32_t row, std::int32_t dip, std::int32_t azimuth) {
    const bool wasError = plot.rows.dip(row) == kErrorRow;
    const bool isError = dip == kErrorRow;
    SetWholeAttitude(plot.rows, RowAngles::Primary, row, {dip, azimuth});
    if (wasError && !isError) {
        plot.rows.errorLines.erase(row);
    }
    if (row > plot.record.NumData || wasError == isError) {
        return;
    }
    if (isError) {
        CountOutValid(plot.record);
    } else {
        ++plot.record.NumValidData;
    }
}

void SetMeasuredOrientation(Plot& plot, std::int32_t row, const Attitude& whole,
                            const Attitude& measured) {
    SetOrientation(plot, row, WholeDegree(whole.dip), WholeDegree(whole.azimuth));
    if (!SetDecimals(plot.rows, RowAngles::Primary, row, measured)) {
        plot.record.DataFull = kTrue;
    }
}

void SetMapPlace(Plot& plot, std::int32_t row, const std::optional<MapPlace>& place) {
    if (!place) {
        plot.rows.mapPlaces.Clear(row);
    } else if (MakeRoomForMapPlaces(plot.rows, row)) {
        plot.rows.mapPlaces.Set(row, *place);
    } else {
        plot.record.DataFull = kTrue;
    }
}

bool HasMapPlaces(const Plot& plot) {
    const std::int32_t end =
        std::min(plot.record.NumLoadedData + 1, plot.rows.mapPlaces.RowCount());
    for (std::int32_t row = 1; row < end; ++row) {
        if (plot.rows.mapPlaces.Has(row)) {
            return true;
        }
    }
    return false;
}

void SpoilRow(Plot& plot, std::int32_t row, std::string_view line) {
    if (IsMainData(plot, row)) {
        CountOutValid(plot.record);
    }
    StoreErrorCells(plot.rows, row, line);
}

void RemoveRows(Plot& plot, std::span<const std::int32_t> rows) {
    const std::int32_t count = plot.record.NumLoadedData;
    CountOut(plot, rows);
    RemoveCells(plot.rows, count, rows);
}

void CutRows(Plot& plot, const RowCounts& former) {
    SetCounts(plot.record, former);
    DropUncounted(plot);
}

void ClearRows(Plot& plot) {
    CutRows(plot, {});
}

int OpenOverlay(PlotRecord& record, std::int16_t kind) {
    const auto overlay = static_cast<std::size_t>(++record.OverlayRows[kOverlayCount]);
    record.OverlayRows[overlay] = 0;
    record.OverlayKind[overlay] = kind;
    record.OverlayFiles[overlay].clear();
    TakeOverlayIn(record.Layers, static_cast<int>(overlay));
    return static_cast<int>(overlay);
}

void RemoveOverlay(Plot& plot) {
    std::int32_t& rows =
        plot.record.OverlayRows[static_cast<std::size_t>(plot.record.OverlayRows[kOverlayCount])];
    plot.record.NumLoadedData -= std::exchange(rows, 0);
    CloseOverlay(plot.record, plot.record.OverlayRows[kOverlayCount]);
    DropUncounted(plot);
}

void SetOverlayKind(PlotRecord& record, int overlay, std::int16_t kind) {
    record.OverlayKind[static_cast<std::size_t>(overlay)] = kind;
}

void CloseOverlay(PlotRecord& record, int overlay) {
    const auto last = static_cast<std::size_t>(record.OverlayRows[kOverlayCount]);
    for (auto k = static_cast<std::size_t>(overlay); k < last; ++k) {
        record.OverlayRows[k] = record.OverlayRows[k + 1];
        record.OverlayKind[k] = record.OverlayKind[k + 1];
        record.OverlayFiles[k] = std::move(record.OverlayFiles[k + 1]);
    }
    record.OverlayRows[last] = 0;
    record.OverlayKind[last] = 0;
    record.OverlayFiles[last].clear();
    --record.OverlayRows[kOverlayCount];
    TakeOverlayOut(record.Layers, overlay);
    if (record.SelectedOverlay == overlay) {
        record.SelectedOverlay = 0;
    } else if (record.SelectedOverlay > overlay) {
        --record.SelectedOverlay;
    }
}

void SetCountOfValid(PlotRecord& record, std::int32_t valid) {
    record.NumValidData = valid;
}

} // namespace quandrel
