// SPDX-License-Identifier: MIT
//
// The source of the map session's tables. The file readers are in a library of their own, which is
// loaded when a session starts; it provides one TableSource.

#pragma once

#include "mapsession/session_error.h"
#include "mapsession/session_table.h"
#include "platform/prompts.h"
#include "platform/written_table.h"

#include <string>
#include <vector>

namespace quandrel {

class TableSource {
public:
    virtual ~TableSource() = default;

    /// Reads all tables of a file.
    ///
    /// @param path  UTF-8
    /// @return at least one table, named after its file or its layer; or the reason why the file
    ///         cannot be read. Throws only when memory runs out.
    [[nodiscard]] virtual SessionResult<std::vector<SessionTable>>
    OpenTables(const std::string& path) = 0;

    /// The tables of a data file as texts: a spreadsheet, or the table of map data.
    ///
    /// @param path  UTF-8
    /// @return at least one table; or the reason why the file cannot be read. A source of maps
    ///         alone reads none
    [[nodiscard]] virtual SessionResult<std::vector<NamedTable>>
    ReadTexts(const std::string& path) {
        return SessionError{kSessionFileError, "There is no reader for " + path};
    }

    /// A table as the bytes of a file.
    ///
    /// @param ending  of the file: ".xlsx" or ".gpkg". A source of maps alone writes none
    [[nodiscard]] virtual SessionResult<std::string> BytesOf(const WrittenTable& /*table*/,
                                                             const std::string& ending) {
        return SessionError{kSessionFileError, "There is no writer for " + ending};
    }
};

/// Changes whenever TableSource or what it returns does, so that a library from another build of
/// the program is refused.
inline constexpr int kTableSourceVersion = 3;

/// The name of the function that such a library exports, and its type: it returns a new
/// TableSource, or nullptr for a version that it does not support.
inline constexpr const char* kTableSourceFunction = "QuandrelMakeTableSource";
using TableSourceFunction = TableSource* (*)(int version);

} // namespace quandrel
