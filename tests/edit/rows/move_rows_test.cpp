// SPDX-License-Identifier: MIT

#include "core/data_format.h"
#include "edit/history/edit_step.h"
#include "edit/history/undo.h"
#include "edit/rows/move_rows.h"
#include "edit/selection/marquee.h"
#include "orientation/projection.h"
#include "support/measured.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <cmath>
#include <random>

namespace quandrel {
namespace {

using namespace testing;

using Pair = std::pair<int, int>;

class MoveRows : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        ClearSelection();
        ForgetUndo();
        NewPlot();
        SetKind(kPrimaryLine, kLines);
    }

    void TearDown() override {
        ClearSelection();
        ForgetUndo();
        EngineTest::TearDown();
    }

    static void SetKind(std::int16_t format, std::int16_t kind) {
        ActiveRecord().PrimaryFormat = format;
        ActiveRecord().DataKind = kind;
    }

    static Pair Row(std::int32_t row) {
        return {gDataDip(gActivePlot, row), gDataAz(gActivePlot, row)};
    }

    static Pair Second(std::int32_t row) {
        return {gData2Dip(gActivePlot, row), gData2Az(gActivePlot, row)};
    }

    static void AddSecond(std::int32_t row, int dip, int azimuth) {
        int secondary = 1;
        GrowDataColumns(secondary, row);
        gData2Dip.At(gActivePlot, row) = dip;
        gData2Az.At(gActivePlot, row) = azimuth;
    }
};

/// Distance from the centre of the equal area net by its textbook formula.
double RadiusOf(double plunge) {
    return 1000 * std::sqrt(2) * std::sin((90 - plunge) / 2 * kPi / 180);
}

TEST_F(MoveRows, ALineGoesWhereItsPlaceGoes) {
    AddRow(90, 0);
    SelectAll();
    EXPECT_EQ(MoveSelection(RadiusOf(30), 0), 1);
    EXPECT_EQ(Row(1), (Pair{30, 90}));
    EXPECT_EQ(MoveSelection(0, -RadiusOf(30)), 1);
    EXPECT_EQ(Row(1).second, 135);
    EXPECT_NE(ActiveRecord().Modified, 0);
    EXPECT_EQ(gLastEditKind, kMoveEdit);
}

TEST_F(MoveRows, APlaneMovesByItsPole) {
    SetKind(kPrimaryPlane, kPlanes);
    AddRow(0, 0); // the pole is the centre
    SelectAll();
    EXPECT_EQ(MoveSelection(RadiusOf(30), 0), 1); // the pole plunges 30 to the east
    EXPECT_EQ(Row(1), (Pair{60, 270}));
}

TEST_F(MoveRows, TheSignOfThePlungeStays) {
    SetKind(kPrimaryLine, kPolarLines);
    AddRow(-60, 0);
    AddRow(60, 0);
    SelectAll();
    EXPECT_EQ(MoveSelection(0, RadiusOf(20) - RadiusOf(60)), 2);
    EXPECT_EQ(Row(1), (Pair{-20, 0}));
    EXPECT_EQ(Row(2), (Pair{20, 0}));
}

TEST_F(MoveRows, AnUpwardLineMovedToTheRimPointsAcrossTheNet) {
    SetKind(kPrimaryLine, kPolarLines);
    AddRow(-10, 90);
    SelectAll();
    EXPECT_EQ(MoveSelection(RadiusOf(0) - RadiusOf(10), 0), 1);
    EXPECT_EQ(Row(1), (Pair{0, 270})) << "its lower end was at 090";
}

TEST_F(MoveRows, RowsThrownOutsideStay) {
    AddRow(10, 90);
    AddRow(80, 90);
    SelectAll();
    EXPECT_EQ(MoveSelection(200, 0), 1);
    EXPECT_EQ(Row(1), (Pair{10, 90}));
    EXPECT_NE(Row(2), (Pair{80, 90}));
    EXPECT_EQ(MoveSelection(5000, 5000), 0);
}

TEST_F(MoveRows, AMoveOfNothingChangesNothing) {
    AddRow(33, 77);
    SelectAll();
    ActiveRecord().Modified = 0;
    EXPECT_EQ(MoveSelection(0, 0), 0);
    EXPECT_EQ(MoveSelection(0.3, -0.3), 0); // to the same whole degrees
    EXPECT_EQ(ActiveRecord().Modified, 0);
    EXPECT_EQ(gLastEditKind, kNoEdit);
    EXPECT_EQ(Row(1), (Pair{33, 77}));
}

TEST_F(MoveRows, UnselectedRowsStay) {
    AddRow(80, 90);
    AddRow(80, 270);
    StandMarquee(gActivePlot, {1, 500}, {500, -500});
    SelectRowsInMarquee();
    EXPECT_EQ(MoveSelection(0, 300), 1);
    EXPECT_EQ(Row(2), (Pair{80, 270}));
}

TEST_F(MoveRows, TheSetThatIsShownTakesTheMove) {
    ActiveRecord().SecondaryFormat = kSecondaryLine;
    AddRow(45, 10);
    AddSecond(1, 90, 0);
    ActiveRecord().ShowSecondary = kTrue;
    RebuildRowTable(gActivePlot);
    SelectAll();
    EXPECT_EQ(MoveSelection(RadiusOf(30), 0), 1);
    EXPECT_EQ(Row(1), (Pair{45, 10}));
    EXPECT_EQ(Second(1), (Pair{30, 90}));
}

TEST_F(MoveRows, RowsOfOverlaysMoveByTheirOwnKind) {
    AddRow(45, 200);
    AddOverlay(kOverlayPoles, 0, 0, CodeOfStyleRow(2)); // its pole is the centre
    StandMarquee(gActivePlot, {-50, 50}, {50, -50});
    SelectRowsInMarquee();
    EXPECT_EQ(MoveSelection(0, RadiusOf(40)), 1);
    EXPECT_EQ(Row(2), (Pair{50, 180}));
    EXPECT_EQ(Row(1), (Pair{45, 200}));
}

TEST_F(MoveRows, TheSecondaryOverlayTakesTheSecondaryDataAlong) {
    ActiveRecord().SecondaryFormat = kSecondaryLine;
    AddRow(45, 200);
    AddSecond(1, 90, 0);
    AddOverlay(kOverlayLines, 90, 0, CodeOfStyleRow(2));
    ActiveRecord().SelectedOverlay = 1;
    StandMarquee(gActivePlot, {-50, 50}, {50, -50});
    SelectRowsInMarquee();
    EXPECT_EQ(MoveSelection(RadiusOf(30), 0), 1);
    EXPECT_EQ(Row(2), (Pair{30, 90}));
    EXPECT_EQ(Second(1), (Pair{30, 90}));
}

TEST_F(MoveRows, DirectionsStayHorizontal) {
    SetKind(kDirections, kLines);
    AddRow(0, 90);
    SelectAll();
    EXPECT_EQ(MoveSelection(-300, 700), 1); // to (700, 700)
    EXPECT_EQ(Row(1), (Pair{0, 45}));
}

TEST_F(MoveRows, TheOrientationIsThatUnderTheNewPlaceForRandomMoves) {
    std::mt19937 random(20261);
    std::uniform_int_distribution<int> plunge(0, 90);
    std::uniform_int_distribution<int> trend(0, 359);
    std::uniform_real_distribution<double> step(-400, 400);
    for (int i = 0; i < 300; ++i) {
        AddRow(plunge(random), trend(random));
    }
    SelectAll();
    const RowTable before = TableOf(gActivePlot);
    const double dx = step(random);
    const double dy = step(random);
    EXPECT_GT(MoveSelection(dx, dy), 100);
    for (std::size_t place = 0; place < before.size(); ++place) {
        const double x = before.x[place] + dx;
        const double y = before.y[place] + dy;
        const std::int32_t row = before.index[place];
        double nowX = 0;
        double nowY = 0;
        ProjectPoint(kEqualArea, DegToRad(Row(row).first), DegToRad(Row(row).second), nowX, nowY);
        if (std::hypot(x, y) <= 1000) {
            // Half a degree of plunge is 12.4 units at most, of trend 8.8.
            EXPECT_LT(std::hypot(nowX - x, nowY - y), 16) << row;
        } else {
            EXPECT_EQ(std::lround(nowX), before.x[place]);
        }
    }
}

TEST_F(MoveRows, UndoGivesBackTheVeryNumbers) {
    AddRow(12, 360); // not what a place reads back as
    AddRow(55, 123);
    SelectAll();
    EXPECT_EQ(MoveSelection(100, -80), 2);
    ASSERT_TRUE(CanUndo());
    UndoLastEdit();
    EXPECT_EQ(Row(1), (Pair{12, 360}));
    EXPECT_EQ(Row(2), (Pair{55, 123}));
    EXPECT_FALSE(CanUndo());
}

TEST_F(MoveRows, NothingMovesOnARoseOrInAnotherPlot) {
    AddRow(45, 45);
    SelectAll();
    ActiveRecord().PlotKind = kRose;
    EXPECT_EQ(MoveSelection(10, 10), 0);
    ActiveRecord().PlotKind = kEqualArea;
    NewPlot();
    EXPECT_EQ(MoveSelection(10, 10), 0);
}

TEST_F(MoveRows, StepsOfADegreeStopAtTheEnds) {
    const struct {
        Pair row;
        int plungeStep;
        int trendStep;
        Pair wanted;
        bool isPlane = false;
    } cases[] = {
        {{45, 10}, 1, 0, {46, 10}},
        {{45, 10}, -1, 0, {44, 10}},
        {{90, 10}, 1, 0, {90, 10}},
        {{0, 10}, -1, 0, {0, 10}},
        {{-45, 10}, 1, 0, {-46, 10}},
        {{-1, 10}, -1, 0, {0, 190}},
        {{45, 359}, 0, 1, {45, 0}},
        {{45, 0}, 0, -1, {45, 359}},
        {{45, 360}, 0, 1, {45, 1}},
        {{45, 360}, 1, 0, {46, 360}},
        {{-1, 270}, -1, 5, {0, 95}},
        {{-1, 10}, -1, 0, {0, 10}, true}, // an overturned bed has no sense to keep
    };

    for (const auto& [row, plungeStep, trendStep, wanted, isPlane] : cases) {
        const MovedAttitude now =
            NudgedOrientation({row.first, row.second}, isPlane, plungeStep, trendStep);
        EXPECT_EQ((Pair{now.whole.dip, now.whole.azimuth}), wanted)
            << row.first << "/" << row.second;
        EXPECT_EQ(now.measured, now.whole) << row.first << "/" << row.second;
    }
}

TEST_F(MoveRows, StepsOfADegreeKeepDecimals) {
    const struct {
        Attitude row;
        int plungeStep;
        int trendStep;
        Attitude measured;
        Attitude whole;
        bool isPlane = false;
    } cases[] = {
        {{47.3, 218.6}, 1, 0, {48.3, 218.6}, {48, 219}},
        {{47.3, 218.6}, -1, 2, {46.3, 220.6}, {46, 221}},
        {{89.6, 10.5}, 1, 0, {89.6, 10.5}, {90, 10}},
        {{0.4, 10.5}, -1, 0, {0.4, 10.5}, {0, 10}},
        {{45.123456, 359.7}, 0, 1, {45.123456, 0.7}, {45, 1}},
        {{45.1, 358.7}, 0, 1, {45.1, 359.7}, {45, 0}},
        {{-1.3, 10.2}, -1, 0, {-0.3, 10.2}, {0, 190}},
        {{-0.3, 10.2}, 1, 0, {-1.3, 10.2}, {-1, 10}},
        {{-1.3, 10.2}, -1, 0, {-0.3, 10.2}, {0, 10}, true},
    };

    for (const auto& [row, plungeStep, trendStep, measured, whole, isPlane] : cases) {
        const MovedAttitude now = NudgedOrientation(row, isPlane, plungeStep, trendStep);
        EXPECT_EQ(now.measured, measured) << row.dip << "/" << row.azimuth;
        EXPECT_EQ(now.whole, whole) << row.dip << "/" << row.azimuth;
    }
}

TEST_F(MoveRows, RowsWithDecimalsReturnFromAMoveThereAndBack) {
    const std::vector<Attitude> rows = RandomAttitudes(200, 20, 5);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        AddRow(0, 0);
        Measure(gActivePlot, RowAngles::Primary, static_cast<std::int32_t>(i) + 1, rows[i], false);
    }
    RebuildRowTable(gActivePlot);
    SelectAll();
    ASSERT_EQ(MoveSelection(31.5, -12.25), 200);
    EXPECT_NE(MeasuredRowsOf(gActivePlot, RowAngles::Primary), rows);
    ASSERT_EQ(MoveSelection(-31.5, 12.25), 200);
    const std::vector<Attitude> now = MeasuredRowsOf(gActivePlot, RowAngles::Primary);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        EXPECT_LT(DegreesOf(AcuteAngleOf(VectorOf(now[i]), VectorOf(rows[i]))), 1e-5) << i;
    }
}

TEST_F(MoveRows, AMoveWithinTheWholeDegreesOfARowChangesItsDecimals) {
    AddRow(33, 77);
    SelectAll();
    EXPECT_EQ(MoveSelection(4, 0), 1);
    EXPECT_EQ(Row(1), (Pair{33, 77}));
    const Attitude now = MeasuredAttitude(ActivePlot().rows, RowAngles::Primary, 1);
    EXPECT_NEAR(now.dip, 33, 0.5);
    EXPECT_NE(now.dip, 33);
    UndoLastEdit();
    EXPECT_FALSE(HasDecimals(ActivePlot().rows, 1));
}

TEST_F(MoveRows, TheMarqueeFollowsRowsThatAreNudged) {
    AddRow(45, 10);
    SelectAll();
    EXPECT_EQ(NudgeSelection(1, 0), 1);
    EXPECT_EQ(Row(1), (Pair{46, 10}));
    const PlottedRow row = TableOf(gActivePlot)[0];
    EXPECT_NEAR(RectangleOfMarquee().left, row.x - 50, 1e-6) << "as small as a frame gets";
    EXPECT_NEAR(RectangleOfMarquee().top, row.y + 50, 1e-6);
    EXPECT_EQ(gSelectionRows.size(), 1U);
    AddRow(0, 90);
    SelectAll();
    EXPECT_EQ(NudgeSelection(0, 1), 2);
    EXPECT_NEAR(RectangleOfMarquee().right, TableOf(gActivePlot)[1].x + 10, 1e-6);
}

TEST_F(MoveRows, AStepMakesOneFrameAboutTheRowsOfSeveral) {
    AddRow(45, 90);
    AddRow(45, 270);
    StandMarquee(gActivePlot, {-700, 200}, {-400, -200});
    SelectRowsInMarquee();
    const Selection former = Selection::now;
    StandMarquee(gActivePlot, {400, 200}, {700, -200});
    SelectInMarquee(SelectionWay::Add, former);
    ASSERT_FALSE(IsInMarquee({-541, 0})) << "only the last frame remains";
    ASSERT_EQ(NudgeSelection(0, 1), 2);
    for (const Point& place : PlacesOfRows(gActivePlot, gSelectionRows)) {
        EXPECT_TRUE(IsInMarquee(place)) << place.x;
    }
}

} // namespace
} // namespace quandrel
