// SPDX-License-Identifier: MIT

#include "core/plot_store.h"
#include "core/replot.h"
#include "core/settings_value.h"
#include "drawing/draw_plot.h"
#include "drawing/legend.h"
#include "drawing/plot_driver.h"
#include "drawing/plot_state.h"
#include "drawing/symbol_choice.h"
#include "edit/marks/annotation_edits.h"
#include "edit/marks/annotations.h"
#include "edit/marks/small_circles.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "stereo/data_kind.h"
#include "stereo/legend_line.h"
#include "stereo/plot_title.h"
#include "stereo/row_drawing.h"
#include "stereo/window_drawing.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <map>
#include <random>
#include <set>

namespace quandrel {
namespace {

using Kind = DrawOperation::Kind;
using Calls = std::vector<std::string>;

class PlotDriver : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPlotAxesStyle = 9;
        gSettings.gridSize = 50;
        NewPlot();
    }

    static std::vector<DrawOperation> Drawn() { return DrawnOn(Form(gActivePlot).Plot()); }

    /// Operations of a kind in the last drawing.
    static std::vector<DrawOperation> Drawn(Kind kind) {
        std::vector<DrawOperation> found;
        for (const DrawOperation& operation : Drawn()) {
            if (operation.kind == kind) {
                found.push_back(operation);
            }
        }
        return found;
    }

    /// Spoils the results of drawings, so that a new calculation becomes visible.
    void Spoil() {
        PlotRecord& record = ActiveRecord();
        former = {record.PointDensityMax, record.EigenResults[kGreatestAxis][kAxisPlunge],
                  record.GridDensityMax};
        record.PointDensityMax = kSpoilt;
        record.EigenResults[kGreatestAxis][kAxisPlunge] = kSpoilt;
        record.NumClassified = -1;
        record.GridDensityMax = kSpoilt;
        FormOf(gActivePlot).SetBoxText(PlotBox::StatsAdvanced, kOldText);
    }

    /// What has been computed since; the rest is restored.
    Calls Renewed() {
        PlotRecord& record = ActiveRecord();
        Calls renewed;
        const auto look = [&renewed](float& result, float value, const char* name) {
            if (result != kSpoilt) {
                renewed.push_back(name);
            } else {
                result = value;
            }
        };
        look(record.PointDensityMax, former[0], "densities");
        look(record.EigenResults[kGreatestAxis][kAxisPlunge], former[1], "statistics");
        if (record.NumClassified >= 0) {
            renewed.push_back("classes");
        }
        look(record.GridDensityMax, former[2], "grid");
        if (Form(gActivePlot).Told(PlotBox::StatsAdvanced) != kOldText) {
            renewed.push_back("texts");
        }
        return renewed;
    }

    Calls Replot(bool recalculate = false) {
        Spoil();
        ReplotActivePlot(recalculate);
        return Renewed();
    }

    static constexpr float kSpoilt = 12345;
    static constexpr const char* kOldText = "of an earlier state";
    std::array<float, 3> former{};
};

TEST_F(PlotDriver, APlotWithoutRowsDrawsNetAndLegendOnly) {
    ReplotActivePlot(false);
    ASSERT_EQ(Drawn().size(), 1U);
    EXPECT_EQ(Drawn()[0].kind, Kind::Circle);
    EXPECT_EQ(DrawnOn(Form(gActivePlot).Legend()).size(), 1U);
    EXPECT_EQ(Form(gActivePlot).Told(PlotBox::NumberOfData), "0");
}

/// The index of the first matching operation among those drawn; the test fails if there is none.
std::size_t PlaceOf(const std::vector<DrawOperation>& drawn,
                    const std::function<bool(const DrawOperation&)>& fits) {
    const auto found = std::ranges::find_if(drawn, fits);
    EXPECT_NE(found, drawn.end());
    return static_cast<std::size_t>(found - drawn.begin());
}

TEST_F(PlotDriver, ADrawingIsInThisOrder) {
    constexpr int kOverlayColour = 20;
    constexpr int kMarkColour = 7;
    constexpr int kGirdleColour = 11;
    constexpr int kCircleColour = 13;
    for (const std::int32_t azimuth : {100, 104, 96, 110, 99, 91}) {
        AddRow(20 + azimuth % 4, azimuth);
    }
    AddOverlay(kOverlayLines, 20, 90, MakeSymbolCode(kOverlayColour, 2, 3));
    PlotRecord& record = ActiveRecord();
    record.PlotSymbolMode = kContoursAndGrid;
    EXPECT_TRUE(AddAnnotation(kLeftMouseButton, 300, -200));
    record.PlotAnnotations->front().Colour = kMarkColour;
    record.AxisItems[3] = {true, std::string(), 0.5, 1.0, kGirdleColour, 0, 1};
    TypeCircleText(1, CirclePart::kPlunge, "30");
    TypeCircleText(1, CirclePart::kAzimuth, "200");
    TypeCircleText(1, CirclePart::kAngle, "20");
    EXPECT_EQ(ShowSmallCircle(1, true), "");
    record.PlotSmallCircles->at(1).LineColour = kCircleColour;
    record.AxisItems[kMeanPlaneItem][kItemShown] = true;
    ReplotActivePlot(true);
    const std::vector<DrawOperation> drawn = Drawn();
    const auto ofColour = [&drawn](int colour) {
        return PlaceOf(drawn, [colour](const DrawOperation& operation) {
            return operation.colour == TableColour(colour);
        });
    };
    const auto ofKind = [&drawn](Kind kind) {
        return PlaceOf(drawn,
                       [kind](const DrawOperation& operation) { return operation.kind == kind; });
    };
    const std::vector<std::size_t> places = {PlaceOf(drawn,
                                                     [](const DrawOperation& operation) { // the net
                                                         return operation.kind == Kind::Circle
                                                                && operation.radius == kNetRadius;
                                                     }),
                                             ofKind(Kind::Markers),  // densities of the grid
                                             ofKind(Kind::Polyline), // contours
                                             ofColour(kOverlayColour),
                                             ofColour(kMarkColour),
                                             ofColour(kGirdleColour),
                                             ofColour(kCircleColour)};
    EXPECT_EQ(places.front(), 0U);
    EXPECT_TRUE(std::ranges::is_sorted(places)) << ::testing::PrintToString(places);
    EXPECT_EQ(drawn.back().kind, Kind::Markers) << "the axis of the statistics";
}

TEST_F(PlotDriver, ADrawingWorksOutWhatIsStale) {
    AddRow(30, 120);
    AddRow(50, 140);
    ActiveRecord().PlotSymbolMode = kContoursAndGrid;
    EXPECT_EQ(Replot(), (Calls{"densities", "statistics", "grid", "texts"}));
    EXPECT_EQ(Replot(), Calls{"texts"});
}

TEST_F(PlotDriver, AColourChangeRecomputesNothing) {
    AddRow(30, 120);
    Replot();
    gDataSymbol.At(gActivePlot, 1) = MakeSymbolCode(8, 3, 2);
    EXPECT_EQ(Replot(), Calls{"texts"});
    AddRow(40, 130);
    EXPECT_EQ(Replot().front(), "densities") << "a new row does";
}

TEST_F(PlotDriver, TheSliderMakesTheGridStaleAtTheNextReplot) {
    AddRow(30, 120);
    ActiveRecord().PlotSymbolMode = kContours;
    Replot();
    EXPECT_EQ(Replot(), Calls{"texts"});
    gSettings.gridSize = 80;
    EXPECT_EQ(Replot(), (Calls{"grid", "texts"}));
}

TEST_F(PlotDriver, RecalculateTakesTheRowsAsChanged) {
    AddRow(30, 120);
    Replot();
    EXPECT_EQ(Replot(true).front(), "densities");
    EXPECT_EQ(ActiveRecord().RowsChanged, 0);
}

TEST_F(PlotDriver, ChangedRowsRecomputeStatisticsOfAPlotWithOverlaysToo) {
    AddRow(30, 120);
    AddOverlay(kOverlayPoles, 10, 10, CodeOfStyleRow(3));
    EXPECT_EQ(Replot().front(), "densities");
}

/// Gives the rows of the active plot the number 5, in the only class.
void ClassByNumber() {
    PlotRecord& record = ActiveRecord();
    record.HasAppendedNumeric = kTrue;
    ASSERT_TRUE(GrowAppendedColumn(AppendedColumn::Number));
    for (std::int32_t row = 1; row <= record.NumData; ++row) {
        gAppNumeric.At(gActivePlot, row) = 5;
    }
    record.ClassTable[kBaseRow][kNumberClasses] = std::int16_t{1};
    record.ClassTable[kLowestRow][kNumberClasses] = 0.0;
    record.ClassTable[kTopRow][kNumberClasses] = 10.0;
    record.ClassMode = 1;
}

TEST_F(PlotDriver, ClassifiedGridsTakeThePlaceOfTheRows) {
    AddRow(30, 120);
    ClassByNumber();
    ActiveRecord().NumClasses = 2; // contours alone
    EXPECT_EQ(Replot(), (Calls{"densities", "statistics", "classes", "grid", "texts"}));
    EXPECT_TRUE(Drawn(Kind::Markers).empty());
    ActiveRecord().NumClasses = 4;
    Replot();
    EXPECT_EQ(Drawn(Kind::Markers).size(), 1U);
}

TEST_F(PlotDriver, AnotherPlotThatIsDrawnAnewKeepsItsGrid) {
    AddRow(30, 120);
    const int first = gActivePlot;
    ActiveRecord().PlotSymbolMode = kContours;
    gSettings.gridSize = 100;
    Replot();
    ASSERT_EQ(ActiveRecord().GridSize, 100);
    NewPlot();
    gSettings.gridSize = 50;
    const float greatest = RecordOf(first).GridDensityMax;
    RecordOf(first).GridDensityMax = kSpoilt;
    RedrawPlot(first);
    EXPECT_EQ(RecordOf(first).GridDensityMax, kSpoilt) << greatest;
    EXPECT_EQ(RecordOf(first).GridSize, 100);
    EXPECT_EQ(gSettings.gridSize, 50);
}

TEST_F(PlotDriver, AClassificationThatComesOrGoesCountsTheGridAnew) {
    AddRow(30, 120);
    ActiveRecord().PlotSymbolMode = kContours;
    ClassByNumber();
    ActiveRecord().ClassMode = 0;
    const auto countsGrid = [this] { return std::ranges::count(Replot(), "grid"); };
    Replot();
    EXPECT_EQ(countsGrid(), 0);
    ActiveRecord().ClassMode = 1;
    ActiveRecord().NumClasses = 1;
    EXPECT_EQ(countsGrid(), 1);
    EXPECT_EQ(countsGrid(), 0);
    ActiveRecord().ClassMode = 0;
    EXPECT_EQ(countsGrid(), 1);
}

TEST_F(PlotDriver, ARoseIsDrawnWithoutWhatANetWorksOut) {
    AddRow(30, 120);
    ActiveRecord().PlotKind = kRose;
    EXPECT_EQ(Replot(), Calls{"texts"});
    EXPECT_FALSE(Drawn(Kind::Wedge).empty());
}

TEST_F(PlotDriver, OddSectorsOfARoseOfAFileAreNotAskedAbout) {
    AddRow(30, 120);
    ActiveRecord().PlotKind = kRose;
    ActiveRecord().RoseSectorSize = 35;
    ReplotPlot(gActivePlot, ReplotCause::File);
    EXPECT_FALSE(Drawn(Kind::Wedge).empty());
}

TEST_F(PlotDriver, AProgramThatConnectsNoDrawerDrawsNothing) {
    AddRow(30, 120);
    ConnectPlotDrawer({});
    ReplotActivePlot(true);
    EXPECT_EQ(Form(gActivePlot).TimesShown(), 0);
}

TEST_F(PlotDriver, ModeTwoOfAnOldFileDrawsLikeModeOne) {
    AddRow(30, 120);
    ActiveRecord().PlotSymbolMode = 2;
    ReplotActivePlot(false);
    EXPECT_EQ(Drawn(Kind::Markers).size(), 1U);
}

TEST_F(PlotDriver, AnUnknownModeDrawsNoRows) {
    AddRow(30, 120);
    ActiveRecord().PlotSymbolMode = 12;
    ReplotActivePlot(false);
    EXPECT_EQ(Drawn().size(), 1U);
}

TEST_F(PlotDriver, ErrorRowsAreDrawnInNoModeButKeepTheirPlace) {
    AddRow(kErrorRow, 0);
    AddRow(30, 120);
    for (const std::int16_t mode : {kGreatCircles, kPointSymbols, kBetaIntersections}) {
        ActiveRecord().PlotSymbolMode = mode;
        ReplotActivePlot(false);
        EXPECT_EQ(Drawn(Kind::Markers).size() + Drawn(Kind::Arc).size(),
                  mode == kBetaIntersections ? 0U : 1U);
    }
    EXPECT_EQ(TableOf(gActivePlot).size(), 2U);
    EXPECT_EQ(Form(gActivePlot).Told(PlotBox::NumberOfData), "1");
}

TEST_F(PlotDriver, SymbolsCarryTheOrderAndStyleOfTheirRows) {
    AddRow(30, 90, MakeSymbolCode(5, 3, 2));
    AddRow(30, 270, MakeSymbolCode(8, 2, 3));
    AddRow(60, 90, MakeSymbolCode(5, 0, 2));
    ReplotActivePlot(false);
    const auto markers = Drawn(Kind::Markers);
    ASSERT_EQ(markers.size(), 2U) << "symbol 0 hides a row";
    // Sorted by x: the pole of the plane that dips east lies west.
    EXPECT_LT(markers[0].points[0].x, 0);
    EXPECT_EQ(markers[0].colour, kBlack);
    EXPECT_EQ(markers[1].colour, (Colour{255, 0, 0}));
}

TEST_F(PlotDriver, EqualRowsShowOnceWhereTheLastOfThemStands) {
    std::mt19937 random(3);
    std::map<std::pair<double, double>, Colour> expected;
    for (int i = 0; i < 4000; ++i) {
        const auto dip = static_cast<std::int32_t>(random() % 12);
        const auto azimuth = static_cast<std::int32_t>(random() % 8 * 45);
        AddRow(dip, azimuth, MakeSymbolCode(static_cast<int>(random() % 25), 2, 3));
    }
    ReplotActivePlot(false);
    // Brute force: all rows are drawn in the order of the table; the last at a position stays
    // visible.
    const RowTable& table = TableOf(gActivePlot);
    for (std::size_t place = 0; place < table.size(); ++place) {
        expected[{table.x[place], table.y[place]}] =
            TableColour(CodeColour(gDataSymbol(gActivePlot, table.index[place])));
    }
    std::map<std::pair<double, double>, Colour> drawn;
    std::size_t count = 0;
    for (const DrawOperation& markers : Drawn(Kind::Markers)) {
        for (const Point& point : markers.points) {
            drawn[{point.x, point.y}] = markers.colour;
            ++count;
        }
    }
    EXPECT_EQ(drawn, expected);
    EXPECT_LE(count, expected.size() * 25);
}

TEST_F(PlotDriver, GreatCirclesAreThoseOfThePlanes) {
    AddRow(0, 10);
    AddRow(90, 45);
    AddRow(50, 200, MakeSymbolCode(7, 3, 2));
    ActiveRecord().PlotSymbolMode = kGreatCircles;
    ReplotActivePlot(false);
    EXPECT_EQ(Drawn(Kind::Circle).size(), 2U) << "the net and the horizontal plane";
    ASSERT_EQ(Drawn(Kind::Line).size(), 1U);
    const DrawOperation chord = Drawn(Kind::Line)[0];
    EXPECT_NEAR(chord.points[0].x + chord.points[1].x, 0, 1e-9);
    EXPECT_NEAR(std::abs(chord.points[0].x), 1000 * std::sqrt(0.5), 1);
    EXPECT_LT(chord.points[0].x * chord.points[0].y, 0) << "strike 135";
    ASSERT_EQ(Drawn(Kind::Arc).size(), 1U);
    const DrawOperation arc = Drawn(Kind::Arc)[0];
    EXPECT_EQ(arc.colour, TableColour(7));
    // The arc passes through the lowest point of the plane.
    double x = 0;
    double y = 0;
    ProjectPoint(kEqualArea, DegToRad(50), DegToRad(200), x, y);
    EXPECT_NEAR(std::hypot(x - arc.points[0].x, y - arc.points[0].y), arc.radius, 2);
}

TEST_F(PlotDriver, GreatCirclesOfLinesAreThePlanesNormalToThem) {
    ActiveRecord().PrimaryFormat = kPrimaryLine;
    ActiveRecord().DataKind = kLines;
    AddRow(0, 90);
    ActiveRecord().PlotSymbolMode = kGreatCircles;
    ReplotActivePlot(false);
    ASSERT_EQ(Drawn(Kind::Line).size(), 1U);
    EXPECT_NEAR(Drawn(Kind::Line)[0].points[0].x, 0, 1e-6) << "strikes north";
}

TEST_F(PlotDriver, BetaIntersectionsAreThoseOfTheCrossProducts) {
    std::mt19937 random(17);
    std::vector<Direction> normals;
    for (int i = 0; i < 40; ++i) {
        const auto dip = static_cast<std::int32_t>(random() % 91);
        const auto azimuth = static_cast<std::int32_t>(random() % 360);
        AddRow(dip, azimuth);
        const double d = dip * M_PI / 180;
        const double a = azimuth * M_PI / 180;
        normals.push_back({-std::sin(d) * std::cos(a), -std::sin(d) * std::sin(a), std::cos(d)});
    }
    std::set<std::pair<long, long>> expected;
    std::int64_t count = 0;
    for (std::size_t i = 0; i < normals.size(); ++i) {
        for (std::size_t j = i + 1; j < normals.size(); ++j) {
            const Direction& p = normals[i];
            const Direction& q = normals[j];
            double n = p.m * q.n - p.n * q.m;
            double e = p.n * q.l - p.l * q.n;
            double d = p.l * q.m - p.m * q.l;
            const double length = std::sqrt(n * n + e * e + d * d);
            if (length < 1e-9) {
                continue;
            }
            ++count;
            const double sign = d < 0 ? -1 : 1;
            n *= sign / length;
            e *= sign / length;
            d *= sign / length;
            const double rho = 1000 * std::sqrt(1 - d);
            const double horizontal = std::hypot(n, e);
            expected.insert({std::lround(rho * e / horizontal), std::lround(rho * n / horizontal)});
        }
    }
    ActiveRecord().PlotSymbolMode = kBetaIntersections;
    ReplotActivePlot(false);
    EXPECT_EQ(ActiveRecord().BetaCount, count);
    const std::vector<DrawOperation> markers = Drawn(Kind::Markers);
    ASSERT_EQ(markers.size(), 1U);
    std::set<std::pair<long, long>> drawn;
    for (const Point& point : markers[0].points) {
        drawn.insert({std::lround(point.x), std::lround(point.y)});
    }
    // Half-way cases may round to either side.
    std::size_t missing = 0;
    for (const auto& place : expected) {
        missing += drawn.contains(place) ? 0 : 1;
    }
    EXPECT_LE(missing, expected.size() / 100);
}

TEST_F(PlotDriver, ParallelPlanesHaveNoIntersection) {
    AddRow(45, 0);
    AddRow(45, 360);
    AddRow(90, 30);
    AddRow(90, 210);
    AddRow(45, 0);
    ActiveRecord().PlotSymbolMode = kBetaIntersections;
    ReplotActivePlot(false);
    EXPECT_EQ(ActiveRecord().BetaCount, 6) << "of ten pairs four are of parallel planes";
}

TEST_F(PlotDriver, OverlaysAreDrawnInTheirOwnForm) {
    AddRow(30, 120);
    AddOverlay(kOverlayGreatCircles, 40, 10, MakeSymbolCode(20, 8, 3));
    AddOverlay(kOverlayLines, 20, 90, MakeSymbolCode(8, 2, 3));
    ReplotActivePlot(false);
    ASSERT_EQ(Drawn(Kind::Arc).size(), 1U);
    EXPECT_EQ(Drawn(Kind::Arc)[0].colour, TableColour(20));
    ASSERT_EQ(Drawn(Kind::Markers).size(), 2U);
    EXPECT_EQ(Drawn(Kind::Markers)[1].points[0], (Point{811, 0}));
}

TEST_F(PlotDriver, ShownGirdlesAreDrawnAndTheMeanIsNone) {
    AddRow(30, 120);
    for (const std::size_t item : {0U, 3U, 9U}) {
        auto& values = ActiveRecord().AxisItems[item];
        values[kItemShown] = true;
        values[kItemPlunge] = DegToRad(40);
        values[kItemTrend] = DegToRad(70);
    }
    ActiveRecord().RowsChanged = 0; // the statistics of one row have no girdle
    ReplotActivePlot(false);
    EXPECT_EQ(Drawn(Kind::Arc).size(), 2U);
    EXPECT_EQ(Drawn(Kind::Arc)[0].state.drawStyle, 2) << "girdles of the user are dotted";
    EXPECT_EQ(Drawn(Kind::Arc)[0].state.drawMode, kDrawCopy);
    EXPECT_EQ(Drawn(Kind::Markers).size(), 2U) << "the row, and the axis of item 9";
}

TEST_F(PlotDriver, GirdlesThatTheStatisticsLeaveOpenAreNotDrawn) {
    AddRow(30, 120);
    auto& values = ActiveRecord().AxisItems[kGirdleItem];
    values[kItemShown] = true;
    values[kItemPlunge] = TaggedValue();
    values[kItemTrend] = TaggedValue();
    ReplotActivePlot(false);
    EXPECT_TRUE(Drawn(Kind::Arc).empty());
    EXPECT_EQ(Drawn(Kind::Markers).size(), 1U) << "the row alone";
}

TEST_F(PlotDriver, SillyGirdleStylesAreBroughtIntoRange) {
    auto& values = ActiveRecord().AxisItems[2];
    values = {true, std::string(), 0.5, 1.0, 1e300, -1e300, 1e300};
    ReplotActivePlot(false);
    ASSERT_EQ(Drawn(Kind::Arc).size(), 1U);
    EXPECT_EQ(Drawn(Kind::Arc)[0].colour, TableColour(24));
    EXPECT_LE(Drawn(Kind::Arc)[0].state.drawWidth, 50);
}

TEST_F(PlotDriver, SlipArrowsGoWithEveryRowThatShows) {
    AddRow(30, 120);
    AddRow(40, 100, MakeSymbolCode(5, 0, 2));
    SlipArrows arrows;
    arrows.azimuth = [](std::int32_t) { return 0.5; };
    DrawRowSymbols(ActivePlot(), WindowDrawing(gActivePlot), {1, 2}, RowStyle::Own, arrows);
    const auto markers = Drawn(Kind::Markers);
    ASSERT_EQ(markers.size(), 2U) << "symbol 0 hides its arrow too";
    EXPECT_TRUE(markers[1].text.starts_with("50/"));
    gPointDensity.At(gActivePlot, 1) = 3;
    arrows.haveHeads = false;
    DrawRowSymbols(ActivePlot(), WindowDrawing(gActivePlot), {1, 2}, RowStyle::DensityBand, arrows);
    EXPECT_EQ(Drawn(Kind::Markers)[2].colour,
              TableColour(gSymbolTable[kFirstBandSymbol + 2][kPlaceColour]));
    EXPECT_TRUE(Drawn(Kind::Markers)[3].text.starts_with("53/"));
}

TEST_F(PlotDriver, TheCaptionTellsTheSetAndTheKindOfData) {
    PlotRecord& record = ActiveRecord();
    record.PlotTitle = "a.txt: 1";
    EXPECT_EQ(TitleOfPlot(), "a.txt: 1   [Planes]     ");
    record.SecondaryFormat = kSecondaryLine;
    record.DataKind = kLines;
    EXPECT_EQ(TitleOfPlot(), "a.txt: 1   [1st Lines]      ");
    record.ShowSecondary = kTrue;
    record.DataKind = kPolarLines;
    EXPECT_EQ(TitleOfPlot(), "a.txt: 1   [2nd Polar Lines]");
    record.ShowSecondary = 0;
    record.SecondaryFormat = 0;
    record.AxesTitle = "P & T";
    EXPECT_EQ(TitleOfPlot(), "a.txt: 1   [P & T axes]");
}

TEST_F(PlotDriver, TheNumberBoxOfARoseTellsWhatItsPetalsMakeUp) {
    PlotRecord& record = ActiveRecord();
    record.PlotKind = kRose;
    record.NumValidData = 40;
    record.RoseStats[kRoseCount][kRawTotal] = 40;
    record.RoseStats[kRoseValueSum][kRawTotal] = 12.5;
    EXPECT_EQ(NumberBoxText(), "40");
    record.RoseStats[kRoseCount][kRawTotal] = 170; // grouped rows
    EXPECT_EQ(NumberBoxText(), "170 (40)");
    record.RoseType = 8;
    EXPECT_EQ(NumberBoxText(), "12.5 (40)");
    record.RoseType = 21;
    record.NumClassified = 31;
    EXPECT_EQ(NumberBoxText(), "31 (/40)");
}

TEST_F(PlotDriver, TheNumberBoxTellsClassifiedRowsOfAll) {
    AddRow(30, 120);
    ActiveRecord().ClassMode = 2;
    ActiveRecord().NumClassified = 0;
    EXPECT_EQ(NumberBoxText(), "0 (/1)");
}

TEST_F(PlotDriver, DrawingElsewhereLeavesTheWindowAndTheStalenessAlone) {
    AddRow(30, 120);
    Replot();
    const std::size_t before = Drawn().size();
    AddRow(50, 10);
    Spoil();
    RecordingSurface net(500, 500);
    RecordingSurface legend(100, 100);
    DrawPlot(ActivePlot(), PaperDrawing(ActiveRecord(), net, legend));
    EXPECT_EQ(Renewed(), Calls{});
    EXPECT_EQ(Drawn().size(), before);
    EXPECT_FALSE(net.Operations().empty());
    EXPECT_NE(ActiveRecord().RowsChanged, 0);
}

TEST_F(PlotDriver, AClosedSlotIsNotDrawn) {
    const int slot = gActivePlot;
    ReleasePlotSlot(slot);
    gActivePlot = slot;
    const int shown = Form(slot).TimesShown();
    ReplotActivePlot(true);
    EXPECT_EQ(Form(slot).TimesShown(), shown);
    EXPECT_EQ(status.BusyDepth(), 0);
}

TEST_F(PlotDriver, TheSymbolButtonsSkipModeTwo) {
    AddRow(30, 120);
    const std::vector<std::pair<int, std::int16_t>> modes = {{0, 0}, {1, 1}, {2, 3}, {3, 4},
                                                             {4, 5}, {5, 6}, {6, 7}};
    for (const auto& [button, mode] : modes) {
        SetPlotSymbol(button);
        EXPECT_EQ(ActiveRecord().PlotSymbolMode, mode);
    }
}

TEST_F(PlotDriver, OnAPlotWithOverlaysTheButtonsActOnTheChosenData) {
    AddRow(30, 120);
    AddOverlay(kOverlayPoles, 40, 10, CodeOfStyleRow(3));
    SetPlotSymbol(0);
    EXPECT_EQ(ActiveRecord().OverlayKind[1], kOverlayPoles);
    EXPECT_EQ(ActiveRecord().PlotSymbolMode, kGreatCircles) << "main rows at first";
    SetPlotSymbol(4);
    EXPECT_EQ(ActiveRecord().PlotSymbolMode, kGridDensitySymbols);
    FigureLayer overlay;
    overlay.LayerOf = kLayerOfOverlay;
    overlay.LayerIndex = 1;
    ChooseData(ActivePlot(), overlay);
    SetPlotSymbol(0);
    EXPECT_EQ(ActiveRecord().OverlayKind[1], kOverlayGreatCircles);
    EXPECT_EQ(ActiveRecord().PlotSymbolMode, kGridDensitySymbols);
    EXPECT_TRUE(ActiveRecord().Layers.empty());
    ActiveRecord().OverlayKind[1] = kOverlayPolarLines;
    SetPlotSymbol(0);
    EXPECT_EQ(ActiveRecord().OverlayKind[1], kOverlayPolarLines) << "lines have no other form";
    EXPECT_FALSE(ActiveRecord().Layers.empty()) << "their planes are a layer";
}

TEST_F(PlotDriver, ChangingTheNetMovesTheRowsAndMarksThemChanged) {
    AddRow(60, 270);
    ReplotActivePlot(false);
    // The pole plunges 30 to the east: sqrt(1 - sin 30) and tan 30 of 1000.
    EXPECT_EQ(TableOf(gActivePlot).x[0], 707);
    Spoil();
    ChangePlotKind(kEqualAngle);
    EXPECT_EQ(TableOf(gActivePlot).x[0], 577);
    EXPECT_EQ(Renewed().front(), "densities");
}

TEST_F(PlotDriver, LookingChangesNothingThatIsToBeSaved) {
    AddRow(60, 270);
    AddRow(30, 120);
    ActiveRecord().SecondaryFormat = kSecondaryLine;
    ActiveRecord().Modified = 0;
    for (const std::int16_t kind : {kEqualAngle, kRose, kEqualArea}) {
        ChangePlotKind(kind);
        EXPECT_EQ(ActiveRecord().Modified, 0) << kind;
    }
    for (int button = 0; button <= 6; ++button) {
        SetPlotSymbol(button);
        EXPECT_EQ(ActiveRecord().Modified, 0) << button;
    }
    for (int button = 0; button < kDisplayButtons; ++button) {
        ShowPlotPart(button, !IsPlotPartShown(button));
        EXPECT_EQ(ActiveRecord().Modified, 0) << button;
    }
    ChooseGridSize(kFinestGrid);
    UseGridSize();
    UseAdvancedStatistics(true);
    SetDataType(kLines);
    EXPECT_EQ(ActiveRecord().Modified, 0);
    AddOverlay(kOverlayPoles, 40, 10, CodeOfStyleRow(3));
    ActiveRecord().Modified = 0;
    FigureLayer overlay;
    overlay.LayerOf = kLayerOfOverlay;
    overlay.LayerIndex = 1;
    ChooseData(ActivePlot(), overlay);
    SetPlotSymbol(0);
    EXPECT_EQ(ActiveRecord().OverlayKind[1], kOverlayGreatCircles);
    EXPECT_EQ(ActiveRecord().Modified, 0);
    ActiveRecord().Modified = kTrue;
    ChangePlotKind(kEqualAngle);
    EXPECT_NE(ActiveRecord().Modified, 0) << "an edit before is still to be saved";
}

TEST_F(PlotDriver, ChangingTheDataTypeOfALoadedPlotAsksFirst) {
    ActiveRecord().PrimaryFormat = kPrimaryLine;
    AddRow(30, 120);
    Expect("This will replot the data in the active plot:", Button::Cancel);
    EXPECT_FALSE(ChangeDataKind(kLines));
    EXPECT_EQ(ActiveRecord().DataKind, kPlanes);
    Expect("Continue?", Button::Ok);
    EXPECT_TRUE(ChangeDataKind(kLines));
    EXPECT_NEAR(TableOf(gActivePlot).plunge[0], DegToRad(30), 1e-15);
    ActiveRecord().PrimaryFormat = kPrimaryPlane;
    Expect("You are trying to plot polar lines with plane data", Button::Ok);
    EXPECT_TRUE(ChangeDataKind(kPolarLines));
}

TEST_F(PlotDriver, ButtonsDoNothingWhileALoopRuns) {
    AddRow(30, 120);
    gBusy = true;
    SetPlotSymbol(0);
    ChangePlotKind(kEqualAngle);
    EXPECT_FALSE(ChangeDataKind(kLines));
    gBusy = false;
    EXPECT_EQ(ActiveRecord().PlotSymbolMode, kPointSymbols);
    EXPECT_EQ(ActiveRecord().PlotKind, kEqualArea);
}

class LegendTest : public PlotDriver {
protected:
    static Calls Texts() {
        Calls texts;
        for (const LegendLine& line :
             LegendLines(ActivePlot(), gSettings.styles, gSettings.notation.formulas)) {
            texts.push_back(line.text);
        }
        return texts;
    }
};

TEST_F(LegendTest, NamesTheDataAndWhatTheSymbolsAre) {
    ActiveRecord().PlotTitle = "Plot 1: Untitled";
    AddRow(30, 120);
    EXPECT_EQ(Texts(), (Calls{"Data: Plot 1: Untitled", "Poles to planes"}));
    ActiveRecord().MainFiles = {"/a/beds.txt", "/b/more.txt"};
    ActiveRecord().PlotSymbolMode = kGreatCircles;
    EXPECT_EQ(Texts(), (Calls{"Data: beds.txt", " + more.txt", "Planes"}));
}

TEST_F(LegendTest, PolarLinesShowBothSymbolsWhenBothOccur) {
    ActiveRecord().PrimaryFormat = kPrimaryLine;
    ActiveRecord().DataKind = kPolarLines;
    AddRow(30, 120);
    EXPECT_EQ(Texts().back(), "Polar lines");
    AddRow(-30, 120, CodeOfStyleRow(1));
    const Calls texts = Texts();
    EXPECT_EQ(texts[1], "Polar lines, 'down' plunge");
    EXPECT_EQ(texts[2], "Polar lines, 'up' plunge");
}

TEST_F(LegendTest, BetaIntersectionsAreCounted) {
    AddRow(30, 120);
    AddRow(40, 10);
    ActiveRecord().PlotSymbolMode = kBetaIntersections;
    ActiveRecord().BetaCount = 1;
    EXPECT_EQ(Texts(), (Calls{"Data: ", "1 intersections of", "2 planes"}));
    EXPECT_EQ(LegendLines(ActivePlot(), gSettings.styles, gSettings.notation.formulas)[2].sample,
              LegendSample::Indent);
}

TEST_F(LegendTest, EachPlotKeepsItsCountOfIntersections) {
    AddRow(30, 120);
    AddRow(40, 10);
    SetPlotSymbol(2);
    const int first = gActivePlot;
    NewPlot();
    ReplotActivePlot(false);
    gActivePlot = first;
    EXPECT_EQ(Texts()[1], "1 intersections of");
}

TEST_F(LegendTest, AHiddenLegendDrawsNothing) {
    AddRow(30, 120);
    ActiveRecord().LayerVisible[kLegendLayer] = 0;
    ReplotActivePlot(false);
    EXPECT_TRUE(DrawnOn(Form(gActivePlot).Legend()).empty());
}

TEST_F(LegendTest, ARoseHasNoSamplesOfSymbols) {
    AddRow(30, 120);
    ActiveRecord().PlotKind = kRose;
    EXPECT_TRUE(std::ranges::none_of(
        LegendLines(ActivePlot(), gSettings.styles, gSettings.notation.formulas),
        [](const LegendLine& line) { return line.sample == LegendSample::Symbol; }));
}

TEST_F(LegendTest, TheSampleOfGreatCirclesShowsWhenAllRowsPointUp) {
    AddRow(-30, 120, MakeSymbolCode(8, 2, 3));
    ActiveRecord().PlotSymbolMode = kGreatCircles;
    EXPECT_EQ(LegendLines(ActivePlot(), gSettings.styles, gSettings.notation.formulas)[1].code,
              MakeSymbolCode(8, 2, 3));
}

TEST_F(LegendTest, KinematicAxesAreNamed) {
    AddRow(30, 120);
    ActiveRecord().AxesTitle = "P & T";
    // The symbols of the derived rows, each with the numbers of its axes below it.
    Calls named;
    for (const LegendLine& line :
         LegendLines(ActivePlot(), gSettings.styles, gSettings.notation.formulas)) {
        if (line.sample == LegendSample::Symbol) {
            named.push_back(line.text);
        }
    }
    EXPECT_EQ(named, (Calls{"P Shortening axes", "T Extension axes"}));
    EXPECT_EQ(Texts()[1], "P Shortening axes");
    ActiveRecord().AxesTitle = "T";
    EXPECT_EQ(Texts(), (Calls{"Data: ", "T Extensional axes"}));
}

TEST_F(LegendTest, EveryOverlayIsNamedWithItsSample) {
    AddRow(30, 120);
    AddOverlay(kOverlayGreatCircles, 40, 10, MakeSymbolCode(20, 8, 3));
    ActiveRecord().OverlayFiles[1] = {"/a/cleavage.txt", "/a/more.txt"};
    AddOverlay(kOverlayLines, 20, 90, MakeSymbolCode(8, 2, 3));
    const std::vector<LegendLine> lines =
        LegendLines(ActivePlot(), gSettings.styles, gSettings.notation.formulas);
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[2].text, "cleavage.txt + more.txt");
    EXPECT_EQ(lines[2].sample, LegendSample::GreatCircle);
    EXPECT_EQ(lines[3].text, "Overlay 2");
    EXPECT_EQ(lines[3].code, MakeSymbolCode(8, 2, 3));
}

TEST_F(LegendTest, AFullBoxEndsInDotsAndLongTextsAreCut) {
    AddRow(30, 120);
    ActiveRecord().MainFiles = {"/a/" + std::string(300, 'x') + ".txt"};
    for (int i = 0; i < 60; ++i) {
        ActiveRecord().MainFiles.push_back("/a/f" + std::to_string(i));
    }
    ReplotActivePlot(false);
    const auto operations = DrawnOn(Form(gActivePlot).Legend());
    EXPECT_EQ(operations.back().text, "...");
    const RecordingSurface& box = Form(gActivePlot).Legend();
    for (const DrawOperation& operation : operations) {
        EXPECT_LE(operation.points[0].x + box.TextWidth(operation.text), box.Scale().right + 1e-9);
        EXPECT_GE(operation.points[0].y - box.TextHeight(), box.Scale().bottom - 1e-9);
    }
    EXPECT_TRUE(operations.front().text.ends_with("..."));
}

TEST_F(LegendTest, SamplesAreAsLargeAsTheSymbolsOfThePlot) {
    AddRow(30, 120);
    ReplotActivePlot(false);
    const RecordingForm& form = Form(gActivePlot);
    EXPECT_NEAR(form.Legend().PixelSize().x, form.Plot().PixelSize().x, 1e-12);
    EXPECT_NEAR(form.Legend().PixelSize().y, form.Plot().PixelSize().y, 1e-12);
}

} // namespace
} // namespace quandrel
