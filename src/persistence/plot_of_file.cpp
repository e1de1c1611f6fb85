// SPDX-License-Identifier: MIT

#include "persistence/plot_of_file.h"

#include "core/appended_range.h"
#include "core/plot_store.h"
#include "core/row_room.h"
#include "input/data_rows.h"
#include "input/format_model.h"
#include "input/load_report.h"
#include "orientation/angles.h"
#include "orientation/notation.h"
#include "persistence/plot_blocks.h"
#include "persistence/plot_file_bytes.h"
#include "stereo/axis_rows.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <new>
#include <numeric>
#include <utility>

namespace quandrel {

namespace {

/// The orientation of a row that is shown, in whole degrees.
Attitude WholeShown(const PlotRecord& record, std::int32_t row, const BinaryRow& stored) {
    const bool isSecondary =
        record.ShowSecondary != 0 && row <= record.NumData && stored.dip != kErrorRow;
    return isSecondary ? Attitude{stored.dip2, stored.azimuth2}
                       : Attitude{stored.dip, stored.azimuth};
}

/// The code of a row to which no class gives another one.
SymbolCode PlainCode(const PlotRecord& record, std::int32_t row, const BinaryRow& stored) {
    if (record.ClassMode == 0 || row > record.NumData) {
        return stored.code;
    }
    const double dip = WholeShown(record, row, stored).dip;
    return stored.dip == kErrorRow ? 0 : CodeOfNewRow(record, 0, dip < 0 && dip != kErrorRow);
}

void StoreRow(const PlotRecord& record, std::int32_t row, const BinaryRow& stored, PlotRows& rows) {
    rows.dip.At(row) = stored.dip;
    rows.azimuth.At(row) = stored.azimuth;
    rows.pointDensity.At(row) = stored.density;
    rows.order.At(row) = stored.order;
    rows.symbol.At(row) = stored.code;
    if (record.SecondaryFormat != kNoSecondary) {
        rows.dip2.At(row) = stored.dip2;
        rows.azimuth2.At(row) = stored.azimuth2;
    }
    rows.symbolBase.At(row) = PlainCode(record, row, stored);
    const bool isMain = row <= record.NumData; // files do not store appended data of overlay rows
    if (record.HasAppendedLine != 0) {
        rows.lineDip.At(row) = isMain ? stored.lineDip : kInvalidAppendedLine;
        rows.lineAzimuth.At(row) = isMain ? stored.lineAzimuth : 0;
    }
    if (record.HasAppendedNumeric != 0) {
        rows.number.At(row) = isMain ? stored.number : kInvalidNumber;
    }
}

void StoreRows(const BinaryPlot& file, Plot& plot) {
    for (std::size_t i = 0; i < file.rows.size(); ++i) {
        StoreRow(plot.record, static_cast<std::int32_t>(i) + 1, file.rows[i], plot.rows);
    }
    for (std::size_t i = 0; i < file.texts.size(); ++i) {
        plot.rows.text.Set(static_cast<std::int32_t>(i) + 1, file.texts[i]);
    }
}

/// The order of the row table: that of the file if it is valid, else that of the rows.
std::vector<std::int32_t> OrderOfTable(const BinaryPlot& file) {
    const std::size_t rows = file.rows.size();
    std::vector<std::int32_t> order(rows);
    std::iota(order.begin(), order.end(), 1);
    if (file.table.size() != rows) {
        return order;
    }
    // The main rows in any order, followed by those of the overlays in their own order.
    const auto main = static_cast<std::ptrdiff_t>(file.record.NumData);
    std::vector<std::int32_t> sorted = file.table;
    std::sort(sorted.begin(), sorted.begin() + main);
    return sorted == order ? file.table : order;
}

/// Builds the row table from the rows of the plot.
void StoreTable(const std::vector<std::int32_t>& order, Plot& plot) {
    const PlotRecord& record = plot.record;
    ResizeRowTable(plot.table, order.size());
    for (std::size_t place = 0; place < order.size(); ++place) {
        const std::int32_t row = order[place];
        SetRow(plot.table, place,
               PlottedOrientation(record.PlotKind,
                                  IsPlottedAsPole(record, OverlayOfRow(record, row)), row,
                                  OrientationShown(plot, row)));
    }
}

/// Versions before 9.0 do not store the range of the appended data.
void FindAppendedRange(Plot& plot) {
    ResetAppendedRange(plot.record);
    for (std::int32_t row = 1; row <= plot.record.NumData; ++row) {
        if (plot.rows.dip(row) != kErrorRow) {
            TrackAppendedRange(plot, row);
        }
    }
}

std::string TextOfGirdle(const TaggedValue& plunge, const TaggedValue& trend) {
    double dip = 0;
    double dipDirection = 0;
    PoleOfPlane(NumberOf(plunge), NumberOf(trend), dip, dipDirection);
    OrientationOptions options;
    options.kind = OrientationKind::kPlane;
    std::int16_t convention = 0;
    bool isTrendFirst = false;
    bool isQuadrant = false;
    DecodeConventions(gConventions, convention, isTrendFirst, isQuadrant);
    options.planeConvention = convention;
    options.notation = isQuadrant ? AzimuthNotation::kQuadrant : AzimuthNotation::kAzimuth;
    options.separator = gPlaneSeparator;
    return OrientationText(RadToDegText(dip), RadToDegText(dipDirection), options);
}

/// Girdles from before version 9.1 are named in the current notation. The statistical ones get
/// their names with the statistics.
void NameGirdles(PlotRecord& record) {
    for (std::size_t item = kFirstUserGirdle; item <= kLastUserGirdle; ++item) {
        auto& values = record.AxisItems[item];
        if (!TextOf(values[kItemText]).empty()) {
            values[kItemText] = TextOfGirdle(values[kItemPlunge], values[kItemTrend]);
        }
    }
}

/// Whether a rose has classes that are ranges of numbers. Its rows were checked before it was
/// drawn, and therefore before it was saved.
bool IsRoseOfRanges(const PlotRecord& record) {
    constexpr std::int16_t kFirstByLength = 10;
    constexpr std::int16_t kFirstByText = 20;
    return record.PlotKind == kRose && record.RoseType >= kFirstByLength
           && (record.RoseType < kFirstByText
               || NumberOf(record.ClassTable[kBaseRow][kNameClasses]) == 1);
}

void Take(BinaryPlot file, Plot& plot) {
    const std::vector<std::int32_t> order = OrderOfTable(file);
    PlotRecord& record = plot.record;
    record = std::move(file.record);
    MendMixedAxes(record);
    StoreRows(file, plot);
    TakeBlocks(file, plot);
    StoreTable(order, plot);
    if (file.version < 90) {
        FindAppendedRange(plot);
    }
    if (file.version < 91) {
        NameGirdles(record);
    }
    plot.gridCount = file.gridCount;
    plot.gridValues = std::move(file.gridValues);
    plot.rows.errorLines = std::move(file.errorLines);
    plot.attachments.Drop<LoadCounters>();
    record.RowsChanged = kTrue;
    record.ClassifyCheckPending = IsRoseOfRanges(record) ? std::int16_t{0} : kTrue;
}

} // namespace

bool TakeBinaryPlot(BinaryPlot file, Plot& plot) {
    const bool hasSecondary = file.record.SecondaryFormat != kNoSecondary;
    if (file.record.NumLoadedData > 0
        && !MakeRoom(plot.rows, file.record.NumLoadedData, ColumnsOf(file.record, hasSecondary),
                     RoomAhead::None)) {
        return false;
    }
    Take(std::move(file), plot);
    return true;
}

Result<Plot> ReadPlotFile(std::string_view bytes) {
    Result<BinaryPlot> file = ReadBinaryPlot(bytes);
    if (!file) {
        return Failure{file.Error()};
    }
    try {
        Plot plot;
        if (TakeBinaryPlot(std::move(*file), plot)) {
            return plot;
        }
    } catch (const std::bad_alloc&) { // as where no room was made
    }
    return Failure{kNoMemoryForPlot};
}

} // namespace quandrel
