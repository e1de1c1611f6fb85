// SPDX-License-Identifier: MIT

#include "platform/scripted/recording_surface.h"
#include "stereo/text_lines.h"

#include <gtest/gtest.h>

namespace quandrel {
namespace {

/// A surface whose characters are 10 units wide: six tenths of the height of 12.5 points.
class TextLinesTest : public ::testing::Test {
protected:
    TextLinesTest() {
        DrawState state;
        state.font.points = 12.5;
        surface.SetState(state);
    }

    RecordingSurface surface{500, 500};
};

TEST_F(TextLinesTest, CharactersAreAsWideAsTheCasesBelowTakeThem) {
    EXPECT_DOUBLE_EQ(surface.TextWidth("abc"), 30);
}

TEST_F(TextLinesTest, BreaksAtBlanksAndKeepsWhatFits) {
    struct Case {
        const char* text;
        double width;
        std::vector<std::string> lines;
    };

    const std::vector<Case> cases = {
        {"upper limb of it", 500, {"upper limb of it"}},
        {"upper limb of it", 100, {"upper limb", "of it"}},
        {"upper limb of it", 99, {"upper", "limb of", "it"}},
        {"unbreakable it", 50, {"unbreakable", "it"}},
        {"one\r\ntwo\n\nthree", 500, {"one", "two", "", "three"}},
        {"  (kept  as it is)", 500, {"  (kept  as it is)"}},
        {"a table\tstays whole", 50, {"a table\tstays whole"}},
        {"", 100, {}},
    };
    for (const auto& [text, width, lines] : cases) {
        EXPECT_EQ(WrappedLines(surface, text, width), lines) << text << ' ' << width;
    }
}

TEST_F(TextLinesTest, PutsCellsAtTabStops) {
    // A stop every eight characters, as wide as "-0.0000 ".
    DrawTabbedLine(surface, {5, -20}, "0.5\t-12.34567\t8");
    const std::vector<DrawOperation>& operations = surface.Operations();
    ASSERT_EQ(operations.size(), 3U);
    EXPECT_EQ(operations[0].points[0], (Point{5, -20}));
    EXPECT_EQ(operations[1].points[0], (Point{85, -20}));
    EXPECT_EQ(operations[2].points[0], (Point{245, -20})) << "the cell before reaches past a stop";
    EXPECT_DOUBLE_EQ(TabbedWidth(surface, "0.5\t-12.34567\t8"), 250);
}

} // namespace
} // namespace quandrel
