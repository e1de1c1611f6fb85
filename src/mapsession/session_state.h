// SPDX-License-Identifier: MIT
//
// What a map session holds: tables with their cursors, windows, the selection, what was found last.
//
// Tables and windows are called by name and id; windows remember tables by their names. Names are
// compared without regard to the case of ASCII letters. The name Selection stands for the selected
// rows, in rising order, as a table; row numbers are those of the table that they come from, but a
// fetch counts from 1.

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

/// How far from an object a click may be, in logical pixels.
inline constexpr double kClickTolerance = 5;

/// The row that was fetched.
struct SessionCursor {
    int row = 0;        ///< 0 before the first fetch and behind the last row
    bool atEnd = false; ///< a fetch went behind the last row
};

struct OpenSessionTable {
    SessionTable data;
    SessionCursor cursor;
};

/// Rows of one table.
struct SessionSelection {
    std::string table;     ///< empty for no selection at all
    std::vector<int> rows; ///< in rising order, each once

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
    int style = 0;                    ///< as the statement before it said
    std::vector<SessionLayer> layers; ///< the topmost first; a browser has one, an info none
    MapView view;                     ///< of a map
};

struct SessionObject {
    std::string table;
    int row = 0;
};

/// What the next window gets.
struct SessionParent {
    std::int64_t handle = 0;
    int style = 0;
};

struct SessionState {
    std::vector<std::unique_ptr<OpenSessionTable>> tables; ///< as they were opened
    std::vector<std::unique_ptr<SessionWindow>> windows;   ///< as they were opened
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

    /// The name that they go by.
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

/// An open table, nullptr when there is none of this name.
[[nodiscard]] OpenSessionTable* FindSessionTable(const SessionState& state, std::string_view name);

/// A window, nullptr when there is none of this id.
[[nodiscard]] SessionWindow* FindSessionWindow(const SessionState& state, std::int64_t id);

/// The rows that a name stands for: an open table's, or the selected ones.
[[nodiscard]] SessionResult<SessionRows> RowsNamed(const SessionState& state,
                                                   std::string_view name);

/// Where rows that RowsNamed gave are read.
[[nodiscard]] SessionCursor& CursorOf(SessionState& state, const SessionRows& rows);

/// The box of rows that have shapes.
[[nodiscard]] MapBox BoxOf(const SessionRows& rows);

/// A name for a table of this file or layer that statements can read and no other table has:
/// characters that cannot stand in a name become underlines, a number is put behind.
[[nodiscard]] std::string FreeTableName(const SessionState& state, std::string_view wanted);

/// Objects of a map's selectable layers about a point, within the tolerance of a click, the topmost
/// layer first, rows rising.
[[nodiscard]] std::vector<SessionObject> ObjectsAt(const SessionState& state,
                                                   const SessionWindow& window, MapPoint point);

/// Objects of a map's selectable layers that touch a box, in the same order.
[[nodiscard]] std::vector<SessionObject> ObjectsIn(const SessionState& state,
                                                   const SessionWindow& window, const MapBox& box);

/// Objects of a map's selectable layers no farther from a point than this, in the same order.
[[nodiscard]] std::vector<SessionObject> ObjectsWithin(const SessionState& state,
                                                       const SessionWindow& window, MapPoint middle,
                                                       double radius);

} // namespace quandrel
