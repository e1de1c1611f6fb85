// SPDX-License-Identifier: MIT

#include "mapsession/statement.h"
#include "mapsession/token_reader.h"

#include <array>

namespace quandrel {
namespace {

using Parsed = std::optional<SessionStatement>;

Parsed ReadApplicationWindow(SessionTokenReader& reader) {
    const std::optional<std::int64_t> handle = reader.TakeInteger();
    return handle ? Parsed(ApplicationWindowStatement{*handle}) : std::nullopt;
}

Parsed ReadDocumentParent(SessionTokenReader& reader) {
    const std::optional<std::int64_t> handle = reader.TakeInteger();
    if (!handle || !reader.TakeWord("Style")) {
        return std::nullopt;
    }
    const std::optional<int> style = reader.TakeInteger<int>();
    return style ? Parsed(DocumentParentStatement{*handle, *style}) : std::nullopt;
}

Parsed ReadInfoParent(SessionTokenReader& reader) {
    const std::optional<std::int64_t> handle = reader.TakeInteger();
    return handle ? Parsed(InfoParentStatement{*handle}) : std::nullopt;
}

Parsed ReadInfoWindow(SessionTokenReader&) {
    return InfoWindowStatement{};
}

std::optional<SessionToolButton> ReadToolButton(SessionTokenReader& reader) {
    SessionToolButton button;
    if (!reader.TakeWord("ID")) {
        return std::nullopt;
    }
    const std::optional<int> id = reader.TakeInteger<int>();
    if (!id || !reader.TakeWord("DrawMode")) {
        return std::nullopt;
    }
    const std::optional<int> drawMode = reader.TakeInteger<int>();
    if (!drawMode || !reader.TakeWords("Calling OLE")) {
        return std::nullopt;
    }
    std::optional<std::string> method = reader.TakeOf(SessionTokenKind::Text);
    if (!method) {
        return std::nullopt;
    }
    return SessionToolButton{*id, *drawMode, std::move(*method)};
}

Parsed ReadButtonPad(SessionTokenReader& reader) {
    std::optional<std::string> title = reader.TakeOf(SessionTokenKind::Text);
    if (!title || !reader.TakeWord("As")) {
        return std::nullopt;
    }
    ButtonPadStatement pad{std::move(*title), {}};
    while (reader.TakeWord("ToolButton")) {
        std::optional<SessionToolButton> button = ReadToolButton(reader);
        if (!button) {
            return std::nullopt;
        }
        pad.buttons.push_back(std::move(*button));
    }
    return pad.buttons.empty() ? std::nullopt : Parsed(std::move(pad));
}

Parsed ReadMenu(SessionTokenReader& reader) {
    std::optional<std::string> name = reader.TakeOf(SessionTokenKind::Text);
    if (!name || !reader.TakeWord("ID")) {
        return std::nullopt;
    }
    const std::optional<int> id = reader.TakeInteger<int>();
    if (!id || !reader.TakeWord("As")) {
        return std::nullopt;
    }
    MenuStatement menu{std::move(*name), *id, {}};
    do {
        std::optional<std::string> caption = reader.TakeOf(SessionTokenKind::Text);
        if (!caption || !reader.TakeWord("Calling")) {
            return std::nullopt;
        }
        const std::optional<int> command = reader.TakeInteger<int>();
        if (!command) {
            return std::nullopt;
        }
        menu.items.push_back({std::move(*caption), *command});
    } while (reader.TakeSymbol(','));
    return menu;
}

Parsed ReadOpenTable(SessionTokenReader& reader) {
    std::optional<std::string> path = reader.TakeOf(SessionTokenKind::Text);
    return path ? Parsed(OpenTableStatement{std::move(*path)}) : std::nullopt;
}

Parsed ReadCloseTable(SessionTokenReader& reader) {
    std::optional<std::string> table = reader.TakeOf(SessionTokenKind::Name);
    return table ? Parsed(CloseTableStatement{std::move(*table)}) : std::nullopt;
}

Parsed ReadMap(SessionTokenReader& reader) {
    MapStatement map;
    do {
        std::optional<std::string> table = reader.TakeOf(SessionTokenKind::Name);
        if (!table) {
            return std::nullopt;
        }
        map.tables.push_back(std::move(*table));
    } while (reader.TakeSymbol(','));
    return map;
}

Parsed ReadBrowse(SessionTokenReader& reader) {
    if (!reader.TakeSymbol('*') || !reader.TakeWord("From")) {
        return std::nullopt;
    }
    std::optional<std::string> table = reader.TakeOf(SessionTokenKind::Name);
    return table ? Parsed(BrowseStatement{std::move(*table)}) : std::nullopt;
}

Parsed ReadCloseWindow(SessionTokenReader& reader) {
    const std::optional<std::int64_t> window = reader.TakeInteger();
    return window ? Parsed(CloseWindowStatement{*window}) : std::nullopt;
}

Parsed ReadFetch(SessionTokenReader& reader) {
    FetchStatement fetch;
    if (reader.TakeWord("First")) {
        fetch.position = FetchStatement::Position::First;
    } else if (reader.TakeWord("Next")) {
        fetch.position = FetchStatement::Position::Next;
    } else {
        const bool isRecord = reader.TakeWord("Rec");
        const std::optional<std::int64_t> row = reader.TakeInteger();
        if (!isRecord || !row) {
            return std::nullopt;
        }
        fetch.position = FetchStatement::Position::Record;
        fetch.row = *row;
    }
    if (!reader.TakeWord("From")) {
        return std::nullopt;
    }
    std::optional<std::string> table = reader.TakeOf(SessionTokenKind::Name);
    if (!table) {
        return std::nullopt;
    }
    fetch.table = std::move(*table);
    return fetch;
}

Parsed ReadSelect(SessionTokenReader& reader) {
    if (!reader.TakeSymbol('*') || !reader.TakeWord("From")) {
        return std::nullopt;
    }
    std::optional<std::string> table = reader.TakeOf(SessionTokenKind::Name);
    if (!table || !reader.TakeWord("Where")) {
        return std::nullopt;
    }
    SelectStatement select{std::move(*table), {}};
    do {
        if (!reader.TakeWord("RowID") || !reader.TakeSymbol('=')) {
            return std::nullopt;
        }
        const std::optional<std::int64_t> row = reader.TakeInteger();
        if (!row) {
            return std::nullopt;
        }
        select.rows.push_back(*row);
    } while (reader.TakeWord("or"));
    return select;
}

Parsed ReadMenuCommand(SessionTokenReader& reader) {
    const bool isCustom = reader.TakeWord("ID");
    const std::optional<int> command = reader.TakeInteger<int>();
    return command ? Parsed(RunCommandStatement{*command, isCustom}) : std::nullopt;
}

struct StatementForm {
    std::string_view words;              ///< its first words
    Parsed (*read)(SessionTokenReader&); ///< the rest
};

/// No form begins with the words of another.
constexpr std::array<StatementForm, 14> kForms = {{
    {"Set Application Window", ReadApplicationWindow},
    {"Set Next Document Parent", ReadDocumentParent},
    {"Set Next Window Info Parent", ReadInfoParent},
    {"Open Window Info", ReadInfoWindow},
    {"Open Table", ReadOpenTable},
    {"Create ButtonPad", ReadButtonPad},
    {"Create Menu", ReadMenu},
    {"Close Table", ReadCloseTable},
    {"Close Window", ReadCloseWindow},
    {"Map From", ReadMap},
    {"Browse", ReadBrowse},
    {"Fetch", ReadFetch},
    {"Select", ReadSelect},
    {"Run Menu Command", ReadMenuCommand},
}};

} // namespace

SessionResult<SessionStatement> ParseSessionStatement(std::string_view text) {
    SessionResult<std::vector<SessionToken>> tokens = SessionTokensOf(text);
    if (!tokens) {
        return tokens.Error();
    }
    SessionTokenReader reader(std::move(*tokens));
    for (const StatementForm& form : kForms) {
        if (!reader.TakeWords(form.words)) {
            continue;
        }
        Parsed statement = form.read(reader);
        if (statement && reader.AtEnd()) {
            return std::move(*statement);
        }
        break;
    }
    return SessionError{kSessionSyntaxError, "No such statement: " + std::string(text)};
}

} // namespace quandrel
