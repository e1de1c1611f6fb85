// SPDX-License-Identifier: MIT

#include "input/column_order.h"
#include "input/parameter_line.h"

#include <random>

namespace quandrel {
namespace {

TEST(ParseParameterLine, ReadsEveryItem) {
    const ParameterItems items = ParseParameterLine(
        "/T2\t/P0\t/N3\t/I2\t/C16\t/12\t/23\t/S1\t/A1\t/L0\t/W1\t/Fvein width\t/Drock type");
    EXPECT_EQ(items.T, 2);
    EXPECT_EQ(items.P, 0);
    EXPECT_EQ(items.N, 3);
    EXPECT_EQ(items.I, 2);
    EXPECT_EQ(items.C, 16);
    EXPECT_EQ(items.one, 2);
    EXPECT_EQ(items.two, 3);
    EXPECT_EQ(items.S, true);
    EXPECT_EQ(items.A, true);
    EXPECT_EQ(items.L, false);
    EXPECT_EQ(items.W, true);
    EXPECT_EQ(items.F, "vein width");
    EXPECT_EQ(items.D, "rock type");
    EXPECT_TRUE(items.extraFiles.empty());
}

TEST(ParseParameterLine, TakesItemsInAnyCaseAndWithBlanks) {
    const ParameterItems items = ParseParameterLine("  /t 3 /n2/c-13 /s 5\t/a-1");
    EXPECT_EQ(items.T, 3);
    EXPECT_EQ(items.N, 2);
    EXPECT_EQ(items.C, -13);
    EXPECT_EQ(items.S, true);
    EXPECT_EQ(items.A, true);
}

TEST(ParseParameterLine, ReadsItem1OfValue5) {
    EXPECT_EQ(ParseParameterLine("/15").one, kOldFormats);
    EXPECT_EQ(ParseParameterLine("/T1\t/15").one, kOldFormats);
}

TEST(ParseParameterLine, ReadsNumbersAtTheStartOfAValue) {
    EXPECT_EQ(ParseParameterLine("/N2nd").N, 2);
    EXPECT_EQ(ParseParameterLine("/T2.7").T, 2);
    EXPECT_EQ(ParseParameterLine("/T+2").T, 2);
    EXPECT_EQ(ParseParameterLine("/N 2 3").N, 2);
}

TEST(ParseParameterLine, IgnoresWhatIsOutOfRangeOrUnknown) {
    const ParameterItems items = ParseParameterLine(
        "/T4 /N0 /C0 /14 /26 /I0 /Z9 /Sx /Annotations 1 /C27 /C23 /C-20 /N /T99999999999 / //");
    EXPECT_FALSE(items.T);
    EXPECT_FALSE(items.N);
    EXPECT_FALSE(items.C);
    EXPECT_FALSE(items.one);
    EXPECT_FALSE(items.two);
    EXPECT_FALSE(items.I);
    EXPECT_FALSE(items.S);
    EXPECT_FALSE(items.A);
    EXPECT_EQ(ParseParameterLine("/T2 /T9").T, 2);
    EXPECT_EQ(ParseParameterLine("/T2 /T3").T, 3);
    EXPECT_EQ(ParseParameterLine("/20").two, kNoSecondary);
}

// Names and paths run to the next tab, so that they may hold blanks and slashes.
TEST(ParseParameterLine, TakesNamesAndPathsUpToTheNextTab) {
    const ParameterItems items = ParseParameterLine(
        "/T1\t/F grains/mm2 \t/Dmean wind speed\t/X/home/me/my data/a.txt\t/X b c.txt\t/N2");
    EXPECT_EQ(items.F, "grains/mm2");
    EXPECT_EQ(items.D, "mean wind speed");
    EXPECT_EQ(items.extraFiles, (std::vector<std::string>{"/home/me/my data/a.txt", "b c.txt"}));
    EXPECT_EQ(items.N, 2);
    EXPECT_EQ(ParseParameterLine("/Dno tab behind /T1").D, "no tab behind /T1");
    EXPECT_FALSE(ParseParameterLine("/D\t/T1").D);
    EXPECT_TRUE(ParseParameterLine("/X \t/T1").extraFiles.empty());
}

TEST(ParseParameterLine, CutsNamesAt254Characters) {
    EXPECT_EQ(ParseParameterLine("/D" + std::string(300, 'x')).D, std::string(254, 'x'));
    std::string umlauts;
    for (int i = 0; i < 300; ++i) {
        umlauts += "\xc3\xa4";
    }
    EXPECT_EQ(ParseParameterLine("/F" + umlauts).F, umlauts.substr(0, 508));
}

TEST(ReadParameterLines, JoinsTheLinesInFrontOfTheData) {
    const ParameterItems items = ReadParameterLines("; a comment\r\n\r\n  /T2 /N1\r\n"
                                                    "*another\r\n\t/Drock type\r\n/C11\r\n"
                                                    "45\t120\r\n/T3\r\n");
    EXPECT_EQ(items.T, 2);
    EXPECT_EQ(items.N, 1);
    EXPECT_EQ(items.D, "rock type");
    EXPECT_EQ(items.C, 11);
    EXPECT_FALSE(items.isOwnText);
    EXPECT_TRUE(ReadParameterLines(";Quandrel, ver 9.5.1\n/T1\n").isOwnText);
    EXPECT_FALSE(ReadParameterLines("45\t120\n/T1\n").T);
    EXPECT_FALSE(ReadParameterLines("").T);
}

TEST(BuildParameterText, WritesItemsInTheirOrder) {
    ParameterItems items;
    items.T = 1;
    items.N = 2;
    items.one = 2;
    items.two = 4;
    items.S = false;
    items.A = false;
    items.L = true;
    items.W = true;
    items.F = "grain size";
    items.D = "rock\ttype";
    EXPECT_EQ(BuildParameterText(items, true),
              "/T1\t/P0\t/N2\t/I2\t/C1\t/U0\t/12\t/24\t/S0\t/A0\t/L1\t/W1\t/Fgrain size\t/Drock "
              "type\r\n");
    EXPECT_EQ(BuildParameterText(items, false), "/T1\t/P0\t/N2\t/I2\t/C1\t/U0\t/15\r\n");
    items.N = 0;
    EXPECT_EQ(BuildParameterText(items, false), "/T1\t/P0\t/N\t/I2\t/C1\t/U0\t/15\r\n");
    items.one = 0;
    EXPECT_EQ(BuildParameterText(items, false), "/T1\t/P0\t/N\t/I1\t/C1\t/U0\t/15\r\n");
    EXPECT_NE(BuildParameterText(items, true).find("\t/11\t"), std::string::npos);
}

// Rows hold the line that was computed, whatever it was computed from.
TEST(BuildParameterText, WritesLinesInPlanesAsLines) {
    for (const std::int16_t format : {kPitchInPlane, kTrendInPlane, kHadeInPlane}) {
        ParameterItems items;
        items.two = format;
        EXPECT_NE(BuildParameterText(items, true).find("/23"), std::string::npos);
    }
}

TEST(BuildParameterText, ReadsBackWhatItWrote) {
    std::mt19937 random(27);
    const std::vector<std::string> names = {"value", "vein width", "a/b c", "\xc3\xa4 / 7"};
    for (int round = 0; round < 500; ++round) {
        ParameterItems items;
        items.T = static_cast<std::int16_t>(1 + random() % 3);
        items.N = static_cast<std::int16_t>(1 + random() % 3);
        items.one = static_cast<std::int16_t>(1 + random() % 3);
        items.two = static_cast<std::int16_t>(random() % 2 == 0 ? kSecondaryPlane : kNoSecondary);
        items.S = random() % 2 == 0;
        items.A = random() % 2 == 0;
        items.L = random() % 2 == 0;
        items.W = random() % 2 == 0;
        items.F = names[random() % names.size()];
        items.D = names[random() % names.size()];
        const ParameterItems read = ParseParameterLine(BuildParameterText(items, true));
        EXPECT_EQ(read.T, items.T);
        EXPECT_EQ(read.N, items.N);
        EXPECT_EQ(read.one, items.one);
        EXPECT_EQ(read.two, items.two);
        EXPECT_EQ(read.S, items.S);
        EXPECT_EQ(read.A, items.A);
        EXPECT_EQ(read.L, items.L);
        EXPECT_EQ(read.W, items.W);
        EXPECT_EQ(read.F, items.F);
        EXPECT_EQ(read.D, items.D);
    }
}

struct OldCode {
    const char* line;
    std::int16_t primary, secondary;
};

TEST(WithFormatItems, TranslatesOldItemCodes) {
    const std::vector<OldCode> cases = {
        {"/I1", kDirections, kNoSecondary},
        {"/T1 /I2", kPrimaryPlane, kNoSecondary},
        {"/T2 /I2", kPrimaryLine, kNoSecondary},
        {"/T3 /I2", kPrimaryLine, kNoSecondary},
        {"/I3", kPrimaryPlane, kSecondaryLine},
        {"/I4", kPrimaryPlane, kPitchInPlane},
        {"/I5", kPrimaryPlane, kTrendInPlane},
        {"/I6", kPrimaryPlane, kSecondaryPlane},
        {"/T1 /I9", kPrimaryPlane, kNoSecondary},
        {"/T1 /15", kPrimaryPlane, kNoSecondary},
        {"/T2 /15", kPrimaryLine, kNoSecondary},
        {"/I3 /15", kPrimaryPlane, kSecondaryLine},
        {"/T2 /I2 /12 /23", kPrimaryPlane, kSecondaryLine},
        {"/11 /I2 /T1", kDirections, kNoSecondary},
    };
    for (const OldCode& expected : cases) {
        FormatSettings settings;
        settings.primary = 99;
        settings.secondary = 99;
        const FormatSettings found = WithFormatItems(settings, ParseParameterLine(expected.line));
        EXPECT_EQ(found.primary, expected.primary) << expected.line;
        EXPECT_EQ(found.secondary, expected.secondary) << expected.line;
    }
}

TEST(WithFormatItems, LaysColumnsOutAfterAllItems) {
    FormatSettings settings;
    settings.columns.fill(77);
    settings.delimiter = ",";
    settings.hasHeadings = true;
    // The flags come after the old item, and count all the same.
    const FormatSettings found = WithFormatItems(
        settings, ReadParameterLines(";Quandrel\n/I2\t/T1\t/12\t/23\t/A1\t/L1\t/W1\t/C1\n"));
    EXPECT_EQ(found.columns, (ColumnSettings{0, 1, 8, 2, 3, 8, 4, 5, 6, 7}));
    EXPECT_EQ(found.delimiter, "\t");
    EXPECT_FALSE(found.hasHeadings);
}

TEST(WithFormatItems, LeavesColumnsAloneWithoutOldItems) {
    FormatSettings settings;
    settings.columns = {1, 0, 2, 3, 2, 5, 6, 7, 8, 9};
    settings.delimiter = "\t";
    settings.lineAppended = true;
    const FormatSettings found =
        WithFormatItems(settings, ParseParameterLine("/T1 /N1 /C16 /12 /23 /S0 /A0 /L0 /W0"));
    EXPECT_EQ(found.columns, settings.columns);
    EXPECT_EQ(found.conventions, 16);
    EXPECT_EQ(found.primary, kPrimaryPlane);
    EXPECT_EQ(found.secondary, kSecondaryLine);
    EXPECT_EQ(found.plotDataKind, kPlanes);
    EXPECT_TRUE(found.lineAppended); // belongs to a new plot
}

TEST(WithNewPlotItems, SetsKindFlagsAndNames) {
    FormatSettings settings;
    settings.plotKind = kEqualArea;
    settings.lineAppended = true;
    settings.numericName = "value";
    settings.nonNumericName = "type";
    const FormatSettings found =
        WithNewPlotItems(settings, ParseParameterLine("/N2\t/A0\t/L1\t/Flength"));
    EXPECT_EQ(found.plotKind, kEqualAngle);
    EXPECT_FALSE(found.lineAppended);
    EXPECT_TRUE(found.numericAppended);
    EXPECT_FALSE(found.nonNumericAppended);
    EXPECT_EQ(found.numericName, "length");
    EXPECT_EQ(found.nonNumericName, "type");
    // A partial line names no flags, and there are no values then.
    EXPECT_FALSE(WithNewPlotItems(settings, ParseParameterLine("/15")).lineAppended);
    EXPECT_TRUE(WithNewPlotItems(settings, ParseParameterLine("/T1")).lineAppended);
}

TEST(FormatAfterText, TheTrendsOfATextAreItsOwn) {
    struct WordCase {
        const char* text;
        NegativePlunge before;
        NegativePlunge now;
        NegativePlunge after;
    };

    constexpr auto kLower = NegativePlunge::LowerEnd;
    constexpr auto kVector = NegativePlunge::Vector;
    const std::vector<WordCase> cases = {
        {"/U1", kLower, kVector, kLower},  {"/U1", kLower, kLower, kLower}, // chosen by the user
        {"/U0", kVector, kLower, kVector}, {"/U0", kVector, kVector, kVector},
        {"/U1", kVector, kLower, kLower}, // chosen by the user, against text and setting
        {"/T1", kLower, kVector, kVector}, {"/T1", kVector, kVector, kVector},
    };
    for (const WordCase& expected : cases) {
        FormatSettings before;
        before.negativePlunge = expected.before;
        FormatSettings now;
        now.negativePlunge = expected.now;
        EXPECT_EQ(AfterText(before, ParseParameterLine(expected.text), now).negativePlunge,
                  expected.after)
            << expected.text;
    }
}

TEST(FormatAfterText, TheMarksOfCommentsOfATextAreItsOwn) {
    constexpr CommentMarks kNone;
    constexpr CommentMarks kHash{true, false, false};
    constexpr CommentMarks kAll{true, true, true};
    EXPECT_EQ(ParseParameterLine("/M1").M, kHash);
    EXPECT_EQ(ParseParameterLine("/M7").M, kAll);
    EXPECT_EQ(ParseParameterLine("/M0").M, kNone);
    EXPECT_EQ(ParseParameterLine("/M8").M, std::nullopt);
    FormatSettings before;
    const FormatSettings ofText = WithFormatItems(before, ParseParameterLine("/M7"));
    EXPECT_EQ(ofText.comments, kAll);
    EXPECT_EQ(AfterText(before, ParseParameterLine("/M7"), ofText).comments, kNone);
    before.comments = kHash;
    EXPECT_EQ(WithFormatItems(before, ParseParameterLine("/T1")).comments, kHash);
    EXPECT_EQ(WithFormatItems(before, ReadParameterLines(";Quandrel\n/T1\n")).comments, kNone)
        << "rows that the program writes may begin with any mark";
    FormatSettings chosen = before;
    chosen.comments = {false, true, false};
    EXPECT_EQ(AfterText(before, ParseParameterLine("/M7"), chosen).comments, chosen.comments)
        << "chosen by the user";
}

TEST(ReadParameterLines, PassOverMarkedComments) {
    constexpr CommentMarks kAll{true, true, true};
    EXPECT_EQ(ReadParameterLines("# a\n/T2\n").T, std::nullopt);
    EXPECT_EQ(ReadParameterLines("# a\n % b\n// /T1\n/T2\n", kAll).T, kLines);
    EXPECT_EQ(ReadParameterLines("/M4\n// /T1\n/T2 /N2\n").T, kLines) << "marked from there on";
}

TEST(ApplyFormatItems, ChangesTheFormatInForce) {
    const FormatSettings former = gSettings.format;
    ApplyFormatItems(ParseParameterLine("/C14 /T3"));
    ApplyNewPlotItems(ParseParameterLine("/N2 /L1"));
    const FormatSettings changed = gSettings.format;
    gSettings.format = former;
    EXPECT_EQ(changed.conventions, 14);
    EXPECT_EQ(changed.plotDataKind, kPolarLines);
    EXPECT_EQ(changed.plotKind, kEqualAngle);
    EXPECT_TRUE(changed.numericAppended);
}

struct OrderCase {
    const char* what;
    std::int16_t conventions, primary, secondary;
    bool line, number, text;
    ColumnSettings columns;
};

TEST(ColumnsInOrder, FollowTheFormat) {
    const std::vector<OrderCase> cases = {
        {"directions", 1, kDirections, 0, false, true, true, {3, 0, 3, 3, 3, 3, 3, 3, 1, 2}},
        {"plane", 1, kPrimaryPlane, 0, false, false, true, {0, 1, 3, 3, 3, 3, 3, 3, 3, 2}},
        {"direction first",
         2,
         kPrimaryPlane,
         0,
         false,
         false,
         false,
         {1, 0, 2, 2, 2, 2, 2, 2, 2, 2}},
        {"strike, dip, sense",
         3,
         kPrimaryPlane,
         0,
         false,
         true,
         false,
         {1, 0, 2, 4, 4, 4, 4, 4, 3, 4}},
        {"dip, sense, strike",
         4,
         kPrimaryPlane,
         0,
         false,
         false,
         true,
         {0, 2, 1, 4, 4, 4, 4, 4, 4, 3}},
        {"right hand", 6, kPrimaryPlane, 0, false, false, false, {1, 0, 2, 2, 2, 2, 2, 2, 2, 2}},
        {"plunge, trend",
         1,
         kPrimaryLine,
         kSecondaryLine,
         true,
         false,
         false,
         {0, 1, 6, 2, 3, 6, 4, 5, 6, 6}},
        {"trend, plunge",
         11,
         kPrimaryLine,
         kSecondaryLine,
         true,
         false,
         false,
         {1, 0, 6, 3, 2, 6, 5, 4, 6, 6}},
        {"pitch",
         1,
         kPrimaryPlane,
         kPitchInPlane,
         false,
         true,
         false,
         {0, 1, 5, 5, 2, 3, 5, 5, 4, 5}},
        {"trend",
         1,
         kPrimaryPlane,
         kTrendInPlane,
         false,
         true,
         false,
         {0, 1, 4, 4, 2, 4, 4, 4, 3, 4}},
        {"two planes",
         3,
         kPrimaryPlane,
         kSecondaryPlane,
         false,
         false,
         false,
         {1, 0, 2, 4, 3, 5, 6, 6, 6, 6}},
    };
    for (const OrderCase& expected : cases) {
        FormatSettings settings;
        settings.conventions = expected.conventions;
        settings.primary = expected.primary;
        settings.secondary = expected.secondary;
        settings.lineAppended = expected.line;
        settings.numericAppended = expected.number;
        settings.nonNumericAppended = expected.text;
        EXPECT_EQ(ColumnsInOrder(settings), expected.columns) << expected.what;
    }
}

} // namespace
} // namespace quandrel
