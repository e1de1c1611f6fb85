// SPDX-License-Identifier: MIT
//
// Measured angles of rows as a block in the extension of a binary plot file: the count of the rows
// and the checksum of their whole degrees, then the measured attitude of each row.

#pragma once

#include "core/measured_rows.h"
#include "persistence/binary_plot.h"
#include "persistence/binary_stream.h"
#include "persistence/plot_extension.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace quandrel {

/// The block of an orientation.
[[nodiscard]] const BlockHead& MeasuredBlockHead(RowAngles which);

/// Which orientation a block is of, if it holds measured angles.
[[nodiscard]] std::optional<RowAngles> AnglesOfBlock(const BlockHead& head);

/// Checksum of an orientation of rows in whole degrees: CRC-32 of dip and azimuth of each row, 32
/// bits each, with azimuths on the circle.
[[nodiscard]] std::uint32_t ChecksumOf(std::span<const BinaryRow> rows, RowAngles which);

/// What a block of measured angles holds.
struct MeasuredBlock {
    std::int32_t count = 0;     ///< of the rows
    std::uint32_t checksum = 0; ///< of their whole degrees
    MeasuredColumns columns;    ///< with room for `count` rows
};

/// The content of a block. Nothing when it is too short or too long, or an angle is impossible.
/// Throws std::bad_alloc.
[[nodiscard]] std::optional<MeasuredBlock> ReadMeasuredBlock(std::string_view bytes);

/// Writes the content of a block.
///
/// @param rows  in whole degrees; rows without data, or without that orientation, have no decimals
void WriteMeasuredBlock(BinaryWriter& writer, const MeasuredColumns& columns,
                        std::span<const BinaryRow> rows, RowAngles which);

/// Whether any of the rows would have decimals in a block.
[[nodiscard]] bool HasMeasured(const MeasuredColumns& columns, std::span<const BinaryRow> rows,
                               RowAngles which);

/// Whether the columns belong to rows: each row with decimals has a whole orientation too.
[[nodiscard]] bool Fits(const MeasuredColumns& columns, std::span<const BinaryRow> rows,
                        RowAngles which);

/// The rows of a file that can have an orientation: appended lines are those of the main rows.
[[nodiscard]] std::span<const BinaryRow> RowsWith(std::span<const BinaryRow> rows,
                                                  const PlotRecord& record, RowAngles which);

} // namespace quandrel
