// SPDX-License-Identifier: MIT
//
// What a plot can have: the checks on fields of a binary plot file, and how earlier codes are
// turned into those of the present. A check refuses what the reader read last.

#pragma once

#include "core/plot_record.h"
#include "persistence/binary_plot.h"
#include "persistence/binary_stream.h"
#include "platform/window_place.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

/// Counts of rows, formats and kinds.
void RequirePossibleHead(BinaryReader& reader, const PlotRecord& record);

/// A row's orientations: a dip is -90 to 90 or marks an error, an azimuth is brought into 0 to 360.
void RequirePossibleRow(BinaryReader& reader, BinaryRow& row);

/// The number of overlays. A selected overlay that is none of them is unselected.
void RequirePossibleOverlays(BinaryReader& reader, PlotRecord& record);

/// Rows and kind of an overlay.
void RequirePossibleOverlay(BinaryReader& reader, const PlotRecord& record, std::size_t overlay);

/// Size of the density grid, number of contours.
void RequirePossibleGrid(BinaryReader& reader, const PlotRecord& record);

/// What can be told only of the whole: angles of axis items and roses, kinds of roses and classes.
/// Angles beyond their range are brought into it.
void RequirePossibleSettings(BinaryReader& reader, PlotRecord& record);

/// The place of a window, top, left, width and height in 1/1440 inch; nothing when no window can
/// have it.
[[nodiscard]] std::optional<WindowPlace> PossiblePlace(std::int32_t state,
                                                       const std::array<float, 4>& place);

/// The row that a cell of the table's first column names, 0 for any other text.
[[nodiscard]] std::int32_t RowOfCell(std::string_view text);

/// A text of fixed length without the blanks or zero bytes that fill it.
[[nodiscard]] std::string WithoutPadding(std::string_view text);

/// A text as a number of 16 bits, 0 when it is none.
[[nodiscard]] std::int16_t ShortNumberOf(const std::string& text);

/// The kinds of rose had other numbers before version 9.0: 2 was a weighting that is no more, and
/// those behind it stood one higher.
inline constexpr std::int16_t kWeightedRose = 2;
inline constexpr std::int16_t kLastEarlierRose = 4;

[[nodiscard]] std::int16_t RoseTypeOfEarlier(std::int16_t code);
[[nodiscard]] std::int16_t EarlierOfRoseType(std::int16_t roseType);

} // namespace quandrel
