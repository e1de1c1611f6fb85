// SPDX-License-Identifier: MIT

#include "orientation/angles.h"
#include "rotation/rotation_kernels.h"
#include "support/turning.h"

#include <gtest/gtest.h>

#include <random>

namespace quandrel {
namespace {

using namespace testing;

// Lines within 1e-6 of horizontal, vertical or the hinge are settled; three tilts may add up.
constexpr double kTolerance = 4e-6;
constexpr int kSamples = 20000;

/// Whole-degree lines and planes with many at the edges, and fractional ones between.
class Angles {
public:
    double Plunge() { return Radians(Value(-90, 90)); }

    double Downward() { return std::abs(Plunge()); }

    double Trend() { return Radians(Value(0, 360)); }

    double Any(int least, int most) { return Radians(Value(least, most)); }

private:
    double Value(int least, int most) {
        const int kind = static_cast<int>(random_() % 4);
        if (kind == 0) {
            return std::uniform_real_distribution<double>(least, most)(random_);
        }
        std::uniform_int_distribution<int> whole(least, most);
        if (kind == 1) {
            return whole(random_) / 45 * 45;
        }
        return whole(random_);
    }

    std::mt19937 random_{20261122};
};

struct Line {
    double plunge = 0;
    double trend = 0;
};

Vector VectorOf(Line line) {
    return LineVector(line.plunge, line.trend);
}

Line Tilted(Line line, Line axis) {
    Line out;
    TiltLine(line.plunge, line.trend, axis.plunge, axis.trend, out.plunge, out.trend);
    return out;
}

Line Rotated(Line line, double angle, Line axis) {
    Line out;
    RotateLineAboutAxis(line.plunge, line.trend, angle, axis.plunge, axis.trend, out.plunge,
                        out.trend);
    return out;
}

/// The hinge of a tilt toward a line's vertical, such that a turn about it by pi/2 less its plunge
/// is the tilt: the axis on the left of the trend.
Vector HingeOf(double trend) {
    return Horizontal(trend - kHalfTurn / 2);
}

TEST(TiltLine, EqualsRodriguesAboutTheHinge) {
    Angles angles;
    for (int i = 0; i < kSamples; ++i) {
        const Line line{angles.Plunge(), angles.Trend()};
        const Line axis{angles.Downward(), angles.Trend()};
        const Line out = Tilted(line, axis);
        const Vector truth =
            TurnedAbout(VectorOf(line), HingeOf(axis.trend), kHalfTurn / 2 - axis.plunge);
        ASSERT_LT(Apart(VectorOf(out), truth), kTolerance)
            << line.plunge << ' ' << line.trend << " by " << axis.plunge << ' ' << axis.trend;
        ASSERT_GE(out.trend, 0);
        ASSERT_LE(out.trend, kTwoPi);
    }
}

TEST(TiltLine, CarriesTheLineItIsNamedAfterToTheVertical) {
    Angles angles;
    for (int i = 0; i < 2000; ++i) {
        const Line axis{angles.Downward(), angles.Trend()};
        EXPECT_EQ(Tilted(axis, axis).plunge, kPi / 2) << axis.plunge << ' ' << axis.trend;
    }
}

TEST(TiltLine, IgnoresTheSignOfTheAxis) {
    const Line line{0.3, 1.0};
    EXPECT_EQ(Tilted(line, {-0.5, 2.0}).plunge, Tilted(line, {0.5, 2.0}).plunge);
    EXPECT_EQ(Tilted(line, {-0.5, 2.0}).trend, Tilted(line, {0.5, 2.0}).trend);
}

TEST(TiltLine, GivesLinesOfTheHingeBackAsTheyCame) {
    for (const double hinge : {Radians(120), Radians(300)}) {
        for (const double plunge : {0.0, 5e-7, -5e-7}) {
            const Line out = Tilted({plunge, hinge}, {Radians(40), Radians(30)});
            EXPECT_EQ(out.plunge, plunge);
            EXPECT_EQ(out.trend, hinge);
        }
    }
}

TEST(TiltLine, AnUpwardLineThatComesOutHorizontalPointsWhereItDid) {
    // A hair above the horizontal, tilted by nothing: (-p, 040) points to 220.
    const Line out = Tilted({-2e-7, Radians(40)}, {kPi / 2, Radians(10)});
    EXPECT_EQ(out.plunge, 0);
    EXPECT_NEAR(out.trend, Radians(220), 1e-9);
    // (-30, 130) points up to 310. Lowered ahead by 30 about the hinge of 310, it lies there.
    const Line lowered = Tilted({Radians(-30), Radians(130)}, {Radians(60), Radians(310)});
    EXPECT_EQ(lowered.plunge, 0);
    EXPECT_NEAR(lowered.trend, Radians(310), 1e-9);
}

TEST(TiltLine, KeepsTheSenseOfAnUpwardLineThatBecomesVertical) {
    const Line axis{Radians(35), Radians(200)};
    EXPECT_EQ(Tilted({-axis.plunge, axis.trend}, axis).plunge, -kPi / 2);
    EXPECT_EQ(Tilted({-kPi / 2, 0}, {kPi / 2, 0}).plunge, -kPi / 2);
}

TEST(RotateLineAboutAxis, EqualsRodrigues) {
    Angles angles;
    for (int i = 0; i < kSamples; ++i) {
        const Line line{angles.Plunge(), angles.Trend()};
        const Line axis{angles.Downward(), angles.Trend()};
        const double angle = angles.Any(-360, 360);
        const Vector truth = TurnedAbout(VectorOf(line), VectorOf(axis), angle);
        ASSERT_LT(Apart(VectorOf(Rotated(line, angle, axis)), truth), kTolerance)
            << line.plunge << ' ' << line.trend << " by " << angle << " about " << axis.plunge
            << ' ' << axis.trend;
    }
}

TEST(RotateLineAboutAxis, IsClockwiseLookingDownThePlunge) {
    // Looking north along a horizontal axis, what points up comes to the right, which is east.
    const Line out = Rotated({-kPi / 2, 0}, Radians(90), {0, 0});
    EXPECT_LT(Apart(VectorOf(out), {0, 1, 0}), kTolerance);
}

TEST(RotateLineAboutAxis, ByNothingChangesNothing) {
    for (int plunge = -90; plunge <= 90; plunge += 5) {
        for (int trend = 0; trend <= 360; trend += 15) {
            for (const Line axis : {Line{0, 0.3}, {0.4, 4}, {Radians(89), 1}, {kPi / 2, 2}}) {
                const Line line{Radians(plunge), Radians(trend)};
                const Line out = Rotated(line, 0, axis);
                ASSERT_LT(Apart(VectorOf(out), VectorOf(line)), kTolerance)
                    << plunge << '/' << trend;
                ASSERT_NEAR(out.plunge, line.plunge, kTolerance) << plunge << '/' << trend;
            }
        }
    }
}

TEST(RotateLineAboutAxis, AddsToTheTrendAboutTheVertical) {
    const Line out = Rotated({0, Radians(350)}, Radians(30), {kPi / 2, Radians(77)});
    EXPECT_EQ(out.plunge, 0);
    EXPECT_NEAR(out.trend, Radians(20), 1e-12);
    const Line up = Rotated({-0.2, Radians(10)}, Radians(-30), {-kPi / 2, 0});
    EXPECT_EQ(up.plunge, -0.2);
    EXPECT_NEAR(up.trend, Radians(340), 1e-12);
}

TEST(RotateLineAboutAxis, TheOppositeAngleLeadsBack) {
    Angles angles;
    for (int i = 0; i < kSamples; ++i) {
        const Line line{angles.Plunge(), angles.Trend()};
        const Line axis{angles.Downward(), angles.Trend()};
        const double angle = angles.Any(-180, 180);
        const Line back = Rotated(Rotated(line, angle, axis), -angle, axis);
        ASSERT_LT(Apart(VectorOf(back), VectorOf(line)), 2 * kTolerance);
    }
}

TEST(RotatePlaneAboutAxis, TurnsTheNormal) {
    Angles angles;
    for (int i = 0; i < kSamples; ++i) {
        const double dip = angles.Plunge();
        const double dipDir = angles.Trend();
        const Line axis{angles.Downward(), angles.Trend()};
        const double angle = angles.Any(-360, 360);
        double outDip = 0;
        double outDipDir = 0;
        RotatePlaneAboutAxis(dip, dipDir, axis.plunge, axis.trend, angle, outDip, outDipDir);
        const Vector truth = TurnedAbout(PlaneNormal(std::abs(dip), dipDir), VectorOf(axis), angle);
        ASSERT_LT(AcuteAngleOf(PlaneNormal(outDip, outDipDir), truth), kTolerance);
        ASSERT_GE(outDip, 0);
        ASSERT_LE(outDip, kPi / 2);
    }
}

/// The rotation of RotatePlaneToVertical by three turns of vectors: the plane about its strike, the
/// whole about the vertical, and again about the pole of the plane until the pitched line lies.
Vector PlaneToVerticalTruth(Vector vector, double dip, double dipDir, double strike, double pitch,
                            double newAz) {
    vector = TurnedAbout(vector, HingeOf(dipDir), kHalfTurn / 2 - dip);
    vector = TurnedAbout(vector, {0, 0, 1}, newAz - strike);
    // The hinge on the left of newAz lowers what lies ahead; to lift the pitched line, turn back.
    return TurnedAbout(vector, Horizontal(newAz + kHalfTurn / 2), pitch);
}

TEST(RotatePlaneToVertical, EqualsTheThreeTurns) {
    Angles angles;
    for (int i = 0; i < kSamples; ++i) {
        const Line line{angles.Plunge(), angles.Trend()};
        const double dip = angles.Downward();
        const double dipDir = angles.Trend();
        const double strike = dipDir + (i % 2 == 0 ? 1 : -1) * kHalfTurn / 2;
        const double pitch = angles.Plunge();
        const double newAz = angles.Trend();
        Line out;
        RotatePlaneToVertical(line.plunge, line.trend, strike, dip, dipDir, pitch, newAz,
                              out.plunge, out.trend);
        ASSERT_LT(Apart(VectorOf(out),
                        PlaneToVerticalTruth(VectorOf(line), dip, dipDir, strike, pitch, newAz)),
                  kTolerance);
    }
}

TEST(RotatePlaneToVertical, EndsVerticalOnTheNewStrikeWithThePitchedLineLevel) {
    Angles angles;
    for (int i = 0; i < 5000; ++i) {
        const double dip = angles.Any(1, 90);
        const double dipDir = angles.Trend();
        const double strike = dipDir + (i % 2 == 0 ? 1 : -1) * kHalfTurn / 2;
        const double pitch = angles.Plunge();
        const double newAz = angles.Trend();
        const Vector downDip = LineVector(dip, dipDir);
        const Vector pitched = Sum(Horizontal(pitch < 0 ? strike + kHalfTurn : strike),
                                   std::cos(pitch), downDip, std::sin(std::abs(pitch)));
        const auto carried = [&](const Vector& vector) {
            double plunge = 0;
            double trend = 0;
            CosinesToLine(vector.north, vector.east, vector.down, plunge, trend);
            Line out;
            RotatePlaneToVertical(plunge, trend, strike, dip, dipDir, pitch, newAz, out.plunge,
                                  out.trend);
            return VectorOf(out);
        };
        const Vector pole = carried(PlaneNormal(dip, dipDir));
        ASSERT_NEAR(pole.down, 0, kTolerance);
        ASSERT_NEAR(Dot(pole, Horizontal(newAz)), 0, kTolerance);
        const Vector level = carried(pitched);
        ASSERT_NEAR(level.down, 0, kTolerance);
        ASSERT_LT(Apart(level, Horizontal(pitch < 0 ? newAz + kHalfTurn : newAz)), kTolerance);
    }
}

/// Unfolding by two turns of vectors. The bed as it lies after the first is turned about its strike
/// by the angle that brings its upper side up.
struct Unfolding {
    Vector axis;
    Vector downNormal;
    Vector vector;
};

Unfolding UnfoldingTruth(double dip, double dipDir, Line axis, Vector vector) {
    const Vector hinge = Horizontal(axis.trend + kHalfTurn / 2);
    const auto lift = [&](const Vector& v) { return TurnedAbout(v, hinge, axis.plunge); };
    Vector normal = lift(PlaneNormal(std::abs(dip), dipDir));
    if (normal.down < -1e-12) {
        normal = Opposite(normal);
    }
    const Vector flat = {0, 0, 1};
    const Vector strike = Length(CrossProduct(normal, flat)) < 1e-6
                              ? Horizontal(dipDir + kHalfTurn / 2)
                              : Unit(CrossProduct(normal, flat));
    const double shortWay = AngleOf(normal, flat);
    const double angle = dip < 0 ? shortWay - kHalfTurn : shortWay;
    const auto lay = [&](const Vector& v) { return TurnedAbout(lift(v), strike, angle); };
    return {lay(VectorOf(axis)), lay(PlaneNormal(std::abs(dip), dipDir)), lay(vector)};
}

/// A line as UnfoldRow returns it.
Vector Unfolded(double dip, double dipDir, Line axis, Line line) {
    Line out;
    UnfoldRow(dip, dipDir, axis.plunge, axis.trend, line.plunge, line.trend, out.plunge, out.trend);
    return VectorOf(out);
}

TEST(UnfoldRow, EqualsTheTwoRotations) {
    Angles angles;
    int compared = 0;
    for (int i = 0; i < kSamples; ++i) {
        const double dip = angles.Plunge();
        const double dipDir = angles.Trend();
        const Line axis{angles.Downward(), angles.Trend()};
        const Line line{angles.Plunge(), angles.Trend()};
        const Vector lifted = TurnedAbout(PlaneNormal(std::abs(dip), dipDir),
                                          Horizontal(axis.trend + kHalfTurn / 2), axis.plunge);
        if (dip == 0 || std::abs(lifted.down) < 1e-5) {
            continue; // a bed that is vertical in between may go to either side
        }
        ++compared;
        const Unfolding truth = UnfoldingTruth(dip, dipDir, axis, VectorOf(line));
        ASSERT_LT(Apart(Unfolded(dip, dipDir, axis, line), truth.vector), kTolerance)
            << dip << ' ' << dipDir << " about " << axis.plunge << ' ' << axis.trend;
    }
    EXPECT_GT(compared, kSamples / 2);
}

TEST(UnfoldRow, LaysBedAndFoldAxisFlatAndKeepsTheAngleToTheLine) {
    Angles angles;
    for (int i = 0; i < 5000; ++i) {
        // A bed that holds the fold axis: its normal is at right angles to it.
        const Line axis{angles.Any(0, 89), angles.Trend()};
        const double about = angles.Any(0, 180);
        Vector normal = TurnedAbout(Horizontal(axis.trend + kHalfTurn / 2), VectorOf(axis), about);
        normal = normal.down < 0 ? Opposite(normal) : normal;
        const bool isOverturned = i % 2 == 0;
        const double dip = std::acos(std::min(1.0, normal.down)) * (isOverturned ? -1 : 1);
        if (std::abs(dip) < Radians(1) || std::abs(dip) > Radians(89)) {
            continue;
        }
        const double dipDir = WrappedAngle(std::atan2(-normal.east, -normal.north));
        const Line line{angles.Plunge(), angles.Trend()};
        double polePlunge = 0;
        double poleTrend = 0;
        PoleOfPlane(dip, dipDir, polePlunge, poleTrend);
        const Vector pole = Unfolded(dip, dipDir, axis, {polePlunge, poleTrend});
        ASSERT_NEAR(pole.down, isOverturned ? -1 : 1, 1e-9) << dip;
        ASSERT_NEAR(Unfolded(dip, dipDir, axis, axis).down, 0, kTolerance);
        ASSERT_NEAR(AngleOf(Unfolded(dip, dipDir, axis, line), pole),
                    AngleOf(VectorOf(line), normal), kTolerance);
    }
}

TEST(UnfoldRow, AnOverturnedBedGoesTheLongWay) {
    // Dipping 60 east and overturned: 120 degrees about the strike bring its base down again. What
    // points down the dip then points west.
    const Vector normal = Unfolded(Radians(60), Radians(90), {0, 0}, {Radians(60), Radians(90)});
    EXPECT_LT(Apart(normal, Horizontal(Radians(90))), kTolerance);
    const Vector over = Unfolded(Radians(-60), Radians(90), {0, 0}, {Radians(60), Radians(90)});
    EXPECT_LT(Apart(over, Horizontal(Radians(270))), kTolerance);
}

TEST(UnfoldRow, AHorizontalBedKeepsItsLines) {
    double plunge = 0;
    double trend = 0;
    UnfoldRow(0, 1.2, Radians(40), 2.5, -0.3, 5.1, plunge, trend);
    EXPECT_EQ(plunge, -0.3);
    EXPECT_EQ(trend, 5.1);
}

TEST(UnfoldRow, AHorizontalAxisLeavesOneRotation) {
    // About the strike alone, whatever the trend of the axis: a bed that dips 50 to 140 is lifted
    // by a turn of 50, anticlockwise as seen looking along 050, with the dip on the right.
    for (const double trend : {0.0, 1.0, 4.0}) {
        const Vector line = Unfolded(Radians(50), Radians(140), {0, trend}, {0.3, 2.0});
        const Vector truth =
            TurnedAbout(LineVector(0.3, 2.0), Horizontal(Radians(50)), Radians(-50));
        EXPECT_LT(Apart(line, truth), kTolerance) << trend;
    }
}

TEST(RotationBetweenPlanes, CarriesTheFirstIntoTheSecondTheShortWay) {
    Angles angles;
    for (int i = 0; i < kSamples; ++i) {
        const double dip1 = angles.Plunge();
        const double dipDir1 = angles.Trend();
        const double dip2 = angles.Plunge();
        const double dipDir2 = angles.Trend();
        double axisPlunge = 0;
        double axisTrend = 0;
        double angle = 0;
        RotationBetweenPlanes(dip1, dipDir1, dip2, dipDir2, axisPlunge, axisTrend, angle);
        const Vector first = PlaneNormal(std::abs(dip1), dipDir1);
        const Vector second = PlaneNormal(std::abs(dip2), dipDir2);
        ASSERT_GE(axisPlunge, 0);
        ASSERT_LE(std::abs(angle), kHalfTurn / 2 + 1e-9);
        // The sine is flat at a right angle: there the angle is known only to about 1e-8.
        ASSERT_NEAR(std::abs(angle), AcuteAngleOf(first, second), 1e-7);
        const Vector turned = TurnedAbout(first, LineVector(axisPlunge, axisTrend), angle);
        ASSERT_LT(AcuteAngleOf(turned, second), 1e-7) << dip1 << ' ' << dipDir1 << ' ' << dip2;
    }
}

TEST(RotationBetweenPlanes, ParallelPlanesTakeNoRotation) {
    for (const Line plane : {Line{0, 0}, {0.5, 1}, {Radians(90), 2}, {-0.5, 3}}) {
        double axisPlunge = -1;
        double axisTrend = -1;
        double angle = -1;
        RotationBetweenPlanes(plane.plunge, plane.trend, plane.plunge, plane.trend, axisPlunge,
                              axisTrend, angle);
        EXPECT_EQ(angle, 0);
        EXPECT_EQ(axisPlunge, 0);
        EXPECT_NEAR(std::cos(axisTrend - plane.trend), 0, 1e-9);
    }
    double axisPlunge = 0;
    double axisTrend = 0;
    double angle = -1;
    // Two vertical planes that dip to opposite sides are one plane.
    RotationBetweenPlanes(Radians(90), 0.5, Radians(90), 0.5 + kHalfTurn, axisPlunge, axisTrend,
                          angle);
    EXPECT_EQ(angle, 0);
}

} // namespace
} // namespace quandrel
