// SPDX-License-Identifier: MIT

#include "edit/history/undo.h"
#include "edit/marks/annotations.h"
#include "edit/marks/girdle_pull.h"
#include "edit/marks/girdles.h"
#include "orientation/angles.h"
#include "orientation/projection.h"
#include "support/plot_rows.h"
#include "support/test_platform.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace quandrel {
namespace {

constexpr int kDarkBlue = 20;
constexpr double kUnreadableDip = -1;

double Radians(double degrees) {
    return degrees * std::numbers::pi / 180;
}

/// A line as a vector north, east, down, by the definition.
Direction VectorOf(double plunge, double trend) {
    return {std::cos(plunge) * std::cos(trend), std::cos(plunge) * std::sin(trend),
            std::sin(plunge)};
}

double Dot(const Direction& a, const Direction& b) {
    return a.l * b.l + a.m * b.m + a.n * b.n;
}

struct TextRow {
    std::int16_t conventions;
    const char* separator;
    const char* text;
    double dip; ///< degrees; kUnreadableDip: it cannot be read
    double direction;
};

constexpr TextRow kTexts[] = {
    // Any separator works, whichever is in force.
    {1, "/", "45/120", 45, 120},
    {1, "-", "45/120", 45, 120},
    {1, ":", "45/120", 45, 120},
    {1, "", "45/120", 45, 120},
    {1, ":", "45\\120", 45, 120},
    {1, ":", "45-120", 45, 120},
    {1, ":", "45,120", 45, 120},
    {1, ":", "45:120", 45, 120},
    {1, " ", "45 120", 45, 120},
    {1, "/", "  45 / 120  ", 45, 120},
    // Each convention by the meaning of its two values.
    {2, "/", "120/45", 45, 120},
    {3, "/", "030/45E", 45, 120},
    {3, "/", "210/45 SE", 45, 120},
    {4, "/", "45E/030", 45, 120},
    {5, "/", "45/030", 45, 120},
    {6, "/", "030/45", 45, 120},
    {-1, "/", "45/S60E", 45, 120},
    {-3, "/", "N30E/45E", 45, 120},
    {-4, "/", "45E/N30E", 45, 120},
    {11, "/", "45/120", 45, 120},
    // Without a sense of dip the two are dip and dip direction.
    {3, "/", "45/120", 45, 120},
    {4, "/", "45/120", 45, 120},
    {-4, "/", "45/S60E", 45, 120},
    // The ends of the ranges.
    {1, "/", "0/0", 0, 0},
    {1, "/", "90/360", 90, 360},
    {1, "/", "7.5/12.25", 7.5, 12.25},
    // What is not a plane.
    {1, "/", "95/120", kUnreadableDip, 0},
    {1, "/", "45/400", kUnreadableDip, 0},
    {1, "/", "45/", kUnreadableDip, 0},
    {1, "/", "/120", kUnreadableDip, 0},
    {1, "/", "steep/120", kUnreadableDip, 0},
    {2, "/", "45/120", kUnreadableDip, 0},
    {3, "/", "030/45NE30", kUnreadableDip, 0},
    {-1, "/", "45/120", kUnreadableDip, 0},
};

TEST(ReadGirdleText, ReadsEachConventionWithAnySeparator) {
    for (const TextRow& row : kTexts) {
        gConventions = row.conventions;
        const auto plane = ReadGirdleText(row.text, row.separator, LineFormatFromGlobals(false), 1);
        ASSERT_EQ(static_cast<bool>(plane), row.dip != kUnreadableDip)
            << row.conventions << " " << row.text;
        if (plane) {
            EXPECT_NEAR(plane->dip, Radians(row.dip), 1e-9) << row.conventions << " " << row.text;
            EXPECT_NEAR(plane->dipDirection, Radians(row.direction), 1e-9) << row.text;
        }
    }
    gConventions = 1;
}

TEST(ReadGirdleText, TellsWhichOfTheTwoIsWrong) {
    gConventions = 1;
    const LineFormat format = LineFormatFromGlobals(false);
    EXPECT_EQ(ReadGirdleText("45 120", "/", format, 3).Error(),
              "Can't recognize the character used to separate the dip angle from the direction in "
              "the textbox of girdle #3\nEither retype the textbox entry or reset the Separator "
              "Symbol in the File Format dialog box.");
    EXPECT_EQ(ReadGirdleText("x/120", "/", format, 8).Error(),
              "The text in the text box of Girdle #8 is not a recognizable orientation using the "
              "currently set orientation conventions.\nPlease check and re-enter the value");
}

constexpr const char* kOldText = "of an earlier state";

class GirdleTest : public EngineTest {
protected:
    void SetUp() override {
        EngineTest::SetUp();
        gAxisStyleTable[kUserGirdleStyle] = {kDarkBlue, kDottedLine, 4};
        gPlotKind = kEqualArea;
        slot = NewPlot();
        FormOf(slot).SetBoxText(PlotBox::StatsAdvanced, kOldText);
        gActiveGirdle = 0;
    }

    void TearDown() override {
        LeaveGirdles();
        gConventions = 1;
        EngineTest::TearDown();
    }

    /// True if the statistics were written since the last call.
    [[nodiscard]] bool AreStatisticsWritten() {
        const bool areWritten = Form(slot).Told(PlotBox::StatsAdvanced) != kOldText;
        FormOf(slot).SetBoxText(PlotBox::StatsAdvanced, kOldText);
        return areWritten;
    }

    static const std::array<TaggedValue, kAxisValues>& ValuesOf(int row) {
        return ActiveRecord().AxisItems[static_cast<std::size_t>(row)];
    }

    /// The pole of a row as a vector.
    static Direction PoleOf(int row) {
        return VectorOf(NumberOf(ValuesOf(row)[2]), NumberOf(ValuesOf(row)[3]));
    }

    /// The parts of the plot's picture in the colour of the user's girdles.
    std::vector<DrawOperation> DrawnGirdles() const {
        std::vector<DrawOperation> drawn = DrawnOn(Form(slot).Plot());
        std::erase_if(drawn, [](const DrawOperation& operation) {
            return operation.colour != TableColour(kDarkBlue);
        });
        return drawn;
    }

    int Drawings() const { return Form(slot).TimesShown(); }

    int slot = 0;
};

TEST_F(GirdleTest, ATypedPlaneIsStoredByItsPoleInTheStyleOfGirdlesAndShown) {
    UpdateGirdle(2, "45/120");
    EXPECT_TRUE(IsGirdleShown(2));
    EXPECT_EQ(GirdleText(2), "45/120");
    EXPECT_NEAR(NumberOf(ValuesOf(2)[2]), Radians(45), 1e-12);
    EXPECT_NEAR(NumberOf(ValuesOf(2)[3]), Radians(300), 1e-12);
    EXPECT_EQ(NumberOf(ValuesOf(2)[4]), kDarkBlue);
    const auto drawn = DrawnGirdles();
    ASSERT_EQ(drawn.size(), 1U);
    EXPECT_EQ(drawn[0].state.drawStyle, kDottedLine);
    EXPECT_EQ(drawn[0].state.drawWidth, 4);
    EXPECT_TRUE(AreStatisticsWritten());
    EXPECT_NE(ActiveRecord().Modified, 0);
}

TEST_F(GirdleTest, TypedTextWorksWithAnySeparatorWhicheverIsInForce) {
    gPlaneSeparator = ":";
    for (const char* text : {"45/120", "45\\120", "45-120", "45,120", "45:120"}) {
        UpdateGirdle(1, text);
        EXPECT_EQ(GirdleText(1), text);
        EXPECT_NEAR(Dot(PoleOf(1), VectorOf(Radians(45), Radians(300))), 1, 1e-12) << text;
    }
}

TEST_F(GirdleTest, TextThatCannotBeReadHidesTheGirdleAndKeepsTextAndPlane) {
    UpdateGirdle(1, "45/120");
    Expect("textbox of girdle #1");
    UpdateGirdle(1, "45 120");
    EXPECT_FALSE(IsGirdleShown(1));
    EXPECT_EQ(GirdleText(1), "45/120");
    EXPECT_NEAR(NumberOf(ValuesOf(1)[3]), Radians(300), 1e-12);
    EXPECT_TRUE(DrawnGirdles().empty());
    EXPECT_TRUE(ShowGirdle(1, true));
    Expect("Girdle #1 is not a recognizable orientation");
    UpdateGirdle(1, "45/northward");
    EXPECT_EQ(GirdleText(1), "45/120");
    EXPECT_EQ(ParseGirdleText("", 1), "");
    EXPECT_EQ(GirdleText(1), "45/120") << "an empty text is nothing to read";
}

TEST_F(GirdleTest, TheMessageIsAWarning) {
    Expect("textbox of girdle #4");
    EXPECT_EQ(ParseGirdleText("45", 4), "Error");
    ASSERT_EQ(prompts.Shown().size(), 1U);
    EXPECT_EQ(prompts.Shown()[0].message.title, "Quandrel, ver 9.5.1");
    EXPECT_EQ(prompts.Shown()[0].message.icon, Icon::Exclamation);
}

TEST_F(GirdleTest, NewGirdlesWearTheStyleOfTheMoment) {
    gAxisStyleTable[kUserGirdleStyle] = {7, kDashedLine, 2};
    UpdateGirdle(1, "45/120");
    FocusGirdle(2);
    EXPECT_TRUE(PressGirdle(kGirdleLeftButton, kGirdleShiftKey, 300, 300));
    ReleaseGirdle();
    for (const int row : {1, 2}) {
        EXPECT_EQ(NumberOf(ValuesOf(row)[4]), 7);
        EXPECT_EQ(NumberOf(ValuesOf(row)[5]), kDashedLine);
        EXPECT_EQ(NumberOf(ValuesOf(row)[6]), 2);
    }
    gAxisStyleTable[kUserGirdleStyle] = {9, kSolidLine, 1};
    EXPECT_TRUE(PressGirdle(kGirdleLeftButton, kGirdleShiftKey, 100, 300));
    ReleaseGirdle();
    EXPECT_EQ(NumberOf(ValuesOf(2)[4]), 7) << "one that is drawn keeps its own";
    gAxisStyleTable[kMeanGirdleStyle] = {1, 2, 3};
    gAxisStyleTable[kCalculatedGirdleStyle] = {4, 5, 6};
    CopyGirdleStyle(ActiveRecord(), 0);
    CopyGirdleStyle(ActiveRecord(), 10);
    EXPECT_EQ(NumberOf(ValuesOf(0)[6]), 3);
    EXPECT_EQ(NumberOf(ValuesOf(10)[4]), 4);
}

TEST_F(GirdleTest, AnEmptiedBoxHidesTheGirdle) {
    UpdateGirdle(1, "45/120");
    UpdateGirdle(1, "   ");
    EXPECT_FALSE(IsGirdleShown(1));
    EXPECT_EQ(GirdleText(1), "");
    EXPECT_TRUE(DrawnGirdles().empty());
    EXPECT_FALSE(ShowGirdle(1, true)) << "there is nothing to show";
}

TEST_F(GirdleTest, TheRowsOwnTextIsNotReadAgain) {
    UpdateGirdle(1, "45/120");
    ActiveRecord().AxisItems[1][kItemPlunge] = Radians(44.6);
    EXPECT_TRUE(ShowGirdle(1, false));
    const int before = Drawings();
    UpdateGirdle(1, "45/120");
    EXPECT_EQ(NumberOf(ValuesOf(1)[2]), Radians(44.6));
    EXPECT_FALSE(IsGirdleShown(1));
    EXPECT_EQ(Drawings(), before);
}

TEST_F(GirdleTest, EnteringABoxTicksNothing) {
    for (int row = 0; row < kAxisItems; ++row) {
        FocusGirdle(row);
        EXPECT_FALSE(IsGirdleShown(row));
    }
    EXPECT_EQ(gActiveGirdle, 8) << "rows 0, 9 and 10 take no part";
    LeaveGirdles();
    EXPECT_EQ(gActiveGirdle, 0);
}

TEST_F(GirdleTest, AToggleIsOneDrawing) {
    UpdateGirdle(1, "45/120");
    const int before = Drawings();
    EXPECT_TRUE(ShowGirdle(1, false));
    EXPECT_TRUE(DrawnGirdles().empty());
    EXPECT_TRUE(ShowGirdle(1, true));
    EXPECT_EQ(DrawnGirdles().size(), 1U);
    EXPECT_TRUE(ShowGirdle(1, true));
    EXPECT_EQ(Drawings(), before + 2);
}

TEST_F(GirdleTest, TheStatisticalRowsShowOnceTheStatisticsGaveThemOne) {
    EXPECT_FALSE(ShowGirdle(10, true));
    EXPECT_FALSE(IsGirdleShown(10));
    ActiveRecord().AxisItems[kGirdleItem][kItemText] = std::string("30/200");
    EXPECT_TRUE(ShowGirdle(10, true));
    EXPECT_TRUE(IsGirdleShown(10));
    UpdateGirdle(10, "45/120");
    EXPECT_EQ(GirdleText(10), "30/200") << "it cannot be typed";
    EXPECT_TRUE(ShowGirdle(0, true)) << "the mean has no text";
}

TEST_F(GirdleTest, CaptionsFollowTheKindOfData) {
    EXPECT_EQ(GirdleCaption(9, kPlanes), "Mean S (plane)");
    EXPECT_EQ(GirdleCaption(10, kPlanes), "Beta axis (its girdle)");
    EXPECT_EQ(GirdleCaption(9, kLines), "Mean equiv S (plane)");
    EXPECT_EQ(GirdleCaption(10, kPolarLines), "Girdle normal (its girdle)");
    EXPECT_EQ(GirdleCaption(8, kLines), "Girdle 8");
}

TEST_F(GirdleTest, HelpTellsTheThreeForms) {
    Expect("Shift+Ctrl+Left mouse button: \nSets girdle to pass through both this point and the "
           "previous dip line.");
    ShowGirdleHelp();
    EXPECT_EQ(prompts.Shown()[0].message.title, "To manually fit girdle");
    EXPECT_EQ(prompts.Shown()[0].message.text.find("Shift: +Left mouse button: \nSets girdle dip "
                                                   "to pass through this point.\n\nShift+Right"),
              0U);
    EXPECT_EQ(status.Text(), gHintText);
}

TEST_F(GirdleTest, WithoutAPlotThereAreNoGirdles) {
    gActivePlot = 0;
    UpdateGirdle(1, "45/120");
    EXPECT_EQ(GirdleText(1), "");
    EXPECT_FALSE(ShowGirdle(1, true));
    FocusGirdle(1);
    EXPECT_FALSE(CanPullGirdle());
    EXPECT_FALSE(PressGirdle(kGirdleLeftButton, kGirdleShiftKey, 0, 0));
    gActivePlot = slot;
}

TEST(FormOfKeys, KnowsThreeForms) {
    for (int button = 0; button < 4; ++button) {
        for (int shift = 0; shift < 8; ++shift) {
            const auto form = FormOfKeys(button, shift);
            const bool isOne =
                (button == 1 && (shift == 1 || shift == 3)) || (button == 2 && shift == 1);
            ASSERT_EQ(form.has_value(), isOne) << button << " " << shift;
        }
    }
    EXPECT_EQ(FormOfKeys(1, 1), GirdleForm::kDipLine);
    EXPECT_EQ(FormOfKeys(2, 1), GirdleForm::kPole);
    EXPECT_EQ(FormOfKeys(1, 3), GirdleForm::kThroughDipLine);
}

/// A downward line at random.
NetLine RandomLine(std::mt19937& random) {
    std::uniform_real_distribution<double> sine(0.001, 0.999);
    std::uniform_real_distribution<double> trend(0, 2 * std::numbers::pi);
    return {std::asin(sine(random)), trend(random)};
}

/// The normal of a plane: 90 degrees from its dip line, on the other side.
Direction NormalOf(const GirdlePlane& plane) {
    return VectorOf(Radians(90) - plane.dip, plane.dipDirection + std::numbers::pi);
}

TEST(PulledPlane, HoldsWhatEachFormSays) {
    std::mt19937 random(20261121);
    for (int i = 0; i < 2000; ++i) {
        const NetLine line = RandomLine(random);
        const NetLine dipLine = RandomLine(random);
        const GirdlePlane former{dipLine.plunge, dipLine.trend};
        const Direction pointed = VectorOf(line.plunge, line.trend);
        const auto dip = PulledPlane(GirdleForm::kDipLine, former, line);
        ASSERT_TRUE(dip);
        ASSERT_NEAR(Dot(VectorOf(dip->dip, dip->dipDirection), pointed), 1, 1e-12);
        const auto pole = PulledPlane(GirdleForm::kPole, former, line);
        ASSERT_TRUE(pole);
        ASSERT_NEAR(Dot(NormalOf(*pole), pointed), 1, 1e-9);
        const auto both = PulledPlane(GirdleForm::kThroughDipLine, former, line);
        ASSERT_TRUE(both);
        ASSERT_NEAR(Dot(NormalOf(*both), pointed), 0, 1e-7);
        ASSERT_NEAR(Dot(NormalOf(*both), VectorOf(former.dip, former.dipDirection)), 0, 1e-7);
    }
}

TEST(PulledPlane, AnUpwardLineCountsAsItsDownwardEnd) {
    const auto plane = PulledPlane(GirdleForm::kDipLine, {}, {-0.2, 1});
    ASSERT_TRUE(plane);
    EXPECT_EQ(plane->dip, 0.2);
    EXPECT_EQ(plane->dipDirection, 1);
}

TEST(PulledPlane, ThereIsNoneThroughOneLine) {
    EXPECT_FALSE(PulledPlane(GirdleForm::kThroughDipLine, {0.5, 2}, {0.5, 2}));
}

class GirdlePullTest : public GirdleTest {
protected:
    static Point PlaceOf(double plunge, double trend) {
        Point place;
        ProjectPoint(ActiveRecord().PlotKind, Radians(plunge), Radians(trend), place.x, place.y);
        return place;
    }

    static bool Press(int button, int shift, double plunge, double trend) {
        const Point place = PlaceOf(plunge, trend);
        return PressGirdle(button, shift, place.x, place.y);
    }

    static void Drag(double plunge, double trend) {
        const Point place = PlaceOf(plunge, trend);
        DragGirdle(place.x, place.y);
    }

    static void Click(int button, int shift, double plunge, double trend) {
        const Point place = PlaceOf(plunge, trend);
        ChangeUserGirdle(button, shift, place.x, place.y);
        ReleaseGirdle();
    }
};

TEST_F(GirdlePullTest, ShiftAndLeftLaysTheDipThroughThePoint) {
    for (const std::int16_t plotKind : {kEqualArea, kEqualAngle}) {
        ActiveRecord().PlotKind = plotKind;
        FocusGirdle(3);
        Click(1, 1, 30.4, 120.3);
        EXPECT_EQ(GirdleText(3), "30/120");
        EXPECT_TRUE(IsGirdleShown(3));
        EXPECT_NEAR(NumberOf(ValuesOf(3)[2]), Radians(59.6), 1e-9) << "the pole is kept in full";
        EXPECT_NEAR(NumberOf(ValuesOf(3)[3]), Radians(300.3), 1e-9);
        EXPECT_EQ(DrawnGirdles().size(), 1U);
    }
}

TEST_F(GirdlePullTest, ShiftAndRightSetsThePole) {
    FocusGirdle(3);
    Click(2, 1, 30.4, 120.3);
    EXPECT_EQ(GirdleText(3), "60/300");
    EXPECT_NEAR(Dot(PoleOf(3), VectorOf(Radians(30.4), Radians(120.3))), 1, 1e-12);
    EXPECT_TRUE(AreStatisticsWritten());
}

TEST_F(GirdlePullTest, APullCanBeTakenBackAndMadeAgain) {
    UpdateGirdle(3, "40/100");
    FocusGirdle(3);
    ActiveRecord().Modified = 0;
    Click(2, 1, 30.4, 120.3);
    ASSERT_EQ(GirdleText(3), "60/300");
    EXPECT_EQ(UndoCaption(), "&Undo Girdle");
    UndoLastEdit();
    EXPECT_EQ(GirdleText(3), "40/100");
    EXPECT_TRUE(IsGirdleShown(3));
    EXPECT_EQ(ActiveRecord().Modified, 0);
    RedoLastEdit();
    EXPECT_EQ(GirdleText(3), "60/300");
    EXPECT_NEAR(Dot(PoleOf(3), VectorOf(Radians(30.4), Radians(120.3))), 1, 1e-12);
    UpdateGirdle(3, "10/10");
    EXPECT_FALSE(CanUndo()) << "another change of the girdles";
}

TEST_F(GirdlePullTest, ShiftCtrlAndLeftHoldsTheFormerDipLineThroughTheWholeDrag) {
    UpdateGirdle(1, "40/100");
    FocusGirdle(1);
    const Direction dipLine = VectorOf(Radians(40), Radians(100));
    for (int trend = 10; trend < 90; trend += 10) {
        const Point place = PlaceOf(20, trend);
        ChangeUserGirdle(1, 3, place.x, place.y);
        ASSERT_NEAR(Dot(PoleOf(1), dipLine), 0, 1e-9);
        ASSERT_NEAR(Dot(PoleOf(1), VectorOf(Radians(20), Radians(trend))), 0, 1e-9);
    }
    ReleaseGirdle();
    EXPECT_TRUE(IsGirdleShown(1));
}

TEST_F(GirdlePullTest, ShiftCtrlOnTheFormerDipLineLeavesTheGirdleAsItWas) {
    UpdateGirdle(1, "40/100");
    FocusGirdle(1);
    const auto before = ValuesOf(1);
    const Point place = PlaceOf(40, 100);
    ChangeUserGirdle(1, 3, std::round(place.x), std::round(place.y));
    ReleaseGirdle();
    EXPECT_EQ(ValuesOf(1), before);
    EXPECT_EQ(DrawnGirdles().size(), 1U);
    UpdateGirdle(2, "");
    FocusGirdle(2);
    Click(1, 3, 20, 10);
    EXPECT_EQ(GirdleText(2), "") << "an empty row has no dip line";
}

TEST_F(GirdlePullTest, AHiddenGirdleWithATextIsLeftAlone) {
    UpdateGirdle(1, "40/100");
    EXPECT_TRUE(ShowGirdle(1, false));
    FocusGirdle(1);
    EXPECT_FALSE(Press(1, 1, 20, 10));
    EXPECT_EQ(GirdleText(1), "40/100");
}

TEST_F(GirdlePullTest, Rows9And10AndOtherKeysAreRefused) {
    for (const std::int16_t row : {std::int16_t{0}, std::int16_t{9}, std::int16_t{10}}) {
        gActiveGirdle = row;
        EXPECT_FALSE(CanPullGirdle());
        Click(1, 1, 20, 10);
        EXPECT_EQ(GirdleText(row), "");
    }
    gActiveGirdle = 1;
    Click(1, 0, 20, 10);
    Click(2, 3, 20, 10);
    Click(1, 2, 20, 10);
    EXPECT_EQ(GirdleText(1), "");
    ActiveRecord().PlotKind = kRose;
    EXPECT_FALSE(Press(1, 1, 20, 10));
    ActiveRecord().PlotKind = kEqualArea;
}

TEST_F(GirdlePullTest, MovesAreDrawnAboveThePictureAlone) {
    UpdateGirdle(1, "40/100");
    FocusGirdle(1);
    ASSERT_TRUE(Press(1, 1, 40, 110));
    EXPECT_TRUE(DrawnGirdles().empty()) << "the old girdle has gone";
    EXPECT_TRUE(IsGirdleShown(1));
    EXPECT_TRUE(AreStatisticsWritten()) << "when the plane was typed";
    const int before = Drawings();
    for (int trend = 0; trend < 360; trend += 5) {
        Drag(50, trend);
        ASSERT_EQ(GirdleText(1), "50/"
                                     + std::string(trend < 10    ? "00"
                                                   : trend < 100 ? "0"
                                                                 : "")
                                     + std::to_string(trend));
        RecordingSurface above(1000, 1000);
        DrawPulledGirdle(above);
        ASSERT_EQ(above.Operations().size(), 1U);
        EXPECT_EQ(above.Operations()[0].colour, TableColour(kDarkBlue));
    }
    EXPECT_EQ(Drawings(), before);
    EXPECT_FALSE(AreStatisticsWritten());
    ReleaseGirdle();
    EXPECT_EQ(Drawings(), before + 1);
    EXPECT_TRUE(AreStatisticsWritten());
    EXPECT_EQ(DrawnGirdles().size(), 1U);
    RecordingSurface above(1000, 1000);
    DrawPulledGirdle(above);
    EXPECT_TRUE(above.Operations().empty());
}

TEST_F(GirdlePullTest, EscapePutsTheGirdleBack) {
    UpdateGirdle(1, "40/100");
    FocusGirdle(1);
    const auto before = ValuesOf(1);
    ASSERT_TRUE(Press(2, 1, 20, 10));
    Drag(70, 200);
    CancelGirdlePull();
    EXPECT_EQ(ValuesOf(1), before);
    EXPECT_EQ(DrawnGirdles().size(), 1U);
    Drag(10, 10);
    ReleaseGirdle();
    EXPECT_EQ(ValuesOf(1), before);
}

TEST_F(GirdlePullTest, OutsideTheNetTheLineComesInOnTheFarSide) {
    FocusGirdle(1);
    ChangeUserGirdle(1, 1, 0, 1100);
    // 100 beyond the rim in the north is 900 from the centre in the south: cos c = 1 - 0.9^2.
    const Direction dipLine = VectorOf(std::asin(0.19), std::numbers::pi);
    EXPECT_NEAR(Dot(PoleOf(1), dipLine), 0, 1e-9);
    EXPECT_NEAR(Dot(PoleOf(1), VectorOf(0, 0)), 0.19, 1e-9);
    EXPECT_LE(NumberOf(ValuesOf(1)[2]), Radians(90));
    EXPECT_GE(NumberOf(ValuesOf(1)[2]), 0);
    EXPECT_EQ(GirdleText(1).find('-'), std::string::npos);
}

TEST_F(GirdlePullTest, APlotThatClosesEndsThePull) {
    FocusGirdle(1);
    ASSERT_TRUE(Press(1, 1, 20, 10));
    ReleasePlotSlot(slot);
    Drag(30, 30);
    RecordingSurface above(1000, 1000);
    DrawPulledGirdle(above);
    EXPECT_TRUE(above.Operations().empty());
    ReleaseGirdle();
    EXPECT_EQ(PulledGirdle(), 0);
}

TEST_F(GirdlePullTest, AReleaseInFrontOfAnotherPlotStaysWithItsOwn) {
    FocusGirdle(1);
    ASSERT_TRUE(Press(1, 1, 20, 10));
    const int other = NewPlot();
    ReleaseGirdle();
    EXPECT_EQ(gActivePlot, other);
    EXPECT_EQ(TextOf(RecordOf(other).AxisItems[1][kItemText]), "");
    EXPECT_EQ(NumberOf(RecordOf(slot).AxisItems[1][kItemShown]), -1);
    EXPECT_EQ(DrawnGirdles().size(), 1U);
}

TEST_F(GirdlePullTest, StylesOfFilesThatCannotBeDrawnDoNoHarm) {
    UpdateGirdle(1, "40/100");
    ActiveRecord().AxisItems[1][kItemColour] = 1e300;
    ActiveRecord().AxisItems[1][kItemDrawStyle] = -1e300;
    ActiveRecord().AxisItems[1][kItemDrawWidth] = 1e300;
    FocusGirdle(1);
    ASSERT_TRUE(Press(1, 1, 20, 10));
    RecordingSurface above(1000, 1000);
    DrawPulledGirdle(above);
    ASSERT_EQ(above.Operations().size(), 1U);
    EXPECT_EQ(above.Operations()[0].state.drawStyle, kSolidLine);
    EXPECT_LE(above.Operations()[0].state.drawWidth, 50);
}

} // namespace
} // namespace quandrel
