// SPDX-License-Identifier: MIT

#include "persistence/figure_block.h"

#include "persistence/field_block.h"

#include <cstdint>

namespace quandrel {

void WriteFigure(const RecordFigure& figure, BinaryWriter& writer) {
    WriteFields(figure, writer);
    writer.Short(static_cast<std::int32_t>(figure.Layers.size()));
    for (const FigureLayer& layer : figure.Layers) {
        BinaryWriter fields;
        WriteFields(layer, fields);
        if (!fields.Error().empty()) {
            writer.Fail(fields.Error());
        }
        writer.Short(static_cast<std::int32_t>(fields.Bytes().size()));
        writer.Fixed(fields.Bytes());
    }
}

std::optional<RecordFigure> FigureOfBlock(std::string_view bytes) {
    BinaryReader reader(bytes);
    RecordFigure figure;
    std::int16_t count = 0;
    reader.Text(figure.StyleName);
    reader.Text(figure.StyleText);
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
        const std::optional<FigureLayer> layer = PartOfBlock<FigureLayer>(fields);
        if (!layer) {
            return std::nullopt;
        }
        figure.Layers.push_back(*layer);
    }
    if (reader.HasFailed() || !IsValid(figure)) {
        return std::nullopt;
    }
    return figure;
}

} // namespace quandrel
