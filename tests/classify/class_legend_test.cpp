// SPDX-License-Identifier: MIT

#include "class_fixture.h"
#include "classify/class_editing.h"
#include "classify/class_legend.h"
#include "classify/class_settings.h"
#include "classify/classification.h"
#include "core/class_stats.h"
#include "core/plot_store.h"
#include "core/settings_value.h"
#include "density/grid_density.h"
#include "drawing/legend.h"
#include "stereo/legend_line.h"

namespace quandrel {
namespace {

class ClassLegend : public ClassTest {
protected:
    static std::vector<std::string> Texts() {
        std::vector<std::string> texts;
        for (const LegendLine& line : ClassLegendLines(ActivePlot(), gSettings.styles)) {
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
    ActiveRecord().ClassTable[kFlagRow][kNumberClasses] = std::int16_t{0};
    EXPECT_EQ(Texts(), (Lines{"Classified by: Thickness", "2-4"}));
    gAppNumeric.At(gActivePlot, 1) = 7;
    EXPECT_EQ(Texts(), (Lines{"Classified by: Thickness", "2-4", "6-8"}));
}

TEST_F(ClassLegend, ShowsLimitsAsTheBoxesDo) {
    AddNumbers({2, 4, 4, 4, 5, 5, 7, 9});
    for (const RangeProcedure procedure :
         {RangeProcedure::EqualRanges, RangeProcedure::DeviationSplits}) {
        ClassSettings chosen = SettingsOfActivePlot();
        chosen.mode = kClassesByNumber;
        ASSERT_EQ(FillRanges(chosen, procedure, 6), "");
        ASSERT_EQ(ApplyClassSettings(chosen), "");
        const LimitForm form = LimitFormOf(SettingsOfActivePlot());
        EXPECT_EQ(form == LimitForm::Deviations, procedure == RangeProcedure::DeviationSplits);
        for (const bool isComma : {false, true}) {
            gDecimalIsComma = isComma;
            const ClassLimits& limits = chosen.numbers.limits;
            const std::string first =
                LimitBoxText(limits, 2, form) + "-" + LimitBoxText(limits, 3, form);
            const std::vector<std::string> texts = Texts();
            EXPECT_NE(std::ranges::find(texts, first), texts.end()) << first;
        }
        gDecimalIsComma = false;
    }
    EXPECT_EQ(Texts()[1], "0.724-2.862") << "5 - 2 and 5 - 1 deviations of 2.138";
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
    const std::vector<LegendLine> lines = ClassLegendLines(ActivePlot(), gSettings.styles);
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[0].sample, LegendSample::None);
    for (std::size_t row = 1; row <= 3; ++row) {
        EXPECT_EQ(lines[row].sample, LegendSample::Symbol);
        EXPECT_EQ(lines[row].code, gDataSymbol(gActivePlot, static_cast<std::int32_t>(row)));
    }
}

TEST_F(ClassLegend, IsEmptyWithoutClasses) {
    AddNumbers({1});
    EXPECT_TRUE(ClassLegendLines(ActivePlot(), gSettings.styles).empty());
}

TEST_F(ClassLegend, StandsInTheLegendOfAClassifiedPlot) {
    AddNumbers({3});
    ActiveRecord().ClassTable = TableOfRanges(kNumberClasses, {2, 4}, 0);
    ActiveRecord().ClassMode = kClassesByNumber;
    const std::vector<LegendLine> lines =
        LegendLines(ActivePlot(), gSettings.styles, gSettings.notation.formulas);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[1].text, "Classified by: Thickness");
    EXPECT_EQ(lines[2].text, "2-4");
}

/// Two rows at one position, with values in the outermost classes and a mean between them.
class GridLegend : public ClassLegend {
protected:
    void SetUp() override {
        ClassLegend::SetUp();
        AddNumbers({1, 9});
        PlotRecord& record = ActiveRecord();
        record.ClassMode = kClassesByNumber;
        record.ClassTable = TableOfRanges(kNumberClasses, {2, 4, 6, 8}, 3);
        record.ClassStats[kGridChoice] = {static_cast<double>(ClassGridValue::Mean), 0};
        gSettings.gridSize = 40;
        ComputeGridDensity();
    }

    void TearDown() override {
        gSettings.gridSize = 50;
        ClassLegend::TearDown();
    }

    static std::vector<LegendSample> Samples() {
        std::vector<LegendSample> samples;
        for (const LegendLine& line : ClassLegendLines(ActivePlot(), gSettings.styles)) {
            samples.push_back(line.sample);
        }
        return samples;
    }
};

using SampleList = std::vector<LegendSample>;
constexpr LegendSample kText = LegendSample::None;
constexpr LegendSample kSymbol = LegendSample::Symbol;
constexpr LegendSample kLine = LegendSample::Line;

TEST_F(GridLegend, ListsTheClassesThatThePlotTypeShows) {
    // Nodes have the mean 5 around the rows and the background 0 elsewhere: contours lie at 2 and
    // 4.
    const struct {
        ClassPlotType type;
        Lines texts;
        SampleList samples;
    } cases[] = {
        {kClassifiedPoints, {"< 2", "> 8"}, {kText, kSymbol, kSymbol}},
        {kGriddedValues, {"4-6"}, {kText, kSymbol}},
        {kContouredGriddedValues, {"2-4", "4-6"}, {kText, kLine, kLine}},
        {kContoursWithGridPoints, {"2-4", "4-6"}, {kText, kLine, kSymbol}},
        {kContoursWithDataPoints,
         {"< 2", "2-4", "4-6", "> 8"},
         {kText, kSymbol, kLine, kLine, kSymbol}},
    };

    for (const auto& row : cases) {
        ActiveRecord().NumClasses = row.type;
        Lines expected = {"Classified by: Thickness"};
        expected.insert(expected.end(), row.texts.begin(), row.texts.end());
        EXPECT_EQ(Texts(), expected) << row.type;
        EXPECT_EQ(Samples(), row.samples) << row.type;
    }
}

TEST_F(GridLegend, LinesHaveTheColoursOfTheContours) {
    ActiveRecord().NumClasses = kContouredGriddedValues;
    EXPECT_EQ(ClassLegendLines(ActivePlot(), gSettings.styles)[2].code,
              MakeSymbolCode(CodeColour(CodeOfClass(3)), kSolidLine, 1));
}

TEST_F(GridLegend, ShowsNoSamplesOfRowsThatAreNotDrawnInTheirStyles) {
    for (const std::int16_t mode : {kBetaIntersections, kPointDensitySymbols, kGridDensitySymbols,
                                    kContours, kContoursAndGrid}) {
        ActiveRecord().PlotSymbolMode = mode;
        ActiveRecord().NumClasses = kClassifiedPoints;
        EXPECT_TRUE(Texts().empty()) << mode;
        ActiveRecord().NumClasses = kContoursWithDataPoints;
        EXPECT_EQ(Texts(), (Lines{"Classified by: Thickness", "2-4", "4-6"})) << mode;
        ActiveRecord().NumClasses = kGriddedValues;
        EXPECT_EQ(Texts(), (Lines{"Classified by: Thickness", "4-6"})) << mode;
    }
}

TEST_F(GridLegend, OfGreatCirclesShowsLinesInTheirColours) {
    ActiveRecord().PlotSymbolMode = kGreatCircles;
    const std::vector<LegendLine> lines = ClassLegendLines(ActivePlot(), gSettings.styles);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[1].sample, LegendSample::GreatCircle);
    EXPECT_EQ(lines[2].code, CodeOfClass(5));
}

} // namespace
} // namespace quandrel
