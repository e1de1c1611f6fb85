// SPDX-License-Identifier: MIT

#include "session/unplotted_lines.h"

#include "core/measured_rows.h"
#include "core/plot_store.h"
#include "core/settings.h"
#include "input/load_report.h"
#include "persistence/workspace_file.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace quandrel {

namespace {

bool HasErrorLines() {
    return !ActivePlot().rows.errorLines.empty();
}

/// True for a plot that the workspace has opened.
bool ComesFrom(const OpenedWorkspace& workspace, const PlotRecord& record) {
    return std::ranges::find_first_of(record.FileNames, workspace.opened) != record.FileNames.end();
}

/// The files that did not open with the active plot, one line each; empty when all did.
std::string MissingFilesText() {
    const OpenedWorkspace& workspace = LastOpenedWorkspace();
    if (workspace.missing.empty() || !ComesFrom(workspace, ActiveRecord())) {
        return {};
    }
    std::string text =
        TextOfOpening(workspace) + " of the workspace " + workspace.path + ".\nNot opened:\n";
    for (const std::string& path : workspace.missing) {
        text += path + "\n";
    }
    return text;
}

/// The lines without data, by row.
std::string ErrorLinesText() {
    const auto& lines = ActivePlot().rows.errorLines;
    std::vector<std::pair<std::int32_t, std::string>> ordered(lines.begin(), lines.end());
    std::sort(ordered.begin(), ordered.end());
    std::string text;
    if (const LoadCounters* load = LoadOf(ActivePlot())) {
        text = LoadText(*load, ActiveRecord()) + "\n\n";
    }
    text += "row\tline\n";
    for (const auto& [row, line] : ordered) {
        text += std::to_string(row) + "\t" + line + "\n";
    }
    return text;
}

} // namespace

bool HasUnplottedLines() {
    return IsOpenSlot(gActivePlot) && (HasErrorLines() || !MissingFilesText().empty());
}

std::string UnplottedLinesText() {
    if (!HasUnplottedLines()) {
        return {};
    }
    std::string text = MissingFilesText();
    if (HasErrorLines()) {
        text += (text.empty() ? "" : "\n") + ErrorLinesText();
    }
    return text;
}

std::string OpeningText() {
    const OpenedWorkspace& workspace = LastOpenedWorkspace();
    if (!gSettings.files.recent.empty() && gSettings.files.recent.front() == workspace.path) {
        return TextOfOpening(workspace);
    }
    if (!IsOpenSlot(gActivePlot)) {
        return {};
    }
    const Plot& plot = ActivePlot();
    const PlotRecord& record = plot.record;
    if (record.NumFiles == 0) {
        return {};
    }
    if (const LoadCounters* load = LoadOf(plot)) {
        return LoadText(*load, record);
    }
    LoadCounters ofPlotFile;
    ofPlotFile.rowsWithDecimals = CountRowsWithDecimals(plot.rows, 1, record.NumLoadedData);
    return DecimalsText(ofPlotFile, record.UseDecimals != 0);
}

} // namespace quandrel
