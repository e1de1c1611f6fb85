// SPDX-License-Identifier: MIT

#include "platform/scripted/recording_surface.h"
#include "stereo/drawable_text.h"
#include "stereo/text_lines.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

TEST(DrawableText, CleanTextsStay) {
    for (const std::string text :
         {"", "Bedding 045/30", "gr\u00e8s", "\u6771", "e\u0301", "\U0001f30b", "\ue000 private",
          "\u05d0\u05d1", "\u00a0", "\u200b", "~"}) {
        EXPECT_EQ(DrawableText(text), text);
    }
}

struct Row {
    std::string text;
    std::string drawn;
};

TEST(DrawableText, EveryClassOfCharactersBecomesDrawable) {
    const std::vector<Row> rows = {
        {"a\tb", "a b"},
        {"a\nb\r\nc\rd", "a b c d"},
        {"a\vb\fc", "a b c"},
        {"a\u0085b\u2028c\u2029d", "a b c d"},
        {std::string("a\0b", 3), "a\ufffdb"},
        {"a\x01\x1b[0m", "a\ufffd\ufffd[0m"},
        {"\x7f", "\ufffd"},
        {"\u0080\u009f", "\ufffd\ufffd"},
        {"\ufffe\uffff\ufdd0\ufdef\U0001fffe\U0010ffff", "\ufffd\ufffd\ufffd\ufffd\ufffd\ufffd"},
        {"a\u202eb\u2066c\u2069\u200e\u200f\u061c\ufeffd", "abcd"},
        {"\xed\xa0\x80", "\ufffd\ufffd\ufffd"},                     // half of a surrogate pair
        {"\xc0\x80\xe0\x80\x80", "\ufffd\ufffd\ufffd\ufffd\ufffd"}, // longer than need be
        {"gr\xe8s", "gr\ufffds"},                                   // Windows-1252
        {"\xf5\xff\xfe", "\ufffd\ufffd\ufffd"},
        {"\xf4\x90\x80\x80", "\ufffd\ufffd\ufffd\ufffd"}, // beyond U+10FFFF
        {"ab\xe6\x9d", "ab\ufffd\ufffd"},                 // cut apart
        {"\x80", "\ufffd"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(DrawableText(row.text), row.drawn) << ::testing::PrintToString(row.text);
        EXPECT_EQ(DrawableText(row.drawn), row.drawn) << "clean once is clean";
    }
}

TEST(DrawableText, IsWhatLinesDraw) {
    RecordingSurface surface(100, 100);
    DrawTabbedLine(surface, {0, 0}, "a\x01\tb\x02");
    std::vector<std::string> texts;
    for (const DrawOperation& operation : surface.Operations()) {
        texts.push_back(OperationText(operation));
    }
    ASSERT_EQ(texts.size(), 2U);
    EXPECT_NE(texts[0].find("a\ufffd"), std::string::npos) << texts[0];
    EXPECT_NE(texts[1].find("b\ufffd"), std::string::npos) << texts[1];
}

} // namespace
} // namespace quandrel
