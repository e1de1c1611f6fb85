// SPDX-License-Identifier: MIT

#include "mapinfo/select_statements.h"

#include <gtest/gtest.h>

#include <numeric>

namespace quandrel {
namespace {

using Texts = std::vector<std::string>;

TEST(BuildSelects, NamesEachRow) {
    const std::vector<std::int32_t> rows = {3, 17, 4};
    EXPECT_EQ(BuildSelects("Joints", rows).texts,
              Texts{"Select * From Joints Where RowID = 3 or RowID = 17 or RowID = 4"});
    EXPECT_EQ(BuildSelects("Joints", rows).rowsInLast, 3U);
    EXPECT_TRUE(BuildSelects("Joints", {}).texts.empty());
}

TEST(BuildSelects, FillsStatementsToTheLimitAndNotBeyond) {
    // The head has 37 bytes with a row of two digits, each further row 14.
    const std::string table = "Joints";
    std::vector<std::int32_t> rows(90);
    std::iota(rows.begin(), rows.end(), 10);
    std::vector<std::int32_t> named;
    const SelectStatements statements = BuildSelects(table, rows);
    for (std::size_t i = 0; i < statements.texts.size(); ++i) {
        const std::string& text = statements.texts[i];
        EXPECT_LE(text.size(), 240U);
        // A further row of the next statement would not have fitted.
        EXPECT_TRUE(i + 1 == statements.texts.size() || text.size() + 14 > 240U) << text;
        EXPECT_EQ(text.find("Select * From Joints Where RowID = "), 0U);
        for (std::size_t at = text.find("RowID = "); at != std::string::npos;
             at = text.find("RowID = ", at + 1)) {
            named.push_back(std::stoi(text.substr(at + 8)));
        }
    }
    EXPECT_EQ(named, rows);
}

TEST(BuildSelects, TakesAStatementOfExactlyTheLimit) {
    // A name that leaves just enough room for two rows of one digit.
    const std::vector<std::int32_t> rows = {1, 2};
    const std::string two = " Where RowID = 1 or RowID = 2";
    const std::string name(240 - two.size() - std::string("Select * From ").size(), 'T');
    ASSERT_EQ(BuildSelects(name, rows).texts.size(), 1U);
    EXPECT_EQ(BuildSelects(name, rows).texts[0].size(), 240U);
    EXPECT_EQ(BuildSelects(name + "T", rows).texts.size(), 2U);
    EXPECT_EQ(BuildSelects(name + "T", rows).rowsInLast, 1U);
}

TEST(BuildSelects, GivesATableWithALongNameAStatementForEachRow) {
    const std::vector<std::int32_t> rows = {1, 2, 3};
    EXPECT_EQ(BuildSelects(std::string(300, 'T'), rows).texts.size(), 3U);
}

} // namespace
} // namespace quandrel
