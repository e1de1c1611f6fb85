// SPDX-License-Identifier: MIT

#include "edit/marks/small_circle_pick.h"
#include "edit/marks/small_circles.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "stereo/window_drawing.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quandrel {
namespace {

using Kind = DrawOperation::Kind;

constexpr int kDarkBlue = 20;

double Radians(double degrees) {
    return degrees * std::numbers::pi / 180;
}

/// A line as a vector north, east, down, by the definition.
Direction VectorOf(double plunge, double trend) {
    return {std::cos(Radians(plunge)) * std::cos(Radians(trend)),
            std::cos(Radians(plunge)) * std::sin(Radians(trend)), std::sin(Radians(plunge))};
}

double Dot(const Direction& a, const Direction& b) {
    return a.l * b.l + a.m * b.m + a.n * b.n;
}

/// The downward vector under a point of the net, by the inverse formulas of the projections.
Direction VectorAt(int plotKind, const Point& point) {
    const double rho = std::min(std::hypot(point.x, point.y) / 1000, 1.0);
    const double colatitude =
        plotKind == kEqualAngle ? 2 * std::atan(rho) : std::acos(1 - rho * rho);
    const double azimuth = std::atan2(point.x, point.y);
    return {std::sin(colatitude) * std::cos(azimuth), std::sin(colatitude) * std::sin(azimuth),
            std::cos(colatitude)};
}

/// The place of a line in whole degrees.
Point PlaceOf(int plotKind, double plunge, double trend) {
    Point place;
    ProjectPoint(plotKind, Radians(plunge), Radians(trend), place.x, place.y);
    return place;
}

TEST(CircleBoxes, StandInSetsOfThree) {
    for (int box = 1; box <= kCircleBoxes; ++box) {
        EXPECT_EQ((SetOfCircleBox(box) - 1) * 3 + static_cast<int>(PartOfCircleBox(box)) + 1, box);
    }
    EXPECT_EQ(SetOfCircleBox(12), 4);
    EXPECT_EQ(PartOfCircleBox(6), CirclePart::kAngle);
}

struct TextRow {
    CirclePart part;
    const char* text;
    double degrees; ///< kErrorRow: it is refused
};

constexpr TextRow kTexts[] = {
    {CirclePart::kPlunge, "45", 45},
    {CirclePart::kPlunge, " 45,5 ", 45.5},
    {CirclePart::kPlunge, "-90", -90},
    {CirclePart::kPlunge, "90.5", kErrorRow},
    {CirclePart::kPlunge, "", kErrorRow},
    {CirclePart::kPlunge, "x", kErrorRow},
    {CirclePart::kPlunge, "N30E", kErrorRow},
    {CirclePart::kAzimuth, "360", 360},
    {CirclePart::kAzimuth, "-30", -30},
    {CirclePart::kAzimuth, "361", kErrorRow},
    {CirclePart::kAzimuth, "S30E", 150},
    {CirclePart::kAzimuth, "NW", 315},
    {CirclePart::kAngle, "0", 0},
    {CirclePart::kAngle, "180", 180},
    {CirclePart::kAngle, "-1", kErrorRow},
    {CirclePart::kAngle, "180.1", kErrorRow},
    {CirclePart::kAngle, "1e400", kErrorRow},
};

TEST(CircleValue, ReadsWhatABoxMayHold) {
    for (const TextRow& row : kTexts) {
        const auto value = CircleValue(row.part, row.text);
        ASSERT_EQ(value.has_value(), row.degrees != kErrorRow) << row.text;
        if (value) {
            EXPECT_NEAR(*value, Radians(row.degrees), 1e-12) << row.text;
        }
    }
}

class SmallCircleTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gPlotKind = kEqualArea;
        slot = NewPlot();
        ActiveRecord().PlotTitle = "Beds";
    }

    void TearDown() override {
        EndSmallCirclePick();
        EngineTest::TearDown();
    }

    static void Type(int set, const char* plunge, const char* azimuth, const char* angle) {
        TypeCircleText(set, CirclePart::kPlunge, plunge);
        TypeCircleText(set, CirclePart::kAzimuth, azimuth);
        TypeCircleText(set, CirclePart::kAngle, angle);
    }

    /// The parts of the plot's picture in the colour of the set, which nothing else has.
    std::vector<DrawOperation> DrawnInColour(int colour) const {
        std::vector<DrawOperation> drawn = DrawnOn(Form(slot).Plot());
        std::erase_if(drawn, [colour](const DrawOperation& operation) {
            return operation.colour != TableColour(colour);
        });
        return drawn;
    }

    /// A set in dark blue.
    static void Mark(int set) { StyleSmallCircle(set, {kDarkBlue, kDashedLine, 3}); }

    int Drawings() const { return Form(slot).TimesShown(); }

    int slot = 0;
};

TEST_F(SmallCircleTest, IsDrawnWhereTheConeMeetsTheLowerHemisphere) {
    struct Row {
        const char* plunge;
        const char* azimuth;
        const char* angle;
        std::size_t lines;
    };

    // The cone passes the primitive where the angle exceeds the plunge: one line more each time.
    constexpr Row kRows[] = {{"90", "0", "25", 1}, {"45", "120", "30", 1},  {"20", "200", "50", 3},
                             {"0", "90", "10", 3}, {"45", "120", "150", 1}, {"-45", "300", "30", 1},
                             {"70", "10", "90", 3}};
    for (const int plotKind : {int{kEqualArea}, int{kEqualAngle}}) {
        ActiveRecord().PlotKind = static_cast<std::int16_t>(plotKind);
        Mark(2);
        for (const Row& row : kRows) {
            Type(2, row.plunge, row.azimuth, row.angle);
            ASSERT_EQ(ShowSmallCircle(2, true), "");
            // A negative plunge is the other end of the same axis.
            const Direction axis =
                VectorOf(std::abs(std::stod(row.plunge)), std::stod(row.azimuth));
            const auto drawn = DrawnInColour(kDarkBlue);
            ASSERT_EQ(drawn.size(), row.lines) << row.plunge << " " << row.angle;
            for (const DrawOperation& line : drawn) {
                ASSERT_EQ(line.kind, Kind::Polyline);
                EXPECT_EQ(line.state.drawStyle, kDashedLine);
                EXPECT_EQ(line.state.drawWidth, 3);
                for (const Point& point : line.points) {
                    ASSERT_LE(std::hypot(point.x, point.y), 1000.001);
                    ASSERT_NEAR(std::abs(Dot(axis, VectorAt(plotKind, point))),
                                std::abs(std::cos(Radians(std::stod(row.angle)))), 1e-5);
                }
            }
        }
    }
}

TEST_F(SmallCircleTest, AnAngleAbove90IsDrawnAs180LessIt) {
    Mark(1);
    Type(1, "50", "70", "35");
    ASSERT_EQ(ShowSmallCircle(1, true), "");
    const auto acute = DrawnInColour(kDarkBlue);
    TypeCircleText(1, CirclePart::kAngle, "145");
    const auto obtuse = DrawnInColour(kDarkBlue);
    ASSERT_EQ(acute.size(), 1U);
    ASSERT_EQ(obtuse.size(), 1U);
    EXPECT_EQ(OperationText(acute[0]), OperationText(obtuse[0]));
    EXPECT_EQ(SmallCircleOfSet(1)->Angle, "145");
}

TEST_F(SmallCircleTest, AnAngleOf0OrOf180IsAPoint) {
    Mark(1);
    for (const char* angle : {"0", "180"}) {
        Type(1, "30", "45", angle);
        ASSERT_EQ(ShowSmallCircle(1, true), "");
        const auto drawn = DrawnInColour(kDarkBlue);
        ASSERT_EQ(drawn.size(), 1U);
        EXPECT_EQ(drawn[0].kind, Kind::Circle);
        EXPECT_LT(drawn[0].radius, 10);
        const Direction at = VectorAt(kEqualArea, drawn[0].points[0]);
        EXPECT_NEAR(Dot(at, VectorOf(30, 45)), 1, 1e-9);
    }
}

TEST_F(SmallCircleTest, UntickingKeepsTheValuesAndTickingDrawsItAgain) {
    Mark(3);
    Type(3, "45", "120", "30");
    EXPECT_TRUE(DrawnInColour(kDarkBlue).empty());
    ASSERT_EQ(ShowSmallCircle(3, true), "");
    EXPECT_EQ(DrawnInColour(kDarkBlue).size(), 1U);
    ASSERT_EQ(ShowSmallCircle(3, false), "");
    EXPECT_TRUE(DrawnInColour(kDarkBlue).empty());
    EXPECT_FALSE(IsSmallCircleShown(3));
    EXPECT_EQ(SmallCircleOfSet(3)->AxisPl, "45");
    EXPECT_EQ(SmallCircleOfSet(3)->AxisAz, "120");
    EXPECT_EQ(SmallCircleOfSet(3)->Angle, "30");
    ASSERT_EQ(ShowSmallCircle(3, true), "");
    EXPECT_EQ(DrawnInColour(kDarkBlue).size(), 1U);
}

TEST_F(SmallCircleTest, ABoxThatCannotBeReadKeepsTheSetUnticked) {
    EXPECT_NE(ShowSmallCircle(1, true).find("plunge"), std::string::npos) << "empty boxes";
    Type(1, "45", "somewhere", "30");
    EXPECT_NE(ShowSmallCircle(1, true).find("azimuth"), std::string::npos);
    Type(1, "45", "120", "300");
    EXPECT_NE(ShowSmallCircle(1, true).find("0 to 180"), std::string::npos);
    EXPECT_FALSE(IsSmallCircleShown(1));
}

TEST_F(SmallCircleTest, AShownSetFollowsWhatIsTyped) {
    Mark(1);
    Type(1, "45", "120", "30");
    ASSERT_EQ(ShowSmallCircle(1, true), "");
    const int before = Drawings();
    TypeCircleText(1, CirclePart::kAngle, "");
    EXPECT_TRUE(DrawnInColour(kDarkBlue).empty()) << "it is on its way to another number";
    EXPECT_TRUE(IsSmallCircleShown(1));
    TypeCircleText(1, CirclePart::kAngle, "20");
    EXPECT_EQ(DrawnInColour(kDarkBlue).size(), 1U);
    EXPECT_EQ(Drawings(), before + 2);
    TypeCircleText(1, CirclePart::kAngle, "20");
    EXPECT_EQ(Drawings(), before + 2) << "the same text changes nothing";
}

TEST_F(SmallCircleTest, HiddenSetsCostNoDrawing) {
    const int before = Drawings();
    Type(4, "45", "120", "30");
    Mark(4);
    EXPECT_EQ(Drawings(), before);
    EXPECT_NE(ActiveRecord().Modified, 0);
}

TEST_F(SmallCircleTest, StylesAreBroughtIntoTheirRanges) {
    StyleSmallCircle(1, {99, 17, 400});
    EXPECT_EQ(SmallCircleOfSet(1)->LineColour, kColourCount - 1);
    EXPECT_EQ(SmallCircleOfSet(1)->lineStyle, kNoLine);
    EXPECT_EQ(SmallCircleOfSet(1)->LineWidth, kWidestCircle);
    (*ActiveRecord().PlotSmallCircles)[1].LineColour = -7;
    (*ActiveRecord().PlotSmallCircles)[1].LineWidth = -7;
    EXPECT_EQ(StyleOfSmallCircle(1).colour, 0);
    EXPECT_EQ(StyleOfSmallCircle(1).width, 1);
}

TEST_F(SmallCircleTest, TheRecordTellsTheSectorsLastDrawn) {
    Mark(1);
    Type(1, "90", "0", "30");
    EXPECT_EQ(SmallCircleOfSet(1)->LastPlotSects, 0);
    ASSERT_EQ(ShowSmallCircle(1, true), "");
    const auto drawn = DrawnInColour(kDarkBlue);
    ASSERT_EQ(drawn.size(), 1U);
    EXPECT_EQ(SmallCircleOfSet(1)->LastPlotSects, static_cast<int>(drawn[0].points.size()) - 1);
}

TEST_F(SmallCircleTest, SetsThatAreNoneAndClosedPlotsAreLeftAlone) {
    EXPECT_EQ(SmallCircleOfSet(0), nullptr);
    EXPECT_EQ(SmallCircleOfSet(5), nullptr);
    TypeCircleText(5, CirclePart::kAngle, "3");
    EXPECT_EQ(ShowSmallCircle(0, true), "");
    EXPECT_EQ(SmallCircleCaption(), "Small Circles on: Beds");
    gActivePlot = 0;
    EXPECT_EQ(SmallCircleOfSet(1), nullptr);
    EXPECT_FALSE(IsSmallCircleShown(1));
    EXPECT_EQ(ShowSmallCircle(1, true), "");
    EXPECT_EQ(SmallCircleCaption(), "Small Circles on: ");
    gActivePlot = slot;
}

TEST_F(SmallCircleTest, TheConfidenceConeIsDrawnInTheSameStage) {
    gAxisStyleTable[kSmallCircleStyle] = {kDarkBlue, kSolidLine, 1};
    PlotRecord& record = ActiveRecord();
    record.NumValidData = 5;
    record.FabricValueC = 0.1;
    record.EigenResults[kGreatestAxis][kAxisPlunge] = static_cast<float>(Radians(60));
    DrawSmallCircles(ActiveRecord(), WindowDrawing(gActivePlot));
    EXPECT_TRUE(DrawnInColour(kDarkBlue).empty());
    record.ShowConfidenceCone = true;
    DrawSmallCircles(ActiveRecord(), WindowDrawing(gActivePlot));
    EXPECT_EQ(DrawnInColour(kDarkBlue).size(), 1U);
    record.PlotSmallCircles.reset();
    DrawSmallCircles(ActiveRecord(), WindowDrawing(gActivePlot));
    EXPECT_EQ(DrawnInColour(kDarkBlue).size(), 2U) << "a plot without small circles may have one";
}

class SmallCirclePickTest : public SmallCircleTest {
protected:
    void Press(double plunge, double trend) const {
        const Point place = PlaceOf(ActiveRecord().PlotKind, plunge, trend);
        EXPECT_TRUE(PressSmallCircle(place.x * 0.99999, place.y * 0.99999));
    }

    void Move(double plunge, double trend) const {
        const Point place = PlaceOf(ActiveRecord().PlotKind, plunge, trend);
        DragSmallCircle(place.x, place.y);
    }

    void Release(double plunge, double trend) const {
        const Point place = PlaceOf(ActiveRecord().PlotKind, plunge, trend);
        ReleaseSmallCircle(place.x, place.y);
    }

    static std::string TextsOf(int set) {
        const SmallCircle& circle = *SmallCircleOfSet(set);
        return circle.AxisPl + " " + circle.AxisAz + " " + circle.Angle;
    }
};

TEST_F(SmallCirclePickTest, APressGivesTheAxisAndADragTheAngle) {
    for (const std::int16_t plotKind : {kEqualArea, kEqualAngle}) {
        ActiveRecord().PlotKind = plotKind;
        for (int trend = 5; trend < 360; trend += 50) {
            for (int plunge = 5; plunge < 90; plunge += 20) {
                ASSERT_TRUE(BeginSmallCirclePick(2));
                Press(plunge, trend);
                Release(40, 77);
                const double cosine = std::abs(Dot(VectorOf(plunge, trend), VectorOf(40, 77)));
                const double angle = std::acos(std::min(cosine, 1.0)) / Radians(1);
                EXPECT_EQ(SmallCircleOfSet(2)->AxisPl, std::to_string(plunge));
                EXPECT_EQ(SmallCircleOfSet(2)->AxisAz, std::to_string(trend));
                EXPECT_NEAR(std::stod(SmallCircleOfSet(2)->Angle), angle, 0.51);
            }
        }
    }
}

TEST_F(SmallCirclePickTest, ADragOfNoLengthGivesAngle0AndAPoint) {
    Mark(1);
    ASSERT_TRUE(BeginSmallCirclePick(1));
    Press(45, 120);
    EXPECT_EQ(TextsOf(1), "45 120 0");
    const Point place = PlaceOf(kEqualArea, 45, 120);
    ReleaseSmallCircle(place.x * 0.99999, place.y * 0.99999);
    EXPECT_EQ(TextsOf(1), "45 120 0");
    EXPECT_TRUE(IsSmallCircleShown(1));
    const auto drawn = DrawnInColour(kDarkBlue);
    ASSERT_EQ(drawn.size(), 1U);
    EXPECT_EQ(drawn[0].kind, Kind::Circle);
}

TEST_F(SmallCirclePickTest, MovesAreDrawnAboveThePictureAlone) {
    Mark(1);
    Type(1, "20", "30", "10");
    ASSERT_EQ(ShowSmallCircle(1, true), "");
    ASSERT_TRUE(BeginSmallCirclePick(1));
    Press(60, 200);
    EXPECT_TRUE(DrawnInColour(kDarkBlue).empty()) << "the old circle has gone";
    const int before = Drawings();
    for (int trend = 200; trend < 300; ++trend) {
        Move(50, trend);
        RecordingSurface above(1000, 1000);
        DrawPickedCircle(above);
        ASSERT_FALSE(above.Operations().empty());
        for (const DrawOperation& line : above.Operations()) {
            for (const Point& point : line.points) {
                ASSERT_NEAR(std::abs(Dot(VectorOf(60, 200), VectorAt(kEqualArea, point))),
                            std::cos(Radians(std::stod(SmallCircleOfSet(1)->Angle))), 1e-5);
            }
        }
    }
    EXPECT_EQ(Drawings(), before);
    Release(50, 260);
    EXPECT_EQ(Drawings(), before + 1);
    EXPECT_EQ(DrawnInColour(kDarkBlue).size(), 1U);
    RecordingSurface above(1000, 1000);
    DrawPickedCircle(above);
    EXPECT_TRUE(above.Operations().empty());
}

TEST_F(SmallCirclePickTest, TellsWhatToDoAndEndsOnRelease) {
    ASSERT_TRUE(BeginSmallCirclePick(4));
    EXPECT_EQ(status.Text(), "Left click on plot, and drag mouse, to set centre and angle of small "
                             "circle.");
    EXPECT_EQ(PickedSet(), 4);
    Press(10, 10);
    Release(20, 20);
    EXPECT_EQ(PickedSet(), 0);
    EXPECT_EQ(status.Text(), "Double click a box to activate it for input using mouse");
    EXPECT_FALSE(PressSmallCircle(0, 0));
    EXPECT_EQ(SmallCircleOfSet(4)->AxisPl, "10");
}

TEST_F(SmallCirclePickTest, EscapePutsTheSetBack) {
    Mark(1);
    Type(1, "20", "30", "10");
    ASSERT_EQ(ShowSmallCircle(1, true), "");
    ASSERT_TRUE(BeginSmallCirclePick(1));
    Press(60, 200);
    Move(10, 10);
    EndSmallCirclePick();
    EXPECT_EQ(TextsOf(1), "20 30 10");
    EXPECT_EQ(DrawnInColour(kDarkBlue).size(), 1U);
    EXPECT_FALSE(IsDraggingSmallCircle());
    Move(30, 30);
    Release(40, 40);
    EXPECT_EQ(TextsOf(1), "20 30 10");
}

TEST_F(SmallCirclePickTest, AnotherPlotIsNoneOfItsConcern) {
    ASSERT_TRUE(BeginSmallCirclePick(1));
    const int other = NewPlot();
    EXPECT_EQ(PickedSet(), 0);
    EXPECT_FALSE(PressSmallCircle(100, 100));
    EndSmallCirclePick();
    gActivePlot = slot;
    EXPECT_EQ(PickedSet(), 0);
    EXPECT_EQ(RecordOf(other).PlotSmallCircles->at(1).AxisPl, "");
}

TEST_F(SmallCirclePickTest, APlotThatClosesEndsTheDrag) {
    ASSERT_TRUE(BeginSmallCirclePick(1));
    Press(60, 200);
    ReleasePlotSlot(slot);
    Move(30, 30);
    RecordingSurface above(1000, 1000);
    DrawPickedCircle(above);
    EXPECT_TRUE(above.Operations().empty());
    Release(30, 30);
    EXPECT_EQ(PickedSet(), 0);
}

TEST_F(SmallCirclePickTest, PressesOutsideTheNetSetNothingAndDragsThereGoOn) {
    ASSERT_TRUE(BeginSmallCirclePick(1));
    EXPECT_TRUE(PressSmallCircle(800, 800));
    EXPECT_EQ(TextsOf(1), "  ");
    EXPECT_EQ(PickedSet(), 1);
    Press(30, 0);
    DragSmallCircle(0, 1e7);
    EXPECT_EQ(SmallCircleOfSet(1)->Angle, "60") << "at two radii the far side's centre is reached";
    ReleaseSmallCircle(0, 1000);
    EXPECT_EQ(SmallCircleOfSet(1)->Angle, "30");
}

TEST_F(SmallCirclePickTest, ARoseHasNoSmallCircles) {
    ActiveRecord().PlotKind = kRose;
    EXPECT_FALSE(BeginSmallCirclePick(1));
    EXPECT_FALSE(BeginSmallCirclePick(9));
    ActiveRecord().PlotKind = kEqualArea;
    ASSERT_TRUE(BeginSmallCirclePick(1));
    ActiveRecord().PlotKind = kRose;
    EXPECT_EQ(PickedSet(), 0);
    ActiveRecord().PlotKind = kEqualArea;
}

TEST_F(SmallCirclePickTest, TheTextsNeverNameAFullTurn) {
    ASSERT_TRUE(BeginSmallCirclePick(1));
    EXPECT_TRUE(PressSmallCircle(-0.5, 900));
    EXPECT_EQ(SmallCircleOfSet(1)->AxisAz, "0");
    ReleaseSmallCircle(0, 0);
}

} // namespace
} // namespace quandrel
