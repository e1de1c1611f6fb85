// SPDX-License-Identifier: MIT

#include "border/random_lines.h"
#include "quandrel/kinematics.h"
#include "quandrel/rotation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

namespace quandrel::api {
namespace {

namespace qt = quandrel::testing;

/// A vector turned about an axis by the formula of Rodrigues, clockwise looking along it.
qt::Vector Turned(const qt::Vector& v, const qt::Vector& k, double angle) {
    const double radians = qt::Radians(angle);
    const qt::Vector turned =
        qt::Sum(v, std::cos(radians), qt::CrossProduct(k, v), std::sin(radians));
    return qt::Sum(turned, 1, k, qt::Dot(k, v) * (1 - std::cos(radians)));
}

TEST(PublicRotation, LinesTurnAsVectors) {
    RandomValues random(20260831);
    const std::vector<Line> lines = random.Lines(500, -90);
    for (const Line& axis : random.Lines(10)) {
        const double angle = random.Between(-400, 400);
        std::vector<Line> turned(lines.size());
        RotateLines(lines, axis, angle, turned);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const qt::Vector truth = Turned(TrueVector(lines[i]), TrueVector(axis), angle);
            EXPECT_LT(qt::AngleOf(TrueVector(turned[i]), truth), 1e-6);
            EXPECT_LT(DirectionsApart(RotatedLine(turned[i], axis, -angle), lines[i]), 1e-4);
        }
    }
}

TEST(PublicRotation, PlanesTurnByTheirPolesInPlace) {
    RandomValues random(20260832);
    const std::vector<Plane> planes = random.Planes(500);
    const Line axis = {25, 130};
    std::vector<Plane> turned = planes;
    RotatePlanes(turned, axis, 77, turned);
    for (std::size_t i = 0; i < planes.size(); ++i) {
        const qt::Vector truth = Turned(TrueNormal(planes[i]), TrueVector(axis), 77);
        EXPECT_LT(qt::AcuteAngleOf(TrueNormal(turned[i]), truth), 1e-6);
        EXPECT_GE(turned[i].dip, 0);
    }
}

TEST(PublicRotation, UnfoldingLevelsTheBedAndKeepsAnglesWithinIt) {
    RandomValues random(20260833);
    for (const Plane& bed : random.Planes(200)) {
        const Line axis = LineAtPitch(bed, random.Between(1, 179));
        const Line first = LineAtPitch(bed, random.Between(0, 180));
        const Line second = LineAtPitch(bed, random.Between(0, 180));
        const Line unfoldedFirst = UnfoldedLine(first, bed, axis);
        const Line unfoldedSecond = UnfoldedLine(second, bed, axis);
        EXPECT_NEAR(unfoldedFirst.plunge, 0, 1e-5);
        EXPECT_NEAR(unfoldedSecond.plunge, 0, 1e-5);
        EXPECT_NEAR(AxesApart(unfoldedFirst, unfoldedSecond), AxesApart(first, second), 1e-4);
    }
}

TEST(PublicRotation, TheShortestWayLeadsFromOnePlaneToTheOther) {
    RandomValues random(20260834);
    const std::vector<Plane> from = random.Planes(300);
    const std::vector<Plane> to = random.Planes(300);
    for (std::size_t i = 0; i < from.size(); ++i) {
        const AxisRotation way = RotationBetween(from[i], to[i]);
        const Plane there = RotatedPlane(from[i], way.axis, way.angle);
        EXPECT_LT(qt::AcuteAngleOf(TrueNormal(there), TrueNormal(to[i])), 1e-6);
        EXPECT_LE(std::abs(way.angle), 90 + 1e-9);
    }
    EXPECT_EQ(RotationBetween({30, 40}, {30, 40}).angle, 0);
}

TEST(PublicRotation, RefusesWhatIsNoOrientation) {
    EXPECT_THROW(static_cast<void>(RotatedLine({0, 0}, {91, 0}, 5)), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(RotatedLine({0, 0}, {9, 0}, std::nan(""))),
                 std::invalid_argument);
    std::vector<Line> tooFew(1);
    EXPECT_THROW(RotateLines(std::vector<Line>(2), {9, 0}, 5, tooFew), std::invalid_argument);
}

TEST(PublicKinematics, AxesLieHalfARightAngleFromPoleAndSlipLine) {
    RandomValues random(20260835);
    for (const Plane& plane : random.Planes(500)) {
        const Line down = LineAtPitch(plane, random.Between(1, 179));
        const bool isUpward = random.Between(0, 1) < 0.5;
        const Line slip = {isUpward ? -down.plunge : down.plunge, down.trend};
        const KinematicAxes axes = KinematicAxesOf({plane, slip}).value_or(KinematicAxes{});
        const qt::Vector pole = TrueNormal(plane);
        EXPECT_NEAR(AxesApart(axes.p, axes.t), 90, 1e-5);
        EXPECT_NEAR(AxesApart(axes.p, down), 45, 1e-5);
        EXPECT_NEAR(InDegrees(qt::AcuteAngleOf(TrueVector(axes.t), pole)), 45, 1e-5);
        // P lies between the pole and the movement of the hanging wall, seen from the footwall's
        // side.
        const qt::Vector toward = qt::Unit(qt::Sum(pole, 1, TrueVector(slip), 1));
        EXPECT_NEAR(qt::AcuteAngleOf(TrueVector(axes.p), toward), 0, 1e-6);
        EXPECT_GE(axes.t.plunge, 0);
    }
}

TEST(PublicKinematics, SlipLinesOffThePlaneHaveNone) {
    EXPECT_FALSE(KinematicAxesOf({{60, 90}, {45, 90}}));
    EXPECT_TRUE(KinematicAxesOf({{60, 90}, {45, 90}}, 16));
    const std::vector<Fault> faults = {{{60, 90}, {45, 90}}, {{60, 90}, {60, 90}}};
    std::vector<KinematicAxes> axes(2);
    FindKinematicAxes(faults, 10, axes);
    EXPECT_TRUE(std::isnan(axes[0].p.plunge) && std::isnan(axes[0].t.trend));
    EXPECT_NEAR(axes[1].p.plunge, 75, 1e-9);
    EXPECT_THROW(static_cast<void>(KinematicAxesOf({{60, 90}, {45, 90}}, 91)),
                 std::invalid_argument);
}

} // namespace
} // namespace quandrel::api
