// SPDX-License-Identifier: MIT

#include "density/contour_trace.h"
#include "density/grid_geometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <map>
#include <random>
#include <set>
#include <utility>

namespace quandrel {
namespace {

constexpr double kRadius = 1000;

using Place = std::pair<double, double>;

Place PlaceOf(Point point) {
    return {point.x, point.y};
}

double DistanceFromCentre(Point point) {
    return std::hypot(point.x, point.y);
}

bool IsOnPrimitive(Point point) {
    return std::abs(DistanceFromCentre(point) - kRadius) < 1e-9;
}

double Length(const ContourSegment& segment) {
    return std::hypot(segment.to.x - segment.from.x, segment.to.y - segment.from.y);
}

double TotalLength(const std::vector<ContourSegment>& segments) {
    double length = 0;
    for (const ContourSegment& segment : segments) {
        length += Length(segment);
    }
    return length;
}

/// A grid over the net with its values.
struct NetGrid {
    std::vector<double> values;
    int gridSize = 0;

    explicit NetGrid(int size, const std::function<double(double, double)>& height)
        : gridSize(size) {
        const int step = GridStep(size);
        for (int i = 0; i < GridNodes(size); ++i) {
            for (int j = 0; j < GridNodes(size); ++j) {
                values.push_back(height(NodePosition(i, step), NodePosition(j, step)));
            }
        }
    }

    [[nodiscard]] NodeValues View() const {
        const int step = GridStep(gridSize);
        return {values, GridNodes(gridSize), static_cast<double>(NodePosition(0, step)),
                static_cast<double>(step)};
    }

    [[nodiscard]] std::vector<ContourSegment> Contour(double level) const {
        return TraceContour(View(), level);
    }
};

/// Whole numbers 0 to `most` with large plateaus: steps of a bumpy surface.
NetGrid Plateaus(int gridSize, unsigned seed, int most) {
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> place(-1100, 1100);
    std::vector<Place> peaks;
    for (int i = 0; i < 12; ++i) {
        peaks.emplace_back(place(random), place(random));
    }
    return NetGrid(gridSize, [peaks, most](double x, double y) {
        double height = 0;
        for (const auto& [px, py] : peaks) {
            height += std::exp(-((x - px) * (x - px) + (y - py) * (y - py)) / 90000);
        }
        return std::min(std::floor(height * most / 2), static_cast<double>(most));
    });
}

/// A random whole number at each node.
NetGrid Noise(int gridSize, unsigned seed, int most) {
    std::mt19937 random(seed);
    return NetGrid(gridSize, [&random, most](double, double) {
        return static_cast<double>(random() % static_cast<unsigned>(most + 1));
    });
}

std::map<Place, int> EndsByPlace(const std::vector<ContourSegment>& segments) {
    std::map<Place, int> ends;
    for (const ContourSegment& segment : segments) {
        ++ends[PlaceOf(segment.from)];
        ++ends[PlaceOf(segment.to)];
    }
    return ends;
}

// --- Triangles

TEST(TriangleCase, TellsAllTenWays) {
    const struct {
        int signs[3];
        int expected;
    } cases[] = {
        {{1, 1, 1}, 0},   {{-1, -1, -1}, 0},                   // on one side
        {{0, 0, 0}, 0},   {{0, 0, 1}, 0},    {{0, 1, 1}, 0},   // not below the level
        {{0, -1, -1}, 0}, {{-1, 0, -1}, 0},  {{-1, -1, 0}, 0}, // met in a point
        {{0, 0, -1}, 1},  {{-1, 0, 0}, 2},   {{0, -1, 0}, 3},  // a side
        {{0, 1, -1}, 4},  {{0, -1, 1}, 4},   {{1, 0, -1}, 5},  {{-1, 0, 1}, 5}, // a vertex, and the
        {{1, -1, 0}, 6},  {{-1, 1, 0}, 6},                                      // side facing it
        {{1, -1, 1}, 7},  {{-1, 1, -1}, 7}, // two sides: those of vertex 2,
        {{1, 1, -1}, 8},  {{-1, -1, 1}, 8}, // 3,
        {{-1, 1, 1}, 9},  {{1, -1, -1}, 9}, // 1
    };

    for (const auto& c : cases) {
        EXPECT_EQ(TriangleCase(c.signs[0], c.signs[1], c.signs[2]), c.expected)
            << c.signs[0] << " " << c.signs[1] << " " << c.signs[2];
    }
}

const Point kA{0, 0};
const Point kB{12, 0};
const Point kC{0, 12};

TEST(TriangleSegment, RunsWhereTheCaseTells) {
    const struct {
        double heights[3];
        Point from;
        Point to;
    } cases[] = {
        {{0, 0, -1}, kA, kB},         {{-1, 0, 0}, kB, kC},         {{0, -1, 0}, kC, kA},
        {{0, 1, -3}, kA, {9, 3}}, // a quarter of the way from b to c
        {{-1, 0, 2}, kB, {0, 4}}, // a third from a to c
        {{1, -1, 0}, kC, {6, 0}}, // half-way from a to b
        {{2, -1, 1}, {8, 0}, {6, 6}}, {{1, 1, -2}, {8, 4}, {0, 4}}, {{-1, 1, 3}, {0, 3}, {6, 0}},
    };

    for (const auto& c : cases) {
        const auto segment =
            TriangleSegment({{{kA, c.heights[0]}, {kB, c.heights[1]}, {kC, c.heights[2]}}});
        ASSERT_TRUE(segment);
        EXPECT_NEAR(segment->from.x, c.from.x, 1e-12);
        EXPECT_NEAR(segment->from.y, c.from.y, 1e-12);
        EXPECT_NEAR(segment->to.x, c.to.x, 1e-12);
        EXPECT_NEAR(segment->to.y, c.to.y, 1e-12);
    }
    EXPECT_FALSE(TriangleSegment({{{kA, 1}, {kB, 2}, {kC, 3}}}));
    EXPECT_FALSE(TriangleSegment({{{kA, 0}, {kB, -2}, {kC, -3}}}));
}

TEST(TriangleSegment, NeighboursFindTheSamePointToTheLastBit) {
    std::mt19937 random(5);
    std::uniform_real_distribution<double> number(-1000, 1000);
    for (int i = 0; i < 1000; ++i) {
        const TriangleVertex a{{number(random), number(random)}, std::abs(number(random))};
        const TriangleVertex b{{number(random), number(random)}, -std::abs(number(random))};
        const TriangleVertex c{{number(random), number(random)}, number(random)};
        const TriangleVertex d{{number(random), number(random)}, number(random)};
        const auto one = TriangleSegment({{a, b, c}});
        const auto other = TriangleSegment({{b, a, d}});
        ASSERT_TRUE(one && other);
        const auto has = [](const ContourSegment& segment, Point point) {
            return segment.from == point || segment.to == point;
        };
        EXPECT_TRUE(has(*other, one->from) || has(*other, one->to));
    }
}

// --- The primitive

TEST(ClippedToPrimitive, CutsWhereTheSegmentLeaves) {
    const struct {
        ContourSegment segment;
        ContourSegment expected;
    } cases[] = {
        {{{1, 2}, {-3, 4}}, {{1, 2}, {-3, 4}}}, // inside
        {{{0, 0}, {2000, 0}}, {{0, 0}, {1000, 0}}},
        {{{600, 0}, {600, 2000}}, {{600, 0}, {600, 800}}}, // vertical
        {{{600, 0}, {600, -801}}, {{600, 0}, {600, -800}}},
        {{{-2000, 600}, {0, 600}}, {{0, 600}, {-800, 600}}},  // turned round: it leaves at the end
        {{{500, 500}, {800, 600}}, {{500, 500}, {800, 600}}}, // ends on the circle
        {{{0, 1400}, {700, 700}}, {{700, 700}, {600, 800}}},
    };

    for (const auto& c : cases) {
        const auto clipped = ClippedToPrimitive(c.segment);
        ASSERT_TRUE(clipped);
        EXPECT_NEAR(clipped->from.x, c.expected.from.x, 1e-9);
        EXPECT_NEAR(clipped->from.y, c.expected.from.y, 1e-9);
        EXPECT_NEAR(clipped->to.x, c.expected.to.x, 1e-9);
        EXPECT_NEAR(clipped->to.y, c.expected.to.y, 1e-9);
    }
}

TEST(ClippedToPrimitive, EndsExactlyOnTheCircle) {
    std::mt19937 random(11);
    std::uniform_real_distribution<double> inner(-700, 700);
    std::uniform_real_distribution<double> turn(0, 6.28);
    for (int i = 0; i < 10000; ++i) {
        const double azimuth = turn(random);
        const double radius = i % 2 == 0 ? kRadius + 1e-7 : 1400;
        const Point from{inner(random), inner(random)};
        const Point to{radius * std::sin(azimuth), radius * std::cos(azimuth)};
        const auto clipped = ClippedToPrimitive({from, to});
        ASSERT_TRUE(clipped);
        EXPECT_EQ(clipped->from, from);
        EXPECT_TRUE(IsOnPrimitive(clipped->to));
        const double cross =
            (clipped->to.x - from.x) * (to.y - from.y) - (clipped->to.y - from.y) * (to.x - from.x);
        EXPECT_NEAR(cross, 0, 1e-6) << "off the segment";
    }
}

TEST(ClippedToPrimitive, AgreesWithTheSlopeFormWhereThatIsWellConditioned) {
    std::mt19937 random(12);
    std::uniform_real_distribution<double> inner(-700, 700);
    std::uniform_real_distribution<double> outer(1000, 1200);
    for (int i = 0; i < 1000; ++i) {
        const Point from{inner(random), inner(random)};
        const Point to{outer(random), inner(random)};
        const double slope = (to.y - from.y) / (to.x - from.x);
        const double height = from.y - slope * from.x; // y = slope x + height
        const double half = slope * height / (1 + slope * slope);
        const double x =
            -half + std::sqrt(half * half - (height * height - 1e6) / (1 + slope * slope));
        const auto clipped = ClippedToPrimitive({from, to});
        ASSERT_TRUE(clipped);
        EXPECT_NEAR(clipped->to.x, x, 1e-8);
        EXPECT_NEAR(clipped->to.y, slope * x + height, 1e-8);
    }
}

// Kept: a segment from outside to outside is not drawn even where it cuts through the rim.
TEST(ClippedToPrimitive, DrawsNothingBetweenTwoEndsOutside) {
    EXPECT_FALSE(ClippedToPrimitive({{1200, 0}, {0, 1200}})) << "even across the rim";
    EXPECT_FALSE(ClippedToPrimitive({{1200, 0}, {1300, 0}}));
    EXPECT_FALSE(ClippedToPrimitive({{1000, 0}, {0, 1000}})) << "the circle itself is outside";
}

// --- Surfaces

TEST(TraceContour, OfAPlaneIsItsStraightLine) {
    for (const int gridSize : {10, 35, 50, 70, 150}) {
        // 3x + 4y = 100 (level - 7) is 20 (level - 7) from the centre.
        const NetGrid plane(gridSize, [](double x, double y) { return 7 + (3 * x + 4 * y) / 100; });
        for (const double level : {-20.5, 0.25, 7.7, 40.5}) {
            const auto segments = plane.Contour(level);
            const double distance = 20 * (level - 7);
            for (const ContourSegment& segment : segments) {
                EXPECT_NEAR((3 * segment.from.x + 4 * segment.from.y) / 5, distance, 1e-8);
                EXPECT_NEAR((3 * segment.to.x + 4 * segment.to.y) / 5, distance, 1e-8);
            }
            const double chord = 2 * std::sqrt(kRadius * kRadius - distance * distance);
            EXPECT_NEAR(TotalLength(segments), chord, 1e-6) << gridSize << ", level " << level;
        }
    }
}

TEST(TraceContour, OfAConeLiesWithinTheErrorOfItsCells) {
    for (const int gridSize : {50, 110, 150}) {
        const NetGrid cone(gridSize,
                           [](double x, double y) { return 10 - std::hypot(x, y) / 100; });
        const double step = GridStep(gridSize);
        for (const double level : {1.5, 4.2, 8.5}) {
            const double radius = 100 * (10 - level);
            // The surface's curvature across a cell, times its effects between two nodes and
            // between the corners and the centre.
            const double nearest = radius - 2 * step;
            ASSERT_GT(nearest, 0) << "the tip is outside of the error formula";
            const double bound = step * step / (100 * nearest) * (0.25 + 0.0625);
            const auto segments = cone.Contour(level);
            for (const ContourSegment& segment : segments) {
                EXPECT_NEAR(10 - DistanceFromCentre(segment.from) / 100, level, bound);
            }
            EXPECT_NEAR(TotalLength(segments), 2 * 3.14159265 * radius, radius * 0.03);
            const auto lines = ChainSegments(segments);
            ASSERT_EQ(lines.size(), 1U);
            EXPECT_EQ(lines[0].front(), lines[0].back());
        }
    }
}

TEST(TraceContour, OfAUniformGridIsEmpty) {
    const NetGrid flat(50, [](double, double) { return 4.0; });
    for (const double level : {0.0, 3.0, 4.0, 5.0, 3.999, 4.0005}) {
        EXPECT_TRUE(flat.Contour(level).empty()) << level;
    }
}

TEST(TraceContour, OfNoCellsIsEmpty) {
    EXPECT_TRUE(TraceContour({}, 1).empty());
    const double one = 1;
    EXPECT_TRUE(TraceContour({std::span(&one, 1), 1, 0, 10}, 1).empty());
}

TEST(TraceContour, EncirclesANodeBetweenItselfAndItsNeighbours) {
    const NetGrid peak(50, [](double x, double y) { return x == 0 && y == 40 ? 3.0 : 0.0; });
    const auto lines = ChainSegments(peak.Contour(2.5));
    ASSERT_EQ(lines.size(), 1U);
    EXPECT_EQ(lines[0].front(), lines[0].back());
    // From 3 to 2.5 is a sixth of the way to a neighbour, 0.5 / 2.25 of the way to a cell's centre.
    for (const Point& point : lines[0]) {
        EXPECT_LT(std::hypot(point.x, point.y - 40), 40.0 / 6 + 1e-9);
        EXPECT_GT(std::hypot(point.x, point.y - 40), 20 * std::sqrt(2.0) / 4.5 - 1e-9);
    }
}

TEST(TraceContour, RunsAroundAPlateauAtItsEdges) {
    const NetGrid table(50, [](double x, double y) {
        return std::abs(x) <= 400 && std::abs(y) <= 200 ? 5.0 : 2.0;
    });
    // A sixth of the way from the edge to the plain; corners are cut.
    for (const ContourSegment& segment : table.Contour(4.5)) {
        const double off = std::max(std::abs(segment.from.x) - 400, std::abs(segment.from.y) - 200);
        EXPECT_LT(off, 40.0 / 6 + 1e-9);
        EXPECT_GT(off, 20 / 4.5 - 1e-9);
    }
    EXPECT_GT(TotalLength(table.Contour(4.5)), 2400);
    EXPECT_LT(TotalLength(table.Contour(4.5)), 2400 + 8 * 40.0 / 6);
    EXPECT_TRUE(table.Contour(1.5).empty());
}

struct Data {
    const char* name;
    NetGrid grid;
};

std::vector<Data> ManyGrids() {
    std::vector<Data> grids;
    for (unsigned seed = 1; seed <= 6; ++seed) {
        for (const int gridSize : {10, 23, 50, 70, 150}) {
            grids.push_back({"plateaus", Plateaus(gridSize, seed, 6)});
            grids.push_back({"noise", Noise(gridSize, seed, 5)});
        }
    }
    return grids;
}

TEST(TraceContour, EndsOnThePrimitiveOrMeetsExactlyOneOtherEnd) {
    for (const Data& data : ManyGrids()) {
        for (const double level : {0.5, 1.5, 2.5, 3.5, 2.3}) {
            int onPrimitive = 0;
            for (const auto& [place, ends] : EndsByPlace(data.grid.Contour(level))) {
                const Point point{place.first, place.second};
                EXPECT_LT(DistanceFromCentre(point), kRadius + 1e-9);
                if (IsOnPrimitive(point)) {
                    onPrimitive += ends;
                } else {
                    EXPECT_EQ(ends, 2) << data.name << " " << data.grid.gridSize << " level "
                                       << level << " at " << point.x << ", " << point.y;
                }
            }
            EXPECT_EQ(onPrimitive % 2, 0);
        }
    }
}

TEST(TraceContour, OfNodesOnTheLevelHasNoLooseEnds) {
    for (const Data& data : ManyGrids()) {
        for (const double level : {1.0, 3.0}) {
            for (const auto& [place, ends] : EndsByPlace(TraceContour(data.grid.View(), level))) {
                if (!IsOnPrimitive({place.first, place.second})) {
                    EXPECT_EQ(ends % 2, 0);
                }
            }
        }
    }
}

TEST(TraceContour, SeparatesHigherFromLowerNodes) {
    // Between two neighbours on either side of the level there is an odd number of ends, between
    // others an even one.
    const NetGrid grid = Noise(20, 3, 5);
    const double level = 3;
    const int nodes = GridNodes(20);
    const int step = GridStep(20);
    std::set<Place> ends;
    for (const ContourSegment& segment : grid.Contour(level - 0.5)) {
        ends.insert(PlaceOf(segment.from));
        ends.insert(PlaceOf(segment.to));
    }
    for (int i = 0; i < nodes; ++i) {
        for (int j = 0; j + 1 < nodes; ++j) {
            const double x = NodePosition(i, step);
            const double y = NodePosition(j, step);
            if (std::hypot(std::abs(x), std::abs(y) + step) >= kRadius - step) {
                continue;
            }
            int between = 0;
            for (const Place& end : ends) {
                between += std::abs(end.first - x) < 1e-9 && end.second > y && end.second < y + step
                               ? 1
                               : 0;
            }
            const auto at = static_cast<std::size_t>(i * nodes + j);
            const bool differ = (grid.values[at] >= level) != (grid.values[at + 1] >= level);
            EXPECT_EQ(between, differ ? 1 : 0);
        }
    }
}

TEST(TraceContour, IsTheSameEachTime) {
    const NetGrid grid = Plateaus(150, 4, 6);
    EXPECT_EQ(grid.Contour(1.5), grid.Contour(1.5));
}

TEST(TraceContour, OfAMirroredGridIsMirrored) {
    const int gridSize = 20; // its nodes lie symmetrically
    const NetGrid grid = Noise(gridSize, 9, 5);
    NetGrid mirrored = grid;
    const auto nodes = static_cast<std::size_t>(GridNodes(gridSize));
    for (std::size_t i = 0; i < nodes; ++i) {
        for (std::size_t j = 0; j < nodes; ++j) {
            mirrored.values[i * nodes + j] = grid.values[(nodes - 1 - i) * nodes + j];
        }
    }
    const auto contour = grid.Contour(2.5);
    auto other = mirrored.Contour(2.5);
    ASSERT_GT(contour.size(), 100U);
    ASSERT_EQ(contour.size(), other.size());
    const auto isNear = [](Point a, Point b) {
        return std::abs(a.x + b.x) < 1e-7 && std::abs(a.y - b.y) < 1e-7;
    };
    for (const ContourSegment& segment : contour) {
        const auto found = std::find_if(other.begin(), other.end(), [&](const ContourSegment& s) {
            return (isNear(s.from, segment.from) && isNear(s.to, segment.to))
                   || (isNear(s.from, segment.to) && isNear(s.to, segment.from));
        });
        ASSERT_NE(found, other.end());
        other.erase(found);
    }
    EXPECT_NEAR(TotalLength(grid.Contour(3.5)), TotalLength(mirrored.Contour(3.5)), 1e-6);
}

// --- Specks

TEST(WithoutSpecks, LeavesOutClosedLinesOfLessThanAnArea) {
    // Peaks of one node and of 3 by 3 nodes, and a ridge that runs over the rim.
    const NetGrid grid(50, [](double x, double y) {
        const bool isPeak = x == 400 && y == 400;
        const bool isHill = std::abs(x) <= 40 && std::abs(y) <= 40;
        const bool isRidge = y == -400 && x > 880;
        return isPeak || isHill || isRidge ? 3.0 : 0.0;
    });
    const auto all = grid.Contour(1.5);
    ASSERT_EQ(ChainSegments(all).size(), 3U);
    const auto kept = WithoutSpecks(all, 4 * 40 * 40);
    ASSERT_EQ(ChainSegments(kept).size(), 2U);
    for (const ContourSegment& segment : kept) {
        EXPECT_GT(std::hypot(segment.from.x - 400, segment.from.y - 400), 300);
    }
    EXPECT_EQ(WithoutSpecks(all, 0).size(), all.size());
    EXPECT_TRUE(WithoutSpecks({}, 100).empty());
}

TEST(WithoutSpecks, GoesByTheAreaOfTheLine) {
    const std::vector<ContourSegment> square = {
        {{0, 0}, {10, 0}}, {{10, 0}, {10, 10}}, {{10, 10}, {0, 10}}, {{0, 10}, {0, 0}}};
    EXPECT_EQ(WithoutSpecks(square, 100).size(), 4U) << "as large as is asked for";
    EXPECT_TRUE(WithoutSpecks(square, 100.001).empty());
    const std::vector<ContourSegment> open(square.begin(), square.begin() + 3);
    EXPECT_EQ(WithoutSpecks(open, 1e6).size(), 3U);
}

// --- Lines

TEST(ChainSegments, JoinsEndsInAnyOrderAndSense) {
    const Point a{0, 0};
    const Point b{1, 0};
    const Point c{2, 1};
    const Point d{3, 1};
    const std::vector<ContourSegment> segments = {{c, b}, {d, c}, {a, b}};
    const auto lines = ChainSegments(segments);
    ASSERT_EQ(lines.size(), 1U);
    const std::vector<Point> forward = {a, b, c, d};
    const std::vector<Point> backward = {d, c, b, a};
    EXPECT_TRUE(lines[0] == forward || lines[0] == backward);
}

TEST(ChainSegments, ClosesRings) {
    const Point a{0, 0};
    const Point b{1, 0};
    const Point c{0, 1};
    const std::vector<ContourSegment> ring = {{a, b}, {c, b}, {a, c}};
    EXPECT_EQ(ChainSegments(ring), (std::vector<std::vector<Point>>{{a, b, c, a}}));
}

TEST(ChainSegments, TakesBothZeroesForOnePlace) {
    const std::vector<ContourSegment> segments = {{{1, 1}, {0.0, -0.0}}, {{-0.0, 0.0}, {2, 2}}};
    EXPECT_EQ(ChainSegments(segments).size(), 1U);
}

TEST(ChainSegments, OfNothingIsNothing) {
    EXPECT_TRUE(ChainSegments({}).empty());
}

TEST(ChainSegments, HoldsEachSegmentOnceAndLeavesEndsOnThePrimitiveAlone) {
    for (const Data& data : ManyGrids()) {
        const auto segments = data.grid.Contour(1.5);
        std::multiset<std::pair<Place, Place>> expected;
        for (const ContourSegment& segment : segments) {
            expected.insert(std::minmax(PlaceOf(segment.from), PlaceOf(segment.to)));
        }
        std::multiset<std::pair<Place, Place>> found;
        for (const auto& line : ChainSegments(segments)) {
            ASSERT_GE(line.size(), 2U);
            for (std::size_t i = 1; i < line.size(); ++i) {
                found.insert(std::minmax(PlaceOf(line[i - 1]), PlaceOf(line[i])));
            }
            EXPECT_TRUE(line.front() == line.back()
                        || (IsOnPrimitive(line.front()) && IsOnPrimitive(line.back())));
        }
        EXPECT_TRUE(found == expected) << data.name;
    }
}

} // namespace
} // namespace quandrel
