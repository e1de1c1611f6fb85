// SPDX-License-Identifier: MIT
//
// Places of rows on the map as a block in the extension of a binary plot file: the count of the
// rows and the checksum of their whole degrees, then for each row whether it has a place, x and y.

#pragma once

#include "core/map_places.h"
#include "persistence/binary_plot.h"
#include "persistence/binary_stream.h"
#include "persistence/plot_extension.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace quandrel {

inline constexpr BlockHead kPlaceBlock{{'P', 'L', 'A', 'C'}, false};

/// What a block of places holds.
struct PlaceBlock {
    std::int32_t count = 0;     ///< of the rows
    std::uint32_t checksum = 0; ///< of their whole degrees
    MapColumns places;          ///< with room for `count` rows
};

/// The content of a block. Nothing when it is too short or too long, or a coordinate is not finite.
/// Throws std::bad_alloc.
[[nodiscard]] std::optional<PlaceBlock> ReadPlaceBlock(std::string_view bytes);

/// Writes the content of a block.
void WritePlaceBlock(BinaryWriter& writer, const MapColumns& places,
                     std::span<const BinaryRow> rows);

} // namespace quandrel
