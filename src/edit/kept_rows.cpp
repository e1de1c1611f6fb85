// SPDX-License-Identifier: MIT

#include "edit/kept_rows.h"

#include "core/plot_store.h"
#include "core/row_links.h"
#include "derive/derived_plots.h"
#include "edit/fingerprint.h"
#include "input/plot_files.h"
#include "orientation/angles.h"
#include "stereo/row_positions.h"

#include <algorithm>

namespace quandrel {

namespace {

std::array<DataColumn<std::int32_t>*, 8> WholeColumns() {
    return {&gDataDip,    &gDataAz,    &gData2Dip,     &gData2Az,
            &gAppLineDip, &gAppLineAz, &gPointDensity, &gDataOrder};
}

std::array<DataColumn<SymbolCode>*, 2> SymbolColumns() {
    return {&gDataSymbol, &gDataSymbolBase};
}

/// Cells 0 to the last row in use; fewer where a column is shorter.
template <class T>
std::span<const T> CellsInUse(const DataColumn<T>& column, int slot) {
    const std::span<const T> cells = column.Rows(slot);
    const auto inUse = static_cast<std::size_t>(RecordOf(slot).NumLoadedData) + 1;
    return cells.first(std::min(cells.size(), inUse));
}

template <class T>
std::vector<T> CopyOf(const DataColumn<T>& column, int slot) {
    const auto cells = CellsInUse(column, slot);
    return {cells.begin(), cells.end()};
}

template <class T>
void WriteBack(const std::vector<T>& cells, DataColumn<T>& column, int slot) {
    if (cells.empty()) {
        return;
    }
    column.Grow(slot, static_cast<std::int32_t>(cells.size()) - 1);
    for (std::size_t row = 1; row < cells.size(); ++row) {
        column.At(slot, static_cast<std::int32_t>(row)) = cells[row];
    }
}

/// The names of the files of a plot, in their order.
std::vector<std::string> NamesOf(const PlotRecord& record) {
    const auto first = record.FileNames.begin() + 1;
    return {first, first + record.NumFiles};
}

/// Files of overlays that come or go take their names with them. What else has become of the names
/// since, as by a save under another one, stays.
void TakeOverlayFiles(PlotRecord& record, const RowSettings& settings) {
    for (std::size_t overlay = 1; overlay < record.OverlayFiles.size(); ++overlay) {
        const std::vector<std::string>& now = record.OverlayFiles[overlay];
        const std::vector<std::string>& kept = settings.overlayFiles[overlay];
        if (now == kept) {
            continue;
        }
        std::ranges::for_each(now,
                              [&record](const std::string& path) { TakeFileOut(record, path); });
        std::ranges::for_each(kept,
                              [&record](const std::string& path) { TakeFileIn(record, path); });
    }
    record.OverlayFiles = settings.overlayFiles;
    const std::vector<std::string> names = NamesOf(record);
    if (std::ranges::is_permutation(names, settings.fileNames)) {
        std::ranges::copy(settings.fileNames, record.FileNames.begin() + 1);
        record.PlotTitle = settings.plotTitle;
    }
}

RowSettings SettingsOf(const PlotRecord& record) {
    RowSettings settings;
    settings.numValidData = record.NumValidData;
    settings.numData = record.NumData;
    settings.numLoadedData = record.NumLoadedData;
    settings.primaryFormat = record.PrimaryFormat;
    settings.secondaryFormat = record.SecondaryFormat;
    settings.showSecondary = record.ShowSecondary;
    settings.dataKind = record.DataKind;
    settings.plotKind = record.PlotKind;
    settings.selectedOverlay = record.SelectedOverlay;
    settings.hasAppendedLine = record.HasAppendedLine;
    settings.hasAppendedNumeric = record.HasAppendedNumeric;
    settings.hasAppendedText = record.HasAppendedText;
    settings.dataFull = record.DataFull;
    settings.modified = record.Modified;
    settings.mapInfoLinked = record.MapInfoLinked;
    settings.plotTitle = record.PlotTitle;
    settings.fileNames = NamesOf(record);
    settings.classMode = record.ClassMode;
    settings.numberName = record.AppNumName;
    settings.textName = record.AppNonNumName;
    settings.axesTitle = record.AxesTitle;
    settings.overlayRows = record.OverlayRows;
    settings.overlayKind = record.OverlayKind;
    settings.overlayFiles = record.OverlayFiles;
    settings.appendedMin = record.AppendedMin;
    settings.appendedMax = record.AppendedMax;
    settings.distinctValues = record.DistinctValues;
    return settings;
}

/// Gives a record what is kept of its rows' formats. The sets shown and the kind of drawing are a
/// matter of the display, and stay as they are while the formats do.
void TakeFormats(PlotRecord& record, const RowSettings& settings) {
    const bool isOtherFormat = record.PrimaryFormat != settings.primaryFormat
                               || record.SecondaryFormat != settings.secondaryFormat;
    record.PrimaryFormat = settings.primaryFormat;
    record.SecondaryFormat = settings.secondaryFormat;
    record.HasAppendedLine = settings.hasAppendedLine;
    record.HasAppendedNumeric = settings.hasAppendedNumeric;
    record.HasAppendedText = settings.hasAppendedText;
    record.AppNumName = settings.numberName;
    record.AppNonNumName = settings.textName;
    if (isOtherFormat || record.NumLoadedData == 0 || settings.numLoadedData == 0) {
        record.ShowSecondary = settings.showSecondary;
        record.DataKind = settings.dataKind;
        record.PlotKind = settings.plotKind;
    }
}

void TakeSettings(PlotRecord& record, const RowSettings& settings) {
    TakeFormats(record, settings);
    record.NumValidData = settings.numValidData;
    record.NumData = settings.numData;
    record.NumLoadedData = settings.numLoadedData;
    record.SelectedOverlay = settings.selectedOverlay;
    record.DataFull = settings.dataFull;
    record.Modified = ModifiedWithout(record.Modified, settings.modified);
    record.AxesTitle = settings.axesTitle;
    record.OverlayRows = settings.overlayRows;
    record.OverlayKind = settings.overlayKind;
    TakeOverlayFiles(record, settings);
    record.AppendedMin = settings.appendedMin;
    record.AppendedMax = settings.appendedMax;
    record.DistinctValues = settings.distinctValues;
    record.RowsChanged = kTrue;
    record.ClassifyCheckPending = kTrue;
}

/// The rows of a plot that stay, in their order.
class RowsThatStay {
public:
    RowsThatStay(std::int32_t count, std::span<const std::int32_t> removed) {
        rows_.reserve(static_cast<std::size_t>(count));
        auto next = removed.begin();
        for (std::int32_t row = 1; row <= count; ++row) {
            if (next != removed.end() && *next == row) {
                ++next;
            } else {
                rows_.push_back(row);
            }
        }
    }

    [[nodiscard]] const std::vector<std::int32_t>& Rows() const { return rows_; }

    /// Moves the cells that stay together. Cells beyond a column's end were never written.
    template <class T>
    void MoveUp(DataColumn<T>& column, int slot) const {
        const std::int32_t end = column.RowCount(slot);
        for (std::size_t place = 0; place < rows_.size() && rows_[place] < end; ++place) {
            column.At(slot, static_cast<std::int32_t>(place) + 1) = column(slot, rows_[place]);
        }
    }

    void MoveUp(TextColumn& column, int slot) const {
        const std::int32_t end = column.RowCount(slot);
        for (std::size_t place = 0; place < rows_.size() && rows_[place] < end; ++place) {
            const auto row = static_cast<std::int32_t>(place) + 1;
            if (row != rows_[place]) {
                column.Set(slot, row, std::string(column(slot, rows_[place])));
            }
        }
    }

    void Renumber(std::unordered_map<std::int32_t, std::string>& lines) const {
        std::unordered_map<std::int32_t, std::string> renumbered;
        for (auto& [row, line] : lines) {
            const auto place = std::lower_bound(rows_.begin(), rows_.end(), row);
            if (place != rows_.end() && *place == row) {
                renumbered[static_cast<std::int32_t>(place - rows_.begin()) + 1] = std::move(line);
            }
        }
        lines = std::move(renumbered);
    }

private:
    std::vector<std::int32_t> rows_;
};

/// Takes an overlay without rows out of the tables of a record.
void CloseUpOverlay(PlotRecord& record, std::size_t overlay) {
    const auto last = static_cast<std::size_t>(record.OverlayRows[0]);
    for (std::size_t k = overlay; k < last; ++k) {
        record.OverlayRows[k] = record.OverlayRows[k + 1];
        record.OverlayKind[k] = record.OverlayKind[k + 1];
        record.OverlayFiles[k] = std::move(record.OverlayFiles[k + 1]);
    }
    record.OverlayRows[last] = 0;
    record.OverlayKind[last] = 0;
    record.OverlayFiles[last].clear();
    --record.OverlayRows[0];
    if (record.SelectedOverlay == static_cast<std::int16_t>(overlay)) {
        record.SelectedOverlay = 0;
    } else if (record.SelectedOverlay > static_cast<std::int16_t>(overlay)) {
        --record.SelectedOverlay;
    }
}

/// Takes rows out of the counts of a plot. The columns must still hold them.
void CountRowsOut(int slot, std::span<const std::int32_t> rows) {
    PlotRecord& record = RecordOf(slot);
    std::array<std::int32_t, kMaxOverlays + 1> ofOverlay{};
    for (const std::int32_t row : rows) {
        const auto overlay = static_cast<std::size_t>(OverlayOfRow(record, row));
        ++ofOverlay[overlay];
        if (overlay == 0 && gDataDip(slot, row) != kErrorRow) {
            record.NumValidData = std::max(record.NumValidData - 1, 0);
        }
    }
    record.NumData -= ofOverlay[0];
    record.NumLoadedData -= static_cast<std::int32_t>(rows.size());
    for (auto overlay = static_cast<std::size_t>(record.OverlayRows[0]); overlay > 0; --overlay) {
        record.OverlayRows[overlay] -= ofOverlay[overlay];
        if (ofOverlay[overlay] > 0 && record.OverlayRows[overlay] == 0) {
            CloseUpOverlay(record, overlay);
        }
    }
}

} // namespace

std::int16_t ModifiedWithout(std::int16_t now, std::int16_t kept) {
    // What was saved since differs from its file again; what else has changed is still there.
    return now == kModifiedByLastEdit ? kept : kTrue;
}

KeptRows KeepRows(int slot) {
    KeptRows kept;
    kept.settings = SettingsOf(RecordOf(slot));
    const auto whole = WholeColumns();
    for (std::size_t i = 0; i < whole.size(); ++i) {
        kept.whole[i] = CopyOf(*whole[i], slot);
    }
    const auto symbols = SymbolColumns();
    for (std::size_t i = 0; i < symbols.size(); ++i) {
        kept.symbols[i] = CopyOf(*symbols[i], slot);
    }
    kept.numbers = CopyOf(gAppNumeric, slot);
    const std::int32_t texts = std::min(gAppText.RowCount(slot), kept.settings.numLoadedData + 1);
    kept.texts.reserve(static_cast<std::size_t>(texts));
    for (std::int32_t row = 0; row < texts; ++row) {
        kept.texts.emplace_back(gAppText(slot, row));
    }
    kept.errorLines = gErrorLines[static_cast<std::size_t>(slot)];
    kept.links = gRowFollower.keep ? gRowFollower.keep(slot) : nullptr;
    return kept;
}

void PutRowsBack(int slot, const KeptRows& rows) {
    PlotRecord& record = RecordOf(slot);
    const auto whole = WholeColumns();
    for (std::size_t i = 0; i < whole.size(); ++i) {
        WriteBack(rows.whole[i], *whole[i], slot);
    }
    // Colours of classes that are shown no longer are not put back.
    const bool isOtherDisplay = record.ClassMode != rows.settings.classMode;
    WriteBack(isOtherDisplay ? rows.symbols[1] : rows.symbols[0], gDataSymbol, slot);
    WriteBack(rows.symbols[1], gDataSymbolBase, slot);
    WriteBack(rows.numbers, gAppNumeric, slot);
    if (!rows.texts.empty()) {
        gAppText.Grow(slot, static_cast<std::int32_t>(rows.texts.size()) - 1);
    }
    for (std::size_t row = 1; row < rows.texts.size(); ++row) {
        const auto index = static_cast<std::int32_t>(row);
        if (gAppText(slot, index) != rows.texts[row]) {
            gAppText.Set(slot, index, rows.texts[row]);
        }
    }
    gErrorLines[static_cast<std::size_t>(slot)] = rows.errorLines;
    TakeSettings(record, rows.settings);
    if (gRowFollower.putBack) {
        gRowFollower.putBack(slot, rows.links);
    }
    RebuildRowTable(slot);
}

std::uint64_t FingerprintOfRows(int slot) {
    const PlotRecord& record = RecordOf(slot);
    Fingerprint mix;
    mix.AddWhole(record.NumData);
    mix.AddWhole(record.NumLoadedData);
    for (const std::int32_t rows : record.OverlayRows) {
        mix.AddWhole(rows);
    }
    for (const DataColumn<std::int32_t>* column :
         {&gDataDip, &gDataAz, &gData2Dip, &gData2Az, &gAppLineDip, &gAppLineAz, &gDataOrder}) {
        mix.AddCells(CellsInUse(*column, slot));
    }
    mix.AddCells(CellsInUse(gDataSymbolBase, slot));
    mix.AddCells(CellsInUse(gAppNumeric, slot));
    const std::int32_t texts = std::min(gAppText.RowCount(slot), record.NumLoadedData + 1);
    for (std::int32_t row = 1; row < texts; ++row) {
        mix.Add(gAppText(slot, row));
    }
    return mix.Value();
}

KeptAnnotations KeepAnnotations(int slot) {
    const PlotRecord& record = RecordOf(slot);
    return {record.PlotAnnotations ? *record.PlotAnnotations : Annotations{},
            record.ShowAnnotations, record.Modified};
}

void PutAnnotationsBack(int slot, const KeptAnnotations& kept) {
    PlotRecord& record = RecordOf(slot);
    if (record.PlotAnnotations || !kept.annotations.empty()) {
        record.PlotAnnotations = std::make_unique<Annotations>(kept.annotations);
    }
    record.ShowAnnotations = kept.shown;
    record.Modified = ModifiedWithout(record.Modified, kept.modified);
}

std::uint64_t FingerprintOfAnnotations(int slot) {
    Fingerprint mix;
    for (const Annotation& annotation : KeepAnnotations(slot).annotations) {
        for (const std::int16_t value :
             {annotation.X, annotation.Y, annotation.SymbolType, annotation.Colour, annotation.Size,
              annotation.lineStyle}) {
            mix.AddWhole(value);
        }
        mix.Add(annotation.Tag);
        mix.Add(std::uint64_t{annotation.LineNodes.size()});
        for (const LineNode& node : annotation.LineNodes) {
            mix.AddWhole(node.X);
            mix.AddWhole(node.Y);
        }
    }
    return mix.Value();
}

void RemoveRows(int slot, std::span<const std::int32_t> rows) {
    if (rows.empty()) {
        return;
    }
    const PlotInWork work(slot);
    PlotRecord& record = RecordOf(slot);
    // Axes of which some are gone are no longer those of their parent's faults.
    TakeAxesAsLines(record);
    const RowsThatStay stay(record.NumLoadedData, rows);
    CountRowsOut(slot, rows);
    for (DataColumn<std::int32_t>* column : WholeColumns()) {
        stay.MoveUp(*column, slot);
    }
    for (DataColumn<SymbolCode>* column : SymbolColumns()) {
        stay.MoveUp(*column, slot);
    }
    stay.MoveUp(gAppNumeric, slot);
    stay.MoveUp(gAppText, slot);
    stay.Renumber(gErrorLines[static_cast<std::size_t>(slot)]);
    record.DataFull = 0;
    record.Modified = kTrue;
    record.ClassifyCheckPending = kTrue;
    RecountAppendedRange();
    RebuildRowTable(slot);
}

void RecountAppendedRange() {
    ResetAppendedRange();
    const PlotRecord& record = ActiveRecord();
    if (record.HasAppendedNumeric == 0 && record.HasAppendedText == 0) {
        return;
    }
    for (std::int32_t row = 1; row <= record.NumLoadedData; ++row) {
        if (gDataDip(gActivePlot, row) != kErrorRow) {
            TrackAppendedRange(row);
        }
    }
}

} // namespace quandrel
