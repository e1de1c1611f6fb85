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

/// Changes by a statement that have to be reported.
struct SessionChanges {
    std::vector<std::int64_t> opened;  ///< windows
    std::vector<std::int64_t> closed;  ///< windows, no longer in the state
    std::vector<std::int64_t> changed; ///< windows whose tables have changed
    bool selection = false;            ///< other rows are selected
    bool views = false;                ///< the part of a map or its layers have changed
};

/// Opens the tables of a file. A table that is already open is not opened twice.
/// @return the names of the file's tables
[[nodiscard]] SessionResult<std::vector<std::string>>
OpenSessionTables(const std::string& path, SessionState& state, TableSource& source);

/// Opens a map of tables, all of which must have shapes. One of them can be the selection; its
/// layer shows what is currently selected. Returns the window's id.
[[nodiscard]] SessionResult<std::int64_t> OpenMap(const std::vector<std::string>& tables,
                                                  SessionState& state, SessionChanges& changes);

/// Opens a browser of a table, or of the current selection. Returns the window's id.
[[nodiscard]] SessionResult<std::int64_t> OpenBrowser(const std::string& table, SessionState& state,
                                                      SessionChanges& changes);

/// Opens a window that shows the values of the first selected row. Returns the window's id.
std::int64_t OpenInfo(SessionState& state, SessionChanges& changes);

/// Closes a table, its layers, and the windows that show nothing else. A selection of it is
/// cleared.
[[nodiscard]] SessionVerdict CloseSessionTable(const std::string& table, SessionState& state,
                                               SessionChanges& changes);

[[nodiscard]] SessionVerdict CloseSessionWindow(std::int64_t id, SessionState& state,
                                                SessionChanges& changes);

/// Moves the cursor of a table. First and Next may go past the last row without an error; a record
/// that does not exist is an error. In both cases the cursor is at the end then.
[[nodiscard]] SessionVerdict Fetch(const FetchStatement& fetch, SessionState& state);

/// The rows of an open table that a Select names, in any order. Their numbers are those of the
/// table, even in a Select from the selection. Numbers without a row are left out.
struct SelectedRows {
    std::string table;
    std::vector<int> rows;
};

[[nodiscard]] SessionResult<SelectedRows> RowsToSelect(const SelectStatement& select,
                                                       const SessionState& state);

/// Makes rows of an open table the selection.
void SetSelection(SelectedRows rows, SessionState& state, SessionChanges& changes);

} // namespace quandrel
