// SPDX-License-Identifier: MIT

#include "input/format_suspicions.h"
#include "support/test_platform.h"

namespace quandrel {
namespace {

using Lines = std::vector<std::string>;

class FormatSuspicionsTest : public EngineTest {
protected:
    static Lines Reasons(const FormatChoice& choice, const Lines& lines, Doubt doubt = Doubt::All) {
        return FormatMisfits(choice, SplitPreview(lines, choice), doubt);
    }
};

/// A choice with blanks, commas and the like between columns.
FormatChoice Any() {
    FormatChoice choice;
    choice.delimiter = "";
    return choice;
}

TEST_F(FormatSuspicionsTest, DoubtsNothingInGoodData) {
    EXPECT_EQ(Reasons(Any(), {"dip direction", "45 120", "; comment", "", "90 360", "0 0"}),
              Lines{});
    EXPECT_EQ(Reasons(Any(), {}), Lines{});
    EXPECT_EQ(Reasons(Any(), {"; nothing but comments"}), Lines{});
}

TEST_F(FormatSuspicionsTest, DoubtsADelimiterThatGivesOneColumn) {
    FormatChoice choice;
    EXPECT_EQ(Reasons(choice, {"45,120,x", "50,130,y"}),
              Lines{"With the delimiter \"tab\" each line is one column; with \",\" there are 3."});
    choice.delimiter = ",";
    EXPECT_EQ(Reasons(choice, {"45;120"}),
              Lines{"With the delimiter \",\" each line is one column; with \";\" there are 2."});
    EXPECT_EQ(Reasons(choice, {"45", "50"}),
              Lines{"With the delimiter \",\" each line is one column."});
}

TEST_F(FormatSuspicionsTest, DoubtsADelimiterByMostLines) {
    FormatChoice choice; // tab
    EXPECT_EQ(Reasons(choice, {"45,120", "50,130", "a\tnote 5"}),
              Lines{"With the delimiter \"tab\" most lines are one column; with \",\" there are "
                    "2."});
    choice.delimiter = ",";
    // One line without a comma does not spoil the others.
    EXPECT_EQ(Reasons(choice, {"45,120", "50 130", "60,140"}, Doubt::Misfits), Lines{});
    choice.delimiter = ";";
    // The first line alone would suggest the tab.
    EXPECT_EQ(Reasons(choice, {"45\t120\t5", "50,130", "60,140", "70,150"}),
              Lines{"With the delimiter \";\" each line is one column; with \",\" there are 2."});
}

TEST_F(FormatSuspicionsTest, PrefersTheDelimiterThatHeadingsAndRowsAgreeOn) {
    FormatChoice choice; // tab
    const Lines decimals = {"dip;dir;thickness", "45,5;120,5;1,2", "50,5;130,5;1,3"};
    for (const bool ticked : {true, false}) {
        choice.columnHeadings = ticked;
        EXPECT_EQ(Reasons(choice, decimals, Doubt::Misfits),
                  Lines{"With the delimiter \"tab\" each line is one column; with \";\" there are "
                        "3."});
    }
    choice.columnHeadings = true;
    choice.delimiter = ",";
    EXPECT_EQ(Reasons(choice, decimals).front(),
              "With the delimiter \",\" headings and rows differ in their number of columns; with "
              "\";\" both "
              "have 3.");
    choice.delimiter = ""; // words of headings split further, rows do not
    EXPECT_EQ(Reasons(choice, {"dip\tdip direction", "45\t120"}), Lines{});
}

TEST_F(FormatSuspicionsTest, TakesOneColumnForDirections) {
    FormatChoice choice;
    choice.primary = kDirections;
    choice.columns[kSlotDirection] = 0;
    EXPECT_EQ(Reasons(choice, {"120", "350"}), Lines{});
}

TEST_F(FormatSuspicionsTest, DoubtsColumnsThatLinesDoNotReach) {
    FormatChoice choice = Any();
    choice.numericAppended = true;
    choice.columns[kSlotNumber] = 4;
    const Lines expected = {"Column 5 is the value, but most lines have no more than 3."};
    EXPECT_EQ(Reasons(choice, {"45 120 1", "45 120 1", "45 120 1 2 3"}), expected);
    EXPECT_EQ(Reasons(choice, {"45 120 1", "45 120 1"}, Doubt::Misfits), expected);
}

TEST_F(FormatSuspicionsTest, LetsTheLastTextBeLeftOut) {
    FormatChoice choice = Any();
    choice.nonNumericAppended = true;
    choice.columns[kSlotText] = 2;
    EXPECT_EQ(Reasons(choice, {"45 120", "45 120", "45 120 x"}), Lines{});
}

TEST_F(FormatSuspicionsTest, DoubtsDipsAbove90) {
    EXPECT_EQ(Reasons(Any(), {"45 120", "91 120"}),
              Lines{"Column 1 is the dip, but holds \"91\" in line 2, above 90."});
    EXPECT_EQ(
        Reasons(Any(), {"; first", "320 45"}),
        Lines{"Column 1 is the dip, but holds \"320\" in line 2, above 90; has it been swapped "
              "with the direction?"});
    EXPECT_EQ(Reasons(Any(), {"45 120", "91 120"}, Doubt::Misfits), Lines{});
}

TEST_F(FormatSuspicionsTest, DoubtsPlungesOfEverySet) {
    FormatChoice choice = Any();
    choice.secondary = kSecondaryLine;
    choice.lineAppended = true;
    choice.columns = {0, 1, 9, 2, 3, 9, 4, 5, 9, 9};
    EXPECT_EQ(Reasons(choice, {"45 120 95 100 10 200"}),
              Lines{"Column 3 is the 2nd plunge, but holds \"95\" in line 1, above 90."});
    EXPECT_EQ(Reasons(choice, {"45 120 -95 10 -10 200"}),
              (Lines{"Column 3 is the 2nd plunge, but holds \"-95\" in line 1, above 90; has it "
                     "been swapped with the 2nd trend?"}));
    EXPECT_EQ(Reasons(choice, {"45 120 10 200 270 110"}),
              Lines{"Column 5 is the axis plunge, but holds \"270\" in line 1, above 90."});
}

TEST_F(FormatSuspicionsTest, DoubtsAzimuthsBeyondATurn) {
    const Lines reasons = Reasons(Any(), {"45 361"});
    ASSERT_FALSE(reasons.empty());
    EXPECT_EQ(reasons[0], "Column 2 is the direction, but holds \"361\" in line 1, above 360.");
}

TEST_F(FormatSuspicionsTest, DoubtsAzimuthsInTheOtherNotation) {
    FormatChoice choice = Any();
    EXPECT_EQ(Reasons(choice, {"45 N30E", "45 S10W"}),
              Lines{"Column 2 is the direction, but holds \"N30E\" in line 1, which is in quadrant "
                    "notation."});
    choice.isQuadrant = true;
    EXPECT_EQ(Reasons(choice, {"45 N30E", "45 S10W"}), Lines{});
    EXPECT_EQ(Reasons(choice, {"45 120", "45 110"}),
              Lines{"Column 2 is the direction, but holds \"120\" in line 1, which is not in "
                    "quadrant notation."});
}

TEST_F(FormatSuspicionsTest, DoubtsTextsWhereNumbersAreWanted) {
    FormatChoice choice = Any();
    choice.numericAppended = true;
    choice.columns[kSlotNumber] = 2;
    EXPECT_EQ(Reasons(choice, {"45 120 marl", "45 120 marl"}),
              Lines{"Column 3 is the value, but holds \"marl\" in line 1, which is not a number."});
    EXPECT_EQ(Reasons(choice, {"45 120 1", "45 120 -", "45 120 2"}), Lines{})
        << "a gap is not a reason";
    choice.columns[kSlotDip] = 2;
    choice.numericAppended = false;
    EXPECT_EQ(Reasons(choice, {"45 120 marl", "45 120 marl"}),
              Lines{"Column 3 is the dip, but holds \"marl\" in line 1, which is not a number."});
}

TEST_F(FormatSuspicionsTest, LetsTrendsInThePlaneBeMissing) {
    FormatChoice choice = Any();
    choice.secondary = kTrendInPlane;
    choice.columns[kSlotSecondaryDirection] = 2;
    EXPECT_EQ(Reasons(choice, {"33 330 334", "35 315 -", "34 330 331"}), Lines{});
}

TEST_F(FormatSuspicionsTest, TakesAHadeThroughATurn) {
    FormatChoice choice = Any();
    choice.secondary = kHadeInPlane;
    choice.columns[kSlotSecondaryDirection] = 2;
    EXPECT_EQ(Reasons(choice, {"33 330 334"}), Lines{});
}

TEST_F(FormatSuspicionsTest, DoubtsSensesThatAreNone) {
    FormatChoice choice = Any();
    choice.planeConvention = kStrikeDipSense;
    choice.columns = {1, 0, 2, 9, 9, 9, 9, 9, 9, 9};
    EXPECT_EQ(Reasons(choice, {"30 45 SE", "210 45 NW"}), Lines{});
    const Lines reasons = Reasons(choice, {"30 45 marl", "210 45 marl"});
    ASSERT_FALSE(reasons.empty());
    EXPECT_EQ(reasons[0],
              "Column 3 is the sense, but holds \"marl\" in line 1, which is not a sense of dip.");
    choice.columns[kSlotSense] = 1;
    EXPECT_EQ(Reasons(choice, {"30 45SE", "210 45NW"}), Lines{}) << "after the dip";
}

// By the right-hand rule a strike of 30 dips to 120, the south-east, and one of 210 to 300.
TEST_F(FormatSuspicionsTest, DoubtsSensesAgainstTheRightHandRule) {
    FormatChoice choice = Any();
    choice.planeConvention = kStrikeDipRightHand;
    choice.columns = {1, 0, 9, 9, 9, 9, 9, 9, 9, 9};
    EXPECT_EQ(Reasons(choice, {"30 45SE", "210 45NW"}), Lines{});
    EXPECT_EQ(Reasons(choice, {"30 45SE", "210 45SE", "30 20NW"}),
              Lines{"2 lines state a sense of dip against the right-hand rule, the first in line 2 "
                    "with the strike \"210\"."});
    EXPECT_EQ(Reasons(choice, {"30 45 SE", "210 45 SE", "30 20 SE"}),
              Lines{"A line states a sense of dip against the right-hand rule, the first in line 2 "
                    "with the strike \"210\"."});
    EXPECT_EQ(Reasons(choice, {"30 45 marl", "210 45 SE"}), Lines{}) << "no column of senses";
    EXPECT_EQ(Reasons(choice, {"330 45 NE", "0 45 E", "350 45 E", "270 45 N"}), Lines{})
        << "across north";
    choice.planeConvention = kDipDirectionDip;
    EXPECT_EQ(Reasons(choice, {"210 45 SE"}), Lines{}) << "no strike";
}

TEST_F(FormatSuspicionsTest, DoubtsTheRightHandRuleInQuadrantNotation) {
    FormatChoice choice = Any();
    choice.planeConvention = kDipStrikeRightHand;
    choice.isQuadrant = true;
    EXPECT_EQ(Reasons(choice, {"45SE N30E"}), Lines{});
    EXPECT_EQ(Reasons(choice, {"45NW N30E"}).size(), 1U);
}

TEST_F(FormatSuspicionsTest, DoubtsAHeadingThatIsData) {
    FormatChoice choice = Any();
    choice.columnHeadings = true;
    EXPECT_EQ(Reasons(choice, {"45 120", "50 130"}),
              Lines{"The first row is left out as column headings, but holds data: \"45 120\"."});
    EXPECT_EQ(Reasons(choice, {"dip direction", "50 130"}), Lines{});
}

TEST_F(FormatSuspicionsTest, TellsThatNoLineCanBeRead) {
    EXPECT_EQ(Reasons(Any(), {"x 120", "y 130"}, Doubt::Misfits),
              Lines{"No line of the file can be read with these settings."});
}

TEST_F(FormatSuspicionsTest, ComparesWithTheRowsOfThePlot) {
    PlotRecord record;
    FormatChoice choice;
    EXPECT_EQ(PlotMisfits(choice, record), Lines{});
    record.SecondaryFormat = kSecondaryLine;
    record.HasAppendedNumeric = kTrue;
    choice.lineAppended = true;
    choice.nonNumericAppended = true;
    EXPECT_EQ(
        PlotMisfits(choice, record),
        (Lines{"The rows of the plot have a secondary orientation, the rows of this file do "
               "not.",
               "The rows of the plot have no place for an appended line: it will be left out.",
               "The rows of the plot have an appended number, the rows of this file do not.",
               "The rows of the plot have no place for an appended text: it will be left "
               "out."}));
}

TEST_F(FormatSuspicionsTest, KnowsRecentFilesAndFilesWithParameterLines) {
    EXPECT_TRUE(IsUnknownFile("/data/a.txt", {"45 120"}));
    EXPECT_FALSE(IsUnknownFile("/data/a.txt", {"; comment", " /T1 /C1", "45 120"}));
    gSettings.files.recent = {"/data/a.txt"};
    EXPECT_FALSE(IsUnknownFile("/data/a.txt", {"45 120"}));
    EXPECT_TRUE(IsUnknownFile("/data/b.txt", {"45 120"}));
}

} // namespace
} // namespace quandrel
