// SPDX-License-Identifier: MIT
//
// The owner of the rows of a plot: it appends, changes and removes them, with their lines of the
// row table, and keeps the counts of the record: NumData, NumValidData, NumLoadedData, OverlayRows
// and OverlayKind. Nobody else writes these, but a reader of files, which sets a whole record
// before its rows.
//
// Rows run from 1: the main rows, then those of the overlays in order. New rows go to the end, so
// that only the last overlay, or a plot without any, takes them.

#pragma once

#include "core/plot.h"
#include "core/row_block.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace quandrel {

/// The counts of the rows of a plot.
struct RowCounts {
    std::int32_t main = 0;                                    ///< main rows, error rows included
    std::int32_t valid = 0;                                   ///< main rows that are data
    std::int32_t all = 0;                                     ///< main and overlay rows
    std::array<std::int32_t, kMaxOverlays + 1> overlayRows{}; ///< [0] how many overlays
    std::array<std::int16_t, kMaxOverlays + 1> overlayKind{};
};

[[nodiscard]] RowCounts CountsOf(const PlotRecord& record);

/// Gives a record counts of former rows, which must be those of the cells.
void SetCounts(PlotRecord& record, const RowCounts& counts);

/// The overlay that a row of a plot belongs to, or 0 for a main row.
[[nodiscard]] int OverlayOfRow(const PlotRecord& record, std::int32_t row);

/// The first row of an overlay 1 to OverlayRows[kOverlayCount].
[[nodiscard]] std::int32_t FirstRowOfOverlay(const PlotRecord& record, int overlay);

/// Appends a row to a plot: its cells, its line of the table, its range of appended values, its
/// counts. The appended columns take it as far as the record has them.
///
/// @param overlay  the last overlay, or 0 for the main rows of a plot without overlays
/// @return false when memory ran out: then nothing has changed but DataFull, which is set
[[nodiscard]] bool AppendRow(Plot& plot, int overlay, const RowValues& values);

/// Appends the rows of a block, as AppendRow does one by one. Its columns must be those of the
/// plot.
///
/// @return how many were appended: less than the block has when memory ran out; DataFull is then
/// set
[[nodiscard]] std::int32_t AppendBlock(Plot& plot, int overlay, const RowBlock& block);

/// Takes memory for rows 1 to `last`, if it is there, for blocks to come.
void ReserveBlocks(Plot& plot, std::int32_t last, bool withSecondary);

/// Makes room for rows 1 to `last` at once, if the memory is there; rows that come one by one find
/// it otherwise.
void MakeRoomForRows(Plot& plot, std::int32_t last, bool withSecondary);

/// Gives a row an orientation in whole degrees. An error row becomes data, and its text goes. The
/// line of the table is for the caller to write.
void SetOrientation(Plot& plot, std::int32_t row, std::int32_t dip, std::int32_t azimuth);

/// Makes an error row of a row, and keeps a text with it unless that is empty. Its line of the
/// table is for the caller to write.
void SpoilRow(Plot& plot, std::int32_t row, std::string_view line = {});

/// Removes rows, and overlays of which none is left. The table is for the caller to make anew.
///
/// @param rows  point indices, ascending, none twice
void RemoveRows(Plot& plot, std::span<const std::int32_t> rows);

/// Removes the rows that were appended since the counts were `former`, and the overlays that were
/// opened. The range of appended values stays as it is.
void CutRows(Plot& plot, const RowCounts& former);

/// Removes all rows and overlays of a plot.
void ClearRows(Plot& plot);

/// Opens an overlay for rows to come. There must be less than kMaxOverlays.
///
/// @param kind  an OverlayKindCode
/// @return its number
int OpenOverlay(PlotRecord& record, std::int16_t kind);

/// Removes the last overlay of a plot with its rows. There must be one.
void RemoveOverlay(Plot& plot);

/// Changes the kind of an overlay, an OverlayKindCode.
void SetOverlayKind(PlotRecord& record, int overlay, std::int16_t kind);

/// Takes an overlay without rows out of the tables of a record; those above it move down.
void CloseOverlay(PlotRecord& record, int overlay);

/// Sets how many main rows count as data, where a datum takes more than one of them: the axes P and
/// T of one fault.
void SetCountOfValid(PlotRecord& record, std::int32_t valid);

} // namespace quandrel
