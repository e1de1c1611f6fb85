// SPDX-License-Identifier: MIT

#include "class_fixture.h"
#include "classify/class_settings.h"
#include "core/plot_store.h"
#include "core/replot.h"

#include <algorithm>
#include <cmath>

namespace quandrel {
namespace {

class ClassSettingsTest : public ClassTest {
protected:
    static ClassSettings ByNumber(double lowest, double top, int classes) {
        ClassSettings chosen;
        chosen.mode = kClassesByNumber;
        chosen.numbers.limits = EqualRanges(lowest, top, classes);
        return chosen;
    }
};

TEST_F(ClassSettingsTest, OkWritesTableModeAndRangeClassifiesAndDraws) {
    AddNumbers({1, 2, 4, 7});
    ClassSettings chosen = ByNumber(2, 8, 3);
    chosen.plotType = kContoursWithDataPoints;
    chosen.numbers.keepHigh = true;
    chosen.gridValue = ClassGridValue::Cumulative;
    chosen.background = -1;
    EXPECT_EQ(ApplyClassSettings(chosen), "");
    const PlotRecord& record = ActiveRecord();
    EXPECT_EQ(record.ClassMode, 1);
    EXPECT_EQ(record.NumClasses, 4);
    EXPECT_EQ(NumberOf(record.ClassTable[kBaseRow][kNumberClasses]), 3);
    EXPECT_EQ(NumberOf(record.ClassTable[kLowestRow][kNumberClasses]), 2);
    EXPECT_EQ(NumberOf(record.ClassTable[kLowestRow + 1][kNumberClasses]), 4);
    EXPECT_EQ(NumberOf(record.ClassTable[kLowestRow + 2][kNumberClasses]), 6);
    EXPECT_EQ(NumberOf(record.ClassTable[kTopRow][kNumberClasses]), 8);
    EXPECT_EQ(NumberOf(record.ClassTable[kFlagRow][kNumberClasses]), 2);
    EXPECT_EQ(record.ClassLow, 2);
    EXPECT_EQ(record.ClassHigh, 8);
    EXPECT_EQ(record.ClassWidth, 2);
    EXPECT_EQ(GridValueShown(record), ClassGridValue::Cumulative);
    EXPECT_EQ(GridBackground(record), -1);
    EXPECT_EQ(record.NumClassified, 3);
    EXPECT_NE(record.Modified, 0);
    EXPECT_EQ(Form(gActivePlot).Told(PlotBox::NumberOfData), "3 (/4)");
}

TEST_F(ClassSettingsTest, AreTheSameWhenTheyAreReadBack) {
    AddValued(3, "slate");
    ClassSettings chosen = ByNumber(0, 1.0 / 3, 7);
    chosen.plotType = kGriddedValues;
    chosen.numbers.keepLow = true;
    chosen.types = 11;
    chosen.names[0] = "Slate";
    chosen.names[10] = "gneiss";
    chosen.keepOthers = true;
    chosen.caseSensitive = true;
    chosen.background = std::nullopt;
    ASSERT_EQ(ApplyClassSettings(chosen), "");
    const ClassSettings back = SettingsOfActivePlot();
    EXPECT_EQ(back.mode, chosen.mode);
    EXPECT_EQ(back.plotType, chosen.plotType);
    EXPECT_EQ(back.numbers.limits.base, 7);
    EXPECT_TRUE(std::equal(back.numbers.limits.limits.begin(),
                           back.numbers.limits.limits.begin() + 7,
                           chosen.numbers.limits.limits.begin()));
    EXPECT_EQ(back.numbers.limits.top, 1.0 / 3);
    EXPECT_TRUE(back.numbers.keepLow);
    EXPECT_FALSE(back.numbers.keepHigh);
    EXPECT_EQ(back.types, 11);
    EXPECT_EQ(back.names, chosen.names);
    EXPECT_TRUE(back.keepOthers);
    EXPECT_TRUE(back.caseSensitive);
    EXPECT_FALSE(back.treatAsNumeric);
    EXPECT_EQ(back.gridValue, ClassGridValue::Mean);
    EXPECT_EQ(back.background, std::nullopt);
}

TEST_F(ClassSettingsTest, OfTextsDecideByModeWhetherTheyAreNumbers) {
    AddTexts({"3", "5", "slate"});
    ClassSettings chosen;
    chosen.types = 2;
    chosen.names = {"slate", "marble"};
    chosen.textNumbers.limits = EqualRanges(2, 5, 3);
    chosen.textNumbers.keepLow = true;
    chosen.mode = kClassesByName;
    chosen.treatAsNumeric = true;
    chosen.plotType = kContouredGriddedValues;
    ASSERT_EQ(ApplyClassSettings(chosen), "");
    const PlotRecord& record = ActiveRecord();
    EXPECT_EQ(record.ClassMode, 3);
    EXPECT_EQ(record.NumClasses, 0);
    EXPECT_EQ(NumberOf(record.ClassTable[kBaseRow][kTextNumberClasses]), 2);
    EXPECT_EQ(NumberOf(record.ClassTable[kBaseRow][kNameClasses]), 0);
    EXPECT_EQ(NumberOf(record.ClassTable[kFlagRow][kTextNumberClasses]), 0);
    EXPECT_EQ(record.NumClassified, 1);
    EXPECT_EQ(record.ClassWidth, kUnsetValue);
    chosen.mode = kClassesByTextNumber;
    chosen.textNumbers.keepHigh = true;
    ASSERT_EQ(ApplyClassSettings(chosen), "");
    EXPECT_EQ(NumberOf(record.ClassTable[kBaseRow][kTextNumberClasses]), 3);
    EXPECT_EQ(NumberOf(record.ClassTable[kBaseRow][kNameClasses]), 1);
    EXPECT_EQ(NumberOf(record.ClassTable[kFlagRow][kTextNumberClasses]), 3);
    EXPECT_EQ(record.NumClassified, 3);
    EXPECT_EQ(record.ClassWidth, 1);
}

TEST_F(ClassSettingsTest, OfNoneGiveTheLoadedSymbolsBack) {
    AddNumbers({1, 3});
    ASSERT_EQ(ApplyClassSettings(ByNumber(2, 4, 2)), "");
    EXPECT_NE(gDataSymbol(gActivePlot, 2), 50302U);
    ClassSettings none = SettingsOfActivePlot();
    none.mode = kNotClassified;
    ASSERT_EQ(ApplyClassSettings(none), "");
    EXPECT_EQ(gDataSymbol(gActivePlot, 1), 50302U);
    EXPECT_EQ(gDataSymbol(gActivePlot, 2), 50302U);
    EXPECT_EQ(ActiveRecord().NumClassified, 0);
    EXPECT_EQ(ActiveRecord().NumClasses, 0);
    EXPECT_EQ(Form(gActivePlot).Told(PlotBox::NumberOfData), "2");
    EXPECT_EQ(SettingsOfActivePlot().numbers.limits.top, 4); // kept for the next time
}

TEST_F(ClassSettingsTest, RefusedChangeNothing) {
    AddValued(3, "3");
    ActiveRecord().HasAppendedNumeric = 0;
    EXPECT_NE(ApplyClassSettings(ByNumber(2, 4, 2)), "");
    ClassSettings chosen;
    chosen.mode = kClassesByName;
    ActiveRecord().HasAppendedText = 0;
    EXPECT_NE(ApplyClassSettings(chosen), "");
    chosen.mode = 4;
    EXPECT_NE(ApplyClassSettings(chosen), "");
    chosen.mode = kNotClassified;
    chosen.plotType = 5;
    EXPECT_NE(ApplyClassSettings(chosen), "");
    EXPECT_EQ(ActiveRecord().ClassMode, 0);
    EXPECT_EQ(ActiveRecord().Modified, 0);
    EXPECT_EQ(NumberOf(ActiveRecord().ClassTable[kTopRow][kNumberClasses]), 999999);
}

TEST_F(ClassSettingsTest, WarnOnceWhenTextsAreReadByTheOtherDelimiter) {
    AddTexts({"2,5", "3,5", "4"});
    ClassSettings chosen;
    chosen.mode = kClassesByTextNumber;
    chosen.textNumbers.limits = EqualRanges(2, 5, 3);
    Expect("Only 33.3% of your Appended data");
    EXPECT_EQ(ApplyClassSettings(chosen), "");
    ASSERT_EQ(prompts.Shown().size(), 1U);
    EXPECT_EQ(prompts.Shown()[0].message.icon, Icon::Stop);
    gDecimalIsComma = true;
    EXPECT_EQ(ApplyClassSettings(chosen), "");
    EXPECT_EQ(ActiveRecord().NumClassified, 3);
}

TEST_F(ClassSettingsTest, DoNotWarnOfRowsThatTheLimitsLeaveOut) {
    AddNumbers({1, 2, 30, 40});
    EXPECT_EQ(ApplyClassSettings(ByNumber(1, 2, 2)), "");
    EXPECT_EQ(ActiveRecord().NumClassified, 2);
}

TEST_F(ClassSettingsTest, ClassifyAgainWhatTheDriverFindsChanged) {
    AddNumbers({3});
    ASSERT_EQ(ApplyClassSettings(ByNumber(2, 4, 2)), "");
    AddNumbers({2, 9});
    ReplotActivePlot(true);
    EXPECT_EQ(ActiveRecord().NumClassified, 2);
    EXPECT_EQ(gDataSymbol(gActivePlot, 3), 0U);
}

TEST_F(ClassSettingsTest, OfANewPlotShowTheLowestValueAndAnOpenTop) {
    AddValued(3, "7");
    AddValued(-2, "5");
    const ClassSettings chosen = SettingsOfActivePlot();
    EXPECT_EQ(chosen.mode, kNotClassified);
    EXPECT_EQ(chosen.numbers.limits.limits[0], -2);
    EXPECT_EQ(chosen.numbers.limits.top, 999999);
    EXPECT_TRUE(chosen.numbers.keepLow);
    EXPECT_FALSE(chosen.numbers.keepHigh);
    EXPECT_EQ(chosen.textNumbers.limits.limits[0], 5);
    EXPECT_EQ(chosen.background, 0);
}

TEST_F(ClassSettingsTest, FillRangesFromTheNumbersOfTheRows) {
    AddNumbers({2, 4, 4, 4, 5, 5, 7, 9, kInvalidNumber});
    AddValued(1000, "", kErrorRow);
    ClassSettings chosen;
    EXPECT_EQ(FillRanges(chosen, RangeProcedure::EqualRanges, 7), "");
    EXPECT_EQ(chosen.numbers.limits.base, 7);
    EXPECT_EQ(chosen.numbers.limits.limits[3], 5);
    EXPECT_EQ(chosen.numbers.limits.top, 9);
    EXPECT_EQ(FillRanges(chosen, RangeProcedure::DeviationSplits, 2), "");
    const double deviation = std::sqrt(32.0 / 7);
    EXPECT_DOUBLE_EQ(chosen.numbers.limits.limits[0], 5 - deviation);
    EXPECT_EQ(chosen.numbers.limits.limits[1], 5);
    EXPECT_DOUBLE_EQ(chosen.numbers.limits.top, 5 + deviation);
    EXPECT_EQ(FillRanges(chosen, RangeProcedure::DeviationSplits, 1),
              "You must select at least two classes for this option.");
    EXPECT_EQ(chosen.numbers.limits.base, 2);
    EXPECT_EQ(FillRanges(chosen, RangeProcedure::LastUsed, 3), "");
    EXPECT_EQ(chosen.numbers.limits.base, 3);
    EXPECT_EQ(chosen.numbers.limits.limits[1], 5);
}

TEST_F(ClassSettingsTest, EqualRangesLeaveNoValueOut) {
    AddNumbers({0.1F, 0.7F, 1.9F, 2.3F, 3.3F});
    for (int classes = 1; classes <= kMostRanges; ++classes) {
        ClassSettings chosen;
        chosen.mode = kClassesByNumber;
        ASSERT_EQ(FillRanges(chosen, RangeProcedure::EqualRanges, classes), "");
        ASSERT_EQ(ApplyClassSettings(chosen), "");
        EXPECT_EQ(ActiveRecord().NumClassified, 5) << classes;
    }
}

TEST_F(ClassSettingsTest, FillTypesWithNamesInOrder) {
    AddTexts({"slate", "marble", "Slate", "", "gneiss"});
    ClassSettings chosen;
    chosen.names[5] = "left over";
    FillTypes(chosen, TypeProcedure::FirstFound, 2);
    EXPECT_EQ(chosen.types, 2);
    EXPECT_EQ(chosen.names[0], "slate");
    EXPECT_EQ(chosen.names[1], "marble");
    EXPECT_EQ(chosen.names[2], "");
    EXPECT_EQ(chosen.names[5], "");
    FillTypes(chosen, TypeProcedure::Ascending, 5);
    EXPECT_EQ(chosen.types, 5);
    EXPECT_EQ(chosen.names[0], "gneiss");
    EXPECT_EQ(chosen.names[2], "slate");
    EXPECT_EQ(chosen.names[3], "");
    FillTypes(chosen, TypeProcedure::Descending, 1);
    EXPECT_EQ(chosen.names[0], "slate");
    EXPECT_EQ(chosen.names[1], "");
    chosen.caseSensitive = true;
    FillTypes(chosen, TypeProcedure::FirstFound, 11);
    EXPECT_EQ(chosen.names[2], "Slate");
    FillTypes(chosen, TypeProcedure::Custom, 4);
    EXPECT_EQ(chosen.types, 4);
    EXPECT_EQ(chosen.names[2], "Slate");
}

TEST_F(ClassSettingsTest, FillTypesWithAClassForEachNumber) {
    AddTexts({"10", "9", "2.0", "2", "slate"});
    ClassSettings chosen;
    chosen.mode = kClassesByTextNumber;
    FillTypes(chosen, TypeProcedure::Ascending, 10);
    EXPECT_EQ(chosen.textNumbers.limits.base, 3);
    EXPECT_EQ(chosen.textNumbers.limits.limits[0], 2);
    EXPECT_EQ(chosen.textNumbers.limits.limits[1], 9);
    EXPECT_EQ(chosen.textNumbers.limits.top, 10);
    ASSERT_EQ(ApplyClassSettings(chosen), "");
    EXPECT_EQ(RowsOfClasses(ActivePlot(), kClassesByTextNumber),
              (std::vector<std::int32_t>{1, 0, 2, 1, 1}));
}

TEST(SetNumberOfRanges, KeepsTheTopAndTheLimitsThatStay) {
    ClassLimits limits = EqualRanges(0, 8, 4);
    SetNumberOfRanges(limits, 6);
    EXPECT_EQ(limits.base, 6);
    EXPECT_EQ(LowerLimit(limits, 4), 6);
    EXPECT_EQ(UpperLimit(limits, 4), 8);
    EXPECT_EQ(UpperLimit(limits, 6), 8);
    SetNumberOfRanges(limits, 2);
    EXPECT_EQ(UpperLimit(limits, 1), 2);
    EXPECT_EQ(UpperLimit(limits, 2), 8);
}

TEST_F(ClassSettingsTest, ABoxThatNobodyTouchedKeepsItsValueInFull) {
    const double third = 10.0 / 3;
    EXPECT_EQ(LimitOfBox("3.3333", LimitText(third), third), third);
    EXPECT_EQ(LimitOfBox("3.333", LimitText(third), third), 3.333);
    EXPECT_EQ(LimitOfBox(" 2,5 ", "1", 1), 2.5);
    EXPECT_EQ(LimitOfBox("0", "1", 1), 0);
    EXPECT_EQ(LimitOfBox("", "1", 1), std::nullopt);
    EXPECT_EQ(LimitOfBox("slate", "1", 1), std::nullopt);
    EXPECT_EQ(LimitOfBox("1,234.5", "1", 1), 1234.5);
    gDecimalIsComma = true;
    EXPECT_EQ(LimitOfBox("1.234,5", "1", 1), 1234.5);
}

struct ChoiceCase {
    const char* what;
    bool numbers;
    bool texts;
    std::int16_t mode;
    std::int16_t plotType;
    std::string open; ///< letters of what can be used, in the order of ChoicesOf
};

std::string OpenChoices(const ClassChoices& choices) {
    const bool open[] = {choices.byNumber, choices.byType,         choices.ranges,
                         choices.types,    choices.treatAsNumeric, choices.caseSensitive,
                         choices.plotType, choices.gridValues,     choices.background};
    const char letters[] = "NTrtncpgb";
    std::string text;
    for (std::size_t i = 0; i < 9; ++i) {
        text += open[i] ? std::string(1, letters[i]) : std::string();
    }
    return text;
}

TEST_F(ClassSettingsTest, OpenWhatTheColumnsAndTheModeAllow) {
    const ChoiceCase cases[] = {
        {"no columns", false, false, 0, 0, ""},
        {"no columns, mode of a file", false, false, 1, 3, ""},
        {"numbers, no classes", true, false, 0, 0, "N"},
        {"numbers as points", true, false, 1, kClassifiedPoints, "Nrp"},
        {"numbers as grid", true, true, 1, kGriddedValues, "NTrpg"},
        {"numbers as contours", true, false, 1, kContouredGriddedValues, "Nrpgb"},
        {"contours and grid", true, false, 1, kContoursWithGridPoints, "Nrpgb"},
        {"contours and points", true, false, 1, kContoursWithDataPoints, "Nrpgb"},
        {"texts as numbers", true, true, 2, 0, "NTtn"},
        {"names", false, true, 3, 0, "Ttnc"},
        {"names without texts", true, false, 3, 0, "N"},
    };
    for (const ChoiceCase& row : cases) {
        ActiveRecord().HasAppendedNumeric = row.numbers ? kTrue : std::int16_t{0};
        ActiveRecord().HasAppendedText = row.texts ? kTrue : std::int16_t{0};
        ClassSettings chosen;
        chosen.mode = row.mode;
        chosen.plotType = row.plotType;
        EXPECT_EQ(OpenChoices(ChoicesOf(chosen, ActiveRecord())), row.open) << row.what;
    }
}

TEST_F(ClassSettingsTest, OfANewPlotHaveNoNames) {
    ASSERT_FALSE(IsEmpty(ActiveRecord().ClassTable[kLowestRow][kNameClasses])) << "a number";
    AddTexts({"0", "slate"});
    EXPECT_EQ(SettingsOfActivePlot().names, (std::array<std::string, kMostNames>{}));
    ActiveRecord().ClassTable[kBaseRow][kTextNumberClasses] = std::int16_t{1};
    const ClassRule rule = RuleOfClassTable(ActiveRecord().ClassTable, kNameClasses);
    EXPECT_EQ(ClassOfName(rule, "0"), 0);
    EXPECT_EQ(ClassLabel(ActiveRecord().ClassTable, kNameClasses, 2), "");
}

TEST_F(ClassSettingsTest, HaveAFiniteWidthHoweverFarTheLimitsLie) {
    AddNumbers({3});
    ClassSettings chosen;
    chosen.mode = kClassesByNumber;
    chosen.numbers.limits.base = 2;
    chosen.numbers.limits.limits[0] = -1.7e308;
    chosen.numbers.limits.top = 1.7e308;
    ASSERT_EQ(ApplyClassSettings(chosen), "");
    EXPECT_TRUE(std::isfinite(ActiveRecord().ClassWidth));
    EXPECT_GT(ActiveRecord().ClassWidth, 1e308 / 2);
}

} // namespace
} // namespace quandrel
