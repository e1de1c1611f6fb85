// SPDX-License-Identifier: MIT
//
// Names in recovery: those of folders and files, and the texts of a plot that a binary plot file
// derives from its own name, which a copy keeps at its end.
//
// All of them come from a folder that others can write to, so none are trusted.

#pragma once

#include "core/plot_record.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// True for the name of a session's folder: its process id and a number, "1234-1".
[[nodiscard]] bool IsSessionName(std::string_view name);

/// The name of the copy of a slot, "plot_12.qpx".
[[nodiscard]] std::string CopyName(int slot);

/// The slot in a copy's name, or nothing for any other name. Inverse of CopyName.
[[nodiscard]] std::optional<int> SlotOfCopyName(std::string_view name);

/// The texts of a plot that depend on where its files are.
struct CopyNames {
    std::string title;
    std::string saveFile;
    std::string fileTitle;
    std::string headLine;
    std::vector<std::string> files;
    std::vector<std::string> mainFiles;
    std::vector<std::vector<std::string>> overlayFiles; ///< a list for each of the record's

    bool operator==(const CopyNames&) const = default;
};

[[nodiscard]] CopyNames NamesOf(const PlotRecord& record);

/// Names as stored at the end of a copy. A text ends at its first zero byte.
[[nodiscard]] std::string NamesBlock(const CopyNames& names);

/// The names at the end of a copy; nothing when there are none. Inverse of NamesBlock.
[[nodiscard]] std::optional<CopyNames> NamesOfCopy(std::string_view file);

/// Restores the names of a plot. A plot holds kMaxFiles files; the rest are dropped.
void RestoreNames(PlotRecord& record, CopyNames names);

} // namespace quandrel
