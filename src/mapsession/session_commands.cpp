// SPDX-License-Identifier: MIT

#include "mapsession/session_commands.h"

#include "mapsession/statement_lexer.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <utility>

namespace quandrel {
namespace {

/// The names of tables that were read from a file.
std::vector<std::string> TablesOfFile(const SessionState& state, const std::string& path) {
    std::vector<std::string> names;
    for (const auto& table : state.tables) {
        if (table->data.Path() == path) {
            names.push_back(table->data.Name());
        }
    }
    return names;
}

std::int64_t AddWindow(SessionWindow window, SessionState& state, SessionChanges& changes) {
    window.id = ++state.lastWindowId;
    SessionParent& next =
        window.kind == SessionWindowKind::Info ? state.nextInfo : state.nextDocument;
    window.parent = next.handle != 0 ? next.handle : state.applicationWindow;
    window.style = next.style;
    next = {};
    if (window.kind != SessionWindowKind::Info) {
        state.frontWindowId = window.id;
    }
    changes.opened.push_back(window.id);
    state.windows.push_back(std::make_unique<SessionWindow>(std::move(window)));
    return state.lastWindowId;
}

/// The map or browser that comes to the front when another is closed.
std::int64_t NextInFront(const SessionState& state) {
    const auto next =
        std::find_if(state.windows.rbegin(), state.windows.rend(),
                     [](const auto& window) { return window->kind != SessionWindowKind::Info; });
    return next == state.windows.rend() ? 0 : (*next)->id;
}

/// Removes a table from a window. True when the window has nothing left to show.
bool DropLayer(SessionWindow& window, const std::string& table, SessionChanges& changes) {
    const auto dropped = std::erase_if(
        window.layers, [&](const SessionLayer& layer) { return EqualNames(layer.table, table); });
    if (dropped > 0 && !window.layers.empty()) {
        changes.changed.push_back(window.id);
    }
    return dropped > 0 && window.layers.empty();
}

} // namespace

SessionResult<std::vector<std::string>>
OpenSessionTables(const std::string& path, SessionState& state, TableSource& source) {
    std::vector<std::string> names = TablesOfFile(state, path);
    if (!names.empty()) {
        return names;
    }
    SessionResult<std::vector<SessionTable>> tables = source.OpenTables(path);
    if (!tables) {
        return tables.Error();
    }
    for (SessionTable& table : *tables) {
        table.Rename(FreeTableName(state, table.Name()));
        names.push_back(table.Name());
        state.tables.push_back(
            std::make_unique<OpenSessionTable>(OpenSessionTable{std::move(table), {}}));
    }
    return names;
}

SessionResult<std::int64_t> OpenMap(const std::vector<std::string>& tables, SessionState& state,
                                    SessionChanges& changes) {
    SessionWindow window;
    MapBox box;
    for (const std::string& name : tables) {
        const SessionResult<SessionRows> rows = RowsNamed(state, name);
        if (!rows) {
            return rows.Error();
        }
        const MapBox ofRows = BoxOf(*rows);
        if (ofRows.IsEmpty()) {
            return SessionError{kSessionNoSuchTable, "Table " + name + " has no objects to map"};
        }
        window.layers.push_back({std::string(rows->Name())});
        box.Include(ofRows);
    }
    window.view.FitTo(box);
    return AddWindow(std::move(window), state, changes);
}

SessionResult<std::int64_t> OpenBrowser(const std::string& table, SessionState& state,
                                        SessionChanges& changes) {
    const SessionResult<SessionRows> rows = RowsNamed(state, table);
    if (!rows) {
        return rows.Error();
    }
    SessionWindow window;
    window.kind = SessionWindowKind::Browser;
    window.layers.push_back({std::string(rows->Name())});
    return AddWindow(std::move(window), state, changes);
}

std::int64_t OpenInfo(SessionState& state, SessionChanges& changes) {
    SessionWindow window;
    window.kind = SessionWindowKind::Info;
    return AddWindow(std::move(window), state, changes);
}

SessionVerdict CloseSessionTable(const std::string& table, SessionState& state,
                                 SessionChanges& changes) {
    const OpenSessionTable* const open = FindSessionTable(state, table);
    if (!open) {
        return SessionError{kSessionNoSuchTable, "Table " + table + " is not open"};
    }
    const std::string name = open->data.Name();
    std::vector<std::int64_t> emptied;
    for (const auto& window : state.windows) {
        if (DropLayer(*window, name, changes)) {
            emptied.push_back(window->id);
        }
    }
    for (const std::int64_t id : emptied) {
        (void)CloseSessionWindow(id, state, changes);
    }
    if (EqualNames(state.selection.table, name)) {
        state.selection = {};
        state.selectionCursor = {};
        changes.selection = true;
    }
    std::erase_if(state.found,
                  [&](const SessionObject& object) { return EqualNames(object.table, name); });
    std::erase_if(state.tables,
                  [&](const auto& candidate) { return candidate->data.Name() == name; });
    return SessionDone();
}

SessionVerdict CloseSessionWindow(std::int64_t id, SessionState& state, SessionChanges& changes) {
    const auto closed =
        std::erase_if(state.windows, [id](const auto& window) { return window->id == id; });
    if (closed == 0) {
        return SessionError{kSessionNoSuchWindow, "No window with this id is open"};
    }
    changes.closed.push_back(id);
    if (state.frontWindowId == id) {
        state.frontWindowId = NextInFront(state);
    }
    return SessionDone();
}

SessionVerdict Fetch(const FetchStatement& fetch, SessionState& state) {
    const SessionResult<SessionRows> rows = RowsNamed(state, fetch.table);
    if (!rows) {
        return rows.Error();
    }
    SessionCursor& cursor = CursorOf(state, *rows);
    std::int64_t row = 1;
    if (fetch.position == FetchStatement::Position::Record) {
        row = fetch.row;
    } else if (fetch.position == FetchStatement::Position::Next) {
        row = cursor.atEnd ? rows->Count() + 1 : cursor.row + 1;
    }
    const bool exists = row >= 1 && row <= rows->Count();
    cursor = {exists ? static_cast<int>(row) : 0, !exists};
    if (!exists && fetch.position == FetchStatement::Position::Record) {
        return SessionError{kSessionNoSuchRow, "Table " + fetch.table + " has no such row"};
    }
    return SessionDone();
}

SessionResult<SelectedRows> RowsToSelect(const SelectStatement& select, const SessionState& state) {
    const SessionResult<SessionRows> rows = RowsNamed(state, select.table);
    if (!rows) {
        return rows.Error();
    }
    SelectedRows selected{rows->table->Name(), {}};
    for (const std::int64_t wanted : select.rows) {
        if (wanted < 1 || wanted > rows->table->RowCount()) {
            continue;
        }
        const int row = static_cast<int>(wanted);
        if (!rows->selected || state.selection.Has(rows->table->Name(), row)) {
            selected.rows.push_back(row);
        }
    }
    return selected;
}

void SetSelection(SelectedRows rows, SessionState& state, SessionChanges& changes) {
    SessionSelection selection{std::move(rows.table), {}};
    selection.Add(std::move(rows.rows));
    changes.selection = true;
    state.selection = std::move(selection);
    state.selectionCursor = {};
}

} // namespace quandrel
