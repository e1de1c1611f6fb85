// SPDX-License-Identifier: MIT

#include "batch/format_command.h"
#include "batch_fixture.h"
#include "core/plot_store.h"

namespace quandrel {
namespace {

class FormatCommand : public BatchTest {
protected:
    /// Runs commands in one session and returns the format in force afterwards.
    FormatSettings FormatAfter(const std::string& commands) {
        EXPECT_EQ(Run(commands), "");
        return gSettings.format;
    }
};

TEST_F(FormatCommand, EachFormatStartsFromTheDefaults) {
    const FormatSettings format = FormatAfter(
        "format primary=line secondary=line conventions=-12 delimiter=comma columns=1,0,2,3,4 "
        "appended=line,numeric,text numericname=a textname=b header=yes data=polar; "
        "format primary=line");
    EXPECT_EQ(format.primary, kPrimaryLine);
    EXPECT_EQ(format.secondary, kNoSecondary);
    EXPECT_EQ(format.conventions, 1);
    EXPECT_EQ(format.delimiter, "\t");
    EXPECT_EQ(format.columns, (ColumnSettings{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_FALSE(format.lineAppended || format.numericAppended || format.nonNumericAppended);
    EXPECT_EQ(format.numericName, "value");
    EXPECT_EQ(format.nonNumericName, "type");
    EXPECT_FALSE(format.hasHeadings);
}

TEST_F(FormatCommand, AddChangesTheFormatInForce) {
    const FormatSettings format = FormatAfter(
        "format primary=line conventions=-12 delimiter=comma columns=1,0 header=yes data=lines; "
        "format add delimiter=semicolon; format add plane=3");
    EXPECT_EQ(format.primary, kPrimaryLine);
    EXPECT_EQ(format.conventions, -13) << "order and notation stay";
    EXPECT_EQ(format.delimiter, ";");
    EXPECT_EQ(format.columns[0], 1);
    EXPECT_TRUE(format.hasHeadings);
}

TEST_F(FormatCommand, TheDecimalCommaAndTheTicksStartAnewToo) {
    Write("lines.txt", "30\t120\t20\t350\n");
    Write("commas.txt", "30,4\t120\n");
    EXPECT_EQ(Run("format decimalcomma=yes; open \"FOLDER/commas.txt\"; get NumValidData; "
                  "format primary=plane secondary=line showsecondary=yes columns=0,1,2,2,3; "
                  "open \"FOLDER/lines.txt\"; get ShowSecondary; "
                  "format primary=plane secondary=line columns=0,1,2,2,3; "
                  "open \"FOLDER/lines.txt\"; get ShowSecondary; "
                  "format add showsecondary=yes; open \"FOLDER/lines.txt\"; get ShowSecondary"),
              "");
    EXPECT_EQ(out.str(), "1\n-1\n0\n-1\n");
    EXPECT_FALSE(gDecimalIsComma);
}

TEST_F(FormatCommand, AFormatWithoutWordsIsThatOfAFirstRun) {
    const FormatSettings first = FormatAfter("blank");
    const FormatSettings format = FormatAfter("format primary=line delimiter=comma; format");
    EXPECT_EQ(format.primary, first.primary);
    EXPECT_EQ(format.delimiter, first.delimiter);
}

TEST_F(FormatCommand, AFormatThatIsRefusedLeavesTheOneInForce) {
    EXPECT_EQ(Run("format delimiter=comma; format primary=line delimiter=pipe"),
              "line 1: format: delimiter: 'pipe' is not one of any, comma, semicolon, space, tab");
    EXPECT_EQ(gFileDelimiter, ",");
    EXPECT_EQ(Run("format delimiter=comma add"),
              "line 1: format: 'add' comes before the keys: format add KEY=VALUE...");
}

} // namespace
} // namespace quandrel
