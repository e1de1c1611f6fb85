// SPDX-License-Identifier: MIT
//
// Statements and expressions of the map session, taken apart. What they mean is told at the port,
// platform/map_session.h; besides these there is
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
        Call,   ///< of the function that the name tells
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

/// How a custom tool is dragged.
enum SessionDrawMode : int {
    kDragRectangle = 32,
    kClickPoint = 34,
};

struct SessionToolButton {
    int id = 0;
    int drawMode = kClickPoint;
    std::string method; ///< what the callback's method is called
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
    std::int64_t row = 0; ///< of a Record
    std::string table;
};

struct SelectStatement {
    std::string table;
    std::vector<std::int64_t> rows; ///< as they were written; some may not exist
};

struct RunCommandStatement {
    int command = 0;
    bool isCustom = false; ///< the id of a tool that a button pad has brought
};

using SessionStatement =
    std::variant<ApplicationWindowStatement, DocumentParentStatement, InfoParentStatement,
                 InfoWindowStatement, ButtonPadStatement, MenuStatement, OpenTableStatement,
                 CloseTableStatement, MapStatement, BrowseStatement, CloseWindowStatement,
                 FetchStatement, SelectStatement, RunCommandStatement>;

/// Takes a statement apart. The case of its words does not matter; anything that is not one of the
/// statements as a whole is a syntax error.
[[nodiscard]] SessionResult<SessionStatement> ParseSessionStatement(std::string_view text);

/// Takes an expression apart: a number, a text, a name, name.Col(expression), name.RowID, or a call
/// whose name need not be known here. Calls within calls go 20 deep at most.
[[nodiscard]] SessionResult<SessionExpression> ParseSessionExpression(std::string_view text);

} // namespace quandrel
