// SPDX-License-Identifier: MIT

#include "batch/girdle_commands.h"
#include "edit/marks/girdles.h"
#include "edit/marks/small_circles.h"
#include "support/test_platform.h"

#include <numbers>

namespace quandrel {
namespace {

class GirdleCommands : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPlotKind = kEqualArea;
        gConventions = 1;
        slot = NewPlot();
    }

    static std::string Run(const std::string& line) {
        const auto commands = ParseScript(line, CommandBreak::LineOnly);
        EXPECT_TRUE(commands);
        const Command& command = (*commands)[0];
        return command.name == "girdle" ? ApplyGirdleArguments(command.arguments)
                                        : ApplySmallCircleArguments(command.arguments);
    }

    int slot = 0;
};

TEST_F(GirdleCommands, LayAGirdleAndHideAndShowIt) {
    EXPECT_EQ(Run("girdle 2 45/120"), "");
    EXPECT_TRUE(IsGirdleShown(2));
    EXPECT_NEAR(NumberOf(ActiveRecord().AxisItems[2][kItemPlunge]), std::numbers::pi / 4, 1e-12);
    EXPECT_NEAR(NumberOf(ActiveRecord().AxisItems[2][kItemTrend]), std::numbers::pi * 5 / 3, 1e-12);
    EXPECT_EQ(Run("girdle 2 off"), "");
    EXPECT_FALSE(IsGirdleShown(2));
    EXPECT_EQ(Run("girdle 2 45/120"), "") << "its own text shows it again";
    EXPECT_TRUE(IsGirdleShown(2));
    EXPECT_EQ(Run("girdle 2 off"), "");
    EXPECT_EQ(Run("girdle 2 on"), "");
    EXPECT_TRUE(IsGirdleShown(2));
}

TEST_F(GirdleCommands, DrawASmallCircleAndHideAndShowIt) {
    EXPECT_EQ(Run("smallcircle 4 -45 N30E 150"), "");
    EXPECT_TRUE(IsSmallCircleShown(4));
    EXPECT_EQ(SmallCircleOfSet(4)->AxisPl, "-45");
    EXPECT_EQ(SmallCircleOfSet(4)->AxisAz, "N30E");
    EXPECT_EQ(SmallCircleOfSet(4)->Angle, "150");
    EXPECT_EQ(Run("smallcircle 4 off"), "");
    EXPECT_FALSE(IsSmallCircleShown(4));
    EXPECT_EQ(Run("smallcircle 4 on"), "");
    EXPECT_TRUE(IsSmallCircleShown(4));
}

struct RefusedRow {
    const char* line;
    const char* fragment;
};

constexpr RefusedRow kRefused[] = {
    {"girdle", "a row from 1 to 8"},
    {"girdle 1", "a row from 1 to 8"},
    {"girdle 1 45 120", "a row from 1 to 8"},
    {"girdle row=1 45/120", "a row from 1 to 8"},
    {"girdle 0 on", "'0' is not a girdle"},
    {"girdle 11 45/120", "'11' is not a girdle"},
    {"girdle 9 45/120", "belongs to the statistics"},
    {"girdle 10 on", "no girdle 10 yet"},
    {"girdle 1 on", "no girdle 1 yet"},
    {"girdle 1 45:120", "'45:120' cannot be read as a plane"},
    {"girdle 1 95/120", "'95/120' cannot be read as a plane"},
    {"smallcircle", "a number from 1 to 4"},
    {"smallcircle 1 45 120", "a number from 1 to 4"},
    {"smallcircle 5 45 120 30", "'5' is not a small circle"},
    {"smallcircle 1 91 120 30", "'91': The plunge"},
    {"smallcircle 1 45 400 30", "'400': The azimuth"},
    {"smallcircle 1 45 120 181", "'181': The angle"},
    {"smallcircle 1 on", "The plunge"},
};

TEST_F(GirdleCommands, TellWhatIsWrongAndChangeNothing) {
    for (const RefusedRow& row : kRefused) {
        EXPECT_NE(Run(row.line).find(row.fragment), std::string::npos)
            << row.line << ": " << Run(row.line);
    }
    for (int item = 0; item < kAxisItems; ++item) {
        EXPECT_EQ(GirdleText(item), "");
        EXPECT_FALSE(IsGirdleShown(item));
    }
    for (int set = 1; set <= kUserCircles; ++set) {
        EXPECT_EQ(SmallCircleOfSet(set)->AxisPl, "");
        EXPECT_FALSE(IsSmallCircleShown(set));
    }
    EXPECT_EQ(ActiveRecord().Modified, 0);
}

TEST_F(GirdleCommands, SayTheOrderThatTheyExpect) {
    const std::vector<std::pair<std::int16_t, std::string>> orders = {
        {1, "Dip,Dip Dir'n"}, {2, "Dip Dir'n,Dip"}, {3, "Strike"},
        {4, "Dip"},           {5, "Dip"},           {6, "Strike"}};
    for (const auto& [convention, order] : orders) {
        gConventions = convention;
        const std::string use = Run("girdle");
        EXPECT_NE(use.find("a plane as " + order), std::string::npos) << use;
        for (const std::string line :
             {"girdle 1 95x/120", "girdle 2 on", "girdle 9 30/045", "girdle 11 on"}) {
            const std::string refusal = Run(line);
            EXPECT_NE(refusal.find("a plane as " + order), std::string::npos) << refusal;
            EXPECT_EQ(refusal.find("text box"), std::string::npos) << refusal;
            EXPECT_EQ(refusal.find('\n'), std::string::npos) << refusal;
        }
        const std::size_t start = use.find("such as ") + 8;
        const std::string example = use.substr(start, use.find(',', start) - start);
        ASSERT_EQ(Run("girdle 3 " + example), "") << example;
        EXPECT_NEAR(NumberOf(ActiveRecord().AxisItems[3][kItemPlunge]), std::numbers::pi / 4,
                    1e-12);
        EXPECT_NEAR(NumberOf(ActiveRecord().AxisItems[3][kItemTrend]), std::numbers::pi * 5 / 3,
                    1e-12)
            << convention;
        EXPECT_EQ(Run("girdle 3 off"), "");
    }
}

TEST_F(GirdleCommands, SayWhichRowsAreInUse) {
    EXPECT_EQ(Run("girdle").find("in use"), std::string::npos);
    ASSERT_EQ(Run("girdle 2 45/120"), "");
    ASSERT_EQ(Run("girdle 5 30/40"), "");
    ASSERT_EQ(Run("girdle 5 off"), "");
    const std::string use = Run("girdle 11 on");
    EXPECT_NE(use.find("; in use: 2 (Girdle 2) 45/120 on, 5 (Girdle 5) 30/40 off"),
              std::string::npos)
        << use;
    for (const std::string line : {"girdle 1 on", "girdle 1 95/20", "girdle 9 30/40", "girdle 1"}) {
        EXPECT_NE(Run(line).find("; in use: 2 (Girdle 2) 45/120 on"), std::string::npos)
            << Run(line);
    }
}

TEST_F(GirdleCommands, NeedAStereoPlot) {
    ActiveRecord().PlotKind = kRose;
    EXPECT_EQ(Run("girdle 1 45/120"), "a rose has no girdles");
    EXPECT_EQ(Run("smallcircle 1 45 120 30"), "a rose has no small circles");
    gActivePlot = 0;
    EXPECT_EQ(Run("girdle 1 45/120"), "no plot is open");
    EXPECT_EQ(Run("smallcircle 1 45 120 30"), "no plot is open");
    gActivePlot = slot;
}

} // namespace
} // namespace quandrel
