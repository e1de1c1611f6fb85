// SPDX-License-Identifier: MIT

#include "persistence/binary_plot_file.h"

#include "core/atomic_file.h"
#include "core/data_format.h"
#include "core/messages.h"
#include "core/path_names.h"
#include "core/plot_store.h"
#include "input/data_rows.h"
#include "input/file_loading.h"
#include "input/format_model.h"
#include "input/load_report.h"
#include "input/text_file.h"
#include "orientation/angles.h"
#include "orientation/notation.h"
#include "stereo/axis_rows.h"
#include "stereo/row_positions.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace quandrel {

namespace {

/// The code that a row has when no class gives it another.
SymbolCode PlainCode(const PlotRecord& record, std::int32_t row, const BinaryRow& stored) {
    if (record.ClassMode == 0 || row > record.NumData) {
        return stored.code;
    }
    const std::int32_t dip = OrientationShown(gActivePlot, row).dip;
    return stored.dip == kErrorRow ? 0 : CodeOfNewRow(record, 0, dip < 0 && dip != kErrorRow);
}

void StoreRow(const PlotRecord& record, std::int32_t row, const BinaryRow& stored) {
    gDataDip.At(gActivePlot, row) = stored.dip;
    gDataAz.At(gActivePlot, row) = stored.azimuth;
    gPointDensity.At(gActivePlot, row) = stored.density;
    gDataOrder.At(gActivePlot, row) = stored.order;
    gDataSymbol.At(gActivePlot, row) = stored.code;
    if (record.SecondaryFormat != kNoSecondary) {
        gData2Dip.At(gActivePlot, row) = stored.dip2;
        gData2Az.At(gActivePlot, row) = stored.azimuth2;
    }
    gDataSymbolBase.At(gActivePlot, row) = PlainCode(record, row, stored);
    if (record.HasAppendedLine != 0) {
        const bool isMain = row <= record.NumData; // files keep none of overlay rows
        gAppLineDip.At(gActivePlot, row) = isMain ? stored.lineDip : kInvalidAppendedLine;
        gAppLineAz.At(gActivePlot, row) = isMain ? stored.lineAzimuth : 0;
    }
    if (record.HasAppendedNumeric != 0) {
        gAppNumeric.At(gActivePlot, row) = row <= record.NumData ? stored.number : kInvalidNumber;
    }
}

/// The order of the row table: that of the file where it is one, else that of the rows.
std::vector<std::int32_t> OrderOfTable(const BinaryPlot& plot) {
    const std::size_t rows = plot.rows.size();
    std::vector<std::int32_t> order(rows);
    std::iota(order.begin(), order.end(), 1);
    if (plot.table.size() != rows) {
        return order;
    }
    // The main rows in any order, then those of the overlays in their own.
    const auto main = static_cast<std::ptrdiff_t>(plot.record.NumData);
    std::vector<std::int32_t> sorted = plot.table;
    std::sort(sorted.begin(), sorted.begin() + main);
    return sorted == order ? plot.table : order;
}

void StoreTable(const PlotRecord& record, const std::vector<std::int32_t>& order) {
    ResizeRowTable(TableOf(gActivePlot), order.size());
    for (std::size_t place = 0; place < order.size(); ++place) {
        const std::int32_t row = order[place];
        StoreRowPosition(gActivePlot, place, row, OrientationShown(gActivePlot, row),
                         IsPlottedAsPole(record, OverlayOfRow(record, row)));
    }
}

void NamePlot(PlotRecord& record, const std::string& path) {
    record.SaveFileName = path;
    record.FileNames[1] = path;
    record.NumFiles = 1;
    record.MainFiles = {path};
    record.FileTitle = FileTitleOf(path);
    record.PlotTitle = record.FileTitle + ": " + std::to_string(gActivePlot);
}

/// Versions before 9.0 do not keep the range of the appended data.
void FindAppendedRange(const PlotRecord& record) {
    ResetAppendedRange();
    for (std::int32_t row = 1; row <= record.NumData; ++row) {
        if (gDataDip(gActivePlot, row) != kErrorRow) {
            TrackAppendedRange(row);
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

/// Girdles of before version 9.1 are named in the notation in force. The statistical ones get
/// their names with the statistics.
void NameGirdles(PlotRecord& record) {
    for (std::size_t item = kFirstUserGirdle; item <= kLastUserGirdle; ++item) {
        auto& values = record.AxisItems[item];
        if (!TextOf(values[kItemText]).empty()) {
            values[kItemText] = TextOfGirdle(values[kItemPlunge], values[kItemTrend]);
        }
    }
}

void StoreRows(const BinaryPlot& plot, const PlotRecord& record) {
    for (std::size_t i = 0; i < plot.rows.size(); ++i) {
        StoreRow(record, static_cast<std::int32_t>(i) + 1, plot.rows[i]);
    }
    for (std::size_t i = 0; i < plot.texts.size(); ++i) {
        gAppText.Set(gActivePlot, static_cast<std::int32_t>(i) + 1, plot.texts[i]);
    }
}

/// True for a rose whose classes are ranges of numbers. Its rows were checked before it was drawn,
/// and so before it was saved.
bool IsRoseOfRanges(const PlotRecord& record) {
    constexpr std::int16_t kFirstByLength = 10;
    constexpr std::int16_t kFirstByText = 20;
    return record.PlotKind == kRose && record.RoseType >= kFirstByLength
           && (record.RoseType < kFirstByText
               || NumberOf(record.ClassTable[kBaseRow][kNameClasses]) == 1);
}

void StoreInActivePlot(BinaryPlot plot, const std::string& path) {
    const auto slot = static_cast<std::size_t>(gActivePlot);
    const std::vector<std::int32_t> order = OrderOfTable(plot);
    PlotRecord& record = ActiveRecord();
    record = std::move(plot.record);
    MendMixedAxes(record);
    NamePlot(record, path);
    StoreRows(plot, record);
    StoreTable(record, order);
    if (plot.version < 90) {
        FindAppendedRange(record);
    }
    if (plot.version < 91) {
        NameGirdles(record);
    }
    gGridCount[slot] = plot.gridCount;
    gGridValues[slot] = std::move(plot.gridValues);
    gErrorLines[slot] = std::move(plot.errorLines);
    ActivePlot().attachments.Drop<LoadCounters>();
    record.RowsChanged = kTrue;
    record.ClassifyCheckPending = IsRoseOfRanges(record) ? std::int16_t{0} : kTrue;
    if (plot.place) {
        FormOf(gActivePlot).SetPlace(*plot.place);
    }
}

} // namespace

std::string SaveBinaryPlot(const std::string& path, int slot) {
    const Result<std::string> bytes = BinaryPlotBytes(slot);
    return bytes ? WriteFileAtomically(path, *bytes) : bytes.Error();
}

Result<BinaryPlot> ReadBinaryPlotFile(const std::string& path) {
    const Result<std::string> bytes = FirstBytes(path, kLargestTextFile);
    if (!bytes) {
        return Failure{bytes.Error()};
    }
    return ReadBinaryPlot(*bytes);
}

bool StoreBinaryPlot(BinaryPlot plot, const std::string& path, int slot) {
    const PlotInWork work(slot);
    try {
        const bool hasSecondary = plot.record.SecondaryFormat != kNoSecondary;
        if (plot.record.NumLoadedData > 0
            && !MakeRoom(ActivePlot().rows, plot.record.NumLoadedData,
                         ColumnsOf(plot.record, hasSecondary), RoomAhead::None)) {
            return false;
        }
        StoreInActivePlot(std::move(plot), path);
        return true;
    } catch (const std::bad_alloc&) {
        SetNewFVariables(slot);
        return false;
    }
}

void LoadBinaryPlot(const std::string& path, int slot, std::string& version) {
    version = kLoadError;
    Result<BinaryPlot> plot = ReadBinaryPlotFile(path);
    if (!plot) {
        return;
    }
    const BinaryPlotRemarks remarks = RemarksOn(*plot);
    std::string read = plot->versionText;
    if (StoreBinaryPlot(std::move(*plot), path, slot)) {
        version = std::move(read);
        TellRemarks(remarks);
    }
}

BinaryPlotRemarks RemarksOn(const BinaryPlot& plot) {
    return {plot.hasWeightedRose, plot.isLater ? VersionToTell(plot) : std::string(),
            MixesAxes(plot.record, plot.record.PlotSymbolMode),
            MixesAxesAsRose(plot.record, plot.record.PlotKind)};
}

void TellRemarks(const BinaryPlotRemarks& remarks) {
    if (!remarks.laterVersion.empty()) {
        Tell("This .qpx file was saved by a later version of Quandrel, " + remarks.laterVersion
                 + ".\nWhat only that version knows was left out, and is lost if the plot is saved "
                   "under the same name.",
             Icon::Exclamation);
    }
    if (remarks.hasWeightedRose) {
        Tell("This .qpx file was saved in a previous version of Quandrel.\n"
             "To repeat the weighting used on the original plot you will have to replot the "
             "diagram.",
             Icon::Information);
    }
    if (remarks.mixesAxes) {
        Tell(std::string(kOpensAsPoints) + kMixedAxesRefusal, Icon::Information);
    }
    if (remarks.mixesAxesAsRose) {
        Tell(std::string(kOpensAsNet) + kMixedRoseRefusal, Icon::Information);
    }
}

} // namespace quandrel
