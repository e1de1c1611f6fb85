// SPDX-License-Identifier: MIT
//
// The rows of a plot as a value: a copy of their cells, texts and error lines, with the related
// fields of the record. Made before an edit, to find out what it has changed (row_change.h).

#pragma once

#include "core/plot_store.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace quandrel {

/// The fields of a record that concern its rows.
struct RowSettings {
    RowCounts counts;
    std::int16_t primaryFormat = 0;
    std::int16_t secondaryFormat = 0;
    std::int16_t showSecondary = 0;
    std::int16_t dataKind = 0;
    std::int16_t plotKind = 0;
    std::int16_t selectedOverlay = 0;
    std::int16_t hasAppendedLine = 0;
    std::int16_t hasAppendedNumeric = 0;
    std::int16_t hasAppendedText = 0;
    std::int16_t dataFull = 0;
    std::int16_t mapInfoLinked = 0; ///< restored by the code that keeps the links
    std::int16_t classMode = 0;
    std::string numberName;
    std::string textName;
    std::string axesTitle;
    std::string plotTitle;
    std::vector<std::string> fileNames;
    std::array<std::vector<std::string>, kMaxOverlays + 1> overlayFiles;
    RecordRanges ranges;
    std::vector<FigureLayer> layers; ///< restored with overlays that are added or removed
};

[[nodiscard]] RowSettings SettingsOfRows(const PlotRecord& record);

/// Restores the fields of a record that concern its rows. The sets shown and the kind of drawing
/// belong to the display: they stay unless the formats change. Names given by a save since then
/// stay.
void TakeSettingsOfRows(PlotRecord& record, const RowSettings& settings);

/// Number of numeric columns, in the order of ForEachColumn.
inline constexpr std::size_t kRowColumns = 27;
inline constexpr std::size_t kDensityColumn = 9;
inline constexpr std::size_t kDrawnColumn = 10;
inline constexpr std::size_t kBaseColumn = 7;

/// True for a column that drawings recompute.
[[nodiscard]] constexpr bool IsWorkedOut(std::size_t column) {
    return column == kDensityColumn || column == kDrawnColumn;
}

/// Calls visit(column) for the four columns of measured angles of `Columns`.
template <auto Columns, class Visit>
void ForEachMeasuredColumn(const Visit& visit) {
    visit(DataColumn(&ColumnAt<Columns, &MeasuredColumns::dip>));
    visit(DataColumn(&ColumnAt<Columns, &MeasuredColumns::dipOffset>));
    visit(DataColumn(&ColumnAt<Columns, &MeasuredColumns::azimuth>));
    visit(DataColumn(&ColumnAt<Columns, &MeasuredColumns::azimuthOffset>));
}

/// Calls visit(column) for the four columns of places on the map.
template <class Visit>
void ForEachMapColumn(const Visit& visit) {
    visit(DataColumn(&ColumnAt<&PlotRows::mapPlaces, &MapColumns::xHigh>));
    visit(DataColumn(&ColumnAt<&PlotRows::mapPlaces, &MapColumns::xLow>));
    visit(DataColumn(&ColumnAt<&PlotRows::mapPlaces, &MapColumns::yHigh>));
    visit(DataColumn(&ColumnAt<&PlotRows::mapPlaces, &MapColumns::yLow>));
}

/// Calls visit(column, index) for all numeric columns.
template <class Visit>
void ForEachColumn(const Visit& visit) {
    std::size_t place = 0;
    const auto next = [&](const auto&... columns) { (visit(columns, place++), ...); };
    next(gDataDip, gDataAz, gData2Dip, gData2Az, gAppLineDip, gAppLineAz, gDataOrder,
         gDataSymbolBase, gAppNumeric, gPointDensity, gDataSymbol);
    ForEachMeasuredColumn<&PlotRows::measured>(next);
    ForEachMeasuredColumn<&PlotRows::measured2>(next);
    ForEachMeasuredColumn<&PlotRows::measuredLine>(next);
    ForEachMapColumn(next);
}

/// The bits of a cell, so that all columns can be stored alike. A cell that was never written has
/// none.
template <class T>
[[nodiscard]] std::uint32_t BitsOf(T cell) {
    return std::bit_cast<std::uint32_t>(cell);
}

[[nodiscard]] inline std::uint32_t BitsOf(NearestDegree cell) {
    return cell.bits;
}

/// The cell of some bits. Inverse of BitsOf.
template <class T>
[[nodiscard]] T CellOf(std::uint32_t bits) {
    return std::bit_cast<T>(bits);
}

template <>
[[nodiscard]] inline NearestDegree CellOf(std::uint32_t bits) {
    return {static_cast<std::uint16_t>(bits)};
}

/// The rows of a plot: the cells of its columns from row 0 on, fewer where a column is shorter.
struct KeptRows {
    RowSettings settings;
    std::array<std::vector<std::uint32_t>, kRowColumns> cells; ///< BitsOf
    std::vector<std::string> texts;
    ErrorLines errorLines;
    std::shared_ptr<const void> links; ///< what the follower of rows knew about them
};

/// The present rows of a plot. Throws std::bad_alloc. O(rows).
[[nodiscard]] KeptRows KeepRows(int slot);

/// A hash of the rows of a plot: of their orientations, appended values and symbols, and of their
/// order and overlays. What each drawing recomputes is not included. O(rows).
[[nodiscard]] std::uint64_t FingerprintOfRows(int slot);

} // namespace quandrel
