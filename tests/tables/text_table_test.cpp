// SPDX-License-Identifier: MIT

#include "support/text_table.h"

#include <gtest/gtest.h>

namespace quandrel {

namespace {

std::vector<TableRow> Read(const std::string& text) {
    std::istringstream stream(text);
    return ReadTextTable(stream, "t.txt");
}

std::string ErrorOf(const std::string& text) {
    try {
        (void)Read(text);
    } catch (const TableError& error) {
        return error.what();
    }
    return "";
}

const std::map<std::string, TableOperation> kOperations{
    {"double", [](const TableRow& row) { return NumberWords({2 * NumbersOf(row, 1)[0]}); }},
    {"same", [](const TableRow& row) { return row.input; }},
};

std::string ComplaintsOf(const std::string& text) {
    return LinesOf(TableComplaints(Read(text), kOperations));
}

} // namespace

TEST(TextTable, HasRowsWithOptionsOfTheirBlocks) {
    const auto rows = Read("# head\n\n[double tolerance=0.1]\n 1 | 2 # hand\n"
                           "[same]\r\na | b | a | b\r\n");
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].place, "t.txt:4");
    EXPECT_EQ(rows[0].operation, "double");
    EXPECT_EQ(rows[0].input, "1");
    EXPECT_EQ(rows[0].expected, "2");
    EXPECT_EQ(OptionOf(rows[0], "tolerance", ""), "0.1");
    EXPECT_EQ(rows[1].place, "t.txt:6");
    EXPECT_EQ(rows[1].input, "a | b | a") << "the last bar parts input and result";
    EXPECT_EQ(OptionOf(rows[1], "tolerance", "none"), "none") << "options end with their block";
}

TEST(TextTable, NamesTheLineThatIsNotWrittenAsItHasToBe) {
    EXPECT_EQ(ErrorOf("1 | 2\n"), "t.txt:1: no [operation] before the first row");
    EXPECT_EQ(ErrorOf("[double]\n1 2\n"), "t.txt:2: no '|' between input and result");
    EXPECT_EQ(ErrorOf("\n[double\n1 | 2\n"), "t.txt:2: the head of a block ends with ']'");
    EXPECT_EQ(ErrorOf("[ ]\n1 | 2\n"), "t.txt:1: a block needs the name of an operation");
    EXPECT_EQ(ErrorOf("[double fine]\n"), "t.txt:1: 'fine' is not of the form key=value");
    EXPECT_EQ(ErrorOf("[double]\n# 1 | 2\n"), "t.txt: no row");
    EXPECT_THROW((void)ReadTableFile("no_such_table.txt"), TableError);
}

TEST(TextTable, AcceptsWhatLiesWithinTheTolerance) {
    EXPECT_EQ(ComplaintsOf("[double tolerance=0.1]\n1 | 2.09\n-0 | 0\nnan | nan\n"), "");
    EXPECT_EQ(ComplaintsOf("[same]\na  b | a b\n"), "") << "words count, not the blanks between";
}

TEST(TextTable, ComplainsOfAWrongRowWithAllThatIsKnown) {
    EXPECT_EQ(ComplaintsOf("[double tolerance=0.1]\n1 | 2\n1 | 2.11\n"),
              "t.txt:3: double of '1': expected '2.11', got '2'\n");
    EXPECT_EQ(ComplaintsOf("[double tolerance=0.1]\n1 | nan\nnan | 1\n"),
              "t.txt:2: double of '1': expected 'nan', got '2'\n"
              "t.txt:3: double of 'nan': expected '1', got 'nan'\n");
    EXPECT_EQ(ComplaintsOf("[double tolerance=9]\n1 | 2 2\n1 |\n"),
              "t.txt:2: double of '1': expected '2 2', got '2'\n"
              "t.txt:3: double of '1': expected '', got '2'\n");
    EXPECT_EQ(ComplaintsOf("[same]\n1 | 1.0\n"), "t.txt:2: same of '1': expected '1.0', got '1'\n")
        << "without a tolerance texts are compared";
}

TEST(TextTable, ComplainsOfRowsThatNoOperationTakes) {
    EXPECT_EQ(ComplaintsOf("[halve]\n1 | 2\n"), "t.txt:2: there is no operation 'halve'\n");
    EXPECT_EQ(ComplaintsOf("[double tolerance=0]\none | 2\n1 2 | 2\n"),
              "t.txt:2: 'one' is not a number\nt.txt:3: double takes 1 numbers\n");
    EXPECT_EQ(ComplaintsOf("[double tolerance=some]\n1 | 2\n"),
              "t.txt:2: 'some' is not a tolerance\n");
}

} // namespace quandrel
