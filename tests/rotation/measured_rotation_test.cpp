// SPDX-License-Identifier: MIT

#include "rotation/rotation_kernels.h"
#include "rotation/turned_rows.h"
#include "rotation_fixture.h"
#include "support/measured.h"

namespace quandrel {
namespace {

using namespace testing;

/// How far two orientations are apart, degrees.
using Distance = double (*)(const Attitude&, const Attitude&);

double BetweenPlanes(const Attitude& a, const Attitude& b) {
    return DegreesOf(AcuteAngleOf(NormalOfPlane(a), NormalOfPlane(b)));
}

double BetweenAxes(const Attitude& a, const Attitude& b) {
    return DegreesOf(AcuteAngleOf(VectorOf(a), VectorOf(b)));
}

double BetweenArrows(const Attitude& a, const Attitude& b) {
    return DegreesOf(AngleOf(VectorOf(a), VectorOf(b)));
}

class MeasuredRotation : public RotationTest {
protected:
    /// A plot of measured rows with secondary lines and appended lines.
    void Make(std::int16_t primary, std::int16_t kind, double least, unsigned int seed) {
        constexpr int kRows = 300;
        isPlane_ = primary == kPrimaryPlane;
        PlotOf(primary, kind, std::vector<Pair>(kRows));
        AddSecondary(kSecondaryLine, std::vector<Pair>(kRows));
        AddAppended(std::vector<Pair>(kRows));
        Fill(RowAngles::Primary, RandomAttitudes(kRows, least, seed), isPlane_);
        Fill(RowAngles::Secondary, RandomAttitudes(kRows, least, seed + 1), false);
        Fill(RowAngles::Line, RandomAttitudes(kRows, 0, seed + 2), false);
        RebuildRowTable(gActivePlot);
    }

    static void Fill(RowAngles which, const std::vector<Attitude>& rows, bool isPlane) {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            Measure(gActivePlot, which, static_cast<std::int32_t>(i) + 1, rows[i], isPlane);
        }
    }

    static std::vector<Attitude> Now(RowAngles which) { return MeasuredRowsOf(gActivePlot, which); }

    static void ExpectNear(const std::vector<Attitude>& now, const std::vector<Attitude>& wanted,
                           Distance distance, double most) {
        ASSERT_EQ(now.size(), wanted.size());
        for (std::size_t i = 0; i < now.size(); ++i) {
            ASSERT_LT(distance(now[i], wanted[i]), most)
                << "row " << i + 1 << ": " << now[i].dip << "/" << now[i].azimuth << " is not "
                << wanted[i].dip << "/" << wanted[i].azimuth;
        }
    }

    /// Rotates there and back, and compares with the start.
    void ThereAndBack(const RotationSettings& there, const std::vector<RotationSettings>& back) {
        const std::vector<Attitude> primary = Now(RowAngles::Primary);
        const std::vector<Attitude> secondary = Now(RowAngles::Secondary);
        const std::vector<Attitude> appended = Now(RowAngles::Line);
        const bool areArrows = ActiveRecord().DataKind == kPolarLines;
        Rotate(there);
        for (const RotationSettings& step : back) {
            Rotate(step);
        }
        const Distance ofPrimary = isPlane_    ? BetweenPlanes
                                   : areArrows ? BetweenArrows
                                               : BetweenAxes;
        ExpectNear(Now(RowAngles::Primary), primary, ofPrimary, kReturn);
        ExpectNear(Now(RowAngles::Secondary), secondary, areArrows ? BetweenArrows : BetweenAxes,
                   kReturn);
        ExpectNear(Now(RowAngles::Line), appended, BetweenAxes, kReturn);
    }

    static constexpr double kReturn = 1e-5; // ten times better than what is required
    bool isPlane_ = false;
};

RotationSettings About(double plunge, double trend, double angle) {
    RotationSettings settings;
    settings.operation = kRotateAboutAxis;
    settings.inclination = plunge;
    settings.azimuth = std::fmod(trend + 720, 360);
    settings.angle = angle;
    return settings;
}

TEST_F(MeasuredRotation, AndItsReverseReturnEveryRow) {
    struct Case {
        std::int16_t format, kind;
        double least;
    };

    std::mt19937 random(20261122);
    std::uniform_real_distribution<double> part(0, 1);
    for (const Case& c : {Case{kPrimaryPlane, kPlanes, 0}, Case{kPrimaryLine, kLines, 0},
                          Case{kPrimaryLine, kPolarLines, -90}}) {
        for (int round = 0; round < 10 && !HasFailure(); ++round) {
            Make(c.format, c.kind, c.least, static_cast<unsigned int>(round) * 10);
            const bool isWhole = round % 2 == 0; // an axis that rows may lie on
            const double plunge = isWhole ? std::floor(part(random) * 91) : part(random) * 90;
            const double trend = isWhole ? std::floor(part(random) * 360) : part(random) * 360;
            const double angle = part(random) * 720 - 360;
            ThereAndBack(About(plunge, trend, angle), {About(plunge, trend, -angle)});
            ThereAndBack(LineUp(plunge, trend), {About(0, trend + 90, 90 - plunge)});
        }
        MakeStoreTables();
    }
}

TEST_F(MeasuredRotation, OfAPlaneToVerticalIsReversedByItsThreeParts) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> part(0, 1);
    for (int round = 0; round < 10 && !HasFailure(); ++round) {
        Make(kPrimaryLine, kPolarLines, -90, 100 + static_cast<unsigned int>(round));
        const double dip = part(random) * 90;
        const double direction = part(random) * 360;
        const RotationSettings there =
            PlaneUp(dip, direction, part(random) * 360, part(random) * 89, round % 2 ? "N" : "S");
        const Rotation made = RotationOf(there);
        const double pitch = RadToDeg(made.pitch);
        const double away = RadToDeg(made.angle) - (pitch < 0 ? 0 : 180);
        ThereAndBack(there, {About(0, away + 90, std::abs(pitch)),
                             About(90, 0, RadToDeg(made.strike - made.angle)),
                             About(0, direction + 90, 90 - dip)});
    }
}

TEST_F(MeasuredRotation, OfRowsOnAndBesideAxisAndHingeReturnsToo) {
    PlotOf(kPrimaryLine, kPolarLines, std::vector<Pair>(8));
    Fill(RowAngles::Primary,
         {{0.00003, 130.00002},
          {-0.00003, 310},
          {89.99997, 40},
          {30.00001, 40},
          {0.00005, 40.00005},
          {59.99998, 220},
          {-30.00002, 39.99999},
          {0.00002, 220.00003}},
         false);
    const std::vector<Attitude> before = Now(RowAngles::Primary);
    for (const double angle : {0.0, 0.00001, 90.0, 137.5, 180.0}) {
        Rotate(About(30, 40, angle));
        Rotate(About(30, 40, -angle));
        ExpectNear(Now(RowAngles::Primary), before, BetweenArrows, kReturn);
    }
}

TEST_F(MeasuredRotation, GivesRowsOfWholeDegreesDecimalsBesideTheSameWholeDegrees) {
    const std::vector<Pair> rows = RandomRows(400, -90, 11);
    PlotOf(kPrimaryLine, kPolarLines, rows);
    Rotate(AboutAxis(33, 71, 101));
    const std::vector<Attitude> measured = Now(RowAngles::Primary);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        double plunge = 0;
        double trend = 0;
        RotateLineAboutAxis(DegToRad(rows[i].first), DegToRad(rows[i].second), DegToRad(101.0),
                            DegToRad(33.0), DegToRad(71.0), plunge, trend);
        ASSERT_EQ(Primary()[i].first, static_cast<int>(RoundToEven(RadToDeg(plunge)))) << i;
        ASSERT_NEAR(measured[i].dip, RadToDeg(plunge), 0.6e-6) << i;
        ASSERT_EQ(measured[i], ToMicrodegree(measured[i])) << i;
    }
}

TEST_F(MeasuredRotation, ByNothingKeepsTheVeryNumbers) {
    for (const RotationSettings& rotation :
         {AboutAxis(0, 0, 0), AboutAxis(37, 211, 360), LineUp(90, 77)}) {
        Make(kPrimaryPlane, kPlanes, 0, 5);
        Measure(gActivePlot, RowAngles::Primary, 1, {47.3, 359.7}, true); // 360 in whole degrees
        const auto primary = Now(RowAngles::Primary);
        const auto secondary = Now(RowAngles::Secondary);
        const std::vector<Pair> whole = Primary();
        Rotate(rotation);
        EXPECT_EQ(Now(RowAngles::Primary), primary);
        EXPECT_EQ(Now(RowAngles::Secondary), secondary);
        EXPECT_EQ(Primary(), whole);
    }
    PlotOf(kPrimaryPlane, kPlanes, RandomRows(50, 0, 3));
    Rotate(AboutAxis(37, 211, 0));
    EXPECT_EQ(ActivePlot().rows.measured.RowCount(), 0) << "no columns for rows without decimals";
}

TEST_F(MeasuredRotation, IsTakenBackExactly) {
    Make(kPrimaryPlane, kPlanes, 0, 9);
    Measure(gActivePlot, RowAngles::Primary, 1, {20, 30}, true); // a row without decimals
    const auto primary = Now(RowAngles::Primary);
    const auto secondary = Now(RowAngles::Secondary);
    const auto appended = Now(RowAngles::Line);
    const std::vector<Pair> whole = Primary();
    Rotate(AboutAxis(33, 71, 101.5));
    EXPECT_NE(Now(RowAngles::Primary), primary);
    ASSERT_TRUE(UndoRotation());
    EXPECT_EQ(Now(RowAngles::Primary), primary);
    EXPECT_EQ(Now(RowAngles::Secondary), secondary);
    EXPECT_EQ(Now(RowAngles::Line), appended);
    EXPECT_EQ(Primary(), whole);
    EXPECT_FALSE(DecimalsOf(ActivePlot().rows, RowAngles::Primary, 1));
}

TEST_F(MeasuredRotation, CannotBeTakenBackOnceDecimalsHaveChanged) {
    Make(kPrimaryPlane, kPlanes, 0, 9);
    Rotate(AboutAxis(33, 71, 101.5));
    ASSERT_TRUE(CanUndoRotation());
    const Attitude now = Now(RowAngles::Primary)[4];
    const double nudge =
        now.azimuth > WholeAttitude(ActivePlot().rows, RowAngles::Primary, 5).azimuth ? -0.000001
                                                                                      : 0.000001;
    ASSERT_TRUE(
        SetDecimals(ActivePlot().rows, RowAngles::Primary, 5, {now.dip, now.azimuth + nudge}));
    EXPECT_FALSE(CanUndoRotation());
}

TEST_F(MeasuredRotation, UnfoldsMeasuredBeds) {
    PlanesWith(kSecondaryLine, {{0, 0}}, {{0, 0}});
    Measure(gActivePlot, RowAngles::Primary, 1, {47.3, 218.6}, true);
    Measure(gActivePlot, RowAngles::Secondary, 1, {20.25, 200.125}, false);
    Rotate(Unfolding(0, 128.6)); // about the strike of the bed
    EXPECT_EQ(Now(RowAngles::Primary)[0], (Attitude{0, 218.6}));
    EXPECT_EQ(Primary()[0], Pair(0, 219));
    const Vector strike = Horizontal(Radians(128.6));
    const Vector normal = NormalOfPlane({47.3, 218.6});
    const Vector up = TurnedAbout(normal, strike, Radians(47.3));
    const double angle = up.down > 0.999999 ? 47.3 : -47.3; // the way that makes the bed level
    const Vector wanted = TurnedAbout(VectorOf({20.25, 200.125}), strike, Radians(angle));
    EXPECT_LT(DegreesOf(AcuteAngleOf(VectorOf(Now(RowAngles::Secondary)[0]), wanted)), 2e-6);
}

TEST_F(MeasuredRotation, UnfoldsAboutAMeasuredAxis) {
    PlanesWith(kSecondaryLine, {{0, 0}}, {{0, 0}});
    AddAppended({{0, 0}});
    Measure(gActivePlot, RowAngles::Primary, 1, {47.3, 218.6}, true);
    Measure(gActivePlot, RowAngles::Secondary, 1, {20.25, 200.125}, false);
    Measure(gActivePlot, RowAngles::Line, 1, {12.5, 140.4}, false);
    Rotate(UnfoldingOwn());
    double plunge = 0;
    double trend = 0;
    UnfoldRow(DegToRad(47.3), DegToRad(218.6), DegToRad(12.5), DegToRad(140.4), DegToRad(20.25),
              DegToRad(200.125), plunge, trend);
    EXPECT_EQ(Now(RowAngles::Secondary)[0],
              ToMicrodegree(Attitude{std::abs(RadToDeg(plunge)), RadToDeg(trend)}));
    EXPECT_EQ(Now(RowAngles::Line)[0], (Attitude{12.5, 140.4}));
}

TEST_F(MeasuredRotation, TurnsTheOverlayOfTheSecondaryDataWithThem) {
    PlanesWith(kSecondaryLine, {{60, 90}}, {{0, 0}});
    AddOverlay(kOverlayPolarLines, 0, 0, CodeOfStyleRow(3));
    ActiveRecord().SelectedOverlay = 1;
    Measure(gActivePlot, RowAngles::Secondary, 1, {-20.25, 200.125}, false);
    Measure(gActivePlot, RowAngles::Primary, 2, {-20.25, 200.125}, false);
    Rotate(AboutAxis(12, 34, 56));
    EXPECT_TRUE(DecimalsOf(ActivePlot().rows, RowAngles::Secondary, 1));
    EXPECT_EQ(Now(RowAngles::Primary)[1], Now(RowAngles::Secondary)[0]);
}

TEST_F(MeasuredRotation, KeepsTheSenseOfALineThatIsLevelInWholeDegrees) {
    PlotOf(kPrimaryLine, kLines, {{0, 0}, {50, 10}});
    Measure(gActivePlot, RowAngles::Primary, 1, {-0.3, 100.2}, false);
    ASSERT_EQ(Primary()[0], Pair(0, 280));
    Rotate(AboutAxis(90, 0, 30));
    EXPECT_EQ(Now(RowAngles::Primary)[0], (Attitude{-0.3, 130.2}));
    EXPECT_EQ(Primary()[0], Pair(0, 310));
    Rotate(AboutAxis(0, 40.2, 10));
    const Vector wanted =
        TurnedAbout(VectorOf({-0.3, 130.2}), Horizontal(Radians(40.2)), Radians(10));
    EXPECT_LT(DegreesOf(AngleOf(VectorOf(Now(RowAngles::Primary)[0]), wanted)), 2e-6)
        << "turned as an arrow";
}

TEST_F(MeasuredRotation, KeepsTheSignsOfPAndTAxes) {
    PlotOf(kPrimaryLine, kPolarLines, std::vector<Pair>(400));
    ActiveRecord().AxesTitle = "P & T";
    std::vector<Attitude> axes = RandomAttitudes(400, 0, 77);
    for (std::size_t i = 1; i < axes.size(); i += 2) {
        axes[i].dip = -axes[i].dip; // each P is followed by its T
    }
    Fill(RowAngles::Primary, axes, false);
    int otherEnds = 0;
    for (int step = 0; step < 20; ++step) {
        const std::vector<Attitude> before = Now(RowAngles::Primary);
        const int trend = 31 * step % 360;
        Rotate(AboutAxis(5, trend, 17));
        const std::vector<Attitude> now = Now(RowAngles::Primary);
        const std::vector<Pair> wholes = Primary();
        const Vector axis = VectorOf({5, trend});
        for (std::size_t i = 0; i < now.size(); ++i) {
            const Vector wanted = TurnedAbout(VectorOf(before[i]), axis, Radians(17));
            ASSERT_LT(DegreesOf(AcuteAngleOf(VectorOf(now[i]), wanted)), 2e-6) << i;
            ASSERT_TRUE(i % 2 == 0 ? now[i].dip > 0 : now[i].dip < 0) << i;
            const Pair whole = wholes[i];
            ASSERT_EQ(whole.first, std::nearbyint(now[i].dip)) << i;
            const double azimuth =
                std::nearbyint(now[i].azimuth) + (now[i].dip < 0 && whole.first == 0 ? 180 : 0);
            const double turn = std::abs(std::fmod(whole.second - azimuth, 360));
            // Either end of a level axis names it in whole degrees.
            ASSERT_TRUE(turn == 0 || std::abs(whole.first) == 90
                        || (whole.first == 0 && turn == 180))
                << i << ": " << whole.second << " beside " << now[i].azimuth;
            otherEnds += turn == 180 && whole.first == 0 ? 1 : 0;
        }
    }
    EXPECT_GT(otherEnds, 0);
}

TEST_F(MeasuredRotation, IsPreviewedWhereItPlotsTheRows) {
    for (const std::int16_t uses : {std::int16_t{0}, kTrue}) {
        Make(kPrimaryPlane, kPlanes, 0, 21);
        ActiveRecord().UseDecimals = uses;
        RebuildRowTable(gActivePlot);
        const RotationSettings rotation = AboutAxis(33, 71, 44);
        const std::vector<PreviewedRow> preview = PreviewRotation(rotation);
        Rotate(rotation);
        const RowTable& table = TableOf(gActivePlot);
        ASSERT_EQ(preview.size(), table.size());
        int apart = 0;
        for (std::size_t i = 0; i < table.size(); ++i) {
            const auto place = static_cast<std::size_t>(table.index[i]) - 1;
            ASSERT_EQ(preview[place].row, table.index[i]);
            apart += preview[place].place.x != table.x[i] || preview[place].place.y != table.y[i];
        }
        EXPECT_EQ(apart, 0) << "decimals " << uses;
    }
}

} // namespace
} // namespace quandrel
