// SPDX-License-Identifier: MIT

#include "mapsession/session_evaluator.h"

#include "mapsession/statement_lexer.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <variant>

namespace quandrel {
namespace {

/// A value during evaluation. A name that is not a call evaluates to itself, as a text.
using Value = std::variant<double, std::string>;
using Values = std::span<const Value>;
using Outcome = SessionResult<Value>;

SessionError Wrong(int code, std::string text) {
    return {code, std::move(text)};
}

std::optional<std::int64_t> WholeNumber(const Value& value) {
    constexpr double kLargest = 9007199254740992.0;
    const double* const number = std::get_if<double>(&value);
    if (!number || !(std::abs(*number) <= kLargest) || *number != std::trunc(*number)) {
        return std::nullopt;
    }
    return static_cast<std::int64_t>(*number);
}

/// The number after the table, layer or window in an information function; -1 for none.
std::int64_t Attribute(const Value& value) {
    return WholeNumber(value).value_or(-1);
}

SessionError NoSuchAttribute(const char* function) {
    return Wrong(kSessionNoSuchItem, std::string(function) + " has no such attribute");
}

/// Rows by name, or by the number of their table.
SessionResult<SessionRows> RowsOf(const Value& table, SessionState& state) {
    if (const std::string* const name = std::get_if<std::string>(&table)) {
        return RowsNamed(state, *name);
    }
    const std::optional<std::int64_t> number = WholeNumber(table);
    if (!number || *number < 1 || *number > static_cast<std::int64_t>(state.tables.size())) {
        return Wrong(kSessionNoSuchTable, "No table with this number is open");
    }
    return RowsNamed(state, state.tables[static_cast<std::size_t>(*number - 1)]->data.Name());
}

SessionResult<SessionWindow*> WindowOf(const Value& id, SessionState& state) {
    const std::optional<std::int64_t> number = WholeNumber(id);
    SessionWindow* const window = number ? FindSessionWindow(state, *number) : nullptr;
    if (!window) {
        return Wrong(kSessionNoSuchWindow, "No window with this id is open");
    }
    return window;
}

SessionResult<SessionWindow*> MapOf(const Value& id, SessionState& state) {
    SessionResult<SessionWindow*> window = WindowOf(id, state);
    if (window && (*window)->kind != SessionWindowKind::Map) {
        return Wrong(kSessionNoSuchWindow, "The window is not a map");
    }
    return window;
}

Outcome NumTables(Values, SessionState& state) {
    return Value(static_cast<double>(state.tables.size()));
}

Outcome TableInfo(Values arguments, SessionState& state) {
    const SessionResult<SessionRows> rows = RowsOf(arguments[0], state);
    if (!rows) {
        return rows.Error();
    }
    switch (Attribute(arguments[1])) {
    case 1:
        return Value(std::string(rows->Name()));
    case 4:
        return Value(static_cast<double>(rows->table->ColumnCount()));
    case 8:
        return Value(static_cast<double>(rows->Count()));
    default:
        return NoSuchAttribute("TableInfo");
    }
}

/// The number of a column called "COLi"; 0 for other names.
std::int64_t ColumnCalled(const Value& value) {
    constexpr std::string_view kHead = "COL";
    const std::string* const text = std::get_if<std::string>(&value);
    if (!text || !EqualNames(std::string_view(*text).substr(0, kHead.size()), kHead)) {
        return 0;
    }
    std::int64_t column = 0;
    const char* const end = text->data() + text->size();
    const std::from_chars_result read = std::from_chars(text->data() + kHead.size(), end, column);
    return read.ec == std::errc() && read.ptr == end ? column : 0;
}

Outcome ColumnInfo(Values arguments, SessionState& state) {
    const SessionResult<SessionRows> rows = RowsOf(arguments[0], state);
    if (!rows) {
        return rows.Error();
    }
    const std::int64_t column = ColumnCalled(arguments[1]);
    if (column < 1 || column > rows->table->ColumnCount()) {
        return Wrong(kSessionNoSuchColumn, "The table has no such column");
    }
    if (Attribute(arguments[2]) != 1) {
        return NoSuchAttribute("ColumnInfo");
    }
    return Value(rows->table->Column(static_cast<int>(column)).name);
}

Outcome EndOfTable(Values arguments, SessionState& state) {
    const SessionResult<SessionRows> rows = RowsOf(arguments[0], state);
    if (!rows) {
        return rows.Error();
    }
    return Value(std::string(CursorOf(state, *rows).atEnd ? "T" : "F"));
}

Outcome FrontWindow(Values, SessionState& state) {
    return Value(static_cast<double>(state.frontWindowId));
}

Outcome NumWindows(Values, SessionState& state) {
    return Value(static_cast<double>(state.windows.size()));
}

Outcome WindowId(Values arguments, SessionState& state) {
    if (Attribute(arguments[0]) != 0) {
        return NoSuchAttribute("WindowID");
    }
    return Value(static_cast<double>(state.lastWindowId));
}

Outcome WindowInfo(Values arguments, SessionState& state) {
    const SessionResult<SessionWindow*> found = WindowOf(arguments[0], state);
    if (!found) {
        return found.Error();
    }
    const SessionWindow& window = **found;
    switch (Attribute(arguments[1])) {
    case 3:
        return Value(static_cast<double>(window.kind));
    case 10:
        if (window.kind != SessionWindowKind::Browser) {
            return Wrong(kSessionNoSuchWindow, "The window is not a browser");
        }
        return Value(window.layers.front().table);
    case 12:
        return Value(static_cast<double>(window.id));
    default:
        return NoSuchAttribute("WindowInfo");
    }
}

Outcome MapperInfo(Values arguments, SessionState& state) {
    const SessionResult<SessionWindow*> map = MapOf(arguments[0], state);
    if (!map) {
        return map.Error();
    }
    if (Attribute(arguments[1]) != 9) {
        return NoSuchAttribute("MapperInfo");
    }
    return Value(static_cast<double>((*map)->layers.size()));
}

Outcome LayerInfo(Values arguments, SessionState& state) {
    const SessionResult<SessionWindow*> map = MapOf(arguments[0], state);
    if (!map) {
        return map.Error();
    }
    const std::int64_t layer = WholeNumber(arguments[1]).value_or(0);
    if (layer < 1 || layer > static_cast<std::int64_t>((*map)->layers.size())) {
        return Wrong(kSessionNoSuchItem, "The map has no such layer");
    }
    if (Attribute(arguments[2]) != 1) {
        return NoSuchAttribute("LayerInfo");
    }
    return Value((*map)->layers[static_cast<std::size_t>(layer - 1)].table);
}

/// The position given by two arguments.
std::optional<MapPoint> PositionOf(const Value& x, const Value& y) {
    const double* const east = std::get_if<double>(&x);
    const double* const north = std::get_if<double>(&y);
    return east && north ? std::optional(MapPoint{*east, *north}) : std::nullopt;
}

Outcome SearchPoint(Values arguments, SessionState& state) {
    const SessionResult<SessionWindow*> map = MapOf(arguments[0], state);
    if (!map) {
        return map.Error();
    }
    const std::optional<MapPoint> point = PositionOf(arguments[1], arguments[2]);
    if (!point) {
        return Wrong(kSessionWrongArgument, "SearchPoint takes two numbers");
    }
    state.found = ObjectsAt(state, **map, *point);
    return Value(static_cast<double>(state.found.size()));
}

Outcome SearchRect(Values arguments, SessionState& state) {
    const SessionResult<SessionWindow*> map = MapOf(arguments[0], state);
    if (!map) {
        return map.Error();
    }
    const std::optional<MapPoint> corner = PositionOf(arguments[1], arguments[2]);
    const std::optional<MapPoint> opposite = PositionOf(arguments[3], arguments[4]);
    if (!corner || !opposite) {
        return Wrong(kSessionWrongArgument, "SearchRect takes four numbers");
    }
    state.found = ObjectsIn(state, **map, MapBox::Of(*corner, *opposite));
    return Value(static_cast<double>(state.found.size()));
}

Outcome SearchInfo(Values arguments, SessionState& state) {
    const std::int64_t number = WholeNumber(arguments[0]).value_or(0);
    if (number < 1 || number > static_cast<std::int64_t>(state.found.size())) {
        return Wrong(kSessionNoSuchItem, "No such object was found");
    }
    const SessionObject& object = state.found[static_cast<std::size_t>(number - 1)];
    switch (Attribute(arguments[1])) {
    case 1:
        return Value(object.table);
    case 2:
        return Value(static_cast<double>(object.row));
    default:
        return NoSuchAttribute("SearchInfo");
    }
}

Outcome SelectionInfo(Values arguments, SessionState& state) {
    switch (Attribute(arguments[0])) {
    case 1:
        return Value(state.selection.table);
    case 3:
        return Value(static_cast<double>(state.selection.rows.size()));
    default:
        return NoSuchAttribute("SelectionInfo");
    }
}

struct Function {
    std::string_view name;
    std::size_t arguments;
    Outcome (*value)(Values, SessionState&);
};

constexpr std::array<Function, 14> kFunctions = {{
    {"NumTables", 0, NumTables},
    {"TableInfo", 2, TableInfo},
    {"ColumnInfo", 3, ColumnInfo},
    {"EOT", 1, EndOfTable},
    {"FrontWindow", 0, FrontWindow},
    {"NumWindows", 0, NumWindows},
    {"WindowID", 1, WindowId},
    {"WindowInfo", 2, WindowInfo},
    {"MapperInfo", 2, MapperInfo},
    {"LayerInfo", 3, LayerInfo},
    {"SearchPoint", 3, SearchPoint},
    {"SearchRect", 5, SearchRect},
    {"SearchInfo", 2, SearchInfo},
    {"SelectionInfo", 1, SelectionInfo},
}};

/// The row that was fetched, by its number in the table that it comes from.
SessionResult<int> FetchedRow(const SessionRows& rows, SessionState& state) {
    const int row = CursorOf(state, rows).row;
    if (row < 1 || row > rows.Count()) {
        return Wrong(kSessionNoSuchRow,
                     "No row of " + std::string(rows.Name()) + " has been fetched");
    }
    return rows.TableRow(row);
}

Outcome RowNumber(const std::string& table, SessionState& state) {
    const SessionResult<SessionRows> rows = RowsNamed(state, table);
    if (!rows) {
        return rows.Error();
    }
    const SessionResult<int> row = FetchedRow(*rows, state);
    return row ? Outcome(Value(static_cast<double>(*row))) : Outcome(row.Error());
}

Outcome CellOf(const std::string& table, const Value& argument, SessionState& state) {
    const SessionResult<SessionRows> rows = RowsNamed(state, table);
    if (!rows) {
        return rows.Error();
    }
    const std::int64_t column = WholeNumber(argument).value_or(0);
    if (column < 1 || column > rows->table->ColumnCount()) {
        return Wrong(kSessionNoSuchColumn, "The table has no such column");
    }
    const SessionResult<int> row = FetchedRow(*rows, state);
    if (!row) {
        return row.Error();
    }
    return Value(std::string(rows->table->Cell(*row, static_cast<int>(column))));
}

Outcome ValueOf(const SessionExpression& expression, SessionState& state);

Outcome ResultOf(const SessionExpression& call, Values arguments, SessionState& state) {
    for (const Function& function : kFunctions) {
        if (EqualNames(function.name, call.text)) {
            return function.arguments == arguments.size()
                       ? function.value(arguments, state)
                       : Wrong(kSessionSyntaxError, "Wrong number of arguments for " + call.text);
        }
    }
    return Wrong(kSessionSyntaxError, "No such function: " + call.text);
}

Outcome ValueOf(const SessionExpression& expression, SessionState& state) {
    std::vector<Value> arguments;
    for (const SessionExpression& argument : expression.arguments) {
        Outcome value = ValueOf(argument, state);
        if (!value) {
            return value;
        }
        arguments.push_back(std::move(*value));
    }
    switch (expression.kind) {
    case SessionExpression::Kind::Number:
        return Value(expression.number);
    case SessionExpression::Kind::Text:
    case SessionExpression::Kind::Name:
        return Value(expression.text);
    case SessionExpression::Kind::Column:
        return CellOf(expression.text, arguments[0], state);
    case SessionExpression::Kind::RowId:
        return RowNumber(expression.text, state);
    case SessionExpression::Kind::Call:
        break;
    }
    return ResultOf(expression, arguments, state);
}

} // namespace

SessionResult<std::string> Evaluate(const SessionExpression& expression, SessionState& state) {
    if (expression.kind == SessionExpression::Kind::Name) {
        return SessionError{kSessionSyntaxError, "No such value: " + expression.text};
    }
    Outcome value = ValueOf(expression, state);
    if (!value) {
        return value.Error();
    }
    if (const double* const number = std::get_if<double>(&*value)) {
        return SessionNumberText(*number);
    }
    return std::get<std::string>(std::move(*value));
}

std::string SessionNumberText(double number) {
    // The longest number without an exponent has 309 digits before its point or 324 after it.
    std::array<char, 400> buffer{};
    const std::to_chars_result end = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                                   number + 0.0, std::chars_format::fixed);
    return {buffer.data(), end.ptr};
}

} // namespace quandrel
