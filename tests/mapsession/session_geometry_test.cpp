// SPDX-License-Identifier: MIT

#include "mapsession/session_geometry.h"

#include <cmath>
#include <random>

namespace quandrel {
namespace {

const std::vector<MapPoint> kSquare = {{0, 0}, {10, 0}, {10, 10}, {0, 10}};
const std::vector<MapPoint> kHole = {{4, 4}, {6, 4}, {6, 6}, {4, 6}, {4, 4}};
const std::vector<MapPoint> kElbow = {{0, 0}, {10, 0}, {10, 10}};

MapShape Annulus() {
    return {{MapPartKind::Ring, kSquare}, {MapPartKind::Ring, kHole}};
}

TEST(DistanceToShape, IsThatOfTheNearestPlace) {
    struct Row {
        MapShape shape;
        MapPoint point;
        double distance;
    };

    const MapShape points = {{MapPartKind::Points, kElbow}};
    const MapShape line = {{MapPartKind::Line, kElbow}};
    const MapShape ring = {{MapPartKind::Ring, kElbow}};
    const std::vector<Row> rows = {
        {points, {3, 4}, 5},            // 3, 4, 5 from the first point
        {line, {5, 3}, 3},              // above the first leg
        {line, {13, 14}, 5},            // beyond the end
        {line, {0, 10}, 10},            // the closing side is not there
        {ring, {0, 10}, std::sqrt(50)}, // and is there: half the diagonal of the square
        {ring, {8, 2}, 0},              // within
        {Annulus(), {2, 5}, 0},
        {Annulus(), {5, 5}, 1}, // in the middle of the hole
        {Annulus(), {13, 14}, 5},
    };
    for (const Row& row : rows) {
        EXPECT_DOUBLE_EQ(DistanceToShape(row.point, row.shape), row.distance)
            << row.point.x << " " << row.point.y;
    }
    EXPECT_TRUE(std::isinf(DistanceToShape({0, 0}, {})));
}

TEST(ShapeTouchesBox, WhenTheyShareAPoint) {
    struct Row {
        MapShape shape;
        MapBox box;
        bool touches;
    };

    const MapShape points = {{MapPartKind::Points, kElbow}};
    const MapShape line = {{MapPartKind::Line, kElbow}};
    const std::vector<Row> rows = {
        {points, MapBox::Of({9, -1}, {11, 1}), true},
        {points, MapBox::Of({10, 10}, {12, 12}), true},         // on the corner
        {points, MapBox::Of({4, -1}, {6, 1}), false},           // between two points
        {line, MapBox::Of({4, -1}, {6, 1}), true},              // a leg goes through
        {line, MapBox::Of({0, 5}, {4, 9}), false},              // within the line's own box
        {Annulus(), MapBox::Of({1, 1}, {2, 2}), true},          // within the area
        {Annulus(), MapBox::Of({4.5, 4.5}, {5.5, 5.5}), false}, // within the hole
        {Annulus(), MapBox::Of({-1, -1}, {11, 11}), true},      // around all
        {Annulus(), MapBox::Of({11, 11}, {12, 12}), false},
        {Annulus(), MapBox(), false},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(ShapeTouchesBox(row.shape, row.box), row.touches)
            << row.box.left << " " << row.box.bottom;
    }
}

TEST(ShapeTouchesBox, AgreesWithPointsTriedOneByOne) {
    // A second method: sample the segment densely. Near misses below the step are left out.
    std::mt19937 random(7);
    std::uniform_real_distribution<double> anywhere(-10, 10);
    const MapBox box = MapBox::Of({-3, -2}, {4, 5});
    int hits = 0;
    for (int round = 0; round < 2000; ++round) {
        const std::vector<MapPoint> ends = {{anywhere(random), anywhere(random)},
                                            {anywhere(random), anywhere(random)}};
        bool within = false;
        bool near = false;
        for (int i = 0; i <= 1000; ++i) {
            const double share = i / 1000.0;
            const MapPoint at{ends[0].x + share * (ends[1].x - ends[0].x),
                              ends[0].y + share * (ends[1].y - ends[0].y)};
            within = within || box.Grown(-0.03).Holds(at);
            near = near || box.Grown(0.03).Holds(at);
        }
        const MapShape line = {{MapPartKind::Line, ends}};
        if (within == near) {
            EXPECT_EQ(ShapeTouchesBox(line, box), within) << "round " << round;
            hits += within ? 1 : 0;
        }
    }
    EXPECT_GT(hits, 300);
}

TEST(ClipSegment, KeepsThePartWithin) {
    const MapBox box = MapBox::Of({0, 0}, {10, 10});
    MapPoint from{-10, 5};
    MapPoint to{30, 5};
    ASSERT_TRUE(ClipSegment(box, from, to));
    EXPECT_EQ(from, (MapPoint{0, 5}));
    EXPECT_EQ(to, (MapPoint{10, 5}));

    from = {2, 2};
    to = {7, 9};
    ASSERT_TRUE(ClipSegment(box, from, to));
    EXPECT_EQ(from, (MapPoint{2, 2}));
    EXPECT_EQ(to, (MapPoint{7, 9}));

    from = {-3, 9};
    to = {3, 15}; // passes the corner outside
    EXPECT_FALSE(ClipSegment(box, from, to));
    EXPECT_EQ(from, (MapPoint{-3, 9}));
}

double AreaOf(const std::vector<MapPoint>& ring) {
    double twice = 0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const MapPoint& from = ring[i];
        const MapPoint& to = ring[(i + 1) % ring.size()];
        twice += from.x * to.y - to.x * from.y;
    }
    return std::abs(twice) / 2;
}

TEST(ClipRing, LeavesTheAreaThatTheBoxHolds) {
    const std::vector<MapPoint> diamond = {{5, -5}, {15, 5}, {5, 15}, {-5, 5}};
    // The area of the diamond is 200; the box of 100 lies within it, and cuts off its four corners.
    EXPECT_DOUBLE_EQ(AreaOf(ClipRing(MapBox::Of({0, 0}, {10, 10}), diamond)), 100);
    // Its right half.
    EXPECT_DOUBLE_EQ(AreaOf(ClipRing(MapBox::Of({5, -20}, {30, 30}), diamond)), 100);
    EXPECT_DOUBLE_EQ(AreaOf(ClipRing(MapBox::Of({-20, -20}, {30, 30}), diamond)), 200);
    EXPECT_TRUE(ClipRing(MapBox::Of({20, 20}, {30, 30}), diamond).empty());
}

} // namespace
} // namespace quandrel
