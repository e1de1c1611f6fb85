// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/replot.h"
#include "orientation/angles.h"
#include "orientation/vectors.h"
#include "statistics/confidence_cone.h"
#include "statistics/fabric_kernels.h"
#include "statistics/fabric_statistics.h"
#include "stereo/row_positions.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace quandrel {
namespace {

using testing::Radians;

constexpr unsigned kSeed = 77;
constexpr double kTolerance = 1e-6;

struct Orientation {
    int plunge;
    int trend;
};

using Rows = std::vector<Orientation>;

class FabricStatistics : public EngineTest {
protected:
    /// A new plot with these rows and its statistics.
    const PlotRecord& StatisticsOf(std::int16_t kind, const Rows& rows) {
        gPrimaryDataType = kind == kPlanes ? kPrimaryPlane : kPrimaryLine;
        gPlotDataKind = kind;
        MakeStoreTables();
        NewPlot();
        for (const Orientation& row : rows) {
            AddRow(row.plunge, row.trend);
        }
        ComputeFabricStatistics();
        return ActiveRecord();
    }

    static double Eigenvalue(const PlotRecord& record, std::size_t i) {
        return static_cast<double>(record.FabricResults[i][kEigenvalue]);
    }

    static void ExpectEigenvalues(const PlotRecord& record, double e1, double e2, double e3) {
        EXPECT_NEAR(Eigenvalue(record, 1), e1, kTolerance);
        EXPECT_NEAR(Eigenvalue(record, 2), e2, kTolerance);
        EXPECT_NEAR(Eigenvalue(record, 3), e3, kTolerance);
    }

    /// The axis must be the line; plunge and trend in degrees.
    static void ExpectAxis(const PlotRecord& record, std::size_t axis, double plunge,
                           double trend) {
        const AxisLine found = FabricAxis(record, axis);
        EXPECT_LT(testing::AcuteAngleOf(testing::LineVector(found.plunge, found.trend),
                                        testing::LineVector(Radians(plunge), Radians(trend))),
                  kTolerance)
            << axis;
        EXPECT_GE(found.plunge, 0);
    }
};

/// Rows about a line, a girdle, or anywhere.
Rows RandomRows(std::mt19937& random, int count, int spread) {
    Rows rows;
    for (int i = 0; i < count; ++i) {
        const int plunge = 20 + static_cast<int>(random() % static_cast<unsigned>(spread));
        const int trend = static_cast<int>(random() % static_cast<unsigned>(4 * spread));
        rows.push_back({plunge, trend});
    }
    return rows;
}

/// All numbers that the statistics leave in the record.
std::vector<double> ResultsOf(const PlotRecord& record) {
    std::vector<double> results;
    for (std::size_t i = 1; i <= 3; ++i) {
        for (std::size_t j = 0; j <= 3; ++j) {
            results.push_back(static_cast<double>(record.FabricResults[i][j]));
            results.push_back(static_cast<double>(record.EigenResults[i][j]));
        }
    }
    for (const float value : {record.FabricValueA, record.FabricValueB, record.FabricValueD,
                              record.FabricValueE, record.FabricValueF}) {
        results.push_back(static_cast<double>(value));
    }
    results.push_back(record.FabricValueC);
    results.push_back(record.RoseResultant[kOfAngles]);
    return results;
}

void ExpectEqualResults(const std::vector<double>& left, const std::vector<double>& right) {
    ASSERT_EQ(left.size(), right.size());
    for (std::size_t i = 0; i < left.size(); ++i) {
        EXPECT_NEAR(left[i], right[i], kTolerance) << i;
    }
}

// Worked out by hand: (60/000), (60/180), (90/000), (00/090) have the tensor diag(1/8, 1/4, 5/8).
const Rows kFourLines = {{60, 0}, {60, 180}, {90, 0}, {0, 90}};

TEST_F(FabricStatistics, FourLinesAsDoneByHand) {
    const PlotRecord& record = StatisticsOf(kLines, kFourLines);
    ExpectEigenvalues(record, 0.125, 0.25, 0.625);
    ExpectAxis(record, 1, 0, 0);
    ExpectAxis(record, 2, 0, 90);
    ExpectAxis(record, 3, 90, 0);
    EXPECT_NEAR(record.EigenResults[kGamma][kShapeNumber], std::log(2.5) / std::log(2.0), 1e-5);
    EXPECT_NEAR(record.EigenResults[kZeta][kShapeNumber], std::log(5.0), 1e-5);
    EXPECT_NEAR(record.EigenResults[kMiddleToLeast][kLogRatio], std::log(2.0), 1e-5);
    EXPECT_NEAR(record.EigenResults[kGreatestToMiddle][kLogRatio], std::log(2.5), 1e-5);
    // m4 = (2 (3/4)^2 + 1) / 4 = 17/32, and the standard error follows.
    EXPECT_NEAR(record.FabricValueC, std::sqrt((0.625 - 0.53125) / 4) / 0.375, kTolerance);
    // The resultant is (0, 1, 1 + sqrt 3).
    const double down = 1 + std::numbers::sqrt3;
    EXPECT_NEAR(record.FabricValueA, std::atan(down), kTolerance);
    EXPECT_NEAR(record.FabricValueB, std::numbers::pi / 2, kTolerance);
    EXPECT_EQ(record.FabricValueD, record.FabricValueA);
    EXPECT_EQ(record.FabricValueE, record.FabricValueB);
    EXPECT_NEAR(record.RoseResultant[kOfAngles], std::hypot(1, down) / 4, kTolerance);
    EXPECT_NEAR(record.FabricValueF, 1 - std::hypot(1, down) / 4, kTolerance);
}

TEST_F(FabricStatistics, EigenvectorsStandInColumns) {
    const PlotRecord& record = StatisticsOf(kLines, {{30, 120}, {30, 120}, {30, 120}});
    const testing::Vector axis = testing::LineVector(Radians(30), Radians(120));
    EXPECT_NEAR(record.FabricResults[kNorthOfAxis][kGreatestAxis], axis.north, kTolerance);
    EXPECT_NEAR(record.FabricResults[kEastOfAxis][kGreatestAxis], axis.east, kTolerance);
    EXPECT_NEAR(record.FabricResults[kDownOfAxis][kGreatestAxis], axis.down, kTolerance);
}

TEST_F(FabricStatistics, OneRowIsAllInOneAxis) {
    const PlotRecord& record = StatisticsOf(kLines, {{37, 222}});
    ExpectEigenvalues(record, 0, 0, 1);
    ExpectAxis(record, 3, 37, 222);
    EXPECT_EQ(record.EigenResults[kGamma][kShapeNumber], 99999.0F);
    EXPECT_EQ(record.EigenResults[kZeta][kShapeNumber], 99999.0F);
    EXPECT_EQ(record.FabricValueC, 99999.0);
    EXPECT_NEAR(record.FabricValueF, 0, kTolerance);
}

TEST_F(FabricStatistics, RowsInOnePlaneHaveItAsGirdle) {
    // All in the plane that dips 40 toward 075, by their pitches.
    Rows rows;
    for (const int trend : {0, 20, 45, 75, 100, 140}) {
        const double plunge = std::atan(std::tan(Radians(40)) * std::cos(Radians(trend - 75))) * 180
                              / std::numbers::pi;
        rows.push_back({static_cast<int>(std::lround(plunge)), trend});
    }
    const PlotRecord& record = StatisticsOf(kLines, rows);
    // Rounding to whole degrees leaves a small component out of the plane.
    EXPECT_LT(Eigenvalue(record, 1), 1e-4);
    EXPECT_NEAR(NumberOf(record.AxisItems[kGirdleItem][kItemPlunge]), Radians(50), 0.01);
    EXPECT_NEAR(NumberOf(record.AxisItems[kGirdleItem][kItemTrend]), Radians(255), 0.01);
}

TEST_F(FabricStatistics, RowsInOneVerticalPlaneHaveNoShape) {
    const PlotRecord& record = StatisticsOf(kLines, {{10, 30}, {40, 30}, {70, 210}, {5, 30}});
    EXPECT_NEAR(Eigenvalue(record, 1), 0, kTolerance);
    EXPECT_EQ(record.EigenResults[kMiddleToLeast][kLogRatio], 99999.0F);
    EXPECT_EQ(record.EigenResults[kZeta][kShapeNumber], 99999.0F);
    EXPECT_LT(record.EigenResults[kGreatestToMiddle][kLogRatio], 99999.0F);
    ExpectAxis(record, 1, 0, 120);
}

TEST_F(FabricStatistics, TwoRowsAtARightAngleShareTheirEigenvalue) {
    const PlotRecord& record = StatisticsOf(kLines, {{30, 40}, {60, 220}});
    ExpectEigenvalues(record, 0, 0.5, 0.5);
    ExpectAxis(record, 1, 0, 130);
    EXPECT_EQ(record.FabricValueC, 99999.0);
}

TEST_F(FabricStatistics, PlanesCountByTheirPoles) {
    const PlotRecord& record = StatisticsOf(kPlanes, {{30, 120}, {30, 120}});
    ExpectAxis(record, 3, 60, 300);
    EXPECT_NEAR(record.FabricValueA, Radians(60), kTolerance);
    EXPECT_NEAR(record.FabricValueB, Radians(300), kTolerance);
}

TEST_F(FabricStatistics, VerticalRowsOfDifferentTrendsAreVertical) {
    const Rows rows = {{90, 0}, {90, 120}, {90, 250}, {90, 301}, {90, 360}};
    for (const std::int16_t kind : {kLines, kPolarLines}) {
        const PlotRecord& record = StatisticsOf(kind, rows);
        EXPECT_EQ(record.FabricValueA, static_cast<float>(std::numbers::pi / 2));
        EXPECT_EQ(record.FabricValueB, 0.0F) << "a vertical line has the trend of north";
        EXPECT_EQ(FabricAxis(record, 3).trend, 0);
        EXPECT_EQ(record.FabricResults[kNorthOfAxis][kGreatestAxis], 0.0F);
        EXPECT_EQ(record.FabricResults[kEastOfAxis][kGreatestAxis], 0.0F);
        EXPECT_EQ(TextOf(record.AxisItems[kMeanPlaneItem][kItemText]), "0/180");
        EXPECT_EQ(TextOf(record.AxisItems[kGirdleItem][kItemText]), "undetermined")
            << "two axes are alike";
        EXPECT_TRUE(IsEmpty(record.AxisItems[kGirdleItem][kItemTrend]));
        ExpectEigenvalues(record, 0, 0, 1);
    }
}

TEST_F(FabricStatistics, RowsStraightUpHaveAMeanStraightUp) {
    const PlotRecord& record = StatisticsOf(kPolarLines, {{-90, 0}, {-90, 120}, {-90, 250}});
    EXPECT_EQ(record.FabricValueA, static_cast<float>(-std::numbers::pi / 2));
    EXPECT_EQ(record.FabricValueB, 0.0F);
}

TEST_F(FabricStatistics, ErrorRowsTakeNoPart) {
    const std::vector<double> expected = ResultsOf(StatisticsOf(kLines, kFourLines));
    Rows rows = kFourLines;
    rows.insert(rows.begin() + 1, {kErrorRow, 0});
    rows.push_back({kErrorRow, 17});
    ExpectEqualResults(ResultsOf(StatisticsOf(kLines, rows)), expected);
}

TEST_F(FabricStatistics, RowsSummedDecideTheNumberOfRows) {
    gPrimaryDataType = kPrimaryLine;
    gPlotDataKind = kPolarLines;
    NewPlot();
    for (const Orientation& row : kFourLines) {
        AddRow(row.plunge, row.trend);
    }
    // A plot of P and T axes counts its faults, two rows each.
    ActiveRecord().AxesTitle = "P & T";
    ActiveRecord().NumValidData = 2;
    ComputeFabricStatistics();
    ExpectEigenvalues(ActiveRecord(), 0.125, 0.25, 0.625);
    EXPECT_NEAR(ActiveRecord().RoseResultant[kOfAngles], std::hypot(1, 1 + std::numbers::sqrt3) / 4,
                kTolerance);
}

TEST_F(FabricStatistics, LevelAxesAreToldApartByTheStylesGiven) {
    gPlotDataKind = kPolarLines;
    NewPlot();
    AddRow(0, 30);
    AddRow(0, 120);
    ActiveRecord().AxesTitle = kBothAxes;
    Styles given = gSettings.styles;
    given.symbols[kDerivedUpSymbol] = {3, 4, 5};
    ActivePlot().rows.symbolBase.At(2) = CodeOfStyleRow(given, kDerivedUpSymbol);
    ComputeFabricStatistics(ActivePlot(), given, Formulas::Own);
    ExpectEigenvalues(ActiveRecord(), 0, 0, 1); // of the first alone
}

TEST_F(FabricStatistics, WithoutAValidRowTheOldResultsStay) {
    StatisticsOf(kLines, kFourLines);
    PlotRecord& record = ActiveRecord();
    const std::vector<double> expected = ResultsOf(record);
    for (std::size_t place = 0; place < 4; ++place) {
        SetRow(TableOf(gActivePlot), place,
               {static_cast<std::int32_t>(place) + 1, 0, 0, kErrorRow, 0});
    }
    record.NumValidData = 0;
    ComputeFabricStatistics();
    ComputeFabricDerived();
    ExpectEqualResults(ResultsOf(record), expected);
}

TEST_F(FabricStatistics, OverlaysTakeNoPart) {
    const std::vector<double> expected = ResultsOf(StatisticsOf(kLines, kFourLines));
    StatisticsOf(kLines, kFourLines);
    AddOverlay(kOverlayLines, 10, 200, CodeOfStyleRow(2));
    ComputeFabricStatistics();
    ExpectEqualResults(ResultsOf(ActiveRecord()), expected);
}

TEST_F(FabricStatistics, APlotWithOverlaysKeepsThemWhenItIsDrawn) {
    StatisticsOf(kLines, kFourLines);
    const std::vector<double> expected = ResultsOf(ActiveRecord());
    AddOverlay(kOverlayLines, 10, 200, CodeOfStyleRow(2));
    ReplotActivePlot(true);
    ReplotActivePlot(false);
    ExpectEqualResults(ResultsOf(ActiveRecord()), expected);
}

// Polar lines.

TEST_F(FabricStatistics, PolarLinesHaveADirectedMean) {
    // Down by 30 toward north, and up by 30 toward north with the lower end in the south, cancel in
    // the vertical: the mean is horizontal.
    const PlotRecord& record = StatisticsOf(kPolarLines, {{30, 0}, {-30, 180}});
    EXPECT_NEAR(record.FabricValueA, 0, kTolerance);
    EXPECT_NEAR(std::cos(static_cast<double>(record.FabricValueB)), 1, kTolerance);
    EXPECT_NEAR(record.RoseResultant[kOfAngles], std::cos(Radians(30)), kTolerance);
    EXPECT_NEAR(record.FabricValueF, 1 - std::cos(Radians(30)), kTolerance);
    // As axes the two are 60 degrees apart, on both sides of the vertical.
    EXPECT_NEAR(record.FabricValueD, Radians(90), kTolerance);
    ExpectEigenvalues(record, 0, 0.25, 0.75);
}

TEST_F(FabricStatistics, OppositeEndsOfALineCancel) {
    const PlotRecord& record = StatisticsOf(kPolarLines, {{30, 10}, {-30, 10}, {30, 10}});
    EXPECT_NEAR(record.RoseResultant[kOfAngles], 1.0 / 3, kTolerance);
    EXPECT_NEAR(record.FabricValueA, Radians(30), kTolerance);
    EXPECT_NEAR(record.FabricValueB, Radians(10), kTolerance);
    ExpectEigenvalues(record, 0, 0, 1);
}

TEST_F(FabricStatistics, AnUpwardMeanHasTheTrendOfItsLowerEnd) {
    const PlotRecord& record = StatisticsOf(kPolarLines, {{-30, 120}, {-30, 120}});
    EXPECT_NEAR(record.FabricValueA, Radians(-30), kTolerance);
    EXPECT_NEAR(record.FabricValueB, Radians(120), kTolerance);
    EXPECT_NEAR(record.FabricValueF, 0, kTolerance);
}

TEST_F(FabricStatistics, OpposedDirectionsHaveNoMeanDirection) {
    const PlotRecord& record = StatisticsOf(kPolarLines, {{30, 10}, {-30, 10}, {0, 90}, {0, 270}});
    EXPECT_FALSE(HasMeanDirection(record));
    EXPECT_EQ(record.FabricValueA, 9999.0F);
    EXPECT_EQ(record.FabricValueB, 9999.0F);
    EXPECT_EQ(record.FabricValueF, 1.0F);
    EXPECT_TRUE(IsEmpty(record.AxisItems[kMeanItem][kItemTrend]));
}

TEST_F(FabricStatistics, AxialMeansOfLinesIgnoreTheSense) {
    const PlotRecord& record = StatisticsOf(kLines, {{-30, 120}, {30, 120}});
    EXPECT_NEAR(record.FabricValueA, Radians(30), kTolerance);
    EXPECT_NEAR(record.FabricValueB, Radians(120), kTolerance);
    EXPECT_NEAR(record.FabricValueF, 0, kTolerance);
}

TEST_F(FabricStatistics, SetsThreeTimesAsLongAsWideAreNotSymmetricInTheTextbook) {
    // Lines about the vertical, three times as far to north and south as to east and west. The
    // program's own test lets them pass, the textbook's does not.
    Rows rows;
    for (int step = 0; step < 12; ++step) {
        const double angle = step * std::numbers::pi / 6;
        const double north = 12 * std::cos(angle);
        const double east = 4 * std::sin(angle);
        const double away = std::hypot(north, east);
        const double trend = std::atan2(east, north) * 180 / std::numbers::pi;
        rows.push_back({static_cast<std::int32_t>(std::lround(90 - away)),
                        static_cast<std::int32_t>(std::lround(trend < 0 ? trend + 360 : trend))});
    }
    const PlotRecord& record = StatisticsOf(kLines, rows);
    EXPECT_GT(record.FabricValueC, 0);
    EXPECT_EQ(record.FabricValueC, StandardErrorOfActivePlot(Formulas::Own));
    EXPECT_EQ(StandardErrorOfActivePlot(Formulas::Textbook), kNotSymmetric);
    EXPECT_TRUE(ConfidenceConeAngle(record, Formulas::Own));
    gSettings.notation.formulas = Formulas::Textbook;
    ComputeFabricStatistics();
    EXPECT_EQ(record.FabricValueC, kNotSymmetric);
    EXPECT_FALSE(ConfidenceConeAngle(record, Formulas::Textbook));
    gSettings.notation.formulas = Formulas::Own;
}

TEST_F(FabricStatistics, SymmetricSetsHaveTheSameErrorByBothFormulas) {
    // Rings of equal plunge: E1 and E2 are equal.
    for (const std::int32_t plunge : {40, 70, 89}) {
        Rows rows;
        for (std::int32_t trend = 0; trend < 360; trend += 30) {
            rows.push_back({plunge, trend});
        }
        const PlotRecord& record = StatisticsOf(kLines, rows);
        if (plunge == 40) {
            continue; // a girdle's axis is not the greatest
        }
        EXPECT_NE(StandardErrorOfActivePlot(Formulas::Textbook), kNotSymmetric) << plunge;
        EXPECT_EQ(StandardErrorOfActivePlot(Formulas::Textbook), record.FabricValueC) << plunge;
    }
}

TEST_F(FabricStatistics, AxesOfEqualEigenvaluesAreOpen) {
    const PlotRecord& one = StatisticsOf(kLines, {{40, 200}});
    EXPECT_FALSE(IsAxisDetermined(one, 1));
    EXPECT_FALSE(IsAxisDetermined(one, 2));
    EXPECT_TRUE(IsAxisDetermined(one, 3));
    const PlotRecord& rightAngle = StatisticsOf(kLines, {{0, 0}, {0, 90}});
    EXPECT_TRUE(IsAxisDetermined(rightAngle, 1));
    EXPECT_FALSE(IsAxisDetermined(rightAngle, 2));
    EXPECT_FALSE(IsAxisDetermined(rightAngle, 3));
    EXPECT_EQ(TextOf(rightAngle.AxisItems[kMeanPlaneItem][kItemText]), "undetermined");
    EXPECT_EQ(TextOf(rightAngle.AxisItems[kGirdleItem][kItemText]), "0/180");
    const PlotRecord& three = StatisticsOf(kLines, {{0, 0}, {0, 90}, {0, 45}});
    EXPECT_TRUE(IsAxisDetermined(three, 1));
    EXPECT_TRUE(IsAxisDetermined(three, 2));
    EXPECT_TRUE(IsAxisDetermined(three, 3));
}

// Properties.

TEST_F(FabricStatistics, TheOrderOfTheRowsDoesNotMatter) {
    std::mt19937 random(kSeed);
    for (const int spread : {3, 15, 65}) {
        Rows rows = RandomRows(random, 200, spread);
        const std::vector<double> expected = ResultsOf(StatisticsOf(kPolarLines, rows));
        for (int i = 0; i < 5; ++i) {
            std::shuffle(rows.begin(), rows.end(), random);
            ExpectEqualResults(ResultsOf(StatisticsOf(kPolarLines, rows)), expected);
        }
    }
}

TEST_F(FabricStatistics, AntipodesChangeNoAxialResult) {
    std::mt19937 random(kSeed);
    for (const int spread : {3, 15, 65}) {
        Rows rows = RandomRows(random, 200, spread);
        const std::vector<double> expected = ResultsOf(StatisticsOf(kLines, rows));
        for (Orientation& row : rows) {
            row.plunge = -row.plunge;
        }
        ExpectEqualResults(ResultsOf(StatisticsOf(kLines, rows)), expected);
    }
}

TEST_F(FabricStatistics, ARowTwiceCountsTwice) {
    Rows rows = kFourLines;
    rows.insert(rows.end(), kFourLines.begin(), kFourLines.end());
    const PlotRecord& record = StatisticsOf(kLines, rows);
    ExpectEigenvalues(record, 0.125, 0.25, 0.625);
    EXPECT_NEAR(record.FabricValueC, std::sqrt((0.625 - 0.53125) / 8) / 0.375, kTolerance);
}

TEST_F(FabricStatistics, AnUnsymmetricDistributionIsMarked) {
    // Tensor diag(0, 1/3, 2/3), m4 = 2/3: the statistic is 2 n / 9, and the limit lies at 5.99.
    Rows rows;
    for (int i = 0; i < 8; ++i) {
        rows.insert(rows.end(), {{90, 0}, {90, 0}, {0, 90}});
    }
    EXPECT_EQ(StatisticsOf(kLines, rows).FabricValueC, 0); // 5.3
    rows.insert(rows.end(), {{90, 0}, {90, 0}, {0, 90}});
    EXPECT_EQ(StatisticsOf(kLines, rows).FabricValueC, kNotSymmetric);
}

TEST_F(FabricStatistics, DerivedValuesFollowFromTheRecord) {
    StatisticsOf(kLines, kFourLines);
    const std::vector<double> expected = ResultsOf(ActiveRecord());
    PlotRecord& record = ActiveRecord();
    record.FabricValueC = 0;
    record.EigenResults[kGamma][kShapeNumber] = 0;
    record.EigenResults[kZeta][kShapeNumber] = 0;
    ComputeFabricDerived();
    ExpectEqualResults(ResultsOf(record), expected);
}

// Rows of the girdle panel.

TEST_F(FabricStatistics, AxisItemsHoldPlanesPolesAndTexts) {
    const PlotRecord& record = StatisticsOf(kLines, kFourLines);
    EXPECT_NEAR(NumberOf(record.AxisItems[kMeanItem][kItemPlunge]),
                std::atan(1 + std::numbers::sqrt3), kTolerance);
    EXPECT_NEAR(NumberOf(record.AxisItems[kMeanItem][kItemTrend]), std::numbers::pi / 2,
                kTolerance);
    EXPECT_NEAR(NumberOf(record.AxisItems[kMeanPlaneItem][kItemPlunge]), std::numbers::pi / 2,
                kTolerance);
    EXPECT_EQ(TextOf(record.AxisItems[kMeanPlaneItem][kItemText]), "0/180");
    EXPECT_NEAR(NumberOf(record.AxisItems[kGirdleItem][kItemPlunge]), 0, kTolerance);
    EXPECT_EQ(TextOf(record.AxisItems[kGirdleItem][kItemText]), "90/180");
}

TEST_F(FabricStatistics, AxisItemsAreWrittenInTheNotationInForce) {
    gConventions = kStrikeDipSense;
    const PlotRecord& record = StatisticsOf(kLines, {{60, 210}, {60, 210}});
    EXPECT_EQ(TextOf(record.AxisItems[kMeanPlaneItem][kItemText]),
              "300/30N"); // 30/030: strike 300, to the north
}

TEST_F(FabricStatistics, TheUserDecidesWhichAxisItemsAreShown) {
    StatisticsOf(kLines, kFourLines);
    PlotRecord& record = ActiveRecord();
    record.AxisItems[kMeanItem][kItemShown] = true;
    record.AxisItems[kMeanPlaneItem][kItemShown] = false;
    record.AxisItems[kGirdleItem][kItemShown] = true;
    record.AxisItems[kGirdleItem][kItemColour] = std::int16_t{13};
    ComputeFabricStatistics();
    EXPECT_NE(NumberOf(record.AxisItems[kMeanItem][kItemShown]), 0);
    EXPECT_EQ(NumberOf(record.AxisItems[kMeanPlaneItem][kItemShown]), 0);
    EXPECT_NE(NumberOf(record.AxisItems[kGirdleItem][kItemShown]), 0);
    EXPECT_EQ(NumberOf(record.AxisItems[kGirdleItem][kItemColour]), 13);
}

TEST_F(FabricStatistics, RowTenHasATextOnlyFromTheStatistics) {
    gPrimaryDataType = kPrimaryLine;
    gPlotDataKind = kLines;
    NewPlot();
    ComputeFabricStatistics();
    EXPECT_EQ(TextOf(ActiveRecord().AxisItems[kGirdleItem][kItemText]), "");
    AddRow(30, 40);
    ComputeFabricStatistics();
    EXPECT_NE(TextOf(ActiveRecord().AxisItems[kGirdleItem][kItemText]), "");
}

} // namespace
} // namespace quandrel
