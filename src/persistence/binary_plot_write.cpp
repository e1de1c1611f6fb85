// SPDX-License-Identifier: MIT

#include "persistence/binary_plot_fields.h"
#include "persistence/plot_blocks.h"
#include "persistence/plot_file_bytes.h"
#include "stereo/row_positions.h"

#include <new>

namespace quandrel {

namespace {

/// The row of a plot.
BinaryRow RowOf(const PlotRows& rows, std::int32_t row) {
    BinaryRow stored;
    stored.dip = rows.dip(row);
    stored.azimuth = rows.azimuth(row);
    stored.density = rows.pointDensity(row);
    stored.order = rows.order(row);
    stored.code = rows.symbol(row);
    stored.dip2 = rows.dip2(row);
    stored.azimuth2 = rows.azimuth2(row);
    stored.lineDip = rows.lineDip(row);
    stored.lineAzimuth = rows.lineAzimuth(row);
    stored.number = rows.number(row);
    return stored;
}

/// A plot with the structure of a BinaryPlot.
struct PlotToWrite {
    explicit PlotToWrite(const Plot& plot)
        : source(plot)
        , record(plot.record)
        , lines(plot.table)
        , errorLines(plot.rows.errorLines)
        , gridCount(plot.gridCount)
        , gridValues(plot.gridCount != 0 ? plot.gridValues.get() : nullptr)
        , place(plot.form ? plot.form->Place() : WindowPlace()) {
        const std::int32_t count = CountOfRows();
        rows.reserve(static_cast<std::size_t>(count));
        for (std::int32_t row = 1; row <= count; ++row) {
            rows.push_back(RowOf(plot.rows, row));
        }
        for (std::int32_t row = 1; row <= record.NumData; ++row) {
            texts.push_back(plot.rows.text(row));
        }
    }

    const Plot& source;
    const PlotRecord& record;
    const RowTable& lines;
    const ErrorLines& errorLines;
    int version = 95;
    bool hasFrequencyField = true;
    std::vector<BinaryRow> rows;
    std::vector<std::string_view> texts;
    std::int16_t gridCount;
    const GridValues* gridValues;
    WindowPlace place;
    std::optional<PictureView> pictureView; ///< of a plot in a picture

    [[nodiscard]] std::string ErrorLine(std::int32_t row) const {
        const auto line = errorLines.find(row);
        return line == errorLines.end() ? std::string() : line->second;
    }

    [[nodiscard]] std::string Cell(std::int32_t line, std::size_t column) const {
        const auto at = static_cast<std::size_t>(line);
        return at < lines.size() ? RowTableText(lines, at, static_cast<int>(column))
                                 : std::string();
    }

private:
    [[nodiscard]] std::int32_t CountOfRows() const {
        std::int32_t count = record.NumData;
        const auto overlays = static_cast<std::size_t>(record.OverlayRows[kOverlayCount]);
        for (std::size_t k = 1; k <= overlays; ++k) {
            count += record.OverlayRows[k];
        }
        return count;
    }
};

constexpr std::size_t kBytesWithoutRows = sizeof(GridValues) + std::size_t{32} * 1024;
constexpr std::size_t kUsualRowBytes = 128; ///< mostly for the cells of the table
constexpr std::size_t kMeasuredBytes = 12;  ///< of a row, for each orientation with decimals

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

std::size_t UsualRowBytes(const PlotRows& rows) {
    std::size_t bytes = kUsualRowBytes;
    for (const RowAngles which : kRowAngles) {
        bytes += MeasuredOf(rows, which).RowCount() > 0 ? kMeasuredBytes : 0;
    }
    return bytes;
}

Result<std::string> Written(const PlotToWrite& plot) {
    BinaryWriter writer;
    writer.Bytes().reserve(kBytesWithoutRows + plot.rows.size() * UsualRowBytes(plot.source.rows));
    CheckOverlays(writer, plot.record);
    writer.Fixed(Heading());
    BinaryPlotFields(writer, plot).VisitAll();
    WriteBlocks(writer, plot.source, plot.rows, plot.pictureView);
    if (!writer.Error().empty()) {
        return Failure{writer.Error()};
    }
    return std::move(writer.Bytes());
}

/// Why a plot would not come back complete from its file; empty if it does.
std::string FaultOf(const Result<BinaryPlot>& read) {
    if (!read) {
        return read.Error();
    }
    return read->leftOut.empty() ? std::string() : read->leftOut.front();
}

/// The bytes of a plot. They are read back as a check, because a script can give fields values that
/// no plot has; such a file could never be opened again.
///
/// @param prepare  changes what is written
template <class Prepare>
Result<std::string> CheckedBytes(const Plot& plot, const Prepare& prepare) {
    try {
        Result<std::string> bytes = [&] {
            PlotToWrite written(plot);
            prepare(written);
            return Written(written);
        }();
        if (!bytes) {
            return bytes;
        }
        const std::string fault = FaultOf(ReadBinaryPlot(*bytes));
        if (!fault.empty()) {
            return Failure{"the file could not be opened again: " + fault};
        }
        return bytes;
    } catch (const std::bad_alloc&) {
        return Failure{"there is not enough memory"};
    }
}

/// A file does not contain the links that mark rows.
void LeaveOutLinks(PlotToWrite& written) {
    for (std::size_t i = 0; i < written.rows.size(); ++i) {
        written.rows[i].dip = DipOfRow(written.source, static_cast<std::int32_t>(i) + 1);
    }
}

} // namespace

Result<std::string> PlotFileBytes(const Plot& plot) {
    return CheckedBytes(plot, [](const PlotToWrite&) {});
}

Result<std::string> BinaryPlotBytes(int slot) {
    (void)FormOf(slot); // its place is that of its window
    return CheckedBytes(PlotOf(slot), LeaveOutLinks);
}

Result<std::string> PlotBytesForPicture(const Plot& plot) {
    return CheckedBytes(plot, [](PlotToWrite& written) {
        LeaveOutLinks(written);
        written.place = {};
        written.pictureView = PictureViewOf(written.record);
    });
}

} // namespace quandrel
