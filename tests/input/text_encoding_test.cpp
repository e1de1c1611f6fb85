// SPDX-License-Identifier: MIT

#include "input/text_encoding.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

TEST(TextEncoding, EveryByteOfWindows1252ComesBack) {
    for (int byte = 0; byte < 256; ++byte) {
        const std::string one(1, static_cast<char>(byte));
        EXPECT_EQ(ToWindows1252(FromWindows1252(one)), one) << byte;
    }
}

TEST(TextEncoding, SomeLettersOfTheCodePage) {
    // The Euro sign U+20AC is 80, the dagger U+2020 is 86, Y with diaeresis U+0178 is 9F.
    EXPECT_EQ(ToWindows1252("\xe2\x82\xac\xe2\x80\xa0\xc5\xb8\xc3\xbf"), "\x80\x86\x9f\xff");
    EXPECT_EQ(ToWindows1252("\xce\xa9"), std::nullopt) << "no Greek";
    EXPECT_EQ(ToWindows1252("\xf0\x9f\x9c\x81"), std::nullopt);
    EXPECT_EQ(ToWindows1252("a\xff"), std::nullopt) << "no UTF-8";
    EXPECT_EQ(ToWindows1252(""), "");
}

TEST(TextEncoding, AFileTextReadsBackAsItWas) {
    struct Case {
        const char* text;
        const char* bytes;
    };

    const Case cases[] = {
        {"slate", "slate"},
        {"gr\xc3\xa8s", "gr\xe8s"},
        {"\xce\xa9", "\xce\xa9"},
        // Its bytes in the code page, C3 A9, would be read as another letter.
        {"\xc3\x83\xc2\xa9", "\xc3\x83\xc2\xa9"},
        // A byte order mark is treated like any other letter.
        {"\xef\xbb\xbfx", "\xef\xbb\xbfx"},
        {"", ""},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(ToFileBytes(test.text), test.bytes);
        EXPECT_EQ(FromFileBytes(test.bytes), test.text);
    }
}

TEST(TextEncoding, LengthOfUtf8EndsAtTheFirstWrongByte) {
    EXPECT_EQ(LengthOfUtf8("ab\xc3\xa9"), 4U);
    EXPECT_EQ(LengthOfUtf8("ab\xc3"), 2U);
    EXPECT_EQ(LengthOfUtf8("\xed\xa0\x80"), 0U) << "half of a pair is not a character";
    std::string longer(300, 'a');
    longer.back() = '\xff';
    EXPECT_EQ(LengthOfUtf8(longer), 299U);
}

} // namespace
} // namespace quandrel
