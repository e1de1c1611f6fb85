// SPDX-License-Identifier: MIT

#include "edit/rows/kept_rows.h"

#include "core/fingerprint.h"
#include "core/row_links.h"
#include "input/plot_files.h"

#include <algorithm>
#include <span>

namespace quandrel {

namespace {

/// Cells 0 to the last row in use; fewer where a column is shorter.
template <class T>
std::span<const T> CellsInUse(const DataColumn<T>& column, int slot) {
    const std::span<const T> cells = column.Rows(slot);
    const auto inUse = static_cast<std::size_t>(RecordOf(slot).NumLoadedData) + 1;
    return cells.first(std::min(cells.size(), inUse));
}

/// The cells in use up to the last that differs from the default. Cells that were never written
/// read as the default, so the result does not depend on the column's size.
template <class T>
std::span<const T> CellsThatSay(const DataColumn<T>& column, int slot) {
    std::span<const T> cells = CellsInUse(column, slot);
    while (!cells.empty() && BitsOf(cells.back()) == 0) {
        cells = cells.first(cells.size() - 1);
    }
    return cells;
}

template <class T>
void AddCells(std::span<const T> cells, Fingerprint& mix) {
    mix.Add(std::uint64_t{cells.size()});
    for (const T cell : cells) {
        mix.Add(std::uint64_t{BitsOf(cell)});
    }
}

/// The names of the files of a plot, in order.
std::vector<std::string> NamesOf(const PlotRecord& record) {
    const auto first = record.FileNames.begin() + 1;
    return {first, first + record.NumFiles};
}

/// Restores the files of overlays that are added or removed. Other changes of the names since then,
/// as by a save under another name, stay.
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

/// Restores in a record the formats of its rows. The sets shown and the kind of drawing belong to
/// the display: they stay unless the formats change.
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
    if (isOtherFormat || record.NumLoadedData == 0 || settings.counts.all == 0) {
        record.ShowSecondary = settings.showSecondary;
        record.DataKind = settings.dataKind;
        record.PlotKind = settings.plotKind;
    }
}

} // namespace

RowSettings SettingsOfRows(const PlotRecord& record) {
    RowSettings settings;
    settings.counts = CountsOf(record);
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
    settings.mapInfoLinked = record.MapInfoLinked;
    settings.plotTitle = record.PlotTitle;
    settings.fileNames = NamesOf(record);
    settings.classMode = record.ClassMode;
    settings.numberName = record.AppNumName;
    settings.textName = record.AppNonNumName;
    settings.axesTitle = record.AxesTitle;
    settings.overlayFiles = record.OverlayFiles;
    settings.ranges = static_cast<const RecordRanges&>(record);
    settings.layers = record.Layers;
    return settings;
}

void TakeSettingsOfRows(PlotRecord& record, const RowSettings& settings) {
    TakeFormats(record, settings);
    if (CountsOf(record).overlayRows[kOverlayCount] != settings.counts.overlayRows[kOverlayCount]) {
        record.Layers = settings.layers;
    }
    SetCounts(record, settings.counts);
    record.SelectedOverlay = settings.selectedOverlay;
    record.DataFull = settings.dataFull;
    record.AxesTitle = settings.axesTitle;
    TakeOverlayFiles(record, settings);
    static_cast<RecordRanges&>(record) = settings.ranges;
    record.RowsChanged = kTrue;
    record.ClassifyCheckPending = kTrue;
}

KeptRows KeepRows(int slot) {
    KeptRows kept;
    kept.settings = SettingsOfRows(RecordOf(slot));
    ForEachColumn([&](const auto& column, std::size_t place) {
        const auto cells = CellsInUse(column, slot);
        kept.cells[place].resize(cells.size());
        std::ranges::transform(cells, kept.cells[place].begin(),
                               [](auto cell) { return BitsOf(cell); });
    });
    const std::int32_t texts = std::min(gAppText.RowCount(slot), kept.settings.counts.all + 1);
    kept.texts.reserve(static_cast<std::size_t>(texts));
    for (std::int32_t row = 0; row < texts; ++row) {
        kept.texts.emplace_back(gAppText(slot, row));
    }
    kept.errorLines = PlotOf(slot).rows.errorLines;
    kept.links = FollowerOfRows().keep(slot);
    return kept;
}

std::uint64_t FingerprintOfRows(int slot) {
    const PlotRecord& record = RecordOf(slot);
    Fingerprint mix;
    mix.AddWhole(record.NumData);
    mix.AddWhole(record.NumLoadedData);
    for (const std::int32_t rows : record.OverlayRows) {
        mix.AddWhole(rows);
    }
    ForEachColumn([&](const auto& column, std::size_t place) {
        if (!IsWorkedOut(place)) {
            AddCells(CellsThatSay(column, slot), mix);
        }
    });
    std::int32_t texts = std::min(gAppText.RowCount(slot), record.NumLoadedData + 1);
    while (texts > 0 && gAppText(slot, texts - 1).empty()) {
        --texts;
    }
    for (std::int32_t row = 1; row < texts; ++row) {
        mix.Add(gAppText(slot, row));
    }
    return mix.Value();
}

} // namespace quandrel
