// SPDX-License-Identifier: MIT

#include "derive/kinematic_axes.h"
#include "orientation/vectors.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace quandrel {
namespace {

using testing::AcuteAngleOf;
using testing::LineVector;
using testing::PlaneNormal;
using testing::Radians;
using testing::Sum;
using testing::Unit;
using testing::Vector;

constexpr double kUntouched = -9999;

struct Lines {
    double pPlunge = kUntouched;
    double pTrend = kUntouched;
    double tPlunge = kUntouched;
    double tTrend = kUntouched;

    [[nodiscard]] bool IsUntouched() const {
        return pPlunge == kUntouched && pTrend == kUntouched && tPlunge == kUntouched
               && tTrend == kUntouched;
    }
};

/// Degrees in, radians out.
Lines Axes(double dip, double dipDirection, double plunge, double trend, double tolerance = 10) {
    double polePlunge = 0;
    double poleTrend = 0;
    PoleOfPlane(Radians(dip), Radians(dipDirection), polePlunge, poleTrend);
    Lines lines;
    ComputePTAxes(polePlunge, poleTrend, Radians(plunge), Radians(trend), Radians(tolerance),
                  lines.pPlunge, lines.pTrend, lines.tPlunge, lines.tTrend);
    return lines;
}

void ExpectLine(double plunge, double trend, double degrees, double azimuth) {
    EXPECT_NEAR(plunge, Radians(degrees), 1e-12);
    EXPECT_NEAR(std::remainder(trend - Radians(azimuth), 2 * Radians(180)), 0, 1e-12);
}

TEST(ComputePTAxes, GiveTheTextbookAxesOfSimpleFaults) {
    struct Case {
        const char* fault;
        double dip, dipDirection, plunge, trend;
        double p, pTrend, t, tTrend;
    };

    const Case cases[] = {
        {"normal, down the dip of 60", 60, 90, 60, 90, 75, 270, -15, 90},
        {"reverse on the same plane", 60, 90, -60, 90, 15, 90, -75, 270},
        {"thrust of dip 30", 30, 0, -30, 0, 15, 180, -75, 0},
        {"vertical, slip toward the north on a plane facing west", 90, 90, 0, 0, 0, 315, 0, 225},
        {"vertical, slip toward the south", 90, 90, 0, 180, 0, 225, 0, 315},
        {"vertical, slip straight down", 90, 90, 90, 0, 45, 270, -45, 90},
        {"oblique strike slip of dip 60", 60, 90, 0, 0, 20.704811054635, 319.1066053508691,
         -20.704811054635, 220.8933946491309},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.fault);
        const Lines lines = Axes(c.dip, c.dipDirection, c.plunge, c.trend);
        ExpectLine(lines.pPlunge, lines.pTrend, c.p, c.pTrend);
        ExpectLine(lines.tPlunge, lines.tTrend, c.t, c.tTrend);
        EXPECT_FALSE(std::signbit(lines.pPlunge));
        EXPECT_FALSE(lines.tPlunge == 0 && std::signbit(lines.tPlunge));
    }
}

TEST(ComputePTAxes, AgreeWithTheVectorFormForEverySlipLineInItsPlane) {
    std::mt19937 random(20270108);
    std::uniform_real_distribution<double> dips(0.5, 90);
    std::uniform_real_distribution<double> turns(0, 360);
    for (int i = 0; i < 5000; ++i) {
        const double dip = dips(random);
        const double dipDirection = turns(random);
        const Vector pole = PlaneNormal(Radians(dip), Radians(dipDirection));
        const Vector strike = LineVector(0, Radians(dipDirection - 90));
        const Vector dipLine = LineVector(Radians(dip), Radians(dipDirection));
        const double pitch = Radians(turns(random) / 2);
        const Vector slip = Sum(strike, std::cos(pitch), dipLine, std::sin(pitch));
        const double plunge = std::asin(slip.down) * 180 / Radians(180);
        const double trend = std::atan2(slip.east, slip.north) * 180 / Radians(180);
        for (const bool upward : {false, true}) {
            const Lines lines = Axes(dip, dipDirection, upward ? -plunge : plunge, trend + 360);
            const Vector toward = Unit(Sum(pole, 1, slip, 1));
            const Vector away = Unit(Sum(pole, 1, slip, -1));
            EXPECT_LT(AcuteAngleOf(LineVector(lines.pPlunge, lines.pTrend), upward ? away : toward),
                      1e-7);
            EXPECT_LT(
                AcuteAngleOf(LineVector(-lines.tPlunge, lines.tTrend), upward ? toward : away),
                1e-7);
            EXPECT_GE(lines.pPlunge, 0);
            EXPECT_LE(lines.tPlunge, 0);
        }
    }
}

TEST(ComputePTAxes, ExchangePAndTWithThePolarity) {
    const Lines down = Axes(52, 312, 50, 330);
    const Lines up = Axes(52, 312, -50, 330);
    EXPECT_NEAR(down.pPlunge, -up.tPlunge, 1e-12);
    EXPECT_NEAR(down.pTrend, up.tTrend, 1e-12);
    EXPECT_NEAR(down.tPlunge, -up.pPlunge, 1e-12);
    EXPECT_NEAR(down.tTrend, up.pTrend, 1e-12);
}

TEST(ComputePTAxes, RefuseALineAtTheToleranceAndTakeOneWithinIt) {
    for (int dip = 1; dip <= 79; ++dip) {
        for (const int azimuth : {0, 37, 90, 211, 360}) {
            SCOPED_TRACE(std::to_string(dip) + "/" + std::to_string(azimuth));
            EXPECT_TRUE(Axes(dip, azimuth, dip + 10, azimuth).IsUntouched());
            EXPECT_TRUE(Axes(dip, azimuth, -(dip + 10), azimuth).IsUntouched());
            EXPECT_FALSE(Axes(dip, azimuth, dip + 9.9, azimuth).IsUntouched());
        }
    }
    EXPECT_TRUE(Axes(60, 90, 30, 270).IsUntouched()) << "the pole itself";
}

TEST(ComputePTAxes, StandAtHalfARightAngleFromThePoleOfALineOffItsPlane) {
    const Lines lines = Axes(60, 90, 69.9, 90);
    const Vector pole = PlaneNormal(Radians(60), Radians(90));
    const Vector slip = LineVector(Radians(69.9), Radians(90));
    const Vector p = LineVector(lines.pPlunge, lines.pTrend);
    const Vector t = LineVector(-lines.tPlunge, lines.tTrend);
    EXPECT_NEAR(AcuteAngleOf(p, pole), Radians(45), 1e-9);
    EXPECT_NEAR(AcuteAngleOf(t, pole), Radians(45), 1e-9);
    EXPECT_NEAR(AcuteAngleOf(p, t), Radians(90), 1e-9);
    EXPECT_NEAR(AcuteAngleOf(p, slip), Radians(45 - 9.9), 1e-9);
}

TEST(ComputePTAxes, OfALevelFaultLieInItsSlipDirection) {
    const Lines lines = Axes(0, 0, 0, 70);
    ExpectLine(lines.pPlunge, lines.pTrend, 45, 70);
    ExpectLine(lines.tPlunge, lines.tTrend, -45, 250);
}

} // namespace
} // namespace quandrel
