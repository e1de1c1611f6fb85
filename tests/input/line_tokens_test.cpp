// SPDX-License-Identifier: MIT

#include "input/format_model.h"
#include "input/line_tokens.h"

#include <random>

namespace quandrel {
namespace {

using Texts = std::vector<std::string>;

Texts AllTokens(std::string_view line, char delimiter) {
    Texts tokens;
    std::size_t position = 0;
    for (std::string token; NextToken(line, position, token, delimiter);) {
        tokens.push_back(token);
    }
    EXPECT_EQ(position, line.size() + 1);
    return tokens;
}

struct TokenCase {
    const char* line;
    char delimiter;
    Texts tokens;
};

TEST(NextToken, PartsLinesByTheRulesOfTheDelimiter) {
    const std::vector<TokenCase> cases = {
        {"45  120", kAnyDelimiter, {"45", "120"}},
        {"45  120", '\t', {"45  120"}},
        {"45 , 120;x\ty", kAnyDelimiter, {"45", "120", "x", "y"}},
        {"45 ;120", kAnyDelimiter, {"45", "120"}},
        {"45\t\t120", kAnyDelimiter, {"45", "", "120"}},
        {"45 \t 120", kAnyDelimiter, {"45", "120"}},
        {"45,,120", kAnyDelimiter, {"45", "", "120"}},
        {"45 , , 120", kAnyDelimiter, {"45", "", "120"}},
        {",45", kAnyDelimiter, {"", "45"}},
        {"  45", kAnyDelimiter, {"45"}},
        {"45,", kAnyDelimiter, {"45", ""}},
        {"45 ", kAnyDelimiter, {"45", ""}},
        {"45 , ", kAnyDelimiter, {"45", ""}},
        {"45  120", ' ', {"45", "120"}},
        {"  45 120 ", ' ', {"45", "120", ""}},
        {"45,5 120", ' ', {"45,5", "120"}},
        {"45,120", ',', {"45", "120"}},
        {"45,,120,", ',', {"45", "", "120", ""}},
        {" 45 , 120 ", ',', {"45", "120"}},
        {"fine sand, dry", ',', {"fine sand", "dry"}},
        {"45\t120", '\t', {"45", "120"}},
        {"\t45\t120", '\t', {"", "45", "120"}},
        {" \t 45", '\t', {"", "45"}},
        {"\t45,1", ',', {"45", "1"}},
        {"45\t\t", '\t', {"45", "", ""}},
        {"45/120", '/', {"45", "120"}},
        {"45-120", '-', {"45", "120"}},
        {"-45-", '-', {"", "45", ""}},
        {"", '\t', {""}},
        {"", kAnyDelimiter, {""}},
    };
    for (const TokenCase& expected : cases) {
        EXPECT_EQ(AllTokens(expected.line, expected.delimiter), expected.tokens)
            << '[' << expected.line << "] by [" << expected.delimiter << ']';
    }
}

TEST(NextToken, TakesQuotedTokensWithoutTheirQuotes) {
    const std::vector<TokenCase> cases = {
        {"\"45\",\"a, b\",c", ',', {"45", "a, b", "c"}},
        {"\"a b\" 45", kAnyDelimiter, {"a b", "45"}},
        {"\"a b\" 45", ' ', {"a b", "45"}},
        {"\"a;b\" ; 45", kAnyDelimiter, {"a;b", "45"}},
        {"\"say \"\"so\"\"\",1", ',', {"say \"so\"", "1"}},
        {"\"\",1", ',', {"", "1"}},
        {"\"\"\"\",1", ',', {"\"", "1"}},
        {"\" a \" ,1", ',', {"a", "1"}},
        {"\"open,1", ',', {"\"open", "1"}},
        {"\"a\"b,1", ',', {"\"a\"b", "1"}},
        {"5\" pipe,1", ',', {"5\" pipe", "1"}},
        {"\"", ',', {"\""}},
        {"\"\t\"\t1", '\t', {"\t", "1"}},
    };
    for (const TokenCase& expected : cases) {
        EXPECT_EQ(AllTokens(expected.line, expected.delimiter), expected.tokens) << expected.line;
    }
}

TEST(NextToken, SaysThatThereIsNoMore) {
    std::size_t position = 0;
    Token token;
    EXPECT_TRUE(NextToken("7", position, token, ','));
    EXPECT_FALSE(NextToken("7", position, token, ','));
    EXPECT_TRUE(token.Text().empty());
    EXPECT_EQ(position, 2U);
}

TEST(NextToken, MarksNumbersThatItReadOnTheWay) {
    struct NumberCase {
        const char* text;
        double number;
        char delimiter;
    };

    const std::vector<NumberCase> cases = {
        {"0", 0, '\0'},      {"007", 7, '\0'},      {"-12", -12, '\0'},
        {"45.5", 45.5, '.'}, {"45,5", 45.5, ','},   {".25", 0.25, '.'},
        {"3.", 3, '.'},      {"-.5", -0.5, '.'},    {"123456789012345", 123456789012345.0, '\0'},
        {"0.1", 0.1, '.'},   {"1.005", 1.005, '.'}, {"340.096982191", 340.096982191, '.'},
    };
    for (const NumberCase& expected : cases) {
        std::size_t position = 0;
        Token token;
        ASSERT_TRUE(NextToken(expected.text, position, token, '\t'));
        EXPECT_TRUE(token.isPlainNumber) << expected.text;
        EXPECT_EQ(token.number, expected.number) << expected.text;
        EXPECT_EQ(token.decimalDelimiter, expected.delimiter) << expected.text;
    }
    for (const char* text :
         {"", "-", ".", "-.", "1.2.3", "1-2", "12abc", "1e5", "+5", "0x10", "1234567890123456"}) {
        std::size_t position = 0;
        Token token;
        ASSERT_TRUE(NextToken(text, position, token, '\t'));
        EXPECT_FALSE(token.isPlainNumber) << text;
    }
}

// The fast path for a token, compared with the general reader of numbers.
TEST(NextToken, ReadsPlainNumbersAsReadNumberDoes) {
    std::mt19937 random(7);
    constexpr std::string_view kLetters = "0123456789.,-+eE xN";
    for (int round = 0; round < 200000; ++round) {
        std::string text;
        for (unsigned i = 0; i < 1 + random() % 9; ++i) {
            text += kLetters[random() % kLetters.size()];
        }
        std::size_t position = 0;
        Token token;
        ASSERT_TRUE(NextToken(text, position, token, '\t'));
        ASSERT_EQ(NumberIn(token), ReadNumber(text)) << '[' << text << ']';
    }
}

TEST(WithoutLeadingBlanks, KeepsTabsThatPartColumns) {
    EXPECT_EQ(WithoutLeadingBlanks("  \t45", '\t'), "\t45");
    EXPECT_EQ(WithoutLeadingBlanks("  \t45", kAnyDelimiter), "\t45");
    EXPECT_EQ(WithoutLeadingBlanks("  \t45", ','), "45");
    EXPECT_EQ(WithoutLeadingBlanks("   ", '\t'), "");
}

TEST(LineTokens, FindsFarColumnsBySlot) {
    std::string line;
    for (int column = 0; column < 300; ++column) {
        line += (column == 0 ? "c" : ";c") + std::to_string(column);
    }
    const ColumnSettings slots = {299, 31, 32, 33, 0, 150, 299, 5, -1, 400};
    LineTokens tokens;
    EXPECT_EQ(tokens.Split(line, 300, ';', slots), 300);
    for (const int slot : {0, 1, 2, 3, 4, 5, 6, 7}) {
        EXPECT_EQ(tokens.At(slot, slots).Text(),
                  "c" + std::to_string(slots[static_cast<std::size_t>(slot)]));
    }
    EXPECT_EQ(tokens.At(8, slots).Text(), "");
    EXPECT_EQ(tokens.At(9, slots).Text(), "");
}

TEST(LineTokens, StopsAtTheColumnsThatAreNeeded) {
    const ColumnSettings slots = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    LineTokens tokens;
    EXPECT_EQ(tokens.Split("1,2,3,4", 2, ',', slots), 2);
    EXPECT_EQ(tokens.At(1, slots).Text(), "2");
    EXPECT_EQ(tokens.At(2, slots).Text(), "");
    EXPECT_EQ(tokens.Split("1,2", 4, ',', slots), 2);
}

} // namespace
} // namespace quandrel
