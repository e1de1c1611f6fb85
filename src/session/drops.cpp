// SPDX-License-Identifier: MIT

#include "session/drops.h"

#include "core/letter_case.h"
#include "core/messages.h"
#include "core/path_names.h"
#include "core/plot_store.h"
#include "edit/rows/paste_rows.h"
#include "input/table_files.h"
#include "persistence/open_plot.h"
#include "platform/platform.h"
#include "session/closing.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <system_error>

namespace quandrel {

namespace {

constexpr std::array<const char*, 7> kTextEndings = {".txt", ".csv", ".tsv", ".dat",
                                                     ".asc", ".prn", ".xy"};

/// The tables of a folder, in the order of their names. One that cannot be read has none.
std::vector<std::string> TablesIn(const std::string& folder) {
    std::vector<std::string> tables;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        const std::string path = entry->path().string();
        if (entry->is_regular_file(error) && IsTableName(path)) {
            tables.push_back(path);
        }
    }
    std::ranges::sort(tables);
    tables.resize(std::min(tables.size(), kMostTablesOfFolder));
    return tables;
}

/// How several tables become plots.
enum class TableUse { PlotEach, Overlays, None };

TableUse AskForUse(std::size_t tables) {
    const Button answer =
        gPlatform.prompts->Ask({gCaption,
                                "Make a plot of each of these " + std::to_string(tables)
                                    + " tables?\nWith No they become one plot, with overlays.",
                                Icon::Question, Buttons::YesNoCancel});
    return answer == Button::Yes  ? TableUse::PlotEach
           : answer == Button::No ? TableUse::Overlays
                                  : TableUse::None;
}

} // namespace

bool IsTableName(const std::string& path) {
    const std::string lower = LowerCase(path);
    return HasTableEnding(path) || std::ranges::any_of(kTextEndings, [&lower](const char* ending) {
               return lower.ends_with(ending);
           });
}

std::vector<std::string> FilesOfDrop(const std::vector<std::string>& paths) {
    std::vector<std::string> files;
    for (const std::string& path : paths) {
        std::error_code error;
        if (std::filesystem::is_directory(path, error)) {
            const std::vector<std::string> tables = TablesIn(path);
            files.insert(files.end(), tables.begin(), tables.end());
        } else {
            files.push_back(path);
        }
    }
    return files;
}

void OpenDroppedFiles(const std::vector<std::string>& files,
                      const std::function<void(const std::string&)>& opened) {
    const auto tables = static_cast<std::size_t>(std::ranges::count_if(files, IsTableName));
    const TableUse use = tables > 1 ? AskForUse(tables) : TableUse::PlotEach;
    if (use == TableUse::None) {
        return;
    }
    bool hasPlot = false;
    for (const std::string& file : files) {
        const bool isOverlay = use == TableUse::Overlays && hasPlot && IsTableName(file);
        const std::string outcome =
            isOverlay ? OpenPlotFile(kOverlayCommand, file) : OpenPlotFile("File" + file);
        if (HasOpenedPlot(outcome)) {
            hasPlot = hasPlot || IsTableName(file);
            opened(isOverlay ? kOverlayCommand : "File");
        }
    }
}

bool PasteAsPlot(const std::string& text) {
    if (OpenPlotFile(kBlankCommand) == kLoadError) {
        return false;
    }
    ForgetPasteFormat();
    const bool isPasted = PasteText(text);
    if (!isPasted) {
        CloseWithLinks(gActivePlot);
    }
    return isPasted;
}

} // namespace quandrel
