// SPDX-License-Identifier: MIT

#include "border/random_lines.h"
#include "quandrel/intersections.h"
#include "quandrel/orientation.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>

namespace quandrel::api {
namespace {

namespace qt = quandrel::testing;

constexpr double kRounding = 1e-9;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(PublicOrientation, PolesAreTheNormalsOfTheirPlanes) {
    RandomValues random(20260711);
    const std::vector<Plane> planes = random.Planes(1000);
    std::vector<Line> poles(planes.size());
    PolesOf(planes, poles);
    for (std::size_t i = 0; i < planes.size(); ++i) {
        const double apart = qt::AcuteAngleOf(TrueVector(poles[i]), TrueNormal(planes[i]));
        EXPECT_LT(apart, kRounding) << i;
        const Plane back = PlaneOfPole(poles[i]);
        EXPECT_NEAR(back.dip, planes[i].dip, kRounding);
        EXPECT_NEAR(back.dipDirection, planes[i].dipDirection, kRounding);
    }
}

TEST(PublicOrientation, VectorsAreThoseOfTheirLinesAndLeadBack) {
    RandomValues random(20260712);
    const std::vector<Line> lines = random.Lines(1000, -90);
    std::vector<Vector> vectors(lines.size());
    VectorsOf(lines, vectors);
    std::vector<Line> back(lines.size());
    LinesOf(vectors, back);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const qt::Vector truth = TrueVector(lines[i]);
        EXPECT_NEAR(vectors[i].north, truth.north, 1e-12);
        EXPECT_NEAR(vectors[i].east, truth.east, 1e-12);
        EXPECT_NEAR(vectors[i].down, truth.down, 1e-12);
        EXPECT_NEAR(back[i].plunge, lines[i].plunge, kRounding);
        EXPECT_NEAR(back[i].trend, lines[i].trend, kRounding);
    }
}

TEST(PublicOrientation, AnArrayOfDoublesIsASpanOfLines) {
    const std::vector<Line> lines = {{10, 20}, {30, 40}};
    const auto* const numbers = reinterpret_cast<const double*>(lines.data());
    EXPECT_EQ(std::vector<double>(numbers, numbers + 4), (std::vector<double>{10, 20, 30, 40}));
}

TEST(PublicOrientation, AzimuthsComeOutFrom0ToBelow360WhateverTheyWere) {
    EXPECT_EQ(PoleOf({30, 180}).trend, 0);
    EXPECT_NEAR(PoleOf({30, -90}).trend, 90, kRounding);
    EXPECT_NEAR(PoleOf({30, 3700}).trend, 280, kRounding);
    EXPECT_EQ(LineOf({1, -1e-300, 0}).trend, 0);
}

TEST(PublicOrientation, AVerticalVectorLosesItsSense) {
    EXPECT_EQ(LineOf({0, 0, -3}), (Line{90, 0}));
    EXPECT_EQ(LineOf({0, 0, 3}), (Line{90, 0}));
}

TEST(PublicOrientation, AnglesBetweenAxesAreAcute) {
    RandomValues random(20260713);
    const std::vector<Line> lines = random.Lines(1000, -90);
    for (std::size_t i = 1; i < lines.size(); ++i) {
        EXPECT_NEAR(AngleBetween(lines[i - 1], lines[i]),
                    AxesApart({std::abs(lines[i - 1].plunge), lines[i - 1].trend},
                              {std::abs(lines[i].plunge), lines[i].trend}),
                    1e-6);
    }
}

TEST(PublicOrientation, LinesInPlanesLieThereAtTheirPitch) {
    RandomValues random(20260714);
    for (const Plane& plane : random.Planes(500)) {
        const double pitch = random.Between(0, 360);
        const qt::Vector line = TrueVector(LineAtPitch(plane, pitch));
        EXPECT_NEAR(qt::Dot(line, TrueNormal(plane)), 0, kRounding);
        const qt::Vector strike = TrueVector({0, plane.dipDirection - 90});
        const double expected = pitch <= 180 ? pitch : 360 - pitch;
        EXPECT_NEAR(InDegrees(qt::AngleOf(line, strike)), expected, 1e-6);
        EXPECT_EQ(line.down >= 0, pitch <= 180);
    }
}

TEST(PublicOrientation, LinesInSectionsLieInPlaneAndSection) {
    RandomValues random(20260715);
    for (const Plane& plane : random.Planes(500)) {
        const double trend = random.Between(0, 360);
        const qt::Vector line = TrueVector(LineAtTrend(plane, trend));
        EXPECT_NEAR(qt::Dot(line, TrueNormal(plane)), 0, kRounding);
        EXPECT_NEAR(qt::Dot(line, TrueVector({0, trend + 90})), 0, kRounding);
        EXPECT_GE(line.down, 0);
    }
}

TEST(PublicOrientation, RefusesWhatIsNoOrientation) {
    EXPECT_THROW(static_cast<void>(PoleOf({90.5, 0})), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(PoleOf({kNaN, 0})), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(PoleOf({10, kInfinity})), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(VectorOf({-90.5, 0})), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(LineOf({0, 0, 0})), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(LineOf({0, kNaN, 1})), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(LineAtPitch({10, 0}, 361)), std::invalid_argument);
    EXPECT_THROW(static_cast<void>(LineAtPitch({-10, 0}, 30)), std::invalid_argument);
    std::vector<Line> tooFew(1);
    EXPECT_THROW(PolesOf(std::vector<Plane>(2), tooFew), std::invalid_argument);
}

TEST(PublicOrientation, SaysWhatItRefuses) {
    try {
        static_cast<void>(VectorOf({95.5, 0}));
        FAIL();
    } catch (const std::invalid_argument& refusal) {
        EXPECT_STREQ(refusal.what(), "plunge is not from -90 to 90: 95.5");
    }
}

TEST(PublicIntersections, LieInBothPlanes) {
    RandomValues random(20260716);
    const std::vector<Plane> a = random.Planes(1000);
    const std::vector<Plane> b = random.Planes(1000);
    std::vector<Line> lines(a.size());
    IntersectionsOf(a, b, lines);
    for (std::size_t i = 0; i < a.size(); ++i) {
        EXPECT_NEAR(qt::Dot(TrueVector(lines[i]), TrueNormal(a[i])), 0, kRounding);
        EXPECT_NEAR(qt::Dot(TrueVector(lines[i]), TrueNormal(b[i])), 0, kRounding);
        EXPECT_GE(lines[i].plunge, 0);
        EXPECT_EQ(lines[i], IntersectionOf(a[i], b[i]).value_or(Line{}));
    }
}

TEST(PublicIntersections, ParallelPlanesHaveNone) {
    EXPECT_FALSE(IntersectionOf({30, 40}, {30, 40}));
    EXPECT_FALSE(IntersectionOf({0, 40}, {0, 200}));
    EXPECT_FALSE(IntersectionOf({90, 40}, {90, 220}));
    std::vector<Line> lines(2);
    IntersectionsOf(std::vector<Plane>{{30, 40}, {30, 40}}, std::vector<Plane>{{30, 40}, {60, 40}},
                    lines);
    EXPECT_TRUE(std::isnan(lines[0].plunge) && std::isnan(lines[0].trend));
    EXPECT_NEAR(lines[1].plunge, 0, kRounding);
}

TEST(PublicIntersections, BetaTakesEachPairOnce) {
    const std::vector<Plane> planes = {{30, 90}, {60, 100}, {30, 90}, {45, 280}};
    std::vector<Line> expected;
    for (const auto& [i, j] : {std::pair{0, 1}, {0, 3}, {1, 2}, {1, 3}, {2, 3}}) {
        expected.push_back(*IntersectionOf(planes[static_cast<std::size_t>(i)],
                                           planes[static_cast<std::size_t>(j)]));
    }
    EXPECT_EQ(BetaIntersections(planes), expected);
}

TEST(PublicIntersections, PlanesThroughLinesHoldThem) {
    RandomValues random(20260717);
    const std::vector<Line> lines = random.Lines(1000);
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const Plane plane = PlaneThrough(lines[i - 1], lines[i]).value_or(Plane{});
        EXPECT_NEAR(qt::Dot(TrueVector(lines[i - 1]), TrueNormal(plane)), 0, 1e-7);
        EXPECT_NEAR(qt::Dot(TrueVector(lines[i]), TrueNormal(plane)), 0, 1e-7);
    }
    EXPECT_FALSE(PlaneThrough({30, 40}, {-30, 40}));
}

} // namespace
} // namespace quandrel::api
