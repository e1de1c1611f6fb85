// SPDX-License-Identifier: MIT

#include "border/random_lines.h"
#include "quandrel/net.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>

namespace quandrel::api {
namespace {

constexpr std::array kProjections = {Projection::kEqualArea, Projection::kEqualAngle};

/// The position of a vector by the geometry of the projection: equal angle is seen from the zenith
/// of a sphere of radius 1 on the plane through its centre.
NetPoint TruePlace(testing::Vector vector, Projection projection) {
    if (vector.down < 0) {
        vector = testing::Sum(vector, -1, {}, 0);
    }
    const double scale = projection == Projection::kEqualAngle ? 1 / (1 + vector.down)
                                                               : 1 / std::sqrt(1 + vector.down);
    return {vector.east * scale, vector.north * scale};
}

TEST(PublicNet, LinesFallWhereTheProjectionPutsThemAndLeadBack) {
    RandomValues random(20260721);
    const std::vector<Line> lines = random.Lines(1000);
    std::vector<NetPoint> points(lines.size());
    for (const Projection projection : kProjections) {
        ProjectLines(lines, projection, points);
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const NetPoint truth = TruePlace(TrueVector(lines[i]), projection);
            EXPECT_NEAR(points[i].east, truth.east, 1e-12);
            EXPECT_NEAR(points[i].north, truth.north, 1e-12);
            EXPECT_LT(AxesApart(LineAtPoint(points[i], projection), lines[i]), 1e-6);
        }
    }
}

TEST(PublicNet, TracesOfPlanesRunFromRimToRimThroughThePlane) {
    RandomValues random(20260722);
    for (const Projection projection : kProjections) {
        for (const Plane& plane : random.Planes(200)) {
            const NetLine trace = TraceOfPlane(plane, projection);
            ASSERT_GT(trace.size(), 100U);
            EXPECT_NEAR(std::hypot(trace.front().east, trace.front().north), 1, 1e-9);
            EXPECT_NEAR(std::hypot(trace.back().east, trace.back().north), 1, 1e-9);
            EXPECT_NEAR(trace.front().east, -trace.back().east, 1e-9);
            for (const NetPoint& point : trace) {
                // On the rim, rounding may move a point outside, where it has the other sense.
                const Line line = LineAtPoint(point, projection);
                EXPECT_NEAR(testing::Dot(TrueVector(line), TrueNormal(plane)), 0, 1e-6);
            }
        }
    }
}

TEST(PublicNet, TheTraceOfAHorizontalPlaneIsThePrimitive) {
    const NetLine trace = TraceOfPlane({0, 77}, Projection::kEqualArea);
    EXPECT_EQ(trace.size(), 361U);
    for (const NetPoint& point : trace) {
        EXPECT_NEAR(std::hypot(point.east, point.north), 1, 1e-9);
    }
}

TEST(PublicNet, ConesLieAtTheirAngleAboutTheAxis) {
    RandomValues random(20260723);
    for (const Line& axis : random.Lines(200)) {
        const double halfAngle = random.Between(1, 89);
        for (const NetLine& line : TraceOfCone(axis, halfAngle, Projection::kEqualArea)) {
            for (const NetPoint& point : line) {
                EXPECT_NEAR(AxesApart(LineAtPoint(point, Projection::kEqualArea), axis), halfAngle,
                            1e-5);
            }
        }
    }
}

TEST(PublicNet, RefusesWhatIsNotThere) {
    EXPECT_THROW(static_cast<void>(LineAtPoint({2, 0}, Projection::kEqualArea)),
                 std::invalid_argument);
    EXPECT_THROW(static_cast<void>(TraceOfCone({0, 0}, 0, Projection::kEqualArea)),
                 std::invalid_argument);
    EXPECT_THROW(static_cast<void>(ProjectedLine({0, 0}, static_cast<Projection>(3))),
                 std::invalid_argument);
    std::vector<NetPoint> tooFew(1);
    EXPECT_THROW(ProjectLines(std::vector<Line>(2), Projection::kEqualArea, tooFew),
                 std::invalid_argument);
}

} // namespace
} // namespace quandrel::api
