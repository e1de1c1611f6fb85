// SPDX-License-Identifier: MIT
//
// The rules of the dialog of densities.

#include "core/plot_record.h"
#include "density/density_form.h"
#include "density/density_levels.h"
#include "stereo/axis_rows.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>

namespace quandrel {
namespace {

PlotRecord NetWithRows() {
    PlotRecord record;
    record.PlotKind = kEqualArea;
    record.NumValidData = 20;
    record.PlotSymbolMode = kContours;
    return record;
}

DensityFormula Kamb(double k, double rows, LineSense sense = LineSense::Axes,
                    DensityMethod method = DensityMethod::Kamb) {
    DensityChoice choice;
    choice.method = method;
    choice.sense = sense;
    choice.k = k;
    return FormulaOf(choice, rows);
}

/// Degrees, from the share k^2 / (n + k^2) of a hemisphere of axes, or of the sphere of directions.
double ConeAngle(double k, double rows, LineSense sense) {
    const double share = k * k / (rows + k * k);
    const double height = sense == LineSense::Axes ? share : 2 * share;
    return std::acos(1 - height) * 180 / kPi;
}

TEST(DensityForm, OffersTheUnitsOfEachMethod) {
    using Unit = DensityUnit;
    const std::array<std::vector<Unit>, 6> units = {{
        {Unit::PerCentInCone, Unit::Counts, Unit::MultiplesOfUniform},
        {Unit::Counts, Unit::Sigma, Unit::Deviation, Unit::MultiplesOfUniform},
        {Unit::Sigma, Unit::Deviation, Unit::MultiplesOfUniform},
        {Unit::Sigma, Unit::Deviation, Unit::MultiplesOfUniform},
        {Unit::Sigma, Unit::Deviation, Unit::MultiplesOfUniform},
        {Unit::MultiplesOfUniform},
    }};
    PlotRecord record = NetWithRows();
    for (std::int16_t method = kDensityByCone; method <= kDensityByKernel; ++method) {
        record.DensityMethod = method;
        EXPECT_EQ(OfferOf(record).units, units.at(static_cast<std::size_t>(method))) << method;
    }
}

TEST(DensityForm, OffersWhatTheMethodAndTheLevelsHave) {
    PlotRecord record = NetWithRows();
    DensityOffer offer = OfferOf(record);
    EXPECT_EQ(offer.refusal, "");
    EXPECT_TRUE(offer.isDrawn);
    EXPECT_FALSE(offer.hasK || offer.hasWidth || offer.hasStep || offer.hasList || offer.hasBands);
    EXPECT_NE(offer.onFieldOnly, "");
    for (std::int16_t method = kDensityByKamb; method <= kDensityByKernel; ++method) {
        record.DensityMethod = method;
        offer = OfferOf(record);
        EXPECT_EQ(offer.hasK, method != kDensityByKernel) << method;
        EXPECT_EQ(offer.hasWidth, method == kDensityByKernel) << method;
        EXPECT_EQ(offer.onFieldOnly, "") << method;
    }
    record.LevelRule = kEvenLevels;
    EXPECT_TRUE(OfferOf(record).hasStep);
    EXPECT_FALSE(OfferOf(record).hasList);
    record.LevelRule = kLevelsByHand;
    EXPECT_FALSE(OfferOf(record).hasStep);
    EXPECT_TRUE(OfferOf(record).hasList);
    record.ContourPicture = kFilledBands;
    EXPECT_TRUE(OfferOf(record).hasBands);
    record.ContourPicture = kLinesOverBands;
    EXPECT_TRUE(OfferOf(record).hasBands);
}

TEST(DensityForm, SaysWhyAPlotHasNoDensities) {
    PlotRecord record = NetWithRows();
    record.PlotKind = kRose;
    EXPECT_EQ(OfferOf(record).refusal, "A rose has no densities.");
    EXPECT_TRUE(OfferOf(record).units.empty());
    record = NetWithRows();
    record.NumValidData = 0;
    EXPECT_EQ(OfferOf(record).refusal, "A plot without rows has no densities.");
    record = NetWithRows();
    record.ClassMode = 1;  // by appended numbers
    record.NumClasses = 2; // a grid of the values
    EXPECT_NE(OfferOf(record).refusal, "");
    record.NumClasses = 4; // contours of the values over the rows
    EXPECT_EQ(OfferOf(record).refusal, "") << "the rows are drawn below the values";
    record = NetWithRows();
    record.AxesTitle = kBothAxes;
    EXPECT_EQ(OfferOf(record).refusal, kMixedAxesRefusal);
}

TEST(DensityForm, TellsWhetherThePlotDrawsItsDensities) {
    PlotRecord record = NetWithRows();
    for (const std::int16_t mode :
         {kPointDensitySymbols, kGridDensitySymbols, kContours, kContoursAndGrid}) {
        record.PlotSymbolMode = mode;
        EXPECT_TRUE(OfferOf(record).isDrawn) << mode;
    }
    record.PlotSymbolMode = kPointSymbols;
    EXPECT_FALSE(OfferOf(record).isDrawn);
}

TEST(DensityForm, AMethodWithoutTheUnitTakesItsFirst) {
    RecordDensityView view;
    EXPECT_EQ(WithMethod(view, kDensityByKambSquare).DensityUnit, kSigmaUnit);
    EXPECT_EQ(WithMethod(view, kDensityByKernel).DensityUnit, kMultiplesUnit);
    view.DensityUnit = kCountsUnit;
    EXPECT_EQ(WithMethod(view, kDensityByKamb).DensityUnit, kCountsUnit);
    view.DensityUnit = kMultiplesUnit;
    EXPECT_EQ(WithMethod(view, kDensityByCone).DensityUnit, kMultiplesUnit) << "all have it";
}

TEST(DensityForm, LevelsByHandStartFromThoseThatAreShown) {
    RecordDensityView view;
    const std::vector<double> shown = {2, 4, 8.5};
    EXPECT_EQ(WithLevelRule(view, kLevelsByHand, shown).LevelsByHand, "2, 4, 8.5");
    EXPECT_EQ(WithLevelRule(view, kLevelsByHand, {}).LevelsByHand, "2, 4, 8");
    EXPECT_EQ(WithLevelRule(view, kEvenLevels, shown).LevelsByHand, "");
    view.LevelsByHand = "3; 5";
    EXPECT_EQ(WithLevelRule(view, kLevelsByHand, shown).LevelsByHand, "3; 5") << "typed earlier";
    view.LevelsByHand.clear();
    const std::vector<double> tiny = {1e-7};
    EXPECT_EQ(WithLevelRule(view, kLevelsByHand, tiny).LevelsByHand, "2, 4, 8")
        << "0 is not a level";
}

TEST(DensityForm, ShowsTheHalfAngleOfTheCone) {
    for (const LineSense sense : {LineSense::Axes, LineSense::Directions}) {
        const ConeInWords cone = ConeOf(Kamb(3, 100, sense));
        EXPECT_NEAR(std::stod(cone.angle), ConeAngle(3, 100, sense), 0.05);
        EXPECT_TRUE(cone.angle.ends_with("°"));
        EXPECT_EQ(cone.warning, "");
        EXPECT_FALSE(cone.widerK);
    }
    EXPECT_EQ(ConeOf(Kamb(3, 100, LineSense::Axes, DensityMethod::KambExponential)).angle,
              ConeOf(Kamb(3, 100)).angle)
        << "k stands for the same cone in all of Kamb's methods";
}

TEST(DensityForm, WarnsOfNarrowConesAndNamesTheKOfThreeDegrees) {
    for (const LineSense sense : {LineSense::Axes, LineSense::Directions}) {
        for (const double rows : {2000.0, 50000.0, 3e6}) {
            const ConeInWords cone = ConeOf(Kamb(1, rows, sense));
            char angle[16];
            std::snprintf(angle, sizeof(angle), "%.1f", ConeAngle(1, rows, sense));
            EXPECT_EQ(cone.warning, "The cone is " + std::string(angle)
                                        + " degrees wide: narrower than most measurements.");
            ASSERT_TRUE(cone.widerK);
            EXPECT_GE(ConeAngle(*cone.widerK, rows, sense), 3 - 1e-9);
            EXPECT_LT(ConeAngle(*cone.widerK - 0.1, rows, sense), 3) << "the least in tenths";
            EXPECT_EQ(ConeOf(Kamb(*cone.widerK, rows, sense)).warning, "");
        }
    }
}

TEST(DensityForm, OffersNoKBeyondItsLimit) {
    // k = sqrt(n A / (1 - A)) is 1000 where n is about 7.3e8.
    EXPECT_TRUE(ConeOf(Kamb(3, 7.2e8)).widerK);
    const ConeInWords cone = ConeOf(Kamb(3, 7.4e8));
    EXPECT_NE(cone.warning, "");
    EXPECT_FALSE(cone.widerK);
}

TEST(DensityForm, ReadsTypedNumbers) {
    EXPECT_EQ(*KOfText(" 2.5 "), 2.5);
    EXPECT_EQ(*KOfText("2,5"), 2.5);
    EXPECT_EQ(*KOfText("1"), 1);
    EXPECT_EQ(*KOfText("1000"), 1000);
    for (const char* text : {"", "0.99", "1000.1", "-3", "three", "1e", "nan"}) {
        const Result<double> k = KOfText(text);
        ASSERT_FALSE(k) << text;
        EXPECT_EQ(k.Error(), "k has to be a number from 1 to 1,000.");
    }
    EXPECT_EQ(*WidthOfText("2"), 2);
    EXPECT_EQ(*WidthOfText("60"), 60);
    for (const char* text : {"", "0", "1.9", "60.5", "wide"}) {
        const Result<double> width = WidthOfText(text);
        ASSERT_FALSE(width) << text;
        EXPECT_EQ(width.Error(), "The half-width has to be a number from 2 to 60 degrees.");
    }
    EXPECT_EQ(*StepOfText(""), 0);
    EXPECT_EQ(*StepOfText("  "), 0);
    EXPECT_EQ(*StepOfText("0.5"), 0.5);
    for (const char* text : {"0", "-1", "half"}) {
        const Result<double> step = StepOfText(text);
        ASSERT_FALSE(step) << text;
        EXPECT_EQ(step.Error(), "The step has to be a number above 0, or empty for a round one.");
    }
}

TEST(DensityForm, ReadsTypedLevels) {
    EXPECT_EQ(*LevelListOfText(" 2, 4,8 "), "2, 4,8");
    EXPECT_EQ(*LevelListOfText("8 4 2"), "8 4 2");
    std::string many = "1";
    for (int level = 2; level <= 25; ++level) {
        many += " " + std::to_string(level);
    }
    const std::string tooLong = "2, 4" + std::string(400, ' ') + ", 8";
    for (const std::string& text : {std::string(), std::string("2, 2"), std::string("0, 2"),
                                    std::string("2, x"), many, tooLong}) {
        const Result<std::string> levels = LevelListOfText(text);
        ASSERT_FALSE(levels) << text;
        EXPECT_EQ(levels.Error(),
                  "Levels have to be 1 to 24 different numbers above 0, such as 2, 4, 8.");
    }
    const std::string most = many.substr(0, many.rfind(' '));
    EXPECT_TRUE(LevelListOfText(most)) << "24 of them";
}

TEST(DensityForm, AcceptsOnlyWhatAPlotCanKeep) {
    RecordDensityView view;
    view.DensityK = *KOfText("1000");
    view.KernelWidth = *WidthOfText("60");
    view.LevelStep = *StepOfText("1e-9");
    view.LevelsByHand = *LevelListOfText("1,2" + std::string(396, ' ') + "3");
    EXPECT_TRUE(IsValid(view)) << "400 characters";
}

TEST(DensityForm, BoxesShowFourDecimalsAtMost) {
    EXPECT_EQ(TextInBox(3), "3");
    EXPECT_EQ(TextInBox(2.5), "2.5");
    EXPECT_EQ(TextInBox(1.0 / 3), "0.3333");
}

} // namespace
} // namespace quandrel
