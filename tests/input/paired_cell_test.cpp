// SPDX-License-Identifier: MIT

#include "input/data_line.h"
#include "input/format_choice.h"
#include "input/paired_cell.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

using Parts = std::optional<std::pair<std::string_view, std::string_view>>;

Parts Pair(std::string_view first, std::string_view second) {
    return std::pair(first, second);
}

TEST(SplitPair, FindsTheSeparator) {
    EXPECT_EQ(SplitPair("045/60NE"), Pair("045", "60NE"));
    EXPECT_EQ(SplitPair(" 120 / 35 "), Pair("120", "35"));
    EXPECT_EQ(SplitPair("120-35"), Pair("120", "35"));
    EXPECT_EQ(SplitPair("-30/120"), Pair("-30", "120"));
    EXPECT_EQ(SplitPair("120:35"), Pair("120", "35"));
    EXPECT_EQ(SplitPair("35@120"), Pair("35", "120"));
    EXPECT_EQ(SplitPair("35\u2192120"), Pair("35", "120"));
    EXPECT_EQ(SplitPair("N30E 45SE"), Pair("N30E", "45SE"));
    EXPECT_EQ(SplitPair("120   35"), Pair("120", "35"));
    EXPECT_EQ(SplitPair("-30 120"), Pair("-30", "120"));
}

TEST(SplitPair, HasNothingForOneValue) {
    for (const char* cell : {"", " ", "45", "-45", "/45", "45/", "45-", "N30E", "/"}) {
        EXPECT_EQ(SplitPair(cell), std::nullopt) << cell;
    }
}

/// Columns 0: site, 1: the orientation, 2: another one.
LineFormat FormatOfPairs(std::int16_t primary, int convention) {
    LineFormat format;
    format.primary = primary;
    format.planeConvention = convention;
    format.slots = {1, 1, 1, 2, 2, 2, 0, 0, 0, 0};
    format.delimiter = ',';
    format.pairsInCells = true;
    format.neededColumns = HighestColumnNeeded(format) + 1;
    return format;
}

struct PairCase {
    const char* line;
    std::int16_t primary;
    int convention;
    double dip;
    double azimuth;
};

TEST(PairsInCells, AreReadInTheOrderOfTheConvention) {
    const std::vector<PairCase> cases = {
        {"a,60/045,", kPrimaryPlane, kDipDipDirection, 60, 45},
        {"a,045/60,", kPrimaryPlane, kDipDirectionDip, 60, 45},
        {"a,045/60SE,", kPrimaryPlane, kStrikeDipSense, 60, 135},
        {"a,045/60NW,", kPrimaryPlane, kStrikeDipSense, 60, 315},
        {"a,60SE/045,", kPrimaryPlane, kDipSenseStrike, 60, 135},
        {"a,045/60,", kPrimaryPlane, kStrikeDipRightHand, 60, 135},
        {"a,60-045,", kPrimaryPlane, kDipStrikeRightHand, 60, 135},
        {"a,20-145,", kPrimaryLine, kDipDipDirection, 20, 145},
    };
    for (const PairCase& expected : cases) {
        const ParsedRow row =
            ParseLine(expected.line, FormatOfPairs(expected.primary, expected.convention));
        ASSERT_EQ(row.status, LineStatus::Row) << expected.line;
        EXPECT_NEAR(row.dip, expected.dip, 1e-9) << expected.line;
        EXPECT_NEAR(row.az, expected.azimuth, 1e-9) << expected.line;
    }
}

TEST(PairsInCells, OfLinesFollowTheirOrder) {
    LineFormat format = FormatOfPairs(kPrimaryLine, kDipDipDirection);
    format.lineIsTrendFirst = true;
    const ParsedRow row = ParseLine("a,145/20,", format);
    ASSERT_EQ(row.status, LineStatus::Row);
    EXPECT_EQ(row.dip, 20);
    EXPECT_EQ(row.az, 145);
}

TEST(PairsInCells, InQuadrantsTellWhichValueIsTheAzimuth) {
    LineFormat format = FormatOfPairs(kPrimaryPlane, kStrikeDipSense);
    format.isQuadrant = true;
    for (const char* line : {"a,N30E 45SE,", "a,45SE N30E,", "a,N30E/45SE,"}) {
        const ParsedRow row = ParseLine(line, format);
        ASSERT_EQ(row.status, LineStatus::Row) << line;
        EXPECT_EQ(row.dip, 45) << line;
        EXPECT_EQ(row.az, 120) << line;
    }
}

TEST(PairsInCells, MayHoldASecondaryLineToo) {
    LineFormat format = FormatOfPairs(kPrimaryPlane, kDipDirectionDip);
    format.secondary = kSecondaryLine;
    format.neededColumns = HighestColumnNeeded(format) + 1;
    const ParsedRow row = ParseLine("a,120/60,20-050", format);
    ASSERT_EQ(row.status, LineStatus::Row);
    EXPECT_EQ(row.dip, 60);
    EXPECT_EQ(row.az, 120);
    EXPECT_EQ(row.dip2, 20);
    EXPECT_EQ(row.az2, 50);
}

TEST(PairsInCells, AreNoRowsWhereTheCellIsNoPair) {
    const LineFormat format = FormatOfPairs(kPrimaryPlane, kDipDirectionDip);
    EXPECT_EQ(ParseLine("1,120,", format).status, LineStatus::Missing);
    EXPECT_EQ(ParseLine("1,120/99,", format).status, LineStatus::NotOrientation);
    LineFormat apart = format;
    apart.pairsInCells = false;
    EXPECT_NE(ParseLine("1,120/60,", apart).status, LineStatus::Row);
}

TEST(PairsInCells, AreNoFaultOfTheColumns) {
    FormatChoice choice;
    choice.primary = kPrimaryPlane;
    choice.columns = {1, 1, 1, 3, 4, 5, 6, 7, 8, 9};
    EXPECT_FALSE(ColumnProblems(choice).empty());
    choice.pairsInCells = true;
    EXPECT_TRUE(ColumnProblems(choice).empty());
    choice.planeConvention = kStrikeDipSense;
    EXPECT_TRUE(ColumnProblems(choice).empty());
    choice.columns[kSlotDirection] = 0; // the sense alone is in the cell of the dip
    EXPECT_EQ(ColumnProblems(choice).size(), 1U);
}

TEST(CommentMarks, AreTextsAndBack) {
    for (const char* text : {"", "#", "%", "//", "#%", "#//", "%//", "#%//"}) {
        const std::optional<CommentMarks> marks = CommentMarksIn(text);
        ASSERT_TRUE(marks) << text;
        EXPECT_EQ(TextOfCommentMarks(*marks), text);
    }
    EXPECT_EQ(CommentMarksIn("// # %"), (CommentMarks{true, true, true}));
    for (const char* text : {"/", "///", "!", "#a", ";"}) {
        EXPECT_EQ(CommentMarksIn(text), std::nullopt) << text;
    }
}

TEST(CommentMarks, MakeLinesComments) {
    LineFormat format;
    format.delimiter = ',';
    for (const char* line : {"# 45,120", "  #45,120", "% 45,120", "// 45,120", "//1979"}) {
        EXPECT_NE(ParseLine(line, format).status, LineStatus::Comment) << line;
        LineFormat marked = format;
        marked.comments = {true, true, true};
        EXPECT_EQ(ParseLine(line, marked).status, LineStatus::Comment) << line;
    }
    format.comments.hash = true;
    EXPECT_EQ(ParseLine("/T1", format).status, LineStatus::ParameterLine);
    EXPECT_EQ(ParseLine("// 1", format).status, LineStatus::ParameterLine);
    EXPECT_EQ(ParseLine("45,120 # steep", format).status, LineStatus::NotOrientation)
        << "a comment is a whole line";
}

} // namespace
} // namespace quandrel
