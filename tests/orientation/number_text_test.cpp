// SPDX-License-Identifier: MIT

#include "orientation/number_text.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <random>
#include <string>

namespace quandrel {
namespace {

constexpr unsigned kSeed = 99;

struct FormatCase {
    double value;
    const char* format;
    const char* expected;
};

class FormatNumberTable : public ::testing::TestWithParam<FormatCase> {};

TEST_P(FormatNumberTable, WritesTheText) {
    const FormatCase& c = GetParam();
    EXPECT_EQ(FormatNumber(c.value, c.format), c.expected) << c.value << " in " << c.format;
}

INSTANTIATE_TEST_SUITE_P(WholeNumbers, FormatNumberTable,
                         ::testing::Values(FormatCase{7, "000", "007"}, FormatCase{0, "000", "000"},
                                           FormatCase{1234, "000", "1234"},
                                           FormatCase{-7, "000", "-007"}, FormatCase{0, "#", ""},
                                           FormatCase{5, "#", "5"}, FormatCase{0.4, "##", ""},
                                           FormatCase{42, "##", "42"}, FormatCase{123, "##", "123"},
                                           FormatCase{0, "###", ""}, FormatCase{0, "#0", "0"},
                                           FormatCase{17, "#0", "17"},
                                           FormatCase{1e20, "#0", "100000000000000000000"}));

INSTANTIATE_TEST_SUITE_P(
    Decimals, FormatNumberTable,
    ::testing::Values(FormatCase{3, "#0.0", "3.0"}, FormatCase{12.34, "##0.0", "12.3"},
                      FormatCase{0, "0.0", "0.0"}, FormatCase{2, "0.##", "2"},
                      FormatCase{2.5, "0.##", "2.5"}, FormatCase{2.125, "0.##", "2.13"},
                      FormatCase{0.5, "0.#", "0.5"}, FormatCase{3, "0.#", "3"},
                      FormatCase{1.23456, "0.####", "1.2346"}, FormatCase{1.2, "0.####", "1.2"},
                      FormatCase{0.6664, "0.000", "0.666"}, FormatCase{-0.5, "#0.000", "-0.500"},
                      FormatCase{31.4159, "##0.000", "31.416"}, FormatCase{7.25, "000.0", "007.3"},
                      FormatCase{0.5, "0.0###", "0.5"}, FormatCase{0.12345, "0.0###", "0.1235"},
                      FormatCase{2, "##0.0###", "2.0"}, FormatCase{1.5, "0.0##", "1.5"},
                      FormatCase{1.2345, "0.0##", "1.235"}, FormatCase{1.5, "0.00", "1.50"},
                      FormatCase{1.5, "Fixed", "1.50"}, FormatCase{0, "Fixed", "0.00"},
                      FormatCase{12345.678, "Fixed", "12345.68"}));

INSTANTIATE_TEST_SUITE_P(
    HalvesGoAwayFromZero, FormatNumberTable,
    ::testing::Values(FormatCase{0.5, "#0", "1"}, FormatCase{1.5, "#0", "2"},
                      FormatCase{2.5, "#0", "3"}, FormatCase{-0.5, "#0", "-1"},
                      FormatCase{-2.5, "000", "-003"}, FormatCase{0.25, "0.0", "0.3"},
                      // 1.005, 0.285 and 2.675 are a little less as binary numbers
                      FormatCase{1.005, "0.00", "1.01"}, FormatCase{0.285, "Fixed", "0.29"},
                      FormatCase{2.675, "0.##", "2.68"}, FormatCase{-1.005, "0.00", "-1.01"},
                      FormatCase{9.995, "0.00", "10.00"}, FormatCase{99.5, "#0", "100"},
                      FormatCase{0.49999999999999994, "#0", "0"},
                      FormatCase{0.0049, "0.00", "0.00"}, FormatCase{0.05, "0.0", "0.1"},
                      FormatCase{0.04, "0.0", "0.0"}));

INSTANTIATE_TEST_SUITE_P(NeverNegativeZero, FormatNumberTable,
                         ::testing::Values(FormatCase{-0.0, "#0", "0"},
                                           FormatCase{-0.001, "0.00", "0.00"},
                                           FormatCase{-0.2, "000", "000"},
                                           FormatCase{-0.2, "#", ""},
                                           FormatCase{-0.0, "General Number", "0"}));

INSTANTIATE_TEST_SUITE_P(General, FormatNumberTable,
                         ::testing::Values(FormatCase{45, "General Number", "45"},
                                           FormatCase{180 - 123.4, "General Number", "56.6"},
                                           FormatCase{0.1 + 0.2, "General Number", "0.3"},
                                           FormatCase{-2.5, "General Number", "-2.5"},
                                           FormatCase{100, "General Number", "100"},
                                           FormatCase{0.001, "General Number", "0.001"},
                                           FormatCase{1e20, "General Number", "1E+20"},
                                           FormatCase{-1.25e-9, "General Number", "-1.25E-9"},
                                           FormatCase{123456789012345, "General Number",
                                                      "123456789012345"}));

TEST(FormatNumber, GivesNothingForWhatIsNotFinite) {
    EXPECT_EQ(FormatNumber(std::numeric_limits<double>::quiet_NaN(), "0.00"), "");
    EXPECT_EQ(FormatNumber(-std::numeric_limits<double>::infinity(), "General Number"), "");
}

TEST(FormatNumber, StaysWithinHalfAUnitOfTheLastPlace) {
    std::mt19937_64 random(kSeed);
    std::uniform_real_distribution<double> values(-2000, 2000);
    for (int i = 0; i < 5000; ++i) {
        const double value = values(random);
        const std::string text = FormatNumber(value, "0.000");
        double back = 0;
        std::from_chars(text.data(), text.data() + text.size(), back);
        ASSERT_NEAR(back, value, 0.0005 + 1e-12) << text << " seed " << kSeed;
        ASSERT_EQ(text.size() - text.find('.'), 4U) << text;
    }
}

struct ReadCase {
    const char* text;
    double expected;
};

TEST(ReadNumber, ReadsNumbersWithEitherDelimiter) {
    for (const ReadCase& c : {ReadCase{"45", 45},
                              {"45.5", 45.5},
                              {"45,5", 45.5},
                              {"-7", -7},
                              {"+7,25", 7.25},
                              {" 12 ", 12},
                              {"\t3\r", 3},
                              {".5", 0.5},
                              {"5.", 5},
                              {",5", 0.5},
                              {"007", 7},
                              {"1e3", 1000},
                              {"1,5E-2", 0.015},
                              {"2.e2", 200},
                              {"-0", 0},
                              {"0e999", 0},
                              {"1e-999", 0},
                              {"-1e-999", 0},
                              {"1.7976931348623157e308", 1.7976931348623157e308}}) {
        const std::optional<double> number = ReadNumber(c.text);
        ASSERT_TRUE(number) << c.text;
        EXPECT_EQ(*number, c.expected) << c.text;
    }
    EXPECT_FALSE(std::signbit(*ReadNumber("-0")));
}

TEST(ReadNumber, RefusesWhatIsNoNumber) {
    for (const char* text : {"",
                             " ",
                             "abc",
                             "12abc",
                             "abc12",
                             "1 2",
                             "1.2.3",
                             "1,234.5",
                             "1..2",
                             "--1",
                             "+-1",
                             "+",
                             "-",
                             ".",
                             ",",
                             "e5",
                             "1e",
                             "1e+",
                             "1e5.5",
                             "inf",
                             "-inf",
                             "nan",
                             "NAN",
                             "infinity",
                             "0x10",
                             "0b1",
                             "1e999",
                             "-1e999",
                             "1d5",
                             "12%",
                             "45SW",
                             "1'000",
                             ("\xef\xbb\xbf"
                              "1"),
                             "\xd9\xa3"}) {
        EXPECT_FALSE(ReadNumber(text)) << text;
    }
    EXPECT_FALSE(ReadNumber(std::string_view("1\0"
                                             "2",
                                             3)));
}

// Five hundred equal digits between two texts.
std::string LongText(const char* front, char digit, const char* behind) {
    std::string text = front;
    text.append(500, digit);
    text.append(behind);
    return text;
}

TEST(ReadNumber, ReadsLongTexts) {
    EXPECT_EQ(ReadNumber(LongText("", '0', "7")), 7);
    EXPECT_EQ(ReadNumber(LongText("0.", '3', "")), 1.0 / 3);
    EXPECT_EQ(ReadNumber(LongText("0,", '3', "")), 1.0 / 3);
    EXPECT_EQ(ReadNumber(LongText("0,", '0', "3")), 0);
    EXPECT_EQ(ReadNumber(LongText("0.", '0', "3e+10")), 0);
    EXPECT_EQ(ReadNumber("1e-99999999999999999999999"), 0);
    EXPECT_FALSE(ReadNumber(LongText("", '9', "")));
    EXPECT_FALSE(ReadNumber(LongText("", '9', ",5")));
    EXPECT_FALSE(ReadNumber(LongText("", '9', "e-10")));
    EXPECT_FALSE(ReadNumber("1e99999999999999999999999"));
}

TEST(ReadNumber, GivesTheNearestDouble) {
    std::mt19937_64 random(kSeed);
    std::uniform_int_distribution<int> digitCounts(1, 22);
    std::uniform_int_distribution<int> digits('0', '9');
    for (int i = 0; i < 20000; ++i) {
        const auto count = static_cast<std::size_t>(digitCounts(random));
        std::string text;
        for (std::size_t k = 0; k < count; ++k) {
            text += static_cast<char>(digits(random));
        }
        text.insert(random() % (count + 1), 1, '.');
        double expected = 0;
        std::from_chars(text.data(), text.data() + text.size(), expected);
        ASSERT_EQ(ReadNumber(text), expected) << text << " seed " << kSeed;
        text[text.find('.')] = ',';
        ASSERT_EQ(ReadNumber("-" + text), 0.0 - expected) << text << " seed " << kSeed;
    }
}

TEST(ReadNumber, UndoesTheGeneralFormat) {
    std::mt19937_64 random(kSeed);
    std::uniform_int_distribution<long> hundredths(-99999999, 99999999);
    for (int i = 0; i < 5000; ++i) {
        const double value = static_cast<double>(hundredths(random)) / 100;
        ASSERT_EQ(ReadNumber(FormatNumber(value, "General Number")), value) << "seed " << kSeed;
    }
}

TEST(MayBeNumber, NeverDeniesANumber) {
    for (int first = 0; first < 256; ++first) {
        for (const char* rest : {"", "1", ".5", ",5", "1e3", " 7"}) {
            const std::string text = static_cast<char>(first) + std::string(rest);
            EXPECT_TRUE(MayBeNumber(text) || !ReadNumber(text)) << text;
        }
    }
    EXPECT_FALSE(MayBeNumber("slate"));
    EXPECT_FALSE(MayBeNumber("\xc3\x84"));
    EXPECT_FALSE(MayBeNumber(""));
}

TEST(ParseNumber, GivesZeroForEmptyTextsAndNoNumbers) {
    EXPECT_EQ(ParseNumber(""), 0);
    EXPECT_EQ(ParseNumber("12abc"), 0);
    EXPECT_EQ(ParseNumber("45,5"), 45.5);
    EXPECT_EQ(ParseNumber("45.5"), 45.5);
}

TEST(NumberFromText, TakesASingleDelimiterForDecimalsInEitherRegion) {
    for (const bool decimalIsComma : {false, true}) {
        EXPECT_EQ(NumberFromText("45,5", decimalIsComma), 45.5);
        EXPECT_EQ(NumberFromText("45.5", decimalIsComma), 45.5);
        EXPECT_EQ(NumberFromText("1,234", decimalIsComma), 1.234);
        EXPECT_EQ(NumberFromText("", decimalIsComma), 0);
        EXPECT_EQ(NumberFromText("x", decimalIsComma), 0);
    }
}

TEST(NumberFromText, PartsGroupsByTheOtherDelimiter) {
    EXPECT_EQ(NumberFromText("1,234.5", false), 1234.5);
    EXPECT_EQ(NumberFromText("-12.345.678,25", true), -12345678.25);
    EXPECT_EQ(NumberFromText("1,234,567", false), 1234567);
    for (const char* text : {"1,234.5", "1,23,4", "1.234,5,6", "1.23.456,5", "1234.567,5"}) {
        EXPECT_EQ(NumberFromText(text, true), 0) << text;
    }
}

TEST(IsWholeNumber, TellsWholeFromBrokenNumbers) {
    for (const double value : {0.0, -0.0, 7.0, -7.0, 1e10}) {
        EXPECT_TRUE(IsWholeNumber(value)) << value;
    }
    for (const double value : {0.5, -7.001, std::numeric_limits<double>::quiet_NaN(),
                               std::numeric_limits<double>::infinity()}) {
        EXPECT_FALSE(IsWholeNumber(value)) << value;
    }
}

TEST(WithoutBlanks, CutsBothEnds) {
    EXPECT_EQ(WithoutBlanks("  a b\t\r\n"), "a b");
    EXPECT_EQ(WithoutBlanks(" \t "), "");
}

} // namespace
} // namespace quandrel
