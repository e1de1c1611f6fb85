// SPDX-License-Identifier: MIT

#include "class_fixture.h"
#include "classify/class_legend.h"
#include "classify/classification.h"
#include "stereo/plot_stages.h"

namespace quandrel {
namespace {

class ClassLegend : public ClassTest {
protected:
    static std::vector<std::string> Texts() {
        std::vector<std::string> texts;
        for (const LegendLine& line : ClassLegendLines()) {
            texts.push_back(line.text);
        }
        return texts;
    }
};

using Lines = std::vector<std::string>;

TEST_F(ClassLegend, ListsExactlyTheClassesWithRows) {
    AddNumbers({1, 2, 9, 9});
    ActiveRecord().ClassMode = kClassesByNumber;
    ActiveRecord().ClassTable = TableOfRanges(kNumberClasses, {2, 4, 6, 8}, 3);
    EXPECT_EQ(Texts(), (Lines{"Classified by: Thickness", "< 2", "2-4", "> 8"}));
    ActiveRecord().ClassTable[12][0] = std::int16_t{0};
    EXPECT_EQ(Texts(), (Lines{"Classified by: Thickness", "2-4"}));
    gAppNumeric.At(gActivePlot, 1) = 7;
    EXPECT_EQ(Texts(), (Lines{"Classified by: Thickness", "2-4", "6-8"}));
}

TEST_F(ClassLegend, NamesTheTypesAsTheTableSpellsThem) {
    AddTexts({"gneiss", "SLATE", "marble"});
    ActiveRecord().ClassMode = kClassesByName;
    ActiveRecord().ClassTable = TableOfNames({"Slate", "Schist", "Gneiss"}, true, false);
    EXPECT_EQ(Texts(), (Lines{"Classified by: Rock", "Other data", "Slate", "Gneiss"}));
}

TEST_F(ClassLegend, OfTextsThatAreNumbersHasTheNameOfTheTexts) {
    AddTexts({"3", "slate"});
    ActiveRecord().ClassMode = kClassesByTextNumber;
    ActiveRecord().ClassTable = TableOfRanges(kTextNumberClasses, {2, 4}, 0);
    EXPECT_EQ(Texts(), (Lines{"Classified by: Rock", "2-4"}));
}

TEST_F(ClassLegend, ShowsTheStyleThatTheRowsAreDrawnIn) {
    AddNumbers({1, 3, 5});
    ActiveRecord().ClassMode = kClassesByNumber;
    ActiveRecord().ClassTable = TableOfRanges(kNumberClasses, {2, 4}, 3);
    ApplyClassification(kClassesByNumber);
    const std::vector<LegendLine> lines = ClassLegendLines();
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[0].sample, LegendSample::None);
    for (std::size_t row = 1; row <= 3; ++row) {
        EXPECT_EQ(lines[row].sample, LegendSample::Symbol);
        EXPECT_EQ(lines[row].code, gDataSymbol(gActivePlot, static_cast<std::int32_t>(row)));
    }
}

TEST_F(ClassLegend, IsEmptyWithoutClasses) {
    AddNumbers({1});
    EXPECT_TRUE(ClassLegendLines().empty());
}

TEST_F(ClassLegend, StandsInTheLegendOfAClassifiedPlot) {
    AddNumbers({3});
    ActiveRecord().ClassTable = TableOfRanges(kNumberClasses, {2, 4}, 0);
    gPlotStages = {};
    gPlotStages.classLegend = ClassLegendLines;
    ActiveRecord().ClassMode = kClassesByNumber;
    const std::vector<LegendLine> lines = LegendLines();
    gPlotStages = {};
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[1].text, "Classified by: Thickness");
    EXPECT_EQ(lines[2].text, "2-4");
}

} // namespace
} // namespace quandrel
