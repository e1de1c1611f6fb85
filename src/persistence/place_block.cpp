// SPDX-License-Identifier: MIT

#include "persistence/place_block.h"

#include "persistence/measured_block.h"

#include <cmath>
#include <cstddef>

namespace quandrel {

namespace {

constexpr std::size_t kRowBytes = 2 + 2 * 8;

void ReadRow(BinaryReader& reader, std::int32_t row, MapColumns& places) {
    std::int16_t hasPlace = 0;
    MapPlace place;
    reader.Short(hasPlace);
    reader.Double(place.x);
    reader.Double(place.y);
    reader.Require(std::isfinite(place.x) && std::isfinite(place.y));
    if (!reader.HasFailed() && hasPlace != 0) {
        places.Set(row, place);
    }
}

} // namespace

std::optional<PlaceBlock> ReadPlaceBlock(std::string_view bytes) {
    BinaryReader reader(bytes);
    PlaceBlock block;
    std::int32_t checksum = 0;
    reader.Long(block.count);
    reader.Long(checksum);
    reader.RequireRoom(block.count, kRowBytes);
    if (reader.HasFailed()) {
        return std::nullopt;
    }
    block.checksum = static_cast<std::uint32_t>(checksum);
    block.places.Grow(block.count);
    for (std::int32_t row = 1; row <= block.count && !reader.HasFailed(); ++row) {
        ReadRow(reader, row, block.places);
    }
    if (reader.HasFailed() || reader.Left() != 0) {
        return std::nullopt;
    }
    return block;
}

void WritePlaceBlock(BinaryWriter& writer, const MapColumns& places,
                     std::span<const BinaryRow> rows) {
    writer.Long(static_cast<std::int32_t>(rows.size()));
    writer.Long(static_cast<std::int32_t>(ChecksumOf(rows, RowAngles::Primary)));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const auto row = static_cast<std::int32_t>(i) + 1;
        const bool hasPlace = places.Has(row);
        const MapPlace place = hasPlace ? places.At(row) : MapPlace();
        writer.Short(hasPlace ? kTrue : 0);
        writer.Double(place.x);
        writer.Double(place.y);
    }
}

} // namespace quandrel
