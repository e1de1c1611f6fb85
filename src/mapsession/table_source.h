// SPDX-License-Identifier: MIT
//
// Where the map session's tables come from. The readers of files stand in a library of their own
// that is loaded when a session starts; it hands over one TableSource.

#pragma once

#include "mapsession/session_error.h"
#include "mapsession/session_table.h"

#include <string>
#include <vector>

namespace quandrel {

class TableSource {
public:
    virtual ~TableSource() = default;

    /// Reads all tables of a file.
    ///
    /// @param path  UTF-8
    /// @return at least one table, named by its file or its layer; or why the file cannot be read.
    ///         Nothing is thrown but for want of memory.
    [[nodiscard]] virtual SessionResult<std::vector<SessionTable>>
    OpenTables(const std::string& path) = 0;
};

/// Changes whenever TableSource or what it hands over does, so that a library from another build of
/// the program is not taken for this one's.
inline constexpr int kTableSourceVersion = 1;

/// The name of the function that such a library exports, and its form: a new TableSource, or
/// nullptr for a version that it does not have.
inline constexpr const char* kTableSourceFunction = "QuandrelMakeTableSource";
using TableSourceFunction = TableSource* (*)(int version);

} // namespace quandrel
