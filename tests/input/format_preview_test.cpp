// SPDX-License-Identifier: MIT

#include "input/format_preview.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

using Cells = std::vector<std::string>;

class FormatPreviewTest : public EngineTest {};

const std::vector<std::string> kFile = {"; a comment, with commas",
                                        "/T1\t/N2",
                                        "",
                                        "dip,direction, rock",
                                        "45,120, Eocene",
                                        "50,130",
                                        "no data here"};

FormatChoice Commas() {
    FormatChoice choice;
    choice.delimiter = ",";
    return choice;
}

TEST_F(FormatPreviewTest, TellsWhatEachLineIs) {
    FormatChoice choice = Commas();
    choice.columnHeadings = true;
    const FormatPreview preview = SplitPreview(kFile, choice);
    ASSERT_EQ(preview.lines.size(), kFile.size());
    const PreviewKind kinds[] = {PreviewKind::Other,   PreviewKind::Other, PreviewKind::Other,
                                 PreviewKind::Heading, PreviewKind::Data,  PreviewKind::Data,
                                 PreviewKind::NoData};
    for (std::size_t i = 0; i < kFile.size(); ++i) {
        EXPECT_EQ(preview.lines[i].kind, kinds[i]) << kFile[i];
        EXPECT_EQ(preview.lines[i].line, kFile[i]);
    }
    EXPECT_EQ(preview.heading, kFile[3]);
    EXPECT_EQ(preview.HeadingOf(2), "rock");
    EXPECT_EQ(preview.HeadingOf(3), "");
    EXPECT_EQ(preview.columns, 3);
}

TEST_F(FormatPreviewTest, HasNoHeadingWithoutTheTick) {
    const FormatPreview preview = SplitPreview(kFile, Commas());
    EXPECT_EQ(preview.lines[3].kind, PreviewKind::NoData);
    EXPECT_EQ(preview.heading, "");
    EXPECT_EQ(preview.HeadingOf(0), "");
}

TEST_F(FormatPreviewTest, TakesARowOfNumbersAsTheHeadingWhenTold) {
    FormatChoice choice = Commas();
    choice.columnHeadings = true;
    const FormatPreview preview = SplitPreview(std::vector<std::string>{"1,2", "3,4"}, choice);
    EXPECT_EQ(preview.lines[0].kind, PreviewKind::Heading);
    EXPECT_EQ(preview.lines[1].kind, PreviewKind::Data);
}

struct SplitRow {
    const char* delimiter;
    const char* line;
    Cells cells;
};

TEST_F(FormatPreviewTest, SplitsByTheDelimiterInForce) {
    const SplitRow rows[] = {
        {"\t", "45\t120 m\tx", {"45", "120 m", "x"}},
        {" ", "45   120 x", {"45", "120", "x"}},
        {",", "45, 120,x;y", {"45", "120", "x;y"}},
        {";", "1,5;120", {"1,5", "120"}},
        {"", "45  120,x;y\tz", {"45", "120", "x", "y", "z"}},
        {"", "45  \"a, b\"", {"45", "a, b"}},
        {"\t", "45  120", {"45  120"}},
    };
    for (const SplitRow& row : rows) {
        FormatChoice choice;
        choice.delimiter = row.delimiter;
        const FormatPreview preview = SplitPreview(std::vector<std::string>{row.line}, choice);
        EXPECT_EQ(preview.lines[0].cells, row.cells) << row.line;
        EXPECT_EQ(preview.columns, static_cast<int>(row.cells.size())) << row.line;
    }
}

TEST_F(FormatPreviewTest, EndsAtTheLastColumnThatSettingsCanName) {
    std::string line = "1";
    for (int i = 0; i < 1000; ++i) {
        line += ",1";
    }
    EXPECT_EQ(SplitPreview(std::vector<std::string>{line}, Commas()).columns, 255);
}

TEST_F(FormatPreviewTest, SuggestsHeadingsByTheLooksOfTheFirstLines) {
    using Lines = std::vector<std::string>;

    struct Case {
        Lines lines;
        bool suggested;
    };

    const Case cases[] = {
        {{"dip,direction", "45,120"}, true},
        {{"; comment", "", "Dip 1,Direction", "45,120"}, false}, // holds a number
        {{"; comment", "/T1", "Dip1,Direction", "45,120"}, true},
        {{"45,120", "50,130"}, false},
        {{"dip direction", "units are degrees", "45 120"}, true},
        {{"dip,direction"}, false},
        {{"dip,direction", "no data"}, false},
        {{}, false},
    };
    for (const char* delimiter : {"\t", ",", ""}) {
        FormatChoice choice;
        choice.delimiter = delimiter;
        for (const Case& test : cases) {
            EXPECT_EQ(SuggestsHeadings(test.lines, LineFormatOf(choice)), test.suggested)
                << (test.lines.empty() ? "nothing" : test.lines.front()) << " by " << delimiter;
        }
    }
    FormatChoice quadrants;
    quadrants.primary = kDirections;
    quadrants.isQuadrant = true;
    quadrants.columns[kSlotDirection] = 0;
    EXPECT_FALSE(SuggestsHeadings(Lines{"N30E", "45"}, LineFormatOf(quadrants)))
        << "the first line reads as data";
}

TEST_F(FormatPreviewTest, NamesTheItemsOfAColumn) {
    FormatChoice choice;
    choice.planeConvention = kStrikeDipSense;
    choice.nonNumericAppended = true;
    choice.columns = {2, 0, 2, 0, 0, 0, 0, 0, 0, 4};
    EXPECT_EQ(ItemsOfColumn(choice, 0), std::vector<int>{kSlotDirection});
    EXPECT_EQ(ItemsOfColumn(choice, 1), std::vector<int>{});
    EXPECT_EQ(ItemsOfColumn(choice, 2), (std::vector<int>{kSlotDip, kSlotSense}));
    EXPECT_EQ(ItemsOfColumn(choice, 4), std::vector<int>{kSlotText});
}

} // namespace
} // namespace quandrel
