// SPDX-License-Identifier: MIT

#include "persistence/binary_plot_fields.h"
#include "stereo/row_positions.h"

#include <new>

namespace quandrel {

namespace {

/// A plot in the shape of a BinaryPlot.
struct PlotToWrite {
    PlotToWrite(const PlotRecord& itsRecord, const RowTable& itsTable)
        : record(itsRecord)
        , lines(itsTable) {}

    const PlotRecord& record;
    const RowTable& lines;
    int version = 95;
    bool hasFrequencyField = true;
    std::vector<BinaryRow> rows;
    std::vector<std::string_view> texts;
    const std::unordered_map<std::int32_t, std::string>* errorLines = nullptr;
    std::int16_t gridCount = 0;
    const GridValues* gridValues = nullptr;
    WindowPlace place;

    [[nodiscard]] std::string ErrorLine(std::int32_t row) const {
        const auto line = errorLines->find(row);
        return line == errorLines->end() ? std::string() : line->second;
    }

    [[nodiscard]] std::string Cell(std::int32_t line, std::size_t column) const {
        const auto at = static_cast<std::size_t>(line);
        return at < lines.size() ? RowTableText(lines, at, static_cast<int>(column))
                                 : std::string();
    }
};

std::int32_t RowsOf(const PlotRecord& record) {
    std::int32_t rows = record.NumData;
    for (std::size_t k = 1; k <= static_cast<std::size_t>(record.OverlayRows[kOverlayCount]); ++k) {
        rows += record.OverlayRows[k];
    }
    return rows;
}

BinaryRow RowInStore(int slot, std::int32_t row) {
    BinaryRow stored;
    stored.dip = DipOfRow(slot, row); // a file knows nothing of the links that mark rows
    stored.azimuth = gDataAz(slot, row);
    stored.density = gPointDensity(slot, row);
    stored.order = gDataOrder(slot, row);
    stored.code = gDataSymbol(slot, row);
    stored.dip2 = gData2Dip(slot, row);
    stored.azimuth2 = gData2Az(slot, row);
    stored.lineDip = gAppLineDip(slot, row);
    stored.lineAzimuth = gAppLineAz(slot, row);
    stored.number = gAppNumeric(slot, row);
    return stored;
}

PlotToWrite PlotOfSlot(int slot) {
    const auto place = static_cast<std::size_t>(slot);
    PlotToWrite plot(RecordOf(slot), TableOf(slot));
    const std::int32_t rows = RowsOf(plot.record);
    plot.rows.reserve(static_cast<std::size_t>(rows));
    for (std::int32_t row = 1; row <= rows; ++row) {
        plot.rows.push_back(RowInStore(slot, row));
    }
    for (std::int32_t row = 1; row <= plot.record.NumData; ++row) {
        plot.texts.push_back(gAppText(slot, row));
    }
    plot.errorLines = &gErrorLines[place];
    plot.gridCount = gGridCount[place];
    plot.gridValues = plot.gridCount != 0 ? gGridValues[place].get() : nullptr;
    plot.place = FormOf(slot).Place();
    return plot;
}

constexpr std::size_t kBytesWithoutRows = sizeof(GridValues) + std::size_t{32} * 1024;
constexpr std::size_t kUsualRowBytes = 128; ///< most of them for the cells of the table

std::string Heading() {
    return kBinaryMark + std::string(kVersionText, kShortVersion);
}

void CheckOverlays(BinaryWriter& writer, const PlotRecord& record) {
    constexpr std::int32_t kMostRows = std::numeric_limits<std::int16_t>::max();
    for (std::size_t k = 1; k <= static_cast<std::size_t>(record.OverlayRows[kOverlayCount]); ++k) {
        if (record.OverlayRows[k] > kMostRows) {
            writer.Fail("overlay " + std::to_string(k) + " has "
                        + std::to_string(record.OverlayRows[k])
                        + " rows; a binary plot file holds overlays of " + std::to_string(kMostRows)
                        + " at most");
        }
    }
}

/// The bytes of a plot, which read as one. A script can give fields values that no plot has; they
/// are not to be lost in a file that nobody opens again.
Result<std::string> Bytes(PlotToWrite plot) {
    BinaryWriter writer;
    writer.Bytes().reserve(kBytesWithoutRows + plot.rows.size() * kUsualRowBytes);
    CheckOverlays(writer, plot.record);
    writer.Fixed(Heading());
    BinaryPlotFields(writer, plot).VisitAll();
    if (!writer.Error().empty()) {
        return Failure{writer.Error()};
    }
    const Result<BinaryPlot> again = ReadBinaryPlot(writer.Bytes());
    if (!again) {
        return Failure{"the file could not be opened again: " + again.Error()};
    }
    return std::move(writer.Bytes());
}

PlotToWrite PlotWithoutSlot(const BinaryPlot& plot, const RowTable& table) {
    PlotToWrite wanted(plot.record, table);
    wanted.rows = plot.rows;
    wanted.texts.assign(plot.texts.begin(), plot.texts.end());
    wanted.errorLines = &plot.errorLines;
    wanted.gridCount = plot.gridCount;
    wanted.gridValues = plot.gridValues.get();
    wanted.place = plot.place.value_or(WindowPlace{});
    return wanted;
}

/// The bytes of what `make` makes. A failure where memory is short.
template <class Make>
Result<std::string> BytesOf(const Make& make) {
    try {
        return Bytes(make());
    } catch (const std::bad_alloc&) {
        return Failure{"there is not enough memory"};
    }
}

} // namespace

Result<std::string> BinaryPlotBytes(int slot) {
    return BytesOf([slot] { return PlotOfSlot(slot); });
}

Result<std::string> BinaryPlotBytes(const BinaryPlot& plot, const RowTable& table) {
    return BytesOf([&] { return PlotWithoutSlot(plot, table); });
}

} // namespace quandrel
