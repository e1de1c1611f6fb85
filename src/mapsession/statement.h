// SPDX-License-Identifier: MIT
//
// Parsed statements and expressions of the map session. Their meaning is described in
// platform/map_session.h; in addition there is
//   Open Table "path"

#pragma once

#include "mapsession/session_error.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quandrel {

struct SessionExpression {
    enum class Kind {
        Number,
        Text,
        Name,   ///< the name of a table
        Call,   ///< of the function with this name
        Column, ///< name.Col(argument)
        RowId,  ///< name.RowID
    };
    Kind kind = Kind::Number;
    double number = 0;
    std::string text; ///< the text, or the name of the table or function
    std::vector<SessionExpression> arguments;
};

struct ApplicationWindowStatement {
    std::int64_t handle = 0;
};

struct DocumentParentStatement {
    std::int64_t handle = 0;
    int style = 0;
};

struct InfoParentStatement {
    std::int64_t handle = 0;
};

struct InfoWindowStatement {};

/// The shape that a custom tool drags.
enum SessionDrawMode : int {
    kDragRectangle = 32,
    kClickPoint = 34,
};

struct SessionToolButton {
    int id = 0;
    int drawMode = kClickPoint;
    std::string method; ///< name of the callback's method
};

struct ButtonPadStatement {
    std::string title;
    std::vector<SessionToolButton> buttons;
};

struct SessionMenuItem {
    std::string caption;
    int command = 0;
};

struct MenuStatement {
    std::string name;
    int id = 0;
    std::vector<SessionMenuItem> items;
};

struct OpenTableStatement {
    std::string path;
};

struct CloseTableStatement {
    std::string table;
};

struct MapStatement {
    std::vector<std::string> tables; ///< the topmost layer first
};

struct BrowseStatement {
    std::string table;
};

struct CloseWindowStatement {
    std::int64_t window = 0;
};

struct FetchStatement {
    enum class Position {
        First,
        Next,
        Record,
    };
    Position position = Position::First;
    std::int64_t row = 0; ///< for a Record
    std::string table;
};

struct SelectStatement {
    std::string table;
    std::vector<std::int64_t> rows; ///< as written; some may not exist
};

struct RunCommandStatement {
    int command = 0;
    bool isCustom = false; ///< the id of a tool that a button pad has added
};

using SessionStatement =
    std::variant<ApplicationWindowStatement, DocumentParentStatement, InfoParentStatement,
                 InfoWindowStatement, ButtonPadStatement, MenuStatement, OpenTableStatement,
                 CloseTableStatement, MapStatement, BrowseStatement, CloseWindowStatement,
                 FetchStatement, SelectStatement, RunCommandStatement>;

/// Parses a statement. The case of its words does not matter; a text that is not one complete
/// statement is a syntax error.
[[nodiscard]] SessionResult<SessionStatement> ParseSessionStatement(std::string_view text);

/// Parses an expression: a number, a text, a name, name.Col(expression), name.RowID, or a call,
/// whose name need not be known here. Calls may be nested 20 deep.
[[nodiscard]] SessionResult<SessionExpression> ParseSessionExpression(std::string_view text);

} // namespace quandrel
