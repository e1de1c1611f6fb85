// SPDX-License-Identifier: MIT
//
// Data files that are not text: spreadsheets and tables of map data. A reader outside the engine
// turns their tables into texts, which are then loaded as texts are; a writer beside it stores
// rows.

#pragma once

#include "core/result.h"
#include "platform/prompts.h"
#include "platform/written_table.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace quandrel {

/// The reader and writer of such files, set by a program that has one.
struct TableFiles {
    /// The tables of a file as texts, or why it cannot be read: its own part of a sentence.
    std::function<Result<std::vector<NamedTable>>(const std::string& path)> read;

    /// A table as the bytes of a file with an ending of kWrittenEndings, or why it cannot be
    /// written.
    std::function<Result<std::string>(const WrittenTable& table, const std::string& ending)> write;

    static TableFiles now;
};

/// Whether a path ends as those of such tables do; texts may end with ".tab", too.
[[nodiscard]] bool HasTableEnding(const std::string& path);

/// Whether a file is such a table: by its ending, and for ".tab" by its first words, since texts
/// have this ending, too.
[[nodiscard]] bool IsTableFile(const std::string& path);

/// The tables of a file, with UTF-8 cells separated by tabs. At least one.
[[nodiscard]] Result<std::vector<NamedTable>> ReadTables(const std::string& path);

/// The endings of the files that are written.
inline constexpr std::array<const char*, 2> kWrittenEndings = {".xlsx", ".gpkg"};

/// A table as the bytes of a file with one of these endings.
[[nodiscard]] Result<std::string> BytesOfTable(const WrittenTable& table,
                                               const std::string& ending);

/// The text of a file. For a table, that of the first one.
///
/// @param[out] tables  of the file; empty for a text
[[nodiscard]] Result<std::string> TextOfFile(const std::string& path,
                                             std::vector<NamedTable>& tables);

} // namespace quandrel
