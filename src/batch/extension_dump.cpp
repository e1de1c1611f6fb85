// SPDX-License-Identifier: MIT

#include "batch/extension_dump.h"

#include "orientation/attitude.h"
#include "persistence/field_block.h"
#include "persistence/figure_block.h"
#include "persistence/measured_block.h"
#include "persistence/picture_block.h"
#include "persistence/place_block.h"
#include "persistence/plot_blocks.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <optional>
#include <string_view>

namespace quandrel {

namespace {

void WriteNumber(const char* name, std::int64_t value, JsonWriter& writer) {
    writer.Key(name);
    writer.Number(value);
}

/// An angle of each row.
void WriteAngles(const char* name, double Attitude::*angle, const MeasuredBlock& block,
                 JsonWriter& writer) {
    writer.Key(name);
    writer.BeginArray();
    for (std::int32_t row = 1; row <= block.count; ++row) {
        if (block.columns.Has(row)) {
            writer.Number(ToMicrodegree(block.columns.At(row).*angle));
        } else {
            writer.Ready("null");
        }
    }
    writer.EndArray();
}

void WriteMeasured(std::string_view bytes, JsonWriter& writer) {
    const std::optional<MeasuredBlock> block = ReadMeasuredBlock(bytes);
    if (block) {
        WriteNumber("rows", block->count, writer);
        WriteNumber("checksum", block->checksum, writer);
        WriteAngles("dip", &Attitude::dip, *block, writer);
        WriteAngles("azimuth", &Attitude::azimuth, *block, writer);
    }
}

/// A coordinate of each row.
void WriteCoordinates(const char* name, double MapPlace::*coordinate, const PlaceBlock& block,
                      JsonWriter& writer) {
    writer.Key(name);
    writer.BeginArray();
    for (std::int32_t row = 1; row <= block.count; ++row) {
        if (block.places.Has(row)) {
            writer.Number(block.places.At(row).*coordinate);
        } else {
            writer.Ready("null");
        }
    }
    writer.EndArray();
}

void WritePlaces(std::string_view bytes, JsonWriter& writer) {
    if (const std::optional<PlaceBlock> block = ReadPlaceBlock(bytes)) {
        WriteNumber("rows", block->count, writer);
        WriteNumber("checksum", block->checksum, writer);
        WriteCoordinates("x", &MapPlace::x, *block, writer);
        WriteCoordinates("y", &MapPlace::y, *block, writer);
    }
}

/// The fields of a part by their names.
template <class Part>
void WriteFields(const Part& part, JsonWriter& writer) {
    const auto write = [&writer](const char* name, const auto& field) {
        writer.Key(name);
        writer.Ready(nlohmann::ordered_json(field).dump());
    };
    VisitFieldsOf(part, write);
}

template <class Part>
void WritePart(std::string_view bytes, JsonWriter& writer) {
    if (const std::optional<Part> part = PartOfBlock<Part>(bytes)) {
        WriteFields(*part, writer);
    }
}

template <class Part>
void WriteParts(const char* name, const std::vector<Part>& parts, JsonWriter& writer) {
    writer.Key(name);
    writer.BeginArray();
    for (const Part& part : parts) {
        writer.BeginObject();
        WriteFields(part, writer);
        writer.EndObject();
    }
    writer.EndArray();
}

void WriteFigure(std::string_view bytes, JsonWriter& writer) {
    if (const std::optional<RecordFigure> figure = FigureOfBlock(bytes)) {
        WriteFields(*figure, writer);
        WriteParts("Layers", figure->Layers, writer);
        if (!figure->RoseNames.empty()) {
            WriteParts("RoseNames", figure->RoseNames, writer);
        }
    }
}

void WriteNames(const std::vector<std::string>& names, JsonWriter& writer) {
    writer.BeginArray();
    for (const std::string& name : names) {
        writer.Text(name);
    }
    writer.EndArray();
}

void WritePictureView(std::string_view bytes, JsonWriter& writer) {
    if (const std::optional<PictureView> view = PictureViewOfBlock(bytes)) {
        writer.Key("FileTitle");
        writer.Text(view->title);
        writer.Key("MainFiles");
        WriteNames(view->main, writer);
        writer.Key("OverlayFiles");
        writer.BeginArray();
        for (const std::vector<std::string>& overlay : view->overlays) {
            WriteNames(overlay, writer);
        }
        writer.EndArray();
        WriteNumber("ShowConfidenceCone", view->showsCone ? 1 : 0, writer);
    }
}

void WriteKnown(const BlockView& block, JsonWriter& writer) {
    if (AnglesOfBlock(block.head)) {
        WriteMeasured(block.bytes, writer);
    } else if (block.head.tag == kUseDecimalsBlock.tag) {
        if (const std::optional<std::int16_t> value = UseDecimalsOfBlock(block.bytes)) {
            WriteNumber("UseDecimals", *value, writer);
        }
    } else if (block.head.tag == kFormulasBlock.tag) {
        if (const std::optional<std::int16_t> value = FormulasOfBlock(block.bytes)) {
            WriteNumber("PlotFormulas", *value, writer);
        }
    } else if (block.head.tag == kDensityViewBlock.tag) {
        WritePart<RecordDensityView>(block.bytes, writer);
    } else if (block.head.tag == kRegionsBlock.tag) {
        WritePart<RecordRegions>(block.bytes, writer);
    } else if (block.head.tag == kFigureBlock.tag) {
        WriteFigure(block.bytes, writer);
    } else if (block.head.tag == kPlaceBlock.tag) {
        WritePlaces(block.bytes, writer);
    } else if (block.head.tag == kPictureBlock.tag) {
        WritePictureView(block.bytes, writer);
    }
}

} // namespace

void WriteExtension(std::span<const BlockView> blocks, JsonWriter& writer) {
    writer.BeginArray();
    for (const BlockView& block : blocks) {
        writer.BeginObject();
        writer.Key("tag");
        writer.Text(std::string_view(block.head.tag.data(), block.head.tag.size()));
        writer.Key("holdsForAnyRows");
        writer.Ready(block.head.holdsForAnyRows ? "true" : "false");
        WriteNumber("bytes", static_cast<std::int64_t>(block.bytes.size()), writer);
        WriteKnown(block, writer);
        writer.EndObject();
    }
    writer.EndArray();
}

} // namespace quandrel
