// SPDX-License-Identifier: MIT
//
// What is dropped on the window or pasted into it from other programs: files, folders, texts.

#pragma once

#include <functional>
#include <string>
#include <vector>

namespace quandrel {

/// The files of paths: a folder is replaced by the tables in it, in the order of their names, at
/// most kMostTablesOfFolder. Other files of a folder are left out.
[[nodiscard]] std::vector<std::string> FilesOfDrop(const std::vector<std::string>& paths);

inline constexpr std::size_t kMostTablesOfFolder = 100;

/// Whether a file is a table by its ending: a text, a spreadsheet, or a table of map data.
[[nodiscard]] bool IsTableName(const std::string& path);

/// Opens files. Several tables become a plot each, or one plot with overlays: this is asked once,
/// and cancelling opens nothing.
///
/// @param opened  called after each file that was opened or added, with the command that did it
void OpenDroppedFiles(const std::vector<std::string>& files,
                      const std::function<void(const std::string&)>& opened);

/// Makes a plot of a text that is rows, in the format of the data format dialog.
///
/// @return false, without a new plot, when the user cancels or nothing can be read
bool PasteAsPlot(const std::string& text);

} // namespace quandrel
