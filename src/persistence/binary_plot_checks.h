// SPDX-License-Identifier: MIT
//
// Validation of the fields of a binary plot file, and conversion of earlier codes to the present
// ones. A check rejects the value that the reader read last.

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

/// An azimuth on the circle: one outside 0 to 360 is wrapped.
[[nodiscard]] std::int32_t AzimuthOnCircle(std::int32_t azimuth);

/// A row's orientations: a dip is -90 to 90 or marks an error, an azimuth is wrapped to 0 to 360.
void RequirePossibleRow(BinaryReader& reader, BinaryRow& row);

/// The number of overlays. An invalid selected overlay is deselected.
void RequirePossibleOverlays(BinaryReader& reader, PlotRecord& record);

/// Rows and kind of an overlay.
void RequirePossibleOverlay(BinaryReader& reader, const PlotRecord& record, std::size_t overlay);

/// Size of the density grid, number of contours.
void RequirePossibleGrid(BinaryReader& reader, const PlotRecord& record);

/// Checks of the complete record: angles of axis items and roses, kinds of roses and classes.
/// Angles beyond their range are wrapped.
void RequirePossibleSettings(BinaryReader& reader, PlotRecord& record);

/// The place of a window: top, left, width and height in 1/1440 inch; empty when impossible.
[[nodiscard]] std::optional<WindowPlace> PossiblePlace(std::int32_t state,
                                                       const std::array<float, 4>& place);

/// The row number in a cell of the table's first column, 0 for any other text.
[[nodiscard]] std::int32_t RowOfCell(std::string_view text);

/// A text of fixed length without its padding of blanks or zero bytes.
[[nodiscard]] std::string WithoutPadding(std::string_view text);

/// A text as a 16-bit number, 0 when it is not one.
[[nodiscard]] std::int16_t ShortNumberOf(const std::string& text);

/// Before version 9.0 the kinds of rose had other numbers: 2 was a weighting that no longer exists,
/// and those after it were higher by one.
inline constexpr std::int16_t kWeightedRose = 2;
inline constexpr std::int16_t kLastEarlierRose = 4;

[[nodiscard]] std::int16_t RoseTypeOfEarlier(std::int16_t code);
[[nodiscard]] std::int16_t EarlierOfRoseType(std::int16_t roseType);

} // namespace quandrel
