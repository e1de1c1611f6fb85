// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "input/data_line.h"
#include "orientation/number_text.h"

#include <cmath>
#include <random>

namespace quandrel {
namespace {

struct TextRow {
    std::string dip, az, dip2, az2, numeric, text, lineDip, lineAz;
};

struct Wanted {
    bool line = false;
    bool numeric = false;
    bool text = false;
};

class ParseDataLineTest : public testing::Test {
protected:
    void TearDown() override {
        gDecimalIsComma = false;
        gConvertDecimals = false;
    }

    TextRow Parse(const std::string& line, const Wanted& wanted) {
        TextRow row;
        row.numeric = wanted.numeric ? "TRUE" : "FALSE";
        row.text = wanted.text ? "TRUE" : "FALSE";
        row.lineDip = wanted.line ? "TRUE" : "FALSE";
        ParseDataLine(line, row.dip, row.az, row.dip2, row.az2, row.numeric, row.text, row.lineDip,
                      row.lineAz, neededColumns, primary, secondary, convention, false, isQuadrant,
                      slots, delimiter);
        return row;
    }

    void SetSlots(const ColumnSettings& columns) {
        for (std::size_t slot = 0; slot < columns.size(); ++slot) {
            slots[slot] = columns[slot];
        }
    }

    std::int16_t primary = kPrimaryPlane;
    std::int16_t secondary = kNoSecondary;
    std::int16_t convention = kDipDipDirection;
    bool isQuadrant = false;
    int neededColumns = 2;
    std::string delimiter = "\t";
    SlotValues slots = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
};

TEST_F(ParseDataLineTest, GivesTheErrorTextsOfLines) {
    EXPECT_EQ(Parse("/T1", {}).dip, "ERROR /: /parameter line");
    EXPECT_EQ(Parse("; note", {}).dip, "ERROR 1: comments line");
    EXPECT_EQ(Parse("*note", {}).dip, "ERROR 1: comments line");
    EXPECT_EQ(Parse("dip", {}).dip, "ERROR 2: not data line");
    EXPECT_EQ(Parse("45", {}).dip, "ERROR 3: not enough items in each data line");
    EXPECT_EQ(Parse("95\t1", {}).dip, "ERROR 5: not orientation data");
    EXPECT_EQ(Parse("\t1", {}).dip, "ERROR 6: missing data");
    isQuadrant = true;
    EXPECT_EQ(Parse("45\t1", {}).dip, "ERROR 4: not quadrant data");
    const TextRow blank = Parse("   ", {});
    EXPECT_EQ(blank.dip, "");
    EXPECT_EQ(blank.az, "");
}

TEST_F(ParseDataLineTest, GivesValuesAsTexts) {
    const TextRow row = Parse("45,5\t7", {});
    EXPECT_EQ(row.dip, "45.5");
    EXPECT_EQ(row.az, "7");
    EXPECT_EQ(row.dip2, "");
    EXPECT_EQ(row.numeric, "FALSE");
    EXPECT_EQ(row.text, "FALSE");
    EXPECT_EQ(row.lineDip, "FALSE");
    primary = kDirections;
    EXPECT_EQ(Parse("x\t360", {}).dip, "0");
    EXPECT_EQ(Parse("x\t360", {}).az, "360");
}

TEST_F(ParseDataLineTest, GivesTheErrorTextsOfAppendedValues) {
    SetSlots({0, 1, 9, 9, 9, 9, 2, 3, 4, 5});
    neededColumns = 6;
    const Wanted all = {true, true, true};
    const TextRow missing = Parse("45\t120\t\t10\t\tmarl", all);
    EXPECT_EQ(missing.dip, "45");
    EXPECT_EQ(missing.lineDip, "ERROR A: missing Appended line data");
    EXPECT_EQ(missing.numeric, "ERROR 8: missing numeric data");
    EXPECT_EQ(missing.text, "marl");
    const TextRow wrong = Parse("45\t120\t95\t10\tmany\tmarl", all);
    EXPECT_EQ(wrong.lineDip, "ERROR B: incorrect Appended line data");
    EXPECT_EQ(wrong.numeric, "ERROR 9: incorrect numeric data");
    const TextRow good = Parse("45\t120\t14\t52\t 2.50\tEocene", all);
    EXPECT_EQ(good.lineDip, "14");
    EXPECT_EQ(good.lineAz, "52");
    EXPECT_EQ(good.numeric, "2.50");
    EXPECT_EQ(good.text, "Eocene");
    EXPECT_FALSE(IsErrorText(good.text));
    EXPECT_TRUE(IsErrorText(wrong.numeric));
    // What could not be read is never "TRUE".
    const TextRow bad = Parse("95\t120\t14\t52\t2.5\tEocene", all);
    EXPECT_EQ(bad.numeric, "FALSE");
    EXPECT_EQ(bad.text, "FALSE");
    EXPECT_EQ(bad.lineDip, "FALSE");
}

TEST_F(ParseDataLineTest, PutsErrorDInFrontOfTheWrongDelimiter) {
    SetSlots({0, 1, 9, 9, 9, 9, 9, 9, 2, 9});
    neededColumns = 3;
    const Wanted number = {false, true, false};
    EXPECT_EQ(Parse("45\t120\t2,5", number).numeric, "ERROR D:2,5");
    EXPECT_EQ(Parse("45\t120\t2.5", number).numeric, "2.5");
    gDecimalIsComma = true;
    EXPECT_EQ(Parse("45\t120\t2.5", number).numeric, "ERROR D:2.5");
    EXPECT_EQ(Parse("45\t120\t2,5", number).numeric, "2,5");
    gConvertDecimals = true;
    EXPECT_EQ(Parse("45\t120\t2.5", number).numeric, "2,5");
}

TEST_F(ParseDataLineTest, TellsComputedSecondaryValuesWhole) {
    secondary = kHadeInPlane;
    SetSlots({0, 1, 9, 9, 2, 9, 9, 9, 9, 9});
    neededColumns = 3;
    const TextRow row = Parse("60\t120\t90", {});
    EXPECT_EQ(row.dip2, "60");
    EXPECT_EQ(row.az2, "120");
    // sin(plunge) = sin(30) sin(60), and tan(trend - 30) = tan(30) cos(60)
    EXPECT_EQ(Parse("60\t120\t30", {}).dip2, "26");
    EXPECT_EQ(Parse("60\t120\t30", {}).az2, "46");
    secondary = kTrendInPlane;
    const TextRow none = Parse("60\t120\t-", {});
    EXPECT_EQ(none.dip, "60");
    EXPECT_EQ(none.dip2, "-9999");
}

TEST_F(ParseDataLineTest, TakesValuesFromTheSlots) {
    convention = kStrikeDipSense;
    slots = {std::int32_t{45},   std::string("120"), std::string("SW"), {}, {}, {}, {}, {}, 2.5,
             std::string("marl")};
    neededColumns = kValuesInSlots;
    const TextRow row = Parse("; not looked at", {false, true, true});
    EXPECT_EQ(row.dip, "45");
    EXPECT_EQ(row.az, "210");
    EXPECT_EQ(row.numeric, "2.5");
    EXPECT_EQ(row.text, "marl");
    EXPECT_EQ(slots, (SlotValues{0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
    // The slots are columns again.
    neededColumns = 3;
    EXPECT_EQ(Parse("30\t90\tS", {}).az, "180");
}

TEST_F(ParseDataLineTest, TakesASeparatorAsDelimiter) {
    delimiter = "/";
    const TextRow row = Parse("45/120", {});
    EXPECT_EQ(row.dip, "45");
    EXPECT_EQ(row.az, "120");
}

TEST(ErrorText, HasTheCodeAsItsSeventhCharacter) {
    const std::string codes = "/123456";
    const std::vector<LineStatus> statuses = {LineStatus::ParameterLine, LineStatus::Comment,
                                              LineStatus::NotData,       LineStatus::TooFewItems,
                                              LineStatus::NotQuadrant,   LineStatus::NotOrientation,
                                              LineStatus::Missing};
    for (std::size_t i = 0; i < statuses.size(); ++i) {
        EXPECT_EQ(ErrorText(statuses[i])[6], codes[i]);
        EXPECT_TRUE(IsErrorText(ErrorText(statuses[i])));
    }
    EXPECT_EQ(ErrorText(LineStatus::Row), "");
    EXPECT_EQ(ErrorText(LineStatus::Blank), "");
    EXPECT_FALSE(IsErrorText("ERRORS"));
    EXPECT_FALSE(IsErrorText("Eocene"));
}

std::string RandomLine(std::mt19937& random) {
    static const std::vector<std::string> kItems = {
        "45",  "120", "-30", "7.5", "2,5", "45SW", "N30E", "S5W", "NE",    "",   "marl", "12abc",
        "1e3", "nan", "400", "90",  "360", "-",    ";",    "/",   "\"8\"", "  ", "0x10", "1,234.5"};
    static const std::vector<std::string> kBreaks = {"\t", "\t", "\t", " ", ",", ";", " , "};
    std::string line;
    for (unsigned i = 0; i < random() % 8; ++i) {
        line += (i == 0 ? "" : kBreaks[random() % kBreaks.size()]);
        line += kItems[random() % kItems.size()];
    }
    return line;
}

void ExpectSame(const std::string& text, double value, const std::string& line) {
    const std::optional<double> number = ReadNumber(text);
    ASSERT_TRUE(number) << line;
    ASSERT_NEAR(*number, value, 1e-9) << line;
}

// Both forms of the parser on the same random lines in random formats.
TEST_F(ParseDataLineTest, AgreesWithTheTypedParser) {
    std::mt19937 random(20);
    const std::string delimiters[] = {"\t", "", ",", " "};
    for (int round = 0; round < 30000; ++round) {
        LineFormat format;
        format.primary = primary = static_cast<std::int16_t>(random() % 4);
        format.secondary = secondary = static_cast<std::int16_t>(random() % 6);
        convention = static_cast<std::int16_t>(1 + random() % 6);
        format.planeConvention = convention;
        format.isQuadrant = isQuadrant = random() % 2 == 0;
        delimiter = delimiters[random() % 4];
        format.delimiter = delimiter.empty() ? kAnyDelimiter : delimiter[0];
        const Wanted wanted = {random() % 2 == 0, random() % 2 == 0, random() % 2 == 0};
        format.wantLine = wanted.line;
        format.wantNumber = wanted.numeric;
        format.wantText = wanted.text;
        format.decimalIsComma = gDecimalIsComma = random() % 2 == 0;
        format.convertDecimals = gConvertDecimals = random() % 2 == 0;
        for (std::int32_t& slot : format.slots) {
            slot = static_cast<std::int32_t>(random() % 6);
        }
        SetSlots(format.slots);
        format.neededColumns = neededColumns = HighestColumnNeeded(format) + 1;

        const std::string line = RandomLine(random);
        const ParsedRow typed = ParseLine(line, format);
        const TextRow row = Parse(line, wanted);
        if (typed.status != LineStatus::Row) {
            ASSERT_EQ(row.dip, ErrorText(typed.status)) << line;
            ASSERT_EQ(row.az, "") << line;
            continue;
        }
        ExpectSame(row.dip, typed.dip, line);
        ExpectSame(row.az, typed.az, line);
        ASSERT_EQ(row.dip2 == "-9999", secondary != kNoSecondary && !typed.secondaryPresent);
        ASSERT_EQ(IsErrorText(row.numeric), typed.numberStatus != NumberStatus::Absent
                                                && typed.numberStatus != NumberStatus::Good)
            << line;
        if (typed.numberStatus == NumberStatus::Good) {
            ASSERT_NEAR(NumberFromText(row.numeric, gDecimalIsComma), typed.number, 1e-9) << line;
        }
        if (wanted.text) {
            ASSERT_EQ(row.text, std::string_view(typed.text)) << line;
        }
        ASSERT_EQ(IsErrorText(row.lineDip),
                  typed.lineStatus == AppendedLineStatus::Missing
                      || typed.lineStatus == AppendedLineStatus::Incorrect);
    }
}

} // namespace
} // namespace quandrel
