// SPDX-License-Identifier: MIT

#include "input/decimal_delimiter.h"

namespace quandrel {
namespace {

TEST(FixDecimalDelimiter, SwapsOnlyTheWrongDelimiter) {
    struct FixCase {
        const char* value;
        const char* point;
        const char* comma;
    };

    const std::vector<FixCase> cases = {
        {"2.5", "2.5", "2,5"},
        {"2,5", "2.5", "2,5"},
        {"25", "25", "25"},
        {"", "", ""},
        {"-0,25", "-0.25", "-0,25"},
        {"1,234.5", "1,234.5", "1.234,5"},
        {"1.234,5", "1,234.5", "1.234,5"},
        {"1.234.567", "1.234.567", "1.234.567"},
        {"1,234,567", "1,234,567", "1,234,567"},
    };
    for (const FixCase& expected : cases) {
        EXPECT_EQ(FixDecimalDelimiter(expected.value, false), expected.point) << expected.value;
        EXPECT_EQ(FixDecimalDelimiter(expected.value, true), expected.comma) << expected.value;
    }
}

using Texts = std::vector<std::string>;

TEST(DetectDecimalMismatch, NeedsMoreThanHalfWithTheOtherDelimiter) {
    struct MismatchCase {
        Texts texts;
        int point;
        int comma;
    };

    const std::vector<MismatchCase> cases = {
        {{}, 0, 0},
        {{"", "", "7", "marl"}, 0, 0},
        {{"2.5", "3.5"}, 0, 1},
        {{"2,5", "3,5", "7", ""}, 2, 0},
        {{"2,5", "3.5"}, 0, 0},
        {{"2,5", "3.5", "4,5"}, 2, 0},
        {{"2,5", "3.5", "4.5"}, 0, 1},
        {{"St. John", "sand, dry", "c.f."}, 0, 0},
        {{"1.234,5"}, 2, 0},
    };
    for (const MismatchCase& expected : cases) {
        EXPECT_EQ(DetectDecimalMismatch(expected.texts, false), expected.point);
        EXPECT_EQ(DetectDecimalMismatch(expected.texts, true), expected.comma);
    }
}

} // namespace
} // namespace quandrel
