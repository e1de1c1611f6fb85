// SPDX-License-Identifier: MIT

#include "persistence/plot_blocks.h"

#include "core/fingerprint.h"
#include "persistence/field_block.h"
#include "persistence/figure_block.h"
#include "persistence/measured_block.h"
#include "persistence/place_block.h"
#include "stereo/cell_rows.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <utility>

namespace quandrel {

namespace {

/// The decimals of an orientation, at the beginning of a sentence.
const char* NameOfDecimals(RowAngles which) {
    switch (which) {
    case RowAngles::Secondary:
        return "The decimals of secondary orientations";
    case RowAngles::Line:
        return "The decimals of appended lines";
    case RowAngles::Primary:
        break;
    }
    return "The decimals of orientations";
}

/// Names a fault to the user. Blocks of the same kind have one sentence.
void LeaveOut(BinaryPlot& plot, std::string fault) {
    if (std::find(plot.leftOut.begin(), plot.leftOut.end(), fault) == plot.leftOut.end()) {
        plot.leftOut.push_back(std::move(fault));
    }
}

void ReadMeasured(std::string_view bytes, RowAngles which, BinaryPlot& plot) {
    std::optional<MeasuredBlock> block = ReadMeasuredBlock(bytes);
    const auto rows = RowsWith(plot.rows, plot.record, which);
    if (!block) {
        LeaveOut(plot, std::string(NameOfDecimals(which)) + " are damaged.");
    } else if (static_cast<std::size_t>(block->count) != rows.size()
               || block->checksum != ChecksumOf(rows, which)
               || !Fits(block->columns, rows, which)) {
        LeaveOut(plot, std::string(NameOfDecimals(which)) + " belong to other rows.");
    } else {
        plot.measured[static_cast<std::size_t>(which)] = std::move(block->columns);
    }
}

void ReadPlaces(std::string_view bytes, BinaryPlot& plot) {
    std::optional<PlaceBlock> block = ReadPlaceBlock(bytes);
    if (!block) {
        LeaveOut(plot, "The places on the map are damaged.");
    } else if (static_cast<std::size_t>(block->count) != plot.rows.size()
               || block->checksum != ChecksumOf(plot.rows, RowAngles::Primary)) {
        LeaveOut(plot, "The places on the map belong to other rows.");
    } else {
        plot.mapPlaces = std::move(block->places);
    }
}

/// The number that is all of a block; nothing for a block of another length.
std::optional<std::int16_t> OnlyShortOf(std::string_view bytes) {
    BinaryReader reader(bytes);
    std::int16_t value = 0;
    reader.Short(value);
    return reader.HasFailed() || reader.Left() != 0 ? std::nullopt : std::optional(value);
}

void ReadUseDecimals(std::string_view bytes, BinaryPlot& plot) {
    const std::optional<std::int16_t> value = UseDecimalsOfBlock(bytes);
    if (!value) {
        LeaveOut(plot, "The choice to use decimals is damaged.");
    }
    plot.record.UseDecimals = value.value_or(0);
}

void ReadFormulas(std::string_view bytes, BinaryPlot& plot) {
    const std::optional<std::int16_t> value = FormulasOfBlock(bytes);
    if (!value) {
        LeaveOut(plot, "The choice of formulas is damaged.");
    }
    plot.record.PlotFormulas = value.value_or(kFormulasOfPreferences);
}

void ReadCellRows(std::string_view bytes, BinaryPlot& plot) {
    const std::optional<std::int16_t> value = OnlyShortOf(bytes);
    if (!value) {
        LeaveOut(plot, "That the rows stand for many measurements is damaged.");
    }
    plot.hasCellRows = value.value_or(0) != 0;
}

/// Gives a part of the record the values of its block, if these are possible.
template <class Part>
void ReadPart(std::string_view bytes, const char* name, BinaryPlot& plot) {
    if (std::optional<Part> part = PartOfBlock<Part>(bytes)) {
        static_cast<Part&>(plot.record) = std::move(*part);
    } else {
        LeaveOut(plot, std::string("The choice of ") + name + " is damaged.");
    }
}

template <class Part>
void WritePart(const BlockHead& head, const PlotRecord& record, ExtensionWriter& extension,
               BinaryWriter& writer) {
    const Part& part = record;
    if (part != Part()) {
        extension.Block(head, [&] { WriteFields(part, writer); });
    }
}

void ReadFigure(std::string_view bytes, BinaryPlot& plot) {
    if (std::optional<RecordFigure> figure = FigureOfBlock(bytes)) {
        static_cast<RecordFigure&>(plot.record) = std::move(*figure);
    } else {
        LeaveOut(plot, "The style and the layers are damaged.");
    }
}

void ReadBlock(const BlockView& block, BinaryPlot& plot) {
    if (const std::optional<RowAngles> which = AnglesOfBlock(block.head)) {
        ReadMeasured(block.bytes, *which, plot);
    } else if (block.head.tag == kUseDecimalsBlock.tag) {
        ReadUseDecimals(block.bytes, plot);
    } else if (block.head.tag == kFormulasBlock.tag) {
        ReadFormulas(block.bytes, plot);
    } else if (block.head.tag == kCellRowsBlock.tag) {
        ReadCellRows(block.bytes, plot);
    } else if (block.head.tag == kDensityViewBlock.tag) {
        ReadPart<RecordDensityView>(block.bytes, "densities", plot);
    } else if (block.head.tag == kRegionsBlock.tag) {
        ReadPart<RecordRegions>(block.bytes, "confidence regions", plot);
    } else if (block.head.tag == kFigureBlock.tag) {
        ReadFigure(block.bytes, plot);
    } else if (block.head.tag == kPlaceBlock.tag) {
        ReadPlaces(block.bytes, plot);
    } else if (block.head.tag == kPictureBlock.tag) {
        plot.pictureView = PictureViewOfBlock(block.bytes);
    } else {
        plot.unknownBlocks.push_back({block.head, std::string(block.bytes)});
    }
}

void WriteMeasured(ExtensionWriter& extension, BinaryWriter& writer, const Plot& plot,
                   std::span<const BinaryRow> rows) {
    for (const RowAngles which : kRowAngles) {
        const MeasuredColumns& columns = MeasuredOf(plot.rows, which);
        const auto held = RowsWith(rows, plot.record, which);
        if (HasMeasured(columns, held, which)) {
            extension.Block(MeasuredBlockHead(which),
                            [&] { WriteMeasuredBlock(writer, columns, held, which); });
        }
    }
}

void WriteUnknown(ExtensionWriter& extension, BinaryWriter& writer, const Plot& plot) {
    const auto* const unknown = plot.attachments.Find<UnknownBlocks>();
    if (unknown == nullptr) {
        return;
    }
    const bool hasSameRows = FingerprintOfRows(plot) == unknown->rows;
    for (const ExtensionBlock& block : unknown->blocks) {
        if (hasSameRows || block.head.holdsForAnyRows) {
            extension.Block(block.head, [&] { writer.Fixed(block.bytes); });
        }
    }
}

void AddMeasured(const PlotRows& rows, RowAngles which, std::int32_t row, Fingerprint& print) {
    const std::optional<Attitude> measured = DecimalsOf(rows, which, row);
    print.Add(std::uint64_t{measured.has_value()});
    if (measured) {
        print.Add(std::bit_cast<std::uint64_t>(measured->dip));
        print.Add(std::bit_cast<std::uint64_t>(measured->azimuth));
    }
}

void AddMapPlace(const PlotRows& rows, std::int32_t row, Fingerprint& print) {
    if (const std::optional<MapPlace> place = MapPlaceOf(rows, row)) {
        print.Add(std::bit_cast<std::uint64_t>(place->x));
        print.Add(std::bit_cast<std::uint64_t>(place->y));
    }
}

} // namespace

std::uint64_t FingerprintOfRows(const Plot& plot) {
    const PlotRecord& record = plot.record;
    const PlotRows& rows = plot.rows;
    Fingerprint print;
    print.AddWhole(record.NumData);
    for (std::size_t k = 0; k <= static_cast<std::size_t>(record.OverlayRows[kOverlayCount]); ++k) {
        print.AddWhole(record.OverlayRows[k]);
        print.AddWhole(k == kOverlayCount ? 0 : record.OverlayKind[k]);
    }
    for (std::int32_t row = 1; row <= record.NumLoadedData; ++row) {
        print.AddWhole(DipOfRow(plot, row));
        print.AddWhole(rows.azimuth(row));
        for (const RowAngles which : kRowAngles) {
            AddMeasured(rows, which, row, print);
        }
        print.AddWhole(rows.dip2(row));
        print.AddWhole(rows.azimuth2(row));
        print.AddWhole(rows.lineDip(row));
        print.AddWhole(rows.lineAzimuth(row));
        print.AddWhole(std::bit_cast<std::int32_t>(rows.number(row)));
        print.Add(rows.text(row));
        AddMapPlace(rows, row, print);
    }
    return print.Value();
}

std::optional<std::int16_t> UseDecimalsOfBlock(std::string_view bytes) {
    std::optional<std::int16_t> value = OnlyShortOf(bytes);
    if (value && *value != 0) {
        value = kTrue;
    }
    return value;
}

std::optional<std::int16_t> FormulasOfBlock(std::string_view bytes) {
    const std::optional<std::int16_t> value = OnlyShortOf(bytes);
    return value == kOwnFormulas || value == kTextbookFormulas ? value : std::nullopt;
}

void ReadBlocks(std::string_view bytes, BinaryPlot& plot) {
    plot.record.UseDecimals = 0; // whatever new plots do
    plot.record.PlotFormulas = kFormulasOfPreferences;
    const Result<Extension> extension = ReadExtension(bytes);
    if (!extension) {
        LeaveOut(plot, extension.Error());
        return;
    }
    for (const BlockView& block : extension->blocks) {
        ReadBlock(block, plot);
    }
}

void TakeBlocks(BinaryPlot& file, Plot& plot) {
    for (const RowAngles which : kRowAngles) {
        MeasuredOf(plot.rows, which) = std::move(file.measured[static_cast<std::size_t>(which)]);
    }
    plot.rows.mapPlaces = std::move(file.mapPlaces);
    SetCellRows(plot, file.hasCellRows);
    CountMeasurements(plot);
    if (!file.unknownBlocks.empty()) {
        plot.attachments.Of<UnknownBlocks>() = {std::move(file.unknownBlocks),
                                                FingerprintOfRows(plot)};
    }
}

void WriteBlocks(BinaryWriter& writer, const Plot& plot, std::span<const BinaryRow> rows,
                 const std::optional<PictureView>& view) {
    ExtensionWriter extension(writer.Bytes());
    if (plot.record.UseDecimals != 0) {
        extension.Block(kUseDecimalsBlock, [&] { writer.Short(kTrue); });
    }
    if (plot.record.PlotFormulas != kFormulasOfPreferences) {
        extension.Block(kFormulasBlock, [&] { writer.Short(plot.record.PlotFormulas); });
    }
    if (HasCellRows(plot)) {
        extension.Block(kCellRowsBlock, [&] { writer.Short(kTrue); });
    }
    WritePart<RecordDensityView>(kDensityViewBlock, plot.record, extension, writer);
    WritePart<RecordRegions>(kRegionsBlock, plot.record, extension, writer);
    if (const RecordFigure& figure = plot.record; figure != RecordFigure()) {
        extension.Block(kFigureBlock, [&] { WriteFigure(figure, writer); });
    }
    if (view) {
        extension.Block(kPictureBlock, [&] { WritePictureView(*view, writer); });
    }
    WriteMeasured(extension, writer, plot, rows);
    if (HasMapPlaces(plot)) {
        extension.Block(kPlaceBlock, [&] { WritePlaceBlock(writer, plot.rows.mapPlaces, rows); });
    }
    WriteUnknown(extension, writer, plot);
    extension.Finish();
}

} // namespace quandrel
