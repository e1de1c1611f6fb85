// SPDX-License-Identifier: MIT
//
// A session of a map program: tables of objects, the windows that show them, and a selection. The
// program drives it by statements and queries it by expressions; the session reports what its user
// does through a callback.
//
// All texts are UTF-8. Numbers in statements, expressions, replies and messages have decimal
// points. Rows of tables, columns, layers, tables and found objects count from 1.
//
// Statements (T is the name of a table, H a window handle as a decimal number):
//
// - Set Application Window H
// - Set Next Document Parent H Style 1
// - Set Next Window Info Parent H
// - Open Window Info
// - Create ButtonPad "Custom Tools" As ToolButton ID n DrawMode m Calling OLE "name" ...
// - Create Menu "MapperShortcut" ID 17 As "caption" Calling n, ...
// - Map From T
// - Browse * From T
// - Close Window n
// - Close Table T
// - Fetch First From T
// - Fetch Next From T
// - Fetch Rec n From T
// - Select * From T Where RowID = n or RowID = n ...
// - Run Menu Command ID n
//
// Expressions:
//   NumTables()         TableInfo(i,1) the name, TableInfo(T,4) columns, TableInfo(T,8) rows; the
//                       first argument is a number or a name
//   ColumnInfo(T,"COLi",1)   the name of column i
//   T.Col(i)            the value of a column in the row that was fetched
//   EOT(T)              "T" after the last row, "F" otherwise
//   FrontWindow()       the id of the front window, 0 for none
//   WindowID(0)         the id of the window that was opened last
//   WindowInfo(w,3)     1 for a map, 2 for a browser; WindowInfo(w,10) the table of a browser;
//                       WindowInfo(w,12) the id that identifies the window in calls; w can be
//                       FrontWindow()
//   NumWindows()        number of windows that the session has open
//   MapperInfo(w,9)     layers of a map
//   LayerInfo(w,i,1)    the table of a layer
//   SearchPoint(w,x,y)  SearchRect(w,x,y,x2,y2)   number of objects found there, in all layers
//   SearchInfo(i,1)     the table of found object i, SearchInfo(i,2) its row
//   SelectionInfo(1)    the table that the selection was made from, empty for none
//   SelectionInfo(3)    rows of the selection
//   T.RowID             the number of the row that was fetched
// While something is selected, T can be "Selection": a table of the selected rows, in ascending
// order. Selection.RowID is the number of a row in its own table. NumTables() does not count
// Selection.

#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace quandrel {

enum class MapReplyKind {
    Done,
    Refused, ///< the session is alive, but could not run or answer it
    Dead,    ///< the session is gone; every later call gives the same
};

/// The result of a statement, an expression or a menu command.
struct MapReply {
    MapReplyKind kind = MapReplyKind::Done;
    std::string text; ///< the value of an expression, or the reason for a refusal

    [[nodiscard]] bool IsDone() const { return kind == MapReplyKind::Done; }
};

/// What a session reports. Called during its own event handling, in the program's only thread.
class MapCallback {
public:
    virtual ~MapCallback() = default;

    /// A custom tool was used: "MI:x,y,shift,control,x2,y2,tool" has the first corner, whether the
    /// keys were held ("T" or "F"), the second corner (of a point, the same as the first) and the
    /// tool id. A missing id, or one other than 2001 and 2002, means that the user changed the
    /// selection in another way.
    virtual void HandleToolButton(const std::string& message) = 0;

    /// The session's status line shows this text.
    virtual void SetStatusText(const std::string& text) = 0;

    /// The tables that a window shows have changed, or it was opened or closed.
    virtual void WindowContentsChanged(std::int64_t windowId) = 0;

    /// The session has ended without being destroyed. Its MapSession must not be destroyed before
    /// this returns.
    virtual void SessionEnded() = 0;
};

/// A session. Destroying it ends the link; a session that was started for the link ends too.
class MapSession {
public:
    virtual ~MapSession() = default;

    /// Runs a statement.
    [[nodiscard]] virtual MapReply Do(const std::string& command) = 0;

    /// The value of an expression, as text.
    [[nodiscard]] virtual MapReply Eval(const std::string& expression) = 0;

    /// Runs a menu command or chooses a tool: 102 asks for a table and opens it, 306 finds the
    /// selection, 801 layer control, 1701 selector, 1702 grabber, 1703 radius, 1705 zoom in, 1706
    /// zoom out, 1722 marquee.
    [[nodiscard]] virtual MapReply RunMenuCommand(int id) = 0;

    /// Sets the receiver of the session's reports, which must outlive the session; nullptr for
    /// none.
    virtual void SetCallback(MapCallback* callback) = 0;

    /// Error code of the last Do, Eval or RunMenuCommand; 0 on success.
    [[nodiscard]] virtual int LastErrorCode() = 0;

    /// The Selects between these two calls make one selection, if the session supports that; it
    /// replaces the previous one. Calls do not nest. Without them each Select replaces the previous
    /// selection. EndSelects is called even when a Select failed.
    virtual void BeginSelects() = 0;
    virtual void EndSelects() = 0;

    /// False when the last of several Selects replaces the others, even between those calls.
    [[nodiscard]] virtual bool UnitesSelects() const = 0;
};

/// The source of sessions.
class MapSessions {
public:
    virtual ~MapSessions() = default;

    /// A running session of the map program, or nothing.
    [[nodiscard]] virtual std::unique_ptr<MapSession> FindRunning() = 0;

    /// A new session, or nothing.
    [[nodiscard]] virtual std::unique_ptr<MapSession> Start() = 0;

    /// True when a map program is available to be started.
    [[nodiscard]] virtual bool IsRegistered() = 0;

    /// Advice for the user when Start gave nothing; empty when there is none.
    [[nodiscard]] virtual std::string Help() { return {}; }
};

} // namespace quandrel
