// SPDX-License-Identifier: MIT
//
// Contours, regions and maxima of fields whose shapes are known.

#include "density/field_contours.h"
#include "density/field_maxima.h"
#include "orientation/projection.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <numbers>
#include <vector>

namespace quandrel {
namespace {

using Values = std::function<double(const NetPlace&)>;

/// A field with its values at the nodes.
class TestField {
public:
    explicit TestField(Values at)
        : at_(std::move(at)) {
        for (int ring = 0; ring < kFieldRings; ++ring) {
            for (int trend = 0; trend < kFieldTrends; ++trend) {
                nodes_.push_back(at_({static_cast<double>(ring),
                                      ring == kFieldRings - 1 ? 0.0 : static_cast<double>(trend)}));
            }
        }
    }

    [[nodiscard]] NetField Field() const { return {nodes_, at_}; }

private:
    Values at_;
    std::vector<double> nodes_;
};

double Product(const Direction& a, const Direction& b) {
    return a.l * b.l + a.m * b.m + a.n * b.n;
}

/// The squared cosine of the angle from an axis.
Values AroundAxis(const NetPlace& axis) {
    return [axis](const NetPlace& place) {
        const double c = Product(DirectionOf(axis), DirectionOf(place));
        return c * c;
    };
}

/// The cosine of the angle from a direction.
Values AroundDirection(const NetPlace& axis) {
    return [axis](const NetPlace& place) { return Product(DirectionOf(axis), DirectionOf(place)); };
}

NetPosition PositionOf(const NetPlace& place) {
    NetPosition at;
    ProjectPoint(1, DegToRad(place.plunge), DegToRad(place.trend), at.x, at.y);
    return at;
}

/// Twice the area of rings on the equal area net, counter-clockwise ones positive.
double TwiceAreaOf(const std::vector<std::vector<NetPlace>>& rings) {
    double area = 0;
    for (const auto& ring : rings) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const NetPosition a = PositionOf(ring[i]);
            const NetPosition b = PositionOf(ring[(i + 1) % ring.size()]);
            area += a.x * b.y - a.y * b.x;
        }
    }
    return area;
}

double ShareOfNet(const NetField& field, double level) {
    return TwiceAreaOf(RegionAbove(field, FieldContour(field, level), level))
           / (2 * std::numbers::pi * kNetRadius * kNetRadius);
}

const std::array<NetPlace, 8> kAxes = {
    {{90, 0}, {89.7, 200}, {45.3, 77.7}, {12, 359.9}, {3, 180}, {0, 0}, {0, 122.5}, {0.4, 300}}};

TEST(FieldContour, OfOneAxisIsACircleAboutIt) {
    for (const NetPlace& axis : kAxes) {
        const TestField test(AroundAxis(axis));
        for (const double angle : {0.7, 5.0, 20.0, 61.0}) {
            const double level = std::pow(std::cos(DegToRad(angle)), 2);
            const std::vector<FieldLine> lines = FieldContour(test.Field(), level);
            ASSERT_FALSE(lines.empty()) << axis.plunge << " " << angle;
            for (const FieldLine& line : lines) {
                for (const NetPlace& vertex : line.vertices) {
                    ASSERT_NEAR(test.Field().at(vertex), level, 1e-9);
                }
            }
        }
    }
}

TEST(FieldContour, ChordsAreAsGoodAsTheLine) {
    for (const NetPlace& axis : kAxes) {
        const TestField test(AroundAxis(axis));
        for (const double angle : {2.0, 5.0, 20.0}) {
            const double level = std::pow(std::cos(DegToRad(angle)), 2);
            for (const FieldLine& line : FieldContour(test.Field(), level)) {
                for (std::size_t i = 0; i + 1 < line.vertices.size(); ++i) {
                    const Direction a = DirectionOf(line.vertices[i]);
                    const Direction b = DirectionOf(line.vertices[i + 1]);
                    const NetPlace middle = PlaceOf({a.l + b.l, a.m + b.m, a.n + b.n});
                    const double c = std::sqrt(test.Field().at(middle));
                    ASSERT_NEAR(RadToDeg(std::acos(c)), angle, 0.03)
                        << axis.plunge << "/" << axis.trend << " at " << middle.plunge << "/"
                        << middle.trend;
                }
            }
        }
    }
}

TEST(FieldContour, ClosesOrEndsAtBothEndsOfADiameter) {
    for (const NetPlace& axis : kAxes) {
        const TestField test(AroundAxis(axis));
        for (const double angle : {5.0, 20.0, 61.0}) {
            std::vector<double> ends;
            const double level = std::pow(std::cos(DegToRad(angle)), 2);
            for (const FieldLine& line : FieldContour(test.Field(), level)) {
                if (!line.isClosed) {
                    EXPECT_EQ(line.vertices.front().plunge, 0);
                    EXPECT_EQ(line.vertices.back().plunge, 0);
                    ends.push_back(line.vertices.front().trend);
                    ends.push_back(line.vertices.back().trend);
                }
            }
            EXPECT_EQ(ends.empty(), angle < axis.plunge) << axis.plunge << " " << angle;
            for (const double end : ends) {
                const auto opposite = [end](double other) {
                    return std::abs(std::remainder(end - other - 180, 360)) < 1e-6;
                };
                EXPECT_EQ(std::count_if(ends.begin(), ends.end(), opposite), 1);
            }
        }
    }
}

TEST(RegionAbove, HasTheAreaOfItsCap) {
    for (const NetPlace& axis : kAxes) {
        const TestField test(AroundAxis(axis));
        for (const double angle : {5.0, 20.0, 61.0, 88.0}) {
            const double cosine = std::cos(DegToRad(angle));
            EXPECT_NEAR(ShareOfNet(test.Field(), cosine * cosine), 1 - cosine, 3e-4)
                << axis.plunge << "/" << axis.trend << " " << angle;
        }
    }
}

TEST(RegionAbove, OfDirectionsEndsAtThePrimitive) {
    const TestField test(AroundDirection({0, 30}));
    EXPECT_NEAR(ShareOfNet(test.Field(), std::cos(DegToRad(40))), (1 - std::cos(DegToRad(40))) / 2,
                3e-4);
    const std::vector<FieldLine> lines = FieldContour(test.Field(), std::cos(DegToRad(40)));
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_NEAR(lines[0].vertices.front().trend, 350, 1e-6);
    EXPECT_NEAR(lines[0].vertices.back().trend, 70, 1e-6);
}

TEST(RegionAbove, IsTheNetWhereAllIsAboveAndNothingWhereAllIsBelow) {
    const TestField test(AroundAxis({20, 30}));
    EXPECT_NEAR(ShareOfNet(test.Field(), -1), 1, 1e-4);
    EXPECT_EQ(ShareOfNet(test.Field(), 2), 0);
}

TEST(RegionAbove, HasHoles) {
    // A girdle about the vertical is a ring between two circles.
    const TestField test(
        [](const NetPlace& place) { return -std::pow(std::sin(DegToRad(place.plunge)) - 0.5, 2); });
    const double level = -0.04;
    const auto rings = RegionAbove(test.Field(), FieldContour(test.Field(), level), level);
    ASSERT_EQ(rings.size(), 2U);
    EXPECT_NEAR(TwiceAreaOf(rings) / (2 * std::numbers::pi * kNetRadius * kNetRadius), 0.4, 3e-4);
}

TEST(FieldMaxima, OfOneAxisIsTheAxis) {
    for (const NetPlace& axis : kAxes) {
        const TestField test(AroundAxis(axis));
        const std::vector<FieldMaximum> maxima = FieldMaxima(test.Field(), NetRim::Joined);
        ASSERT_EQ(maxima.size(), 1U) << axis.plunge << "/" << axis.trend;
        EXPECT_NEAR(maxima[0].value, 1, 1e-12);
        const double c = Product(DirectionOf(maxima[0].place), DirectionOf(axis));
        EXPECT_NEAR(std::abs(c), 1, 1e-11);
    }
}

TEST(FieldMaxima, AreInOrder) {
    const auto bump = [](const NetPlace& place, const NetPlace& at, double height) {
        const double c = Product(DirectionOf(place), DirectionOf(at));
        return height * std::exp(40 * (c * c - 1));
    };
    const TestField test([&](const NetPlace& place) {
        return bump(place, {0, 89.5}, 2) + bump(place, {60.5, 200.5}, 3)
               + bump(place, {30, 310}, 1);
    });
    const std::vector<FieldMaximum> maxima = FieldMaxima(test.Field(), NetRim::Joined);
    ASSERT_EQ(maxima.size(), 3U);
    EXPECT_NEAR(maxima[0].place.trend, 200.5, 1e-2);
    EXPECT_NEAR(maxima[0].place.plunge, 60.5, 1e-2);
    EXPECT_NEAR(std::remainder(maxima[1].place.trend - 89.5, 180), 0, 1e-2);
    EXPECT_NEAR(maxima[2].place.trend, 310, 1e-2);
    EXPECT_GT(maxima[1].value, maxima[2].value);
}

TEST(FieldMaxima, OfDirectionsThatRiseAboveThePrimitiveAreNotShown) {
    const TestField up([](const NetPlace& place) {
        return Product(DirectionOf(NetPlace{0, 45}), DirectionOf(place))
               - 0.5 * std::sin(DegToRad(place.plunge));
    });
    EXPECT_TRUE(FieldMaxima(up.Field(), NetRim::Open).empty());
    const TestField even([](const NetPlace&) { return 1.0; });
    EXPECT_TRUE(FieldMaxima(even.Field(), NetRim::Joined).empty());
}

} // namespace
} // namespace quandrel
