// SPDX-License-Identifier: MIT
//
// The density of a plot by its own choice: values, levels, contours, drawing and legend.

#include "core/settings_value.h"
#include "density/density_legend.h"
#include "density/density_levels.h"
#include "density/direct_density.h"
#include "density/draw_density.h"
#include "density/grid_density.h"
#include "density/maxima_table.h"
#include "density/plot_density.h"
#include "density/point_density.h"
#include "stereo/row_bands.h"
#include "stereo/window_drawing.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <array>
#include <cmath>
#include <random>

namespace quandrel {
namespace {

constexpr std::array kSmoothMethods = {kDensityByKambLinear, kDensityByKambSquare,
                                       kDensityByKambExponential, kDensityByKernel};

constexpr std::array kAllMethods = {kDensityByCone,
                                    kDensityByKamb,
                                    kDensityByKambLinear,
                                    kDensityByKambSquare,
                                    kDensityByKambExponential,
                                    kDensityByKernel};

class PlotDensities : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        BuildStyleTables();
        gPrimaryDataType = kPrimaryLine;
        gPlotDataKind = kLines;
        NewPlot();
        ActiveRecord().PlotSymbolMode = kContours;
    }

    /// Rows about 50/120, and half as many anywhere.
    static void AddRows(int count) {
        std::mt19937 random(11);
        std::uniform_int_distribution<int> near(-12, 12);
        std::uniform_int_distribution<int> dip(0, 90);
        std::uniform_int_distribution<int> azimuth(0, 359);
        for (int i = 0; i < count; ++i) {
            if (i % 3 == 0) {
                AddRow(dip(random), azimuth(random));
            } else {
                AddRow(50 + near(random), 120 + near(random));
            }
        }
    }

    static const PlotDensity& Density(std::int16_t method, std::int16_t unit = kMultiplesUnit) {
        ActiveRecord().DensityMethod = method;
        ActiveRecord().DensityUnit = unit;
        WorkOutDensity(ActivePlot(), nullptr);
        return *DensityOf(ActivePlot());
    }

    static std::vector<Direction> Rows() {
        std::vector<Direction> rows;
        for (std::int32_t row = 1; row <= ActiveRecord().NumData; ++row) {
            rows.push_back(LineToCosines(DegToRad(gDataDip(gActivePlot, row)),
                                         DegToRad(gDataAz(gActivePlot, row))));
        }
        return rows;
    }
};

TEST_F(PlotDensities, TheFirstChoiceShowsTheCountsOfTheCone) {
    AddRows(30);
    EXPECT_FALSE(HasDensityChoice(ActiveRecord()));
    WorkOutDensity(ActivePlot(), nullptr);
    EXPECT_EQ(DensityOf(ActivePlot()), nullptr);
    ActiveRecord().BandPalette = 2;
    EXPECT_FALSE(HasDensityChoice(ActiveRecord())) << "lines have no palette";
    ActiveRecord().ContourPicture = kFilledBands;
    EXPECT_TRUE(HasDensityChoice(ActiveRecord()));
}

TEST_F(PlotDensities, AreTheSumsOfTheRowsInTheUnit) {
    AddRows(240);
    const std::vector<Direction> rows = Rows();
    std::mt19937 random(3);
    std::uniform_real_distribution<double> plunge(0, kPi / 2);
    std::uniform_real_distribution<double> trend(0, kTwoPi);
    for (std::int16_t method = kDensityByCone; method <= kDensityByKernel; ++method) {
        const PlotDensity& density = Density(method);
        const DensityFormula& formula = density.Formula();
        EXPECT_EQ(formula.rows, 240);
        for (int i = 0; i < 100; ++i) {
            const MeasuredLine place{plunge(random), trend(random)};
            const double sum = DirectDensity(formula, rows, {}, DirectionOf(place));
            EXPECT_NEAR(density.ValueAt(place),
                        ValueOf(formula, DensityUnit::MultiplesOfUniform, sum),
                        5e-4 * density.Greatest().value)
                << method;
        }
    }
}

TEST_F(PlotDensities, OfPolarLinesCountTheirSense) {
    ActiveRecord().DataKind = kPolarLines;
    for (int i = 0; i < 20; ++i) {
        AddRow(-60, 40 + i % 5);
    }
    const PlotDensity& density = Density(kDensityByKernel);
    EXPECT_LT(density.ValueAt({DegToRad(60), DegToRad(42)}), 1e-3) << "they point up";
    EXPECT_EQ(Density(kDensityByCone, kMultiplesUnit).Formula().sense, LineSense::Axes);
}

TEST_F(PlotDensities, HaveContoursOnTheirLevels) {
    AddRows(240);
    ActiveRecord().LevelRule = kEvenLevels;
    for (const std::int16_t method : kSmoothMethods) {
        const PlotDensity& density = Density(method);
        ASSERT_GE(density.Levels().size(), 4U) << method;
        ASSERT_EQ(density.Contours().size(), density.Levels().size());
        for (std::size_t level = 0; level < density.Levels().size(); ++level) {
            const double value = density.Levels()[level];
            const double tolerance = std::max(1e-3 * value, 2e-4 * density.Greatest().value);
            for (const FieldLine& line : density.Contours()[level].lines) {
                for (const NetPlace& vertex : line.vertices) {
                    const double found =
                        density.ValueAt({DegToRad(vertex.plunge), DegToRad(vertex.trend)});
                    ASSERT_NEAR(found, value, tolerance) << method;
                }
            }
        }
    }
}

// Of polar lines a contour may end anywhere on the primitive, but nowhere else.
TEST_F(PlotDensities, EndTheContoursOfPolarLinesOnThePrimitive) {
    gPlotDataKind = kPolarLines;
    NewPlot();
    ActiveRecord().PlotSymbolMode = kContours;
    for (int i = 0; i < 60; ++i) {
        AddRow(i % 7 - 3, 80 + i % 11);
    }
    for (const std::int16_t method : kAllMethods) {
        std::size_t open = 0;
        for (const PlotDensity::Contour& contour : Density(method).Contours()) {
            for (const FieldLine& line : contour.lines) {
                ASSERT_GE(line.vertices.size(), 3U) << method;
                if (!line.isClosed) {
                    EXPECT_EQ(line.vertices.front().plunge, 0) << method;
                    EXPECT_EQ(line.vertices.back().plunge, 0) << method;
                    ++open;
                }
            }
        }
        EXPECT_GT(open, 0U) << method;
    }
}

TEST_F(PlotDensities, EndTheirContoursAtBothEndsOfADiameter) {
    for (int i = 0; i < 60; ++i) {
        AddRow(i % 7, 80 + i % 11);
    }
    for (const std::int16_t method : kAllMethods) {
        std::vector<double> ends;
        for (const PlotDensity::Contour& contour : Density(method).Contours()) {
            for (const FieldLine& line : contour.lines) {
                if (!line.isClosed) {
                    EXPECT_EQ(line.vertices.front().plunge, 0) << method;
                    EXPECT_EQ(line.vertices.back().plunge, 0) << method;
                    ends.push_back(line.vertices.front().trend);
                    ends.push_back(line.vertices.back().trend);
                }
            }
        }
        EXPECT_FALSE(ends.empty());
        for (const double end : ends) {
            EXPECT_TRUE(std::ranges::any_of(ends, [end](double other) {
                return std::abs(std::remainder(end - other - 180, 360)) < 1e-6;
            })) << method;
        }
    }
}

TEST_F(PlotDensities, LeaveTheFieldsOfTheRecordToTheCone) {
    AddRows(60);
    ComputePointDensities();
    ComputeGridDensity();
    const float points = ActiveRecord().PointDensityMax;
    const float grid = ActiveRecord().GridDensityMax;
    std::vector<std::int32_t> bands;
    for (std::int32_t row = 1; row <= 60; ++row) {
        bands.push_back(ActivePlot().rows.pointDensity(row));
    }
    ActiveRecord().PlotSymbolMode = kPointDensitySymbols;
    const PlotDensity& density = Density(kDensityByKambExponential, kSigmaUnit);
    EXPECT_EQ(ActiveRecord().PointDensityMax, points);
    EXPECT_EQ(ActiveRecord().GridDensityMax, grid);
    const auto* const shown = ActivePlot().attachments.Find<RowBands>();
    ASSERT_NE(shown, nullptr);
    for (std::int32_t row = 1; row <= 60; ++row) {
        const auto place = static_cast<std::size_t>(row);
        EXPECT_EQ(ActivePlot().rows.pointDensity(row), bands[place - 1]);
        const double value = density.ValueAt(
            {DegToRad(gDataDip(gActivePlot, row)), DegToRad(gDataAz(gActivePlot, row))});
        const auto reached = std::ranges::count_if(
            density.Levels(), [value](double level) { return value >= level; });
        EXPECT_EQ(shown->ofRow[place], 1 + reached);
    }
    ActiveRecord().DensityMethod = kDensityByCone;
    ActiveRecord().DensityUnit = kPerCentInConeUnit;
    WorkOutDensity(ActivePlot(), nullptr);
    EXPECT_EQ(ActivePlot().attachments.Find<RowBands>(), nullptr);
}

TEST_F(PlotDensities, AreKeptWhileNothingOfThemChanges) {
    AddRows(60);
    const PlotDensity* const first = &Density(kDensityByKernel);
    ActiveRecord().BandPalette = 3;
    ActiveRecord().BandOpacity = 0.5;
    ActiveRecord().ContourPicture = kFilledBands;
    EXPECT_EQ(&Density(kDensityByKernel), first);
    AddRow(10, 10);
    EXPECT_EQ(Density(kDensityByKernel).Formula().rows, 61);
}

TEST_F(PlotDensities, HaveAnEnvelopeWhereItIsShown) {
    AddRows(60);
    ActiveRecord().ShowEnvelope = kTrue;
    const PlotDensity& density = Density(kDensityByKambExponential, kDeviationUnit);
    const DensityEnvelope* const envelope = EnvelopeOf(ActivePlot());
    ASSERT_NE(envelope, nullptr);
    EXPECT_GT(envelope->level, 2);
    EXPECT_LT(envelope->level, 6);
    ASSERT_FALSE(envelope->lines.empty());
    for (const FieldLine& line : envelope->lines) {
        const NetPlace& vertex = line.vertices.front();
        EXPECT_NEAR(density.ValueAt({DegToRad(vertex.plunge), DegToRad(vertex.trend)}),
                    envelope->level, 1e-3 * envelope->level);
    }
    ActiveRecord().ShowEnvelope = 0;
    EXPECT_EQ(EnvelopeOf(ActivePlot()), nullptr);
}

TEST_F(PlotDensities, ExceedACountWhereTheyAreGreater) {
    AddRows(60);
    const PlotDensity& density = Density(kDensityByKamb, kCountsUnit);
    const double greatest = density.Greatest().value;
    EXPECT_TRUE(density.LinesAbove(greatest).empty()) << "as many rows are not more";
    const std::vector<FieldLine> lines = density.LinesAbove(greatest - 1);
    ASSERT_FALSE(lines.empty());
    for (const FieldLine& line : lines) {
        for (const NetPlace& vertex : line.vertices) {
            const Direction at = DirectionOf(vertex);
            const Direction top = DirectionOf(density.Greatest().place);
            EXPECT_GT(std::abs(at.l * top.l + at.m * top.m + at.n * top.n), 0.8);
        }
    }
}

TEST_F(PlotDensities, AreDrawnAsPathsWithinThePrimitive) {
    AddRows(60);
    ActiveRecord().ContourPicture = kFilledBands;
    ActiveRecord().BandPalette = 1;
    const PlotDensity& density = Density(kDensityByKernel);
    const Drawing drawing = WindowDrawing(gActivePlot);
    FormOf(gActivePlot).PlotSurface().Clear(kWhite);
    drawing.plot.SetUserScale(kPlotScale);
    FillBands(ActiveRecord(), drawing, density);
    std::size_t paths = 0;
    for (const DrawOperation& operation : DrawnOn(Form(gActivePlot).Plot())) {
        if (operation.kind != DrawOperation::Kind::Path) {
            continue;
        }
        EXPECT_EQ(operation.state.fillColour,
                  ColourOfBand(drawing.styles, ActiveRecord(), static_cast<int>(paths),
                               static_cast<int>(density.Levels().size())));
        ++paths;
        for (const std::vector<Point>& ring : operation.rings) {
            for (const Point& point : ring) {
                EXPECT_LE(std::hypot(point.x, point.y), 1000 + 1e-6);
            }
        }
    }
    EXPECT_EQ(paths, density.Levels().size());
}

TEST_F(PlotDensities, MarkMaximaInWhiteOnDarkBands) {
    AddRows(60);
    ActiveRecord().BandPalette = 2; // cool, the densest are dark
    const PlotDensity& density = Density(kDensityByKambExponential);
    const Drawing drawing = WindowDrawing(gActivePlot);
    const auto coloursFor = [&](std::int16_t picture, double opacity) {
        ActiveRecord().ContourPicture = picture;
        ActiveRecord().BandOpacity = opacity;
        const std::size_t before = DrawnOn(Form(gActivePlot).Plot()).size();
        DrawMaxima(ActiveRecord(), drawing, density);
        const auto& all = DrawnOn(Form(gActivePlot).Plot());
        std::vector<Colour> colours;
        for (std::size_t i = before; i < all.size(); ++i) {
            if (all[i].kind == DrawOperation::Kind::Line) {
                colours.push_back(all[i].colour);
            }
        }
        return colours;
    };
    ASSERT_FALSE(coloursFor(kFilledBands, 1).empty());
    EXPECT_EQ(coloursFor(kFilledBands, 1).front(), kWhite) << "the highest";
    EXPECT_NE(coloursFor(kFilledBands, 0.2).front(), kWhite) << "translucent bands are light";
    EXPECT_NE(coloursFor(kContourLines, 1).front(), kWhite);
}

TEST_F(PlotDensities, NameMethodUnitAndLevelsInTheLegend) {
    AddRows(60);
    ActiveRecord().LevelRule = kLevelsByHand;
    ActiveRecord().LevelsByHand = "2, 4";
    (void)Density(kDensityByKambExponential, kSigmaUnit);
    std::vector<LegendLine> lines = BandLegendLines(ActivePlot(), gSettings.styles);
    ASSERT_EQ(lines.size(), 5U);
    EXPECT_EQ(lines[0].text, "Kamb, exponential, k = 3");
    EXPECT_EQ(lines[1].text, "Sigma");
    EXPECT_EQ(lines[2].text, " > 2 sigma");
    EXPECT_EQ(lines[3].text, " > 4 sigma");
    EXPECT_TRUE(lines[4].text.starts_with("(Max. ="));
    ActiveRecord().ContourPicture = kFilledBands;
    lines = BandLegendLines(ActivePlot(), gSettings.styles);
    EXPECT_EQ(lines[2].sample, LegendSample::Band);
    EXPECT_EQ(lines[2].text, " 2 - 4");
    EXPECT_EQ(lines[3].text, " > 4");
}

TEST_F(PlotDensities, ListTheirMaximaWithTheRowsAbout) {
    for (int i = 0; i < 30; ++i) {
        AddRow(60, 100);
        AddRow(20, 250 + i % 2);
    }
    AddRow(5, 10);
    (void)Density(kDensityByKambExponential, kSigmaUnit);
    const std::vector<DensityMaximum> maxima = MaximaOf(ActivePlot());
    ASSERT_EQ(maxima.size(), 2U);
    EXPECT_NEAR(maxima[0].at.place.plunge, 60, 0.1);
    EXPECT_NEAR(maxima[0].at.place.trend, 100, 0.1);
    EXPECT_NEAR(maxima[1].at.place.trend, 250.5, 0.1);
    EXPECT_EQ(maxima[0].rows, 30);
    EXPECT_EQ(maxima[1].rows, 30);
    EXPECT_TRUE(TextOfMaxima(ActivePlot(), maxima)
                    .starts_with("No.\tPlunge\tTrend\tSigma\tRows\n1\t60.0\t"));
}

TEST(LevelsOfText, AreSortedNumbersAboveNought) {
    EXPECT_EQ(LevelsOfText("2, 4, 8"), (std::vector<double>{2, 4, 8}));
    EXPECT_EQ(LevelsOfText(" 8;0.5 2"), (std::vector<double>{0.5, 2, 8}));
    for (const char* const text : {"", " ", "2, 2", "0", "-1", "2, x",
                                   "1 2 3 4 5 6 7 8 9 10 11 12 "
                                   "13 14 15 16 17 18 19 20 21 22 23 24 25"}) {
        EXPECT_EQ(LevelsOfText(text), std::nullopt) << text;
    }
}

TEST(LevelsOf, FollowTheirRule) {
    RecordDensityView view;
    view.DensityMethod = kDensityByKernel;
    view.DensityUnit = kMultiplesUnit;
    EXPECT_EQ(LevelsOf(view, 9), (std::vector<double>{1, 2, 4, 8}));
    EXPECT_TRUE(LevelsOf(view, 0.5).empty());
    EXPECT_TRUE(LevelsOf(view, 0).empty());
    EXPECT_EQ(LevelsOf(view, 1e9).size(), 9U);
    view.LevelRule = kEvenLevels;
    EXPECT_EQ(LevelsOf(view, 9), (std::vector<double>{2, 4, 6, 8}));
    view.LevelStep = 2.5;
    EXPECT_EQ(LevelsOf(view, 9), (std::vector<double>{2.5, 5, 7.5}));
    view.LevelStep = 0.001;
    EXPECT_EQ(LevelsOf(view, 9).size(), 24U);
    view.LevelRule = kLevelsByHand;
    view.LevelsByHand = "3, 1, 20";
    EXPECT_EQ(LevelsOf(view, 9), (std::vector<double>{1, 3}));
    view.DensityMethod = kDensityByKamb;
    view.DensityUnit = kSigmaUnit;
    view.LevelRule = kDoublingLevels;
    EXPECT_EQ(LevelsOf(view, 9), (std::vector<double>{2, 4, 8}));
}

TEST(UnitShown, IsOneThatTheMethodHas) {
    RecordDensityView view;
    view.DensityMethod = kDensityByKernel;
    view.DensityUnit = kSigmaUnit;
    EXPECT_EQ(UnitShown(view), DensityUnit::MultiplesOfUniform);
    view.DensityMethod = kDensityByCone;
    EXPECT_EQ(UnitShown(view), DensityUnit::PerCentInCone);
    view.DensityMethod = kDensityByKambSquare;
    view.DensityUnit = kCountsUnit;
    EXPECT_EQ(UnitShown(view), DensityUnit::Sigma);
}

} // namespace
} // namespace quandrel
