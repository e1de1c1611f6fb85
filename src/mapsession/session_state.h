// SPDX-License-Identifier: MIT
//
// The state of a map session: tables with their cursors, windows, the selection, the last search.
//
// Tables are identified by name, windows by id; windows refer to tables by name. ASCII letters in
// names match in either case. The name Selection means the selected rows, in ascending order, as a
// table. Row numbers are those of the table that the rows come from, but a fetch counts from 1.

#pragma once

#include "mapsession/map_view.h"
#include "mapsession/session_error.h"
#include "mapsession/session_table.h"
#include "mapsession/statement.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quandrel {

/// The name of the table of selected rows.
inline constexpr std::string_view kSelectionName = "Selection";

/// Largest distance of a click from an object, in logical pixels.
inline constexpr double kClickTolerance = 5;

/// The row that was fetched.
struct SessionCursor {
    int row = 0;        ///< 0 before the first fetch and after the last row
    bool atEnd = false; ///< a fetch went past the last row
};

struct OpenSessionTable {
    SessionTable data;
    SessionCursor cursor;
};

/// Rows of one table.
struct SessionSelection {
    std::string table;     ///< empty when nothing is selected
    std::vector<int> rows; ///< in ascending order, each once

    [[nodiscard]] bool Has(std::string_view ofTable, int row) const;
    void Add(std::vector<int> more);
};

enum class SessionWindowKind : int {
    Map = 1,
    Browser = 2,
    Info = 3, ///< the columns of one row
};

struct SessionLayer {
    std::string table; ///< its name, or that of the selection
    bool visible = true;
    bool selectable = true; ///< found by searches and tools
};

struct SessionWindow {
    std::int64_t id = 0;
    SessionWindowKind kind = SessionWindowKind::Map;
    std::int64_t parent = 0;          ///< handle of the window that it belongs in, 0 for none
    int style = 0;                    ///< as stated by the statement before it
    std::vector<SessionLayer> layers; ///< the topmost first; a browser has one, an info none
    MapView view;                     ///< of a map
};

struct SessionObject {
    std::string table;
    int row = 0;
};

/// Settings for the next window.
struct SessionParent {
    std::int64_t handle = 0;
    int style = 0;
};

struct SessionState {
    std::vector<std::unique_ptr<OpenSessionTable>> tables; ///< in the order of opening
    std::vector<std::unique_ptr<SessionWindow>> windows;   ///< in the order of opening
    std::int64_t lastWindowId = 0;                         ///< of the window opened last, or 0
    std::int64_t frontWindowId = 0;                        ///< a map or a browser, or 0
    SessionSelection selection;
    SessionCursor selectionCursor;
    std::vector<SessionObject> found;
    std::int64_t applicationWindow = 0;
    SessionParent nextDocument;
    SessionParent nextInfo;
    std::vector<SessionToolButton> customTools;
    std::vector<MenuStatement> shortcutMenus;
    int tool = 1701; ///< command id or custom tool id
};

/// Rows to read: those of a table, or the selected ones of a table.
struct SessionRows {
    const SessionTable* table = nullptr;
    const std::vector<int>* selected = nullptr; ///< nullptr for all rows

    /// The name used for them.
    [[nodiscard]] std::string_view Name() const {
        return selected ? kSelectionName : std::string_view(table->Name());
    }

    [[nodiscard]] int Count() const {
        return selected ? static_cast<int>(selected->size()) : table->RowCount();
    }

    /// The table's row. @param row  1 to Count()
    [[nodiscard]] int TableRow(int row) const {
        return selected ? (*selected)[static_cast<std::size_t>(row - 1)] : row;
    }
};

/// An open table; nullptr when none has this name.
[[nodiscard]] OpenSessionTable* FindSessionTable(const SessionState& state, std::string_view name);

/// A window; nullptr when none has this id.
[[nodiscard]] SessionWindow* FindSessionWindow(const SessionState& state, std::int64_t id);

/// The rows that a name means: those of an open table, or the selected ones.
[[nodiscard]] SessionResult<SessionRows> RowsNamed(const SessionState& state,
                                                   std::string_view name);

/// The cursor for rows returned by RowsNamed.
[[nodiscard]] SessionCursor& CursorOf(SessionState& state, const SessionRows& rows);

/// The box of rows that have shapes.
[[nodiscard]] MapBox BoxOf(const SessionRows& rows);

/// A name for a table of this file or layer that is valid in statements and not yet used: invalid
/// characters become underscores, and a number is appended.
[[nodiscard]] std::string FreeTableName(const SessionState& state, std::string_view wanted);

/// Objects of a map's selectable layers near a point, within the click tolerance: the topmost layer
/// first, rows ascending.
[[nodiscard]] std::vector<SessionObject> ObjectsAt(const SessionState& state,
                                                   const SessionWindow& window, MapPoint point);

/// Objects of a map's selectable layers that touch a box, in the same order.
[[nodiscard]] std::vector<SessionObject> ObjectsIn(const SessionState& state,
                                                   const SessionWindow& window, const MapBox& box);

/// Objects of a map's selectable layers within this distance of a point, in the same order.
[[nodiscard]] std::vector<SessionObject> ObjectsWithin(const SessionState& state,
                                                       const SessionWindow& window, MapPoint middle,
                                                       double radius);

} // namespace quandrel
