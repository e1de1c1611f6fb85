// SPDX-License-Identifier: MIT

#include "svg/xml_text.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

constexpr const char* kReplaced = "\xef\xbf\xbd";

TEST(XmlText, KeepsWhatXmlAllows) {
    for (const char* text :
         {"", "Bedding 045/30", "St\xc3\xb6rung", "\xe6\x9d\xb1", "\xf0\x9f\x8c\x8d",
          "\xed\x9f\xbf", "\xee\x80\x80", "\xef\xbf\xbc", "\xf4\x8f\xbf\xbd", "a  b '"}) {
        EXPECT_EQ(XmlText(text), text);
    }
}

TEST(XmlText, WritesMarkupAsReferences) {
    EXPECT_EQ(XmlText("a<b & \"c\">]]>"), "a&lt;b &amp; &quot;c&quot;&gt;]]&gt;");
}

TEST(XmlText, ReplacesControlCharacters) {
    EXPECT_EQ(XmlText("a\tb\r\nc"), "a b  c");
    EXPECT_EQ(XmlText("\x01"), kReplaced);
    EXPECT_EQ(XmlText(std::string_view("\0", 1)), kReplaced);
    EXPECT_EQ(XmlText("\x7f"), kReplaced);
    EXPECT_EQ(XmlText("\xc2\x85"), kReplaced) << "of the second set";
    EXPECT_EQ(XmlText("\xef\xbf\xbe"), kReplaced) << "U+FFFE";
    EXPECT_EQ(XmlText("\xf0\x9f\xbf\xbf"), kReplaced) << "U+1FFFF";
}

TEST(XmlText, ReplacesEachInvalidByte) {
    const std::string one = kReplaced;
    EXPECT_EQ(XmlText("\xff"), one);
    EXPECT_EQ(XmlText("\x80"
                      "a"),
              one + "a")
        << "a continuation without a start";
    EXPECT_EQ(XmlText("\xc3"), one) << "cut";
    EXPECT_EQ(XmlText("\xe2\x82"), one + one) << "cut";
    EXPECT_EQ(XmlText("\xc0\xaf"), one + one) << "overlong";
    EXPECT_EQ(XmlText("\xe0\x80\xaf"), one + one + one) << "overlong";
    EXPECT_EQ(XmlText("\xed\xa0\x80"), one + one + one) << "a surrogate";
    EXPECT_EQ(XmlText("\xf4\x90\x80\x80"), one + one + one + one) << "beyond U+10FFFF";
    EXPECT_EQ(XmlText("\xc3<"), one + "&lt;") << "the second byte is a character of its own";
}

} // namespace
} // namespace quandrel
