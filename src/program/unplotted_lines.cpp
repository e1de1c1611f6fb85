// SPDX-License-Identifier: MIT

#include "program/unplotted_lines.h"

#include "core/plot_store.h"
#include "input/load_report.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

namespace quandrel {

bool HasUnplottedLines() {
    return IsOpenSlot(gActivePlot) && !gErrorLines[static_cast<std::size_t>(gActivePlot)].empty();
}

std::string UnplottedLinesText() {
    if (!HasUnplottedLines()) {
        return {};
    }
    const auto& lines = gErrorLines[static_cast<std::size_t>(gActivePlot)];
    std::vector<std::pair<std::int32_t, std::string>> ordered(lines.begin(), lines.end());
    std::sort(ordered.begin(), ordered.end());
    std::string text;
    if (const auto load = gPlotLoads.find(gActivePlot); load != gPlotLoads.end()) {
        text = LoadText(load->second) + "\n\n";
    }
    text += "row\tline\n";
    for (const auto& [row, line] : ordered) {
        text += std::to_string(row) + "\t" + line + "\n";
    }
    return text;
}

} // namespace quandrel
