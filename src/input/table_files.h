// SPDX-License-Identifier: MIT
//
// Data files that are not text: spreadsheets and tables of map data. A reader outside the engine
// turns their tables into texts, which are then loaded as texts are.

#pragma once

#include "core/result.h"
#include "platform/prompts.h"

#include <functional>
#include <string>
#include <vector>

namespace quandrel {

/// The reader of such files, set by a program that has one.
struct TableFiles {
    /// The tables of a file as texts, or why it cannot be read: its own part of a sentence.
    std::function<Result<std::vector<NamedTable>>(const std::string& path)> read;

    static TableFiles now;
};

/// Whether a path ends as those of such tables do; texts may end with ".tab", too.
[[nodiscard]] bool HasTableEnding(const std::string& path);

/// Whether a file is such a table: by its ending, and for ".tab" by its first words, since texts
/// have this ending, too.
[[nodiscard]] bool IsTableFile(const std::string& path);

/// The tables of a file, with UTF-8 cells separated by tabs. At least one.
[[nodiscard]] Result<std::vector<NamedTable>> ReadTables(const std::string& path);

/// The text of a file. For a table, that of the first one.
///
/// @param[out] tables  of the file; empty for a text
[[nodiscard]] Result<std::string> TextOfFile(const std::string& path,
                                             std::vector<NamedTable>& tables);

} // namespace quandrel
