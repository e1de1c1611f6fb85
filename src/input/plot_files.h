// SPDX-License-Identifier: MIT
//
// The files of a plot: their list, what a load of one changes, and how to remove an overlay.

#pragma once

#include "core/plot_rows.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace quandrel {

/// How often a file is in a plot.
[[nodiscard]] std::ptrdiff_t TimesInPlot(const PlotRecord& record, const std::string& path);

[[nodiscard]] bool IsInPlot(const PlotRecord& record, const std::string& path);

/// Adds a file to the list of a plot. The name is dropped when the list is full.
void AddFileName(PlotRecord& record, const std::string& path);

/// Adds another file to the list and to the title of a plot, which name each file only once.
void TakeFileIn(PlotRecord& record, const std::string& path);

/// Removes the last entry of a file from the list and the title of a plot.
void TakeFileOut(PlotRecord& record, const std::string& path);

/// What a load changes in a plot besides its rows, to be restored when the load fails.
struct PlotBeforeLoad {
    std::int16_t numFiles = 0;
    std::array<std::string, kMaxFiles + 1> names;
    std::vector<std::string> mainFiles;
    std::array<std::vector<std::string>, kMaxOverlays + 1> overlayFiles;
    std::string fileTitle;
    std::string plotTitle;
    RowCounts counts;
    std::int16_t selectedOverlay = 0;
    std::int16_t modified = 0;
    RecordRanges ranges;
};

[[nodiscard]] PlotBeforeLoad StateOf(const PlotRecord& record);

/// Restores the range and the distinct values of the appended data.
void RestoreRanges(PlotRecord& record, const PlotBeforeLoad& before);

/// Restores everything and removes rows added since.
void RestoreState(Plot& plot, const PlotBeforeLoad& before);

/// Removes the rows of the last overlay of a plot, and its files.
void RemoveLastOverlay(int slot);

} // namespace quandrel
