// SPDX-License-Identifier: MIT
//
// The owner of a plot's rows. It appends, changes and removes them together with their lines in the
// row table, and updates the counts of the record: NumData, NumValidData, NumLoadedData,
// OverlayRows and OverlayKind. Nobody else writes these counts, except a reader of files, which
// sets the whole record before its rows.
//
// Rows run from 1: the main rows, then those of the overlays in order. New rows go to the end. Only
// the last overlay, or the main rows of a plot without overlays, can take them.

#pragma once

#include "core/plot.h"
#include "core/row_block.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace quandrel {

/// The counts of the rows of a plot.
struct RowCounts {
    std::int32_t main = 0;                                    ///< main rows, error rows included
    std::int32_t valid = 0;                                   ///< main rows that are data
    std::int32_t all = 0;                                     ///< main and overlay rows
    std::array<std::int32_t, kMaxOverlays + 1> overlayRows{}; ///< [0] number of overlays
    std::array<std::int16_t, kMaxOverlays + 1> overlayKind{};
};

[[nodiscard]] RowCounts CountsOf(const PlotRecord& record);

/// Restores earlier counts of a record. They must match the cells.
void SetCounts(PlotRecord& record, const RowCounts& counts);

/// The overlay that a row of a plot belongs to, or 0 for a main row.
[[nodiscard]] int OverlayOfRow(const PlotRecord& record, std::int32_t row);

/// The first row of an overlay 1 to OverlayRows[kOverlayCount].
[[nodiscard]] std::int32_t FirstRowOfOverlay(const PlotRecord& record, int overlay);

/// Appends a row to a plot: its cells, its line of the table, its range of appended values, and its
/// counts. Only the appended columns that the record has are filled.
///
/// @param overlay  the last overlay, or 0 for the main rows of a plot without overlays
/// @return false when memory ran out: then nothing has changed except DataFull, which is set
[[nodiscard]] bool AppendRow(Plot& plot, int overlay, const RowValues& values);

/// Appends the rows of a block, as AppendRow does one by one. Its columns must be those of the
/// plot.
///
/// @return how many rows were appended: fewer than the block has when memory ran out; DataFull is
///         then set
[[nodiscard]] std::int32_t AppendBlock(Plot& plot, int overlay, const RowBlock& block);

/// Reserves memory for rows 1 to `last` of later blocks, if it is available.
void ReserveBlocks(Plot& plot, std::int32_t last, bool withSecondary);

/// Makes room for rows 1 to `last` at once, if the memory is available. Else rows do so one by one.
void MakeRoomForRows(Plot& plot, std::int32_t last, bool withSecondary);

/// Gives a row an orientation in whole degrees, without decimals. An error row becomes data and
/// loses its text. The caller updates the line of the table.
void SetOrientation(Plot& plot, std::int32_t row, std::int32_t dip, std::int32_t azimuth);

/// As SetOrientation, for a row with decimals. When memory runs out, the row keeps the whole
/// degrees alone, and DataFull is set.
///
/// @param whole     `measured` in whole degrees, as the rule of its maker rounds it
/// @param measured  stored only where it differs from `whole`
void SetMeasuredOrientation(Plot& plot, std::int32_t row, const Attitude& whole,
                            const Attitude& measured);

/// Gives a row a place on the map, or none. When memory runs out, the row keeps what it had, and
/// DataFull is set.
void SetMapPlace(Plot& plot, std::int32_t row, const std::optional<MapPlace>& place);

/// Whether any row of a plot has a place on the map. O(rows), O(1) where none ever had one.
[[nodiscard]] bool HasMapPlaces(const Plot& plot);

/// Turns a row into an error row, and keeps a text with it unless the text is empty. The caller
/// updates the line of the table.
void SpoilRow(Plot& plot, std::int32_t row, std::string_view line = {});

/// Removes rows, and overlays that become empty. The caller rebuilds the table.
///
/// @param rows  point indices, ascending, without repeats
void RemoveRows(Plot& plot, std::span<const std::int32_t> rows);

/// Removes the rows and overlays that were added since the counts were `former`. The range of
/// appended values is not reduced.
void CutRows(Plot& plot, const RowCounts& former);

/// Removes all rows and overlays of a plot.
void ClearRows(Plot& plot);

/// Opens an overlay for rows to come. There must be fewer than kMaxOverlays. A plot with layers of
/// its own gets one that shows it.
///
/// @param kind  an OverlayKindCode
/// @return its number
int OpenOverlay(PlotRecord& record, std::int16_t kind);

/// Removes the last overlay of a plot with its rows. There must be one.
void RemoveOverlay(Plot& plot);

/// Changes the kind of an overlay, an OverlayKindCode.
void SetOverlayKind(PlotRecord& record, int overlay, std::int16_t kind);

/// Removes an empty overlay from the tables and the layers of a record; those above it move down.
void CloseOverlay(PlotRecord& record, int overlay);

/// Sets how many main rows count as data where a datum has several rows, as P and T of one fault.
void SetCountOfValid(PlotRecord& record, std::int32_t valid);

} // namespace quandrel
