// SPDX-License-Identifier: MIT

#include "core/setting_keys.h"
#include "input/remembered_formats.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

class RememberedFormatsTest : public EngineTest {};

RememberedFormat FormatFor(std::vector<std::string> headings, int convention) {
    RememberedFormat format;
    format.headings = std::move(headings);
    FormatChoice& choice = format.choice;
    choice.primary = kPrimaryPlane;
    choice.secondary = kPitchInPlane;
    choice.planeConvention = convention;
    choice.isQuadrant = choice.pairsInCells = true;
    choice.negativePlunge = NegativePlunge::Vector;
    choice.comments = {true, false, true};
    choice.delimiter = ";";
    choice.numericAppended = choice.numberIsFrequency = true;
    choice.numericName = "Länge \"m\"\n";
    choice.columns = {4, 3, 2, 1, 0, 5, 6, 7, 8, 254};
    choice.plotDataKind = kPolarLines;
    choice.kindIsStated = choice.plotSecondary = choice.columnHeadings = true;
    return format;
}

TEST_F(RememberedFormatsTest, AreTextsAndBack) {
    const RememberedFormat format = FormatFor({"Fallen", "走向", ""}, kStrikeDipSense);
    const std::optional<RememberedFormat> read = RememberedIn(TextOfRemembered(format));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->headings, format.headings);
    EXPECT_EQ(TextOfRemembered(*read), TextOfRemembered(format));
    EXPECT_EQ(read->choice.columns, format.choice.columns);
    EXPECT_EQ(read->choice.comments, format.choice.comments);
    EXPECT_EQ(read->choice.numericName, format.choice.numericName);
    EXPECT_TRUE(read->choice.columnHeadings);
}

TEST_F(RememberedFormatsTest, TextsThatAreNoFormatsAreNothing) {
    const std::string good = TextOfRemembered(FormatFor({"dip"}, kDipDipDirection));
    ASSERT_TRUE(RememberedIn(good));
    const auto with = [&good](const std::string& from, const std::string& to) {
        std::string text = good;
        const std::size_t at = text.find(from);
        EXPECT_NE(at, std::string::npos) << from;
        return text.replace(at, from.size(), to);
    };
    for (const std::string& text :
         {std::string(), std::string("{}"), std::string("[1]"), good.substr(0, good.size() / 2),
          with("\"primary\":2", "\"primary\":9"), with("\"plane\":1", "\"plane\":7"),
          with("\"plane\":1", "\"plane\":\"x\""), with("254]", "255]"), with("8,254]", "8]"),
          with("\"delimiter\":\";\"", "\"delimiter\":\";;\"")}) {
        EXPECT_FALSE(RememberedIn(text)) << text;
    }
}

TEST_F(RememberedFormatsTest, TheLatestComesFirstAndOncePerHeadings) {
    RememberFormat(FormatFor({"a"}, kDipDipDirection));
    RememberFormat(FormatFor({"b"}, kDipDipDirection));
    RememberFormat(FormatFor({"a"}, kStrikeDipSense));
    RememberFormat(FormatFor({}, kStrikeDipSense)); // without headings nothing is kept
    const std::vector<RememberedFormat> formats = RememberedFormats();
    ASSERT_EQ(formats.size(), 2U);
    EXPECT_EQ(formats[0].headings, std::vector<std::string>{"a"});
    EXPECT_EQ(formats[0].choice.planeConvention, kStrikeDipSense);
    EXPECT_EQ(formats[1].headings, std::vector<std::string>{"b"});
}

TEST_F(RememberedFormatsTest, OnlySoManyAreKept) {
    for (std::size_t i = 0; i < kMostRemembered + 5; ++i) {
        RememberFormat(FormatFor({std::to_string(i)}, kDipDipDirection));
    }
    EXPECT_EQ(RememberedFormats().size(), kMostRemembered);
    EXPECT_EQ(RememberedFormats().front().headings.front(), std::to_string(kMostRemembered + 4));
}

TEST_F(RememberedFormatsTest, DamagedEntriesAreLeftOut) {
    RememberFormat(FormatFor({"a"}, kDipDipDirection));
    settings.Write(kApplicationName, "RememberedFormats", "2", "{\"headings\":[");
    EXPECT_EQ(RememberedFormats().size(), 1U);
}

} // namespace
} // namespace quandrel
