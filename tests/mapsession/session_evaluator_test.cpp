// SPDX-License-Identifier: MIT

#include "mapsession/session_evaluator.h"
#include "sample_session.h"

namespace quandrel {
namespace {

/// dips.tab in a map of 1000 by 1000 pixels with id 1 and a browser with id 2.
struct TwoWindows : SampleSession {
    TwoWindows() {
        OpenMapOfDips();
        (void)session->Do("Browse * From dips");
    }
};

TEST(SessionEvaluator, AnswersWhatTheProgramAsks) {
    TwoWindows sample;
    (void)sample.session->Do("Open Table \"faults.tab\"");
    (void)sample.session->Do("Fetch Rec 12 From dips");
    (void)sample.session->Do("Select * From dips Where RowID = 30 or RowID = 4");
    (void)sample.session->Do("Fetch Rec 2 From Selection");

    struct Row {
        const char* expression;
        const char* value;
    };

    const std::vector<Row> rows = {
        {"NumTables()", "2"},
        {"TableInfo(1,1)", "dips"},
        {"TableInfo(2,1)", "faults"},
        {"TableInfo(DIPS,1)", "dips"},
        {"TableInfo(\"dips\",4)", "2"},
        {"TableInfo(dips,8)", "100"},
        {"TableInfo(faults,8)", "3"},
        {"TableInfo(Selection,8)", "2"},
        {"ColumnInfo(dips,\"COL1\",1)", "Dip"},
        {"ColumnInfo(Selection,\"col2\",1)", "Kind"},
        {"dips.Col(1)", "12"},
        {"dips.COL(2)", "even"},
        {"dips.RowID", "12"},
        {"Selection.Col(1)", "30"},
        {"Selection.RowID", "30"},
        {"EOT(dips)", "F"},
        {"FrontWindow()", "2"},
        {"WindowID(0)", "2"},
        {"NumWindows()", "2"},
        {"WindowInfo(1,3)", "1"},
        {"WindowInfo(2,3)", "2"},
        {"WindowInfo(2,10)", "dips"},
        {"WindowInfo(FrontWindow(),12)", "2"},
        {"MapperInfo(1,9)", "1"},
        {"LayerInfo(1,1,1)", "dips"},
        {"SelectionInfo(1)", "dips"},
        {"SelectionInfo(3)", "2"},
        {"-12.50", "-12.5"},
        {"\"text\"", "text"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(sample.Eval(row.expression), row.value) << row.expression;
        EXPECT_EQ(sample.session->LastErrorCode(), 0) << row.expression;
    }
}

TEST(SessionEvaluator, RefusesWithACodeThatTellsWhy) {
    TwoWindows sample;

    struct Row {
        const char* expression;
        int code;
    };

    const std::vector<Row> rows = {
        {"Nonsense(", kSessionSyntaxError},
        {"dips", kSessionSyntaxError},
        {"SystemInfo(1)", kSessionSyntaxError},
        {"NumTables(1)", kSessionSyntaxError},
        {"TableInfo(dips)", kSessionSyntaxError},
        {"TableInfo(3,1)", kSessionNoSuchTable},
        {"TableInfo(0,1)", kSessionNoSuchTable},
        {"TableInfo(1.5,1)", kSessionNoSuchTable},
        {"TableInfo(Selection,8)", kSessionNoSuchTable},
        {"TableInfo(other,8)", kSessionNoSuchTable},
        {"TableInfo(dips,99)", kSessionNoSuchItem},
        {"ColumnInfo(dips,\"COL3\",1)", kSessionNoSuchColumn},
        {"ColumnInfo(dips,\"COL\",1)", kSessionNoSuchColumn},
        {"ColumnInfo(dips,\"Dip\",1)", kSessionNoSuchColumn},
        {"ColumnInfo(dips,\"COL1\",2)", kSessionNoSuchItem},
        {"dips.Col(1)", kSessionNoSuchRow}, // nothing has been fetched
        {"dips.RowID", kSessionNoSuchRow},
        {"dips.Col(0)", kSessionNoSuchColumn},
        {"dips.Col(\"1\")", kSessionNoSuchColumn},
        {"WindowInfo(7,3)", kSessionNoSuchWindow},
        {"WindowInfo(1,10)", kSessionNoSuchWindow},
        {"WindowInfo(1,5)", kSessionNoSuchItem},
        {"WindowID(1)", kSessionNoSuchItem},
        {"MapperInfo(2,9)", kSessionNoSuchWindow},
        {"MapperInfo(1,1)", kSessionNoSuchItem},
        {"LayerInfo(1,2,1)", kSessionNoSuchItem},
        {"LayerInfo(1,0,1)", kSessionNoSuchItem},
        {"LayerInfo(1,1,2)", kSessionNoSuchItem},
        {"SearchPoint(2,0,0)", kSessionNoSuchWindow},
        {"SearchPoint(1,\"0\",0)", kSessionWrongArgument},
        {"SearchRect(1,0,0,1)", kSessionSyntaxError},
        {"SearchRect(1,0,0,1,dips)", kSessionWrongArgument},
        {"SearchInfo(1,1)", kSessionNoSuchItem},
        {"SelectionInfo(2)", kSessionNoSuchItem},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(sample.Eval(row.expression), "Refused " + std::to_string(row.code))
            << row.expression;
    }
}

TEST(SessionEvaluator, FindsWhatLiesInARectangle) {
    TwoWindows sample;
    // The grid's points from (3, 2) to (5, 3): rows 23, 24, 25, 33, 34, 35.
    ASSERT_EQ(sample.Eval("SearchRect(1,5.2,3.2,2.8,1.8)"), "6");
    std::string rows;
    for (int i = 1; i <= 6; ++i) {
        EXPECT_EQ(sample.Eval("SearchInfo(" + std::to_string(i) + ",1)"), "dips");
        rows += sample.Eval("SearchInfo(" + std::to_string(i) + ",2)") + " ";
    }
    EXPECT_EQ(rows, "23 24 25 33 34 35 ");
    EXPECT_EQ(sample.Eval("SearchInfo(7,2)"), "Refused 6");
    EXPECT_EQ(sample.Eval("SearchRect(1,2.1,2.1,2.9,2.9)"), "0");
}

TEST(SessionEvaluator, FindsAPointWithinAFewPixels) {
    TwoWindows sample;
    // The map shows 9 units on nine tenths of 1000 pixels: a pixel is 0.01 units.
    EXPECT_EQ(sample.Eval("SearchPoint(1,4,2)"), "1");
    EXPECT_EQ(sample.Eval("SearchInfo(1,2)"), "24");
    EXPECT_EQ(sample.Eval("SearchPoint(1,4.049,2)"), "1");
    EXPECT_EQ(sample.Eval("SearchPoint(1,4.051,2)"), "0");
}

TEST(SessionEvaluator, SearchesTheTopmostLayerFirst) {
    SampleSession sample;
    (void)sample.session->Do("Open Table \"dips.tab\"");
    (void)sample.session->Do("Open Table \"faults.tab\"");
    ASSERT_EQ(sample.Do("Map From faults, dips"), "Done");
    EXPECT_EQ(sample.Eval("MapperInfo(1,9)"), "2");
    EXPECT_EQ(sample.Eval("LayerInfo(1,2,1)"), "dips");
    ASSERT_EQ(sample.Eval("SearchPoint(1,2,0)"), "2");
    EXPECT_EQ(sample.Eval("SearchInfo(1,1)"), "faults");
    EXPECT_EQ(sample.Eval("SearchInfo(2,1)"), "dips");
}

TEST(SessionNumberText, IsShortAndHasNoExponent) {
    EXPECT_EQ(SessionNumberText(0.1), "0.1");
    EXPECT_EQ(SessionNumberText(-0.0), "0");
    EXPECT_EQ(SessionNumberText(5000), "5000");
    EXPECT_EQ(SessionNumberText(1e21), "1000000000000000000000");
    EXPECT_EQ(SessionNumberText(0.00000015), "0.00000015");
    EXPECT_EQ(SessionNumberText(-1.7976931348623157e308).size(), 310U);
}

} // namespace
} // namespace quandrel
