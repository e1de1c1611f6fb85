// SPDX-License-Identifier: MIT
//
// The files of a plot: which they are, what a load of one changes, and how an overlay goes again.

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

/// Adds a file to the list of a plot. A full list has no place for it, and its name is not kept.
void AddFileName(PlotRecord& record, const std::string& path);

/// Adds a further file to the list and to the title of a plot, which names each file once.
void TakeFileIn(PlotRecord& record, const std::string& path);

/// Takes the last place of a file out of the list and the title of a plot.
void TakeFileOut(PlotRecord& record, const std::string& path);

/// What a load changes of a plot besides its rows, to be put back when it comes to nothing.
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
    std::array<double, 2> appendedMin{};
    std::array<double, 2> appendedMax{};
    Table<TaggedValue, kDistinctValues, 2> distinctValues;
};

[[nodiscard]] PlotBeforeLoad StateOf(const PlotRecord& record);

/// Puts the range and the distinct values of the appended data back.
void RestoreRanges(PlotRecord& record, const PlotBeforeLoad& before);

/// Puts everything back, and removes rows that came since.
void RestoreState(Plot& plot, const PlotBeforeLoad& before);

/// Takes the rows of the last overlay of a plot away, and its files.
void RemoveLastOverlay(int slot);

} // namespace quandrel
