// SPDX-License-Identifier: MIT

#include "class_fixture.h"
#include "classify/classification.h"
#include "core/plot_store.h"
#include "core/replot.h"
#include "core/settings_value.h"
#include "stereo/symbols.h"

#include <algorithm>
#include <numeric>
#include <random>

namespace quandrel {
namespace {

class Classification : public ClassTest {
protected:
    static std::vector<SymbolCode> Codes() {
        std::vector<SymbolCode> codes;
        for (std::int32_t row = 1; row <= ActiveRecord().NumData; ++row) {
            codes.push_back(gDataSymbol(gActivePlot, row));
        }
        return codes;
    }
};

/// The code of a row of the style table, read off the table by hand.
SymbolCode TableCode(std::size_t row) {
    const SymbolRow& style = gSymbolTable[row];
    return static_cast<SymbolCode>(style[0] * 10000 + style[1] * 100 + style[2]);
}

TEST_F(Classification, GivesRowsTheStylesOfTheirClassesAndCountsThem) {
    AddNumbers({1, 2, 3, 5, 6});
    ActiveRecord().ClassTable = TableOfRanges(kNumberClasses, {2, 4, 5}, 0);
    ApplyClassification(kClassesByNumber);
    EXPECT_EQ(Codes(),
              (std::vector<SymbolCode>{0, TableCode(40), TableCode(40), TableCode(41), 0}));
    EXPECT_EQ(ActiveRecord().NumClassified, 3);
    ActiveRecord().ClassTable[kFlagRow][kNumberClasses] = std::int16_t{3};
    ApplyClassification(kClassesByNumber);
    EXPECT_EQ(Codes(), (std::vector<SymbolCode>{TableCode(39), TableCode(40), TableCode(40),
                                                TableCode(41), TableCode(42)}));
    EXPECT_EQ(ActiveRecord().NumClassified, 5);
}

TEST_F(Classification, PutsInvalidValuesWithTheLowOnesWhereTheseAreKept) {
    AddValued(kInvalidNumber, "");
    AddValued(3, "3");
    AddValued(3, "slate");
    AddValued(3, "2,5");
    for (const int mode : {kClassesByNumber, kClassesByTextNumber}) {
        const auto column = mode == kClassesByNumber ? kNumberClasses : kTextNumberClasses;
        for (const int flags : {0, 1}) {
            ActiveRecord().ClassTable = TableOfRanges(column, {2, 4, 5}, flags);
            EXPECT_EQ(ClassifyRow(1, mode), flags);
            EXPECT_EQ(ClassifyRow(2, mode), 2);
            EXPECT_EQ(ClassifyRow(3, mode), mode == kClassesByNumber ? 2 : flags);
            EXPECT_EQ(ClassifyRow(4, mode), mode == kClassesByNumber ? 2 : flags);
        }
    }
}

TEST_F(Classification, ReadsTextsByTheRegionalDelimiter) {
    AddTexts({"2,5", "2.5", "4", "4,5"});
    ActiveRecord().ClassTable = TableOfRanges(kTextNumberClasses, {2, 4, 5}, 0);
    const auto classes = [] {
        return std::vector<int>{ClassifyRow(1, 2), ClassifyRow(2, 2), ClassifyRow(3, 2),
                                ClassifyRow(4, 2)};
    };
    EXPECT_EQ(classes(), (std::vector<int>{0, 2, 3, 0}));
    gDecimalIsComma = true;
    EXPECT_EQ(classes(), (std::vector<int>{2, 0, 3, 3}));
}

TEST_F(Classification, OfNamesCollectsOtherDataAndEmptyTexts) {
    AddTexts({"slate", "GNEISS", "marble", ""});
    ActiveRecord().ClassTable = TableOfNames({"Slate", "gneiss"}, true, false);
    ApplyClassification(kClassesByName);
    EXPECT_EQ(Codes(), (std::vector<SymbolCode>{TableCode(40), TableCode(41), TableCode(39),
                                                TableCode(39)}));
    ActiveRecord().ClassTable = TableOfNames({"Slate", "gneiss"}, false, true);
    ApplyClassification(kClassesByName);
    EXPECT_EQ(Codes(), (std::vector<SymbolCode>{0, 0, 0, 0}));
    EXPECT_EQ(ActiveRecord().NumClassified, 0);
}

TEST_F(Classification, HidesErrorRowsAndLeavesThemUncounted) {
    AddNumbers({3});
    AddValued(3, "", kErrorRow);
    ActiveRecord().ClassTable = TableOfRanges(kNumberClasses, {2, 4}, 3);
    EXPECT_EQ(ClassifyRow(2, kClassesByNumber), 0);
    ApplyClassification(kClassesByNumber);
    EXPECT_EQ(Codes(), (std::vector<SymbolCode>{TableCode(40), 0}));
    EXPECT_EQ(ActiveRecord().NumClassified, 1);
    EXPECT_EQ(RowsOfClasses(ActivePlot(), kClassesByNumber),
              (std::vector<std::int32_t>{0, 0, 1, 0}));
}

TEST_F(Classification, SetToNoneGivesTheLoadedSymbolsBack) {
    AddNumbers({1, 3});
    gDataSymbol.At(gActivePlot, 2) = 70405;
    gDataSymbolBase.At(gActivePlot, 2) = 70405;
    ActiveRecord().ClassTable = TableOfRanges(kNumberClasses, {2, 4}, 0);
    ApplyClassification(kClassesByNumber);
    EXPECT_EQ(Codes(), (std::vector<SymbolCode>{0, TableCode(40)}));
    ApplyClassification(kNotClassified);
    EXPECT_EQ(Codes(), (std::vector<SymbolCode>{50302, 70405}));
    EXPECT_EQ(ActiveRecord().NumClassified, 0);
}

TEST_F(Classification, OfAnUnknownModeIsNone) {
    AddNumbers({3});
    gDataSymbol.At(gActivePlot, 1) = 0;
    EXPECT_EQ(ClassifyRow(1, 4), 0);
    EXPECT_EQ(ClassifyRow(1, -1), 0);
    EXPECT_TRUE(RowsOfClasses(ActivePlot(), 9).empty());
    ApplyClassification(9);
    EXPECT_EQ(Codes(), std::vector<SymbolCode>{50302});
}

TEST_F(Classification, LeavesOverlaysAlone) {
    AddNumbers({3});
    AddOverlay(kOverlayPoles, 10, 20, 70203);
    ActiveRecord().ClassTable = TableOfRanges(kNumberClasses, {2, 4}, 3);
    ApplyClassification(kClassesByNumber);
    EXPECT_EQ(gDataSymbol(gActivePlot, 2), 70203U);
    ApplyClassification(kNotClassified);
    EXPECT_EQ(gDataSymbol(gActivePlot, 2), 70203U);
}

TEST_F(Classification, WithoutTheColumnFindsEveryValueInvalid) {
    AddValued(3, "3");
    ActiveRecord().HasAppendedNumeric = 0;
    ActiveRecord().HasAppendedText = 0;
    ActiveRecord().ClassTable = TableOfRanges(kNumberClasses, {2, 4}, 0);
    EXPECT_EQ(ClassifyRow(1, kClassesByNumber), 0);
    ActiveRecord().ClassTable = TableOfRanges(kTextNumberClasses, {2, 4}, 0);
    EXPECT_EQ(ClassifyRow(1, kClassesByTextNumber), 0);
    ActiveRecord().ClassTable = TableOfNames({"3"}, false, false);
    EXPECT_EQ(ClassifyRow(1, kClassesByName), 0);
}

TEST_F(Classification, ClassesSumUpToTheClassifiedRows) {
    std::mt19937 random(101);
    std::uniform_int_distribution<int> value(0, 12);
    const char* const rocks[] = {"slate", "Slate", "gneiss", "marble", "", "4", "11"};
    for (int i = 0; i < 400; ++i) {
        const int drawn = value(random);
        AddValued(drawn == 0 ? kInvalidNumber : static_cast<float>(drawn),
                  drawn % 2 == 0 ? std::to_string(drawn) : rocks[value(random) % 7],
                  drawn == 12 ? kErrorRow : 45);
    }
    for (int flags = 0; flags <= 3; ++flags) {
        ActiveRecord().ClassTable = TableOfRanges(kNumberClasses, {2, 4, 6, 8}, flags);
        const ClassTableCells types = flags % 2 == 0
                                          ? TableOfNames({"slate", "gneiss"}, flags > 1, flags > 1)
                                          : TableOfRanges(kTextNumberClasses, {2, 4, 6, 8}, flags);
        for (std::size_t row = 0; row < types.size(); ++row) {
            ActiveRecord().ClassTable[row][kTextNumberClasses] = types[row][1];
            ActiveRecord().ClassTable[row][kNameClasses] = types[row][2];
        }
        for (const ClassModeCode mode : {kClassesByNumber, kClassesByTextNumber, kClassesByName}) {
            ApplyClassification(mode);
            const std::vector<std::int32_t> rows = RowsOfClasses(ActivePlot(), mode);
            EXPECT_EQ(std::accumulate(rows.begin() + 1, rows.end(), 0),
                      ActiveRecord().NumClassified);
            EXPECT_EQ(std::accumulate(rows.begin(), rows.end(), 0), ActiveRecord().NumValidData);
            const std::vector<SymbolCode> codes = Codes();
            EXPECT_EQ(std::count_if(codes.begin(), codes.end(),
                                    [](SymbolCode code) { return code != 0; }),
                      ActiveRecord().NumClassified);
        }
    }
}

TEST_F(Classification, IsRefreshedForNewRowsOfAClassifiedPlotAlone) {
    AddNumbers({3});
    ActiveRecord().ClassTable = TableOfRanges(kNumberClasses, {2, 4}, 0);
    RefreshClassification(ActivePlot(), gSettings.styles);
    EXPECT_EQ(Codes(), std::vector<SymbolCode>{50302});
    ActiveRecord().ClassMode = kClassesByNumber;
    AddNumbers({2});
    RefreshClassification(ActivePlot(), gSettings.styles);
    EXPECT_EQ(Codes(), (std::vector<SymbolCode>{TableCode(40), TableCode(40)}));
    EXPECT_EQ(ActiveRecord().NumClassified, 2);
}

TEST_F(Classification, StylesBeginAgainInTheNextShapeBehindTheTable) {
    EXPECT_EQ(CodeOfClass(1), TableCode(39));
    EXPECT_EQ(CodeOfClass(12), TableCode(50));
    gSymbolTable[kFirstClassStyle] = {7, 4, 6};
    gSymbolTable[kFirstClassStyle + 1] = {8, 17, 5};
    gSymbolTable[kFirstClassStyle + 2] = {9, 0, 5};
    EXPECT_EQ(CodeOfClass(13), 70506U);
    EXPECT_EQ(CodeOfClass(14), 80205U); // the first shape follows the last
    EXPECT_EQ(CodeOfClass(15), 90005U); // a hidden class stays hidden
    EXPECT_EQ(CodeOfClass(25), 70606U);
}

TEST_F(Classification, LabelsTellTheRangeOrTheName) {
    const ClassTableCells ranges = TableOfRanges(kNumberClasses, {-2, 0.1, 2.1, 10}, 3);
    EXPECT_EQ(ClassLabel(ranges, kNumberClasses, 1), "< -2");
    EXPECT_EQ(ClassLabel(ranges, kNumberClasses, 2), "-2-0.1");
    EXPECT_EQ(ClassLabel(ranges, kNumberClasses, 3), "0.1-2.1");
    EXPECT_EQ(ClassLabel(ranges, kNumberClasses, 4), "2.1-10");
    EXPECT_EQ(ClassLabel(ranges, kNumberClasses, 5), "> 10");
    const ClassTableCells single = TableOfRanges(kTextNumberClasses, {1, 3, 3}, 0);
    EXPECT_EQ(ClassLabel(single, kTextNumberClasses, 2), "1-3");
    EXPECT_EQ(ClassLabel(single, kTextNumberClasses, 3), "3");
    ClassTableCells none;
    none[1][0] = 4.0;
    none[11][0] = 9.0;
    EXPECT_EQ(ClassLabel(none, kNumberClasses, 1), "4-9");
    const ClassTableCells names = TableOfNames({"Slate", "gneiss"}, true, false);
    EXPECT_EQ(ClassLabel(names, kNameClasses, 1), "Other data");
    EXPECT_EQ(ClassLabel(names, kNameClasses, 2), "Slate");
    EXPECT_EQ(ClassLabel(names, kNameClasses, 3), "gneiss");
}

struct WarningCase {
    const char* what;
    int classified; ///< of ten rows
    bool hasInvalid;
    bool warns;
};

TEST_F(Classification, WarnsOfDelimitersBelowSevenInTenWhenANumberIsUnreadable) {
    const WarningCase cases[] = {
        {"exactly seven", 7, true, false},
        {"six", 6, true, true},
        {"six by the user's limits", 6, false, false},
        {"none", 0, true, true},
        {"all", 10, true, false},
    };
    AddNumbers({1, 1, 1, 1, 1, 1, 1, 1, 1, 1});
    for (const WarningCase& row : cases) {
        ActiveRecord().NumClassified = row.classified;
        gAppNumeric.At(gActivePlot, 4) = row.hasInvalid ? kInvalidNumber : 1.0F;
        EXPECT_EQ(DecimalWarningNeeded(ActivePlot(), kNumberClasses), row.warns) << row.what;
    }
}

TEST_F(Classification, WarnsOfTextsWithTheOtherDelimiter) {
    AddTexts({"1,5", "2.5"});
    ActiveRecord().NumClassified = 1;
    EXPECT_TRUE(DecimalWarningNeeded(ActivePlot(), kTextNumberClasses));
    EXPECT_FALSE(DecimalWarningNeeded(ActivePlot(), kNameClasses));
    gAppText.Set(gActivePlot, 1, "1.5");
    EXPECT_FALSE(DecimalWarningNeeded(ActivePlot(), kTextNumberClasses));
    gDecimalIsComma = true;
    EXPECT_TRUE(DecimalWarningNeeded(ActivePlot(), kTextNumberClasses));
}

TEST_F(Classification, DoesNotWarnOfErrorRowsNorOfAnEmptyPlot) {
    EXPECT_FALSE(DecimalWarningNeeded(ActivePlot(), kNumberClasses));
    AddNumbers({1, 1});
    AddValued(kInvalidNumber, "", kErrorRow);
    ActiveRecord().NumClassified = 0;
    EXPECT_FALSE(DecimalWarningNeeded(ActivePlot(), kNumberClasses));
}

TEST_F(Classification, WarningNamesTheShareAndTheDelimiter) {
    AddNumbers({1, 2, 3});
    ActiveRecord().NumClassified = 2;
    EXPECT_EQ(DecimalWarningText(ActiveRecord()),
              "Only 66.7% of your Appended data contributed valid values to the classification. \n"
              "The problem appears to be that the decimal values in your Appended data do not "
              "appear to use period decimal delimiters consistent with your Windows Regional "
              "Settings.\nIf this is a problem then you either need to change the delimiter in "
              "your data or reset the Regional Settings from the Windows Control Panel.");
    gDecimalIsComma = true;
    EXPECT_NE(DecimalWarningText(ActiveRecord()).find("to use comma decimal"), std::string::npos);
}

TEST_F(Classification, GreatCirclesAreThoseOfRowsWithAClassAndASymbol) {
    const std::int32_t directions[] = {10, 130, 250};
    const float values[] = {1, 3, 5}; // of no class, of class 2, of class 3
    for (std::size_t i = 0; i < 3; ++i) {
        AddRow(50, directions[i], 50302);
        ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
        gAppNumeric.At(gActivePlot, ActiveRecord().NumData) = values[i];
    }
    PlotRecord& record = ActiveRecord();
    record.ClassMode = kClassesByNumber;
    record.ClassTable = TableOfRanges(kNumberClasses, {2, 4, 6}, 0);
    record.PlotSymbolMode = kGreatCircles;
    const SymbolRow former = gSymbolTable[kFirstClassStyle + 2];
    gSymbolTable[kFirstClassStyle + 2][kPlaceSymbol] = kNoSymbol; // class 3
    ApplyClassification(kClassesByNumber);
    ReplotActivePlot(true);
    std::vector<Colour> arcs;
    for (const DrawOperation& operation : DrawnOn(Form(gActivePlot).Plot())) {
        if (operation.kind == DrawOperation::Kind::Arc) {
            arcs.push_back(operation.colour);
        }
    }
    gSymbolTable[kFirstClassStyle + 2] = former;
    EXPECT_EQ(arcs, std::vector<Colour>{TableColour(CodeColour(CodeOfClass(2)))});
}

} // namespace
} // namespace quandrel
