// SPDX-License-Identifier: MIT

#include "persistence/figure_block.h"

#include "persistence/field_block.h"

#include <cstdint>
#include <vector>

namespace quandrel {

namespace {

/// The number of parts, and each with the number of its bytes.
template <class Part>
void WriteParts(const std::vector<Part>& parts, BinaryWriter& writer) {
    writer.Short(static_cast<std::int32_t>(parts.size()));
    for (const Part& part : parts) {
        BinaryWriter fields;
        WriteFields(part, fields);
        if (!fields.Error().empty()) {
            writer.Fail(fields.Error());
        }
        writer.Short(static_cast<std::int32_t>(fields.Bytes().size()));
        writer.Fixed(fields.Bytes());
    }
}

/// False when the bytes end within the parts, or one is damaged.
template <class Part>
[[nodiscard]] bool ReadParts(BinaryReader& reader, std::vector<Part>& parts) {
    std::int16_t count = 0;
    reader.Short(count);
    reader.RequireRoom(count, sizeof(std::int16_t));
    for (std::int16_t i = 0; i < count && !reader.HasFailed(); ++i) {
        std::int16_t length = 0;
        std::string fields;
        reader.Short(length);
        reader.RequireRoom(length, 1);
        if (!reader.HasFailed()) {
            reader.Fixed(fields, static_cast<std::size_t>(length));
        }
        const std::optional<Part> part = PartOfBlock<Part>(fields);
        if (!part) {
            return false;
        }
        parts.push_back(*part);
    }
    return !reader.HasFailed();
}

} // namespace

void WriteFigure(const RecordFigure& figure, BinaryWriter& writer) {
    WriteFields(figure, writer);
    WriteParts(figure.Layers, writer);
    if (!figure.RoseNames.empty()) {
        WriteParts(figure.RoseNames, writer);
    }
}

std::optional<RecordFigure> FigureOfBlock(std::string_view bytes) {
    BinaryReader reader(bytes);
    RecordFigure figure;
    reader.Text(figure.StyleName);
    reader.Text(figure.StyleText);
    const bool isRead = ReadParts(reader, figure.Layers)
                        && (reader.Left() == 0 || ReadParts(reader, figure.RoseNames));
    if (!isRead || !IsValid(figure)) {
        return std::nullopt;
    }
    return figure;
}

} // namespace quandrel
