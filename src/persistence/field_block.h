// SPDX-License-Identifier: MIT
//
// Parts of a record as blocks of an extension: the values of their fields, in the order of
// QUANDREL_FIELDS. Whole numbers have 16 or 32 bits, others are doubles, texts as in the fields of
// the file. Fields that a later version adds are at the end: a shorter block leaves the others at
// their first values, and bytes after the last known field are not read.

#pragma once

#include "core/plot_record.h"
#include "persistence/binary_stream.h"
#include "persistence/plot_extension.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace quandrel {

/// RecordDensityView and RecordRegions. A plot with the first values of a part has no block of it.
inline constexpr BlockHead kDensityViewBlock{{'D', 'E', 'N', 'S'}, true};
inline constexpr BlockHead kRegionsBlock{{'R', 'E', 'G', 'N'}, true};

/// Appends the fields of a part.
template <class Part>
void WriteFields(const Part& part, BinaryWriter& writer) {
    const auto write = [&writer](const char* /*name*/, const auto& field) {
        using Field = std::remove_cvref_t<decltype(field)>;
        if constexpr (std::is_same_v<Field, std::int16_t>) {
            writer.Short(field);
        } else if constexpr (std::is_same_v<Field, std::int32_t>) {
            writer.Long(field);
        } else if constexpr (std::is_same_v<Field, double>) {
            writer.Double(field);
        } else {
            writer.Text(field);
        }
    };
    VisitFieldsOf(part, write);
}

/// The part of a block; nothing when it is damaged or a value is beyond its limits.
template <class Part>
[[nodiscard]] std::optional<Part> PartOfBlock(std::string_view bytes) {
    BinaryReader reader(bytes);
    Part part;
    const auto read = [&reader](const char* /*name*/, auto& field) {
        using Field = std::remove_cvref_t<decltype(field)>;
        if (reader.Left() == 0) {
            return;
        }
        if constexpr (std::is_same_v<Field, std::int16_t>) {
            reader.Short(field);
        } else if constexpr (std::is_same_v<Field, std::int32_t>) {
            reader.Long(field);
        } else if constexpr (std::is_same_v<Field, double>) {
            reader.Double(field);
        } else {
            reader.Text(field);
        }
    };
    VisitFieldsOf(part, read);
    if (reader.HasFailed() || !IsValid(part)) {
        return std::nullopt;
    }
    return part;
}

} // namespace quandrel
