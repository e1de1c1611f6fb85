// SPDX-License-Identifier: MIT

#include "orientation/projection.h"
#include "orientation/vectors.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace quandrel {
namespace {

using testing::AngleOf;
using testing::LineVector;
using testing::Radians;
using testing::Unit;
using testing::Vector;

constexpr unsigned kSeed = 1618;
constexpr int kKinds[] = {1, 2};

TEST(ProjectPoint, PutsAHorizontalLineOnThePrimitive) {
    for (const int kind : kKinds) {
        for (int trend = 0; trend <= 360; ++trend) {
            double x = 0;
            double y = 0;
            ProjectPoint(kind, 0, DegToRad(trend), x, y);
            EXPECT_NEAR(std::hypot(x, y), 1000, 1e-9);
            EXPECT_NEAR(x, 1000 * std::sin(Radians(trend)), 1e-9);
            EXPECT_NEAR(y, 1000 * std::cos(Radians(trend)), 1e-9);
        }
    }
}

TEST(ProjectPoint, PutsTheVerticalAtTheCentre) {
    for (const int kind : kKinds) {
        double x = 1;
        double y = 1;
        ProjectPoint(kind, kPi / 2, 2, x, y);
        EXPECT_EQ(x, 0);
        EXPECT_EQ(std::abs(y), 0);
    }
}

TEST(ProjectPoint, KeepsAreasOnTheEqualAreaNet) {
    // The cap within c of the vertical has the share 1 - cos c of the half sphere, and its circle
    // the share (r / 1000)^2 of the net.
    for (int plunge = 0; plunge <= 90; plunge += 3) {
        double x = 0;
        double y = 0;
        ProjectPoint(1, DegToRad(plunge), 1, x, y);
        EXPECT_NEAR((x * x + y * y) / 1e6, 1 - std::sin(Radians(plunge)), 1e-12);
    }
}

TEST(ProjectPoint, IsTheViewFromTheZenithOnTheEqualAngleNet) {
    // Seen from the top of the sphere, a point (h, down) falls at h / (1 + down) on the horizon's
    // plane.
    for (int plunge = 0; plunge <= 90; plunge += 3) {
        double x = 0;
        double y = 0;
        ProjectPoint(2, DegToRad(plunge), 1, x, y);
        EXPECT_NEAR(std::hypot(x, y),
                    1000 * std::cos(Radians(plunge)) / (1 + std::sin(Radians(plunge))), 1e-9);
    }
}

TEST(ProjectPoint, IgnoresTheSignOfThePlunge) {
    for (const int kind : kKinds) {
        double x = 0;
        double y = 0;
        double upX = 0;
        double upY = 0;
        ProjectPoint(kind, 0.4, 2, x, y);
        ProjectPoint(kind, -0.4, 2, upX, upY);
        EXPECT_EQ(x, upX);
        EXPECT_EQ(y, upY);
    }
}

TEST(ProjectPoint, TreatsEveryKindButTwoAsEqualArea) {
    double area = 0;
    double other = 0;
    double y = 0;
    ProjectPoint(1, 0.5, 1, area, y);
    for (const int kind : {0, 3, -1, 7}) {
        ProjectPoint(kind, 0.5, 1, other, y);
        EXPECT_EQ(other, area) << kind;
    }
    ProjectPoint(2, 0.5, 1, other, y);
    EXPECT_GT(std::abs(other - area), 1);
}

// Kept: here every kind but equal area counts as equal angle.
TEST(UnprojectPoint, TreatsEveryKindButOneAsEqualAngle) {
    double angle = 0;
    double other = 0;
    double trend = 0;
    UnprojectPoint(2, 300, 400, angle, trend);
    for (const int kind : {0, 3, -1, 7}) {
        UnprojectPoint(kind, 300, 400, other, trend);
        EXPECT_EQ(other, angle) << kind;
    }
    UnprojectPoint(1, 300, 400, other, trend);
    EXPECT_GT(std::abs(other - angle), 0.01);
}

TEST(ProjectPointInt, RoundsToWholePositions) {
    std::int16_t x = 0;
    std::int16_t y = 0;
    for (const int kind : kKinds) {
        ProjectPointInt(kind, 0, kPi / 4, x, y);
        EXPECT_EQ(x, 707);
        EXPECT_EQ(y, 707);
        ProjectPointInt(kind, 0, kPi, x, y);
        EXPECT_EQ(x, 0);
        EXPECT_EQ(y, -1000);
    }
    ProjectPointInt(1, std::numeric_limits<double>::quiet_NaN(), 0, x, y);
    EXPECT_EQ(x, 0);
    EXPECT_EQ(y, 0);
}

TEST(ProjectPointInt, IsTheNearestWholePosition) {
    for (const int kind : kKinds) {
        for (int plunge = 0; plunge <= 90; plunge += 3) {
            for (int trend = 0; trend < 360; trend += 7) {
                double x = 0;
                double y = 0;
                std::int16_t wholeX = 0;
                std::int16_t wholeY = 0;
                ProjectPoint(kind, DegToRad(plunge), DegToRad(trend), x, y);
                ProjectPointInt(kind, DegToRad(plunge), DegToRad(trend), wholeX, wholeY);
                ASSERT_LE(std::abs(x - wholeX), 0.5);
                ASSERT_LE(std::abs(y - wholeY), 0.5);
            }
        }
    }
}

TEST(PositionOfDirection, AgreesWithProjectPoint) {
    for (const int kind : kKinds) {
        for (int plunge = -90; plunge <= 90; ++plunge) {
            for (int trend = 0; trend <= 360; trend += 3) {
                double x = 0;
                double y = 0;
                ProjectPoint(kind, DegToRad(plunge), DegToRad(trend), x, y);
                const NetPosition position =
                    PositionOfDirection(kind, LineToCosines(DegToRad(plunge), DegToRad(trend)));
                const double tolerance = 1e-9 * std::max(1.0, std::hypot(x, y));
                ASSERT_NEAR(position.x, x, tolerance) << kind << " " << plunge << " " << trend;
                ASSERT_NEAR(position.y, y, tolerance) << kind << " " << plunge << " " << trend;
            }
        }
    }
}

TEST(UnprojectPosition, LeadsBackOverTheWholeNet) {
    std::mt19937_64 random(kSeed);
    std::normal_distribution<double> normal;
    for (int i = 0; i < 5000; ++i) {
        Vector line = Unit({normal(random), normal(random), normal(random)});
        line.down = std::abs(line.down);
        const double plunge = std::asin(line.down);
        const double trend = std::atan2(line.east, line.north);
        for (const int kind : kKinds) {
            double x = 0;
            double y = 0;
            ProjectPoint(kind, plunge, trend, x, y);
            double backPlunge = 0;
            double backTrend = 0;
            UnprojectPosition(kind, x, y, backPlunge, backTrend);
            ASSERT_NEAR(AngleOf(line, LineVector(backPlunge, backTrend)), 0, 1e-7)
                << "seed " << kSeed;
            ASSERT_GE(backTrend, 0);
            ASSERT_LE(backTrend, kTwoPi);
        }
    }
}

TEST(UnprojectPoint, LeadsBackToEveryWholePositionOnTheNet) {
    for (const int kind : kKinds) {
        for (int x = -1000; x <= 1000; x += 25) {
            for (int y = -1000; y <= 1000; y += 25) {
                if (x * x + y * y > 1000 * 1000) {
                    continue;
                }
                double plunge = 0;
                double trend = 0;
                UnprojectPoint(kind, x, y, plunge, trend);
                double backX = 0;
                double backY = 0;
                ProjectPoint(kind, plunge, trend, backX, backY);
                ASSERT_NEAR(backX, x, 1e-6) << kind << " " << x << " " << y;
                ASSERT_NEAR(backY, y, 1e-6) << kind << " " << x << " " << y;
                std::int16_t wholeX = 0;
                std::int16_t wholeY = 0;
                ProjectPointInt(kind, plunge, trend, wholeX, wholeY);
                ASSERT_EQ(wholeX, x);
                ASSERT_EQ(wholeY, y);
            }
        }
    }
}

TEST(UnprojectPoint, ReadsTheCentreAsVertical) {
    for (const int kind : kKinds) {
        double plunge = 0;
        double trend = 1;
        UnprojectPoint(kind, 0, 0, plunge, trend);
        EXPECT_EQ(plunge, kPi / 2);
        EXPECT_EQ(trend, 0);
    }
}

TEST(UnprojectPoint, ReadsThePrimitiveAsHorizontal) {
    for (const int kind : kKinds) {
        for (const NetPosition& p : {NetPosition{1000, 0},
                                     {0, 1000},
                                     {-1000, 0},
                                     {0, -1000},
                                     {600, 800},
                                     {-600, 800},
                                     {600, -800},
                                     {-600, -800}}) {
            double plunge = 1;
            double trend = 0;
            UnprojectPoint(kind, static_cast<std::int32_t>(p.x), static_cast<std::int32_t>(p.y),
                           plunge, trend);
            EXPECT_NEAR(plunge, 0, 1e-14);
            EXPECT_NEAR(std::sin(trend), p.x / 1000, 1e-13);
            EXPECT_NEAR(std::cos(trend), p.y / 1000, 1e-13);
        }
    }
}

TEST(UnprojectPoint, ReadsJustOutsideAsSlightlyUpwardOnTheOtherSide) {
    for (const int kind : kKinds) {
        double plunge = 0;
        double trend = 0;
        UnprojectPoint(kind, 1001, 0, plunge, trend);
        EXPECT_LT(plunge, 0);
        EXPECT_GT(plunge, Radians(-0.3));
        EXPECT_NEAR(trend, Radians(270), 1e-12);
        UnprojectPoint(kind, 0, 1001, plunge, trend);
        EXPECT_LT(plunge, 0);
        EXPECT_NEAR(trend, Radians(180), 1e-12);
    }
}

TEST(UnprojectPosition, ReflectsThroughTheRimToTheOppositeSide) {
    for (const int kind : kKinds) {
        for (int trend = 0; trend < 360; trend += 5) {
            const double east = std::sin(Radians(trend));
            const double north = std::cos(Radians(trend));
            double outsidePlunge = 0;
            double outsideTrend = 0;
            UnprojectPosition(kind, 1200 * east, 1200 * north, outsidePlunge, outsideTrend);
            double plunge = 0;
            double insideTrend = 0;
            UnprojectPosition(kind, -800 * east, -800 * north, plunge, insideTrend);
            EXPECT_NEAR(outsidePlunge, -plunge, 1e-12);
            EXPECT_NEAR(std::remainder(outsideTrend - insideTrend, kTwoPi), 0, 1e-12) << trend;
        }
    }
}

} // namespace
} // namespace quandrel
