// SPDX-License-Identifier: MIT

#include "orientation/angles.h"
#include "orientation/vectors.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>

namespace quandrel {
namespace {

using testing::AcuteAngleOf;
using testing::LineVector;
using testing::PlaneNormal;
using testing::Radians;
using testing::Unit;
using testing::Vector;

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr unsigned kSeed = 20240117;

struct TestLine {
    double plunge = 0;
    double trend = 0;
};

Vector AsVector(const Direction& direction) {
    return {direction.l, direction.m, direction.n};
}

double AzimuthApart(double a, double b) {
    return std::abs(std::remainder(a - b, 2 * std::numbers::pi));
}

TEST(AngleConstants, AreTheLiteralValues) {
    EXPECT_EQ(kPi, 3.14159265358979);
    EXPECT_EQ(kTwoPi, 6.28318530717958);
    EXPECT_EQ(kNoAnswerPlunge, -3.14159265358979 / 2);
}

TEST(RoundToEven, TakesHalvesToTheEvenNeighbour) {
    struct Case {
        double value;
        double expected;
    };

    for (const Case& c : {Case{0.5, 0},
                          {1.5, 2},
                          {2.5, 2},
                          {-0.5, 0},
                          {-1.5, -2},
                          {-2.5, -2},
                          {2.4999, 2},
                          {2.5001, 3},
                          {-7.9, -8},
                          {1e15 + 0.5, 1e15}}) {
        EXPECT_EQ(RoundToEven(c.value), c.expected) << c.value;
        EXPECT_EQ(RoundToEvenLong(c.value), static_cast<long>(c.expected)) << c.value;
    }
}

TEST(RoundToEvenLong, StaysInsideItsRange) {
    EXPECT_EQ(RoundToEvenLong(1e300), std::numeric_limits<long>::max());
    EXPECT_EQ(RoundToEvenLong(-1e300), std::numeric_limits<long>::min());
    EXPECT_EQ(RoundToEvenLong(kNotANumber), 0);
}

TEST(DegToRad, ConvertsNumbersAndTexts) {
    EXPECT_NEAR(DegToRad(180.0), std::numbers::pi, 1e-14);
    EXPECT_NEAR(DegToRad("-45"), -std::numbers::pi / 4, 1e-14);
    EXPECT_NEAR(DegToRad(" 22,5 "), std::numbers::pi / 8, 1e-14);
}

TEST(DegToRad, GivesTheMarkForWhatIsNoNumber) {
    EXPECT_EQ(DegToRad(kNotANumber), 9999);
    EXPECT_EQ(DegToRad(kInfinity), 9999);
    for (const char* text : {"", "abc", "12abc", "nan", "0x10", "1e999"}) {
        EXPECT_EQ(DegToRad(text), 9999) << text;
    }
}

TEST(RadToDeg, UndoesDegToRad) {
    for (int degrees = -400; degrees <= 400; ++degrees) {
        EXPECT_NEAR(RadToDeg(DegToRad(degrees)), degrees, 1e-12);
    }
    EXPECT_EQ(RadToDeg(kNotANumber), 0);
    EXPECT_EQ(RadToDeg(-kInfinity), 0);
}

TEST(RadToDegText, WritesWholeDegreesAsPlainDigits) {
    EXPECT_EQ(RadToDegText(Radians(45)), "45");
    EXPECT_EQ(RadToDegText(Radians(-7.4)), "-7");
    EXPECT_EQ(RadToDegText(Radians(-0.2)), "0");
    EXPECT_EQ(RadToDegText(kNotANumber), "0");
}

TEST(RadToDegText, RoundsHalvesToEven) {
    // 0.5 and 1.5 degrees in the program's own pi, so that the halves are exact.
    EXPECT_EQ(RadToDegText(kPi / 360), "0");
    EXPECT_EQ(RadToDegText(kPi / 120), "2");
    EXPECT_EQ(RadToDegText(kPi / 72), "2");
}

TEST(RadToDegText, GivesBackEveryWholeDegree) {
    for (int degrees = -360; degrees <= 360; ++degrees) {
        EXPECT_EQ(RadToDegText(DegToRad(degrees)), std::to_string(degrees));
    }
}

TEST(RadToAzimuthText, PadsToThreeDigits) {
    EXPECT_EQ(RadToAzimuthText(Radians(7)), "007");
    EXPECT_EQ(RadToAzimuthText(0), "000");
    EXPECT_EQ(RadToAzimuthText(kPi / 72), "002");
    EXPECT_EQ(RadToAzimuthText(kTwoPi), "360");
    EXPECT_EQ(RadToAzimuthText(kNotANumber), "000");
}

// Kept: a full turn stays a full turn and does not become 0.
TEST(WrapAngle, KeepsExactlyTwoPi) {
    double angle = kTwoPi;
    WrapAngle(angle);
    EXPECT_EQ(angle, kTwoPi);
}

TEST(WrapAngle, TakesOffAndAddsFullTurns) {
    EXPECT_EQ(WrappedAngle(7), 7 - kTwoPi);
    EXPECT_EQ(WrappedAngle(-1), kTwoPi - 1);
    EXPECT_EQ(WrappedAngle(0), 0);
    EXPECT_NEAR(WrappedAngle(-20), 4 * kTwoPi - 20, 1e-14);
}

TEST(WrapAngle, EndsForHugeAndUnusableValues) {
    for (const double value : {1e300, -1e300, 1e9}) {
        const double wrapped = WrappedAngle(value);
        EXPECT_GE(wrapped, 0);
        EXPECT_LE(wrapped, kTwoPi);
    }
    EXPECT_TRUE(std::isnan(WrappedAngle(kNotANumber)));
    EXPECT_EQ(WrappedAngle(kInfinity), kInfinity);
}

TEST(WrappedAngle, LeavesItsArgumentAlone) {
    const double angle = -1;
    EXPECT_EQ(WrappedAngle(angle), kTwoPi - 1);
    EXPECT_EQ(angle, -1);
}

TEST(ArcCos, ClipsCosinesBeyondOne) {
    EXPECT_EQ(ArcCos(1.0000001), 0);
    EXPECT_EQ(ArcCos(-1.0000001), kPi);
    EXPECT_EQ(ArcCos(1), 0);
    EXPECT_EQ(ArcCos(-1), kPi);
}

TEST(ArcSin, ClipsSinesBeyondOne) {
    EXPECT_EQ(ArcSin(1.0000001), kPi / 2);
    EXPECT_EQ(ArcSin(-1.0000001), -kPi / 2);
    EXPECT_EQ(ArcSin(0), 0);
    EXPECT_FALSE(std::signbit(ArcSin(-0.0)));
}

TEST(ArcCosAndArcSin, AgreeWithTheLibrary) {
    for (int i = -999; i <= 999; ++i) {
        const double x = i / 1000.0;
        EXPECT_NEAR(ArcCos(x), std::acos(x), 1e-13) << x;
        EXPECT_NEAR(ArcSin(x), std::asin(x), 1e-13) << x;
    }
}

TEST(PoleOfPlane, TurnsHorizontalAndVerticalPlanes) {
    double plunge = 0;
    double trend = 0;
    PoleOfPlane(0, 1, plunge, trend);
    EXPECT_EQ(plunge, kPi / 2);
    EXPECT_NEAR(trend, 1 + kPi, 1e-15);
    PoleOfPlane(kPi / 2, 4, plunge, trend);
    EXPECT_EQ(plunge, 0);
    EXPECT_NEAR(trend, 4 - kPi, 1e-14);
}

TEST(PoleOfPlane, IsTheDownwardNormal) {
    for (int dip = 0; dip <= 90; dip += 5) {
        for (int dipDirection = 0; dipDirection <= 360; dipDirection += 15) {
            double plunge = 0;
            double trend = 0;
            PoleOfPlane(Radians(dip), Radians(dipDirection), plunge, trend);
            // The pole of a vertical plane may be read from either end.
            const Vector normal = PlaneNormal(Radians(dip), Radians(dipDirection));
            const Vector pole = LineVector(plunge, trend);
            EXPECT_NEAR(dip == 90 ? AcuteAngleOf(pole, normal) : AngleOf(pole, normal), 0, 1e-13);
        }
    }
}

TEST(PoleOfPlane, IsItsOwnInverse) {
    for (int dip = 0; dip <= 90; ++dip) {
        for (int dipDirection = 0; dipDirection < 360; ++dipDirection) {
            double plunge = 0;
            double trend = 0;
            PoleOfPlane(DegToRad(dip), DegToRad(dipDirection), plunge, trend);
            double backDip = 0;
            double backDirection = 0;
            PoleOfPlane(plunge, trend, backDip, backDirection);
            ASSERT_NEAR(backDip, DegToRad(dip), 1e-14);
            ASSERT_NEAR(AzimuthApart(backDirection, DegToRad(dipDirection)), 0, 1e-13);
        }
    }
}

TEST(OppositeOfPlane, StaysInsideTheCircleForNegativeInput) {
    struct Case {
        double b;
        double expected;
    };

    // |b|, reduced, plus or minus half a turn.
    for (const Case& c : {Case{1, 1 + kPi},
                          {-1, 1 + kPi},
                          {4, 4 - kPi},
                          {-4, 4 - kPi},
                          {kTwoPi, kPi},
                          {0, kPi},
                          {kTwoPi + 1, 1 + kPi}}) {
        double plunge = 0;
        double trend = 0;
        OppositeOfPlane(-0.3, c.b, plunge, trend);
        EXPECT_NEAR(plunge, kPi / 2 - 0.3, 1e-15);
        EXPECT_NEAR(trend, c.expected, 1e-14) << c.b;
    }
}

TEST(LineToCosines, GivesTheVectorOfALine) {
    for (int plunge = -90; plunge <= 90; plunge += 5) {
        for (int trend = 0; trend <= 360; trend += 15) {
            const Direction direction = LineToCosines(Radians(plunge), Radians(trend));
            EXPECT_NEAR(AngleOf(AsVector(direction), LineVector(Radians(plunge), Radians(trend))),
                        0, 1e-14);
            EXPECT_NEAR(Length(AsVector(direction)), 1, 1e-15);
        }
    }
}

TEST(LineToCosines, GivesTheOppositeVectorForAnUpwardLine) {
    const Direction down = LineToCosines(0.4, 1.3);
    const Direction up = LineToCosines(-0.4, 1.3);
    EXPECT_NEAR(up.l, -down.l, 1e-14);
    EXPECT_NEAR(up.m, -down.m, 1e-14);
    EXPECT_NEAR(up.n, -down.n, 1e-14);
}

// Kept: a negative trend is mirrored.
TEST(LineToCosines, MirrorsNegativeTrends) {
    const Direction mirrored = LineToCosines(0.4, -1.3);
    const Direction plain = LineToCosines(0.4, 1.3);
    EXPECT_EQ(mirrored.l, plain.l);
    EXPECT_EQ(mirrored.m, plain.m);
    EXPECT_EQ(mirrored.n, plain.n);
}

// Kept: the sense of a vertical vector is lost.
TEST(CosinesToLine, LosesTheSenseOfAVerticalVector) {
    for (const double n : {-1.0, 1.0}) {
        double plunge = 0;
        double trend = 1;
        CosinesToLine(0, 0, n, plunge, trend);
        EXPECT_EQ(plunge, kPi / 2);
        EXPECT_EQ(trend, 0);
    }
}

TEST(CosinesToLine, ReadsTheAxesWithoutNegativeZeros) {
    struct Case {
        Direction direction;
        double trend;
    };

    for (const Case& c : {Case{{1, 0, 0}, 0},
                          {{1, -0.0, 0}, 0},
                          {{0, 1, 0}, kPi / 2},
                          {{-1, 0, 0}, kPi},
                          {{0, -1, 0}, 3 * kPi / 2},
                          {{-0.0, 1, -0.0}, kPi / 2}}) {
        double plunge = 1;
        double trend = 1;
        CosinesToLine(c.direction, plunge, trend);
        EXPECT_EQ(plunge, 0);
        EXPECT_NEAR(trend, c.trend, 1e-14);
        EXPECT_FALSE(std::signbit(trend));
    }
}

TEST(CosinesToLine, ComesBackFromLineToCosinesForUpwardLinesToo) {
    for (int plunge = -89; plunge <= 89; ++plunge) {
        for (int trend = 0; trend < 360; ++trend) {
            double backPlunge = 0;
            double backTrend = 0;
            CosinesToLine(LineToCosines(DegToRad(plunge), DegToRad(trend)), backPlunge, backTrend);
            ASSERT_NEAR(backPlunge, DegToRad(plunge), 1e-12);
            ASSERT_NEAR(AzimuthApart(backTrend, DegToRad(trend)), 0, 1e-12);
            ASSERT_GE(backTrend, 0);
            ASSERT_LE(backTrend, kTwoPi);
        }
    }
}

TEST(CosinesToLine, ComesBackFromRandomVectors) {
    std::mt19937_64 random(kSeed);
    std::normal_distribution<double> normal;
    for (int i = 0; i < 2000; ++i) {
        const Vector vector = Unit({normal(random), normal(random), normal(random)});
        double plunge = 0;
        double trend = 0;
        CosinesToLine(vector.north, vector.east, vector.down, plunge, trend);
        ASSERT_NEAR(AngleOf(vector, LineVector(plunge, trend)), 0, 1e-12) << "seed " << kSeed;
        ASSERT_EQ(plunge < 0, vector.down < 0);
    }
}

TEST(AngleBetweenLines, TakesTheWantedReadingOfOppositeLines) {
    double angle = 1;
    AngleBetweenLines(0, 0, 0, kPi, angle, LineAngle::kAcute);
    EXPECT_EQ(angle, 0);
    AngleBetweenLines(0, 0, 0, kPi, angle, LineAngle::kObtuse);
    EXPECT_EQ(angle, kPi);
    AngleBetweenLines(0, 0, kPi / 2, 0, angle, LineAngle::kObtuse);
    EXPECT_NEAR(angle, kPi / 2, 1e-14);
}

TEST(AngleBetweenLines, AgreesWithTheArcTangentForm) {
    std::mt19937_64 random(kSeed);
    std::uniform_real_distribution<double> plunges(-kPi / 2, kPi / 2);
    std::uniform_real_distribution<double> trends(0, kTwoPi);
    for (int i = 0; i < 2000; ++i) {
        const TestLine a = {plunges(random), trends(random)};
        const TestLine b = {plunges(random), trends(random)};
        const double acute = AcuteAngleOf(LineVector(std::abs(a.plunge), a.trend),
                                          LineVector(std::abs(b.plunge), b.trend));
        double angle = 0;
        AngleBetweenLines(a.plunge, a.trend, b.plunge, b.trend, angle, LineAngle::kAcute);
        // An arc cosine cannot tell angles below 1e-8 apart.
        ASSERT_NEAR(angle, acute, 3e-8) << "seed " << kSeed;
        AngleBetweenLines(a.plunge, a.trend, b.plunge, b.trend, angle, LineAngle::kObtuse);
        ASSERT_NEAR(angle, std::numbers::pi - acute, 3e-8) << "seed " << kSeed;
    }
}

TEST(AzimuthToMathAngle, TurnsCompassIntoMathematicalAnglesAndBack) {
    EXPECT_NEAR(AzimuthToMathAngle(0), kPi / 2, 1e-14);
    EXPECT_NEAR(AzimuthToMathAngle(kPi / 2), kTwoPi, 1e-14);
    EXPECT_NEAR(AzimuthToMathAngle(kPi), 3 * kPi / 2, 1e-14);
    for (int degrees = 1; degrees <= 360; ++degrees) {
        const double azimuth = Radians(degrees);
        const double angle = AzimuthToMathAngle(azimuth);
        EXPECT_NEAR(std::cos(angle), std::sin(azimuth), 1e-13);
        EXPECT_NEAR(std::sin(angle), std::cos(azimuth), 1e-13);
        EXPECT_NEAR(AzimuthApart(AzimuthToMathAngle(angle), azimuth), 0, 1e-13);
    }
}

TEST(AzimuthBetweenPoints, AgreesWithTheArcTangentOfTwoArguments) {
    for (int dx = -7; dx <= 7; ++dx) {
        for (int dy = -7; dy <= 7; ++dy) {
            if (dx == 0 && dy == 0) {
                continue;
            }
            const double azimuth = AzimuthBetweenPoints(3, -5, 3 + dx, -5 + dy);
            const double expected = std::atan2(dx, dy);
            EXPECT_NEAR(azimuth, expected < 0 ? expected + 2 * std::numbers::pi : expected, 1e-13);
            EXPECT_FALSE(std::signbit(azimuth));
        }
    }
}

TEST(AzimuthBetweenPoints, CallsNoStepEast) {
    EXPECT_EQ(AzimuthBetweenPoints(2, 2, 2, 2), kPi / 2);
}

} // namespace
} // namespace quandrel
