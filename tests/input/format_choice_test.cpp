// SPDX-License-Identifier: MIT

#include "core/setting_keys.h"
#include "input/format_choice.h"
#include "support/test_platform.h"

#include <map>

namespace quandrel {
namespace {

class FormatChoiceTest : public EngineTest {};

FormatQuestion NewFile() {
    FormatQuestion question;
    question.command = "New";
    return question;
}

// Plane and line convention and notation against the code, by the rule: plane 1 to 6, 10 more for
// trend first, negative for quadrant notation.
TEST_F(FormatChoiceTest, MakesTheConventionCodeOfEveryCombination) {
    for (int plane = 1; plane <= 6; ++plane) {
        for (const bool trendFirst : {false, true}) {
            for (const bool quadrant : {false, true}) {
                FormatChoice choice;
                choice.planeConvention = plane;
                choice.lineIsTrendFirst = trendFirst;
                choice.isQuadrant = quadrant;
                const int tens = trendFirst ? 10 : 0;
                EXPECT_EQ(ConventionCode(choice), (quadrant ? -1 : 1) * (plane + tens));
            }
        }
    }
}

TEST_F(FormatChoiceTest, GoesThroughTheGlobalsWithoutAChange) {
    for (int plane = 1; plane <= 6; ++plane) {
        for (const int tens : {0, 10}) {
            for (const int sign : {1, -1}) {
                gConventions = static_cast<std::int16_t>(sign * (plane + tens));
                const std::int16_t code = gConventions;
                SetGlobalSettings(ChoiceOf(NewFile()));
                EXPECT_EQ(gConventions, code);
            }
        }
    }
}

TEST_F(FormatChoiceTest, TakesAndGivesEveryGlobal) {
    FormatSettings wanted;
    wanted.conventions = -14;
    wanted.delimiter = ";";
    wanted.planeSeparator = "\\";
    wanted.lineSeparator = ",";
    wanted.primary = kPrimaryLine;
    wanted.secondary = kHadeInPlane;
    wanted.lineAppended = true;
    wanted.numericAppended = true;
    wanted.nonNumericAppended = true;
    wanted.numericName = "assay";
    wanted.nonNumericName = "unit";
    wanted.columns = {9, 8, 7, 6, 5, 4, 3, 2, 1, 0};
    wanted.plotDataKind = kLines;
    wanted.plotKind = kEqualAngle;
    wanted.hasHeadings = true;
    gSettings.format = wanted;
    FormatQuestion question = NewFile();
    question.columnHeadings = true;
    const FormatChoice choice = ChoiceOf(question);
    SetDefaultSettings();
    gPlotKind = kEqualAngle;
    SetGlobalSettings(choice);
    const FormatSettings now = gSettings.format;
    EXPECT_EQ(now.conventions, wanted.conventions);
    EXPECT_EQ(now.delimiter, wanted.delimiter);
    EXPECT_EQ(now.planeSeparator, wanted.planeSeparator);
    EXPECT_EQ(now.lineSeparator, wanted.lineSeparator);
    EXPECT_EQ(now.primary, wanted.primary);
    EXPECT_EQ(now.secondary, wanted.secondary);
    EXPECT_EQ(now.lineAppended, wanted.lineAppended);
    EXPECT_EQ(now.numericAppended, wanted.numericAppended);
    EXPECT_EQ(now.nonNumericAppended, wanted.nonNumericAppended);
    EXPECT_EQ(now.numericName, wanted.numericName);
    EXPECT_EQ(now.nonNumericName, wanted.nonNumericName);
    EXPECT_EQ(now.columns, wanted.columns);
    EXPECT_EQ(now.plotDataKind, wanted.plotDataKind);
    EXPECT_EQ(now.plotKind, wanted.plotKind);
    EXPECT_EQ(now.hasHeadings, wanted.hasHeadings);
}

struct KindRow {
    std::int16_t primary;
    int fromFile;
    std::int16_t expected;
};

TEST_F(FormatChoiceTest, PresetsTheKindOfPlotByTheFileElseByTheFormat) {
    const KindRow rows[] = {
        {kPrimaryPlane, 0, kPlanes},    {kPrimaryPlane, 1, kPlanes},
        {kPrimaryPlane, 2, kLines},     {kPrimaryPlane, 3, kPolarLines},
        {kPrimaryLine, 0, kLines},      {kPrimaryLine, 1, kPlanes},
        {kPrimaryLine, 3, kPolarLines}, {kDirections, 0, kLines},
        {kDirections, 1, kNoDataKind},  {kDirections, 2, kLines},
        {kDirections, 3, kPolarLines},  {0, 0, kLines},
    };
    for (const KindRow& row : rows) {
        gPrimaryDataType = row.primary;
        FormatQuestion question = NewFile();
        question.plotKindFromFile = row.fromFile;
        EXPECT_EQ(ChoiceOf(question).plotDataKind, row.expected)
            << row.primary << ' ' << row.fromFile;
    }
}

TEST_F(FormatChoiceTest, PresetsTheKindOfPlotByTheSetThatIsPlotted) {
    gSecondaryDataType = kSecondaryLine;
    FormatQuestion question = NewFile();
    question.showSecondary = true;
    EXPECT_EQ(ChoiceOf(question).plotDataKind, kLines);
    gSecondaryDataType = kSecondaryPlane;
    EXPECT_EQ(ChoiceOf(question).plotDataKind, kPlanes);
    gSecondaryDataType = kNoSecondary;
    EXPECT_EQ(ChoiceOf(question).plotDataKind, kPlanes) << "there is no other set";
}

TEST_F(FormatChoiceTest, FollowsTheFormatUntilTheKindIsStated) {
    FormatChoice choice = ChoiceOf(NewFile());
    choice.primary = kPrimaryLine;
    FollowPlotKind(choice);
    EXPECT_EQ(choice.plotDataKind, kLines);
    choice.plotDataKind = kPlanes;
    choice.kindIsStated = true;
    FollowPlotKind(choice);
    EXPECT_EQ(choice.plotDataKind, kPlanes);
    choice.primary = kDirections;
    FollowPlotKind(choice);
    EXPECT_EQ(choice.plotDataKind, kNoDataKind) << "directions cannot be planes";
}

TEST_F(FormatChoiceTest, LeavesTheKindOfPlotWhenNoneIsChosen) {
    gPlotDataKind = kPolarLines;
    FormatChoice choice;
    SetGlobalSettings(choice);
    EXPECT_EQ(gPlotDataKind, kPolarLines);
}

struct NameRow {
    const char* what;
    std::int16_t primary;
    std::int16_t secondary;
    int plane;
    std::map<int, std::string> used; ///< slots in use with their names; no other is
};

TEST_F(FormatChoiceTest, NamesTheColumnsThatTheFormatUses) {
    const NameRow rows[] = {
        {"directions", kDirections, 0, 1, {{1, "direction"}}},
        {"dip direction", kPrimaryPlane, 0, 1, {{0, "dip"}, {1, "direction"}}},
        {"dip direction first", kPrimaryPlane, 0, 2, {{0, "dip"}, {1, "direction"}}},
        {"strike, dip, sense", kPrimaryPlane, 0, 3, {{0, "dip"}, {1, "strike"}, {2, "sense"}}},
        {"dip, sense, strike", kPrimaryPlane, 0, 4, {{0, "dip"}, {1, "strike"}, {2, "sense"}}},
        {"dip, strike", kPrimaryPlane, 0, 5, {{0, "dip"}, {1, "strike"}}},
        {"strike, dip", kPrimaryPlane, 0, 6, {{0, "dip"}, {1, "strike"}}},
        {"line", kPrimaryLine, 0, 3, {{0, "plunge"}, {1, "trend"}}},
        {"pitch", kPrimaryPlane, 1, 1, {{0, "dip"}, {1, "direction"}, {4, "pitch"}, {5, "sense"}}},
        {"trend", kPrimaryPlane, 2, 1, {{0, "dip"}, {1, "direction"}, {4, "trend"}}},
        {"2nd line",
         kPrimaryPlane,
         3,
         1,
         {{0, "dip"}, {1, "direction"}, {3, "plunge"}, {4, "trend"}}},
        {"2nd plane",
         kPrimaryLine,
         4,
         3,
         {{0, "plunge"}, {1, "trend"}, {3, "dip"}, {4, "strike"}, {5, "sense"}}},
        {"2nd plane by direction",
         kPrimaryLine,
         4,
         1,
         {{0, "plunge"}, {1, "trend"}, {3, "dip"}, {4, "direction"}}},
        {"hade", kPrimaryPlane, 5, 1, {{0, "dip"}, {1, "direction"}, {4, "hade"}}},
    };
    for (const NameRow& row : rows) {
        FormatChoice choice;
        choice.primary = row.primary;
        choice.secondary = row.secondary;
        choice.planeConvention = row.plane;
        const auto used = ColumnsInUse(choice);
        const auto names = ColumnNames(choice);
        for (int slot = 0; slot < kColumnSlots; ++slot) {
            const auto index = static_cast<std::size_t>(slot);
            EXPECT_EQ(used[index], row.used.count(slot) > 0) << row.what << ' ' << slot;
            if (const auto name = row.used.find(slot); name != row.used.end()) {
                EXPECT_EQ(names[index], name->second) << row.what << ' ' << slot;
            }
        }
    }
}

TEST_F(FormatChoiceTest, NamesPitchAsThePreferencesDo) {
    gSettings.notation.pitchName = "rake";
    FormatChoice choice;
    choice.secondary = kPitchInPlane;
    EXPECT_EQ(ColumnNames(choice)[kSlotSecondaryDirection], "rake");
}

TEST_F(FormatChoiceTest, UsesTheAppendedColumnsThatAreThere) {
    FormatChoice choice;
    choice.lineAppended = true;
    EXPECT_TRUE(ColumnsInUse(choice)[kSlotAppendedPlunge]);
    EXPECT_TRUE(ColumnsInUse(choice)[kSlotAppendedTrend]);
    EXPECT_FALSE(ColumnsInUse(choice)[kSlotNumber]);
    choice.numericAppended = true;
    EXPECT_TRUE(ColumnsInUse(choice)[kSlotNumber]);
    EXPECT_FALSE(ColumnsInUse(choice)[kSlotText]);
    choice.nonNumericAppended = true;
    EXPECT_TRUE(ColumnsInUse(choice)[kSlotText]);
}

TEST_F(FormatChoiceTest, WantsAPlungeOfDirectionsThatJoinAPlotWithOverlays) {
    NewPlot();
    ActiveRecord().NumLoadedData = 3;
    gPrimaryDataType = kDirections;
    FormatQuestion question = NewFile();
    question.command = "Overlay";
    EXPECT_TRUE(ColumnsInUse(ChoiceOf(question))[kSlotDip]);
    question.command = "Merge";
    EXPECT_FALSE(ColumnsInUse(ChoiceOf(question))[kSlotDip]);
    ActiveRecord().OverlayRows[kOverlayCount] = 1;
    EXPECT_TRUE(ColumnsInUse(ChoiceOf(question))[kSlotDip]);
}

TEST_F(FormatChoiceTest, ShowsTheSetOfThePlotThatRowsJoin) {
    NewPlot();
    ActiveRecord().NumLoadedData = 3;
    ActiveRecord().ShowSecondary = kTrue;
    FormatQuestion question = NewFile();
    question.command = "Merge";
    EXPECT_TRUE(JoinsRows(question));
    EXPECT_TRUE(ChoiceOf(question).plotSecondary);
    question.command = "New";
    EXPECT_FALSE(JoinsRows(question));
    EXPECT_FALSE(ChoiceOf(question).plotSecondary);
    ActiveRecord().NumLoadedData = 0;
    question.command = "Merge";
    EXPECT_FALSE(JoinsRows(question)) << "an empty plot takes the format of the file";
}

// Orders as a line of each convention is written.
TEST_F(FormatChoiceTest, PutsColumnsInTheOrderOfTheConvention) {
    struct Row {
        int plane;
        int dip;
        int azimuth;
        int sense; ///< -1: none
    };

    const Row rows[] = {{1, 0, 1, -1}, {2, 1, 0, -1}, {3, 1, 0, 2},
                        {4, 0, 2, 1},  {5, 0, 1, -1}, {6, 1, 0, -1}};
    for (const Row& row : rows) {
        FormatChoice choice;
        choice.planeConvention = row.plane;
        const ColumnSettings columns = InitialColumns(choice);
        EXPECT_EQ(columns[kSlotDip], row.dip) << row.plane;
        EXPECT_EQ(columns[kSlotDirection], row.azimuth) << row.plane;
        if (row.sense >= 0) {
            EXPECT_EQ(columns[kSlotSense], row.sense) << row.plane;
        }
    }
}

TEST_F(FormatChoiceTest, PutsTrendFirstInQuadrantNotationToo) {
    FormatChoice choice;
    choice.primary = kPrimaryLine;
    choice.lineIsTrendFirst = true;
    for (const bool quadrant : {false, true}) {
        choice.isQuadrant = quadrant;
        EXPECT_EQ(InitialColumns(choice)[kSlotDirection], 0);
        EXPECT_EQ(InitialColumns(choice)[kSlotDip], 1);
    }
}

TEST_F(FormatChoiceTest, KeepsColumnsInOrderWhileTheyAreInOrder) {
    FormatChoice choice; // dip 1, direction 2
    FormatChoice after = choice;
    after.planeConvention = kStrikeDipSense;
    FollowFormat(choice, after);
    EXPECT_EQ(after.columns[kSlotDirection], 0);
    EXPECT_EQ(after.columns[kSlotDip], 1);
    EXPECT_EQ(after.columns[kSlotSense], 2);
    choice = after;
    after.nonNumericAppended = true;
    FollowFormat(choice, after);
    EXPECT_EQ(after.columns[kSlotText], 3);
    choice = after;
    after.numericAppended = true;
    FollowFormat(choice, after);
    EXPECT_EQ(after.columns[kSlotNumber], 3) << "the number goes before the text";
    EXPECT_EQ(after.columns[kSlotText], 4);
}

/// Columns that the user has set: dip 3, direction 2, text 6, of a file with a station in front.
FormatChoice SetByHand() {
    FormatChoice choice;
    choice.nonNumericAppended = true;
    choice.columns[kSlotDip] = 2;
    choice.columns[kSlotDirection] = 1;
    choice.columns[kSlotText] = 5;
    return choice;
}

TEST_F(FormatChoiceTest, LeavesColumnsSetByHandWhenNothingOfThemChanges) {
    const FormatChoice choice = SetByHand();
    FormatChoice after = choice;
    after.isQuadrant = true;
    after.planeConvention = kDipStrikeRightHand; // the same order: dip, azimuth
    after.lineIsTrendFirst = true;
    FollowFormat(choice, after);
    EXPECT_EQ(after.columns, choice.columns);
}

TEST_F(FormatChoiceTest, GivesNewItemsTheNextFreeColumns) {
    const FormatChoice choice = SetByHand();
    FormatChoice after = choice;
    after.numericAppended = true;
    FollowFormat(choice, after);
    EXPECT_EQ(after.columns[kSlotNumber], 3);
    after = choice;
    after.secondary = kSecondaryLine;
    FollowFormat(choice, after);
    EXPECT_EQ(after.columns[kSlotSecondaryDip], 3);
    EXPECT_EQ(after.columns[kSlotSecondaryDirection], 4);
    EXPECT_EQ(after.columns[kSlotDip], 2);
    EXPECT_EQ(after.columns[kSlotText], 5);
    after = choice;
    after.planeConvention = kStrikeDipSense;
    FollowFormat(choice, after);
    EXPECT_EQ(after.columns[kSlotSense], 3) << "after its strike and dip";
    after = choice;
    after.secondary = kSecondaryPlane;
    after.planeConvention = kDipSenseStrike;
    FollowFormat(choice, after);
    EXPECT_EQ(after.columns[kSlotSecondaryDip], 4) << "after the sense, 4";
    EXPECT_EQ(after.columns[kSlotSecondarySense], 6) << "over the text, 6";
    EXPECT_EQ(after.columns[kSlotSecondaryDirection], 7);
}

TEST_F(FormatChoiceTest, ExchangesColumnsSetByHandWithTheOrder) {
    FormatChoice choice = SetByHand();
    choice.columns[kSlotDip] = 1;
    choice.columns[kSlotDirection] = 4;
    FormatChoice after = choice;
    after.planeConvention = kDipDirectionDip;
    FollowFormat(choice, after);
    EXPECT_EQ(after.columns[kSlotDirection], 1);
    EXPECT_EQ(after.columns[kSlotDip], 4);
    EXPECT_EQ(after.columns[kSlotText], 5);
    choice = after;
    after.planeConvention = kDipDipDirection;
    FollowFormat(choice, after);
    EXPECT_EQ(after.columns[kSlotDip], 1) << "and back";
    EXPECT_EQ(after.columns[kSlotDirection], 4);
}

TEST_F(FormatChoiceTest, LeavesASenseInTheColumnOfItsDip) {
    FormatChoice choice = SetByHand();
    choice.planeConvention = kStrikeDipSense;
    choice.columns[kSlotSense] = choice.columns[kSlotDip];
    FormatChoice after = choice;
    after.planeConvention = kDipSenseStrike;
    FollowFormat(choice, after);
    EXPECT_EQ(after.columns[kSlotDip], 1);
    EXPECT_EQ(after.columns[kSlotSense], 1);
    EXPECT_EQ(after.columns[kSlotDirection], 2);
}

// Questions.

constexpr const char* kStays = "This must be resolved before the data can be plotted";
constexpr const char* kPlotIt = "Do you want to plot this data with this setting?";

/// A choice with all items, each in a column of its own.
FormatChoice AllItems() {
    FormatChoice choice;
    choice.planeConvention = kStrikeDipSense;
    choice.secondary = kSecondaryPlane;
    choice.lineAppended = true;
    choice.numericAppended = true;
    choice.nonNumericAppended = true;
    choice.plotDataKind = kPlanes;
    return choice;
}

TEST_F(FormatChoiceTest, FindsNoProblemInColumnsOfTheirOwn) {
    EXPECT_TRUE(ColumnProblems(AllItems()).empty());
    for (std::int16_t secondary = 0; secondary <= 5; ++secondary) {
        FormatChoice choice = AllItems();
        choice.secondary = secondary;
        EXPECT_TRUE(ColumnProblems(choice).empty()) << secondary;
    }
}

struct ProblemRow {
    int first;
    int second; ///< moved into the column of the first
    std::string text;
    Buttons buttons;
    int slot;
};

TEST_F(FormatChoiceTest, TellsEachProblemOfColumns) {
    const std::string same = " is used more than once for the same orientation data\n";
    const std::string line = " is used both for the appended line and for ";
    const ProblemRow rows[] = {
        {0, 1, "Column 1" + same + kStays, Buttons::Ok, 1},
        {1, 2, "Column 2" + same + kStays, Buttons::Ok, 2},
        {3, 4, "Column 4" + same + kStays, Buttons::Ok, 4},
        {4, 5, "Column 5" + same + kStays, Buttons::Ok, 5},
        {6, 7, "Column 7" + same + kStays, Buttons::Ok, 7},
        {0, 2,
         "You have indicated that column 1 contains both the Dip and the Sense. Quandrel can "
         "handle this and strip the sense information from the dip.\nDo you want to proceed with "
         "these settings?",
         Buttons::OkCancel, 2},
        {3, 5,
         "You have indicated that column 4 contains both the Dip and the Sense. Quandrel can "
         "handle this and strip the sense information from the dip.\nDo you want to proceed with "
         "these settings?",
         Buttons::OkCancel, 5},
        {0, 6, "Column 1" + line + "other orientation data\n" + kPlotIt, Buttons::OkCancel, 6},
        {4, 7, "Column 5" + line + "other orientation data\n" + kPlotIt, Buttons::OkCancel, 7},
        {8, 6, "Column 9" + line + "other appended data\n" + kPlotIt, Buttons::OkCancel, 6},
        {8, 9,
         std::string("Column 9 is used both for the appended Length and for the appended weighting "
                     "in this data set\n")
             + kPlotIt,
         Buttons::OkCancel, 9},
        {1, 4,
         std::string("Column 2 is used to refer to different orientation data items\n") + kPlotIt,
         Buttons::OkCancel, 4},
        {2, 5,
         std::string("Column 3 is used to refer to different orientation data items\n") + kPlotIt,
         Buttons::OkCancel, 5},
    };
    for (const ProblemRow& row : rows) {
        FormatChoice choice = AllItems();
        choice.columns[static_cast<std::size_t>(row.second)] =
            choice.columns[static_cast<std::size_t>(row.first)];
        const std::vector<ColumnProblem> problems = ColumnProblems(choice);
        ASSERT_EQ(problems.size(), 1U) << row.text;
        EXPECT_EQ(problems[0].text, row.text);
        EXPECT_EQ(problems[0].buttons, row.buttons) << row.text;
        EXPECT_EQ(problems[0].slot, row.slot) << row.text;
    }
}

TEST_F(FormatChoiceTest, TakesAPitchWithItsSenseInOneColumn) {
    FormatChoice choice = AllItems();
    choice.secondary = kPitchInPlane;
    choice.columns[kSlotSecondarySense] = choice.columns[kSlotSecondaryDirection];
    const std::vector<ColumnProblem> problems = ColumnProblems(choice);
    ASSERT_EQ(problems.size(), 1U);
    EXPECT_EQ(problems[0].buttons, Buttons::OkCancel);
    EXPECT_NE(problems[0].text.find("contains both the Pitch and the Sense"), std::string::npos);
}

TEST_F(FormatChoiceTest, IgnoresColumnsThatTheFormatDoesNotUse) {
    FormatChoice choice;
    choice.columns = {0, 1, 0, 0, 1, 0, 1, 1, 1, 1};
    EXPECT_TRUE(ColumnProblems(choice).empty());
}

TEST_F(FormatChoiceTest, TellsFaultsBeforeQuestions) {
    FormatChoice choice = AllItems();
    choice.columns[kSlotSense] = choice.columns[kSlotDip];
    choice.columns[kSlotText] = choice.columns[kSlotNumber];
    choice.columns[kSlotAppendedTrend] = choice.columns[kSlotAppendedPlunge];
    const std::vector<ColumnProblem> problems = ColumnProblems(choice);
    ASSERT_EQ(problems.size(), 3U);
    EXPECT_EQ(problems[0].slot, kSlotAppendedTrend);
    EXPECT_EQ(problems[1].slot, kSlotSense);
    EXPECT_EQ(problems[2].slot, kSlotText);
}

struct PlotRow {
    std::int16_t primary;
    std::int16_t secondary;
    bool plotSecondary;
    std::int16_t kind;
    const char* expected; ///< set and kinds of the question; empty: none
};

TEST_F(FormatChoiceTest, AsksWhenTheKindOfPlotDisagrees) {
    const PlotRow rows[] = {
        {kPrimaryPlane, 0, false, kPlanes, ""},
        {kPrimaryPlane, 0, false, kLines, "Primary Planes Lines"},
        {kPrimaryPlane, 0, false, kPolarLines, "Primary Planes Lines"},
        {kPrimaryLine, 0, false, kLines, ""},
        {kPrimaryLine, 0, false, kPolarLines, ""},
        {kPrimaryLine, 0, false, kPlanes, "Primary Lines Planes"},
        {kDirections, 0, false, kLines, ""},
        {kPrimaryPlane, 3, true, kLines, ""},
        {kPrimaryPlane, 3, true, kPlanes, "Secondary Lines Planes"},
        {kPrimaryPlane, 1, true, kPlanes, "Secondary Lines Planes"},
        {kPrimaryPlane, 2, true, kPlanes, "Secondary Lines Planes"},
        {kPrimaryPlane, 5, true, kPlanes, "Secondary Lines Planes"},
        {kPrimaryLine, 4, true, kLines, "Secondary Planes Lines"},
        {kPrimaryLine, 4, true, kPlanes, ""},
        {kPrimaryLine, 4, false, kLines, ""},
        {kPrimaryPlane, 0, true, kLines, "Primary Planes Lines"},
    };
    for (const PlotRow& row : rows) {
        FormatChoice choice;
        choice.primary = row.primary;
        choice.secondary = row.secondary;
        choice.plotSecondary = row.plotSecondary;
        choice.plotDataKind = row.kind;
        const std::optional<std::string> question = PlotTypeQuestion(choice);
        const std::string expected = row.expected;
        ASSERT_EQ(question.has_value(), !expected.empty()) << row.primary << ' ' << row.kind;
        if (question) {
            const std::size_t blank = expected.find(' ');
            const std::size_t second = expected.find(' ', blank + 1);
            EXPECT_EQ(*question, "You have indicated that your " + expected.substr(0, blank)
                                     + " data are " + expected.substr(blank + 1, second - blank - 1)
                                     + "\nDo you want to continue and plot these as "
                                     + expected.substr(second + 1) + "?");
        }
    }
}

TEST_F(FormatChoiceTest, AsksWhenNoKindOfPlotIsChosen) {
    EXPECT_EQ(
        PlotTypeQuestion(FormatChoice()),
        "You have not yet selected the type of data to be plotted.\nIf you Cancel now no data "
        "will be plotted.\nDo you want to plot this data?");
}

// Settings.

TEST_F(FormatChoiceTest, LoadsTheColumnSettingsThatWereSaved) {
    EXPECT_FALSE(HasSavedColumns());
    gSecondaryDataType = kTrendInPlane;
    gFileLineAppended = true;
    gFileNonNumericAppended = true;
    gFileColumnSettings = {3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    ASSERT_TRUE(SaveFormatSettings(true, false, false));
    EXPECT_TRUE(HasSavedColumns());
    FormatChoice choice;
    choice.numericAppended = true;
    choice.delimiter = ",";
    LoadSavedColumns(choice);
    EXPECT_EQ(choice.columns, gFileColumnSettings);
    EXPECT_EQ(choice.secondary, kTrendInPlane);
    EXPECT_TRUE(choice.lineAppended);
    EXPECT_FALSE(choice.numericAppended);
    EXPECT_TRUE(choice.nonNumericAppended);
    EXPECT_EQ(choice.delimiter, ",") << "no column setting";
}

TEST_F(FormatChoiceTest, TakesSavedColumnsOutOfRangeIntoIt) {
    settings.Write(kApplicationName, kDataFormats, ColumnKey(0), "-3");
    settings.Write(kApplicationName, kDataFormats, ColumnKey(1), "99999");
    settings.Write(kApplicationName, kDataFormats, ColumnKey(2), "rubbish");
    settings.Write(kApplicationName, kDataFormats, "gSecondaryDataType", "77");
    FormatChoice choice;
    LoadSavedColumns(choice);
    EXPECT_EQ(choice.columns[0], 0);
    EXPECT_EQ(choice.columns[1], 254);
    EXPECT_EQ(choice.columns[2], 2);
    EXPECT_EQ(choice.secondary, kHadeInPlane);
}

TEST_F(FormatChoiceTest, FindsTheSymbolsOfTheRowsToCome) {
    FormatQuestion question = NewFile();
    EXPECT_EQ(SymbolRowsOf(question), (std::array<int, 2>{0, 1}));
    NewPlot();
    ActiveRecord().NumLoadedData = 5;
    question.command = "Merge";
    EXPECT_EQ(SymbolRowsOf(question), (std::array<int, 2>{0, 1}));
    question.command = "Overlay";
    question.path = "b.txt";
    EXPECT_EQ(SymbolRowsOf(question), (std::array<int, 2>{3, 4}));
    ActiveRecord().OverlayRows[kOverlayCount] = 1;
    ActiveRecord().OverlayFiles[1] = {"a.txt"};
    EXPECT_EQ(SymbolRowsOf(question), (std::array<int, 2>{4, 5}));
    ActiveRecord().OverlayFiles[1] = {"b.txt"};
    EXPECT_EQ(SymbolRowsOf(question), (std::array<int, 2>{3, 4})) << "asked for the second time";
    ActiveRecord().OverlayRows[kOverlayCount] = 0;
    ActiveRecord().AxesTitle = "axes";
    question.command = "Merge";
    EXPECT_EQ(SymbolRowsOf(question), (std::array<int, 2>{19, 20}));
}

TEST_F(FormatChoiceTest, KnowsTheFirstSymbolsWithoutTouchingTheTables) {
    const SymbolRow first = gSymbolTable[kRowSymbol];
    gSymbolTable[kRowSymbol] = {9, 9, 9};
    gColourTable[3] = 42;
    gAxisStyleTable[kBetaAxisStyle] = {1, 2, 3};
    EXPECT_EQ(FirstSymbol(kRowSymbol), first);
    EXPECT_EQ(gSymbolTable[kRowSymbol], (SymbolRow{9, 9, 9}));
    EXPECT_EQ(gColourTable[3], 42U);
    EXPECT_EQ(gAxisStyleTable[kBetaAxisStyle], (AxisStyle{1, 2, 3}));
}

TEST_F(FormatChoiceTest, NamesDelimiters) {
    EXPECT_EQ(NameOfDelimiter("\t"), "tab");
    EXPECT_EQ(NameOfDelimiter(" "), "space");
    EXPECT_EQ(NameOfDelimiter(""), "any");
    EXPECT_EQ(NameOfDelimiter(";"), ";");
    EXPECT_EQ(NameOfDelimiter("|"), "|");
}

TEST_F(FormatChoiceTest, AnglesInThePrimaryPlaneNeedPlanes) {
    FormatChoice choice;
    for (const std::int16_t primary : {kDirections, kPrimaryPlane, kPrimaryLine}) {
        choice.primary = primary;
        for (const std::int16_t secondary : {kPitchInPlane, kTrendInPlane, kHadeInPlane}) {
            EXPECT_EQ(CanHaveSecondary(choice, secondary), primary == kPrimaryPlane);
        }
        for (const std::int16_t secondary : {kNoSecondary, kSecondaryLine, kSecondaryPlane}) {
            EXPECT_TRUE(CanHaveSecondary(choice, secondary));
        }
    }
}

} // namespace
} // namespace quandrel
