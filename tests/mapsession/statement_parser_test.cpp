// SPDX-License-Identifier: MIT

#include "mapsession/statement.h"
#include "mapsession/statement_lexer.h"

#include <random>
#include <type_traits>

namespace quandrel {
namespace {

/// The parsed statement, in the words of this test.
std::string Told(const SessionStatement& statement) {
    const auto tell = [](const auto& kind) -> std::string {
        using Kind = std::decay_t<decltype(kind)>;
        if constexpr (std::is_same_v<Kind, ApplicationWindowStatement>) {
            return "application " + std::to_string(kind.handle);
        } else if constexpr (std::is_same_v<Kind, DocumentParentStatement>) {
            return "parent " + std::to_string(kind.handle) + " " + std::to_string(kind.style);
        } else if constexpr (std::is_same_v<Kind, InfoParentStatement>) {
            return "info parent " + std::to_string(kind.handle);
        } else if constexpr (std::is_same_v<Kind, InfoWindowStatement>) {
            return "info";
        } else if constexpr (std::is_same_v<Kind, ButtonPadStatement>) {
            std::string text = "pad " + kind.title;
            for (const SessionToolButton& button : kind.buttons) {
                text += " " + std::to_string(button.id) + ":" + std::to_string(button.drawMode)
                        + ":" + button.method;
            }
            return text;
        } else if constexpr (std::is_same_v<Kind, MenuStatement>) {
            std::string text = "menu " + kind.name + " " + std::to_string(kind.id);
            for (const SessionMenuItem& item : kind.items) {
                text += " " + item.caption + ":" + std::to_string(item.command);
            }
            return text;
        } else if constexpr (std::is_same_v<Kind, OpenTableStatement>) {
            return "open " + kind.path;
        } else if constexpr (std::is_same_v<Kind, CloseTableStatement>) {
            return "close table " + kind.table;
        } else if constexpr (std::is_same_v<Kind, MapStatement>) {
            std::string text = "map";
            for (const std::string& table : kind.tables) {
                text += " " + table;
            }
            return text;
        } else if constexpr (std::is_same_v<Kind, BrowseStatement>) {
            return "browse " + kind.table;
        } else if constexpr (std::is_same_v<Kind, CloseWindowStatement>) {
            return "close window " + std::to_string(kind.window);
        } else if constexpr (std::is_same_v<Kind, FetchStatement>) {
            return "fetch " + std::to_string(static_cast<int>(kind.position)) + " "
                   + std::to_string(kind.row) + " " + kind.table;
        } else if constexpr (std::is_same_v<Kind, SelectStatement>) {
            std::string text = "select " + kind.table;
            for (const std::int64_t row : kind.rows) {
                text += " " + std::to_string(row);
            }
            return text;
        } else {
            return std::string(kind.isCustom ? "custom " : "command ")
                   + std::to_string(kind.command);
        }
    };
    return std::visit(tell, statement);
}

TEST(ParseSessionStatement, UnderstandsWhatTheProgramSends) {
    struct Row {
        const char* text;
        const char* told;
    };

    const std::vector<Row> rows = {
        {"Set Application Window 66890", "application 66890"},
        {"Set Application Window -5", "application -5"},
        {"Set Next Document Parent 1234 Style 1", "parent 1234 1"},
        {"Set Next Window Info Parent 99", "info parent 99"},
        {"Open Window Info", "info"},
        {"Create ButtonPad \"Custom Tools\" As ToolButton ID 2001 DrawMode 34 Calling OLE "
         "\"HandleToolButton\" ToolButton ID 2002 DrawMode 32 Calling OLE \"HandleToolButton\"",
         "pad Custom Tools 2001:34:HandleToolButton 2002:32:HandleToolButton"},
        {"Create Menu \"MapperShortcut\" ID 17 As \"Selector\" Calling 1701, \"Marquee Select\" "
         "Calling 1722, \"Layer Control...\" Calling 801 ",
         "menu MapperShortcut 17 Selector:1701 Marquee Select:1722 Layer Control...:801"},
        {"Open Table \"C:\\data\\dips \"\"new\"\".tab\"", "open C:\\data\\dips \"new\".tab"},
        {"Close Table dips", "close table dips"},
        {"Map From dips", "map dips"},
        {"Map From dips, faults ,folds", "map dips faults folds"},
        {"Browse * From dips", "browse dips"},
        {"Close Window 3", "close window 3"},
        {"Fetch First From dips", "fetch 0 0 dips"},
        {"Fetch Next From dips", "fetch 1 0 dips"},
        {"Fetch Rec 17 From Selection", "fetch 2 17 Selection"},
        {"Select * From dips Where RowID = 7", "select dips 7"},
        {"Select * From dips Where RowID = 7 or RowID = 8 or RowID = 0", "select dips 7 8 0"},
        {"Run Menu Command 1701", "command 1701"},
        {"Run Menu Command ID 2001", "custom 2001"},
    };
    for (const Row& row : rows) {
        const SessionResult<SessionStatement> statement = ParseSessionStatement(row.text);
        ASSERT_TRUE(statement) << row.text;
        EXPECT_EQ(Told(*statement), row.told);
    }
}

TEST(ParseSessionStatement, DoesNotMindCaseAndBlanks) {
    const auto statement =
        ParseSessionStatement("  SELECT*FROM dIPs\twhere ROWID=1 OR rowid =2\r\n");
    ASSERT_TRUE(statement);
    EXPECT_EQ(Told(*statement), "select dIPs 1 2");
}

TEST(ParseSessionStatement, TakesTableNamesOfAnyLetters) {
    const auto statement = ParseSessionStatement("Fetch Rec 2 From K\xC3\xBCste_2");
    ASSERT_TRUE(statement);
    EXPECT_EQ(Told(*statement), "fetch 2 2 K\xC3\xBCste_2");
}

TEST(ParseSessionStatement, RefusesEverythingElse) {
    const std::vector<std::string> texts = {
        "",
        "Map",
        "Map From",
        "Map From dips faults",
        "Map From dips,",
        "Map From \"dips\"",
        "Map From 2dips",
        "MapFrom dips",
        "Fetch dips",
        "Fetch Rec From dips",
        "Fetch Rec 1.5 From dips",
        "Fetch Last From dips",
        "Fetch First From dips extra",
        "Select Dip From dips Where RowID = 1",
        "Select * From dips",
        "Select * From dips Where Dip = 1",
        "Select * From dips Where RowID = 1 and RowID = 2",
        "Select * From dips Where RowID = 1 or",
        "Select * From dips Where RowID = 1or RowID = 2",
        "Select * From dips Where RowID = \"1\"",
        "Select * From dips Where RowID = 1 or RowID = 2 Into t",
        "Select * From dips Where RowID = 1e300",
        "Run Menu Command",
        "Run Menu Command 99999999999",
        "Run Program \"calc\"",
        "Set Application Window",
        "Set Next Document Parent 12",
        "Set Next Document Parent 12 Style",
        "Create ButtonPad \"Custom Tools\" As",
        "Create ButtonPad \"Custom Tools\" As ToolButton ID 2001",
        "Create ButtonPad \"T\" As ToolButton ID 1 DrawMode 34 Calling \"x\"",
        "Create Menu \"M\" ID 17 As \"a\" Calling 1,",
        "Open Table dips",
        "Open Table \"dips",
        "Close Table \"dips\"",
        "Close Window dips",
        "Drop Table dips",
        "Print \"x\"",
        "Map From dips; Close Table dips",
        "Map From dips\nClose Table dips",
    };
    for (const std::string& text : texts) {
        const SessionResult<SessionStatement> statement = ParseSessionStatement(text);
        ASSERT_FALSE(statement) << text;
        EXPECT_EQ(statement.Error().code, kSessionSyntaxError) << text;
        EXPECT_FALSE(statement.Error().text.empty());
    }
}

std::string Told(const SessionExpression& expression) {
    std::string text;
    switch (expression.kind) {
    case SessionExpression::Kind::Number:
        return std::to_string(expression.number);
    case SessionExpression::Kind::Text:
        return "'" + expression.text + "'";
    case SessionExpression::Kind::Name:
        return expression.text;
    case SessionExpression::Kind::RowId:
        return expression.text + "#";
    case SessionExpression::Kind::Column:
        text = expression.text + "!";
        break;
    case SessionExpression::Kind::Call:
        text = expression.text;
        break;
    }
    text += "[";
    for (const SessionExpression& argument : expression.arguments) {
        text += Told(argument) + ";";
    }
    return text + "]";
}

TEST(ParseSessionExpression, UnderstandsWhatTheProgramAsks) {
    struct Row {
        const char* text;
        const char* told;
    };

    const std::vector<Row> rows = {
        {"NumTables()", "NumTables[]"},
        {"TableInfo(2,1)", "TableInfo[2.000000;1.000000;]"},
        {"TableInfo(dips, 8)", "TableInfo[dips;8.000000;]"},
        {"ColumnInfo(dips,\"COL3\",1)", "ColumnInfo[dips;'COL3';1.000000;]"},
        {"dips.Col(12)", "dips![12.000000;]"},
        {"Selection.RowID", "Selection#"},
        {"WindowInfo(FrontWindow(),12)", "WindowInfo[FrontWindow[];12.000000;]"},
        {"SearchRect(1,-2.5,.5,1e3,-0)",
         "SearchRect[1.000000;-2.500000;0.500000;1000.000000;-0.000000;]"},
    };
    for (const Row& row : rows) {
        const SessionResult<SessionExpression> expression = ParseSessionExpression(row.text);
        ASSERT_TRUE(expression) << row.text;
        EXPECT_EQ(Told(*expression), row.told);
    }
}

TEST(ParseSessionExpression, RefusesEverythingElse) {
    const std::vector<std::string> texts = {
        "",          "1 + 1",    "NumTables",     "NumTables(",    "NumTables())",
        "f(1,)",     "f(,1)",    "f(1 2)",        "dips.Col",      "dips.Col()",
        "dips.Col1", "dips.Dip", "dips.Col(1,2)", "dips.Col(1).x", "\"open",
        "--1",       "f(1)(2)",  "1e999",         "12abc",         "f(#)",
        "dips.",     ".Col(1)",  "dips.RowID()",  "f(1);",         "Ask(\"a\") = 2",
    };
    for (const std::string& text : texts) {
        const SessionResult<SessionExpression> expression = ParseSessionExpression(text);
        // A name alone is read, and refused when a value is asked for.
        EXPECT_TRUE(!expression || expression->kind == SessionExpression::Kind::Name) << text;
    }
}

TEST(ParseSessionExpression, StopsAtCallsThatGoTooDeep) {
    const auto nested = [](int depth) {
        std::string text;
        for (int i = 0; i < depth; ++i) {
            text += "f(";
        }
        return text + "1" + std::string(static_cast<std::size_t>(depth), ')');
    };
    EXPECT_TRUE(ParseSessionExpression(nested(20)));
    EXPECT_FALSE(ParseSessionExpression(nested(21)));
    EXPECT_FALSE(ParseSessionExpression(nested(1000000)));
}

TEST(ParseSessionStatement, BearsAnyOrderOfItsWords) {
    const std::vector<std::string> words = {
        "Set",   "Next",  "Map", "From", "dips", "Select", "*",     "Where", "RowID", "=",
        "or",    "Fetch", "Rec", "1",    "-",    "(",      ")",     ",",     ".",     "\"a\"",
        "Close", "Table", "Run", "Menu", "ID",   "Create", "Style", "Open",  "Info",  "Window",
    };
    std::mt19937 random(20);
    for (int round = 0; round < 20000; ++round) {
        std::string text;
        for (std::size_t count = random() % 9; count > 0; --count) {
            text += words[random() % words.size()] + " ";
        }
        const SessionResult<SessionStatement> statement = ParseSessionStatement(text);
        if (statement) {
            EXPECT_FALSE(Told(*statement).empty());
        } else {
            EXPECT_EQ(statement.Error().code, kSessionSyntaxError) << text;
        }
    }
}

TEST(EqualNames, MindsTheCaseOfNoAsciiLetter) {
    EXPECT_TRUE(EqualNames("Dips_2", "dIPS_2"));
    EXPECT_FALSE(EqualNames("Dips", "Dip"));
    EXPECT_FALSE(EqualNames("\xC3\x84", "\xC3\xA4"));
}

} // namespace
} // namespace quandrel
