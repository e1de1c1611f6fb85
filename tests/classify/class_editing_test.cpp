// SPDX-License-Identifier: MIT

#include "class_fixture.h"
#include "classify/class_editing.h"
#include "core/data_format.h"

#include <algorithm>

namespace quandrel {
namespace {

class ClassEditingTest : public ClassTest {
protected:
    /// A plot with a row of class 2 by number, in the current styles of the classes.
    int MakeClassifiedPlot() {
        NewPlot();
        AddRow(45, 90, 50302);
        EXPECT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
        gAppNumeric.At(gActivePlot, 1) = 1;
        ActiveRecord().HasAppendedNumeric = kTrue;
        ActiveRecord().ClassMode = kClassesByNumber;
        ActiveRecord().ClassTable = TableOfRanges(kNumberClasses, {0, 2, 4}, 0);
        ApplyClassification(kClassesByNumber);
        return gActivePlot;
    }
};

ClassLimits Limits(std::initializer_list<double> limits) {
    ClassLimits result;
    result.base = static_cast<int>(limits.size()) - 1;
    std::size_t place = 0;
    for (const double limit : limits) {
        if (place == limits.size() - 1) {
            result.top = limit;
        } else {
            result.limits[place++] = limit;
        }
    }
    return result;
}

TEST_F(ClassEditingTest, KindsStandForModes) {
    EXPECT_EQ(KindOfMode(0), ClassKind::None);
    EXPECT_EQ(KindOfMode(1), ClassKind::Numbers);
    EXPECT_EQ(KindOfMode(2), ClassKind::Types);
    EXPECT_EQ(KindOfMode(3), ClassKind::Types);
    EXPECT_EQ(KindOfMode(9), ClassKind::None);
}

TEST_F(ClassEditingTest, AKindWithoutClassesGetsItsFirstOnes) {
    AddValued(2, "slate");
    AddValued(12, "marl");
    AddValued(4, "Slate");
    ClassSettings chosen;
    ChooseClassKind(chosen, ClassKind::Numbers);
    EXPECT_EQ(chosen.mode, kClassesByNumber);
    EXPECT_EQ(chosen.numbers.limits.base, 5);
    EXPECT_EQ(chosen.numbers.limits.limits[0], 2);
    EXPECT_EQ(chosen.numbers.limits.limits[1], 4) << "steps of (12 - 2) / 5";
    EXPECT_EQ(chosen.numbers.limits.top, 12);
    ChooseClassKind(chosen, ClassKind::Types);
    EXPECT_EQ(chosen.mode, kClassesByName);
    EXPECT_EQ(chosen.types, 2);
    EXPECT_EQ(chosen.names[0], "slate");
    EXPECT_EQ(chosen.names[1], "marl");
    ChooseClassKind(chosen, ClassKind::None);
    EXPECT_EQ(chosen.mode, kNotClassified);
    EXPECT_EQ(chosen.types, 2) << "kept for the next time";
}

TEST_F(ClassEditingTest, AKindWithClassesKeepsThem) {
    AddValued(2, "slate");
    ClassSettings chosen;
    chosen.numbers.limits = Limits({10, 20, 30});
    chosen.types = 1;
    chosen.names[0] = "coal";
    ChooseClassKind(chosen, ClassKind::Numbers);
    EXPECT_EQ(chosen.numbers.limits.base, 2);
    EXPECT_EQ(chosen.numbers.limits.limits[1], 20);
    ChooseClassKind(chosen, ClassKind::Types);
    EXPECT_EQ(chosen.names[0], "coal");
}

TEST_F(ClassEditingTest, TypesAreTakenAsNumbersAndBack) {
    AddTexts({"5", "1", "x", "3"});
    ClassSettings chosen;
    ChooseClassKind(chosen, ClassKind::Types);
    ASSERT_EQ(chosen.types, 4);
    chosen.names[0] = "my own";
    chosen.textNumbers.limits = {};
    ChooseNumericTypes(chosen, true);
    EXPECT_EQ(chosen.mode, kClassesByTextNumber);
    EXPECT_EQ(chosen.textNumbers.limits.base, 3) << "1, 3 and 5";
    EXPECT_EQ(chosen.textNumbers.limits.limits[0], 1);
    EXPECT_EQ(chosen.textNumbers.limits.top, 5);
    EXPECT_EQ(chosen.names[0], "my own") << "names are left alone";
    chosen.textNumbers.limits = Limits({1, 9});
    ChooseNumericTypes(chosen, false);
    EXPECT_EQ(chosen.mode, kClassesByName);
    ChooseNumericTypes(chosen, true);
    EXPECT_EQ(chosen.textNumbers.limits.top, 9) << "limits that ascend stay";
}

TEST_F(ClassEditingTest, NumericTypesLeaveAnotherModeAlone) {
    AddTexts({"5"});
    ClassSettings chosen;
    chosen.mode = kClassesByNumber;
    ChooseNumericTypes(chosen, true);
    EXPECT_EQ(chosen.mode, kClassesByNumber);
    EXPECT_TRUE(chosen.treatAsNumeric);
}

TEST_F(ClassEditingTest, LinesStandForClasses) {
    ClassSettings chosen;
    chosen.numbers.limits = Limits({0, 1, 2, 3}); // classes 2 to 4
    const int ofRanges[] = {1, 2, 3, 4, 0, 0, 0, 0, 0, 0, 0, 5};
    chosen.types = 11; // classes 2 to 12
    for (int line = 0; line < kClassLines; ++line) {
        EXPECT_EQ(ClassOfLine(chosen, ClassKind::Numbers, line), ofRanges[line]) << line;
        EXPECT_EQ(ClassOfLine(chosen, ClassKind::Types, line), line + 1) << line;
    }
    chosen.numbers.limits.base = 0; // what lies between the limits is class 1
    EXPECT_EQ(ClassOfLine(chosen, ClassKind::Numbers, 0), 0);
    EXPECT_EQ(ClassOfLine(chosen, ClassKind::Numbers, 1), 1);
    EXPECT_EQ(ClassOfLine(chosen, ClassKind::Numbers, 11), 2);
}

TEST_F(ClassEditingTest, ClassesOfLinesAreThoseOfTheRule) {
    // A value in each range has the class that ClassOfLine reports for its line.
    ClassSettings chosen;
    chosen.numbers.keepLow = true;
    chosen.numbers.keepHigh = true;
    for (int base = 1; base <= kMostRanges; ++base) {
        chosen.numbers.limits = EqualRanges(0, base, base);
        const ClassRule rule = RuleOfClassTable(TableOfSettings(chosen, {}), kNumberClasses);
        for (int line = 0; line <= base; ++line) {
            EXPECT_EQ(ClassOfLine(chosen, ClassKind::Numbers, line),
                      ClassOfNumber(rule, line - 0.5));
        }
        EXPECT_EQ(ClassOfLine(chosen, ClassKind::Numbers, kHighLine),
                  ClassOfNumber(rule, base + 1));
    }
}

TEST_F(ClassEditingTest, FlagsDecideWhichOuterLinesAreKept) {
    ClassSettings chosen;
    chosen.numbers.limits = Limits({0, 1});
    chosen.types = 2;
    EXPECT_FALSE(IsLineKept(chosen, ClassKind::Numbers, 0));
    EXPECT_FALSE(IsLineKept(chosen, ClassKind::Numbers, kHighLine));
    EXPECT_FALSE(IsLineKept(chosen, ClassKind::Types, 0));
    EXPECT_TRUE(IsLineKept(chosen, ClassKind::Numbers, 1));
    EXPECT_FALSE(IsLineKept(chosen, ClassKind::Numbers, 2)) << "no such class";
    chosen.numbers.keepLow = true;
    EXPECT_TRUE(IsLineKept(chosen, ClassKind::Numbers, 0));
    EXPECT_FALSE(IsLineKept(chosen, ClassKind::Numbers, kHighLine));
    chosen.numbers.keepHigh = true;
    EXPECT_TRUE(IsLineKept(chosen, ClassKind::Numbers, kHighLine));
    chosen.keepOthers = true;
    EXPECT_TRUE(IsLineKept(chosen, ClassKind::Types, 0));
}

TEST_F(ClassEditingTest, BoxesShareTheLimitBetweenRanges) {
    ClassLimits limits = Limits({0, 10, 20, 30});
    const double shown[] = {0, 10, 10, 20, 20, 30};
    for (int box = 0; box < 6; ++box) {
        EXPECT_EQ(LimitAt(limits, box), shown[box]) << box;
    }
    SetLimitAt(limits, 1, 11);
    EXPECT_EQ(LimitAt(limits, 2), 11);
    SetLimitAt(limits, 4, 22);
    EXPECT_EQ(LimitAt(limits, 3), 22);
    SetLimitAt(limits, 0, -1);
    SetLimitAt(limits, 5, 33);
    EXPECT_EQ(limits.limits[0], -1);
    EXPECT_EQ(limits.top, 33);
}

TEST_F(ClassEditingTest, EveryBoxHoldsWhatItIsGiven) {
    for (int base = 0; base <= kMostRanges; ++base) {
        ClassLimits limits;
        limits.base = base;
        for (int box = 0; box < 2 * std::max(base, 1); ++box) {
            SetLimitAt(limits, box, 100 + box);
            EXPECT_EQ(LimitAt(limits, box), 100 + box) << base << ", " << box;
        }
    }
}

TEST_F(ClassEditingTest, SeesLimitsThatDoNotAscend) {
    EXPECT_TRUE(LimitsAscend(Limits({0, 1, 2})));
    EXPECT_TRUE(LimitsAscend(Limits({1, 1, 1})));
    EXPECT_FALSE(LimitsAscend(Limits({0, 3, 2})));
    EXPECT_FALSE(LimitsAscend(Limits({2, 1, 3})));
    ClassLimits without;
    without.limits[0] = 5;
    EXPECT_FALSE(LimitsAscend(without)) << "from 5 to 0";
}

TEST_F(ClassEditingTest, ShowsLimitsByTheRegionalDelimiter) {
    const ClassLimits limits = Limits({1.5, 2.25});
    EXPECT_EQ(LimitBoxText(limits, 0, LimitForm::Plain), "1.5");
    gDecimalIsComma = true;
    EXPECT_EQ(LimitBoxText(limits, 0, LimitForm::Plain), "1,5");
    EXPECT_EQ(LimitBoxText(limits, 1, LimitForm::Deviations), "2,25");
    EXPECT_EQ(ShownNumber(0.125), "0,125");
    gDecimalIsComma = false;
    EXPECT_EQ(LimitBoxText(Limits({1.23456, 13.0}), 0, LimitForm::Deviations), "1.2")
        << "11.8 apart: one decimal";
    EXPECT_EQ(LimitBoxText(Limits({1.23456, 4}), 0, LimitForm::Deviations), "1.235");
}

TEST_F(ClassEditingTest, FiguresAreThoseOfTheNumbers) {
    AddValued(2, "a");
    AddValued(4, "B");
    AddValued(9, "b");
    AddValued(kInvalidNumber, "");
    const ClassFigures figures = FiguresOfActivePlot();
    ASSERT_TRUE(figures.column.numbers);
    EXPECT_EQ(figures.column.numbers->mean, 5);
    EXPECT_EQ(figures.column.valid, 3U);
    EXPECT_EQ(figures.types, 2U);
    EXPECT_FALSE(figures.means);
    EXPECT_FALSE(figures.sums);
}

TEST_F(ClassEditingTest, FiguresAreThoseOfTextsWhereThereAreNoNumbers) {
    ActiveRecord().HasAppendedNumeric = 0;
    AddTexts({"3", "seven", "5"});
    const ClassFigures figures = FiguresOfActivePlot();
    ASSERT_TRUE(figures.column.numbers);
    EXPECT_EQ(figures.column.numbers->greatest, 5);
    EXPECT_EQ(figures.column.valid, 2U);
}

TEST_F(ClassEditingTest, FindsNumbersAmongTypes) {
    AddTexts({"slate", ""});
    EXPECT_FALSE(HasNumericTypes());
    AddValued(1, "7", kErrorRow);
    EXPECT_FALSE(HasNumericTypes()) << "of an error row";
    AddTexts({"7"});
    EXPECT_TRUE(HasNumericTypes());
}

TEST_F(ClassEditingTest, StylesGoWithTheSettings) {
    AddNumbers({1, 3});
    ClassSettings chosen;
    chosen.mode = kClassesByNumber;
    chosen.numbers.limits = Limits({0, 2, 4});
    ClassStyles styles = StylesOfClasses(kFirstClassStyle);
    EXPECT_EQ(styles[1], gSymbolTable[kFirstClassStyle + 1]);
    styles[1] = {8, 13, 7}; // class 2
    EXPECT_EQ(ApplyClasses(chosen, styles), "");
    EXPECT_EQ(gSymbolTable[kFirstClassStyle + 1], (SymbolRow{8, 13, 7}));
    EXPECT_EQ(gDataSymbol(gActivePlot, 1), MakeSymbolCode(8, 13, 7));
}

TEST_F(ClassEditingTest, StylesStayWhenTheSettingsAreRefused) {
    ActiveRecord().HasAppendedNumeric = 0;
    ClassSettings chosen;
    chosen.mode = kClassesByNumber;
    const auto before = gSymbolTable;
    ClassStyles styles = StylesOfClasses(kFirstClassStyle);
    styles[0] = {8, 13, 7};
    EXPECT_NE(ApplyClasses(chosen, styles), "");
    EXPECT_EQ(gSymbolTable, before);
}

TEST_F(ClassEditingTest, StylesAreReadAndWrittenInTheirRowsAlone) {
    const auto before = gSymbolTable;
    ClassStyles styles = StylesOfClasses(kFirstRoseClassStyle);
    styles.front() = {1, 2, 3};
    styles.back() = {4, 5, 6};
    WriteStylesOfClasses(styles, kFirstRoseClassStyle);
    for (std::size_t row = 0; row < gSymbolTable.size(); ++row) {
        const bool isWritten = row == 24 || row == 35;
        EXPECT_EQ(gSymbolTable[row] != before[row], isWritten) << row;
    }
    EXPECT_EQ(StylesOfClasses(kFirstRoseClassStyle), styles);
}

TEST_F(ClassEditingTest, NewStylesShowInEveryClassifiedPlot) {
    const int active = gActivePlot;
    AddNumbers({1, 3});
    const int other = MakeClassifiedPlot();
    const int rose = MakeClassifiedPlot();
    ActiveRecord().PlotKind = kRose;
    ActiveRecord().NumClassified = 77;
    NewPlot();
    AddRow(45, 90, 50302);
    const int plain = gActivePlot;
    gActivePlot = active;
    ClassSettings chosen;
    chosen.mode = kClassesByNumber;
    chosen.numbers.limits = Limits({0, 2, 4});
    ClassStyles styles = StylesOfClasses(kFirstClassStyle);
    const int shown = Form(other).TimesShown();
    ASSERT_EQ(ApplyClasses(chosen, styles), "");
    EXPECT_EQ(Form(other).TimesShown(), shown) << "no style has changed";
    styles[1] = {8, 13, 7}; // class 2
    ASSERT_EQ(ApplyClasses(chosen, styles), "");
    EXPECT_EQ(gActivePlot, active);
    EXPECT_EQ(gDataSymbol(other, 1), MakeSymbolCode(8, 13, 7));
    EXPECT_EQ(gDataSymbolBase(other, 1), 50302U);
    EXPECT_EQ(Form(other).TimesShown(), shown + 1);
    const auto drawn = DrawnOn(Form(other).Plot());
    EXPECT_TRUE(std::ranges::any_of(
        drawn, [](const DrawOperation& operation) { return operation.colour == TableColour(8); }));
    EXPECT_EQ(gDataSymbol(rose, 1), MakeSymbolCode(8, 13, 7));
    EXPECT_EQ(RecordOf(rose).NumClassified, 77) << "what the rose counted";
    EXPECT_EQ(gDataSymbol(plain, 1), 50302U);
}

} // namespace
} // namespace quandrel
