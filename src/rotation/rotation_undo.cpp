// SPDX-License-Identifier: MIT

#include "rotation/rotation_undo.h"

#include "core/fingerprint.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "rotation/rotate_data.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <array>
#include <bit>
#include <optional>
#include <span>
#include <utility>

namespace quandrel {

namespace {

std::array<const DataColumn<std::int32_t>*, 6> OrientationColumns() {
    return {&gDataDip, &gDataAz, &gData2Dip, &gData2Az, &gAppLineDip, &gAppLineAz};
}

/// The cells of rows 0 to the last row in use; fewer where a column is shorter.
std::span<const std::int32_t> CellsInUse(const DataColumn<std::int32_t>& column, int slot) {
    const std::span<const std::int32_t> cells = column.Rows(slot);
    const auto inUse = static_cast<std::size_t>(RecordOf(slot).NumLoadedData) + 1;
    return cells.first(std::min(cells.size(), inUse));
}

void AddDecimals(const Plot& plot, RowAngles which, Fingerprint& mix) {
    const MeasuredColumns& measured = MeasuredOf(plot.rows, which);
    const std::int32_t end = std::min(measured.RowCount(), plot.record.NumLoadedData + 1);
    for (std::int32_t row = 1; row < end; ++row) {
        if (measured.Has(row)) {
            const Attitude at = measured.At(row);
            mix.AddWhole(row);
            mix.Add(std::bit_cast<std::uint64_t>(at.dip));
            mix.Add(std::bit_cast<std::uint64_t>(at.azimuth));
        }
    }
}

/// A 64-bit hash of the columns that a rotation changes.
std::uint64_t FingerprintOf(int slot) {
    Fingerprint mix;
    for (const DataColumn<std::int32_t>* column : OrientationColumns()) {
        mix.AddCells(CellsInUse(*column, slot));
    }
    for (const RowAngles which : kRowAngles) {
        AddDecimals(PlotOf(slot), which, mix);
    }
    return mix.Value();
}

void WriteBack(const std::vector<std::int32_t>& cells, const DataColumn<std::int32_t>& column,
               int slot) {
    for (std::size_t row = 1; row < cells.size(); ++row) {
        column.At(slot, static_cast<std::int32_t>(row)) = cells[row];
    }
}

/// Restores a row's previous style, unless its style has changed since.
void WriteBack(const SymbolChange& change, int slot) {
    SymbolCode& drawn = gDataSymbol.At(slot, change.row);
    SymbolCode& base = gDataSymbolBase.At(slot, change.row);
    drawn = drawn == change.drawn ? change.formerDrawn : drawn;
    base = base == change.base ? change.formerBase : base;
}

} // namespace

RotationMemory RememberRows(int slot) {
    RotationMemory memory;
    memory.slot = slot;
    memory.rotationState = RecordOf(slot).RotationState;
    memory.modified = RecordOf(slot).Modified;
    for (const DataColumn<std::int32_t>* column : OrientationColumns()) {
        const auto cells = CellsInUse(*column, slot);
        memory.orientations.emplace_back(cells.begin(), cells.end());
    }
    for (const RowAngles which : kRowAngles) {
        memory.measured[static_cast<std::size_t>(which)] = MeasuredOf(PlotOf(slot).rows, which);
    }
    return memory;
}

void KeepForUndo(RotationMemory memory) {
    memory.fingerprint = FingerprintOf(memory.slot);
    OfferRotation(std::move(memory));
}

std::optional<RotationMemory> TakeRotation(int slot) {
    if (!IsOpenSlot(slot)) {
        return std::nullopt;
    }
    PlotAttachments& attachments = PlotOf(slot).attachments;
    RotationMemory* const kept = attachments.Find<RotationMemory>();
    std::optional<RotationMemory> memory;
    if (kept != nullptr) {
        memory = std::move(*kept);
        attachments.Drop<RotationMemory>();
    }
    return memory;
}

void OfferRotation(RotationMemory memory) {
    ForgetRotation();
    PlotAttachments& attachments = PlotOf(memory.slot).attachments;
    attachments.Of<RotationMemory>() = std::move(memory);
}

bool CanUndoRotation() {
    const int slot = gActivePlot;
    const RotationMemory* const kept =
        IsOpenSlot(slot) ? PlotOf(slot).attachments.Find<RotationMemory>() : nullptr;
    return kept != nullptr && kept->fingerprint == FingerprintOf(slot);
}

bool UndoRotation() {
    if (gBusy || !CanUndoRotation()) {
        return false;
    }
    RotationMemory memory = *TakeRotation(gActivePlot);
    PlotRecord& record = ActiveRecord();
    const auto columns = OrientationColumns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        WriteBack(memory.orientations[i], *columns[i], memory.slot);
    }
    for (const RowAngles which : kRowAngles) {
        MeasuredOf(ActivePlot().rows, which) =
            std::move(memory.measured[static_cast<std::size_t>(which)]);
    }
    for (const SymbolChange& change : memory.symbols) {
        WriteBack(change, memory.slot);
    }
    record.RotationState = memory.rotationState;
    // Rows that were saved since differ from their file again, and other changes remain.
    record.Modified = record.Modified == kModifiedByRotation ? memory.modified : kTrue;
    RebuildRowTable(memory.slot);
    ReplotActivePlot(true);
    return true;
}

void ForgetRotation() {
    if (const int slot = SlotWith<RotationMemory>(); slot != 0) {
        PlotOf(slot).attachments.Drop<RotationMemory>();
    }
}

} // namespace quandrel
