// SPDX-License-Identifier: MIT

#include "rotation/rotation_settings.h"
#include "rotation_fixture.h"

#include <limits>
#include <set>

namespace quandrel {
namespace {

class RotationBoxesTest : public RotationTest {};

TEST_F(RotationBoxesTest, AreReadWithTheRegionalDelimiter) {
    const RotationBoxes boxes{{"20.5", " 135 ", "-30", ""}, " ne "};
    const RotationSettings read = SettingsOfRotationBoxes(3, boxes, false);
    EXPECT_EQ(read.operation, kRotateAboutAxis);
    EXPECT_EQ(read.inclination, 20.5);
    EXPECT_EQ(read.azimuth, 135);
    EXPECT_EQ(read.angle, -30);
    EXPECT_FALSE(read.pitch);
    EXPECT_EQ(read.sense, "ne");
    gDecimalIsComma = true;
    EXPECT_FALSE(SettingsOfRotationBoxes(3, boxes, false).inclination);
    EXPECT_EQ(SettingsOfRotationBoxes(3, {{"20,5", "", "", ""}, ""}, false).inclination, 20.5);
}

TEST_F(RotationBoxesTest, TheStateIsTheOperationNegativeWhenForced) {
    for (int operation = 1; operation <= 5; ++operation) {
        EXPECT_EQ(RotationStateOf(SettingsOfRotationBoxes(operation, {}, false)), operation);
        EXPECT_EQ(RotationStateOf(SettingsOfRotationBoxes(operation, {}, true)),
                  operation < 3 ? -operation : operation);
    }
}

TEST_F(RotationBoxesTest, OfTwoStrikesTheNearerOneIsUsed) {
    struct Case {
        double dipDirection, newStrike, strike;
    };

    for (const Case c :
         {Case{120, 20, 30}, Case{120, 200, 210}, Case{90, 350, 0}, Case{90, 10, 0},
          Case{350, 70, 80}, Case{350, 265, 260}, Case{10, 285, 280}, Case{90, 90, 0},
          Case{90, 270, 0}, Case{0, 360, 270}, Case{45, 134, 135}, Case{45, 136, 135}}) {
        EXPECT_NEAR(NearerStrike(c.dipDirection, c.newStrike), c.strike, 1e-9)
            << c.dipDirection << ' ' << c.newStrike;
    }
}

TEST_F(RotationBoxesTest, TheSenseTellsWhichEndThePitchIsFrom) {
    EXPECT_EQ(PitchFromStrike(PlaneUp(40, 120, 20, 30, "NE")), 30);
    EXPECT_EQ(PitchFromStrike(PlaneUp(40, 120, 20, 30, "S")), -30);
    EXPECT_EQ(PitchFromStrike(PlaneUp(40, 120, 200, 30, "NE")), -30);
    EXPECT_EQ(PitchFromStrike(PlaneUp(40, 120, 200, 30, "w")), 30);
    EXPECT_EQ(PitchFromStrike(PlaneUp(40, 120, 200, 0, "")), 0);
}

TEST_F(RotationBoxesTest, ThoseInUseMustHoldNumbersInRange) {
    using Field = RotationField;
    const std::optional<double> none;
    const double nan = std::numeric_limits<double>::quiet_NaN();

    struct Case {
        RotationSettings settings;
        std::optional<Field> refused;
    };

    const auto with = [](RotationSettings changed, auto field, std::optional<double> value) {
        changed.*field = value;
        return changed;
    };
    constexpr auto kInclination = &RotationSettings::inclination;
    constexpr auto kAzimuth = &RotationSettings::azimuth;
    constexpr auto kAngle = &RotationSettings::angle;
    constexpr auto kPitch = &RotationSettings::pitch;
    RotationSettings empty;
    empty.operation = kUnfoldAboutAppended;
    RotationSettings unknown = AboutAxis(0, 0, 0);
    unknown.operation = 6;
    const RotationSettings plane = PlaneUp(40, 120, 20, 30, "NE");
    const std::vector<Case> cases = {
        {empty, {}},
        {unknown, Field::Operation},
        {Unfolding(90, 360), {}},
        {with(Unfolding(0, 0), kInclination, none), Field::Inclination},
        {AboutAxis(0, 0, -360), {}},
        {AboutAxis(90, 360, 360), {}},
        {AboutAxis(-1, 0, 0), Field::Inclination},
        {AboutAxis(90.1, 0, 0), Field::Inclination},
        {AboutAxis(nan, 0, 0), Field::Inclination},
        {AboutAxis(0, -1, 0), Field::Azimuth},
        {AboutAxis(0, 361, 0), Field::Azimuth},
        {with(AboutAxis(0, 0, 0), kAzimuth, none), Field::Azimuth},
        {AboutAxis(0, 0, 361), Field::Angle},
        {AboutAxis(0, 0, -361), Field::Angle},
        {with(AboutAxis(0, 0, 0), kAngle, none), Field::Angle},
        {LineUp(20, 20), {}},
        {LineUp(20, 400), Field::Azimuth},
        {plane, {}},
        {with(plane, kAngle, 360), {}},
        {with(plane, kAngle, 361), Field::Angle},
        {with(plane, kAngle, -1), Field::Angle},
        {with(plane, kPitch, none), Field::Pitch},
        {with(plane, kPitch, 91), Field::Pitch},
        {with(plane, kPitch, -1), Field::Pitch},
        {PlaneUp(40, 120, 20, 30, ""), Field::Sense},
        {PlaneUp(40, 120, 20, 30, "NNE"), Field::Sense},
        {PlaneUp(40, 120, 20, 30, "up"), Field::Sense},
        {PlaneUp(40, 135, 20, 30, "SE"), Field::Sense}, // at right angles to the strike
        {PlaneUp(40, 135, 20, 0, "SE"), {}},
        {PlaneUp(40, 120, 20, 0, ""), {}},
    };
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const std::optional<RotationRefusal> refusal = CheckRotationBoxes(cases[i].settings);
        ASSERT_EQ(refusal.has_value(), cases[i].refused.has_value()) << i;
        if (refusal) {
            EXPECT_EQ(refusal->field, *cases[i].refused) << i;
            EXPECT_FALSE(refusal->reason.empty()) << i;
        }
    }
}

class UnfoldingCheck : public RotationTest {};

TEST_F(UnfoldingCheck, WantsPlanesWithSecondaryData) {
    struct Case {
        std::int16_t primary, secondary, formatPrimary, formatSecondary;
        const char* message;
    };

    const char* const noPlanes = "The data in this plot are not linked to any planes";
    const char* const otherPlot = "you are currently not focussed on a plot containing";
    const char* const otherFormat = "is not compatible with this type of \nunfolding rotation.";
    for (const Case c : {
             Case{kPrimaryPlane, kSecondaryLine, kPrimaryPlane, kNoSecondary, nullptr},
             Case{kPrimaryPlane, kPitchInPlane, kPrimaryLine, kNoSecondary, nullptr},
             Case{kPrimaryPlane, kNoSecondary, kPrimaryPlane, kNoSecondary, noPlanes},
             Case{kPrimaryLine, kNoSecondary, kPrimaryLine, kNoSecondary, noPlanes},
             Case{kPrimaryLine, kNoSecondary, kPrimaryPlane, kSecondaryLine, otherPlot},
             Case{kPrimaryPlane, kNoSecondary, kPrimaryPlane, kSecondaryLine, otherPlot},
             Case{kPrimaryLine, kSecondaryLine, kPrimaryPlane, kSecondaryLine, otherFormat},
             Case{kPrimaryLine, kSecondaryPlane, kPrimaryLine, kSecondaryPlane, otherFormat},
         }) {
        PlotOf(c.primary, kLines, {{30, 40}});
        AddSecondary(c.secondary, {{10, 20}});
        gPrimaryDataType = c.formatPrimary;
        gSecondaryDataType = c.formatSecondary;
        const std::optional<std::string> refusal = RefusalToUnfold();
        ASSERT_EQ(refusal.has_value(), c.message != nullptr) << c.primary << c.secondary;
        if (refusal) {
            EXPECT_NE(refusal->find(c.message), std::string::npos) << *refusal;
        }
        const std::optional<RotationRefusal> check = CheckRotation(Unfolding(0, 0));
        EXPECT_EQ(check.has_value(), c.message != nullptr);
        EXPECT_FALSE(CheckRotation(AboutAxis(0, 0, 10)));
    }
}

TEST_F(UnfoldingCheck, OwnAxesNeedAppendedLines) {
    PlanesWith(kSecondaryLine, {{30, 40}}, {{10, 20}});
    EXPECT_FALSE(IsRotationOffered(kUnfoldAboutAppended));
    EXPECT_TRUE(IsRotationOffered(kUnfoldAboutSelected));
    EXPECT_TRUE(CheckRotation(UnfoldingOwn()));
    AddAppended({{1, 2}});
    EXPECT_TRUE(IsRotationOffered(kUnfoldAboutAppended));
    EXPECT_FALSE(CheckRotation(UnfoldingOwn()));
}

TEST_F(UnfoldingCheck, APlotWithoutRowsIsRefused) {
    NewPlot();
    ASSERT_TRUE(CheckRotation(AboutAxis(0, 0, 10)));
    EXPECT_EQ(CheckRotation(AboutAxis(0, 0, 10))->field, RotationField::Plot);
}

TEST_F(UnfoldingCheck, TheCaptionNamesThePlot) {
    NewPlot();
    ActiveRecord().PlotTitle = "Plot 1: dykes";
    EXPECT_EQ(RotationCaption(), "Rotate: Plot 1: dykes");
}

TEST(RotationOptions, FramesShowWhatTheOperationNeeds) {
    std::set<std::string> captions;
    for (int operation = 1; operation <= kRotationOptions; ++operation) {
        const RotationOption& option = OptionOfRotation(operation);
        captions.insert(option.caption);
        EXPECT_EQ(std::string(option.heading).empty(), operation == kUnfoldAboutAppended);
        EXPECT_EQ(std::string(option.angleHeading).empty(),
                  operation != kRotateAboutAxis && operation != kPlaneToVertical);
        EXPECT_EQ(std::string(option.pitchHeading).empty(), operation != kPlaneToVertical);
    }
    EXPECT_EQ(captions.size(), 5U);
    EXPECT_STREQ(OptionOfRotation(99).caption, OptionOfRotation(kRotateAboutAxis).caption);
    EXPECT_STREQ(OptionOfRotation(4).heading, "Plane to Rotate");
    EXPECT_STREQ(OptionOfRotation(4).angleHeading, "New Strike");
}

} // namespace
} // namespace quandrel
