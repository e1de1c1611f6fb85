// SPDX-License-Identifier: MIT
//
// The statements of the map session, carried out on its state.

#pragma once

#include "mapsession/session_error.h"
#include "mapsession/session_state.h"
#include "mapsession/statement.h"
#include "mapsession/table_source.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quandrel {

/// What a statement did that others want to know.
struct SessionChanges {
    std::vector<std::int64_t> opened;  ///< windows
    std::vector<std::int64_t> closed;  ///< windows, no longer in the state
    std::vector<std::int64_t> changed; ///< windows that show other tables than before
    bool selection = false;            ///< other rows are selected
    bool views = false;                ///< maps show another part or other layers
};

/// Opens the tables of a file. One that is open already stays open once.
/// @return the names of the file's tables
[[nodiscard]] SessionResult<std::vector<std::string>>
OpenSessionTables(const std::string& path, SessionState& state, TableSource& source);

/// Opens a map of tables, all of which must have shapes. The selection can be one of them; a layer
/// of it shows what is selected at each time. Gives the window's id.
[[nodiscard]] SessionResult<std::int64_t> OpenMap(const std::vector<std::string>& tables,
                                                  SessionState& state, SessionChanges& changes);

/// Opens a browser of a table, or of the selection as it is at each time. Gives the window's id.
[[nodiscard]] SessionResult<std::int64_t> OpenBrowser(const std::string& table, SessionState& state,
                                                      SessionChanges& changes);

/// Opens a window that tells the columns of the first selected row. Gives the window's id.
std::int64_t OpenInfo(SessionState& state, SessionChanges& changes);

/// Closes a table, its layers, and the windows that show nothing else. A selection of it goes.
[[nodiscard]] SessionVerdict CloseSessionTable(const std::string& table, SessionState& state,
                                               SessionChanges& changes);

[[nodiscard]] SessionVerdict CloseSessionWindow(std::int64_t id, SessionState& state,
                                                SessionChanges& changes);

/// Moves the cursor of a table. First and Next go behind the last row without an error; a record
/// that does not exist is one. Either way the table is at its end then.
[[nodiscard]] SessionVerdict Fetch(const FetchStatement& fetch, SessionState& state);

/// The rows of an open table that a Select means, in any order. Their numbers are those of the
/// table, in a Select from the selection too. Numbers of no row are left out.
struct SelectedRows {
    std::string table;
    std::vector<int> rows;
};

[[nodiscard]] SessionResult<SelectedRows> RowsToSelect(const SelectStatement& select,
                                                       const SessionState& state);

/// Makes rows of an open table the selection.
void SetSelection(SelectedRows rows, SessionState& state, SessionChanges& changes);

} // namespace quandrel
