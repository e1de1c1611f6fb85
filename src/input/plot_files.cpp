// SPDX-License-Identifier: MIT

#include "input/plot_files.h"

#include "core/path_names.h"
#include "core/plot_store.h"
#include "core/row_links.h"

#include <algorithm>

namespace quandrel {

std::ptrdiff_t TimesInPlot(const PlotRecord& record, const std::string& path) {
    return std::count(record.FileNames.begin() + kFirstFile, record.FileNames.end(), path);
}

bool IsInPlot(const PlotRecord& record, const std::string& path) {
    return TimesInPlot(record, path) > 0;
}

void AddFileName(PlotRecord& record, const std::string& path) {
    if (record.NumFiles < kMaxFiles) {
        ++record.NumFiles;
        record.FileNames[static_cast<std::size_t>(record.NumFiles)] = path;
    }
}

void TakeFileIn(PlotRecord& record, const std::string& path) {
    if (!IsInPlot(record, path)) {
        record.PlotTitle += " + " + FileTitleOf(path);
    }
    AddFileName(record, path);
}

void TakeFileOut(PlotRecord& record, const std::string& path) {
    const auto end = record.FileNames.begin() + record.NumFiles + 1;
    auto place = record.FileNames.end();
    for (auto name = record.FileNames.begin() + kFirstFile; name != end; ++name) {
        place = *name == path ? name : place;
    }
    if (place == record.FileNames.end()) {
        return;
    }
    std::rotate(place, place + 1, end);
    record.FileNames[static_cast<std::size_t>(record.NumFiles--)].clear();
    const std::string named = " + " + FileTitleOf(path);
    const std::size_t inTitle = record.PlotTitle.rfind(named);
    if (!IsInPlot(record, path) && inTitle != std::string::npos) {
        record.PlotTitle.erase(inTitle, named.size());
    }
}

PlotBeforeLoad StateOf(const PlotRecord& record) {
    return {record.NumFiles,  record.FileNames,
            record.MainFiles, record.OverlayFiles,
            record.FileTitle, record.PlotTitle,
            CountsOf(record), record.SelectedOverlay,
            record.Modified,  static_cast<const RecordRanges&>(record)};
}

void RestoreRanges(PlotRecord& record, const PlotBeforeLoad& before) {
    static_cast<RecordRanges&>(record) = before.ranges;
}

void RestoreState(Plot& plot, const PlotBeforeLoad& before) {
    PlotRecord& record = plot.record;
    CutRows(plot, before.counts);
    record.NumFiles = before.numFiles;
    record.FileNames = before.names;
    record.MainFiles = before.mainFiles;
    record.OverlayFiles = before.overlayFiles;
    record.FileTitle = before.fileTitle;
    record.PlotTitle = before.plotTitle;
    record.SelectedOverlay = before.selectedOverlay;
    record.Modified = before.modified;
    RestoreRanges(record, before);
}

void RemoveLastOverlay(int slot) {
    Plot& plot = PlotOf(slot);
    PlotRecord& record = plot.record;
    const std::int32_t last = record.OverlayRows[kOverlayCount];
    if (last < 1) {
        return;
    }
    for (const std::string& path : record.OverlayFiles[static_cast<std::size_t>(last)]) {
        TakeFileOut(record, path);
    }
    RemoveOverlay(plot);
    FollowerOfRows().cut(slot, record.NumLoadedData);
    record.Modified = kTrue;
}

} // namespace quandrel
